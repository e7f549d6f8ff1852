#include "engine/cards.h"

#include <array>

namespace bq {
namespace {

std::array<std::string, kDeckSize + 1> MakeFaces() {
  std::array<std::string, kDeckSize + 1> faces;
  for (int card = 1; card <= kDeckSize; ++card) {
    const int indent = card == 100 ? 9 : card / 10;
    std::string face(static_cast<size_t>(indent), ' ');
    face += std::to_string(card);
    face.resize(12, ' ');
    faces[static_cast<size_t>(card)] = face;
  }
  return faces;
}

}  // namespace

const std::string& CardFace(int card) {
  static const std::array<std::string, kDeckSize + 1> faces = MakeFaces();
  static const std::string none;
  return card >= 1 && card <= kDeckSize ? faces[static_cast<size_t>(card)] : none;
}

}  // namespace bq
