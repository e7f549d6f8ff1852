// Side A's special moves (Switchem opening, Smackem, Takem) and the receiving side of the
// opponent's Smackem and Takem.
#include "ui/model/game_model.h"

namespace bq {
namespace {

constexpr const char* kSwitchemFast = "Click on 2 of your cards to swap their positions.";
constexpr const char* kSmackemFast = "Click 2 of your opponent's cards to swap their positions.";
constexpr const char* kTakemFast = "Click 1 of your cards and 1 of your opponent's to swap them.";
constexpr const char* kThenClick = "  Then click here.";

int Clamp(int slot, int n) {
  return slot < 1 ? 1 : slot > n ? n : slot;
}

}  // namespace

void GameModel::StartSwitchemA() {
  selecting_ = Selecting::kSwitchemA;
  lblDiscardPile.caption.clear();
  lblDiscardPile.enabled = lblDrawPile.enabled = false;
  for (int k = 1; k <= N(); ++k) {
    auto& a = lblCardA[static_cast<size_t>(k)];
    a.enabled = true;
    a.marked = 0;
    auto& b = lblCardB[static_cast<size_t>(k)];
    b.enabled = false;
    b.visible = judgement_shown_;
  }
  cmdSwitchemA.caption = std::string(kSwitchemFast) + (fast_mode_ ? "" : kThenClick);
  Prompt(cmdSwitchemA);
}

void GameModel::CompleteSwitchemA() {
  int first = 0, second = 0;
  for (int k = 1; k <= N(); ++k) {
    if (lblCardA[static_cast<size_t>(k)].marked == 0) continue;
    if (first == 0)
      first = k;
    else if (second == 0)
      second = k;
    else
      second = -1;
  }
  UnmarkCardsA();
  if (first == 0 || second <= 0) {
    RelayClick(net::ClearCards{});
    Prompt(cmdSwitchemA);  // not exactly two: pick again
    return;
  }
  const Move m{MoveKind::kSwitchem, kSideA, first, second};
  if (!Play(m)) return;
  ShowCardA(first);
  ShowCardA(second);
  for (int k = 1; k <= N(); ++k) lblCardA[static_cast<size_t>(k)].enabled = false;
  Hide(cmdSwitchemA);
  selecting_ = Selecting::kNone;
  lblDiscardPile.caption = CardFace(g_.discard_top);
  if (vs_computer_)
    ComputerMove();
  else
    SwitchemSent(m);
}

void GameModel::SetupSmackemA() {
  BeginPick(Selecting::kSmackemA);
}

void GameModel::SetupTakemA() {
  BeginPick(Selecting::kTakemA);
}

// Smackem picks two of the opponent's cards, Takem one of them and one of the player's own. The
// player may go straight on from one set-up to the other, and a marked Discard Pile stays marked.
void GameModel::BeginPick(Selecting kind) {
  if (selecting_ == kind) return CancelSelection();
  const bool takem = kind == Selecting::kTakemA;
  selecting_ = kind;
  Control& prompt = takem ? cmdTakemA : cmdSmackemA;
  Hide(takem ? cmdSmackemA : cmdTakemA);
  lblDiscardPile.enabled = false;
  for (int k = 1; k <= N(); ++k) {
    auto& a = lblCardA[static_cast<size_t>(k)];
    a.enabled = takem;
    a.marked = 0;
    auto& b = lblCardB[static_cast<size_t>(k)];
    Show(b, true, true);
    b.marked = 0;
    // The opponent's cards stay face down while they are picked.
    if (!learn_mode_ && !judgement_shown_) b.caption = " ";
  }
  prompt.caption = std::string(takem ? kTakemFast : kSmackemFast) + (fast_mode_ ? "" : kThenClick);
  cmdPlayA.enabled = false;
  Prompt(prompt);
}

// A completed Smackem or Takem: used up and counted; the computer judges its changed Stack anew.
// Side B's labels stay on show as the set-up left them, the changed ones with their new faces.
void GameModel::FinishPick(Control& prompt, Control& setup, std::initializer_list<int> changed) {
  selecting_ = Selecting::kNone;
  for (int p : changed)
    lblCardB[static_cast<size_t>(p)].caption = CardFace(g_.Card(kSideB, g_.DisplayPos(p)));
  for (int k = 1; k <= N(); ++k) {
    lblCardB[static_cast<size_t>(k)].marked = 0;
    lblCardB[static_cast<size_t>(k)].enabled = false;
  }
  Hide(prompt);
  Hide(setup);
  if (vs_computer_) RefreshGoodBad();
  lblDiscardPile.enabled = lblDrawPile.enabled = false;
}

// The special move set up is not made: the opponent's cards go back to how they are shown.
void GameModel::AbandonPick() {
  selecting_ = Selecting::kNone;
  Hide(cmdSmackemA);
  Hide(cmdTakemA);
  for (int k = 1; k <= N(); ++k) {
    ShowCardB(k);
    lblCardB[static_cast<size_t>(k)].marked = 0;
  }
  RefreshSlotVisibility();
}

// A second press on the set-up button gives the ordinary turn back.
void GameModel::CancelSelection() {
  AbandonPick();
  StartTurnA();
}

void GameModel::CompleteSmackemA() {
  int p1 = 0, p2 = 0;
  for (int p = 1; p <= N(); ++p) {
    if (lblCardB[static_cast<size_t>(p)].marked == 0) continue;
    if (p1 == 0)
      p1 = p;
    else if (p2 == 0)
      p2 = p;
    else
      p2 = -1;
  }
  if (p1 == 0 || p2 <= 0) {
    for (int p = 1; p <= N(); ++p) lblCardB[static_cast<size_t>(p)].marked = 0;
    Prompt(cmdSmackemA);
    return;
  }
  // The clicked positions are screen positions; the Stack itself may be held reversed.
  const Move m{MoveKind::kSmackem, kSideA, p1, p2};
  if (!Play(m)) return;
  FinishPick(cmdSmackemA, cmdSetupSmackemA, {p1, p2});
  SendMove(m);
  NextTurnUnlessDecided();
}

void GameModel::CompleteTakemA() {
  int a = 0, b = 0;
  if (MarkedCount(lblCardA) != 1 || MarkedCount(lblCardB) != 1) {
    Prompt(cmdTakemA);  // the selection is kept
    return;
  }
  for (int k = 1; k <= N(); ++k) {
    if (lblCardA[static_cast<size_t>(k)].marked == 1) a = k;
    if (lblCardB[static_cast<size_t>(k)].marked == 1) b = k;
  }
  const Move m{MoveKind::kTakem, kSideA, a, b};
  if (!Play(m)) return;
  ShowCardA(a);
  lblCardA[static_cast<size_t>(a)].marked = 0;
  FinishPick(cmdTakemA, cmdSetupTakemA, {b});
  SendMove(m);
  NextTurnUnlessDecided();
}

// The opponent's special moves from the network, held until the player acknowledges them.
void GameModel::AnnounceSmackemB(int pos1, int pos2) {
  BeginEvent();
  held_ = {MoveKind::kSmackem, kSideB, Clamp(pos1, N()), Clamp(pos2, N())};
  lblCardA[static_cast<size_t>(held_.slot1)].marked = 1;
  lblCardA[static_cast<size_t>(held_.slot2)].marked = 1;
  pending_ = Pending::kSmackem;
  Prompt(cmdSmackemB);
  EndEvent();
}

// The message names the sender's own slot first, as a move does: here a slot of side B.
void GameModel::AnnounceTakemB(int sender_pos, int receiver_pos) {
  BeginEvent();
  held_ = {MoveKind::kTakem, kSideB, Clamp(sender_pos, N()), Clamp(receiver_pos, N())};
  lblCardA[static_cast<size_t>(held_.slot2)].marked = 1;
  lblCardB[static_cast<size_t>(g_.DisplayPos(held_.slot1))].marked = 1;
  pending_ = Pending::kTakem;
  Prompt(cmdTakemB);
  EndEvent();
}

void GameModel::ApplyHeldB() {
  pending_ = Pending::kNone;
  const Move m = held_;
  if (!Play(m)) return;
  const bool takem = m.kind == MoveKind::kTakem;
  // A Smackem changed two of side A's cards, a Takem one of them.
  for (int a : {takem ? m.slot2 : m.slot1, m.slot2}) {
    ShowCardA(a);
    lblCardA[static_cast<size_t>(a)].marked = 0;
  }
  if (takem) {
    ShowCardB(m.slot1);
    lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot1))].marked = 0;
  }
  Hide(takem ? cmdTakemB : cmdSmackemB);
  Hide(takem ? cmdSetupTakemB : cmdSetupSmackemB);
  NextTurnUnlessDecided();
}

}  // namespace bq
