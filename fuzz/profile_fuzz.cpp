// The profile parser on any bytes, in memory: text that it takes comes back byte for byte, and a
// key that is set reads back, whatever surrounds it.
#include <cstdint>
#include <string_view>

#include "fuzz_check.h"
#include "store/profile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  bq::Profile p;
  if (!p.Parse(text)) {
    BQ_FUZZ_CHECK(text.find('\0') != std::string_view::npos || size > bq::Profile::kMaxSize);
    return 0;
  }
  BQ_FUZZ_CHECK(p.Text() == text);
  p.GetInt("Options", "SetStackem", 0);
  p.GetInt("WindowPosition", "Left", 0);

  p.SetString("Options", "SetStackem", "-12");
  p.SetString("Fuzz Section", "Key", "v");
  bq::Profile q;
  BQ_FUZZ_CHECK(q.Parse(p.Text()));
  BQ_FUZZ_CHECK(q.GetInt("options", "SETSTACKEM", 0) == -12);
  BQ_FUZZ_CHECK(q.GetString("FUZZ SECTION", "key") == "v");
  BQ_FUZZ_CHECK(q.Text() == p.Text());
  return 0;
}
