#include "ui/model/game_model.h"

#include <utility>

namespace bq {
namespace {

void Set(Control& c, const char* caption, const char* tooltip = "") {
  c.caption = caption;
  c.tooltip = tooltip;
}

constexpr const char* kPileTip = "Click the card to use it to replace a card in your Stack";
constexpr const char* kTakemTip =
    "Press this button to take a card from your opponent's Stack, and swap it for 1 of yours";
constexpr const char* kSmackemTip =
    "Press this button to swap the positions of 2 cards in your opponent's Stack";

}  // namespace

GameModel::GameModel(Platform& platform, std::string settings_path)
    : WindowModel("frmGame"), platform_(platform), settings_path_(std::move(settings_path)) {
  Set(lblStackA, "Your Stack");
  Set(lblStackB, "Computer's Stack");
  Set(lblDraw, "Draw Pile", kPileTip);
  Set(lblDiscard, "Discard Pile", kPileTip);
  Set(lblDrawPile, kFaceDown);
  Set(lblMoveCount, "Move Count",
      "This shows the number of moves each player has made in the current game");
  Set(lblMoveCountA, "0", "This is the number of moves you have made in the current game");
  Set(lblMoveCountB, "0", "This is the number of moves your opponent has made in the current game");
  Set(frmPlayOptions, "Play Options");
  Set(frmOpponent, "Opponent");
  Set(frmFastMode, "Fast Mode");
  Set(frmLearnMode, "Learn Mode");
  Set(chkStackem, "&Stackem", "Check to play with 20 cards in a Stack instead of 10");
  Set(chkBackem, "&Backem", "Check to allow Stacks in descending order");
  Set(chkSwitchem, "S&witchem",
      "Check to swap the positions of 2 of the cards in your Stack before play starts");
  Set(chkSmackem, "S&mackem",
      "Check to let you swap the positions of 2 of the cards in your opponent's Stack during "
      "the game");
  Set(chkTakem, "&Takem",
      "Check to let you take a card from your opponent's Stack, in exchange for 1 of your "
      "cards, during the game");
  Set(chkRandom, "&Random", "Check to play with a randomly selected set of Play Options");
  Set(optVsComputer, "&Computer", "Click to play vs computer opponent");
  Set(optVsHuman, "H&uman", "Click to play vs human opponent");
  Set(cmdSetupRemoteOpponent, "Setup",
      "Click here to set up a connection with your opponent over the internet");
  Set(optFastModeOn, "&On", "Click to complete a move by clicking on 2 cards");
  Set(optFastModeOff, "O&ff", "Click to confirm your move after clicking on 2 cards");
  Set(optLearnModeOn, "On", "Click to learn how to play by watching how your oppoent plays");
  Set(optLearnModeOff, "Off", "Click to turn Learn Mode off");
  Set(cmdNew, "Start &New Game", "Press this button to start a new game");
  Set(cmdQuit, "&Quit This Game",
      "Press this button to quit the current game and select play options for a new game");
  Set(cmdSetupTakemA, "Takem", kTakemTip);
  Set(cmdSetupTakemB, "Takem", kTakemTip);
  Set(cmdSetupSmackemA, "Smackem", kSmackemTip);
  Set(cmdSetupSmackemB, "Smackem", kSmackemTip);
  Set(cmdPlayA, "Click here to complete your move");
  Set(cmdPlayB, "Click here to complete your move");
  Set(cmdAWins, "    You win.    Click here to continue.");
  Set(cmdBWins, "Opponent wins.  Click here to continue.");
  Set(cmdCWins, "Computer wins.  Click here to continue.");
  Set(cmdBothWin, "Game ends in a tie.  Click here to continue.");
  Set(cmdCTakesDiscard,
      "Computer will take the      Discard Pile card.    Click here to continue.");
  Set(cmdCTakesDraw, "Computer will take the      Draw Pile card.    Click here to continue.");
  Set(cmdCTakesNothing, "Computer doesn't want either card.    Click here to continue.");
  Set(cmdBackemC, "Computer will reverse its direction.  Click here to continue.");
  Set(cmdSwitchemA, "Click on 2 of your cards to swap their positions.  Then click here.");
  Set(cmdSwitchemB, "Click on 2 of your cards to swap their positions.  Then click here.");
  Set(cmdSwitchemC,
      "Computer will swap the positions of 2 cards in its stack.  Click here to continue.");
  Set(cmdSmackemA, "Click 2 of your opponent's cards to swap their positions.  Then click here.");
  Set(cmdSmackemB, "Opponent will swap the positions of 2 of your cards.  Click here to continue.");
  Set(cmdSmackemC,
      "Computer will swap the positions of 2 cards in your stack.  Click here to continue.");
  Set(cmdTakemA, "Click 1 of your cards and 1 of your opponent's to swap them.  Then click here.");
  Set(cmdTakemB, "Opponent will swap 1 of your cards for 1 of his.  Click here to continue.");
  Set(cmdTakemC, "Computer will swap one of its cards for one of yours.  Click here to continue.");
  Set(cmdQuitReceived, "Opponent has quit the game.  Click here to continue.");
  Set(cmdExitReceived, "Opponent has exited the program.  Click here to continue.");
  Set(cmdInvitationAccepted, "Invitation accepted.  Click here to continue.");
  Set(cmdInvitationRejected, "Invitation rejected.  Click here to continue.");
  Set(cmdInvitationIgnored, "Invitation ignored.  Click here to continue.");
  Set(cmdClickHere, "Click here to continue.");
  Set(mnuFile, "File");
  Set(mnuFileNewGame, "Start &New Game");
  Set(mnuFileQuitGame, "&Quit This Game");
  Set(mnuFileExit, "E&xit Program");
  Set(mnuOptions, "Options");
  Set(mnuOptionsStackem, "&Stackem");
  Set(mnuOptionsBackem, "&Backem");
  Set(mnuOptionsSwitchem, "S&witchem");
  Set(mnuOptionsSmackem, "S&mackem");
  Set(mnuOptionsTakem, "&Takem");
  Set(mnuOptionsRandom, "&Random");
  Set(mnuVsComputer, "vs &Computer");
  Set(mnuVsHuman, "vs H&uman");
  Set(mnuSetupRemoteOpponent, "Set Up O&pponent/Communication");
  Set(mnuFastModeOn, "Fast Mode &On");
  Set(mnuFastModeOff, "Fast Mode O&ff");
  Set(mnuLearnModeOn, "Learn Mode On");
  Set(mnuLearnModeOff, "Learn Mode Off");
  Set(mnuOptionsSound, "Sound");
  Set(mnuComputerClassic, "Computer: Classic");
  Set(mnuComputerExpert, "Computer: Expert");
  Set(mnuStats, "Stat&istics");
  Set(mnuHelp, "Help");
  Set(mnuHelpHowToPlay, "&How To Play");
  Set(mnuHelpAbout, "&About Bramblequay");
  Set(mnuPopupFileNewGame, "Start New Game");
  Set(mnuPopupFileQuitGame, "Quit This Game");
  Set(mnuPopupFileExit, "Exit Program");
  Set(mnuPopupStats, "Statistics");
  Set(mnuPopupHelpHowToPlay, "How To Play");
  Set(mnuPopupHelpAbout, "About Bramblequay");
  Set(mnuPopupCardDiscard, "Replace with Discard Pile card");
  Set(mnuPopupCardDraw, "Replace with Draw Pile card");
  Set(mnuHint, "&Hint", "Ask what the computer would do in your place (key H)");
  mnuHint.enabled = false;
  Set(mnuEdit, "&Edit");
  Set(mnuEditUndo, "&Undo", "Take back your last move and the computer's reply (Ctrl+Z)");
  mnuEditUndo.enabled = false;
  RegisterControls();
}

void GameModel::RegisterControls() {
  Register("lblStackB", lblStackB);
  RegisterArray("lblCardB", lblCardB, 1, kMaxStackSize);
  RegisterArray("lblRangeB", lblRangeB, 1, kMaxStackSize);
  RegisterArray("lblGoodBad", lblGoodBad, 1, kMaxStackSize);
  Register("lblStackA", lblStackA);
  RegisterArray("lblCardA", lblCardA, 1, kMaxStackSize);
  RegisterArray("lblRangeA", lblRangeA, 1, kMaxStackSize);
  Register("lblDiscard", lblDiscard);
  Register("lblDiscardPile", lblDiscardPile);
  Register("lblDraw", lblDraw);
  Register("lblDrawPile", lblDrawPile);
  Register("lblMoveCount", lblMoveCount);
  Register("lblMoveCountA", lblMoveCountA);
  Register("lblMoveCountB", lblMoveCountB);
  Register("frmPlayOptions", frmPlayOptions);
  Register("chkStackem", chkStackem);
  Register("chkBackem", chkBackem);
  Register("chkSwitchem", chkSwitchem);
  Register("chkSmackem", chkSmackem);
  Register("chkTakem", chkTakem);
  Register("chkRandom", chkRandom);
  Register("frmOpponent", frmOpponent);
  Register("optVsComputer", optVsComputer);
  Register("optVsHuman", optVsHuman);
  Register("cmdSetupRemoteOpponent", cmdSetupRemoteOpponent);
  Register("frmFastMode", frmFastMode);
  Register("optFastModeOn", optFastModeOn);
  Register("optFastModeOff", optFastModeOff);
  Register("frmLearnMode", frmLearnMode);
  Register("optLearnModeOn", optLearnModeOn);
  Register("optLearnModeOff", optLearnModeOff);
  Register("cmdNew", cmdNew);
  Register("cmdQuit", cmdQuit);
  Register("cmdSetupSmackemA", cmdSetupSmackemA);
  Register("cmdSetupTakemA", cmdSetupTakemA);
  Register("cmdSetupSmackemB", cmdSetupSmackemB);
  Register("cmdSetupTakemB", cmdSetupTakemB);
  Register("cmdPlayA", cmdPlayA);
  Register("cmdPlayB", cmdPlayB);
  Register("cmdAWins", cmdAWins);
  Register("cmdBWins", cmdBWins);
  Register("cmdCWins", cmdCWins);
  Register("cmdBothWin", cmdBothWin);
  Register("cmdCTakesDiscard", cmdCTakesDiscard);
  Register("cmdCTakesDraw", cmdCTakesDraw);
  Register("cmdCTakesNothing", cmdCTakesNothing);
  Register("cmdBackemC", cmdBackemC);
  Register("cmdSwitchemA", cmdSwitchemA);
  Register("cmdSwitchemB", cmdSwitchemB);
  Register("cmdSwitchemC", cmdSwitchemC);
  Register("cmdSmackemA", cmdSmackemA);
  Register("cmdSmackemB", cmdSmackemB);
  Register("cmdSmackemC", cmdSmackemC);
  Register("cmdTakemA", cmdTakemA);
  Register("cmdTakemB", cmdTakemB);
  Register("cmdTakemC", cmdTakemC);
  Register("cmdQuitReceived", cmdQuitReceived);
  Register("cmdExitReceived", cmdExitReceived);
  Register("cmdInvitationAccepted", cmdInvitationAccepted);
  Register("cmdInvitationRejected", cmdInvitationRejected);
  Register("cmdInvitationIgnored", cmdInvitationIgnored);
  Register("cmdClickHere", cmdClickHere);
  Register("mnuFile", mnuFile);
  Register("mnuFileNewGame", mnuFileNewGame);
  Register("mnuFileQuitGame", mnuFileQuitGame);
  Register("mnuFileExit", mnuFileExit);
  Register("mnuOptions", mnuOptions);
  Register("mnuOptionsStackem", mnuOptionsStackem);
  Register("mnuOptionsBackem", mnuOptionsBackem);
  Register("mnuOptionsSwitchem", mnuOptionsSwitchem);
  Register("mnuOptionsSmackem", mnuOptionsSmackem);
  Register("mnuOptionsTakem", mnuOptionsTakem);
  Register("mnuOptionsRandom", mnuOptionsRandom);
  Register("mnuVsComputer", mnuVsComputer);
  Register("mnuVsHuman", mnuVsHuman);
  Register("mnuSetupRemoteOpponent", mnuSetupRemoteOpponent);
  Register("mnuFastModeOn", mnuFastModeOn);
  Register("mnuFastModeOff", mnuFastModeOff);
  Register("mnuLearnModeOn", mnuLearnModeOn);
  Register("mnuLearnModeOff", mnuLearnModeOff);
  Register("mnuOptionsSound", mnuOptionsSound);
  Register("mnuComputerClassic", mnuComputerClassic);
  Register("mnuComputerExpert", mnuComputerExpert);
  Register("mnuStats", mnuStats);
  Register("mnuHelp", mnuHelp);
  Register("mnuHelpHowToPlay", mnuHelpHowToPlay);
  Register("mnuHelpAbout", mnuHelpAbout);
  Register("mnuPopupFileNewGame", mnuPopupFileNewGame);
  Register("mnuPopupFileQuitGame", mnuPopupFileQuitGame);
  Register("mnuPopupFileExit", mnuPopupFileExit);
  Register("mnuPopupStats", mnuPopupStats);
  Register("mnuPopupHelpHowToPlay", mnuPopupHelpHowToPlay);
  Register("mnuPopupHelpAbout", mnuPopupHelpAbout);
  Register("mnuPopupCardDiscard", mnuPopupCardDiscard);
  Register("mnuPopupCardDraw", mnuPopupCardDraw);
  RegisterArray("StatusBar1.Panel", StatusBar1, 1, 4);
  Register("mnuHint", mnuHint);
  Register("mnuEdit", mnuEdit);
  Register("mnuEditUndo", mnuEditUndo);
  Register("lblPrompt", lblPrompt);
  RegisterArray("lblMoveList", lblMoveList, 1, kMoveListSize);
}

Control& GameModel::OptionBox(Option o) {
  switch (o) {
    case kStackem:
      return chkStackem;
    case kBackem:
      return chkBackem;
    case kSwitchem:
      return chkSwitchem;
    case kSmackem:
      return chkSmackem;
    default:
      return chkTakem;
  }
}

Control& GameModel::OptionMenu(Option o) {
  switch (o) {
    case kStackem:
      return mnuOptionsStackem;
    case kBackem:
      return mnuOptionsBackem;
    case kSwitchem:
      return mnuOptionsSwitchem;
    case kSmackem:
      return mnuOptionsSmackem;
    default:
      return mnuOptionsTakem;
  }
}

std::array<bool, 5> GameModel::CheckedOptions() const {
  std::array<bool, 5> on{};
  for (int o = 0; o < kOptionCount; ++o) on[static_cast<size_t>(o)] = Checked(Option(o));
  return on;
}

void GameModel::Prompt(Control& c) {
  Show(c, true, true);
  for (const auto& nc : Controls())
    if (nc.control == &c) SetFocus(nc.name);
}

void GameModel::PlayClick() {
  if (sound_on_) platform_.PlayClick();
}

bool GameModel::TakeStatsRequest() {
  return std::exchange(stats_requested_, false);
}

bool GameModel::TakeAboutRequest() {
  return std::exchange(about_requested_, false);
}

}  // namespace bq
