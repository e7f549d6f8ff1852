// Self-play is the game the window plays: side A's self-play moves replayed as clicks in the game
// window, with the same random numbers, leave the window where the referee left self-play after
// every reply of the computer, game after game. This keeps the window in step with the referee
// for as long as the window applies moves on its own.
#include <gtest/gtest.h>

#include <vector>

#include "selfplay/match.h"
#include "selfplay/run.h"
#include "support/scripted_rng.h"
#include "ui/model/game_test_util.h"

namespace bq::selfplay {
namespace {

struct Step {
  Move move;
  GameState after;
  int draws;  // random numbers drawn so far
};

class Recorder : public MoveObserver {
 public:
  explicit Recorder(const test::ScriptedRng& rng) : rng_(rng) {}
  void Applied(const Move& m, const GameState& g) override {
    steps.push_back({m, g, rng_.draws()});
  }
  std::vector<Step> steps;

 private:
  const test::ScriptedRng& rng_;
};

using test::CardName;

// The clicks that make side A's move in Fast Mode. Side A's reversal lives in its own view only.
std::vector<std::string> Clicks(const Move& m) {
  switch (m.kind) {
    case MoveKind::kTakeDiscard:
      return {"lblDiscardPile", CardName('A', m.slot1)};
    case MoveKind::kTakeDraw:
      return {"lblDrawPile", CardName('A', m.slot1)};
    case MoveKind::kPass:
      return {"lblDrawPile", "lblDiscardPile"};
    case MoveKind::kSwitchem:
      return {CardName('A', m.slot1), CardName('A', m.slot2)};
    case MoveKind::kSmackem:
      return {"cmdSetupSmackemA", CardName('B', m.slot1), CardName('B', m.slot2)};
    case MoveKind::kTakem:
      return {"cmdSetupTakemA", CardName('A', m.slot1), CardName('B', m.slot2)};
    case MoveKind::kSpendTurn:
    case MoveKind::kBackem:
      break;
  }
  return {};
}

void ExpectSame(const GameState& window, const GameState& selfplay) {
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
        const Step& step = rec.steps[i];
        if (step.move.side == kSideA) {
          const std::vector<std::string> clicks = Clicks(step.move);
          // Self-play's side A draws for its special moves as the computer does, where the
          // player in the window just clicks: the window's generator skips those numbers.
          if (!clicks.empty() && clicks[0].rfind("cmdSetup", 0) == 0) {
            const int drawn = step.draws - (i > 0 ? rec.steps[i - 1].draws : draws_before);
            for (int k = 0; k < drawn; ++k) game.platform.Uniform();
          }
          for (const std::string& c : clicks)
            ASSERT_TRUE(game.Click(c)) << c << "\n" << ToString(step.move);
        }
        while (test::PressComputerButton(game)) {
        }
        // The window runs on to side A's next move; compare where self-play got to by then.
        if (i + 1 < rec.steps.size() && rec.steps[i + 1].move.side != kSideA) continue;
        ExpectSame(game.model.state(), step.after);
        ASSERT_FALSE(testing::Test::HasFailure())
            << "after step " << i << " " << ToString(step.move);
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
