// The judgement display, and the game values that tests and the driver read and set by name.
#include <charconv>
#include <sstream>

#include "ui/model/game_model.h"

namespace bq {
namespace {

template <typename Array>
std::string Join(const Array& values, int first, int last) {
  std::string out;
  for (int i = first; i <= last; ++i) {
    if (i > first) out += ' ';
    out += std::to_string(values[static_cast<size_t>(i)]);
  }
  return out;
}

// Whole numbers separated by blanks; nullopt when anything else is in the way.
std::optional<std::vector<int>> ParseNumbers(std::string_view text) {
  std::vector<int> numbers;
  size_t i = 0;
  while (i < text.size()) {
    if (text[i] == ' ' || text[i] == '\t') {
      ++i;
      continue;
    }
    int value = 0;
    const auto [ptr, ec] = std::from_chars(text.data() + i, text.data() + text.size(), value);
    if (ec != std::errc()) return std::nullopt;
    const size_t end = static_cast<size_t>(ptr - text.data());
    if (end < text.size() && text[end] != ' ' && text[end] != '\t') return std::nullopt;
    numbers.push_back(value);
    i = end;
  }
  return numbers;
}

bool AllCards(const std::vector<int>& v) {
  for (int c : v)
    if (c < 1 || c > kDeckSize) return false;
  return true;
}

}  // namespace

void GameModel::ToggleJudgementDisplay() {
  judgement_shown_ = !judgement_shown_;
  if (judgement_shown_ && game_running_ && !game_over_) shown_face_up_ = true;
  if (judgement_shown_) {
    SetFastMode(false);
    SetLearnMode(true);
    StatusBar1[2].caption = ExpertPlaying() ? "Showing the Expert's cards; it keeps no marks"
                                            : "Showing the computer's judgement";
  } else {
    SetFastMode(saved_fast_mode_);
    SetLearnMode(saved_learn_mode_);
    StatusBar1[2].caption = "Computer's judgement hidden";
  }
  RefreshSlotVisibility();
  // Each mark goes to its slot's own index, even while the Stack is held reversed, until the next
  // marking pass puts it at its screen position. The opponent's cards follow Learn Mode alone.
  for (int k = 1; k <= N(); ++k) {
    const auto i = static_cast<size_t>(k);
    lblGoodBad[i].caption = MarkText(k);
    lblCardB[i].visible = learn_mode_;
  }
}

std::optional<std::string> GameModel::GetField(std::string_view field) const {
  const auto flag = [](bool b) { return std::string(b ? "1" : "0"); };
  const int n = N();
  if (field == "TurnOwner") return std::to_string(g_.turn_owner);
  if (field == "TurnResult") return std::to_string(g_.turn_result);
  if (field == "StackSize") return std::to_string(n);
  if (field == "SlotSpan") return std::to_string(g_.slot_span);
  if (field == "DrawCount") return std::to_string(g_.draw_count);
  if (field == "DrawPos") return std::to_string(g_.draw_pos);
  if (field == "DiscardTop") return std::to_string(g_.discard_top);
  if (field == "BuriedCount") return std::to_string(g_.buried_count);
  if (field == "MoveCountA") return std::to_string(g_.move_count_a);
  if (field == "MoveCountB") return std::to_string(g_.move_count_b);
  if (field == "VsComputer") return flag(vs_computer_);
  if (field == "IsDealer") return flag(remote_.is_dealer);
  if (field == "FastMode") return flag(fast_mode_);
  if (field == "LearnMode") return flag(learn_mode_);
  if (field == "OpponentRowReversed") return flag(g_.opponent_row_reversed);
  if (field == "SettledCount") return std::to_string(judge_.settled_count);
  if (field == "ReversedCount") return std::to_string(judge_.reversed_count);
  if (field == "Stacks(1)") return Join(g_.stacks[kSideA], 1, n);
  if (field == "Stacks(2)") return Join(g_.stacks[kSideB], 1, n);
  if (field == "DrawCards") return Join(g_.draw_cards, 1, g_.draw_count);
  if (field == "Low") return Join(judge_.low, 1, n);
  if (field == "High") return Join(judge_.high, 1, n);
  if (field == "Highlights") {  // the controls lit up, in the window's order
    std::string out;
    for (const auto& nc : Controls()) {
      if (nc.control->highlight == kHighlightNone) continue;
      if (!out.empty()) out += ' ';
      out += nc.name;
    }
    return out;
  }
  if (field == "Marks") {
    if (ExpertPlaying()) return "";  // the Expert keeps none
    std::string out;
    for (int k = 1; k <= n; ++k) {
      if (k > 1) out += ' ';
      out += judge_.m[static_cast<size_t>(k)];
    }
    return out;
  }
  return std::nullopt;
}

std::string GameModel::SetGameValue(std::string_view field, std::string_view values) {
  const auto numbers = ParseNumbers(values);
  if (!numbers || numbers->empty()) return "expected whole numbers";
  const std::vector<int>& v = *numbers;
  const int n = N();
  if (field == "Stacks(1)" || field == "Stacks(2)") {
    if (static_cast<int>(v.size()) != n) return "expected " + std::to_string(n) + " cards";
    if (!AllCards(v)) return "cards are 1..100";
    const int side = field == "Stacks(1)" ? kSideA : kSideB;
    for (int k = 1; k <= n; ++k) g_.Card(side, k) = v[static_cast<size_t>(k - 1)];
    for (int k = 1; k <= n; ++k) side == kSideA ? ShowCardA(k) : ShowCardB(k);
    if (side == kSideB) ResetComputerJudgement();
    return "";
  }
  if (field == "DiscardTop") {
    if (v.size() != 1 || !AllCards(v)) return "expected one card 1..100";
    g_.discard_top = v[0];
    if (!lblDiscardPile.caption.empty()) lblDiscardPile.caption = CardFace(g_.discard_top);
    return "";
  }
  if (field == "DrawCards") {
    if (static_cast<int>(v.size()) > g_.draw_count)
      return "at most " + std::to_string(g_.draw_count) + " cards";
    if (!AllCards(v)) return "cards are 1..100";
    for (size_t m = 0; m < v.size(); ++m) g_.draw_cards[m + 1] = v[m];
    if (lblDrawPile.caption != kFaceDown) lblDrawPile.caption = CardFace(g_.DrawTop());
    return "";
  }
  if (field == "DrawPos") {
    if (v.size() != 1 || v[0] < 1 || v[0] > g_.draw_count)
      return "expected a position 1.." + std::to_string(g_.draw_count);
    g_.draw_pos = v[0];
    if (lblDrawPile.caption != kFaceDown) lblDrawPile.caption = CardFace(g_.DrawTop());
    return "";
  }
  if (field == "TurnOwner") {
    if (v.size() != 1 || (v[0] != kSideA && v[0] != kSideB)) return "expected 1 or 2";
    g_.turn_owner = v[0];
    return "";
  }
  return "unknown field";
}

}  // namespace bq
