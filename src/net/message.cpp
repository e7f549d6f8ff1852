#include "net/message.h"

#include <bitset>

namespace bq::net {
namespace {

struct Kind {
  const char* tag;
  const char* sent;
  const char* received;
};

// In the order of the Message alternatives.
constexpr Kind kKinds[] = {
    {"invi", "Invitation sent", "Invitation received"},
    {"acce", "Acceptance sent", "Acceptance received"},
    {"reje", "Rejection sent", "Rejection received"},
    {"setu", "Setup sent", "Setup received"},
    {"card", "Click on card in stack sent", ""},
    {"clea", "Clear cards in stack sent", ""},
    {"clic", "Click on Discard Pile card sent", ""},
    {"disc", "Move sent - Discard", "Move received - Discard"},
    {"look", "Look at Draw Pile card sent", ""},
    {"draw", "Move sent - Draw", "Move received - Draw"},
    {"pass", "Move sent - Pass", "Move received - Pass"},
    {"swit", "Move sent - Switchem", "Move received - Switchem"},
    {"smac", "Move sent - Smackem", "Move received - Smackem"},
    {"take", "Move sent - Takem", "Move received - Takem"},
    {"quit", "Quit sent", "Quit received"},
    {"exit", "Exit sent", "Exit received"},
};
static_assert(std::size(kKinds) == std::variant_size_v<Message>);

// Right-aligned in `width` characters, blanks on the left.
void Put(std::string& out, int value, size_t width) {
  const std::string digits = std::to_string(value);
  out.append(width > digits.size() ? width - digits.size() : 0, ' ');
  out += digits;
}

void PutLead(std::string& out, int value) {
  out += ' ';
  out += std::to_string(value);
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// A right-aligned number of exactly `field.size()` characters: blanks, then digits without a
// leading zero. -1 for anything else.
int ReadNumber(std::string_view field) {
  size_t i = 0;
  while (i < field.size() && field[i] == ' ') ++i;
  if (i == field.size() || field[i] == '0') return -1;
  int value = 0;
  for (; i < field.size(); ++i) {
    if (!IsDigit(field[i])) return -1;
    value = value * 10 + (field[i] - '0');
  }
  return value;
}

int ReadSlot(std::string_view field, const Context& c) {
  const int slot = ReadNumber(field);
  return slot >= 1 && slot <= c.stack_size ? slot : -1;
}

// " 0" / " 1" style option: a blank and one digit within [lo, hi].
int ReadOpt(std::string_view field, int lo, int hi) {
  if (field[0] != ' ' || !IsDigit(field[1])) return -1;
  const int v = field[1] - '0';
  return v >= lo && v <= hi ? v : -1;
}

std::optional<Message> DecodeSetup(std::string_view t) {
  if (t.size() < 22) return std::nullopt;
  Deal s;
  for (size_t i = 0; i < 6; ++i) {
    const int v = ReadOpt(t.substr(4 + 2 * i, 2), 0, 1);
    if (v < 0) return std::nullopt;
    s.options[i] = v == 1;
  }
  const int kind = ReadOpt(t.substr(16, 2), 2, 2);
  const int fast = ReadOpt(t.substr(18, 2), 1, 2);
  const int learn = ReadOpt(t.substr(20, 2), 1, 2);
  if (kind < 0 || fast < 0 || learn < 0) return std::nullopt;
  s.fast_mode = fast == 1;
  s.learn_mode = learn == 1;
  // The deal's own Stackem decides the Stack size, and what is left of the message the Draw
  // Pile's length: the dealer's, whatever this copy would deal. Every card once leaves room for
  // at most 100 - 2N - 1 of them.
  s.stack_size = s.options[0] ? 20 : 10;
  const size_t n = static_cast<size_t>(s.stack_size);
  if (t.size() < 26 + 8 * n + 4 || (t.size() - 26 - 8 * n) % 4 != 0) return std::nullopt;
  const size_t d = (t.size() - 26 - 8 * n) / 4;
  if (d > 99 - 2 * n) return std::nullopt;
  s.draw_count = static_cast<int>(d);
  std::bitset<101> seen;
  size_t at = 22;
  auto card = [&](int& into) {
    into = ReadNumber(t.substr(at, 4));
    at += 4;
    if (into < 1 || into > 100 || seen[static_cast<size_t>(into)]) return false;
    seen[static_cast<size_t>(into)] = true;
    return true;
  };
  for (size_t k = 0; k < n; ++k)
    if (!card(s.receiver_stack[k])) return std::nullopt;
  for (size_t k = 0; k < n; ++k)
    if (!card(s.sender_stack[k])) return std::nullopt;
  if (!card(s.discard)) return std::nullopt;
  for (size_t m = 0; m < d; ++m)
    if (!card(s.draw[m])) return std::nullopt;
  return s;
}

template <typename Pair>
std::optional<Message> DecodePair(std::string_view t, const Context& c) {
  if (t.size() != 8) return std::nullopt;
  const int a = ReadSlot(t.substr(4, 2), c), b = ReadSlot(t.substr(6, 2), c);
  if (a < 0 || b < 0) return std::nullopt;
  return Pair{a, b};
}

// "disc" and "draw": a blank and the slot, so 6 or 7 characters.
template <typename Move>
std::optional<Message> DecodeLead(std::string_view t, const Context& c) {
  if (t.size() != 6 && t.size() != 7) return std::nullopt;
  if (t[4] != ' ' || t[5] == ' ') return std::nullopt;
  const int slot = ReadSlot(t.substr(5), c);
  if (slot < 0) return std::nullopt;
  return Move{slot};
}

}  // namespace

std::string Encode(const Message& m) {
  std::string out = kKinds[m.index()].tag;
  std::visit(
      [&out](const auto& msg) {
        using T = std::decay_t<decltype(msg)>;
        if constexpr (std::is_same_v<T, CardClick>) {
          Put(out, msg.slot, 2);
        } else if constexpr (std::is_same_v<T, DiscardMove> || std::is_same_v<T, DrawMove>) {
          PutLead(out, msg.slot);
        } else if constexpr (std::is_same_v<T, Switch> || std::is_same_v<T, Smack>) {
          Put(out, msg.pos1, 2);
          Put(out, msg.pos2, 2);
        } else if constexpr (std::is_same_v<T, Take>) {
          Put(out, msg.own, 2);
          Put(out, msg.other, 2);
        } else if constexpr (std::is_same_v<T, Deal>) {
          out.reserve(kMaxMessageLength);
          for (bool on : msg.options) Put(out, on ? 1 : 0, 2);
          Put(out, 2, 2);
          Put(out, msg.fast_mode ? 1 : 2, 2);
          Put(out, msg.learn_mode ? 1 : 2, 2);
          const auto n = static_cast<size_t>(msg.stack_size);
          for (size_t k = 0; k < n; ++k) Put(out, msg.receiver_stack[k], 4);
          for (size_t k = 0; k < n; ++k) Put(out, msg.sender_stack[k], 4);
          Put(out, msg.discard, 4);
          for (size_t i = 0; i < static_cast<size_t>(msg.draw_count); ++i) Put(out, msg.draw[i], 4);
        }
      },
      m);
  return out;
}

std::optional<Message> Decode(std::string_view t, const Context& c) {
  if (t.size() < 4) return std::nullopt;
  const std::string_view tag = t.substr(0, 4);
  size_t kind = 0;
  while (kind < std::size(kKinds) && tag != kKinds[kind].tag) ++kind;
  switch (kind) {
    case 3:
      return DecodeSetup(t);
    case 4: {
      if (t.size() != 6) return std::nullopt;
      const int slot = ReadSlot(t.substr(4, 2), c);
      if (slot < 0) return std::nullopt;
      return CardClick{slot};
    }
    case 7:
      return DecodeLead<DiscardMove>(t, c);
    case 9:
      return DecodeLead<DrawMove>(t, c);
    case 11:
      return DecodePair<Switch>(t, c);
    case 12:
      return DecodePair<Smack>(t, c);
    case 13: {
      auto m = DecodePair<Smack>(t, c);
      if (!m) return std::nullopt;
      const auto& p = std::get<Smack>(*m);
      return Take{p.pos1, p.pos2};
    }
    default:
      break;
  }
  if (kind == std::size(kKinds) || t.size() != 4) return std::nullopt;
  // The tag-only messages, built from their index.
  static const Message kPlain[] = {Invite{},    Accept{},     Reject{},       Deal{},
                                   CardClick{}, ClearCards{}, DiscardClick{}, DiscardMove{},
                                   Look{},      DrawMove{},   Pass{},         Switch{},
                                   Smack{},     Take{},       Quit{},         Exit{}};
  return kPlain[kind];
}

std::string SentText(const Message& m) {
  return kKinds[m.index()].sent;
}

std::string ReceivedText(const Message& m) {
  return kKinds[m.index()].received;
}

bool IsRelayedClick(const Message& m) {
  return std::holds_alternative<CardClick>(m) || std::holds_alternative<ClearCards>(m) ||
         std::holds_alternative<DiscardClick>(m) || std::holds_alternative<Look>(m);
}

}  // namespace bq::net
