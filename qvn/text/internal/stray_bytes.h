// Bytes that are not UTF-8, spelled so that a search by bytes finds whole characters only.
//
// A search for well-formed text needs none of this: its first byte starts a character wherever it is found. A searched
// text that itself holds stray bytes would be found inside other characters (B1 inside the two bytes of "ñ").
#pragma once

#include <string>
#include <string_view>

namespace qvn::text::internal {

/// `text` with every byte that is not UTF-8 spelled as FF and two continuation bytes. Upper-casing leaves them alone.
std::string spellStrayBytes(std::string_view text);

/// Undoes spellStrayBytes, for a whole text or any run of its characters.
std::string restoreStrayBytes(std::string_view spelled);

}  // namespace qvn::text::internal
