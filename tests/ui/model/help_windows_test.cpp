// The help and information windows: How To Play's scrolling page, About, the help command and
// the click sound's switch.
#include "ui/model/about_model.h"
#include "ui/model/app_model.h"
#include "ui/model/game_test_util.h"
#include "ui/model/how_to_model.h"

namespace bq {
namespace {

TEST(HowTo, ScrollRangeFollowsTheInnerHeight) {
  test::FakePlatform platform;
  HowToModel how(platform);
  // The page is 12570 + 285 + 3765 = 16620 twips high.
  const std::pair<int, int> cases[] = {
      {8000, 9020},     // as opened
      {7595, 9405},     // 16620 - 7215.25, rounded
      {10, 16610},      // 16610.5: a half goes to the even neighbour
      {30, 16592},      // 16591.5
      {20000, -2380},   // taller than the page
      {60000, -32768},  // past 16 bits: saturated
  };
  for (const auto& [inner, max] : cases) {
    how.Resize(inner);
    EXPECT_EQ(how.ScrollMax(), max) << inner;
  }
}

TEST(HelpWindows, HowToIsNeverOpenedByTheGameAndClosesWithTheOthersAtExit) {
  test::TempSettings file;
  test::FakePlatform platform;
  AppModel app(platform, file.path());
  app.Load();
  EXPECT_EQ(app.Find("frmHowTo.Label1")->caption, "Player A won the following game");
  EXPECT_EQ(app.Window("frmHowTo")->Find("Caption")->caption, "How To Play Bramblequay");
  // Both How To Play commands open the help document instead.
  for (const char* command : {"mnuHelpHowToPlay", "mnuPopupHelpHowToPlay"})
    EXPECT_EQ(app.Click(command), AppModel::Result::kDone);
  EXPECT_EQ(platform.opened, (std::vector<std::string>{"help.html", "help.html"}));
  EXPECT_FALSE(app.IsOpen("frmHowTo"));
  EXPECT_EQ(app.Close("frmHowTo"), AppModel::Result::kIgnored);

  app.how_to().Open();
  app.Click("mnuHelpAbout");
  EXPECT_EQ(app.Click("frmHowTo.ImgText"), AppModel::Result::kIgnored);
  EXPECT_EQ(app.Find("frmAbout.lblVersion")->caption, "Version 1.0.0");
  EXPECT_EQ(app.Close("frmGame"), AppModel::Result::kDone);
  EXPECT_FALSE(app.IsOpen("frmHowTo"));
  EXPECT_FALSE(app.IsOpen("frmAbout"));
  EXPECT_EQ(platform.windows.back(), "closed frmHowTo");
}

TEST(Sound, TheSwitchSilencesEveryClickAndIsKeptInTheFile) {
  test::Game g;
  EXPECT_EQ(g.C("mnuOptionsSound").caption, "Sound");
  EXPECT_EQ(g.C("mnuOptionsSound").value, 1);
  g.NewGameAFirst();  // cmdNew clicks
  ASSERT_TRUE(g.Click("lblDrawPile"));
  EXPECT_EQ(g.platform.clicks, 2);

  ASSERT_TRUE(g.Click("mnuOptionsSound"));  // usable in the middle of a game
  EXPECT_EQ(g.C("mnuOptionsSound").value, 0);
  g.Press({"lblCardA(3)", "cmdPlayA", "cmdQuit"});
  EXPECT_EQ(g.platform.clicks, 2);
  g.model.Exit();
  const std::string text = g.file.Read();
  EXPECT_GT(text.find("[Preferences]\nSound=0\n"), text.find("[StatsVsHumans]")) << text;

  test::Game again(text);
  again.NewGameAFirst();
  EXPECT_EQ(again.platform.clicks, 0);
}

}  // namespace
}  // namespace bq
