#include "qvn/automation/travel.h"

namespace qvn::automation {

void refuseKind(std::string_view expected, const Json& value) {
  throw RuntimeError(error_number::kTypeMismatch,
                     "se esperaba " + std::string(expected) + " y llegó " + std::string(value.kindName()));
}

Variant readNumber(const Json& value, const Session& session) {
  if (value.number() == nullptr && !value.isObject()) refuseKind("un número", value);
  Variant number = toVariant(value, session.objects);
  if (number.isNull()) throw RuntimeError(error_number::kInvalidUseOfNull);
  if (!number.isNumeric() && !number.isEmpty()) refuseKind("un número", value);
  return number;
}

bool Travel<bool>::read(const Json& value, const Session& /*session*/) {
  if (value.boolean() == nullptr) refuseKind("true o false", value);
  return *value.boolean();
}

std::string Travel<std::string>::read(const Json& value, const Session& session) {
  if (value.text() != nullptr) return *value.text();
  if (!value.isObject()) refuseKind("un texto", value);
  const Variant held = toVariant(value, session.objects);
  if (held.isNull()) throw RuntimeError(error_number::kInvalidUseOfNull);
  if (!held.isText() && !held.isEmpty()) refuseKind("un texto", value);
  return held.toText();
}

Date Travel<Date>::read(const Json& value, const Session& session) {
  if (value.number() == nullptr && !value.isObject()) refuseKind("una fecha", value);
  const Variant held = toVariant(value, session.objects);
  if (held.isNull()) throw RuntimeError(error_number::kInvalidUseOfNull);
  if (!held.isNumeric() && !held.isEmpty()) refuseKind("una fecha", value);
  return held.toDate();
}

text::SortDirection Travel<text::SortDirection>::read(const Json& value, const Session& session) {
  const std::int32_t direction = readNumber(value, session).toLong();
  if (direction == static_cast<int>(text::SortDirection::SortAscending)) return text::SortDirection::SortAscending;
  if (direction == static_cast<int>(text::SortDirection::SortDescending)) return text::SortDirection::SortDescending;
  throw RuntimeError(error_number::kInvalidCall, "el orden es 0 (ascendente) o 1 (descendente)");
}

exports::ColumnSettings Travel<exports::ColumnSettings>::read(const Json& value, const Session& session) {
  if (!value.isObject()) refuseKind("un objeto con «field» y lo que se cambia de la columna", value);
  exports::ColumnSettings column;
  for (const Json::Member& member : *value.members()) {
    if (member.name == "field") {
      column.field = Travel<std::string>::read(member.value, session);
    } else if (member.name == "title") {
      column.title = Travel<std::string>::read(member.value, session);
    } else if (member.name == "format") {
      column.format = Travel<std::string>::read(member.value, session);
    } else if (member.name == "width") {
      column.width = Travel<double>::read(member.value, session);
    } else if (member.name == "total") {
      column.isTotalled = Travel<bool>::read(member.value, session);
    } else {
      throw RuntimeError(error_number::kNoSuchArgument, "una columna no tiene «" + member.name + "»");
    }
  }
  return column;
}

Json Travel<mysqladmin::BackupReport>::write(const mysqladmin::BackupReport& report, const Session& /*session*/) {
  Json skipped = Json::array();
  for (const mysqladmin::SkippedStep& step : report.skipped) {
    Json item = Json::object();
    item.add("table", toJson(step.table));
    item.add("step", toJson(step.step));
    item.add("times", step.times);
    item.add("number", step.number);
    item.add("reason", toJson(step.reason));
    skipped.add(std::move(item));
  }
  Json object = Json::object();
  object.add("isComplete", report.isComplete());
  object.add("tables", report.tables);
  object.add("rows", report.rows);
  object.add("bytes", report.bytes);
  object.add("skipped", std::move(skipped));
  return object;
}

Json Travel<mysqladmin::RestoreReport>::write(const mysqladmin::RestoreReport& report, const Session& /*session*/) {
  Json object = Json::object();
  object.add("isComplete", report.isComplete());
  object.add("statements", report.statements);
  object.add("bytes", report.bytes);
  if (report.failure) {
    Json failure = Json::object();
    failure.add("line", report.failure->line);
    failure.add("statement", toJson(report.failure->statement));
    failure.add("number", report.failure->number);
    failure.add("reason", toJson(report.failure->reason));
    object.add("failure", std::move(failure));
  }
  if (!report.unfinished.empty()) object.add("unfinished", toJson(report.unfinished));
  return object;
}

ObjectPtr readObject(const Json& value, std::string_view className, const Session& session) {
  if (value.isNull()) return nullptr;
  const Json* number = value.find("object");
  if (number == nullptr || !number->whole()) {
    refuseKind("un objeto " + std::string(className) + ", {\"object\":N},", value);
  }
  return session.objects.at(*number->whole());
}

void refuseClass(std::string_view expected, const Object& object) {
  throw RuntimeError(error_number::kTypeMismatch, "se esperaba un objeto " + std::string(expected) + " y llegó uno " +
                                                      std::string(classNameOf(object)));
}

}  // namespace qvn::automation
