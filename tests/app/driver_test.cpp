// The headless driver end to end: a script from start through a game to exit, and the file it
// leaves behind.
#include <gtest/gtest.h>

#include <deque>
#include <sstream>

#include "app/driver.h"
#include "net/link.h"
#include "support/temp_settings.h"

namespace bq {
namespace {

class DriverTest : public testing::Test {
 protected:
  DriverTest() {
    options_.settings_path = file_.path();
    options_.seed = 42;
  }

  std::string Run(const std::string& script) {
    std::istringstream in(script);
    std::ostringstream out;
    EXPECT_EQ(RunHeadless(in, out, options_), 0);
    return out.str();
  }
  std::string Settings() const { return file_.Read(); }

  test::TempSettings file_;
  DriverOptions options_;
};

bool Has(const std::string& text, const std::string& line) {
  return text.find(line + "\n") != std::string::npos;
}

// Statistics cleared in their window stay cleared through the next game's result and the exit.
TEST_F(DriverTest, AWholeGameFromStartToExitLeavesItsResultInTheFile) {
  file_.Write(
      "[StatsVsComputer]\nWins1=4\nWins7=6\nWStreak=2\nWins8=3\n[StatsVsHumans]\nTies7=2\n");
  const std::string out =
      Run("show cmdNew\n"
          "click mnuStats\n"
          "click frmStats.cmdClearStats\n"
          "click cmdNew\n"
          "click frmConfirmClearStats.cmdYes\n"
          "show frmStats.lblWins(7)\n"
          "click frmStats.cmdCloseStats\n"
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
          "close frmGame\n"
          "show cmdNew\n");
  // A control is shown in one line, every property in a fixed order.
  for (const char* line :
       {"cmdNew caption=\"Start &New Game\" visible=1 enabled=1 marked=0 value=0 focus=1",
        "open: frmStats",
        "ignored: cmdNew",  // the question holds every other window
        "cmdNew caption=\"Start &New Game\" visible=0 enabled=0 marked=0 value=0 focus=0",
        "lblCardA(10) caption=\"         99 \" visible=1 enabled=1 marked=0 value=0 focus=0",
        "TurnResult=1",
        "cmdAWins caption=\"    You win.    Click here to continue.\" visible=1 enabled=1 "
        "marked=0 value=0 focus=1"})
    EXPECT_TRUE(Has(out, line)) << line << "\n" << out;
  EXPECT_NE(out.find("frmStats.lblWins(7) caption=\"0\""), std::string::npos);
  // Nothing runs after the exit sequence: the last show never answers.
  EXPECT_EQ(out.rfind("cmdNew caption="), out.find("cmdNew caption=", 1));
  const std::string file = Settings();
  for (const char* line :
       {"SetOpponent=1", "Wins1=1", "Wins7=1", "WStreak=1", "Wins8=1", "Ties7=2"})
    EXPECT_TRUE(Has(file, line)) << line << "\n" << file;
}

TEST_F(DriverTest, DatagramsAreShownAsTheyTravelAndArriveWhileWaiting) {
  auto [mine, theirs] = net::MemoryLink::Pair();
  ASSERT_EQ(theirs->Configure("127.0.0.1", 1001, 1002), "");
  std::deque<std::string> from_opponent = {"invi", "bad\ndata"};
  options_.link = mine.get();
  options_.wait = [&](int) {
    theirs->Send(from_opponent.front());
    from_opponent.pop_front();
    mine->Pump();
  };
  const std::string out =
      Run("click optVsHuman\n"
          "click cmdSetupRemoteOpponent\n"
          "type frmCommunicate.txtPortA  1001\n"
          "show frmCommunicate.txtPortA\n"
          "type frmCommunicate.txtIPB 127.0.0.1\n"
          "type frmCommunicate.txtPortB 1002\n"
          "click frmCommunicate.cmdSend\n"
          "type frmCommunicate.txtPortB 1003\n"
          "wait 10\n"
          "click frmInvitation.cmdYes\n"
          "show StatusBar1.Panel(2)\n"
          "wait 10\n"
          "show StatusBar1.Panel(4)\n");
  EXPECT_NE(out.find("open: frmCommunicate\n"
                     "frmCommunicate.txtPortA caption=\" 1001\" visible=1 enabled=1"),
            std::string::npos)
      << out;
  EXPECT_NE(out.find("closed: frmCommunicate\nignored: frmCommunicate.txtPortB\n"
                     "received: invi\nopen: frmInvitation\n"
                     "sent: acce\nclosed: frmInvitation\n"
                     "StatusBar1.Panel(2) caption=\"Acceptance sent\""),
            std::string::npos)
      << out;
  EXPECT_NE(out.find("received: bad\\x0adata\n"
                     "StatusBar1.Panel(4) caption=\"bad?data\""),
            std::string::npos)
      << out;
}

}  // namespace
}  // namespace bq
