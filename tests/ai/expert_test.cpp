#include "ai/expert.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

#include "ai/computer_seat.h"
#include "ai/decisions.h"
#include "engine/rules.h"
#include "support/scripted_rng.h"

namespace bq::ai {
namespace {

SeatView Own(std::vector<int> cards, int discard, int drawn = 0) {
  SeatView v;
  v.stack_size = static_cast<int>(cards.size());
  for (size_t k = 0; k < cards.size(); ++k) v.own[k + 1] = cards[k];
  v.discard_top = discard;
  v.draw_top = drawn;
  for (int c = 1; c <= kDeckSize; ++c)
    if (std::find(cards.begin(), cards.end(), c) == cards.end() && c != discard && c != drawn)
      v.unseen.push_back(c);
  return v;
}

TEST(ExpertTest, NamedPositions) {
  const Expert expert;
  const std::vector<int> one_out{5, 15, 25, 35, 45, 99, 65, 75, 85, 95};
  EXPECT_EQ(expert.Decide(Own(one_out, 55)), (Move{MoveKind::kTakeDiscard, kSideB, 6}));
  // A card that helps nowhere sends it to the Draw Pile, and is passed on from there.
  EXPECT_EQ(expert.Decide(Own(one_out, 98)), std::nullopt);
  EXPECT_EQ(expert.Decide(Own(one_out, 98, 3)), (Move{MoveKind::kPass, kSideB}));
  EXPECT_EQ(expert.Decide(Own(one_out, 98, 60)), (Move{MoveKind::kTakeDraw, kSideB, 6}));
  // Under Backem a Stack running downwards is finished downwards.
  SeatView down = Own({95, 85, 75, 65, 55, 45, 35, 2, 15, 5}, 25);
  down.options[kBackem] = true;
  EXPECT_EQ(expert.Decide(down), (Move{MoveKind::kTakeDiscard, kSideB, 8}));
  // An ordered Stack is kept through the opening where the seat allows it; side A must swap.
  SeatView opening = Own({5, 15, 25, 35, 45, 55, 65, 75, 85, 95}, 50);
  EXPECT_EQ(expert.Opening(opening), (Move{MoveKind::kSwitchem, kSideB, 0, 0}));
  opening.side = kSideA;
  const Move swap = expert.Opening(opening);
  EXPECT_TRUE(swap.slot1 >= 1 && swap.slot2 > swap.slot1) << ToString(swap);
}

// Under Backem the seat turns round, before its first move, a Stack that runs downwards.
TEST(ExpertTest, NamesItsDirectionBeforeItsFirstMove) {
  for (const bool down : {true, false}) {
    test::ScriptedRng rng(1);
    GameState g;
    g.Init();
    NewGame(g, OptionSet{false, true}, kSideB, rng);  // Backem
    for (int k = 1; k <= 10; ++k) g.Card(kSideB, k) = down ? 105 - 10 * k : 10 * k - 5;
    std::swap(g.Card(kSideB, 3), g.Card(kSideB, 7));
    ExpertSeat seat(kSideB);
    seat.NewGame(g);
    EXPECT_EQ(seat.Choose(g, rng).kind == MoveKind::kBackem, down);
  }
}

// The Classic computer that turns its Stack round in the opening then makes the swap it chose
// with the turn: judged afresh, this rare deal would have it turn again.
TEST(ComputerSeatTest, TheOpeningSwapChosenWithTheReversalFollowsIt) {
  test::ScriptedRng rng(15942);
  GameState g;
  g.Init();
  NewGame(g, OptionSet{false, true, true}, kSideB, rng);  // Backem and Switchem
  ComputerSeat seat(kSideB);
  seat.NewGame(g);
  const Move turn = seat.Choose(g, rng);
  ASSERT_EQ(turn.kind, MoveKind::kBackem);
  ASSERT_TRUE(Apply(g, turn, rng));
  seat.Applied(g, turn);
  EXPECT_EQ(seat.Choose(g, rng), (Move{MoveKind::kSwitchem, kSideB, 7, 5}));
}

// Unseen are the cards that were never face up to the seat: not its own, not the Discard Pile's
// (covered ones too), not the opponent's taken from it, and the Draw Pile card once looked at.
TEST(SeatViewTest, UnseenLeavesOutEveryCardThatWasFaceUp) {
  test::ScriptedRng rng(3);
  GameState g;
  g.Init();
  NewGame(g, {}, kSideA, rng);
  ShownCards shown(kSideB);
  for (const Move m : {Move{MoveKind::kPass, kSideA}, Move{MoveKind::kPass, kSideB},
                       Move{MoveKind::kTakeDiscard, kSideA, 4}}) {
    ASSERT_TRUE(Apply(g, m, rng));
    shown.Applied(g, m);
  }
  ASSERT_EQ(g.buried_count, 2);  // the two passes covered the pile
  for (const bool looked : {false, true}) {
    const SeatView v = ViewOf(g, kSideB, shown, looked);
    EXPECT_EQ(v.theirs[4], g.Card(kSideA, 4));
    EXPECT_EQ(v.theirs[5], 0);
    // Face down: the Draw Pile, and side A's cards but the one it took.
    std::vector<int> expected(g.draw_cards.begin() + g.draw_pos + looked,
                              g.draw_cards.begin() + g.draw_count + 1);
    for (int k = 1; k <= g.stack_size; ++k)
      if (k != 4) expected.push_back(g.Card(kSideA, k));
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(v.unseen, expected);
  }
}

// The Expert's choice depends only on what its seat can see: shuffling the opponent's face-down
// cards and the Draw Pile under its top card among themselves never changes it. Without special
// moves the opponent's cards on show are exactly those it took from the Discard Pile. What it
// guesses the Classic computer wants is mostly what that computer's judgement would take.
TEST(ExpertTest, ChoosesTheSameWhateverTheHiddenCards) {
  std::mt19937 shuffle(7);
  int compared = 0;
  std::array<double, 2> guessed{}, counted{};  // by whether the Classic computer takes the card
  for (int game = 0; game < 24; ++game) {
    const int side = game % 2 == 0 ? kSideA : kSideB;
    test::ScriptedRng rng(static_cast<unsigned>(game));
    GameState g;
    g.Init();
    OptionSet options{};
    options[kStackem] = game % 3 == 0;
    if (options[kStackem]) g.StackemOn();
    NewGame(g, options, kDrawnFirst, rng);
    ExpertSeat expert(side, ExpertSeat::Opponent::kClassic);
    ComputerSeat classic(kSideA + kSideB - side);
    ClassicGuess guess(kSideA + kSideB - side);
    expert.NewGame(g);
    classic.NewGame(g);
    guess.NewGame(g);
    std::array<bool, kMaxStackSize + 2> shown{};
    for (int move = 0; g.phase != Phase::kDecided && move < 60; ++move) {
      Move m;
      if (g.turn_owner == side) {
        const std::optional<Appetite> a = guess.Estimate(expert.View(g, false));
        for (const int c : expert.View(g, false).unseen) {
          Judgement j = classic.judgement();
          const bool takes = JudgeCard(j, c).wanted;
          guessed[takes] += a ? (*a)[static_cast<size_t>(c)] : 0.5;
          ++counted[takes];
        }
        // With `top`, the Draw Pile card it may turn over is shuffled in too.
        const auto hide = [&](bool top) {
          GameState hidden = g;
          std::vector<int*> places;
          for (int k = 1; k <= g.stack_size; ++k)
            if (!shown[static_cast<size_t>(k)]) places.push_back(&hidden.Card(3 - side, k));
          for (int p = g.draw_pos + (top ? 0 : 1); p <= g.draw_count; ++p)
            places.push_back(&hidden.draw_cards[static_cast<size_t>(p)]);
          for (size_t i = places.size() - 1; i > 0; --i)
            std::swap(*places[i], *places[shuffle() % (i + 1)]);
          EXPECT_TRUE(hidden.stacks != g.stacks || hidden.draw_cards != g.draw_cards);
          return hidden;
        };
        const auto choose = [&](const GameState& state) {
          ExpertSeat twin = expert;
          test::ScriptedRng same(static_cast<unsigned>(move));
          return twin.Choose(state, same);
        };
        const Move on_hidden = choose(hide(false));
        const Move on_all_hidden = choose(hide(true));
        test::ScriptedRng same(static_cast<unsigned>(move));
        m = expert.Choose(g, same);
        EXPECT_EQ(on_hidden, m) << g.ToString();
        const bool looked = m.kind == MoveKind::kTakeDraw || m.kind == MoveKind::kPass;
        EXPECT_TRUE(looked || on_all_hidden == m) << g.ToString();
        ++compared;
      } else {
        m = classic.Choose(g, rng);
        if (m.kind == MoveKind::kTakeDiscard || m.kind == MoveKind::kTakeDraw)
          shown[static_cast<size_t>(m.slot1)] = m.kind == MoveKind::kTakeDiscard;
      }
      ASSERT_TRUE(Apply(g, m, rng)) << ToString(m);
      expert.Applied(g, m);
      classic.Applied(g, m);
      guess.Applied(g, m);
    }
  }
  EXPECT_GT(compared, 150);
  // Without what the moves tell, the two shares are 0.94 and 0.67.
  EXPECT_GT(guessed[1] / counted[1] - guessed[0] / counted[0], 0.4);
}

}  // namespace
}  // namespace bq::ai
