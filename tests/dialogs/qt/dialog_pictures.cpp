// Pictures of all dialogs, for looking at them:  QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=2 dialog_pictures FOLDER
#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <iostream>

#include "qvn/dialogs/qt/qt_dialogs.h"
#include "qvn/dialogs/qt/qt_progress.h"

namespace {

// Takes a picture of the window that is open.
QWidget* grab(const QString& file) {
  QWidget* const window = QApplication::activeModalWidget();
  if (window == nullptr || !window->grab().save(file)) std::cerr << "no picture: " << file.toStdString() << '\n';
  return window;
}

// Takes a picture of the window that `open` shows, and closes it.
void picture(const QString& file, const std::function<void()>& open) {
  QTimer::singleShot(200, qApp, [file] {
    if (QWidget* const window = grab(file)) window->close();
  });
  open();
}

void pictureProgress(const QString& file, const qvn::dialogs::ProgressState& state) {
  const qvn::dialogs::ProgressViewPtr view = qvn::dialogs::qtProgress();
  view->show(state);
  grab(file);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 2 || !QDir().mkpath(argv[1])) return 2;
  const QDir folder(argv[1]);
  const qvn::dialogs::DialogsPtr held = qvn::dialogs::qtDialogs();
  qvn::dialogs::Dialogs& dialogs = *held;
  const std::string text =
      "No es posible actualizar el registro porque otro usuario lo esta usando o tiene dos ventanas con el mismo "
      "registro abiertas";
  std::string longText;
  for (int i = 1; i < 60; ++i) longText += "Renglón " + std::to_string(i) + ": " + text + "\n";
  picture(folder.filePath("mensaje.png"), [&] { dialogs.message(text); });
  picture(folder.filePath("mensaje_largo.png"), [&] { dialogs.message(longText); });
  picture(folder.filePath("alerta.png"), [&] { dialogs.alert(text); });
  picture(folder.filePath("pregunta.png"), [&] { dialogs.question("¿Desea borrar el respaldo anterior?", 2); });
  picture(folder.filePath("opciones.png"), [&] { dialogs.choice("El archivo ya existe. ¿Desea sobrescribirlo?", 1); });
  picture(folder.filePath("opciones_largo.png"), [&] { dialogs.choice(longText, 1); });
  picture(folder.filePath("entrada.png"), [&] { dialogs.entry("Nombre del cliente"); });
  picture(folder.filePath("contrasena.png"), [&] { dialogs.password("Contraseña", nullptr); });
  picture(folder.filePath("teclado.png"), [&] { dialogs.keyboard("Ferretería Muñoz"); });
  // It goes by itself, so that the work takes the picture.
  dialogs.progress("Reparando: clients", [&](const qvn::dialogs::Dialogs::Show& show) {
    show("Reparando: clients\r\n\r\nEs necesario reparar con el comando myisamchk");
    grab(folder.filePath("avance.png"));
  });
  pictureProgress(folder.filePath("progreso.png"), {.title = "Exportación a hoja de cálculo",
                                                    .text = "Ventas de febrero: 312,400 de 1,000,000 registros",
                                                    .done = 312'400,
                                                    .total = 1'000'000,
                                                    .elapsed = std::chrono::seconds(19)});
  pictureProgress(folder.filePath("progreso_sin_total.png"), {.text = "Leyendo " + text, .canCancel = false});
  picture(folder.filePath("cuadro.png"), [&] { dialogs.show(text, 64, "Quorvin POS"); });
  return 0;
}
