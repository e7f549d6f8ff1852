#include "net/session.h"

#include <charconv>

namespace bq::net {

bool Session::Accepts(const Message& m, const Moment& now) const {
  return std::visit(
      [&](const auto& msg) {
        using T = std::decay_t<decltype(msg)>;
        if constexpr (std::is_same_v<T, Invite> || std::is_same_v<T, Exit>) {
          return true;
        } else if constexpr (std::is_same_v<T, Accept> || std::is_same_v<T, Reject>) {
          return phase_ == Phase::kInviting;
        } else if constexpr (std::is_same_v<T, Deal>) {
          return phase_ == Phase::kAwaitingDeal;
        } else if constexpr (std::is_same_v<T, Quit>) {
          return engaged();
        } else if (phase_ != Phase::kPlaying) {
          return false;
        } else if constexpr (std::is_same_v<T, Switch>) {
          return now.in_game && now.awaiting_switch;
        } else if constexpr (std::is_same_v<T, ClearCards>) {
          // Sent when a Switchem pick is thrown away, as well as during a move.
          return now.in_game && (now.awaiting_move || now.awaiting_switch);
        } else if constexpr (std::is_same_v<T, CardClick>) {
          return now.in_game && (now.awaiting_move || now.awaiting_switch);
        } else {  // the pile moves and the pile clicks
          return now.in_game && now.awaiting_move;
        }
      },
      m);
}

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(" \t");
  return text.substr(first, last - first + 1);
}

std::optional<long> ParsePort(std::string_view text) {
  text = Trim(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  long value = 0;
  const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc() || ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace bq::net
