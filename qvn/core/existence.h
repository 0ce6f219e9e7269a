// Questions about tables, rows and fields.
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"

namespace qvn::core {

/// Number of rows of a table, whose name is written in lower case. Throws ProviderError.
std::int32_t LastRec(std::string_view strTabla, const data::ConnectionPtr& Connection);

/// True when the table, whose name is written in lower case, has a row. Throws ProviderError.
bool Existen(std::string_view Tabla, const data::ConnectionPtr& Connection);

/// True when the table has a row whose field has the value. `value` enters the statement as its text, between single
/// quotes (not escaped) unless `Numeric`. Throws ProviderError, and RuntimeError 94 for Null.
bool Existe(std::string_view cCampo, std::string_view cTabla, const Variant& value, const data::ConnectionPtr& Conexion,
            bool Numeric = false);

/// False when the provider refuses to read the field from the table.
bool ExisteCampo(std::string_view cCampo, std::string_view cTabla, const data::ConnectionPtr& Connection);

/// The number of the row that this session inserted last, as "SELECT SCOPE_IDENTITY()" tells it: meaningful on SQL
/// Server alone, the engine's error elsewhere.
double lastInsertedId(const data::ConnectionPtr& Connection);

}  // namespace qvn::core
