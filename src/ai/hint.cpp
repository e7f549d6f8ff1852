#include "ai/hint.h"

#include <optional>

#include "ai/turn.h"

namespace bq::ai {

Advice Advise(const HintView& v) {
  Judgement j;
  Rejudge(j, v.n, v.own);
  const bool reversed = v.backem && ChooseReversal(j, v.discard_top);
  if (reversed) {
    SlotArray mirrored{};
    for (int k = 1; k <= j.n; ++k) mirrored[static_cast<size_t>(k)] = v.own[j.n + 1 - k];
    Rejudge(j, v.n, mirrored.data());
  }
  const auto slot = [&](int s) { return reversed ? j.n + 1 - s : s; };

  Advice advice;
  if (v.drawn == 0) {
    const CardChoice take = JudgeCard(j, v.discard_top);
    if (take.wanted) advice = {Advice::Kind::kTakeDiscard, slot(take.slot)};
    return advice;
  }
  CardChoice take = JudgeCard(j, v.drawn);
  if (!take.wanted) take = JudgeDrawCard(j, v.drawn);
  if (take.wanted)
    advice = {Advice::Kind::kTakeDraw, slot(take.slot)};
  else
    advice.kind = Advice::Kind::kPass;
  return advice;
}

Advice ExpertAdvice(const Expert& expert, const SeatView& v) {
  const std::optional<Move> m = expert.Decide(v);
  if (!m) return {Advice::Kind::kLookAtDraw, 0};
  switch (m->kind) {
    case MoveKind::kTakeDiscard:
      return {Advice::Kind::kTakeDiscard, m->slot1};
    case MoveKind::kTakeDraw:
      return {Advice::Kind::kTakeDraw, m->slot1};
    case MoveKind::kTakem: {
      const int slot = v.opponent_row_reversed ? v.stack_size + 1 - m->slot2 : m->slot2;
      return {Advice::Kind::kTakem, m->slot1, m->slot2, v.theirs[static_cast<size_t>(slot)]};
    }
    default:
      return {Advice::Kind::kPass, 0};
  }
}

}  // namespace bq::ai
