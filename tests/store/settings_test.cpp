#include "store/settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "support/temp_settings.h"

namespace bq {
namespace {

namespace fs = std::filesystem;

// Distinct values everywhere, so a key written from the wrong field shows.
Settings Sample() {
  Settings s;
  s.left = 1e6f;  // past 16 bits, and an exponent would read back as 1
  s.top = 345.5f;
  s.options = {1, 0, 1, 0, 1, 0, 2, 1, 2};
  s.sound = false;
  int next = 100;
  for (GameStats* g : {&s.stats[kVsComputer], &s.stats[kVsHumans]}) {
    for (auto* row : {&g->wins, &g->losses, &g->ties})
      for (size_t i = 1; i <= 8; ++i) (*row)[i] = next++;
    g->last_winner = next++;
    g->l_streak = next++;
    g->t_streak = -1;
  }
  return s;
}

// Both statistics sections as they must be written.
std::string StatsText(const std::array<GameStats, 3>& stats) {
  std::string text;
  for (int kind : {kVsComputer, kVsHumans}) {
    const GameStats& g = stats[static_cast<size_t>(kind)];
    text += kind == kVsComputer ? "[StatsVsComputer]\n" : "[StatsVsHumans]\n";
    for (const auto& [row, values] :
         {std::pair{"Wins", g.wins}, {"Losses", g.losses}, {"Ties", g.ties}})
      for (size_t i = 1; i <= 8; ++i)
        text += row + std::to_string(i) + "=" + std::to_string(values[i]) + "\n";
    text += "LastWinner=" + std::to_string(g.last_winner) +
            "\nWStreak=" + std::to_string(g.w_streak) + "\nLStreak=" + std::to_string(g.l_streak) +
            "\nTStreak=" + std::to_string(g.t_streak) + "\n";
  }
  return text;
}

TEST(Settings, DefaultsForMissingEmptyAndJunkFiles) {
  std::string binary;
  for (int i = 0; i < 5000; ++i) binary += static_cast<char>((i * 131 + 7) % 256);
  const std::string cases[] = {"(missing)", "", binary, "[Options\nSetOpponent 5\n=3\n[]\n"};
  for (const std::string& text : cases) {
    SCOPED_TRACE(&text - cases);
    test::TempSettings file;
    if (&text != &cases[0]) file.Write(text);
    const Settings s = LoadSettings(file.path());
    EXPECT_EQ(s.left, 0);
    EXPECT_EQ(s.top, 0);
    EXPECT_EQ(s.options, (StoredOptions{0, 0, 0, 0, 0, 0, 1, 2, 2}));
    EXPECT_EQ(s.stats, (std::array<GameStats, 3>{}));
    EXPECT_TRUE(s.sound);
  }
}

TEST(Settings, FullWriteHasAll67KeysInOrderThenOursAndReadsBack) {
  test::TempSettings file;
  const Settings s = Sample();
  ASSERT_TRUE(SaveSettings(file.path(), s));
  const std::string expected =
      "[WindowPosition]\nLeft=1000000\nTop=345.5\n[Options]\nSetStackem=1\nSetBackem=0\n"
      "SetSwitchem=1\nSetSmackem=0\nSetTakem=1\nSetRandom=0\nSetOpponent=2\nSetFastMode=1\n"
      "SetLearnMode=2\n" +
      StatsText(s.stats) + "[Preferences]\nSound=0\n";
  EXPECT_EQ(file.Read(), expected);

  const Settings back = LoadSettings(file.path());
  EXPECT_EQ(back.left, 1e6f);
  EXPECT_EQ(back.top, 345) << "read by its leading digits";
  EXPECT_EQ(back.options, s.options);
  EXPECT_EQ(back.stats, s.stats);
  EXPECT_FALSE(back.sound);
}

TEST(Settings, ValuesReadAsClampedProfileIntegers) {
  test::TempSettings file;
  file.Write(
      "[options]\nsetopponent=-7\nSETFASTMODE=abc\nSetStackem=-99999\n"
      "[WINDOWPOSITION]\n left = 1200.5 \n"
      "[StatsVsComputer]\nWins1=99999999\n");
  const Settings s = LoadSettings(file.path());
  EXPECT_EQ(s.options.opponent, -7);
  EXPECT_EQ(s.options.fast_mode, 0) << "text that is no number is 0, not the default";
  EXPECT_EQ(s.options.stackem, -32768);
  EXPECT_EQ(s.left, 1200);
  EXPECT_EQ(s.stats[kVsComputer].wins[1], 32767);
}

TEST(Settings, RandomForgetsTheOptionsItDrew) {
  test::TempSettings file;
  Settings s;
  s.options = {1, 1, 1, 1, 1, 1, 1, 1, 1};
  ASSERT_TRUE(SaveSettings(file.path(), s));
  EXPECT_EQ(LoadSettings(file.path()).options, (StoredOptions{0, 0, 0, 0, 0, 1, 1, 1, 1}));
  s.options.random = 0;
  ASSERT_TRUE(SaveSettings(file.path(), s));
  EXPECT_EQ(LoadSettings(file.path()).options, (StoredOptions{1, 1, 1, 1, 1, 0, 1, 1, 1}));
}

TEST(Settings, SavingKeepsEveryOtherLine) {
  test::TempSettings file;
  const std::string head = "; mine\n[options]\nsetstackem=1\nColour=green\n[Mine]\nAny=goes\n";
  file.Write(head + "[StatsVsComputer]\nWins1=9\n");
  ASSERT_TRUE(SaveStatistics(file.path(), Sample().stats));
  EXPECT_EQ(file.Read(), head + StatsText(Sample().stats));

  ASSERT_TRUE(SaveSettings(file.path(), LoadSettings(file.path())));
  const std::string text = file.Read();
  EXPECT_EQ(text.rfind("; mine\n[options]\nSetStackem=1\nColour=green\nSetBackem=0\n", 0), 0u)
      << text;
  EXPECT_NE(text.find("\n[Mine]\nAny=goes\n"), std::string::npos);
}

TEST(Settings, UnwritablePlaceReportsFailure) {
  test::TempSettings file;
  const fs::path blocker = file.dir() / "file";
  std::ofstream(blocker) << "x";
  EXPECT_FALSE(SaveSettings((blocker / "x.ini").string(), Sample()));
}

TEST(Settings, AFileThatIsNoSettingsFileIsRefusedOrSetAsideNeverOverwritten) {
  test::TempSettings file;
  EXPECT_EQ(CheckSettingsFile(file.path(), true).message, "") << "missing is fine";
  const std::string binary(
      "\x7f"
      "ELF\0\0\1",
      7);
  file.Write(binary);
  const SettingsFileCheck named = CheckSettingsFile(file.path(), true);
  EXPECT_TRUE(named.refused);
  EXPECT_EQ(named.message,
            "the settings file " + file.path() + " holds NUL bytes, so it is no settings file");
  EXPECT_EQ(file.Read(), binary);

  // The usual file goes aside, under a name that is free.
  for (const char* suffix : {".damaged", ".damaged-2"}) {
    file.Write(binary);
    const SettingsFileCheck usual = CheckSettingsFile(file.path(), false);
    EXPECT_FALSE(usual.refused);
    EXPECT_NE(usual.message.find("kept as " + file.path() + suffix), std::string::npos)
        << usual.message;
    EXPECT_FALSE(fs::exists(file.path()));
    std::ifstream kept(file.path() + suffix, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), binary);
  }
  EXPECT_FALSE(SaveSettings("/dev/null", Sample())) << "a device is never replaced";
}

}  // namespace
}  // namespace bq
