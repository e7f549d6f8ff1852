// The computer's side of the game: its seat chooses every move, the window shows it and, where
// the player watches, holds it until its "Click here to continue" button. A whole turn runs
// inside the event that ended the player's move.
#include "ui/model/game_model.h"

namespace bq {

void GameModel::ClearComputerMarks() {
  for (int k = 1; k <= N(); ++k) judge_.m[static_cast<size_t>(k)] = '0';
}

void GameModel::TakeJudgement() {
  if (const ai::Judgement* j = seat_.judgement()) judge_ = *j;
}

std::string GameModel::MarkText(int slot) const {
  return ExpertPlaying() ? "" : std::string(1, judge_.m[static_cast<size_t>(slot)]);
}

void GameModel::RefreshGoodBad() {
  RefreshGoodBad(g_.opponent_row_reversed);
}

void GameModel::RefreshGoodBad(bool reversed) {
  for (int k = 1; k <= N(); ++k) {
    auto& label = lblGoodBad[static_cast<size_t>(reversed ? N() + 1 - k : k)];
    label.caption = MarkText(k);
    label.visible = judgement_shown_;
  }
}

void GameModel::StartComputerTurn() {
  for (int k = 1; k <= N(); ++k) {
    lblCardA[static_cast<size_t>(k)].marked = 0;
    lblCardB[static_cast<size_t>(k)].marked = 0;
    ShowCardA(k);
  }
  // A reversal made in the opening is told at the first turn when the player watches.
  if (first_turn_ && Backem() && Checked(kSwitchem) && g_.opponent_row_reversed && learn_mode_) {
    held_ = {MoveKind::kBackem, kSideB};
    pending_ = Pending::kBackem;
    Prompt(cmdBackemC);
    return;
  }
  ComputerMove();
}

Move GameModel::ChooseComputerMove() {
  // The direction is judged on the first turn, and the Stack judged afresh once reversed.
  const bool direction = first_turn_ && Backem();
  const Move m = seat_.Choose(g_, platform_);
  if (g_.phase != Phase::kOpening && m.kind != MoveKind::kBackem) first_turn_ = false;
  TakeJudgement();
  // A reversal chosen for the first turn shows the marks where its cards will stand.
  if (direction || g_.phase == Phase::kOpening)
    RefreshGoodBad(g_.opponent_row_reversed || m.kind == MoveKind::kBackem);
  return m;
}

void GameModel::ComputerMove() {
  const Move m = ChooseComputerMove();
  held_ = m;
  const bool watched = !fast_mode_ && learn_mode_;
  const auto hold = [&](Pending kind, Control& button) {
    pending_ = kind;
    Prompt(button);
  };
  switch (m.kind) {
    case MoveKind::kBackem:
      // In the opening the Stack is turned round unseen; on screen nothing moves.
      if (learn_mode_ && g_.phase != Phase::kOpening) return hold(Pending::kBackem, cmdBackemC);
      return ReleaseComputerMove();
    case MoveKind::kSwitchem:
      for (int slot : {m.slot1, m.slot2})
        if (slot > 0) lblCardB[static_cast<size_t>(g_.DisplayPos(slot))].marked = 1;
      if (learn_mode_) return hold(Pending::kSwitchem, cmdSwitchemC);
      return ReleaseComputerMove();
    case MoveKind::kTakeDiscard:
      if (!watched) return PlayPileMoveB(m);
      lblDiscardPile.marked = 1;
      lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot1))].marked = 1;
      return hold(Pending::kDiscard, cmdCTakesDiscard);
    case MoveKind::kTakeDraw:
      if (!watched) return PlayPileMoveB(m);
      lblDiscardPile.enabled = false;
      lblDrawPile.caption = CardFace(g_.DrawTop());
      lblDrawPile.enabled = true;
      lblDrawPile.marked = 1;
      lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot1))].marked = 1;
      return hold(Pending::kDraw, cmdCTakesDraw);
    case MoveKind::kPass:
    case MoveKind::kSpendTurn:
      // Shown in every mode, so the player always sees the card the computer turned down.
      lblDrawPile.caption = CardFace(g_.DrawTop());
      lblDiscardPile.enabled = lblDrawPile.enabled = false;
      return hold(Pending::kNothing, cmdCTakesNothing);
    case MoveKind::kTakem:
    case MoveKind::kSmackem: {
      const bool takem = m.kind == MoveKind::kTakem;
      lblDiscardPile.enabled = lblDrawPile.enabled = false;
      // Side B's card labels are on show during the computer's special moves when the player
      // watches.
      for (int k = 1; k <= N(); ++k) {
        Show(lblCardA[static_cast<size_t>(k)], true, true);
        auto& b = lblCardB[static_cast<size_t>(k)];
        b.visible = judgement_shown_ || learn_mode_;
        b.enabled = takem && learn_mode_;
      }
      if (takem) {
        lblCardA[static_cast<size_t>(m.slot2)].marked = 1;
        lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot1))].marked = 1;
        return hold(Pending::kTakem, cmdTakemC);
      }
      lblCardA[static_cast<size_t>(m.slot1)].marked = 1;
      lblCardA[static_cast<size_t>(m.slot2)].marked = 1;
      return hold(Pending::kSmackem, cmdSmackemC);
    }
  }
}

// The held move is made: by its button, or at once when nobody watches.
void GameModel::ReleaseComputerMove() {
  pending_ = Pending::kNone;
  const Move m = held_;
  switch (m.kind) {
    case MoveKind::kBackem:
      // A reversal told at the first turn was made in the opening already.
      if (!g_.opponent_row_reversed) Play(m);
      return ComputerMove();
    case MoveKind::kSwitchem:
      Play(m);
      if (m.slot1 > 0) {
        ShowCardB(m.slot1);
        ShowCardB(m.slot2);
        lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot1))].marked = 0;
        lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot2))].marked = 0;
      }
      RefreshGoodBad();
      RefreshSlotVisibility();
      // Play starts whatever the order test found: a result button may already be up.
      EndIfDecided();
      return StartOfPlay();
    case MoveKind::kTakeDiscard:
    case MoveKind::kTakeDraw:
    case MoveKind::kPass:
    case MoveKind::kSpendTurn:
      return PlayPileMoveB(m);
    case MoveKind::kTakem:
    case MoveKind::kSmackem:
      break;
  }
  const bool takem = m.kind == MoveKind::kTakem;
  if (!Play(m)) return;
  const int a1 = takem ? m.slot2 : m.slot1;
  ShowCardA(a1);
  lblCardA[static_cast<size_t>(a1)].marked = 0;
  if (takem) {
    ShowCardB(m.slot1);
    lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot1))].marked = 0;
    Hide(cmdSetupTakemB);
    RefreshGoodBad();
  } else {
    ShowCardA(m.slot2);
    lblCardA[static_cast<size_t>(m.slot2)].marked = 0;
    Hide(cmdSetupSmackemB);
  }
  RefreshSlotVisibility();
  NextTurnUnlessDecided();
}

}  // namespace bq
