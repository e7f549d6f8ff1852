#pragma once

#include "engine/game_state.h"

// The steps the referee's moves and deals are made of: for src/engine and its tests only. Outside
// the engine a move goes through Apply (rules.h).
namespace bq {

// One exchange per position with a position drawn from the whole deck: deliberately not
// Fisher-Yates, and it starts from the deck as the previous game left it.
void ShuffleDeck(GameState& g, Rng& rng);

// Order tests. Each sets and returns turn_result. TestOneStack tests only the turn owner.
int TestOneStack(GameState& g, bool backem);
int TestBothStacks(GameState& g, bool backem);

// The Discard Pile card is covered by the next one.
void Bury(GameState& g);
void DiscardDrawn(GameState& g);
// Moves to the next Draw Pile card; past the last one the deck is reshuffled and the same Draw
// Pile order comes round again from its first card. Returns true when the pile was renewed.
bool AdvanceDraw(GameState& g, Rng& rng);

}  // namespace bq
