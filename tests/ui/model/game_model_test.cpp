// The game window between games: start-up from the settings file, the option controls and menus,
// a game's endings and what reaches the file.
#include <filesystem>

#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

TEST(StartUp, NoFileMeansComputerNoOptionsModesOffAndExitWritesEveryKey) {
  Game g;
  EXPECT_EQ(g.Field("VsComputer"), "1");
  EXPECT_EQ(g.Field("StackSize"), "10");
  EXPECT_EQ(g.Field("DrawCount"), "79");
  EXPECT_EQ(g.C("lblStackB").caption, "Computer's Stack");
  EXPECT_EQ(g.C("optFastModeOff").value, 1);
  EXPECT_EQ(g.C("optLearnModeOff").value, 1);
  EXPECT_TRUE(g.C("cmdNew").visible && g.C("cmdNew").enabled);
  EXPECT_EQ(g.model.Focus(), "cmdNew");
  EXPECT_FALSE(g.C("cmdQuit").visible);
  EXPECT_FALSE(g.C("mnuFileQuitGame").enabled);
  EXPECT_FALSE(g.C("mnuSetupRemoteOpponent").enabled);
  g.model.set_window_position(1200, 450);
  g.model.Exit();
  const std::string text = g.file.Read();
  for (const char* line : {"Left=1200", "Top=450", "SetOpponent=1", "SetFastMode=2",
                           "SetLearnMode=2", "Wins8=0", "TStreak=0", "[StatsVsHumans]"})
    EXPECT_NE(text.find(line), std::string::npos) << line;
}

TEST(StartUp, StoredOptionsAreAppliedAndOnlyOneMeansOn) {
  Game g("[Options]\nSetStackem=1\nSetSmackem=1\nSetOpponent=7\nSetFastMode=0\nSetLearnMode=1\n");
  EXPECT_EQ(g.Field("StackSize"), "20");
  EXPECT_EQ(g.Field("DrawCount"), "59");
  EXPECT_EQ(g.C("mnuOptionsStackem").value, 1);
  EXPECT_TRUE(g.C("lblCardA(20)").visible);
  EXPECT_EQ(g.C("lblRangeA(1)").caption, " 5");
  EXPECT_TRUE(g.C("cmdSetupSmackemA").visible);
  EXPECT_FALSE(g.C("cmdSetupSmackemA").enabled);
  EXPECT_EQ(g.Field("VsComputer"), "0");
  EXPECT_EQ(g.C("lblStackB").caption, "Opponent's Stack");
  EXPECT_TRUE(g.C("mnuSetupRemoteOpponent").enabled);
  EXPECT_FALSE(g.C("cmdNew").enabled);  // nobody to play with until a connection is set up
  EXPECT_EQ(g.Field("FastMode"), "0");
  EXPECT_EQ(g.Field("LearnMode"), "1");
}

TEST(StartUp, NarrowScreenRefusesStackemAndTheNextSaveSaysSo) {
  Game g("[Options]\nSetStackem=1\n", 599);
  EXPECT_EQ(g.Field("StackSize"), "10");
  EXPECT_EQ(g.C("chkStackem").value, 0);
  EXPECT_FALSE(g.C("chkStackem").enabled);
  EXPECT_FALSE(g.C("mnuOptionsStackem").enabled);
  g.model.Exit();
  EXPECT_NE(g.file.Read().find("SetStackem=0"), std::string::npos);
}

TEST(Options, StackemOnAndOffKeepsTheShortDrawPileAndTakemShowsItsButtons) {
  Game g;
  ASSERT_TRUE(g.Click("mnuOptionsStackem"));
  EXPECT_EQ(g.Field("StackSize"), "20");
  ASSERT_TRUE(g.Click("chkStackem"));
  EXPECT_EQ(g.Field("StackSize"), "10");
  EXPECT_EQ(g.Field("DrawCount"), "59");  // deliberately not recomputed when switched off
  EXPECT_FALSE(g.C("lblCardA(11)").visible);
  ASSERT_TRUE(g.Click("chkTakem"));
  EXPECT_TRUE(g.C("cmdSetupTakemA").visible && g.C("cmdSetupTakemB").visible);
  ASSERT_TRUE(g.Click("mnuOptionsTakem"));
  EXPECT_FALSE(g.C("cmdSetupTakemA").visible);
}

TEST(Options, OpponentAndModeItemsToggleWhicheverIsChosen) {
  Game g;
  ASSERT_TRUE(g.Click("mnuVsComputer"));
  EXPECT_EQ(g.C("optVsHuman").value, 1);
  EXPECT_EQ(g.C("mnuVsHuman").value, 1);
  EXPECT_EQ(g.C("mnuVsComputer").value, 0);
  EXPECT_TRUE(g.C("mnuSetupRemoteOpponent").enabled);
  EXPECT_EQ(g.C("lblStackB").caption, "Opponent's Stack");
  ASSERT_TRUE(g.Click("mnuVsComputer"));
  EXPECT_EQ(g.C("optVsComputer").value, 1);
  EXPECT_FALSE(g.C("mnuSetupRemoteOpponent").enabled);
  EXPECT_TRUE(g.C("cmdNew").enabled);
  ASSERT_TRUE(g.Click("mnuFastModeOff"));
  EXPECT_EQ(g.Field("FastMode"), "1");
  EXPECT_EQ(g.C("optFastModeOn").value, 1);
  ASSERT_TRUE(g.Click("optLearnModeOn"));
  EXPECT_EQ(g.C("mnuLearnModeOn").value, 1);
  ASSERT_TRUE(g.Click("mnuLearnModeOn"));
  EXPECT_EQ(g.Field("LearnMode"), "0");
}

TEST(Options, RandomDrawsEachOptionAndIsRememberedAsRandomOnly) {
  Game g;
  ASSERT_TRUE(g.Click("chkRandom"));
  EXPECT_FALSE(g.C("chkBackem").enabled);
  EXPECT_FALSE(g.C("mnuOptionsBackem").enabled);
  g.platform.Script({0.3333f, 0.9f, 0.2f, 0.5f, 0.3334f});  // Stackem and Switchem
  ASSERT_TRUE(g.Click("cmdNew"));
  EXPECT_EQ(g.C("chkStackem").value, 1);
  EXPECT_EQ(g.C("chkBackem").value, 0);
  EXPECT_EQ(g.C("chkSwitchem").value, 1);
  EXPECT_EQ(g.C("chkTakem").value, 0);
  EXPECT_EQ(g.Field("StackSize"), "20");
  EXPECT_EQ(g.C("chkStackem").marked, 1);  // checked options stand out during the game
  g.model.Exit();
  const std::string text = g.file.Read();
  EXPECT_NE(text.find("SetRandom=1"), std::string::npos);
  EXPECT_NE(text.find("SetStackem=0"), std::string::npos);
  EXPECT_NE(text.find("SetSwitchem=0"), std::string::npos);
}

TEST(Game, LockingAndQuittingTheControls) {
  Game g;
  g.NewGameAFirst();
  EXPECT_FALSE(g.C("cmdNew").visible);
  EXPECT_TRUE(g.C("cmdQuit").visible && g.C("cmdQuit").enabled);
  for (const char* name : {"chkStackem", "chkRandom", "optVsHuman", "optFastModeOn",
                           "mnuOptionsBackem", "mnuVsHuman", "mnuFileNewGame", "mnuLearnModeOn"})
    EXPECT_FALSE(g.C(name).enabled) << name;
  EXPECT_TRUE(g.C("lblMoveCountA").visible);
  EXPECT_FALSE(g.C("lblCardB(1)").visible);  // the opponent's cards are hidden outside Learn Mode
  EXPECT_TRUE(g.model.RightClick("background"));
  EXPECT_FALSE(g.C("mnuPopupFileNewGame").enabled);
  EXPECT_TRUE(g.C("mnuPopupFileQuitGame").enabled);
  ASSERT_TRUE(g.Click("mnuPopupFileQuitGame"));
  EXPECT_TRUE(g.C("cmdNew").visible && g.C("cmdNew").enabled);
  EXPECT_FALSE(g.C("cmdQuit").visible);
  EXPECT_TRUE(g.C("chkStackem").enabled);
  EXPECT_TRUE(g.C("lblCardB(1)").visible);  // the board is revealed
  EXPECT_FALSE(g.C("lblMoveCountA").visible);
  EXPECT_EQ(g.Field("MoveCountA"), "0");
  EXPECT_FALSE(g.Click("lblCardA(1)"));               // no game, no move
  EXPECT_FALSE(std::ifstream(g.file.path()).good());  // quitting records nothing
}

// Side A one card away from order: the discard completes it.
void WinningPosition(Game& g) {
  g.Set("Stacks(1)", "5 15 25 35 45 55 65 75 85 99");
  g.Set("DiscardTop", "95");
}

TEST(Game, AWinRecordsTheResultAndTheButtonLeadsBackToNewGame) {
  Game g;
  g.NewGameAFirst();
  WinningPosition(g);
  g.Press({"lblDiscardPile", "lblCardA(10)", "cmdPlayA"});
  EXPECT_EQ(g.Field("TurnResult"), "1");
  EXPECT_TRUE(g.C("cmdAWins").visible && g.C("cmdAWins").enabled);
  EXPECT_EQ(g.C("cmdAWins").caption, "    You win.    Click here to continue.");
  EXPECT_EQ(g.model.Focus(), "cmdAWins");
  EXPECT_TRUE(g.C("lblCardB(3)").visible);
  EXPECT_NE(g.C("lblDrawPile").caption, kFaceDown);
  EXPECT_FALSE(g.Click("lblDrawPile"));  // nothing more to play
  EXPECT_TRUE(g.Click("lblCardA(3)"));   // a card still takes its mark
  EXPECT_EQ(g.C("lblCardA(3)").marked, 1);
  const std::string text = g.file.Read();
  for (const char* line : {"Wins1=1", "Wins7=1", "Wins8=1", "WStreak=1", "LastWinner=1"})
    EXPECT_NE(text.find(line), std::string::npos) << line;
  ASSERT_TRUE(g.Click("cmdAWins"));
  EXPECT_FALSE(g.C("cmdAWins").visible);
  EXPECT_TRUE(g.C("cmdNew").visible);
  EXPECT_EQ(g.Field("TurnResult"), "0");
}

TEST(Game, AStackDealtInOrderWinsAndPlayStillBegins) {
  for (bool switchem : {false, true}) {
    SCOPED_TRACE(switchem);
    Game g;
    if (switchem) g.Press({"chkSwitchem"});
    g.NewGameDealing(
        {5, 15, 25, 35, 45, 55, 65, 75, 85, 95, 50, 40, 30, 20, 10, 60, 70, 80, 90, 100, 1}, 0.1f);
    EXPECT_EQ(g.Field("TurnResult"), "1");
    EXPECT_TRUE(g.C("cmdAWins").visible && g.C("cmdAWins").enabled);
    if (switchem) {
      EXPECT_TRUE(g.C("cmdSwitchemA").visible && g.C("cmdSwitchemA").enabled);
      // The player's Switchem breaks the order; the win stands, counted once.
      g.Press({"lblCardA(1)", "lblCardA(2)", "cmdSwitchemA"});
      EXPECT_EQ(g.Field("TurnResult"), "1");
      EXPECT_NE(g.file.Read().find("Wins7=1"), std::string::npos);
    } else {
      EXPECT_TRUE(g.C("lblDiscardPile").enabled && g.C("lblDrawPile").enabled);
      // The first turn is the player's. The Stack is still in order after the computer's reply,
      // but the game was decided at the deal: it is recorded once, and play goes on.
      g.Press({"lblDrawPile", "cmdPlayA"});
      EXPECT_EQ(g.Field("MoveCountB"), "1");
      EXPECT_EQ(g.Field("TurnResult"), "1");
      EXPECT_NE(g.file.Read().find("Wins7=1"), std::string::npos);
      EXPECT_TRUE(g.C("cmdAWins").visible && g.C("lblDrawPile").enabled);
    }
  }
}

TEST(Game, LearnModeWinRecordsNothingAndLeavesNoFile) {
  Game g("", 1920);
  g.NewGameAFirst({"optLearnModeOn"});
  WinningPosition(g);
  g.Press({"lblDiscardPile", "lblCardA(10)", "cmdPlayA"});
  EXPECT_TRUE(g.C("cmdAWins").visible);
  EXPECT_FALSE(std::ifstream(g.file.path()).good());
}

TEST(JudgementDisplay, FollowsEveryMarkingPassAndLeavesTheCardsToLearnMode) {
  Game g;
  ASSERT_TRUE(g.model.ClickBackground(true));
  EXPECT_TRUE(g.C("lblCardB(1)").visible);
  ASSERT_TRUE(g.model.ClickBackground(true));
  EXPECT_FALSE(g.C("lblCardB(1)").visible);  // between games too
  // The computer's Switchem waits for its button with the marks of its last pass on show.
  ASSERT_TRUE(g.Click("chkSwitchem"));
  ASSERT_TRUE(g.model.ClickBackground(true));
  g.NewGameDealing(
      {50, 40, 30, 20, 10, 60, 70, 80, 90, 100, 5, 15, 25, 35, 45, 94, 84, 74, 64, 98, 1}, 0.1f);
  g.Press({"lblCardA(1)", "lblCardA(2)", "cmdSwitchemA"});
  ASSERT_TRUE(g.C("cmdSwitchemC").visible);
  std::string shown;
  for (int p = 1; p <= 10; ++p)
    shown += (p > 1 ? " " : "") + g.C("lblGoodBad(" + std::to_string(p) + ")").caption;
  EXPECT_EQ(shown, g.Field("Marks"));
}

TEST(JudgementDisplay, LearnModeOffTakesItDownAndAGameItShowedIsNotCounted) {
  Game g;
  ASSERT_TRUE(g.model.ClickBackground(true));
  ASSERT_TRUE(g.Click("optLearnModeOff"));
  EXPECT_FALSE(g.model.judgement_shown());
  EXPECT_FALSE(g.C("lblRangeA(1)").visible);
  EXPECT_EQ(g.Field("LearnMode"), "0");
  // On and off again during the game: the computer's cards were on show, so the win counts not.
  g.NewGameAFirst();
  ASSERT_TRUE(g.model.ClickBackground(true));
  ASSERT_TRUE(g.model.ClickBackground(true));
  EXPECT_EQ(g.Field("LearnMode"), "0");
  WinningPosition(g);
  g.Press({"lblDiscardPile", "lblCardA(10)", "cmdPlayA"});
  EXPECT_TRUE(g.C("cmdAWins").visible);
  EXPECT_FALSE(std::ifstream(g.file.path()).good());
}

TEST(Game, AFailedSaveIsToldOnceInTheWindowWithItsReason) {
  {  // at exit the window is going away: standard error only
    test::FakePlatform platform;
    const std::string path = "/proc/bramblequay-no-such-dir/Bramblequay.INI";
    GameModel model(platform, path);
    model.Load();
    model.Exit();
    EXPECT_EQ(platform.warnings, std::vector<std::string>{"cannot save the settings file " + path +
                                                          ": no such file or directory"});
    EXPECT_TRUE(platform.notices.empty());
  }
  Game g;
  std::filesystem::create_directory(g.file.path());
  const std::string told = "cannot save the settings file " + g.file.path() +
                           ": it is not a regular file; your results are not counted until it "
                           "can be saved";
  for (int game = 0; game < 2; ++game) {
    g.NewGameAFirst();
    WinningPosition(g);
    g.Press({"lblDiscardPile", "lblCardA(10)", "cmdPlayA", "cmdAWins"});
  }
  g.model.Exit();
  EXPECT_EQ(g.platform.notices, std::vector<std::string>{told});
  EXPECT_EQ(g.model.save_notice(), told);
  EXPECT_TRUE(g.platform.warnings.empty());
}

}  // namespace
}  // namespace bq
