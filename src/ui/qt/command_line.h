#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bq::qt {

struct CommandLine {
  bool help = false;
  bool version = false;
  bool headless = false;
  std::string settings;              // empty: the usual place
  std::optional<unsigned> seed;      // nullopt: from the clock
  std::optional<int> screen_width;   // nullopt: the screen's own
  std::vector<std::string> qt_args;  // Qt's own options ("-style", "fusion"), for QApplication
  std::string error;                 // set when the arguments make no sense; one printable line

  // --selfplay N [--options LIST] [--players A,B] [--csv FILE]: games of the computer against
  // itself.
  std::optional<long long> selfplay;
  std::string selfplay_options;
  std::string selfplay_players;  // --players A,B: empty for the default
  std::string csv;
};

// Reads the options without Qt, so that --help and --version work with no display at all.
CommandLine ParseCommandLine(const std::vector<std::string>& args);

const char* UsageText();

// TEXT fit for one line of a terminal: control characters and bytes that are no valid UTF-8
// written as \n, \t or \xNN.
std::string Printable(std::string_view text);

}  // namespace bq::qt
