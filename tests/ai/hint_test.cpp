#include <gtest/gtest.h>

#include <vector>

#include "ai/hint.h"

namespace bq::ai {
namespace {

using Kind = Advice::Kind;

Advice Ask(std::vector<int> stack, int discard, int drawn = 0, bool backem = false) {
  stack.insert(stack.begin(), 0);
  return Advise({stack.data(), static_cast<int>(stack.size()) - 1, discard, drawn, backem});
}

// Under Backem a Stack that runs downwards is built downwards: 23 goes to the slot that suits it
// counting from the right.
TEST(HintTest, UnderBackemADescendingStackIsBuiltDownwards) {
  const Advice mirrored = Ask({95, 85, 75, 65, 55, 45, 35, 90, 15, 5}, 23, 0, true);
  EXPECT_EQ(mirrored.kind, Kind::kTakeDiscard);
  EXPECT_EQ(mirrored.slot, 8);
}

// A card the computer's own card judge declines may still be advised from the Draw Pile, as the
// computer's turn would take it: 14 below a settled 24 goes to slot 1.
TEST(HintTest, TheDrawPileCardIsJudgedAsTheComputerJudgesItsOwn) {
  const std::vector<int> stack{24, 29, 30, 47, 53, 61, 67, 77, 84, 95};
  EXPECT_EQ(Ask(stack, 72).kind, Kind::kLookAtDraw);
  const Advice drawn = Ask(stack, 72, 14);
  EXPECT_EQ(drawn.kind, Kind::kTakeDraw);
  EXPECT_EQ(drawn.slot, 1);
}

}  // namespace
}  // namespace bq::ai
