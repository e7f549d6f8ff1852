#pragma once

#include <array>
#include <vector>

#include "engine/game_state.h"
#include "engine/move.h"

namespace bq::ai {

using StackCards = std::array<int, kMaxStackSize + 2>;

// What a player in one seat can know, and nothing more: its own Stack, the Discard Pile card, the
// Draw Pile card once looked at, the opponent's cards that have been shown, the cards out of
// play, and which cards nobody in this seat has seen. The Expert decides from this value alone.
struct SeatView {
  int side = kSideB;
  int stack_size = 10;
  OptionSet options{};
  Phase phase = Phase::kPlay;
  int turn_owner = kSideA;
  StackCards own{};     // slots as the game holds them
  StackCards theirs{};  // the opponent's shown cards by slot; 0 where face down
  int discard_top = 0;
  int draw_top = 0;  // 0 until looked at
  int draw_left = 0;
  std::vector<int> unseen;  // ascending
  int move_count_a = 0;
  int move_count_b = 0;
  std::array<bool, 3> smackem_used{};
  std::array<bool, 3> takem_used{};
  bool a_reversed = false;
  bool opponent_row_reversed = false;

  friend bool operator==(const SeatView&, const SeatView&) = default;
};

// The opponent's cards one seat has seen, by slot, kept up to date from the moves as they are
// made: a card taken from the Discard Pile, a card given by Takem, and where Switchem, Smackem
// and a Backem reversal move them.
class ShownCards {
 public:
  explicit ShownCards(int side) : side_(side) {}
  void NewGame() { cards_.fill(0); }
  // `after` is the game once `m` was applied; only cards that were face up are read from it.
  void Applied(const GameState& after, const Move& m);
  const StackCards& cards() const { return cards_; }

 private:
  int side_;
  StackCards cards_{};
};

// The seat's view of `g`. `looked`: the Draw Pile card has been turned over for this seat.
SeatView ViewOf(const GameState& g, int side, const ShownCards& shown, bool looked);

// A game holding only what the view knows: face-down cards and the unseen Draw Pile are 0.
GameState PublicState(const SeatView& v);

}  // namespace bq::ai
