// The module that holds the click sound and the multimedia libraries; see ClickSound.
#include "ui/qt/click_sound.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <type_traits>

namespace {

class EffectSound : public bq::qt::ClickSound {
 public:
  explicit EffectSound(const QString& wav_file) {
    effect_.setSource(QUrl::fromLocalFile(wav_file));
  }
  void Play() override {
    effect_.stop();
    effect_.play();
  }

 private:
  QSoundEffect effect_;
};

}  // namespace

extern "C" Q_DECL_EXPORT bq::qt::ClickSound* bq_make_click_sound(const QString& wav_file) {
  static_assert(std::is_same_v<decltype(&bq_make_click_sound), bq::qt::MakeClickSoundFunction>);
  // Without an audio device QSoundEffect warns and never finishes playing.
  if (QMediaDevices::audioOutputs().isEmpty()) return nullptr;
  return new EffectSound(wav_file);
}
