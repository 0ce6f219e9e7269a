// What the demonstration's shop owes its suppliers, before the payment that the demonstration makes.
#pragma once

#include "apps/qvn/demo/shop_data.h"

namespace qvn::cli::demo {

struct SupplierPayment : Payment {};

// Names without a single quote: they stand in statements as they are.
inline constexpr auto kSuppliers = std::to_array<Party>({
    {"P014", "Pinturas Zúñiga", "Hermosillo"},
    {"P020", "Tool Import Co.", "Laredo"},
});

inline constexpr auto kPayableDocuments = std::to_array<Document>({
    {4001, "P014", "2026-03-03", "MXN", "1"},
    {4002, "P014", "2026-03-06", "MXN", "1"},
    {4003, "P020", "2026-03-06", "USD", "17.05"},
});

inline constexpr auto kPayableMovements = std::to_array<Movement>({
    {51, 4001, "2026-03-03", Charge, "Factura", "20000.00", 0},
    {52, 4001, "2026-03-03", Charge, "Flete", "580.00", 0},
    {53, 4002, "2026-03-06", Charge, "Factura", "7250.40", 0},
    {54, 4002, "2026-03-09", Credit, "Devolución", "250.40", 0},
    {55, 4003, "2026-03-06", Charge, "Factura", "500.00", 0},
});

// 20,580.00 settle document 4001, 3,000.00 go to document 4002, the rest waits.
inline constexpr SupplierPayment kSupplierPayment{{701, "P014", "2026-03-12", "MXN", "25000.00"}};
inline constexpr auto kSupplierPaymentMovements = std::to_array<Movement>({
    {56, 4001, "2026-03-12", Credit, "Pago", "20580.00", 701},
    {57, 4002, "2026-03-12", Credit, "Pago", "3000.00", 701},
});

}  // namespace qvn::cli::demo
