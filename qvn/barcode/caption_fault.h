// Why a caption cannot be drawn, as the person is told.
#pragma once

#include <string_view>

namespace qvn::barcode {

struct CaptionFault {
  std::string_view message;
  std::string_view title;
};

}  // namespace qvn::barcode
