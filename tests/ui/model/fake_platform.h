#pragma once

#include <string>
#include <vector>

#include "support/scripted_rng.h"
#include "support/temp_settings.h"
#include "ui/model/platform.h"

namespace bq::test {

// Records what the models ask of the world and plays back scripted random numbers.
class FakePlatform : public Platform {
 public:
  explicit FakePlatform(unsigned seed = 1) : rng_(seed) {}
  void Script(std::initializer_list<float> values) { rng_.Script(values); }
  float Uniform() override { return rng_.Uniform(); }
  void PlayClick() override { ++clicks; }
  void Open(const std::string& target) override { opened.push_back(target); }
  void MessageBox(const std::string& text) override { messages.push_back(text); }
  void CriticalBox(const std::string& text, const std::string& detail) override {
    messages.push_back(text);
    details.push_back(detail);
  }
  int ScreenWidthPixels() override { return screen_width; }
  void WindowOpened(const std::string& w) override { windows.push_back("open " + w); }
  void WindowClosed(const std::string& w) override { windows.push_back("closed " + w); }
  void Warn(const std::string& text) override { warnings.push_back(text); }
  void Notice(const std::string& text) override { notices.push_back(text); }
  std::int64_t NowMs() override { return now_ms; }

  int clicks = 0;
  int screen_width = 1920;
  std::int64_t now_ms = 0;
  std::vector<std::string> opened, messages, details, windows, warnings, notices;

 private:
  ScriptedRng rng_;
};

}  // namespace bq::test
