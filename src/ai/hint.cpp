#include "ai/hint.h"

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

}  // namespace bq::ai
