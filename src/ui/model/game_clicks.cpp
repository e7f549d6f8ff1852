// A click on a control by its name, as the window and the driver deliver it.
#include <charconv>

#include "ui/model/game_model.h"

namespace bq {
namespace {

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

}  // namespace

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
  if (c == &mnuComputerClassic || c == &mnuComputerExpert)
    return ChooseComputer(c == &mnuComputerExpert), true;
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
    if (remote_.session.engaged() && remote_.session.phase() != net::Session::Phase::kInvited) {
      SendToOpponent(net::Quit{});
      remote_.session.Ended();
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
  if (c == &mnuEditUndo) return Undo();
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
