// Start-up, and a game's beginning and end.
#include "ai/turn.h"
#include "ui/model/game_model.h"

namespace bq {

void GameModel::Load() {
  BeginEvent();
  loaded_ = LoadSettings(settings_path_);
  window_left_ = loaded_.left;
  window_top_ = loaded_.top;
  sound_on_ = loaded_.sound;
  mnuOptionsSound.value = sound_on_;
  ChooseComputer(loaded_.expert);
  ask_before_abandoning_ = loaded_.ask_before_abandoning;
  last_connection_ = {loaded_.opponent_address, loaded_.opponent_port, loaded_.local_port};
  StoredOptions options = loaded_.options;
  // 20-card Stacks do not fit on a narrow screen, whatever the file says.
  if (static_cast<float>(platform_.ScreenWidthPixels()) < 600.0f) {
    options.stackem = 0;
    stackem_unavailable_ = true;
  }
  ApplyStoredOptions(options);
  saved_fast_mode_ = fast_mode_;
  saved_learn_mode_ = learn_mode_;
  InitGameData();
  for (int o = 0; o < kOptionCount; ++o) RunOptionSetter(Option(o));
  SetRandom();
  if (vs_computer_)
    SetVsComputer();
  else
    SetVsHuman();
  SetLearnMode(learn_mode_);
  SetFastMode(fast_mode_);

  // Between games: the board is empty and New Game waits.
  for (int k = 1; k <= kMaxStackSize; ++k) {
    lblCardA[static_cast<size_t>(k)].caption.clear();
    lblCardB[static_cast<size_t>(k)].caption.clear();
    lblCardA[static_cast<size_t>(k)].enabled = false;
    lblCardB[static_cast<size_t>(k)].enabled = false;
    lblGoodBad[static_cast<size_t>(k)].visible = false;
  }
  lblDiscardPile.enabled = false;
  lblDrawPile.enabled = false;
  for (Control* c :
       {&cmdPlayA,     &cmdPlayB,         &cmdAWins,      &cmdBWins,         &cmdCWins,
        &cmdBothWin,   &cmdCTakesDiscard, &cmdCTakesDraw, &cmdCTakesNothing, &cmdBackemC,
        &cmdSwitchemA, &cmdSwitchemB,     &cmdSwitchemC,  &cmdSmackemA,      &cmdSmackemB,
        &cmdSmackemC,  &cmdTakemA,        &cmdTakemB,     &cmdTakemC,        &cmdQuit,
        &lblMoveCount, &lblMoveCountA,    &lblMoveCountB})
    Hide(*c);
  for (Control* c : {&cmdQuitReceived, &cmdExitReceived, &cmdInvitationAccepted,
                     &cmdInvitationRejected, &cmdInvitationIgnored, &cmdClickHere})
    Hide(*c);
  mnuFileQuitGame.enabled = false;
  mnuPopupFileQuitGame.enabled = false;
  mnuPopupCardDiscard.enabled = false;
  mnuPopupCardDraw.enabled = false;
  RefreshSlotVisibility();
  if (cmdNew.enabled) SetFocus("cmdNew");
  EndEvent();
}

void GameModel::InitGameData() {
  g_.Init();
  judge_.n = N();
  judge_.m[0] = '1';
  judge_.m[static_cast<size_t>(N() + 1)] = '1';
  RefreshRangeLabels();
  lblStackB.caption = "Opponent's Stack";
  remote_.opponent_setup = false;
  remote_.connected = false;
  remote_.is_dealer = true;
}

void GameModel::RefreshSlotVisibility() {
  const bool hide_b = game_running_ && !game_over_ && !learn_mode_ && !judgement_shown_;
  for (int k = 1; k <= kMaxStackSize; ++k) {
    const auto i = static_cast<size_t>(k);
    const bool used = k <= N();
    lblCardA[i].visible = used;
    lblCardB[i].visible = used && !hide_b;
    lblRangeA[i].visible = lblRangeB[i].visible = used && judgement_shown_;
    lblGoodBad[i].visible = used && judgement_shown_;
  }
}

void GameModel::RefreshRangeLabels() {
  for (int k = 1; k <= kMaxStackSize; ++k) {
    std::string text(1, ' ');  // a positive number's sign position, as the scale shows it
    text += std::to_string(k * g_.slot_span);
    lblRangeA[static_cast<size_t>(k)].caption = text;
    lblRangeB[static_cast<size_t>(k)].caption = text;
  }
}

void GameModel::ResetComputerJudgement() {
  seat_.StackSetByHand(g_);
  TakeJudgement();
  RefreshGoodBad();
}

void GameModel::NewGame() {
  random_game_ = chkRandom.value == 1;
  if (random_game_) {
    for (int o = 0; o < kOptionCount; ++o) SetOptionChecked(Option(o), false);
    random_picks_ = PickRandomOptions(platform_);
    for (int o = 0; o < kOptionCount; ++o)
      if (random_picks_[static_cast<size_t>(o)] && !(o == kStackem && stackem_unavailable_))
        SetOptionChecked(Option(o), true);
  }
  ShuffleAndDeal(g_, platform_);
  StartMoveList();  // the first move is told against the deal
  if (vs_computer_) {
    const auto kind = expert_chosen_ ? ai::Computer::kExpert : ai::Computer::kClassic;
    if (seat_.kind() != kind) seat_ = ai::ChosenSeat(kSideB, kind);
    seat_.NewGame(g_);
    TakeJudgement();
  }
  BeginGameFlags();
  LockControlsForGame();
  if (!vs_computer_) {
    // The deal is held until the invitation is answered; then it is sent and shown.
    remote_.is_dealer = true;
    remote_.session.InvitationSent();
    SendToOpponent(net::Invite{});
    return;
  }
  ShowDeal();
}

void GameModel::LockControlsForGame() {
  for (int o = 0; o < kOptionCount; ++o) OptionBox(Option(o)).enabled = false;
  for (Control* c : {&chkRandom,
                     &mnuOptionsStackem,
                     &mnuOptionsBackem,
                     &mnuOptionsSwitchem,
                     &mnuOptionsSmackem,
                     &mnuOptionsTakem,
                     &mnuOptionsRandom,
                     &optVsComputer,
                     &optVsHuman,
                     &mnuVsComputer,
                     &mnuVsHuman,
                     &cmdSetupRemoteOpponent,
                     &mnuSetupRemoteOpponent,
                     &optFastModeOn,
                     &optFastModeOff,
                     &optLearnModeOn,
                     &optLearnModeOff,
                     &mnuFastModeOn,
                     &mnuFastModeOff,
                     &mnuLearnModeOn,
                     &mnuLearnModeOff,
                     &mnuFileNewGame,
                     &mnuPopupFileNewGame})
    c->enabled = false;
  Hide(cmdNew);
  Show(cmdQuit, true, vs_computer_);
  mnuFileQuitGame.enabled = mnuPopupFileQuitGame.enabled = vs_computer_;
  for (int o = 0; o < kOptionCount; ++o) OptionBox(Option(o)).marked = Checked(Option(o));
  Show(cmdSetupSmackemA, Checked(kSmackem), false);
  Show(cmdSetupSmackemB, Checked(kSmackem), false);
  Show(cmdSetupTakemA, Checked(kTakem), false);
  Show(cmdSetupTakemB, Checked(kTakem), false);
  for (Control* c :
       {&cmdAWins, &cmdBWins, &cmdCWins, &cmdBothWin, &cmdPlayA, &cmdPlayB, &cmdCTakesDiscard,
        &cmdCTakesDraw, &cmdCTakesNothing, &cmdBackemC, &cmdSwitchemA, &cmdSwitchemB, &cmdSwitchemC,
        &cmdSmackemA, &cmdSmackemB, &cmdSmackemC, &cmdTakemA, &cmdTakemB, &cmdTakemC})
    Hide(*c);
  for (int k = 1; k <= kMaxStackSize; ++k) {
    lblCardA[static_cast<size_t>(k)].marked = 0;
    lblCardB[static_cast<size_t>(k)].marked = 0;
    lblGoodBad[static_cast<size_t>(k)].caption.clear();
  }
  lblDrawPile.caption = kFaceDown;
  lblDrawPile.marked = lblDiscardPile.marked = 0;
  RefreshRangeLabels();
  Show(lblMoveCount, true, true);
  Show(lblMoveCountA, true, true);
  Show(lblMoveCountB, true, true);
  RefreshMoveCounts();
  ClearComputerMarks();
  RefreshGoodBad();
  RefreshSlotVisibility();
}

void GameModel::ShowDeal() {
  for (int k = 1; k <= N(); ++k) {
    ShowCardA(k);
    ShowCardB(k);
  }
  RefreshSlotVisibility();
  lblDrawPile.caption = kFaceDown;
  // Against a person the invited copy begins, which is side A there and side B on the dealer's.
  const int first = vs_computer_ ? kDrawnFirst : remote_.is_dealer ? kSideB : kSideA;
  BeginGame(g_, CheckedOptions(), first, platform_);
  // Play goes on whatever the test found; a result button may already be up.
  EndIfDecided();
  if (!vs_computer_ && remote_.is_dealer) return AwaitFirstRemoteMove();
  if (g_.phase == Phase::kOpening)
    StartSwitchemA();
  else
    StartOfPlay();
}

void GameModel::EndIfDecided() {
  if (game_over_) return;  // decided once, recorded once
  switch (g_.turn_result) {
    case kTie:
      Ending(Outcome::kTie, cmdBothWin);
      break;
    case kAInOrder:
      Ending(Outcome::kWin, cmdAWins);
      break;
    case kBInOrder:
      Ending(Outcome::kLoss, vs_computer_ ? cmdCWins : cmdBWins);
      break;
    default:
      break;
  }
}

void GameModel::Ending(Outcome outcome, Control& button) {
  PlayClick();
  game_over_ = true;
  selecting_ = Selecting::kNone;
  pending_ = Pending::kNone;
  RevealBoard();
  RecordResult(outcome);
  Prompt(button);
}

void GameModel::RevealBoard() {
  for (int p = 1; p <= N(); ++p) {
    auto& a = lblCardA[static_cast<size_t>(p)];
    auto& b = lblCardB[static_cast<size_t>(p)];
    a.visible = true;
    a.marked = 0;
    b.caption = CardFace(g_.Card(kSideB, g_.DisplayPos(p)));
    b.visible = true;
    b.marked = 0;
  }
  lblDiscardPile.visible = true;
  lblDiscardPile.marked = 0;
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDrawPile.visible = true;
  lblDrawPile.marked = 0;
  lblDrawPile.caption = CardFace(g_.DrawTop());
  for (Control* c : {&cmdSetupSmackemA, &cmdSetupSmackemB, &cmdSetupTakemA, &cmdSetupTakemB})
    c->enabled = false;
}

void GameModel::RecordResult(Outcome outcome) {
  // A game in which the opponent's cards were on show, or a move was taken back, counts no more
  // than a Learn Mode game.
  if (learn_mode_ || shown_face_up_ || undo_.used) return;
  Settings s = LoadSettings(settings_path_);  // the file is the authority for the statistics
  // Games against the Expert are kept apart from the Classic computer's figures.
  const int kind = !vs_computer_ ? kVsHumans : ExpertPlaying() ? kVsExpert : kVsComputer;
  ApplyResult(s.stats[static_cast<size_t>(kind)], outcome, CheckedOptions());
  s = CurrentSettings(s);
  SaveOrWarn(s, false);
  loaded_ = s;
}

void GameModel::QuitGame() {
  chkRandom.enabled = true;
  const bool random = chkRandom.value == 1;
  for (int o = 0; o < kOptionCount; ++o) {
    Control& box = OptionBox(Option(o));
    if (random)
      SetOptionChecked(Option(o), false);
    else
      box.enabled = !(o == kStackem && stackem_unavailable_);
    box.marked = 0;
    OptionMenu(Option(o)).enabled = !(o == kStackem && stackem_unavailable_);
  }
  mnuOptionsRandom.enabled = true;
  if (vs_computer_)
    SetVsComputer();
  else
    SetVsHuman();
  for (Control* c : {&optVsComputer, &optVsHuman, &mnuVsComputer, &mnuVsHuman, &optFastModeOn,
                     &optFastModeOff, &optLearnModeOn, &optLearnModeOff, &mnuFastModeOn,
                     &mnuFastModeOff, &mnuLearnModeOn, &mnuLearnModeOff})
    c->enabled = true;
  for (Control* c :
       {&cmdAWins, &cmdBWins, &cmdCWins, &cmdBothWin, &cmdPlayA, &cmdPlayB, &cmdCTakesDiscard,
        &cmdCTakesDraw, &cmdCTakesNothing, &cmdBackemC, &cmdSwitchemA, &cmdSwitchemB, &cmdSwitchemC,
        &cmdSmackemA, &cmdSmackemB, &cmdSmackemC, &cmdTakemA, &cmdTakemB, &cmdTakemC})
    Hide(*c);
  Show(cmdSetupSmackemA, Checked(kSmackem), false);
  Show(cmdSetupSmackemB, Checked(kSmackem), false);
  Show(cmdSetupTakemA, Checked(kTakem), false);
  Show(cmdSetupTakemB, Checked(kTakem), false);
  Show(cmdNew, true, true);
  mnuFileNewGame.enabled = mnuPopupFileNewGame.enabled = true;
  Hide(cmdQuit);
  mnuFileQuitGame.enabled = mnuPopupFileQuitGame.enabled = false;
  if (game_running_ && !vs_computer_) remote_.session.Ended();
  ResetBetweenGames(g_, std::exchange(remote_.own_draw_count, 0));
  RefreshMoveCounts();
  Hide(lblMoveCount);
  Hide(lblMoveCountA);
  Hide(lblMoveCountB);
  game_running_ = false;
  game_over_ = false;
  selecting_ = Selecting::kNone;
  pending_ = Pending::kNone;
  RevealBoard();
  RefreshSlotVisibility();
  SetFastMode(fast_mode_);
  SetLearnMode(learn_mode_);
  for (int i = 2; i <= 4; ++i) StatusBar1[static_cast<size_t>(i)].caption.clear();
  remote_.is_dealer = true;
  SetFocus("cmdNew");
}

void GameModel::Exit() {
  if (exited_) return;
  // A copy that was ever invited says goodbye, and so does any copy the opponent would otherwise
  // wait for: a game with them running, or an invitation either way unsettled.
  if ((remote_.connected && !vs_computer_) || remote_.session.engaged())
    SendToOpponent(net::Exit{});
  Settings s = LoadSettings(settings_path_);
  SaveOrWarn(CurrentSettings(s), true);
  exited_ = true;
}

}  // namespace bq
