// Errors of the engine in the data-access platform's numbers.
#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "qvn/data/provider_error.h"

namespace qvn::data::sqlite {

/// The error of the last call on `database`; `doing` says in Spanish what was tried.
ProviderError lastError(sqlite3* database, std::string_view doing);

/// An error with a text of our own, under one of the engine's codes.
ProviderError errorWithText(int code, const std::string& text);

}  // namespace qvn::data::sqlite
