#include "engine/rules.h"

#include <algorithm>

#include "engine/rule_steps.h"

namespace bq {
namespace {

int Other(int side) {
  return kSideA + kSideB - side;
}

int& Count(GameState& g, int side) {
  return side == kSideA ? g.move_count_a : g.move_count_b;
}

int Count(const GameState& g, int side) {
  return side == kSideA ? g.move_count_a : g.move_count_b;
}

void CountMove(GameState& g, int side) {
  int& count = Count(g, side);
  count = std::min(count + 1, 32767);
}

// A taken card replaces the card in `slot` of `side`'s Stack, which becomes the Discard Pile card;
// a Draw Pile card covers the old one.
void TakeDiscard(GameState& g, int side, int slot) {
  std::swap(g.Card(side, slot), g.discard_top);
}

void TakeDraw(GameState& g, int side, int slot, Rng& rng) {
  const int replaced = g.Card(side, slot);
  g.Card(side, slot) = g.DrawTop();
  Bury(g);
  g.discard_top = replaced;
  AdvanceDraw(g, rng);
}

// The looked-at Draw Pile card goes onto the Discard Pile; the Stack stays as it is.
void PassDraw(GameState& g, Rng& rng) {
  Bury(g);
  DiscardDrawn(g);
  AdvanceDraw(g, rng);
}

bool Reversed(const GameState& g, int side) {
  return side == kSideA ? g.a_reversed : g.opponent_row_reversed;
}

bool IsSlot(const GameState& g, int slot) {
  return slot >= 1 && slot <= g.stack_size;
}

// Side A picks two different cards on screen; side B's choices are taken as they come.
bool IsPair(const GameState& g, const Move& m) {
  return IsSlot(g, m.slot1) && IsSlot(g, m.slot2) && (m.side == kSideB || m.slot1 != m.slot2);
}

// The first result of a game stands. Found by a move in play it ends the game; found at the deal
// or when the opening ends, it is shown and play goes on.
bool Decided(GameState& g, int earlier) {
  if (earlier != kUndecided) {
    g.turn_result = earlier;
    return false;
  }
  if (g.turn_result == kUndecided) return false;
  g.phase = Phase::kDecided;
  return true;
}

void StartPlay(GameState& g, Rng& rng) {
  g.phase = Phase::kPlay;
  if (g.first_side != kDrawnFirst) {
    g.turn_owner = g.first_side;
    return;
  }
  g.turn_owner = std::min(1 + static_cast<int>(2.0f * rng.Uniform()), kSideB);
}

// The opening's swap. The side that opened second ends it: both Stacks are tested, then play.
void Switch(GameState& g, const Move& m, Rng& rng) {
  if (m.slot1 > 0) std::swap(g.Card(m.side, m.slot1), g.Card(m.side, m.slot2));
  CountMove(g, m.side);
  if (Count(g, Other(m.side)) == 0) {
    g.turn_owner = Other(m.side);
    return;
  }
  const int earlier = g.turn_result;
  TestBothStacks(g, g.options[kBackem]);
  if (earlier != kUndecided) g.turn_result = earlier;
  StartPlay(g, rng);
}

}  // namespace

void BeginGame(GameState& g, const OptionSet& options, int first, Rng& rng) {
  g.options = options;
  g.first_side = first;
  g.move_count_a = g.move_count_b = 0;
  g.turn_result = kUndecided;
  g.smackem_used = {};
  g.takem_used = {};
  g.a_reversed = false;
  g.opponent_row_reversed = false;
  g.turn_owner = first == kDrawnFirst ? kSideA : first;
  TestBothStacks(g, options[kBackem]);
  if (options[kSwitchem])
    g.phase = Phase::kOpening;
  else
    StartPlay(g, rng);
}

void NewGame(GameState& g, const OptionSet& options, int first, Rng& rng) {
  ShuffleAndDeal(g, rng);
  BeginGame(g, options, first, rng);
}

bool InstallDeal(GameState& g, const DealtCards& deal) {
  const auto n = static_cast<size_t>(g.stack_size);
  const size_t most_drawn = kDeckSize - 2 * n - 1;
  if (deal.side_a.size() != n || deal.side_b.size() != n || deal.draw.empty() ||
      deal.draw.size() > most_drawn)
    return false;
  std::array<bool, kDeckSize + 1> dealt{};
  std::array<int, kDeckSize + 1> order{};
  size_t next = 1;
  const auto take = [&](int card) {
    if (card < 1 || card > kDeckSize || dealt[static_cast<size_t>(card)]) return false;
    dealt[static_cast<size_t>(card)] = true;
    order[next++] = card;
    return true;
  };
  for (const auto* cards : {&deal.side_a, &deal.side_b})
    for (int card : *cards)
      if (!take(card)) return false;
  if (!take(deal.discard)) return false;
  for (int card : deal.draw)
    if (!take(card)) return false;
  for (int card = 1; card <= kDeckSize; ++card)
    if (!dealt[static_cast<size_t>(card)]) order[next++] = card;

  g.deck = order;
  for (size_t k = 1; k <= n; ++k) {
    g.Card(kSideA, static_cast<int>(k)) = deal.side_a[k - 1];
    g.Card(kSideB, static_cast<int>(k)) = deal.side_b[k - 1];
  }
  g.discard_top = deal.discard;
  g.draw_count = static_cast<int>(deal.draw.size());
  for (size_t m = 1; m <= deal.draw.size(); ++m) g.draw_cards[m] = deal.draw[m - 1];
  g.draw_pos = 1;
  g.buried_count = 0;
  g.turn_result = kUndecided;
  g.turn_owner = kSideA;
  g.move_count_a = g.move_count_b = 0;
  g.opponent_row_reversed = false;
  return true;
}

void ResetBetweenGames(GameState& g, int own_draw_count) {
  g.move_count_a = g.move_count_b = 0;
  g.turn_result = kUndecided;
  g.turn_owner = kSideA;
  if (own_draw_count > 0) g.draw_count = own_draw_count;
}

void Restore(GameState& g, const GameState& earlier) {
  g = earlier;
}

bool IsLegal(const GameState& g, const Move& m) {
  if (m.side != kSideA && m.side != kSideB) return false;
  if (g.phase == Phase::kDecided || g.turn_owner != m.side) return false;
  const bool opening = g.phase == Phase::kOpening;
  const bool no_slots = m.slot1 == 0 && m.slot2 == 0;
  const bool one_slot = IsSlot(g, m.slot1) && m.slot2 == 0;
  switch (m.kind) {
    case MoveKind::kBackem:
      // Once, before the side's first move: its opening swap, or its first turn.
      return g.options[kBackem] && !Reversed(g, m.side) && Count(g, m.side) == 0 && no_slots;
    case MoveKind::kSwitchem:
      return opening && (IsPair(g, m) || (m.side == kSideB && no_slots));
    case MoveKind::kTakeDiscard:
    case MoveKind::kTakeDraw:
      return !opening && one_slot;
    case MoveKind::kPass:
      return !opening && no_slots;
    case MoveKind::kSpendTurn:
      return !opening && no_slots && m.side == kSideA;
    case MoveKind::kSmackem:
      return !opening && g.options[kSmackem] && !g.smackem_used[static_cast<size_t>(m.side)] &&
             IsPair(g, m);
    case MoveKind::kTakem:
      return !opening && g.options[kTakem] && !g.takem_used[static_cast<size_t>(m.side)] &&
             IsSlot(g, m.slot1) && IsSlot(g, m.slot2);
  }
  return false;
}

std::vector<Move> LegalMoves(const GameState& g, int side) {
  std::vector<Move> moves;
  if (g.phase == Phase::kDecided || g.turn_owner != side) return moves;
  const auto add = [&](MoveKind kind, int slot1 = 0, int slot2 = 0) {
    const Move m{kind, side, slot1, slot2};
    if (IsLegal(g, m)) moves.push_back(m);
  };
  const int n = g.stack_size;
  add(MoveKind::kBackem);
  add(MoveKind::kSwitchem);
  add(MoveKind::kPass);
  add(MoveKind::kSpendTurn);
  for (int p = 1; p <= n; ++p) {
    add(MoveKind::kTakeDiscard, p);
    add(MoveKind::kTakeDraw, p);
    for (int q = 1; q <= n; ++q) {
      if (p < q) {
        add(MoveKind::kSwitchem, p, q);
        add(MoveKind::kSmackem, p, q);
      }
      add(MoveKind::kTakem, p, q);
    }
  }
  return moves;
}

bool Apply(GameState& g, const Move& m, Rng& rng) {
  if (!IsLegal(g, m)) return false;
  const int side = m.side;
  const int other = Other(side);
  const bool backem = g.options[kBackem];
  const int earlier = g.turn_result;
  // Side A names the opponent's cards where they are shown.
  const auto theirs = [&](int slot) { return side == kSideA ? g.DisplayPos(slot) : slot; };
  switch (m.kind) {
    case MoveKind::kBackem:
      if (side == kSideA) {
        g.a_reversed = true;
      } else {
        g.ReverseSideB();
        g.opponent_row_reversed = true;
      }
      return true;
    case MoveKind::kSwitchem:
      Switch(g, m, rng);
      return true;
    case MoveKind::kSmackem:
      g.smackem_used[static_cast<size_t>(side)] = true;
      std::swap(g.Card(other, theirs(m.slot1)), g.Card(other, theirs(m.slot2)));
      CountMove(g, side);
      // The mover hands over first, so the test looks at the Stack that was just changed.
      g.turn_owner = other;
      TestOneStack(g, backem);
      Decided(g, earlier);
      return true;
    case MoveKind::kTakem:
      g.takem_used[static_cast<size_t>(side)] = true;
      std::swap(g.Card(side, m.slot1), g.Card(other, theirs(m.slot2)));
      CountMove(g, side);
      TestBothStacks(g, backem);
      if (!Decided(g, earlier)) g.turn_owner = other;
      return true;
    case MoveKind::kTakeDiscard:
      TakeDiscard(g, side, m.slot1);
      break;
    case MoveKind::kTakeDraw:
      TakeDraw(g, side, m.slot1, rng);
      break;
    case MoveKind::kPass:
      PassDraw(g, rng);
      break;
    case MoveKind::kSpendTurn:
      break;
  }
  CountMove(g, side);
  // Side A's move tests its own Stack, and only when a card was placed; side B's tests both.
  if (side == kSideB)
    TestBothStacks(g, backem);
  else if (m.kind == MoveKind::kTakeDiscard || m.kind == MoveKind::kTakeDraw)
    TestOneStack(g, backem);
  if (!Decided(g, earlier)) g.turn_owner = other;
  return true;
}

}  // namespace bq
