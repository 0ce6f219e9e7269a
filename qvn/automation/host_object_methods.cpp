#include <optional>

#include "qvn/automation/method.h"
#include "qvn/automation/pending_statements.h"
#include "qvn/automation/sections.h"

namespace qvn::automation {
namespace {

using host::Ambiente;
using host::Collection;
using host::FileSystemObject;
using host::PendingStatement;
using host::Query;
using host::SimpleTextBox;
using host::StatementBuilder;
using host::TextBox;
using host::TextStream;
using rowtext::TextData;
using rowtext::WsField;
using OptionalText = std::optional<std::string>;

// Sets what is given.
template <typename Value, typename Target>
void put(Target& target, void (Target::*set)(Value), std::optional<std::decay_t<Value>> value) {
  if (value) (target.*set)(*std::move(value));
}

host::SimpleAmbiente& settable(Ambiente& ambiente) {
  auto* simple = dynamic_cast<host::SimpleAmbiente*>(&ambiente);
  if (simple == nullptr) throw RuntimeError(error_number::kInvalidCall, "Este Ambiente no se puede cambiar");
  return *simple;
}

void setConexion(Ambiente& ambiente, const data::ConnectionPtr& value) { settable(ambiente).setConexion(value); }
void setConexionLocal(Ambiente& ambiente, const data::ConnectionPtr& value) {
  settable(ambiente).setConexionLocal(value);
}

// Arguments that are left out, or null, keep what the environment has.
void putAmbiente(Ambiente& ambiente, std::optional<Variant> Sucursal, OptionalText Usuario, OptionalText Lenguaje,
                 OptionalText CarpetaDeErrores, std::optional<std::int32_t> Mes, std::optional<std::int32_t> Ejercicio,
                 OptionalText FormatoA, OptionalText FormatoB, OptionalText FormatoC) {
  using host::SimpleAmbiente;
  SimpleAmbiente& simple = settable(ambiente);
  put(simple, &SimpleAmbiente::setSucursal, std::move(Sucursal));
  put(simple, &SimpleAmbiente::setUsuario, std::move(Usuario));
  if (Lenguaje) simple.setLenguaje(*Lenguaje);
  put(simple, &SimpleAmbiente::setCarpetaDeErrores, std::move(CarpetaDeErrores));
  put(simple, &SimpleAmbiente::setMes, Mes);
  put(simple, &SimpleAmbiente::setEjercicio, Ejercicio);
  put(simple, &SimpleAmbiente::setFormatoA, std::move(FormatoA));
  put(simple, &SimpleAmbiente::setFormatoB, std::move(FormatoB));
  put(simple, &SimpleAmbiente::setFormatoC, std::move(FormatoC));
}

std::shared_ptr<Ambiente> newAmbiente(const data::ConnectionPtr& connection) {
  return std::make_shared<host::SimpleAmbiente>(connection);
}

host::QueryPtr newQuery() { return std::make_shared<Query>(); }
std::shared_ptr<StatementBuilder> newStatementBuilder() { return std::make_shared<StatementBuilder>(); }

std::shared_ptr<Collection> newCollection() { return std::make_shared<Collection>(); }
void addItem(Collection& collection, const Variant& item, std::string_view key, const Variant& before,
             const Variant& after) {
  collection.Add(item, key, before, after);
}
Variant itemOf(Collection& collection, const Variant& indexOrKey) { return collection.Item(indexOrKey); }
void setItem(Collection& collection, const Variant& indexOrKey, const Variant& value) {
  collection.Item(indexOrKey) = value;
}
std::vector<Variant> itemsOf(Collection& collection) { return {collection.begin(), collection.end()}; }

std::shared_ptr<TextBox> newTextBox(std::string text, std::string tag, std::int32_t selStart) {
  return std::make_shared<SimpleTextBox>(std::move(text), std::move(tag), selStart);
}
void setText(TextBox& box, std::string text) {
  auto* simple = dynamic_cast<SimpleTextBox*>(&box);
  if (simple == nullptr) throw RuntimeError(error_number::kInvalidCall, "Esta caja de texto no se puede cambiar");
  simple->text = std::move(text);
}

std::shared_ptr<WsField> newWsField(std::string_view key, const Variant& value) { return rowtext::newData(key, value); }
std::string keyOf(WsField& field) { return field.Key; }
Variant valueOf(WsField& field) { return field.value; }
void setKey(WsField& field, std::string key) { field.Key = std::move(key); }
void setValue(WsField& field, const Variant& value) { field.value = value; }

ObjectPtr controlOf(TextData& data) { return data.Control; }
Variant textOf(TextData& data) { return data.Text; }
void setControl(TextData& data, const ObjectPtr& control) { data.Control = control; }
void setDataText(TextData& data, const Variant& text) { data.Text = text; }

std::shared_ptr<BridgedPendingStatements> newPendingHost(const Session& session) {
  return std::make_shared<BridgedPendingStatements>(session);
}
void addPending(host::PendingStatementsHost& pending, std::string query, std::string queryName) {
  const ObjectPtr statement = std::make_shared<PendingStatement>(std::move(query), std::move(queryName));
  pending.pendingStatements()->Add(statement);
}
std::shared_ptr<Collection> pendingOf(host::PendingStatementsHost& pending) { return pending.pendingStatements(); }

void release(const Session& session, std::int64_t object) { session.objects.release(object); }

// NOLINTNEXTLINE(readability-function-size): a table
Section environmentSection() {
  return {"Objects: the environment",
          {"qvn/host/ambiente.h"},
          {
              method<&newAmbiente>("Ambiente.New", "Conexion=null"),
              method<&putAmbiente>("Ambiente.Set", "this", "Sucursal=null", "Usuario=null", "Lenguaje=null",
                                   "CarpetaDeErrores=null", "Mes=null", "Ejercicio=null", "FormatoA=null",
                                   "FormatoB=null", "FormatoC=null"),
              method<&setConexion>("Ambiente.SetConexion", "this", "Conexion"),
              method<&setConexionLocal>("Ambiente.SetConexionLocal", "this", "ConexionLocal"),
              method<&Ambiente::Conexion>("Ambiente.Conexion", "this"),
              method<&Ambiente::ConexionLocal>("Ambiente.ConexionLocal", "this"),
              method<&Ambiente::Sucursal>("Ambiente.Sucursal", "this"),
              method<&Ambiente::Usuario>("Ambiente.Usuario", "this"),
              method<&Ambiente::Lenguaje>("Ambiente.Lenguaje", "this"),
              method<&Ambiente::CarpetaDeErrores>("Ambiente.CarpetaDeErrores", "this"),
              method<&Ambiente::Mes>("Ambiente.Mes", "this"),
              method<&Ambiente::Ejercicio>("Ambiente.Ejercicio", "this"),
              method<&Ambiente::Sesion>("Ambiente.Sesion", "this"),
              method<&Ambiente::FormatoA>("Ambiente.FormatoA", "this"),
              method<&Ambiente::FormatoB>("Ambiente.FormatoB", "this"),
              method<&Ambiente::FormatoC>("Ambiente.FormatoC", "this"),
          }};
}

// NOLINTNEXTLINE(readability-function-size): a table
Section statementSection() {
  return {"Objects: statements",
          {"qvn/host/query.h", "qvn/host/statement_builder.h", "qvn/host/pending_statements.h"},
          {
              method<&newQuery>("Query.New"),
              method<&Query::Conexion>("Query.Conexion", "this", "Conexion"),
              method<&Query::Agrega>("Query.Agrega", "this", "Sentencia"),
              method<&Query::Ejecuta>("Query.Ejecuta", "this"),
              method<&Query::setRecolecta>("Query.SetRecolecta", "this", "Recolecta"),
              method<&Query::Recolecta>("Query.Recolecta", "this"),
              method<&Query::Fallo>("Query.Fallo", "this"),
              method<&Query::Error>("Query.Error", "this"),
              method<&newStatementBuilder>("StatementBuilder.New"),
              method<&StatementBuilder::Conexion>("StatementBuilder.Conexion", "this", "Conexion"),
              method<&StatementBuilder::Limpia>("StatementBuilder.Limpia", "this"),
              method<&StatementBuilder::AgregaCampo>("StatementBuilder.AgregaCampo", "this", "Tabla", "Campo", "Valor"),
              method<&StatementBuilder::Condicion>("StatementBuilder.Condicion", "this", "Condicion"),
              method<&StatementBuilder::Accion>("StatementBuilder.Accion", "this", "Accion"),
              method<&StatementBuilder::Arma>("StatementBuilder.Arma", "this"),
              method<&StatementBuilder::Ejecuta>("StatementBuilder.Ejecuta", "this"),
              method<&StatementBuilder::SiguienteId>("StatementBuilder.SiguienteId", "this", "Tabla"),
              method<&newPendingHost>("PendingStatementsHost.New"),
              method<&addPending>("PendingStatementsHost.Add", "this", "Query", "QueryName"),
              method<&pendingOf>("PendingStatementsHost.PendingStatements", "this"),
          }};
}

// NOLINTNEXTLINE(readability-function-size): a table
Section valueSection() {
  return {"Objects: values and boxes",
          {"qvn/host/collection.h", "qvn/host/text_box.h", "qvn/rowtext/ws_field.h", "qvn/rowtext/text_data.h"},
          {
              method<&newCollection>("Collection.New"),
              method<&addItem>("Collection.Add", "this", "Item", "Key=\"\"", "Before={\"empty\":true}",
                               "After={\"empty\":true}"),
              method<&itemOf>("Collection.Item", "this", "Index"),
              method<&setItem>("Collection.SetItem", "this", "Index", "Value"),
              method<&Collection::Remove>("Collection.Remove", "this", "Index"),
              method<&Collection::Count>("Collection.Count", "this"),
              method<&itemsOf>("Collection.Items", "this"),
              method<&newTextBox>("TextBox.New", "Text=\"\"", "Tag=\"\"", "SelStart=0"),
              method<&TextBox::Text>("TextBox.Text", "this"),
              method<&setText>("TextBox.SetText", "this", "Text"),
              method<&TextBox::Tag>("TextBox.Tag", "this"),
              method<&TextBox::SelStart>("TextBox.SelStart", "this"),
              method<&TextBox::setSelStart>("TextBox.SetSelStart", "this", "SelStart"),
              method<&newWsField>("WsField.New", "Key=\"\"", "value={\"empty\":true}"),
              method<&keyOf>("WsField.Key", "this"),
              method<&valueOf>("WsField.value", "this"),
              method<&setKey>("WsField.SetKey", "this", "Key"),
              method<&setValue>("WsField.SetValue", "this", "value"),
              method<&controlOf>("TextData.Control", "this"),
              method<&textOf>("TextData.Text", "this"),
              method<&setControl>("TextData.SetControl", "this", "Control"),
              method<&setDataText>("TextData.SetText", "this", "Text"),
              method<&release>("Release", "object"),
          }};
}

// NOLINTNEXTLINE(readability-function-size): a table
Section fileSection() {
  using Files = FileSystemObject;
  return {"Objects: files",
          {"qvn/host/file_system_object.h", "qvn/host/text_stream.h"},
          {
              method<&Files::FileExists>("FileSystemObject.FileExists", "this", "Path"),
              method<&Files::FolderExists>("FileSystemObject.FolderExists", "this", "Path"),
              method<&Files::BuildPath>("FileSystemObject.BuildPath", "this", "Folder", "Name"),
              method<&Files::GetFileName>("FileSystemObject.GetFileName", "this", "Path"),
              method<&Files::GetBaseName>("FileSystemObject.GetBaseName", "this", "Path"),
              method<&Files::GetExtensionName>("FileSystemObject.GetExtensionName", "this", "Path"),
              method<&Files::GetParentFolderName>("FileSystemObject.GetParentFolderName", "this", "Path"),
              method<&Files::GetAbsolutePathName>("FileSystemObject.GetAbsolutePathName", "this", "Path"),
              method<&Files::GetTempName>("FileSystemObject.GetTempName", "this"),
              method<&Files::CreateFolder>("FileSystemObject.CreateFolder", "this", "Path"),
              method<&Files::DeleteFolder>("FileSystemObject.DeleteFolder", "this", "Path"),
              method<&Files::DeleteFile>("FileSystemObject.DeleteFile", "this", "Path"),
              method<&Files::CopyFile>("FileSystemObject.CopyFile", "this", "Source", "Destination", "Overwrite=true"),
              method<&Files::MoveFile>("FileSystemObject.MoveFile", "this", "Source", "Destination"),
              method<&Files::CreateTextFile>("FileSystemObject.CreateTextFile", "this", "Path", "Overwrite=true"),
              method<&Files::OpenTextFile>("FileSystemObject.OpenTextFile", "this", "Path", "Mode=1", "Create=false"),
              method<&TextStream::ReadLine>("TextStream.ReadLine", "this"),
              method<&TextStream::ReadAll>("TextStream.ReadAll", "this"),
              method<&TextStream::Read>("TextStream.Read", "this", "Characters"),
              method<&TextStream::SkipLine>("TextStream.SkipLine", "this"),
              method<&TextStream::AtEndOfStream>("TextStream.AtEndOfStream", "this"),
              method<&TextStream::Write>("TextStream.Write", "this", "Text"),
              method<&TextStream::WriteLine>("TextStream.WriteLine", "this", "Text=\"\""),
              method<&TextStream::WriteBlankLines>("TextStream.WriteBlankLines", "this", "Lines"),
              method<&TextStream::Line>("TextStream.Line", "this"),
              method<&TextStream::Close>("TextStream.Close", "this"),
          }};
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Section> hostObjectSections() {
  return {environmentSection(), statementSection(), valueSection(), fileSection()};
}

}  // namespace qvn::automation
