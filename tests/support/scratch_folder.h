// A folder of a test's own, which goes with it, and whole files.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qvn::test {

/// What a file holds; nothing when it is not there.
inline std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

inline void putBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << bytes).flush()) throw std::runtime_error("cannot write " + file.string());
}

class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "qvn_saved.XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder can be made at " + name);
    folder_ = name;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
  [[nodiscard]] std::string path(std::string_view name = "r.xml") const { return (folder_ / name).string(); }
  [[nodiscard]] std::ptrdiff_t fileCount() const {
    return std::distance(std::filesystem::directory_iterator(folder_), std::filesystem::directory_iterator());
  }
  void put(std::string_view text, std::string_view name = "r.xml") const { putBytes(path(name), text); }
  [[nodiscard]] std::string bytes(std::string_view name = "r.xml") const { return bytesOf(path(name)); }

 private:
  std::filesystem::path folder_;
};

}  // namespace qvn::test
