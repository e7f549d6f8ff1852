#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/every_card.h"
#include "ui/model/app_model.h"
#include "ui/model/fake_platform.h"

namespace bq::test {

// One copy of the program, loaded, over a temporary settings file of its own: every window, the
// game window's model in reach as `model`.
struct Game {
  explicit Game(const std::string& settings_text = "", int screen_width = 1920, unsigned seed = 1)
      : platform(seed) {
    if (!settings_text.empty()) file.Write(settings_text);
    platform.screen_width = screen_width;
    app.Load();
  }
  explicit Game(unsigned seed) : Game("", 1920, seed) {}
  // Names as the driver takes them: "cmdNew", "frmStats.cmdYes".
  bool Click(const std::string& name) { return app.Click(name) == AppModel::Result::kDone; }
  // Clicks each in turn, every click taken.
  void Press(std::initializer_list<const char*> names) {
    for (const char* name : names) ASSERT_TRUE(Click(name)) << name;
  }
  void Type(const std::string& name, const std::string& text) {
    ASSERT_EQ(app.Type(name, text), AppModel::Result::kDone) << name;
  }
  const Control& C(const std::string& name) {
    const Control* c = app.Find(name);
    EXPECT_NE(c, nullptr) << name;
    static const Control none;
    return c ? *c : none;
  }
  // On show, enabled, and in a window that is open.
  bool Up(const std::string& name) {
    return C(name).visible && C(name).enabled && app.IsOpen(AppModel::Split(name).first);
  }
  // Those of `names` that are up, in order: compact checks of a whole panel.
  std::string Live(std::initializer_list<const char*> names) {
    std::string out;
    for (const char* name : names)
      if (Up(name)) out += (out.empty() ? "" : " ") + std::string(name);
    return out;
  }
  std::string Panel(int i) { return C("StatusBar1.Panel(" + std::to_string(i) + ")").caption; }
  std::string State() const { return model.state().ToString(); }
  std::string Field(const std::string& name) const { return model.GetField(name).value_or("?"); }
  void Set(const std::string& field, const std::string& values) {
    ASSERT_EQ(model.SetField(field, values), "") << field;
  }
  // Presses `options`, then starts a game with a fixed shuffle in which side A moves first.
  void NewGameAFirst(std::initializer_list<const char*> options = {}) {
    Press(options);
    std::mt19937 shuffle(2024);  // a shuffle that deals neither Stack in order
    for (int i = 0; i < 100; ++i) platform.Script({static_cast<float>(shuffle() >> 8) * 0x1p-24f});
    platform.Script({0.1f});
    ASSERT_TRUE(Click("cmdNew"));
    ASSERT_EQ(model.GetField("TurnResult"), "0");
    ASSERT_EQ(model.GetField("TurnOwner"), "1");
  }
  // Side A one card from order: the Discard Pile card completes its Stack.
  void WinOnTheFirstMove() {
    Set("Stacks(1)", "5 15 25 35 45 55 65 75 85 99");
    Set("DiscardTop", "95");
    Press({"lblDiscardPile", "lblCardA(10)", "cmdPlayA"});
  }
  TempSettings file;
  FakePlatform platform;
  AppModel app{platform, file.path()};
  GameModel& model = app.game();
};

// Presses the first computer's button on show, if any.
inline bool PressComputerButton(Game& g) {
  for (const char* button : {"cmdCTakesDiscard", "cmdCTakesDraw", "cmdCTakesNothing", "cmdTakemC",
                             "cmdSmackemC", "cmdSwitchemC", "cmdBackemC"})
    if (g.Up(button)) return g.Click(button);
  return false;
}

// The six option check boxes, in the order of their bits in the whole-game test's masks.
inline constexpr const char* kOptionBoxes[] = {"chkStackem", "chkBackem", "chkSwitchem",
                                               "chkSmackem", "chkTakem",  "chkRandom"};

inline std::string CardName(char side, int k) {
  return std::string("lblCard") + side + "(" + std::to_string(k) + ")";
}

// Plays side A by a simple rule through the window's own events: a card goes to the slot of its
// tenth (or twentieth) of the deck when that slot holds a misfit, otherwise a pass; now and then
// a Smackem or Takem on random cards. The opponent's special moves are acknowledged first.
class SimplePlayer {
 public:
  SimplePlayer(Game& side, unsigned seed) : side_(side), model_(side.model), rng_(seed) {}

  // One decision, or false when there is nothing for side A to do.
  bool Step() {
    for (const char* ack : {"cmdSmackemB", "cmdTakemB"})
      if (side_.Up(ack)) return side_.Click(ack);
    const GameState& s = model_.state();
    const int n = s.stack_size;
    if (side_.Up("cmdSwitchemA")) {
      const int a = Slot(n);
      side_.Click(CardName('A', a));
      side_.Click(CardName('A', a % n + 1));
      return !side_.Up("cmdSwitchemA") || Must("cmdSwitchemA");
    }
    if (s.turn_owner != kSideA || !side_.Up("lblDiscardPile")) return false;
    if (side_.Up("cmdSetupSmackemA") && Chance(0.05)) return Special("cmdSetupSmackemA", false);
    if (side_.Up("cmdSetupTakemA") && Chance(0.05)) return Special("cmdSetupTakemA", true);
    const int k = Ideal(s, s.discard_top);
    if (!Fits(s, k)) return Move("lblDiscardPile", k);
    Must("lblDrawPile");
    const int draw_slot = Ideal(s, s.DrawTop());
    if (!Fits(s, draw_slot)) return Move(nullptr, draw_slot);
    return Must(model_.fast_mode() ? "lblDiscardPile" : "cmdPlayA");
  }

 private:
  bool Must(const std::string& name) {
    const bool done = side_.Click(name);
    EXPECT_TRUE(done) << name;
    return done;
  }
  int Slot(int n) { return std::uniform_int_distribution<int>(1, n)(rng_); }
  bool Chance(double p) { return std::uniform_real_distribution<double>(0, 1)(rng_) < p; }
  static int Ideal(const GameState& s, int card) { return (card - 1) / s.slot_span + 1; }
  static bool Fits(const GameState& s, int k) { return Ideal(s, s.Card(kSideA, k)) == k; }

  bool Move(const char* pile, int slot) {
    if (pile) Must(pile);
    Must(CardName('A', slot));
    return !side_.Up("cmdPlayA") || Must("cmdPlayA");
  }
  bool Special(const char* setup, bool takem) {
    Must(setup);
    const int n = model_.state().stack_size;
    const int b = Slot(n);
    if (takem) side_.Click(CardName('A', Slot(n)));
    side_.Click(CardName('B', b));
    if (!takem) side_.Click(CardName('B', b % n + 1));
    for (const char* done : {"cmdSmackemA", "cmdTakemA"})
      if (side_.Up(done)) Must(done);
    return true;
  }

  Game& side_;
  const GameModel& model_;
  std::mt19937 rng_;
};

}  // namespace bq::test
