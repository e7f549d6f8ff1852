// The computer player's hot paths. Positions come from seeded simulated games, so runs compare.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "ai/decisions.h"

namespace {

using bq::ai::CardChoice;
using bq::ai::Judgement;

// A computer Stack just after one of its moves, before the judgement is brought up to date,
// and the two cards its next turn will look at.
struct Position {
  Judgement j;
  int discard = 0;
  int draw = 0;
};

Judgement Deal(int n, const std::vector<int>& deck) {
  std::vector<int> slots{0};
  slots.insert(slots.end(), deck.begin(), deck.begin() + n);
  Judgement j;
  j.SetStack(n, slots.data());
  j.ClearMarks();
  j.ResetRanges();
  j.UpdateJudgement();
  return j;
}

int SettledSlots(const Judgement& j) {
  return static_cast<int>(std::count(&j.m[1], &j.m[j.n + 1], '1'));
}

// Plays the computer's pile moves against random pile cards until a random share of its slots,
// from a third to all but two, is settled: the middle of a game.
std::vector<Position> MidGamePositions(int n, int count, unsigned seed) {
  std::mt19937 rng(seed);
  std::vector<Position> out;
  std::vector<int> deck(100);
  while (static_cast<int>(out.size()) < count) {
    std::iota(deck.begin(), deck.end(), 1);
    std::shuffle(deck.begin(), deck.end(), rng);
    Judgement j = Deal(n, deck);
    size_t next = static_cast<size_t>(n);
    const int target = n / 3 + static_cast<int>(rng() % static_cast<unsigned>(n - 1 - n / 3));
    while (next + 3 < deck.size()) {
      int card = deck[next++];
      CardChoice c = bq::ai::JudgeCard(j, card);
      if (!c.wanted) {
        card = deck[next++];
        c = bq::ai::JudgeCard(j, card);
        if (!c.wanted) c = bq::ai::JudgeDrawCard(j, card);
      }
      if (c.wanted) j.b[c.slot] = card;
      Judgement updated = j;
      updated.UpdateJudgement();
      if (SettledSlots(updated) >= target) break;
      j = updated;
    }
    out.push_back({j, deck[next], deck[next + 1]});
  }
  return out;
}

// Fresh deals with the first Discard Pile card.
std::vector<Position> Deals(int n, int count, unsigned seed) {
  std::mt19937 rng(seed);
  std::vector<Position> out;
  std::vector<int> deck(100);
  for (int i = 0; i < count; ++i) {
    std::iota(deck.begin(), deck.end(), 1);
    std::shuffle(deck.begin(), deck.end(), rng);
    out.push_back({Deal(n, deck), deck[static_cast<size_t>(n)], 0});
  }
  return out;
}

constexpr int kPool = 256;

void BM_UpdateJudgement(benchmark::State& state) {
  const auto positions = MidGamePositions(static_cast<int>(state.range(0)), kPool, 1);
  size_t i = 0;
  for (auto _ : state) {
    Judgement j = positions[i++ % positions.size()].j;
    j.UpdateJudgement();
    benchmark::DoNotOptimize(j);
  }
  state.SetLabel("copy + UpdateJudgement after a move");
}
BENCHMARK(BM_UpdateJudgement)->Arg(10)->Arg(20);

// What the ai does in one computer turn: judge the Stack, the Discard Pile card, the special
// moves and the Draw Pile card with both judges.
void BM_ComputerTurn(benchmark::State& state) {
  const auto positions = MidGamePositions(static_cast<int>(state.range(0)), kPool, 2);
  size_t i = 0;
  for (auto _ : state) {
    const Position& p = positions[i++ % positions.size()];
    Judgement j = p.j;
    j.UpdateJudgement();
    CardChoice c = bq::ai::JudgeCard(j, p.discard);
    if (!c.wanted) {
      benchmark::DoNotOptimize(bq::ai::WantsTakem(j));
      benchmark::DoNotOptimize(bq::ai::WantsSmackem(j));
      c = bq::ai::JudgeCard(j, p.draw);
      if (!c.wanted) c = bq::ai::JudgeDrawCard(j, p.draw);
    }
    benchmark::DoNotOptimize(c);
  }
  state.SetLabel("update + discard + Takem/Smackem + draw");
}
BENCHMARK(BM_ComputerTurn)->Arg(10)->Arg(20);

void BM_ChooseSwitchem(benchmark::State& state) {
  const bool backem = state.range(1) != 0;
  const auto deals = Deals(static_cast<int>(state.range(0)), 64, 3);
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(bq::ai::ChooseSwitchem(deals[i++ % deals.size()].j, backem));
  }
  state.SetLabel(backem ? "every ordered pair, both orientations" : "every ordered pair");
}
BENCHMARK(BM_ChooseSwitchem)
    ->Args({10, 0})
    ->Args({20, 0})
    ->Args({20, 1})
    ->Unit(benchmark::kMicrosecond);

void BM_ChooseReversal(benchmark::State& state) {
  const auto deals = Deals(static_cast<int>(state.range(0)), 64, 4);
  size_t i = 0;
  for (auto _ : state) {
    const Position& p = deals[i++ % deals.size()];
    benchmark::DoNotOptimize(bq::ai::ChooseReversal(p.j, p.discard));
  }
  state.SetLabel("every slot, both orientations");
}
BENCHMARK(BM_ChooseReversal)->Arg(10)->Arg(20)->Unit(benchmark::kMicrosecond);

}  // namespace
