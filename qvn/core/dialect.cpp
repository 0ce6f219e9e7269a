#include "qvn/core/dialect.h"

#include "qvn/text/search.h"

namespace qvn::core {

bool hasMarker(const data::Connection& connection, std::string_view marker) {
  return text::findIgnoringCase(marker, connection.ConnectionString()) != std::string_view::npos;
}

}  // namespace qvn::core
