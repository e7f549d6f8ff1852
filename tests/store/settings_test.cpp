#include "store/settings.h"

#include <gtest/gtest.h>

#include "support/temp_settings.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace bq {
namespace {

namespace fs = std::filesystem;

class SettingsTest : public ::testing::Test {
 protected:
  void WriteFile(const std::string& text) { file_.Write(text); }
  std::string ReadFile() const { return file_.Read(); }

  test::TempSettings file_;
  const std::filesystem::path& dir_ = file_.dir();
  const std::string path_ = file_.path();
};

// Distinct values everywhere, so a key written from the wrong field shows.
Settings Sample() {
  Settings s;
  s.left = 1200;
  s.top = 345.5f;
  s.options = {1, 0, 1, 0, 1, 0, 2, 1, 2};
  for (size_t kind = 1; kind <= 2; ++kind) {
    GameStats& g = s.stats[kind];
    for (size_t i = 1; i <= 8; ++i) {
      g.wins[i] = static_cast<int>(kind * 1000 + 100 + i);
      g.losses[i] = static_cast<int>(kind * 1000 + 200 + i);
      g.ties[i] = static_cast<int>(kind * 1000 + 300 + i);
    }
    g.last_winner = static_cast<int>(kind);
    g.w_streak = 0;
    g.l_streak = static_cast<int>(kind * 10 + 4);
    g.t_streak = -1;
  }
  return s;
}

std::string StatsSectionText(const std::string& name, const GameStats& g) {
  std::string text = "[" + name + "]\n";
  for (const char* row : {"Wins", "Losses", "Ties"}) {
    const auto& values = row[0] == 'W' ? g.wins : row[0] == 'L' ? g.losses : g.ties;
    for (size_t i = 1; i <= 8; ++i)
      text += row + std::to_string(i) + "=" + std::to_string(values[i]) + "\n";
  }
  text += "LastWinner=" + std::to_string(g.last_winner) + "\n";
  text += "WStreak=" + std::to_string(g.w_streak) + "\n";
  text += "LStreak=" + std::to_string(g.l_streak) + "\n";
  text += "TStreak=" + std::to_string(g.t_streak) + "\n";
  return text;
}

void ExpectDefaults(const Settings& s) {
  EXPECT_EQ(s.left, 0);
  EXPECT_EQ(s.top, 0);
  EXPECT_EQ(s.options, (StoredOptions{0, 0, 0, 0, 0, 0, 1, 2, 2}));
  EXPECT_EQ(s.stats[kVsComputer], GameStats{});
  EXPECT_EQ(s.stats[kVsHumans], GameStats{});
}

TEST_F(SettingsTest, DefaultsForMissingEmptyAndUnreadableFiles) {
  {
    SCOPED_TRACE("missing");
    ExpectDefaults(LoadSettings(path_));
  }
  {
    SCOPED_TRACE("empty");
    WriteFile("");
    ExpectDefaults(LoadSettings(path_));
  }
  {
    SCOPED_TRACE("binary");
    std::string junk;
    for (int i = 0; i < 5000; ++i) junk += static_cast<char>((i * 131 + 7) % 256);
    WriteFile(junk);
    ExpectDefaults(LoadSettings(path_));
  }
  {
    SCOPED_TRACE("junk text");
    WriteFile("[Options\nSetOpponent 5\n=3\n[]\n[WindowPosition]]\nLeft\n");
    ExpectDefaults(LoadSettings(path_));
  }
  {
    SCOPED_TRACE("folder");
    fs::remove(path_);
    fs::create_directory(path_);
    ExpectDefaults(LoadSettings(path_));
  }
}

TEST_F(SettingsTest, FullWriteHasAll67KeysInOrder) {
  const Settings s = Sample();
  ASSERT_TRUE(SaveSettings(path_, s));
  const std::string expected =
      "[WindowPosition]\n"
      "Left=1200\n"
      "Top=345.5\n"
      "[Options]\n"
      "SetStackem=1\n"
      "SetBackem=0\n"
      "SetSwitchem=1\n"
      "SetSmackem=0\n"
      "SetTakem=1\n"
      "SetRandom=0\n"
      "SetOpponent=2\n"
      "SetFastMode=1\n"
      "SetLearnMode=2\n" +
      StatsSectionText("StatsVsComputer", s.stats[kVsComputer]) +
      StatsSectionText("StatsVsHumans", s.stats[kVsHumans]);
  EXPECT_EQ(ReadFile(), expected);
  EXPECT_EQ(std::count(expected.begin(), expected.end(), '='), 67);

  const Settings back = LoadSettings(path_);
  EXPECT_EQ(back.left, 1200);
  EXPECT_EQ(back.top, 345) << "the position reads back by its leading digits";
  EXPECT_EQ(back.options, s.options);
  EXPECT_EQ(back.stats, s.stats);
}

TEST_F(SettingsTest, PositionIsWrittenWithoutNeedlessDecimalsOrExponent) {
  Settings s;
  for (const auto& [value, text] : std::vector<std::pair<float, std::string>>{
           {1200.f, "1200"}, {-150.f, "-150"}, {0.25f, "0.25"}, {1e6f, "1000000"}, {-0.f, "0"}}) {
    s.left = value;
    ASSERT_TRUE(SaveSettings(path_, s));
    EXPECT_NE(ReadFile().find("\nLeft=" + text + "\n"), std::string::npos) << text;
  }
  EXPECT_EQ(LoadSettings(path_).left, 0);
  s.left = 57600;  // right half of a 4K screen
  ASSERT_TRUE(SaveSettings(path_, s));
  EXPECT_EQ(LoadSettings(path_).left, 57600) << "the position is no 16-bit counter";
}

TEST_F(SettingsTest, CountersAndOptionsAreClampedTo16Bits) {
  WriteFile(
      "[Options]\nSetOpponent=70000\nSetStackem=-99999\n"
      "[StatsVsComputer]\nWins1=99999999\nLosses2=-40000\nTies3=32767\n"
      "[StatsVsHumans]\nTStreak=123456789012345\n");
  const Settings s = LoadSettings(path_);
  EXPECT_EQ(s.options.opponent, 32767);
  EXPECT_EQ(s.options.stackem, -32768);
  EXPECT_EQ(s.stats[kVsComputer].wins[1], 32767);
  EXPECT_EQ(s.stats[kVsComputer].losses[2], -32768);
  EXPECT_EQ(s.stats[kVsComputer].ties[3], 32767);
  EXPECT_EQ(s.stats[kVsHumans].t_streak, 32767);
}

TEST_F(SettingsTest, LooseValuesReadAsProfileIntegers) {
  WriteFile(
      "[options]\nsetopponent=7\nSETFASTMODE=0\nSetLearnMode=abc\nSetBackem=1.9\n"
      "[WINDOWPOSITION]\n left = 1200.5 \n");
  const Settings s = LoadSettings(path_);
  EXPECT_EQ(s.options.opponent, 7);
  EXPECT_EQ(s.options.fast_mode, 0);
  EXPECT_EQ(s.options.learn_mode, 0) << "text that is no number reads as 0, not the default";
  EXPECT_EQ(s.options.backem, 1);
  EXPECT_EQ(s.left, 1200);
}

TEST_F(SettingsTest, RandomForgetsTheOptionsItDrew) {
  Settings s;
  s.options = {1, 1, 1, 1, 1, 1, 1, 1, 1};
  ASSERT_TRUE(SaveSettings(path_, s));
  EXPECT_EQ(LoadSettings(path_).options, (StoredOptions{0, 0, 0, 0, 0, 1, 1, 1, 1}));
  s.options.random = 0;
  ASSERT_TRUE(SaveSettings(path_, s));
  EXPECT_EQ(LoadSettings(path_).options, (StoredOptions{1, 1, 1, 1, 1, 0, 1, 1, 1}));
}

TEST_F(SettingsTest, HandEditedFileKeepsItsOtherLines) {
  WriteFile(
      "; my settings\n"
      "[options]\n"
      "setstackem=1\n"
      "Colour=green\n"
      "[Mine]\n"
      "Anything=goes\n"
      "[StatsVsComputer]\n"
      "wins1=4\n");
  Settings s = LoadSettings(path_);
  EXPECT_EQ(s.options.stackem, 1);
  EXPECT_EQ(s.stats[kVsComputer].wins[1], 4);
  s.stats[kVsComputer].wins[1] = 5;
  ASSERT_TRUE(SaveSettings(path_, s));

  const std::string text = ReadFile();
  const auto at = [&](const std::string& line) { return text.find(line + "\n"); };
  EXPECT_EQ(text.rfind("; my settings\n[options]\nSetStackem=1\nColour=green\nSetBackem=0\n", 0),
            0u)
      << text;
  EXPECT_NE(at("[Mine]\nAnything=goes"), std::string::npos);
  EXPECT_EQ(text.find("setstackem"), std::string::npos) << "updated, not added a second time";
  EXPECT_EQ(text.find("[Options]"), std::string::npos);
  // New keys of a present section join it, ahead of the sections that follow it.
  EXPECT_LT(at("SetLearnMode=2"), at("[Mine]"));
  EXPECT_LT(at("[StatsVsComputer]"), at("Wins1=5"));
  EXPECT_LT(at("Wins1=5"), at("Wins2=0"));
  EXPECT_LT(at("TStreak=0"), at("[StatsVsHumans]"));
  // Sections the file lacked come at the end.
  EXPECT_GT(at("[WindowPosition]"), at("[Mine]"));
  EXPECT_EQ(LoadSettings(path_).stats, s.stats);
}

TEST_F(SettingsTest, SaveStatisticsTouchesOnlyTheStatistics) {
  ASSERT_TRUE(SaveStatistics(path_, Sample().stats));
  EXPECT_EQ(ReadFile(), StatsSectionText("StatsVsComputer", Sample().stats[kVsComputer]) +
                            StatsSectionText("StatsVsHumans", Sample().stats[kVsHumans]));

  const std::string head = "[WindowPosition]\nLeft=5\n[Options]\nSetStackem=1\n";
  WriteFile(head + "[StatsVsComputer]\nWins1=9\n");
  std::array<GameStats, 3> stats{};
  stats[kVsHumans].ties[2] = 3;
  ASSERT_TRUE(SaveStatistics(path_, stats));
  EXPECT_EQ(ReadFile(), head + StatsSectionText("StatsVsComputer", stats[kVsComputer]) +
                            StatsSectionText("StatsVsHumans", stats[kVsHumans]));
}

TEST_F(SettingsTest, UnwritablePlaceReportsFailure) {
  const fs::path blocker = dir_ / "file";
  std::ofstream(blocker) << "x";
  const std::string inside_file = (blocker / "Bramblequay.INI").string();
  EXPECT_FALSE(SaveSettings(inside_file, Sample()));
  EXPECT_FALSE(SaveStatistics(inside_file, Sample().stats));
  ExpectDefaults(LoadSettings(inside_file));
}

}  // namespace
}  // namespace bq
