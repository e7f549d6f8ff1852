#include "ui/qt/command_line.h"

#include <charconv>

namespace bq::qt {
namespace {

template <typename Number>
std::optional<Number> ParseNumber(const std::string& text) {
  Number value{};
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, value);
  if (ec != std::errc() || ptr != end || text.empty()) return std::nullopt;
  return value;
}

}  // namespace

const char* UsageText() {
  return "Usage: bramblequay [OPTIONS]\n"
         "A two-player card game: put your Stack in order before your opponent does.\n"
         "\n"
         "Options:\n"
         "  --headless             play without a window: events on standard input,\n"
         "                         answers on standard output\n"
         "  --settings FILE        the settings file to read and write\n"
         "  --seed N               seed the random numbers with N (a repeatable run)\n"
         "  --screen-width PIXELS  the screen width the program believes it has\n"
         "  --selfplay N           play N games of the computer against itself and\n"
         "                         print a summary; with --options LIST (stackem,backem,\n"
         "                         switchem,smackem,takem, or random), --seed S and\n"
         "                         --csv FILE (one row per game)\n"
         "  --help                 show this text and exit\n"
         "  --version              show the version and exit\n";
}

CommandLine ParseCommandLine(const std::vector<std::string>& args) {
  CommandLine cl;
  for (size_t i = 0; i < args.size() && cl.error.empty(); ++i) {
    std::string arg = args[i];
    std::string value;
    bool has_value = false;
    if (const auto eq = arg.find('='); arg.rfind("--", 0) == 0 && eq != std::string::npos) {
      value = arg.substr(eq + 1);
      arg = arg.substr(0, eq);
      has_value = true;
    }
    auto take_value = [&]() -> bool {
      if (has_value) return true;
      if (i + 1 >= args.size()) {
        cl.error = arg + " needs a value";
        return false;
      }
      value = args[++i];
      return true;
    };
    if (arg == "--help" || arg == "-h") {
      cl.help = true;
    } else if (arg == "--version") {
      cl.version = true;
    } else if (arg == "--headless") {
      cl.headless = true;
    } else if (arg == "--settings") {
      if (take_value()) cl.settings = value;
      if (cl.error.empty() && cl.settings.empty()) cl.error = "--settings needs a file name";
    } else if (arg == "--seed") {
      if (!take_value()) break;
      cl.seed = ParseNumber<unsigned>(value);
      if (!cl.seed) cl.error = "--seed needs a whole number, not '" + value + "'";
    } else if (arg == "--screen-width") {
      if (!take_value()) break;
      cl.screen_width = ParseNumber<int>(value);
      if (!cl.screen_width || *cl.screen_width <= 0)
        cl.error = "--screen-width needs a number of pixels, not '" + value + "'";
    } else if (arg == "--selfplay") {
      if (!take_value()) break;
      cl.selfplay = ParseNumber<long long>(value);
      if (!cl.selfplay || *cl.selfplay < 0)
        cl.error = "--selfplay needs a number of games, not '" + value + "'";
    } else if (arg == "--options") {
      if (take_value()) cl.selfplay_options = value;
    } else if (arg == "--csv") {
      if (take_value()) cl.csv = value;
      if (cl.error.empty() && cl.csv.empty()) cl.error = "--csv needs a file name";
    } else {
      cl.error = "unknown option '" + args[i] + "'";
    }
  }
  if (cl.error.empty() && !cl.selfplay && (!cl.selfplay_options.empty() || !cl.csv.empty()))
    cl.error = "--options and --csv belong with --selfplay";
  return cl;
}

}  // namespace bq::qt
