#include <algorithm>

#include "ai/decisions.h"

namespace bq::ai {

namespace {

// Side A's Stack has no sentinels to absorb a slot that an estimate pushes past either end.
int IntoStack(int slot, int n) {
  return std::clamp(slot, 1, n);
}

// Where the player probably keeps a card near x. Divided by the Stack size, not by the slot
// span, on purpose: with 20 cards this points about a quarter as far along.
int EstimatedSlot(int x, int n) {
  return x / n + 1;
}

int HalfEven(int sum) {
  return RoundHalfEven(sum / 2.0);
}

}  // namespace

// Takem is kept for the end game: at most two slots neither settled nor in a reversed pair.
bool WantsTakem(const Judgement& j) {
  return j.settled_count + j.reversed_count >= j.n - 2 && j.settled_count >= j.n - 3;
}

// One step stricter than Takem: at most one slot unjudged.
bool WantsSmackem(const Judgement& j) {
  return j.settled_count + j.reversed_count >= j.n - 1 && j.settled_count >= j.n - 2;
}

TakemChoice ChooseTakem(const Judgement& j, bool row_reversed, float r) {
  const int n = j.n;
  // A lone 'R' at slot n would look past the upper sentinel.
  const auto card = [&](int slot) { return j.b[std::clamp(slot, 0, n + 1)]; };
  TakemChoice choice{22, 22};
  bool found = false;
  for (int i = 1; i <= n && !found; ++i) {
    if (j.m[i] != 'R') continue;
    const int x = HalfEven(card(i - 1) + card(i + 2));
    choice.take_slot = EstimatedSlot(x, n);
    // Give away the card of the pair on the wrong side of the middle of the gap.
    choice.give_slot = card(i) > x ? i : i + 1;
    found = true;
  }
  for (int i = 1; i <= n && !found; ++i) {
    if (j.m[i] != '0') continue;
    const int x = HalfEven(j.high[i - 1] + j.low[i + 1]);
    choice.take_slot = EstimatedSlot(x, n);
    choice.give_slot = i;
    found = true;
  }
  // The player's direction is unknown to the computer, so under Backem it guesses.
  if (row_reversed && r < 0.5f) choice.take_slot = n + 1 - choice.take_slot;
  choice.take_slot = IntoStack(choice.take_slot, n);
  choice.give_slot = IntoStack(choice.give_slot, n);
  return choice;
}

SmackemChoice ChooseSmackem(int declined_card, int n, float r1, float r2) {
  if (n < 1) return {};
  const int k = EstimatedSlot(declined_card, n);
  const int d = n / 4;
  SmackemChoice choice;
  choice.slot1 = (k - d) - static_cast<int>(3.0f * r1);
  if (choice.slot1 < 1) choice.slot1 += n;
  choice.slot2 = (k + d) + static_cast<int>(2.0f * r2);
  if (choice.slot2 > n) choice.slot2 -= n;
  // One wrap is enough for every card with 10 or 20 slots; this only guards odd inputs.
  choice.slot1 = IntoStack(choice.slot1, n);
  choice.slot2 = IntoStack(choice.slot2, n);
  return choice;
}

}  // namespace bq::ai
