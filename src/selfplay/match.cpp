#include "selfplay/match.h"

#include <stdexcept>

#include "ai/expert.h"

namespace bq::selfplay {

namespace {

template <typename Seat>
class SeatPlayer : public Player {
 public:
  template <typename... Args>
  explicit SeatPlayer(Args... args) : seat_(args...) {}
  void NewGame(const GameState& g) override { seat_.NewGame(g); }
  Move Choose(const GameState& g, Rng& rng) override { return seat_.Choose(g, rng); }
  void Applied(const GameState& g, const Move& m) override { seat_.Applied(g, m); }

 private:
  Seat seat_;
};

}  // namespace

std::unique_ptr<Player> MakePlayer(PlayerKind kind, int side, PlayerKind opponent) {
  using Opponent = ai::ExpertSeat::Opponent;
  if (kind == PlayerKind::kExpert)
    return std::make_unique<SeatPlayer<ai::ExpertSeat>>(
        side, opponent == PlayerKind::kClassic ? Opponent::kClassic : Opponent::kPerson);
  return std::make_unique<SeatPlayer<ai::ComputerSeat>>(side);
}

Match::Match(const OptionChoice& options, Rng& rng, int move_cap, const Players& players)
    : choice_(options),
      rng_(rng),
      move_cap_(move_cap),
      seats_{MakePlayer(players[0], kSideA, players[1]),
             MakePlayer(players[1], kSideB, players[0])} {
  // As the window loads: the game data, then every option's setter once.
  g_.Init();
  if (!choice_.random) options_ = choice_.fixed;
  if (options_[kStackem])
    g_.StackemOn();
  else
    g_.StackemOff();
}

// Random clears every option and then checks the drawn ones, so Stackem's setters run as in
// the window (a 10-card game after a 20-card one keeps the shorter Draw Pile).
void Match::SetUpOptions() {
  if (!choice_.random) return;
  g_.StackemOff();
  options_ = PickRandomOptions(rng_);
  if (options_[kStackem]) g_.StackemOn();
}

GameRecord Match::PlayGame(MoveObserver* observer) {
  SetUpOptions();
  NewGame(g_, options_, kDrawnFirst, rng_);
  for (auto& seat : seats_) seat->NewGame(g_);
  GameRecord record;
  record.options = options_;
  if (g_.phase == Phase::kPlay) record.first_mover = g_.turn_owner;
  // A result found at the deal or at the opening's end stands while the window plays on; here
  // the game is over at the first result.
  while (g_.phase != Phase::kDecided && g_.turn_result == kUndecided &&
         g_.move_count_a + g_.move_count_b < move_cap_) {
    const Phase phase = g_.phase;
    const Move m = seats_[static_cast<size_t>(g_.turn_owner - 1)]->Choose(g_, rng_);
    if (!Apply(g_, m, rng_))
      throw std::logic_error("self-play chose an illegal move: " + ToString(m));
    for (auto& seat : seats_) seat->Applied(g_, m);
    if (phase == Phase::kOpening && g_.phase == Phase::kPlay) record.first_mover = g_.turn_owner;
    if (observer) observer->Applied(m, g_);
  }
  record.result = g_.turn_result;
  record.moves_a = g_.move_count_a;
  record.moves_b = g_.move_count_b;
  return record;
}

}  // namespace bq::selfplay
