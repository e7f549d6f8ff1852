#pragma once

#include <array>
#include <string>

namespace bq::ai {

inline constexpr int kMaxSlots = 20;
using SlotArray = std::array<int, kMaxSlots + 2>;

// The computer's judgement of its Stack: per slot a mark ('1' settled, 'R' one card of a reversed
// pair, '0' not settled) and a range of card numbers that would suit it. A plain value, so the
// opening search can try thousands of positions by copying it.
struct Judgement {
  int n = 10;          // StackSize
  int slot_span = 10;  // 100 / n
  SlotArray b{};       // b[0] = 0, b[1..n] the cards, b[n + 1] = 101
  std::array<char, kMaxSlots + 2> m{};
  SlotArray low{};
  SlotArray high{};
  int settled_count = 0;
  int reversed_count = 0;

  // Sets the Stack size and copies cards[1..n] into b with the sentinels.
  void SetStack(int stack_size, const int* cards);
  // Marks 1..n to '0' (the sentinels to '1') and both counts to 0.
  void ClearMarks();
  void ResetRanges();
  // Returns whether any mark changed (the counts may change without it).
  bool MarkingPass();
  // Quartets i (as bits) whose cards alone allow a reversed pair, or a pair one apart.
  struct PairCandidates {
    unsigned reversed = 0;
    unsigned adjacent = 0;
  };
  PairCandidates FindPairCandidates() const;
  bool MarkingPass(const PairCandidates& c);
  void RangePass();
  // Both passes, repeated while the counts keep changing (at most n + 1 rounds).
  void UpdateJudgement();
  // The middle of slot i's range.
  double Mid(int i) const { return (low[i] + high[i]) / 2.0; }
  // Sum of (b[i] - Mid(i))^2 over the slots; lower is better.
  double Score() const;
  std::string ToString() const;
};

// Rounds to the nearest integer, halves to the even neighbour, whatever the FPU rounding mode.
int RoundHalfEven(double x);

}  // namespace bq::ai
