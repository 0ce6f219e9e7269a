// Writing a picture's file whole or not at all.
#pragma once

#include <string_view>

namespace qvn::barcode {

/// Puts a file of these bytes at `path`, as hosts give it, in place of one that is there; a failure leaves that one as
/// it was.
///
/// @throws RuntimeError  52, 57, 61, 70 or 76 as the system's refusal is called
void writePictureFile(std::string_view path, std::string_view bytes);

}  // namespace qvn::barcode
