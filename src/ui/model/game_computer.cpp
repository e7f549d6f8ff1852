// The computer's side of the game: its ordinary turn, its opening choices and its special moves.
// A whole turn runs inside the event that ended the player's move; it stops only to show a move
// and wait for its "Click here to continue" button.
#include "ai/decisions.h"
#include "ui/model/game_model.h"

namespace bq {

void GameModel::SyncJudgement() {
  judge_.SetStack(N(), g_.stacks[kSideB].data());
  judge_.slot_span = g_.slot_span;
}

// Every marking pass ends with the judgement display brought up to date.
void GameModel::BringJudgementUpToDate() {
  judge_.UpdateJudgement();
  RefreshGoodBad();
}

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
  card_in_hand_ = g_.discard_top;
  const ai::CardChoice choice = ai::JudgeCard(judge_, card_in_hand_);
  if (choice.wanted) {
    chosen_slot_ = choice.slot;
    replaced_card_ = g_.Card(kSideB, chosen_slot_);
    if (!fast_mode_ && learn_mode_) {
      lblDiscardPile.marked = 1;
      lblCardB[static_cast<size_t>(g_.DisplayPos(chosen_slot_))].marked = 1;
      pending_ = Pending::kDiscard;
      Prompt(cmdCTakesDiscard);
      return;
    }
    CompleteComputerDiscard();
    return;
  }
  if (ComputerTakemDecision() || ComputerSmackemDecision()) return;
  ComputerDrawStep();
}

void GameModel::CompleteComputerDiscard() {
  pending_ = Pending::kNone;
  g_.Card(kSideB, chosen_slot_) = card_in_hand_;
  ShowCardB(chosen_slot_);
  DiscardReplaced(g_, replaced_card_);
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDiscardPile.enabled = true;
  lblDiscardPile.marked = 0;
  lblCardB[static_cast<size_t>(g_.DisplayPos(chosen_slot_))].marked = 0;
  EndOfMoveB();
}

void GameModel::ComputerDrawStep() {
  card_in_hand_ = g_.DrawTop();
  ai::CardChoice choice = ai::JudgeCard(judge_, card_in_hand_);
  if (!choice.wanted) choice = ai::JudgeDrawCard(judge_, card_in_hand_);
  if (!choice.wanted) {
    // Shown in every mode, so the player always sees the card the computer turned down.
    lblDrawPile.caption = CardFace(card_in_hand_);
    lblDiscardPile.enabled = lblDrawPile.enabled = false;
    pending_ = Pending::kNothing;
    Prompt(cmdCTakesNothing);
    return;
  }
  chosen_slot_ = choice.slot;
  replaced_card_ = g_.Card(kSideB, chosen_slot_);
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
  g_.Card(kSideB, chosen_slot_) = card_in_hand_;
  ShowCardB(chosen_slot_);
  Bury(g_);
  DiscardReplaced(g_, replaced_card_);
  AdvanceDrawPile();
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDrawPile.marked = 0;
  lblCardB[static_cast<size_t>(g_.DisplayPos(chosen_slot_))].marked = 0;
  EndOfMoveB();
}

void GameModel::CompleteComputerNothing() {
  pending_ = Pending::kNone;
  Bury(g_);
  DiscardDrawn(g_);
  AdvanceDrawPile();
  lblDiscardPile.caption = CardFace(g_.discard_top);
  EndOfMoveB();
}

// Side B's card labels are on show during the computer's special moves when the player watches.
static bool ShowB(bool judgement_shown, bool learn_mode) {
  return judgement_shown || learn_mode;
}

bool GameModel::ComputerTakemDecision() {
  if (!Checked(kTakem) || takem_used_[kSideB] || !ai::WantsTakem(judge_)) return false;
  takem_used_[kSideB] = true;  // deciding uses the move up, whatever it brings
  const float r = g_.opponent_row_reversed ? platform_.Uniform() : 0.0f;
  const ai::TakemChoice choice = ai::ChooseTakem(judge_, g_.opponent_row_reversed, r);
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
  return true;
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
  // Its own exchange is judged from scratch, but the counts go on adding up.
  SyncJudgement();
  ClearComputerMarks();
  judge_.ResetRanges();
  BringJudgementUpToDate();
  CountMove(kSideB);
  RefreshSlotVisibility();
  TestBothStacks(g_, Backem());
  NextTurnUnlessDecided(kSideA);
}

bool GameModel::ComputerSmackemDecision() {
  if (!Checked(kSmackem) || smackem_used_[kSideB] || !ai::WantsSmackem(judge_)) return false;
  smackem_used_[kSideB] = true;
  const float r1 = platform_.Uniform();
  const float r2 = platform_.Uniform();
  const ai::SmackemChoice choice = ai::ChooseSmackem(card_in_hand_, N(), r1, r2);
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
  return true;
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
  TestOneStack(g_, Backem());
  NextTurnUnlessDecided(kSideA);
}

void GameModel::ComputerDirectionChoice() {
  if (!Checked(kSwitchem)) {
    SyncJudgement();
    ai::Judgement last_trial;
    const bool reverse = ai::ChooseReversal(judge_, g_.discard_top, &last_trial);
    judge_ = last_trial;
    SyncJudgement();  // the Stack as it stands, not as the last trial arranged it
    BringJudgementUpToDate();
    g_.opponent_row_reversed = reverse;
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
  SyncJudgement();
  ai::Judgement last_trial;
  const ai::SwitchChoice choice = ai::ChooseSwitchem(judge_, Backem(), &last_trial);
  g_.opponent_row_reversed = choice.reversed;
  // The computer now works on the reversed Stack; on screen nothing moves.
  if (choice.reversed) g_.ReverseSideB();
  judge_ = last_trial;
  SyncJudgement();
  judge_.ResetRanges();
  BringJudgementUpToDate();
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
  SyncJudgement();
  judge_.ResetRanges();
  BringJudgementUpToDate();
  RefreshSlotVisibility();
  CountMove(kSideB);
  // Play starts whatever the order test found: a result button may already be up.
  TestBothStacks(g_, Backem());
  EndIfDecided();
  StartOfPlay();
}

}  // namespace bq
