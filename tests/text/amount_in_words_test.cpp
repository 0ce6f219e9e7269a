#include "qvn/text/amount_in_words.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

std::string words(double amount) {
  std::string legend;
  return PonLetra(amount, legend, false);
}

TEST(PonLetra, SpellsTheWholePart) {
  struct Row {
    double amount;
    std::string shown;
  };
  // clang-format off
  const Row rows[] = {
      {0, "    CERO"}, {-0.0, "    CERO"}, {0.99, "    CERO"}, {1, "    UNO"}, {5, "    CINCO"}, {10, "   DIEZ "},
      {15, "    QUINCE"}, {20, "   VEINTE "}, {21, "    VEINTIUNO"}, {31, "   TREINTA Y UN"}, {40, "   CUARENTA "},
      {99, "   NOVENTA Y NUEVE"}, {100, "  CIEN  "}, {101, "  CIENTO  UNO"}, {110, "  CIENTO DIEZ "},
      {500, "  QUINIENTOS  "}, {1000, " UN MIL   "}, {1001, " UN MIL   UNO"}, {21000, " VEINTIUNO MIL   "},
      {31000, " TREINTA Y UN MIL   "}, {100000, " CIEN   MIL   "}, {101000, " CIENTO  UNO MIL   "}, {1e6, "UN MILLON    "},
      {1001000, "UN MILLON    "}, {1003000, "UN MILLON DOS MIL   "}, {2e6, "DOS MILLONES    "},
      {21e6, "VEINTIUNO MILLONES    "}, {1e9, "    "}, {-5.5, "    "}, {-1e300, "    "},
      {999999999, "NOVECIENTOS NOVENTA Y NUEVE MILLONES NOVECIENTOS NOVENTA Y NUEVE MIL NOVECIENTOS NOVENTA Y NUEVE"},
      {1234567890, "DOSCIENTOS TREINTA Y CUATRO MILLONES QUINIENTOS SESENTA Y SIETE MIL OCHOCIENTOS NOVENTA "},
  };
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(words(row.amount), row.shown) << row.amount;
  }
}

TEST(PonLetra, AddsCurrencyCentsAndLegend) {
  struct Row {
    double amount;
    std::string currency, legend, shown;
    double left;
  };
  // clang-format off
  const Row rows[] = {
      {0, "PESOS", "M.N.", "CERO PESOS 00/100 M.N.", 0}, {31, "PESOS", " M.N. ", "TREINTA Y UN PESOS 00/100 M.N.", 0},
      {100.05, "", "M.N.", "CIEN 05 /100 M.N.", 0}, {110, " PESOS ", "M.N.", "CIENTO DIEZ PESOS 00/100 M.N.", 0},
      {1234.56, "PESOS", "M.N.", "UN MIL DOSCIENTOS TREINTA Y CUATRO PESOS 56 /100 M.N.", 0},
      {2000000, "PESOS", "M.N.", "DOS MILLONES PESOS 00/100 M.N.", 0}, {0.75, "  ", "", "CERO 75 /100 ", 0},
      {-5.5, "PESOS", "M.N.", " PESOS 50 /100 M.N.", -6}, {0.125, "", "", "CERO 12 /100 ", 0},
      {0.375, "", "", "CERO 38 /100 ", 0}, {10.15, "", "", "DIEZ 15 /100 ", 0}, {7e9, "", "", " 00/100 ", 7},
  };
  // clang-format on
  for (const Row& row : rows) {
    double amount = row.amount;
    std::string legend = row.legend;
    EXPECT_EQ(PonLetra(amount, legend, true, row.currency), row.shown);
    EXPECT_EQ(amount, row.left) << row.shown;
    EXPECT_EQ(legend, row.legend.empty() ? "" : "M.N.");
  }
}

TEST(PonLetra, RefusesHundredCentsAfterWritingBack) {
  double amount = 12.999;
  std::string legend = " M.N. ";
  EXPECT_EQ(test::errorNumber([&] { PonLetra(amount, legend, true); }), 5);
  EXPECT_EQ(amount, 0);
  EXPECT_EQ(legend, "M.N.");
}

TEST(PonLetra, RefusesWhatCannotBeSaid) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double given : {kInfinity, -kInfinity, std::nan(""), 2.9E15, 9007199254740993.0, 1e300}) {
    double amount = given;
    std::string legend = " ";
    EXPECT_EQ(test::errorNumber([&] { PonLetra(amount, legend, false); }), 5) << given;
    EXPECT_EQ(legend, " ");
  }
  EXPECT_EQ(words(2.8E15), "    ");
}

// Division, subtraction and product of IEEE doubles computed with whole numbers alone: a value is mantissa / 2^scale.
struct GroupInBinary {
  std::uint64_t mantissa;
  int scale;
};

// value / divisor rounded half to even.
std::uint64_t divideRounded(std::uint64_t value, std::uint64_t divisor) {
  const std::uint64_t quotient = value / divisor;
  const std::uint64_t twiceRest = value % divisor * 2;
  return quotient + (twiceRest > divisor || (twiceRest == divisor && quotient % 2 == 1) ? 1 : 0);
}

GroupInBinary lastGroup(std::uint64_t number) {
  if (number == 0) return {0, 1};
  int scale = 0;
  while ((number << scale) / 1000 < (std::uint64_t{1} << 52)) ++scale;  // a quotient of 53 bits
  const std::uint64_t quotient = divideRounded(number << scale, 1000);
  const std::uint64_t product = (quotient & ((std::uint64_t{1} << scale) - 1)) * 1000;
  const int excess = static_cast<int>(std::bit_width(product)) - 53;
  if (excess <= 0) return {product, scale};
  const std::uint64_t unit = std::uint64_t{1} << excess;
  return {divideRounded(product, unit) * unit, scale};
}

std::string groupWords(const GroupInBinary& group, const std::string& one, const std::string& many) {
  const std::uint64_t unit = std::uint64_t{1} << group.scale;
  if (group.mantissa == unit) return one;
  if (group.mantissa < unit) return {};
  const std::string text = words(static_cast<double>(group.mantissa >> group.scale));
  return text.substr(text.find_first_not_of(' ')) + many;
}

TEST(PonLetra, TakesGroupsAsDoublesDo) {
  constexpr std::uint64_t kLimit = 1'000'000'000'000;
  std::uint64_t number = 0;
  int beside = 0;
  for (int i = 0; i < 150'000; ++i) {
    // Steps through whole thousands first, then all over the range.
    number = i < 20'000 ? 1'000'000 + static_cast<std::uint64_t>(i) * 1000 : (number * 48271 + 12345) % kLimit;
    const GroupInBinary thousands = lastGroup(number / 1000);
    beside += thousands.mantissa >> thousands.scale != number / 1000 % 1000 ? 1 : 0;
    const std::string hundreds = number % 1000 == 0 ? "  " : words(static_cast<double>(number % 1000)).substr(2);
    ASSERT_EQ(words(static_cast<double>(number)), groupWords(lastGroup(number / 1'000'000), "UN MILLON", " MILLONES") +
                                                      " " + groupWords(thousands, "UN MIL", " MIL") + " " + hundreds)
        << number;
  }
  EXPECT_GT(beside, 1000);  // the amounts reach where the groups differ from the true ones
}

}  // namespace
}  // namespace qvn::text
