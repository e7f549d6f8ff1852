#pragma once

#include <variant>

#include "ai/computer_seat.h"
#include "ai/expert.h"

namespace bq::ai {

enum class Computer { kClassic, kExpert };

// One seat held by either computer, as a value: a game's copy takes the seat's memory with it.
class ChosenSeat {
 public:
  explicit ChosenSeat(int side, Computer kind = Computer::kClassic);

  Computer kind() const;
  void NewGame(const GameState& g);
  Move Choose(const GameState& g, Rng& rng);
  void Applied(const GameState& g, const Move& m);
  void StackSetByHand(const GameState& g);
  // The Classic computer's judgement of its Stack; nullptr for the Expert, which keeps none.
  const Judgement* judgement() const;

 private:
  std::variant<ComputerSeat, ExpertSeat> seat_;
};

}  // namespace bq::ai
