#include "qvn/system/shell.h"

#include <algorithm>
#include <string>
#include <vector>

#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"
#include "qvn/system/child_process.h"
#include "qvn/system/command_line.h"
#include "qvn/system/program_search.h"

namespace qvn::system {
namespace {

constexpr const char* kOpener = "xdg-open";
constexpr const char* kPrinter = "lp";

// "scheme:", at least two letters long, so that a drive's letter is none.
bool isAddress(std::string_view file) {
  const std::size_t colon = file.find(':');
  return colon != std::string_view::npos && colon >= 2 && std::ranges::all_of(file.substr(0, colon), [](char c) {
           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '+' || c == '-' || c == '.';
         });
}

std::int32_t resultOf(StartOutcome outcome) {
  switch (outcome) {
    case StartOutcome::Started:
      return shell_result::kSucceeded;
    case StartOutcome::Forbidden:
      return shell_result::kForbidden;
    case StartOutcome::NoMemory:
    case StartOutcome::NoPipe:
      return shell_result::kNoMemory;
    case StartOutcome::NotFound:
      break;
  }
  return shell_result::kFileNotFound;
}

std::int32_t handTo(const char* program, const std::string& what, const std::string& folder) {
  if (!isProgram(program)) return shell_result::kNoAssociation;
  return resultOf(startDetached({program, what}, folder));
}

// The program that `file` names: in the folder, else by the folders of PATH; "" when it names none.
std::string programOf(const std::string& file, const std::filesystem::path& inFolder, bool hasFolder) {
  const bool isPath = file.find('/') != std::string::npos;
  if ((isPath || hasFolder) && isProgram(inFolder.string())) return inFolder.string();
  return !isPath && isProgram(file) ? file : std::string();
}

std::int32_t openFile(const std::string& file, std::string_view parameters, const std::string& folder) {
  const std::filesystem::path inFolder = std::filesystem::absolute(std::filesystem::path(folder) / file);
  const std::string program = programOf(file, inFolder, !folder.empty());
  if (!program.empty()) {
    std::vector<std::string> words = splitCommandLine(parameters);
    words.insert(words.begin(), program);
    return resultOf(startDetached(words, folder));
  }
  std::error_code ignored;
  if (std::filesystem::exists(inFolder, ignored)) return handTo(kOpener, inFolder.string(), folder);
  return std::filesystem::is_directory(inFolder.parent_path(), ignored) ? shell_result::kFileNotFound
                                                                        : shell_result::kFolderNotFound;
}

}  // namespace

std::int32_t ShellRun(const Variant& /*window*/, std::string_view operation, std::string_view file,
                      std::string_view parameters, std::string_view directory, std::int32_t /*showCommand*/) {
  const std::string folder = hostPath(directory).string();
  std::error_code ignored;
  if (!folder.empty() && !std::filesystem::is_directory(folder, ignored)) return shell_result::kFolderNotFound;
  if (file.empty()) return shell_result::kFileNotFound;
  if (equalIgnoringCase(operation, "print")) return handTo(kPrinter, hostPath(file).string(), folder);
  const bool opens =
      operation.empty() || equalIgnoringCase(operation, "open") || equalIgnoringCase(operation, "explore");
  if (!opens) return shell_result::kNoAssociation;
  if (isAddress(file)) return handTo(kOpener, std::string(file), folder);
  return openFile(hostPath(file).string(), parameters, folder);
}

void ShellCommand(std::string_view command, const Variant& windowStyle) {
  static_cast<void>(windowStyle.toLong());
  const std::vector<std::string> words = splitCommandLine(command);
  if (words.empty()) throw RuntimeError(error_number::kInvalidCall, "La línea de comandos está vacía");
  switch (startDetached(words)) {
    case StartOutcome::Started:
      return;
    case StartOutcome::NotFound:
      throw RuntimeError(error_number::kFileNotFound, "No se encontró el programa «" + words.front() + "»");
    default:
      throw RuntimeError(error_number::kPermissionDenied, "No se pudo iniciar «" + words.front() + "»");
  }
}

}  // namespace qvn::system
