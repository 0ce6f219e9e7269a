// The driver manager's handles, owned from the line that obtains them.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <memory>

namespace qvn::data::odbc {

template <SQLSMALLINT kType>
struct FreeHandle {
  void operator()(SQLHANDLE handle) const noexcept { SQLFreeHandle(kType, handle); }
};

using EnvironmentHandle = std::unique_ptr<void, FreeHandle<SQL_HANDLE_ENV>>;
/// Shared by who reads the rows and who may have to cancel the statement.
using StatementHandle = std::shared_ptr<void>;

/// A connection that may be open; it is closed before it is freed.
struct CloseConnection {
  void operator()(SQLHANDLE handle) const noexcept {
    SQLDisconnect(handle);
    SQLFreeHandle(SQL_HANDLE_DBC, handle);
  }
};
using ConnectionHandle = std::unique_ptr<void, CloseConnection>;

/// A new handle under `parent`; null when there is no memory for it.
inline SQLHANDLE allocate(SQLSMALLINT type, SQLHANDLE parent) noexcept {
  SQLHANDLE handle = nullptr;
  return SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle)) ? handle : nullptr;
}

/// Attributes that are numbers travel as pointers.
inline SQLPOINTER attributeValue(SQLULEN number) noexcept {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr): the interface asks for it
}

}  // namespace qvn::data::odbc
