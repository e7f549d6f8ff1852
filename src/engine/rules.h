#pragma once

#include <vector>

#include "engine/game_state.h"
#include "engine/move.h"

namespace bq {

// The referee: what a side may do, and what a move does. Apply is the one place where a move
// changes the cards, the piles, the counts, the turn and the result.

// For BeginGame's `first`: side A opens and the first mover of play is drawn at random, as
// against the computer. A side instead opens and moves first, as the invited copy of a network
// game does (side A there, side B on the dealer's copy).
inline constexpr int kDrawnFirst = 0;

// Starts the game whose cards lie dealt in `g` (by ShuffleAndDeal, or received): clears the
// counts, the result and the once-per-game flags, tests both Stacks and opens with Switchem or
// starts play. A result at the deal, or when the opening ends, stands but does not stop play;
// the first result found by a move in play ends the game. The Stack size must already suit the
// options.
void BeginGame(GameState& g, const OptionSet& options, int first, Rng& rng);
// ShuffleAndDeal, then BeginGame.
void NewGame(GameState& g, const OptionSet& options, int first, Rng& rng);

// A deal made by another copy, as this copy's side A and side B see it.
struct DealtCards {
  std::vector<int> side_a;  // slots 1..n, in order
  std::vector<int> side_b;
  int discard = 0;
  std::vector<int> draw;  // the Draw Pile in dealing order; its length is the game's
};
// Lays out a received deal as ShuffleAndDeal lays out its own: the deck takes the deal's order,
// then the cards out of play, so that the next shuffle here starts from a whole deck. Returns
// false, changing nothing, unless the Stacks fit this copy's Stack size, every card is one of
// 1..100 and none comes twice, and the Draw Pile has 1..100 - 2n - 1 cards. BeginGame follows.
bool InstallDeal(GameState& g, const DealtCards& deal);

// A game given up before it was decided: no result, no moves, side A to open the next deal, and
// the Draw Pile length `own_draw_count` back (0 keeps the current one).
void ResetBetweenGames(GameState& g, int own_draw_count);

// Takes the game back to an earlier position of the same game, kept whole before a move (Undo).
void Restore(GameState& g, const GameState& earlier);

bool IsLegal(const GameState& g, const Move& m);
// Every legal move of `side`, each outcome once (a swap of p and q is listed as p < q only).
std::vector<Move> LegalMoves(const GameState& g, int side);

// Makes the move and runs the order test that its kind calls for: after side A's take, its own
// Stack; after side B's pile move, both; after a Smackem, the Stack it changed; after a Takem
// and after the opening, both. The first result of the game stands. Draws from `rng` when the
// Draw Pile is renewed and for the first mover drawn after the opening. Returns false, changing
// nothing, for a move that is not legal.
bool Apply(GameState& g, const Move& m, Rng& rng);

}  // namespace bq
