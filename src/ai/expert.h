#pragma once

#include <optional>

#include "ai/classic_guess.h"
#include "ai/seat_view.h"

namespace bq::ai {

// The Expert. It values a Stack by the work left to put it in order: it keeps the run of its
// cards that leaves the least work, and every gap between two kept cards costs its slots to fill
// plus the wait for cards that fit them, longer the fewer of the cards it has not seen fit. A move
// is judged by the work expected after one more turn of its own, each card it may meet there being
// any card it has not seen, and by how likely the opponent is to take the card it gives away.
class Expert {
 public:
  struct Weights {
    double wait = 0.5;          // turns per hundred cards seen waiting for a card that fits
    double wait_stackem = 0.1;  // the same with 20-card Stacks, where slots fill more slowly
    double sharing = 0.4;       // 0: each slot of a gap waits alone; 1: its slots share one wait
    double gift = 0.3;          // turns for a card the opponent can probably use
    double taken = 0.8;         // turns for a card the Classic computer is sure to take
  };

  Expert();
  explicit Expert(const Weights& w);

  // The move, or nullopt to look at the Draw Pile card first (only while v.draw_top is 0).
  // `theirs`: what the Classic computer opposite is guessed to want, where it can be told.
  std::optional<Move> Decide(const SeatView& v, const Appetite* theirs = nullptr) const;
  // The Switchem opening: the swap that leaves the least work (side B may keep its Stack).
  Move Opening(const SeatView& v) const;
  // The cards a seat may still meet: those it has not seen. A card it holds, one on show in the
  // opponent's Stack or one covered on the Discard Pile fills none of its gaps.
  struct Pool {
    // [lo][hi]: one over the number of pool cards between lo and hi (at least a half).
    std::array<std::array<float, kDeckSize + 2>, kDeckSize + 2> scarcity{};
    int size = 0;
  };
  static Pool Unseen(const SeatView& v);

  // The work left in `cards` (slots 1..n); under Backem the cheaper of the two directions.
  double Work(const StackCards& cards, int n, bool backem, const Pool& pool) const;

 private:
  struct Choice {
    double work;
    int slot;  // 0: pass the card on
  };
  double AscendingWork(const int* cards, int n, const Pool& pool, bool mirrored) const;
  // What giving away each card costs, in turns.
  using Gifts = std::array<float, kDeckSize + 1>;
  double Gift(const SeatView& v, int card) const;
  double NextTurnWork(const SeatView& v, const Pool& pool, const Gifts& gift,
                      const StackCards& cards) const;
  Choice BestPlace(const SeatView& v, const Pool& pool, const Gifts& gift, int card, bool may_pass,
                   int shortlist) const;

  Weights weights_;
  // The wait for the cards of a gap of [slots] slots, to be scaled by the pool's size over the
  // number of its cards that fit.
  std::array<double, kMaxStackSize + 1> gap_{};
};

// The Expert in one seat of a game: it keeps what the seat has seen, builds its view and asks the
// Expert, which never sees the game itself. Told that the other seat is the Classic computer, it
// guesses from that computer's moves which cards it wants.
class ExpertSeat {
 public:
  enum class Opponent { kPerson, kClassic };
  explicit ExpertSeat(int side, Opponent opponent = Opponent::kPerson,
                      const Expert::Weights& w = {})
      : side_(side),
        shown_(side),
        expert_(w),
        classic_(kSideA + kSideB - side),
        versus_classic_(opponent == Opponent::kClassic) {}

  void NewGame(const GameState& g);
  Move Choose(const GameState& g, Rng& rng);
  void Applied(const GameState& g, const Move& m);

  SeatView View(const GameState& g, bool looked) const { return ViewOf(g, side_, shown_, looked); }

 private:
  int side_;
  ShownCards shown_;
  Expert expert_;
  ClassicGuess classic_;
  bool versus_classic_;
  bool direction_named_ = false;
};

}  // namespace bq::ai
