#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "engine/rng.h"

namespace bq {

// The help document, a file of the data folder.
inline constexpr const char* kHelpDocument = "help.html";

// Everything the models need from the world outside: the front end provides it (the Qt window,
// the headless driver, or a test fake that records calls and scripts random numbers).
class Platform : public Rng {
 public:
  virtual void PlayClick() = 0;
  // The help document or a web address, opened with the desktop's default application.
  virtual void Open(const std::string& target) = 0;
  // How To Play, from any window: the help document. The front end makes sure something shows.
  void OpenHelp() { Open(kHelpDocument); }
  virtual void MessageBox(const std::string& text) = 0;
  // A failure message box with the critical-error icon; `detail` says underneath what to change.
  virtual void CriticalBox(const std::string& text, const std::string& detail) {
    (void)detail;
    MessageBox(text);
  }
  virtual int ScreenWidthPixels() = 0;
  // A window of the program was shown or taken down (the front end shows or hides it).
  virtual void WindowOpened(const std::string& window) = 0;
  virtual void WindowClosed(const std::string& window) = 0;
  // A problem the user should hear of that needs no answer, e.g. an unwritable settings file.
  virtual void Warn(const std::string& text) = 0;
  // The same, told in the window too, without holding up the game: the player can go on playing
  // and dismiss it when they like.
  virtual void Notice(const std::string& text) { Warn(text); }
  // Milliseconds from any fixed moment: how long the opponent has been silent.
  virtual std::int64_t NowMs() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
  }
};

}  // namespace bq
