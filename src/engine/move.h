#pragma once

#include <string>

namespace bq {

struct GameState;

enum class MoveKind {
  kTakeDiscard,  // slot1: own slot that receives the Discard Pile card
  kTakeDraw,     // slot1: own slot that receives the Draw Pile card
  kPass,         // the looked-at Draw Pile card goes onto the Discard Pile
  kSpendTurn,    // side A completed its move with nothing chosen: only the turn is spent
  kSwitchem,     // slot1, slot2: own slots swapped in the opening (side B: 0, 0 keeps the Stack)
  kSmackem,      // slot1, slot2: two of the opponent's cards swapped
  kTakem,        // slot1: own card given, slot2: the opponent's card taken
  kBackem,       // the side aims for descending order from now on
};

// One move of one side, as a plain value. Side A names the opponent's cards where they are
// shown (display positions, as clicked and as sent to a remote opponent); side B names every
// card by its slot as the game holds it. Own slots are always slots.
struct Move {
  MoveKind kind = MoveKind::kPass;
  int side = 0;
  int slot1 = 0;
  int slot2 = 0;

  friend bool operator==(const Move&, const Move&) = default;
};

// "B draw 4", "A smackem 2 9": short, for logs and test messages.
std::string ToString(const Move& m);

// The move in words, naming the cards as they stand in `before`, the position it is made in:
// "B takes 47 from the Discard Pile in place of its 12."
std::string Describe(const GameState& before, const Move& m);

}  // namespace bq
