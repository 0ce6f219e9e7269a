#include "qvn/data/drivers/firebird/firebird_statement.h"

#include <cstring>
#include <utility>

#include "qvn/data/drivers/firebird/firebird_blob.h"
#include "qvn/data/drivers/firebird/firebird_cursor.h"
#include "qvn/data/drivers/firebird/firebird_error.h"

namespace qvn::data::firebird {
namespace {

constexpr unsigned kPrefetched = Firebird::IStatement::PREPARE_PREFETCH_METADATA;
constexpr int kTextBlob = 1;
constexpr int kBytesBlob = 0;

}  // namespace

PreparedStatement::PreparedStatement(FirebirdLink& link, std::shared_ptr<Transaction> transaction, StatementText text)
    : link_(link), transaction_(std::move(transaction)), text_(std::move(text)) {
  const std::string_view sql = text_.sql();
  handle_.reset(link_.attachment().prepare(link_.status(), transaction_->handle(), static_cast<unsigned>(sql.size()),
                                           sql.data(), SQL_DIALECT_V6, kPrefetched));
  link_.check();
  type_ = handle_->getType(link_.status());
  link_.check();
}

StatementResult PreparedStatement::run() {
  auto* const status = link_.status();
  Parameters in = parameters();
  MetadataHandle out(handle_->getOutputMetadata(status));
  link_.check();
  StatementResult result;
  if ((handle_->getFlags(status) & Firebird::IStatement::FLAG_HAS_CURSOR) != 0) {
    ResultSetHandle rows(
        handle_->openCursor(status, transaction_->handle(), in.metadata.get(), in.message.data(), out.get(), 0));
    link_.check();
    result.cursor = std::make_unique<FirebirdCursor>(
        link_, StatementRows{std::move(transaction_), std::move(handle_), std::move(out)}, std::move(rows));
    return result;
  }
  std::vector<unsigned char> row(out->getMessageLength(status));
  const bool hasRow = out->getCount(status) > 0;
  handle_->execute(status, transaction_->handle(), in.metadata.get(), in.message.data(), hasRow ? out.get() : nullptr,
                   hasRow ? row.data() : nullptr);
  link_.check();
  result.affectedRows = affectedRows();
  if (hasRow) {
    result.cursor = std::make_unique<FirebirdCursor>(
        link_, StatementRows{std::move(transaction_), std::move(handle_), std::move(out)}, std::move(row));
  }
  return result;
}

PreparedStatement::Parameters PreparedStatement::parameters() {
  auto* const status = link_.status();
  const MetadataHandle expected(handle_->getInputMetadata(status));
  link_.check();
  const auto count = static_cast<unsigned>(text_.literals.size());
  if (expected->getCount(status) != count) {
    throw ownError(provider_number::kStatementRefused, "07002",
                   "La sentencia lleva parámetros (?) y aquí no hay valores para ellos");
  }
  if (count == 0) return {};
  const MetadataBuilderHandle builder(clientLibrary().getMetadataBuilder(status, count));
  link_.check();
  for (unsigned i = 0; i < count; ++i) {
    builder->setType(status, i, SQL_BLOB);
    builder->setSubType(status, i, text_.literals[i].isText ? kTextBlob : kBytesBlob);
    builder->setLength(status, i, sizeof(ISC_QUAD));
  }
  Parameters result;
  result.metadata.reset(builder->getMetadata(status));
  link_.check();
  result.message.resize(result.metadata->getMessageLength(status));
  for (unsigned i = 0; i < count; ++i) {
    const LongLiteral& literal = text_.literals[i];
    const ISC_QUAD id = writeBlob(link_, *transaction_, literal.bytes, literal.isText ? kTextBlob : kBytesBlob);
    std::memcpy(result.message.data() + result.metadata->getOffset(status, i), &id, sizeof(id));
  }
  return result;
}

std::int64_t PreparedStatement::affectedRows() {
  switch (type_) {
    case isc_info_sql_stmt_insert:
    case isc_info_sql_stmt_update:
    case isc_info_sql_stmt_delete:
    case isc_info_sql_stmt_exec_procedure:
      break;
    default:
      return 0;
  }
  const auto rows = static_cast<std::int64_t>(handle_->getAffectedRecords(link_.status()));
  link_.check();
  return rows;
}

std::unique_ptr<Cursor> query(FirebirdLink& link, std::string_view sql) {
  const auto transaction = std::make_shared<Transaction>(link, std::chrono::seconds::zero());
  std::unique_ptr<Cursor> rows = PreparedStatement(link, transaction, {sql, {}, {}}).run().cursor;
  transaction->leaveToCursors();
  return rows;
}

}  // namespace qvn::data::firebird
