#pragma once

#include <array>
#include <optional>
#include <vector>

#include "ai/judgement.h"
#include "ai/seat_view.h"

namespace bq::ai {

// For each card 1..100, how likely the Classic computer opposite is to take it from the Discard
// Pile on its next turn.
using Appetite = std::array<float, kDeckSize + 1>;

// What one seat can tell of the Classic computer opposite from its moves alone. Its rules are
// known, so its hidden cards are guessed from the cards nobody in this seat has seen, and its
// judgement is replayed through its moves on each guess; the guesses that explain its moves
// best are the ones that count.
class ClassicGuess {
 public:
  explicit ClassicGuess(int their_side) : side_(their_side) {}

  void NewGame(const GameState& g);
  // `after` is read only for what every seat sees: the Discard Pile card.
  void Applied(const GameState& after, const Move& m);
  // Nothing is guessed once a Stack has changed by anything but an ordinary move, nor in games
  // whose options would make the Classic computer's judgement more than this replays.
  std::optional<Appetite> Estimate(const SeatView& v);

 private:
  struct Turn {
    MoveKind kind;
    int slot;
    int offered;   // the Discard Pile card it was offered
    int revealed;  // the card it put on the Discard Pile
  };
  // How many of its moves the guess `value` would not have made, counted until they pass
  // `limit`; leaves its judgement and Stack.
  int Replay(const std::vector<int>& value, int limit, Judgement& j, StackCards& stack) const;

  int side_;
  int n_ = 10;
  bool usable_ = false;
  int discard_top_ = 0;
  std::vector<Turn> turns_;
  std::vector<int> last_;  // the guess the last estimate ended on
};

}  // namespace bq::ai
