// The seeds of the bridge's fuzz target, whole and cut at every length: whatever comes, the bridge answers with JSON.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace qvn {
namespace {

TEST(BridgeSeeds, AreAnsweredCutAtEveryLength) {
  int seeds = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QVN_SEEDS)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    for (std::size_t length = 0; length <= text.size(); ++length) {
      ASSERT_EQ(LLVMFuzzerTestOneInput(bytes, length), 0);  // ends the test by abort() when something is wrong
    }
    ++seeds;
  }
  EXPECT_GT(seeds, 2);
}

}  // namespace
}  // namespace qvn
