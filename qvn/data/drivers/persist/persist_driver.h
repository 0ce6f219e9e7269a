// Recordsets that were saved to a file as XML.
//
//   registerDriver(persistDriver());
//   rows.Open("clientes.xml", "Provider=MSPersist;");
#pragma once

#include <memory>

#include "qvn/data/driver.h"

namespace qvn::data {

/// Serves connection strings whose provider is "MSPersist". The statement is the path of a saved recordset, in XML; its
/// rows can be read, not changed. Whatever is wrong with the file is kUnspecified, with the file and the line.
std::shared_ptr<const Driver> persistDriver();

}  // namespace qvn::data
