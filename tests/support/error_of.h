// The error that a call raises.
#pragma once

#include <cstdint>
#include <string>

#include "qvn/base/runtime_error.h"

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

/// What the RuntimeError that `call` throws says; "" when it throws nothing.
template <typename Call>
std::string errorText(Call call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return {};
}

}  // namespace qvn::test
