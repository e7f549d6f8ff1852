#pragma once

#include <string>

namespace bq {

inline constexpr int kDeckSize = 100;
inline constexpr int kMaxStackSize = 20;

// What the face-down Draw Pile shows: eleven characters, not twelve.
inline constexpr const char* kFaceDown = "     ?     ";

// The 12-character face of a card. The number is indented by its tens digit (nine for 100) so a
// Stack's order can be read from the shape of its column. Cards outside 1..100 have an empty face.
const std::string& CardFace(int card);

}  // namespace bq
