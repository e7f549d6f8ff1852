#pragma once

#include <QString>

namespace bq::qt {

// The click sound. It lives in a module of its own with the multimedia libraries, loaded at the
// first click, so that start-up does not pay for them.
class ClickSound {
 public:
  virtual ~ClickSound() = default;
  virtual void Play() = 0;
};

// What the module exports under kMakeClickSoundSymbol: the sound of a WAV file, or nullptr where
// there is no audio output.
using MakeClickSoundFunction = ClickSound* (*)(const QString& wav_file);
inline constexpr char kMakeClickSoundSymbol[] = "bq_make_click_sound";

}  // namespace bq::qt
