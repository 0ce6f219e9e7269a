#include "qvn/data/connection.h"

#include "qvn/data/driver_registry.h"

namespace qvn::data {

ConnectionPtr Connection::create() { return ConnectionPtr(new Connection()); }

Connection::~Connection() { Close(); }

void Connection::setConnectionString(std::string text) {
  if (session_) throw ProviderError(provider_number::kObjectOpen, "La conexión ya está abierta");
  connectionString_ = std::move(text);
}

void Connection::setCommandTimeout(std::chrono::seconds timeout) {
  if (timeout < std::chrono::seconds::zero()) throw RuntimeError(error_number::kInvalidCall);
  if (session_) session_->setCommandTimeout(timeout);
  commandTimeout_ = timeout;
}

void Connection::Open() { Open(connectionString_); }

void Connection::Open(std::string connectionString, const std::string& user, const std::string& password) {
  setConnectionString(std::move(connectionString));
  const data::ConnectionString parameters(connectionString_);
  const std::shared_ptr<const Driver> driver = keepingErrors([&] { return findDriver(parameters); });
  session_ = keepingErrors([&] {
    ConnectRequest request{parameters, user, password, properties_};
    request.commandTimeout = commandTimeout_;
    return driver->connect(request);
  });
  driverName_ = driver->name();
}

std::string Connection::EngineVersion() {
  Session& open = session();
  return keepingErrors([&] { return open.engineVersion(); });
}

std::string Connection::Literal(const Variant& value) const {
  FieldType type = FieldType::VarWChar;
  if (const auto* date = value.getIf<Date>()) type = date->hasTime() ? FieldType::DbTimeStamp : FieldType::Date;
  if (value.type() == VariantType::Double) type = FieldType::Double;
  return session().literal(value, type);
}

Session& Connection::session() const {
  if (!session_) {
    throw ProviderError(provider_number::kObjectClosed, "La conexión está cerrada; ábrala antes de usarla");
  }
  return *session_;
}

StatementResult Connection::run(std::string_view sql) {
  Session& open = session();
  if (observer_) observer_(sql);
  return keepingErrors([&] { return open.execute(sql); });
}

RecordsetPtr Connection::Execute(std::string_view sql) {
  std::int64_t ignored = 0;
  return Execute(sql, ignored);
}

RecordsetPtr Connection::Execute(std::string_view sql, std::int64_t& recordsAffected) {
  auto rows = std::make_shared<Recordset>();
  // The rows stream even where the connection asks for cursors on the client side.
  rows->setCursorLocation(CursorLocation::Server);
  StatementResult result = run(sql);
  recordsAffected = result.affectedRows;
  if (result.cursor) rows->adopt(shared_from_this(), std::move(result.cursor));
  return rows;
}

void Connection::Close() noexcept {
  while (firstOpen_ != nullptr) firstOpen_->Close();
  session_.reset();
}

void Connection::attach(Recordset& recordset) noexcept {
  recordset.nextOpen_ = firstOpen_;
  recordset.linkToThis_ = &firstOpen_;
  if (firstOpen_ != nullptr) firstOpen_->linkToThis_ = &recordset.nextOpen_;
  firstOpen_ = &recordset;
}

void Connection::detach(Recordset& recordset) noexcept {
  *recordset.linkToThis_ = recordset.nextOpen_;
  if (recordset.nextOpen_ != nullptr) recordset.nextOpen_->linkToThis_ = recordset.linkToThis_;
}

}  // namespace qvn::data
