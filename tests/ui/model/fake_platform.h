#pragma once

#include <unistd.h>

#include <cstdio>
#include <deque>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "ui/model/platform.h"

namespace bq::test {

// Records what the models ask of the world and plays back scripted random numbers.
class FakePlatform : public Platform {
 public:
  explicit FakePlatform(unsigned seed = 1) : gen_(seed) {}
  void Script(std::initializer_list<float> values) { script_.insert(script_.end(), values); }
  float Uniform() override {
    if (!script_.empty()) {
      const float v = script_.front();
      script_.pop_front();
      return v;
    }
    return static_cast<float>(gen_() >> 8) * 0x1p-24f;
  }
  void PlayClick() override { ++clicks; }
  void Open(const std::string& target) override { opened.push_back(target); }
  void MessageBox(const std::string& text) override { messages.push_back(text); }
  int ScreenWidthPixels() override { return screen_width; }
  void WindowOpened(const std::string& w) override { windows.push_back("open " + w); }
  void WindowClosed(const std::string& w) override { windows.push_back("closed " + w); }
  void Warn(const std::string& text) override { warnings.push_back(text); }

  int clicks = 0;
  int screen_width = 1920;
  std::vector<std::string> opened, messages, windows, warnings;

 private:
  std::deque<float> script_;
  std::mt19937 gen_;
};

// A settings file in a fresh temporary folder, removed with the object.
class TempSettings {
 public:
  TempSettings() {
    static int counter = 0;
    dir_ = std::filesystem::temp_directory_path() /
           ("bq-model-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(dir_);
  }
  ~TempSettings() { std::filesystem::remove_all(dir_); }
  std::string path() const { return (dir_ / "Bramblequay.INI").string(); }
  void Write(const std::string& text) const {
    FILE* f = std::fopen(path().c_str(), "w");
    std::fputs(text.c_str(), f);
    std::fclose(f);
  }

 private:
  std::filesystem::path dir_;
};

}  // namespace bq::test
