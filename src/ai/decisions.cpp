#include "ai/decisions.h"

#include <algorithm>

namespace bq::ai {

namespace {

// The least gain in room that makes a quartet move worth a turn: 6 with 10 cards, 3 with 20.
int GainThreshold(const Judgement& j) {
  return 60 / j.n;
}

bool QuartetQualifies(const Judgement& j, int i) {
  return j.m[i] == '1' && j.m[i + 3] == '1' && !(j.m[i + 1] == '1' && j.m[i + 2] == '1');
}

bool IsReversedPair(const Judgement& j, int i) {
  return j.m[i + 1] == 'R' && j.m[i + 2] == 'R';
}

// The room of a quartet whose outer cards are lo and hi: for each inner slot, the card numbers
// strictly between lo and hi that would stand in order with the other inner card. For inner
// cards inside the gap this is (hi - inner1 - 1) + (inner2 - lo - 1), the measure the reversed
// pair uses; an inner card beyond the gap on its partner's side leaves the partner no room.
int Room(int lo, int inner1, int inner2, int hi) {
  const int below_inner2 = std::max(0, std::min(hi, inner2) - lo - 1);
  const int above_inner1 = std::max(0, hi - std::max(lo, inner1) - 1);
  return below_inner2 + above_inner1;
}

void NarrowAt(Judgement& j, int i, int slot, int c) {
  if (slot == i + 1) {
    j.high[i + 1] = c;
    j.low[i + 2] = c + 1;
  } else {
    j.high[i + 1] = c - 1;
    j.low[i + 2] = c;
  }
}

// The reversed pair rule, with its own room measure and no ratio test. Returns the slot or 0.
int ReversedPairSlot(const Judgement& j, int i, int c) {
  const auto& b = j.b;
  if (!(b[i] < c && c < b[i + 3])) return 0;
  const int before = (b[i + 3] - b[i + 1] - 1) + (b[i + 2] - b[i] - 1);
  int slot = 0;
  int after = 0;
  if (b[i + 1] - c < c - b[i + 2]) {
    slot = i + 2;
    after = (b[i + 3] - b[i + 1] - 1) + (c - b[i] - 1);
  } else {
    slot = i + 1;
    after = (b[i + 3] - c - 1) + (b[i + 2] - b[i] - 1);
  }
  return after - before >= GainThreshold(j) ? slot : 0;
}

// Tries c in place of the inner cards allowed by `may_replace`: the lower inner card only by a
// lower card and the upper one only by a higher card, the only moves that raise the room. Of
// two passing moves the larger gain wins, the lower slot on a tie. Returns the slot or 0.
template <typename MayReplace>
int RoomRaisingSlot(const Judgement& j, int i, int c, MayReplace may_replace) {
  const auto& b = j.b;
  const int lo = b[i];
  const int hi = b[i + 3];
  if (!(lo < c && c < hi)) return 0;
  const int before = Room(lo, b[i + 1], b[i + 2], hi);
  int best_slot = 0;
  int best_gain = 0;
  const auto consider = [&](int slot, int after) {
    const int gain = after - before;
    // after / before >= 1.3, kept in integers so that before = 0 needs no special case
    if (gain < GainThreshold(j) || 10 * after < 13 * before) return;
    if (best_slot == 0 || gain > best_gain) {
      best_slot = slot;
      best_gain = gain;
    }
  };
  if (c < b[i + 1] && j.m[i + 1] != '1' && may_replace(i + 1)) {
    consider(i + 1, Room(lo, c, b[i + 2], hi));
  }
  if (c > b[i + 2] && j.m[i + 2] != '1' && may_replace(i + 2)) {
    consider(i + 2, Room(lo, b[i + 1], c, hi));
  }
  return best_slot;
}

bool InGap(const Judgement& j, int i, int card) {
  return j.b[i] < card && card < j.b[i + 3];
}

// The quartet patterns, each only between two settled slots (see QuartetQualifies):
//
// JudgeCard, "spread an ordered quartet": both inner cards lie in order inside the gap, so they
//   are cramped towards each other or towards one end. A card below the lower inner card
//   replaces it, or one above the upper inner card replaces that, when the room rises enough.
//   That widens the middle of the quartet, so the next cards for it are easier to find.
//
// JudgeDrawCard, "replace a stray": an inner card lies outside the gap on the side where it
//   blocks its partner (the lower inner card at or above the upper outer card, or the upper one
//   at or below the lower outer card). It must go anyway; c, inside the gap and in order with a
//   partner that is itself inside the gap, replaces it when the room rises enough. The range fit
//   of JudgeCard misses these when the stray's range lies elsewhere, and a Draw Pile card that
//   is declined is gone, so the second judge takes them.
//
// Both use the same room measure, the same 60 / n gain and 1.3 ratio, and narrow the ranges of
// the inner slots to meet at c so that the card can settle at the next judgement.
int OrderedQuartetSlot(const Judgement& j, int i, int c) {
  const auto& b = j.b;
  if (!(b[i] < b[i + 1] && b[i + 1] < b[i + 2] && b[i + 2] < b[i + 3])) return 0;
  return RoomRaisingSlot(j, i, c, [](int) { return true; });
}

int StraySlot(const Judgement& j, int i, int c) {
  const bool lower_in = InGap(j, i, j.b[i + 1]);
  const bool upper_in = InGap(j, i, j.b[i + 2]);
  if (lower_in && upper_in) return 0;
  return RoomRaisingSlot(j, i, c, [&](int slot) {
    if (slot == i + 1) return !lower_in && (!upper_in || c < j.b[i + 2]);
    return !upper_in && (!lower_in || c > j.b[i + 1]);
  });
}

template <typename Pattern>
CardChoice QuartetScan(Judgement& j, int c, bool with_reversed_pair, Pattern pattern) {
  for (int i = 0; i <= j.n - 2; ++i) {
    // Every pattern places c strictly between the outer cards; that test is the cheapest.
    if (!InGap(j, i, c) || !QuartetQualifies(j, i)) continue;
    int slot = 0;
    if (IsReversedPair(j, i)) {
      if (with_reversed_pair) slot = ReversedPairSlot(j, i, c);
    } else {
      slot = pattern(j, i, c);
    }
    if (slot != 0) {
      NarrowAt(j, i, slot, c);
      return {true, slot};
    }
  }
  return {};
}

}  // namespace

CardChoice JudgeCard(Judgement& j, int card) {
  const CardChoice quartet = QuartetScan(j, card, true, OrderedQuartetSlot);
  if (quartet.wanted) return quartet;
  // No early exit: of several fitting slots the highest is meant to win.
  CardChoice fit;
  for (int s = 1; s <= j.n; ++s) {
    if (j.m[s] != '1' && j.low[s] <= card && card <= j.high[s]) fit = {true, s};
  }
  return fit;
}

CardChoice JudgeDrawCard(Judgement& j, int card) {
  const CardChoice quartet = QuartetScan(j, card, false, StraySlot);
  if (quartet.wanted) return quartet;
  const auto& b = j.b;
  if (card < b[1] && j.m[1] == '1') {
    const bool slot_one = b[1] - card > 1 || j.m[2] != '0' || card - b[0] < 2;
    return {true, slot_one ? 1 : 2};
  }
  return {};
}

}  // namespace bq::ai
