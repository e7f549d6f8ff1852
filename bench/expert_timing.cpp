// How long the Expert takes over one decision, as a player would wait for it: games of the Expert
// against the Classic computer in both seats, each call to choose a move timed on its own.
// Prints the median, the 99th percentile and the longest, per option set.
// Usage: bench/bq_expert_timing [GAMES per option set, default 200]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include "ai/computer_seat.h"
#include "ai/expert.h"
#include "engine/rules.h"

namespace {

class SeededRng : public bq::Rng {
 public:
  float Uniform() override { return static_cast<float>(gen_() >> 8) * 0x1p-24f; }

 private:
  std::mt19937 gen_{2024};
};

double Percentile(std::vector<double>& ms, double p) {
  const auto at = static_cast<size_t>(p * static_cast<double>(ms.size() - 1));
  std::nth_element(ms.begin(), ms.begin() + static_cast<std::ptrdiff_t>(at), ms.end());
  return ms[at];
}

}  // namespace

int main(int argc, char** argv) {
  using namespace bq;
  const int games = argc > 1 ? std::atoi(argv[1]) : 200;
  SeededRng rng;
  struct Set {
    const char* name;
    bool random;
    bool stackem;
  };
  std::vector<double> all;
  for (const Set& set :
       {Set{"none", false, false}, Set{"stackem", false, true}, Set{"random", true, false}}) {
    std::vector<double> ms;
    for (int game = 0; game < games; ++game) {
      const int side = game % 2 == 0 ? kSideA : kSideB;
      OptionSet options{};
      if (set.random) options = PickRandomOptions(rng);
      options[kStackem] = options[kStackem] || set.stackem;
      GameState g;
      g.Init();
      if (options[kStackem]) g.StackemOn();
      NewGame(g, options, kDrawnFirst, rng);
      ai::ExpertSeat expert(side, ai::ExpertSeat::Opponent::kClassic);
      ai::ComputerSeat classic(kSideA + kSideB - side);
      expert.NewGame(g);
      classic.NewGame(g);
      for (int move = 0; g.phase != Phase::kDecided && move < 1000; ++move) {
        Move m;
        if (g.turn_owner == side) {
          const auto start = std::chrono::steady_clock::now();
          m = expert.Choose(g, rng);
          const std::chrono::duration<double, std::milli> took =
              std::chrono::steady_clock::now() - start;
          ms.push_back(took.count());
        } else {
          m = classic.Choose(g, rng);
        }
        if (!Apply(g, m, rng)) {
          std::fprintf(stderr, "illegal move %s\n", ToString(m).c_str());
          return 1;
        }
        expert.Applied(g, m);
        classic.Applied(g, m);
      }
    }
    all.insert(all.end(), ms.begin(), ms.end());
    const double longest = *std::max_element(ms.begin(), ms.end());
    std::printf(
        "%-8s %6zu decisions  median %6.2f ms  99th percentile %6.2f ms  longest %6.2f ms\n",
        set.name, ms.size(), Percentile(ms, 0.5), Percentile(ms, 0.99), longest);
  }
  std::printf("%-8s %6zu decisions  99th percentile %6.2f ms\n", "all", all.size(),
              Percentile(all, 0.99));
  return 0;
}
