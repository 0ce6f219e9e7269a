#include "qvn/data/drivers/firebird/thread_locale.h"

namespace qvn::data::firebird {

Utf8ThreadLocale::Utf8ThreadLocale() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{})) {
  if (locale_) previous_ = uselocale(locale_.get());
}

Utf8ThreadLocale::~Utf8ThreadLocale() {
  if (locale_) uselocale(previous_);
}

}  // namespace qvn::data::firebird
