// One row of 20 fields as a record line and back, beside JSON libraries that write the same row of the same recordset
// and read it into their own form, which neither refuses a name that comes twice nor finds one in any case. The peer
// "rapidjson_keyed" goes on to what a host gets here: named values in a collection.
#include <benchmark/benchmark.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "bench/support/peer_report.h"
#include "qvn/data/connection.h"
#include "qvn/data/drivers/built_in.h"
#include "qvn/data/iso_date.h"
#include "qvn/rowtext/read_record.h"
#include "qvn/rowtext/write_record.h"

namespace {

using qvn::Variant;
using qvn::VariantType;

// A line of a sale: five whole numbers, six amounts, five texts, two dates, a NULL and a flag.
constexpr const char* kRow =
    "SELECT venta, partida, cliente, almacen, articulo, descripcion, unidad, lote, cantidad, precio, descuento, "
    "impuesto, costo, importe, fecha, entrega, observaciones, activo, moneda, usuario FROM ventas";

qvn::data::RecordsetPtr saleRow() {
  const auto connection = qvn::data::Connection::create();
  connection->Open("Provider=SQLite;Data Source=:memory:");
  connection->Execute(
      "CREATE TABLE ventas (venta INTEGER, partida INTEGER, cliente INTEGER, almacen INTEGER, articulo VARCHAR(20), "
      "descripcion VARCHAR(80), unidad VARCHAR(5), lote VARCHAR(20), cantidad DOUBLE, precio DOUBLE, descuento DOUBLE, "
      "impuesto DOUBLE, costo DOUBLE, importe DOUBLE, fecha DATE, entrega DATE, observaciones VARCHAR(80), activo BIT, "
      "moneda VARCHAR(5), usuario INTEGER)");
  connection->Execute(
      "INSERT INTO ventas VALUES (10425, 3, 871, 2, 'TOR-14-GALV', 'Tornillo galvanizado de 1/4 x 2 pulgadas', 'PZA', "
      "'L2024-0117', 12.5, 1234.5, 0.1, 197.52, 987.654321, 15431.25, '2024-03-05', '2024-03-12', NULL, 1, 'MXN', 14)");
  auto rows = std::make_shared<qvn::data::Recordset>();
  rows->setCursorLocation(qvn::data::CursorLocation::Client);
  rows->Open(kRow, connection);
  return rows;
}

nlohmann::json nlohmannRow(qvn::data::Recordset& rows) {
  nlohmann::json row;
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    const auto& field = rows.Fields(i);
    const Variant& value = field.Value();
    auto& item = row[field.Name()];
    if (const auto* text = value.getIf<std::string>()) {
      item = *text;
    } else if (const auto* flag = value.getIf<bool>()) {
      item = *flag;
    } else if (const auto* date = value.getIf<qvn::Date>()) {
      item = qvn::data::isoDate(*date);
    } else if (const auto* whole = value.getIf<std::int32_t>()) {
      item = *whole;
    } else if (!value.isNull()) {
      item = value.toDouble();
    }
  }
  return row;
}

template <typename Writer>
void writeRapidValue(Writer& writer, const Variant& value) {
  if (const auto* text = value.getIf<std::string>()) {
    writer.String(text->data(), static_cast<rapidjson::SizeType>(text->size()));
  } else if (const auto* flag = value.getIf<bool>()) {
    writer.Bool(*flag);
  } else if (const auto* date = value.getIf<qvn::Date>()) {
    const std::string iso = qvn::data::isoDate(*date);
    writer.String(iso.data(), static_cast<rapidjson::SizeType>(iso.size()));
  } else if (const auto* whole = value.getIf<std::int32_t>()) {
    writer.Int(*whole);
  } else if (value.isNull()) {
    writer.Null();
  } else {
    writer.Double(value.toDouble());
  }
}

std::string rapidRow(qvn::data::Recordset& rows) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  writer.StartObject();
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    const auto& field = rows.Fields(i);
    writer.Key(field.Name().data(), static_cast<rapidjson::SizeType>(field.Name().size()));
    writeRapidValue(writer, field.Value());
  }
  writer.EndObject();
  return {buffer.GetString(), buffer.GetSize()};
}

qvn::Variant rapidValue(const rapidjson::Value& value) {
  if (value.IsString()) return std::string_view(value.GetString(), value.GetStringLength());
  if (value.IsNumber()) return value.GetDouble();
  if (value.IsBool()) return value.GetBool() ? -1.0 : 0.0;
  return qvn::Null{};
}

std::shared_ptr<qvn::host::Collection> rapidFields(const std::string& json) {
  rapidjson::Document document;
  document.Parse(json.data(), json.size());
  auto fields = std::make_shared<qvn::host::Collection>();
  for (const auto& member : document.GetObject()) {
    const std::string_view name(member.name.GetString(), member.name.GetStringLength());
    fields->Add(qvn::ObjectPtr(std::make_shared<qvn::rowtext::WsField>(name, rapidValue(member.value))), name);
  }
  return fields;
}

template <typename Work>
void add(const char* name, Work work) {
  benchmark::RegisterBenchmark(name, [work](benchmark::State& state) {
    for (auto _ : state) work();
  })->MinTime(0.3);
}

}  // namespace

int main(int argc, char** argv) {
  qvn::data::registerBuiltInDrivers();
  const auto rows = saleRow();
  add("write/qvn", [&] { benchmark::DoNotOptimize(qvn::rowtext::WsRecordSet(rows)); });
  add("write/nlohmann", [&] { benchmark::DoNotOptimize(nlohmannRow(*rows).dump()); });
  add("write/rapidjson", [&] { benchmark::DoNotOptimize(rapidRow(*rows)); });
  const std::string line = qvn::rowtext::WsRecordSet(rows);
  const std::string json = rapidRow(*rows);
  add("read/qvn", [&] { benchmark::DoNotOptimize(qvn::rowtext::WsFields(line)); });
  add("read/nlohmann", [&] { benchmark::DoNotOptimize(nlohmann::json::parse(json)); });
  add("read/rapidjson", [&] {
    rapidjson::Document document;
    document.Parse(json.data(), json.size());
    benchmark::DoNotOptimize(document);
  });
  add("read/rapidjson_keyed", [&] { benchmark::DoNotOptimize(rapidFields(json)); });
  add("there_and_back/qvn", [&] { benchmark::DoNotOptimize(qvn::rowtext::WsFields(qvn::rowtext::WsRecordSet(rows))); });
  add("there_and_back/nlohmann", [&] { benchmark::DoNotOptimize(nlohmann::json::parse(nlohmannRow(*rows).dump())); });
  add("there_and_back/rapidjson", [&] {
    const std::string written = rapidRow(*rows);
    rapidjson::Document document;
    document.Parse(written.data(), written.size());
    benchmark::DoNotOptimize(document);
  });
  return qvn::bench::runBesidePeers(argc, argv);
}
