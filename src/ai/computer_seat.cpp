#include "ai/computer_seat.h"

#include <algorithm>

namespace bq::ai {

using Kind = TurnDecision::Kind;

bool ComputerSeat::Reversed(const GameState& g) const {
  return side_ == kSideA ? g.a_reversed : g.opponent_row_reversed;
}

// Side B's Stack is held turned round in the game itself, as the window holds it; side A's
// judgement works on a mirrored copy.
const int* ComputerSeat::Own(const GameState& g) {
  if (side_ == kSideB) return g.stacks[kSideB].data();
  for (int k = 1; k <= g.stack_size; ++k)
    view_[static_cast<size_t>(k)] = g.Card(kSideA, Slot(g, k));
  return view_.data();
}

int ComputerSeat::Slot(const GameState& g, int own_slot) const {
  return side_ == kSideA && g.a_reversed ? g.stack_size + 1 - own_slot : own_slot;
}

void ComputerSeat::NewGame(const GameState& g) {
  first_turn_ = true;
  direction_chosen_ = false;
  switch_waits_ = false;
  JudgeDeal(judge_, g.stack_size, Own(g));
}

// Side A's seat must swap two different cards, so a choice to keep the Stack swaps the chosen
// slot with its right-hand neighbour.
Move ComputerSeat::Switch(const GameState& g, SwitchChoice c) {
  const int n = g.stack_size;
  AfterOpening(judge_, n, Own(g));
  if (side_ == kSideB) {
    if (c.p < 1 || c.q < 1) return {MoveKind::kSwitchem, side_, 0, 0};
    return {MoveKind::kSwitchem, side_, c.p, c.q};
  }
  if (c.p < 1 || c.q < 1 || c.p == c.q) {
    c.p = std::max(c.p, 1);
    c.q = c.p % n + 1;
  }
  return {MoveKind::kSwitchem, side_, Slot(g, c.p), Slot(g, c.q)};
}

Move ComputerSeat::Choose(const GameState& g, Rng& rng) {
  const int n = g.stack_size;
  const bool backem = g.options[kBackem];
  if (g.phase == Phase::kOpening) {
    if (switch_waits_) {
      switch_waits_ = false;
      return Switch(g, switch_);
    }
    const SwitchChoice c = DecideOpening(judge_, n, Own(g), backem);
    if (!c.reversed) return Switch(g, c);
    switch_ = c;
    switch_waits_ = true;
    return {MoveKind::kBackem, side_};
  }
  // The first turn under Backem settles the direction: chosen now, or by the opening, and in
  // either case judged afresh once reversed.
  if (first_turn_ && backem) {
    if (!g.options[kSwitchem] && !direction_chosen_) {
      direction_chosen_ = true;
      if (DecideDirection(judge_, n, Own(g), g.discard_top)) return {MoveKind::kBackem, side_};
    }
    if (Reversed(g)) Rejudge(judge_, n, Own(g));
  }
  first_turn_ = false;
  const auto s = static_cast<size_t>(side_);
  const TurnDecision d =
      DecideTurn(judge_,
                 ViewOfTurn(g, g.options[kTakem] && !g.takem_used[s],
                            g.options[kSmackem] && !g.smackem_used[s], Reversed(g)),
                 rng);
  // Own slots as the judgement sees them; the opponent's cards where they are shown, which is
  // how a move names them.
  switch (d.kind) {
    case Kind::kDiscard:
      return {MoveKind::kTakeDiscard, side_, Slot(g, d.slot)};
    case Kind::kDraw:
      return {MoveKind::kTakeDraw, side_, Slot(g, d.slot)};
    case Kind::kNothing:
      break;
    case Kind::kTakem:
      return {MoveKind::kTakem, side_, Slot(g, d.takem.give_slot), d.takem.take_slot};
    case Kind::kSmackem:
      return {MoveKind::kSmackem, side_, d.smackem.slot1, d.smackem.slot2};
  }
  return {MoveKind::kPass, side_};
}

void ComputerSeat::StackSetByHand(const GameState& g) {
  Rejudge(judge_, g.stack_size, Own(g));
}

void ComputerSeat::Applied(const GameState& g, const Move& m) {
  const int n = g.stack_size;
  if (m.side != side_) {
    // The opponent changed this Stack under the computer: judged from scratch.
    if (m.kind == MoveKind::kSmackem || m.kind == MoveKind::kTakem) Rejudge(judge_, n, Own(g));
    return;
  }
  switch (m.kind) {
    case MoveKind::kTakeDiscard:
    case MoveKind::kTakeDraw:
    case MoveKind::kPass:
    case MoveKind::kSpendTurn:
      UpdateAfterMove(judge_, n, Own(g));
      break;
    case MoveKind::kTakem:
      AfterTakem(judge_, n, Own(g));
      break;
    case MoveKind::kSwitchem:
      AfterOpening(judge_, n, Own(g));
      break;
    case MoveKind::kSmackem:
    case MoveKind::kBackem:
      break;
  }
}

}  // namespace bq::ai
