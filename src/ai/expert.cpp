#include "ai/expert.h"

#include <algorithm>
#include <cmath>

#include "ai/decisions.h"
#include "ai/turn.h"
#include "engine/rules.h"

namespace bq::ai {
namespace {

constexpr double kNever = 1e9;

size_t At(int i) {
  return static_cast<size_t>(i);
}

// Side A names the opponent's cards where they are shown.
int NamedTheirs(const SeatView& v, int slot) {
  return v.side == kSideA && v.opponent_row_reversed ? v.stack_size + 1 - slot : slot;
}

// A judgement averages over every fourth unseen card (every sixth with 20-card Stacks), which
// plays as well as all of them in self-play and keeps a decision to a few milliseconds.
int Step(const SeatView& v) {
  return v.stack_size > 10 ? 6 : 4;
}

}  // namespace

Expert::Expert() : Expert(Weights{}) {}

Expert::Expert(const Weights& w) : weights_(w) {
  for (auto& row : gap_) row.fill(kNever);
  gap_[0].fill(0);
  for (int g = 1; g <= kMaxStackSize; ++g) {
    double slots_waiting = 0;
    for (int j = 1; j <= g; ++j) slots_waiting += std::pow(j, -w.sharing);
    for (int numbers = g; numbers <= kDeckSize; ++numbers)
      gap_[At(g)][At(numbers)] = (100.0 * g / numbers) * slots_waiting;
  }
}

// The cheapest chain of kept cards from the sentinel 0 to the sentinel 101.
double Expert::AscendingWork(const int* cards, int n) const {
  const double wait = n > 10 ? weights_.wait_stackem : weights_.wait;
  std::array<int, kMaxStackSize + 2> v{};
  std::array<double, kMaxStackSize + 2> best{};
  for (int k = 1; k <= n; ++k) v[At(k)] = cards[k];
  v[At(n + 1)] = kDeckSize + 1;
  for (int b = 1; b <= n + 1; ++b) {
    double least = kNever;
    for (int a = 0; a < b; ++a) {
      const int numbers = v[At(b)] - v[At(a)] - 1;
      if (numbers < b - a - 1) continue;
      least = std::min(least, best[At(a)] + (b - a - 1) + wait * gap_[At(b - a - 1)][At(numbers)]);
    }
    best[At(b)] = least;
  }
  return best[At(n + 1)];
}

double Expert::Work(const StackCards& cards, int n, bool backem) const {
  const double up = AscendingWork(cards.data(), n);
  if (!backem) return up;
  StackCards mirrored{};
  for (int k = 1; k <= n; ++k) mirrored[At(k)] = kDeckSize + 1 - cards[At(k)];
  return std::min(up, AscendingWork(mirrored.data(), n));
}

// The opponent probably wants a card unless its shown card in the slot the card would suit
// already suits that slot.
double Expert::Gift(const SeatView& v, int card) const {
  const int n = v.stack_size;
  const int span = kDeckSize / n;
  const int slot = (card - 1) / span + 1;
  // Side A plays a reversed direction in its own view only; its Stack then runs downwards.
  const bool down = v.side == kSideB && v.a_reversed;
  const int shown = v.theirs[At(down ? n + 1 - slot : slot)];
  const bool settled = shown > span * (slot - 1) && shown <= span * slot;
  return settled ? 0 : weights_.gift;
}

// The work after one more turn played by the one-turn judgement: a Discard Pile card, else a
// look at the Draw Pile card, each as likely as any unseen card.
double Expert::NextTurnWork(const SeatView& v, const StackCards& cards) const {
  const int n = v.stack_size;
  const bool backem = v.options[kBackem];
  const double now = Work(cards, n, backem);
  std::array<double, kDeckSize + 1> placed{};
  double look = 0;
  int count = 0;
  StackCards trial = cards;
  for (size_t i = 0; i < v.unseen.size(); i += At(Step(v))) {
    const int card = v.unseen[i];
    double best = kNever;
    for (int k = 1; k <= n; ++k) {
      const int old = trial[At(k)];
      trial[At(k)] = card;
      best = std::min(best, Work(trial, n, backem) + Gift(v, old));
      trial[At(k)] = old;
    }
    placed[At(count++)] = best;
    look += std::min(now + Gift(v, card), best);
  }
  if (count == 0) return now;
  look /= count;
  double expected = 0;
  for (int i = 0; i < count; ++i) expected += std::min(look, placed[At(i)]);
  return expected / count;
}

// The best place for `card` by the work after the next turn; only the `shortlist` places that
// the one-turn work ranks best are looked at so far ahead.
Expert::Choice Expert::BestPlace(const SeatView& v, int card, bool may_pass, int shortlist) const {
  const int n = v.stack_size;
  std::array<std::pair<double, int>, kMaxStackSize> ranked{};
  StackCards cards = v.own;
  for (int k = 1; k <= n; ++k) {
    const int old = cards[At(k)];
    cards[At(k)] = card;
    ranked[At(k - 1)] = {Work(cards, n, v.options[kBackem]) + Gift(v, old), k};
    cards[At(k)] = old;
  }
  shortlist = std::min(shortlist, n);
  std::partial_sort(ranked.begin(), ranked.begin() + shortlist, ranked.begin() + n);
  Choice best{kNever, 0};
  if (may_pass) best = {NextTurnWork(v, v.own) + Gift(v, card), 0};
  for (int i = 0; i < shortlist; ++i) {
    const int k = ranked[At(i)].second;
    const int old = cards[At(k)];
    cards[At(k)] = card;
    const double work = NextTurnWork(v, cards) + Gift(v, old);
    cards[At(k)] = old;
    if (work < best.work) best = {work, k};
  }
  return best;
}

std::optional<Move> Expert::Decide(const SeatView& v) const {
  constexpr int kShortlist = 3;
  if (v.draw_top != 0) {
    const Choice c = BestPlace(v, v.draw_top, true, kShortlist);
    if (c.slot == 0) return Move{MoveKind::kPass, v.side};
    return Move{MoveKind::kTakeDraw, v.side, c.slot};
  }
  const Choice take = BestPlace(v, v.discard_top, false, kShortlist);
  const double keep = NextTurnWork(v, v.own);
  double look = 0;
  int count = 0;
  for (size_t i = 0; i < v.unseen.size(); i += At(Step(v))) {
    const int card = v.unseen[i];
    look += std::min(keep + Gift(v, card), BestPlace(v, card, false, 1).work);
    ++count;
  }
  if (count > 0) look /= count;
  const double ordinary = std::min(take.work, look);
  // Takem: the opponent's shown card that helps most, if that beats both ordinary moves.
  const auto side = At(v.side);
  if (v.options[kTakem] && !v.takem_used[side]) {
    Choice best{kNever, 0};
    int their_slot = 0;
    for (int t = 1; t <= v.stack_size; ++t) {
      const int card = v.theirs[At(t)];
      if (card == 0) continue;
      const Choice c = BestPlace(v, card, false, 1);
      if (c.work < best.work) {
        best = c;
        their_slot = t;
      }
    }
    const Move m{MoveKind::kTakem, v.side, best.slot, NamedTheirs(v, their_slot)};
    if (their_slot != 0 && best.work < ordinary && IsLegal(PublicState(v), m)) return m;
  }
  if (take.work < look) return Move{MoveKind::kTakeDiscard, v.side, take.slot};
  return std::nullopt;
}

Move Expert::Opening(const SeatView& v) const {
  const int n = v.stack_size;
  const bool backem = v.options[kBackem];
  Move best{MoveKind::kSwitchem, v.side, 0, 0};
  double least = v.side == kSideB ? Work(v.own, n, backem) : kNever;
  StackCards cards = v.own;
  for (int p = 1; p <= n; ++p) {
    for (int q = p + 1; q <= n; ++q) {
      std::swap(cards[At(p)], cards[At(q)]);
      const double work = Work(cards, n, backem);
      std::swap(cards[At(p)], cards[At(q)]);
      if (work < least) {
        least = work;
        best.slot1 = p;
        best.slot2 = q;
      }
    }
  }
  return best;
}

void ExpertSeat::NewGame(const GameState&) {
  shown_.NewGame();
  direction_named_ = false;
}

Move ExpertSeat::Choose(const GameState& g, Rng& rng) {
  const SeatView v = View(g, false);
  const int n = v.stack_size;
  // Under Backem either direction wins; the Expert names its own before its first move.
  const Move reverse{MoveKind::kBackem, side_};
  if (!direction_named_ && IsLegal(PublicState(v), reverse)) {
    direction_named_ = true;
    StackCards mirrored{};
    for (int k = 1; k <= n; ++k) mirrored[At(k)] = kDeckSize + 1 - v.own[At(k)];
    if (expert_.Work(mirrored, n, false) < expert_.Work(v.own, n, false)) return reverse;
  }
  if (v.phase == Phase::kOpening) return expert_.Opening(v);
  // Smackem as the Classic computer makes it: near its end, when the Discard Pile card is of no
  // use, two of the opponent's cards either side of where that card would go.
  const auto side = At(side_);
  if (v.options[kSmackem] && !v.smackem_used[side]) {
    Judgement j;
    Rejudge(j, n, v.own.data());
    StackCards trial = v.own;
    double best = kNever;
    for (int k = 1; k <= n; ++k) {
      const int old = trial[At(k)];
      trial[At(k)] = v.discard_top;
      best = std::min(best, expert_.Work(trial, n, v.options[kBackem]));
      trial[At(k)] = old;
    }
    if (best >= expert_.Work(v.own, n, v.options[kBackem]) && WantsSmackem(j)) {
      const float r1 = rng.Uniform();
      const float r2 = rng.Uniform();
      const SmackemChoice s = ChooseSmackem(v.discard_top, n, r1, r2);
      const Move m{MoveKind::kSmackem, side_, s.slot1, s.slot2};
      if (IsLegal(PublicState(v), m)) return m;
    }
  }
  if (const std::optional<Move> m = expert_.Decide(v)) return *m;
  return expert_.Decide(View(g, true)).value_or(Move{MoveKind::kPass, side_});
}

void ExpertSeat::Applied(const GameState& g, const Move& m) {
  shown_.Applied(g, m);
}

}  // namespace bq::ai
