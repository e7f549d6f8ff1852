#include "ai/judgement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "ai/decisions.h"

namespace bq::ai {
namespace {

// Cards of slots 1..n, base ranges, nothing marked; `marks` (slots 1..n) set by hand if given.
Judgement Fresh(const std::vector<int>& cards, const std::string& marks = "") {
  std::vector<int> slots{0};
  slots.insert(slots.end(), cards.begin(), cards.end());
  Judgement j;
  j.SetStack(static_cast<int>(cards.size()), slots.data());
  j.ClearMarks();
  j.ResetRanges();
  for (size_t i = 0; i < marks.size(); ++i) {
    j.m[i + 1] = marks[i];
    j.settled_count += marks[i] == '1';
  }
  return j;
}

std::string Marks(const Judgement& j) {
  return std::string(&j.m[1], &j.m[j.n + 1]);
}

TEST(JudgementTest, BaseRangesStandUntilSomethingSettles) {
  Judgement j = Fresh({91, 81, 71, 61, 51, 41, 31, 21, 11, 1});
  j.UpdateJudgement();
  EXPECT_EQ(Marks(j), "0000000000");
  for (int i = 1; i <= 10; ++i) {
    EXPECT_EQ(j.low[i], 10 * i - 9) << i;
    EXPECT_EQ(j.high[i], 10 * i) << i;
  }
  Judgement ends = Fresh({1, 81, 71, 61, 51, 41, 31, 21, 11, 100});
  ends.UpdateJudgement();
  EXPECT_EQ(Marks(ends), "1000000001") << ends.ToString();
}

// One marking pass over named Stacks.
TEST(JudgementTest, MarkingPassOnNamedStacks) {
  const std::pair<std::vector<int>, std::string> cases[] = {
      {{5, 15, 25, 35, 45, 55, 65, 75, 85, 95}, "1111111111"},
      // Pairs against the sentinels: 0 < 4 < 9 < 25 and 75 < 92 < 99 < 101.
      {{9, 4, 25, 35, 45, 55, 65, 75, 99, 92}, "RR111111RR"},
      // Neighbours one apart beside an unsettled slot: below it (29, 28) and above it (38, 37).
      {{5, 55, 29, 28, 45, 51, 65, 75, 85, 95}, "10RR111111"},
      {{5, 15, 25, 38, 37, 90, 65, 75, 85, 95}, "111RR01111"},
      // The pair after a settled slot that itself follows an unsettled one: 34, 33 after the 22.
      {{11, 44, 22, 34, 33, 39, 18, 51, 62, 84}, "001RR00000"},
      // The pattern above measures its distance to the unsettled slot too: 20 there stops it.
      {{5, 15, 25, 38, 37, 20, 65, 75, 85, 95}, "1111001111"},
  };
  for (const auto& [cards, marks] : cases) {
    Judgement j = Fresh(cards);
    j.MarkingPass();
    EXPECT_EQ(Marks(j), marks) << j.ToString();
  }
  Judgement ordered = Fresh(cases[0].first);
  ordered.MarkingPass();
  ordered.UpdateJudgement();
  EXPECT_EQ(ordered.settled_count, 10);  // a settled slot is never counted again
  Judgement below = Fresh(cases[2].first);
  below.MarkingPass();
  EXPECT_EQ(below.settled_count, 7);
}

TEST(JudgementTest, RunsShareTheirSpanEvenly) {
  // Slots 3 and 8 settled on 25 and 70; the end runs reach the virtual bounds 0 and 11.
  Judgement j = Fresh({50, 60, 25, 90, 95, 5, 10, 70, 30, 40}, "0010000100");
  j.RangePass();
  const std::vector<int> low{1, 13, 0, 26, 37, 48, 59, 0, 71, 86};
  const std::vector<int> high{12, 24, 0, 36, 47, 58, 69, 0, 85, 100};
  for (int i : {1, 2, 4, 5, 6, 7, 9, 10}) {
    EXPECT_EQ(j.low[i], low[i - 1]) << i << "\n" << j.ToString();
    EXPECT_EQ(j.high[i], high[i - 1]) << i << "\n" << j.ToString();
  }

  // Halves go to the even neighbour: 1 + 10.5 -> 12, 25 + 11.5 -> 36.
  Judgement halves = Fresh({51, 60, 24, 90, 95, 50, 10, 70, 30, 40}, "0010010000");
  halves.RangePass();
  EXPECT_EQ(halves.high[1], 12) << halves.ToString();
  EXPECT_EQ(halves.high[4], 36) << halves.ToString();

  // The width is single precision: from 20 down to 2 over 14 slots the seventh share ends at
  // 10.500001, where double precision would give exactly 10.5 and round down.
  std::vector<int> cards(20, 50);
  cards[1] = 19;
  cards[16] = 3;
  Judgement single = Fresh(cards, "01000000000000001000");
  single.RangePass();
  EXPECT_EQ(single.high[9], 11) << single.ToString();

  // Settled end slots are no run bounds: slots 2..4 and 6..9 are pinned at their ends only.
  Judgement ends = Fresh({5, 60, 70, 80, 45, 20, 30, 40, 50, 95}, "1000100001");
  ends.RangePass();
  EXPECT_EQ(ends.low[2], 6);
  EXPECT_EQ(ends.high[2], 20);
  EXPECT_EQ(ends.high[4], 44);
  EXPECT_EQ(ends.high[8], 80);
  EXPECT_EQ(ends.high[9], 94);
}

TEST(JudgementTest, ReversedPairs) {
  // 25 settles slot 4 once 21 pins it; then 45, 30 stand reversed between 25 and 65.
  Judgement j = Fresh({5, 15, 21, 25, 45, 30, 65, 75, 85, 95});
  j.UpdateJudgement();
  EXPECT_EQ(Marks(j), "1111RR1111") << j.ToString();
  EXPECT_EQ(j.high[5], 29);
  EXPECT_EQ(j.low[6], 46);
  // The standing pair is counted again in each of the 9 rounds after the one that found it.
  EXPECT_EQ(j.reversed_count, 20);
}

// UpdateJudgement round by round as the rules state it, without the fixed-point shortcut.
void UpdateLiterally(Judgement& j) {
  int settled = j.settled_count, reversed = j.reversed_count;
  j.MarkingPass();
  j.RangePass();
  if (j.settled_count == 0 && j.reversed_count == 0) return;
  for (int round = 1; round <= j.n; ++round) {
    if (j.settled_count == settled && j.reversed_count == reversed) return;
    settled = j.settled_count;
    reversed = j.reversed_count;
    j.MarkingPass();
    j.RangePass();
  }
}

TEST(JudgementTest, RandomStacksKeepTheInvariants) {
  std::mt19937 rng(20240611);
  std::vector<int> deck(100);
  for (int trial = 0; trial < 4000; ++trial) {
    const int n = trial % 2 == 0 ? 10 : 20;
    std::iota(deck.begin(), deck.end(), 1);
    std::shuffle(deck.begin(), deck.end(), rng);
    if (trial % 3 == 0) std::sort(deck.begin(), deck.begin() + n);  // late in a game
    for (unsigned k = rng() % 5; k > 0; --k) std::swap(deck[rng() % n], deck[rng() % n]);
    Judgement j = Fresh(std::vector<int>(deck.begin(), deck.begin() + n));
    Judgement literal = j;
    j.UpdateJudgement();
    UpdateLiterally(literal);
    ASSERT_EQ(j.ToString(), literal.ToString());

    ASSERT_TRUE(j.m[0] == '1' && j.m[n + 1] == '1' && j.b[0] == 0 && j.b[n + 1] == 101);
    const bool any_reversed = std::count(&j.m[1], &j.m[n + 1], 'R') > 0;
    for (int i = 1; i <= n; ++i) {
      ASSERT_TRUE(j.m[i] == '1' || j.m[i] == 'R' || j.m[i] == '0') << j.ToString();
      if (!any_reversed) {
        ASSERT_TRUE(j.low[i] >= 1 && j.low[i] <= 100 && j.high[i] >= 1 && j.high[i] <= 100)
            << i << "\n"
            << j.ToString();
      }
    }

    const int card = deck[static_cast<size_t>(n)];
    Judgement judged = j;
    const CardChoice c = JudgeCard(judged, card);
    if (c.wanted) {
      ASSERT_TRUE(c.slot >= 1 && c.slot <= n && j.m[c.slot] != '1') << card << j.ToString();
    } else {
      ASSERT_EQ(judged.ToString(), j.ToString());  // declining changes nothing
      const CardChoice d = JudgeDrawCard(judged, card);
      ASSERT_TRUE(!d.wanted || (d.slot >= 1 && d.slot <= n)) << card << j.ToString();
    }
  }
}

}  // namespace
}  // namespace bq::ai
