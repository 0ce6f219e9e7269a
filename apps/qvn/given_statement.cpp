#include "apps/qvn/given_statement.h"

#include <charconv>

#include "apps/qvn/output.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string statementText(std::optional<std::string_view> operand) {
  if (operand && *operand != "-") return std::string(*operand);
  if (!operand && isInputTerminal()) throw UsageError("falta la sentencia");
  return readStandardInput();
}

}  // namespace

std::string readStatement(std::optional<std::string_view> operand) {
  std::string statement = statementText(operand);
  if (statement.starts_with(kByteOrderMark)) statement.erase(0, kByteOrderMark.size());
  if (statement.find_first_not_of(" \t\r\n") == std::string::npos) throw UsageError("la sentencia está vacía");
  return statement;
}

std::optional<std::chrono::seconds> chosenWait(const Arguments& arguments) {
  const auto text = arguments.value(kWaitOption.name);
  if (!text) return std::nullopt;
  std::int32_t seconds = 0;
  const char* const end = text->data() + text->size();
  const auto [stop, error] = std::from_chars(text->data(), end, seconds);
  if (error != std::errc{} || stop != end || seconds < 0) {
    throw UsageError("«" + safeText(*text) + "» no es un número de segundos");
  }
  return std::chrono::seconds(seconds);
}

}  // namespace qvn::cli
