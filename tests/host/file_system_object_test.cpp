#include "qvn/host/file_system_object.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/error_of.h"

namespace qvn::host {
namespace {

namespace fs = std::filesystem;

// A folder of the test's own, removed with the object.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const fs::path& parent) {
    std::string name = parent / "qvn-files-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder in " + parent.string());
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  [[nodiscard]] std::string operator/(std::string_view name) const { return path_ / name; }

 private:
  fs::path path_;
};

std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Files : public testing::Test {
 protected:
  std::string make(std::string_view name, std::string_view bytes) {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return folder / name;
  }
  std::set<std::string> names() {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder / "")) found.insert(entry.path().filename());
    return found;
  }

  TemporaryFolder folder{fs::temp_directory_path()};
  FileSystemObject files;
};

TEST(FileNames, PartsOfPaths) {
  struct Row {
    const char* path;
    const char* parent;
    const char* name;
    const char* base;
    const char* extension;
  };
  static constexpr Row kRows[] = {
      {"", "", "", "", ""},
      {"/", "", "", "", ""},
      {"a", "", "a", "a", ""},
      {"/a.txt", "/", "a.txt", "a", "txt"},
      {"datos\\año.tar.gz", "datos", "año.tar.gz", "año.tar", "gz"},
      {"x\\y/z//", "x\\y", "z", "z", ""},
      {"a//b.", "a", "b.", "b", ""},
      {"v1.2/.perfil", "v1.2", ".perfil", "", "perfil"},
      {"C:\\POS\\caja.dat", "C:\\POS", "caja.dat", "caja", "dat"},
  };
  const FileSystemObject files;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(files.GetParentFolderName(row.path), row.parent);
    EXPECT_EQ(files.GetFileName(row.path), row.name);
    EXPECT_EQ(files.GetBaseName(row.path), row.base);
    EXPECT_EQ(files.GetExtensionName(row.path), row.extension);
  }
}

TEST(FileNames, BuildsPathsWithOneSeparator) {
  const FileSystemObject files;
  EXPECT_EQ(files.BuildPath("a", "b"), "a/b");
  EXPECT_EQ(files.BuildPath("a\\", "b"), "a\\b");
  EXPECT_EQ(files.BuildPath("a/", "\\b"), "a/b");
  EXPECT_EQ(files.BuildPath("/", "b"), "/b");
  EXPECT_EQ(files.BuildPath("", "b"), "b");
  EXPECT_EQ(files.BuildPath("a", ""), "a");
  EXPECT_EQ(files.BuildPath("a", "/"), "a/");
}

TEST(FileNames, CompletesPaths) {
  const FileSystemObject files;
  const std::string current = fs::current_path();
  EXPECT_EQ(files.GetAbsolutePathName(""), current);
  EXPECT_EQ(files.GetAbsolutePathName("no\\hay/../b/"), current + "/no/b");
  EXPECT_EQ(files.GetAbsolutePathName("/x/./y/../../.."), "/");
}

TEST(FileNames, DrawsTemporaryNames) {
  struct Fixed final : RandomSource {
    double next() override { return value; }
    double value = 0;
  };
  const auto random = std::make_shared<Fixed>();
  const FileSystemObject files(random);
  EXPECT_EQ(files.GetTempName(), "rad00000.tmp");
  random->value = 0xBEEF / 1048576.0;
  EXPECT_EQ(files.GetTempName(), "rad0BEEF.tmp");
  random->value = 1 - 0x1p-53;
  EXPECT_EQ(files.GetTempName(), "radFFFFF.tmp");
}

TEST_F(Files, TellsFilesFromFolders) {
  make("caja.txt", "x");
  EXPECT_TRUE(files.FileExists(folder / "caja.txt"));
  EXPECT_TRUE(files.FileExists(folder / "" + "\\caja.txt"));
  EXPECT_FALSE(files.FolderExists(folder / "caja.txt"));
  EXPECT_TRUE(files.FolderExists(folder / ""));
  EXPECT_FALSE(files.FileExists(folder / ""));
  EXPECT_FALSE(files.FileExists(folder / "caja.txt/x"));
  EXPECT_FALSE(files.FileExists(""));
}

// Faults that the system's administrator meets as well.
TEST_F(Files, FailuresHaveTheirNumbers) {
  const std::string file = make("archivo", "x");
  const std::string other = make("otro", "y");
  const std::string sub = folder / "carpeta";
  files.CreateFolder(sub);
  const std::string none = folder / "nada";
  const std::string tooLong = folder / std::string(300, 'n');
  struct Row {
    const char* why;
    std::function<void()> call;
    std::int32_t number;
  };
  const Row rows[] = {
      {"folder exists", [&] { files.CreateFolder(sub); }, 58},
      {"folder named as a file", [&] { files.CreateFolder(file); }, 58},
      {"folder in no folder", [&] { files.CreateFolder(none + "/x"); }, 76},
      {"folder in a file", [&] { files.CreateFolder(file + "/x"); }, 76},
      {"folder with too long a name", [&] { files.CreateFolder(tooLong); }, 52},
      {"folder without a name", [&] { files.CreateFolder(""); }, 52},
      {"a NUL in the name", [&] { files.CreateFolder(std::string("a\0b", 3)); }, 52},
      {"delete no folder", [&] { files.DeleteFolder(none); }, 76},
      {"delete a file as a folder", [&] { files.DeleteFolder(file); }, 76},
      {"delete no file", [&] { files.DeleteFile(none); }, 53},
      {"delete a folder as a file", [&] { files.DeleteFile(sub); }, 53},
      {"delete in a file", [&] { files.DeleteFile(file + "/x"); }, 76},
      {"delete a pattern that fits a folder alone", [&] { files.DeleteFile(folder / "carp*"); }, 53},
      {"delete a pattern in no folder", [&] { files.DeleteFile(none + "/*"); }, 76},
      {"delete without a name", [&] { files.DeleteFile(""); }, 52},
      {"copy no file", [&] { files.CopyFile(none, other); }, 53},
      {"copy a folder", [&] { files.CopyFile(sub, none); }, 53},
      {"copy from no folder", [&] { files.CopyFile(none + "/x", other); }, 76},
      {"copy into no folder", [&] { files.CopyFile(file, none + "/"); }, 76},
      {"copy over a file", [&] { files.CopyFile(file, other, false); }, 58},
      {"copy onto itself", [&] { files.CopyFile(file, file); }, 58},
      {"copy over a folder", [&] { files.CopyFile(file, sub); }, 70},
      {"copy to no name", [&] { files.CopyFile(file, ""); }, 52},
      {"move no file", [&] { files.MoveFile(none, other); }, 53},
      {"move over a file", [&] { files.MoveFile(file, other); }, 58},
      {"move into no folder", [&] { files.MoveFile(file, none + "/x"); }, 76},
      {"create over a file", [&] { (void)files.CreateTextFile(file, false); }, 58},
      {"create over a folder", [&] { (void)files.CreateTextFile(sub); }, 70},
      {"create in no folder", [&] { (void)files.CreateTextFile(none + "/x"); }, 76},
      {"read no file", [&] { (void)files.OpenTextFile(none); }, 53},
      {"append to no file", [&] { (void)files.OpenTextFile(none, 8); }, 53},
      {"read in no folder", [&] { (void)files.OpenTextFile(none + "/x"); }, 76},
      {"create in a file", [&] { (void)files.OpenTextFile(file + "/x", 2, true); }, 76},
      {"read a folder", [&] { (void)files.OpenTextFile(sub); }, 70},
      {"read without a name", [&] { (void)files.OpenTextFile(""); }, 52},
      {"an unknown mode", [&] { (void)files.OpenTextFile(file, 3); }, 5},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(test::errorNumber(row.call), row.number);
  }
  EXPECT_EQ(names(), (std::set<std::string>{"archivo", "otro", "carpeta"}));
  EXPECT_EQ(bytesOf(file) + bytesOf(other), "xy");
}

TEST_F(Files, FailuresSayWhatWasTriedOnWhichPath) {
  const std::string none = folder / "nada";
  try {
    files.CopyFile(make("a", ""), none + "/b");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(), "No se pudo copiar el archivo «" + (folder / "a") + "» a «" + none +
                                       "/b»: No se encontró la ruta de acceso (No such file or directory)");
  }
}

TEST_F(Files, DeletesFilesThatFitThePattern) {
  struct Row {
    const char* pattern;
    std::set<std::string> left;
  };
  const Row rows[] = {
      {"a1.txt", {"a22.txt", "añ.txt", "LEEME", "x.TXT"}},
      {"a?.txt", {"a22.txt", "LEEME", "x.TXT"}},
      {"*.txt", {"LEEME", "x.TXT"}},
      {"a*2*t", {"a1.txt", "añ.txt", "LEEME", "x.TXT"}},
      {"????????*", {"a1.txt", "a22.txt", "añ.txt", "LEEME", "x.TXT"}},
      {"*.*", {}},
      {"*", {}},
  };
  files.CreateFolder(folder / "a3.txt");
  for (const Row& row : rows) {
    SCOPED_TRACE(row.pattern);
    for (const char* name : {"a1.txt", "a22.txt", "añ.txt", "LEEME", "x.TXT"}) make(name, "");
    const bool fitsNone = row.left.size() == 5;
    EXPECT_EQ(test::errorNumber([&] { files.DeleteFile(folder / row.pattern); }), fitsNone ? 53 : 0);
    std::set<std::string> left = row.left;
    left.insert("a3.txt");
    EXPECT_EQ(names(), left) << "the folder fits most patterns and stays";
  }
}

TEST_F(Files, DeletesFoldersWithTheirContentsButNotWhatLinksLeadTo) {
  files.CreateFolder(folder / "a");
  files.CreateFolder((folder / "a") + "\\b");
  make("a/b/x", "1");
  files.CreateFolder(folder / "c");
  make("c/y", "2");
  fs::create_directory_symlink(folder / "c", folder / "enlace");
  files.DeleteFolder(folder / "a");
  files.DeleteFolder(folder / "enlace/");
  EXPECT_EQ(names(), std::set<std::string>{"c"});
  EXPECT_EQ(bytesOf(folder / "c/y"), "2");
}

TEST_F(Files, CopiesAndMoves) {
  const std::string file = make("a", "nuevo");
  const std::string old = make("b", "algo más largo");
  files.CreateFolder(folder / "sub");
  files.CopyFile(file, old);
  EXPECT_EQ(bytesOf(old), "nuevo");
  files.CopyFile(file, (folder / "sub") + "\\");
  EXPECT_EQ(bytesOf(folder / "sub/a"), "nuevo");
  files.MoveFile(file, folder / "sub/c");
  EXPECT_EQ(bytesOf(folder / "sub/c"), "nuevo");
  EXPECT_FALSE(files.FileExists(file));
}

TEST_F(Files, MovesToAnotherFileSystem) {
  const TemporaryFolder memory("/dev/shm");
  const std::string file = make("a", "contenido");
  files.MoveFile(file, memory / "b");
  EXPECT_EQ(bytesOf(memory / "b"), "contenido");
  EXPECT_FALSE(files.FileExists(file));
}

TEST_F(Files, WritesAndAppendsText) {
  const std::string path = folder / "nota.txt";
  auto stream = files.CreateTextFile(path, false);
  stream->WriteLine("año");
  stream->Write("a\nb");
  EXPECT_EQ(stream->Line(), 3);
  stream->WriteBlankLines(2);
  stream->Close();
  stream->Close();
  EXPECT_EQ(bytesOf(path), "año\r\na\nb\r\n\r\n");

  stream = files.OpenTextFile(path, 8);
  stream->Write("fin");
  stream.reset();
  EXPECT_EQ(bytesOf(path), "año\r\na\nb\r\n\r\nfin") << "a dropped stream writes out what it holds";

  files.OpenTextFile(path, 2)->WriteLine();
  EXPECT_EQ(bytesOf(path), "\r\n");
}

TEST_F(Files, CreateMakesAMissingFileInEveryMode) {
  EXPECT_TRUE(files.OpenTextFile(folder / "1", 1, true)->AtEndOfStream());
  files.OpenTextFile(folder / "2", 2, true)->Write("x");
  files.OpenTextFile(folder / "8", 8, true)->Write("y");
  EXPECT_EQ(bytesOf(folder / "2") + bytesOf(folder / "8"), "xy");
  EXPECT_EQ(files.OpenTextFile(folder / "2", 1, true)->ReadAll(), "x") << "a file that is there keeps its bytes";
}

TEST_F(Files, ReadsLines) {
  struct Row {
    const char* why;
    const char* bytes;
    std::vector<std::string> lines;
  };
  const Row rows[] = {
      {"no lines", "", {}},
      {"both kinds of line end", "a\r\nb\nc", {"a", "b", "c"}},
      {"an end at the end starts no line", "a\r\n", {"a"}},
      {"empty lines count", "\n\r\n\n", {"", "", ""}},
      {"CR without LF is a character", "a\rb\r", {"a\rb\r"}},
      {"one CR belongs to the line end", "a\r\r\n", {"a\r"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    auto stream = files.OpenTextFile(make("f", row.bytes));
    std::vector<std::string> lines;
    while (!stream->AtEndOfStream()) lines.push_back(stream->ReadLine());
    EXPECT_EQ(lines, row.lines);
    EXPECT_EQ(test::errorNumber([&] { stream->ReadLine(); }), 62);
  }
}

TEST_F(Files, ReadsCharactersThenLinesThenTheRest) {
  auto stream = files.OpenTextFile(make("f", "ñandú\r\nuno\ndos\ntres\ncuatro"));
  EXPECT_EQ(stream->Read(3), "ñan");
  EXPECT_EQ(stream->Read(0), "");
  EXPECT_EQ(stream->Read(4), "dú\r\n");
  EXPECT_EQ(stream->Line(), 2);
  stream->SkipLine();
  EXPECT_EQ(stream->ReadLine(), "dos");
  EXPECT_EQ(stream->Line(), 4);
  EXPECT_EQ(stream->Read(2), "tr");
  EXPECT_EQ(stream->ReadAll(), "es\ncuatro");
  EXPECT_EQ(stream->Line(), 5);
  EXPECT_EQ(test::errorNumber([&] { stream->ReadAll(); }), 62);
  EXPECT_EQ(test::errorNumber([&] { stream->Read(1); }), 62);
  EXPECT_EQ(test::errorNumber([&] { stream->SkipLine(); }), 62);
  EXPECT_EQ(test::errorNumber([&] { stream->Read(-1); }), 5);
}

// Every piece crosses the blocks in which the file is read, at each offset within a character and a line end.
TEST_F(Files, BlocksCutNeitherCharactersNorLineEnds) {
  constexpr std::int32_t kCharacters = 150000;
  for (int shift = 0; shift < 4; ++shift) {
    SCOPED_TRACE(shift);
    std::string bytes(static_cast<std::size_t>(shift), 'a');
    std::string line;
    for (int i = 0; i < kCharacters; ++i) line += "€";
    bytes += line + "\r\n" + std::string(65533, 'b') + "\r\nfin";
    auto stream = files.OpenTextFile(make("f", bytes));
    EXPECT_EQ(stream->Read(shift), std::string(static_cast<std::size_t>(shift), 'a'));
    EXPECT_TRUE(stream->Read(kCharacters) == line);
    EXPECT_EQ(stream->ReadLine(), "");
    EXPECT_TRUE(stream->ReadLine() == std::string(65533, 'b'));
    EXPECT_EQ(stream->Read(9), "fin") << "fewer characters when the file ends";

    stream = files.OpenTextFile(folder / "f");
    EXPECT_EQ(stream->ReadLine().size(), static_cast<std::size_t>(shift) + line.size());
    EXPECT_EQ(stream->ReadAll().size(), 65533U + 5U);
  }
}

TEST_F(Files, ReadsBytesThatAreNotUtf8AsTheyStand) {
  auto stream = files.OpenTextFile(make("f", "\xF1\xE2\x82z\xE2\x82"));
  EXPECT_EQ(stream->Read(2), "\xF1\xE2");
  EXPECT_EQ(stream->Read(9), "\x82z\xE2\x82");
}

TEST_F(Files, StreamsRefuseTheOtherDirectionAndEverythingOnceClosed) {
  auto reader = files.OpenTextFile(make("f", "x"));
  auto writer = files.CreateTextFile(folder / "g");
  EXPECT_EQ(test::errorNumber([&] { reader->Write(""); }), 54);
  EXPECT_EQ(test::errorNumber([&] { writer->ReadAll(); }), 54);
  EXPECT_EQ(test::errorNumber([&] { writer->AtEndOfStream(); }), 54);
  EXPECT_EQ(test::errorNumber([&] { writer->WriteBlankLines(-1); }), 5);
  reader->Close();
  writer->Close();
  EXPECT_EQ(test::errorNumber([&] { reader->ReadLine(); }), 91);
  EXPECT_EQ(test::errorNumber([&] { reader->Read(0); }), 91);
  EXPECT_EQ(test::errorNumber([&] { writer->WriteLine("x"); }), 91);
}

TEST_F(Files, AFullDiskIsToldOnceAndTheStreamIsClosed) {
  auto small = files.OpenTextFile("/dev/full", 2);
  small->WriteLine("cabe en la memoria");
  EXPECT_EQ(test::errorNumber([&] { small->Close(); }), 61);
  EXPECT_EQ(test::errorNumber([&] { small->Close(); }), 0);
  auto large = files.OpenTextFile("/dev/full", 2);
  EXPECT_EQ(test::errorNumber([&] { large->Write(std::string(1U << 20U, 'x')); }), 61);
}

}  // namespace
}  // namespace qvn::host
