#include "apps/qvn/document_balances.h"

#include <memory>
#include <string>
#include <vector>

#include "apps/qvn/connect.h"
#include "apps/qvn/field_text.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/recompute.h"

namespace qvn::cli {
namespace {

data::RecordsetPtr readDocument(const DocumentSide& side, std::int64_t document, const data::ConnectionPtr& connection,
                                const LumLibreria& library) {
  const std::string documents(side.documents);
  const std::string parties(side.parties);
  const std::string party(side.party);
  return library.CreaRecordSet("SELECT " + documents + "." + party + ", " + documents + ".saldo, " + documents +
                                   ".estado, " + parties + ".saldo AS saldo_total FROM " + documents + " LEFT JOIN " +
                                   parties + " ON " + parties + "." + party + " = " + documents + "." + party +
                                   " WHERE " + documents + "." + documents + " = " + std::to_string(document),
                               connection);
}

// After all of them were recomputed, since documents of one party change the same total.
void showDocuments(const DocumentSide& side, const std::vector<Recomputed>& documents,
                   const data::ConnectionPtr& connection, Context& context) {
  if (documents.empty()) return;
  TableWriter table(context.out, {std::string(side.documents), std::string(side.party), "saldo antes", "saldo",
                                  "estado", std::string(side.totalTitle)});
  for (const Recomputed& document : documents) {
    const auto rows = readDocument(side, document.number, connection, context.library);
    table.add({numberCell(std::to_string(document.number)), fieldCell(rows->Fields(side.party)), document.balanceBefore,
               amountCell(rows->Fields("saldo").Value()), fieldCell(rows->Fields("estado")),
               amountCell(rows->Fields("saldo_total").Value())});
  }
  table.end();
}

}  // namespace

ExitStatus recomputeDocuments(const DocumentSide& side, const RecomputeDocument& recompute, const Arguments& arguments,
                              Context& context) {
  const std::vector<std::int64_t> numbers = keyOperands(arguments, "un número de documento");
  const data::ConnectionPtr connection = connect(arguments, context);
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  const Recomputation recomputation{
      "el documento", side.documents, "saldo",
      [&](std::int64_t number) { return readDocument(side, number, connection, context.library); },
      [&](std::int64_t number) { recompute(number, ambiente); }};
  const std::vector<Recomputed> documents = recomputeEach(numbers, recomputation, context);
  showDocuments(side, documents, connection, context);
  return documents.size() == numbers.size() ? ExitStatus::Done : ExitStatus::Failed;
}

}  // namespace qvn::cli
