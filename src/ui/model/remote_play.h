#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "net/link.h"
#include "net/session.h"

namespace bq {

// What the game window keeps of play against a remote opponent: the link and who may speak when,
// this copy's part in the game, and what it is waiting for.
struct RemotePlay {
  net::Link* link = nullptr;  // the front end's; none: nothing is sent or received
  net::Session session;
  std::string host;             // the opponent's address as set up
  bool opponent_setup = false;  // a connection is set up: New Game invites
  bool connected = false;       // an invitation was answered: the opponent hears our Exit
  bool invitation_accepted = false;
  bool is_dealer = true;  // this copy dealt the game
  bool switch_awaited = false;
  bool move_due = false;   // the opponent's turn has begun here and its move not come
  int own_draw_count = 0;  // this copy's Draw Pile length while it plays a received deal's
  std::int64_t waiting_since_ms = -1;  // when this copy began to wait for the opponent
  bool silence_told = false;
  std::set<std::string> strangers;  // senders already named on the prompt line
};

}  // namespace bq
