#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

TEST(BarrasCommand, ModulesAndPreview) {
  const std::string star = "1001011011010";
  EXPECT_EQ(expectRun(0, {.arguments = {"barras", "code39", "0", "--modulos"}}).out,
            star + "1010011011010" + star + "\n");
  // The sum of 0 is 0, and so its check character is another 0.
  EXPECT_EQ(expectRun(0, {.arguments = {"barras", "code39", "0", "--modulos", "--verificador"}}).out,
            star + "1010011011010" + "1010011011010" + star + "\n");
  // Quiet zone of ten modules, 1101 and so on: five columns, then two modules in each.
  const std::string preview = expectRun(0, {.arguments = {"barras", "code128", "123456"}}).out;
  EXPECT_TRUE(preview.starts_with("     █▐ ")) << preview;
  expectHolds(preview, {"123456"});
  const std::string bare = expectRun(0, {.arguments = {"barras", "code128", "123456", "--sin-texto"}}).out;
  EXPECT_EQ(bare.find("123456"), std::string::npos);
}

TEST(BarrasCommand, FilesByTheirEnding) {
  const ScratchFolder folder;
  const auto draw = [&](std::vector<std::string> arguments, const std::vector<std::string>& said = {}) {
    arguments.insert(arguments.begin(), "barras");
    expectRun(0, {.arguments = std::move(arguments), .folder = folder.folder()}, said);
  };
  draw({"code39", "PLU-17", "-o", "a.png", "--alto", "3"});
  EXPECT_TRUE(bytesOf(folder.folder() / "a.png").starts_with("\x89PNG"));
  draw({"ean13", "400638133393", "--salida=a.svg"});
  expectHolds(bytesOf(folder.folder() / "a.svg"), {"<svg"});
  draw({"code128", "AB12", "-o", "a.pdf"}, {"«12»", "--completo"});
  EXPECT_TRUE(bytesOf(folder.folder() / "a.pdf").starts_with("%PDF"));
  draw({"code128", "AB12", "-o", "a.pdf", "--completo", "--ancho-modulo", "2", "--ensancha"});
  draw({"ean8", "9638507", "-o", "a.png"}, {"--ensancha"});
  draw({"ean8", "9638507", "-o", "a.png", "--ensancha"});
}

TEST(BarrasCommand, SheetOfLabels) {
  const ScratchFolder folder;
  putBytes(folder.folder() / "lista.txt", "PLU-1\r\n\nplu-2\nPLU-3");
  const Call call{.arguments = {"barras", "code39", "--lista", "lista.txt", "-o", "h.pdf"}, .folder = folder.folder()};
  EXPECT_EQ(expectRun(1, call, {"renglón 3: «plu-2»", "mayúsculas"}).out, "h.pdf: 2 etiquetas, 1 hoja\n");
  EXPECT_TRUE(bytesOf(folder.folder() / "h.pdf").ends_with("%%EOF\n"));
  const Call input{
      .arguments = {"barras", "ean8", "-l-", "-o", "h.pdf"}, .input = "9638507\n", .folder = folder.folder()};
  EXPECT_EQ(expectRun(0, input).out, "h.pdf: 1 etiqueta, 1 hoja\n");
}

TEST(BarrasCommand, Refusals) {
  expectRun(1, {.arguments = {"barras", "code39", "abc"}}, {"«abc»", "mayúsculas", "error 5"});
  expectRun(1, {.arguments = {"barras", "ean13", "4006381333931"}}, {"12 cifras"});
  expectRun(1, {.arguments = {"barras", "code128", "Añ"}}, {"«Añ»", "error 9"});
  expectRun(1, {.arguments = {"barras", "ean8", "9638507", "-o", "/no/hay/a.png", "--ensancha"}},
            {"/no/hay/a.png", "75"});
  expectRun(1, {.arguments = {"barras", "ean8", "9638507", "-o", "a.bmp", "--ensancha"}}, {".png, .svg o .pdf"});
  expectRun(1, {.arguments = {"barras", "ean8", "--lista", "/no/hay", "-o", "/tmp/a.pdf"}}, {"/no/hay"});
}

}  // namespace
}  // namespace qvn::test
