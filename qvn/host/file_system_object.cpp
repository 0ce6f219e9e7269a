#include "qvn/host/file_system_object.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <utility>
#include <vector>

#include "qvn/base/path.h"
#include "qvn/base/utf8.h"
#include "qvn/host/file_error.h"

namespace qvn::host {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSeparators = "/\\";
constexpr std::string_view kWildcards = "*?";

struct PathParts {
  std::string_view folder;
  std::string_view name;
};

PathParts partsOf(std::string_view path) {
  path = path.substr(0, path.find_last_not_of(kSeparators) + 1);
  const std::size_t nameStart = path.find_last_of(kSeparators) + 1;
  if (nameStart == 0) return {{}, path};
  const std::string_view folder = path.substr(0, nameStart);
  const std::size_t folderEnd = folder.find_last_not_of(kSeparators);
  const bool isRoot = folderEnd == std::string_view::npos;
  return {isRoot ? folder.substr(0, 1) : folder.substr(0, folderEnd + 1), path.substr(nameStart)};
}

bool endsInSeparator(std::string_view path) {
  return !path.empty() && kSeparators.find(path.back()) != std::string_view::npos;
}

fs::path nativePath(const FileAttempt& attempt) {
  if (attempt.path.empty()) throw fileError(error_number::kBadFileName, attempt);
  return hostPath(attempt.path);
}

void throwIf(const std::error_code& failure, const FileAttempt& attempt) {
  if (failure) throw fileError(failure, attempt);
}

std::error_code missing() { return std::make_error_code(std::errc::no_such_file_or_directory); }

// The file to copy or move. A folder is no file.
fs::path sourceFile(const FileAttempt& attempt) {
  const FileAttempt ofSource{attempt.verb, attempt.path};
  fs::path source = nativePath(ofSource);
  std::error_code failure;
  const fs::file_status status = fs::status(source, failure);
  if (!fs::exists(status) || fs::is_directory(status)) throw fileError(failure ? failure : missing(), ofSource);
  return source;
}

// Where to copy or move: a path that ends in a separator is a folder, in which the name stays.
std::string targetOf(std::string_view source, std::string_view destination) {
  if (destination.empty()) throw RuntimeError(error_number::kBadFileName);
  std::string target(destination);
  if (endsInSeparator(destination)) target.append(partsOf(source).name);
  return target;
}

// Matches in a time that grows with the product of both lengths at worst.
bool fitsPattern(std::string_view name, std::string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;  // the last "*" met; what it stands for ends at `starEnd`
  std::size_t starEnd = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      starEnd = n;
    } else if (p < pattern.size() && pattern[p] == '?') {
      ++p;
      n += utf8::decode(name, n).length;
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      starEnd += utf8::decode(name, starEnd).length;
      n = starEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

// The files that fit are listed before any is deleted, because deleting may disturb a listing.
std::vector<fs::path> fittingFiles(const FileAttempt& attempt) {
  const fs::path native = nativePath(attempt);
  const std::string pattern = native.filename() == "*.*" ? "*" : native.filename().string();
  std::error_code failure;
  fs::directory_iterator entry(native.has_parent_path() ? native.parent_path() : fs::path("."), failure);
  std::vector<fs::path> files;
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    std::error_code ignored;  // an entry that cannot be looked at is deleted or refused like any other
    if (entry->is_directory(ignored)) continue;
    if (fitsPattern(entry->path().filename().native(), pattern)) files.push_back(entry->path());
  }
  throwIf(failure, attempt);
  return files;
}

RandomPtr seededByChance() {
  std::random_device device;
  return pseudoRandom((std::uint64_t{device()} << 32U) | device());
}

}  // namespace

FileSystemObject::FileSystemObject(RandomPtr random) : random_(random ? std::move(random) : seededByChance()) {}

bool FileSystemObject::FileExists(std::string_view path) const {
  std::error_code ignored;
  const fs::file_status status = fs::status(hostPath(path), ignored);
  return fs::exists(status) && !fs::is_directory(status);
}

bool FileSystemObject::FolderExists(std::string_view path) const {
  std::error_code ignored;
  return fs::is_directory(hostPath(path), ignored);
}

std::string FileSystemObject::BuildPath(std::string_view folder, std::string_view name) const {
  std::string path(folder);
  if (folder.empty() || name.empty()) return path.append(name);
  if (!endsInSeparator(folder)) path.push_back('/');
  const std::size_t start = name.find_first_not_of(kSeparators);
  return path.append(name.substr(std::min(start, name.size())));
}

std::string FileSystemObject::GetFileName(std::string_view path) const { return std::string(partsOf(path).name); }

std::string FileSystemObject::GetBaseName(std::string_view path) const {
  const std::string_view name = partsOf(path).name;
  return std::string(name.substr(0, name.rfind('.')));
}

std::string FileSystemObject::GetExtensionName(std::string_view path) const {
  const std::string_view name = partsOf(path).name;
  const std::size_t point = name.rfind('.');
  return std::string(point == std::string_view::npos ? std::string_view() : name.substr(point + 1));
}

std::string FileSystemObject::GetParentFolderName(std::string_view path) const {
  return std::string(partsOf(path).folder);
}

std::string FileSystemObject::GetAbsolutePathName(std::string_view path) const {
  std::error_code failure;
  const fs::path current = fs::current_path(failure);
  throwIf(failure, {"completar la ruta", path});
  const fs::path full = (current / hostPath(path)).lexically_normal();
  return full.has_filename() || full == full.root_path() ? full.string() : full.parent_path().string();
}

std::string FileSystemObject::GetTempName() const {
  constexpr std::size_t kDigits = 5;
  auto number = static_cast<std::uint32_t>(random_->next() * (1U << (4 * kDigits)));
  std::string digits(kDigits, '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number /= 16) {
    *digit = "0123456789ABCDEF"[number % 16];
  }
  return "rad" + digits + ".tmp";
}

void FileSystemObject::CreateFolder(std::string_view path) const {
  const FileAttempt attempt{"crear la carpeta", path};
  std::error_code failure;
  // A folder that is there already is no failure to the library beneath, which only says that it made none.
  const bool isNew = fs::create_directory(nativePath(attempt), failure);
  throwIf(failure, attempt);
  if (!isNew) throw fileError(error_number::kFileExists, attempt);
}

void FileSystemObject::DeleteFolder(std::string_view path) const {
  const FileAttempt attempt{"borrar la carpeta", path};
  fs::path folder = nativePath(attempt);
  if (!FolderExists(path)) throw fileError(error_number::kPathNotFound, attempt);
  std::error_code failure;
  // A host that joined an empty folder name must not lose the whole system.
  if (fs::equivalent(folder, "/", failure)) throw fileError(error_number::kPermissionDenied, attempt);
  if (!folder.has_filename()) folder = folder.parent_path();  // with its last separator a link is what it leads to
  fs::remove_all(folder, failure);
  throwIf(failure, attempt);
}

void FileSystemObject::DeleteFile(std::string_view path) const {
  const FileAttempt attempt{"borrar el archivo", path};
  std::vector<fs::path> files;
  if (partsOf(path).name.find_first_of(kWildcards) != std::string_view::npos) {
    files = fittingFiles(attempt);
  } else if (!FolderExists(path)) {
    files = {nativePath(attempt)};
  }
  if (files.empty()) throw fileError(missing(), attempt);
  for (const fs::path& file : files) {
    std::error_code failure;
    const bool isDeleted = fs::remove(file, failure);
    if (!isDeleted) throw fileError(failure ? failure : missing(), {attempt.verb, file.native()});
  }
}

void FileSystemObject::CopyFile(std::string_view source, std::string_view destination, bool overwrite) const {
  const std::string target = targetOf(source, destination);
  const FileAttempt attempt{"copiar el archivo", source, target};
  const fs::path from = sourceFile(attempt);
  if (FolderExists(target)) throw fileError(error_number::kPermissionDenied, attempt);
  std::error_code failure;
  fs::copy_file(from, hostPath(target), overwrite ? fs::copy_options::overwrite_existing : fs::copy_options::none,
                failure);
  throwIf(failure, attempt);
}

void FileSystemObject::MoveFile(std::string_view source, std::string_view destination) const {
  const std::string target = targetOf(source, destination);
  const FileAttempt attempt{"mover el archivo", source, target};
  const fs::path from = sourceFile(attempt);
  const fs::path to = hostPath(target);
  std::error_code failure;
  if (fs::exists(fs::symlink_status(to, failure))) throw fileError(error_number::kFileExists, attempt);
  fs::rename(from, to, failure);
  if (failure == std::errc::cross_device_link) {
    CopyFile(source, target, false);
    fs::remove(from, failure);
  }
  throwIf(failure, attempt);
}

std::shared_ptr<TextStream> FileSystemObject::CreateTextFile(std::string_view path, bool overwrite) const {
  return std::make_shared<TextStream>(path, overwrite ? TextStream::Access::Replace : TextStream::Access::CreateNew);
}

std::shared_ptr<TextStream> FileSystemObject::OpenTextFile(std::string_view path, std::int32_t mode,
                                                           bool create) const {
  using enum TextStream::Access;
  if (mode != 1 && mode != 2 && mode != 8) throw RuntimeError(error_number::kInvalidCall);
  // A missing file is made here, or refused with the words of a failed reading; writing would always make it.
  if (!FileExists(path)) TextStream(path, create ? Append : Read).Close();
  return std::make_shared<TextStream>(path, mode == 1 ? Read : mode == 2 ? Replace : Append);
}

}  // namespace qvn::host
