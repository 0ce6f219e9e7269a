#include "qvn/mysqladmin/database_restore.h"

#include <algorithm>
#include <utility>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/data/provider_error.h"
#include "qvn/host/require.h"
#include "qvn/mysqladmin/dump_file.h"
#include "qvn/mysqladmin/dump_formats.h"
#include "qvn/mysqladmin/session_settings.h"

namespace qvn::mysqladmin {
namespace {

constexpr std::size_t kShownBytes = 200;
// A comment for servers of other versions is no statement to this one.
constexpr std::int32_t kEmptyQuery = 1065;
constexpr std::size_t kLongestPiece = std::size_t{4} * 1024 * 1024;
constexpr std::size_t kPacketMargin = 1024;

std::string beginning(std::string_view statement) {
  return utf8::sanitize(std::string(statement.substr(0, kShownBytes)));
}

DumpSourcePtr openDump(std::string_view path, const TransferOptions& options) {
  DumpSourcePtr file = openDumpFile(path);
  return options.hasFormats ? expandedFor(path, std::move(file)) : std::move(file);
}

// What follows the last "INSERT INTO " or "CREATE TABLE ", for people to see.
void noteTable(std::string_view statement, std::string& table) {
  for (const std::string_view start : {"INSERT INTO ", "CREATE TABLE "}) {
    if (!statement.starts_with(start)) continue;
    statement.remove_prefix(start.size());
    statement = statement.substr(0, statement.find_first_of(" ("));
    table = statement.substr(statement.starts_with('`') ? 1 : 0);
    if (table.ends_with('`')) table.pop_back();
    return;
  }
}

// The next word of letters in capitals, taken off the front.
std::string takeWord(std::string_view& statement) {
  static constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_";
  statement.remove_prefix(std::min(statement.find_first_not_of(" \t\r\n"), statement.size()));
  const std::size_t size = std::min(statement.find_first_not_of(kLetters), statement.size());
  std::string word = upperCase(statement.substr(0, size));
  statement.remove_prefix(size);
  return word;
}

bool isEmptyQuery(const data::ProviderError& error) {
  return !error.errors().empty() && error.errors().front().nativeError == kEmptyQuery;
}

// Runs the statements of `reader` until one fails.
template <typename Run>
void replay(StatementReader& reader, const DumpSource& source, const TransferObserver& observe, RestoreReport& report,
            Run run) {
  std::string statement;
  std::string table;
  try {
    while (reader.next(statement)) {
      noteTable(statement, table);
      run(statement);
      ++report.statements;
      report.bytes += static_cast<std::int64_t>(statement.size());
      report.wasInterrupted =
          observe &&
          !observe({.table = table, .bytes = report.bytes, .done = source.taken(), .total = source.length()});
      if (report.wasInterrupted) return;
      statement.clear();
    }
    report.unfinished = beginning(reader.unfinished());
  } catch (const RuntimeError& error) {
    report.failure = {reader.line(), beginning(statement), error.number(), error.description()};
  }
}

// The longest statement that the server takes, and that is worth holding.
std::size_t longestInsert(const data::ConnectionPtr& connection) {
  const auto packet =
      static_cast<std::size_t>(connection->Execute("SELECT @@max_allowed_packet")->Fields(0).Value().toLongLong());
  return std::min(kLongestPiece, packet - std::min(packet, kPacketMargin));
}

}  // namespace

RestoreReport DatabaseRestore(std::string_view strFileName, const data::ConnectionPtr& conn,
                              const TransferOptions& options) {
  RestoreReport report;
  try {
    data::Connection& connection = *host::required(conn);
    const DumpSourcePtr source = openDump(strFileName, options);
    const auto reader = readByLines(*source);
    replay(*reader, *source, options.observe, report,
           [&](const std::string& statement) { connection.Execute(statement); });
  } catch (const RuntimeError& error) {
    report.failure = {0, {}, error.number(), error.description()};
  }
  return report;
}

RestoreReport restoreByGrammar(std::string_view path, const data::ConnectionPtr& connection,
                               const GrammarRestoreOptions& options) {
  RestoreReport report;
  try {
    const DumpSourcePtr source = openDump(path, options.transfer);
    const SessionSettings settings(connection);
    const auto reader = readByGrammar(*source, longestInsert(connection));
    replay(*reader, *source, options.transfer.observe, report, [&](const std::string& statement) {
      if (options.keepsDatabase && concernsDatabase(statement)) return;
      try {
        connection->Execute(statement);
      } catch (const data::ProviderError& error) {
        if (!isEmptyQuery(error)) throw;
      }
    });
  } catch (const RuntimeError& error) {
    report.failure = {0, {}, error.number(), error.description()};
  }
  return report;
}

bool concernsDatabase(std::string_view statement) {
  if (statement.starts_with("/*!") || statement.starts_with("/*M!")) {
    statement.remove_prefix(std::min(statement.find_first_not_of("/*M!0123456789 "), statement.size()));
  }
  const std::string first = takeWord(statement);
  if (first == "USE") return true;
  if (first != "DROP" && first != "CREATE" && first != "ALTER") return false;
  std::string what = takeWord(statement);
  if (what == "OR" && takeWord(statement) == "REPLACE") what = takeWord(statement);
  return what == "DATABASE" || what == "SCHEMA";
}

}  // namespace qvn::mysqladmin
