// Commands for scripts at a station: captured commands, questions, the error log.
#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

TEST(EjecutaCommand, PassesOnWhatTheCommandWrites) {
  struct Row {
    std::vector<std::string> arguments;
    std::string shown;
  };
  const Row rows[] = {
      {{"ejecuta", "sh -c 'echo uno; echo dos >&2'"}, "uno\ndos\n"},
      {{"ejecuta", "--", "printf", "%s|", "a b", "d'Or", "$HOME"}, "a b|d'Or|$HOME|"},
      {{"ejecuta", "cat"}, ""},
      {{"ejecuta", "false"}, ""},
  };
  for (const Row& row : rows) EXPECT_EQ(expectRun(0, {.arguments = row.arguments, .input = "x"}).out, row.shown);
  EXPECT_EQ(expectRun(0, {.arguments = {"ejecuta", "seq 1000000"}}).out.size(), 6888896U);
  expectRun(0, {.arguments = {"ejecuta", "yes"}, .hasReader = false});
  expectRun(1, {.arguments = {"ejecuta", "no-hay-tal-programa x"}}, {"No se pudo iniciar «no-hay-tal-programa x»"});
  const ScratchFolder folder;
  const Call toFile{.arguments = {"ejecuta", "-a", "s.txt", "echo hola"}, .folder = folder.folder()};
  EXPECT_EQ(expectRun(0, toFile).out, "");
  EXPECT_EQ(bytesOf(folder.folder() / "s.txt"), "hola\n\r\n\r\n");
}

TEST(QuestionCommands, AnswerByTheirExitStatus) {
  struct Row {
    std::vector<std::string> arguments;
    std::string typed;
    int status;
  };
  const Row rows[] = {
      {{"pregunta", "¿Sigue?"}, "s\n", 0},
      {{"pregunta", "¿Sigue?"}, "n\n", 1},
      {{"pregunta", "¿Sigue?"}, "", 1},
      {{"pregunta", "¿Sigue?"}, "\n", 0},
      {{"pregunta", "-b2", "¿Sigue?"}, "\n", 1},
      {{"pregunta", "--todo", "¿Sigue?"}, "1", 0},
      {{"pregunta", "--todo", "¿Sigue?"}, "t", 4},
      {{"pregunta", "--todo", "¿Sigue?"}, "no", 1},
      {{"pregunta", "--todo", "¿Sigue?"}, "c", 3},
      {{"pregunta", "--todo", "¿Sigue?"}, "", 3},
      {{"pregunta", "--todo", "-b", "4", "¿Sigue?"}, "\n", 3},
  };
  for (const Row& row : rows) {
    const Outcome outcome = run({.arguments = row.arguments, .input = row.typed});
    EXPECT_EQ(outcome.status, row.status) << row.arguments.back() << row.typed;
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("¿Sigue?\n")) << outcome.err;
  }
  EXPECT_EQ(run({.arguments = {"entrada", "Nombre"}, .input = "Ana María\n"}).out, "Ana María\n");
  EXPECT_EQ(run({.arguments = {"entrada", "--oculta", "Clave"}, .input = "secreto\n"}).out, "secreto\n");
  EXPECT_EQ(run({.arguments = {"entrada", "Nombre"}}).status, 3);
  EXPECT_EQ(run({.arguments = {"mensaje", "uno\x1B[2J"}}).err, "uno\\x1B[2J\n");
  EXPECT_EQ(run({.arguments = {"mensaje", "--alerta"}, .input = std::string(1 << 20, 'x')}).err.size(), (1U << 20) + 1);
}

TEST(QuestionCommands, SayWhyThereIsNoWindow) {
  const std::vector<std::string> noDisplay = {"DISPLAY=", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM="};
  const Call lost{.arguments = {"pregunta", "--ventana", "¿Sigue?"},
                  .environment = {"DISPLAY=:9987", "QT_QPA_PLATFORM=xcb"}};
  expectRun(1, lost, {"DISPLAY"});
  expectRun(1, {.arguments = {"mensaje", "--ventana", "Hola"}, .environment = noDisplay}, {"no hay una pantalla"});
  const ScratchFolder folder;
  const std::filesystem::path alone = folder.folder() / "qvn";
  std::filesystem::copy(QVN_PROGRAM, alone);
  expectRun(1, {.arguments = {"entrada", "--ventana", "Nombre"}, .program = alone}, {"qvn-ventana", "Qt 6"});
}

TEST(BitacoraCommand, ShowsTheErrorsOfADay) {
  const ScratchFolder folder;
  const auto record = [](const std::string& time, const std::string& module, const std::string& description) {
    return time + " Ocurrió un error:\r\nModule: " + module + "\r\nFunction: Guardar\r\nDescription: " + description +
           "\r\n\r\n";
  };
  putBytes(folder.folder() / "QuorvinError07032012.Log",
           "basura\r\n" + record("10:42:07", "frmVentas", "Division by zero") + "11:00:00 Ocurrió un error:\r\n" +
               record("11:00:01", "frmPagos", "uno\r\n\r\ndos") + record("23:59:59", "FRMVENTAS", ""));
  const auto shown = [&](std::vector<std::string> more) {
    std::vector<std::string> arguments = {"bitacora", "--carpeta", folder.folder().string(), "--fecha", "2012-03-07"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return expectRun(0, {.arguments = arguments}).out;
  };
  const std::string first = "10:42:07  frmVentas.Guardar  Division by zero\n";
  const std::string second = "11:00:01  frmPagos.Guardar  uno\\n\\ndos\n";
  const std::string third = "23:59:59  FRMVENTAS.Guardar  \n";
  EXPECT_EQ(shown({}), first + second + third);
  EXPECT_EQ(shown({"--modulo", "frmVentas"}), first + third);
  EXPECT_EQ(shown({"-m", "otro"}), "");
  EXPECT_EQ(run({.arguments = {"bitacora", "-f", "1999-01-01"}, .folder = folder.folder()}).err,
            "No hay errores registrados ese día: no existe ./QuorvinError01011999.Log\n");
}

}  // namespace
}  // namespace qvn::test
