#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "selfplay/match.h"

namespace bq::selfplay {

// Far beyond any game seen in play; only games where both sides keep passing reach it.
inline constexpr int kMoveCap = 1000;

struct RunConfig {
  long long games = 0;
  OptionChoice options;
  std::optional<unsigned> seed;  // nullopt: from the clock (the summary names it)
  std::string csv_path;          // empty: no CSV
  bool progress = false;         // a progress bar, for a terminal
  int move_cap = kMoveCap;
  Players players = kClassicPair;
};

// "stackem,backem,...", "random" or "none". Returns nullopt and sets `error` for a bad list.
std::optional<OptionChoice> ParseOptionList(const std::string& text, std::string& error);

// "expert,classic": side A's player, then side B's, each "classic" or "expert".
std::optional<Players> ParsePlayers(const std::string& text, std::string& error);
// Plays the games and prints the summary to `out`. Returns the process exit code.
int RunSelfPlay(const RunConfig& config, std::ostream& out, std::ostream& err);

}  // namespace bq::selfplay
