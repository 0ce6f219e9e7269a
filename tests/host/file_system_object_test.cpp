#include "qvn/host/file_system_object.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/error_of.h"
#include "tests/support/scratch_folder.h"

namespace qvn::host {
namespace {

namespace fs = std::filesystem;

using test::bytesOf;

// Each test has a folder of its own.
class Files : public testing::Test {
 protected:
  [[nodiscard]] std::string at(const std::string& name) const { return folder.path(name); }
  [[nodiscard]] std::string make(const std::string& name, std::string_view bytes) const {
    folder.put(bytes, name);
    return at(name);
  }
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder.folder())) found.insert(entry.path().filename());
    return found;
  }

  const test::ScratchFolder folder;
  FileSystemObject files;
};

void expectNumber(std::int32_t number, const std::vector<std::function<void()>>& calls) {
  for (std::size_t i = 0; i < calls.size(); ++i) EXPECT_EQ(test::errorNumber(calls[i]), number) << "call " << i;
}

TEST(FileNames, TakesPathsApart) {
  struct Row {
    const char *path, *parent, *name, *base, *extension;
  };
  // clang-format off
  static constexpr Row kRows[] = {
      {"", "", "", "", ""}, {"/", "", "", "", ""}, {"a", "", "a", "a", ""}, {"/a.txt", "/", "a.txt", "a", "txt"},
      {"datos\\año.tar.gz", "datos", "año.tar.gz", "año.tar", "gz"}, {"x\\y/z//", "x\\y", "z", "z", ""},
      {"a//b.", "a", "b.", "b", ""}, {"v1.2/.perfil", "v1.2", ".perfil", "", "perfil"},
  };
  // clang-format on
  const FileSystemObject files;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(files.GetParentFolderName(row.path), row.parent);
    EXPECT_EQ(files.GetFileName(row.path), row.name);
    EXPECT_EQ(files.GetBaseName(row.path), row.base);
    EXPECT_EQ(files.GetExtensionName(row.path), row.extension);
  }
}

TEST(FileNames, BuildsAndCompletesPaths) {
  struct Row {
    const char *path, *name, *built;
  };
  static constexpr Row kRows[] = {{"a", "b", "a/b"}, {"a\\", "b", "a\\b"}, {"a/", "\\b", "a/b"}, {"/", "b", "/b"},
                                  {"", "b", "b"},    {"a", "", "a"},       {"a", "/", "a/"}};
  const FileSystemObject files;
  for (const Row& row : kRows) EXPECT_EQ(files.BuildPath(row.path, row.name), row.built);
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
  folder.put("x", "caja.txt");
  EXPECT_TRUE(files.FileExists(at("caja.txt")));
  EXPECT_TRUE(files.FileExists(at("") + "\\caja.txt"));
  EXPECT_FALSE(files.FolderExists(at("caja.txt")));
  EXPECT_TRUE(files.FolderExists(at("")));
  EXPECT_FALSE(files.FileExists(at("")));
  EXPECT_FALSE(files.FileExists(at("caja.txt/x")));
  EXPECT_FALSE(files.FileExists(""));
}

// Faults that the system's administrator meets as well.
TEST_F(Files, FailuresHaveTheirNumbersAndTellThePaths) {
  const std::string file = make("archivo", "x");
  const std::string other = make("otro", "y");
  const std::string sub = at("carpeta");
  files.CreateFolder(sub);
  const std::string none = at("nada");
  const std::string tooLong = at(std::string(300, 'n'));
  // clang-format off
  const FileSystemObject& f = files;
  const auto create = [&](const std::string& path, bool over = true) { (void)f.CreateTextFile(path, over); };
  const auto open = [&](const std::string& path, int mode = 1, bool isMade = false) {
    (void)f.OpenTextFile(path, mode, isMade);
  };
  expectNumber(5, {[&] { open(file, 3); }});
  expectNumber(52, {
      [&] { f.CreateFolder(tooLong); }, [&] { f.CreateFolder(""); }, [&] { f.CreateFolder(std::string("a\0b", 3)); },
      [&] { f.DeleteFile(""); }, [&] { f.CopyFile(file, ""); }, [&] { open(""); }});
  expectNumber(53, {
      [&] { f.DeleteFile(none); }, [&] { f.DeleteFile(sub); }, [&] { f.DeleteFile(at("carp*")); },
      [&] { f.CopyFile(none, other); }, [&] { f.CopyFile(sub, none); }, [&] { f.MoveFile(none, other); },
      [&] { open(none); }, [&] { open(none, 8); }});
  expectNumber(58, {
      [&] { f.CreateFolder(sub); }, [&] { f.CreateFolder(file); }, [&] { f.CopyFile(file, other, false); },
      [&] { f.CopyFile(file, file); }, [&] { f.MoveFile(file, other); }, [&] { create(file, false); }});
  expectNumber(70, {
      [&] { f.CopyFile(file, sub); }, [&] { create(sub); }, [&] { open(sub); }});
  expectNumber(76, {
      [&] { f.CreateFolder(none + "/x"); }, [&] { f.CreateFolder(file + "/x"); }, [&] { f.DeleteFolder(none); },
      [&] { f.DeleteFolder(file); }, [&] { f.DeleteFile(file + "/x"); }, [&] { f.DeleteFile(none + "/*"); },
      [&] { f.CopyFile(none + "/x", other); }, [&] { f.CopyFile(file, none + "/"); },
      [&] { f.MoveFile(file, none + "/x"); }, [&] { create(none + "/x"); },
      [&] { open(none + "/x"); }, [&] { open(file + "/x", 2, true); }});
  // clang-format on
  EXPECT_EQ(names(), (std::set<std::string>{"archivo", "otro", "carpeta"}));
  EXPECT_EQ(bytesOf(file) + bytesOf(other), "xy");
  try {
    files.CopyFile(file, none + "/b");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(), "No se pudo copiar el archivo «" + file + "» a «" + none +
                                       "/b»: No se encontró la ruta de acceso (No such file or directory)");
  }
}

TEST_F(Files, DeletesFilesThatFitThePattern) {
  struct Row {
    const char* pattern;
    std::set<std::string> left;
  };
  // clang-format off
  const Row rows[] = {
      {"a1.txt", {"a22.txt", "añ.txt", "LEEME", "x.TXT"}}, {"a?.txt", {"a22.txt", "LEEME", "x.TXT"}},
      {"*.txt", {"LEEME", "x.TXT"}}, {"a*2*t", {"a1.txt", "añ.txt", "LEEME", "x.TXT"}}, {"*.*", {}}, {"*", {}},
      {"????????*", {"a1.txt", "a22.txt", "añ.txt", "LEEME", "x.TXT"}},
  };
  // clang-format on
  files.CreateFolder(at("a3.txt"));
  for (const Row& row : rows) {
    SCOPED_TRACE(row.pattern);
    for (const char* name : {"a1.txt", "a22.txt", "añ.txt", "LEEME", "x.TXT"}) folder.put("", name);
    expectNumber(row.left.size() == 5 ? 53 : 0, {[&] { files.DeleteFile(at(row.pattern)); }});
    std::set<std::string> left = row.left;
    left.insert("a3.txt");
    EXPECT_EQ(names(), left) << "the folder fits most patterns and stays";
  }
}

TEST_F(Files, DeletesFoldersWithTheirContentsButNotWhatLinksLeadTo) {
  files.CreateFolder(at("a"));
  files.CreateFolder(at("a") + "\\b");
  folder.put("1", "a/b/x");
  files.CreateFolder(at("c"));
  folder.put("2", "c/y");
  fs::create_directory_symlink(at("c"), at("enlace"));
  files.DeleteFolder(at("a"));
  files.DeleteFolder(at("enlace/"));
  EXPECT_EQ(names(), std::set<std::string>{"c"});
  EXPECT_EQ(bytesOf(at("c/y")), "2");
}

TEST_F(Files, CopiesAndMoves) {
  const std::string file = make("a", "nuevo");
  files.CreateFolder(at("sub"));
  files.CopyFile(file, make("b", "algo más largo"));
  files.CopyFile(file, at("sub") + "\\");
  files.MoveFile(file, at("sub/c"));
  files.MoveFile(at("b"), at("sub/d"));
  for (const auto& copy : {at("sub/a"), at("sub/c"), at("sub/d")}) EXPECT_EQ(bytesOf(copy), "nuevo") << copy;
  EXPECT_EQ(names(), std::set<std::string>{"sub"});
}

TEST_F(Files, WritesAndAppendsText) {
  const std::string path = at("nota.txt");
  auto stream = files.CreateTextFile(path, false);
  stream->WriteLine("año");
  stream->Write("a\nb");
  EXPECT_EQ(stream->Line(), 3);
  stream->WriteBlankLines(2);
  stream->Close();
  stream->Close();
  stream = files.OpenTextFile(path, 8);
  stream->Write("fin");
  stream.reset();
  EXPECT_EQ(bytesOf(path), "año\r\na\nb\r\n\r\nfin") << "a dropped stream writes out what it holds";

  files.OpenTextFile(path, 2)->WriteLine();
  EXPECT_EQ(bytesOf(path), "\r\n");
}

TEST_F(Files, CreateMakesAMissingFileInEveryMode) {
  EXPECT_TRUE(files.OpenTextFile(at("1"), 1, true)->AtEndOfStream());
  files.OpenTextFile(at("2"), 2, true)->Write("x");
  files.OpenTextFile(at("8"), 8, true)->Write("y");
  EXPECT_EQ(bytesOf(at("2")) + bytesOf(at("8")), "xy");
  EXPECT_EQ(files.OpenTextFile(at("2"), 1, true)->ReadAll(), "x") << "a file that is there keeps its bytes";
}

TEST_F(Files, ReadsLines) {
  struct Row {
    const char* why;
    const char* bytes;
    std::vector<std::string> lines;
  };
  // clang-format off
  const Row rows[] = {
      {"no lines", "", {}}, {"both kinds of line end", "a\r\nb\nc", {"a", "b", "c"}},
      {"an end at the end starts no line", "a\r\n", {"a"}}, {"empty lines count", "\n\r\n\n", {"", "", ""}},
      {"CR without LF is a character", "a\rb\r", {"a\rb\r"}}, {"one CR belongs to the end", "a\r\r\n", {"a\r"}},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    auto stream = files.OpenTextFile(make("f", row.bytes));
    std::vector<std::string> lines;
    while (!stream->AtEndOfStream()) lines.push_back(stream->ReadLine());
    EXPECT_EQ(lines, row.lines);
    expectNumber(62, {[&] { stream->ReadLine(); }});
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
  expectNumber(62, {[&] { stream->ReadAll(); }, [&] { stream->Read(1); }, [&] { stream->SkipLine(); }});
  expectNumber(5, {[&] { stream->Read(-1); }});
  stream = files.OpenTextFile(make("f", "\xF1\xE2\x82z\xE2\x82"));  // no UTF-8, read as it stands
  EXPECT_EQ(stream->Read(2), "\xF1\xE2");
  EXPECT_EQ(stream->Read(9), "\x82z\xE2\x82");
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

    stream = files.OpenTextFile(at("f"));
    EXPECT_EQ(stream->ReadLine().size(), static_cast<std::size_t>(shift) + line.size());
    EXPECT_EQ(stream->ReadAll().size(), 65533U + 5U);
  }
}

TEST_F(Files, StreamsRefuseTheOtherDirectionAndEverythingOnceClosed) {
  auto reader = files.OpenTextFile(make("f", "x"));
  auto writer = files.CreateTextFile(at("g"));
  expectNumber(54, {[&] { reader->Write(""); }, [&] { writer->ReadAll(); }, [&] { writer->AtEndOfStream(); }});
  expectNumber(5, {[&] { writer->WriteBlankLines(-1); }});
  reader->Close();
  writer->Close();
  expectNumber(91, {[&] { reader->ReadLine(); }, [&] { reader->Read(0); }, [&] { writer->WriteLine("x"); }});
}

TEST_F(Files, AFullDiskIsToldOnceAndTheStreamIsClosed) {
  auto small = files.OpenTextFile("/dev/full", 2);
  auto large = files.OpenTextFile("/dev/full", 2);
  small->WriteLine("cabe en la memoria");
  expectNumber(61, {[&] { small->Close(); }, [&] { large->Write(std::string(1U << 20U, 'x')); }});
  small->Close();
}

}  // namespace
}  // namespace qvn::host
