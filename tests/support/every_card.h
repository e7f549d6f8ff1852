#pragma once

#include <gtest/gtest.h>

#include <array>

#include "engine/game_state.h"

namespace bq::test {

// Every card of the deck in exactly one place: the Stacks, the Discard Pile, the covered cards,
// the Draw Pile still to come and the end of the deck left out of play. After a renewal the
// covered cards are gone and the Draw Pile comes round again, so only the Stacks and the
// Discard Pile card are checked then, and only for being cards at all: the same cards come
// round again.
inline testing::AssertionResult EveryCardOnce(const GameState& s, bool renewed) {
  std::array<int, kDeckSize + 1> seen{};
  std::string bad;
  const auto see = [&](int card) {
    if (card < 1 || card > kDeckSize)
      bad += " card " + std::to_string(card);
    else
      ++seen[static_cast<size_t>(card)];
  };
  for (int k = 1; k <= s.stack_size; ++k) {
    see(s.Card(kSideA, k));
    see(s.Card(kSideB, k));
  }
  see(s.discard_top);
  if (!renewed) {
    for (int i = 1; i <= s.buried_count; ++i) see(s.buried[static_cast<size_t>(i)]);
    for (int m = s.draw_pos; m <= s.draw_count; ++m) see(s.draw_cards[static_cast<size_t>(m)]);
    for (int i = 2 * s.stack_size + 2 + s.draw_count; i <= kDeckSize; ++i)
      see(s.deck[static_cast<size_t>(i)]);
  }
  for (int card = 1; card <= kDeckSize && !renewed; ++card)
    if (seen[static_cast<size_t>(card)] != 1)
      bad += " " + std::to_string(card) + "x" + std::to_string(seen[static_cast<size_t>(card)]);
  if (bad.empty()) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "cards out of place:" << bad << "\n" << s.ToString();
}

}  // namespace bq::test
