#pragma once

#include <map>
#include <string>
#include <vector>

#include "selfplay/match.h"

namespace bq::selfplay {

// Results of a group of games.
struct Tally {
  long long games = 0;
  long long wins_a = 0;
  long long wins_b = 0;
  long long ties = 0;
  long long unfinished = 0;
  long long in_play = 0;  // decided after a first mover was drawn
  long long first_mover_wins = 0;
  long long finished_moves = 0;
  int longest = 0;
  std::vector<long long> moves;  // finished games by their number of moves

  void Add(const GameRecord& r);
  long long finished() const { return games - unfinished; }
  double MeanMoves() const;
  int MedianMoves() const;  // the lower middle one; 0 with no finished game
};

// "none", or the names of the options joined by '+', as the command line spells them.
std::string OptionSetName(const OptionSet& options);

class Summary {
 public:
  explicit Summary(const Players& players = kClassicPair) : players_(players) {}
  void Add(const GameRecord& r);
  const Tally& all() const { return all_; }
  const std::map<std::string, Tally>& by_options() const { return by_options_; }
  // What a person reads at the end of a run.
  std::string Text() const;

 private:
  Players players_;
  Tally all_;
  std::map<std::string, Tally> by_options_;
};

std::string CsvHeader();
std::string CsvRow(long long game, const GameRecord& r);

}  // namespace bq::selfplay
