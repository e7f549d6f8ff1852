#include "ui/model/hint_model.h"

namespace bq {

HintModel::Seen HintModel::See(const GameState& g, bool draw_looked) {
  Seen s;
  s.n = g.stack_size;
  for (int k = 1; k <= s.n; ++k) s.own[static_cast<size_t>(k)] = g.Card(kSideA, k);
  s.discard_top = g.discard_top;
  s.drawn = draw_looked ? g.DrawTop() : 0;
  s.moves = g.move_count_a + g.move_count_b;
  return s;
}

void HintModel::Ask(const Seen& seen, bool backem) {
  Ask(seen, ai::Advise({seen.own.data(), seen.n, seen.discard_top, seen.drawn, backem}), false);
}

void HintModel::Ask(const Seen& seen, const ai::Advice& advice, bool expert) {
  seen_ = seen;
  advice_ = advice;
  expert_ = expert;
  active_ = true;
}

void HintModel::Follow(const Seen& seen) {
  if (active_ && !(seen == seen_)) active_ = false;
}

std::string HintModel::Text() const {
  if (!active_) return "";
  return (expert_ ? "The Expert suggests: " : "Hint: ") + Words();
}

std::string HintModel::Words() const {
  const std::string replaced =
      advice_.slot > 0 ? std::to_string(seen_.own[static_cast<size_t>(advice_.slot)]) : "";
  const std::string where = " in place of your " + replaced + " (card " +
                            std::to_string(advice_.slot) + " of your Stack).";
  switch (advice_.kind) {
    case ai::Advice::Kind::kTakeDiscard:
      return "take the Discard Pile card, " + std::to_string(seen_.discard_top) + "," + where;
    case ai::Advice::Kind::kLookAtDraw:
      return "leave the Discard Pile card and look at the Draw Pile card.";
    case ai::Advice::Kind::kTakeDraw:
      return "take the Draw Pile card, " + std::to_string(seen_.drawn) + "," + where;
    case ai::Advice::Kind::kPass:
      return "pass; the Draw Pile card, " + std::to_string(seen_.drawn) +
             ", does not help your Stack.";
    case ai::Advice::Kind::kTakem:
      return "use Takem: give your " + replaced + " (card " + std::to_string(advice_.slot) +
             " of your Stack) for your opponent's " + std::to_string(advice_.their_card) +
             " (card " + std::to_string(advice_.their_slot) + " of their Stack).";
  }
  return "";
}

}  // namespace bq
