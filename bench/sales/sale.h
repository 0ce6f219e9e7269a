// One sale of a station, and what the station writes down of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qvn::sales {

/// Amounts are in cents. The receivable document has two charges, and one payment that covers a part or all of them.
struct Sale {
  std::int32_t document = 0;
  std::int32_t payment = 0;
  std::int32_t customer = 0;
  std::int64_t firstCharge = 0;
  std::int64_t secondCharge = 0;
  std::int64_t received = 0;  ///< in cash; may be more than what is applied to the document
  std::int64_t applied = 0;
  std::int32_t line = 0;  ///< of the order that the goods belong to
  std::int32_t quantity = 0;
};

/// What a station was told about a sale or a number.
enum class Told : char {
  Drawn = 'D',  ///< the number of a document or payment is this station's
  Stored = 'S',
  Unknown = 'U',  ///< the answer to COMMIT was lost
  Refused = 'F',  ///< nothing of it is stored
  Error = 'E',    ///< a number was not drawn, or a connection not made
};

/// One line of a station's log.
struct Entry {
  Told told = Told::Error;
  std::string counter = {};       ///< of a drawn number
  std::int32_t number = 0;        ///< that number
  Sale sale = {};                 ///< what was stored, refused or is unknown
  std::int64_t microseconds = 0;  ///< of a stored sale, with its numbers
  std::string description = {};   ///< of an error
};

std::string toLine(const Entry& entry);

/// Nothing for a line that toLine does not write, such as one that was cut off.
std::optional<Entry> fromLine(const std::string& line);

}  // namespace qvn::sales
