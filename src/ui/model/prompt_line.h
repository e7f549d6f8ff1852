#pragma once

#include <string>
#include <vector>

#include "engine/game_state.h"
#include "engine/move.h"

namespace bq {

// What the one-line prompt under the board needs to know about the game window at rest after an
// event. The game window fills it in; PromptLine turns it into words.
struct PromptFacts {
  enum class Step {
    kBetweenGames,  // New Game waits (or, against a person, the connection does)
    kResult,        // a result button is up
    kTheirMove,     // the opponent's move on show, waiting for its button
    kWaiting,       // the remote player is to move
    kSwitchem,      // side A picks two of its own cards
    kSmackem,       // side A picks two of the opponent's cards
    kTakem,         // side A picks one card of each Stack
    kTurn,          // side A's ordinary turn
    kNotice,        // a network prompt says what the opponent did, waiting for its button
  };
  // The opponent's move on show (kTheirMove).
  enum class Shown { kDiscard, kDraw, kNothing, kTakem, kSmackem, kSwitchem, kBackem };

  Step step = Step::kBetweenGames;
  Shown shown = Shown::kDiscard;
  bool can_start = true;  // between games: New Game is available
  bool vs_computer = true;
  std::string opponent;  // "Opponent", or the remote player's name
  bool fast_mode = false;
  // Side A's turn: the piles' marks and the cards concerned.
  bool discard_marked = false;
  bool draw_marked = false;
  int discard_card = 0;
  int draw_card = 0;    // the Draw Pile card, once looked at
  int chosen_card = 0;  // side A's marked card, 0 for none
  int picked = 0;       // cards picked so far in a special move
  bool smackem_offered = false;
  bool takem_offered = false;
  // The cards of the opponent's move on show: what it takes and what it gives or swaps.
  int card1 = 0;
  int card2 = 0;
  int slot = 0;         // where a pile card goes, as the board numbers it; 0 when unknown
  std::string news;     // what the last moves did, in words
  std::string result;   // the last game's result, kept until the next game
  std::string hint;     // the Hint's advice, said until the player takes a step of their own
  std::string notice;   // kNotice: what happened
  bool silent = false;  // this copy has waited long for the remote player without a word
};

std::string PromptLine(const PromptFacts& facts);

// A game's result in words: "You won in 14 moves."
std::string ResultText(int turn_result, const GameState& g, bool vs_computer,
                       const std::string& opponent);

// A counted move told from the move itself and the position it was made in (`before`, after a
// Backem of the same turn). `backem`: side B turned its direction round just before, as a move of
// its own that is not counted; it is told with this one. Unless side B's cards are face up, no
// card that went into its Stack unseen is named.
//
// Side B's move in words, and the controls that show the change ("lblDiscardPile",
// "lblCardB(4)").
struct MoveNews {
  std::string text;
  std::vector<std::string> changed;
};
MoveNews DescribeMoveB(const GameState& before, const Move& m, bool backem, bool vs_computer,
                       const std::string& opponent, bool b_face_up);

// One line of the move list for either side's move, with the slots as the board numbers them:
// "Computer: took 76 from the Discard Pile, put it in slot 4, 46 discarded".
std::string MoveEntry(const GameState& before, const Move& m, bool backem, bool vs_computer,
                      const std::string& opponent, bool b_face_up);

}  // namespace bq
