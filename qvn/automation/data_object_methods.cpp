#include <chrono>
#include <optional>

#include "qvn/automation/method.h"
#include "qvn/automation/sections.h"

namespace qvn::automation {
namespace {

using data::Connection;
using data::ConnectionPtr;
using data::Recordset;
using data::RecordsetPtr;

ConnectionPtr newConnection() { return Connection::create(); }

// Opens the connection that was given, or a new one.
ConnectionPtr openConnection(const std::string& text, const std::string& user, const std::string& password,
                             const ConnectionPtr& closed) {
  ConnectionPtr connection = closed ? closed : Connection::create();
  if (text.empty()) {
    connection->Open();
  } else {
    connection->Open(text, user, password);
  }
  return connection;
}

RecordsetPtr execute(Connection& connection, std::string_view sql, std::int64_t& recordsAffected) {
  return connection.Execute(sql, recordsAffected);
}

bool isOpen(Connection& connection) { return connection.State() == data::ObjectState::Open; }
std::int64_t commandTimeout(Connection& connection) { return connection.CommandTimeout().count(); }
void setCommandTimeout(Connection& connection, std::int64_t seconds) {
  connection.setCommandTimeout(std::chrono::seconds(seconds));
}

Json errors(Connection& connection) { return errorItems(connection.Errors()); }

data::CursorLocation readLocation(std::int32_t number) {
  if (number == 2) return data::CursorLocation::Server;
  if (number == 3) return data::CursorLocation::Client;
  throw RuntimeError(error_number::kInvalidCall, "CursorLocation es 2 (servidor) o 3 (cliente)");
}

// The platform's numbers run from `first` on without gaps.
template <typename Setting>
Setting readSetting(std::int32_t number, Setting first, Setting last, const char* name) {
  if (number < static_cast<int>(first) || number > static_cast<int>(last)) {
    throw RuntimeError(error_number::kInvalidCall, std::string(name) + " va de " +
                                                       std::to_string(static_cast<int>(first)) + " a " +
                                                       std::to_string(static_cast<int>(last)));
  }
  return static_cast<Setting>(number);
}

RecordsetPtr openRecordset(std::string_view source, const ConnectionPtr& connection,
                           std::optional<std::int32_t> location, std::optional<std::int32_t> type,
                           std::optional<std::int32_t> lock) {
  auto rows = std::make_shared<Recordset>();
  if (location) rows->setCursorLocation(readLocation(*location));
  if (type) {
    rows->setCursorType(readSetting(*type, data::CursorType::ForwardOnly, data::CursorType::Static, "CursorType"));
  }
  if (lock) {
    rows->setLockType(readSetting(*lock, data::LockType::ReadOnly, data::LockType::BatchOptimistic, "LockType"));
  }
  rows->Open(source, connection);
  return rows;
}

bool isRecordsetOpen(Recordset& rows) { return rows.State() == data::ObjectState::Open; }
std::int32_t editMode(Recordset& rows) { return static_cast<std::int32_t>(rows.editMode()); }

data::Field& fieldAt(Recordset& rows, const Variant& nameOrPosition) {
  if (const auto* name = nameOrPosition.getIf<std::string>()) return rows.Fields(*name);
  const std::int32_t position = nameOrPosition.toLong();
  if (position < 0) throw data::ProviderError(data::provider_number::kNoSuchItem, "Las posiciones cuentan desde 0");
  return rows.Fields(static_cast<std::size_t>(position));
}

Variant value(Recordset& rows, const Variant& field) { return fieldAt(rows, field).Value(); }
void setValue(Recordset& rows, const Variant& field, const Variant& newValue) {
  fieldAt(rows, field).setValue(newValue);
}

Json fields(Recordset& rows) {
  Json all = Json::array();
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    const data::Field& field = rows.Fields(i);
    Json item = Json::object();
    item.add("Name", toJson(field.Name()));
    item.add("Type", static_cast<int>(field.Type()));
    item.add("DefinedSize", field.DefinedSize());
    item.add("Precision", field.Precision());
    item.add("NumericScale", field.NumericScale());
    all.add(std::move(item));
  }
  return all;
}

// Bytes stay bytes, also where they happen to be UTF-8.
Json fieldValue(const data::Field& field, const Session& session) {
  const auto* bytes = data::isBinary(field.Type()) ? field.Value().getIf<std::string>() : nullptr;
  return bytes == nullptr ? toJson(field.Value(), session.objects) : bytesToJson(*bytes);
}

Json row(const Session& session, Recordset& rows) {
  Json object = Json::object();
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    const data::Field& field = rows.Fields(i);
    object.add(toJson(field.Name()).text() != nullptr ? field.Name() : std::to_string(i), fieldValue(field, session));
  }
  return object;
}

// The current row and those behind it, `most` of them at most; the recordset then stands behind the last one given.
Json getRows(const Session& session, Recordset& rows, std::int32_t most) {
  Json all = Json::array();
  for (std::int32_t taken = 0; (most < 0 || taken < most) && !rows.Eof(); ++taken) {
    Json values = Json::array();
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) values.add(fieldValue(rows.Fields(i), session));
    all.add(std::move(values));
    rows.MoveNext();
  }
  return all;
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Section> dataObjectSections() {
  return {
      {"Objects: connections",
       {"qvn/data/connection.h"},
       {
           method<&newConnection>("Connection.New"),
           method<&openConnection>("Connection.Open", "ConnectionString=\"\"", "UserID=\"\"", "Password=\"\"",
                                   "this=null"),
           method<&Connection::Close>("Connection.Close", "this"),
           method<&isOpen>("Connection.IsOpen", "this"),
           method<&execute>("Connection.Execute", "this", "CommandText", "RecordsAffected=0"),
           method<&Connection::ConnectionString>("Connection.ConnectionString", "this"),
           method<&Connection::setConnectionString>("Connection.SetConnectionString", "this", "ConnectionString"),
           method<&commandTimeout>("Connection.CommandTimeout", "this"),
           method<&setCommandTimeout>("Connection.SetCommandTimeout", "this", "Seconds"),
           method<&Connection::DriverName>("Connection.DriverName", "this"),
           method<&Connection::EngineVersion>("Connection.EngineVersion", "this"),
           method<&Connection::Literal>("Connection.Literal", "this", "Value"),
           method<&errors>("Connection.Errors", "this"),
       }},
      {"Objects: recordsets",
       {"qvn/data/recordset.h"},
       {
           method<&openRecordset>("Recordset.Open", "Source", "Connection", "CursorLocation=null", "CursorType=null",
                                  "LockType=null"),
           method<&Recordset::Close>("Recordset.Close", "this"),
           method<&isRecordsetOpen>("Recordset.IsOpen", "this"),
           method<&Recordset::ActiveConnection>("Recordset.ActiveConnection", "this"),
           method<&Recordset::Source>("Recordset.Source", "this"),
           method<&Recordset::Eof>("Recordset.EOF", "this"),
           method<&Recordset::Bof>("Recordset.BOF", "this"),
           method<&Recordset::RecordCount>("Recordset.RecordCount", "this"),
           method<&Recordset::AbsolutePosition>("Recordset.AbsolutePosition", "this"),
           method<&Recordset::MoveNext>("Recordset.MoveNext", "this"),
           method<&Recordset::MovePrevious>("Recordset.MovePrevious", "this"),
           method<&Recordset::MoveFirst>("Recordset.MoveFirst", "this"),
           method<&Recordset::MoveLast>("Recordset.MoveLast", "this"),
           method<&fields>("Recordset.Fields", "this"),
           method<&value>("Recordset.Value", "this", "Field"),
           method<&row>("Recordset.Row", "this"),
           method<&getRows>("Recordset.GetRows", "this", "Rows=-1"),
           method<&setValue>("Recordset.SetValue", "this", "Field", "Value"),
           method<&editMode>("Recordset.EditMode", "this"),
           method<&Recordset::AddNew>("Recordset.AddNew", "this"),
           method<&Recordset::Update>("Recordset.Update", "this"),
           method<&Recordset::CancelUpdate>("Recordset.CancelUpdate", "this"),
           method<&Recordset::Delete>("Recordset.Delete", "this"),
           method<&Recordset::Save>("Recordset.Save", "this", "FileName"),
       }},
  };
}

}  // namespace qvn::automation
