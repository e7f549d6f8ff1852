// Without libFuzzer: feeds every file of the seed folders to the target once, so the seeds are an
// ordinary test. A broken invariant aborts, which fails the test.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
  size_t inputs = 0;
  for (int i = 1; i < argc; ++i) {
    std::error_code ec;
    for (std::filesystem::directory_iterator it(argv[i], ec), end; !ec && it != end;
         it.increment(ec)) {
      std::ifstream in(it->path(), std::ios::binary);
      const std::string data(std::istreambuf_iterator<char>(in), {});
      LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(data.data()), data.size());
      ++inputs;
    }
  }
  std::printf("%zu inputs\n", inputs);
  return inputs > 0 ? 0 : 1;  // no seeds is a mistake, not a pass
}
