#pragma once

#include <iosfwd>
#include <optional>
#include <string>

namespace bq {

struct DriverOptions {
  std::string settings_path;
  std::optional<unsigned> seed;  // nullopt: seeded from the clock
  int screen_width = 1920;
};

// Plays the game without a window: events from `in`, one per line, answers on `out`.
// Returns the process exit code.
int RunHeadless(std::istream& in, std::ostream& out, const DriverOptions& options);

}  // namespace bq
