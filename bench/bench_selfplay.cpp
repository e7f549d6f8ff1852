// Whole self-play games, as --selfplay plays them: the deal, both computers' turns and the
// order tests. items_per_second is games per second of CPU time on one core.
#include <benchmark/benchmark.h>

#include <random>

#include "selfplay/match.h"

namespace {

class FastRng : public bq::Rng {
 public:
  float Uniform() override { return static_cast<float>(gen_() >> 8) * 0x1p-24f; }

 private:
  std::mt19937 gen_{2024};
};

void BM_SelfPlayGames(benchmark::State& state) {
  bq::selfplay::OptionChoice options;
  options.fixed[bq::kStackem] = state.range(0) == 20;
  options.random = state.range(1) == 1;
  FastRng rng;
  bq::selfplay::Match match(options, rng, 1000);
  int64_t moves = 0;
  for (auto _ : state) {
    const bq::selfplay::GameRecord r = match.PlayGame();
    moves += r.moves();
    benchmark::DoNotOptimize(r);
  }
  state.SetItemsProcessed(state.iterations());
  state.counters["moves_per_game"] =
      static_cast<double>(moves) / static_cast<double>(state.iterations());
  state.SetLabel(options.random ? "games/s, Random options" : "games/s, no options");
}
BENCHMARK(BM_SelfPlayGames)
    ->Args({10, 0})
    ->Args({20, 0})
    ->Args({10, 1})
    ->ArgNames({"cards", "random"})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
