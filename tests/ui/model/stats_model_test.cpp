#include "ui/model/stats_model.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "support/temp_settings.h"
#include "ui/model/fake_platform.h"

namespace bq {
namespace {

namespace fs = std::filesystem;

class StatsModelTest : public ::testing::Test {
 protected:
  void SetUp() override { file_.Write(kMixedFile); }
  std::string Caption(std::string_view name) const {
    const Control* c = model_.Find(name);
    return c ? c->caption : "<no control>";
  }
  std::string ConfirmText() const { return model_.Confirm().Find("lblConfirm")->caption; }

  // One computer game of each outcome in row 1; humans with another history.
  static constexpr char kMixedFile[] =
      "[Options]\nSetStackem=1\n"
      "[StatsVsComputer]\nWins1=1\nLosses1=1\nTies1=1\nWins7=3\nWins8=4\nTStreak=1\n"
      "[StatsVsHumans]\nWins2=2\nLosses2=6\nTies2=-5\nLStreak=5\n";
  test::TempSettings file_;
  test::FakePlatform platform_;
  StatsModel model_{platform_};
};

TEST_F(StatsModelTest, ShowsTheCurrentKindAndTogglesWithoutRereading) {
  model_.Open(file_.path(), false);
  EXPECT_EQ(Caption("Caption"), "Your statistics vs humans");
  EXPECT_EQ(Caption("cmdShowOtherStats"), "Show statistics vs computer");
  EXPECT_EQ(Caption("lblWinsPct(2)"), "25.00%") << "a negative count in the file is none";
  EXPECT_EQ(Caption("lblTies(2)"), "0");
  EXPECT_EQ(Caption("lblLStreak"), "5");

  file_.Write("");  // a toggle shows the copy read on opening
  ASSERT_TRUE(model_.Click("cmdShowOtherStats"));
  EXPECT_EQ(Caption("Caption"), "Your statistics vs computer");
  EXPECT_EQ(Caption("cmdShowOtherStats"), "Show statistics vs humans");
  for (const char* pct : {"lblWinsPct(1)", "lblLossesPct(1)", "lblTiesPct(1)"})
    EXPECT_EQ(Caption(pct), "33.33%") << pct;
  EXPECT_EQ(Caption("lblWinsPct(2)"), "0.00%") << "no games is no share";
  EXPECT_EQ(Caption("lblWinsPct(7)"), "100.00%");
  EXPECT_EQ(Caption("lblWins(8)"), "4");
  EXPECT_EQ(Caption("lblTStreak"), "1");
  EXPECT_EQ(Caption("lblLStreak"), "0");

  model_.Open(file_.path(), true);  // opening again reads again
  EXPECT_EQ(Caption("lblWins(8)"), "0");
  EXPECT_EQ(platform_.windows, std::vector<std::string>{"open frmStats"});
}

TEST_F(StatsModelTest, NoChangesNothingAndYesClearsOnlyTheShownKind) {
  model_.Open(file_.path(), true);
  ASSERT_TRUE(model_.Click("cmdClearStats"));
  EXPECT_EQ(ConfirmText(), "Do you really want to clear your statistics vs computer?");
  EXPECT_FALSE(model_.Click("cmdCloseStats")) << "modal";
  ASSERT_TRUE(model_.Confirm().Click("cmdNo"));
  ASSERT_TRUE(model_.Click("cmdClearStats"));
  ASSERT_TRUE(model_.Confirm().Close());
  EXPECT_FALSE(model_.Confirm().Click("cmdYes")) << "a closed dialog takes no answer";
  EXPECT_EQ(Caption("lblWins(1)"), "1");
  EXPECT_EQ(file_.Read(), kMixedFile) << "No, or the frame, changes nothing";

  ASSERT_TRUE(model_.Click("cmdShowOtherStats"));
  ASSERT_TRUE(model_.Click("cmdClearStats"));
  EXPECT_EQ(ConfirmText(), "Do you really want to clear your statistics vs humans?");
  EXPECT_EQ(model_.Confirm().Focus(), "cmdNo");
  ASSERT_TRUE(model_.Confirm().Click("cmdYes"));
  EXPECT_FALSE(model_.Confirm().IsOpen());
  EXPECT_EQ(Caption("lblLosses(2)"), "0");
  EXPECT_EQ(Caption("lblLStreak"), "0");

  const Settings after = LoadSettings(file_.path());
  EXPECT_EQ(after.stats[kVsHumans], GameStats{});
  EXPECT_EQ(after.stats[kVsComputer].wins[8], 4);
  EXPECT_EQ(file_.Read().rfind("[Options]\nSetStackem=1\n[StatsVsComputer]\n", 0), 0u);
}

TEST_F(StatsModelTest, FailedClearKeepsTheNumbersAndSaysSo) {
  model_.Open(file_.path(), true);
  fs::remove(file_.path());
  fs::create_directory(file_.path());  // can be neither read nor replaced now
  ASSERT_TRUE(model_.Click("cmdClearStats"));
  ASSERT_TRUE(model_.Confirm().Click("cmdYes"));
  EXPECT_EQ(platform_.messages,
            std::vector<std::string>{"The statistics could not be saved to " + file_.path() + "."});
  EXPECT_EQ(Caption("lblTiesPct(1)"), "33.33%");
}

}  // namespace
}  // namespace bq
