#pragma once

#include <memory>

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

enum class PlayerKind { kClassic, kExpert };
// Side A's player first.
using Players = std::array<PlayerKind, 2>;
inline constexpr Players kClassicPair{PlayerKind::kClassic, PlayerKind::kClassic};

// One seat's computer, whichever kind it is.
class Player {
 public:
  virtual ~Player() = default;
  virtual void NewGame(const GameState& g) = 0;
  virtual Move Choose(const GameState& g, Rng& rng) = 0;
  virtual void Applied(const GameState& g, const Move& m) = 0;
};
// The Expert is told when the other seat is the Classic computer.
std::unique_ptr<Player> MakePlayer(PlayerKind kind, int side, PlayerKind opponent);

// Games of the computer against a second computer in side A's seat, headless, one after the
// other as a player's session would have them (the deck carries over from game to game). Each
// seat chooses its moves with the computer's own judgement; the referee applies them.
class Match {
 public:
  Match(const OptionChoice& options, Rng& rng, int move_cap, const Players& players = kClassicPair);
  GameRecord PlayGame(MoveObserver* observer = nullptr);

 private:
  void SetUpOptions();

  OptionChoice choice_;
  Rng& rng_;
  int move_cap_;
  GameState g_;
  OptionSet options_{};
  std::array<std::unique_ptr<Player>, 2> seats_;
};

}  // namespace bq::selfplay
