// The customer's receipt.
#pragma once

#include <string>

#include "qvn/lumlibreria.h"
#include "sale.h"

namespace mostrador {

/// The twelve digits of the receipt's EAN-13 symbol: "20" and the number of the sale.
std::string ticketDigits(std::int32_t sale);

/// Writes an 80 mm receipt as PDF: lines, total, the amount in words, and the sale's number as a barcode. Throws
/// qvn::RuntimeError 75 when the file cannot be written.
void printTicket(const qvn::LumLibreria& library, const ClosedSale& sale, const std::string& file);

}  // namespace mostrador
