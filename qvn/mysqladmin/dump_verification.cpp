#include "qvn/mysqladmin/dump_verification.h"

#include <algorithm>
#include <map>

#include "qvn/mysqladmin/schema.h"
#include "qvn/mysqladmin/session_settings.h"

namespace qvn::mysqladmin {
namespace {

// A database of its own, in which the session is until this goes.
class ScratchDatabase {
 public:
  explicit ScratchDatabase(const data::ConnectionPtr& connection)
      : connection_(connection), name_(firstText("SELECT CONCAT('qvn_verifica_', UUID_SHORT())", connection)) {
    connection_->Execute("CREATE DATABASE " + name_);
    connection_->Execute("USE " + name_);
  }
  ~ScratchDatabase() {
    try {
      connection_->Execute("DROP DATABASE IF EXISTS " + name_);
    } catch (const RuntimeError&) {
      // The connection is gone; the next statement on it says so.
      return;
    }
  }
  ScratchDatabase(const ScratchDatabase&) = delete;
  ScratchDatabase& operator=(const ScratchDatabase&) = delete;

 private:
  const data::ConnectionPtr& connection_;
  std::string name_;
};

// Of the session's database.
std::map<std::string, TableContents> contents(const data::ConnectionPtr& connection) {
  std::map<std::string, TableContents> found;
  for (const DatabaseTable& table : readTables(connection)) {
    if (table.kind != TableKind::Table) continue;
    const std::string name = quotedName(table.name);
    TableContents& noted = found[table.name];
    noted.rows = connection->Execute("SELECT COUNT(*) FROM " + name)->Fields(0).Value().toLongLong();
    const auto checksum = connection->Execute("CHECKSUM TABLE " + name);
    if (!checksum->Fields(1).Value().isNull()) noted.checksum = checksum->Fields(1).Value().toText();
  }
  return found;
}

}  // namespace

bool VerificationReport::matches() const {
  return restore.isComplete() &&
         std::ranges::all_of(tables, [](const TableComparison& table) { return table.original == table.restored; });
}

VerificationReport verifyDump(std::string_view path, const data::ConnectionPtr& connection,
                              const TransferObserver& observe) {
  const SessionSettings settings(connection);
  const std::map<std::string, TableContents> originals = contents(connection);
  const ScratchDatabase scratch(connection);
  VerificationReport report;
  report.restore =
      restoreByGrammar(path, connection, {.transfer = {.observe = observe, .hasFormats = true}, .keepsDatabase = true});
  if (!report.restore.isComplete()) return report;
  std::map<std::string, TableComparison> compared;
  for (const auto& [name, original] : originals) compared[name] = {name, original, {}};
  for (const auto& [name, restored] : contents(connection)) {
    compared[name].table = name;
    compared[name].restored = restored;
  }
  for (auto& [name, comparison] : compared) report.tables.push_back(std::move(comparison));
  return report;
}

}  // namespace qvn::mysqladmin
