// Reading any text as a record line: it gives fields or one of three errors, and what is written from the fields reads
// back to the same line.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "qvn/base/runtime_error.h"
#include "qvn/rowtext/internal/marks.h"
#include "qvn/rowtext/internal/value_text.h"
#include "qvn/rowtext/read_record.h"

namespace {

using qvn::host::Collection;
namespace marks = qvn::rowtext::internal;

void require(bool holds) {
  if (!holds) std::abort();
}

std::shared_ptr<Collection> readOrNull(const std::string& line) {
  try {
    return qvn::rowtext::WsFields(line);
  } catch (const qvn::RuntimeError& error) {
    require(error.number() == 9 || error.number() == 457 || error.number() == 5);
    return nullptr;
  }
}

std::string written(const Collection& fields) {
  std::string line(marks::kTerminator);
  marks::ValueWriter values(line);
  for (const qvn::Variant& item : fields) {
    const auto* field = qvn::rowtext::fieldOf(item);
    require(field != nullptr);
    line.append(field->Key).append(marks::kMarker);
    values.append(field->value);
    line.append(marks::kTerminator);
  }
  return line;
}

bool isSame(const Collection& left, const Collection& right) {
  if (left.Count() != right.Count()) return false;
  for (auto l = left.begin(), r = right.begin(); l != left.end(); ++l, ++r) {
    const auto* before = qvn::rowtext::fieldOf(*l);
    const auto* after = qvn::rowtext::fieldOf(*r);
    if (before->Key != after->Key || before->value.type() != after->value.type()) return false;
    const auto* text = before->value.getIf<std::string>();
    if (text != nullptr && *text != *after->value.getIf<std::string>()) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string line(reinterpret_cast<const char*>(data), size);
  const auto fields = readOrNull(line);
  if (fields == nullptr) return 0;
  const std::string first = written(*fields);
  const auto again = readOrNull(first);
  require(again != nullptr);
  // Numbers are rounded to 15 digits when they are written, and so the second line is the one that stays.
  require(isSame(*fields, *again));
  const std::string second = written(*again);
  const auto last = readOrNull(second);
  require(last != nullptr && written(*last) == second);
  return 0;
}
