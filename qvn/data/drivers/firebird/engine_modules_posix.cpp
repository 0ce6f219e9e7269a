#include <dlfcn.h>
#include <link.h>

#include <array>
#include <cstddef>
#include <string_view>

#include "qvn/data/drivers/firebird/engine_modules.h"

namespace qvn::data::firebird {
namespace {

// The engine and its character sets; the names belong to the loader and last as long as the modules.
struct EngineModules {
  std::array<const char*, 8> names{};
  std::size_t count = 0;
};

int collect(dl_phdr_info* module, std::size_t /*size*/, void* modules) {
  auto& found = *static_cast<EngineModules*>(modules);
  const std::string_view path = module->dlpi_name;
  const bool isOfEngine =
      path.find("/libEngine") != std::string_view::npos || path.find("/libfbintl") != std::string_view::npos;
  if (isOfEngine && found.count < found.names.size()) found.names[found.count++] = module->dlpi_name;
  return 0;
}

}  // namespace

void keepEngineLoaded() noexcept {
  EngineModules modules;
  dl_iterate_phdr(collect, &modules);
  for (std::size_t i = 0; i < modules.count; ++i) {
    // The handles are dropped with open eyes: nothing unloads these modules any more.
    static_cast<void>(dlopen(modules.names[i], RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE));
  }
}

}  // namespace qvn::data::firebird
