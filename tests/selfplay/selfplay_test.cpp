#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <sstream>

#include "selfplay/run.h"
#include "selfplay/summary.h"
#include "support/every_card.h"
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

// A cap of 24 moves stops most 20-card games and few 10-card ones.
TEST(SelfPlay, SummaryNumbersAddUpAndGamesPastTheCapCountAsUnfinished) {
  test::ScriptedRng rng(5);
  Match match({{}, true}, rng, 24);
  Summary summary;
  long long finished_moves = 0;
  for (int i = 0; i < 400; ++i) {
    const GameRecord r = match.PlayGame();
    if (r.result == kUndecided) {
      ASSERT_EQ(r.moves(), 24);
    } else {
      finished_moves += r.moves();
    }
    summary.Add(r);
  }
  const Tally& all = summary.all();
  EXPECT_GT(all.unfinished, 40);
  EXPECT_GT(all.wins_a + all.wins_b, 200);
  EXPECT_EQ(all.finished_moves, finished_moves);  // unfinished games stay out of the figures

  // Median of 1, 2, 2, 9 moves: the lower middle one.
  Tally t;
  for (int n : {9, 2, 1, 2}) t.Add({{}, kAInOrder, 1, n, 0});
  EXPECT_EQ(t.MedianMoves(), 2);
  EXPECT_EQ(t.MeanMoves(), 3.5);
}

TEST(SelfPlay, OptionAndPlayerLists) {
  std::string error;
  const auto some = ParseOptionList("takem,stackem", error);
  ASSERT_TRUE(some);
  EXPECT_EQ(OptionSetName(some->fixed), "stackem+takem");
  EXPECT_FALSE(some->random);
  EXPECT_TRUE(ParseOptionList("random", error)->random);
  EXPECT_EQ(OptionSetName(ParseOptionList("none", error)->fixed), "none");
  EXPECT_EQ(ParsePlayers("expert,classic", error),
            (Players{PlayerKind::kExpert, PlayerKind::kClassic}));
  for (const char* bad : {"stackem,", "Stackem", "random,takem"})
    EXPECT_FALSE(ParseOptionList(bad, error)) << bad;
  for (const char* bad : {"expert", "Expert,classic", "expert,classic,classic"})
    EXPECT_FALSE(ParsePlayers(bad, error)) << bad;
}

// Every option set: the seats choose only legal moves (the match stops with an exception
// otherwise), every applied move leaves the cards and counts consistent, and the moves are those
// the computer has always chosen.
class Checker : public MoveObserver {
 public:
  explicit Checker(std::uint64_t& fold) : fold_(fold) {}
  void Applied(const Move& m, const GameState& g) override {
    for (int v : {static_cast<int>(m.kind), m.side, m.slot1, m.slot2})
      fold_ = (fold_ ^ static_cast<std::uint64_t>(v)) * 1099511628211u;
    moves += m.kind != MoveKind::kBackem;
    renewed_ = renewed_ || g.draw_pos < last_draw_pos_;
    last_draw_pos_ = g.draw_pos;
    ASSERT_TRUE(test::EveryCardOnce(g, renewed_)) << ToString(m);
    ASSERT_EQ(g.move_count_a + g.move_count_b, moves);
    ASSERT_LE(std::abs(g.move_count_a - g.move_count_b), 1) << g.ToString();
  }
  int moves = 0;

 private:
  std::uint64_t& fold_;
  bool renewed_ = false;
  int last_draw_pos_ = 1;
};

TEST(SelfPlay, EveryOptionSetPlaysLegalMovesToAResult) {
  int results[4] = {};
  std::uint64_t fold = 14695981039346656037u;
  for (unsigned mask = 0; mask < 32; ++mask) {
    OptionChoice choice;
    for (int o = 0; o < kOptionCount; ++o) choice.fixed[static_cast<size_t>(o)] = mask >> o & 1;
    test::ScriptedRng rng(mask);
    Match match(choice, rng, 1000);
    for (int game = 0; game < 40; ++game) {
      SCOPED_TRACE(testing::Message() << "options " << mask << " game " << game);
      Checker checker(fold);
      const GameRecord r = match.PlayGame(&checker);
      ASSERT_FALSE(testing::Test::HasFatalFailure());
      ASSERT_EQ(r.moves(), checker.moves);
      ++results[r.result];
    }
  }
  EXPECT_LT(results[kUndecided], 40);
  EXPECT_GT(results[kAInOrder], 400);
  EXPECT_GT(results[kBInOrder], 400);
  // Every move of every game folded into one number: a faster judgement must not change a choice.
  EXPECT_EQ(fold, 12228793449886903355u);
}

TEST(SelfPlay, TheSummaryNamesThePlayersSideAFirst) {
  Summary summary({PlayerKind::kClassic, PlayerKind::kExpert});
  for (int result : {kAInOrder, kBInOrder, kBInOrder, kTie}) summary.Add({{}, result, 1, 9, 9});
  const std::string text = summary.Text();
  EXPECT_NE(text.find("side A (Classic) against side B (Expert)"), std::string::npos) << text;
  EXPECT_NE(text.find("side B won 50.0% of 4 decided games (95% interval 15.0% to 85.0%)"),
            std::string::npos)
      << text;
}

// The Expert, in either seat and under random options, also plays only legal moves to a result.
TEST(SelfPlay, TheExpertPlaysLegalMovesInEitherSeat) {
  std::uint64_t fold = 0;
  for (const Players& players : {Players{PlayerKind::kExpert, PlayerKind::kClassic},
                                 Players{PlayerKind::kClassic, PlayerKind::kExpert}}) {
    test::ScriptedRng rng(3);
    Match match({{}, true}, rng, 1000, players);
    for (int game = 0; game < 60; ++game) {
      SCOPED_TRACE(testing::Message() << "game " << game);
      Checker checker(fold);
      const GameRecord r = match.PlayGame(&checker);
      ASSERT_FALSE(testing::Test::HasFatalFailure());
      ASSERT_EQ(r.moves(), checker.moves);
      ASSERT_NE(r.result, kUndecided);
    }
  }
}

}  // namespace
}  // namespace bq::selfplay
