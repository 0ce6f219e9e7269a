// What a database engine reported, in the numbers that hosts test for.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "qvn/base/runtime_error.h"

namespace qvn::data {

/// Error numbers of the data-access platform.
namespace provider_number {
inline constexpr std::int32_t kUnspecified = -2147467259;  ///< lost connection, or a failure without a number
inline constexpr std::int32_t kStatementRefused = -2147217900;
inline constexpr std::int32_t kNoSuchTable = -2147217865;
inline constexpr std::int32_t kIntegrityViolation = -2147217873;
inline constexpr std::int32_t kTimeout = -2147217871;
inline constexpr std::int32_t kRowChanged = -2147217864;  ///< the row was changed or deleted meanwhile
inline constexpr std::int32_t kLoginRefused = -2147217843;
inline constexpr std::int32_t kBadConnectionString = -2147217805;
inline constexpr std::int32_t kNoCurrentRecord = 3021;
inline constexpr std::int32_t kNotSupported = 3251;  ///< the recordset does not support this
inline constexpr std::int32_t kNoSuchItem = 3265;
inline constexpr std::int32_t kObjectClosed = 3704;
inline constexpr std::int32_t kObjectOpen = 3705;
inline constexpr std::int32_t kNoSuchProvider = 3706;
}  // namespace provider_number

/// The native error beside kUnspecified by which hosts know that a row could not be saved because another user holds
/// it.
inline constexpr std::int32_t kRowHeldNativeError = -1611;

/// One error of a provider's list.
struct ErrorItem {
  std::int32_t number = 0;
  std::string description = {};
  std::int32_t nativeError = 0;  ///< the engine's own code
  std::string sqlState = {};     ///< five characters, or empty where the engine has none
  std::string source = {};       ///< driver and engine
  std::string helpFile = {};
  std::int32_t helpContext = 0;
  bool isLockConflict = false;    ///< another session holds what the statement wanted to write
  bool isLostConnection = false;  ///< the session is gone; told by drivers that can make it anew
};

/// A failure of the data-access platform or of the engine behind it. `number()` and `description()` are those of the
/// first item; errors() is empty when the platform itself refused, without asking the engine.
class ProviderError : public RuntimeError {
 public:
  /// The platform's own refusal, such as reading a closed recordset.
  ProviderError(std::int32_t number, const std::string& description) : RuntimeError(number, description, "qvn.data") {}
  /// `errors` must not be empty.
  explicit ProviderError(std::vector<ErrorItem> errors)
      : RuntimeError(errors.front().number, errors.front().description, errors.front().source),
        errors_(std::move(errors)) {}

  [[nodiscard]] const std::vector<ErrorItem>& errors() const noexcept { return errors_; }

 private:
  std::vector<ErrorItem> errors_;
};

/// The platform's number for an SQLSTATE, kStatementRefused for one without a rule of its own. A driver uses it for the
/// engine codes that it has no better translation for.
std::int32_t numberForSqlState(const std::string& sqlState);

}  // namespace qvn::data
