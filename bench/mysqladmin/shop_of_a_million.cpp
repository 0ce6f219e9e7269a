#include "bench/mysqladmin/shop_of_a_million.h"

#include <string>

#include "bench/support/raw_session.h"

namespace qvn::bench {

void makeShopOfAMillion() {
  dropShopOfAMillion();
  const auto server = openRawMysql();
  server->run("CREATE DATABASE " + std::string(kShopDatabase) + " CHARACTER SET utf8mb4");
  server->run("USE " + std::string(kShopDatabase));
  for (const char* const sql : {
           "CREATE TABLE clients (cliente VARCHAR(20) PRIMARY KEY, nombre VARCHAR(80), domicilio VARCHAR(120), saldo "
           "DOUBLE, alta DATE)",
           "CREATE TABLE prods (articulo VARCHAR(20) PRIMARY KEY, descrip VARCHAR(120), precio1 DOUBLE, costo "
           "DECIMAL(18,4), existencia DOUBLE, foto VARBINARY(32), nota TEXT)",
           "CREATE TABLE ventas (venta INT PRIMARY KEY, cliente VARCHAR(20), total DECIMAL(18,4), usufecha DATETIME, "
           "estado CHAR(2), KEY (cliente))",
           "CREATE TABLE partvta (id_salida INT PRIMARY KEY, venta INT, articulo VARCHAR(20), cantidad DOUBLE, precio "
           "DOUBLE, descuento DOUBLE, KEY (venta))",
           "INSERT INTO clients SELECT CONCAT('C', seq), CONCAT('Ferretería Muñoz e Hijos ', seq), CONCAT('Calle ', "
           "seq, ' \\'Norte\\''), seq * 1.5, '2026-01-19' FROM seq_1_to_50000",
           "INSERT INTO prods SELECT CONCAT('A', seq), CONCAT('Tornillo galvanizado de 1/4 ', seq), seq / 7, seq * "
           "1.2345, 14, UNHEX(SHA2(seq, 256)), IF(seq % 3, NULL, 'se pide\\npor caja') FROM seq_1_to_50000",
           "INSERT INTO ventas SELECT seq, CONCAT('C', seq % 50000), seq * 1.2345, '2026-02-09 10:42:07', 'PE' FROM "
           "seq_1_to_200000",
           "INSERT INTO partvta SELECT seq, seq % 200000, CONCAT('A', seq % 50000), 2.5, seq / 7, 0 FROM "
           "seq_1_to_700000",
       }) {
    server->run(sql);
  }
}

void dropShopOfAMillion() { openRawMysql()->run("DROP DATABASE IF EXISTS " + std::string(kShopDatabase)); }

}  // namespace qvn::bench
