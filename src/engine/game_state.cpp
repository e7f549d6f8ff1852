#include "engine/game_state.h"

#include "engine/rule_steps.h"

#include <sstream>

namespace bq {
namespace {

int Sign(int x) {
  return (x > 0) - (x < 0);
}

int OrderScore(const GameState& g, int side, bool backem) {
  int score = 0;
  for (int i = 1; i < g.stack_size; ++i) score += Sign(g.Card(side, i + 1) - g.Card(side, i));
  if (backem && score == -(g.stack_size - 1)) score = g.stack_size - 1;
  return score;
}

}  // namespace

void GameState::Init() {
  for (int i = 1; i <= kDeckSize; ++i) deck[static_cast<size_t>(i)] = i;
  Card(kSideB, 0) = 0;
  Card(kSideB, stack_size + 1) = kDeckSize + 1;
  draw_count = kDeckSize - 2 * stack_size - 1;
  draw_pos = 1;
  opponent_row_reversed = false;
}

void GameState::StackemOn() {
  stack_size = 20;
  slot_span = 5;
  Card(kSideB, 11) = 0;
  Card(kSideB, 21) = kDeckSize + 1;
  draw_count = kDeckSize - 2 * stack_size - 1;
}

void GameState::StackemOff() {
  stack_size = 10;
  slot_span = 10;
  Card(kSideB, 11) = kDeckSize + 1;
}

void GameState::ReverseSideB() {
  for (int i = 1, j = stack_size; i < j; ++i, --j) std::swap(Card(kSideB, i), Card(kSideB, j));
}

std::string GameState::ToString() const {
  std::ostringstream out;
  for (int side = kSideA; side <= kSideB; ++side) {
    out << (side == kSideA ? "A:" : "B:");
    for (int k = 1; k <= stack_size; ++k) out << ' ' << Card(side, k);
    out << '\n';
  }
  out << "discard " << discard_top << " draw " << DrawTop() << " (" << draw_pos << '/' << draw_count
      << ") buried " << buried_count << " turn " << turn_owner << " result " << turn_result
      << " moves " << move_count_a << '/' << move_count_b
      << (opponent_row_reversed ? " reversed" : "") << '\n';
  return out.str();
}

OptionSet PickRandomOptions(Rng& rng) {
  OptionSet picks{};
  for (auto& pick : picks) pick = rng.Uniform() <= 0.3333f;
  return picks;
}

void ShuffleDeck(GameState& g, Rng& rng) {
  for (int i = 1; i <= kDeckSize; ++i) {
    int j = static_cast<int>(static_cast<float>(kDeckSize) * rng.Uniform()) + 1;
    if (j > kDeckSize) j = kDeckSize;  // a generator that returns 1.0 must not run off the deck
    std::swap(g.deck[static_cast<size_t>(i)], g.deck[static_cast<size_t>(j)]);
  }
}

void ShuffleAndDeal(GameState& g, Rng& rng) {
  ShuffleDeck(g, rng);
  const int n = g.stack_size;
  for (int k = 1; k <= n; ++k) {
    g.Card(kSideA, k) = g.deck[static_cast<size_t>(k)];
    g.Card(kSideB, k) = g.deck[static_cast<size_t>(n + k)];
  }
  g.discard_top = g.deck[static_cast<size_t>(2 * n + 1)];
  for (int m = 1; m <= g.draw_count && 2 * n + 1 + m <= kDeckSize; ++m)
    g.draw_cards[static_cast<size_t>(m)] = g.deck[static_cast<size_t>(2 * n + 1 + m)];
  g.draw_pos = 1;
  g.buried_count = 0;
  g.turn_result = kUndecided;
  g.turn_owner = kSideA;
  g.move_count_a = 0;
  g.move_count_b = 0;
  g.opponent_row_reversed = false;
}

int TestOneStack(GameState& g, bool backem) {
  const int side = g.turn_owner;
  g.turn_result = OrderScore(g, side, backem) == g.stack_size - 1 ? side : kUndecided;
  return g.turn_result;
}

int TestBothStacks(GameState& g, bool backem) {
  const bool a = OrderScore(g, kSideA, backem) == g.stack_size - 1;
  const bool b = OrderScore(g, kSideB, backem) == g.stack_size - 1;
  g.turn_result = a && b ? kTie : a ? kAInOrder : b ? kBInOrder : kUndecided;
  return g.turn_result;
}

void Bury(GameState& g) {
  // A covered card uses up a Draw Pile position, so the pile never overflows in play; the guard
  // keeps a hand-set position from writing past it.
  if (g.buried_count + 1 < static_cast<int>(g.buried.size())) ++g.buried_count;
  g.buried[static_cast<size_t>(g.buried_count)] = g.discard_top;
}

void DiscardDrawn(GameState& g) {
  g.discard_top = g.DrawTop();
}

bool AdvanceDraw(GameState& g, Rng& rng) {
  ++g.draw_pos;
  if (g.draw_pos <= g.draw_count) return false;
  ShuffleDeck(g, rng);
  g.buried_count = 0;
  g.draw_pos = 1;
  return true;
}

}  // namespace bq
