// The Expert in the game window: chosen in the Options menu, playing side B through the referee,
// counted apart from the Classic computer, and giving the Hint.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "ai/computer_seat.h"
#include "ai/expert.h"
#include "engine/rules.h"
#include "game_test_util.h"

namespace bq {
namespace {

using test::Game;

constexpr char kExpertFile[] = "[Options]\n[Preferences]\nComputer=Expert\n";

void WinAGame(Game& g) {
  g.NewGameAFirst();
  EXPECT_FALSE(g.Click("mnuComputerClassic") || g.Click("mnuComputerExpert")) << "locked in a game";
  g.WinOnTheFirstMove();
  g.Press({"cmdAWins"});
}

TEST(ExpertWindow, GamesAgainstItAreCountedInTheExpertsSectionOnly) {
  Game g;
  g.Press({"mnuComputerExpert"});
  WinAGame(g);
  EXPECT_EQ(g.Field("Marks"), "") << "the Expert keeps no marks to show";
  Settings s = LoadSettings(g.file.path());
  EXPECT_EQ(s.stats[kVsExpert].wins[7], 1);
  EXPECT_EQ(s.stats[kVsComputer], GameStats{});

  // The Classic computer takes the next game and is counted where it always was.
  g.Press({"mnuComputerClassic"});
  WinAGame(g);
  s = LoadSettings(g.file.path());
  EXPECT_EQ(s.stats[kVsComputer].wins[7], 1);
  EXPECT_EQ(s.stats[kVsExpert].wins[7], 1);

  // The Statistics window shows both beside each other; Clear takes both, the humans' stay.
  g.Press({"mnuStats"});
  EXPECT_EQ(g.C("frmStats.lblExpertWins(7)").caption + g.C("frmStats.lblWins(7)").caption, "11");
  g.Press({"frmStats.cmdShowOtherStats"});
  EXPECT_FALSE(g.C("frmStats.lblExpertWins(7)").visible) << "not beside the humans' figures";
  g.Press({"frmStats.cmdShowOtherStats", "frmStats.cmdClearStats", "frmConfirmClearStats.cmdYes"});
  EXPECT_EQ(g.C("frmStats.lblExpertWins(7)").caption, "0");
  EXPECT_EQ(LoadSettings(g.file.path()).stats, AllStats{});
}

// With Learn Mode every computer move waits for its button, so the window's move can be set
// against the Expert's own choice in the same position.
TEST(ExpertWindow, SideBPlaysTheExpertsChoiceNotTheClassicComputers) {
  int differ = 0;
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Game g(kExpertFile, 1920, seed);
    ASSERT_EQ(g.C("mnuComputerExpert").value, 1) << "read from the file";
    g.NewGameAFirst({"optLearnModeOn"});
    g.Press({"lblDrawPile", "cmdPlayA"});  // a pass: nothing of side A's Stack is shown
    const GameState before = g.model.state();
    test::ScriptedRng rng;
    ai::ExpertSeat expert(kSideB);
    expert.NewGame(before);
    const Move m = expert.Choose(before, rng);
    ai::ComputerSeat classic(kSideB);
    classic.NewGame(before);
    differ += classic.Choose(before, rng) != m;
    GameState after = before;
    ASSERT_TRUE(Apply(after, m, rng));
    ASSERT_TRUE(test::PressComputerButton(g));
    EXPECT_EQ(g.State(), after.ToString());
  }
  EXPECT_GT(differ, 0) << "no position told the two computers apart";
}

// The Expert's Hint names it, and comes from what the player can see: cards face down may be
// anything without changing it.
TEST(ExpertWindow, TheHintIsTheExpertsAndBlindToHiddenCards) {
  std::string first;
  for (int shuffle = 0; shuffle < 4; ++shuffle) {
    Game g(kExpertFile);
    g.NewGameAFirst();
    const GameState& s = g.model.state();
    // The opponent's Stack and the Draw Pile under its top card, dealt again among themselves.
    std::vector<int> hidden;
    for (int k = 1; k <= s.stack_size; ++k) hidden.push_back(s.Card(kSideB, k));
    for (int i = s.draw_pos + 1; i <= s.draw_count; ++i) hidden.push_back(s.draw_cards[size_t(i)]);
    std::shuffle(hidden.begin(), hidden.end(), std::mt19937(shuffle));
    std::string stack_b, draw = std::to_string(s.DrawTop());
    for (size_t i = 0; i < hidden.size(); ++i)
      (i < size_t(s.stack_size) ? stack_b : draw) += " " + std::to_string(hidden[i]);
    if (shuffle > 0) {
      g.Set("Stacks(2)", stack_b);
      g.Set("DrawCards", draw);
    }
    g.Press({"mnuHint"});
    std::string text = g.C("lblPrompt").caption;
    ASSERT_EQ(text.rfind("The Expert suggests: ", 0), 0u) << text;
    g.Press({"lblDrawPile", "mnuHint"});
    text += g.C("lblPrompt").caption;
    if (shuffle == 0) first = text;
    EXPECT_EQ(text, first);
  }
  Game classic;
  classic.NewGameAFirst();
  classic.Press({"mnuHint"});
  EXPECT_EQ(classic.C("lblPrompt").caption.rfind("Hint: ", 0), 0u);
}

}  // namespace
}  // namespace bq
