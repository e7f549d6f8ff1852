#pragma once

#include <random>
#include <string>

#include "ui/model/platform.h"

namespace bq::bench {

// A platform that does nothing the benchmarks would measure: no sound, no windows, no boxes.
class QuietPlatform : public Platform {
 public:
  float Uniform() override { return static_cast<float>(gen_() >> 8) * 0x1p-24f; }
  void PlayClick() override {}
  void Open(const std::string&) override {}
  void MessageBox(const std::string&) override {}
  int ScreenWidthPixels() override { return 1920; }
  void WindowOpened(const std::string&) override {}
  void WindowClosed(const std::string&) override {}
  void Warn(const std::string&) override {}

 private:
  std::mt19937 gen_{7};
};

}  // namespace bq::bench
