#include "ai/judgement.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>

namespace bq::ai {

namespace {

constexpr int kDeckSize = 100;

}  // namespace

int RoundHalfEven(double x) {
  // floor() and fmod() without library calls: exact for every value an int holds.
  int whole = static_cast<int>(x);
  if (static_cast<double>(whole) > x) --whole;
  const double frac = x - whole;
  if (frac > 0.5 || (frac == 0.5 && (whole & 1) != 0)) ++whole;
  return whole;
}

void Judgement::SetStack(int stack_size, const int* cards) {
  n = std::clamp(stack_size, 1, kMaxSlots);
  slot_span = kDeckSize / n;
  b.fill(0);
  for (int i = 1; i <= n; ++i) b[i] = cards[i];
  b[n + 1] = kDeckSize + 1;
}

void Judgement::ClearMarks() {
  m.fill('0');
  m[0] = '1';
  m[n + 1] = '1';
  settled_count = 0;
  reversed_count = 0;
}

void Judgement::ResetRanges() {
  high[0] = 0;
  low[n + 1] = kDeckSize + 1;
  for (int i = 1; i <= n; ++i) {
    low[i] = high[i - 1] + 1;
    high[i] = i * slot_span;
  }
}

// The three pair patterns of the marking pass ask first of all for an order of the cards
// themselves, which stays the same through a whole UpdateJudgement: where it holds is found once,
// so a pass only looks at those quartets, still in ascending order.
Judgement::PairCandidates Judgement::FindPairCandidates() const {
  PairCandidates c;
  for (int i = 0; i <= n - 2; ++i) {
    // b[i + 2] - b[i] > 1 already says b[i] < b[i + 2], and likewise for b[i + 1] < b[i + 3].
    const bool room = b[i + 3] - b[i + 1] > 1;
    const bool reversed = room & (b[i + 2] - b[i] > 1) & (b[i + 2] < b[i + 1]);
    const bool adjacent = room & (b[i + 1] - b[i + 2] == 1);
    c.reversed |= static_cast<unsigned>(reversed) << i;
    c.adjacent |= static_cast<unsigned>(adjacent) << i;
  }
  return c;
}

bool Judgement::MarkingPass() {
  return MarkingPass(FindPairCandidates());
}

bool Judgement::MarkingPass(const PairCandidates& c) {
  // A mark may change and change back within one pass; only the marks it leaves count.
  const auto marks_before = m;
  bool written = false;
  for (int i = 1; i <= n; ++i) {
    const bool settles = (low[i] <= b[i]) & (b[i] <= high[i]) & (m[i] != '1');
    m[i] = settles ? '1' : m[i];
    settled_count += settles;
    written |= settles;
  }
  const auto each = [](unsigned bits, auto&& f) {
    for (; bits != 0; bits &= bits - 1) f(std::countr_zero(bits));
  };
  // A pair already marked 'R' is counted again on every pass; the counts are totals of marks
  // given, and the loop in UpdateJudgement relies on that.
  each(c.reversed, [&](int i) {
    if (m[i] == '1' && m[i + 3] == '1') {
      m[i + 1] = 'R';
      m[i + 2] = 'R';
      reversed_count += 2;
      written = true;
    }
  });
  const auto mark_neighbours = [&](int i) {
    m[i + 1] = 'R';
    m[i + 2] = 'R';
    reversed_count += 2;
    --settled_count;
    written = true;
  };
  each(c.adjacent, [&](int i) {
    if (m[i] == '0' && m[i + 3] == '1' && (m[i + 1] == '1' || m[i + 2] == '1')) mark_neighbours(i);
  });
  // The distance test against b[i + 3] is the same as above even though slot i + 3 is the
  // unsettled one here; changing it would change which pairs the computer sees.
  each(c.adjacent, [&](int i) {
    if (m[i] == '1' && m[i + 3] == '0' && (m[i + 1] == '1' || m[i + 2] == '1')) mark_neighbours(i);
  });
  return written && m != marks_before;
}

void Judgement::RangePass() {
  if (settled_count < 1) return;
  low[1] = 1;
  high[n] = kDeckSize;
  // Run bounds. Slots 1 and n count only as the virtual bounds 0 and n + 1, and only when
  // unsettled; 'R' slots are never bounds.
  std::array<int, kMaxSlots + 2> p;  // only 1..count are read
  int count = 0;
  if (m[1] == '0') p[++count] = 0;
  bool any_reversed = n == 2;  // the one pair the loop below cannot see
  if (n >= 2) {
    if (m[1] == '1') low[2] = b[1] + 1;
    for (int i = 2; i <= n - 1; ++i) {
      if (m[i] == '1') {
        high[i - 1] = b[i] - 1;
        low[i + 1] = b[i] + 1;
        p[++count] = i;
      } else {
        any_reversed |= m[i] == 'R';
      }
    }
    if (m[n] == '1') high[n - 1] = b[n] - 1;
  }
  if (m[n] == '0') p[++count] = n + 1;

  for (int s = 1; s < count; ++s) {
    const int a = p[s] + 1;
    const int end = p[s + 1];
    const int k = end - a;
    if (k <= 1) continue;
    const int first_low = low[a];
    // Single precision on purpose: the shares round differently in double.
    const float w = static_cast<float>(high[end - 1] - first_low - k + 1) / static_cast<float>(k);
    for (int j = a; j < end; ++j) {
      const float top = static_cast<float>(first_low) + static_cast<float>(j - a + 1) * w +
                        static_cast<float>(j - a);
      high[j] = RoundHalfEven(top);
      if (j > a) low[j] = high[j - 1] + 1;
    }
  }

  for (int i = 1; any_reversed && i <= n - 1; ++i) {
    if (m[i] == 'R' && m[i + 1] == 'R') {
      high[i] = b[i + 1] - 1;
      low[i + 1] = b[i] + 1;
    }
  }
}

void Judgement::UpdateJudgement() {
  int noted_settled = settled_count;
  int noted_reversed = reversed_count;
  const PairCandidates candidates = FindPairCandidates();
  MarkingPass(candidates);
  RangePass();
  if (settled_count == 0 && reversed_count == 0) return;
  for (int round = 1; round <= n; ++round) {
    if (settled_count == noted_settled && reversed_count == noted_reversed) return;
    noted_settled = settled_count;
    noted_reversed = reversed_count;
    // A range pass repeated on its own result with the same marks changes nothing, so a
    // marking pass that changes no mark has reached a fixed point: every remaining round would
    // only count the standing 'R' pairs again, so add those counts at once. This keeps the
    // opening search and self-play fast.
    if (!MarkingPass(candidates)) {
      const int rounds_left = n - round;
      settled_count += (settled_count - noted_settled) * rounds_left;
      reversed_count += (reversed_count - noted_reversed) * rounds_left;
      return;
    }
    RangePass();
  }
}

double Judgement::Score() const {
  double sum = 0;
  for (int i = 1; i <= n; ++i) {
    const double d = b[i] - Mid(i);
    sum += d * d;
  }
  return sum;
}

std::string Judgement::ToString() const {
  std::string out;
  char line[96];
  std::snprintf(line, sizeof line, "n=%d span=%d settled=%d reversed=%d\n", n, slot_span,
                settled_count, reversed_count);
  out += line;
  for (int i = 0; i <= n + 1; ++i) {
    const char mark = m[i] == 0 ? '?' : m[i];
    if (i == 0 || i == n + 1) {
      std::snprintf(line, sizeof line, "  [%2d] %3d %c\n", i, b[i], mark);
    } else {
      std::snprintf(line, sizeof line, "  [%2d] %3d %c  %4d..%-4d mid %.1f\n", i, b[i], mark,
                    low[i], high[i], Mid(i));
    }
    out += line;
  }
  return out;
}

}  // namespace bq::ai
