#include "qvn/system/shell.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "tests/support/error_of.h"
#include "tests/support/scratch_folder.h"

namespace qvn::system {
namespace {

// Programs of the desktop, played by scripts that note down how they were called.
class Shell : public testing::Test {
 protected:
  Shell() {
    std::filesystem::create_directory(folder_.path("bin"));
    std::filesystem::create_directory(folder_.path("datos"));
    for (const std::string name : {"bin/xdg-open", "bin/lp", "bin/caja", "datos/local"}) {
      const std::string noted = folder_.path("t");
      folder_.put(
          "#!/bin/sh\nprintf '%s|' " + name + " \"$PWD\" \"$@\" >" + noted + "\nmv " + noted + " " + folder_.path(),
          name);
      std::filesystem::permissions(folder_.path(name), std::filesystem::perms::owner_all);
    }
    folder_.put("x", "datos/nota.txt");
    setenv("PATH", (folder_.path("bin") + ":" + path_).c_str(), 1);
  }
  ~Shell() override { setenv("PATH", path_.c_str(), 1); }

  /// What the script noted down, once it has.
  [[nodiscard]] std::string done() const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!std::filesystem::exists(folder_.path()) && std::chrono::steady_clock::now() < deadline) {
      std::this_thread::yield();
    }
    const std::string text = folder_.bytes();
    std::filesystem::remove(folder_.path());
    return text;
  }

  test::ScratchFolder folder_;
  std::string path_ = std::getenv("PATH");
};

TEST_F(Shell, OpensProgramsDocumentsAndAddresses) {
  const std::string here = std::filesystem::current_path().string();
  const std::string data = folder_.path("datos");
  struct Row {
    const char* operation;
    std::string file;
    const char* parameters;
    std::string folder;
    std::string expected;
  };
  const Row rows[] = {
      {"open", "caja", "--a 'b c'", "", "bin/caja|" + here + "|--a|b c|"},
      {"", folder_.path("datos") + "\\local", "", "", "datos/local|" + here + "|"},
      {"OPEN", "local", "x", data, "datos/local|" + data + "|x|"},
      {"open", "nota.txt", "", data, "bin/xdg-open|" + data + "|" + data + "/nota.txt|"},
      {"explore", data, "", "", "bin/xdg-open|" + here + "|" + data + "|"},
      {"open", "https://tienda.example/a?b=c", "", "", "bin/xdg-open|" + here + "|https://tienda.example/a?b=c|"},
      {"Print", data + "/nota.txt", "", "", "bin/lp|" + here + "|" + data + "/nota.txt|"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.expected);
    EXPECT_GT(ShellRun(0, row.operation, row.file, row.parameters, row.folder, 1), 32);
    EXPECT_EQ(done(), row.expected);
  }
}

TEST_F(Shell, SaysWhyNothingWasOpened) {
  EXPECT_EQ(ShellRun(0, "open", folder_.path("nada.txt"), "", "", 1), shell_result::kFileNotFound);
  EXPECT_EQ(ShellRun(0, "open", "no-hay-tal-programa", "", "", 1), shell_result::kFileNotFound);
  EXPECT_EQ(ShellRun(0, "open", "", "", "", 1), shell_result::kFileNotFound);
  EXPECT_EQ(ShellRun(0, "open", folder_.path("no/nada.txt"), "", "", 1), shell_result::kFolderNotFound);
  EXPECT_EQ(ShellRun(0, "open", "caja", "", folder_.path("no"), 1), shell_result::kFolderNotFound);
  EXPECT_EQ(ShellRun(0, "edit", folder_.path("datos/nota.txt"), "", "", 1), shell_result::kNoAssociation);
  setenv("PATH", folder_.path("datos").c_str(), 1);
  EXPECT_EQ(ShellRun(0, "open", folder_.path("datos/nota.txt"), "", "", 1), shell_result::kNoAssociation);
}

TEST_F(Shell, StartsCommands) {
  ShellCommand("caja \"dos palabras\"", 1.0);
  EXPECT_EQ(done(), "bin/caja|" + std::filesystem::current_path().string() + "|dos palabras|");
  EXPECT_EQ(test::errorNumber([] { ShellCommand("no-hay-tal-programa", 1); }), 53);
  EXPECT_EQ(test::errorNumber([&] { ShellCommand(folder_.path("datos/nota.txt"), 1); }), 70);
  EXPECT_EQ(test::errorNumber([] { ShellCommand(" ", 1); }), 5);
  EXPECT_EQ(test::errorNumber([] { ShellCommand("caja", "grande"); }), 13);
}

}  // namespace
}  // namespace qvn::system
