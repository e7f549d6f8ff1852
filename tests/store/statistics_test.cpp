#include "store/statistics.h"

#include <gtest/gtest.h>

namespace bq {
namespace {

constexpr std::array<bool, 5> kNoOptions{};
constexpr std::array<bool, 5> kStackemBackem{true, true, false, false, false};

TEST(ApplyResult, FirstWinWithoutOptions) {
  GameStats g;
  ApplyResult(g, Outcome::kWin, kNoOptions);
  GameStats expected;
  expected.wins[1] = 1;
  expected.wins[7] = 1;
  expected.wins[8] = 1;
  expected.w_streak = 1;
  expected.last_winner = 1;
  EXPECT_EQ(g, expected);
}

TEST(ApplyResult, RunsAndRecords) {
  GameStats g;
  ApplyResult(g, Outcome::kWin, kNoOptions);
  ApplyResult(g, Outcome::kWin, kNoOptions);
  ApplyResult(g, Outcome::kLoss, kNoOptions);
  EXPECT_EQ(g.w_streak, 0);
  EXPECT_EQ(g.l_streak, 1);
  EXPECT_EQ(g.t_streak, 0);
  EXPECT_EQ(g.wins[8], 2);
  EXPECT_EQ(g.losses[8], 1);
  EXPECT_EQ(g.last_winner, 2);

  ApplyResult(g, Outcome::kTie, kNoOptions);
  EXPECT_EQ(g.l_streak, 0);
  EXPECT_EQ(g.t_streak, 1);
  EXPECT_EQ(g.ties[8], 1);
  EXPECT_EQ(g.last_winner, 3);

  // A shorter run never lowers the record.
  ApplyResult(g, Outcome::kWin, kNoOptions);
  EXPECT_EQ(g.wins[8], 2);
  EXPECT_EQ(g.w_streak, 1);
  EXPECT_EQ(g.t_streak, 0);
  ApplyResult(g, Outcome::kWin, kNoOptions);
  ApplyResult(g, Outcome::kWin, kNoOptions);
  EXPECT_EQ(g.wins[8], 3);
  EXPECT_EQ(g.wins[7], 5);
  EXPECT_EQ(g.losses[7], 1);
  EXPECT_EQ(g.ties[7], 1);
}

TEST(ApplyResult, OptionRowsAreNotExclusive) {
  GameStats g;
  ApplyResult(g, Outcome::kLoss, kStackemBackem);
  EXPECT_EQ(g.losses, (std::array<int, 9>{0, 0, 1, 1, 0, 0, 0, 1, 1}));
  EXPECT_EQ(g.wins, (std::array<int, 9>{}));

  ApplyResult(g, Outcome::kLoss, {false, false, true, true, true});
  EXPECT_EQ(g.losses, (std::array<int, 9>{0, 0, 1, 1, 1, 1, 1, 2, 2}));
}

TEST(ApplyResult, CountersStopAt32767) {
  GameStats g;
  g.ties[1] = g.ties[7] = g.ties[8] = 32767;
  g.t_streak = 32767;
  g.ties[2] = 32766;
  ApplyResult(g, Outcome::kTie, kNoOptions);
  EXPECT_EQ(g.ties[1], 32767);
  EXPECT_EQ(g.ties[7], 32767);
  EXPECT_EQ(g.ties[8], 32767);
  EXPECT_EQ(g.t_streak, 32767);
  ApplyResult(g, Outcome::kTie, {true, false, false, false, false});
  ApplyResult(g, Outcome::kTie, {true, false, false, false, false});
  EXPECT_EQ(g.ties[2], 32767);
  EXPECT_EQ(g.last_winner, 3);
}

TEST(FormatPercent, TwoDecimalsAndAPercentSign) {
  EXPECT_EQ(FormatPercent(0.f), "0.00%");
  EXPECT_EQ(FormatPercent(1.f), "100.00%");
  EXPECT_EQ(FormatPercent(1.f / 3), "33.33%");
  EXPECT_EQ(FormatPercent(2.f / 3), "66.67%");
  EXPECT_EQ(FormatPercent(1.f / 7), "14.29%");
  EXPECT_EQ(FormatPercent(0.5f), "50.00%");
  EXPECT_EQ(FormatPercent(0.00004f), "0.00%");
  EXPECT_EQ(FormatPercent(1.f / 32767), "0.00%");
  EXPECT_EQ(FormatPercent(2.5f), "250.00%");
  EXPECT_EQ(FormatPercent(-0.25f), "-25.00%");
}

TEST(FormatPercent, HalvesRoundAwayFromZero) {
  // 1 of 32 games is exactly 3.125%; printf's "%.2f" would give 3.12.
  EXPECT_EQ(FormatPercent(1.f / 32), "3.13%");
  EXPECT_EQ(FormatPercent(3.f / 32), "9.38%");
  EXPECT_EQ(FormatPercent(1.f / 64), "1.56%") << "1.5625 is below the half";
}

}  // namespace
}  // namespace bq
