#include "ui/qt/command_line.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>

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

// Qt's own options, which QApplication takes out of the arguments. Qt accepts them with one dash
// or two.
constexpr std::array<std::string_view, 15> kQtOptionsWithValue = {"platform",
                                                                  "platformpluginpath",
                                                                  "platformtheme",
                                                                  "plugin",
                                                                  "qwindowgeometry",
                                                                  "geometry",
                                                                  "qwindowtitle",
                                                                  "title",
                                                                  "qwindowicon",
                                                                  "icon",
                                                                  "session",
                                                                  "display",
                                                                  "name",
                                                                  "style",
                                                                  "stylesheet"};
constexpr std::array<std::string_view, 6> kQtFlags = {"reverse", "widgetcount", "nograb",
                                                      "dograb",  "sync",        "testability"};
constexpr std::array<std::string_view, 3> kQtJoinedOptions = {
    "style=", "stylesheet=", "qmljsdebugger="};

template <size_t N>
bool OneOf(std::string_view name, const std::array<std::string_view, N>& names) {
  for (std::string_view n : names)
    if (name == n) return true;
  return false;
}

// The name of a Qt option without its dashes, or empty when ARG is none.
std::string_view QtOptionName(std::string_view arg) {
  if (arg.size() < 2 || arg[0] != '-') return {};
  arg.remove_prefix(arg[1] == '-' ? 2 : 1);
  return arg;
}

// Bytes of a valid UTF-8 sequence starting at TEXT[0] that stands for a printable character;
// 0 for anything else.
size_t PrintableUtf8(std::string_view text) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  if (lead >= 0x20 && lead < 0x7f) return 1;
  const size_t length = lead >= 0xf0 && lead < 0xf5 ? 4 : lead >= 0xe0 ? 3 : lead >= 0xc2 ? 2 : 0;
  if (length == 0 || lead >= 0xf5 || text.size() < length) return 0;
  unsigned code = lead & (0x7fu >> length);
  for (size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xc0) != 0x80) return 0;
    code = code << 6 | (byte(i) & 0x3f);
  }
  const unsigned least[] = {0, 0, 0xa0, 0x800, 0x10000};  // C1 controls and overlong forms out
  if (code < least[length] || (code >= 0xd800 && code < 0xe000) || code > 0x10ffff) return 0;
  return length;
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const size_t n = PrintableUtf8(text);
    if (n > 0) {
      out += text.substr(0, n);
      text.remove_prefix(n);
      continue;
    }
    const unsigned char c = static_cast<unsigned char>(text[0]);
    text.remove_prefix(1);
    if (c == '\n') {
      out += "\\n";
    } else if (c == '\t') {
      out += "\\t";
    } else {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\x%02x", c);
      out += buf;
    }
  }
  return out;
}

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
         "                         --csv FILE (one row per game); --players A,B picks\n"
         "                         side A's and side B's computer: classic (the\n"
         "                         default) or expert\n"
         "  --help                 show this text and exit\n"
         "  --version              show the version and exit\n"
         "\n"
         "Qt's own options (-style NAME, -platform NAME, -reverse, -qwindowgeometry WxH+X+Y\n"
         "and the like) are passed on to Qt.\n";
}

CommandLine ParseCommandLine(const std::vector<std::string>& args) {
  CommandLine cl;
  for (size_t i = 0; i < args.size() && cl.error.empty(); ++i) {
    std::string arg = args[i];
    std::string value;
    bool has_value = false;
    const std::string_view qt_name = QtOptionName(arg);
    if (OneOf(qt_name, kQtFlags)) {
      cl.qt_args.push_back(arg);
      continue;
    }
    if (OneOf(qt_name, kQtOptionsWithValue)) {
      if (i + 1 >= args.size()) {
        cl.error = Printable(arg) + " needs a value";
        break;
      }
      cl.qt_args.push_back(arg);
      cl.qt_args.push_back(args[++i]);
      continue;
    }
    bool joined = false;
    for (std::string_view prefix : kQtJoinedOptions) joined |= qt_name.rfind(prefix, 0) == 0;
    if (joined) {
      cl.qt_args.push_back(arg);
      continue;
    }

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
    // A switch given a value ("--headless=0") would silently mean the opposite of what it says.
    auto flag = [&](bool& field) {
      if (has_value)
        cl.error = arg + " takes no value";
      else
        field = true;
    };
    if (arg == "--help" || arg == "-h") {
      flag(cl.help);
    } else if (arg == "--version") {
      flag(cl.version);
    } else if (arg == "--headless") {
      flag(cl.headless);
    } else if (arg == "--settings") {
      if (take_value()) cl.settings = value;
      if (cl.error.empty() && cl.settings.empty()) cl.error = "--settings needs a file name";
    } else if (arg == "--seed") {
      if (!take_value()) break;
      cl.seed = ParseNumber<unsigned>(value);
      if (!cl.seed) cl.error = "--seed needs a whole number, not '" + Printable(value) + "'";
    } else if (arg == "--screen-width") {
      if (!take_value()) break;
      cl.screen_width = ParseNumber<int>(value);
      if (!cl.screen_width || *cl.screen_width <= 0)
        cl.error = "--screen-width needs a number of pixels, not '" + Printable(value) + "'";
    } else if (arg == "--selfplay") {
      if (!take_value()) break;
      cl.selfplay = ParseNumber<long long>(value);
      if (!cl.selfplay || *cl.selfplay < 0)
        cl.error = "--selfplay needs a number of games, not '" + Printable(value) + "'";
    } else if (arg == "--options") {
      if (take_value()) cl.selfplay_options = value;
    } else if (arg == "--players") {
      if (take_value()) cl.selfplay_players = value;
      if (cl.error.empty() && cl.selfplay_players.empty()) cl.error = "--players needs a value";
    } else if (arg == "--csv") {
      if (take_value()) cl.csv = value;
      if (cl.error.empty() && cl.csv.empty()) cl.error = "--csv needs a file name";
    } else {
      cl.error = "unknown option '" + Printable(args[i]) + "'";
    }
  }
  if (cl.error.empty() && !cl.selfplay &&
      (!cl.selfplay_options.empty() || !cl.selfplay_players.empty() || !cl.csv.empty()))
    cl.error = "--options, --players and --csv belong with --selfplay";
  return cl;
}

}  // namespace bq::qt
