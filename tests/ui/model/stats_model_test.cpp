#include "ui/model/stats_model.h"

#include <gtest/gtest.h>

#include "support/temp_settings.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace bq {
namespace {

namespace fs = std::filesystem;

// Records what the user would see happen outside the window's controls.
class RecordingPlatform : public Platform {
 public:
  float Uniform() override { return 0; }
  void PlayClick() override { events.push_back("click"); }
  void Open(const std::string& target) override { events.push_back("opened: " + target); }
  void MessageBox(const std::string& text) override { events.push_back("msgbox: " + text); }
  int ScreenWidthPixels() override { return 1920; }
  void WindowOpened(const std::string& w) override { events.push_back("open: " + w); }
  void WindowClosed(const std::string& w) override { events.push_back("closed: " + w); }
  void Warn(const std::string& text) override { events.push_back("warn: " + text); }

  std::vector<std::string> events;
};

class StatsModelTest : public ::testing::Test {
 protected:
  void WriteFile(const std::string& text) { file_.Write(text); }
  std::string ReadFile() const { return file_.Read(); }
  std::string Caption(const WindowModel& w, std::string_view name) const {
    const Control* c = w.Find(name);
    return c ? c->caption : std::string("<no ").append(name).append(">");
  }
  std::string Caption(std::string_view name) const { return Caption(model_, name); }

  test::TempSettings file_;
  const std::filesystem::path& dir_ = file_.dir();
  const std::string path_ = file_.path();
  RecordingPlatform platform_;
  StatsModel model_{platform_};
};

// One computer game of each outcome in row 1, humans with a different history.
constexpr char kMixedFile[] =
    "[Options]\nSetStackem=1\n"
    "[StatsVsComputer]\nWins1=1\nLosses1=1\nTies1=1\nWins7=3\nWins8=4\nLosses8=2\nTies8=1\n"
    "TStreak=1\nLastWinner=3\n"
    "[StatsVsHumans]\nWins2=2\nLosses2=6\nWins7=2\nLosses7=6\nLStreak=5\nLastWinner=2\n";

TEST_F(StatsModelTest, ControlsInTheirFixedOrderWithTheirCaptions) {
  std::vector<std::string> expected = {
      "Caption",    "lblResults", "lblNoPlayOptions", "lblStackem", "lblBackem", "lblSwitchem",
      "lblSmackem", "lblTakem",   "lblAllGames",      "lblWLT1",    "lblWLT2",   "lblWLT3"};
  for (const char* array : {"lblWins", "lblLosses", "lblTies"})
    for (int i = 1; i <= 8; ++i)
      expected.push_back(std::string(array).append("(").append(std::to_string(i)).append(")"));
  for (const char* array : {"lblWinsPct", "lblLossesPct", "lblTiesPct"})
    for (int i = 1; i <= 7; ++i)
      expected.push_back(std::string(array).append("(").append(std::to_string(i)).append(")"));
  for (const char* name : {"lblStreaks", "lblCurrent", "lblConsecutive", "lblWStreak", "lblLStreak",
                           "lblTStreak", "cmdShowOtherStats", "cmdClearStats", "cmdCloseStats"})
    expected.push_back(name);
  std::vector<std::string> names;
  for (const auto& nc : model_.Controls()) names.push_back(nc.name);
  EXPECT_EQ(names, expected);
  EXPECT_EQ(model_.Name(), "frmStats");

  EXPECT_EQ(Caption("Caption"), "Your Statistics");
  EXPECT_EQ(Caption("lblNoPlayOptions"), "No Play Options");
  EXPECT_EQ(Caption("lblAllGames"), "All Games");
  EXPECT_EQ(Caption("lblConsecutive"), "Record");
  for (const char* wlt : {"lblWLT1", "lblWLT2", "lblWLT3"})
    EXPECT_EQ(Caption(wlt), "Wins       Losses      Ties");
  EXPECT_EQ(Caption("cmdClearStats"), "  Clear   statistics ");
  EXPECT_EQ(Caption("cmdCloseStats"), " Close  statistics");
  EXPECT_EQ(model_.Find("cmdClearStats")->tooltip, "Click here to reset all statistics.");
  EXPECT_EQ(model_.Find("cmdCloseStats")->tooltip, "Click here to return to the game.");
  EXPECT_EQ(model_.Find("cmdShowOtherStats")->tooltip, "Click here to return to the game.");

  const ConfirmClearModel& confirm = model_.Confirm();
  EXPECT_EQ(confirm.Name(), "frmConfirmClearStats");
  EXPECT_EQ(confirm.Controls().size(), 4u);
  EXPECT_EQ(Caption(confirm, "Caption"), "Confirm Clearing Statistics");
  EXPECT_EQ(Caption(confirm, "cmdYes"), "Yes");
  EXPECT_EQ(Caption(confirm, "cmdNo"), "No");
  EXPECT_NE(confirm.Find("lblConfirm"), nullptr);
}

TEST_F(StatsModelTest, ShowsCountsSharesAndRuns) {
  WriteFile(kMixedFile);
  model_.Open(path_, true);
  EXPECT_TRUE(model_.IsOpen());
  EXPECT_EQ(platform_.events, std::vector<std::string>{"open: frmStats"});
  EXPECT_EQ(Caption("Caption"), "Your statistics vs computer");
  EXPECT_EQ(Caption("cmdShowOtherStats"), "Show statistics vs humans");
  EXPECT_EQ(model_.Focus(), "cmdCloseStats");

  for (const char* pct : {"lblWinsPct(1)", "lblLossesPct(1)", "lblTiesPct(1)"})
    EXPECT_EQ(Caption(pct), "33.33%") << pct;
  for (const char* pct : {"lblWinsPct(2)", "lblLossesPct(2)", "lblTiesPct(2)"})
    EXPECT_EQ(Caption(pct), "0.00%") << pct;
  EXPECT_EQ(Caption("lblWinsPct(7)"), "100.00%");
  EXPECT_EQ(Caption("lblWins(1)"), "1");
  EXPECT_EQ(Caption("lblLosses(3)"), "0");
  EXPECT_EQ(Caption("lblWins(8)"), "4");
  EXPECT_EQ(Caption("lblLosses(8)"), "2");
  EXPECT_EQ(Caption("lblTies(8)"), "1");
  EXPECT_EQ(model_.Find("lblWinsPct(8)"), nullptr) << "the Record row has no shares";
  EXPECT_EQ(Caption("lblWStreak"), "0");
  EXPECT_EQ(Caption("lblTStreak"), "1");
}

TEST_F(StatsModelTest, OpensOnTheCurrentOpponentAndTogglesWithoutRereading) {
  WriteFile(kMixedFile);
  model_.Open(path_, false);
  EXPECT_EQ(Caption("Caption"), "Your statistics vs humans");
  EXPECT_EQ(Caption("cmdShowOtherStats"), "Show statistics vs computer");
  EXPECT_EQ(Caption("lblWinsPct(2)"), "25.00%");
  EXPECT_EQ(Caption("lblLossesPct(2)"), "75.00%");
  EXPECT_EQ(Caption("lblLStreak"), "5");

  WriteFile("");  // a toggle shows the copy read on opening
  ASSERT_TRUE(model_.Click("cmdShowOtherStats"));
  EXPECT_EQ(model_.ShownKind(), kVsComputer);
  EXPECT_EQ(Caption("Caption"), "Your statistics vs computer");
  EXPECT_EQ(Caption("cmdShowOtherStats"), "Show statistics vs humans");
  EXPECT_EQ(Caption("lblWins(8)"), "4");
  EXPECT_EQ(Caption("lblLStreak"), "0");
  ASSERT_TRUE(model_.Click("cmdShowOtherStats"));
  EXPECT_EQ(Caption("lblLStreak"), "5");

  model_.Open(path_, true);  // opening again reads again
  EXPECT_EQ(Caption("lblWins(8)"), "0");
  EXPECT_EQ(platform_.events, std::vector<std::string>{"open: frmStats"});
}

TEST_F(StatsModelTest, ClearingHumansLeavesComputerAndTheRestOfTheFile) {
  WriteFile(kMixedFile);
  model_.Open(path_, false);
  ASSERT_TRUE(model_.Click("cmdClearStats"));
  ConfirmClearModel& confirm = model_.Confirm();
  ASSERT_TRUE(confirm.IsOpen());
  EXPECT_EQ(Caption(confirm, "lblConfirm"),
            "Do you really want to clear your statistics vs humans?");
  EXPECT_EQ(confirm.Focus(), "cmdNo");
  EXPECT_EQ(ReadFile(), kMixedFile) << "nothing is written before the answer";

  ASSERT_TRUE(confirm.Click("cmdYes"));
  EXPECT_FALSE(confirm.IsOpen());
  EXPECT_EQ(platform_.events,
            (std::vector<std::string>{"open: frmStats", "open: frmConfirmClearStats",
                                      "closed: frmConfirmClearStats"}));
  EXPECT_EQ(Caption("lblWins(2)"), "0");
  EXPECT_EQ(Caption("lblLossesPct(2)"), "0.00%");
  EXPECT_EQ(Caption("lblLStreak"), "0");

  const Settings after = LoadSettings(path_);
  EXPECT_EQ(after.stats[kVsHumans], GameStats{});
  EXPECT_EQ(after.stats[kVsComputer].wins[8], 4);
  EXPECT_EQ(after.stats[kVsComputer].last_winner, 3);
  EXPECT_EQ(after.stats[kVsComputer], model_.Stats()[kVsComputer]);
  const std::string text = ReadFile();
  EXPECT_EQ(text.rfind("[Options]\nSetStackem=1\n[StatsVsComputer]\n", 0), 0u) << text;
  EXPECT_EQ(text.find("WindowPosition"), std::string::npos);
  EXPECT_EQ(text.find("SetBackem"), std::string::npos);
}

TEST_F(StatsModelTest, AnsweringNoOrClosingTheDialogChangesNothing) {
  WriteFile(kMixedFile);
  model_.Open(path_, true);
  ASSERT_TRUE(model_.Click("cmdClearStats"));
  EXPECT_EQ(Caption(model_.Confirm(), "lblConfirm"),
            "Do you really want to clear your statistics vs computer?");
  // The dialog is modal: the statistics window takes no clicks meanwhile.
  EXPECT_FALSE(model_.Click("cmdCloseStats"));
  EXPECT_FALSE(model_.Close());
  ASSERT_TRUE(model_.Confirm().Click("cmdNo"));
  EXPECT_EQ(Caption("lblWins(1)"), "1");

  ASSERT_TRUE(model_.Click("cmdClearStats"));
  ASSERT_TRUE(model_.Confirm().Close());
  EXPECT_EQ(Caption("lblWins(1)"), "1");
  EXPECT_EQ(ReadFile(), kMixedFile);
  EXPECT_FALSE(model_.Confirm().Click("cmdYes")) << "a closed dialog takes no answer";
  EXPECT_EQ(ReadFile(), kMixedFile);
}

TEST_F(StatsModelTest, FailedClearKeepsTheNumbersAndSaysSo) {
  WriteFile(kMixedFile);
  model_.Open(path_, true);
  fs::remove(path_);
  fs::create_directory(path_);  // the file can be neither read nor replaced now
  ASSERT_TRUE(model_.Click("cmdClearStats"));
  ASSERT_TRUE(model_.Confirm().Click("cmdYes"));
  EXPECT_EQ(platform_.events.back(), "msgbox: The statistics could not be saved to " + path_ + ".");
  EXPECT_EQ(Caption("lblWins(1)"), "1");
  EXPECT_EQ(Caption("lblTiesPct(1)"), "33.33%");
  EXPECT_EQ(model_.Stats()[kVsComputer].wins[8], 4);
}

TEST_F(StatsModelTest, ClosingWritesNothingAndRefusesLaterClicks) {
  model_.Open(path_, true);
  EXPECT_EQ(Caption("lblWinsPct(7)"), "0.00%");
  ASSERT_TRUE(model_.Click("cmdCloseStats"));
  EXPECT_FALSE(model_.IsOpen());
  EXPECT_EQ(platform_.events.back(), "closed: frmStats");
  EXPECT_FALSE(fs::exists(path_));
  EXPECT_FALSE(model_.Click("cmdClearStats"));
  EXPECT_FALSE(model_.Close());
}

TEST_F(StatsModelTest, HiddenDisabledAndUnknownControlsIgnoreClicks) {
  model_.Open(path_, true);
  EXPECT_FALSE(model_.Click("cmdNoSuchButton"));
  model_.Find("cmdClearStats")->enabled = false;
  EXPECT_FALSE(model_.Click("cmdClearStats"));
  model_.Find("cmdShowOtherStats")->visible = false;
  EXPECT_FALSE(model_.Click("cmdShowOtherStats"));
  EXPECT_EQ(model_.ShownKind(), kVsComputer);
  EXPECT_FALSE(model_.Confirm().IsOpen());
  EXPECT_TRUE(model_.Click("lblWins(1)")) << "a label takes the click and does nothing";
  EXPECT_TRUE(model_.IsOpen());
}

}  // namespace
}  // namespace bq
