// Two copies of the game over the in-memory link: the invitation, the deal, whole games with
// every option, quitting and exiting, and messages that must change nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "net/link.h"
#include "store/settings.h"
#include "ui/model/app_model.h"
#include "ui/model/communicate_model.h"
#include "ui/model/game_test_util.h"

namespace bq::test {

using Copy = Game;

// Two copies joined by an in-memory link, each set up against the other: "a" on port 1001,
// "b" on 1002. Nothing travels until Pump(). The relay loses the next message that starts with
// `lose`, if any.
struct Match {
  explicit Match(unsigned seed = 1) : a(seed), b(seed + 1000) {
    auto [la, lb] = net::MemoryLink::Pair();
    link_a = std::move(la);
    link_b = std::move(lb);
    Join(a, *link_a, "1001", "1002");
    Join(b, *link_b, "1002", "1001");
  }
  void Join(Copy& c, net::MemoryLink& link, const std::string& mine, const std::string& theirs) {
    c.app.SetLink(&link);
    link.SetReceiver([this, &c](const std::string& m) {
      if (!lose.empty() && m.rfind(lose, 0) == 0) return lose.clear();
      c.app.Receive(m);
    });
    link.SetStrangerReporter(
        [&c](const std::string& host, int port) { c.app.Stranger(host, port); });
    c.Press({"optVsHuman", "cmdSetupRemoteOpponent"});
    c.Type("frmCommunicate.txtPortA", mine);
    c.Type("frmCommunicate.txtIPB", " 127.0.0.1 ");
    c.Type("frmCommunicate.txtPortB", theirs);
    c.Press({"frmCommunicate.cmdSend"});
    ASSERT_FALSE(c.app.IsOpen("frmCommunicate"));
  }
  int Pump() { return link_a->Pump(); }
  // `c` clicks, then what it sent travels.
  void Send(Copy& c, std::initializer_list<const char*> names) {
    c.Press(names);
    Pump();
  }
  // `text` arrives at `to` from its opponent's address and port.
  void Inject(Copy& to, const std::string& text) {
    (&to == &a ? link_a : link_b)->Arrive("127.0.0.1", &to == &a ? 1002 : 1001, text);
    Pump();
  }
  // "a" invites, "b" accepts, the deal travels.
  void Start() {
    Send(a, {"cmdNew"});
    ASSERT_TRUE(b.app.IsOpen("frmInvitation"));
    Send(b, {"frmInvitation.cmdYes"});
    ASSERT_EQ(b.Field("IsDealer"), "0");
  }

  Copy a, b;
  std::unique_ptr<net::MemoryLink> link_a, link_b;
  std::string lose;
};

}  // namespace bq::test

namespace bq {
namespace {

using test::Copy;
using test::Match;

// The two copies see one game: my Stack is the other's opponent Stack, the piles are the same.
void ExpectAgreement(const Copy& a, const Copy& b) {
  const auto seen = [](const Copy& c, bool mine) {
    std::string s;
    for (const char* f : {mine ? "Stacks(1)" : "Stacks(2)", mine ? "Stacks(2)" : "Stacks(1)",
                          mine ? "MoveCountA" : "MoveCountB", mine ? "MoveCountB" : "MoveCountA",
                          "DiscardTop", "DrawPos", "DrawCards"})
      s += c.Field(f) + "|";
    return s;
  };
  ASSERT_EQ(seen(a, true), seen(b, false));
}

TEST(Remote, WholeGamesWithEveryOptionEndAlikeOnBothCopies) {
  int results[4] = {};
  for (unsigned seed = 0; seed < 192; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Match m(seed);
    // With Random also ticked, the five are cleared again: Stackem on and off leaves the dealer
    // a 59-card Draw Pile that the other copy plays as dealt.
    for (unsigned o = 0; o < 6; ++o)
      if (seed & (1u << o)) m.a.Press({test::kOptionBoxes[o]});
    const unsigned mode = seed / 64;
    if (mode > 0) m.a.Press({mode == 1 ? "optFastModeOn" : "optLearnModeOn"});
    m.Start();
    // The dealer's options and modes hold on both copies.
    for (const char* box : test::kOptionBoxes) ASSERT_EQ(m.a.C(box).value, m.b.C(box).value) << box;
    ASSERT_EQ(m.b.Field("FastMode"), mode == 1 ? "1" : "0");
    ASSERT_EQ(m.b.Field("LearnMode"), mode == 2 ? "1" : "0");
    test::SimplePlayer pa(m.a, seed), pb(m.b, seed + 7);
    int steps = 0;
    while (m.a.Field("TurnResult") == "0" && steps++ < 4000) {
      const bool moved = pa.Step() || pb.Step();
      m.Pump();
      ASSERT_TRUE(moved) << "both copies wait";
      // Every message of honest play is taken, the relayed clicks of Learn Mode included.
      ASSERT_NE(m.a.Panel(2), "Bad data received");
      ASSERT_NE(m.b.Panel(2), "Bad data received");
      ASSERT_FALSE(m.a.Up("mnuEditUndo") || m.b.Up("mnuEditUndo")) << "never against a person";
      if (!m.a.Up("cmdSmackemB") && !m.a.Up("cmdTakemB") && !m.b.Up("cmdSmackemB") &&
          !m.b.Up("cmdTakemB"))
        ExpectAgreement(m.a, m.b);
      if (testing::Test::HasFatalFailure()) return;
    }
    const int ra = std::stoi(m.a.Field("TurnResult")), rb = std::stoi(m.b.Field("TurnResult"));
    ASSERT_GE(ra, 1) << "no result after " << steps << " steps";
    ASSERT_EQ(rb, ra == kTie ? kTie : 3 - ra);
    ++results[ra];
    // Once the game is decided, no move is due from the opponent any more.
    Copy& waiting = m.a.Field("TurnOwner") == "2" ? m.a : m.b;
    const std::string moves_b = waiting.Field("MoveCountB");
    m.Inject(waiting, "pass");
    ASSERT_EQ(waiting.Panel(2), "Bad data received");
    ASSERT_EQ(waiting.Field("MoveCountB"), moves_b);
    m.a.Press({ra == kTie ? "cmdBothWin" : ra == kAInOrder ? "cmdAWins" : "cmdBWins"});
    m.b.Press({ra == kTie ? "cmdBothWin" : ra == kAInOrder ? "cmdBWins" : "cmdAWins"});
    EXPECT_TRUE(m.a.Up("cmdNew"));
    m.Inject(m.a, "quit");  // the game is over on both copies: a late quit is bad data
    ASSERT_EQ(m.a.Panel(2), "Bad data received");
    // Results count against humans, except in Learn Mode.
    const GameStats sa = LoadSettings(m.a.file.path()).stats[kVsHumans];
    EXPECT_EQ(sa.wins[7] + sa.losses[7] + sa.ties[7], mode == 2 ? 0 : 1);
    EXPECT_EQ(LoadSettings(m.a.file.path()).stats[kVsComputer], GameStats{});
  }
  EXPECT_GT(results[kAInOrder], 0);
  EXPECT_GT(results[kBInOrder], 0);
}

TEST(Remote, TheStatusBarTellsWhatWasSentAndReceived) {
  Match m;
  EXPECT_EQ(m.a.Panel(1), "Opponent 127.0.0.1");
  EXPECT_EQ(m.a.C("lblStackB").caption, "Opponent's Stack");
  m.Start();
  EXPECT_EQ(m.a.Panel(2) + "|" + m.a.Panel(3) + "|" + m.a.Panel(4),
            "Setup sent|Acceptance received|acce");
  EXPECT_EQ(m.b.Panel(2) + "|" + m.b.Panel(3), "Setup received|Acceptance sent");
  EXPECT_EQ(m.b.Panel(4).size(), 20u);  // a deal is too long: the panel shows a part
  EXPECT_TRUE(m.a.Up("cmdQuit") && m.b.Up("cmdQuit"));
  // The invited side moves first; the dealer waits with its cards out of reach.
  EXPECT_EQ(m.b.Field("TurnOwner"), "1");
  EXPECT_FALSE(m.a.Click("lblDiscardPile"));
  m.b.Press({"lblDiscardPile", "lblCardA(3)", "cmdPlayA"});
  EXPECT_EQ(m.b.Panel(2) + "|" + m.b.Panel(3), "Move sent - Discard|Setup received");
  m.Pump();
  EXPECT_EQ(m.a.Panel(2) + "|" + m.a.Panel(4), "Move received - Discard|disc 3");
  EXPECT_EQ(m.a.Field("MoveCountB"), "1");
  EXPECT_EQ(m.a.platform.clicks, 2);  // New Game, and the move that arrived
  ExpectAgreement(m.a, m.b);
}

TEST(Remote, AStackDealtInOrderShowsItsResultOnBothCopiesAndPlayGoesOn) {
  Match m;
  m.Send(m.a, {"cmdNew"});
  // The held deal, put in order before it is sent.
  std::vector<int> mine;
  std::istringstream in(m.a.Field("Stacks(1)"));
  for (int card; in >> card;) mine.push_back(card);
  std::sort(mine.begin(), mine.end());
  std::string sorted;
  for (int card : mine) sorted += std::to_string(card) + " ";
  ASSERT_EQ(m.a.app.game().SetField("Stacks(1)", sorted), "");
  m.Send(m.b, {"frmInvitation.cmdYes"});
  EXPECT_TRUE(m.a.Up("cmdAWins") && m.b.Up("cmdBWins"));
  m.Send(m.b, {"lblDrawPile", "cmdPlayA"});
  EXPECT_EQ(m.a.Panel(2), "Move received - Pass");
  ExpectAgreement(m.a, m.b);
}

TEST(Remote, MessagesOutOfTurnOrFromStrangersChangeNothing) {
  Match m;
  m.Start();
  const std::string before = m.a.State();
  // The dealer waits for b's move: its own kind of move from b's port is fine, but not a deal,
  // not a second answer, not a Switchem with the option off, not a slot beyond the Stack.
  for (const char* bad :
       {"acce", "swit 1 2", "smac 1 2", "take 1 2", "disc11", "disc 11", "SMAC", "pa", "disc\n7"}) {
    m.Inject(m.a, bad);
    EXPECT_EQ(m.a.Panel(2), "Bad data received") << bad;
  }
  EXPECT_EQ(m.a.Panel(4), "disc?7");
  m.Inject(m.a, net::Encode(net::Deal{}));
  EXPECT_EQ(m.a.Panel(2), "Bad data received");
  // Strangers are not heard at all.
  m.link_a->Arrive("10.1.2.3", 1002, "quit");
  m.link_a->Arrive("127.0.0.1", 4444, "quit");
  m.link_a->Arrive("127.0.0.1", 1002, std::string(net::kMaxMessageLength + 1, ' '));
  EXPECT_EQ(m.Pump(), 0);
  EXPECT_EQ(m.link_a->dropped(), 3);
  EXPECT_EQ(m.a.State(), before);
  EXPECT_FALSE(m.a.Up("cmdQuitReceived"));
  // Moves out of turn on the side that is to move.
  m.Inject(m.b, "disc 2");
  EXPECT_EQ(m.b.Panel(2), "Bad data received");
  EXPECT_EQ(m.b.Field("MoveCountB"), "0");
}

// The invitation says who sends it; a rejection, a quit and an exit each leave a way back, and
// the next run offers the connection last set up.
TEST(Remote, RejectionQuitAndExitEachLeaveAWayBack) {
  Match m;
  m.Send(m.a, {"cmdNew"});
  EXPECT_FALSE(m.b.Up("cmdNew"));
  EXPECT_EQ(m.b.Panel(2), "Invitation received");
  EXPECT_EQ(m.b.C("frmInvitation.lblFrom").caption,
            "The invitation comes from 127.0.0.1, port 1001.");
  m.b.Press({"frmInvitation.cmdNo"});
  EXPECT_EQ(m.b.Field("IsDealer"), "1");
  m.Pump();
  EXPECT_EQ(m.a.C("cmdInvitationRejected").caption,
            "Invitation rejected.  Click here to continue.");
  EXPECT_EQ(m.a.C("lblPrompt").caption,
            "Your invitation was rejected: this deal will not be played.  Click the button to "
            "continue (Enter).");
  m.a.Press({"cmdInvitationRejected"});
  EXPECT_TRUE(m.a.Up("cmdNew"));

  m.Start();
  m.Send(m.a, {"cmdQuit"});
  ASSERT_TRUE(m.b.Up("cmdQuitReceived"));
  EXPECT_NE(m.b.C("lblPrompt").caption.find("has quit this game"), std::string::npos);
  for (const char* name : {"cmdNew", "optVsComputer", "cmdSetupRemoteOpponent"})
    EXPECT_TRUE(m.b.Up(name)) << name;
  // A new invitation dismisses the prompt that is still up, and New Game waits for the answer.
  m.Start();
  EXPECT_FALSE(m.b.C("cmdQuitReceived").visible);
  EXPECT_FALSE(m.b.Up("cmdNew"));
  m.Send(m.a, {"cmdQuit"});
  m.b.Press({"cmdQuitReceived"});
  EXPECT_TRUE(m.b.Up("cmdNew"));

  // A copy that only ever invited says nothing when it closes between games, but mid-game it
  // tells the opponent, who then plays the computer again.
  m.Start();
  ASSERT_EQ(m.a.app.Close("frmGame"), AppModel::Result::kDone);
  EXPECT_EQ(m.link_a->waiting(), 1);
  m.Pump();
  m.b.Press({"cmdExitReceived"});
  EXPECT_EQ(m.b.Field("VsComputer"), "1");
  EXPECT_TRUE(m.b.Up("cmdNew"));
  // The next run offers the connection last set up, with Send ready.
  Copy next(m.a.file.Read());
  next.Press({"optVsHuman", "cmdSetupRemoteOpponent"});
  const auto box = [&](const char* name) { return next.C(std::string("frmCommunicate.") + name); };
  EXPECT_EQ(box("txtIPB").caption + " " + box("txtPortB").caption + " " + box("txtPortA").caption,
            "127.0.0.1 1002 1001");
  EXPECT_EQ(next.app.communicate().Focus(), "cmdSend");
}

// Any one message lost on the way: whoever waits in vain presses Quit This Game, and both are
// back where New Game works, without closing the program.
class LostMessage : public testing::TestWithParam<const char*> {};

TEST_P(LostMessage, BothPlayersGetBackToNewGame) {
  Match m;
  m.lose = GetParam();
  // The exchange goes on as far as it can: a invites, b accepts, b passes, a quits.
  m.Send(m.a, {"cmdNew"});
  if (m.b.app.IsOpen("frmInvitation")) m.b.Press({"frmInvitation.cmdYes"});
  m.Pump();
  if (m.b.Up("lblDrawPile")) m.b.Press({"lblDrawPile", "cmdPlayA"});
  m.Pump();
  if (m.lose == "quit") m.a.Press({"cmdQuit"});
  m.Pump();
  ASSERT_EQ(m.lose, "") << "nothing lost";
  if (std::string(GetParam()) == "setu") {  // the invited copy waits for the deal in vain
    m.b.platform.now_ms = 30000;
    m.b.app.Tick();
    EXPECT_NE(m.b.C("lblPrompt").caption.find("No word from your opponent"), std::string::npos);
  }
  for (Copy* c : {&m.b, &m.a})
    if (c->Up("cmdQuit")) m.Send(*c, {"cmdQuit"});
  for (Copy* c : {&m.a, &m.b}) {
    if (c->Up("cmdQuitReceived")) c->Press({"cmdQuitReceived"});
    EXPECT_TRUE(c->Up("cmdNew"));
    EXPECT_FALSE(c->Up("cmdQuit"));
    EXPECT_FALSE(c->app.IsOpen("frmInvitation"));
  }
  m.Start();
  m.Send(m.b, {"lblDrawPile", "cmdPlayA"});
  EXPECT_EQ(m.a.Field("MoveCountB"), "1");
  ExpectAgreement(m.a, m.b);
}

INSTANTIATE_TEST_SUITE_P(Remote, LostMessage,
                         testing::Values("invi", "acce", "setu", "pass", "quit"));

TEST(Remote, EveryInvitationIsHeardAndAnsweredAndADealCountsOnlyAfterYes) {
  Match m;
  net::Deal unasked;
  for (int k = 0; k < 10; ++k) {
    unasked.receiver_stack[static_cast<size_t>(k)] = k + 1;
    unasked.sender_stack[static_cast<size_t>(k)] = k + 11;
  }
  unasked.discard = 21;
  for (int i = 0; i < 79; ++i) unasked.draw[static_cast<size_t>(i)] = i + 22;
  const auto deal_arrives = [&] {
    const std::string before = m.b.State();
    m.Inject(m.b, net::Encode(unasked));
    EXPECT_EQ(m.b.Panel(2), "Bad data received");
    EXPECT_EQ(m.b.State(), before);
  };
  deal_arrives();  // between games
  // b has gone back to the computer: the invitation is heard all the same. Closing the dialog by
  // its frame says No, and both can start again.
  m.b.Press({"optVsComputer"});
  m.Send(m.a, {"cmdNew"});
  ASSERT_TRUE(m.b.app.IsOpen("frmInvitation"));
  EXPECT_FALSE(m.b.Up("cmdNew"));
  ASSERT_EQ(m.b.app.Close("frmInvitation"), AppModel::Result::kDone);
  EXPECT_TRUE(m.b.Up("cmdNew"));
  deal_arrives();  // after No
  m.a.Press({"cmdInvitationRejected"});
  // Yes, and the deal makes the person b's opponent; a second deal mid-game is refused.
  m.Start();
  EXPECT_EQ(m.b.Field("VsComputer"), "0");
  EXPECT_EQ(m.b.C("optVsHuman").value, 1);
  deal_arrives();
  // a's quit is lost and a invites again: the game left on b's board is over, even after a No.
  m.lose = "quit";
  m.Send(m.a, {"cmdQuit", "cmdNew"});
  m.b.Press({"frmInvitation.cmdNo"});
  EXPECT_TRUE(m.b.Up("cmdNew"));
}

TEST(Remote, SpecialMovesAreOncePerSideAndNobodyPeeks) {
  Match m;
  m.a.Press({"chkSmackem", "chkTakem"});
  m.Start();
  // b's Smackem: the opponent's cards are picked face down, and only the two moved show.
  m.b.Press({"cmdSetupSmackemA", "lblCardB(1)", "lblCardB(2)", "cmdSmackemA"});
  for (const char* name : {"lblDiscardPile", "cmdSetupTakemA", "lblCardB(3)", "lblCardA(1)"})
    EXPECT_FALSE(m.b.Up(name)) << name << ": the turn is over";
  m.Pump();
  m.a.Press({"cmdSmackemB"});
  EXPECT_FALSE(m.a.C("cmdSetupSmackemB").visible);
  // a un-marks its card, or the Discard Pile: with nothing chosen the button waits.
  m.a.Press({"lblDiscardPile", "lblCardA(2)"});
  EXPECT_TRUE(m.a.Up("cmdPlayA"));
  m.a.Press({"lblCardA(2)"});
  EXPECT_FALSE(m.a.Up("cmdPlayA"));
  m.a.Press({"lblCardA(3)", "lblDiscardPile"});
  EXPECT_FALSE(m.a.Up("cmdPlayA"));
  m.a.Press({"lblDrawPile", "cmdPlayA"});  // a pass is a move
  m.Pump();
  EXPECT_EQ(m.b.Field("MoveCountB"), "1");
  for (int p = 3; p <= 10; ++p) {
    const Control& card = m.b.C("lblCardB(" + std::to_string(p) + ")");
    EXPECT_TRUE(!card.visible || card.caption == " ") << p << " shows " << card.caption;
  }
  // The computer's judgement is no way to see a person's Stack.
  EXPECT_EQ(m.b.app.ClickBackground(true), AppModel::Result::kIgnored);
  EXPECT_EQ(m.b.Field("LearnMode"), "0");
  // b's Takem, once: a second one, or a second Smackem, is bad data on a's copy.
  m.b.Press({"cmdSetupTakemA", "lblCardA(1)", "lblCardB(1)", "cmdTakemA"});
  EXPECT_FALSE(m.b.Up("cmdSetupTakemA"));
  m.Pump();
  m.a.Press({"cmdTakemB"});
  EXPECT_FALSE(m.a.C("cmdSetupTakemB").visible);
  m.a.platform.now_ms = 60000;  // a's own turn now: nobody to wait for
  m.a.app.Tick();
  EXPECT_EQ(m.a.C("lblPrompt").caption.find("No word"), std::string::npos);
  m.Send(m.a, {"lblDrawPile", "cmdPlayA"});
  ExpectAgreement(m.a, m.b);
  for (const char* again : {"take 2 2", "smac 1 2"}) {
    const std::string before = m.a.State();
    m.Inject(m.a, again);
    EXPECT_EQ(m.a.Panel(2), "Bad data received") << again;
    EXPECT_EQ(m.a.State(), before);
  }
}

TEST(Remote, SilenceAndStrangersAreExplainedOnThePromptLine) {
  const std::string silence =
      "No word from your opponent for 30 s. They may still be thinking; if a message was lost, "
      "Quit This Game ends the game for both.";
  const std::string stranger =
      "Ignored a message from 127.0.0.2:5672: not your opponent's address.";
  const auto says = [](Copy& c, const std::string& text) {
    return c.C("lblPrompt").caption.find(text) != std::string::npos;
  };
  const auto at = [](Copy& c, std::int64_t ms) {
    c.platform.now_ms = ms;
    c.app.Tick();
  };
  Match m;
  m.Send(m.a, {"cmdNew"});
  // a waits for the answer, b thinks it over; a's own clicks meanwhile do not restart the count.
  m.a.platform.now_ms = 10000;
  m.a.Press({"mnuOptionsSound"});
  at(m.a, 29999);
  EXPECT_FALSE(says(m.a, silence));
  at(m.a, 30000);
  EXPECT_TRUE(says(m.a, silence));
  EXPECT_FALSE(says(m.b, silence));  // b is not waiting for anybody
  m.Send(m.b, {"frmInvitation.cmdYes"});
  EXPECT_FALSE(says(m.a, silence));
  at(m.a, 59999);  // now a waits for b's first move: the count starts again
  EXPECT_FALSE(says(m.a, silence));
  at(m.a, 60000);
  EXPECT_TRUE(says(m.a, silence));
  // A stranger is named once; the game goes on untouched.
  m.link_a->Arrive("127.0.0.2", 5672, "quit");
  EXPECT_TRUE(says(m.a, stranger));
  EXPECT_FALSE(m.a.Up("cmdQuitReceived"));
  m.link_a->Arrive("127.0.0.1", 1003, "quit");
  EXPECT_TRUE(says(m.a, "127.0.0.1:1003"));
  m.link_a->Arrive("127.0.0.2", 5672, "quit");
  EXPECT_FALSE(says(m.a, stranger));
  EXPECT_EQ(m.Pump(), 0);
}

TEST(Remote, TheSettingsDialogChecksNothingButTellsWhySetUpFailed) {
  Copy c(3);
  auto [la, lb] = net::MemoryLink::Pair();
  c.app.SetLink(la.get());
  c.Press({"optVsHuman"});
  EXPECT_FALSE(c.Up("cmdNew"));
  c.Press({"mnuSetupRemoteOpponent"});
  EXPECT_EQ(c.C("frmCommunicate.txtIPA").caption, "127.0.0.1");
  EXPECT_EQ(c.Panel(1), "No opponent information");
  EXPECT_EQ(c.C("frmCommunicate.lblPortNumber").caption, "Port Number (1000 - 9999)");
  c.Type("frmCommunicate.txtPortA", "2000");
  c.Type("frmCommunicate.txtIPB", "  host.example ");
  c.Press({"frmCommunicate.cmdSend"});  // txtPortB empty: nothing happens
  EXPECT_TRUE(c.platform.messages.empty());
  EXPECT_TRUE(c.app.IsOpen("frmCommunicate"));
  c.Type("frmCommunicate.txtPortB", "two");
  c.Press({"frmCommunicate.cmdSend"});
  EXPECT_EQ(c.platform.messages,
            std::vector<std::string>{"Winsock failed to communicate with remote server"});
  EXPECT_NE(c.platform.details[0].find("\"two\" is not a number"), std::string::npos);
  EXPECT_TRUE(c.app.IsOpen("frmCommunicate"));
  c.Press({"frmCommunicate.cmdHelp"});
  EXPECT_EQ(c.platform.opened.back(), "help.html");
  c.Type("frmCommunicate.txtPortB", "2000");  // equal ports are not refused
  c.Press({"frmCommunicate.cmdSend"});
  EXPECT_FALSE(c.app.IsOpen("frmCommunicate"));
  EXPECT_EQ(c.Panel(1), "Opponent host.example");
  EXPECT_TRUE(c.Up("cmdNew"));
  // Sent again with another port of its own: the copy stays bound as it was, and says so.
  c.app.communicate().Open();
  c.Type("frmCommunicate.txtPortA", "3000");
  c.Press({"frmCommunicate.cmdSend"});
  c.app.communicate().Open();
  EXPECT_EQ(c.C("frmCommunicate.txtPortA").caption + " " + std::to_string(la->LocalPort()),
            "2000 2000");
}

}  // namespace
}  // namespace bq
