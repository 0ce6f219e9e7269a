#include "qvn/barcode/library_pictures.h"

#include <string>

#include "qvn/barcode/picture_canvas.h"

namespace qvn::barcode {

PicturePtr Barcode128(std::int16_t zBarH, std::string_view BarText, bool HasCaption, host::MessageBox& messages) {
  return symbolPicture({.symbology = Symbology::Code128, .caption = std::string(BarText)}, {zBarH, HasCaption}, {},
                       messages);
}

PicturePtr Barcode3de9(std::int16_t zBarH, std::string_view BarText, bool zWithCheckSum, bool HasCaption,
                       host::MessageBox& messages) {
  return symbolPicture(
      {.symbology = Symbology::Code39, .caption = std::string(BarText), .hasCheckCharacter = zWithCheckSum},
      {zBarH, HasCaption}, {}, messages);
}

PicturePtr BarcodeEAN13(std::int16_t zBarH, std::string_view BarText, bool HasCaption, host::MessageBox& messages) {
  return symbolPicture({.symbology = Symbology::Ean13, .caption = std::string(BarText)}, {zBarH, HasCaption}, {},
                       messages);
}

PicturePtr BarcodeEAN8(std::int16_t zBarH, std::string_view BarText, bool HasCaption, host::MessageBox& messages) {
  return symbolPicture({.symbology = Symbology::Ean8, .caption = std::string(BarText)}, {zBarH, HasCaption}, {},
                       messages);
}

PicturePtr symbolPicture(const Symbol& symbol, const SymbolLook& look, const PictureFit& fit,
                         host::MessageBox& messages) {
  const auto canvas = newPictureCanvas();
  drawSymbol(symbol, look, *canvas, messages);
  return canvas->picture(fit);
}

}  // namespace qvn::barcode
