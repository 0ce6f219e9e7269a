// A recordset's current row as one line of text, for a program at the other end of a socket.
//
//   rowtext::WsRecordSet(rows) == "¨articulo[&&,]\"TORNILLO\"¨precio[&&,]1234.5¨"
#pragma once

#include <string>

#include "qvn/data/recordset.h"

namespace qvn::rowtext {

/// The record line of the current row, "" at the end of the recordset, which is not moved. docs/record_lines.md
/// describes the format. A name or text that holds "[&&,]" or "¨" makes a line that does not read back.
///
/// @throws RuntimeError   91 for no recordset, 13 for a value without text (arrays, objects), 5 for a date outside the
///                        range of dates
/// @throws ProviderError  as Recordset::Eof and Field::Value
std::string WsRecordSet(const data::RecordsetPtr& rst);

/// The same at the end of `line`, whose memory a loop over rows uses again. After a failure the line holds the fields
/// before the one that failed.
void appendRecord(data::Recordset& rows, std::string& line);

}  // namespace qvn::rowtext
