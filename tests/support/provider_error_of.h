// The provider error that a call raises, for comparing its parts.
#pragma once

#include <optional>

#include "qvn/data/provider_error.h"

namespace qvn::test {

/// The ProviderError that `call` throws; nothing when it throws none.
template <typename Call>
std::optional<data::ProviderError> providerError(Call call) {
  try {
    call();
  } catch (const data::ProviderError& error) {
    return error;
  }
  return std::nullopt;
}

}  // namespace qvn::test
