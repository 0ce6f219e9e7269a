// What a recordset has only while it is open.
#pragma once

#include <memory>
#include <vector>

#include "qvn/data/connection.h"
#include "qvn/data/internal/edit_statement.h"
#include "qvn/data/internal/row_source.h"

namespace qvn::data {

struct Recordset::Opened {
  ConnectionPtr connection;  // before the cursor, so that it goes after it
  std::unique_ptr<Cursor> cursor;
  std::unique_ptr<internal::RowSource> rows;
  std::vector<Field> fields;
  std::vector<ColumnOrigin> origins;  // known once an edit began
  internal::Edits edits;              // by field, while `mode` is not None
  EditMode mode = EditMode::None;
};

// Every access to a row comes through here.
inline Recordset::Opened& Recordset::opened() const {
  if (!opened_) [[unlikely]]
    refuseClosed();
  return *opened_;
}

}  // namespace qvn::data
