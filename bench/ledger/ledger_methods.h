// The methods of the ledger and of the counters that issue statements, each as one call of a measured round.
#pragma once

#include <span>

#include "bench/ledger/ledger_shops.h"
#include "qvn/lumlibreria.h"

namespace qvn::bench {

/// What the methods are called with.
struct Station {
  explicit Station(data::ConnectionPtr opened);
  LumLibreria library;
  data::ConnectionPtr connection;
  host::AmbientePtr ambiente;
  host::QueryPtr query;  ///< provided by the first method that asks for one, then kept, as screens do
};

struct LedgerMethod {
  const char* name;
  const Shop& (*shop)();
  void (*call)(Station& station, int number);  ///< numbers 0 to kCalls - 1
  bool alwaysFails = false;  ///< its last statement is read and then refused: the peer raises an error as well
};

std::span<const LedgerMethod> ledgerMethods();

}  // namespace qvn::bench
