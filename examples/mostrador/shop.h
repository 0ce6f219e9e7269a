// The shop's database: its tables, and what the counter asks of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "money.h"
#include "qvn/lumlibreria.h"

namespace mostrador {

struct Product {
  std::string code;
  std::string name;
  Cents price = 0;
  double stock = 0;
};

/// Opens the SQLite file, and makes it with a few products when it is not there. Throws qvn::RuntimeError.
qvn::data::ConnectionPtr openShop(const qvn::LumLibreria& library, std::string_view file);

/// The product of that code; nothing when there is none.
std::optional<Product> findProduct(const qvn::LumLibreria& library, const qvn::data::ConnectionPtr& shop,
                                   std::string_view code);

/// The first products whose code or name holds the text, by name.
std::vector<Product> searchProducts(const qvn::data::ConnectionPtr& shop, std::string_view text);

}  // namespace mostrador
