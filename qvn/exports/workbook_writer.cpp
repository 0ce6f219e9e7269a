#include "qvn/exports/workbook_writer.h"

#include "qvn/base/runtime_error.h"

namespace qvn::exports {
namespace {

constexpr std::int32_t kCannotCreateObject = 429;

WorkbookMaker& registered() {
  static WorkbookMaker maker = nullptr;
  return maker;
}

}  // namespace

void registerWorkbookWriter(WorkbookMaker maker) { registered() = maker; }

WorkbookMaker workbookMaker() {
  if (registered() == nullptr) {
    throw RuntimeError(
        kCannotCreateObject,
        "No hay con qué hacer hojas de cálculo: enlace qvn::exports_xlsxwriter o registre otro escritor");
  }
  return registered();
}

}  // namespace qvn::exports
