// Self-play is the game the window plays: side A's self-play moves replayed as clicks in the game
// window, with the same random numbers, leave the window where self-play was after every reply
// of the computer, game after game.
#include <gtest/gtest.h>

#include <vector>

#include "selfplay/match.h"
#include "selfplay/run.h"
#include "support/scripted_rng.h"
#include "ui/model/game_test_util.h"

namespace bq::selfplay {
namespace {

struct Step {
  GameState after;
  int mover;
  bool opening;
  int draws;  // random numbers drawn so far
};

class Recorder : public MoveObserver {
 public:
  explicit Recorder(const test::ScriptedRng& rng) : rng_(rng) {}
  void AfterMove(const GameState& g, int mover, bool opening) override {
    steps.push_back({g, mover, opening, rng_.draws()});
  }
  std::vector<Step> steps;

 private:
  const test::ScriptedRng& rng_;
};

using test::CardName;

std::vector<int> Changed(const GameState& a, const GameState& b, int side) {
  std::vector<int> slots;
  for (int k = 1; k <= a.stack_size; ++k)
    if (a.Card(side, k) != b.Card(side, k)) slots.push_back(k);
  return slots;
}

// The clicks that make side A's move from `before` to `after` in Fast Mode.
std::vector<std::string> Clicks(const GameState& before, const GameState& after) {
  const std::vector<int> a = Changed(before, after, kSideA);
  const std::vector<int> b = Changed(before, after, kSideB);
  std::vector<std::string> clicks;
  if (b.size() == 2 && a.empty()) {
    clicks = {"cmdSetupSmackemA", CardName('B', before.DisplayPos(b[0])),
              CardName('B', before.DisplayPos(b[1]))};
  } else if (b.size() == 1 && a.size() == 1) {
    clicks = {"cmdSetupTakemA", CardName('A', a[0]), CardName('B', before.DisplayPos(b[0]))};
  } else if (a.size() == 2) {
    clicks = {CardName('A', a[0]), CardName('A', a[1])};  // the Switchem opening
  } else if (a.size() == 1) {
    const bool discard = after.Card(kSideA, a[0]) == before.discard_top;
    clicks = {discard ? "lblDiscardPile" : "lblDrawPile", CardName('A', a[0])};
  } else {
    clicks = {"lblDrawPile", "lblDiscardPile"};  // a pass
  }
  return clicks;
}

// After the opening self-play reports before the first mover is drawn.
void ExpectSame(GameState window, const Step& step) {
  const GameState& selfplay = step.after;
  if (step.opening) window.turn_owner = selfplay.turn_owner;
  EXPECT_EQ(window.ToString(), selfplay.ToString());
  EXPECT_EQ(window.stacks, selfplay.stacks);
  EXPECT_EQ(window.draw_cards, selfplay.draw_cards);
}

TEST(SelfPlayIsTheWindowsGame, ReplayedClicksMeetEveryReplyOfTheComputer) {
  const std::vector<std::vector<Option>> option_sets = {
      {}, {kBackem}, {kSwitchem, kBackem}, {kSmackem, kTakem}, {kStackem, kBackem, kTakem}};
  const char* boxes[] = {"chkStackem", "chkBackem", "chkSwitchem", "chkSmackem", "chkTakem"};
  for (unsigned set = 0; set < option_sets.size(); ++set) {
    test::Game game;
    game.platform = test::FakePlatform(40 + set);
    test::ScriptedRng rng(40 + set);
    ASSERT_TRUE(game.Click("optFastModeOn"));
    OptionChoice choice;
    for (Option o : option_sets[set]) {
      ASSERT_TRUE(game.Click(boxes[o]));
      choice.fixed[o] = true;
    }
    Match match(choice, rng, kMoveCap);
    for (int round = 0; round < 10; ++round) {
      SCOPED_TRACE(testing::Message() << "option set " << set << " game " << round);
      Recorder rec(rng);
      const int draws_before = rng.draws();
      const GameRecord r = match.PlayGame(&rec);
      ASSERT_TRUE(game.Click("cmdNew"));
      for (size_t i = 0; i < rec.steps.size(); ++i) {
        if (rec.steps[i].mover == kSideA) {
          const GameState before = game.model.state();
          const std::vector<std::string> clicks = Clicks(before, rec.steps[i].after);
          // Self-play's side A draws for its special moves as the computer does, where the
          // player in the window just clicks: the window's generator skips those numbers.
          if (clicks[0].rfind("cmdSetup", 0) == 0) {
            const int drawn = rec.steps[i].draws - (i > 0 ? rec.steps[i - 1].draws : draws_before);
            for (int k = 0; k < drawn; ++k) game.platform.Uniform();
          }
          for (const std::string& c : clicks)
            ASSERT_TRUE(game.Click(c)) << c << "\n" << before.ToString();
        }
        while (test::PressComputerButton(game)) {
        }
        // The window runs on to side A's next move; compare where self-play got to by then.
        if (i + 1 < rec.steps.size() && rec.steps[i + 1].mover != kSideA) continue;
        ExpectSame(game.model.state(), rec.steps[i]);
        ASSERT_FALSE(testing::Test::HasFailure()) << "after step " << i;
      }
      ASSERT_EQ(game.model.state().turn_result, r.result);
      // A game stopped at the move cap is given up in the window.
      for (const char* b : {"cmdAWins", "cmdCWins", "cmdBothWin", "cmdQuit"})
        if (game.C(b).visible) {
          ASSERT_TRUE(game.Click(b));
        }
    }
  }
}

}  // namespace
}  // namespace bq::selfplay
