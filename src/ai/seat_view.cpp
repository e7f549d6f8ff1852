#include "ai/seat_view.h"

#include <algorithm>

namespace bq::ai {
namespace {

int Other(int side) {
  return kSideA + kSideB - side;
}

// Side A names the opponent's cards where they are shown; side B by slot.
int TheirSlot(const GameState& g, int mover, int named) {
  return mover == kSideA ? g.DisplayPos(named) : named;
}

}  // namespace

void ShownCards::Applied(const GameState& after, const Move& m) {
  const int n = after.stack_size;
  const int other = Other(side_);
  const auto at = [&](int slot) -> int& { return cards_[static_cast<size_t>(slot)]; };
  if (m.side == other) {
    switch (m.kind) {
      case MoveKind::kTakeDiscard:  // the card was face up on the pile
        at(m.slot1) = after.Card(other, m.slot1);
        break;
      case MoveKind::kTakeDraw:
        at(m.slot1) = 0;
        break;
      case MoveKind::kSwitchem:
        if (m.slot1 > 0) std::swap(at(m.slot1), at(m.slot2));
        break;
      case MoveKind::kBackem:
        if (other == kSideB) std::reverse(&at(1), &at(n) + 1);
        break;
      case MoveKind::kTakem:  // it gave away a card and took one of ours, which we know
        at(m.slot1) = after.Card(other, m.slot1);
        break;
      case MoveKind::kPass:
      case MoveKind::kSpendTurn:
      case MoveKind::kSmackem:
        break;
    }
    return;
  }
  if (m.kind == MoveKind::kSmackem) {
    std::swap(at(TheirSlot(after, side_, m.slot1)), at(TheirSlot(after, side_, m.slot2)));
  } else if (m.kind == MoveKind::kTakem) {
    const int slot = TheirSlot(after, side_, m.slot2);
    at(slot) = after.Card(other, slot);  // the card we gave
  }
}

SeatView ViewOf(const GameState& g, int side, const ShownCards& shown, bool looked) {
  SeatView v;
  v.side = side;
  v.stack_size = g.stack_size;
  v.options = g.options;
  v.phase = g.phase;
  v.turn_owner = g.turn_owner;
  std::array<bool, kDeckSize + 1> seen{};
  for (int k = 1; k <= g.stack_size; ++k) {
    const auto slot = static_cast<size_t>(k);
    v.own[slot] = g.Card(side, k);
    v.theirs[slot] = shown.cards()[slot];
    seen[static_cast<size_t>(v.own[slot])] = true;
    seen[static_cast<size_t>(v.theirs[slot])] = true;
  }
  v.discard_top = g.discard_top;
  seen[static_cast<size_t>(g.discard_top)] = true;
  if (looked) {
    v.draw_top = g.DrawTop();
    seen[static_cast<size_t>(v.draw_top)] = true;
  }
  // Every covered Discard Pile card was face up once.
  for (int k = 1; k <= g.buried_count; ++k)
    seen[static_cast<size_t>(g.buried[static_cast<size_t>(k)])] = true;
  for (int c = 1; c <= kDeckSize; ++c)
    if (!seen[static_cast<size_t>(c)]) v.unseen.push_back(c);
  v.draw_left = g.draw_count - g.draw_pos + 1;
  v.move_count_a = g.move_count_a;
  v.move_count_b = g.move_count_b;
  v.smackem_used = g.smackem_used;
  v.takem_used = g.takem_used;
  v.a_reversed = g.a_reversed;
  v.opponent_row_reversed = g.opponent_row_reversed;
  return v;
}

GameState PublicState(const SeatView& v) {
  GameState g;
  g.Init();
  g.stack_size = v.stack_size;
  g.slot_span = kDeckSize / v.stack_size;
  const int other = Other(v.side);
  for (int k = 1; k <= v.stack_size; ++k) {
    g.Card(v.side, k) = v.own[static_cast<size_t>(k)];
    g.Card(other, k) = v.theirs[static_cast<size_t>(k)];
  }
  g.Card(kSideB, 0) = 0;
  g.Card(kSideB, v.stack_size + 1) = kDeckSize + 1;
  g.discard_top = v.discard_top;
  g.draw_count = std::max(v.draw_left, 1);
  g.draw_cards[1] = v.draw_top;
  g.draw_pos = 1;
  g.options = v.options;
  g.phase = v.phase;
  g.turn_owner = v.turn_owner;
  g.move_count_a = v.move_count_a;
  g.move_count_b = v.move_count_b;
  g.smackem_used = v.smackem_used;
  g.takem_used = v.takem_used;
  g.a_reversed = v.a_reversed;
  g.opponent_row_reversed = v.opponent_row_reversed;
  return g;
}

}  // namespace bq::ai
