#include "qvn/data/recordset_store.h"

#include <mutex>
#include <utility>

#include "qvn/data/provider_error.h"

namespace qvn::data {
namespace {

struct Place {
  std::mutex mutex;
  std::shared_ptr<const RecordsetStore> store;
};

Place& place() {
  static Place only;
  return only;
}

}  // namespace

void setRecordsetStore(std::shared_ptr<const RecordsetStore> store) {
  const std::lock_guard lock(place().mutex);
  place().store = std::move(store);
}

std::shared_ptr<const RecordsetStore> recordsetStore() {
  const std::lock_guard lock(place().mutex);
  if (place().store) return place().store;
  throw ProviderError(provider_number::kNotSupported, "No hay con qué guardar conjuntos de registros en archivos");
}

}  // namespace qvn::data
