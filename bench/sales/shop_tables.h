// The tables of the shop that the stations sell in.
#pragma once

#include <cstdint>
#include <string>

#include "qvn/data/connection.h"

namespace qvn::sales {

inline constexpr std::int32_t kLinesPerOrder = 4;
inline constexpr std::int32_t kOrderedPerLine = 1'000'000;

/// How much there is to meet at: the fewer customers and products, the more stations want the same row.
struct ShopSize {
  std::int32_t customers = 200;
  std::int32_t products = 50;
  std::int32_t orders = 100;
};

std::int32_t orderOfLine(std::int32_t line);
std::int32_t productOfLine(std::int32_t line, const ShopSize& size);
std::string customerCode(std::int32_t customer);
std::string productCode(std::int32_t product);

/// Makes the tables anew.
void createShop(data::Connection& connection, const ShopSize& size);

/// The size of a shop that createShop made.
ShopSize shopSize(data::Connection& connection);

}  // namespace qvn::sales
