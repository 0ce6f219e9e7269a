// A text file, read or written from its beginning to its end. Texts are UTF-8; bytes that are not pass unchanged.
//
//   auto stream = files.OpenTextFile("precios.txt");
//   while (!stream->AtEndOfStream()) use(stream->ReadLine());
//
// Reading holds one block of the file and what the call returns, whatever the file's size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/base/variant.h"

namespace qvn::host {

/// Every operation throws RuntimeError 91 on a closed stream, 54 when the stream was opened for the other direction,
/// and the file's own error when the system refuses: 61 disk full, 70 permission denied, 57 otherwise. Texts that are
/// written may reach the file as late as Close, and a failure then comes from Close.
class TextStream final : public Object {
 public:
  enum class Access {
    Read,
    Replace,    ///< write from the beginning; what the file held is gone
    Append,     ///< write behind what the file holds
    CreateNew,  ///< write to a file that must not exist yet
  };

  /// Opens the file at a path that a host gave; all but Read create it.
  /// @throws RuntimeError  53, 76 when it or its folder is not there; 58 when it must not exist and does; 70; 52
  TextStream(std::string_view path, Access access);

  /// The next line without its end, which is CR LF, LF or the end of the file. Throws RuntimeError 62 at the end.
  std::string ReadLine();
  /// Everything that is left. Throws RuntimeError 62 at the end.
  std::string ReadAll();
  /// The next `characters` characters, line ends among them, fewer when the file ends. Throws RuntimeError 62 at the
  /// end, 5 for a negative count.
  std::string Read(std::int32_t characters);
  /// Passes over the rest of the line. Throws RuntimeError 62 at the end.
  void SkipLine();
  /// Whether nothing is left to read.
  bool AtEndOfStream();

  void Write(std::string_view text);
  /// The text and CR LF.
  void WriteLine(std::string_view text = {});
  /// CR LF, `lines` times over. Throws RuntimeError 5 for a negative count.
  void WriteBlankLines(std::int32_t lines);

  /// Number of the line that comes next, from 1 where the stream was opened.
  [[nodiscard]] std::int64_t Line() const { return line_; }

  /// Writes out what is still held and lets go of the file, also when that fails. A closed stream stays as it is.
  /// A stream that is dropped without Close ignores the failure.
  void Close();

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };

  void requireOpen(bool forReading) const;
  void requireMore();
  bool fill(std::size_t wanted);
  void takeLine(std::string* line);
  std::string_view take(std::size_t bytes);
  [[nodiscard]] std::string_view unread() const { return {buffer_.data() + begin_, end_ - begin_}; }

  std::string path_;
  bool isReading_;
  std::unique_ptr<std::FILE, CloseFile> file_;
  std::vector<char> buffer_;  // bytes begin_ to end_ are read from the file and not yet from the stream
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool isExhausted_ = false;  // the file has no more bytes for the buffer
  std::int64_t line_ = 1;
};

}  // namespace qvn::host
