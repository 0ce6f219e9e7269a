#include "qvn/data/internal/opened_recordset.h"
#include "qvn/data/provider_error.h"

namespace qvn::data {
namespace {

void requireChanged(std::int64_t rows) {
  if (rows > 0) return;
  throw ProviderError(provider_number::kRowChanged,
                      "El registro no se guardó porque otro usuario lo cambió o lo borró después de leerlo");
}

std::int64_t insertedNumberOf(const StatementResult& result) {
  if (!result.cursor || !result.cursor->next()) return result.insertedNumber;
  Variant number;
  result.cursor->read(0, number);
  return number.isNull() ? 0 : number.toLongLong();
}

// Hosts know a row that another user holds by its number and native error, whatever the engine says of it.
ProviderError forHeldRow(const ProviderError& error) {
  if (error.errors().empty() || !error.errors().front().isLockConflict) return error;
  std::vector<ErrorItem> items = error.errors();
  ErrorItem& first = items.front();
  first.description.append(" (error ").append(std::to_string(first.nativeError)).append(" del motor)");
  first.number = provider_number::kUnspecified;
  first.nativeError = kRowHeldNativeError;
  return ProviderError(std::move(items));
}

}  // namespace

EditMode Recordset::editMode() const { return opened().mode; }

void Recordset::AddNew() {
  requireWritable();
  Opened& open = opened();
  if (open.mode != EditMode::None) Update();
  open.edits.assign(open.fields.size(), std::nullopt);
  open.mode = EditMode::Add;
}

void Recordset::CancelUpdate() { opened().mode = EditMode::None; }

void Recordset::Update() {
  requireWritable();
  switch (opened().mode) {
    case EditMode::None:
      break;
    case EditMode::InProgress:
      changeRow();
      break;
    case EditMode::Add:
      insertRow();
      break;
  }
}

std::int64_t Recordset::write(const std::string& sql, std::int64_t* insertedNumber) {
  Connection& connection = *opened().connection;
  const StatementResult result = connection.keepingErrors([&] {
    try {
      return connection.run(sql);
    } catch (const ProviderError& error) {
      throw forHeldRow(error);
    }
  });
  if (insertedNumber != nullptr) *insertedNumber = insertedNumberOf(result);
  return result.affectedRows;
}

void Recordset::changeRow() {
  Opened& open = opened();
  const internal::EditContext context{open.connection->session(), open.cursor->columns(), open.origins};
  requireChanged(write(internal::updateStatement(
      context, open.edits, [&](std::size_t i) -> const Variant& { return *open.rows->value(i); })));
  for (std::size_t i = 0; i < open.edits.size(); ++i) {
    if (open.edits[i]) open.rows->assign(i, *std::move(open.edits[i]));
  }
  open.mode = EditMode::None;
}

void Recordset::insertRow() {
  Opened& open = opened();
  const internal::EditContext context{open.connection->session(), open.cursor->columns(), open.origins};
  std::int64_t number = 0;
  write(internal::insertStatement(context, open.edits), &number);
  std::vector<Variant> row(open.edits.size(), Variant(Null{}));
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (open.edits[i]) {
      row[i] = *std::move(open.edits[i]);
    } else if (open.origins[i].isAutoNumber && number != 0) {
      row[i] = number;
    }
  }
  open.mode = EditMode::None;
  open.rows->append(std::move(row));
}

void Recordset::Delete() {
  requireWritable();
  Opened& open = opened();
  if (open.mode == EditMode::Add) {
    CancelUpdate();
    return;
  }
  requireRow();
  const internal::EditContext context{open.connection->session(), open.cursor->columns(), open.origins};
  requireChanged(
      write(internal::deleteStatement(context, [&](std::size_t i) -> const Variant& { return *open.rows->value(i); })));
  open.mode = EditMode::None;
  open.rows->removeCurrent();
}

}  // namespace qvn::data
