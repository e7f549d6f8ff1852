// Thousands of seeded self-play games with every option combination, checked after every move.
#include <gtest/gtest.h>

#include "selfplay/match.h"
#include "support/scripted_rng.h"
#include "ui/model/game_test_util.h"

namespace bq::selfplay {
namespace {

bool InOrder(const GameState& g, int side, bool backem) {
  bool up = true, down = true;
  for (int k = 1; k < g.stack_size; ++k) {
    up = up && g.Card(side, k) < g.Card(side, k + 1);
    down = down && g.Card(side, k) > g.Card(side, k + 1);
  }
  return up || (backem && down);
}

class Checker : public MoveObserver {
 public:
  explicit Checker(bool backem) : backem_(backem) {}

  // Until the Draw Pile is renewed each card is in exactly one place. The renewed pile brings
  // back the same cards in the same order, so after that only the ranges can be checked.
  void AfterMove(const GameState& g, int mover, bool opening) override {
    ++moves_;
    const int n = g.stack_size;
    renewed_ = renewed_ || g.draw_pos < last_draw_pos_;
    last_draw_pos_ = g.draw_pos;
    ASSERT_TRUE(g.draw_pos >= 1 && g.draw_pos <= g.draw_count) << g.ToString();
    ASSERT_LT(g.buried_count, g.draw_pos) << g.ToString();
    ASSERT_EQ(g.Card(kSideB, 0), 0);
    ASSERT_EQ(g.Card(kSideB, n + 1), kDeckSize + 1);
    test::ExpectEveryCardOnce(g, renewed_);

    ASSERT_EQ(g.move_count_a + g.move_count_b, moves_);
    ASSERT_LE(std::abs(g.move_count_a - g.move_count_b), 1) << g.ToString();
    const int expected = InOrder(g, kSideA, backem_)   ? (InOrder(g, kSideB, backem_) ? kTie : 1)
                         : InOrder(g, kSideB, backem_) ? kBInOrder
                                                       : kUndecided;
    ASSERT_EQ(g.turn_result, expected) << g.ToString();
    if (!opening && g.turn_result == kUndecided) {
      ASSERT_NE(g.turn_owner, mover) << g.ToString();
    }
  }

  int moves_ = 0;

 private:
  bool backem_;
  bool renewed_ = false;
  int last_draw_pos_ = 1;
};

TEST(SelfPlayInvariants, EveryMoveKeepsTheCardsCountsTurnAndResultConsistent) {
  int results[4] = {};
  for (unsigned mask = 0; mask < 32; ++mask) {
    OptionChoice choice;
    for (int o = 0; o < kOptionCount; ++o) choice.fixed[static_cast<size_t>(o)] = mask >> o & 1;
    test::ScriptedRng rng(mask);
    Match match(choice, rng, 1000);
    for (int game = 0; game < 100; ++game) {
      SCOPED_TRACE(testing::Message() << "options " << mask << " game " << game);
      Checker checker(choice.fixed[kBackem]);
      const GameRecord r = match.PlayGame(&checker);
      ASSERT_FALSE(testing::Test::HasFatalFailure());
      ASSERT_EQ(r.moves(), checker.moves_);
      ASSERT_EQ(r.options, choice.fixed);
      // Both sides may keep passing for ever; such a game stops at the cap, undecided.
      if (r.result == kUndecided) {
        ASSERT_EQ(r.moves(), 1000);
      }
      ++results[r.result];
    }
  }
  EXPECT_LT(results[kUndecided], 100);
  EXPECT_GT(results[kAInOrder], 1000);
  EXPECT_GT(results[kBInOrder], 1000);
}

}  // namespace
}  // namespace bq::selfplay
