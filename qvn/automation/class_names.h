// What the classes of objects are called in method names and messages.
#pragma once

#include <string_view>

#include "qvn/automation/canvas_object.h"
#include "qvn/barcode/picture.h"
#include "qvn/data/connection.h"
#include "qvn/devices/qvn_mobile.h"
#include "qvn/dialogs/progress.h"
#include "qvn/exports/spreadsheet.h"
#include "qvn/host/ambiente.h"
#include "qvn/host/collection.h"
#include "qvn/host/file_system_object.h"
#include "qvn/host/pending_statements.h"
#include "qvn/host/query.h"
#include "qvn/host/statement_builder.h"
#include "qvn/host/text_box.h"
#include "qvn/host/text_stream.h"
#include "qvn/reports/definition.h"
#include "qvn/reports/report.h"
#include "qvn/rowtext/text_data.h"
#include "qvn/rowtext/ws_field.h"
#include "qvn/system/dos_outputs.h"
#include "qvn/system/ping.h"

namespace qvn::automation {

template <typename Class>
inline constexpr std::string_view kClassName = {};

template <>
inline constexpr std::string_view kClassName<Object> = "Object";
template <>
inline constexpr std::string_view kClassName<data::Connection> = "Connection";
template <>
inline constexpr std::string_view kClassName<data::Recordset> = "Recordset";
template <>
inline constexpr std::string_view kClassName<host::Ambiente> = "Ambiente";
template <>
inline constexpr std::string_view kClassName<host::Query> = "Query";
template <>
inline constexpr std::string_view kClassName<host::StatementBuilder> = "StatementBuilder";
template <>
inline constexpr std::string_view kClassName<host::Collection> = "Collection";
template <>
inline constexpr std::string_view kClassName<host::TextBox> = "TextBox";
template <>
inline constexpr std::string_view kClassName<host::FileSystemObject> = "FileSystemObject";
template <>
inline constexpr std::string_view kClassName<host::TextStream> = "TextStream";
template <>
inline constexpr std::string_view kClassName<host::PendingStatementsHost> = "PendingStatementsHost";
template <>
inline constexpr std::string_view kClassName<host::PendingStatement> = "PendingStatement";
template <>
inline constexpr std::string_view kClassName<rowtext::WsField> = "WsField";
template <>
inline constexpr std::string_view kClassName<rowtext::TextData> = "TextData";
template <>
inline constexpr std::string_view kClassName<barcode::Picture> = "Picture";
template <>
inline constexpr std::string_view kClassName<CanvasObject> = "Canvas";
template <>
inline constexpr std::string_view kClassName<system::DOSOutputs> = "DOSOutputs";
template <>
inline constexpr std::string_view kClassName<system::Ping> = "Ping";
template <>
inline constexpr std::string_view kClassName<exports::SpreadsheetExport> = "Excel";
template <>
inline constexpr std::string_view kClassName<reports::Report> = "Informe";
template <>
inline constexpr std::string_view kClassName<reports::ReportDefinition> = "Reporteador";
template <>
inline constexpr std::string_view kClassName<dialogs::Progress> = "Progress";
template <>
inline constexpr std::string_view kClassName<devices::QvnMobile> = "QvnMobile";

/// The name of the class of an object that the bridge can hold.
std::string_view classNameOf(const Object& object);

}  // namespace qvn::automation
