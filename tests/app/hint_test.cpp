// The Hint through the headless driver: what it advises, that it reads no hidden card, and when
// it is offered and withdrawn.
#include <gtest/gtest.h>

#include <sstream>

#include "app/driver.h"
#include "support/temp_settings.h"

namespace bq {
namespace {

std::string Drive(const std::string& script) {
  test::TempSettings file;
  DriverOptions options;
  options.settings_path = file.path();
  options.seed = 42;
  std::istringstream in(script);
  std::ostringstream out;
  EXPECT_EQ(RunHeadless(in, out, options), 0);
  return out.str();
}

// The prompt line at each `show lblPrompt`, in order: the Hint's advice, or "-" for the line
// without it.
std::vector<std::string> Prompts(const std::string& out) {
  std::vector<std::string> captions;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("lblPrompt caption=\"", 0) != 0) continue;
    const size_t start = line.find('"') + 1;
    const std::string caption = line.substr(start, line.find("\" visible") - start);
    captions.push_back(caption.rfind("Hint: ", 0) == 0 ? caption : "-");
  }
  return captions;
}

// Side A to move, in a game where the computer may have moved first.
const char* kStart =
    "click cmdNew\n"
    "click cmdCTakesNothing\n"
    "set Stacks(1) 5 15 90 35 45 55 65 75 85 95\n"
    "set DrawPos 1\n";

TEST(Hint, AdvisesTheTakeTheLookTheDrawCardAndThePass) {
  const std::string out = Drive(std::string("show mnuHint\n") + kStart +
                                "set DiscardTop 23\n"
                                "click mnuHint\n"
                                "show lblPrompt\n"
                                "get Highlights\n"
                                "set DiscardTop 50\n"
                                "show lblPrompt\n"
                                "click mnuHint\n"
                                "show lblPrompt\n"
                                "set DrawCards 27\n"
                                "click lblDrawPile\n"
                                "show lblPrompt\n"
                                "click mnuHint\n"
                                "show lblPrompt\n"
                                "get Highlights\n"
                                "click lblCardA(3)\n"
                                "click cmdPlayA\n"
                                "show lblPrompt\n"
                                "click cmdAWins\n" +
                                kStart +
                                "set DrawCards 60\n"
                                "click lblDrawPile\n"
                                "click mnuHint\n"
                                "show lblPrompt\n");
  EXPECT_NE(out.find("mnuHint caption=\"&Hint\" visible=1 enabled=0"), std::string::npos) << out;
  const std::vector<std::string> expected = {
      "Hint: take the Discard Pile card, 23, in place of your 90 (card 3 of your Stack).",
      "-",  // the Discard Pile card changed
      "Hint: leave the Discard Pile card and look at the Draw Pile card.",
      "-",  // the look was made
      "Hint: take the Draw Pile card, 27, in place of your 90 (card 3 of your Stack).",
      "-",  // the move was made, and won the game
      "Hint: pass; the Draw Pile card, 60, does not help your Stack.",
  };
  EXPECT_EQ(Prompts(out), expected) << out;
  // The pile and the card it replaces are lit up with the advice.
  EXPECT_NE(out.find("Highlights=lblCardA(3) lblDiscardPile\n"), std::string::npos) << out;
  EXPECT_NE(out.find("Highlights=lblCardA(3) lblDrawPile\n"), std::string::npos) << out;
}

// Whatever the opponent holds and whatever lies under the Draw Pile card, the advice is the
// same; once the Draw Pile card is seen, only the cards below it stay hidden.
TEST(Hint, ReadsNoHiddenCard) {
  std::string script = std::string(kStart) + "set DiscardTop 50\n";
  const char* hidden[] = {
      "set Stacks(2) 1 2 3 4 5 6 7 8 9 10\nset DrawCards 27 28 29\n",
      "set Stacks(2) 91 92 93 94 96 97 98 99 100 11\nset DrawCards 60 1 2\n",
      "set Stacks(2) 10 30 20 40 60 50 70 80 100 36\nset DrawCards 33 21 22\n",
  };
  for (const char* h : hidden) script += std::string(h) + "click mnuHint\nshow lblPrompt\n";
  script += "click lblDrawPile\n";
  for (const char* h : {"set DrawCards 27 28 29\n", "set DrawCards 27 60 1\n"})
    script += std::string(h) + "click mnuHint\nshow lblPrompt\n";
  const std::vector<std::string> p = Prompts(Drive(script));
  ASSERT_EQ(p.size(), 5u);
  EXPECT_EQ(p[1], p[0]);
  EXPECT_EQ(p[2], p[0]);
  EXPECT_EQ(p[4], p[3]);
  EXPECT_NE(p[3], p[0]);
}

TEST(Hint, OfferedOnlyOnSideAsOrdinaryTurn) {
  const std::string out = Drive(std::string("click chkSmackem\n") + kStart +
                                "show mnuHint\n"
                                "set DiscardTop 23\n"
                                "click mnuHint\n"
                                "click cmdSetupSmackemA\n"
                                "show mnuHint\n"
                                "show lblPrompt\n"
                                "click mnuHint\n"
                                "click cmdSetupSmackemA\n"
                                "show mnuHint\n"
                                "click cmdQuit\n"
                                "show mnuHint\n");
  const auto hint = [](int enabled) {
    return "mnuHint caption=\"&Hint\" visible=1 enabled=" + std::to_string(enabled);
  };
  const size_t on = out.find(hint(1));
  const size_t off = out.find(hint(0), on);
  const size_t again = out.find(hint(1), off);
  const size_t quit = out.find(hint(0), again);
  EXPECT_TRUE(on != std::string::npos && off != std::string::npos && again != std::string::npos &&
              quit != std::string::npos)
      << out;
  EXPECT_NE(out.find("ignored: mnuHint"), std::string::npos) << out;
  EXPECT_EQ(Prompts(out), std::vector<std::string>{"-"}) << out;
}

}  // namespace
}  // namespace bq
