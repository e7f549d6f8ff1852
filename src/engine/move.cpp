#include "engine/move.h"

#include "engine/game_state.h"

namespace bq {
namespace {

const char* KindName(MoveKind kind) {
  switch (kind) {
    case MoveKind::kTakeDiscard:
      return "discard";
    case MoveKind::kTakeDraw:
      return "draw";
    case MoveKind::kPass:
      return "pass";
    case MoveKind::kSpendTurn:
      return "spend";
    case MoveKind::kSwitchem:
      return "switchem";
    case MoveKind::kSmackem:
      return "smackem";
    case MoveKind::kTakem:
      return "takem";
    case MoveKind::kBackem:
      return "backem";
  }
  return "?";
}

std::string SideName(int side) {
  return side == kSideA ? "A" : side == kSideB ? "B" : "?";
}

}  // namespace

std::string ToString(const Move& m) {
  std::string text = SideName(m.side) + ' ' + KindName(m.kind);
  if (m.slot1 != 0 || m.slot2 != 0) text += ' ' + std::to_string(m.slot1);
  if (m.slot2 != 0) text += ' ' + std::to_string(m.slot2);
  return text;
}

std::string Describe(const GameState& before, const Move& m) {
  const std::string who = "Side " + SideName(m.side);
  const int other = kSideA + kSideB - m.side;
  const auto own = [&](int slot) { return std::to_string(before.Card(m.side, slot)); };
  // As in Apply: side A names the opponent's cards where they are shown.
  const auto theirs = [&](int slot) {
    return std::to_string(before.Card(other, m.side == kSideA ? before.DisplayPos(slot) : slot));
  };
  const std::string their_name = "side " + SideName(other) + "'s ";
  switch (m.kind) {
    case MoveKind::kTakeDiscard:
      return who + " takes " + std::to_string(before.discard_top) +
             " from the Discard Pile in place of its " + own(m.slot1) + ".";
    case MoveKind::kTakeDraw:
      return who + " takes " + std::to_string(before.DrawTop()) +
             " from the Draw Pile in place of its " + own(m.slot1) + ".";
    case MoveKind::kPass:
      return who + " turns down " + std::to_string(before.DrawTop()) +
             " from the Draw Pile, which goes onto the Discard Pile.";
    case MoveKind::kSpendTurn:
      return who + " ends its turn without choosing a card.";
    case MoveKind::kSwitchem:
      if (m.slot1 == 0) return "Switchem: " + who + " keeps its Stack.";
      return "Switchem: " + who + " swaps its " + own(m.slot1) + " and " + own(m.slot2) + ".";
    case MoveKind::kSmackem:
      return "Smackem: " + who + " swaps " + their_name + theirs(m.slot1) + " and " +
             theirs(m.slot2) + ".";
    case MoveKind::kTakem:
      return "Takem: " + who + " gives its " + own(m.slot1) + " for " + their_name +
             theirs(m.slot2) + ".";
    case MoveKind::kBackem:
      return "Backem: " + who + " aims for descending order.";
  }
  return ToString(m);
}

}  // namespace bq
