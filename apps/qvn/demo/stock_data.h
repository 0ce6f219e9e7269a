// The demonstration's warehouse: products, an order to supply, a purchase order to receive, lots and counters, as they
// are before its stories change them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace qvn::cli::demo {

/// Of its ten prices the first two are in use.
struct Product {
  std::string_view code;
  std::string_view name;
  std::string_view stock;
  std::string_view toSupply;
  std::string_view toReceive;
  std::string_view price1;
  std::string_view price2;
};

/// A customer's order.
struct Order {
  std::int32_t number;
  std::string_view customer;
  std::string_view date;
};

/// An order to a supplier.
struct PurchaseOrder {
  std::int32_t number;
  std::string_view supplier;
  std::string_view date;
};

/// A line of either; nothing of it is supplied yet.
struct OrderLine {
  std::int32_t number;
  std::int32_t order;
  std::string_view product;
  std::string_view quantity;
};

struct Lot {
  std::int32_t id;
  std::string_view name;
  std::string_view product;
  std::string_view quantity;
  std::string_view goneOut;
};

/// What a stock exit moved of a lot.
struct LotMovement {
  std::int32_t id;
  std::int32_t stockExit;
  std::string_view lot;
  std::string_view quantity;
};

struct Counter {
  std::string_view name;
  std::int32_t last;
};

// Codes and names without a single quote: they stand in statements as they are.
inline constexpr auto kProducts = std::to_array<Product>({
    {"TAL-12", "Taladro percutor 1/2\"", "14", "10", "0", "1290.00", "1190.00"},
    {"DIS-45", "Disco de corte 4 1/2\"", "120", "40", "0", "38.50", "34.00"},
    {"PIN-19", "Pintura vinílica blanca 19 L", "6", "0", "24", "1845.00", "1720.00"},
    {"SIL-280", "Silicón transparente 280 ml", "52", "0", "60", "79.90", "72.00"},
});

inline constexpr auto kOrders = std::to_array<Order>({{2001, "C003", "2026-03-04"}, {2002, "C001", "2026-03-05"}});

inline constexpr auto kOrderLines = std::to_array<OrderLine>({
    {71, 2001, "TAL-12", "6"},
    {72, 2001, "DIS-45", "40"},
    {73, 2002, "TAL-12", "4"},
});

inline constexpr auto kPurchaseOrders = std::to_array<PurchaseOrder>({{3001, "P014", "2026-03-03"}});

inline constexpr auto kPurchaseLines = std::to_array<OrderLine>({
    {83, 3001, "PIN-19", "24"},
    {84, 3001, "SIL-280", "60"},
});

inline constexpr auto kLots = std::to_array<Lot>({
    {41, "L-2511", "PIN-19", "12", "5"},
    {42, "L-2602", "SIL-280", "48", "20"},
    {43, "L-2603", "SIL-280", "24", "0"},
});

inline constexpr auto kLotMovements = std::to_array<LotMovement>({
    {1, 905, "L-2511", "3"},
    {2, 905, "L-2602", "8"},
    {3, 906, "L-2603", "6"},
});

inline constexpr auto kCounters = std::to_array<Counter>({{"VENTAS", 1042}, {"PEDIDOS", 2002}});

// What the stories do with them. The first order is supplied in two steps.
struct LineStep {
  std::int32_t line;
  std::string_view product;
  double quantity;
};
inline constexpr auto kFirstSupply = std::to_array<LineStep>({{71, "TAL-12", 6}, {72, "DIS-45", 25}});
inline constexpr auto kSecondSupply = std::to_array<LineStep>({{72, "DIS-45", 15}});
inline constexpr auto kReceipt = std::to_array<LineStep>({{83, "PIN-19", 24}, {84, "SIL-280", 60}});
inline constexpr std::int32_t kSuppliedOrder = 2001;
inline constexpr std::int32_t kReceivedOrder = 3001;
inline constexpr std::int32_t kReturnedExit = 905;

struct PriceChange {
  std::string_view product;
  double price1;
  double price2;
};
inline constexpr PriceChange kPriceChange{"TAL-12", 1390.00, 1285.00};
inline constexpr std::string_view kUser = "MARIA";
inline constexpr std::int32_t kBranch = 1;

}  // namespace qvn::cli::demo
