// The ordinary turn: side A's clicks, the completion of a move, and the hand-over to side B.
#include "ai/turn.h"
#include "ui/model/game_model.h"

namespace bq {

void GameModel::ShowCardA(int slot) {
  lblCardA[static_cast<size_t>(slot)].caption = CardFace(g_.Card(kSideA, slot));
}

void GameModel::ShowCardB(int slot) {
  lblCardB[static_cast<size_t>(g_.DisplayPos(slot))].caption = CardFace(g_.Card(kSideB, slot));
}

void GameModel::RefreshMoveCounts() {
  lblMoveCountA.caption = std::to_string(g_.move_count_a);
  lblMoveCountB.caption = std::to_string(g_.move_count_b);
}

int GameModel::MarkedCount(const SlotControls& labels) const {
  int count = 0;
  for (int k = 1; k <= N(); ++k) count += labels[static_cast<size_t>(k)].marked;
  return count;
}

void GameModel::UnmarkCardsA() {
  for (int k = 1; k <= N(); ++k) lblCardA[static_cast<size_t>(k)].marked = 0;
}

void GameModel::StartOfPlay() {
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDiscardPile.enabled = true;
  lblDrawPile.caption = kFaceDown;
  lblDrawPile.enabled = true;
  // The confirming button stays in view, greyed, until a move is ready.
  Show(cmdPlayA, !fast_mode_, false);
  cmdPlayB.enabled = false;
  if (!vs_computer_ || g_.turn_owner == kSideA)
    StartTurnA();
  else
    StartTurnB();
}

// A side's set-up buttons are offered on its own turn only, while its option is on and the move
// unused. Side B's buttons only show what the opponent still has: nobody here can press them.
void GameModel::OfferSetupButtons() {
  const bool a_turn = g_.turn_owner == kSideA && selecting_ == Selecting::kNone;
  Show(cmdSetupSmackemA, Checked(kSmackem) && !g_.smackem_used[kSideA],
       a_turn && lblDrawPile.marked == 0);
  Show(cmdSetupTakemA, Checked(kTakem) && !g_.takem_used[kSideA],
       a_turn && lblDrawPile.marked == 0);
  Show(cmdSetupSmackemB, Checked(kSmackem) && !g_.smackem_used[kSideB], false);
  Show(cmdSetupTakemB, Checked(kTakem) && !g_.takem_used[kSideB], false);
}

void GameModel::StartTurnA() {
  lblDiscardPile.enabled = lblDrawPile.enabled = true;
  lblDiscardPile.marked = lblDrawPile.marked = 0;
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDrawPile.caption = kFaceDown;
  OfferSetupButtons();
  for (int k = 1; k <= N(); ++k) {
    auto& a = lblCardA[static_cast<size_t>(k)];
    ShowCardA(k);
    a.enabled = true;
    a.marked = 0;
    lblCardB[static_cast<size_t>(k)].enabled = false;
    lblCardB[static_cast<size_t>(k)].marked = 0;
  }
  SetFocus("");
}

void GameModel::StartTurnB() {
  lblDiscardPile.marked = lblDrawPile.marked = 0;
  OfferSetupButtons();
  for (int k = 1; k <= N(); ++k) {
    lblCardA[static_cast<size_t>(k)].enabled = false;
    lblCardA[static_cast<size_t>(k)].marked = 0;
    lblCardB[static_cast<size_t>(k)].marked = 0;
  }
  if (vs_computer_) return StartComputerTurn();
  remote_.move_due = true;
  for (int k = 1; k <= N(); ++k) {
    ShowCardA(k);
    // A card left face down by a Smackem or Takem pick stays so, as against the computer.
    if (lblCardB[static_cast<size_t>(g_.DisplayPos(k))].caption != " ") ShowCardB(k);
  }
}

// Clicks that do not belong to the turn: side A's cards while the opponent moves, and the piles
// too when that opponent is a remote player or the computer in Learn Mode, whose move is then on
// show. A result button being up stops nothing.
bool GameModel::CardClickIgnored() const {
  return !game_running_ || g_.turn_owner != kSideA || pending_ != Pending::kNone;
}

bool GameModel::PileClickIgnored() const {
  return CardClickIgnored() && (!game_running_ || learn_mode_ || !vs_computer_);
}

bool GameModel::ClickDiscardPile() {
  if (PileClickIgnored()) return false;
  PlayClick();
  RelayClick(net::DiscardClick{});
  lblDiscardPile.marked ^= 1;
  if (lblDrawPile.marked == 1 && lblDiscardPile.marked == 1) UnmarkCardsA();
  if (lblDiscardPile.marked == 1) {
    for (int k = 1; k <= N(); ++k) {
      lblCardA[static_cast<size_t>(k)].enabled = true;
      lblCardB[static_cast<size_t>(k)].enabled = false;
    }
    RefreshSlotVisibility();
    cmdSmackemA.enabled = cmdTakemA.enabled = false;
    if (MarkedCount(lblCardA) > 0)
      MoveReady();
    else if (lblDrawPile.marked == 1 && fast_mode_)
      CompleteMoveA();  // a pass
  }
  WithdrawEmptyMove();
  return true;
}

bool GameModel::ClickDrawPile() {
  if (PileClickIgnored()) return false;
  // A special move set up can no longer be made once the card is seen; its prompt stays in view,
  // disabled, and the Discard Pile stays out of reach.
  if (selecting_ == Selecting::kSmackemA || selecting_ == Selecting::kTakemA)
    selecting_ = Selecting::kNone;
  PlayClick();
  if (vs_computer_) undo_.draw_seen[static_cast<size_t>(g_.DrawTop())] = DrawSeen::kLookedAt;
  ShowDrawLooked();
  RelayClick(net::Look{});
  return true;
}

void GameModel::ShowDrawLooked() {
  lblDiscardPile.marked = 0;
  lblDrawPile.caption = CardFace(g_.DrawTop());
  lblDrawPile.marked = 1;
  for (int k = 1; k <= N(); ++k) {
    lblCardA[static_cast<size_t>(k)].enabled = true;
    lblCardA[static_cast<size_t>(k)].marked = 0;
    lblCardB[static_cast<size_t>(k)].enabled = false;
  }
  for (Control* c : {&cmdSetupSmackemA, &cmdSetupTakemA, &cmdSmackemA, &cmdTakemA})
    c->enabled = false;
  if (!fast_mode_) Prompt(cmdPlayA);
}

bool GameModel::ClickCardA(int slot) {
  if (CardClickIgnored()) return false;
  auto& card = lblCardA[static_cast<size_t>(slot)];
  if (selecting_ == Selecting::kSwitchemA) {
    PlayClick();
    RelayClick(net::CardClick{slot});
    card.marked ^= 1;
    if (fast_mode_ && MarkedCount(lblCardA) == 2) CompleteSwitchemA();
    return true;
  }
  if (selecting_ == Selecting::kSmackemA) return false;
  if (lblDrawPile.marked == 1 && lblDiscardPile.marked == 1) {
    lblDiscardPile.marked = 0;
    RelayClick(net::DiscardClick{});
  }
  PlayClick();
  RelayClick(net::CardClick{slot});
  if (card.marked == 1) {
    card.marked = 0;
    WithdrawEmptyMove();
    return true;
  }
  UnmarkCardsA();
  card.marked = 1;
  if (selecting_ == Selecting::kTakemA && fast_mode_ && MarkedCount(lblCardB) == 1)
    return CompleteTakemA(), true;
  // A Discard Pile marked before a Takem set-up makes an ordinary move ready as well.
  if (lblDiscardPile.marked == 1 || lblDrawPile.marked == 1) MoveReady();
  return true;
}

bool GameModel::ClickCardB(int pos) {
  if (CardClickIgnored()) return false;
  if (selecting_ != Selecting::kSmackemA && selecting_ != Selecting::kTakemA) return false;
  PlayClick();
  auto& card = lblCardB[static_cast<size_t>(pos)];
  card.marked ^= 1;
  if (selecting_ == Selecting::kTakemA) {
    if (fast_mode_ && MarkedCount(lblCardA) == 1 && MarkedCount(lblCardB) == 1) CompleteTakemA();
  } else if (fast_mode_ && MarkedCount(lblCardB) == 2) {
    CompleteSmackemA();
  }
  return true;
}

// The card pop-up completes the same move as a pile click followed by a card click.
bool GameModel::CardPopup(bool discard) {
  if (CardClickIgnored() || game_over_) return false;
  const int slot = popup_slot_;
  popup_slot_ = 0;
  if (slot < 1 || slot > N() || selecting_ != Selecting::kNone) return false;
  if (discard && lblDrawPile.marked == 1) return false;
  PlayClick();
  if (!discard && lblDrawPile.marked == 0) {
    lblDrawPile.caption = CardFace(g_.DrawTop());
    lblDrawPile.marked = 1;
  }
  lblDiscardPile.marked = discard ? 1 : 0;
  UnmarkCardsA();
  lblCardA[static_cast<size_t>(slot)].marked = 1;
  CompleteMoveA();
  return true;
}

// Every move of either side is made by the referee; the counts, the move list and the
// computer's judgement follow it. A move the referee refuses changes nothing.
bool GameModel::Play(const Move& m) {
  const auto points = undo_.points.size();
  const GameState before = g_;
  KeepUndoPoint(m);
  NoteDrawSeen(m);
  if (!Apply(g_, m, platform_)) {
    undo_.points.erase(undo_.points.begin() + static_cast<std::ptrdiff_t>(points),
                       undo_.points.end());
    return false;
  }
  // A renewed Draw Pile is a fresh shuffle: nothing in it has been seen yet.
  if (g_.draw_pos < before.draw_pos) undo_.draw_seen.fill(DrawSeen::kNo);
  shown_a_.Applied(g_, m);
  if (vs_computer_) {
    seat_.Applied(g_, m);
    TakeJudgement();
  }
  // Side B's direction is no counted move: it is told with the move that follows.
  if (m.kind == MoveKind::kBackem) {
    backem_untold_ = m.side == kSideB;
    return true;
  }
  RefreshMoveCounts();
  NoteMove(before, m);
  return true;
}

// After a move: the game ends at its first result found in play, or the next turn begins.
void GameModel::NextTurnUnlessDecided() {
  if (g_.phase == Phase::kDecided) return EndIfDecided();
  if (g_.turn_owner == kSideA)
    StartTurnA();
  else
    StartTurnB();
}

bool GameModel::MoveChosen() const {
  return lblDrawPile.marked == 1 || (lblDiscardPile.marked == 1 && MarkedCount(lblCardA) > 0);
}

// Against a person an empty move would spend the turn and send nothing, and both copies would
// wait for ever: the button waits until a move is chosen. The computer sees every move.
void GameModel::WithdrawEmptyMove() {
  if (vs_computer_ || !cmdPlayA.enabled || MoveChosen()) return;
  cmdPlayA.enabled = false;
  if (Focus() == "cmdPlayA") SetFocus("");
}

void GameModel::MoveReady() {
  if (fast_mode_)
    CompleteMoveA();
  else
    Prompt(cmdPlayA);
}

void GameModel::CompleteMoveA() {
  int slot = 0;
  for (int k = N(); k >= 1 && slot == 0; --k)
    if (lblCardA[static_cast<size_t>(k)].marked == 1) slot = k;
  Move m{MoveKind::kSpendTurn, kSideA};
  if (slot > 0 && lblDiscardPile.marked == 1)
    m = {MoveKind::kTakeDiscard, kSideA, slot};
  else if (slot > 0 && lblDrawPile.marked == 1)
    m = {MoveKind::kTakeDraw, kSideA, slot};
  else if (slot == 0 && lblDrawPile.marked == 1)
    m = {MoveKind::kPass, kSideA};
  if (!Play(m)) return;
  SendMove(m);
  if (slot > 0) ShowCardA(slot);
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDiscardPile.marked = lblDrawPile.marked = 0;
  lblDiscardPile.enabled = lblDrawPile.enabled = false;
  lblDrawPile.caption = kFaceDown;
  cmdPlayA.enabled = false;
  UnmarkCardsA();
  if (cmdSmackemA.visible || cmdTakemA.visible) AbandonPick();
  NextTurnUnlessDecided();
}

// Side B's pile move, the computer's or the remote opponent's, made and shown.
void GameModel::PlayPileMoveB(const Move& m) {
  pending_ = Pending::kNone;
  if (!Play(m)) return;
  if (m.slot1 > 0) ShowCardB(m.slot1);
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDrawPile.caption = kFaceDown;
  lblDiscardPile.marked = lblDrawPile.marked = 0;
  for (int p = 1; p <= N(); ++p) lblCardB[static_cast<size_t>(p)].marked = 0;
  if (vs_computer_) {
    if (m.kind == MoveKind::kTakeDiscard) lblDiscardPile.enabled = true;
    RefreshGoodBad();
  }
  NextTurnUnlessDecided();
}

}  // namespace bq
