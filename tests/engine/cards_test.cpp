#include <gtest/gtest.h>

#include "engine/cards.h"

namespace bq {
namespace {

TEST(CardFace, IndentGrowsWithTheTensDigitAndStopsAtNineForHundred) {
  EXPECT_EQ(CardFace(1), "1           ");
  EXPECT_EQ(CardFace(9), "9           ");
  EXPECT_EQ(CardFace(10), " 10         ");
  EXPECT_EQ(CardFace(25), "  25        ");
  EXPECT_EQ(CardFace(50), "     50     ");
  EXPECT_EQ(CardFace(99), "         99 ");
  EXPECT_EQ(CardFace(100), "         100");
  for (int card = 1; card <= 100; ++card) EXPECT_EQ(CardFace(card).size(), 12u) << card;
}

TEST(CardFace, NonCardsHaveNoFaceAndTheDrawPileIsElevenWide) {
  EXPECT_EQ(CardFace(0), "");
  EXPECT_EQ(CardFace(101), "");
  EXPECT_EQ(CardFace(-3), "");
  EXPECT_EQ(std::string(kFaceDown), "     ?     ");
}

}  // namespace
}  // namespace bq
