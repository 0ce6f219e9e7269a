// The shop's rows as the values of an INSERT statement, in the order of their table's columns.
#pragma once

#include <string>

#include "apps/qvn/demo/payables_data.h"
#include "apps/qvn/demo/shop_data.h"
#include "apps/qvn/demo/stock_data.h"

namespace qvn::cli::demo {

std::string values(const Party& party);
std::string values(const Document& document);
std::string values(const Movement& movement);
std::string values(const Payment& payment);
std::string values(const SupplierPayment& payment);
std::string values(const Product& product);
std::string values(const Order& order);
std::string values(const PurchaseOrder& order);
std::string values(const OrderLine& line);
std::string values(const Lot& lot);
std::string values(const LotMovement& movement);
std::string values(const Counter& counter);

}  // namespace qvn::cli::demo
