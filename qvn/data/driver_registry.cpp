#include "qvn/data/driver_registry.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include "qvn/data/provider_error.h"

namespace qvn::data {
namespace {

struct Registry {
  std::mutex guard;
  std::vector<std::shared_ptr<const Driver>> drivers;
};

Registry& registry() {
  static Registry instance;
  return instance;
}

}  // namespace

void registerDriver(std::shared_ptr<const Driver> driver) {
  Registry& all = registry();
  const std::lock_guard lock(all.guard);
  std::erase_if(all.drivers, [&](const auto& known) { return known->name() == driver->name(); });
  all.drivers.push_back(std::move(driver));
}

std::shared_ptr<const Driver> findDriver(const ConnectionString& parameters) {
  Registry& all = registry();
  const std::lock_guard lock(all.guard);
  const auto found = std::find_if(all.drivers.rbegin(), all.drivers.rend(),
                                  [&](const auto& driver) { return driver->accepts(parameters); });
  if (found != all.drivers.rend()) return *found;
  std::string names;
  for (const auto& driver : all.drivers) names.append(names.empty() ? "" : ", ").append(driver->name());
  throw ProviderError(provider_number::kNoSuchProvider,
                      "No se encontró el proveedor «" + parameters.driverName() +
                          "» de la cadena de conexión; los disponibles son: " + (names.empty() ? "ninguno" : names));
}

}  // namespace qvn::data
