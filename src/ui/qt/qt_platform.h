#pragma once

#include <QString>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>

#include "ui/model/platform.h"

class QObject;
class QTextBrowser;
class QWidget;

namespace bq::qt {

class ClickSound;

// What the platform needs from the windows: somewhere to show and hide them, and a parent for
// message boxes.
class WindowHost {
 public:
  virtual ~WindowHost() = default;
  virtual void WindowOpened(const std::string& window) = 0;
  virtual void WindowClosed(const std::string& window) = 0;
  virtual QWidget* DialogParent() = 0;
};

// A window first opens centred over another (the game window), as far as the screen allows;
// size it first.
void CentreOver(QWidget* w, QWidget* over);

// Opens a URL with the desktop's default application and calls `failed` (at once, or when the
// desktop reports back) if it could not.
using UrlOpener = std::function<void(const QUrl& url, std::function<void()> failed)>;

// The desktop's way, without asking whether a desktop session runs: xdg-open, watched for the
// answer that no application takes the URL; QDesktopServices where there is no xdg-open.
// `owner` holds the watcher.
void OpenWithDesktop(const QUrl& url, std::function<void()> failed, QObject* owner);

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
  // The click sound's module, loaded at the first click; unset, the game is silent.
  void set_sound_module(QString path) { sound_module_ = std::move(path); }
  // Unset: OpenWithDesktop, where a desktop session runs.
  void set_url_opener(UrlOpener opener) { open_url_ = std::move(opener); }

  void PlayClick() override;
  void Open(const std::string& target) override;
  void MessageBox(const std::string& text) override;
  void CriticalBox(const std::string& text, const std::string& detail) override;
  int ScreenWidthPixels() override;
  void WindowOpened(const std::string& window) override;
  void WindowClosed(const std::string& window) override;
  void Warn(const std::string& text) override;
  void Notice(const std::string& text) override;
  // The window's part of Notice: a box over the game that leaves it playable.
  void ShowNotice(const std::string& text);
  float Uniform() override;

  // Where Open() would go for `target`: a web address as it stands, a document by its file in
  // the data folder. Empty when the document is missing (nothing is opened then).
  QString ResolveTarget(const std::string& target) const;

  // The window of our own that shows a document the desktop could not open; nullptr until then.
  QTextBrowser* help_browser() const { return help_browser_; }

 private:
  QtPlatformOptions options_;
  WindowHost* host_ = nullptr;
  UrlOpener open_url_;
  std::mt19937 gen_;
  void ShowInBrowser(const QUrl& url);

  QString sound_module_;
  std::unique_ptr<ClickSound> click_;
  bool sound_probed_ = false;
  std::unique_ptr<QObject> watchers_;     // parent of the opener's processes
  QTextBrowser* help_browser_ = nullptr;  // inside help_window_
  std::unique_ptr<QWidget> help_window_;
};

}  // namespace bq::qt
