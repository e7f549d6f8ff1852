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
  bool smackem_open = false;     // the opponent may still make its Smackem
  bool takem_open = false;       // and its Takem
};

// The session between two copies: who invited whom, and which message is acceptable when. A
// message that is not acceptable is bad data, whatever its bytes say.
class Session {
 public:
  enum class Role { kNone, kInviter, kInvited };

  // This copy sent "invi" and waits for the answer.
  void InvitationSent();
  // "invi" arrived: this copy is the invited side until it invites in turn.
  void InvitationReceived();
  // "acce" or "reje" arrived, or the game was given up before the answer came.
  void AnswerReceived() { awaiting_answer_ = false; }

  Role role() const { return role_; }
  bool awaiting_answer() const { return awaiting_answer_; }

  // Whether `m` may be applied now. An invitation and an exit always may; an answer only while
  // one is awaited; a deal only on the invited side; a move only when it is the opponent's.
  bool Accepts(const Message& m, const Moment& now) const;

 private:
  Role role_ = Role::kNone;
  bool awaiting_answer_ = false;
};

// The text typed into a port box, trimmed, as a whole number; nullopt when it is none.
std::optional<long> ParsePort(std::string_view text);
std::string_view Trim(std::string_view text);

}  // namespace bq::net
