#pragma once

#include <array>
#include <string>

#include "engine/cards.h"
#include "engine/rng.h"

namespace bq {

inline constexpr int kSideA = 1;
inline constexpr int kSideB = 2;

// Turn results of the order tests.
inline constexpr int kUndecided = 0;
inline constexpr int kAInOrder = 1;
inline constexpr int kBInOrder = 2;
inline constexpr int kTie = 3;

// Index order of the five play options wherever they travel together.
enum Option { kStackem = 0, kBackem, kSwitchem, kSmackem, kTakem, kOptionCount };
using OptionSet = std::array<bool, kOptionCount>;

// Where a game stands for the referee. Nothing is legal once a game is decided.
enum class Phase { kOpening, kPlay, kDecided };

// The cards of one game: deck, both Stacks, both piles and the turn counters. A plain value, so a
// position can be copied, compared and printed.
struct GameState {
  std::array<int, kDeckSize + 1> deck{};  // 1..100; keeps its order from game to game
  // [side][slot]; side B's slots 0 and StackSize + 1 hold the sentinels 0 and 101.
  std::array<std::array<int, kMaxStackSize + 2>, 3> stacks{};
  int stack_size = 10;
  int slot_span = 10;
  int draw_count = kDeckSize - 2 * 10 - 1;
  std::array<int, kDeckSize> draw_cards{};  // 1..draw_count, in dealing order
  int draw_pos = 1;
  int discard_top = 0;
  std::array<int, kDeckSize> buried{};  // covered Discard Pile cards, 1..buried_count
  int buried_count = 0;
  int turn_owner = kSideA;
  int turn_result = kUndecided;
  int move_count_a = 0;
  int move_count_b = 0;
  bool opponent_row_reversed = false;

  // What it takes to judge a move: set when a game begins, changed only by Apply (rules.h).
  OptionSet options{};
  Phase phase = Phase::kPlay;
  int first_side = 0;  // 0: side A opens and the first mover is drawn; else this side begins both
  std::array<bool, 3> smackem_used{};  // [side]
  std::array<bool, 3> takem_used{};
  // Side A aims for descending order. Unlike side B's, its Stack is never turned round.
  bool a_reversed = false;

  // The load-time set-up: deck in order, sentinels, Draw Pile size for the current Stack size.
  void Init();
  // Stackem switched on recomputes the Draw Pile size; switched off it deliberately does not, so
  // a 10-card game after Stackem on-and-off deals only 59 Draw Pile cards.
  void StackemOn();
  void StackemOff();

  int DrawTop() const { return draw_cards[static_cast<size_t>(draw_pos)]; }
  int& Card(int side, int slot) {
    return stacks[static_cast<size_t>(side)][static_cast<size_t>(slot)];
  }
  int Card(int side, int slot) const {
    return stacks[static_cast<size_t>(side)][static_cast<size_t>(slot)];
  }
  // The lblCardB position that shows slot (and the slot shown at a position: the map is its own
  // inverse).
  int DisplayPos(int slot) const { return opponent_row_reversed ? stack_size + 1 - slot : slot; }
  // Reverses side B's slots 1..StackSize in place.
  void ReverseSideB();

  std::string ToString() const;
};

// The five independent one-in-three draws of the Random option, in the order of Option.
OptionSet PickRandomOptions(Rng& rng);

// Shuffles and deals both Stacks, the Discard Pile card and DrawCount Draw Pile cards, and clears
// the counts and the result; side A is to open.
void ShuffleAndDeal(GameState& g, Rng& rng);

}  // namespace bq
