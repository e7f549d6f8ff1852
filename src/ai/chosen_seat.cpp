#include "ai/chosen_seat.h"

namespace bq::ai {

ChosenSeat::ChosenSeat(int side, Computer kind)
    : seat_(kind == Computer::kExpert ? decltype(seat_)(ExpertSeat(side))
                                      : decltype(seat_)(ComputerSeat(side))) {}

Computer ChosenSeat::kind() const {
  return std::holds_alternative<ExpertSeat>(seat_) ? Computer::kExpert : Computer::kClassic;
}

void ChosenSeat::NewGame(const GameState& g) {
  std::visit([&](auto& s) { s.NewGame(g); }, seat_);
}

Move ChosenSeat::Choose(const GameState& g, Rng& rng) {
  return std::visit([&](auto& s) { return s.Choose(g, rng); }, seat_);
}

void ChosenSeat::Applied(const GameState& g, const Move& m) {
  std::visit([&](auto& s) { s.Applied(g, m); }, seat_);
}

void ChosenSeat::StackSetByHand(const GameState& g) {
  // The Expert judges its Stack afresh at every decision: nothing to bring up to date.
  if (auto* classic = std::get_if<ComputerSeat>(&seat_)) classic->StackSetByHand(g);
}

const Judgement* ChosenSeat::judgement() const {
  const auto* classic = std::get_if<ComputerSeat>(&seat_);
  return classic != nullptr ? &classic->judgement() : nullptr;
}

}  // namespace bq::ai
