// The demonstration's shop before the payment that the demonstration is about. Balances are not here: the library
// computes them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace qvn::cli::demo {

/// A customer or a supplier.
struct Party {
  std::string_view code;
  std::string_view name;
  std::string_view city;
};

/// A receivable or payable document; amounts of its movements are in its own currency.
struct Document {
  std::int32_t number;
  std::string_view party;
  std::string_view date;
  std::string_view currency;
  std::string_view exchangeRate;  ///< to base currency
};

/// A customer's payment, or one to a supplier.
struct Payment {
  std::int32_t number;
  std::string_view party;
  std::string_view date;
  std::string_view currency;
  std::string_view amount;
};

enum class MovementKind : char { Charge = 'C', Credit = 'A' };

struct Movement {
  std::int32_t number;
  std::int32_t document;
  std::string_view date;
  MovementKind kind;
  std::string_view reason;
  std::string_view amount;
  std::int32_t payment;  ///< the payment that produced it, 0 for none
};

using enum MovementKind;

// Names without a single quote: they stand in statements as they are.
inline constexpr auto kCustomers = std::to_array<Party>({
    {"C001", "Abarrotes La Ñusta", "Mérida"},
    {"C002", "Papelería Ibáñez", "León"},
    {"C003", "Ferretería Muñoz e Hijos", "Culiacán"},
    {"C004", "Refacciones Güemes", "Mazatlán"},
    {"C005", "Farmacia San José", "Tepic"},
    {"C006", "Fonda El Rincón", "Querétaro"},
});

inline constexpr auto kDocuments = std::to_array<Document>({
    {1001, "C001", "2026-01-12", "MXN", "1"},
    {1002, "C002", "2026-01-15", "MXN", "1"},
    {1003, "C003", "2026-01-19", "MXN", "1"},
    {1004, "C004", "2026-01-22", "USD", "17.05"},
    {1005, "C005", "2026-01-27", "MXN", "1"},
    {1006, "C001", "2026-02-03", "MXN", "1"},
    {1007, "C003", "2026-02-09", "MXN", "1"},
    {1008, "C006", "2026-02-11", "MXN", "1"},
    {1009, "C003", "2026-02-16", "USD", "17.05"},
    {1010, "C002", "2026-02-18", "USD", "16.9"},
    {1011, "C005", "2026-02-24", "MXN", "1"},
    {1012, "C004", "2026-02-27", "MXN", "1"},
});

inline constexpr auto kPayments = std::to_array<Payment>({
    {501, "C001", "2026-01-30", "MXN", "3480.00"},
    {502, "C003", "2026-02-06", "MXN", "1000.00"},
    {503, "C002", "2026-02-13", "MXN", "2500.00"},
    {504, "C005", "2026-02-25", "MXN", "9280.00"},
    {505, "C004", "2026-02-26", "USD", "300.00"},
});

inline constexpr auto kMovements = std::to_array<Movement>({
    {1, 1001, "2026-01-12", Charge, "Factura", "3480.00", 0},
    {2, 1002, "2026-01-15", Charge, "Factura", "4350.00", 0},
    {3, 1003, "2026-01-19", Charge, "Factura", "6743.10", 0},
    {4, 1003, "2026-01-19", Charge, "Flete", "512.20", 0},
    {5, 1004, "2026-01-22", Charge, "Factura", "820.00", 0},
    {6, 1005, "2026-01-27", Charge, "Factura", "5220.00", 0},
    {7, 1001, "2026-01-30", Credit, "Pago", "3480.00", 501},
    {8, 1006, "2026-02-03", Charge, "Factura", "1276.00", 0},
    {9, 1006, "2026-02-05", Credit, "Devolución", "76.00", 0},
    {10, 1003, "2026-02-06", Credit, "Pago", "1000.00", 502},
    {11, 1007, "2026-02-09", Charge, "Factura", "5104.00", 0},
    {12, 1007, "2026-02-09", Charge, "Flete", "116.00", 0},
    {13, 1008, "2026-02-11", Charge, "Factura", "2958.45", 0},
    {14, 1008, "2026-02-12", Credit, "Bonificación", "458.45", 0},
    {15, 1002, "2026-02-13", Credit, "Pago", "1850.00", 503},
    {16, 1009, "2026-02-16", Charge, "Factura", "450.00", 0},
    {17, 1010, "2026-02-18", Charge, "Factura", "1250.75", 0},
    {18, 1010, "2026-02-20", Credit, "Devolución", "250.75", 0},
    {19, 1011, "2026-02-24", Charge, "Factura", "8120.00", 0},
    {20, 1011, "2026-02-24", Charge, "Instalación", "243.60", 0},
    {21, 1005, "2026-02-25", Credit, "Pago", "5220.00", 504},
    {22, 1011, "2026-02-25", Credit, "Pago", "4060.00", 504},
    {23, 1004, "2026-02-26", Credit, "Pago", "300.00", 505},
    {24, 1012, "2026-02-27", Charge, "Factura", "7656.00", 0},
    {25, 1012, "2026-02-27", Charge, "Flete", "348.00", 0},
});

// The payment that the demonstration saves: 6,255.30 settle document 1003, 2,000.00 go to document 1007, the rest
// waits.
inline constexpr Payment kNewPayment{506, "C003", "2026-03-02", "MXN", "10000.00"};
inline constexpr auto kNewMovements = std::to_array<Movement>({
    {26, 1003, "2026-03-02", Credit, "Pago", "6255.30", 506},
    {27, 1007, "2026-03-02", Credit, "Pago", "2000.00", 506},
});

}  // namespace qvn::cli::demo
