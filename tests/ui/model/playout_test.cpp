// Many seeded games against the computer with every option combination, side A played by a
// simple policy through the window's own events. Every game must end with a valid result, and
// until the Draw Pile is first renewed every card is in exactly one place.
#include "ui/model/game_test_util.h"

namespace bq {
namespace {

TEST(Playout, EverySeededGameEndsWithAValidResultAndLosesNoCard) {
  int decided[4] = {};
  for (unsigned seed = 0; seed < 192; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    test::Game g;
    g.platform = test::FakePlatform(seed);
    for (unsigned o = 0; o < 6; ++o)
      if (seed & (1u << o)) g.Press({test::kOptionBoxes[o]});
    const unsigned mode = seed / 64;
    if (mode > 0) g.Press({mode == 1 ? "optFastModeOn" : "optLearnModeOn"});
    g.Press({"cmdNew"});
    test::SimplePlayer player(g, g.model, seed);
    bool renewed = false;
    int last_pos = g.model.state().draw_pos, steps = 0;
    while (g.Field("TurnResult") == "0" && steps++ < 5000) {
      ASSERT_TRUE(test::PressComputerButton(g) || player.Step()) << "side A is stuck waiting";
      const GameState& s = g.model.state();
      renewed = renewed || s.draw_pos < last_pos;
      last_pos = s.draw_pos;
      ASSERT_TRUE(test::EveryCardOnce(s, renewed));
    }
    const int result = std::stoi(g.Field("TurnResult"));
    ASSERT_GE(result, 1) << "no result after " << steps << " steps";
    ++decided[result];
    g.Press({result == kTie ? "cmdBothWin" : result == kAInOrder ? "cmdAWins" : "cmdCWins"});
    EXPECT_TRUE(g.Up("cmdNew"));
  }
  // Both sides can win: the computer is a real opponent for this simple policy.
  EXPECT_GT(decided[kAInOrder], 0);
  EXPECT_GT(decided[kBInOrder], 0);
}

}  // namespace
}  // namespace bq
