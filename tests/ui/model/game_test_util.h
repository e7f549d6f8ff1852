#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "ui/model/fake_platform.h"
#include "ui/model/game_model.h"

namespace bq::test {

// A loaded game window over a temporary settings file.
struct Game {
  explicit Game(const std::string& settings_text = "", int screen_width = 1920) {
    if (!settings_text.empty()) file.Write(settings_text);
    platform.screen_width = screen_width;
    model.Load();
  }
  bool Click(const std::string& name) { return model.Click(name); }
  const Control& C(const std::string& name) const {
    const Control* c = model.Find(name);
    EXPECT_NE(c, nullptr) << name;
    static const Control none;
    return c ? *c : none;
  }
  std::string Field(const std::string& name) const { return model.GetField(name).value_or("?"); }
  void Set(const std::string& field, const std::string& values) {
    ASSERT_EQ(model.SetField(field, values), "") << field;
  }
  // Starts a game with a fixed shuffle in which side A moves first.
  void NewGameAFirst() {
    std::mt19937 shuffle(2024);  // a shuffle that deals neither Stack in order
    for (int i = 0; i < 100; ++i) platform.Script({static_cast<float>(shuffle() >> 8) * 0x1p-24f});
    platform.Script({0.1f});
    ASSERT_TRUE(Click("cmdNew"));
    ASSERT_EQ(model.GetField("TurnResult"), "0");
    ASSERT_EQ(model.GetField("TurnOwner"), "1");
  }
  // Starts a game whose shuffle brings `top` to the top of the deck: side A's Stack, side B's, the
  // Discard Pile card, then the Draw Pile. `first_mover` is the draw that picks who begins.
  void NewGameDealing(const std::vector<int>& top, float first_mover) {
    auto deck = model.state().deck;  // the shuffle starts from the previous game's order
    for (size_t i = 1; i < deck.size(); ++i) {
      size_t j = i;
      while (i <= top.size() && j < deck.size() && deck[j] != top[i - 1]) ++j;
      ASSERT_LT(j, deck.size());
      platform.Script({(static_cast<float>(j) - 0.5f) / 100.0f});
      std::swap(deck[i], deck[j]);
    }
    platform.Script({first_mover});
    ASSERT_TRUE(Click("cmdNew"));
  }

  TempSettings file;
  FakePlatform platform;
  GameModel model{platform, file.path()};
};

}  // namespace bq::test
