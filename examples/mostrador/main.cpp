// A counter of a shop on the library:  mostrador [BASE.db]
//
//   mostrador --muestra CARPETA   sells two products without a person, and leaves the window's pictures, the receipt
//   and
//                                 the database in the folder
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPixmap>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <string>

#include "counter_window.h"
#include "qvn/lumlibreria.h"
#include "shop.h"
#include "ticket.h"

namespace {

using namespace mostrador;  // NOLINT(google-build-using-namespace): the program's own

qvn::host::AmbientePtr stationOf(const qvn::data::ConnectionPtr& shop) {
  auto station = std::make_shared<qvn::host::SimpleAmbiente>(shop);
  station->setUsuario("MARIA");
  return station;
}

void runSample(const qvn::LumLibreria& library, const std::string& folder) {
  std::filesystem::create_directories(folder);
  const auto station = stationOf(openShop(library, folder + "/mostrador.db"));
  CounterWindow window(library, station,
                       [&](const ClosedSale& sale) { printTicket(library, sale, folder + "/ticket.pdf"); });
  window.show();
  window.search("TAL-12");
  window.addMarked();
  window.search("silic");
  window.setQuantity(3);
  window.addMarked();
  window.search("disco");
  window.setQuantity(10);
  window.addMarked();
  window.grab().save(QString::fromStdString(folder + "/venta.png"));
  const auto sale = window.pay(toCents(2000));
  window.grab().save(QString::fromStdString(folder + "/cobrada.png"));
  if (!sale) throw qvn::RuntimeError(5, "La venta de muestra no se cobró");
  std::printf("venta %d: %s\n", sale->number, ticketDigits(sale->number).c_str());
}

int runCounter(const qvn::LumLibreria& library, const std::string& file) {
  const auto station = stationOf(openShop(library, file));
  CounterWindow window(library, station, [&](const ClosedSale& sale) {
    printTicket(library, sale, "ticket-" + std::to_string(sale.number) + ".pdf");
  });
  window.show();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  std::setlocale(LC_ALL, "");
  const QStringList words = QApplication::arguments();
  try {
    const qvn::LumLibreria library;
    if (words.size() == 3 && words[1] == "--muestra") {
      runSample(library, words[2].toStdString());
      return 0;
    }
    if (words.size() > 2 || (words.size() == 2 && words[1].startsWith('-'))) {
      std::fputs("uso: mostrador [BASE.db]\n     mostrador --muestra CARPETA\n", stderr);
      return 2;
    }
    return runCounter(library, words.size() == 2 ? words[1].toStdString() : "mostrador.db");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "mostrador: %s\n", error.what());
    if (QGuiApplication::platformName() != "offscreen") QMessageBox::critical(nullptr, "Mostrador", error.what());
    return 1;
  }
}
