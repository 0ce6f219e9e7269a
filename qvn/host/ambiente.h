// The host's environment: what the running station knows about itself.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"
#include "qvn/host/collection.h"

namespace qvn::host {

/// Implemented by hosts, or taken ready-made as SimpleAmbiente. The library keeps nothing that it reads from it.
class Ambiente : public Object {
 public:
  /// The open connection to the business database; null when there is none.
  [[nodiscard]] virtual data::ConnectionPtr Conexion() const = 0;

  /// The station's branch and the user who works at it.
  [[nodiscard]] virtual Variant Sucursal() const = 0;
  [[nodiscard]] virtual std::string Usuario() const = 0;

  /// The local configuration database; null when there is none.
  [[nodiscard]] virtual data::ConnectionPtr ConexionLocal() const = 0;
  /// Language of the messages, such as "ESP01".
  [[nodiscard]] virtual std::string Lenguaje() const = 0;
  virtual void setLenguaje(std::string_view language) = 0;

  /// Folder of the error log.
  [[nodiscard]] virtual std::string CarpetaDeErrores() const = 0;

  /// Working month (1 to 12) and year.
  [[nodiscard]] virtual std::int32_t Mes() const = 0;
  [[nodiscard]] virtual std::int32_t Ejercicio() const = 0;

  /// Session values: a collection of WsField objects.
  [[nodiscard]] virtual std::shared_ptr<Collection> Sesion() const = 0;

  /// Patterns of the numbers in the host's text boxes: A with decimals, B as typed, C for special boxes.
  [[nodiscard]] virtual std::string FormatoA() const = 0;
  [[nodiscard]] virtual std::string FormatoB() const = 0;
  [[nodiscard]] virtual std::string FormatoC() const = 0;
};
using AmbientePtr = std::shared_ptr<Ambiente>;

/// Holds the values that the host gave it.
class SimpleAmbiente final : public Ambiente {
 public:
  explicit SimpleAmbiente(data::ConnectionPtr connection = nullptr) : connection_(std::move(connection)) {}

  [[nodiscard]] data::ConnectionPtr Conexion() const override { return connection_; }
  [[nodiscard]] Variant Sucursal() const override { return branch_; }
  [[nodiscard]] std::string Usuario() const override { return user_; }
  [[nodiscard]] data::ConnectionPtr ConexionLocal() const override { return localConnection_; }
  [[nodiscard]] std::string Lenguaje() const override { return language_; }
  void setLenguaje(std::string_view language) override { language_ = language; }
  [[nodiscard]] std::string CarpetaDeErrores() const override { return errorFolder_; }
  [[nodiscard]] std::int32_t Mes() const override { return month_; }
  [[nodiscard]] std::int32_t Ejercicio() const override { return year_; }
  [[nodiscard]] std::shared_ptr<Collection> Sesion() const override { return session_; }
  [[nodiscard]] std::string FormatoA() const override { return formatA_; }
  [[nodiscard]] std::string FormatoB() const override { return formatB_; }
  [[nodiscard]] std::string FormatoC() const override { return formatC_; }

  void setConexion(data::ConnectionPtr connection) { connection_ = std::move(connection); }
  void setSucursal(Variant branch) { branch_ = std::move(branch); }
  void setUsuario(std::string user) { user_ = std::move(user); }
  void setConexionLocal(data::ConnectionPtr connection) { localConnection_ = std::move(connection); }
  void setCarpetaDeErrores(std::string folder) { errorFolder_ = std::move(folder); }
  void setMes(std::int32_t month) { month_ = month; }
  void setEjercicio(std::int32_t year) { year_ = year; }
  void setFormatoA(std::string pattern) { formatA_ = std::move(pattern); }
  void setFormatoB(std::string pattern) { formatB_ = std::move(pattern); }
  void setFormatoC(std::string pattern) { formatC_ = std::move(pattern); }

 private:
  data::ConnectionPtr connection_;
  Variant branch_;
  std::string user_;
  data::ConnectionPtr localConnection_;
  std::string language_;
  std::string errorFolder_ = ".";
  std::int32_t month_ = 0;
  std::int32_t year_ = 0;
  std::shared_ptr<Collection> session_ = std::make_shared<Collection>();
  std::string formatA_ = "#,##0.00";
  std::string formatB_ = "#,##0.######";
  std::string formatC_ = "#,##0.000";
};

/// The connection of an environment that must have one. Throws RuntimeError 91 when the environment or its connection
/// is missing.
data::ConnectionPtr requireConnection(const AmbientePtr& ambiente);

}  // namespace qvn::host
