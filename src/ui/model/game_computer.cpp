// The computer's side of the game: its ordinary turn, its opening choices and its special moves.
// A whole turn runs inside the event that ended the player's move; it stops only to show a move
// and wait for its "Click here to continue" button.
#include "ai/turn.h"
#include "ui/model/game_model.h"

namespace bq {

void GameModel::ClearComputerMarks() {
  for (int k = 1; k <= N(); ++k) judge_.m[static_cast<size_t>(k)] = '0';
}

void GameModel::RefreshGoodBad() {
  for (int k = 1; k <= N(); ++k) {
    auto& label = lblGoodBad[static_cast<size_t>(g_.DisplayPos(k))];
    label.caption = std::string(1, judge_.m[static_cast<size_t>(k)]);
    label.visible = judgement_shown_;
  }
}

void GameModel::StartComputerTurn() {
  for (int k = 1; k <= N(); ++k) {
    lblCardA[static_cast<size_t>(k)].marked = 0;
    lblCardB[static_cast<size_t>(k)].marked = 0;
    ShowCardA(k);
  }
  if (first_turn_ && Backem())
    ComputerDirectionChoice();
  else
    OrdinaryComputerTurn();
}

void GameModel::OrdinaryComputerTurn() {
  first_turn_ = false;
  g_.turn_owner = kSideB;
  const ai::TurnView view =
      ai::ViewOfTurn(g_, Checked(kTakem) && !takem_used_[kSideB],
                     Checked(kSmackem) && !smackem_used_[kSideB], g_.opponent_row_reversed);
  const ai::TurnDecision d = ai::DecideTurn(judge_, view, platform_);
  card_in_hand_ = d.card_in_hand;
  chosen_slot_ = d.slot;
  if (chosen_slot_ > 0) replaced_card_ = g_.Card(kSideB, chosen_slot_);
  switch (d.kind) {
    case ai::TurnDecision::Kind::kDiscard:
      if (!fast_mode_ && learn_mode_) {
        lblDiscardPile.marked = 1;
        lblCardB[static_cast<size_t>(g_.DisplayPos(chosen_slot_))].marked = 1;
        pending_ = Pending::kDiscard;
        Prompt(cmdCTakesDiscard);
        return;
      }
      return CompleteComputerDiscard();
    case ai::TurnDecision::Kind::kTakem:
      return ShowComputerTakem(d.takem);
    case ai::TurnDecision::Kind::kSmackem:
      return ShowComputerSmackem(d.smackem);
    case ai::TurnDecision::Kind::kDraw:
      return ShowComputerDraw();
    case ai::TurnDecision::Kind::kNothing:
      // Shown in every mode, so the player always sees the card the computer turned down.
      lblDrawPile.caption = CardFace(card_in_hand_);
      lblDiscardPile.enabled = lblDrawPile.enabled = false;
      pending_ = Pending::kNothing;
      Prompt(cmdCTakesNothing);
      return;
  }
}

void GameModel::CompleteComputerDiscard() {
  pending_ = Pending::kNone;
  TakeDiscard(g_, kSideB, chosen_slot_);
  ShowCardB(chosen_slot_);
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDiscardPile.enabled = true;
  lblDiscardPile.marked = 0;
  lblCardB[static_cast<size_t>(g_.DisplayPos(chosen_slot_))].marked = 0;
  EndOfMoveB();
}

void GameModel::ShowComputerDraw() {
  if (!fast_mode_ && learn_mode_) {
    lblDiscardPile.enabled = false;
    lblDrawPile.caption = CardFace(card_in_hand_);
    lblDrawPile.enabled = true;
    lblDrawPile.marked = 1;
    lblCardB[static_cast<size_t>(g_.DisplayPos(chosen_slot_))].marked = 1;
    pending_ = Pending::kDraw;
    Prompt(cmdCTakesDraw);
    return;
  }
  CompleteComputerDraw();
}

void GameModel::CompleteComputerDraw() {
  pending_ = Pending::kNone;
  TakeDraw(g_, kSideB, chosen_slot_, platform_);
  ShowCardB(chosen_slot_);
  lblDrawPile.caption = kFaceDown;
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDrawPile.marked = 0;
  lblCardB[static_cast<size_t>(g_.DisplayPos(chosen_slot_))].marked = 0;
  EndOfMoveB();
}

void GameModel::CompleteComputerNothing() {
  pending_ = Pending::kNone;
  PassDraw(g_, platform_);
  lblDrawPile.caption = kFaceDown;
  lblDiscardPile.caption = CardFace(g_.discard_top);
  EndOfMoveB();
}

// Side B's card labels are on show during the computer's special moves when the player watches.
static bool ShowB(bool judgement_shown, bool learn_mode) {
  return judgement_shown || learn_mode;
}

void GameModel::ShowComputerTakem(const ai::TakemChoice& choice) {
  takem_used_[kSideB] = true;  // deciding uses the move up, whatever it brings
  take_slot_ = choice.take_slot;
  give_slot_ = choice.give_slot;
  taken_card_ = g_.Card(kSideA, take_slot_);
  given_card_ = g_.Card(kSideB, give_slot_);
  lblDiscardPile.enabled = lblDrawPile.enabled = false;
  for (int k = 1; k <= N(); ++k) {
    Show(lblCardA[static_cast<size_t>(k)], true, true);
    auto& b = lblCardB[static_cast<size_t>(k)];
    b.visible = ShowB(judgement_shown_, learn_mode_);
    b.enabled = learn_mode_;
  }
  lblCardA[static_cast<size_t>(take_slot_)].marked = 1;
  lblCardB[static_cast<size_t>(g_.DisplayPos(give_slot_))].marked = 1;
  pending_ = Pending::kTakem;
  Prompt(cmdTakemC);
}

void GameModel::ApplyComputerTakem() {
  pending_ = Pending::kNone;
  const int p = g_.DisplayPos(give_slot_);
  g_.Card(kSideA, take_slot_) = given_card_;
  g_.Card(kSideB, give_slot_) = taken_card_;
  ShowCardA(take_slot_);
  lblCardB[static_cast<size_t>(p)].caption = CardFace(taken_card_);
  lblCardA[static_cast<size_t>(take_slot_)].marked = 0;
  lblCardB[static_cast<size_t>(p)].marked = 0;
  Show(cmdSetupTakemB, false, false);
  ai::AfterTakem(judge_, N(), g_.stacks[kSideB].data());
  RefreshGoodBad();
  CountMove(kSideB);
  RefreshSlotVisibility();
  TestBoth();
  NextTurnUnlessDecided(kSideA);
}

void GameModel::ShowComputerSmackem(const ai::SmackemChoice& choice) {
  smackem_used_[kSideB] = true;
  smack_slot1_ = choice.slot1;
  smack_slot2_ = choice.slot2;
  smack_card1_ = g_.Card(kSideA, smack_slot1_);
  smack_card2_ = g_.Card(kSideA, smack_slot2_);
  lblDiscardPile.enabled = lblDrawPile.enabled = false;
  for (int k = 1; k <= N(); ++k) {
    Show(lblCardA[static_cast<size_t>(k)], true, true);
    auto& b = lblCardB[static_cast<size_t>(k)];
    b.visible = ShowB(judgement_shown_, learn_mode_);
    b.enabled = false;
  }
  lblCardA[static_cast<size_t>(smack_slot1_)].marked = 1;
  lblCardA[static_cast<size_t>(smack_slot2_)].marked = 1;
  pending_ = Pending::kSmackem;
  Prompt(cmdSmackemC);
}

void GameModel::ApplyComputerSmackem() {
  pending_ = Pending::kNone;
  g_.Card(kSideA, smack_slot1_) = smack_card2_;
  g_.Card(kSideA, smack_slot2_) = smack_card1_;
  ShowCardA(smack_slot1_);
  ShowCardA(smack_slot2_);
  lblCardA[static_cast<size_t>(smack_slot1_)].marked = 0;
  lblCardA[static_cast<size_t>(smack_slot2_)].marked = 0;
  Show(cmdSetupSmackemB, false, false);
  CountMove(kSideB);
  RefreshSlotVisibility();
  g_.turn_owner = kSideA;
  // The swap may put the player's Stack in order: the computer then hands over the game.
  TestMover();
  NextTurnUnlessDecided(kSideA);
}

void GameModel::ComputerDirectionChoice() {
  if (!Checked(kSwitchem)) {
    g_.opponent_row_reversed =
        ai::DecideDirection(judge_, N(), g_.stacks[kSideB].data(), g_.discard_top);
    RefreshGoodBad();
  }
  if (!g_.opponent_row_reversed) {
    OrdinaryComputerTurn();
    return;
  }
  if (learn_mode_) {
    pending_ = Pending::kBackem;
    Prompt(cmdBackemC);
    return;
  }
  ApplyComputerReversal();
}

void GameModel::ApplyComputerReversal() {
  pending_ = Pending::kNone;
  // With Switchem on, the opening holds the Stack reversed already.
  if (!Checked(kSwitchem)) g_.ReverseSideB();
  ResetComputerJudgement();
  OrdinaryComputerTurn();
}

void GameModel::ComputerSwitchemChoice() {
  g_.turn_owner = kSideB;
  const ai::SwitchChoice choice =
      ai::DecideOpening(judge_, N(), g_.stacks[kSideB].data(), Backem());
  g_.opponent_row_reversed = choice.reversed;
  // The computer now works on the reversed Stack; on screen nothing moves.
  if (choice.reversed) g_.ReverseSideB();
  ai::AfterOpening(judge_, N(), g_.stacks[kSideB].data());
  RefreshGoodBad();
  switch_pos_a_ = choice.p;
  switch_pos_b_ = choice.q;
  if (switch_pos_a_ > 0) lblCardB[static_cast<size_t>(g_.DisplayPos(switch_pos_a_))].marked = 1;
  if (switch_pos_b_ > 0) lblCardB[static_cast<size_t>(g_.DisplayPos(switch_pos_b_))].marked = 1;
  if (learn_mode_) {
    pending_ = Pending::kSwitchem;
    Prompt(cmdSwitchemC);
    return;
  }
  ApplyComputerSwitchem();
}

void GameModel::ApplyComputerSwitchem() {
  pending_ = Pending::kNone;
  const int p = switch_pos_a_, q = switch_pos_b_;
  if (p > 0 && q > 0) {
    std::swap(g_.Card(kSideB, p), g_.Card(kSideB, q));
    ShowCardB(p);
    ShowCardB(q);
    lblCardB[static_cast<size_t>(g_.DisplayPos(p))].marked = 0;
    lblCardB[static_cast<size_t>(g_.DisplayPos(q))].marked = 0;
  }
  ai::AfterOpening(judge_, N(), g_.stacks[kSideB].data());
  RefreshGoodBad();
  RefreshSlotVisibility();
  CountMove(kSideB);
  // Play starts whatever the order test found: a result button may already be up.
  TestBoth();
  EndIfDecided();
  StartOfPlay();
}

}  // namespace bq
