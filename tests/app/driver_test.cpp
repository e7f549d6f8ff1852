// The headless driver end to end: a script from start through a game to exit, and the file it
// leaves behind.
#include <gtest/gtest.h>

#include <deque>
#include <sstream>
#include <vector>

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
          "get StackSize\n"
          "get SlotSpan\n"
          "click mnuStats\n"
          "show frmStats.Caption\n"
          "click frmStats.cmdClearStats\n"
          "show frmConfirmClearStats.lblConfirm\n"
          "click cmdNew\n"
          "click frmConfirmClearStats.cmdYes\n"
          "show frmStats.lblWins(7)\n"
          "click frmStats.cmdCloseStats\n"
          "click cmdNew\n"
          "show cmdNew\n"
          "set Stacks(1) 5 15 25 35 45 55 65 75 85 99\n"
          "set DiscardTop 95\n"
          "set DrawCards 61 62\n"
          "get DrawCards\n"
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
  EXPECT_TRUE(Has(out,
                  "cmdNew caption=\"Start &New Game\" visible=1 enabled=1 marked=0 value=0 "
                  "focus=1"))
      << out;
  EXPECT_TRUE(Has(out, "StackSize=10"));
  EXPECT_TRUE(Has(out, "SlotSpan=10"));
  EXPECT_TRUE(Has(out, "open: frmStats"));
  EXPECT_NE(out.find("caption=\"Your statistics vs computer\""), std::string::npos);
  EXPECT_NE(out.find("caption=\"Do you really want to clear your statistics vs computer?\""),
            std::string::npos);
  EXPECT_TRUE(Has(out, "ignored: cmdNew"));  // the question holds every other window
  EXPECT_NE(out.find("frmStats.lblWins(7) caption=\"0\""), std::string::npos);
  EXPECT_TRUE(Has(out,
                  "cmdNew caption=\"Start &New Game\" visible=0 enabled=0 marked=0 value=0 "
                  "focus=0"));
  EXPECT_NE(out.find("DrawCards=61 62 "), std::string::npos);
  EXPECT_TRUE(Has(out,
                  "lblCardA(10) caption=\"         99 \" visible=1 enabled=1 marked=0 "
                  "value=0 focus=0"));
  EXPECT_TRUE(Has(out, "TurnResult=1"));
  EXPECT_TRUE(Has(out,
                  "cmdAWins caption=\"    You win.    Click here to continue.\" visible=1 "
                  "enabled=1 marked=0 value=0 focus=1"));
  // Nothing runs after the exit sequence: the last show never answers.
  size_t shows = 0;
  for (size_t at = out.find("cmdNew caption="); at != std::string::npos;
       at = out.find("cmdNew caption=", at + 1))
    ++shows;
  EXPECT_EQ(shows, 2u);
  const std::string file = Settings();
  for (const char* line :
       {"SetOpponent=1", "Wins1=1", "Wins7=1", "WStreak=1", "Wins8=1", "Ties7=2"})
    EXPECT_TRUE(Has(file, line)) << line << "\n" << file;
}

TEST_F(DriverTest, LinesItCannotCarryOutAreAnsweredAndTheRunGoesOn) {
  const std::string out =
      Run("frobnicate\n"
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

// The prompt line through a turn and the special moves' set-ups: each answer of `show lblPrompt`
// in order, its caption only.
TEST_F(DriverTest, ThePromptLineSaysWhatCanBeDoneNow) {
  const std::string out =
      Run("click chkSmackem\nclick chkTakem\nshow lblPrompt\n"
          "click cmdNew\n"
          "set Stacks(1) 36 5 1 30 59 22 65 7 16 75\nset DiscardTop 4\nset DrawPos 1\n"
          "set DrawCards 97\nshow lblPrompt\n"
          "click lblCardA(2)\nshow lblPrompt\n"
          "click lblDiscardPile\nshow lblPrompt\n"
          "click lblDrawPile\nshow lblPrompt\n"
          "click lblCardA(4)\nshow lblPrompt\n"
          "click cmdQuit\nclick cmdNew\nclick cmdSetupSmackemA\nshow lblPrompt\n"
          "click cmdSetupSmackemA\nclick cmdSetupTakemA\nshow lblPrompt\n"
          "click cmdQuit\nclick optFastModeOn\nclick chkSwitchem\nclick cmdNew\nshow lblPrompt\n"
          "click lblCardA(1)\nclick lblCardA(2)\nclick lblDrawPile\nshow lblPrompt\n"
          "click cmdQuit\nclick optFastModeOff\nclick cmdNew\nclick lblCardA(1)\n"
          "click lblCardA(2)\nshow lblPrompt\n");
  std::vector<std::string> prompts;
  const std::string head = "lblPrompt caption=\"";
  for (size_t at = out.find(head); at != std::string::npos; at = out.find(head, at + 1)) {
    const size_t from = at + head.size();
    prompts.push_back(out.substr(from, out.find("\" visible=", from) - from));
  }
  ASSERT_EQ(prompts.size(), 11u) << out;
  const std::string expected[] = {
      "Choose the play options, then start a new game (F2).",
      "Your turn: take the Discard Pile card (D) or look at the Draw Pile card (P), or use "
      "Smackem or Takem.",
      "Take the Discard Pile card (D) for your 5, or look at the Draw Pile card (P).",
      "Click the button to put 4 in place of your 5 (Enter).",
      "Choose the card of your Stack to replace with 97, or pass with the button.",
      "Click the button to put 97 in place of your 30 (Enter).",
      "Smackem: choose 2 of the computer's cards to swap, then click the button, or press "
      "Smackem again to give up.",
      "Takem: choose 1 of your cards and 1 of the computer's to exchange, then click the button, "
      "or press Takem again to give up.",
      "Switchem: choose 2 of your cards to swap.",
      "Choose the card of your Stack to replace with ",
      "Switchem: click the button to swap the two cards you chose (Enter).",
  };
  for (size_t i = 0; i < prompts.size(); ++i)
    EXPECT_EQ(prompts[i].substr(0, expected[i].size()), expected[i]) << i;
  EXPECT_NE(prompts[9].find(", or pass by clicking the Discard Pile."), std::string::npos);
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

TEST_F(DriverTest, AboutShowsTheVersionAndItsAddressOpens) {
  const std::string out =
      Run("click mnuHelpAbout\nshow frmAbout.lblVersion\nclick frmAbout.lblWebsite\n"
          "click frmAbout.cmdOK\nclick frmAbout.cmdOK\n");
  EXPECT_TRUE(Has(out, "open: frmAbout"));
  EXPECT_NE(out.find("caption=\"Version 1.0.0\""), std::string::npos);
  EXPECT_NE(out.find("opened: https://"), std::string::npos);
  EXPECT_TRUE(Has(out, "closed: frmAbout"));
  EXPECT_TRUE(Has(out, "ignored: frmAbout.cmdOK"));
}

}  // namespace
}  // namespace bq
