#include "qvn/rowtext/write_record.h"

#include "qvn/base/runtime_error.h"
#include "qvn/rowtext/internal/marks.h"
#include "qvn/rowtext/internal/value_text.h"

namespace qvn::rowtext {

std::string WsRecordSet(const data::RecordsetPtr& rst) {
  if (rst == nullptr) throw RuntimeError(error_number::kObjectNotSet);
  std::string line;
  appendRecord(*rst, line);
  return line;
}

void appendRecord(data::Recordset& rows, std::string& line) {
  if (rows.Eof()) return;
  const std::size_t count = rows.FieldCount();
  constexpr std::size_t kUsualField = 24;  // bytes
  line.reserve(line.size() + count * kUsualField);
  internal::ValueWriter values(line);
  line.append(internal::kTerminator);
  for (std::size_t i = 0; i < count; ++i) {
    const data::Field& field = rows.Fields(i);
    line.append(field.Name()).append(internal::kMarker);
    values.append(field.Value());
    line.append(internal::kTerminator);
  }
}

}  // namespace qvn::rowtext
