#pragma once

#include "ai/judgement.h"
#include "engine/game_state.h"

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

// Told of every completed move, for tests that check the game as it goes.
class MoveObserver {
 public:
  virtual ~MoveObserver() = default;
  // `opening`: a Switchem swap before play, after which the turn is not simply handed over.
  virtual void AfterMove(const GameState& g, int mover, bool opening) = 0;
};

// Games of the computer against a second computer in side A's seat, headless, one after the
// other as a player's session would have them (the deck carries over from game to game). Both
// sides decide with the computer's own judgement and moves; side A's moves follow the rules of
// its seat (two different cards for its Switchem, the opponent's row as shown for Smackem and
// Takem).
class Match {
 public:
  Match(const OptionChoice& options, Rng& rng, int move_cap);
  GameRecord PlayGame(MoveObserver* observer = nullptr);

 private:
  bool On(Option o) const { return options_[o]; }
  int N() const { return g_.stack_size; }
  // A side's Stack in the orientation its judgement works in. Side B's is held that way in the
  // game itself, as the window holds it; side A's is a mirrored copy when it plays reversed.
  const int* Own(int side);
  int SlotA(int own_slot) const { return reversed_a_ ? N() + 1 - own_slot : own_slot; }
  void Rejudge(int side);
  void Reverse(int side);
  void SetUpOptions();
  void Opening();
  void Turn(int side);
  void Count(int side);
  void Moved(int mover, int next);

  OptionChoice choice_;
  Rng& rng_;
  int move_cap_;
  GameState g_;
  OptionSet options_{};
  std::array<ai::Judgement, 3> judge_;  // [side]
  std::array<int, kMaxStackSize + 2> view_a_{};
  bool reversed_a_ = false;
  std::array<bool, 3> first_turn_{};
  std::array<bool, 3> smackem_used_{};
  std::array<bool, 3> takem_used_{};
  MoveObserver* observer_ = nullptr;
};

}  // namespace bq::selfplay
