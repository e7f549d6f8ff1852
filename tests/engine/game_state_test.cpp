#include <gtest/gtest.h>

#include "engine/game_state.h"
#include "engine/rule_steps.h"
#include "support/scripted_rng.h"

namespace bq {
namespace {

using test::ScriptedRng;

GameState Fresh(bool stackem) {
  GameState g;
  if (stackem) {
    g.stack_size = 20;
    g.slot_span = 5;
  }
  g.Init();
  return g;
}

void SetStack(GameState& g, int side, std::initializer_list<int> cards) {
  int k = 1;
  for (int c : cards) g.Card(side, k++) = c;
}

TEST(Deal, SlicesTheShuffledDeckForTenAndTwentyCards) {
  for (bool stackem : {false, true}) {
    GameState g = Fresh(stackem);
    ScriptedRng rng(7);
    ShuffleAndDeal(g, rng);
    const int n = g.stack_size;
    EXPECT_EQ(g.draw_count, stackem ? 59 : 79);
    for (int k = 1; k <= n; ++k) {
      EXPECT_EQ(g.Card(kSideA, k), g.deck[static_cast<size_t>(k)]);
      EXPECT_EQ(g.Card(kSideB, k), g.deck[static_cast<size_t>(n + k)]);
    }
    EXPECT_EQ(g.discard_top, g.deck[static_cast<size_t>(2 * n + 1)]);
    EXPECT_EQ(g.draw_cards[1], g.deck[static_cast<size_t>(2 * n + 2)]);
    EXPECT_EQ(g.draw_cards[static_cast<size_t>(g.draw_count)], g.deck[100]);
    EXPECT_EQ(g.draw_pos, 1);
  }
}

TEST(Deal, StackemOnThenOffKeepsTheShortDrawPile) {
  GameState g = Fresh(false);
  g.StackemOn();
  EXPECT_EQ(g.draw_count, 59);
  EXPECT_EQ(g.Card(kSideB, 21), 101);
  g.StackemOff();
  EXPECT_EQ(g.stack_size, 10);
  EXPECT_EQ(g.draw_count, 59);
  EXPECT_EQ(g.Card(kSideB, 11), 101);
  ScriptedRng rng(3);
  ShuffleAndDeal(g, rng);
  EXPECT_EQ(g.discard_top, g.deck[21]);
  EXPECT_EQ(g.draw_cards[59], g.deck[80]);  // the last 20 cards stay out of play
}

TEST(Shuffle, ExchangesWithAPositionFromTheWholeDeckStartingFromTheLastOrder) {
  GameState g = Fresh(false);
  // r = 0 exchanges every position with the first one: a rotation, not a permutation that a
  // Fisher-Yates shuffle with these numbers would give.
  ScriptedRng rng;
  std::vector<float> zeros(100, 0.0f);
  for (float z : zeros) rng.Script({z});
  ShuffleDeck(g, rng);
  EXPECT_EQ(g.deck[1], 100);
  EXPECT_EQ(g.deck[2], 1);
  EXPECT_EQ(g.deck[100], 99);
  EXPECT_EQ(rng.draws(), 100);
  // The next shuffle works on this order, not on a fresh deck: j = 100 for every i.
  for (int i = 0; i < 100; ++i) rng.Script({0.999f});
  ShuffleDeck(g, rng);
  EXPECT_EQ(g.deck[100], 98);
}

TEST(RandomOptions, EachOptionIsOnExactlyAtOrBelowTheThreshold) {
  ScriptedRng rng;
  rng.Script({0.3333f, 0.33331f, 0.0f, 0.9999f, 0.5f});
  const OptionSet picks = PickRandomOptions(rng);
  EXPECT_EQ(picks, (OptionSet{true, false, true, false, false}));
  EXPECT_EQ(rng.draws(), 5);
}

// The order tests on named Stacks: ascending wins, descending only under Backem, and one card
// out of place or an equal neighbour spoils the order. TestOneStack looks at the mover only.
TEST(OrderTest, NamedStacks) {
  GameState g = Fresh(false);
  SetStack(g, kSideA, {1, 5, 9, 20, 33, 40, 41, 60, 77, 100});
  SetStack(g, kSideB, {90, 80, 70, 60, 50, 40, 30, 20, 10, 2});
  EXPECT_EQ(TestBothStacks(g, false), kAInOrder);
  EXPECT_EQ(TestBothStacks(g, true), kTie);
  g.turn_owner = kSideB;
  EXPECT_EQ(TestOneStack(g, false), kUndecided);
  EXPECT_EQ(TestOneStack(g, true), kBInOrder);
  SetStack(g, kSideA, {3, 1, 9, 20, 33, 40, 41, 60, 77, 100});
  SetStack(g, kSideB, {2, 4, 6, 8, 10, 12, 14, 16, 18, 19});
  g.turn_owner = kSideA;
  EXPECT_EQ(TestOneStack(g, false), kUndecided);
  EXPECT_EQ(TestBothStacks(g, false), kBInOrder);

  g = Fresh(true);
  for (int k = 1; k <= 20; ++k) g.Card(kSideA, k) = k * 5;
  EXPECT_EQ(TestOneStack(g, false), kAInOrder);
  g.Card(kSideA, 20) = 95;  // equal to its neighbour
  EXPECT_EQ(TestOneStack(g, true), kUndecided);
  // Backem needs every pair falling, not a mix.
  for (int k = 1; k <= 20; ++k) g.Card(kSideA, k) = 101 - k * 5;
  std::swap(g.Card(kSideA, 1), g.Card(kSideA, 2));
  EXPECT_EQ(TestOneStack(g, true), kUndecided);
}

TEST(Piles, PassBuriesAndTheDrawPileComesRoundInTheSameOrder) {
  GameState g = Fresh(false);
  ScriptedRng rng(11);
  ShuffleAndDeal(g, rng);
  const auto first_round = g.draw_cards;
  const int old_discard = g.discard_top;
  const int top = g.DrawTop();
  Bury(g);
  DiscardDrawn(g);
  EXPECT_FALSE(AdvanceDraw(g, rng));
  EXPECT_EQ(g.buried_count, 1);
  EXPECT_EQ(g.buried[1], old_discard);
  EXPECT_EQ(g.discard_top, top);
  g.draw_pos = g.draw_count;
  EXPECT_TRUE(AdvanceDraw(g, rng));
  EXPECT_EQ(g.draw_pos, 1);
  EXPECT_EQ(g.buried_count, 0);
  EXPECT_EQ(g.draw_cards, first_round);
}

}  // namespace
}  // namespace bq
