#pragma once

#include "ai/decisions.h"
#include "engine/game_state.h"

namespace bq::ai {

// The computer's side of a game without its display: when it judges its Stack and what it
// decides on its turn. The game window and self-play both call these, in the same places, so a
// computer plays the same moves whichever of them runs it.

// What one side sees at the start of its turn, beside its judgement of its own Stack.
struct TurnView {
  int n = 10;
  int discard_top = 0;
  int draw_top = 0;         // looked at only when the Discard Pile card is declined
  bool takem_open = false;  // the option is on and the move unused
  bool smackem_open = false;
  bool own_row_reversed = false;
};

// The piles as they lie in `g`.
TurnView ViewOfTurn(const GameState& g, bool takem_open, bool smackem_open, bool own_row_reversed);

struct TurnDecision {
  enum class Kind { kDiscard, kDraw, kNothing, kTakem, kSmackem };
  Kind kind = Kind::kNothing;
  int slot = 0;          // own slot for a take
  int card_in_hand = 0;  // the card considered last
  TakemChoice takem;
  SmackemChoice smackem;
};

// From scratch: marks "0", counts 0, base ranges, brought up to date. At the deal, and whenever
// the Stack changes by anything but the computer's own ordinary move.
void Rejudge(Judgement& j, int n, const int* own);
// The state the first turn starts from: judged at the deal, then every mark cleared (the
// counts stay).
void JudgeDeal(Judgement& j, int n, const int* own);
// After each of its ordinary moves.
void UpdateAfterMove(Judgement& j, int n, const int* own);
// After its own Takem, which changed its Stack by the exchange: judged from scratch, but the
// counts go on.
void AfterTakem(Judgement& j, int n, const int* own);

// The whole ordinary turn, judged as the judgement stands: the Discard Pile card, then Takem,
// then Smackem, then the Draw Pile card. Draws from `rng` only for a Takem with the row reversed
// (one number) and for a Smackem (two).
TurnDecision DecideTurn(Judgement& j, const TurnView& v, Rng& rng);

// The first turn under Backem without Switchem: true = play the Stack reversed. The caller
// reverses it and rejudges.
bool DecideDirection(Judgement& j, int n, const int* own, int discard_top);

// The Switchem opening. The caller reverses the Stack when the choice says so and brings the
// judgement up to date with AfterOpening, and again after swapping p and q.
SwitchChoice DecideOpening(Judgement& j, int n, const int* own, bool backem);
void AfterOpening(Judgement& j, int n, const int* own);

}  // namespace bq::ai
