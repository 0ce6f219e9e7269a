#include "apps/qvn/text_items.h"

#include <cstdint>
#include <iostream>
#include <optional>

#include "apps/qvn/terminal_text.h"
#include "qvn/base/runtime_error.h"

namespace qvn::cli {
namespace {

using Convert = std::function<std::string(std::string_view)>;

constexpr std::int32_t kPathAccessError = 75;

// What is wrong with a line, or nothing when it was written.
std::optional<std::string> convertLine(std::string_view line, const Convert& convert, Output& out) {
  try {
    out << convert(line) << "\n";
    return std::nullopt;
  } catch (const UsageError& error) {
    return error.what();
  } catch (const RuntimeError& error) {
    return safeText(error.description()) + " (error " + std::to_string(error.number()) + ")";
  }
}

ExitStatus convertLines(Context& context, const Convert& convert) {
  ExitStatus status = ExitStatus::Done;
  std::uint64_t number = 0;
  for (std::string line; std::getline(std::cin, line);) {
    ++number;
    if (line.ends_with('\r')) {
      line.pop_back();
    }
    if (const auto complaint = convertLine(line, convert, context.out)) {
      context.messages << "qvn: renglón " << std::to_string(number) << ": " << *complaint << "\n";
      status = ExitStatus::Failed;
    }
    if (context.out.isTerminal()) {
      context.out.flush();
    }
  }
  if (std::cin.bad()) {
    throw RuntimeError(kPathAccessError, "No se pudo leer la entrada estándar");
  }
  return status;
}

}  // namespace

ExitStatus convertTexts(const Arguments& arguments, Context& context, std::string_view missing,
                        const Convert& convert) {
  const auto& operands = arguments.operands();
  if (operands.empty() && isInputTerminal()) {
    throw UsageError(std::string(missing));
  }
  if (operands.empty() || (operands.size() == 1 && operands.front() == "-")) {
    return convertLines(context, convert);
  }
  std::string lines;
  for (const std::string_view operand : operands) {
    lines += convert(operand) + "\n";
  }
  context.out << lines;
  return ExitStatus::Done;
}

}  // namespace qvn::cli
