// The command for handheld devices, over a folder and over the library of tests/devices/pocket_library.cpp.
#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

// A device's folder and one of this machine.
class MovilCommand : public ::testing::Test {
 protected:
  MovilCommand() {
    std::filesystem::create_directories(device_ / "My Documents");
    std::filesystem::create_directories(local_);
  }
  [[nodiscard]] Call byFolder(std::vector<std::string> words) const {
    words.insert(words.begin(), {"movil", "--carpeta", device_.string()});
    return {.arguments = words, .folder = local_};
  }
  // The library's faults are told by the environment.
  [[nodiscard]] Call byLibrary(std::vector<std::string> words, const std::string& faults = "") const {
    words.insert(words.begin(), "movil");
    return {.arguments = words,
            .environment = {"QVN_RAPI=" QVN_POCKET_LIBRARY, "POCKET_FOLDER=" + device_.string(),
                            "POCKET_FAULTS=" + faults, "POCKET_LOG=/dev/null"},
            .folder = local_};
  }

  const ScratchFolder folder_;
  const std::filesystem::path device_ = folder_.folder() / "device";
  const std::filesystem::path local_ = folder_.folder() / "local";
};

TEST_F(MovilCommand, TakesFilesThereAndBack) {
  const std::string path = R"(\My Documents\año.txt)";
  for (const bool hasLibrary : {false, true}) {
    SCOPED_TRACE(hasLibrary);
    const auto call = [&](const std::vector<std::string>& words) {
      return hasLibrary ? byLibrary(words) : byFolder(words);
    };
    putBytes(local_ / "there", std::string(5000, 'x'));
    expectRun(1, call({"existe", path}), {"no existe «" + path + "»"});
    EXPECT_EQ(expectRun(0, call({"lleva", "there", path})).out, "5000 bytes en «" + path + "»\n");
    EXPECT_EQ(bytesOf(device_ / "My Documents" / "año.txt"), std::string(5000, 'x'));
    EXPECT_EQ(expectRun(0, call({"existe", R"(\My Documents\a*.txt)"})).out, "existe «\\My Documents\\a*.txt»\n");
    putBytes(local_ / "back", std::string(5001, 'y'));
    EXPECT_EQ(expectRun(0, call({"trae", path, "back"})).out, "5000 bytes en «back»\n");
    EXPECT_EQ(bytesOf(local_ / "back"), std::string(5000, 'x') + "y");
    EXPECT_EQ(expectRun(0, call({"borra", path})).out, "se borró «" + path + "»\n");
    EXPECT_FALSE(std::filesystem::exists(device_ / "My Documents" / "año.txt"));
  }
}

TEST_F(MovilCommand, SaysWhatFailed) {
  putBytes(device_ / "a", "old");
  putBytes(local_ / "a", std::string(5000, 'x'));
  expectRun(1, byFolder({"lleva", "a", "\\a"}), {"«\\a» ya existe en el dispositivo"});
  EXPECT_EQ(bytesOf(device_ / "a"), "old");
  expectRun(1, byFolder({"lleva", "no-hay", "\\b"}), {"«no-hay»", "error 53"});
  expectRun(1, byFolder({"trae", "\\no-hay", "b"}), {"no se pudo abrir «\\no-hay» en el dispositivo"});
  EXPECT_FALSE(std::filesystem::exists(local_ / "b"));
  expectRun(1, byFolder({"trae", "\\a", "no/hay"}), {"«no/hay»", "error 76"});
  expectRun(1, byFolder({"borra", "..\\local\\a"}), {"no se pudo borrar"});
  expectRun(1, byFolder({"ejecuta", "\\a"}), {"no se pudo arrancar «\\a»"});
  expectRun(1, byLibrary({"lleva", "a", "\\b"}, "full=3000"), {"el dispositivo no aceptó todo «\\b»"});
  EXPECT_EQ(bytesOf(device_ / "b"), std::string(3000, 'x'));
  expectRun(1, byLibrary({"trae", "--espera", "1", "\\a", "c"}, "dead-reads"), {"el dispositivo dejó de contestar"});
}

TEST_F(MovilCommand, StartsProgramsAndTellsTheVersion) {
  putBytes(device_ / "a.exe", "");
  EXPECT_EQ(expectRun(0, byLibrary({"ejecuta", "\\a.exe", "uno dos"})).out, "se arrancó «\\a.exe»\n");
  EXPECT_EQ(expectRun(0, byLibrary({"version"})).out, "5.1.1700 Edición 2\n");
  EXPECT_EQ(expectRun(0, byFolder({"version"})).out, "0.0.0 carpeta\n");
  expectRun(1, byLibrary({"version"}, "no-version"), {"no dice su versión"});
}

TEST_F(MovilCommand, SaysWhyThereIsNoDevice) {
  expectRun(1, byLibrary({"version", "--espera", "0"}, "no-signal"), {"no contesta", "error 57"});
  expectRun(1, byLibrary({"version", "--biblioteca", "/no/hay.so"}), {"«/no/hay.so»", "error 53"});
  expectRun(1, {.arguments = {"movil", "version", "--carpeta", "/no/hay"}}, {"«/no/hay»", "error 76"});
}

}  // namespace
}  // namespace qvn::test
