#include "selfplay/summary.h"

#include <cmath>
#include <cstdio>

namespace bq::selfplay {
namespace {

constexpr const char* kOptionNames[kOptionCount] = {"stackem", "backem", "switchem", "smackem",
                                                    "takem"};

double Percent(long long part, long long whole) {
  return whole == 0 ? 0.0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
}

std::string Format(const char* format, auto... values) {
  char line[160];
  std::snprintf(line, sizeof line, format, values...);
  return line;
}

std::string Count(const char* what, long long n, long long whole) {
  return Format("  %-16s %10lld  (%.1f%%)\n", what, n, Percent(n, whole));
}

}  // namespace

void Tally::Add(const GameRecord& r) {
  ++games;
  switch (r.result) {
    case kAInOrder:
      ++wins_a;
      break;
    case kBInOrder:
      ++wins_b;
      break;
    case kTie:
      ++ties;
      break;
    default:
      ++unfinished;
      return;
  }
  if (r.first_mover != 0) {
    ++in_play;
    if (r.result == r.first_mover) ++first_mover_wins;
  }
  const int n = r.moves();
  if (static_cast<size_t>(n) >= moves.size()) moves.resize(static_cast<size_t>(n) + 1);
  ++moves[static_cast<size_t>(n)];
  finished_moves += n;
  if (n > longest) longest = n;
}

double Tally::MeanMoves() const {
  return finished() == 0 ? 0.0
                         : static_cast<double>(finished_moves) / static_cast<double>(finished());
}

int Tally::MedianMoves() const {
  long long seen = 0;
  const long long middle = (finished() + 1) / 2;
  for (size_t n = 0; n < moves.size(); ++n) {
    seen += moves[n];
    if (middle > 0 && seen >= middle) return static_cast<int>(n);
  }
  return 0;
}

std::string OptionSetName(const OptionSet& options) {
  std::string name;
  for (int o = 0; o < kOptionCount; ++o) {
    if (!options[static_cast<size_t>(o)]) continue;
    if (!name.empty()) name += '+';
    name += kOptionNames[o];
  }
  return name.empty() ? "none" : name;
}

void Summary::Add(const GameRecord& r) {
  all_.Add(r);
  by_options_[OptionSetName(r.options)].Add(r);
}

namespace {

const char* PlayerName(PlayerKind kind) {
  return kind == PlayerKind::kExpert ? "Expert" : "Classic";
}

// Wilson's score interval: sound near 0% and 100% too, where the normal one is not.
std::string ShareOfDecided(const char* side, long long won, long long decided) {
  if (decided == 0) return "";
  const double z = 1.96;
  const double n = static_cast<double>(decided);
  const double p = static_cast<double>(won) / n;
  const double centre = (p + z * z / (2 * n)) / (1 + z * z / n);
  const double half = z / (1 + z * z / n) * std::sqrt(p * (1 - p) / n + z * z / (4 * n * n));
  return Format("  %s won %.1f%% of %lld decided games (95%% interval %.1f%% to %.1f%%)\n", side,
                100 * p, decided, 100 * (centre - half), 100 * (centre + half));
}

}  // namespace

std::string Summary::Text() const {
  const Tally& t = all_;
  const bool classic_pair = players_ == kClassicPair;
  std::string out =
      classic_pair
          ? Format("%lld games, side A (a second computer) against the computer (B)\n", t.games)
          : Format("%lld games, side A (%s) against side B (%s)\n", t.games,
                   PlayerName(players_[0]), PlayerName(players_[1]));
  out += Count("side A won", t.wins_a, t.games);
  out += Count(classic_pair ? "the computer won" : "side B won", t.wins_b, t.games);
  out += Count("ties", t.ties, t.games);
  out += Count("unfinished", t.unfinished, t.games);
  out += Format("  %-16s mean %.1f, median %d, longest %d (finished games)\n", "moves per game",
                t.MeanMoves(), t.MedianMoves(), t.longest);
  out += Format("  %-16s %.1f%% of %lld games decided in play\n", "first mover won",
                Percent(t.first_mover_wins, t.in_play), t.in_play);
  // Ties count as decided and not won.
  if (!classic_pair) {
    const long long decided = t.wins_a + t.wins_b + t.ties;
    out += ShareOfDecided("side A", t.wins_a, decided);
    out += ShareOfDecided("side B", t.wins_b, decided);
  }
  if (by_options_.size() < 2) return out;
  out += "\nBy option set (percent of its games; moves of finished games):\n";
  out += Format("  %-36s %9s %7s %7s %6s %7s %6s %6s %7s %6s\n", "options", "games", "A won",
                "B won", "ties", "unfin.", "mean", "median", "longest", "first");
  for (const auto& [name, s] : by_options_) {
    out += Format("  %-36s %9lld %6.1f%% %6.1f%% %5.1f%% %6.1f%% %6.1f %6d %7d %5.1f%%\n",
                  name.c_str(), s.games, Percent(s.wins_a, s.games), Percent(s.wins_b, s.games),
                  Percent(s.ties, s.games), Percent(s.unfinished, s.games), s.MeanMoves(),
                  s.MedianMoves(), s.longest, Percent(s.first_mover_wins, s.in_play));
  }
  return out;
}

std::string CsvHeader() {
  return "game,options,first_mover,result,moves_a,moves_b,moves\n";
}

std::string CsvRow(long long game, const GameRecord& r) {
  static constexpr const char* kResults[] = {"unfinished", "A", "B", "tie"};
  static constexpr const char* kMovers[] = {"none", "A", "B"};
  return Format("%lld,%s,%s,%s,%d,%d,%d\n", game, OptionSetName(r.options).c_str(),
                kMovers[r.first_mover], kResults[r.result], r.moves_a, r.moves_b, r.moves());
}

}  // namespace bq::selfplay
