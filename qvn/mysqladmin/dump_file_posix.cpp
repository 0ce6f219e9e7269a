#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "qvn/base/path.h"
#include "qvn/host/file_error.h"
#include "qvn/mysqladmin/dump_file.h"

namespace qvn::mysqladmin {
namespace {

template <typename Call>
auto repeatInterrupted(Call call) {
  auto outcome = call();
  while (outcome < 0 && errno == EINTR) outcome = call();
  return outcome;
}

// An open descriptor and the name under which errors speak of it.
class Descriptor {
 public:
  Descriptor(std::string_view path, int flags) : path_(path) {
    constexpr mode_t kOwnerOnly = 0600;
    const std::filesystem::path file = hostPath(path);
    number_ = repeatInterrupted([&] { return open(file.c_str(), flags | O_CLOEXEC, kOwnerOnly); });
    require(number_ >= 0, "abrir");
  }
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] int number() const { return number_; }

  void require(bool holds, std::string_view verb) const {
    if (holds) return;
    const std::error_code code(errno == EDQUOT ? ENOSPC : errno, std::generic_category());
    throw host::fileError(code, {.verb = std::string(verb) + " el archivo", .path = path_});
  }

  [[nodiscard]] struct stat status() const {
    struct stat status {};
    require(fstat(number_, &status) == 0, "examinar");
    return status;
  }

  // Some file systems tell only now that they could not store everything.
  void finish() {
    const int closing = std::exchange(number_, -1);
    require(close(closing) == 0 || errno == EINTR, "cerrar");
  }

 private:
  std::string path_;
  int number_ = -1;
};

class FileSink final : public DumpSink {
 public:
  explicit FileSink(std::string_view path) : file_(path, O_WRONLY | O_CREAT) {
    isRegular_ = S_ISREG(file_.status().st_mode);
    if (!isRegular_) return;
    file_.require(fchmod(file_.number(), S_IRUSR | S_IWUSR) == 0, "proteger");
    file_.require(repeatInterrupted([&] { return ftruncate(file_.number(), 0); }) == 0, "vaciar");
  }

  void write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto written = repeatInterrupted([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
      file_.require(written >= 0, "escribir");
      bytes.remove_prefix(static_cast<std::size_t>(written));
      unannounced_ += written;
    }
    if (isRegular_ && unannounced_ >= kAnnouncedBytes) announce();
  }

  void finish() override {
    if (isRegular_) file_.require(repeatInterrupted([&] { return fsync(file_.number()); }) == 0, "guardar");
    file_.finish();
  }

 private:
  static constexpr off_t kAnnouncedBytes = off_t{4} * 1024 * 1024;

  // The system begins to store what nobody will read soon, so that little is left to wait for at the end.
  void announce() {
    static_cast<void>(posix_fadvise(file_.number(), announced_, unannounced_, POSIX_FADV_DONTNEED));
    announced_ += std::exchange(unannounced_, 0);
  }

  Descriptor file_;
  bool isRegular_ = false;
  off_t announced_ = 0;
  off_t unannounced_ = 0;
};

class FileSource final : public DumpSource {
 public:
  explicit FileSource(std::string_view path) : file_(path, O_RDONLY) {
    const struct stat status = file_.status();
    if (S_ISREG(status.st_mode)) length_ = status.st_size;
  }

  std::size_t read(std::span<char> room) override {
    const auto count = repeatInterrupted([&] { return ::read(file_.number(), room.data(), room.size()); });
    file_.require(count >= 0, "leer");
    taken_ += count;
    return static_cast<std::size_t>(count);
  }

  [[nodiscard]] std::int64_t taken() const override { return taken_; }
  [[nodiscard]] std::int64_t length() const override { return length_; }

 private:
  Descriptor file_;
  std::int64_t taken_ = 0;
  std::int64_t length_ = 0;
};

}  // namespace

DumpSinkPtr createDumpFile(std::string_view path) { return std::make_unique<FileSink>(path); }

DumpSourcePtr openDumpFile(std::string_view path) { return std::make_unique<FileSource>(path); }

}  // namespace qvn::mysqladmin
