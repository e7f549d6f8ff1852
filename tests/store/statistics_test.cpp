#include "store/statistics.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

namespace bq {
namespace {

constexpr std::array<bool, 5> kNone{};

TEST(ApplyResult, FirstWinCountsRowOneAllGamesAndRecord) {
  GameStats g;
  ApplyResult(g, Outcome::kWin, kNone);
  GameStats expected;
  expected.wins = {0, 1, 0, 0, 0, 0, 0, 1, 1};
  expected.w_streak = 1;
  expected.last_winner = 1;
  EXPECT_EQ(g, expected);
}

TEST(ApplyResult, RunsResetAndTheRecordOnlyRises) {
  GameStats g;
  for (Outcome o : {Outcome::kWin, Outcome::kWin, Outcome::kLoss}) ApplyResult(g, o, kNone);
  EXPECT_EQ(std::tie(g.w_streak, g.l_streak, g.wins[8], g.losses[8], g.last_winner),
            std::tuple(0, 1, 2, 1, 2));
  for (Outcome o : {Outcome::kTie, Outcome::kWin}) ApplyResult(g, o, kNone);
  EXPECT_EQ(std::tie(g.l_streak, g.t_streak, g.w_streak, g.wins[8], g.wins[7]),
            std::tuple(0, 0, 1, 2, 3))
      << "a shorter run keeps the record";
  for (int i = 0; i < 2; ++i) ApplyResult(g, Outcome::kWin, kNone);
  EXPECT_EQ(g.wins[8], 3);
}

TEST(ApplyResult, EachOptionHasItsRowInsteadOfRowOne) {
  GameStats g;
  ApplyResult(g, Outcome::kLoss, {true, true, false, false, false});
  EXPECT_EQ(g.losses, (std::array<int, 9>{0, 0, 1, 1, 0, 0, 0, 1, 1}));
  ApplyResult(g, Outcome::kLoss, {false, false, true, true, true});
  EXPECT_EQ(g.losses, (std::array<int, 9>{0, 0, 1, 1, 1, 1, 1, 2, 2}));
  EXPECT_EQ(g.wins, (std::array<int, 9>{}));
}

TEST(ApplyResult, CountersStopAt32767) {
  GameStats g;
  g.ties = {0, 32767, 32766, 0, 0, 0, 0, 32767, 32767};
  g.t_streak = 32767;
  for (int i = 0; i < 2; ++i) ApplyResult(g, Outcome::kTie, {true, false, false, false, false});
  ApplyResult(g, Outcome::kTie, kNone);
  EXPECT_EQ(g.ties, (std::array<int, 9>{0, 32767, 32767, 0, 0, 0, 0, 32767, 32767}));
  EXPECT_EQ(g.t_streak, 32767);
}

TEST(FormatPercent, TwoDecimalsHalvesAwayFromZero) {
  const std::pair<float, const char*> cases[] = {
      {0.f, "0.00%"},      {1.f / 3, "33.33%"}, {1.f, "100.00%"},
      {2.f / 3, "66.67%"}, {2.5f, "250.00%"},   {-0.25f, "-25.00%"},
      {0.00004f, "0.00%"}, {1.f / 32, "3.13%"},  // exactly 3.125; "%.2f" would give 3.12
      {1.f / 64, "1.56%"}};
  for (const auto& [fraction, text] : cases) EXPECT_EQ(FormatPercent(fraction), text) << text;
}

}  // namespace
}  // namespace bq
