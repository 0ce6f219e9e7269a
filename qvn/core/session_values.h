// Named values that a host keeps while it runs.
#pragma once

#include "qvn/base/variant.h"
#include "qvn/host/ambiente.h"

namespace qvn::core {

/// Gives the first session value of this name a new value, or adds one. Names are compared exactly, as variants.
///
/// @throws RuntimeError  91 without an environment or a session collection, 13 for an item that is no WsField, and as
///                       Variant::toText for a name that is no text
void SetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key, const Variant& value);

/// The value of the last session value of this name; Empty when there is none. Throws as SetSessionValue.
Variant GetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key);

}  // namespace qvn::core
