// Files and folders as hosts handle them. In every path a backslash is read as "/".
//
//   FileSystemObject files;
//   if (!files.FolderExists("respaldo")) files.CreateFolder("respaldo");
//   auto stream = files.CreateTextFile(files.BuildPath("respaldo", "nota.txt"));
//   stream->WriteLine("Total: 12.50");  stream->Close();
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "qvn/base/random.h"
#include "qvn/base/variant.h"
#include "qvn/host/text_stream.h"

namespace qvn::host {

/// Failures are RuntimeErrors whose text names what was tried on which path: 52 bad or empty name, 53 file not found,
/// 58 it exists already, 61 disk full, 70 permission denied (also for a folder where a file is meant), 76 path not
/// found, 57 any other failure of the device. A NUL in a path is 52 everywhere.
class FileSystemObject final : public Object {
 public:
  /// `random` gives the temporary names; null takes a sequence of its own.
  explicit FileSystemObject(RandomPtr random = nullptr);

  /// Whether there is a file, or a folder, of that name. False also for a name that cannot be looked at.
  [[nodiscard]] bool FileExists(std::string_view path) const;
  [[nodiscard]] bool FolderExists(std::string_view path) const;

  // Parts of a path. They look at the text alone; separators at its end do not count.

  /// Folder and name with one separator between them: a separator that is there already is used.
  [[nodiscard]] std::string BuildPath(std::string_view folder, std::string_view name) const;
  /// "precios.tar.gz" of "datos/precios.tar.gz".
  [[nodiscard]] std::string GetFileName(std::string_view path) const;
  /// "precios.tar": the file name as far as its last point.
  [[nodiscard]] std::string GetBaseName(std::string_view path) const;
  /// "gz": what follows the last point of the file name; "" when it has none.
  [[nodiscard]] std::string GetExtensionName(std::string_view path) const;
  /// "datos"; "" when the path names no folder.
  [[nodiscard]] std::string GetParentFolderName(std::string_view path) const;

  /// The path from the root, without "." and ".."; what it names need not exist. The current folder for "".
  [[nodiscard]] std::string GetAbsolutePathName(std::string_view path) const;
  /// A name for a temporary file, "rad" with five hexadecimal digits and ".tmp", drawn by chance. No file is created.
  [[nodiscard]] std::string GetTempName() const;

  /// Throws RuntimeError 58 when there is a file or folder of that name, 76 when the folder above is missing.
  void CreateFolder(std::string_view path) const;
  /// Deletes a folder and everything in it; the first failure ends it half-way. A link is deleted, not what it leads
  /// to. Throws RuntimeError 76 when there is no such folder, 70 for the root.
  void DeleteFolder(std::string_view path) const;

  /// Deletes a file, or all files of a folder whose names fit when the last part of the path holds "*" (any characters)
  /// or "?" (one character); "*.*" fits every name. Letters fit in their own case alone. The first failure ends it
  /// half-way. Throws RuntimeError 53 when there is none.
  void DeleteFile(std::string_view path) const;
  /// Copies a file to the path `destination`, or into the folder when that ends in a separator. A failure half-way
  /// leaves what was copied. Throws RuntimeError 53 without a source; 58 when the destination exists and may not be
  /// overwritten, or is the source itself; 70 when it is a folder.
  void CopyFile(std::string_view source, std::string_view destination, bool overwrite = true) const;
  /// Moves a file, also to another file system, to a path or into a folder, as CopyFile takes them. When a file
  /// that was copied to another file system cannot be deleted, both stay. Throws RuntimeError 53 without a source, 58
  /// when the destination exists.
  void MoveFile(std::string_view source, std::string_view destination) const;

  /// A new file for writing. Throws RuntimeError 58 when it exists and may not be overwritten.
  [[nodiscard]] std::shared_ptr<TextStream> CreateTextFile(std::string_view path, bool overwrite = true) const;
  /// Opens a file: mode 1 reads, 2 writes from the beginning, 8 appends. A file that is missing is created when
  /// `create` says so. Throws RuntimeError 53 when it is missing otherwise, 5 for another mode.
  [[nodiscard]] std::shared_ptr<TextStream> OpenTextFile(std::string_view path, std::int32_t mode = 1,
                                                         bool create = false) const;

 private:
  RandomPtr random_;
};

}  // namespace qvn::host
