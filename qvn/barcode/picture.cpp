#include "qvn/barcode/picture.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

constexpr std::int32_t kPathAccessError = 75;

struct Ending {
  std::string_view text;
  PictureFormat format;
};
constexpr auto kEndings =
    std::to_array<Ending>({{".png", PictureFormat::Png}, {".svg", PictureFormat::Svg}, {".pdf", PictureFormat::Pdf}});

}  // namespace

PictureFormat pictureFormat(std::string_view path) {
  std::string ending(path.substr(path.size() < 4 ? 0 : path.size() - 4));
  for (char& character : ending) {
    if (character >= 'A' && character <= 'Z') {
      character = static_cast<char>(character - 'A' + 'a');
    }
  }
  for (const Ending& known : kEndings) {
    if (ending == known.text) {
      return known.format;
    }
  }
  throw RuntimeError(error_number::kInvalidCall,
                     "El archivo «" + std::string(path) + "» debe terminar en .png, .svg o .pdf");
}

void Picture::save(std::string_view path) const {
  const std::string bytes = encoded(pictureFormat(path));
  std::ofstream file(hostPath(path), std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) {
    throw RuntimeError(kPathAccessError,
                       "No se pudo escribir «" + std::string(path) + "»: " + std::generic_category().message(errno));
  }
}

}  // namespace qvn::barcode
