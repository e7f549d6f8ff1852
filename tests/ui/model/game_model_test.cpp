// The game window between games: start-up from the settings file, the option controls and menus,
// a game's endings and what reaches the file.
#include <filesystem>

#include "ui/model/game_test_util.h"

namespace bq {
namespace {

using test::Game;

// Every line of `lines` is somewhere in `text`.
void ExpectLines(const std::string& text, std::initializer_list<const char*> lines) {
  for (const char* line : lines) EXPECT_NE(text.find(line), std::string::npos) << line;
}

// Between games the set-up buttons show which moves a game will offer, but take no clicks.
void ExpectSetUpButtonsIdle(Game& g) {
  for (const char* name :
       {"cmdSetupTakemA", "cmdSetupTakemB", "cmdSetupSmackemA", "cmdSetupSmackemB"})
    EXPECT_TRUE(g.C(name).visible && !g.C(name).enabled) << name;
}

TEST(StartUp, NoFileMeansComputerNoOptionsModesOffAndExitWritesEveryKey) {
  Game g;
  EXPECT_EQ(g.Field("VsComputer") + g.Field("StackSize") + g.Field("DrawCount"), "11079");
  EXPECT_EQ(g.C("lblStackB").caption, "Computer's Stack");
  EXPECT_EQ(g.C("optFastModeOff").value + g.C("optLearnModeOff").value, 2);
  EXPECT_EQ(g.Live({"cmdNew", "cmdQuit", "mnuFileQuitGame", "mnuSetupRemoteOpponent"}), "cmdNew");
  EXPECT_EQ(g.model.Focus(), "cmdNew");
  g.model.set_window_position(1200, 450);
  g.model.Exit();
  ExpectLines(g.file.Read(), {"Left=1200", "Top=450", "SetOpponent=1", "SetFastMode=2",
                              "SetLearnMode=2", "Wins8=0", "TStreak=0", "[StatsVsHumans]"});
}

TEST(StartUp, StoredOptionsAreAppliedAndOnlyOneMeansOn) {
  Game g("[Options]\nSetStackem=1\nSetSmackem=1\nSetOpponent=7\nSetFastMode=0\nSetLearnMode=1\n");
  EXPECT_EQ(g.Field("StackSize") + g.Field("DrawCount"), "2059");
  EXPECT_EQ(g.C("mnuOptionsStackem").value, 1);
  EXPECT_TRUE(g.C("lblCardA(20)").visible);
  EXPECT_EQ(g.C("lblRangeA(1)").caption, " 5");
  EXPECT_TRUE(g.C("cmdSetupSmackemA").visible);
  EXPECT_FALSE(g.C("cmdSetupSmackemA").enabled);
  EXPECT_EQ(g.Field("VsComputer"), "0");
  EXPECT_EQ(g.C("lblStackB").caption, "Opponent's Stack");
  // Nobody to play with until a connection is set up.
  EXPECT_EQ(g.Live({"mnuSetupRemoteOpponent", "cmdNew"}), "mnuSetupRemoteOpponent");
  EXPECT_EQ(g.C("lblPrompt").caption, "Set up the connection with your opponent to start a game.");
  EXPECT_EQ(g.Field("FastMode") + g.Field("LearnMode"), "01");
}

TEST(StartUp, NarrowScreenRefusesStackemAndTheNextSaveSaysSo) {
  EXPECT_EQ(Game("[Options]\nSetStackem=1\n", 600).Field("StackSize"), "20");
  Game g("[Options]\nSetStackem=1\n", 599);
  EXPECT_EQ(g.Field("StackSize"), "10");
  EXPECT_EQ(g.C("chkStackem").value, 0);
  EXPECT_FALSE(g.C("chkStackem").enabled || g.C("mnuOptionsStackem").enabled);
  g.model.Exit();
  ExpectLines(g.file.Read(), {"SetStackem=0"});
}

TEST(Options, StackemOnAndOffKeepsTheShortDrawPileAndTakemShowsItsButtons) {
  Game g;
  g.Press({"mnuOptionsStackem"});
  EXPECT_EQ(g.Field("StackSize"), "20");
  g.Press({"chkStackem"});
  EXPECT_EQ(g.Field("StackSize"), "10");
  EXPECT_EQ(g.Field("DrawCount"), "59");  // deliberately not recomputed when switched off
  EXPECT_FALSE(g.C("lblCardA(11)").visible);
  g.Press({"chkTakem", "chkSmackem"});
  ExpectSetUpButtonsIdle(g);
  g.Press({"mnuOptionsTakem"});
  EXPECT_FALSE(g.C("cmdSetupTakemA").visible);
}

TEST(Options, OpponentAndModeItemsToggleWhicheverIsChosen) {
  Game g;
  g.Press({"mnuVsComputer"});
  EXPECT_EQ(g.C("optVsHuman").value + g.C("mnuVsHuman").value + g.C("mnuVsComputer").value, 2);
  EXPECT_TRUE(g.C("mnuSetupRemoteOpponent").enabled);
  EXPECT_EQ(g.C("lblStackB").caption, "Opponent's Stack");
  g.Press({"mnuVsComputer"});
  EXPECT_EQ(g.C("optVsComputer").value, 1);
  EXPECT_EQ(g.Live({"mnuSetupRemoteOpponent", "cmdNew"}), "cmdNew");
  g.Press({"mnuFastModeOff"});
  EXPECT_EQ(g.Field("FastMode"), "1");
  EXPECT_EQ(g.C("optFastModeOn").value, 1);
  g.Press({"optLearnModeOn"});
  EXPECT_EQ(g.C("mnuLearnModeOn").value, 1);
  g.Press({"mnuLearnModeOn"});
  EXPECT_EQ(g.Field("LearnMode"), "0");
}

TEST(Options, RandomDrawsEachOptionAndIsRememberedAsRandomOnly) {
  Game g;
  const auto drawn = [&g] {
    std::string values;
    for (const char* box : {"chkStackem", "chkBackem", "chkSwitchem", "chkSmackem", "chkTakem"})
      values += std::to_string(g.C(box).value);
    return values;
  };
  g.Press({"chkSmackem", "chkRandom"});
  EXPECT_EQ(drawn(), "00000");  // the options are Random's to draw
  EXPECT_FALSE(g.C("chkBackem").enabled || g.C("mnuOptionsBackem").enabled);
  g.platform.Script({0.3333f, 0.9f, 0.2f, 0.5f, 0.3334f});  // Stackem and Switchem
  g.Press({"cmdNew"});
  EXPECT_EQ(drawn(), "10100");
  EXPECT_EQ(g.Field("StackSize"), "20");
  EXPECT_EQ(g.C("chkStackem").marked, 1);  // checked options stand out during the game
  g.Press({"cmdQuit"});                    // the drawn options go with the game
  EXPECT_EQ(drawn() + g.Field("StackSize"), "0000010");
  g.model.Exit();
  ExpectLines(g.file.Read(), {"SetRandom=1", "SetStackem=0", "SetSwitchem=0"});
}

TEST(Game, LockingAndQuittingTheControls) {
  Game g;
  g.NewGameAFirst({"chkSmackem", "chkTakem"});
  EXPECT_EQ(g.Live({"cmdNew", "cmdQuit"}), "cmdQuit");
  for (const char* name : {"chkStackem", "chkRandom", "optVsHuman", "optFastModeOn",
                           "mnuOptionsBackem", "mnuVsHuman", "mnuFileNewGame", "mnuLearnModeOn"})
    EXPECT_FALSE(g.C(name).enabled) << name;
  EXPECT_EQ(g.Live({"lblMoveCount", "lblMoveCountA", "lblMoveCountB"}),
            "lblMoveCount lblMoveCountA lblMoveCountB");
  EXPECT_FALSE(g.C("lblCardB(1)").visible);  // the opponent's cards are hidden outside Learn Mode
  EXPECT_TRUE(g.model.RightClick("background"));
  EXPECT_EQ(g.Live({"mnuPopupFileNewGame", "mnuPopupFileQuitGame"}), "mnuPopupFileQuitGame");
  g.Press({"mnuPopupFileQuitGame"});
  EXPECT_EQ(g.Live({"cmdNew", "cmdQuit", "chkStackem"}), "cmdNew chkStackem");
  ExpectSetUpButtonsIdle(g);
  EXPECT_TRUE(g.C("lblCardB(1)").visible);  // the board is revealed
  EXPECT_FALSE(g.C("lblMoveCountA").visible);
  EXPECT_EQ(g.Field("MoveCountA"), "0");
  EXPECT_FALSE(g.Click("lblCardA(1)"));               // no game, no move
  EXPECT_FALSE(std::ifstream(g.file.path()).good());  // quitting records nothing
}

TEST(Game, AWinRecordsTheResultAndTheButtonLeadsBackToNewGame) {
  Game g;
  g.NewGameAFirst();
  g.WinOnTheFirstMove();
  EXPECT_EQ(g.Field("TurnResult"), "1");
  EXPECT_TRUE(g.Up("cmdAWins"));
  EXPECT_EQ(g.C("cmdAWins").caption, "    You win.    Click here to continue.");
  EXPECT_EQ(g.model.Focus(), "cmdAWins");
  EXPECT_TRUE(g.C("lblCardB(3)").visible);
  EXPECT_NE(g.C("lblDrawPile").caption, kFaceDown);
  EXPECT_FALSE(g.Click("lblDrawPile"));  // nothing more to play
  EXPECT_TRUE(g.Click("lblCardA(3)"));   // a card still takes its mark
  EXPECT_EQ(g.C("lblCardA(3)").marked, 1);
  ExpectLines(g.file.Read(), {"Wins1=1", "Wins7=1", "Wins8=1", "WStreak=1", "LastWinner=1"});
  g.Press({"cmdAWins"});
  EXPECT_EQ(g.Live({"cmdAWins", "cmdNew"}), "cmdNew");
  EXPECT_EQ(g.Field("TurnResult"), "0");
}

TEST(JudgementDisplay, FollowsEveryMarkingPassAndLeavesTheCardsToLearnMode) {
  Game g;
  ASSERT_TRUE(g.model.ClickBackground(true));
  EXPECT_TRUE(g.C("lblCardB(1)").visible);
  EXPECT_FALSE(g.Click("lblRangeA(1)") || g.Click("lblGoodBad(1)")) << "labels take no clicks";
  ASSERT_TRUE(g.model.ClickBackground(true));
  EXPECT_FALSE(g.C("lblCardB(1)").visible);  // between games too
  // The computer's Switchem waits for its button with the marks of its last pass on show.
  ASSERT_TRUE(g.model.ClickBackground(true));
  g.NewGameAFirst({"chkSwitchem"});
  EXPECT_FALSE(g.Up("lblCardB(1)")) << "shown, but not for the player's Switchem";
  g.Set("Stacks(2)", "5 15 25 35 45 94 84 74 64 98");
  g.Press({"lblCardA(1)", "lblCardA(2)", "cmdSwitchemA"});
  ASSERT_TRUE(g.C("cmdSwitchemC").visible);
  std::string shown;
  for (int p = 1; p <= 10; ++p)
    shown += (p > 1 ? " " : "") + g.C("lblGoodBad(" + std::to_string(p) + ")").caption;
  EXPECT_EQ(shown, g.Field("Marks"));
}

// A game in Learn Mode, or with the computer's cards shown at any time, is not counted.
TEST(JudgementDisplay, AGameWithTheComputersCardsOnShowIsNotCounted) {
  for (bool learn_mode : {true, false}) {
    Game g;
    if (learn_mode) g.Press({"optLearnModeOn"});
    ASSERT_TRUE(g.model.ClickBackground(true));
    g.Press({"optLearnModeOff"});
    EXPECT_FALSE(g.model.judgement_shown());
    EXPECT_FALSE(g.C("lblRangeA(1)").visible);
    EXPECT_EQ(g.Field("LearnMode"), "0");
    if (learn_mode) g.Press({"optLearnModeOn"});
    g.NewGameAFirst();
    if (!learn_mode) {  // on and off again during the game
      ASSERT_TRUE(g.model.ClickBackground(true));
      ASSERT_TRUE(g.model.ClickBackground(true));
    }
    EXPECT_EQ(g.Field("LearnMode"), learn_mode ? "1" : "0");
    g.WinOnTheFirstMove();
    EXPECT_TRUE(g.C("cmdAWins").visible);
    EXPECT_FALSE(std::ifstream(g.file.path()).good());
  }
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
    g.WinOnTheFirstMove();
    g.Press({"cmdAWins"});
  }
  g.model.Exit();
  EXPECT_EQ(g.platform.notices, std::vector<std::string>{told});
  EXPECT_EQ(g.model.save_notice(), told);
  EXPECT_TRUE(g.platform.warnings.empty());
}

}  // namespace
}  // namespace bq
