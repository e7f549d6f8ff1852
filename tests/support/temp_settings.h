#pragma once

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace bq::test {

// A settings file in a fresh temporary folder of its own, removed with the object. Tests run in
// parallel processes, so the folder name carries the process id.
class TempSettings {
 public:
  TempSettings() {
    static std::atomic<int> counter{0};
    dir_ = std::filesystem::temp_directory_path() /
           ("bramblequay-test-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(dir_);
  }
  ~TempSettings() { std::filesystem::remove_all(dir_); }
  TempSettings(const TempSettings&) = delete;
  TempSettings& operator=(const TempSettings&) = delete;

  const std::filesystem::path& dir() const { return dir_; }
  std::string path() const { return (dir_ / "Bramblequay.INI").string(); }
  void Write(const std::string& text) const { std::ofstream(path(), std::ios::binary) << text; }
  std::string Read() const {
    std::ifstream in(path(), std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }

 private:
  std::filesystem::path dir_;
};

}  // namespace bq::test
