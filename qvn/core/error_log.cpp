#include "qvn/core/error_log.h"

#include <optional>

#include "qvn/base/format_pattern.h"

namespace qvn::core {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kOccurred = " Ocurrió un error:";
constexpr std::string_view kModule = "Module: ";
constexpr std::string_view kFunction = "Function: ";
constexpr std::string_view kDescription = "Description: ";

bool readLine(std::istream& log, std::string& line) {
  if (!std::getline(log, line)) return false;
  if (line.ends_with('\r')) line.pop_back();
  return true;
}

// What follows `label` on the next line; nothing when that does not begin with it.
std::optional<std::string> labelled(std::istream& log, std::string& line, std::string_view label) {
  if (!readLine(log, line) || !line.starts_with(label)) return std::nullopt;
  return line.substr(label.size());
}

bool beginsRecord(std::string_view line) { return line.ends_with(kOccurred); }

}  // namespace

std::string errorLogPath(std::string_view folder, Date day) {
  return std::string(folder) + "\\QuorvinError" + formatValue(day, "ddMMyyyy") + ".Log";
}

std::string errorRecordText(const ErrorRecord& record) {
  std::string text = record.time;
  text.append(kOccurred).append(kLineEnd);
  text.append(kModule).append(record.module).append(kLineEnd);
  text.append(kFunction).append(record.procedure).append(kLineEnd);
  return text.append(kDescription).append(record.description).append(kLineEnd);
}

void readErrorLog(std::istream& log, const std::function<void(const ErrorRecord&)>& take) {
  std::string line;
  bool hasLine = readLine(log, line);
  while (hasLine) {
    if (!beginsRecord(line)) {
      hasLine = readLine(log, line);
      continue;
    }
    ErrorRecord record;
    record.time = line.substr(0, line.size() - kOccurred.size());
    auto module = labelled(log, line, kModule);
    auto procedure = module ? labelled(log, line, kFunction) : std::nullopt;
    auto description = procedure ? labelled(log, line, kDescription) : std::nullopt;
    if (!description) {
      hasLine = !log.fail() && !log.eof();
      continue;  // the line may begin a record of its own
    }
    record.module = *std::move(module);
    record.procedure = *std::move(procedure);
    record.description = *std::move(description);
    // The blank line behind a record belongs to the log, not to the description.
    std::size_t blankLines = 0;
    while ((hasLine = readLine(log, line)) && !beginsRecord(line)) {
      if (line.empty()) {
        ++blankLines;
        continue;
      }
      record.description.append(blankLines, '\n').append("\n").append(line);
      blankLines = 0;
    }
    take(record);
  }
}

}  // namespace qvn::core
