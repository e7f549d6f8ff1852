#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "net/message.h"

namespace bq::net {

// Where this copy's game stands, as far as the opponent's messages are concerned. The game
// window fills it in at the moment a message arrives.
struct Moment {
  bool in_game = false;          // a game with the opponent is under way, no result yet
  bool awaiting_move = false;    // the opponent's ordinary move (or special move) is due
  bool awaiting_switch = false;  // the opponent's Switchem of the opening is due
};

// The session between two copies: where the exchange with the opponent stands, and which
// message is acceptable when. A message that is not acceptable is bad data, whatever its bytes say.
// Whether a move it carries is legal is the referee's business, not the session's.
class Session {
 public:
  enum class Phase {
    kIdle,          // nothing under way with the opponent
    kInviting,      // this copy sent "invi" and waits for the answer
    kInvited,       // "invi" arrived and is not answered yet
    kAwaitingDeal,  // this copy answered Yes and waits for the deal
    kPlaying,       // the deal went or came: a game with the opponent, until it is ended here
  };

  void InvitationSent() { phase_ = Phase::kInviting; }
  void InvitationReceived() { phase_ = Phase::kInvited; }
  void Answered(bool yes) { phase_ = yes ? Phase::kAwaitingDeal : Phase::kIdle; }
  // The inviter's answer came: accepted, the deal goes out and play begins.
  void AnswerReceived(bool accepted) { phase_ = accepted ? Phase::kPlaying : Phase::kIdle; }
  void DealReceived() { phase_ = Phase::kPlaying; }
  // The game with the opponent is over here (its result acknowledged, or quit), or was never
  // started.
  void Ended() { phase_ = Phase::kIdle; }

  Phase phase() const { return phase_; }
  // Something is under way that the opponent must hear of if this copy quits or closes.
  bool engaged() const { return phase_ != Phase::kIdle; }

  // Whether `m` may be applied now. An invitation and an exit always may; an answer only while
  // one is awaited; a deal only after this copy's Yes and before any deal; a quit while anything
  // is under way; a move only in a game and when it is the opponent's.
  bool Accepts(const Message& m, const Moment& now) const;

 private:
  Phase phase_ = Phase::kIdle;
};

// The text typed into a port box, trimmed, as a whole number; nullopt when it is none.
std::optional<long> ParsePort(std::string_view text);
std::string_view Trim(std::string_view text);

}  // namespace bq::net
