// Where recordsets are saved.
#pragma once

#include <filesystem>
#include <memory>

#include "qvn/data/driver.h"

namespace qvn::data {

/// Rows to be saved, with their columns; reading goes on where the recordset gives them.
class RecordsetStore {
 public:
  virtual ~RecordsetStore() = default;
  /// Writes all rows of `rows`, which stands before the first of them, to a new file. No file of that name is there
  /// before, and none afterwards when something fails. Throws RuntimeError 58 when the file exists, 13 for a value that
  /// the file's form cannot hold, and what the system refuses by its number.
  virtual void save(Cursor& rows, const std::filesystem::path& file) const = 0;
};

/// Sets what Recordset::Save writes with; null takes it away.
void setRecordsetStore(std::shared_ptr<const RecordsetStore> store);

/// Throws ProviderError kNotSupported when there is none.
std::shared_ptr<const RecordsetStore> recordsetStore();

}  // namespace qvn::data
