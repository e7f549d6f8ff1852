#pragma once

#include <array>
#include <string>

#include "store/settings.h"

namespace bq {

enum class Outcome { kWin = 1, kLoss = 2, kTie = 3 };

// Counts one finished game: rows 1..6 by the five option boxes (Stackem, Backem, Switchem,
// Smackem, Takem, in that order), row 7 always, the runs and the record. Counters stop at 32767.
void ApplyResult(GameStats& stats, Outcome outcome, const std::array<bool, 5>& options);

// "##0.00%": at least one integer digit, two decimals. 1/3 gives "33.33%".
std::string FormatPercent(float fraction);

}  // namespace bq
