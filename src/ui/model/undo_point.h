#pragma once

#include <array>
#include <string>
#include <vector>

#include "ai/chosen_seat.h"
#include "ai/seat_view.h"
#include "engine/game_state.h"

namespace bq {

// The game as it stood before one of the player's moves against the computer, whole: taking it
// back takes back that move and the computer's reply. The computer's seat is a value, so its
// memory goes back with the cards.
struct UndoPoint {
  GameState state;
  ai::ChosenSeat seat;
  ai::ShownCards shown_a;
  bool first_turn = false;
  std::vector<std::string> move_list;  // captions 1..n, newest first
};

// What side A has seen of a Draw Pile card during a game.
enum class DrawSeen : unsigned char { kNo, kShownByComputer, kLookedAt };

// The game window's Undo: the points to go back to, whether one was used (the game is then not
// counted), and the Draw Pile cards seen, which an undo cannot unsee.
struct UndoHistory {
  std::vector<UndoPoint> points;
  bool used = false;
  std::array<DrawSeen, kDeckSize + 1> draw_seen{};
};

}  // namespace bq
