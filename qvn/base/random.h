// The random seam. Tests put a fixed sequence in its place.
#pragma once

#include <cstdint>
#include <memory>

namespace qvn {

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  /// The next number in [0, 1).
  virtual double next() = 0;
};
using RandomPtr = std::shared_ptr<RandomSource>;

/// A pseudo-random sequence. Equal seeds give equal sequences; a host seeds it as it needs.
RandomPtr pseudoRandom(std::uint64_t seed = 0);

}  // namespace qvn
