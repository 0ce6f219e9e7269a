#include "qvn/base/runtime_error.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace qvn {
namespace {

struct ErrorText {
  std::int32_t number;
  std::string_view text;
};

constexpr auto kErrorTexts = std::to_array<ErrorText>({
    {error_number::kInvalidCall, "Argumento o llamada a procedimiento no válidos"},
    {error_number::kOverflow, "Desbordamiento"},
    {error_number::kOutOfMemory, "No hay memoria suficiente"},
    {error_number::kSubscriptOutOfRange, "El subíndice está fuera del intervalo"},
    {error_number::kTypeMismatch, "No coinciden los tipos"},
    {error_number::kOutOfStringSpace, "No queda espacio para cadenas"},
    {error_number::kBadFileName, "Nombre de archivo no válido"},
    {error_number::kFileNotFound, "No se encontró el archivo"},
    {error_number::kBadFileMode, "El modo en que se abrió el archivo no permite la operación"},
    {error_number::kDeviceError, "Error de lectura o escritura del dispositivo"},
    {error_number::kFileExists, "El archivo ya existe"},
    {error_number::kDiskFull, "El disco está lleno"},
    {error_number::kInputPastEnd, "La lectura pasa del final del archivo"},
    {error_number::kTooManyFiles, "Hay demasiados archivos abiertos"},
    {error_number::kPermissionDenied, "Permiso denegado"},
    {error_number::kPathNotFound, "No se encontró la ruta de acceso"},
    {error_number::kObjectNotSet, "El objeto no está establecido"},
    {error_number::kInvalidUseOfNull, "Uso no válido de Null"},
    {error_number::kNoSuchMethod, "El objeto no tiene ese método"},
    {error_number::kNoSuchArgument, "No hay un argumento con ese nombre"},
    {error_number::kArgumentRequired, "El argumento no es opcional"},
    {error_number::kDuplicateKey, "Esta clave ya está asociada a un elemento de la colección"},
});
static_assert(std::ranges::is_sorted(kErrorTexts, std::less{}, &ErrorText::number));

}  // namespace

std::string runtimeErrorText(std::int32_t number) {
  const auto* found = std::ranges::find(kErrorTexts, number, &ErrorText::number);
  return std::string(found == kErrorTexts.end() ? "Error definido por la aplicación" : found->text);
}

}  // namespace qvn
