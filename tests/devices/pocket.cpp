#include "tests/devices/pocket.h"

#include <cstdlib>

namespace qvn::test {

Pocket::Pocket(const std::string& faults) {
  std::filesystem::create_directories(folder_.path("device/My Documents"));
  setenv("POCKET_FOLDER", folder_.path("device").c_str(), 1);
  setenv("POCKET_LOG", folder_.path("log").c_str(), 1);
  setenv("POCKET_FAULTS", faults.c_str(), 1);
}

Pocket::~Pocket() {
  for (const char* name : {"POCKET_FOLDER", "POCKET_LOG", "POCKET_FAULTS"}) unsetenv(name);
}

std::filesystem::path Pocket::file(const std::string& name) const {
  return std::filesystem::path(folder_.path("device/My Documents")) / name;
}

std::vector<std::string> Pocket::calls() {
  std::ifstream log(folder_.path("log"));
  log.seekg(static_cast<std::streamoff>(seen_));
  std::vector<std::string> lines;
  for (std::string line; std::getline(log, line); seen_ += line.size() + 1) lines.push_back(line);
  return lines;
}

std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void putBytes(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string numbered(std::size_t size) {
  std::string bytes;
  for (int i = 0; bytes.size() < size; ++i) bytes += std::to_string(i) + '\0';
  bytes.resize(size);
  return bytes;
}

}  // namespace qvn::test
