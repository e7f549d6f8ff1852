// Kills the program at random moments while it plays game after game, and checks after each kill
// that the settings file is whole: it parses, holds every key, and its counters are the last value
// that was reported or the next. Slow (it starts the program 200 times), so it carries the ctest
// label "crash" and runs on its own: ctest -L crash.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "store/profile.h"
#include "store/settings.h"
#include "store/statistics.h"
#include "support/child_process.h"
#include "support/temp_settings.h"

namespace bq {
namespace {

namespace fs = std::filesystem;

// One game that side A wins on its first move; the answer to "get" comes after the result is
// recorded. When the computer moves first and passes, its button waits for a click.
constexpr const char* kGame =
    "click cmdNew\n"
    "click cmdCTakesNothing\n"
    "set Stacks(1) 5 15 25 35 45 55 65 75 85 99\n"
    "set DiscardTop 95\n"
    "click lblDiscardPile\n"
    "click lblCardA(10)\n"
    "click cmdPlayA\n"
    "get TurnResult\n"
    "click cmdAWins\n";

pid_t Start(const std::vector<std::string>& args, const fs::path& in, const fs::path& out) {
  return test::StartChild(BQ_PROGRAM, args, in.string(), out.string());
}

int Finished(const fs::path& out) {
  std::ifstream in(out);
  int games = 0;
  for (std::string line; std::getline(in, line);) games += line == "TurnResult=1";
  return games;
}

size_t Temporaries(const fs::path& dir) {
  size_t n = 0;
  for (const auto& entry : fs::directory_iterator(dir))
    n += entry.path().filename().string().find(".tmp") != std::string::npos;
  return n;
}

TEST(Crash, TwoHundredKillsWhileGamesEndNeverCostTheFile) {
  test::TempSettings file;
  const fs::path script = file.dir() / "script", out = file.dir() / "out";
  std::ofstream(script) << "close frmGame\n";
  const std::vector<std::string> args = {"--headless", "--settings", file.path()};
  int status = 0;
  ::waitpid(Start(args, script, out), &status, 0);
  ASSERT_EQ(status, 0);
  {
    std::ofstream games(script);
    for (int i = 0; i < 20000; ++i) games << kGame;  // more than any kill lets it play
  }

  std::mt19937 gen(std::random_device{}());
  std::uniform_int_distribution<int> delay_us(0, 100000);
  GameStats expected;  // every game a win with no options
  for (int kill = 0; kill < 200; ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    fs::remove(out);  // a child killed before it opens the file must not leave the last count
    const pid_t pid = Start(args, script, out);
    // Every other kill waits until a game has ended, so that however slow the machine is, half of
    // the kills fall among the games rather than in the start-up.
    const auto give_up = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (kill % 2 == 1 && Finished(out) == 0 && std::chrono::steady_clock::now() < give_up)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    std::this_thread::sleep_for(std::chrono::microseconds(delay_us(gen) / (kill % 2 + 1)));
    ::kill(pid, SIGKILL);
    ::waitpid(pid, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself, status " << status;

    Profile profile;
    ASSERT_EQ(profile.Load(file.path()), FileFault::kNone);
    for (const SettingsKey& k : AllSettingsKeys())
      ASSERT_TRUE(profile.KeyLine(k.section, k.key)) << k.section << "." << k.key;
    const GameStats found = SettingsFromProfile(profile).stats[kVsComputer];
    for (int g = Finished(out); g > 0; --g) ApplyResult(expected, Outcome::kWin, {});
    GameStats next = expected;
    ApplyResult(next, Outcome::kWin, {});
    ASSERT_TRUE(found == expected || found == next)
        << "found wins " << found.wins[7] << " losses " << found.losses[7] << " ties "
        << found.ties[7] << " run " << found.w_streak << " record " << found.wins[8]
        << "; expected wins " << expected.wins[7] << " or one more";
    expected = found;
    ASSERT_LE(Temporaries(file.dir()), 1u);
  }
  EXPECT_GE(expected.wins[7], 100) << "every other kill comes after a game";

  std::ofstream(script) << "quit\n";
  ::waitpid(Start(args, script, out), &status, 0);
  EXPECT_EQ(Temporaries(file.dir()), 0u) << "the next start clears what a kill left";
}

}  // namespace
}  // namespace bq
