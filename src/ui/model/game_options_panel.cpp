// The options panel: the play options, Random, the opponent, Fast and Learn Mode, and the settings
// they are kept in.
#include "ui/model/game_model.h"

namespace bq {

void GameModel::ApplyStoredOptions(const StoredOptions& o) {
  const int values[] = {o.stackem, o.backem, o.switchem, o.smackem, o.takem};
  for (int i = 0; i < kOptionCount; ++i) {
    OptionBox(Option(i)).value = values[i] == 1;
    OptionMenu(Option(i)).value = values[i] == 1;
  }
  chkRandom.value = mnuOptionsRandom.value = o.random == 1;
  if (stackem_unavailable_) chkStackem.enabled = mnuOptionsStackem.enabled = false;
  vs_computer_ = o.opponent == 1;
  optVsComputer.value = mnuVsComputer.value = vs_computer_;
  optVsHuman.value = mnuVsHuman.value = !vs_computer_;
  fast_mode_ = o.fast_mode == 1;
  learn_mode_ = o.learn_mode == 1;
  if (o.stackem == 1) {
    g_.stack_size = 20;
    g_.slot_span = 5;
  } else {
    g_.stack_size = 10;
    g_.slot_span = 10;
  }
}

void GameModel::SetOptionChecked(Option o, bool checked) {
  OptionBox(o).value = checked;
  OptionMenu(o).value = checked;
  RunOptionSetter(o);
}

void GameModel::RunOptionSetter(Option o) {
  const bool on = Checked(o);
  OptionMenu(o).value = on;
  switch (o) {
    case kStackem:
      if (on) {
        g_.StackemOn();
        judge_.m[11] = '0';
        judge_.m[21] = '1';
        for (int k = 11; k <= 20; ++k) {
          lblCardA[static_cast<size_t>(k)].caption.clear();
          lblCardB[static_cast<size_t>(k)].caption.clear();
        }
      } else {
        g_.StackemOff();
        judge_.m[11] = '1';
      }
      judge_.n = N();
      judge_.slot_span = g_.slot_span;
      RefreshRangeLabels();
      RefreshSlotVisibility();
      break;
    case kSmackem:
      Show(cmdSetupSmackemA, on, false);
      Show(cmdSetupSmackemB, on, false);
      break;
    case kTakem:
      Show(cmdSetupTakemA, on, false);
      Show(cmdSetupTakemB, on, false);
      break;
    default:
      break;
  }
}

void GameModel::SetRandomChecked(bool checked) {
  chkRandom.value = mnuOptionsRandom.value = checked;
  SetRandom();
}

void GameModel::SetRandom() {
  const bool on = chkRandom.value == 1;
  for (int o = 0; o < kOptionCount; ++o) {
    if (on) SetOptionChecked(Option(o), false);
    const bool enable = !on && !(o == kStackem && stackem_unavailable_);
    OptionBox(Option(o)).enabled = enable;
    OptionMenu(Option(o)).enabled = enable;
  }
}

void GameModel::SetVsComputer() {
  vs_computer_ = true;
  remote_.is_dealer = true;
  optVsComputer.value = mnuVsComputer.value = 1;
  optVsHuman.value = mnuVsHuman.value = 0;
  lblStackB.caption = "Computer's Stack";
  StatusBar1[1].caption = "Computer";
  cmdSetupRemoteOpponent.enabled = mnuSetupRemoteOpponent.enabled = false;
  cmdNew.enabled = mnuFileNewGame.enabled = mnuPopupFileNewGame.enabled = true;
  ClearComputerMarks();
}

void GameModel::SetVsHuman() {
  // The computer's judgement means nothing against a person, and would show their cards.
  if (judgement_shown_) ToggleJudgementDisplay();
  vs_computer_ = false;
  optVsComputer.value = mnuVsComputer.value = 0;
  optVsHuman.value = mnuVsHuman.value = 1;
  if (opponent_name_.empty()) opponent_name_ = "Opponent";
  lblStackB.caption = opponent_name_ + "'s Stack";
  StatusBar1[1].caption = remote_.opponent_setup ? "Opponent " + remote_.host : opponent_name_;
  cmdSetupRemoteOpponent.enabled = mnuSetupRemoteOpponent.enabled = !remote_.opponent_setup;
  cmdNew.enabled = mnuFileNewGame.enabled = mnuPopupFileNewGame.enabled = remote_.opponent_setup;
}

void GameModel::SetFastMode(bool on) {
  fast_mode_ = on;
  optFastModeOn.value = mnuFastModeOn.value = on;
  optFastModeOff.value = mnuFastModeOff.value = !on;
}

void GameModel::SetLearnMode(bool on) {
  learn_mode_ = on;
  optLearnModeOn.value = mnuLearnModeOn.value = on;
  optLearnModeOff.value = mnuLearnModeOff.value = !on;
  RefreshSlotVisibility();
}

// The menu items of a pair act as a toggle, whichever of the two is chosen.
void GameModel::ToggleOpponent() {
  if (optVsComputer.value == 1) {
    mnuSetupRemoteOpponent.enabled = true;
    SetVsHuman();
  } else {
    SetVsComputer();
  }
}

void GameModel::ToggleFastMode() {
  SetFastMode(!fast_mode_);
  saved_fast_mode_ = fast_mode_;
}

void GameModel::ToggleLearnMode() {
  // The judgement display holds Learn Mode on: switching Learn Mode off takes the display down.
  if (learn_mode_ && judgement_shown_) {
    saved_learn_mode_ = false;
    return ToggleJudgementDisplay();
  }
  SetLearnMode(!learn_mode_);
  saved_learn_mode_ = learn_mode_;
}

// Takes effect at the next deal against the computer; a game in progress keeps its seat.
void GameModel::ChooseComputer(bool expert) {
  expert_chosen_ = expert;
  mnuComputerClassic.value = !expert;
  mnuComputerExpert.value = expert;
}

Settings GameModel::CurrentSettings(Settings base) const {
  base.left = window_left_;
  base.top = window_top_;
  StoredOptions& o = base.options;
  o.stackem = chkStackem.value;
  o.backem = chkBackem.value;
  o.switchem = chkSwitchem.value;
  o.smackem = chkSmackem.value;
  o.takem = chkTakem.value;
  o.random = chkRandom.value;
  o.opponent = optVsComputer.value == 1 ? 1 : 2;
  o.fast_mode = optFastModeOn.value == 1 ? 1 : 2;
  o.learn_mode = optLearnModeOn.value == 1 ? 1 : 2;
  base.sound = sound_on_;
  base.ask_before_abandoning = ask_before_abandoning_;
  base.expert = expert_chosen_;
  base.opponent_address = last_connection_.opponent_address;
  base.opponent_port = last_connection_.opponent_port;
  base.local_port = last_connection_.local_port;
  return base;
}

void GameModel::SaveOrWarn(const Settings& s, bool exiting) {
  const WriteResult saved = SaveSettings(settings_path_, s);
  if (saved || !save_notice_.empty()) return;
  save_notice_ = "cannot save the settings file " + settings_path_ + ": " + saved.error;
  if (exiting) {
    platform_.Warn(save_notice_);
    return;
  }
  // A player who started the game from a menu never sees standard error.
  save_notice_ += "; your results are not counted until it can be saved";
  platform_.Notice(save_notice_);
}

}  // namespace bq
