#include "qvn/ledger/stored_amount.h"

#include <charconv>
#include <optional>
#include <system_error>

#include "qvn/data/recordset.h"

namespace qvn::ledger {
namespace {

std::optional<double> numberIn(const std::string& amount) {
  double number = 0;
  const char* const end = amount.data() + amount.size();
  const auto [stop, error] = std::from_chars(amount.data(), end, number);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return number;
}

// "0.125" with two decimals is "0.13": engines round exact literals half away from zero.
std::optional<Decimal> roundedDecimal(const std::string& amount, int decimals) {
  std::string text = amount;
  const std::size_t point = text.find('.');
  const auto kept = static_cast<std::size_t>(decimals);
  if (point == std::string::npos || text.size() - point - 1 <= kept) return Decimal::fromText(text);
  const bool roundsUp = text[point + kept + 1] >= '5';
  text.resize(point + kept + 1);
  auto cut = Decimal::fromText(text.substr(0, kept == 0 ? point : text.size()));
  if (!cut || !roundsUp) return cut;
  const std::string unit = kept == 0 ? "1" : "0." + std::string(kept - 1, '0') + "1";
  return *cut + *Decimal::fromText(amount.front() == '-' ? "-" + unit : unit);
}

bool holdsDecimal(const Decimal& stored, int decimals, const std::string& amount, DecimalStorage storage) {
  const auto written =
      storage == DecimalStorage::AsGiven ? Decimal::fromText(amount) : roundedDecimal(amount, decimals);
  return written && *written == stored;
}

}  // namespace

bool holdsAmount(const data::Field& stored, const std::string& amount, DecimalStorage storage) {
  constexpr int kCurrencyDecimals = 4;
  const Variant& value = stored.Value();
  if (const auto* number = value.getIf<double>()) return numberIn(amount) == *number;
  if (const auto* decimal = value.getIf<Decimal>()) {
    return holdsDecimal(*decimal, stored.NumericScale(), amount, storage);
  }
  if (value.getIf<Currency>() != nullptr) return holdsDecimal(value.toDecimal(), kCurrencyDecimals, amount, storage);
  const auto number = numberIn(amount);
  if (!number) return false;
  if (const auto* single = value.getIf<float>()) return static_cast<float>(*number) == *single;
  return value.isNumeric() && value.toDouble() == *number;
}

bool holdsText(const data::Field& stored, std::string_view text) {
  const auto* held = stored.Value().getIf<std::string>();
  if (held == nullptr) return false;
  std::string_view value = *held;
  // Columns of fixed width are filled with blanks.
  const bool isPadded = stored.Type() == data::FieldType::Char || stored.Type() == data::FieldType::WChar;
  if (isPadded) value = value.substr(0, value.find_last_not_of(' ') + 1);
  return value == text;
}

}  // namespace qvn::ledger
