// Positions the referee must judge exactly, which the window once reached by clicks.
#include <gtest/gtest.h>

#include <array>

#include "engine/rules.h"
#include "support/scripted_rng.h"

namespace bq {
namespace {

using Ten = std::array<int, 10>;

GameState Dealt(const Ten& a, const Ten& b) {
  GameState g;
  g.Init();
  for (int k = 1; k <= 10; ++k) {
    g.Card(kSideA, k) = a[static_cast<size_t>(k - 1)];
    g.Card(kSideB, k) = b[static_cast<size_t>(k - 1)];
  }
  return g;
}

TEST(Positions, WhichMovesLookAtWhichStacks) {
  test::ScriptedRng rng;
  // Side A's pass looks at no Stack, not even its own in order: it only buries the discard under
  // the drawn card and counts a move.
  GameState g = Dealt({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {95, 20, 30, 40, 50, 60, 70, 80, 90, 100});
  g.discard_top = 60;
  g.draw_cards[1] = 61;
  g.phase = Phase::kPlay;
  ASSERT_TRUE(Apply(g, {MoveKind::kPass, kSideA}, rng));
  EXPECT_EQ(g.turn_result, kUndecided);
  EXPECT_EQ(g.turn_owner, kSideB);
  EXPECT_EQ(g.move_count_a, 1);
  EXPECT_EQ(g.discard_top, 61);
  ASSERT_EQ(g.buried_count, 1);
  EXPECT_EQ(g.buried[1], 60);

  // Against the computer side B's Switchem ends the opening: a swap that puts its Stack in order
  // decides the game there, and play begins all the same.
  g = Dealt({99, 20, 30, 40, 50, 60, 70, 80, 90, 100}, {5, 15, 25, 35, 45, 55, 65, 85, 75, 95});
  OptionSet switchem{};
  switchem[kSwitchem] = true;
  BeginGame(g, switchem, kDrawnFirst, rng);
  ASSERT_TRUE(Apply(g, {MoveKind::kSwitchem, kSideA, 1, 2}, rng));
  rng.Script({0.1f});
  ASSERT_TRUE(Apply(g, {MoveKind::kSwitchem, kSideB, 8, 9}, rng));
  EXPECT_EQ(g.turn_result, kBInOrder);
  EXPECT_EQ(g.phase, Phase::kPlay);
}

}  // namespace
}  // namespace bq
