// Eight stations that draw from one counter at the same time, each a process of its own.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>

#include "tests/support/test_database.h"

namespace qvn::core {
namespace {

constexpr int kStations = 8;

struct Drawn {
  int numbers = 0;
  int refused = 0;
  int failedStations = 0;
  std::set<int> different;
  [[nodiscard]] int duplicates() const { return numbers - static_cast<int>(different.size()); }
};

void readStation(std::FILE* station, Drawn& drawn) {
  std::array<char, 32> line{};
  while (std::fgets(line.data(), line.size(), station) != nullptr) {
    const bool isRefused = line[0] == '-';
    ++(isRefused ? drawn.refused : drawn.numbers);
    if (!isRefused) drawn.different.insert(std::atoi(line.data()));
  }
  if (pclose(station) != 0) ++drawn.failedStations;
}

Drawn drawTogether(const test::TestDatabase& database, const std::string& counter, int count, const char* way) {
  setenv("QVN_STATION", database.connectionString().c_str(), 1);
  const std::string command =
      std::string(QVN_COUNTER_STATION) + " " + counter + " " + std::to_string(count / kStations) + " " + way;
  std::array<std::FILE*, kStations> stations{};
  for (std::FILE*& station : stations) station = popen(command.c_str(), "r");
  Drawn drawn;
  for (std::FILE* station : stations) readStation(station, drawn);
  return drawn;
}

// One station alone may open a file of the embedded Firebird.
std::vector<test::Engine> sharedEngines() {
  std::vector<test::Engine> shared;
  for (const test::Engine& engine : test::engines()) {
    if (engine.name != "Firebird") shared.push_back(engine);
  }
  return shared;
}

// QVN_STRESS_DRAWS draws more than the usual number.
int drawsWanted() {
  const char* wanted = std::getenv("QVN_STRESS_DRAWS");
  return wanted != nullptr ? std::atoi(wanted) : 800;
}

class CounterStations : public testing::TestWithParam<test::Engine> {};

TEST_P(CounterStations, SafeDrawsGiveNoNumberTwice) {
  const auto database = GetParam().create();
  database->connect()->Execute("CREATE TABLE consec (dato VARCHAR(20), consec INTEGER)");
  const int draws = drawsWanted();
  const Drawn safe = drawTogether(*database, "seguro", draws, "safe");
  EXPECT_EQ(safe.duplicates(), 0);
  ASSERT_FALSE(safe.different.empty());
  EXPECT_EQ(*safe.different.begin(), 1);
  EXPECT_EQ(*safe.different.rbegin(), draws);
  // How many the documented draw gives twice is told, not judged.
  const Drawn plain = drawTogether(*database, "normal", draws, "plain");
  for (const Drawn& drawn : {safe, plain}) {
    EXPECT_EQ(drawn.failedStations, 0);
    EXPECT_EQ(drawn.numbers, draws);
  }
  std::printf("%s: %d draws, %d duplicates, %d refused\n", GetParam().name.c_str(), plain.numbers, plain.duplicates(),
              plain.refused);
}

INSTANTIATE_TEST_SUITE_P(Engines, CounterStations, testing::ValuesIn(sharedEngines()), test::engineName);

}  // namespace
}  // namespace qvn::core
