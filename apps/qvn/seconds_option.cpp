#include "apps/qvn/seconds_option.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>

#include "apps/qvn/terminal_text.h"

namespace qvn::cli {

std::optional<std::chrono::seconds> secondsOf(const Arguments& arguments, const Option& option) {
  const auto text = arguments.value(option.name);
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
