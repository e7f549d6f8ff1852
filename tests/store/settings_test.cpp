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
  s.ask_before_abandoning = false;
  s.opponent_address = "[fe80::1]";
  s.opponent_port = 4101;
  s.local_port = 65535;
  s.expert = true;
  int next = 100;
  for (GameStats* g : {&s.stats[kVsComputer], &s.stats[kVsHumans], &s.stats[kVsExpert]}) {
    for (auto* row : {&g->wins, &g->losses, &g->ties})
      for (size_t i = 1; i <= 8; ++i) (*row)[i] = next++;
    g->last_winner = next++;
    g->l_streak = next++;
    g->t_streak = next++;
  }
  return s;
}

// Statistics sections as they must be written.
std::string StatsText(const AllStats& stats, std::initializer_list<int> kinds) {
  std::string text;
  for (int kind : kinds) {
    const GameStats& g = stats[static_cast<size_t>(kind)];
    text += kind == kVsComputer ? "[StatsVsComputer]\n"
            : kind == kVsHumans ? "[StatsVsHumans]\n"
                                : "[StatsVsExpert]\n";
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
  for (const char* text : {"(missing)", "", "[Options\nSetOpponent 5\n=3\n[]\n"}) {
    test::TempSettings file;
    if (std::string(text) != "(missing)") file.Write(text);
    EXPECT_EQ(LoadSettings(file.path()), Settings{}) << text;
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
      StatsText(s.stats, {kVsComputer, kVsHumans}) +
      "[Preferences]\nSound=0\nAskAbandon=0\nOpponentAddress=[fe80::1]\nOpponentPort=4101\n"
      "LocalPort=65535\nComputer=Expert\n" +
      StatsText(s.stats, {kVsExpert});
  EXPECT_EQ(file.Read(), expected);

  Settings back = s;
  back.top = 345;  // read by its leading digits
  EXPECT_EQ(LoadSettings(file.path()), back);
}

TEST(Settings, ValuesReadAsClampedProfileIntegers) {
  test::TempSettings file;
  file.Write(
      "[options]\nsetopponent=-7\nSETFASTMODE=abc\nSetStackem=-99999\n"
      "[WINDOWPOSITION]\n left = 1200.5 \n"
      "[StatsVsComputer]\nWins1=99999999\nLosses1=-5\nLastWinner=-1\nWStreak=-32768\n"
      "[Preferences]\nOpponentPort=65536\nLocalPort=-1\nOpponentAddress=my host\n");
  const Settings s = LoadSettings(file.path());
  EXPECT_EQ(s.options.opponent, -7);
  EXPECT_EQ(s.options.fast_mode, 0) << "text that is no number is 0, not the default";
  EXPECT_EQ(s.options.stackem, -32768);
  EXPECT_EQ(s.left, 1200);
  EXPECT_EQ(s.stats[kVsComputer].wins[1], 32767);
  // No game makes a counter negative: shown and counted from 0, not as -5 wins.
  EXPECT_EQ(s.stats[kVsComputer].losses[1], 0);
  EXPECT_EQ(s.stats[kVsComputer].last_winner, 0);
  EXPECT_EQ(s.stats[kVsComputer].w_streak, 0);
  // What no connection could have used is not offered again.
  EXPECT_EQ(s.opponent_port, 0);
  EXPECT_EQ(s.local_port, 0);
  EXPECT_EQ(s.opponent_address, "");
  // The computer is the Expert only by its name; anything else is the Classic one.
  for (const auto& [value, expert] : {std::pair{"expert", true},
                                      {" EXPERT ", true},
                                      {"Experts", false},
                                      {"1", false},
                                      {"", false}}) {
    file.Write(std::string("[Options]\n[Preferences]\nComputer=") + value + "\n");
    EXPECT_EQ(LoadSettings(file.path()).expert, expert) << value;
  }
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
  EXPECT_EQ(file.Read(), head + StatsText(Sample().stats, {kVsComputer, kVsHumans, kVsExpert}));

  ASSERT_TRUE(SaveSettings(file.path(), LoadSettings(file.path())));
  const std::string text = file.Read();
  EXPECT_EQ(text.rfind("; mine\n[options]\nSetStackem=1\nColour=green\nSetBackem=0\n", 0), 0u)
      << text;
  EXPECT_NE(text.find("\n[Mine]\nAny=goes\n"), std::string::npos);
}

TEST(Settings, AFailedSaveSaysWhyAndNeverLeavesAFileThatWouldNotBeRead) {
  test::TempSettings file;
  const fs::path blocker = file.dir() / "file";
  std::ofstream(blocker) << "x";
  EXPECT_FALSE(SaveSettings((blocker / "x.ini").string(), Sample()));
  EXPECT_EQ(SaveSettings("/dev/null", Sample()).error, "it is not a regular file");

  // A file padded with lines of its owner's up to the size limit: a save that would take it past
  // the limit is refused and the file stays readable; one that reaches the limit exactly is not.
  const std::string head = "; notes\n[Options]\nSetStackem=1\n";
  const auto padded = [&](size_t size) {
    return head + std::string(size - head.size() - 1, ';') + "\n";
  };
  file.Write(padded(1000));
  ASSERT_TRUE(SaveSettings(file.path(), Sample()));
  const size_t growth = file.Read().size() - 1000;
  for (size_t extra : {1, 0}) {
    const std::string before = padded(Profile::kMaxSize - growth + extra);
    file.Write(before);
    ASSERT_EQ(LoadSettings(file.path()).options.stackem, 1);
    const WriteResult saved = SaveSettings(file.path(), Sample());
    if (extra == 1) {
      EXPECT_EQ(saved.error, "it would grow larger than 1 MiB");
      EXPECT_EQ(file.Read(), before);
    } else {
      EXPECT_TRUE(saved) << saved.error;
      EXPECT_EQ(file.Read().size(), Profile::kMaxSize);
      EXPECT_EQ(LoadSettings(file.path()).stats, Sample().stats);
    }
  }
}

TEST(Settings, AFileThatIsNoSettingsFileIsRefusedOrSetAsideNeverOverwritten) {
  test::TempSettings file;
  EXPECT_EQ(CheckSettingsFile(file.path(), true).message, "") << "missing is fine";
  const fs::path real = file.dir() / "real.ini";
  std::ofstream(real) << "[Options]\nSetStackem=1\n";
  const std::string not_ours =
      " has none of the sections [WindowPosition], [Options], "
      "[StatsVsComputer] and [StatsVsHumans], so it is no settings file";
  const std::pair<std::string, std::string> cases[] = {
      {std::string("\x7f"
                   "ELF\0\0\1",
                   7),
       " holds NUL bytes, so it is no settings file"},
      {"root:x:0:0:root:/root:/bin/bash\ndaemon:x:1:1::/usr/sbin:/usr/sbin/nologin\n", not_ours},
      {"; only a comment\n", not_ours},
      {"(link)", " is a symbolic link"}};
  const auto plant = [&](const std::string& text) {
    fs::remove(file.path());
    if (text == "(link)")
      fs::create_symlink(real, file.path());
    else
      file.Write(text);
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    const auto& [text, why] = cases[i];
    SCOPED_TRACE(why);
    plant(text);
    const std::string before = file.Read();
    const SettingsFileCheck named = CheckSettingsFile(file.path(), true);
    EXPECT_TRUE(named.refused);
    EXPECT_EQ(named.message, "the settings file " + file.path() + why);
    EXPECT_EQ(SaveSettings(file.path(), Sample()).error, "it" + why);
    EXPECT_EQ(SaveStatistics(file.path(), Sample().stats).error, "it" + why);
    EXPECT_EQ(file.Read(), before) << "not a byte changed";
    EXPECT_EQ(LoadSettings(file.path()), Settings{});
    // The usual file goes aside, under a name that is free; a link goes aside as a link.
    const SettingsFileCheck usual = CheckSettingsFile(file.path(), false);
    EXPECT_FALSE(usual.refused);
    const std::string aside =
        file.path() + (i == 0 ? ".damaged" : ".damaged-" + std::to_string(i + 1));
    EXPECT_EQ(usual.message, "the settings file " + file.path() + why + "; it is kept as " + aside +
                                 " and the game starts with the default settings");
    EXPECT_FALSE(fs::exists(fs::symlink_status(file.path())));
    std::ifstream kept(aside, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), before);
    EXPECT_EQ(fs::is_symlink(aside), text == "(link)");
  }
  std::ifstream target(real);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(target), {}), "[Options]\nSetStackem=1\n");

  // Text with one of the game's sections, in any case, or with no lines worth the name, is ours.
  for (const char* text : {"", "\n \r\n\t\n", "; mine\nJunk\n[statsvshumans]\n"}) {
    file.Write(text);
    EXPECT_EQ(CheckSettingsFile(file.path(), true).message, "") << text;
    EXPECT_TRUE(SaveSettings(file.path(), Sample())) << text;
  }
}

}  // namespace
}  // namespace bq
