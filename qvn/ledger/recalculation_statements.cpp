#include "qvn/ledger/recalculation_statements.h"

namespace qvn::ledger {
namespace {

constexpr SideTables kCustomers = {.documents = "cobranza",
                                   .movements = "cobdet",
                                   .owners = "clients",
                                   .owner = "cliente",
                                   .rounding = SumRounding::ToCents};
constexpr SideTables kSuppliers = {.documents = "cuenxpag",
                                   .movements = "cuenxpdet",
                                   .owners = "proveed",
                                   .owner = "proveedor",
                                   .rounding = SumRounding::None};

// Puts the names into a statement: {d} documents and their key, {m} movements, {o} owners, {c} code of the owner.
std::string withNames(std::string_view pattern, const SideTables& tables) {
  std::string text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '{') {
      text.push_back(pattern[i]);
      continue;
    }
    switch (pattern[i + 1]) {
      case 'd':
        text.append(tables.documents);
        break;
      case 'm':
        text.append(tables.movements);
        break;
      case 'o':
        text.append(tables.owners);
        break;
      default:
        text.append(tables.owner);
    }
    i += 2;
  }
  return text;
}

}  // namespace

const SideTables& tablesOf(LedgerSide side) { return side == LedgerSide::Customers ? kCustomers : kSuppliers; }

std::string documentsText(const SideTables& tables, const KeyRange& range, Summing summing) {
  const std::string which =
      " WHERE " + range.condition(withNames("doc.{d}", tables)) + withNames(" ORDER BY doc.{d}", tables);
  if (summing == Summing::Each) {
    return withNames(
               "SELECT doc.{d}, doc.saldo, doc.estado, "
               "(SELECT SUM(importe) FROM {m} WHERE cargo_ab = 'C' AND {m}.{d} = doc.{d}) AS cargos, "
               "(SELECT SUM(importe) FROM {m} WHERE cargo_ab = 'A' AND {m}.{d} = doc.{d}) AS abonos FROM {d} doc",
               tables) +
           which;
  }
  return withNames(
             "SELECT doc.{d}, doc.saldo, doc.estado, mov.cargos, mov.abonos FROM {d} doc LEFT JOIN (SELECT {d}, "
             "SUM(CASE WHEN cargo_ab = 'C' THEN importe END) AS cargos, "
             "SUM(CASE WHEN cargo_ab = 'A' THEN importe END) AS abonos FROM {m} WHERE ",
             tables) +
         range.condition(tables.documents) + withNames(" GROUP BY {d}) mov ON mov.{d} = doc.{d}", tables) + which;
}

std::string totalsText(const SideTables& tables, const KeyRange& range, Summing summing) {
  const std::string which = range.condition(tables.owner);
  const std::string join = withNames(" LEFT JOIN {o} own ON own.{c} = doc.{c} ORDER BY doc.{c}", tables);
  if (summing == Summing::Each) {
    return withNames(
               "SELECT doc.{c}, (SELECT SUM(saldo * tip_cam) FROM {d} WHERE {d}.{c} = doc.{c}) AS total, "
               "own.{c} AS registrado, own.saldo FROM (SELECT DISTINCT {c} FROM {d} WHERE ",
               tables) +
           which + ") doc" + join;
  }
  return withNames(
             "SELECT doc.{c}, doc.total, own.{c} AS registrado, own.saldo FROM "
             "(SELECT {c}, SUM(saldo * tip_cam) AS total FROM {d} WHERE ",
             tables) +
         which + withNames(" GROUP BY {c}) doc", tables) + join;
}

std::string nobodysText(const SideTables& tables) {
  return withNames("SELECT COUNT(*) FROM {d} WHERE {c} IS NULL", tables);
}

std::string documentUpdate(const SideTables& tables, const std::string& amount, const std::string& state,
                           const std::string& number) {
  return withNames("UPDATE {d} SET saldo = ", tables) + amount + ",estado = '" + state +
         withNames("' WHERE {d} = ", tables) + number;
}

std::string totalUpdate(const SideTables& tables, const std::string& amount, const std::string& code) {
  return withNames("UPDATE {o} SET saldo = ", tables) + amount + withNames(" WHERE {c} = ", tables) + code;
}

}  // namespace qvn::ledger
