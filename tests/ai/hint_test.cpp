#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "ai/hint.h"
#include "ai/turn.h"
#include "support/scripted_rng.h"

namespace bq::ai {
namespace {

using Kind = Advice::Kind;

Advice Ask(std::vector<int> stack, int discard, int drawn = 0, bool backem = false) {
  stack.insert(stack.begin(), 0);
  return Advise({stack.data(), static_cast<int>(stack.size()) - 1, discard, drawn, backem});
}

// Under Backem a Stack that runs downwards is built downwards: 23 goes to the slot that suits it
// counting from the right. (Without Backem the advice is the computer's turn, below.)
TEST(HintTest, UnderBackemADescendingStackIsBuiltDownwards) {
  const Advice mirrored = Ask({95, 85, 75, 65, 55, 45, 35, 90, 15, 5}, 23, 0, true);
  EXPECT_EQ(mirrored.kind, Kind::kTakeDiscard);
  EXPECT_EQ(mirrored.slot, 8);
}

// Over many random positions, and nearly ordered ones, the advice is exactly the turn the computer
// would make with the same Stack freshly judged, without Takem and Smackem.
TEST(HintTest, AgreesWithTheComputersTurn) {
  std::mt19937 gen(99);
  test::ScriptedRng rng;
  for (int trial = 0; trial < 3000; ++trial) {
    const int n = trial % 2 == 0 ? 10 : 20;
    std::vector<int> deck(100);
    std::iota(deck.begin(), deck.end(), 1);
    std::shuffle(deck.begin(), deck.end(), gen);
    std::vector<int> own(deck.begin(), deck.begin() + n + 1);  // slot 0 unused
    // Half the Stacks are in order but for two swapped cards, where the computer may put a Draw
    // Pile card in place of a stray even though the card fits no range of its own.
    if (trial % 4 >= 2) {
      std::sort(own.begin() + 1, own.end());
      std::swap(own[1 + gen() % static_cast<unsigned>(n)],
                own[1 + gen() % static_cast<unsigned>(n)]);
    }
    const int discard = deck[static_cast<size_t>(n + 1)];
    const int draw = deck[static_cast<size_t>(n + 2)];

    Judgement j;
    Rejudge(j, n, own.data());
    TurnView view;
    view.n = n;
    view.discard_top = discard;
    view.draw_top = draw;
    const TurnDecision d = DecideTurn(j, view, rng);

    const Advice first = Advise({own.data(), n, discard, 0, false});
    SCOPED_TRACE(testing::Message() << "trial " << trial);
    if (d.kind == TurnDecision::Kind::kDiscard) {
      ASSERT_EQ(first.kind, Kind::kTakeDiscard);
      ASSERT_EQ(first.slot, d.slot);
      continue;
    }
    ASSERT_EQ(first.kind, Kind::kLookAtDraw);
    const Advice then = Advise({own.data(), n, discard, draw, false});
    ASSERT_EQ(then.kind, d.kind == TurnDecision::Kind::kDraw ? Kind::kTakeDraw : Kind::kPass);
    ASSERT_EQ(then.slot, d.slot);
  }
}

}  // namespace
}  // namespace bq::ai
