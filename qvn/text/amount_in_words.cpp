#include "qvn/text/amount_in_words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::text {
namespace {

using Words = std::array<std::string_view, 10>;

// clang-format off
//                          0        1            2             3              4                5             6              7               8              9
constexpr Words kUnits   {"",       "UNO",       "DOS",        "TRES",        "CUATRO",        "CINCO",      "SEIS",        "SIETE",        "OCHO",        "NUEVE"};
constexpr Words kTeens   {"DIEZ",   "ONCE",      "DOCE",       "TRECE",       "CATORCE",       "QUINCE",     "DIECISEIS",   "DIECISIETE",   "DIECIOCHO",   "DIECINUEVE"};
constexpr Words kTwenties{"VEINTE", "VEINTIUNO", "VEINTIDOS",  "VEINTITRES",  "VEINTICUATRO",  "VEINTICINCO", "VEINTISEIS", "VEINTISIETE",  "VEINTIOCHO",  "VEINTINUEVE"};
constexpr Words kTens    {"",       "",          "",           "TREINTA",     "CUARENTA",      "CINCUENTA",  "SESENTA",     "SETENTA",      "OCHENTA",     "NOVENTA"};
constexpr Words kHundreds{"",       "CIENTO",    "DOSCIENTOS", "TRESCIENTOS", "CUATROCIENTOS", "QUINIENTOS", "SEISCIENTOS", "SETECIENTOS", "OCHOCIENTOS", "NOVECIENTOS"};
// clang-format on

constexpr std::string_view kZero = "CERO";
constexpr std::string_view kExactHundred = "CIEN";
constexpr std::string_view kOneAfterTens = "UN";
constexpr std::string_view kAnd = " Y";

struct GroupName {
  std::string_view one;
  std::string_view many;
};
constexpr GroupName kThousands{"UN MIL", " MIL"};
constexpr GroupName kMillions{"UN MILLON", " MILLONES"};

// Most texts fit; a longer one only costs a second allocation.
constexpr std::size_t kUsualLength = 160;

// The slots of tens and units with the blank between them: a teen or twenty stands in the slot of the units, except
// for exactly 10 and 20.
std::string tensAndUnits(std::size_t tens, std::size_t units) {
  if (tens == 1 || tens == 2) {
    const std::string word((tens == 1 ? kTeens : kTwenties)[units]);
    return units == 0 ? word + " " : " " + word;
  }
  const bool isJoined = tens != 0 && units != 0;
  std::string text(kTens[tens]);
  text.append(isJoined ? kAnd : "").append(" ");
  return text.append(isJoined && units == 1 ? kOneAfterTens : kUnits[units]);
}

// The slots of hundreds, tens and units of every number below 1000, joined and not trimmed. They stand close together,
// because an amount takes three of them from anywhere.
class SlotTable {
 public:
  SlotTable() {
    for (std::size_t number = 0; number < places_.size(); ++number) {
      std::string slots(number == 100 ? kExactHundred : kHundreds[number / 100]);
      slots.append(" ").append(tensAndUnits(number / 10 % 10, number % 10));
      const std::size_t blanks = std::min(slots.find_first_not_of(' '), slots.size());
      places_[number] = {static_cast<std::uint16_t>(text_.size()), static_cast<std::uint8_t>(slots.size()),
                         static_cast<std::uint8_t>(blanks)};
      text_ += slots;
    }
  }
  [[nodiscard]] std::string_view of(std::size_t number) const {
    const Place& place = places_[number];
    return {text_.data() + place.start, place.size};
  }
  [[nodiscard]] std::string_view withoutBlanksInFront(std::size_t number) const {
    return of(number).substr(places_[number].blanks);
  }

 private:
  struct Place {
    std::uint16_t start = 0;
    std::uint8_t size = 0;
    std::uint8_t blanks = 0;  // in front
  };
  std::string text_;
  std::array<Place, 1000> places_;
};

const SlotTable& slotTable() {
  static const SlotTable kTable;
  return kTable;
}

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

void appendGroup(std::string& text, double group, const GroupName& name) {
  if (group == 1) {
    text.append(name.one);
  } else if (group > 1) {
    // Blanks before the words are trimmed away, those between them and the name of the group are not.
    text.append(slotTable().withoutBlanksInFront(static_cast<std::size_t>(group))).append(name.many);
  }
}

// The five slots of a whole number, which is left with what stands above the millions.
void appendWords(std::string& text, double& number) {
  if (number < 0) {
    text.append("    ");
    return;
  }
  const Parts parts = takeApart(static_cast<std::int64_t>(number));
  appendGroup(text, parts.millions, kMillions);
  text.append(" ");
  appendGroup(text, parts.thousands, kThousands);
  text.append(" ").append(slotTable().of(parts.lastThree));
  if (number == 0) text.append(kZero);
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

char digit(std::int32_t value) { return static_cast<char>('0' + value); }

// " 56 /100 "
void appendCents(std::string& text, std::int32_t cents) {
  if (cents == 0) {
    text.append(" 00/100 ");
  } else {
    if (cents > 99) throw RuntimeError(error_number::kInvalidCall);  // there is no room for a third digit
    const std::array<char, 8> tail = {' ', digit(cents / 10), digit(cents % 10), ' ', '/', '1', '0', '0'};
    text.append(tail.data(), tail.size()).append(" ");
  }
}

void requireSpeakable(double number) {
  // NaN fails this test too.
  if (std::isfinite(number) && number <= kLargestAmountInWords) {
    return;
  }
  throw RuntimeError(error_number::kInvalidCall,
                     "No se puede escribir con letra: la cantidad no es un número finito o pasa de 2.8E15", "PonLetra");
}

}  // namespace

std::string PonLetra(double& Numero, std::string& Leyenda, bool bolDecimales, std::string_view strMoneda) {
  requireSpeakable(Numero);
  const double whole = std::floor(Numero);
  const std::int32_t cents = rounded((Numero - whole) * 100);
  Numero = whole;
  std::string text;
  text.reserve(kUsualLength);
  appendWords(text, Numero);
  trimInPlace(Leyenda);
  if (!bolDecimales) {
    return text;
  }
  text.erase(text.find_last_not_of(' ') + 1);
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  if (const std::string_view currency = utf8::trimBlanks(strMoneda); !currency.empty()) {
    text.append(" ").append(currency);
  }
  appendCents(text, cents);
  return text.append(Leyenda);
}

}  // namespace qvn::text
