// The play options in play: the Switchem opening, the computer's reversal under Backem, and
// Smackem and Takem for both sides.
#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

std::string Stack(Game& g, int side) {
  return g.Field(side == 1 ? "Stacks(1)" : "Stacks(2)");
}

// The player's controls of an ordinary turn and of the special moves.
constexpr std::initializer_list<const char*> kTurnA = {"lblDiscardPile", "lblDrawPile", "cmdPlayA",
                                                       "cmdSetupSmackemA", "cmdSetupTakemA"};

TEST(Switchem, AWrongCountClearsTheMarksAndTwoCardsSwapForBothSides) {
  Game g;
  g.NewGameAFirst({"chkSwitchem"});
  EXPECT_TRUE(g.Up("cmdSwitchemA"));
  EXPECT_EQ(g.C("cmdSwitchemA").caption,
            "Click on 2 of your cards to swap their positions.  Then click here.");
  EXPECT_FALSE(g.C("lblDrawPile").enabled);
  const GameState before = g.model.state();
  g.Press({"lblCardA(2)", "cmdSwitchemA"});
  EXPECT_EQ(g.C("lblCardA(2)").marked, 0);
  EXPECT_TRUE(g.C("cmdSwitchemA").visible);
  g.Press({"lblCardA(2)", "lblCardA(7)"});
  EXPECT_EQ(g.C("lblCardA(2)").marked, 1);  // the selection is kept across clicks
  g.Press({"cmdSwitchemA"});
  EXPECT_EQ(g.model.state().Card(kSideA, 2), before.Card(kSideA, 7));
  EXPECT_EQ(g.model.state().Card(kSideA, 7), before.Card(kSideA, 2));
  EXPECT_FALSE(g.C("cmdSwitchemA").visible);
  // The computer's Switchem is applied at once; Backem off: only the dealt orientation.
  EXPECT_EQ(g.Field("MoveCountA") + g.Field("MoveCountB") + g.Field("OpponentRowReversed"), "110");
}

TEST(Switchem, FastModeCompletesOnTheSecondMarkAndLearnModeShowsTheComputersChoice) {
  Game g;
  g.NewGameAFirst({"chkSwitchem", "optFastModeOn", "optLearnModeOn"});
  EXPECT_EQ(g.C("cmdSwitchemA").caption, "Click on 2 of your cards to swap their positions.");
  g.Press({"lblCardA(1)", "lblCardA(3)"});
  EXPECT_EQ(g.Field("MoveCountA"), "1");
  // Learn Mode shows the computer's Switchem whatever Fast Mode says.
  ASSERT_TRUE(g.C("cmdSwitchemC").visible);
  EXPECT_EQ(g.model.Focus(), "cmdSwitchemC");
  EXPECT_EQ(g.Live(kTurnA) + g.Live({"lblCardA(1)", "lblCardA(3)"}), "");
  EXPECT_EQ(g.Field("MoveCountB"), "0");
  g.Press({"cmdSwitchemC"});
  EXPECT_EQ(g.Field("MoveCountB"), "1");
  EXPECT_FALSE(g.C("cmdSwitchemC").visible);
}

TEST(Backem, TheReversedRowKeepsItsScreenPositionsForLabelsMarksAndSmackem) {
  // After A's move the computer, holding an almost descending Stack, turns round.
  Game g;
  g.NewGameAFirst({"chkBackem", "chkSmackem", "optLearnModeOn"});
  g.Set("Stacks(2)", "95 85 75 65 55 45 35 25 5 15");
  g.Set("Stacks(1)", "3 50 30 20 10 60 70 2 90 100");
  g.Set("DrawCards", "61");  // passed on to the computer, which has no place for it
  g.Press({"lblDrawPile", "cmdPlayA"});
  EXPECT_EQ(g.C("cmdBackemC").caption,
            "Computer will reverse its direction.  Click here to continue.");
  g.Press({"cmdBackemC"});
  while (test::PressComputerButton(g)) {
  }
  ASSERT_EQ(g.Field("OpponentRowReversed") + g.Field("TurnOwner"), "11");
  const GameState& s = g.model.state();
  // Slot i is shown at position N + 1 - i, so the screen still reads as dealt.
  for (int p = 1; p <= 10; ++p)
    EXPECT_EQ(g.C("lblCardB(" + std::to_string(p) + ")").caption, CardFace(s.Card(kSideB, 11 - p)));
  const auto& m = g.model.judgement().m;
  const auto mark = [&](int slot) { return std::string(1, m[static_cast<size_t>(slot)]); };
  const auto shown = [&](int p) { return g.C("lblGoodBad(" + std::to_string(p) + ")").caption; };
  ASSERT_NE(mark(1), mark(10));
  // Turned on, the display writes each mark at its slot's own index; the next marking pass, after
  // the Smackem, puts it at its screen position.
  ASSERT_TRUE(g.model.ClickBackground(true));
  EXPECT_EQ(shown(1) + shown(10), mark(1) + mark(10));
  const int slot10 = s.Card(kSideB, 10), slot9 = s.Card(kSideB, 9);
  g.Press({"cmdSetupSmackemA", "lblCardB(1)", "lblCardB(2)", "cmdSmackemA"});
  EXPECT_EQ(s.Card(kSideB, 10), slot9);
  EXPECT_EQ(s.Card(kSideB, 9), slot10);
  for (int k = 1; k <= 10; ++k) EXPECT_EQ(shown(11 - k), mark(k)) << k;
}

TEST(Smackem, AWrongCountClearsTheMarksTheMoveIsOncePerGameAndEndsTheTurn) {
  Game g;
  g.NewGameAFirst({"chkSmackem", "chkTakem", "optLearnModeOn"});
  EXPECT_EQ(g.Live({"cmdSetupSmackemA", "cmdSetupSmackemB"}), "cmdSetupSmackemA");
  g.Press({"cmdSetupSmackemA"});
  EXPECT_EQ(g.C("cmdSmackemA").caption,
            "Click 2 of your opponent's cards to swap their positions.  Then click here.");
  EXPECT_FALSE(g.C("lblDiscardPile").enabled);
  EXPECT_FALSE(g.Click("lblCardA(1)"));
  const std::string before = Stack(g, 2);
  g.Press({"lblCardB(1)", "lblCardB(4)", "lblCardB(6)", "cmdSmackemA"});
  EXPECT_EQ(g.C("lblCardB(4)").marked, 0);
  EXPECT_TRUE(g.C("cmdSmackemA").visible);
  EXPECT_EQ(g.Field("MoveCountA"), "0");
  EXPECT_EQ(Stack(g, 2), before);
  // A second press of the set-up button gives the ordinary turn back.
  g.Press({"cmdSetupSmackemA"});
  EXPECT_FALSE(g.C("cmdSmackemA").visible);
  EXPECT_TRUE(g.C("lblDiscardPile").enabled);
  // Straight on to the other move, and back.
  g.Press({"cmdSetupSmackemA", "cmdSetupTakemA"});
  EXPECT_EQ(g.Live({"cmdSmackemA", "cmdTakemA"}), "cmdTakemA");
  g.Press({"cmdSetupSmackemA", "lblCardB(1)", "lblCardB(4)", "cmdSmackemA"});
  EXPECT_EQ(g.Field("MoveCountA"), "1");
  EXPECT_NE(Stack(g, 2), before);
  EXPECT_FALSE(g.C("cmdSetupSmackemA").visible);
  // The computer's move waits in Learn Mode; nothing of the player's turn is left to click.
  EXPECT_EQ(g.Field("TurnOwner"), "2");
  EXPECT_EQ(g.Live(kTurnA), "");
  EXPECT_FALSE(g.Click("lblCardB(2)"));
}

TEST(Smackem, TheOpponentsCardsStayOnShowAfterIt) {
  Game g;
  g.NewGameAFirst({"chkSmackem"});
  g.Set("Stacks(2)", "50 40 30 20 10 90 80 70 60 100");
  g.Press({"cmdSetupSmackemA", "lblCardB(1)", "lblCardB(5)", "cmdSmackemA"});
  // Face down as the set-up left them, but for the two cards that moved.
  EXPECT_TRUE(g.C("lblCardB(2)").visible);
  EXPECT_EQ(g.C("lblCardB(2)").caption, " ");
  EXPECT_EQ(g.C("lblCardB(1)").caption + g.C("lblCardB(5)").caption, CardFace(10) + CardFace(50));
}

TEST(Smackem, LookingAtTheDrawPileDisablesTheSetUpAndGivesNoPass) {
  Game g;
  g.NewGameAFirst({"chkSmackem", "chkTakem", "optFastModeOn"});
  g.Set("DrawCards", "44");
  g.Set("DrawPos", "1");
  g.Press({"cmdSetupSmackemA", "lblDrawPile"});
  for (const char* name : {"cmdSetupSmackemA", "cmdSetupTakemA", "cmdSmackemA", "lblCardB(1)"})
    EXPECT_FALSE(g.C(name).enabled) << name;
  EXPECT_TRUE(g.C("cmdSmackemA").visible);
  EXPECT_FALSE(g.Click("lblDiscardPile"));  // still out of reach: no pass
  EXPECT_EQ(g.Field("MoveCountA"), "0");
  g.Press({"lblCardA(4)"});
  EXPECT_EQ(g.model.state().Card(kSideA, 4), 44);
  EXPECT_FALSE(g.C("cmdSmackemA").visible);
}

TEST(Takem, AMarkedDiscardPileStaysMarkedAndACardMakesTheMoveReady) {
  Game g;
  g.NewGameAFirst({"chkTakem"});
  g.Set("DiscardTop", "77");
  g.Press({"lblDiscardPile", "cmdSetupTakemA"});
  EXPECT_TRUE(g.Up("cmdSetupTakemA")) << "pressed again, it gives the move up";
  EXPECT_EQ(g.C("lblDiscardPile").marked, 1);
  EXPECT_FALSE(g.C("lblDiscardPile").enabled);
  g.Press({"lblCardA(3)"});
  EXPECT_TRUE(g.C("cmdPlayA").enabled);
  EXPECT_EQ(g.model.Focus(), "cmdPlayA");
  g.Press({"cmdPlayA"});
  EXPECT_EQ(g.model.state().Card(kSideA, 3), 77);
  EXPECT_FALSE(g.C("cmdTakemA").visible);
  EXPECT_FALSE(g.C("lblCardB(1)").visible);  // the move not made, the cards are hidden again
}

TEST(Takem, AWrongCountKeepsTheMarksAndBothInOrderIsATie) {
  Game g;
  g.NewGameAFirst({"chkTakem"});
  g.Set("Stacks(1)", "10 20 30 40 50 60 70 80 90 55");
  g.Set("Stacks(2)", "5 15 25 35 45 100 65 75 85 95");
  g.Press({"cmdSetupTakemA"});
  EXPECT_EQ(g.C("lblCardB(1)").caption, " ");  // face down while picked
  g.Press({"lblCardA(10)", "cmdTakemA"});
  EXPECT_EQ(g.C("lblCardA(10)").marked, 1);
  EXPECT_TRUE(g.C("cmdTakemA").visible);
  g.Press({"lblCardB(6)", "cmdTakemA"});  // both Stacks in order
  EXPECT_TRUE(g.C("cmdBothWin").visible);
  EXPECT_EQ(g.Live(kTurnA), "");
}

TEST(ComputerSmackem, ItCanHandThePlayerTheGame) {
  for (bool fast : {false, true}) {
    Game g;
    g.Press({"chkSmackem"});
    if (fast) g.Press({"optFastModeOn"});
    g.NewGameAFirst();
    // Nine of the computer's slots settled; the 47 it declines points at the player's slots
    // 3 and 7, which r1 = r2 = 0 picks.
    g.Set("Stacks(2)", "5 15 25 35 45 55 65 75 85 3");
    g.Set("Stacks(1)", "47 20 70 40 50 60 30 80 90 100");
    g.Set("DiscardTop", "10");
    g.platform.Script({0.0f, 0.0f});
    g.Press({"lblDiscardPile", "lblCardA(1)"});
    if (!fast) g.Press({"cmdPlayA"});
    ASSERT_TRUE(g.C("cmdSmackemC").visible) << "fast " << fast;  // waits in every mode
    EXPECT_EQ(g.C("lblCardA(3)").marked + g.C("lblCardA(7)").marked, 2);
    EXPECT_EQ(g.Live(kTurnA), "");
    g.Press({"cmdSmackemC"});
    EXPECT_TRUE(g.C("cmdAWins").visible);
    EXPECT_FALSE(g.C("cmdSetupSmackemB").visible);
  }
}

TEST(ComputerTakem, ItTakesFromThePlayerOnceInTheEndGame) {
  Game g;
  g.NewGameAFirst({"chkTakem"});
  // 20, 45, 30, 50 around a reversed pair: x = 35, so it takes the player's slot 4 for its 45.
  g.Set("Stacks(2)", "5 20 45 30 50 55 65 75 85 95");
  g.Set("Stacks(1)", "99 11 12 33 14 15 16 17 18 19");
  g.Set("DiscardTop", "2");
  g.Press({"lblDiscardPile", "lblCardA(1)", "cmdPlayA"});
  ASSERT_TRUE(g.C("cmdTakemC").visible);
  EXPECT_EQ(g.C("lblCardA(4)").marked + g.C("lblCardB(3)").marked, 2);
  EXPECT_EQ(g.Live({"lblCardA(1)", "lblCardA(4)"}), "lblCardA(1) lblCardA(4)");  // not greyed
  g.Press({"cmdTakemC"});
  EXPECT_EQ(g.model.state().Card(kSideA, 4), 45);
  EXPECT_FALSE(g.C("cmdSetupTakemB").visible);
}

}  // namespace
}  // namespace bq
