// Amounts of money in Spanish words, as they are printed on documents.
//
//   double amount = 1234.56;
//   std::string legend = "M.N.";
//   PonLetra(amount, legend, true, "PESOS") == "UN MIL DOSCIENTOS TREINTA Y CUATRO PESOS 56 /100 M.N."
#pragma once

#include <string>
#include <string_view>

namespace qvn::text {

/// The largest amount that PonLetra takes. Further up the division that takes the last digit off soon keeps too few
/// binary places to tell the digit.
inline constexpr double kLargestAmountInWords = 2.8E15;

/// The integer part of `Numero` in upper-case words without accents; with `bolDecimales` followed by the currency
/// `strMoneda` (unless blank), the cents over 100, rounded half to even, and the legend.
///
/// Five slots (millions, thousands, hundreds, tens, units) are joined by one blank each, empty ones too, and blanks are
/// never collapsed: 101 is "CIENTO  UNO". Without `bolDecimales` the text is not trimmed either: 5 is "    CINCO".
/// A negative amount has no words. What is above 999,999,999 is dropped. The groups of thousands and millions are taken
/// by division in IEEE doubles and not rounded: 1,003,000 is "UN MILLON DOS MIL", 1,001,000 is "UN MILLON".
///
/// @param Numero   becomes what is left after taking off nine digits: 0 for amounts below 1,000,000,000; of a
///                 negative amount its floor
/// @param Leyenda  becomes itself without blanks at its ends
/// @throws RuntimeError  5 when the cents round to 100 (12.999), after both were written back; 5 for infinities, NaN
///                       and amounts above kLargestAmountInWords, before anything was
std::string PonLetra(double& Numero, std::string& Leyenda, bool bolDecimales, std::string_view strMoneda = "");

}  // namespace qvn::text
