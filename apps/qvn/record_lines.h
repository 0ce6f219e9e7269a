// Record lines from a stream, as rows.
#pragma once

#include <functional>
#include <istream>
#include <memory>
#include <string>

#include "qvn/data/recordset.h"

namespace qvn::cli {

/// Takes what is wrong with a record, and the number of its first line.
using RecordComplaint = std::function<void(std::int64_t line, const std::string& complaint)>;

/// A forward-only recordset over the record lines of `in`, read as its rows are. Its fields are those of the first
/// record that reads; a later record without one of them has Null there. A text may hold line ends: a record goes on
/// until a line that ends in the terminator. A record that does not read, or that has other fields, is reported and
/// left out. Null when there is no record that reads.
data::RecordsetPtr recordLines(std::istream& in, RecordComplaint complain);

}  // namespace qvn::cli
