// Symbols that a person asks for, drawn into a picture or a sheet of labels, with advice where one cannot be.
#pragma once

#include <string>
#include <string_view>

#include "apps/qvn/command.h"
#include "qvn/barcode/picture.h"
#include "qvn/barcode/symbol.h"

namespace qvn::cli {

/// What is the same for every label.
struct LabelWishes {
  barcode::Symbol symbol;  ///< its caption is each label's own
  barcode::SymbolLook look;
  barcode::PictureFit fit;
};

/// The module string. Throws RuntimeError 5 or 9 with advice for a caption that the symbology does not take.
std::string labelModules(const barcode::Symbol& symbol);

/// Draws one label and says on standard error when its bars leave digits out or the picture crops them.
barcode::PicturePtr labelPicture(const LabelWishes& wishes, Context& context);

/// Writes a PDF with a label for each line of `captions` that is not blank. Lines that cannot be drawn are reported
/// with their number and left out; the status is then Failed.
ExitStatus writeLabelSheet(const LabelWishes& wishes, std::string_view captions, std::string_view path,
                           Context& context);

}  // namespace qvn::cli
