#include "qvn/text/amount_in_words.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/padding.h"

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

struct Parts {
  std::size_t units = 0;
  std::size_t tens = 0;
  std::size_t hundreds = 0;
  double thousands = 0;
  double millions = 0;
};

// Takes the last group off `number`, which is `size` times what is left, plus the group. The quotient is a double
// before its floor is subtracted, so that the group comes out a hair beside its true value as hosts know it.
double takeOff(double& number, double size) {
  if (number < 1) {
    return 0;
  }
  const double quotient = number / size;
  // The floor of a positive number; as a conversion it costs a fraction of the library call.
  number = static_cast<double>(static_cast<std::int64_t>(quotient));
  return (quotient - number) * size;
}

std::size_t takeDigit(double& number) { return static_cast<std::size_t>(std::nearbyint(takeOff(number, 10))); }

// The digits are rounded, the groups are not; see PonLetra.TakesGroupsAsDoublesDo.
Parts takeApart(double& number) {
  Parts parts;
  parts.units = takeDigit(number);
  parts.tens = takeDigit(number);
  parts.hundreds = takeDigit(number);
  parts.thousands = takeOff(number, 1000);
  parts.millions = takeOff(number, 1000);
  return parts;
}

void appendHundreds(std::string& text, const Parts& parts) {
  const bool isExact = parts.hundreds == 1 && parts.tens == 0 && parts.units == 0;
  text.append(isExact ? kExactHundred : kHundreds[parts.hundreds]);
}

// The slots of tens and units with the blank between them: a teen or twenty stands in the slot of the units, except
// for exactly 10 and 20.
void appendTensAndUnits(std::string& text, const Parts& parts) {
  if (parts.tens == 1 || parts.tens == 2) {
    const std::string_view word = (parts.tens == 1 ? kTeens : kTwenties)[parts.units];
    if (parts.units == 0) {
      text.append(word).append(" ");
    } else {
      text.append(" ").append(word);
    }
    return;
  }
  const bool isJoined = parts.tens != 0 && parts.units != 0;
  text.append(kTens[parts.tens]).append(isJoined ? kAnd : "").append(" ");
  text.append(isJoined && parts.units == 1 ? kOneAfterTens : kUnits[parts.units]);
}

void appendWords(std::string& text, double& number);

void appendGroup(std::string& text, double group, const GroupName& name) {
  if (group == 1) {
    text.append(name.one);
  } else if (group > 1) {
    const std::size_t start = text.size();
    appendWords(text, group);
    // Blanks before the words are trimmed away, those between them and the name of the group are not.
    text.erase(start, text.find_first_not_of(' ', start) - start);
    text.append(name.many);
  }
}

// The five slots of `number`, which is left with what stands above the millions.
void appendWords(std::string& text, double& number) {
  number = std::floor(number);
  const bool isZero = number == 0;
  const Parts parts = takeApart(number);
  appendGroup(text, parts.millions, kMillions);
  text.append(" ");
  appendGroup(text, parts.thousands, kThousands);
  text.append(" ");
  appendHundreds(text, parts);
  text.append(" ");
  appendTensAndUnits(text, parts);
  text.append(isZero ? kZero : "");
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
  const double fraction = Numero - std::floor(Numero);
  std::string words;
  words.reserve(kUsualLength);
  appendWords(words, Numero);
  Leyenda = utf8::trimBlanks(Leyenda);
  if (!bolDecimales) {
    return words;
  }
  const auto cents = static_cast<std::int32_t>(std::nearbyint(fraction * 100));
  std::string text;
  text.reserve(kUsualLength);
  text.append(utf8::trimBlanks(words));
  if (!clEmpty(strMoneda)) {
    text.append(" ").append(utf8::trimBlanks(strMoneda));
  }
  if (cents == 0) {
    text.append(" 00/100 ");
  } else {
    text.append(" ").append(strCero(cents, 2)).append(" /100 ");
  }
  return text.append(Leyenda);
}

}  // namespace qvn::text
