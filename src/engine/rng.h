#pragma once

namespace bq {

// The one source of chance in the game: uniform numbers in [0, 1), single precision, because
// every threshold of the rules is compared in single precision. Front ends seed it from the
// clock once; tests script it.
class Rng {
 public:
  virtual ~Rng() = default;
  virtual float Uniform() = 0;
};

}  // namespace bq
