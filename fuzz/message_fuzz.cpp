// The message decoder on any bytes, read as a copy with 10-card and with 20-card Stacks: whatever
// it accepts re-encodes to exactly the bytes that came in.
#include <cstdint>
#include <string_view>

#include "fuzz_check.h"
#include "net/message.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const bq::net::Context context : {bq::net::Context{10}, bq::net::Context{20}}) {
    const auto message = bq::net::Decode(text, context);
    if (message) BQ_FUZZ_CHECK(bq::net::Encode(*message) == text);
  }
  return 0;
}
