#include "qvn/text/amount_in_words.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::text {
namespace {

constexpr std::size_t kLongestSlot = 32;

// Words with room behind them, so that each is copied as one block, also without the blanks in front.
struct Slot {
  std::array<char, kLongestSlot + 2> text{};
  std::uint8_t size = 0;
  std::uint8_t blanks = 0;  // in front
};

constexpr Slot slotOf(std::initializer_list<std::string_view> words) {
  Slot slot;
  for (const std::string_view word : words) {
    for (const char c : word) slot.text.at(slot.size++) = c;
  }
  if (slot.size > kLongestSlot) throw RuntimeError(error_number::kOverflow);  // seen while compiling
  while (slot.blanks < slot.size && slot.text.at(slot.blanks) == ' ') ++slot.blanks;
  return slot;
}

using Words = std::array<std::string_view, 10>;

// clang-format off
//                          0        1            2             3              4                5             6              7               8              9
constexpr Words kUnits   {"",       "UNO",       "DOS",        "TRES",        "CUATRO",        "CINCO",      "SEIS",        "SIETE",        "OCHO",        "NUEVE"};
constexpr Words kTeens   {"DIEZ",   "ONCE",      "DOCE",       "TRECE",       "CATORCE",       "QUINCE",     "DIECISEIS",   "DIECISIETE",   "DIECIOCHO",   "DIECINUEVE"};
constexpr Words kTwenties{"VEINTE", "VEINTIUNO", "VEINTIDOS",  "VEINTITRES",  "VEINTICUATRO",  "VEINTICINCO", "VEINTISEIS", "VEINTISIETE",  "VEINTIOCHO",  "VEINTINUEVE"};
constexpr Words kTens    {"",       "",          "",           "TREINTA",     "CUARENTA",      "CINCUENTA",  "SESENTA",     "SETENTA",      "OCHENTA",     "NOVENTA"};
constexpr Words kHundreds{"",       "CIENTO",    "DOSCIENTOS", "TRESCIENTOS", "CUATROCIENTOS", "QUINIENTOS", "SEISCIENTOS", "SETECIENTOS", "OCHOCIENTOS", "NOVECIENTOS"};
// clang-format on

constexpr std::string_view kExactHundred = "CIEN";
constexpr std::string_view kOneAfterTens = "UN";
constexpr std::string_view kAnd = " Y";

constexpr Slot kZero = slotOf({"CERO"});
constexpr Slot kBlank = slotOf({" "});

struct GroupName {
  Slot one;
  Slot many;
};
constexpr GroupName kThousands{slotOf({"UN MIL"}), slotOf({" MIL"})};
constexpr GroupName kMillions{slotOf({"UN MILLON"}), slotOf({" MILLONES"})};

// The slots of hundreds, tens and units, joined by blanks and not trimmed: a teen or twenty stands in the slot of the
// units, except for exactly 10 and 20.
constexpr Slot slotsBelowThousand(std::size_t number) {
  const std::string_view hundreds = number == 100 ? kExactHundred : kHundreds.at(number / 100);
  const std::size_t tens = number / 10 % 10;
  const std::size_t units = number % 10;
  if (tens == 1 || tens == 2) {
    const std::string_view word = (tens == 1 ? kTeens : kTwenties).at(units);
    return units == 0 ? slotOf({hundreds, " ", word, " "}) : slotOf({hundreds, "  ", word});
  }
  const bool isJoined = tens != 0 && units != 0;
  return slotOf({hundreds, " ", kTens.at(tens), isJoined ? kAnd : "", " ",
                 isJoined && units == 1 ? kOneAfterTens : kUnits.at(units)});
}

// Looking the words up whole takes no decision that a processor could guess wrong.
constexpr auto kBelowThousand = [] {
  std::array<Slot, 1000> slots;
  for (std::size_t i = 0; i < slots.size(); ++i) slots.at(i) = slotsBelowThousand(i);
  return slots;
}();

// The words of one amount while they are put together.
class Line {
 public:
  void put(const Slot& slot) { putFrom(slot, 0); }
  void putWithoutBlanksInFront(const Slot& slot) { putFrom(slot, slot.blanks); }
  [[nodiscard]] std::string_view text() const { return {bytes_.data(), size_}; }

 private:
  // A copy of fixed size takes a few instructions; the next slot overwrites what stands behind the words.
  void putFrom(const Slot& slot, std::size_t start) {
    std::memcpy(bytes_.data() + size_, slot.text.data() + start, kLongestSlot);
    size_ += slot.size - start;
  }

  // Three groups with two names and the blanks between them, and room for the last copy.
  std::array<char, 8 * kLongestSlot> bytes_;
  std::size_t size_ = 0;
};

struct Parts {
  std::size_t lastThree = 0;
  double thousands = 0;
  double millions = 0;
  std::int64_t rest = 0;
};

// Takes the last three digits off `number`. The quotient is a double before its floor is subtracted, so that the group
// comes out a hair beside its true value as hosts know it.
double takeGroup(std::int64_t& number) {
  const double quotient = static_cast<double>(number) / 1000;
  number /= 1000;
  return (quotient - static_cast<double>(number)) * 1000;
}

// The three digits that are rounded are the true ones for every amount that is taken; the groups are not rounded.
Parts takeApart(std::int64_t number) {
  Parts parts;
  parts.lastThree = static_cast<std::size_t>(number % 1000);
  number /= 1000;
  if (number >= 1) parts.thousands = takeGroup(number);
  if (number >= 1) parts.millions = takeGroup(number);
  parts.rest = number;
  return parts;
}

void putGroup(Line& line, double group, const GroupName& name) {
  if (group == 1) {
    line.put(name.one);
  } else if (group > 1) {
    // Blanks before the words are trimmed away, those between them and the name of the group are not.
    line.putWithoutBlanksInFront(kBelowThousand[static_cast<std::size_t>(group)]);
    line.put(name.many);
  }
}

// The five slots of a whole number, which is left with what stands above the millions.
void putWords(Line& line, double& number) {
  if (number < 0) {
    for (int i = 0; i < 4; ++i) line.put(kBlank);
    return;
  }
  const Parts parts = takeApart(static_cast<std::int64_t>(number));
  putGroup(line, parts.millions, kMillions);
  line.put(kBlank);
  putGroup(line, parts.thousands, kThousands);
  line.put(kBlank);
  line.put(kBelowThousand[parts.lastThree]);
  if (number == 0) line.put(kZero);
  number = static_cast<double>(parts.rest);
}

void trimInPlace(std::string& text) {
  const std::string_view trimmed = utf8::trimBlanks(text);
  if (trimmed.size() != text.size()) text = std::string(trimmed);
}

// Half to even, for a number that is not negative.
std::int32_t rounded(double number) {
  const auto below = static_cast<std::int32_t>(number);
  const double rest = number - below;
  return below + (rest > 0.5 || (rest == 0.5 && below % 2 != 0) ? 1 : 0);
}

constexpr Slot kNoCents = slotOf({" 00/100 "});
constexpr Slot kSomeCents = slotOf({" 00 /100 "});

char digit(std::int32_t value) { return static_cast<char>('0' + value); }

// " 56 /100 "; the third digit of 100 has no place.
Slot centsText(std::int32_t cents) {
  if (cents == 0) return kNoCents;
  if (cents > 99) throw RuntimeError(error_number::kInvalidCall);
  Slot slot = kSomeCents;
  slot.text[1] = digit(cents / 10);
  slot.text[2] = digit(cents % 10);
  return slot;
}

void requireSpeakable(double number) {
  // NaN fails this test too.
  if (std::isfinite(number) && number <= kLargestAmountInWords) {
    return;
  }
  throw RuntimeError(error_number::kInvalidCall,
                     "No se puede escribir con letra: la cantidad no es un número finito o pasa de 2.8E15", "PonLetra");
}

std::string joined(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  std::string text(size, ' ');
  char* end = text.data();
  for (const std::string_view piece : pieces) end += piece.copy(end, piece.size());
  return text;
}

}  // namespace

std::string PonLetra(double& Numero, std::string& Leyenda, bool bolDecimales, std::string_view strMoneda) {
  requireSpeakable(Numero);
  const double whole = std::floor(Numero);
  const std::int32_t cents = rounded((Numero - whole) * 100);
  Numero = whole;
  Line line;
  putWords(line, Numero);
  trimInPlace(Leyenda);
  if (!bolDecimales) {
    return std::string(line.text());
  }
  const Slot tail = centsText(cents);
  const std::string_view currency = utf8::trimBlanks(strMoneda);
  return joined({utf8::trimBlanks(line.text()), currency.empty() ? "" : " ", currency,
                 std::string_view(tail.text.data(), tail.size), Leyenda});
}

}  // namespace qvn::text
