#include "bench/sales/sale.h"

#include <sstream>

namespace qvn::sales {

std::string toLine(const Entry& entry) {
  std::ostringstream line;
  line << static_cast<char>(entry.told) << ' ';
  switch (entry.told) {
    case Told::Drawn:
      line << entry.counter << ' ' << entry.number;
      break;
    case Told::Error:
      line << entry.description;
      break;
    case Told::Stored:
    case Told::Unknown:
    case Told::Refused: {
      const Sale& sale = entry.sale;
      line << sale.document << ' ' << sale.payment << ' ' << sale.customer << ' ' << sale.firstCharge << ' '
           << sale.secondCharge << ' ' << sale.received << ' ' << sale.applied << ' ' << sale.line << ' '
           << sale.quantity << ' ' << entry.microseconds << ' ' << entry.description;
      break;
    }
  }
  return line.str() + " .";
}

std::optional<Entry> fromLine(const std::string& line) {
  if (!line.ends_with(" .")) return std::nullopt;
  std::istringstream text(line.substr(0, line.size() - 2));
  Entry entry;
  char told = 0;
  text >> told;
  entry.told = static_cast<Told>(told);
  Sale& sale = entry.sale;
  switch (entry.told) {
    case Told::Drawn:
      text >> entry.counter >> entry.number;
      break;
    case Told::Error:
      break;
    case Told::Stored:
    case Told::Unknown:
    case Told::Refused:
      text >> sale.document >> sale.payment >> sale.customer >> sale.firstCharge >> sale.secondCharge >>
          sale.received >> sale.applied >> sale.line >> sale.quantity >> entry.microseconds;
      break;
    default:
      return std::nullopt;
  }
  if (!text) return std::nullopt;
  std::getline(text >> std::ws, entry.description);
  return entry;
}

}  // namespace qvn::sales
