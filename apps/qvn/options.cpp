#include "apps/qvn/options.h"

#include <algorithm>
#include <string>

namespace qvn::cli {
namespace {

constexpr std::string_view kEndOfOptions = "--";

bool isOption(std::string_view word) {
  constexpr std::string_view kBeginsNumber = "0123456789.,";
  return word.size() > 1 && word.front() == '-' && kBeginsNumber.find(word[1]) == std::string_view::npos;
}

bool asksForHelp(std::string_view word) { return word == "--ayuda" || word == "--help" || word == "-h"; }

std::string quoted(std::string_view word) { return "«" + std::string(word) + "»"; }

// An option as it was written, before it is looked up.
struct WrittenOption {
  std::string_view word;  // as people know it: "--name" or "-c"
  std::string_view name;
  char letter = 0;
  std::optional<std::string_view> value;
};

WrittenOption splitOption(std::string_view word) {
  if (!word.starts_with("--")) {
    return {word.substr(0, 2),
            {},
            word[1],
            word.size() > 2 ? std::optional<std::string_view>(word.substr(2)) : std::nullopt};
  }
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos) return {word, word.substr(2), 0, std::nullopt};
  return {word.substr(0, equals), word.substr(2, equals - 2), 0, word.substr(equals + 1)};
}

const Option& lookUp(const WrittenOption& written, std::span<const Option> options) {
  const auto found = std::ranges::find_if(options, [&](const Option& option) {
    return written.letter != 0 ? option.letter == written.letter : option.name == written.name;
  });
  if (found == options.end()) throw UsageError("no existe la opción " + quoted(written.word));
  return *found;
}

}  // namespace

std::optional<std::string_view> Arguments::value(std::string_view option) const {
  const auto found =
      std::find_if(values_.rbegin(), values_.rend(), [&](const auto& set) { return set.first == option; });
  if (found == values_.rend()) return std::nullopt;
  return found->second;
}

Arguments parseArguments(std::span<const Option> options, std::span<const std::string_view> words) {
  Arguments arguments;
  const auto optionsEnd = std::ranges::find(words, kEndOfOptions);
  if (std::any_of(words.begin(), optionsEnd, asksForHelp)) {
    arguments.values_.emplace_back(kHelpOption.name, "");
    return arguments;
  }
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == kEndOfOptions) {
      arguments.operands_.insert(arguments.operands_.end(), words.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                 words.end());
      break;
    }
    if (!isOption(words[i])) {
      arguments.operands_.push_back(words[i]);
      continue;
    }
    WrittenOption written = splitOption(words[i]);
    const Option& option = lookUp(written, options);
    if (option.valueName.empty()) {
      if (written.value) throw UsageError("la opción " + quoted(written.word) + " no lleva valor");
    } else if (!written.value) {
      if (++i == words.size()) throw UsageError("falta el valor de la opción " + quoted(written.word));
      written.value = words[i];
    }
    arguments.values_.emplace_back(option.name, written.value.value_or(""));
  }
  return arguments;
}

}  // namespace qvn::cli
