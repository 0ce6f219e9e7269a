#include "qvn/base/random.h"

#include <random>

namespace qvn {
namespace {

class PseudoRandom final : public RandomSource {
 public:
  explicit PseudoRandom(std::uint64_t seed) : engine_(seed) {}
  // The top 53 bits fill a Double's fraction, so that 1 itself is never reached.
  double next() override { return static_cast<double>(engine_() >> 11U) * 0x1p-53; }

 private:
  std::mt19937_64 engine_;
};

}  // namespace

RandomPtr pseudoRandom(std::uint64_t seed) { return std::make_shared<PseudoRandom>(seed); }

}  // namespace qvn
