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
  auto told = [&](auto change, bool vs_computer = true) {
    GameState after = before;
    change(after);
    return Told(DescribeMoveB(before, after, vs_computer, "Kim"));
  };
  EXPECT_EQ(told([](GameState& g) {
              g.Card(kSideB, 4) = 50;
              g.discard_top = 41;
            }),
            "The computer took 50 from the Discard Pile and put 41 on it. | lblDiscardPile "
            "lblCardB(4)");
  EXPECT_EQ(told(
                [](GameState& g) {
                  g.Card(kSideB, 6) = 60;
                  g.discard_top = 61;
                },
                false),
            "Kim took 60 from the Draw Pile and put 61 on the Discard Pile. | lblDrawPile "
            "lblDiscardPile lblCardB(6)");
  EXPECT_EQ(told([](GameState& g) { g.discard_top = 60; }),
            "The computer turned down 60 from the Draw Pile; it is now the Discard Pile card. | "
            "lblDrawPile lblDiscardPile");
  EXPECT_EQ(told([](GameState& g) { std::swap(g.Card(kSideA, 2), g.Card(kSideB, 9)); }),
            "The computer used Takem, taking your 2 for its 91. | lblCardA(2) "
            "lblCardB(9)");
  EXPECT_EQ(told([](GameState& g) { std::swap(g.Card(kSideA, 3), g.Card(kSideA, 8)); }),
            "The computer used Smackem, swapping your 3 and 8. | lblCardA(3) lblCardA(8)");
  EXPECT_EQ(told([](GameState& g) { std::swap(g.Card(kSideB, 1), g.Card(kSideB, 5)); }, false),
            "Kim used Switchem, swapping their 11 and 51. | lblCardB(1) lblCardB(5)");
  // Turned round, the Stack is compared slot by slot as the computer now holds it; the label of
  // slot 3 is then the eighth.
  EXPECT_EQ(told([](GameState& g) {
              g.ReverseSideB();
              g.opponent_row_reversed = true;
              g.Card(kSideB, 3) = 50;
              g.discard_top = 81;
            }),
            "The computer reversed its direction and now aims for descending order.  The "
            "computer took 50 from the Discard Pile and put 81 on it. | lblDiscardPile "
            "lblCardB(8)");
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
            "The computer will take 95 from the Discard Pile.  Click the button to continue "
            "(Enter).");
  EXPECT_EQ(g.Field("Highlights"), "");
  ASSERT_TRUE(g.Click("cmdCTakesDiscard"));
  ASSERT_TRUE(g.C("cmdCWins").visible);
  EXPECT_EQ(g.C("lblPrompt").caption,
            "The computer took 95 from the Discard Pile and put 2 on it.  The computer won in 1 "
            "move.  Click the result button to continue (Enter).");
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
  g.NewGameAFirst();
  EXPECT_EQ(g.C("lblPrompt").caption.find("won"), std::string::npos);
}

}  // namespace
}  // namespace bq
