// Any text with any key: what Decrypta gives scrambles back to the same codes; Encrypta never fails.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "qvn/base/code_page_1252.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/scrambling.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::int16_t key = 0;
  if (size < sizeof key) return 0;
  std::memcpy(&key, data, sizeof key);
  const std::string text(reinterpret_cast<const char*>(data) + sizeof key, size - sizeof key);
  require(qvn::utf8::isValid(qvn::text::Encrypta(text, key)));
  try {
    const std::string plain = qvn::text::Decrypta(text, key);
    const std::string codes = qvn::cp1252::encode(qvn::utf8::trimBlanks(text));
    require(qvn::text::Encrypta(plain, key) == qvn::cp1252::decode(codes));
  } catch (const qvn::RuntimeError& error) {
    require(error.number() == qvn::error_number::kInvalidCall);
  }
  return 0;
}
