// The tables of a side, and the statements that recalculate it. They are written so that every engine takes them.
#pragma once

#include <string>
#include <string_view>

#include "qvn/ledger/document_balance.h"
#include "qvn/ledger/recalculation.h"
#include "qvn/ledger/recalculation_ranges.h"

namespace qvn::ledger {

struct SideTables {
  std::string_view documents;  ///< also the name of its key, here and in the movements
  std::string_view movements;
  std::string_view owners;
  std::string_view owner;  ///< key of the owners, and the documents' reference to it
  SumRounding rounding;
};

const SideTables& tablesOf(LedgerSide side);

/// How the engine is asked for the sums of many documents. A sum of fractions depends on the order of its rows.
enum class Summing {
  Grouped,  ///< all in one pass, which is fast even where no index helps
  Each,     ///< by the very sum that a single document is given, where grouping may take the rows in another order
};

/// Key, balance, state, charges and credits of each document of the range.
std::string documentsText(const SideTables& tables, const KeyRange& range, Summing summing);

/// For each owner that the range's documents name: code, total, its own row's code (Null when it has none), balance.
std::string totalsText(const SideTables& tables, const KeyRange& range, Summing summing);

/// How many documents name nobody.
std::string nobodysText(const SideTables& tables);

/// `amount` is written by FormatoDecimal; `number` and `code` are literals of the engine.
std::string documentUpdate(const SideTables& tables, const std::string& amount, const std::string& state,
                           const std::string& number);
std::string totalUpdate(const SideTables& tables, const std::string& amount, const std::string& code);

}  // namespace qvn::ledger
