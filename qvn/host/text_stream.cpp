#include "qvn/host/text_stream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "qvn/base/path.h"
#include "qvn/base/utf8.h"
#include "qvn/host/file_error.h"

namespace qvn::host {
namespace {

constexpr std::size_t kBlockBytes = 65536;
constexpr std::string_view kLineEnd = "\r\n";

constexpr FileAttempt opening(std::string_view path) { return {"abrir el archivo", path}; }
constexpr FileAttempt reading(std::string_view path) { return {"leer el archivo", path}; }
constexpr FileAttempt writing(std::string_view path) { return {"escribir en el archivo", path}; }

std::error_code lastError() { return {errno, std::generic_category()}; }

// "e" keeps the descriptor from programs that the process starts.
const char* openMode(TextStream::Access access) {
  switch (access) {
    case TextStream::Access::Read:
      return "rbe";
    case TextStream::Access::Replace:
      return "wbe";
    case TextStream::Access::Append:
      return "abe";
    case TextStream::Access::CreateNew:
      return "wbxe";
  }
  return "rbe";
}

std::FILE* openFile(std::string_view path, TextStream::Access access) {
  if (path.empty()) throw fileError(error_number::kBadFileName, opening(path));
  const std::filesystem::path native = hostPath(path);
  std::FILE* file = std::fopen(native.c_str(), openMode(access));
  if (file == nullptr) throw fileError(lastError(), opening(path));
  return file;
}

std::int64_t countLines(std::string_view text) { return std::count(text.begin(), text.end(), '\n'); }

// Bytes of the first `count` characters, which it counts down, as far as `text` shows them whole: the last bytes may
// belong to a character that goes on in the next block, unless the text ends with them.
std::size_t bytesOfCharacters(std::string_view text, bool isLastBlock, std::int32_t& count) {
  constexpr std::size_t kLongestCharacter = 4;
  const std::size_t limit = isLastBlock ? text.size() : text.size() - (kLongestCharacter - 1);
  std::size_t bytes = 0;
  for (; count > 0 && bytes < limit; --count) bytes += utf8::decode(text, bytes).length;
  return bytes;
}

}  // namespace

TextStream::TextStream(std::string_view path, Access access)
    : path_(path), isReading_(access == Access::Read), file_(openFile(path, access)) {
  if (!isReading_) return;
  // The system opens a folder for reading and fails later.
  std::error_code ignored;
  if (std::filesystem::is_directory(hostPath(path), ignored)) {
    throw fileError(error_number::kPermissionDenied, opening(path));
  }
  buffer_.resize(kBlockBytes);
}

std::string TextStream::ReadLine() {
  std::string line;
  takeLine(&line);
  return line;
}

std::string TextStream::ReadAll() {
  requireMore();
  std::string text;
  while (fill(1)) text.append(take(unread().size()));
  return text;
}

std::string TextStream::Read(std::int32_t characters) {
  if (characters < 0) throw RuntimeError(error_number::kInvalidCall);
  requireOpen(true);
  if (characters == 0) return {};
  requireMore();
  std::string text;
  constexpr std::size_t kEnoughToDecode = 4;
  while (characters > 0 && fill(kEnoughToDecode)) {
    text.append(take(bytesOfCharacters(unread(), unread().size() < kEnoughToDecode, characters)));
  }
  return text;
}

void TextStream::SkipLine() { takeLine(nullptr); }

bool TextStream::AtEndOfStream() {
  requireOpen(true);
  return !fill(1);
}

void TextStream::Write(std::string_view text) {
  requireOpen(false);
  if (text.empty()) return;  // its address may be null, which fwrite does not take
  if (std::fwrite(text.data(), 1, text.size(), file_.get()) < text.size()) {
    throw fileError(lastError(), writing(path_));
  }
  line_ += countLines(text);
}

void TextStream::WriteLine(std::string_view text) {
  Write(text);
  Write(kLineEnd);
}

void TextStream::WriteBlankLines(std::int32_t lines) {
  if (lines < 0) throw RuntimeError(error_number::kInvalidCall);
  requireOpen(false);
  for (; lines > 0; --lines) Write(kLineEnd);
}

void TextStream::Close() {
  std::FILE* file = file_.release();
  if (file == nullptr) return;
  buffer_ = {};
  begin_ = end_ = 0;
  if (std::fclose(file) != 0) throw fileError(lastError(), writing(path_));
}

void TextStream::requireOpen(bool forReading) const {
  const FileAttempt attempt = forReading ? reading(path_) : writing(path_);
  if (!file_) throw fileError(error_number::kObjectNotSet, attempt);
  if (isReading_ != forReading) throw fileError(error_number::kBadFileMode, attempt);
}

void TextStream::requireMore() {
  if (AtEndOfStream()) throw fileError(error_number::kInputPastEnd, reading(path_));
}

// Reads on until `wanted` bytes are unread or the file ends; false when nothing is left.
bool TextStream::fill(std::size_t wanted) {
  while (end_ - begin_ < wanted && !isExhausted_) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    const std::size_t room = buffer_.size() - end_;
    const std::size_t got = std::fread(buffer_.data() + end_, 1, room, file_.get());
    end_ += got;
    if (got < room && std::ferror(file_.get()) != 0) throw fileError(lastError(), reading(path_));
    isExhausted_ = got < room;
  }
  return begin_ < end_;
}

// Passes over one line and its end; appends it to `line` unless that is null.
void TextStream::takeLine(std::string* line) {
  requireMore();
  for (bool isEnded = false; !isEnded && fill(1);) {
    const std::string_view rest = unread();
    const std::size_t feed = rest.find('\n');
    isEnded = feed != std::string_view::npos;
    const std::string_view taken = take(isEnded ? feed + 1 : rest.size());
    if (line != nullptr) line->append(taken);
  }
  if (line == nullptr || !line->ends_with('\n')) return;
  line->pop_back();
  if (line->ends_with('\r')) line->pop_back();
}

// The next bytes, as long as nothing else is read.
std::string_view TextStream::take(std::size_t bytes) {
  const std::string_view taken = unread().substr(0, bytes);
  begin_ += bytes;
  line_ += countLines(taken);
  return taken;
}

}  // namespace qvn::host
