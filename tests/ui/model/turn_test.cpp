// The ordinary turn as the controls show it, and the computer's buttons in every mode.
#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

TEST(TurnA, LookingAtTheDrawPileMakesTheDiscardUntakable) {
  Game g;
  g.NewGameAFirst();
  g.Set("Stacks(1)", "50 40 30 20 10 60 70 80 90 100");
  g.Set("DiscardTop", "33");
  g.Set("DrawCards", "44");
  g.Set("DrawPos", "1");
  g.Press({"lblCardA(2)"});
  EXPECT_EQ(g.C("lblCardA(2)").marked, 1);
  g.Press({"lblDrawPile"});
  EXPECT_EQ(g.C("lblCardA(2)").marked, 0);  // the slot is chosen after seeing the card
  EXPECT_EQ(g.C("lblDrawPile").caption, CardFace(44));
  EXPECT_TRUE(g.C("cmdPlayA").enabled);            // a pass is possible at once
  ASSERT_TRUE(g.model.RightClick("lblCardA(5)"));  // nor through a card's own menu
  EXPECT_EQ(g.Live({"mnuPopupCardDiscard", "mnuPopupCardDraw"}), "mnuPopupCardDraw");
  g.Press({"lblDiscardPile", "lblCardA(3)"});
  EXPECT_EQ(g.C("lblDiscardPile").marked, 0);
  g.Press({"cmdPlayA"});
  EXPECT_EQ(g.model.state().Card(kSideA, 3), 44);
  EXPECT_EQ(g.Field("MoveCountA"), "1");
  EXPECT_EQ(g.model.state().buried[1], 33);
}

TEST(TurnA, ClickingTheMarkedCardAgainLeavesOnlyThePileMarked) {
  Game g;
  g.NewGameAFirst();
  g.Press({"lblDiscardPile", "lblCardA(4)"});
  EXPECT_TRUE(g.C("cmdPlayA").enabled);
  EXPECT_EQ(g.model.Focus(), "cmdPlayA");
  g.Press({"lblCardA(4)"});
  EXPECT_EQ(g.C("lblCardA(4)").marked, 0);
  EXPECT_EQ(g.C("lblDiscardPile").marked, 1);
  EXPECT_TRUE(g.C("cmdPlayA").enabled);  // against the computer an empty move spends the turn
  g.Press({"lblDiscardPile"});
  EXPECT_EQ(g.C("lblDiscardPile").marked, 0);
  EXPECT_EQ(g.Field("MoveCountA"), "0");
}

TEST(ComputerTurn, ATakeWaitsOnlyInLearnModeWithoutFastMode) {
  for (int mode = 0; mode < 4; ++mode) {
    const bool fast = mode & 1, learn = mode & 2;
    SCOPED_TRACE(testing::Message() << "fast " << fast << " learn " << learn);
    Game g;
    if (fast) g.Press({"optFastModeOn"});
    if (learn) g.Press({"optLearnModeOn"});
    g.NewGameAFirst();
    // Side B one card from order: the computer's discard judge wants 45 for slot 5.
    g.Set("Stacks(2)", "5 15 25 35 99 55 65 75 85 95");
    g.Set("Stacks(1)", "45 80 30 20 10 60 70 2 90 100");
    g.Set("DiscardTop", "50");
    g.Press({"lblDiscardPile", "lblCardA(1)"});  // hands the computer 45
    if (!fast) g.Press({"cmdPlayA"});
    const bool waits = learn && !fast;
    EXPECT_EQ(g.C("cmdCTakesDiscard").visible, waits);
    if (waits) {
      EXPECT_EQ(g.C("lblDiscardPile").marked + g.C("lblCardB(5)").marked, 2);
      EXPECT_FALSE(g.Click("lblDiscardPile"));  // the computer's move is on show
      EXPECT_FALSE(g.Click("lblCardA(2)"));
      g.Press({"cmdCTakesDiscard"});
    }
    EXPECT_EQ(g.model.state().Card(kSideB, 5), 45);
    ASSERT_TRUE(g.C("cmdCWins").visible);
    EXPECT_EQ(g.C("cmdCWins").caption, "Computer wins.  Click here to continue.");
    // Still the computer's turn: the cards take no clicks, and the piles none while its move
    // was on show.
    if (!fast) {
      EXPECT_EQ(g.Click("lblDiscardPile"), !learn);
    }
    EXPECT_FALSE(g.Click("lblCardA(2)"));
  }
}

TEST(ComputerTurn, TakingNothingAlwaysWaits) {
  for (bool fast : {false, true}) {
    SCOPED_TRACE(fast);
    Game g;
    if (fast) g.Press({"optFastModeOn"});
    g.NewGameAFirst();
    // Every slot settled but one whose range no card of these fits.
    g.Set("Stacks(2)", "5 15 25 35 45 55 65 75 95 85");
    g.Set("Stacks(1)", "1 80 30 20 10 60 70 2 90 100");
    g.Set("DrawCards", "52");
    g.Set("DrawPos", "1");
    g.Press({"lblDiscardPile", "lblCardA(1)"});  // the discard becomes 1
    if (!fast) g.Press({"cmdPlayA"});
    ASSERT_TRUE(g.C("cmdCTakesNothing").visible);
    EXPECT_EQ(g.C("lblDrawPile").caption, CardFace(52));
    EXPECT_FALSE(g.C("lblDrawPile").enabled);
    g.Press({"cmdCTakesNothing"});
    EXPECT_EQ(g.Field("DiscardTop") + g.Field("MoveCountB") + g.Field("TurnOwner"), "5211");
    EXPECT_TRUE(g.C("lblDrawPile").enabled);
  }
}

TEST(ComputerTurn, ATakeFromTheDrawPileOnShowLightsThePileAndTheSlot) {
  Game g;
  g.NewGameAFirst({"optLearnModeOn"});
  g.Set("Stacks(2)", "5 15 25 35 99 55 65 75 85 95");
  g.Set("Stacks(1)", "1 80 30 20 10 60 70 2 90 100");
  g.Set("DrawCards", "45");
  g.Set("DrawPos", "1");
  g.Press({"lblDiscardPile", "lblCardA(1)", "cmdPlayA"});  // the discard becomes 1
  ASSERT_TRUE(g.C("cmdCTakesDraw").visible);
  EXPECT_EQ(g.C("lblDrawPile").caption, CardFace(45));
  EXPECT_TRUE(g.C("lblDrawPile").enabled && !g.C("lblDiscardPile").enabled);
  EXPECT_EQ(g.C("lblDrawPile").marked + g.C("lblCardB(5)").marked, 2);
}

}  // namespace
}  // namespace bq
