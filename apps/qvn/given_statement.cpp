#include "apps/qvn/given_statement.h"

#include "apps/qvn/output.h"

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

}  // namespace qvn::cli
