#include "qvn/system/dos_outputs.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "tests/support/recorded_messages.h"
#include "tests/support/scratch_folder.h"

namespace qvn::system {
namespace {

class Console : public testing::Test {
 protected:
  Console() {
    console_.onReceiveOutputs([this](std::string_view piece) { pieces_.emplace_back(piece); });
  }
  std::string toFile(std::string_view line, bool expected = true) {
    std::string error;
    EXPECT_EQ(console_.ExecuteToFile(line, file_, error), expected);
    return error;
  }

  test::ScratchFolder folder_;
  std::string file_ = folder_.path();
  std::shared_ptr<test::RecordedMessages> messages_ = std::make_shared<test::RecordedMessages>();
  DOSOutputs console_{messages_};
  std::vector<std::string> pieces_;
};

TEST_F(Console, HandsOverEverythingThatIsWritten) {
  std::string all;
  for (int i = 0; i < 256; ++i) all.push_back(static_cast<char>(i));
  folder_.put(all);
  struct Row {
    std::string line;
    std::string expected;
  };
  const Row rows[] = {
      {"printf 'uno\\ndos'", "uno\ndos"},
      {"true", ""},
      {"false", ""},
      {"sh -c 'echo bien; echo mal >&2; echo fin'", "bien\nmal\nfin\n"},
      {"cat " + file_, all},
      {"cat", ""},                                          // nothing comes from the person's keyboard
      {"sh -c 'printf a; (sleep 0.2; printf b) &'", "ab"},  // what it started writes on
      {"sh -c 'printf a; kill -9 $$'", "a"},
      {"printf ñandú€", "ñandú€"},
  };
  for (const Row& row : rows) {
    pieces_.clear();
    EXPECT_EQ(console_.ExecuteCommand(row.line), row.expected) << row.line;
    EXPECT_EQ(console_.Outputs().toText(), row.expected);
    ASSERT_FALSE(pieces_.empty());
    EXPECT_EQ(pieces_.back(), "");
    std::string joined;
    for (const std::string& piece : pieces_) joined += piece;
    EXPECT_EQ(joined, row.expected);
  }
  EXPECT_TRUE(messages_->shown.empty());
}

TEST_F(Console, ComesInPiecesOf256Bytes) {
  const std::string output(600, '\0');
  EXPECT_EQ(console_.ExecuteCommand("head -c 600 /dev/zero"), output);
  const std::string piece(256, '\0');
  const std::string last(88, '\0');
  const std::vector<std::string> expected = {piece, piece, last, ""};
  EXPECT_EQ(pieces_, expected);
  EXPECT_EQ(toFile({}), "");  // the same line again
  EXPECT_EQ(folder_.bytes(), piece + "\r\n" + piece + "\r\n" + last + "\r\n\r\n");
  EXPECT_EQ(console_.Outputs().toText(), "");
  EXPECT_EQ(pieces_, expected);
}

TEST_F(Console, SaysWhatCouldNotBeStarted) {
  EXPECT_EQ(console_.ExecuteCommand(), "");
  EXPECT_EQ(toFile("", false), "Linea de comandos vacia");
  folder_.put("x");
  for (const std::string& line : {std::string("no-hay-tal-programa"), file_, folder_.path(""), std::string(" ")}) {
    EXPECT_EQ(console_.ExecuteCommand(line), "") << line;
    EXPECT_EQ(console_.CommandLine(), line);
    EXPECT_EQ(toFile(line), "Archivo o comando equivocados");
  }
  EXPECT_EQ(folder_.bytes(), "x");
  const std::string notFound = "File or command not found|16|";
  EXPECT_EQ(messages_->shown,
            (std::vector<std::string>{"Command Line empty|16|", notFound, notFound, notFound, notFound}));
  EXPECT_TRUE(pieces_.empty());
}

TEST_F(Console, SaysThatThereIsNoPipe) {
  rlimit saved{};
  getrlimit(RLIMIT_NOFILE, &saved);
  const rlimit none{0, saved.rlim_max};
  setrlimit(RLIMIT_NOFILE, &none);
  // The text of ExecuteCommand is the same; it is not asked for, because the sanitizer needs a pipe to follow its box.
  const std::string error = toFile("true");
  setrlimit(RLIMIT_NOFILE, &saved);
  EXPECT_EQ(error, "CreatePipe failed. Error: " + std::to_string(EMFILE));
}

// A database's library ignores broken pipes for the whole process.
TEST_F(Console, CommandsStartWithTheUsualSignals) {
  auto* const before = std::signal(SIGPIPE, SIG_IGN);
  EXPECT_EQ(console_.ExecuteCommand("sh -c 'yes | head -n 1'"), "y\n");
  std::signal(SIGPIPE, before);
}

std::ptrdiff_t openDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
}

TEST_F(Console, LeavesNothingBehind) {
  const auto before = openDescriptors();
  for (int i = 0; i < 250; ++i) {
    EXPECT_EQ(console_.ExecuteCommand("echo hola"), "hola\n");
    console_.ExecuteCommand("no-hay-tal-programa");
    console_.onReceiveOutputs([](std::string_view) { throw std::runtime_error("hasta aquí"); });
    EXPECT_THROW(console_.ExecuteCommand("echo hola"), std::runtime_error);
    console_.onReceiveOutputs({});
  }
  EXPECT_EQ(openDescriptors(), before);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  siginfo_t child{};
  int found = 0;
  do {
    found = waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT);
  } while (found == 0 && std::chrono::steady_clock::now() < deadline);
  EXPECT_EQ(found, -1);
  EXPECT_EQ(errno, ECHILD);
}

}  // namespace
}  // namespace qvn::system
