// Puts a locale in force on the calling thread for the length of a scope.
//
//   const qvn::test::LocaleGuard spain("es_ES.UTF-8");   // decimals are written with "," until the scope ends
#pragma once

#include <locale.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace qvn::test {

class LocaleGuard {
 public:
  /// Throws std::runtime_error when the machine lacks the locale, so that a test fails instead of passing unseen.
  explicit LocaleGuard(const char* name)
      : locale_(newlocale(LC_ALL_MASK, name, locale_t{})), previous_(locale_ ? uselocale(locale_.get()) : locale_t{}) {
    if (!locale_) throw std::runtime_error(std::string("missing locale ") + name);
  }
  ~LocaleGuard() { uselocale(previous_); }
  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;

 private:
  struct Free {
    void operator()(locale_t locale) const noexcept { freelocale(locale); }
  };

  std::unique_ptr<std::remove_pointer_t<locale_t>, Free> locale_;
  locale_t previous_;  // what was in force before; uselocale accepts LC_GLOBAL_LOCALE back
};

}  // namespace qvn::test
