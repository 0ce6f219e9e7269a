#include "qvn/base/scientific.h"

#include <charconv>

namespace qvn {
namespace {

template <typename Number, typename... Precision>
Scientific takeApart(Number value, Precision... precision) {
  std::array<char, 32> buffer;  // "-1.7976931348623157e+308" and to spare
  char* const last = buffer.data() + buffer.size();
  const auto end = std::to_chars(buffer.data(), last, value, std::chars_format::scientific, precision...);
  return Scientific({buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())});
}

}  // namespace

Scientific::Scientific(std::string_view text) {
  isNegative_ = text.starts_with('-');
  if (isNegative_) text.remove_prefix(1);
  const std::size_t mark = text.find('e');
  for (const char c : text.substr(0, mark)) {
    if (c != '.') digits_[count_++] = c;
  }
  while (count_ > 1 && digits_[count_ - 1] == '0') --count_;
  std::string_view exponent = text.substr(mark + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), exponent_);
}

Scientific shortestScientific(double value) { return takeApart(value); }
Scientific shortestScientific(float value) { return takeApart(value); }
Scientific roundedScientific(double value, int digits) { return takeApart(value, digits - 1); }

}  // namespace qvn
