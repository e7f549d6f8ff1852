#include "selfplay/run.h"

#include <chrono>
#include <fstream>
#include <ostream>
#include <random>

#include "selfplay/summary.h"

namespace bq::selfplay {
namespace {

class SeededRng : public Rng {
 public:
  explicit SeededRng(unsigned seed) : gen_(seed) {}
  float Uniform() override { return static_cast<float>(gen_() >> 8) * 0x1p-24f; }

 private:
  std::mt19937 gen_;
};

class ProgressBar {
 public:
  ProgressBar(std::ostream& out, long long total, bool on) : out_(out), total_(total), on_(on) {}
  void Update(long long done) {
    if (!on_ || total_ <= 0) return;
    const int percent = static_cast<int>(done * 100 / total_);
    if (percent == shown_) return;
    shown_ = percent;
    const int filled = percent * kWidth / 100;
    out_ << "\r[" << std::string(static_cast<size_t>(filled), '#')
         << std::string(static_cast<size_t>(kWidth - filled), '.') << "] " << percent << "% "
         << done << '/' << total_ << std::flush;
  }
  void Clear() {
    if (on_ && shown_ >= 0) out_ << '\r' << std::string(kWidth + 40, ' ') << '\r' << std::flush;
  }

 private:
  static constexpr int kWidth = 40;
  std::ostream& out_;
  long long total_;
  bool on_;
  int shown_ = -1;
};

}  // namespace

std::optional<OptionChoice> ParseOptionList(const std::string& text, std::string& error) {
  OptionChoice choice;
  if (text == "random") {
    choice.random = true;
    return choice;
  }
  if (text == "none" || text.empty()) return choice;
  size_t start = 0;
  while (start <= text.size()) {
    const size_t comma = std::min(text.find(',', start), text.size());
    const std::string name = text.substr(start, comma - start);
    bool known = false;
    for (int o = 0; o < kOptionCount; ++o) {
      OptionSet one{};
      one[static_cast<size_t>(o)] = true;
      if (name == OptionSetName(one)) {
        choice.fixed[static_cast<size_t>(o)] = true;
        known = true;
      }
    }
    if (!known) {
      error = "--options: unknown option '" + name +
              "' (stackem, backem, switchem, smackem, takem, or random alone)";
      return std::nullopt;
    }
    start = comma + 1;
  }
  return choice;
}

std::optional<Players> ParsePlayers(const std::string& text, std::string& error) {
  Players players = kClassicPair;
  const size_t comma = text.find(',');
  const std::string names[2] = {text.substr(0, comma),
                                comma == std::string::npos ? "" : text.substr(comma + 1)};
  for (size_t i = 0; i < 2; ++i) {
    if (names[i] == "expert") {
      players[i] = PlayerKind::kExpert;
    } else if (names[i] != "classic") {
      error = "--players needs two of classic and expert, side A's first, not '" + text + "'";
      return std::nullopt;
    }
  }
  return players;
}

int RunSelfPlay(const RunConfig& config, std::ostream& out, std::ostream& err) {
  std::ofstream csv;
  if (!config.csv_path.empty()) {
    csv.open(config.csv_path, std::ios::trunc);
    if (!csv) {
      err << "bramblequay: cannot write " << config.csv_path << '\n';
      return 1;
    }
    csv << CsvHeader();
  }
  const unsigned seed =
      config.seed
          ? *config.seed
          : static_cast<unsigned>(std::chrono::system_clock::now().time_since_epoch().count());
  SeededRng rng(seed);
  Match match(config.options, rng, config.move_cap, config.players);
  Summary summary(config.players);
  ProgressBar bar(out, config.games, config.progress);
  const auto start = std::chrono::steady_clock::now();
  for (long long game = 1; game <= config.games; ++game) {
    const GameRecord r = match.PlayGame();
    summary.Add(r);
    if (csv.is_open()) csv << CsvRow(game, r);
    if ((game & 1023) == 0) bar.Update(game);
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  bar.Clear();
  if (csv.is_open()) {
    csv.close();
    if (!csv) {
      err << "bramblequay: cannot write " << config.csv_path << '\n';
      return 1;
    }
  }
  out << "Self-play with options "
      << (config.options.random ? std::string("random") : OptionSetName(config.options.fixed))
      << ", seed " << seed << " (--seed " << seed << " repeats it), games stop at "
      << config.move_cap << " moves\n"
      << summary.Text();
  const double seconds = took.count();
  out << "Played in " << seconds << " s";
  if (seconds > 0) out << " (" << static_cast<long long>(config.games / seconds) << " games/s)";
  out << '\n';
  return 0;
}

}  // namespace bq::selfplay
