#pragma once

#include "ai/computer_seat.h"

namespace bq::selfplay {

// Play options of one game; `random` draws the other five afresh for each game.
struct OptionChoice {
  OptionSet fixed{};
  bool random = false;
};

struct GameRecord {
  OptionSet options{};      // as played (drawn, with Random)
  int result = kUndecided;  // kUndecided: stopped at the move cap
  int first_mover = 0;      // 0 when the deal or the Switchem opening decided the game
  int moves_a = 0;
  int moves_b = 0;
  int moves() const { return moves_a + moves_b; }
};

// Told of every applied move, for tests that follow the game as it goes.
class MoveObserver {
 public:
  virtual ~MoveObserver() = default;
  virtual void Applied(const Move& m, const GameState& after) = 0;
};

// Games of the computer against a second computer in side A's seat, headless, one after the
// other as a player's session would have them (the deck carries over from game to game). Each
// seat chooses its moves with the computer's own judgement; the referee applies them.
class Match {
 public:
  Match(const OptionChoice& options, Rng& rng, int move_cap);
  GameRecord PlayGame(MoveObserver* observer = nullptr);

 private:
  void SetUpOptions();

  OptionChoice choice_;
  Rng& rng_;
  int move_cap_;
  GameState g_;
  OptionSet options_{};
  std::array<ai::ComputerSeat, 2> seats_{ai::ComputerSeat(kSideA), ai::ComputerSeat(kSideB)};
};

}  // namespace bq::selfplay
