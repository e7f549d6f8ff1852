// A click that ends with a whole computer turn, through the game window's own events: the cost a
// player waits for between releasing the mouse and seeing the computer's answer.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

#include "quiet_platform.h"
#include "ui/model/game_model.h"

namespace {

using bq::bench::QuietPlatform;

bool Up(const bq::GameModel& m, const char* name) {
  const bq::Control* c = m.Find(name);
  return c->visible && c->enabled;
}

// Fast Mode: looking at the Draw Pile and clicking the Discard Pile is a pass, which hands the
// turn to the computer inside the same click.
void BM_PassAndComputerTurn(benchmark::State& state) {
  QuietPlatform platform;
  const auto path = std::filesystem::temp_directory_path() / "bq-bench-model.ini";
  bq::GameModel model(platform, path.string());
  model.Load();
  model.Click("optFastModeOn");
  // Learn Mode records no results, which takes the settings file's writes out of the figure.
  if (state.range(1) == 1) model.Click("optLearnModeOn");
  if (state.range(0) == 20) model.Click("chkStackem");
  model.Click("cmdNew");
  int64_t games = 0;
  for (auto _ : state) {
    state.PauseTiming();
    if (model.state().turn_result != bq::kUndecided) {
      ++games;
      for (const char* b : {"cmdAWins", "cmdCWins", "cmdBothWin"})
        if (Up(model, b)) model.Click(b);
      model.Click("cmdNew");
    }
    state.ResumeTiming();
    model.Click("lblDrawPile");
    model.Click("lblDiscardPile");
    if (Up(model, "cmdCTakesNothing")) model.Click("cmdCTakesNothing");
  }
  state.counters["games_ended"] = static_cast<double>(games);
  state.SetLabel(state.range(1) == 1 ? "no recording" : "results written to the file");
  std::filesystem::remove(path);
}
BENCHMARK(BM_PassAndComputerTurn)
    ->ArgsProduct({{10, 20}, {0, 1}})
    ->ArgNames({"cards", "learn"})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
