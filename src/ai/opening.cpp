#include <utility>

#include "ai/decisions.h"

namespace bq::ai {

namespace {

constexpr int kDealt = 1;
constexpr int kReversed = 2;

Trial Judge(Judgement& t) {
  t.ClearMarks();
  t.ResetRanges();
  t.UpdateJudgement();
  return {t.settled_count, t.reversed_count, t.Score()};
}

void ReverseSlots(Judgement& t) {
  for (int i = 1, k = t.n; i < k; ++i, --k) std::swap(t.b[i], t.b[k]);
}

// Candidates are compared in this order: more settled slots, then more reversed marks, then a
// strictly lower score, so of equal candidates the first one found stays.
bool Beats(const Trial& candidate, const Trial& best, int best_reversed) {
  if (candidate.settled != best.settled) return candidate.settled > best.settled;
  if (candidate.reversed != best_reversed) return candidate.reversed > best_reversed;
  return candidate.score < best.score;
}

}  // namespace

SwitchChoice ChooseSwitchem(const Judgement& current, bool backem, Judgement* last_trial) {
  const int n = current.n;
  const int orientations = backem ? 2 : 1;
  // [orientation][p][q]; [1][0][0] stays all zero as the starting best.
  Trial table[3][kMaxSlots + 1][kMaxSlots + 1] = {};

  Judgement copies[3] = {current, current, current};
  ReverseSlots(copies[kReversed]);
  for (int o = 1; o <= orientations; ++o) {
    Judgement unchanged = copies[o];
    const Trial as_is = Judge(unchanged);
    // (n, n) of the last orientation is the last trial in the order the pairs are tried.
    if (last_trial != nullptr && o == orientations) *last_trial = unchanged;
    for (int p = 1; p <= n; ++p) {
      table[o][p][p] = as_is;
      // (p, q) and (q, p) are the same arrangement, so each is judged once.
      for (int q = p + 1; q <= n; ++q) {
        Judgement t = copies[o];
        std::swap(t.b[p], t.b[q]);
        table[o][p][q] = table[o][q][p] = Judge(t);
      }
    }
  }

  int best_o = kDealt;
  int best_p = 0;
  int best_q = 0;
  for (int p = 1; p <= n; ++p) {
    for (int q = 1; q <= n; ++q) {
      for (int o = 1; o <= orientations; ++o) {
        // The reversed marks are compared with the entry (best_p, best_p), not (best_p,
        // best_q), on purpose; so the mirror (q, p) of a best pair with reversed marks replaces it.
        if (Beats(table[o][p][q], table[best_o][best_p][best_q],
                  table[best_o][best_p][best_p].reversed)) {
          best_o = o;
          best_p = p;
          best_q = q;
        }
      }
    }
  }
  return {best_p, best_q, best_o == kReversed};
}

bool ChooseReversal(const Judgement& current, int discard_top, Judgement* last_trial) {
  const int n = current.n;
  // [orientation][k]; [0][0] is the all-zero starting best.
  Trial table[3][kMaxSlots + 1] = {};
  for (int k = 1; k <= n; ++k) {
    Judgement t = current;
    t.b[k] = discard_top;
    table[kDealt][k] = Judge(t);
    ReverseSlots(t);
    table[kReversed][k] = Judge(t);
    if (last_trial != nullptr && k == n) *last_trial = t;
  }

  int best_o = 0;
  int best_k = 0;
  for (int k = 1; k <= n; ++k) {
    for (int o = kDealt; o <= kReversed; ++o) {
      const Trial& best = table[best_o][best_k];
      if (Beats(table[o][k], best, best.reversed)) {
        best_o = o;
        best_k = k;
      }
    }
  }
  return best_o == kReversed;
}

}  // namespace bq::ai
