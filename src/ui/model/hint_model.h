#pragma once

#include <array>
#include <string>

#include "ai/hint.h"
#include "engine/game_state.h"

namespace bq {

// The Hint command's advice for side A, kept while the position it was given for stands and
// dropped as soon as anything in it changes (a move, a look at the Draw Pile, a new turn).
class HintModel {
 public:
  // Side A's position as the player sees it.
  struct Seen {
    std::array<int, kMaxStackSize + 1> own{};
    int n = 0;
    int discard_top = 0;
    int drawn = 0;  // the Draw Pile card once looked at
    int moves = 0;  // both sides' moves: a later turn never passes for this one
    bool operator==(const Seen&) const = default;
  };
  static Seen See(const GameState& g, bool draw_looked);

  // The Classic computer's advice, judged here.
  void Ask(const Seen& seen, bool backem);
  // Advice judged elsewhere; the text names the Expert when it is `expert`'s.
  void Ask(const Seen& seen, const ai::Advice& advice, bool expert);
  void Follow(const Seen& seen);
  void Clear() { active_ = false; }
  bool active() const { return active_; }
  const ai::Advice& advice() const { return advice_; }
  // The advice in words; "" without advice.
  std::string Text() const;

 private:
  std::string Words() const;

  bool active_ = false;
  bool expert_ = false;
  Seen seen_;
  ai::Advice advice_;
};

}  // namespace bq
