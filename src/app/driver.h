#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace bq {
namespace net {
class Link;
}

struct DriverOptions {
  std::string settings_path;
  std::optional<unsigned> seed;  // nullopt: seeded from the clock
  int screen_width = 1920;
  // The connection with the opponent (the program's UDP link); none: nothing goes anywhere.
  net::Link* link = nullptr;
  // Runs the event loop for so many milliseconds, so that datagrams arrive; none: waits nothing.
  std::function<void(int ms)> wait;
};

// Plays the game without a window: events from `in`, one per line, answers on `out`.
// Returns the process exit code.
int RunHeadless(std::istream& in, std::ostream& out, const DriverOptions& options);

}  // namespace bq
