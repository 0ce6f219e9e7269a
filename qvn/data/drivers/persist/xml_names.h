// Namespaces of a saved recordset; the prefixes are those that it is written with.
#pragma once

#include <string_view>

namespace qvn::data::persist {

inline constexpr std::string_view kSchemaUri = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
inline constexpr std::string_view kDataTypeUri = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882";
inline constexpr std::string_view kRowsetUri = "urn:schemas-microsoft-com:rowset";
inline constexpr std::string_view kRowUri = "#RowsetSchema";

}  // namespace qvn::data::persist
