#pragma once

#include <array>

#include "ai/judgement.h"
#include "ai/turn.h"
#include "engine/rules.h"

namespace bq::ai {

// The computer in one seat of a game: its judgement of its own Stack, brought up to date at the
// moments the rules list, and the moves it chooses. In side A's seat it keeps to that seat's
// rules (two different cards for its Switchem) and plays a reversed direction in its own view
// only, since side A's Stack is never turned round.
class ComputerSeat {
 public:
  explicit ComputerSeat(int side) : side_(side) {}

  // At the deal.
  void NewGame(const GameState& g);
  // Its move when the game waits for this side. A reversal under Backem is a move of its own,
  // followed by the move it belongs to.
  Move Choose(const GameState& g, Rng& rng);
  // After every applied move, its own and the opponent's.
  void Applied(const GameState& g, const Move& m);
  // Its Stack was set by other means than a move (a position set up by hand): judged afresh.
  void StackSetByHand(const GameState& g);

  const Judgement& judgement() const { return judge_; }

 private:
  // The Stack in the orientation the judgement works in.
  const int* Own(const GameState& g);
  int Slot(const GameState& g, int own_slot) const;
  bool Reversed(const GameState& g) const;
  Move Switch(const GameState& g, SwitchChoice c);

  int side_;
  Judgement judge_;
  std::array<int, kMaxStackSize + 2> view_{};
  bool first_turn_ = true;
  bool direction_chosen_ = false;
  bool switch_waits_ = false;  // the opening swap, chosen with the reversal just made
  SwitchChoice switch_;
};

}  // namespace bq::ai
