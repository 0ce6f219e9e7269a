// Options and operands of a command, read by a table.
//
//   constexpr auto kOptions = std::to_array<Option>({{"formato", 'f', "NOMBRE", "tabla, csv o json"}});
//   const Arguments arguments = parseArguments(kOptions, words);
//   arguments.value("formato").value_or("tabla")
#pragma once

#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace qvn::cli {

/// The program was called in a way that it does not understand. `what()` says what is wrong, in Spanish.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Option {
  std::string_view name;       ///< without the leading "--"
  char letter;                 ///< the short form, 0 for none
  std::string_view valueName;  ///< what its value is called in help texts; empty for an option without value
  std::string_view help;       ///< may have several lines
};

/// Asks for help; every command has it besides its own options.
inline constexpr Option kHelpOption{"ayuda", 'h', "", "muestra esta ayuda (también --help)"};

class Arguments {
 public:
  [[nodiscard]] bool has(std::string_view option) const { return value(option).has_value(); }
  /// The option's value, "" for one without value; of an option given twice the last value.
  [[nodiscard]] std::optional<std::string_view> value(std::string_view option) const;
  [[nodiscard]] const std::vector<std::string_view>& operands() const { return operands_; }

 private:
  friend Arguments parseArguments(std::span<const Option> options, std::span<const std::string_view> words);
  std::vector<std::pair<std::string_view, std::string_view>> values_;
  std::vector<std::string_view> operands_;
};

/// "--name value", "--name=value", "-c value" and "-cvalue"; options may stand among the operands. "--" ends the
/// options. A lone "-", and "-" before a digit or a decimal separator, begin an operand, so that negative numbers need
/// no care. Throws UsageError for an option that is not in `options`, that lacks its value, or that has one and takes
/// none.
///
/// The result refers to the characters of `options` and `words`. When help is asked for, has(kHelpOption.name) is true
/// and nothing else is looked at.
Arguments parseArguments(std::span<const Option> options, std::span<const std::string_view> words);

}  // namespace qvn::cli
