// Reading the longest message there is: a deal with its whole Draw Pile.
#include <benchmark/benchmark.h>

#include <numeric>

#include "net/message.h"

namespace {

void BM_DecodeSetup(benchmark::State& state) {
  bq::net::Deal deal;
  std::array<int, 100> deck{};
  std::iota(deck.begin(), deck.end(), 1);
  size_t i = 0;
  for (int& c : deal.receiver_stack) c = deck[i++];
  i = 10;
  deal.stack_size = 10;
  for (size_t k = 0; k < 10; ++k) deal.sender_stack[k] = deck[i++];
  deal.discard = deck[i++];
  for (int& c : deal.draw) c = deck[i++];
  const std::string text = bq::net::Encode(deal);
  for (auto _ : state) {
    auto m = bq::net::Decode(text, {10});
    benchmark::DoNotOptimize(m);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_DecodeSetup);

}  // namespace
