// Undo against the computer: the position it restores, the Draw Pile card already seen, the
// statistics, and where it is not offered (never against a person: see the network tests).
#include <string>

#include "store/settings.h"
#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

bool SaysNotCounted(Game& g) {
  return g.C("lblPrompt").caption.find("Undo: this game will not be counted in the statistics.") !=
         std::string::npos;
}

// A pile move and a Takem, each with the computer's reply, taken back: the position, the counts
// and the move list as before, Takem offered again, the opponent's row hidden again. Played once
// more, the computer answers as before: its seat came back with the cards.
TEST(Undo, RestoresThePositionBeforeTheMoveAndTheReply) {
  for (bool takem : {false, true}) {
    SCOPED_TRACE(takem ? "Takem" : "pile move");
    Game g;
    g.NewGameAFirst({"chkTakem", "chkBackem"});
    EXPECT_FALSE(g.Up("mnuEditUndo"));  // nothing to take back at the start of play
    const std::string start = g.State();
    const auto play = [&] {
      if (takem)
        g.Press({"cmdSetupTakemA", "lblCardA(1)", "lblCardB(2)", "cmdTakemA"});
      else
        g.Press({"lblDiscardPile", "lblCardA(1)", "cmdPlayA"});
      test::PressComputerButton(g);
    };
    play();
    const std::string after = g.State();
    ASSERT_EQ(g.Field("MoveCountA") + g.Field("MoveCountB"), "11");
    ASSERT_TRUE(g.Click("mnuEditUndo"));
    EXPECT_EQ(g.State(), start);
    EXPECT_EQ(g.C("lblMoveCountA").caption + g.C("lblMoveCountB").caption, "00");
    EXPECT_EQ(g.C("lblMoveList(1)").caption, "");
    EXPECT_EQ(g.C("lblCardA(1)").caption, CardFace(g.model.state().Card(kSideA, 1)));
    EXPECT_EQ(g.C("lblDrawPile").caption, kFaceDown);
    EXPECT_TRUE(g.Up("cmdSetupTakemA"));
    EXPECT_FALSE(g.C("lblCardB(2)").visible);
    EXPECT_TRUE(SaysNotCounted(g));
    EXPECT_FALSE(g.Up("mnuEditUndo"));  // back at the start of play
    play();
    EXPECT_EQ(g.State(), after);
  }
}

// The card turned over and taken is back on the Draw Pile face up, and the turn goes on as after
// the look: that card or a pass.
TEST(Undo, ALookedAtDrawPileCardStaysFaceUp) {
  Game g;
  g.NewGameAFirst();
  const std::string start = g.State();
  const int seen = g.model.state().DrawTop();
  g.Press({"lblDrawPile", "lblCardA(3)", "cmdPlayA"});
  test::PressComputerButton(g);
  ASSERT_TRUE(g.Click("mnuEditUndo"));
  EXPECT_EQ(g.State(), start);
  EXPECT_EQ(g.C("lblDrawPile").caption + std::to_string(g.C("lblDrawPile").marked),
            CardFace(seen) + "1");
  ASSERT_TRUE(g.model.RightClick("lblCardA(5)"));
  EXPECT_EQ(g.Live({"mnuPopupCardDiscard", "mnuPopupCardDraw"}), "mnuPopupCardDraw");
}

// Side A one card from order: the same win counts without an undo and not with one, and the
// prompt line tells so at the first undo only. A decided game has nothing to take back.
TEST(Undo, AGameWithAnUndoIsNotCounted) {
  for (int undos : {0, 2}) {
    SCOPED_TRACE(undos);
    Game g;
    g.NewGameAFirst();
    g.Set("Stacks(1)", "5 15 25 35 99 55 65 75 85 95");
    g.Set("Stacks(2)", "96 6 86 16 76 26 66 36 56 46");
    g.Set("DiscardTop", "45");
    for (int i = 0; i < undos; ++i) {
      g.Press({"lblDiscardPile", "lblCardA(10)", "cmdPlayA"});
      test::PressComputerButton(g);
      ASSERT_TRUE(g.Click("mnuEditUndo"));
      EXPECT_EQ(SaysNotCounted(g), i == 0);
    }
    g.Press({"lblDiscardPile", "lblCardA(5)", "cmdPlayA"});
    ASSERT_TRUE(g.Up("cmdAWins"));
    EXPECT_FALSE(g.Up("mnuEditUndo"));
    EXPECT_EQ(LoadSettings(g.file.path()).stats[kVsComputer].wins[7], undos == 0 ? 1 : 0);
  }
}

}  // namespace
}  // namespace bq
