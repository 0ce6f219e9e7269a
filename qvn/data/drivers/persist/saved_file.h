// The elements of a saved recordset's file, one after the other.
#pragma once

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "qvn/data/drivers/persist/handles.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::persist {

/// The whole file is read at once: fed piece by piece, the library scans a long text again with every piece, and the
/// rows of a saved recordset are held anyway. Texts that it gives live until the next step. A document type is refused,
/// so that no entity can swell or reach outside; whatever else is wrong is a ProviderError kUnspecified with file and
/// line.
class SavedFile {
 public:
  explicit SavedFile(const std::filesystem::path& path);
  SavedFile(const SavedFile&) = delete;
  SavedFile& operator=(const SavedFile&) = delete;

  /// Steps to the next start or end of an element; false at the end of the file.
  bool next();
  [[nodiscard]] bool isStart() const;
  /// True on an element without content, which has no end of its own.
  [[nodiscard]] bool isEmpty() const;
  [[nodiscard]] int depth() const;
  /// Compares the current element's, or attribute's, local name and namespace.
  [[nodiscard]] bool is(std::string_view uri, std::string_view name) const;
  /// Steps to the element's next attribute that is no namespace declaration; false after the last.
  bool nextAttribute();
  [[nodiscard]] std::string_view name() const;
  [[nodiscard]] std::string_view uri() const;
  /// Of the current attribute.
  [[nodiscard]] std::string_view value() const;

  /// At the current element; at `line` of the file when it is given.
  [[nodiscard]] ProviderError error(std::string_view words, long line = 0) const;

 private:
  static int feed(void* self, char* buffer, int size);
  bool declaresType(std::string_view block);
  [[nodiscard]] ProviderError notXml(const xmlError* problem) const;

  std::string path_;
  std::ifstream stream_;
  std::size_t matched_ = 0;  // characters of a document type's beginning that the last bytes were
  bool isRefused_ = false;
  DocumentHandle document_;
  ReaderHandle reader_;
};

}  // namespace qvn::data::persist
