// The prompt line: the opponent's moves told in words with the cards they changed lit up, a move
// on show, and the result that stays until the next game.
#include "ui/model/game_test_util.h"
#include "ui/model/prompt_line.h"

namespace bq {
namespace {

using test::Game;
using K = MoveKind;

Move A(MoveKind kind, int slot1 = 0, int slot2 = 0) {
  return {kind, kSideA, slot1, slot2};
}
Move B(MoveKind kind, int slot1 = 0, int slot2 = 0) {
  return {kind, kSideB, slot1, slot2};
}

// How a move is told: against the computer with side B's cards face up, unless these say
// otherwise. kTurned: side B's row reversed, as a Backem leaves it; side B's move there is the
// one that follows its Backem, told with it.
enum Told { kPerson = 1, kFaceDown = 2, kTurned = 4 };

GameState Position(bool turned) {
  GameState g;
  for (int k = 1; k <= 10; ++k) {
    g.Card(kSideA, k) = k;           // 1..10
    g.Card(kSideB, k) = 10 * k + 1;  // 11, 21, .. 101 stands in for nothing here
  }
  g.discard_top = 50;
  g.draw_cards[1] = 60;
  if (turned) {
    g.ReverseSideB();
    g.opponent_row_reversed = true;  // slot 3 now holds 81, shown in the eighth label
  }
  return g;
}

struct Case {
  Move move;
  int how;
  const char* told;
};

template <typename Tell>
void Check(const Case& c, Tell tell) {
  const bool turned = c.how & kTurned;
  EXPECT_EQ(tell(Position(turned), c.move, turned && c.move.side == kSideB, !(c.how & kPerson),
                 "Kim", !(c.how & kFaceDown)),
            c.told)
      << ToString(c.move);
}

TEST(MoveNews, EachKindOfMoveIsToldWithTheControlsItChanged) {
  const Case cases[] = {
      {B(K::kTakeDiscard, 4), 0,
       "The computer took 50 from the Discard Pile for slot 4 and put 41 on it. | "
       "lblDiscardPile lblCardB(4)"},
      {B(K::kTakeDraw, 6), kPerson,
       "Kim took 60 from the Draw Pile for slot 6 and put 61 on the Discard Pile. | "
       "lblDrawPile lblDiscardPile lblCardB(6)"},
      // Face down, the card that went into the Stack unseen stays unnamed.
      {B(K::kTakeDraw, 6), kFaceDown,
       "The computer took the card from the Draw Pile for slot 6 and put 61 on the Discard "
       "Pile. | lblDrawPile lblDiscardPile lblCardB(6)"},
      {B(K::kPass), 0,
       "The computer turned down 60 from the Draw Pile; it is now the Discard Pile card. | "
       "lblDrawPile lblDiscardPile"},
      {B(K::kTakem, 9, 2), 0,
       "The computer used Takem, taking your 2 for its 91. | lblCardA(2) lblCardB(9)"},
      {B(K::kSmackem, 8, 3), 0,
       "The computer used Smackem, swapping your 3 and 8. | lblCardA(3) lblCardA(8)"},
      {B(K::kSwitchem, 1, 5), kPerson,
       "Kim used Switchem, swapping their 11 and 51. | lblCardB(1) lblCardB(5)"},
      {B(K::kSwitchem, 5, 1), kPerson | kFaceDown,
       "Kim used Switchem, swapping their cards in slots 1 and 5. | lblCardB(1) lblCardB(5)"},
      {B(K::kSwitchem), kPerson, "Kim left their Stack as it was. |"},
      {B(K::kTakeDiscard, 3), kTurned,
       "The computer reversed its direction and now aims for descending order.  The computer "
       "took 50 from the Discard Pile for slot 8 and put 81 on it. | lblDiscardPile "
       "lblCardB(8)"},
      {B(K::kSwitchem), kTurned,
       "The computer reversed its direction and now aims for descending order. |"},
  };
  for (const Case& c : cases)
    Check(c, [](auto&&... args) {
      const MoveNews news = DescribeMoveB(args...);
      std::string told = news.text + " |";
      for (const std::string& name : news.changed) told += " " + name;
      return told;
    });
}

// Each entry names the mover and the slots as the board numbers them, and tells no card of side
// B that the player cannot see.
TEST(MoveList, EachKindOfMoveOfEitherSideInOneLine) {
  const Case cases[] = {
      {B(K::kTakeDiscard, 4), 0,
       "Computer: took 50 from the Discard Pile, put it in slot 4, 41 discarded"},
      {A(K::kTakeDraw, 7), 0, "You: took 60 from the Draw Pile, put it in slot 7, 7 discarded"},
      {A(K::kPass), 0, "You: passed, 60 from the Draw Pile discarded"},
      {A(K::kSpendTurn), 0, "You: ended the turn without taking a card"},
      {B(K::kTakem, 9, 2), 0, "Computer: Takem, gave 91 from slot 9 for your 2 from slot 2"},
      {A(K::kTakem, 2, 9), kPerson, "You: Takem, gave 2 from slot 2 for Kim's 91 from slot 9"},
      // Side A names the opponent's cards where they are shown.
      {A(K::kTakem, 2, 8), kTurned,
       "You: Takem, gave 2 from slot 2 for the Computer's 81 from slot 8"},
      {A(K::kSmackem, 5, 1), 0, "You: Smackem, swapped the Computer's cards in slots 1 and 5"},
      {B(K::kSmackem, 3, 8), 0, "Computer: Smackem, swapped your cards in slots 3 and 8 (3 and 8)"},
      {A(K::kSwitchem, 4, 1), 0, "You: Switchem, swapped 1 in slot 1 and 4 in slot 4"},
      {B(K::kSwitchem), kPerson, "Kim: Switchem, kept the Stack as it was"},
      // Side B's face-down Stack: what went in unseen stays unnamed; the Discard Pile is no
      // secret.
      {B(K::kTakeDraw, 6), kFaceDown,
       "Computer: took the card from the Draw Pile, put it in slot 6, 61 discarded"},
      {B(K::kSwitchem, 1, 5), kFaceDown, "Computer: Switchem, swapped the cards in slots 1 and 5"},
      {B(K::kTakeDiscard, 3), kTurned,
       "Computer: Backem, reversed its direction; took 50 from the Discard Pile, put it in slot "
       "8, 81 discarded"},
  };
  for (const Case& c : cases) Check(c, [](auto&&... args) { return MoveEntry(args...); });
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
  g.Press({"cmdCTakesDiscard"});
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

  g.Press({"cmdCWins"});
  EXPECT_EQ(g.C("lblPrompt").caption,
            "The computer won in 1 move.  Choose the play options, then start a new game (F2).");
  EXPECT_EQ(g.Field("Highlights"), "");
  g.Press({"chkBackem"});
  EXPECT_EQ(g.C("lblPrompt").caption.substr(0, 27), "The computer won in 1 move.");
  EXPECT_NE(g.C("lblMoveList(1)").caption, "");  // kept between games
  g.NewGameAFirst();
  EXPECT_EQ(g.C("lblPrompt").caption.find("won"), std::string::npos);
  EXPECT_EQ(g.C("lblMoveList(1)").caption, "");
  // The Hint's advice gives way to the next step once the player takes one of their own.
  g.Press({"mnuHint"});
  EXPECT_EQ(g.C("lblPrompt").caption.rfind("Hint: ", 0), 0u);
  g.Press({"lblDiscardPile"});
  EXPECT_EQ(g.C("lblPrompt").caption.rfind("Choose the card of your Stack", 0), 0u);
}

// What the prompt line says after each step of a turn and of the special moves' set-ups.
TEST(PromptLine, SaysWhatCanBeDoneNow) {
  Game g;
  const auto says = [&g](std::initializer_list<const char*> clicks, const std::string& start) {
    g.Press(clicks);
    EXPECT_EQ(g.C("lblPrompt").caption.substr(0, start.size()), start);
  };
  says({"chkSmackem", "chkTakem"}, "Choose the play options, then start a new game (F2).");
  g.NewGameAFirst();
  g.Set("Stacks(1)", "36 5 1 30 59 22 65 7 16 75");
  g.Set("DiscardTop", "4");
  g.Set("DrawPos", "1");
  g.Set("DrawCards", "97");
  says({},
       "Your turn: take the Discard Pile card (D) or look at the Draw Pile card (P), or use "
       "Smackem or Takem.");
  says({"lblCardA(2)"},
       "Take the Discard Pile card (D) for your 5, or look at the Draw Pile card (P).");
  says({"lblDiscardPile"}, "Click the button to put 4 in place of your 5 (Enter).");
  says({"lblDrawPile"},
       "Choose the card of your Stack to replace with 97, or pass with the button.");
  says({"lblCardA(4)"}, "Click the button to put 97 in place of your 30 (Enter).");
  g.Press({"cmdQuit"});
  g.NewGameAFirst();
  says({"cmdSetupSmackemA"},
       "Smackem: choose 2 of the computer's cards to swap, then click the button, or press "
       "Smackem again to give up.");
  says({"cmdSetupSmackemA", "cmdSetupTakemA"},
       "Takem: choose 1 of your cards and 1 of the computer's to exchange, then click the button, "
       "or press Takem again to give up.");
  g.Press({"cmdQuit"});
  g.NewGameAFirst({"optFastModeOn", "chkSwitchem"});
  says({}, "Switchem: choose 2 of your cards to swap.");
  says({"lblCardA(1)", "lblCardA(2)", "lblDrawPile"},
       "Choose the card of your Stack to replace with ");
  EXPECT_NE(g.C("lblPrompt").caption.find(", or pass by clicking the Discard Pile."),
            std::string::npos);
  g.Press({"cmdQuit"});
  g.NewGameAFirst({"optFastModeOff"});
  says({"lblCardA(1)", "lblCardA(2)"},
       "Switchem: click the button to swap the two cards you chose (Enter).");
}

// The Hint's advice on the prompt line, or "-" for a line without it.
std::string Hint(Game& g) {
  const std::string& line = g.C("lblPrompt").caption;
  return line.rfind("Hint: ", 0) == 0 ? line : "-";
}

// Side A to move with a stray 90 in slot 3.
void StartForAHint(Game& g, std::initializer_list<const char*> options = {}) {
  g.NewGameAFirst(options);
  g.Set("Stacks(1)", "5 15 90 35 45 55 65 75 85 95");
  g.Set("DrawPos", "1");
}

TEST(Hint, AdvisesTheTakeTheLookTheDrawCardAndThePassLightingUpWhatItNames) {
  Game g;
  EXPECT_FALSE(g.C("mnuHint").enabled);  // between games
  StartForAHint(g);
  g.Set("DiscardTop", "23");
  g.Press({"mnuHint"});
  EXPECT_EQ(Hint(g),
            "Hint: take the Discard Pile card, 23, in place of your 90 (card 3 of your Stack).");
  EXPECT_EQ(g.Field("Highlights"), "lblCardA(3) lblDiscardPile");
  g.Set("DiscardTop", "50");
  EXPECT_EQ(Hint(g), "-");  // the Discard Pile card changed
  g.Press({"mnuHint"});
  EXPECT_EQ(Hint(g), "Hint: leave the Discard Pile card and look at the Draw Pile card.");
  g.Set("DrawCards", "27");
  g.Press({"lblDrawPile"});
  EXPECT_EQ(Hint(g), "-");  // the look was made
  g.Press({"mnuHint"});
  EXPECT_EQ(Hint(g),
            "Hint: take the Draw Pile card, 27, in place of your 90 (card 3 of your Stack).");
  EXPECT_EQ(g.Field("Highlights"), "lblCardA(3) lblDrawPile");
  g.Press({"cmdQuit"});
  StartForAHint(g);
  g.Set("DrawCards", "60");
  g.Press({"lblDrawPile", "mnuHint"});
  EXPECT_EQ(Hint(g), "Hint: pass; the Draw Pile card, 60, does not help your Stack.");
  // Offered on side A's ordinary turn only: not while a special move is being set up.
  g.Press({"cmdQuit"});
  StartForAHint(g, {"chkSmackem"});
  g.Press({"cmdSetupSmackemA"});
  EXPECT_FALSE(g.Click("mnuHint"));
  g.Press({"cmdSetupSmackemA", "mnuHint"});
  EXPECT_NE(Hint(g), "-");
}

// Whatever the opponent holds and whatever lies under the Draw Pile card, the advice is the
// same; once the Draw Pile card is seen, only the cards below it stay hidden.
TEST(Hint, ReadsNoHiddenCard) {
  Game g;
  StartForAHint(g);
  g.Set("DiscardTop", "50");
  std::vector<std::string> advice;
  const auto ask = [&](const char* stack_b, const char* draw) {
    if (*stack_b != '\0') g.Set("Stacks(2)", stack_b);
    g.Set("DrawCards", draw);
    g.Press({"mnuHint"});
    advice.push_back(Hint(g));
  };
  ask("1 2 3 4 5 6 7 8 9 10", "27 28 29");
  ask("91 92 93 94 96 97 98 99 100 11", "60 1 2");
  ask("10 30 20 40 60 50 70 80 100 36", "33 21 22");
  g.Press({"lblDrawPile"});
  ask("", "27 28 29");
  ask("", "27 60 1");
  EXPECT_EQ(advice[1], advice[0]);
  EXPECT_EQ(advice[2], advice[0]);
  EXPECT_EQ(advice[4], advice[3]);
  EXPECT_NE(advice[3], advice[0]);
}

}  // namespace
}  // namespace bq
