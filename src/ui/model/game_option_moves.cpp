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
  g_.turn_owner = kSideA;
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
  std::swap(g_.Card(kSideA, first), g_.Card(kSideA, second));
  ShowCardA(first);
  ShowCardA(second);
  for (int k = 1; k <= N(); ++k) lblCardA[static_cast<size_t>(k)].enabled = false;
  Hide(cmdSwitchemA);
  selecting_ = Selecting::kNone;
  CountMove(kSideA);
  lblDiscardPile.caption = CardFace(g_.discard_top);
  if (vs_computer_)
    ComputerSwitchemChoice();
  else
    SwitchemSent(first, second);
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
  takem_positions_ = {};
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
void GameModel::FinishPick(Control& prompt, Control& setup, std::array<bool, 3>& used,
                           std::initializer_list<int> changed) {
  selecting_ = Selecting::kNone;
  for (int p : changed)
    lblCardB[static_cast<size_t>(p)].caption = CardFace(g_.Card(kSideB, g_.DisplayPos(p)));
  for (int k = 1; k <= N(); ++k) {
    lblCardB[static_cast<size_t>(k)].marked = 0;
    lblCardB[static_cast<size_t>(k)].enabled = false;
  }
  Hide(prompt);
  Hide(setup);
  used[kSideA] = true;
  CountMove(kSideA);
  if (vs_computer_) ResetComputerJudgement();
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
  special_positions_ = {0, p1, p2};
  // The clicked positions are screen positions; the Stack itself may be held reversed.
  std::swap(g_.Card(kSideB, g_.DisplayPos(p1)), g_.Card(kSideB, g_.DisplayPos(p2)));
  FinishPick(cmdSmackemA, cmdSetupSmackemA, smackem_used_, {p1, p2});
  SendToOpponent(net::Smack{p1, p2});
  // The mover hands over first, so the test looks at the Stack that was just changed.
  g_.turn_owner = kSideB;
  TestMover();
  NextTurnUnlessDecided(kSideB);
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
  takem_positions_ = {0, a, b};
  const int slot_b = g_.DisplayPos(b);
  std::swap(g_.Card(kSideA, a), g_.Card(kSideB, slot_b));
  ShowCardA(a);
  lblCardA[static_cast<size_t>(a)].marked = 0;
  FinishPick(cmdTakemA, cmdSetupTakemA, takem_used_, {b});
  SendToOpponent(net::Take{a, b});
  // Both Stacks changed, so both are tested: an exchange can put both in order at once.
  TestBoth();
  NextTurnUnlessDecided(kSideB);
}

void GameModel::AnnounceSmackemB(int pos1, int pos2) {
  BeginEvent();
  pos1 = Clamp(pos1, N());
  pos2 = Clamp(pos2, N());
  special_positions_ = {0, pos1, pos2};
  special_cards_ = {0, g_.Card(kSideA, pos1), g_.Card(kSideA, pos2)};
  lblCardA[static_cast<size_t>(pos1)].marked = 1;
  lblCardA[static_cast<size_t>(pos2)].marked = 1;
  pending_ = Pending::kSmackem;
  Prompt(cmdSmackemB);
  EndEvent();
}

void GameModel::ApplySmackemB() {
  pending_ = Pending::kNone;
  const int p1 = special_positions_[1], p2 = special_positions_[2];
  g_.Card(kSideA, p1) = special_cards_[2];
  g_.Card(kSideA, p2) = special_cards_[1];
  ShowCardA(p1);
  ShowCardA(p2);
  lblCardA[static_cast<size_t>(p1)].marked = 0;
  lblCardA[static_cast<size_t>(p2)].marked = 0;
  Hide(cmdSmackemB);
  Hide(cmdSetupSmackemB);
  smackem_used_[kSideB] = true;
  CountMove(kSideB);
  g_.turn_owner = kSideA;
  TestMover();
  NextTurnUnlessDecided(kSideA);
}

// The message names the sender's own slot first; here that is a slot of the opponent's Stack.
void GameModel::AnnounceTakemB(int sender_pos, int receiver_pos) {
  BeginEvent();
  takem_positions_ = {0, Clamp(receiver_pos, N()), Clamp(sender_pos, N())};
  lblCardA[static_cast<size_t>(takem_positions_[1])].marked = 1;
  lblCardB[static_cast<size_t>(takem_positions_[2])].marked = 1;
  pending_ = Pending::kTakem;
  Prompt(cmdTakemB);
  EndEvent();
}

void GameModel::ApplyTakemB() {
  pending_ = Pending::kNone;
  const int a = takem_positions_[1], b = takem_positions_[2];
  std::swap(g_.Card(kSideA, a), g_.Card(kSideB, b));
  ShowCardA(a);
  ShowCardB(b);
  lblCardA[static_cast<size_t>(a)].marked = 0;
  lblCardB[static_cast<size_t>(b)].marked = 0;
  Hide(cmdTakemB);
  Hide(cmdSetupTakemB);
  takem_used_[kSideB] = true;
  CountMove(kSideB);
  g_.turn_owner = kSideA;
  TestBoth();
  NextTurnUnlessDecided(kSideA);
}

}  // namespace bq
