// Saving recordsets to a file as XML.
//
//   setRecordsetStore(persistStore());
//   rows.Save("clientes.xml");
#pragma once

#include <memory>

#include "qvn/data/recordset_store.h"

namespace qvn::data {

/// Writes recordsets as XML that persistDriver() reads.
std::shared_ptr<const RecordsetStore> persistStore();

}  // namespace qvn::data
