#include "qvn/core/date_literal.h"

#include <string_view>

#include "qvn/base/format_pattern.h"
#include "qvn/base/runtime_error.h"
#include "qvn/core/dialect.h"

namespace qvn::core {
namespace {

struct Form {
  std::string_view mark;  // on both sides
  std::string_view pattern;
};

constexpr Form kIso{"'", "yyyy-MM-dd"};
constexpr Form kCompact{"'", "yyyyMMdd"};
constexpr Form kAccess{"#", "MM/dd/yyyy"};

// The order of the questions decides for a string that holds several markers.
Form formFor(const data::ConnectionPtr& connection) {
  if (!connection) return kIso;
  if (hasMarker(*connection, marker::kSqlServer)) return kCompact;
  if (hasMarker(*connection, marker::kMySql)) return kIso;
  if (hasMarker(*connection, marker::kInterBase)) return kIso;
  if (hasMarker(*connection, marker::kAccess)) return kAccess;
  return kIso;
}

}  // namespace

std::string FechaSQL(const Variant& dFecha, const data::ConnectionPtr& Connection) {
  const Form form = formFor(Connection);
  try {
    return std::string(form.mark) + formatValue(dFecha.toDate(), form.pattern) + std::string(form.mark);
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace qvn::core
