#pragma once

#include "ai/judgement.h"

namespace bq::ai {

struct CardChoice {
  bool wanted = false;
  int slot = 0;  // 1..n when wanted
};

// Whether the computer takes `card` and where. May narrow ranges in `j` as the rules say.
CardChoice JudgeCard(Judgement& j, int card);
// The second judge, used for the Draw Pile card when JudgeCard declines it.
CardChoice JudgeDrawCard(Judgement& j, int card);

// Candidate outcome of a trial arrangement.
struct Trial {
  int settled = 0;
  int reversed = 0;
  double score = 0;
};

// The Switchem opening: every ordered pair (p, q) in the dealt orientation and, with Backem, the
// reversed one. `p`, `q` are slots of the chosen orientation's Stack (0, 0 when nothing helps).
// The computer makes its trials on its own judgement and goes on from what the last one left;
// `last_trial`, when given, receives that judgement.
struct SwitchChoice {
  int p = 0;
  int q = 0;
  bool reversed = false;
};
SwitchChoice ChooseSwitchem(const Judgement& current, bool backem, Judgement* last_trial = nullptr);

// The direction choice at the first turn under Backem without Switchem: true = reverse.
// `last_trial` as for ChooseSwitchem.
bool ChooseReversal(const Judgement& current, int discard_top, Judgement* last_trial = nullptr);

// Takem and Smackem, for the end game only.
bool WantsTakem(const Judgement& j);
bool WantsSmackem(const Judgement& j);
struct TakemChoice {
  int take_slot = 0;  // slot of side A's Stack, brought back into 1..n
  int give_slot = 0;  // slot of side B's Stack, 1..n
};
// `r` is the one draw made when the opponent's row is reversed (ignored otherwise).
TakemChoice ChooseTakem(const Judgement& j, bool row_reversed, float r);
struct SmackemChoice {
  int slot1 = 0;
  int slot2 = 0;
};
SmackemChoice ChooseSmackem(int declined_card, int n, float r1, float r2);

}  // namespace bq::ai
