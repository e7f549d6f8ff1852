#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace bq::net {

// The longest message there is: a deal of 20-card Stacks (or 10-card ones) and a full Draw Pile.
inline constexpr size_t kMaxMessageLength = 422;

// One message kind per type. Slots are 1..21, cards 1..100, as the sender sees them.
struct Invite {};
struct Accept {};
struct Reject {};
struct CardClick {  // "card": the sender clicked a card of its own Stack
  int slot = 0;
};
struct ClearCards {};    // "clea"
struct DiscardClick {};  // "clic"
struct DiscardMove {     // "disc": the Discard Pile card went into the slot
  int slot = 0;
};
struct Look {};    // "look"
struct DrawMove {  // "draw": the Draw Pile card went into the slot
  int slot = 0;
};
struct Pass {};
struct Switch {  // "swit": two of the sender's own cards swapped
  int pos1 = 0, pos2 = 0;
};
struct Smack {  // "smac": two cards of the receiver's Stack swapped
  int pos1 = 0, pos2 = 0;
};
struct Take {  // "take": the sender's own slot, then the slot in the receiver's Stack
  int own = 0, other = 0;
};
struct Quit {};
struct Exit {};

// "setu": the deal and the options. The receiver's Stack comes first: the sender's opponent.
struct Deal {
  std::array<bool, 6> options{};  // Stackem, Backem, Switchem, Smackem, Takem, Random
  bool fast_mode = false;
  bool learn_mode = false;
  int stack_size = 10;
  int draw_count = 79;
  std::array<int, 20> receiver_stack{};  // [0..stack_size)
  std::array<int, 20> sender_stack{};
  int discard = 0;
  std::array<int, 79> draw{};  // [0..draw_count)
};

using Message = std::variant<Invite, Accept, Reject, Deal, CardClick, ClearCards, DiscardClick,
                             DiscardMove, Look, DrawMove, Pass, Switch, Smack, Take, Quit, Exit>;

// What the receiving copy knows when it reads a message: its current Stack size. A deal carries
// its own Stack size (its Stackem option) and Draw Pile length (the message's length).
struct Context {
  int stack_size = 10;
};

std::string Encode(const Message& m);
// The message, or nullopt for anything that is not exactly what Encode makes for this context:
// an unknown or upper-case tag, a wrong length, a blank where a digit belongs, a slot outside
// 1..stack_size, a card outside 1..100, and in a deal a card given twice, an option out of range
// or an empty Draw Pile. So a decoded message always encodes to the same bytes.
std::optional<Message> Decode(std::string_view text, const Context& context);

// The status bar's words for a message sent, and received ("" for the relayed clicks, which
// leave the status bar alone).
std::string SentText(const Message& m);
std::string ReceivedText(const Message& m);
inline constexpr const char* kBadData = "Bad data received";

// True for "card", "clea", "clic" and "look": clicks relayed while a move is being made.
bool IsRelayedClick(const Message& m);

}  // namespace bq::net
