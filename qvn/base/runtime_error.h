// Run-time errors: an error number that hosts test for, a Spanish description and the source that raised it.
//
//   throw qvn::RuntimeError(qvn::error_number::kTypeMismatch);
//   throw qvn::RuntimeError(qvn::error_number::kInvalidCall, "el separador está vacío", "Separador");
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace qvn {

/// Numbers of the run-time's errors, as hosts compare them.
namespace error_number {
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kOutOfStringSpace = 14;
inline constexpr std::int32_t kBadFileName = 52;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kBadFileMode = 54;
inline constexpr std::int32_t kDeviceError = 57;
inline constexpr std::int32_t kFileExists = 58;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kInputPastEnd = 62;
inline constexpr std::int32_t kTooManyFiles = 67;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kNoSuchMethod = 438;
inline constexpr std::int32_t kNoSuchArgument = 448;
inline constexpr std::int32_t kArgumentRequired = 449;
inline constexpr std::int32_t kDuplicateKey = 457;
}  // namespace error_number

/// The Spanish text of a run-time error number; a general text for a number that has none of its own.
std::string runtimeErrorText(std::int32_t number);

/// An error with a number. `what()` is the description in UTF-8.
class RuntimeError : public std::runtime_error {
 public:
  /// With the run-time's own text for `number`.
  explicit RuntimeError(std::int32_t number) : RuntimeError(number, runtimeErrorText(number)) {}
  RuntimeError(std::int32_t number, const std::string& description, std::string source = "qvn")
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  [[nodiscard]] std::string description() const { return what(); }
  /// Who raised it: the component, or for provider errors the driver and engine.
  [[nodiscard]] const std::string& source() const noexcept { return source_; }

 private:
  std::int32_t number_;
  std::string source_;
};

}  // namespace qvn
