#include "ui/model/game_model.h"

#include <charconv>
#include <utility>

namespace bq {
namespace {

void Set(Control& c, const char* caption, const char* tooltip = "") {
  c.caption = caption;
  c.tooltip = tooltip;
}

// "lblCardA(3)" -> ("lblCardA", 3); a plain name gives index 0.
std::pair<std::string_view, int> SplitIndex(std::string_view name) {
  const auto open = name.find('(');
  if (open == std::string_view::npos || name.back() != ')') return {name, 0};
  int index = 0;
  const auto digits = name.substr(open + 1, name.size() - open - 2);
  const auto [ptr, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (ec != std::errc() || ptr != digits.data() + digits.size()) return {name, -1};
  return {name.substr(0, open), index};
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

bool GameModel::ClickControl(std::string_view name) {
  Control* c = Find(name);
  if (c == nullptr || !c->visible || !c->enabled) return false;
  const auto [base, index] = SplitIndex(name);
  if (index > 0) {
    if (index > N()) return false;
    if (base == "lblCardA") return ClickCardA(index);
    if (base == "lblCardB") return ClickCardB(index);
    return false;  // range labels, verdicts and status panels take no clicks
  }
  // Option check boxes and their menu twins.
  for (int o = 0; o < kOptionCount; ++o) {
    if (c == &OptionBox(Option(o))) {
      SetOptionChecked(Option(o), c->value != 1);
      return true;
    }
    if (c == &OptionMenu(Option(o))) {
      SetOptionChecked(Option(o), OptionBox(Option(o)).value != 1);
      return true;
    }
  }
  if (c == &chkRandom || c == &mnuOptionsRandom) {
    SetRandomChecked(chkRandom.value != 1);
    return true;
  }
  if (c == &optVsComputer) {
    if (optVsComputer.value != 1) ToggleOpponent();
    return true;
  }
  if (c == &optVsHuman) {
    if (optVsHuman.value != 1) ToggleOpponent();
    return true;
  }
  if (c == &mnuVsComputer || c == &mnuVsHuman) return ToggleOpponent(), true;
  if (c == &optFastModeOn || c == &optFastModeOff) {
    if ((c == &optFastModeOn) != fast_mode_) ToggleFastMode();
    return true;
  }
  if (c == &mnuFastModeOn || c == &mnuFastModeOff) return ToggleFastMode(), true;
  if (c == &optLearnModeOn || c == &optLearnModeOff) {
    if ((c == &optLearnModeOn) != learn_mode_) ToggleLearnMode();
    return true;
  }
  if (c == &mnuLearnModeOn || c == &mnuLearnModeOff) return ToggleLearnMode(), true;
  if (c == &mnuOptionsSound) {
    sound_on_ = !sound_on_;
    mnuOptionsSound.value = sound_on_;
    return true;
  }
  if (c == &cmdNew || c == &mnuFileNewGame || c == &mnuPopupFileNewGame) {
    if (c == &cmdNew) PlayClick();
    NewGame();
    return true;
  }
  if (c == &cmdQuit || c == &mnuFileQuitGame || c == &mnuPopupFileQuitGame) {
    if (c == &cmdQuit) PlayClick();
    // An invitation still unanswered here is answered in its own dialog, not by quitting.
    if (session_.engaged() && session_.phase() != net::Session::Phase::kInvited) {
      SendToOpponent(net::Quit{});
      session_.Ended();
    }
    QuitGame();
    return true;
  }
  if (c == &mnuFileExit || c == &mnuPopupFileExit) return Exit(), true;
  if (c == &mnuStats || c == &mnuPopupStats) return stats_requested_ = true, true;
  if (c == &mnuHelpHowToPlay || c == &mnuPopupHelpHowToPlay) {
    platform_.OpenHelp();
    return true;
  }
  if (c == &mnuHelpAbout || c == &mnuPopupHelpAbout) return about_requested_ = true, true;
  if (c == &cmdSetupRemoteOpponent || c == &mnuSetupRemoteOpponent)
    return communicate_requested_ = true, true;
  for (Control* prompt : {&cmdInvitationAccepted, &cmdInvitationRejected, &cmdInvitationIgnored,
                          &cmdQuitReceived, &cmdExitReceived, &cmdClickHere})
    if (c == prompt) return AcknowledgePrompt(*prompt), true;
  if (c == &mnuHint) return AskHint();
  if (c == &mnuPopupCardDiscard) return CardPopup(true);
  if (c == &mnuPopupCardDraw) return CardPopup(false);
  if (c == &lblDiscardPile) return ClickDiscardPile();
  if (c == &lblDrawPile) return ClickDrawPile();
  if (c == &cmdPlayA) {
    CompleteMoveA();
    return true;
  }
  if (c == &cmdAWins || c == &cmdBWins || c == &cmdCWins || c == &cmdBothWin) {
    PlayClick();
    if (c == &cmdAWins) Hide(cmdPlayA);
    if (c == &cmdBWins) Hide(cmdPlayB);
    QuitGame();
    return true;
  }
  struct Action {
    Control* button;
    void (GameModel::*run)();
    bool computer;  // the computer's buttons play the click and withdraw before the move goes on
  };
  const Action actions[] = {
      {&cmdCTakesDiscard, &GameModel::ReleaseComputerMove, true},
      {&cmdCTakesDraw, &GameModel::ReleaseComputerMove, true},
      {&cmdCTakesNothing, &GameModel::ReleaseComputerMove, true},
      {&cmdTakemC, &GameModel::ReleaseComputerMove, true},
      {&cmdSmackemC, &GameModel::ReleaseComputerMove, true},
      {&cmdSwitchemC, &GameModel::ReleaseComputerMove, true},
      {&cmdBackemC, &GameModel::ReleaseComputerMove, true},
      {&cmdSwitchemA, &GameModel::CompleteSwitchemA, false},
      {&cmdSetupSmackemA, &GameModel::SetupSmackemA, false},
      {&cmdSetupTakemA, &GameModel::SetupTakemA, false},
      {&cmdSmackemA, &GameModel::CompleteSmackemA, false},
      {&cmdTakemA, &GameModel::CompleteTakemA, false},
      {&cmdSmackemB, &GameModel::ApplyHeldB, false},
      {&cmdTakemB, &GameModel::ApplyHeldB, false},
  };
  for (const auto& a : actions) {
    if (c != a.button) continue;
    if (a.computer) {
      PlayClick();
      Hide(*c);
    }
    (this->*a.run)();
    return true;
  }
  return false;  // labels, headings and frames take no clicks
}

bool GameModel::RightClickControl(std::string_view name) {
  if (name == "background") {
    // The form pop-up offers exactly what the File menu offers at this moment.
    mnuPopupFileNewGame.enabled = mnuFileNewGame.enabled;
    mnuPopupFileQuitGame.enabled = mnuFileQuitGame.enabled;
    platform_.WindowOpened("mnuPopupForm");
    return true;
  }
  const auto [base, index] = SplitIndex(name);
  if (base != "lblCardA" || index < 1 || index > N()) return false;
  const Control& card = lblCardA[static_cast<size_t>(index)];
  if (!card.visible || !card.enabled || !game_running_ || game_over_ || g_.turn_owner != kSideA ||
      selecting_ != Selecting::kNone || pending_ != Pending::kNone)
    return false;
  popup_slot_ = index;
  // Once the Draw Pile card has been seen, the Discard Pile card can no longer be taken.
  mnuPopupCardDiscard.enabled = lblDrawPile.marked == 0 && lblDiscardPile.enabled;
  mnuPopupCardDraw.enabled = lblDrawPile.enabled;
  platform_.WindowOpened("mnuPopupCard");
  return true;
}

bool GameModel::ClickBackground(bool ctrl_alt) {
  // The judgement is the computer's: against a person it would only show their Stack.
  if (!ctrl_alt || !vs_computer_) return false;
  BeginEvent();
  ToggleJudgementDisplay();
  EndEvent();
  return true;
}

}  // namespace bq
