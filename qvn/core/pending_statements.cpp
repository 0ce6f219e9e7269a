#include "qvn/core/pending_statements.h"

#include "qvn/host/require.h"

namespace qvn::core {
namespace {

// The runner raises its failures again when the flush is over, however it ends.
class Collecting {
 public:
  explicit Collecting(host::Query& query) : query_(query) { query_.setRecolecta(true); }
  ~Collecting() { query_.setRecolecta(false); }
  Collecting(const Collecting&) = delete;
  Collecting& operator=(const Collecting&) = delete;

 private:
  host::Query& query_;
};

const host::PendingStatement& statementOf(const Variant& item) { return host::objectIn<host::PendingStatement>(item); }

}  // namespace

void flushQueryCollection(const host::QueryPtr& Query, host::PendingStatementsHost& host) {
  host::Query& runner = *host::required(Query);
  {
    const Collecting collecting(runner);
    host.beginFlush();
    const auto pending = host::required(host.pendingStatements());
    for (std::int32_t i = 1; i <= pending->Count(); ++i) {
      host::runStatement(runner, statementOf(pending->Item(i)).Query);
      if (!runner.Fallo()) continue;
      const host::PendingStatement& failed = statementOf(pending->Item(i));
      host.reportFailure(failed.QueryName, failed.Query, runner.Fallo(), runner.Error());
    }
  }
  host.endFlush();
}

}  // namespace qvn::core
