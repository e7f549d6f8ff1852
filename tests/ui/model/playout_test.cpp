// Many seeded games against the computer with every option combination, side A played by a
// simple policy through the window's own events. Every game must end with a valid result, and
// until the Draw Pile is first renewed every card is in exactly one place.
#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

TEST(Playout, EverySeededGameEndsWithAValidResultAndLosesNoCard) {
  int decided[4] = {};
  for (unsigned seed = 0; seed < 192; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Game g;
    g.platform = test::FakePlatform(seed);
    const unsigned options = seed % 64;
    for (int o = 0; o < 6; ++o)
      if (options & (1u << o)) {
        ASSERT_TRUE(g.Click(test::kOptionBoxes[o]));
      }
    if ((seed / 64) % 3 == 1) {
      ASSERT_TRUE(g.Click("optFastModeOn"));
    }
    if ((seed / 64) % 3 == 2) {
      ASSERT_TRUE(g.Click("optLearnModeOn"));
    }
    ASSERT_TRUE(g.Click("cmdNew"));
    test::SimplePlayer player(g, g.model, seed);
    bool renewed = false;
    int last_pos = g.model.state().draw_pos;
    int steps = 0;
    while (g.Field("TurnResult") == "0" && steps++ < 5000) {
      if (!test::PressComputerButton(g)) {
        ASSERT_TRUE(player.Step()) << "side A is stuck waiting";
      }
      const GameState& s = g.model.state();
      renewed = renewed || s.draw_pos < last_pos;
      last_pos = s.draw_pos;
      test::ExpectEveryCardOnce(s, renewed);
      if (testing::Test::HasFatalFailure()) return;
    }
    const int result = std::stoi(g.Field("TurnResult"));
    ASSERT_GE(result, 1) << "no result after " << steps << " steps";
    ++decided[result];
    const char* button = result == kTie        ? "cmdBothWin"
                         : result == kAInOrder ? "cmdAWins"
                                               : "cmdCWins";
    EXPECT_TRUE(g.Up(button));
    ASSERT_TRUE(g.Click(button));
    EXPECT_TRUE(g.Up("cmdNew"));
  }
  // Both sides can win: the computer is a real opponent for this simple policy.
  EXPECT_GT(decided[kAInOrder], 0);
  EXPECT_GT(decided[kBInOrder], 0);
}

}  // namespace
}  // namespace bq
