// Which message the session lets through when.
#include <gtest/gtest.h>

#include "net/session.h"

namespace bq::net {
namespace {

TEST(Session, MovesAreAcceptedOnlyWhenTheOpponentIsToMove) {
  Session s;
  Moment idle;
  Moment waiting;
  waiting.in_game = waiting.awaiting_move = true;
  Moment my_turn;
  my_turn.in_game = true;
  for (const Message& m : {Message(DiscardMove{1}), Message(DrawMove{1}), Message(Pass{}),
                           Message(Look{}), Message(DiscardClick{}), Message(CardClick{1})}) {
    EXPECT_TRUE(s.Accepts(m, waiting)) << Encode(m);
    EXPECT_FALSE(s.Accepts(m, my_turn)) << Encode(m);
    EXPECT_FALSE(s.Accepts(m, idle)) << Encode(m);
  }
  // Special moves only while the option leaves the opponent one.
  EXPECT_FALSE(s.Accepts(Smack{1, 2}, waiting));
  EXPECT_FALSE(s.Accepts(Take{1, 2}, waiting));
  waiting.smackem_open = waiting.takem_open = true;
  EXPECT_TRUE(s.Accepts(Smack{1, 2}, waiting));
  EXPECT_TRUE(s.Accepts(Take{1, 2}, waiting));
  EXPECT_FALSE(s.Accepts(Switch{1, 2}, waiting));
  Moment opening;
  opening.in_game = opening.awaiting_switch = true;
  EXPECT_TRUE(s.Accepts(Switch{1, 2}, opening));
  EXPECT_TRUE(s.Accepts(ClearCards{}, opening));
  EXPECT_FALSE(s.Accepts(DiscardMove{1}, opening));
  EXPECT_TRUE(s.Accepts(Quit{}, my_turn));
  EXPECT_FALSE(s.Accepts(Quit{}, idle));
  EXPECT_TRUE(s.Accepts(Exit{}, idle));
}

TEST(Session, AnswersNeedAnInvitationAndADealNeedsToBeInvited) {
  Session s;
  const Moment any;
  EXPECT_TRUE(s.Accepts(Invite{}, any));
  EXPECT_FALSE(s.Accepts(Accept{}, any));
  EXPECT_FALSE(s.Accepts(Deal{}, any));
  s.InvitationSent();
  EXPECT_TRUE(s.Accepts(Accept{}, any));
  EXPECT_TRUE(s.Accepts(Reject{}, any));
  EXPECT_FALSE(s.Accepts(Deal{}, any));  // the inviter deals; it never takes a deal
  s.AnswerReceived();
  EXPECT_FALSE(s.Accepts(Accept{}, any));  // a second answer is stale
  s.InvitationReceived();
  EXPECT_TRUE(s.Accepts(Deal{}, any));  // whether or not this side said Yes
  EXPECT_FALSE(s.Accepts(Reject{}, any));
}

}  // namespace
}  // namespace bq::net
