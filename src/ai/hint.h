#pragma once

#include "ai/expert.h"
#include "ai/seat_view.h"

namespace bq::ai {

// What side A can see on its turn: its own Stack, the Discard Pile card, and the Draw Pile card
// once it has been looked at. Nothing else goes in, so the advice cannot give away a hidden card.
struct HintView {
  const int* own = nullptr;  // slots 1..n
  int n = 10;
  int discard_top = 0;
  int drawn = 0;  // the Draw Pile card after the look; 0 before
  bool backem = false;
};

struct Advice {
  enum class Kind { kTakeDiscard, kLookAtDraw, kTakeDraw, kPass, kTakem };
  Kind kind = Kind::kLookAtDraw;
  int slot = 0;        // the slot to replace, for the two takes and Takem
  int their_slot = 0;  // Takem: the opponent's card wanted, by its place on the screen
  int their_card = 0;  // and that card, as it was shown
};

// The computer's own judgement of the Stack, formed afresh (the player's Stack changes in ways
// the computer's never does), and its own card judges, in the order of its turn. Under Backem
// the computer's direction choice decides which way the Stack is built.
Advice Advise(const HintView& v);

// The Expert's advice for side A's ordinary turn, from side A's view alone: a pile move, or a
// Takem of a card of the opponent's that has been shown.
Advice ExpertAdvice(const Expert& expert, const SeatView& v);

}  // namespace bq::ai
