#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "selfplay/run.h"
#include "selfplay/summary.h"
#include "support/scripted_rng.h"
#include "support/temp_settings.h"

namespace bq::selfplay {
namespace {

// The summary without its last line, the time taken.
std::string Summarise(RunConfig config, const std::string& csv_path, std::string* csv) {
  config.csv_path = csv_path;
  std::ostringstream out, err;
  EXPECT_EQ(RunSelfPlay(config, out, err), 0) << err.str();
  std::ifstream file(csv_path);
  *csv = std::string(std::istreambuf_iterator<char>(file), {});
  std::string text = out.str();
  text.erase(text.rfind("Played in"));
  return text;
}

TEST(SelfPlay, ASeedRepeatsTheRunAndTheCsvHasOneRowPerGame) {
  test::TempSettings file;
  std::string error;
  RunConfig config;
  config.games = 300;
  config.options = *ParseOptionList("random", error);
  config.seed = 11;
  std::string csv1, csv2, csv3;
  const std::string first = Summarise(config, file.path(), &csv1);
  EXPECT_EQ(Summarise(config, file.path(), &csv2), first);
  EXPECT_EQ(csv2, csv1);
  config.seed = 12;
  Summarise(config, file.path(), &csv3);
  EXPECT_NE(csv3, csv1);

  EXPECT_NE(first.find("seed 11 "), std::string::npos) << first;
  EXPECT_NE(first.find("By option set"), std::string::npos) << first;
  EXPECT_EQ(std::count(csv1.begin(), csv1.end(), '\n'), 301);
  EXPECT_EQ(csv1.substr(0, csv1.find('\n') + 1), CsvHeader());
}

TEST(SelfPlay, SummaryNumbersAddUp) {
  test::ScriptedRng rng(5);
  Match match({{}, true}, rng, kMoveCap);
  Summary summary;
  for (int i = 0; i < 500; ++i) summary.Add(match.PlayGame());
  const Tally& all = summary.all();
  EXPECT_EQ(all.games, 500);
  EXPECT_EQ(all.wins_a + all.wins_b + all.ties + all.unfinished, all.games);
  EXPECT_GT(all.wins_a, 0);
  EXPECT_GT(all.wins_b, 0);
  Tally sum;
  for (const auto& [name, t] : summary.by_options()) {
    EXPECT_EQ(t.wins_a + t.wins_b + t.ties + t.unfinished, t.games) << name;
    EXPECT_LE(t.first_mover_wins, t.in_play) << name;
    sum.games += t.games;
    sum.finished_moves += t.finished_moves;
    sum.in_play += t.in_play;
    sum.longest = std::max(sum.longest, t.longest);
  }
  EXPECT_EQ(sum.games, all.games);
  EXPECT_EQ(sum.finished_moves, all.finished_moves);
  EXPECT_EQ(sum.in_play, all.in_play);
  EXPECT_EQ(sum.longest, all.longest);
  EXPECT_LE(all.MedianMoves(), all.longest);
  EXPECT_GT(all.MedianMoves(), 0);
  EXPECT_NEAR(all.MeanMoves(), static_cast<double>(all.finished_moves) / all.finished(), 1e-9);
}

TEST(SelfPlay, GamesPastTheMoveCapAreCountedUnfinished) {
  test::ScriptedRng rng(3);
  Match match({}, rng, 6);
  Summary summary;
  for (int i = 0; i < 50; ++i) {
    const GameRecord r = match.PlayGame();
    if (r.result == kUndecided) {
      EXPECT_EQ(r.moves(), 6);
    }
    summary.Add(r);
  }
  EXPECT_GT(summary.all().unfinished, 40);
  EXPECT_EQ(summary.all().unfinished + summary.all().finished(), 50);
  EXPECT_NE(summary.Text().find("unfinished"), std::string::npos);
  // Unfinished games stay out of the move figures.
  EXPECT_LT(summary.all().longest, 6);

  // Median of 1, 2, 2, 9 moves: the lower middle one.
  Tally t;
  for (int moves : {9, 2, 1, 2}) t.Add({{}, kAInOrder, 1, moves, 0});
  EXPECT_EQ(t.MedianMoves(), 2);
  EXPECT_EQ(t.longest, 9);
  EXPECT_EQ(t.first_mover_wins, 4);
}

TEST(SelfPlay, OptionLists) {
  std::string error;
  const auto some = ParseOptionList("takem,stackem", error);
  ASSERT_TRUE(some);
  EXPECT_EQ(OptionSetName(some->fixed), "stackem+takem");
  EXPECT_FALSE(some->random);
  EXPECT_TRUE(ParseOptionList("random", error)->random);
  EXPECT_EQ(OptionSetName(ParseOptionList("none", error)->fixed), "none");
  for (const char* bad : {"stackem,", "Stackem", "random,takem", "x"}) {
    error.clear();
    EXPECT_FALSE(ParseOptionList(bad, error)) << bad;
    EXPECT_NE(error.find("unknown option"), std::string::npos) << bad;
  }
}

}  // namespace
}  // namespace bq::selfplay
