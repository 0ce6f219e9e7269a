#include "qvn/data/recordset.h"

#include "qvn/base/letter_case.h"
#include "qvn/data/connection.h"
#include "qvn/data/internal/opened_recordset.h"
#include "qvn/data/provider_error.h"

namespace qvn::data {

Recordset::Recordset() = default;

Recordset::~Recordset() { Close(); }

void Recordset::requireClosed() const {
  if (opened_) throw ProviderError(provider_number::kObjectOpen, "El conjunto de registros ya está abierto");
}

void Recordset::setCursorLocation(CursorLocation location) {
  requireClosed();
  location_ = location;
}

void Recordset::setCursorType(CursorType type) {
  requireClosed();
  type_ = type;
}

void Recordset::setLockType(LockType type) {
  requireClosed();
  lock_ = type;
}

CursorLocation Recordset::cursorLocation() const { return location_.value_or(CursorLocation::Server); }
CursorType Recordset::cursorType() const { return type_; }
LockType Recordset::lockType() const { return lock_; }

void Recordset::Open(std::string_view source, const ConnectionPtr& connection) {
  requireClosed();
  if (!connection) throw RuntimeError(error_number::kObjectNotSet);
  if (!location_) location_ = connection->cursorLocation();
  source_ = source;
  StatementResult result = connection->run(source);
  if (result.cursor) adopt(connection, std::move(result.cursor));
}

void Recordset::Open(std::string_view source, std::string_view connectionString) {
  requireClosed();
  const ConnectionPtr own = Connection::create();
  own->Open(std::string(connectionString));
  Open(source, own);
}

void Recordset::adopt(const ConnectionPtr& connection, std::unique_ptr<Cursor> cursor) {
  auto opened = std::make_unique<Opened>();
  opened->connection = connection;
  opened->cursor = std::move(cursor);
  const bool streams = cursorLocation() == CursorLocation::Server && type_ == CursorType::ForwardOnly;
  connection->keepingErrors([&] {
    // Held rows may outlive what the engine knows of their origin.
    if (!streams && lock_ != LockType::ReadOnly) opened->origins = opened->cursor->origins();
    opened->rows = streams ? internal::streamRows(*opened->cursor) : internal::holdRows(*opened->cursor);
  });
  const std::vector<Column>& columns = opened->cursor->columns();
  opened->fields.reserve(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) opened->fields.push_back(Field(*this, i, columns[i]));
  connection->attach(*this);
  opened_ = std::move(opened);
}

void Recordset::Close() noexcept {
  if (!opened_) return;
  opened_->connection->detach(*this);
  opened_.reset();
}

ObjectState Recordset::State() const noexcept { return opened_ ? ObjectState::Open : ObjectState::Closed; }

void Recordset::refuseClosed() {
  throw ProviderError(provider_number::kObjectClosed, "La operación no está permitida si el objeto está cerrado");
}

ConnectionPtr Recordset::ActiveConnection() const { return opened_ ? opened_->connection : nullptr; }
const std::string& Recordset::Source() const { return source_; }

bool Recordset::Eof() const { return opened().rows->isAfterLast(); }
bool Recordset::Bof() const { return opened().rows->isBeforeFirst(); }
std::int64_t Recordset::RecordCount() const { return opened().rows->count(); }
std::int64_t Recordset::AbsolutePosition() const { return opened().rows->position(); }

void Recordset::requireRow() const {
  if (opened().rows->hasRow() || opened_->mode == EditMode::Add) return;
  throw ProviderError(provider_number::kNoCurrentRecord,
                      "No hay un registro actual: el conjunto está vacío, terminó o el registro se borró");
}

template <typename Step>
void Recordset::move(Step step) {
  Opened& open = opened();
  if (open.mode != EditMode::None) Update();
  open.connection->keepingErrors([&] { step(*open.rows); });
}

void Recordset::MoveNext() {
  move([this](internal::RowSource& rows) {
    if (rows.isAfterLast()) requireRow();
    rows.next();
  });
}

void Recordset::MovePrevious() {
  move([this](internal::RowSource& rows) {
    if (rows.isBeforeFirst()) requireRow();
    rows.previous();
  });
}

void Recordset::MoveFirst() {
  move([this](internal::RowSource& rows) {
    if (rows.count() == 0) requireRow();
    rows.first();
  });
}

void Recordset::MoveLast() {
  move([this](internal::RowSource& rows) {
    if (rows.count() == 0) requireRow();
    rows.last();
  });
}

std::size_t Recordset::FieldCount() const { return opened().fields.size(); }

Field& Recordset::Fields(std::size_t index) {
  Opened& open = opened();
  if (index < open.fields.size()) return open.fields[index];
  throw ProviderError(provider_number::kNoSuchItem, "No existe un campo en esa posición");
}

Field& Recordset::Fields(std::string_view name) {
  for (Field& field : opened().fields) {
    if (equalIgnoringCase(field.Name(), name)) return field;
  }
  throw ProviderError(provider_number::kNoSuchItem, "No existe el campo «" + std::string(name) + "»");
}

const Variant& Recordset::valueOf(std::size_t index) const {
  Opened& open = opened();
  if (open.mode == EditMode::None) [[likely]] {
    if (const Variant* value = open.rows->value(index)) return *value;
  } else if (open.edits[index]) {
    return *open.edits[index];
  }
  requireRow();
  static const Variant kEmpty;
  return open.mode == EditMode::Add ? kEmpty : *open.rows->value(index);
}

void Recordset::requireWritable() {
  Opened& open = opened();
  if (lock_ == LockType::ReadOnly) {
    throw ProviderError(provider_number::kNotSupported,
                        "El conjunto de registros es de sólo lectura; la operación no está permitida");
  }
  if (open.origins.empty()) open.origins = open.cursor->origins();
}

void Recordset::setValueOf(std::size_t index, Variant value) {
  requireWritable();
  requireRow();
  Opened& open = opened();
  if (open.origins[index].column.empty()) {
    throw ProviderError(provider_number::kNotSupported,
                        "El campo «" + open.fields[index].Name() + "» es una expresión y no se puede cambiar");
  }
  if (open.mode == EditMode::None) {
    open.edits.assign(open.fields.size(), std::nullopt);
    open.mode = EditMode::InProgress;
  }
  open.edits[index] = std::move(value);
}

void Field::setValue(Variant value) { owner_->setValueOf(index_, std::move(value)); }

}  // namespace qvn::data
