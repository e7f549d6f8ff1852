#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ai/decisions.h"

namespace bq::ai {
namespace {

// Cards and marks of slots 1..n set by hand, counts from the marks, and every range empty so
// that only the rule under test can take a card.
Judgement Hand(const std::vector<int>& cards, const std::string& marks) {
  std::vector<int> slots{0};
  slots.insert(slots.end(), cards.begin(), cards.end());
  Judgement j;
  j.SetStack(static_cast<int>(cards.size()), slots.data());
  j.ClearMarks();
  j.ResetRanges();
  for (int i = 1; i <= j.n; ++i) {
    j.m[i] = marks[static_cast<size_t>(i - 1)];
    j.settled_count += j.m[i] == '1';
    j.reversed_count += j.m[i] == 'R';
    j.low[i] = 1;
    j.high[i] = 0;
  }
  return j;
}

// Twenty slots: settled filler with the given quartet in slots 3..6.
Judgement Hand20(const std::vector<int>& quartet, const std::string& marks) {
  std::vector<int> cards{1, 2};
  cards.insert(cards.end(), quartet.begin(), quartet.end());
  for (int c = 86; cards.size() < 20; ++c) cards.push_back(c);
  return Hand(cards, ("11" + marks).append(14, '1'));
}

int Slot(Judgement j, int card) {
  return JudgeCard(j, card).slot;
}

TEST(JudgeCardTest, ReversedPair) {
  // 45, 30 reversed between 20 and 50: 35 replaces the 45, 42 the 30, each range meeting the
  // card; cards outside 20..50 are not taken.
  const std::vector<int> cards{5, 15, 20, 45, 30, 50, 65, 75, 85, 95};
  Judgement j = Hand(cards, "111RR11111");
  EXPECT_EQ(JudgeCard(j, 35).slot, 4);
  EXPECT_EQ(j.high[4], 35);
  EXPECT_EQ(j.low[5], 36);
  j = Hand(cards, "111RR11111");
  EXPECT_EQ(JudgeCard(j, 42).slot, 5);
  EXPECT_EQ(j.high[4], 41);
  EXPECT_EQ(j.low[5], 42);
  const Judgement fresh = Hand(cards, "111RR11111");
  EXPECT_EQ(Slot(fresh, 50) + Slot(fresh, 20) + Slot(fresh, 60), 0);
  EXPECT_EQ(Slot(Hand(cards, "110RR11111"), 35), 0);  // lower outer slot not settled

  // The gain must reach 60 / n: 37 - 31 = 6 is enough with 10 cards, 5 is not, 4 is with 20.
  const std::vector<int> tight{5, 15, 20, 37, 30, 50, 65, 75, 85, 95};
  EXPECT_EQ(Slot(Hand(tight, "111RR11111"), 31), 4);
  EXPECT_EQ(Slot(Hand(tight, "111RR11111"), 32), 0);
  EXPECT_EQ(Slot(Hand20({20, 37, 30, 50}, "1RR1"), 33), 4);
  // Equally far from both cards goes to the first slot.
  EXPECT_EQ(Slot(Hand20({20, 40, 30, 50}, "1RR1"), 35), 4);
}

TEST(JudgeCardTest, OrderedQuartetIsSpreadWhenTheRoomGrows) {
  // 44, 46 crowd the top of 20..50 (room 25 + 5): 30 below them raises it to 44.
  const std::vector<int> top{5, 15, 20, 44, 46, 50, 65, 75, 85, 95};
  Judgement j = Hand(top, "1110011111");
  EXPECT_EQ(JudgeCard(j, 30).slot, 4);
  EXPECT_EQ(j.high[4], 30);
  EXPECT_EQ(j.low[5], 31);
  // 41 gains 3, 45 between them and 48 above gain too little; a settled card is never replaced.
  EXPECT_EQ(Slot(Hand(top, "1110011111"), 41) + Slot(Hand(top, "1110011111"), 45), 0);
  EXPECT_EQ(Slot(Hand(top, "1110011111"), 48) + Slot(Hand(top, "1111011111"), 30), 0);
  // The mirror: 24, 26 crowd the bottom and 40 replaces the upper one.
  EXPECT_EQ(Slot(Hand({5, 15, 20, 24, 26, 50, 65, 75, 85, 95}, "1110011111"), 40), 5);

  // Between 10 and 90, 40 and 42 leave a room of 80; c in slot 3 makes it 31 + (89 - c).
  const std::vector<int> wide{5, 10, 40, 42, 90, 91, 92, 93, 94, 95};
  EXPECT_EQ(Slot(Hand(wide, "1100111111"), 30), 0);  // gain 10 but only 90 / 80
  EXPECT_EQ(Slot(Hand(wide, "1100111111"), 16), 3);  // 104 / 80 = 1.3
  EXPECT_EQ(Slot(Hand(wide, "1100111111"), 17), 0);
}

TEST(JudgeCardTest, RangeFitPicksTheHighestFittingUnsettledSlot) {
  Judgement j = Hand({5, 60, 70, 80, 90, 91, 20, 93, 94, 95}, "0000001000");
  const int ranges[][3] = {{2, 10, 30}, {5, 20, 40}, {7, 20, 40}, {9, 50, 60}};
  for (const auto& r : ranges) {
    j.low[r[0]] = r[1];
    j.high[r[0]] = r[2];
  }
  EXPECT_EQ(Slot(j, 25), 5);  // slot 7 holds 25 in its range too, but is settled
  EXPECT_EQ(Slot(j, 15), 2);
  EXPECT_EQ(Slot(j, 60), 9);
  EXPECT_FALSE(JudgeCard(j, 45).wanted);
}

TEST(JudgeDrawCardTest, StrayCardsAndTheLowEnd) {
  // 70 lies above 50 and leaves 40 no room: 30, in order with 40, replaces it; JudgeCard not.
  const std::vector<int> high_stray{5, 15, 20, 70, 40, 50, 65, 75, 85, 95};
  Judgement j = Hand(high_stray, "1110011111");
  EXPECT_FALSE(JudgeCard(j, 30).wanted);
  EXPECT_EQ(JudgeDrawCard(j, 30).slot, 4);
  EXPECT_EQ(j.low[5], 31);
  j = Hand(high_stray, "1110011111");
  EXPECT_FALSE(JudgeDrawCard(j, 45).wanted);
  j = Hand({5, 15, 20, 30, 10, 50, 65, 75, 85, 95}, "1110011111");
  EXPECT_EQ(JudgeDrawCard(j, 40).slot, 5);
  j = Hand({5, 15, 20, 30, 10, 50, 65, 75, 85, 95}, "1110011111");
  EXPECT_FALSE(JudgeDrawCard(j, 29).wanted);  // room enough, but not in order with its 30
  j = Hand({5, 15, 20, 10, 40, 50, 65, 75, 85, 95}, "1110011111");  // 10 blocks nothing
  EXPECT_FALSE(JudgeDrawCard(j, 30).wanted);

  // Below a settled first card: slot 1 unless the card is next to it, slot 2 is unjudged and
  // the card is not 1.
  const std::vector<int> front{8, 60, 70, 80, 90, 91, 92, 93, 94, 95};
  const auto draw = [](Judgement k, int card) { return JudgeDrawCard(k, card).slot; };
  EXPECT_EQ(draw(Hand(front, "1000000000"), 5), 1);
  EXPECT_EQ(draw(Hand(front, "1000000000"), 7), 2);
  EXPECT_EQ(draw(Hand(front, "1R00000000"), 7), 1);
  EXPECT_EQ(draw(Hand({2, 60, 70, 80, 90, 91, 92, 93, 94, 95}, "1000000000"), 1), 1);
  EXPECT_EQ(draw(Hand(front, "1000000000"), 9) + draw(Hand(front, "0000000000"), 5), 0);
  // Both inner cards stray: either may go; on equal gains the lower slot does.
  const std::vector<int> both{5, 15, 20, 60, 10, 50, 65, 75, 85, 95};
  EXPECT_EQ(draw(Hand(both, "1110011111"), 35), 4);
  EXPECT_EQ(draw(Hand(both, "1110011111"), 36), 5);
}

Judgement Dealt(const std::vector<int>& cards) {
  Judgement j = Hand(cards, std::string(cards.size(), '0'));
  j.ResetRanges();
  j.UpdateJudgement();
  return j;
}

const std::vector<int> kAscending{5, 15, 25, 35, 45, 55, 65, 75, 85, 95};
const std::vector<int> kDescending{95, 85, 75, 65, 55, 45, 35, 25, 15, 5};

TEST(OpeningTest, ChooseSwitchem) {
  auto eq = [](SwitchChoice c, int p, int q, bool reversed) {
    return c.p == p && c.q == q && c.reversed == reversed;
  };
  // Equal candidates: the first found, (1, 1), stays; the dealt orientation comes first.
  EXPECT_TRUE(eq(ChooseSwitchem(Dealt(kAscending), true), 1, 1, false));
  EXPECT_TRUE(eq(ChooseSwitchem(Dealt(kDescending), true), 1, 1, true));
  EXPECT_FALSE(ChooseSwitchem(Dealt(kDescending), false).reversed);
  // Slots of the reversed copy: reversed, this is the ascending Stack with 2 and 3 exchanged.
  EXPECT_TRUE(eq(ChooseSwitchem(Dealt({95, 85, 75, 65, 55, 45, 35, 15, 25, 5}), true), 2, 3, true));
  // (1, 7) is found first, but its mirror (7, 1) has more reversed marks than the entry (1, 1)
  // it is compared with, and replaces it.
  EXPECT_TRUE(
      eq(ChooseSwitchem(Dealt({76, 3, 25, 7, 54, 14, 23, 77, 86, 28}), false), 7, 1, false));
  // The quirk from the last slot: once (10, 5) leads, later pairs meet the marks of (10, 10).
  EXPECT_TRUE(
      eq(ChooseSwitchem(Dealt({18, 15, 24, 38, 81, 73, 74, 75, 94, 67}), false), 10, 5, false));
  // With three slots no range holds 100: nothing settles, and (0, 0) stays.
  EXPECT_TRUE(eq(ChooseSwitchem(Dealt({100, 100, 100}), true), 0, 0, false));
}

TEST(OpeningTest, ChooseReversal) {
  EXPECT_TRUE(ChooseReversal(Dealt(kDescending), 50));
  EXPECT_FALSE(ChooseReversal(Dealt(kAscending), 50));
  EXPECT_TRUE(ChooseReversal(Dealt({5, 15, 25, 92, 82, 72, 38, 28, 18, 8}), 60));
  EXPECT_FALSE(ChooseReversal(Dealt({100, 100, 100}), 100));
  // 99 settles five slots either way: put in slot 1 and reversed (found first), or in slot 10
  // as dealt (found later, with the lower score).
  EXPECT_FALSE(ChooseReversal(Dealt({5, 15, 25, 35, 92, 82, 38, 28, 18, 8}), 99));
}

TEST(SpecialTest, TakemAndSmackemWaitForTheEndGame) {
  const auto counts = [](int n, int settled, int reversed) {
    Judgement j;
    j.n = n;
    j.settled_count = settled;
    j.reversed_count = reversed;
    return j;
  };
  for (int n : {10, 20}) {
    EXPECT_TRUE(WantsTakem(counts(n, n - 3, 1)));
    EXPECT_FALSE(WantsTakem(counts(n, n - 4, 4)));
    EXPECT_FALSE(WantsTakem(counts(n, n - 3, 0)));
    EXPECT_TRUE(WantsSmackem(counts(n, n - 2, 1)));
    EXPECT_FALSE(WantsSmackem(counts(n, n - 3, 4)));
    EXPECT_FALSE(WantsSmackem(counts(n, n - 2, 0)));
  }
}

// "take give" of a Takem choice, for compact expectations.
std::string Takem(const Judgement& j, bool row_reversed = false, float r = 0.0f) {
  const TakemChoice c = ChooseTakem(j, row_reversed, r);
  return std::to_string(c.take_slot) + " " + std::to_string(c.give_slot);
}

TEST(SpecialTest, ChooseTakem) {
  // 20, 45, 30, 50 in slots 3..6: x = 35, the player's slot 4, and 45 > 35 is given. Under
  // Backem the player's direction is guessed.
  const Judgement j = Hand({5, 15, 20, 45, 30, 50, 65, 75, 85, 95}, "111RR11111");
  EXPECT_EQ(Takem(j), "4 4");
  EXPECT_EQ(Takem(j, true, 0.4f), "7 4");
  EXPECT_EQ(Takem(j, true, 0.5f), "4 4");
  // Halves to even: 34.5 -> 34 gives the 35; 35.5 -> 36 keeps the 36.
  EXPECT_EQ(Takem(Hand({5, 15, 20, 35, 30, 49, 65, 75, 85, 95}, "111RR11111")), "4 4");
  EXPECT_EQ(Takem(Hand({5, 15, 20, 36, 30, 51, 65, 75, 85, 95}, "111RR11111")), "4 5");

  // An unsettled slot aims between its neighbours' ranges: x = 60, divided by 20, not by 5.
  Judgement twenty = Hand(std::vector<int>(20, 50), std::string(11, '1') + "0" + "11111111");
  twenty.high[11] = 57;
  twenty.low[13] = 63;
  EXPECT_EQ(Takem(twenty), "4 12");

  // Guarded: x = (99 + 101) / 2 = 100 points at slot 11; nothing to mend gives 22 and 22; a lone
  // 'R' in the last slot must not read past the sentinel.
  Judgement top = Hand(kAscending, "1111111110");
  top.high[9] = 99;
  EXPECT_EQ(Takem(top), "10 10");
  EXPECT_EQ(Takem(top, true, 0.1f), "1 10");
  EXPECT_EQ(Takem(Hand(kAscending, "1111111111")), "10 10");
  EXPECT_EQ(Takem(Hand(kAscending, "111111111R")), "10 10");
}

TEST(SpecialTest, ChooseSmackem) {
  // 47 with 10 cards: k = 5, d = 2; 5: k = 1, wrapping round; 47 with 20 cards: k = 3, d = 5.
  const struct {
    int card, n;
    float r1, r2;
    int slot1, slot2;
  } cases[] = {{47, 10, 0.0f, 0.0f, 3, 7}, {47, 10, 0.34f, 0.5f, 2, 8}, {47, 10, 0.99f, 0.0f, 1, 7},
               {5, 10, 0.0f, 0.0f, 9, 3},  {5, 10, 0.5f, 0.6f, 8, 4},   {5, 10, 0.9f, 0.0f, 7, 3},
               {47, 20, 0.0f, 0.0f, 18, 8}};
  for (const auto& c : cases) {
    const SmackemChoice s = ChooseSmackem(c.card, c.n, c.r1, c.r2);
    EXPECT_EQ(s.slot1, c.slot1) << c.card << " " << c.r1;
    EXPECT_EQ(s.slot2, c.slot2) << c.card << " " << c.r2;
  }
  for (int n : {10, 20}) {
    for (int card = 1; card <= 100; ++card) {
      for (float r : {0.0f, 0.3333f, 0.6667f, 0.99999994f}) {
        const SmackemChoice s = ChooseSmackem(card, n, r, r);
        ASSERT_TRUE(s.slot1 >= 1 && s.slot1 <= n && s.slot2 >= 1 && s.slot2 <= n) << card;
        ASSERT_NE(s.slot1, s.slot2) << card;
      }
    }
  }
}

}  // namespace
}  // namespace bq::ai
