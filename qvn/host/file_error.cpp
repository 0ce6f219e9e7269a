#include "qvn/host/file_error.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "qvn/base/path.h"

namespace qvn::host {
namespace {

struct CodeRule {
  std::errc code;
  std::int32_t number;
};

// Every code that is not here is a device error.
constexpr auto kCodeRules = std::to_array<CodeRule>({
    {std::errc::invalid_argument, error_number::kBadFileName},
    {std::errc::filename_too_long, error_number::kBadFileName},
    {std::errc::illegal_byte_sequence, error_number::kBadFileName},
    {std::errc::file_exists, error_number::kFileExists},
    {std::errc::no_space_on_device, error_number::kDiskFull},
    {std::errc::file_too_large, error_number::kDiskFull},
    {std::errc::too_many_files_open, error_number::kTooManyFiles},
    {std::errc::too_many_files_open_in_system, error_number::kTooManyFiles},
    {std::errc::permission_denied, error_number::kPermissionDenied},
    {std::errc::operation_not_permitted, error_number::kPermissionDenied},
    {std::errc::read_only_file_system, error_number::kPermissionDenied},
    {std::errc::is_a_directory, error_number::kPermissionDenied},
    {std::errc::text_file_busy, error_number::kPermissionDenied},
    {std::errc::device_or_resource_busy, error_number::kPermissionDenied},
    {std::errc::directory_not_empty, error_number::kPermissionDenied},
    {std::errc::not_a_directory, error_number::kPathNotFound},
    {std::errc::too_many_symbolic_link_levels, error_number::kPathNotFound},
});

std::int32_t missingNumber(std::string_view path) {
  const std::filesystem::path folder = hostPath(path).parent_path();
  std::error_code ignored;  // a folder that cannot be looked at is as good as none
  const bool hasFolder = folder.empty() || std::filesystem::is_directory(folder, ignored);
  return hasFolder ? error_number::kFileNotFound : error_number::kPathNotFound;
}

std::int32_t numberOf(const std::error_code& code, const FileAttempt& attempt) {
  if (code == std::errc::no_such_file_or_directory) {
    return missingNumber(attempt.target.empty() ? attempt.path : attempt.target);
  }
  const auto* rule = std::ranges::find_if(kCodeRules, [&code](const CodeRule& row) { return code == row.code; });
  return rule == kCodeRules.end() ? error_number::kDeviceError : rule->number;
}

std::string describe(std::int32_t number, const FileAttempt& attempt) {
  std::string text = "No se pudo ";
  text.append(attempt.verb).append(" «").append(attempt.path).append("»");
  if (!attempt.target.empty()) text.append(" a «").append(attempt.target).append("»");
  return text.append(": ").append(runtimeErrorText(number));
}

}  // namespace

RuntimeError fileError(std::int32_t number, const FileAttempt& attempt) {
  return RuntimeError(number, describe(number, attempt));
}

RuntimeError fileError(const std::error_code& code, const FileAttempt& attempt) {
  const std::int32_t number = numberOf(code, attempt);
  return RuntimeError(number, describe(number, attempt) + " (" + code.message() + ")");
}

}  // namespace qvn::host
