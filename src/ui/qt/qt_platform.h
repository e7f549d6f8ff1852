#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <random>
#include <string>

#include "ui/model/platform.h"

class QSoundEffect;
class QWidget;

namespace bq::qt {

// What the platform needs from the windows: somewhere to show and hide them, and a parent for
// message boxes.
class WindowHost {
 public:
  virtual ~WindowHost() = default;
  virtual void WindowOpened(const std::string& window) = 0;
  virtual void WindowClosed(const std::string& window) = 0;
  virtual QWidget* DialogParent() = 0;
};

struct QtPlatformOptions {
  std::optional<unsigned> seed;     // nullopt: from the clock
  std::optional<int> screen_width;  // nullopt: the primary screen's
  QString data_dir;                 // click.wav, help.html
};

// The desktop's services for the models: sound, help, message boxes, screen and chance.
class QtPlatform : public Platform {
 public:
  explicit QtPlatform(QtPlatformOptions options);
  ~QtPlatform() override;

  void set_host(WindowHost* host) { host_ = host; }

  void PlayClick() override;
  void Open(const std::string& target) override;
  void MessageBox(const std::string& text) override;
  int ScreenWidthPixels() override;
  void WindowOpened(const std::string& window) override;
  void WindowClosed(const std::string& window) override;
  void Warn(const std::string& text) override;
  float Uniform() override;

  // Where Open() would go for `target`: a web address as it stands, a document by its file in
  // the data folder. Empty when the document is missing (nothing is opened then).
  QString ResolveTarget(const std::string& target) const;

 private:
  QtPlatformOptions options_;
  WindowHost* host_ = nullptr;
  std::mt19937 gen_;
  std::unique_ptr<QSoundEffect> click_;
  bool sound_probed_ = false;
};

}  // namespace bq::qt
