#include "store/statistics.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace bq {
namespace {

constexpr int kCounterMax = 32767;

// The game's counters are 16 bits; at the top they stay put rather than wrap negative.
void Raise(int& counter) {
  if (counter < kCounterMax) ++counter;
}

}  // namespace

void ApplyResult(GameStats& stats, Outcome outcome, const std::array<bool, 5>& options) {
  std::array<int, 9>& own = outcome == Outcome::kWin    ? stats.wins
                            : outcome == Outcome::kLoss ? stats.losses
                                                        : stats.ties;
  bool any_option = false;
  for (size_t i = 0; i < options.size(); ++i) {
    if (!options[i]) continue;
    any_option = true;
    Raise(own[i + 2]);
  }
  if (!any_option) Raise(own[1]);
  Raise(own[7]);

  int* run = outcome == Outcome::kWin    ? &stats.w_streak
             : outcome == Outcome::kLoss ? &stats.l_streak
                                         : &stats.t_streak;
  for (int* streak : {&stats.w_streak, &stats.l_streak, &stats.t_streak})
    if (streak != run) *streak = 0;
  Raise(*run);
  if (*run > own[8]) own[8] = *run;

  stats.last_winner = static_cast<int>(outcome);
}

std::string FormatPercent(float fraction) {
  // A float times 10000 is exact in a double (24 + 14 bits), so the rounding to hundredths of a
  // percent below sees the true value and halves go away from zero, as the game's format does.
  const double hundredths = static_cast<double>(fraction) * 10000.0;
  char buf[64];
  if (!std::isfinite(hundredths) || std::fabs(hundredths) > 1e15) {
    std::snprintf(buf, sizeof buf, "%.2f%%", static_cast<double>(fraction) * 100.0);
    return buf;
  }
  const long long n = std::llround(hundredths);
  std::snprintf(buf, sizeof buf, "%s%lld.%02lld%%", n < 0 ? "-" : "", std::llabs(n) / 100,
                std::llabs(n) % 100);
  return buf;
}

}  // namespace bq
