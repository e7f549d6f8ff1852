#include "ai/turn.h"

namespace bq::ai {

namespace {

void ClearSlotMarks(Judgement& j) {
  for (int k = 1; k <= j.n; ++k) j.m[k] = '0';
}

}  // namespace

TurnView ViewOfTurn(const GameState& g, bool takem_open, bool smackem_open, bool own_row_reversed) {
  TurnView v;
  v.n = g.stack_size;
  v.discard_top = g.discard_top;
  v.draw_top = g.DrawTop();
  v.takem_open = takem_open;
  v.smackem_open = smackem_open;
  v.own_row_reversed = own_row_reversed;
  return v;
}

void Rejudge(Judgement& j, int n, const int* own) {
  j.SetStack(n, own);
  j.ClearMarks();
  j.ResetRanges();
  j.UpdateJudgement();
}

void JudgeDeal(Judgement& j, int n, const int* own) {
  Rejudge(j, n, own);
  ClearSlotMarks(j);
}

void UpdateAfterMove(Judgement& j, int n, const int* own) {
  j.SetStack(n, own);
  j.UpdateJudgement();
}

// The changed Stack is judged from scratch, but the counts go on adding up.
void AfterTakem(Judgement& j, int n, const int* own) {
  j.SetStack(n, own);
  ClearSlotMarks(j);
  j.ResetRanges();
  j.UpdateJudgement();
}

TurnDecision DecideTurn(Judgement& j, const TurnView& v, Rng& rng) {
  using Kind = TurnDecision::Kind;
  TurnDecision d;
  d.card_in_hand = v.discard_top;
  CardChoice choice = JudgeCard(j, d.card_in_hand);
  if (choice.wanted) {
    d.kind = Kind::kDiscard;
    d.slot = choice.slot;
    return d;
  }
  if (v.takem_open && WantsTakem(j)) {
    const float r = v.own_row_reversed ? rng.Uniform() : 0.0f;
    d.kind = Kind::kTakem;
    d.takem = ChooseTakem(j, v.own_row_reversed, r);
    return d;
  }
  if (v.smackem_open && WantsSmackem(j)) {
    const float r1 = rng.Uniform();
    const float r2 = rng.Uniform();
    d.kind = Kind::kSmackem;
    d.smackem = ChooseSmackem(d.card_in_hand, v.n, r1, r2);
    return d;
  }
  d.card_in_hand = v.draw_top;
  choice = JudgeCard(j, d.card_in_hand);
  if (!choice.wanted) choice = JudgeDrawCard(j, d.card_in_hand);
  d.kind = choice.wanted ? Kind::kDraw : Kind::kNothing;
  d.slot = choice.slot;
  return d;
}

// The trials are made on the computer's own judgement, and it goes on from what the last one
// left, with the Stack as it stands rather than as that trial arranged it.
bool DecideDirection(Judgement& j, int n, const int* own, int discard_top) {
  j.SetStack(n, own);
  Judgement last_trial;
  const bool reversed = ChooseReversal(j, discard_top, &last_trial);
  j = last_trial;
  UpdateAfterMove(j, n, own);
  return reversed;
}

SwitchChoice DecideOpening(Judgement& j, int n, const int* own, bool backem) {
  j.SetStack(n, own);
  Judgement last_trial;
  const SwitchChoice choice = ChooseSwitchem(j, backem, &last_trial);
  j = last_trial;
  return choice;
}

void AfterOpening(Judgement& j, int n, const int* own) {
  j.SetStack(n, own);
  j.ResetRanges();
  j.UpdateJudgement();
}

}  // namespace bq::ai
