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
  for (int g = 1; g <= kMaxStackSize; ++g) {
    double slots_waiting = 0;
    for (int j = 1; j <= g; ++j) slots_waiting += std::pow(j, -w.sharing);
    gap_[At(g)] = g * slots_waiting;
  }
}

// For every two cards lo < hi, the inverse of how many pool cards lie between them (at least
// half a card, so that a gap nothing can fill is dear but still comparable).
static void FillScarcity(Expert::Pool& p, const std::array<int, kDeckSize + 3>& below) {
  for (int lo = 0; lo <= kDeckSize + 1; ++lo)
    for (int hi = lo + 1; hi <= kDeckSize + 1; ++hi)
      p.scarcity[At(lo)][At(hi)] =
          static_cast<float>(1.0 / std::max(0.5, double(below[At(hi)] - below[At(lo + 1)])));
}

Expert::Pool Expert::Unseen(const SeatView& v) {
  Pool p;
  std::array<int, kDeckSize + 3> below{};
  std::array<bool, kDeckSize + 2> in{};
  for (const int c : v.unseen) in[At(c)] = true;
  for (int c = 1; c <= kDeckSize + 2; ++c) below[At(c)] = below[At(c - 1)] + in[At(c - 1)];
  p.size = static_cast<int>(v.unseen.size());
  FillScarcity(p, below);
  return p;
}

// The cheapest chain of kept cards from the sentinel 0 to the sentinel 101. A gap waits for the
// pool's cards between its two kept cards; `mirrored` cards count the pool from the top.
double Expert::AscendingWork(const int* cards, int n, const Pool& pool, bool mirrored) const {
  const double wait = (n > 10 ? weights_.wait_stackem : weights_.wait) * pool.size;
  std::array<int, kMaxStackSize + 2> v{};
  std::array<double, kMaxStackSize + 2> best{};
  for (int k = 1; k <= n; ++k) v[At(k)] = mirrored ? kDeckSize + 1 - cards[k] : cards[k];
  v[At(n + 1)] = kDeckSize + 1;
  for (int b = 1; b <= n + 1; ++b) {
    double least = kNever;
    const int vb = v[At(b)];
    for (int a = 0; a < b; ++a) {
      const int slots = b - a - 1;
      const int va = v[At(a)];
      if (vb - va - 1 < slots) continue;
      double cost = best[At(a)] + slots;
      if (slots > 0) {
        const float scarce = mirrored
                                 ? pool.scarcity[At(kDeckSize + 1 - vb)][At(kDeckSize + 1 - va)]
                                 : pool.scarcity[At(va)][At(vb)];
        cost += wait * gap_[At(slots)] * scarce;
      }
      least = std::min(least, cost);
    }
    best[At(b)] = least;
  }
  return best[At(n + 1)];
}

double Expert::Work(const StackCards& cards, int n, bool backem, const Pool& pool) const {
  const double up = AscendingWork(cards.data(), n, pool, false);
  if (!backem) return up;
  return std::min(up, AscendingWork(cards.data(), n, pool, true));
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
double Expert::NextTurnWork(const SeatView& v, const Pool& pool, const Gifts& gift,
                            const StackCards& cards) const {
  const int n = v.stack_size;
  const bool backem = v.options[kBackem];
  const double now = Work(cards, n, backem, pool);
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
      best = std::min(best, Work(trial, n, backem, pool) + gift[At(old)]);
      trial[At(k)] = old;
    }
    placed[At(count++)] = best;
    look += std::min(now + gift[At(card)], best);
  }
  if (count == 0) return now;
  look /= count;
  double expected = 0;
  for (int i = 0; i < count; ++i) expected += std::min(look, placed[At(i)]);
  return expected / count;
}

// The best place for `card` by the work after the next turn; only the `shortlist` places that
// the one-turn work ranks best are looked at so far ahead.
Expert::Choice Expert::BestPlace(const SeatView& v, const Pool& pool, const Gifts& gift, int card,
                                 bool may_pass, int shortlist) const {
  const int n = v.stack_size;
  std::array<std::pair<double, int>, kMaxStackSize> ranked{};
  StackCards cards = v.own;
  for (int k = 1; k <= n; ++k) {
    const int old = cards[At(k)];
    cards[At(k)] = card;
    ranked[At(k - 1)] = {Work(cards, n, v.options[kBackem], pool) + gift[At(old)], k};
    cards[At(k)] = old;
  }
  shortlist = std::min(shortlist, n);
  std::partial_sort(ranked.begin(), ranked.begin() + shortlist, ranked.begin() + n);
  Choice best{kNever, 0};
  if (may_pass) best = {NextTurnWork(v, pool, gift, v.own) + gift[At(card)], 0};
  for (int i = 0; i < shortlist; ++i) {
    const int k = ranked[At(i)].second;
    const int old = cards[At(k)];
    cards[At(k)] = card;
    const double work = NextTurnWork(v, pool, gift, cards) + gift[At(old)];
    cards[At(k)] = old;
    if (work < best.work) best = {work, k};
  }
  return best;
}

std::optional<Move> Expert::Decide(const SeatView& v, const Appetite* theirs) const {
  constexpr int kShortlist = 3;
  const Pool pool = Unseen(v);
  Gifts gift{};
  for (int c = 1; c <= kDeckSize; ++c)
    gift[At(c)] = static_cast<float>(theirs ? weights_.taken * (*theirs)[At(c)] : Gift(v, c));
  if (v.draw_top != 0) {
    const Choice c = BestPlace(v, pool, gift, v.draw_top, true, kShortlist);
    if (c.slot == 0) return Move{MoveKind::kPass, v.side};
    return Move{MoveKind::kTakeDraw, v.side, c.slot};
  }
  const Choice take = BestPlace(v, pool, gift, v.discard_top, false, kShortlist);
  const double keep = NextTurnWork(v, pool, gift, v.own);
  double look = 0;
  int count = 0;
  for (size_t i = 0; i < v.unseen.size(); i += At(Step(v))) {
    const int card = v.unseen[i];
    look += std::min(keep + gift[At(card)], BestPlace(v, pool, gift, card, false, 1).work);
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
      const Choice c = BestPlace(v, pool, gift, card, false, 1);
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
  const Pool pool = Unseen(v);
  Move best{MoveKind::kSwitchem, v.side, 0, 0};
  double least = v.side == kSideB ? Work(v.own, n, backem, pool) : kNever;
  StackCards cards = v.own;
  for (int p = 1; p <= n; ++p) {
    for (int q = p + 1; q <= n; ++q) {
      std::swap(cards[At(p)], cards[At(q)]);
      const double work = Work(cards, n, backem, pool);
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

void ExpertSeat::NewGame(const GameState& g) {
  shown_.NewGame();
  classic_.NewGame(g);
  direction_named_ = false;
}

Move ExpertSeat::Choose(const GameState& g, Rng& rng) {
  const SeatView v = View(g, false);
  const int n = v.stack_size;
  const Expert::Pool pool = Expert::Unseen(v);
  // Under Backem either direction wins; the Expert names its own before its first move.
  const Move reverse{MoveKind::kBackem, side_};
  if (!direction_named_ && IsLegal(PublicState(v), reverse)) {
    direction_named_ = true;
    StackCards mirrored{};
    for (int k = 1; k <= n; ++k) mirrored[At(k)] = kDeckSize + 1 - v.own[At(k)];
    if (expert_.Work(mirrored, n, false, pool) < expert_.Work(v.own, n, false, pool))
      return reverse;
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
      best = std::min(best, expert_.Work(trial, n, v.options[kBackem], pool));
      trial[At(k)] = old;
    }
    if (best >= expert_.Work(v.own, n, v.options[kBackem], pool) && WantsSmackem(j)) {
      const float r1 = rng.Uniform();
      const float r2 = rng.Uniform();
      const SmackemChoice s = ChooseSmackem(v.discard_top, n, r1, r2);
      const Move m{MoveKind::kSmackem, side_, s.slot1, s.slot2};
      if (IsLegal(PublicState(v), m)) return m;
    }
  }
  // Against the Classic computer, what its moves tell of its Stack says which cards it wants.
  const auto decide = [&](const SeatView& view) {
    std::optional<Appetite> theirs;
    if (versus_classic_) theirs = classic_.Estimate(view);
    return expert_.Decide(view, theirs ? &*theirs : nullptr);
  };
  if (const std::optional<Move> m = decide(v)) return *m;
  return decide(View(g, true)).value_or(Move{MoveKind::kPass, side_});
}

void ExpertSeat::Applied(const GameState& g, const Move& m) {
  shown_.Applied(g, m);
  classic_.Applied(g, m);
}

}  // namespace bq::ai
