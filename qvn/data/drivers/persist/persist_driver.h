// Recordsets that were saved to a file as XML, and saving them.
//
//   registerDriver(persistDriver());  setRecordsetStore(persistStore());
//   rows.Save("clientes.xml");  again.Open("clientes.xml", "Provider=MSPersist;");
#pragma once

#include <memory>

#include "qvn/data/driver.h"
#include "qvn/data/recordset_store.h"

namespace qvn::data {

/// Serves connection strings whose provider is "MSPersist". The statement is the path of a saved recordset, in XML; its
/// rows can be read, not changed. Whatever is wrong with the file is kUnspecified, with the file and the line.
std::shared_ptr<const Driver> persistDriver();

/// Writes recordsets as XML that persistDriver() reads.
std::shared_ptr<const RecordsetStore> persistStore();

}  // namespace qvn::data
