// The messages byte for byte, and the decoder's refusal of everything that is not exactly one.
#include <gtest/gtest.h>

#include <numeric>

#include "net/message.h"

namespace bq::net {
namespace {

const Context k10{10};

Deal MakeDeal(bool stackem, int draw_count) {
  Deal s;
  s.options = {stackem, true, false, true, false, true};
  s.fast_mode = true;
  s.learn_mode = false;
  s.stack_size = stackem ? 20 : 10;
  s.draw_count = draw_count;
  std::array<int, 100> deck{};
  std::iota(deck.begin(), deck.end(), 1);
  std::reverse(deck.begin(), deck.end());  // 100 first, so both widths of num4 occur
  size_t i = 0;
  for (int k = 0; k < s.stack_size; ++k) s.receiver_stack[static_cast<size_t>(k)] = deck[i++];
  for (int k = 0; k < s.stack_size; ++k) s.sender_stack[static_cast<size_t>(k)] = deck[i++];
  s.discard = deck[i++];
  for (int m = 0; m < draw_count; ++m) s.draw[static_cast<size_t>(m)] = deck[i++];
  return s;
}

// Each kind byte for byte; what decodes encodes to the same bytes.
TEST(Message, EveryKindIsEncodedByteForByteAndDecodesBack) {
  const std::pair<Message, const char*> cases[] = {{Invite{}, "invi"},
                                                   {Accept{}, "acce"},
                                                   {Reject{}, "reje"},
                                                   {CardClick{7}, "card 7"},
                                                   {CardClick{10}, "card10"},
                                                   {ClearCards{}, "clea"},
                                                   {DiscardClick{}, "clic"},
                                                   {DiscardMove{7}, "disc 7"},
                                                   {DiscardMove{10}, "disc 10"},
                                                   {Look{}, "look"},
                                                   {DrawMove{3}, "draw 3"},
                                                   {Pass{}, "pass"},
                                                   {Switch{2, 9}, "swit 2 9"},
                                                   {Switch{1, 10}, "swit 110"},
                                                   {Smack{3, 10}, "smac 310"},
                                                   {Take{10, 1}, "take10 1"},
                                                   {Quit{}, "quit"},
                                                   {Exit{}, "exit"}};
  for (const auto& [message, text] : cases) {
    EXPECT_EQ(Encode(message), text);
    const auto back = Decode(text, k10);
    ASSERT_TRUE(back) << text;
    EXPECT_EQ(Encode(*back), text);
  }
  // Wider than 10-card Stacks: the fields keep their widths.
  EXPECT_EQ(Encode(Smack{3, 12}) + Encode(DiscardMove{15}) + Encode(CardClick{12}),
            "smac 312disc 15card12");
  EXPECT_EQ(SentText(Smack{3, 12}), "Move sent - Smackem");
  EXPECT_EQ(ReceivedText(DrawMove{3}), "Move received - Draw");
  EXPECT_EQ(ReceivedText(CardClick{3}), "");
  EXPECT_EQ(SentText(Look{}), "Look at Draw Pile card sent");
}

TEST(Message, TheSetupLayoutHasOptionsThenBothStacksThenThePiles) {
  const Deal s = MakeDeal(false, 79);
  const std::string text = Encode(s);
  ASSERT_EQ(text.size(), 26u + 8 * 10 + 4 * 79);
  EXPECT_EQ(text.substr(0, 22), "setu 0 1 0 1 0 1 2 1 2");
  EXPECT_EQ(text.substr(22, 8), " 100  99");        // 100 takes " 100"
  EXPECT_EQ(text.substr(22 + 40, 4), "  90");       // the sender's Stack follows
  EXPECT_EQ(text.substr(22 + 80, 4), "  80");       // then the Discard Pile card
  EXPECT_EQ(text.substr(text.size() - 4), "   1");  // and the Draw Pile; 1 takes "   1"
  EXPECT_EQ(Encode(MakeDeal(true, 59)).size(), 422u);
  EXPECT_EQ(Encode(MakeDeal(true, 59)).size(), kMaxMessageLength);
}

TEST(Message, ADealDecodesWhateverTheStackSizeAndDrawPileLength) {
  const Context k20{20};
  const auto dealt = Decode(Encode(MakeDeal(false, 79)), k10);
  ASSERT_TRUE(dealt);
  EXPECT_EQ(Encode(*dealt), Encode(MakeDeal(false, 79)));
  // A deal carries its own Stack size: a 20-card deal reads on a 10-card copy, and the reverse.
  const auto big = Decode(Encode(MakeDeal(true, 59)), k10);
  ASSERT_TRUE(big);
  EXPECT_EQ(std::get<Deal>(*big).stack_size, 20);
  // The Draw Pile is as long as the dealer made it, whatever this copy would deal: 59 after
  // Stackem was on and off, and any length that leaves every card once.
  for (const int d : {59, 79, 1}) {
    const auto deal = Decode(Encode(MakeDeal(false, d)), k20);
    ASSERT_TRUE(deal) << d;
    EXPECT_EQ(std::get<Deal>(*deal).draw_count, d);
  }
  EXPECT_EQ(std::get<Deal>(*Decode(Encode(MakeDeal(true, 40)), k10)).draw_count, 40);
  EXPECT_EQ(std::get<DiscardMove>(*Decode("disc 15", k20)).slot, 15);
  EXPECT_EQ(std::get<Take>(*Decode("take10 1", k10)).own, 10);
  EXPECT_EQ(std::get<Smack>(*Decode("smac 312", k20)).pos2, 12);
}

TEST(Message, MalformedInputIsRefused) {
  for (const char* text : {"",        "inv",       "invi ",    "INVI",     "Smac 312", "SMAC",
                           "smac 31", "smac 3122", "smac 3 0", "smac 311", "smac 3 a", "smac03 1",
                           "card 0",  "card11",    "card7",    "card 07",  "disc",     "disc7",
                           "disc 0",  "disc  7",   "disc 07",  "disc 11",  "disc 7 ",  "draw+7",
                           "pass 1",  "quitx",     "exi",      "hello",    "take 1 1 "}) {
    EXPECT_FALSE(Decode(text, k10)) << '"' << text << '"';
  }
  const std::string good = Encode(MakeDeal(false, 79));
  EXPECT_FALSE(Decode(good.substr(0, good.size() - 1), k10));  // truncated
  EXPECT_FALSE(Decode(good + " ", k10));                       // one byte extra
  const auto with = [&](size_t at, const char* field) {
    std::string t = good;
    t.replace(at, std::char_traits<char>::length(field), field);
    return t;
  };
  EXPECT_FALSE(Decode(with(22, "   0"), k10));  // card 0
  EXPECT_FALSE(Decode(with(22, " 101"), k10));  // card 101
  EXPECT_FALSE(Decode(with(22, "  99"), k10));  // 99 twice
  EXPECT_FALSE(Decode(with(22, "  x9"), k10));  // not a digit
  EXPECT_FALSE(Decode(with(22, "0100"), k10));  // a zero where a blank belongs
  EXPECT_FALSE(Decode(with(4, " 2"), k10));     // an option is 0 or 1
  EXPECT_FALSE(Decode(with(16, " 1"), k10));    // the opponent is always a human
  EXPECT_FALSE(Decode(with(18, " 0"), k10));    // a mode is 1 or 2
  EXPECT_FALSE(Decode(with(20, "x1"), k10));
  EXPECT_FALSE(Decode(with(0, "SETU"), k10));
  // Draw Piles that no deal can hold: empty, part of a card, more cards than the deck has.
  EXPECT_FALSE(Decode(good.substr(0, 26 + 80), k10));
  EXPECT_FALSE(Decode(good.substr(0, good.size() - 2), k10));
  std::string crowded = Encode(MakeDeal(true, 59));
  crowded.replace(4, 2, " 0");  // the same 422 bytes as 10-card Stacks: a Draw Pile of 79
  EXPECT_TRUE(Decode(crowded, k10));
  EXPECT_FALSE(Decode(Encode(MakeDeal(true, 59)) + "   1", k10));
}

}  // namespace
}  // namespace bq::net
