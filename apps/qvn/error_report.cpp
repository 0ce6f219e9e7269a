#include "apps/qvn/error_report.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "apps/qvn/terminal_text.h"
#include "qvn/data/provider_error.h"

namespace qvn::cli {
namespace {

struct Advice {
  std::int32_t number;
  std::string_view text;
};

// For numbers whose texts do not say it themselves, as those of failed connections do.
constexpr auto kAdvice = std::to_array<Advice>({
    {data::provider_number::kStatementRefused, "revise la sentencia; --traza muestra las que se ejecutan"},
    {data::provider_number::kIntegrityViolation, "revise claves repetidas, valores nulos y registros relacionados"},
    {data::provider_number::kTimeout,
     "intente de nuevo cuando otra estación termine; «qvn sql --espera» da más tiempo"},
    {data::provider_number::kNoSuchTable, "revise el nombre de la tabla y que la base de datos sea la correcta"},
    {data::provider_number::kBadConnectionString, "«qvn --ayuda» da ejemplos de cadenas de conexión"},
    {data::provider_number::kNoSuchProvider, "«qvn --ayuda» da ejemplos de cadenas de conexión"},
    {data::provider_number::kNoSuchItem, "revise que la tabla tenga los campos que se esperan"},
    {error_number::kInvalidUseOfNull, "busque valores nulos, por ejemplo en tip_cam de los documentos del cliente"},
});

std::string numbers(const data::ErrorItem& item) {
  std::string text = "error " + std::to_string(item.number);
  if (!item.source.empty()) text += ", " + item.source + " " + std::to_string(item.nativeError);
  if (!item.sqlState.empty()) text += ", SQLSTATE " + item.sqlState;
  return text;
}

std::string line(std::string_view lead, std::string_view text) {
  return std::string(lead).append(safeText(text)).append("\n");
}

}  // namespace

std::string failureReport(const RuntimeError& error) {
  std::string report;
  const auto* provided = dynamic_cast<const data::ProviderError*>(&error);
  if (provided == nullptr || provided->errors().empty()) {
    report = line("qvn: ", error.description()) + line("     error ", std::to_string(error.number()));
  } else {
    for (const data::ErrorItem& item : provided->errors()) {
      report += line("qvn: ", item.description) + line("     ", numbers(item));
    }
  }
  const auto* advice = std::ranges::find(kAdvice, error.number(), &Advice::number);
  if (advice != kAdvice.end()) report += line("     Qué hacer: ", advice->text);
  return report;
}

std::string failureReport(const std::exception& error) { return line("qvn: falla inesperada: ", error.what()); }

}  // namespace qvn::cli
