#include "selfplay/match.h"

#include <algorithm>

#include "ai/turn.h"

namespace bq::selfplay {

using Kind = ai::TurnDecision::Kind;

Match::Match(const OptionChoice& options, Rng& rng, int move_cap)
    : choice_(options), rng_(rng), move_cap_(move_cap) {
  // As the window loads: the game data, then every option's setter once.
  g_.Init();
  if (!choice_.random) options_ = choice_.fixed;
  if (On(kStackem))
    g_.StackemOn();
  else
    g_.StackemOff();
}

const int* Match::Own(int side) {
  if (side == kSideB) return g_.stacks[kSideB].data();
  for (int k = 1; k <= N(); ++k) view_a_[static_cast<size_t>(k)] = g_.Card(kSideA, SlotA(k));
  return view_a_.data();
}

void Match::Rejudge(int side) {
  ai::Rejudge(judge_[static_cast<size_t>(side)], N(), Own(side));
}

// Side B's Stack is turned round in the game, as the window does; side A's only in its view.
void Match::Reverse(int side) {
  if (side == kSideA) {
    reversed_a_ = true;
  } else {
    g_.opponent_row_reversed = true;
    g_.ReverseSideB();
  }
}

// Random clears every option and then checks the drawn ones, so Stackem's setters run as in
// the window (a 10-card game after a 20-card one keeps the shorter Draw Pile).
void Match::SetUpOptions() {
  if (!choice_.random) return;
  g_.StackemOff();
  options_ = PickRandomOptions(rng_);
  if (On(kStackem)) g_.StackemOn();
}

void Match::Count(int side) {
  int& count = side == kSideA ? g_.move_count_a : g_.move_count_b;
  count = std::min(count + 1, 32767);
}

void Match::Moved(int mover, int next) {
  if (g_.turn_result == kUndecided) g_.turn_owner = next;
  if (observer_) observer_->AfterMove(g_, mover, false);
}

GameRecord Match::PlayGame(MoveObserver* observer) {
  observer_ = observer;
  SetUpOptions();
  ShuffleAndDeal(g_, rng_);
  reversed_a_ = false;
  first_turn_ = {false, true, true};
  smackem_used_ = {};
  takem_used_ = {};
  for (int side : {kSideA, kSideB})
    ai::JudgeDeal(judge_[static_cast<size_t>(side)], N(), Own(side));
  g_.turn_owner = kSideA;
  GameRecord record;
  record.options = options_;
  TestBothStacks(g_, On(kBackem));
  if (g_.turn_result == kUndecided && On(kSwitchem)) Opening();
  if (g_.turn_result == kUndecided) {
    g_.turn_owner = std::min(1 + static_cast<int>(2.0f * rng_.Uniform()), kSideB);
    record.first_mover = g_.turn_owner;
    while (g_.turn_result == kUndecided && g_.move_count_a + g_.move_count_b < move_cap_)
      Turn(g_.turn_owner);
  }
  record.result = g_.turn_result;
  record.moves_a = g_.move_count_a;
  record.moves_b = g_.move_count_b;
  observer_ = nullptr;
  return record;
}

// Each side swaps as the computer's opening choice says, side A first. Side A's seat must swap
// two different cards, so a choice to keep the Stack swaps the chosen slot with its right-hand
// neighbour.
void Match::Opening() {
  for (int side : {kSideA, kSideB}) {
    ai::Judgement& j = judge_[static_cast<size_t>(side)];
    g_.turn_owner = side;
    ai::SwitchChoice c = ai::DecideOpening(j, N(), Own(side), On(kBackem));
    if (c.reversed) Reverse(side);
    ai::AfterOpening(j, N(), Own(side));
    if (side == kSideA && (c.p < 1 || c.q < 1 || c.p == c.q)) {
      c.p = std::max(c.p, 1);
      c.q = c.p % N() + 1;
    }
    if (side == kSideA)
      std::swap(g_.Card(kSideA, SlotA(c.p)), g_.Card(kSideA, SlotA(c.q)));
    else if (c.p > 0 && c.q > 0)
      std::swap(g_.Card(kSideB, c.p), g_.Card(kSideB, c.q));
    ai::AfterOpening(j, N(), Own(side));
    Count(side);
    if (side == kSideB) TestBothStacks(g_, On(kBackem));
    if (observer_) observer_->AfterMove(g_, side, true);
  }
}

void Match::Turn(int side) {
  const bool a = side == kSideA;
  const int other = kSideA + kSideB - side;
  const bool backem = On(kBackem);
  ai::Judgement& j = judge_[static_cast<size_t>(side)];
  g_.turn_owner = side;
  // The first turn under Backem settles the direction: chosen now, or by the opening, and in
  // either case judged afresh once reversed.
  if (first_turn_[static_cast<size_t>(side)] && backem) {
    if (!On(kSwitchem) && ai::DecideDirection(j, N(), Own(side), g_.discard_top)) Reverse(side);
    if (a ? reversed_a_ : g_.opponent_row_reversed) Rejudge(side);
  }
  first_turn_[static_cast<size_t>(side)] = false;
  const ai::TurnDecision d =
      ai::DecideTurn(j,
                     ai::ViewOfTurn(g_, On(kTakem) && !takem_used_[static_cast<size_t>(side)],
                                    On(kSmackem) && !smackem_used_[static_cast<size_t>(side)],
                                    a ? reversed_a_ : g_.opponent_row_reversed),
                     rng_);
  // Side A names its own slots as its judgement sees them and the opponent's cards where they
  // are shown; side B's choices name slots as they are held.
  const auto mine = [&](int s) { return a ? SlotA(s) : s; };
  const auto theirs = [&](int s) { return a ? g_.DisplayPos(s) : s; };
  switch (d.kind) {
    case Kind::kDiscard:
      TakeDiscard(g_, side, mine(d.slot));
      break;
    case Kind::kDraw:
      TakeDraw(g_, side, mine(d.slot), rng_);
      break;
    case Kind::kNothing:
      PassDraw(g_, rng_);
      break;
    case Kind::kTakem:
      takem_used_[static_cast<size_t>(side)] = true;
      std::swap(g_.Card(side, mine(d.takem.give_slot)), g_.Card(other, theirs(d.takem.take_slot)));
      ai::AfterTakem(j, N(), Own(side));
      Rejudge(other);
      Count(side);
      TestBothStacks(g_, backem);
      return Moved(side, other);
    case Kind::kSmackem:
      smackem_used_[static_cast<size_t>(side)] = true;
      std::swap(g_.Card(other, theirs(d.smackem.slot1)), g_.Card(other, theirs(d.smackem.slot2)));
      Count(side);
      Rejudge(other);
      // The mover hands over first, so the test looks at the Stack that was just changed.
      g_.turn_owner = other;
      TestOneStack(g_, backem);
      return Moved(side, other);
  }
  Count(side);
  ai::UpdateAfterMove(j, N(), Own(side));
  // As in the window: the player's move tests its own Stack, and only when a card was taken;
  // the computer's move tests both.
  if (!a)
    TestBothStacks(g_, backem);
  else if (d.kind != Kind::kNothing)
    TestOneStack(g_, backem);
  Moved(side, other);
}

}  // namespace bq::selfplay
