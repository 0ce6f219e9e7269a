// A locale of UTF-8 text on the calling thread for the length of a scope.
#pragma once

#include <locale.h>  // NOLINT(modernize-deprecated-headers): POSIX's locale_t stands here

#include <memory>
#include <type_traits>

namespace qvn::data::firebird {

/// The client library takes file names to be in the thread's locale and refuses "ñ" in the C locale. The host's own
/// locale, and that of its other threads, stays as it is.
class Utf8ThreadLocale {
 public:
  Utf8ThreadLocale();
  ~Utf8ThreadLocale();
  Utf8ThreadLocale(const Utf8ThreadLocale&) = delete;
  Utf8ThreadLocale& operator=(const Utf8ThreadLocale&) = delete;

 private:
  struct Free {
    void operator()(locale_t locale) const noexcept { freelocale(locale); }
  };
  std::unique_ptr<std::remove_pointer_t<locale_t>, Free> locale_;  // null where the system has none
  locale_t previous_{};
};

}  // namespace qvn::data::firebird
