// The headless driver end to end: a script from start through a game to exit, and the file it
// leaves behind.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/driver.h"

namespace bq {
namespace {

class DriverTest : public testing::Test {
 protected:
  DriverTest() {
    dir_ = std::filesystem::temp_directory_path() / ("bq-driver-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir_);
    options_.settings_path = (dir_ / "Bramblequay.INI").string();
    options_.seed = 42;
  }
  ~DriverTest() override { std::filesystem::remove_all(dir_); }

  std::string Run(const std::string& script) {
    std::istringstream in(script);
    std::ostringstream out;
    EXPECT_EQ(RunHeadless(in, out, options_), 0);
    return out.str();
  }
  std::string Settings() const {
    std::ifstream in(options_.settings_path);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }

  std::filesystem::path dir_;
  DriverOptions options_;
};

bool Has(const std::string& text, const std::string& line) {
  return text.find(line + "\n") != std::string::npos;
}

TEST_F(DriverTest, AWholeGameFromStartToExitLeavesItsResultInTheFile) {
  const std::string out = Run(
      "show cmdNew\n"
      "get StackSize\n"
      "click cmdNew\n"
      "show cmdNew\n"
      "set Stacks(1) 5 15 25 35 45 55 65 75 85 99\n"
      "set DiscardTop 95\n"
      "show lblCardA(10)\n"
      "click lblDiscardPile\n"
      "click lblCardA(10)\n"
      "click cmdPlayA\n"
      "get TurnResult\n"
      "show cmdAWins\n"
      "click cmdAWins\n"
      "sounds\n"
      "close frmGame\n"
      "show cmdNew\n");
  EXPECT_TRUE(Has(out, "cmdNew caption=\"Start &New Game\" visible=1 enabled=1 marked=0 value=0 "
                       "focus=1"))
      << out;
  EXPECT_TRUE(Has(out, "StackSize=10"));
  EXPECT_TRUE(Has(out, "cmdNew caption=\"Start &New Game\" visible=0 enabled=0 marked=0 value=0 "
                       "focus=0"));
  EXPECT_TRUE(Has(out, "lblCardA(10) caption=\"         99 \" visible=1 enabled=1 marked=0 "
                       "value=0 focus=0"));
  EXPECT_TRUE(Has(out, "TurnResult=1"));
  EXPECT_TRUE(Has(out, "cmdAWins caption=\"    You win.    Click here to continue.\" visible=1 "
                       "enabled=1 marked=0 value=0 focus=1"));
  // Nothing runs after the exit sequence: the last show never answers.
  size_t shows = 0;
  for (size_t at = out.find("cmdNew caption="); at != std::string::npos;
       at = out.find("cmdNew caption=", at + 1))
    ++shows;
  EXPECT_EQ(shows, 2u);
  const std::string file = Settings();
  for (const char* line : {"[WindowPosition]", "SetOpponent=1", "Wins1=1", "Wins7=1", "WStreak=1",
                           "LastWinner=1", "[StatsVsHumans]"})
    EXPECT_TRUE(Has(file, line)) << line << "\n" << file;
}

TEST_F(DriverTest, LinesItCannotCarryOutAreAnsweredAndTheRunGoesOn) {
  const std::string out = Run(
      "frobnicate\n"
      "click lblNoSuchThing\n"
      "click cmdQuit\n"
      "get NoSuchField\n"
      "set Stacks(1) 1 2 3\n"
      "click background alt\n"
      "type txtIPB 10.0.0.1\n"
      "wait x\n"
      "close frmNowhere\n"
      "get DrawCount\n");
  EXPECT_TRUE(Has(out, "error: unknown command frobnicate"));
  EXPECT_TRUE(Has(out, "error: unknown control lblNoSuchThing"));
  EXPECT_TRUE(Has(out, "ignored: cmdQuit"));
  EXPECT_TRUE(Has(out, "error: unknown field NoSuchField"));
  EXPECT_NE(out.find("error: Stacks(1): expected 10 cards"), std::string::npos);
  EXPECT_NE(out.find("error: unknown keys alt"), std::string::npos);
  EXPECT_NE(out.find("error: no text box txtIPB"), std::string::npos);
  EXPECT_NE(out.find("error: wait takes milliseconds"), std::string::npos);
  EXPECT_TRUE(Has(out, "error: unknown window frmNowhere"));
  EXPECT_TRUE(Has(out, "DrawCount=79"));  // still answering after all that
}

TEST_F(DriverTest, StatisticsWindowOpensOnTheCurrentOpponent) {
  std::ofstream(options_.settings_path) << "[StatsVsComputer]\nWins7=1\nLosses7=1\nTies7=1\n";
  const std::string out = Run(
      "click mnuStats\n"
      "show frmStats.lblWinsPct(7)\n"
      "show frmStats.cmdShowOtherStats\n"
      "click cmdNew\n"
      "click frmStats.cmdCloseStats\n"
      "show lblStackB\n");
  EXPECT_TRUE(Has(out, "open: frmStats"));
  EXPECT_NE(out.find("frmStats.lblWinsPct(7) caption=\"33.33%\""), std::string::npos);
  EXPECT_NE(out.find("caption=\"Show statistics vs humans\""), std::string::npos);
  EXPECT_TRUE(Has(out, "closed: frmStats"));
  EXPECT_NE(out.find("lblStackB caption=\"Computer's Stack\""), std::string::npos);
}

}  // namespace
}  // namespace bq
