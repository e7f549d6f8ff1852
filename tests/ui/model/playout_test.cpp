// Many seeded games against the computer with every option combination, side A played by a
// simple policy through the window's own events. Every game must end with a valid result, and
// until the Draw Pile is first renewed every card is in exactly one place.
#include <array>
#include <random>

#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

// Each card of the deck is in one Stack slot, on the Discard Pile, still to come from the Draw
// Pile, or out of play.
void ExpectEveryCardOnce(const GameState& s) {
  std::array<int, kDeckSize + 1> seen{};
  const auto see = [&](int card) {
    ASSERT_GE(card, 1);
    ASSERT_LE(card, kDeckSize);
    ++seen[static_cast<size_t>(card)];
  };
  for (int k = 1; k <= s.stack_size; ++k) {
    see(s.Card(kSideA, k));
    see(s.Card(kSideB, k));
  }
  see(s.discard_top);
  for (int i = 1; i <= s.buried_count; ++i) see(s.buried[static_cast<size_t>(i)]);
  for (int m = s.draw_pos; m <= s.draw_count; ++m) see(s.draw_cards[static_cast<size_t>(m)]);
  // After Stackem was switched on and off, the end of the deck stays out of play.
  for (int i = 2 * s.stack_size + 2 + s.draw_count; i <= kDeckSize; ++i)
    see(s.deck[static_cast<size_t>(i)]);
  for (int card = 1; card <= kDeckSize; ++card)
    ASSERT_EQ(seen[static_cast<size_t>(card)], 1) << "card " << card << "\n" << s.ToString();
}

bool PressComputerButton(Game& g) {
  for (const char* button : {"cmdCTakesDiscard", "cmdCTakesDraw", "cmdCTakesNothing", "cmdTakemC",
                             "cmdSmackemC", "cmdSwitchemC", "cmdBackemC"})
    if (g.Up(button)) {
      EXPECT_TRUE(g.Click(button)) << button;
      return true;
    }
  return false;
}

TEST(Playout, EverySeededGameEndsWithAValidResultAndLosesNoCard) {
  const char* boxes[] = {"chkStackem", "chkBackem", "chkSwitchem",
                         "chkSmackem", "chkTakem",  "chkRandom"};
  int decided[4] = {};
  for (unsigned seed = 0; seed < 192; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Game g;
    g.platform = test::FakePlatform(seed);
    const unsigned options = seed % 64;
    for (int o = 0; o < 6; ++o)
      if (options & (1u << o)) {
        ASSERT_TRUE(g.Click(boxes[o]));
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
      if (!PressComputerButton(g)) {
        ASSERT_TRUE(player.Step()) << "side A is stuck waiting";
      }
      const GameState& s = g.model.state();
      renewed = renewed || s.draw_pos < last_pos;
      last_pos = s.draw_pos;
      if (!renewed) ExpectEveryCardOnce(s);
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
