// Pictures of symbols, drawn on a canvas of the library's own (picture_canvas.h).
//
// The four methods draw as those of odenBarcode. An invalid caption is told in `messages` and gives an empty picture.
// They throw what odenBarcode throws, and RuntimeError 429 when no adapter for pictures is linked.
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/barcode/picture.h"
#include "qvn/barcode/symbol.h"
#include "qvn/host/message_box.h"

namespace qvn::barcode {

PicturePtr Barcode128(std::int16_t zBarH, std::string_view BarText, bool HasCaption, host::MessageBox& messages);
PicturePtr Barcode3de9(std::int16_t zBarH, std::string_view BarText, bool zWithCheckSum, bool HasCaption,
                       host::MessageBox& messages);
PicturePtr BarcodeEAN13(std::int16_t zBarH, std::string_view BarText, bool HasCaption, host::MessageBox& messages);
PicturePtr BarcodeEAN8(std::int16_t zBarH, std::string_view BarText, bool HasCaption, host::MessageBox& messages);

/// Any symbol with what those four leave fixed: the module width, a widened picture, Code 128 of the whole caption.
PicturePtr symbolPicture(const Symbol& symbol, const SymbolLook& look, const PictureFit& fit,
                         host::MessageBox& messages);

}  // namespace qvn::barcode
