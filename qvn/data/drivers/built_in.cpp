#include "qvn/data/drivers/built_in.h"

#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/firebird/firebird_driver.h"
#include "qvn/data/drivers/mysql/mysql_driver.h"
#include "qvn/data/drivers/odbc/odbc_driver.h"
#include "qvn/data/drivers/persist/persist_driver.h"
#include "qvn/data/drivers/persist/persist_store.h"
#include "qvn/data/drivers/sqlite/sqlite_driver.h"
#include "qvn/data/recordset_store.h"

namespace qvn::data {

void registerBuiltInDrivers() {
  // Asked last, because it takes any connection string that names a driver.
  registerDriver(odbcDriver());
  registerDriver(firebirdDriver());
  registerDriver(mysqlDriver());
  registerDriver(persistDriver());
  setRecordsetStore(persistStore());
  registerDriver(sqliteDriver());
}

}  // namespace qvn::data
