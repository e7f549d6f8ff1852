// Many seeded games against the computer with every option combination, side A played by a
// simple policy through the window's own events. Every game must end with a valid result, and
// until the Draw Pile is first renewed every card is in exactly one place.
#include <array>
#include <random>

#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

bool Up(const Game& g, const char* name) {
  const Control& c = g.C(name);
  return c.visible && c.enabled;
}

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

class Player {
 public:
  Player(Game& g, unsigned seed) : g_(g), rng_(seed) {}

  // One decision of side A, or one press of a waiting computer button.
  void Step() {
    for (const char* button : {"cmdCTakesDiscard", "cmdCTakesDraw", "cmdCTakesNothing", "cmdTakemC",
                               "cmdSmackemC", "cmdSwitchemC", "cmdBackemC"}) {
      if (Up(g_, button)) {
        ASSERT_TRUE(g_.Click(button));
        return;
      }
    }
    const GameState& s = g_.model.state();
    const int n = s.stack_size;
    if (Up(g_, "cmdSwitchemA")) {
      const int a = Slot(n), b = a % n + 1;
      g_.Click(Card('A', a));
      g_.Click(Card('A', b));
      if (Up(g_, "cmdSwitchemA")) {
        ASSERT_TRUE(g_.Click("cmdSwitchemA"));
      }
      return;
    }
    ASSERT_EQ(s.turn_owner, kSideA) << "side A is stuck waiting";
    if (Up(g_, "cmdSetupSmackemA") && Chance(0.05)) return Special("cmdSetupSmackemA", 0, 2);
    if (Up(g_, "cmdSetupTakemA") && Chance(0.05)) return Special("cmdSetupTakemA", 1, 1);
    const int k = Ideal(s, s.discard_top);
    if (!Fits(s, k)) return Move("lblDiscardPile", k);
    ASSERT_TRUE(g_.Click("lblDrawPile"));
    const int draw_slot = Ideal(s, s.DrawTop());
    if (!Fits(s, draw_slot)) return Move(nullptr, draw_slot);
    // A pass: the confirming button, or in Fast Mode the Discard Pile after the look.
    ASSERT_TRUE(g_.Click(g_.model.fast_mode() ? "lblDiscardPile" : "cmdPlayA"));
  }

 private:
  static std::string Card(char side, int k) {
    return std::string("lblCard") + side + "(" + std::to_string(k) + ")";
  }
  int Slot(int n) { return std::uniform_int_distribution<int>(1, n)(rng_); }
  bool Chance(double p) { return std::uniform_real_distribution<double>(0, 1)(rng_) < p; }
  static int Ideal(const GameState& s, int card) { return (card - 1) / s.slot_span + 1; }
  static bool Fits(const GameState& s, int k) { return Ideal(s, s.Card(kSideA, k)) == k; }

  void Move(const char* pile, int slot) {
    if (pile) {
      ASSERT_TRUE(g_.Click(pile));
    }
    ASSERT_TRUE(g_.Click(Card('A', slot)));
    if (Up(g_, "cmdPlayA")) {
      ASSERT_TRUE(g_.Click("cmdPlayA"));
    }
  }

  void Special(const char* setup, int own, int theirs) {
    ASSERT_TRUE(g_.Click(setup));
    const int n = g_.model.state().stack_size;
    const int b = Slot(n);
    if (own) g_.Click(Card('A', Slot(n)));
    for (int i = 0; i < theirs; ++i) g_.Click(Card('B', (b + i - 1) % n + 1));
    for (const char* done : {"cmdSmackemA", "cmdTakemA"})
      if (Up(g_, done)) {
        ASSERT_TRUE(g_.Click(done));
      }
  }

  Game& g_;
  std::mt19937 rng_;
};

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
    Player player(g, seed);
    bool renewed = false;
    int last_pos = g.model.state().draw_pos;
    int steps = 0;
    while (g.Field("TurnResult") == "0" && steps++ < 5000) {
      player.Step();
      if (testing::Test::HasFatalFailure()) return;
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
    EXPECT_TRUE(Up(g, button));
    ASSERT_TRUE(g.Click(button));
    EXPECT_TRUE(Up(g, "cmdNew"));
  }
  // Both sides can win: the computer is a real opponent for this simple policy.
  EXPECT_GT(decided[kAInOrder], 0);
  EXPECT_GT(decided[kBInOrder], 0);
}

}  // namespace
}  // namespace bq
