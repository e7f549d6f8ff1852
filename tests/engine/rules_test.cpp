#include <gtest/gtest.h>

#include <algorithm>

#include "engine/rules.h"
#include "support/every_card.h"
#include "support/scripted_rng.h"

namespace bq {
namespace {

using test::ScriptedRng;
using K = MoveKind;

OptionSet With(std::initializer_list<Option> on) {
  OptionSet options{};
  for (Option o : on) options[static_cast<size_t>(o)] = true;
  return options;
}

// A position in play, side A to move, with 10-card Stacks as given.
GameState Position(std::initializer_list<int> a, std::initializer_list<int> b,
                   OptionSet options = {}) {
  GameState g;
  g.Init();
  int k = 1;
  for (int c : a) g.Card(kSideA, k++) = c;
  k = 1;
  for (int c : b) g.Card(kSideB, k++) = c;
  g.discard_top = 97;
  g.draw_cards[1] = 98;
  g.draw_cards[2] = 99;
  g.options = options;
  g.phase = Phase::kPlay;
  return g;
}

// Whose turn, the result, the phase and both move counts, as one line.
std::string Turn(const GameState& g) {
  const char* phase[] = {"opening", "play", "decided"};
  return "turn " + std::to_string(g.turn_owner) + " result " + std::to_string(g.turn_result) + " " +
         phase[static_cast<int>(g.phase)] + " moves " + std::to_string(g.move_count_a) + "/" +
         std::to_string(g.move_count_b);
}

bool InOrder(const GameState& g, int side) {
  bool up = true, down = true;
  for (int k = 1; k < g.stack_size; ++k) {
    up = up && g.Card(side, k) < g.Card(side, k + 1);
    down = down && g.Card(side, k) > g.Card(side, k + 1);
  }
  return up || (g.options[kBackem] && down);
}

// Rising neighbours in `side`'s Stack with `card` in `slot` (slot 0: as it stands).
int Rising(const GameState& g, int side, int slot, int card) {
  const auto at = [&](int k) { return k == slot ? card : g.Card(side, k); };
  int rising = 0;
  for (int k = 1; k < g.stack_size; ++k) rising += at(k) < at(k + 1);
  return rising;
}

TEST(Referee, EachKindOfMoveTestsTheStacksItShould) {
  ScriptedRng rng;
  // Side B's Stack stands in order (as a Smackem could leave it); side A's take does not look.
  GameState g =
      Position({55, 12, 20, 30, 40, 50, 60, 70, 80, 90}, {2, 4, 6, 8, 10, 12, 14, 16, 18, 19});
  g.discard_top = 95;
  ASSERT_TRUE(Apply(g, {K::kTakeDiscard, kSideA, 10}, rng));
  EXPECT_EQ(g.turn_result, kUndecided);
  EXPECT_EQ(g.Card(kSideA, 10), 95);
  EXPECT_EQ(g.discard_top, 90);
  // Side B's pass tests both Stacks; the winner keeps the turn.
  ASSERT_TRUE(Apply(g, {K::kPass, kSideB}, rng));
  EXPECT_EQ(Turn(g), "turn 2 result 2 decided moves 1/1");

  // Side A's take that completes its own Stack.
  g = Position({55, 12, 20, 30, 40, 50, 60, 70, 80, 90}, {9, 1, 2, 3, 4, 5, 6, 7, 8, 10});
  g.discard_top = 5;
  ASSERT_TRUE(Apply(g, {K::kTakeDiscard, kSideA, 1}, rng));
  EXPECT_EQ(g.turn_result, kAInOrder);
  // Side A's pass looks at no Stack, not even its own in order: it only buries the discard.
  g = Position({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {95, 20, 30, 40, 50, 60, 70, 80, 90, 100});
  ASSERT_TRUE(Apply(g, {K::kPass, kSideA}, rng));
  EXPECT_EQ(g.turn_result, kUndecided);
  EXPECT_EQ(g.discard_top, 98);
  EXPECT_EQ(g.buried[1], 97);

  // Smackem tests the Stack it changed: the computer's swap can hand the player the game.
  g = Position({1, 2, 3, 4, 5, 6, 7, 8, 10, 9}, {20, 10, 30, 40, 50, 60, 70, 80, 90, 95},
               With({kSmackem}));
  g.turn_owner = kSideB;
  ASSERT_TRUE(Apply(g, {K::kSmackem, kSideB, 9, 10}, rng));
  EXPECT_EQ(g.turn_result, kAInOrder);
  EXPECT_EQ(g.turn_owner, kSideA);

  // A Takem that puts both Stacks in order is a tie.
  g = Position({1, 2, 3, 4, 5, 6, 7, 8, 9, 95}, {10, 20, 30, 40, 50, 60, 70, 80, 90, 11},
               With({kTakem}));
  g.turn_owner = kSideB;
  ASSERT_TRUE(Apply(g, {K::kTakem, kSideB, 10, 10}, rng));
  EXPECT_EQ(g.turn_result, kTie);
}

TEST(Referee, SideANamesTheOpponentsCardsWhereTheyAreShown) {
  ScriptedRng rng;
  // Side B's Stack is held turned round: positions 1 and 2 on screen are slots 10 and 9.
  GameState g = Position({9, 1, 2, 3, 4, 5, 6, 7, 8, 10}, {2, 4, 6, 8, 10, 12, 14, 16, 19, 18},
                         With({kSmackem, kTakem}));
  g.opponent_row_reversed = true;
  const GameState before = g;
  EXPECT_EQ(Describe(before, {K::kSmackem, kSideA, 1, 2}),
            "Smackem: Side A swaps side B's 18 and 19.");
  ASSERT_TRUE(Apply(g, {K::kSmackem, kSideA, 1, 2}, rng));
  EXPECT_EQ(g.Card(kSideB, 9), 18);
  EXPECT_EQ(g.Card(kSideB, 10), 19);
  EXPECT_EQ(g.turn_result, kBInOrder);  // the changed Stack, not the mover's, is tested

  g = before;
  EXPECT_EQ(Describe(before, {K::kTakem, kSideA, 1, 3}),
            "Takem: Side A gives its 9 for side B's 16.");
  ASSERT_TRUE(Apply(g, {K::kTakem, kSideA, 1, 3}, rng));
  EXPECT_EQ(g.Card(kSideA, 1), 16);
  EXPECT_EQ(g.Card(kSideB, 8), 9);
  EXPECT_EQ(g.turn_owner, kSideB);
  // Side B names side A's cards by slot.
  ASSERT_TRUE(Apply(g, {K::kTakem, kSideB, 8, 2}, rng));
  EXPECT_EQ(g.Card(kSideB, 8), 1);
  EXPECT_EQ(g.Card(kSideA, 2), 9);
}

TEST(Referee, SpecialMovesOncePerSideAndOnlyWithTheirOption) {
  ScriptedRng rng;
  GameState g = Position({9, 1, 2, 3, 4, 5, 6, 7, 8, 10}, {20, 11, 30, 40, 50, 60, 70, 80, 90, 95},
                         With({kTakem, kBackem}));
  EXPECT_FALSE(IsLegal(g, {K::kSmackem, kSideA, 1, 2}));
  EXPECT_FALSE(IsLegal(g, {K::kTakem, kSideB, 1, 2}));  // not side B's turn
  EXPECT_FALSE(IsLegal(g, {K::kTakem, kSideA, 0, 2}));
  EXPECT_FALSE(IsLegal(g, {K::kTakem, kSideA, 1, 11}));
  ASSERT_TRUE(Apply(g, {K::kTakem, kSideA, 1, 2}, rng));
  ASSERT_TRUE(Apply(g, {K::kTakem, kSideB, 3, 3}, rng));
  EXPECT_FALSE(IsLegal(g, {K::kTakem, kSideA, 1, 2}));
  ASSERT_TRUE(Apply(g, {K::kPass, kSideA}, rng));
  EXPECT_FALSE(IsLegal(g, {K::kTakem, kSideB, 1, 2}));
  // Backem's reversal comes before a side's first move or not at all.
  EXPECT_FALSE(IsLegal(g, {K::kBackem, kSideB}));

  // Smackem: side A must pick two different cards; side B's choice is taken as it comes.
  g = Position({9, 1, 2, 3, 4, 5, 6, 7, 8, 10}, {20, 11, 30, 40, 50, 60, 70, 80, 90, 95},
               With({kSmackem}));
  EXPECT_FALSE(IsLegal(g, {K::kSmackem, kSideA, 3, 3}));
  ASSERT_TRUE(Apply(g, {K::kSmackem, kSideA, 3, 4}, rng));
  ASSERT_TRUE(Apply(g, {K::kSmackem, kSideB, 5, 5}, rng));
  EXPECT_FALSE(IsLegal(g, {K::kSmackem, kSideA, 1, 2}));
  // Only side A can spend a turn with nothing chosen.
  ASSERT_TRUE(Apply(g, {K::kSpendTurn, kSideA}, rng));
  EXPECT_FALSE(IsLegal(g, {K::kSpendTurn, kSideB}));
  EXPECT_EQ(g.move_count_a, 2);
}

TEST(Referee, BackemTurnsSideBsStackRoundAndOnlyMarksSideAs) {
  ScriptedRng rng;
  EXPECT_FALSE(IsLegal(Position({9, 1, 2, 3, 4, 5, 6, 7, 8, 10}, {}), {K::kBackem, kSideA}));
  GameState g = Position({9, 1, 2, 3, 4, 5, 6, 7, 8, 10}, {20, 11, 30, 40, 50, 60, 70, 80, 90, 95},
                         With({kBackem}));
  const GameState before = g;
  ASSERT_TRUE(Apply(g, {K::kBackem, kSideA}, rng));
  EXPECT_TRUE(g.a_reversed);
  EXPECT_EQ(g.stacks, before.stacks);
  EXPECT_EQ(Turn(g), "turn 1 result 0 play moves 0/0");
  EXPECT_FALSE(IsLegal(g, {K::kBackem, kSideA}));
  ASSERT_TRUE(Apply(g, {K::kPass, kSideA}, rng));
  ASSERT_TRUE(Apply(g, {K::kBackem, kSideB}, rng));
  EXPECT_TRUE(g.opponent_row_reversed);
  EXPECT_EQ(g.Card(kSideB, 1), 95);
  EXPECT_EQ(g.Card(kSideB, 10), 20);
  EXPECT_EQ(g.DisplayPos(1), 10);
}

TEST(Referee, OpeningThenPlayAndAResultAtTheDealStands) {
  const std::initializer_list<int> a = {1, 2, 3, 4, 5, 6, 7, 8, 10, 9};
  const std::initializer_list<int> b = {20, 11, 30, 40, 50, 60, 70, 80, 90, 95};
  // Against the computer: side A opens, then side B; the first mover is drawn after both.
  ScriptedRng rng;
  GameState g = Position(a, b);
  BeginGame(g, With({kSwitchem}), kDrawnFirst, rng);
  EXPECT_EQ(Turn(g), "turn 1 result 0 opening moves 0/0");
  EXPECT_EQ(rng.draws(), 0);
  EXPECT_FALSE(IsLegal(g, {K::kSwitchem, kSideA, 2, 2}));
  EXPECT_FALSE(IsLegal(g, {K::kSwitchem, kSideA}));
  EXPECT_FALSE(IsLegal(g, {K::kTakeDiscard, kSideA, 1}));
  ASSERT_TRUE(Apply(g, {K::kSwitchem, kSideA, 1, 10}, rng));
  EXPECT_EQ(g.Card(kSideA, 10), 1);
  EXPECT_EQ(g.turn_owner, kSideB);
  rng.Script({0.7f});
  // Side B's swap that puts its Stack in order ends the opening and decides the game there.
  ASSERT_TRUE(Apply(g, {K::kSwitchem, kSideB, 1, 2}, rng));
  EXPECT_EQ(Turn(g), "turn 2 result 2 play moves 1/1");
  EXPECT_EQ(rng.draws(), 1);

  // On the dealer's copy of a network game side B opens and moves first: nothing is drawn.
  g = Position(a, b);
  BeginGame(g, With({kSwitchem}), kSideB, rng);
  EXPECT_EQ(g.turn_owner, kSideB);
  ASSERT_TRUE(Apply(g, {K::kSwitchem, kSideB, 3, 4}, rng));
  // Side A's swap puts its Stack in order and ends the opening: both are tested. The result
  // stands, and play starts all the same.
  ASSERT_TRUE(Apply(g, {K::kSwitchem, kSideA, 9, 10}, rng));
  EXPECT_EQ(Turn(g), "turn 2 result 1 play moves 1/1");
  EXPECT_EQ(rng.draws(), 1);

  // A dealt Stack in order decides the game, and play goes on with that result standing: a move
  // that breaks the order changes nothing, and neither does a later order.
  g = Position({10, 20, 30, 40, 50, 60, 70, 80, 90, 95}, b);
  BeginGame(g, With({kSwitchem}), kDrawnFirst, rng);
  EXPECT_EQ(Turn(g), "turn 1 result 1 opening moves 0/0");
  ASSERT_TRUE(Apply(g, {K::kSwitchem, kSideA, 1, 2}, rng));
  rng.Script({0.7f});
  ASSERT_TRUE(Apply(g, {K::kSwitchem, kSideB}, rng));
  ASSERT_EQ(Turn(g), "turn 2 result 1 play moves 1/1");
  g.discard_top = 25;
  ASSERT_TRUE(Apply(g, {K::kTakeDiscard, kSideB, 2}, rng));  // side B's Stack is in order now
  EXPECT_EQ(Turn(g), "turn 1 result 1 play moves 1/2");
}

TEST(Referee, AReceivedDealIsLaidOutWholeOrNotAtAll) {
  GameState g = Position({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {11, 12, 13, 14, 15, 16, 17, 18, 19, 20});
  g.turn_owner = kSideB;
  g.turn_result = kTie;
  g.move_count_a = 4;
  g.draw_pos = 7;
  g.buried_count = 3;
  g.opponent_row_reversed = true;
  DealtCards deal{{91, 82, 73, 64, 55, 46, 37, 28, 19, 100},
                  {5, 15, 25, 35, 45, 56, 65, 75, 85, 95},
                  50,
                  {1, 2, 99}};
  for (auto bad :
       {+[](DealtCards& d) { d.side_b.pop_back(); }, +[](DealtCards& d) { d.draw.clear(); },
        +[](DealtCards& d) { d.draw.resize(80, 0); }, +[](DealtCards& d) { d.discard = 101; },
        +[](DealtCards& d) { d.draw[2] = 0; }, +[](DealtCards& d) { d.draw[1] = d.side_b[9]; }}) {
    DealtCards refused = deal;
    bad(refused);
    GameState h = g;
    EXPECT_FALSE(InstallDeal(h, refused));
    EXPECT_EQ(h.ToString(), g.ToString());
    EXPECT_EQ(h.deck, g.deck);
  }
  ASSERT_TRUE(InstallDeal(g, deal));
  EXPECT_EQ(g.ToString(),
            "A: 91 82 73 64 55 46 37 28 19 100\nB: 5 15 25 35 45 56 65 75 85 95\n"
            "discard 50 draw 1 (1/3) buried 0 turn 1 result 0 moves 0/0\n");
  // The deal's cards lead the deck, the rest follow in order for the next shuffle.
  EXPECT_EQ(g.deck[1], 91);
  EXPECT_EQ(g.deck[21], 50);
  EXPECT_EQ(g.deck[24], 99);
  EXPECT_EQ(g.deck[25], 3);
  EXPECT_EQ(g.deck[100], 98);
  std::vector<int> deck(g.deck.begin() + 1, g.deck.end());
  std::sort(deck.begin(), deck.end());
  for (int c = 1; c <= kDeckSize; ++c) EXPECT_EQ(deck[static_cast<size_t>(c - 1)], c);

  g.turn_owner = kSideB;
  g.turn_result = kBInOrder;
  g.move_count_b = 9;
  ResetBetweenGames(g, 59);
  EXPECT_EQ(g.draw_count, 59);
  ResetBetweenGames(g, 0);
  EXPECT_EQ(g.draw_count, 59);
  EXPECT_EQ(g.turn_owner, kSideA);
  EXPECT_EQ(g.turn_result, kUndecided);
  EXPECT_EQ(g.move_count_a + g.move_count_b, 0);
}

// Random legal moves from deals with nearly ordered Stacks (so that games end), and random
// moves of any kind that the referee must refuse without a trace.
TEST(Referee, RandomPlayoutsKeepEveryInvariant) {
  std::mt19937 pick(5);
  int decided = 0, renewals = 0;
  for (unsigned mask = 0; mask < 32; ++mask) {
    OptionSet options{};
    for (int o = 0; o < kOptionCount; ++o) options[static_cast<size_t>(o)] = mask >> o & 1;
    ScriptedRng rng(mask);
    GameState g;
    g.Init();
    if (options[kStackem]) g.StackemOn();
    for (int game = 0; game < 10; ++game) {
      SCOPED_TRACE(testing::Message() << "options " << mask << " game " << game);
      ShuffleAndDeal(g, rng);
      for (int side : {kSideA, kSideB}) {
        auto& s = g.stacks[static_cast<size_t>(side)];
        std::sort(s.begin() + 1, s.begin() + 1 + g.stack_size);
        const auto k = static_cast<size_t>(1 + pick() % static_cast<unsigned>(g.stack_size - 1));
        std::swap(s[k], s[k + 1]);
      }
      BeginGame(g, options, game % 3 == 0 ? kSideB : kDrawnFirst, rng);
      std::array<int, 3> counted{};
      bool renewed = false;
      int result = kUndecided;
      for (int step = 0; step < 200 && g.phase != Phase::kDecided; ++step) {
        const int side = g.turn_owner;
        const std::vector<Move> legal = LegalMoves(g, side);
        ASSERT_FALSE(legal.empty()) << g.ToString();
        ASSERT_TRUE(LegalMoves(g, kSideA + kSideB - side).empty());
        const Move stray{static_cast<MoveKind>(pick() % 8), static_cast<int>(pick() % 3),
                         static_cast<int>(pick() % 22), static_cast<int>(pick() % 22)};
        const bool listed = std::find(legal.begin(), legal.end(), stray) != legal.end();
        // Swaps are listed one way round only; every other legal move is listed.
        if (stray.kind != K::kSwitchem && stray.kind != K::kSmackem) {
          ASSERT_EQ(IsLegal(g, stray), listed) << ToString(stray);
        }
        if (!IsLegal(g, stray)) {
          ASSERT_FALSE(listed);
          const GameState before = g;
          ASSERT_FALSE(Apply(g, stray, rng)) << ToString(stray);
          ASSERT_EQ(g.ToString(), before.ToString());
          ASSERT_EQ(g.stacks, before.stacks);
        }
        // Mostly takes that put the mover's Stack more in order, so that games end.
        std::vector<Move> better;
        for (const Move& t : legal)
          if ((t.kind == K::kTakeDiscard || t.kind == K::kTakeDraw) &&
              Rising(g, side, t.slot1, t.kind == K::kTakeDiscard ? g.discard_top : g.DrawTop()) >
                  Rising(g, side, 0, 0))
            better.push_back(t);
        const std::vector<Move>& from = !better.empty() && pick() % 8 != 0 ? better : legal;
        const Move m = from[pick() % from.size()];
        const int draw_pos = g.draw_pos;
        const Phase phase = g.phase;
        ASSERT_TRUE(Apply(g, m, rng)) << ToString(m) << "\n" << g.ToString();
        renewed = renewed || g.draw_pos < draw_pos;
        if (m.kind != MoveKind::kBackem) ++counted[static_cast<size_t>(side)];
        ASSERT_TRUE(test::EveryCardOnce(g, renewed)) << ToString(m);
        ASSERT_EQ(g.Card(kSideB, 0), 0);
        ASSERT_EQ(g.Card(kSideB, g.stack_size + 1), kDeckSize + 1);
        ASSERT_EQ(g.move_count_a, counted[kSideA]);
        ASSERT_EQ(g.move_count_b, counted[kSideB]);
        if (g.phase == Phase::kDecided) {
          const int r = g.turn_result;
          ASSERT_EQ(r == kAInOrder || r == kTie, InOrder(g, kSideA)) << g.ToString();
          ASSERT_EQ(r == kBInOrder || r == kTie, InOrder(g, kSideB)) << g.ToString();
        } else if (m.kind == MoveKind::kBackem) {
          ASSERT_EQ(g.turn_owner, side);
        } else if (phase == g.phase) {
          ASSERT_NE(g.turn_owner, side) << ToString(m);
          ASSERT_EQ(g.turn_result, result);  // a result from the opening's end stands
        }
        if (phase == Phase::kOpening && g.phase == Phase::kPlay) result = g.turn_result;
      }
      decided += g.phase == Phase::kDecided;
      renewals += renewed;
    }
  }
  EXPECT_GT(decided, 100);
  EXPECT_GT(renewals, 10) << decided;
}

}  // namespace
}  // namespace bq
