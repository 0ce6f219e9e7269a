// Values as a record line writes and reads them.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::rowtext::internal {

/// Writes the values of one line; the regional date separator is looked up once, when the first date comes.
class ValueWriter {
 public:
  explicit ValueWriter(std::string& line) : line_(line) {}

  /// Throws RuntimeError 13 for arrays and objects, 5 for a date outside the range of dates.
  void append(const Variant& value);

 private:
  void appendDate(Date date);

  std::string& line_;
  std::string dateSeparator_;
};

/// Sets `value` to what a raw text stands for: a String, Null or a Double. Throws RuntimeError 5 for a lone quote or
/// "#".
void readValue(std::string_view raw, Variant& value);

}  // namespace qvn::rowtext::internal
