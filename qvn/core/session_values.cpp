#include "qvn/core/session_values.h"

#include <algorithm>

#include "qvn/host/require.h"
#include "qvn/rowtext/ws_field.h"

namespace qvn::core {
namespace {

host::Collection& session(const host::AmbientePtr& ambiente) {
  return *host::required(host::required(ambiente)->Sesion());
}

rowtext::WsField& fieldOf(const Variant& item) { return host::objectIn<rowtext::WsField>(item); }

bool hasKey(const Variant& item, const Variant& key) { return equals(fieldOf(item).Key, key); }

}  // namespace

void SetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key, const Variant& value) {
  host::Collection& values = session(Ambiente);
  const auto found = std::find_if(values.begin(), values.end(), [&](const Variant& item) { return hasKey(item, key); });
  if (found != values.end()) {
    fieldOf(*found).value = value;
  } else {
    values.Add(ObjectPtr(rowtext::newData(key.toText(), value)));
  }
}

Variant GetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key) {
  Variant value;
  for (const Variant& item : session(Ambiente)) {
    if (hasKey(item, key)) value = fieldOf(item).value;
  }
  return value;
}

}  // namespace qvn::core
