#include "qvn/core/recordsets.h"

#include <optional>

#include "qvn/host/require.h"

namespace qvn::core {
namespace {

using data::CursorLocation;
using data::CursorType;
using data::LockType;

struct Kind {
  std::optional<CursorLocation> location;  // the connection's own when absent
  CursorType type;
  LockType lock;
};

data::RecordsetPtr open(std::string_view sql, const data::ConnectionPtr& connection, const Kind& kind) {
  auto rows = std::make_shared<data::Recordset>();
  if (kind.location) rows->setCursorLocation(*kind.location);
  rows->setCursorType(kind.type);
  rows->setLockType(kind.lock);
  rows->Open(sql, connection);
  return rows;
}

}  // namespace

data::RecordsetPtr CreaRecordSet(std::string_view strSQL, const data::ConnectionPtr& Connection, bool /*porPantalla*/) {
  return open(strSQL, Connection, {std::nullopt, CursorType::ForwardOnly, LockType::ReadOnly});
}

data::RecordsetPtr CreaRecordSetEnCliente(std::string_view strSQL, const data::ConnectionPtr& Connection) {
  return open(strSQL, Connection, {CursorLocation::Client, CursorType::Keyset, LockType::ReadOnly});
}

data::RecordsetPtr RecordWrite(std::string_view strSQL, const data::ConnectionPtr& Connection) {
  return open(strSQL, Connection, {CursorLocation::Client, CursorType::Keyset, LockType::Pessimistic});
}

data::RecordsetPtr RstRO(std::string_view strSQL, const data::ConnectionPtr& Connection, bool /*bolPantalla*/) {
  return open(strSQL, Connection, {CursorLocation::Client, CursorType::ForwardOnly, LockType::ReadOnly});
}

data::RecordsetPtr FastRst(std::string_view strSQL, const data::ConnectionPtr& Connection) {
  return host::required(Connection)->Execute(strSQL);
}

}  // namespace qvn::core
