#pragma once

#include <deque>
#include <random>

#include "engine/rng.h"

namespace bq::test {

// Plays back scripted numbers first, then a seeded generator.
class ScriptedRng : public Rng {
 public:
  explicit ScriptedRng(unsigned seed = 1) : gen_(seed) {}
  void Script(std::initializer_list<float> values) { script_.insert(script_.end(), values); }
  float Uniform() override {
    ++draws_;
    if (!script_.empty()) {
      const float v = script_.front();
      script_.pop_front();
      return v;
    }
    return static_cast<float>(gen_() >> 8) * 0x1p-24f;
  }
  int draws() const { return draws_; }

 private:
  std::deque<float> script_;
  std::mt19937 gen_;
  int draws_ = 0;
};

}  // namespace bq::test
