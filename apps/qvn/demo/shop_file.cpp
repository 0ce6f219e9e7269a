#include "apps/qvn/demo/shop_file.h"

#include <system_error>

#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"
#include "qvn/data/sql_text.h"

namespace qvn::cli::demo {

std::filesystem::path prepareShopFile(std::string_view folder) {
  const std::filesystem::path directory = hostPath(folder);
  std::error_code error;
  std::filesystem::create_directories(directory, error);
  if (error) {
    throw RuntimeError(error_number::kPathNotFound,
                       "No se pudo crear la carpeta «" + directory.string() + "»: " + error.message());
  }
  return directory / "tienda.db";
}

std::string connectionStringFor(const std::filesystem::path& file, bool createsFile) {
  const std::string path = file.string();
  const bool needsQuotes = path.find_first_of(";\"'{} ") != std::string::npos;
  return "Provider=SQLite;Data Source=" + (needsQuotes ? data::doubledQuotes(path, '"') : path) +
         (createsFile ? ";Mode=ReadWriteCreate" : "");
}

}  // namespace qvn::cli::demo
