// Thousands of seeded self-play games with every option combination: the seats choose only
// legal moves (the match stops with an exception otherwise), and every applied move leaves the
// cards, counts and result consistent.
#include <gtest/gtest.h>

#include "selfplay/match.h"
#include "support/every_card.h"
#include "support/scripted_rng.h"

namespace bq::selfplay {
namespace {

class Checker : public MoveObserver {
 public:
  void Applied(const Move& m, const GameState& g) override {
    moves_ += m.kind != MoveKind::kBackem;
    renewed_ = renewed_ || g.draw_pos < last_draw_pos_;
    last_draw_pos_ = g.draw_pos;
    ASSERT_TRUE(test::EveryCardOnce(g, renewed_)) << ToString(m);
    ASSERT_EQ(g.move_count_a + g.move_count_b, moves_);
    ASSERT_LE(std::abs(g.move_count_a - g.move_count_b), 1) << g.ToString();
    ASSERT_EQ(g.phase == Phase::kDecided, g.turn_result != kUndecided);
  }

  int moves_ = 0;

 private:
  bool renewed_ = false;
  int last_draw_pos_ = 1;
};

TEST(SelfPlayInvariants, EveryOptionSetPlaysLegalMovesToAResult) {
  int results[4] = {};
  for (unsigned mask = 0; mask < 32; ++mask) {
    OptionChoice choice;
    for (int o = 0; o < kOptionCount; ++o) choice.fixed[static_cast<size_t>(o)] = mask >> o & 1;
    test::ScriptedRng rng(mask);
    Match match(choice, rng, 1000);
    for (int game = 0; game < 100; ++game) {
      SCOPED_TRACE(testing::Message() << "options " << mask << " game " << game);
      Checker checker;
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
