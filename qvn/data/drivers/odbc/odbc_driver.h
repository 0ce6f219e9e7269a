// Engines that are reached through the driver manager's ODBC drivers.
//
//   Provider=SQLNCLI10;Server=servidor,1433;Database=tienda;Uid=pos;Pwd=...     SQL Server, through the FreeTDS driver
//   Provider=Microsoft.Jet.OLEDB.4.0;Data Source=tienda.mdb                     Access files, through that of MDB Tools
//   Driver=MariaDB Unicode;SERVER=caja1;DATABASE=tienda;UID=pos;PWD=...         any other driver
//   DSN=Tienda;UID=pos;PWD=...                                                  a data source of this machine
#pragma once

#include <memory>

#include "qvn/data/driver.h"

namespace qvn::data {

/// Access files are read-only: any other statement than a SELECT ends with kNotSupported, and a password of the file is
/// compared with the connection's property "Jet OLEDB:Database Password".
std::shared_ptr<const Driver> odbcDriver();

}  // namespace qvn::data
