#include "ai/classic_guess.h"

#include <algorithm>
#include <cmath>

#include "ai/turn.h"

namespace bq::ai {
namespace {

// The walk's length, the steps it takes before its guesses count and between two that count,
// and the chance it keeps a guess that explains one move fewer.
constexpr int kSteps = 2000;
constexpr int kFirstCounted = 50;
constexpr int kEvery = 20;
constexpr double kMismatch = 0.005;

// Never asked for a number: the replay has no special moves.
class NoRng : public Rng {
 public:
  float Uniform() override { return 0; }
};

// Small and deterministic, so that a decision can be repeated.
class Shuffler {
 public:
  explicit Shuffler(unsigned seed) : s_(seed * 2654435761u + 1) {}
  unsigned Below(size_t n) {
    s_ ^= s_ << 13;
    s_ ^= s_ >> 17;
    s_ ^= s_ << 5;
    return s_ % static_cast<unsigned>(n);
  }

 private:
  unsigned s_;
};

size_t At(int i) {
  return static_cast<size_t>(i);
}

}  // namespace

void ClassicGuess::NewGame(const GameState& g) {
  n_ = g.stack_size;
  const OptionSet& o = g.options;
  usable_ = !o[kBackem] && !o[kSwitchem] && !o[kSmackem] && !o[kTakem];
  discard_top_ = g.discard_top;
  turns_.clear();
  last_.clear();
}

void ClassicGuess::Applied(const GameState& after, const Move& m) {
  const bool ordinary = m.kind == MoveKind::kTakeDiscard || m.kind == MoveKind::kTakeDraw ||
                        m.kind == MoveKind::kPass || m.kind == MoveKind::kSpendTurn;
  usable_ = usable_ && ordinary;
  if (m.side == side_ && m.kind != MoveKind::kSpendTurn)
    turns_.push_back({m.kind, m.slot1, discard_top_, after.discard_top});
  discard_top_ = after.discard_top;
}

// The values are the dealt cards (1..n), then the card of each turn that took one from the Draw
// Pile (n + 1 + turn).
int ClassicGuess::Replay(const std::vector<int>& value, int limit, Judgement& j,
                         StackCards& stack) const {
  using Kind = TurnDecision::Kind;
  const int n = n_;
  for (int k = 1; k <= n; ++k) stack[At(k)] = value[At(k)];
  JudgeDeal(j, n, stack.data());
  NoRng no_rng;
  int misses = 0;
  for (size_t t = 0; t < turns_.size(); ++t) {
    const Turn& turn = turns_[t];
    TurnView view;
    view.n = n;
    view.discard_top = turn.offered;
    view.draw_top = turn.kind == MoveKind::kPass       ? turn.revealed
                    : turn.kind == MoveKind::kTakeDraw ? value[At(n + 1) + t]
                                                       : 0;
    const TurnDecision d = DecideTurn(j, view, no_rng);
    const Kind made = turn.kind == MoveKind::kTakeDiscard ? Kind::kDiscard
                      : turn.kind == MoveKind::kTakeDraw  ? Kind::kDraw
                                                          : Kind::kNothing;
    misses += d.kind != made || (made != Kind::kNothing && d.slot != turn.slot);
    if (misses > limit) return misses;
    if (made == Kind::kDiscard) stack[At(turn.slot)] = turn.offered;
    if (made == Kind::kDraw) stack[At(turn.slot)] = view.draw_top;
    UpdateAfterMove(j, n, stack.data());
  }
  return misses;
}

std::optional<Appetite> ClassicGuess::Estimate(const SeatView& v) {
  if (!usable_) return std::nullopt;
  // Each value becomes known when its card goes onto the Discard Pile; a card taken from there
  // was seen by all.
  const int n = n_;
  const size_t count = turns_.size();
  std::vector<int> value(At(n + 1) + count, 0);
  std::array<size_t, kMaxStackSize + 2> holder{};
  for (int k = 1; k <= n; ++k) holder[At(k)] = At(k);
  for (size_t t = 0; t < count; ++t) {
    const Turn& turn = turns_[t];
    if (turn.kind == MoveKind::kPass) continue;
    value[holder[At(turn.slot)]] = turn.revealed;
    holder[At(turn.slot)] = turn.kind == MoveKind::kTakeDiscard ? 0 : At(n + 1) + t;
  }
  std::vector<size_t> hidden;
  for (size_t i = 1; i < value.size(); ++i)
    if (value[i] == 0) hidden.push_back(i);
  // Past a renewed Draw Pile it may hold cards this seat saw covered: no guess then.
  if (hidden.size() >= v.unseen.size()) return std::nullopt;

  // The first guess keeps what the last estimate ended on wherever that still holds. `pool`
  // holds the guessed cards first, in the order of `hidden`, then the cards left free.
  Shuffler shuffler(static_cast<unsigned>(count * 131 + v.unseen.size() * 7 + v.discard_top));
  std::array<bool, kDeckSize + 1> spare{};
  for (const int c : v.unseen) spare[At(c)] = true;
  for (const size_t i : hidden) {
    const int c = i < last_.size() ? last_[i] : 0;
    if (c != 0 && spare[At(c)]) {
      spare[At(c)] = false;
      value[i] = c;
    }
  }
  std::vector<int> rest;
  for (const int c : v.unseen)
    if (spare[At(c)]) rest.push_back(c);
  for (const size_t i : hidden) {
    if (value[i] != 0) continue;
    const size_t pick = shuffler.Below(rest.size());
    value[i] = rest[pick];
    rest[pick] = rest.back();
    rest.pop_back();
  }
  std::vector<int> pool;
  for (const size_t i : hidden) pool.push_back(value[i]);
  pool.insert(pool.end(), rest.begin(), rest.end());

  // A Metropolis walk: one guessed card at a time changed for a free one, the change kept by
  // how many fewer or more of the opponent's moves it explains.
  Judgement j;
  StackCards stack{};
  int misses = Replay(value, static_cast<int>(count), j, stack);
  Judgement next_j;
  StackCards next_stack{};
  Appetite a{};
  int counted = 0;
  const int steps = hidden.empty() ? kFirstCounted + 1 : kSteps;
  for (int step = 0; step < steps; ++step) {
    if (!hidden.empty()) {
      const size_t i = shuffler.Below(hidden.size());
      // Now and then two guessed cards change places instead.
      const bool among = hidden.size() > 1 && shuffler.Below(3) == 0;
      const size_t other = among ? (i + 1 + shuffler.Below(hidden.size() - 1)) % hidden.size()
                                 : hidden.size() + shuffler.Below(pool.size() - hidden.size());
      const auto exchange = [&] {
        std::swap(pool[i], pool[other]);
        value[hidden[i]] = pool[i];
        if (among) value[hidden[other]] = pool[other];
      };
      exchange();
      // Kept with a chance of kMismatch to the power of the moves it explains fewer: the
      // chance is drawn first, and the replay given up once it has missed too many.
      const double chance = (shuffler.Below(1 << 16) + 0.5) / (1 << 16);
      const int limit = misses + static_cast<int>(std::log(chance) / std::log(kMismatch));
      const int next = Replay(value, limit, next_j, next_stack);
      if (next <= limit) {
        misses = next;
        j = next_j;
        stack = next_stack;
      } else {
        exchange();
      }
    }
    if (step < kFirstCounted || (step - kFirstCounted) % kEvery != 0) continue;
    ++counted;
    Judgement trial = j;
    for (int c = 1; c <= kDeckSize; ++c) {
      if (!JudgeCard(trial, c).wanted) continue;
      a[At(c)] += 1;
      trial = j;  // the judge narrows the ranges for a card it takes
    }
  }
  last_ = value;
  for (float& p : a) p /= static_cast<float>(counted);
  return a;
}

}  // namespace bq::ai
