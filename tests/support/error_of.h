// The error that a call raises, for comparing its number.
#pragma once

#include <cstdint>
#include <optional>

#include "qvn/data/provider_error.h"

namespace qvn::test {

/// Number of the RuntimeError that `call` throws; 0 when it throws nothing.
template <typename Call>
std::int32_t errorNumber(Call call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

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
