// The columns that a saved recordset declares.
#pragma once

#include <string>
#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/persist/saved_file.h"

namespace qvn::data::persist {

struct SavedColumn {
  Column column;
  ColumnOrigin origin;
  std::string attribute;  ///< the name that its values stand under
  int number = 0;         ///< its position
};

/// Reads from the start of the file to the end of the schema. Throws ProviderError when there is none.
std::vector<SavedColumn> readSchema(SavedFile& file);

}  // namespace qvn::data::persist
