// A folder of a test's own, which goes with it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qvn::test {

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

  [[nodiscard]] std::string path(std::string_view name = "r.xml") const { return (folder_ / name).string(); }
  [[nodiscard]] std::ptrdiff_t fileCount() const {
    return std::distance(std::filesystem::directory_iterator(folder_), std::filesystem::directory_iterator());
  }
  void put(std::string_view text, std::string_view name = "r.xml") const {
    std::ofstream(path(name), std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  /// What a file of it holds; nothing when it is not there.
  [[nodiscard]] std::string bytes(std::string_view name = "r.xml") const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace qvn::test
