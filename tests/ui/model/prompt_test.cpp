// The prompt line: the opponent's moves told in words with the cards they changed lit up, a move
// on show, and the result that stays until the next game.
#include "ui/model/game_test_util.h"
#include "ui/model/prompt_line.h"

namespace bq {
namespace {

using test::Game;

GameState Position() {
  GameState g;
  for (int k = 1; k <= 10; ++k) {
    g.Card(kSideA, k) = k;           // 1..10
    g.Card(kSideB, k) = 10 * k + 1;  // 11, 21, .. 101 stands in for nothing here
  }
  g.discard_top = 50;
  g.draw_cards[1] = 60;
  return g;
}

std::string Told(const MoveNews& news) {
  std::string out = news.text + " |";
  for (const std::string& name : news.changed) out += " " + name;
  return out;
}

TEST(MoveNews, EachKindOfMoveIsToldWithTheControlsItChanged) {
  const GameState before = Position();
  auto told = [&](auto change, bool vs_computer = true, bool face_up = true) {
    GameState after = before;
    change(after);
    return Told(DescribeMoveB(before, after, vs_computer, "Kim", face_up));
  };
  EXPECT_EQ(told([](GameState& g) {
              g.Card(kSideB, 4) = 50;
              g.discard_top = 41;
            }),
            "The computer took 50 from the Discard Pile for slot 4 and put 41 on it. | "
            "lblDiscardPile lblCardB(4)");
  auto draw_into_6 = [](GameState& g) {
    g.Card(kSideB, 6) = 60;
    g.discard_top = 61;
  };
  EXPECT_EQ(told(draw_into_6, false),
            "Kim took 60 from the Draw Pile for slot 6 and put 61 on the Discard Pile. | "
            "lblDrawPile lblDiscardPile lblCardB(6)");
  // Face down, the card that went into the Stack unseen stays unnamed.
  EXPECT_EQ(told(draw_into_6, true, false),
            "The computer took the card from the Draw Pile for slot 6 and put 61 on the Discard "
            "Pile. | lblDrawPile lblDiscardPile lblCardB(6)");
  EXPECT_EQ(told([](GameState& g) { g.discard_top = 60; }),
            "The computer turned down 60 from the Draw Pile; it is now the Discard Pile card. | "
            "lblDrawPile lblDiscardPile");
  EXPECT_EQ(told([](GameState& g) { std::swap(g.Card(kSideA, 2), g.Card(kSideB, 9)); }),
            "The computer used Takem, taking your 2 for its 91. | lblCardA(2) "
            "lblCardB(9)");
  EXPECT_EQ(told([](GameState& g) { std::swap(g.Card(kSideA, 3), g.Card(kSideA, 8)); }),
            "The computer used Smackem, swapping your 3 and 8. | lblCardA(3) lblCardA(8)");
  auto switch_1_5 = [](GameState& g) { std::swap(g.Card(kSideB, 1), g.Card(kSideB, 5)); };
  EXPECT_EQ(told(switch_1_5, false),
            "Kim used Switchem, swapping their 11 and 51. | lblCardB(1) lblCardB(5)");
  EXPECT_EQ(told(switch_1_5, false, false),
            "Kim used Switchem, swapping their cards in slots 1 and 5. | lblCardB(1) lblCardB(5)");
  // Turned round, the Stack is compared slot by slot as the computer now holds it; the label of
  // slot 3 is then the eighth.
  EXPECT_EQ(told([](GameState& g) {
              g.ReverseSideB();
              g.opponent_row_reversed = true;
              g.Card(kSideB, 3) = 50;
              g.discard_top = 81;
            }),
            "The computer reversed its direction and now aims for descending order.  The "
            "computer took 50 from the Discard Pile for slot 8 and put 81 on it. | lblDiscardPile "
            "lblCardB(8)");
}

// Each entry names the mover and the slots as the board numbers them, and tells no card of side
// B that the player cannot see.
TEST(MoveList, EachKindOfMoveOfEitherSideInOneLine) {
  const GameState before = Position();
  auto entry = [&](int side, auto change, bool vs_computer = true, bool face_up = true) {
    GameState after = before;
    change(after);
    return MoveEntry(before, after, side, vs_computer, "Kim", face_up);
  };
  EXPECT_EQ(entry(kSideB,
                  [](GameState& g) {
                    g.Card(kSideB, 4) = 50;
                    g.discard_top = 41;
                  }),
            "Computer: took 50 from the Discard Pile, put it in slot 4, 41 discarded");
  EXPECT_EQ(entry(kSideA,
                  [](GameState& g) {
                    g.Card(kSideA, 7) = 60;
                    g.discard_top = 7;
                  }),
            "You: took 60 from the Draw Pile, put it in slot 7, 7 discarded");
  EXPECT_EQ(entry(kSideA, [](GameState& g) { g.discard_top = 60; }),
            "You: passed, 60 from the Draw Pile discarded");
  EXPECT_EQ(entry(kSideB, [](GameState& g) { std::swap(g.Card(kSideA, 2), g.Card(kSideB, 9)); }),
            "Computer: Takem, gave 91 from slot 9 for your 2 from slot 2");
  EXPECT_EQ(
      entry(
          kSideA, [](GameState& g) { std::swap(g.Card(kSideA, 2), g.Card(kSideB, 9)); }, false),
      "You: Takem, gave 2 from slot 2 for Kim's 91 from slot 9");
  EXPECT_EQ(entry(kSideA, [](GameState& g) { std::swap(g.Card(kSideB, 1), g.Card(kSideB, 5)); }),
            "You: Smackem, swapped the Computer's cards in slots 1 and 5");
  EXPECT_EQ(entry(kSideB, [](GameState& g) { std::swap(g.Card(kSideA, 3), g.Card(kSideA, 8)); }),
            "Computer: Smackem, swapped your cards in slots 3 and 8 (3 and 8)");
  EXPECT_EQ(entry(kSideA, [](GameState& g) { std::swap(g.Card(kSideA, 1), g.Card(kSideA, 4)); }),
            "You: Switchem, swapped 1 in slot 1 and 4 in slot 4");
  EXPECT_EQ(entry(
                kSideB, [](GameState&) {}, false),
            "Kim: Switchem, kept the Stack as it was");
  // Side B's face-down Stack: what went in unseen stays unnamed; the Discard Pile is no secret.
  EXPECT_EQ(entry(
                kSideB,
                [](GameState& g) {
                  g.Card(kSideB, 6) = 60;
                  g.discard_top = 61;
                },
                true, false),
            "Computer: took the card from the Draw Pile, put it in slot 6, 61 discarded");
  EXPECT_EQ(entry(
                kSideB, [](GameState& g) { std::swap(g.Card(kSideB, 1), g.Card(kSideB, 5)); }, true,
                false),
            "Computer: Switchem, swapped the cards in slots 1 and 5");
  // A reversed row: the computer's slot 3 is the board's eighth.
  EXPECT_EQ(entry(kSideB,
                  [](GameState& g) {
                    g.ReverseSideB();
                    g.opponent_row_reversed = true;
                    g.Card(kSideB, 3) = 50;
                    g.discard_top = 81;
                  }),
            "Computer: Backem, reversed its direction; took 50 from the Discard Pile, put it in "
            "slot 8, 81 discarded");
}

TEST(PromptLine, AMoveOnShowThenTheResultWhichStaysUntilTheNextGame) {
  Game g("[Options]\nSetLearnMode=1\n");
  g.NewGameAFirst();
  g.Set("Stacks(1)", "50 40 30 20 10 60 70 80 90 95");
  g.Set("Stacks(2)", "5 15 25 35 45 55 65 75 85 2");
  g.Set("DiscardTop", "99");
  // The player puts the 99 on their 95; the computer wants the 95 and shows its move.
  g.Press({"lblDiscardPile", "lblCardA(10)", "cmdPlayA"});
  ASSERT_TRUE(g.C("cmdCTakesDiscard").visible);
  EXPECT_EQ(g.C("lblPrompt").caption,
            "The computer will take 95 from the Discard Pile for slot 10.  Click the button to "
            "continue (Enter).");
  EXPECT_EQ(g.Field("Highlights"), "");
  ASSERT_TRUE(g.Click("cmdCTakesDiscard"));
  ASSERT_TRUE(g.C("cmdCWins").visible);
  EXPECT_EQ(g.C("lblPrompt").caption,
            "The computer took 95 from the Discard Pile for slot 10 and put 2 on it.  The computer "
            "won in 1 move.  Click the result button to continue (Enter).");
  // Both moves on the list, the newest first.
  EXPECT_EQ(g.C("lblMoveList(1)").caption,
            "Computer: took 95 from the Discard Pile, put it in slot 10, 2 discarded");
  EXPECT_EQ(g.C("lblMoveList(2)").caption,
            "You: took 99 from the Discard Pile, put it in slot 10, 95 discarded");
  EXPECT_EQ(g.C("lblMoveList(3)").caption, "");
  // The winning Stack stays lit; the computer's last change too, until the next event.
  EXPECT_EQ(g.C("lblCardB(1)").highlight, kHighlightSteady);
  EXPECT_EQ(g.C("lblDiscardPile").highlight, kHighlightBrief);
  EXPECT_EQ(g.C("lblCardA(1)").highlight, kHighlightNone);

  ASSERT_TRUE(g.Click("cmdCWins"));
  EXPECT_EQ(g.C("lblPrompt").caption,
            "The computer won in 1 move.  Choose the play options, then start a new game (F2).");
  EXPECT_EQ(g.Field("Highlights"), "");
  ASSERT_TRUE(g.Click("chkBackem"));
  EXPECT_EQ(g.C("lblPrompt").caption.substr(0, 27), "The computer won in 1 move.");
  EXPECT_NE(g.C("lblMoveList(1)").caption, "");  // kept between games
  g.NewGameAFirst();
  EXPECT_EQ(g.C("lblPrompt").caption.find("won"), std::string::npos);
  EXPECT_EQ(g.C("lblMoveList(1)").caption, "");

  // The Hint's advice gives way to the next step once the player takes one of their own.
  ASSERT_TRUE(g.Click("mnuHint"));
  EXPECT_EQ(g.C("lblPrompt").caption.rfind("Hint: ", 0), 0u);
  ASSERT_TRUE(g.Click("lblDiscardPile"));
  EXPECT_EQ(g.C("lblPrompt").caption.rfind("Choose the card of your Stack", 0), 0u);
  ASSERT_TRUE(g.Click("lblCardA(4)"));
  EXPECT_EQ(g.C("lblPrompt").caption.rfind("Click the button to put", 0), 0u);
}

}  // namespace
}  // namespace bq
