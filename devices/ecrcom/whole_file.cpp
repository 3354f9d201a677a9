#include "ecrcom/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

namespace ecrcom {
namespace {

constexpr mode_t kPermissions = 0666;  // cut by the process's mask, as for any file that it makes
constexpr int kAttempts = 16;

class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  /// A late write error, of a network folder say, shows up here.
  bool close() {
    const int old = number_;
    number_ = -1;
    return ::close(old) == 0;
  }

 private:
  int number_;
};

/// A name of nobody else's beside `path`, in the form that the program sweeps when the process is gone:
/// process, then a count.
std::string temporaryName(const std::string& path) {
  static std::atomic<unsigned> counter{0};
  const std::size_t slash = path.rfind('/');
  const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
  return path.substr(0, start) + "." + path.substr(start) + ".gestionale-" + std::to_string(getpid()) + "-" +
         std::to_string(counter++);
}

int createTemporary(const std::string& path, std::string& name) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    name = temporaryName(path);
    const int number = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPermissions);
    if (number >= 0 || errno != EEXIST) return number;
  }
  return -1;
}

bool writeAll(int number, Bytes byte) {
  while (!byte.empty()) {
    const ssize_t written = write(number, byte.data(), byte.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    byte = byte.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

bool readAll(int number, std::vector<std::uint8_t>& byte, std::size_t front) {
  std::size_t done = front;
  while (done < byte.size()) {
    const ssize_t count = read(number, byte.data() + done, byte.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  byte.resize(done);
  return true;
}

/// Gives the new file the old one's name. A plain rename over a file makes some file systems write the new
/// bytes out first, 0.2 ms for the articles; who does not ask for that swaps the names where it can.
bool takePlace(const std::string& temporary, const std::string& path, bool sync) {
#ifdef RENAME_EXCHANGE
  struct stat old {};
  const bool file = lstat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode);
  const bool exchanged =
      !sync && file && renameat2(AT_FDCWD, temporary.c_str(), AT_FDCWD, path.c_str(), RENAME_EXCHANGE) == 0;
  if (exchanged) return unlink(temporary.c_str()) == 0;
#endif
  return std::rename(temporary.c_str(), path.c_str()) == 0;
}

}  // namespace

FileResult readFile(const std::string& path, std::vector<std::uint8_t>& byte, std::size_t front) {
  FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file.isOpen()) return errno == ENOENT ? FileResult::Missing : FileResult::Error;
  struct stat data {};
  if (fstat(file.number(), &data) != 0 || !S_ISREG(data.st_mode)) return FileResult::Error;
  if (data.st_size > static_cast<off_t>(kMaxBytes)) return FileResult::TooLarge;
  byte.resize(front + static_cast<std::size_t>(data.st_size));
  return readAll(file.number(), byte, front) ? FileResult::Done : FileResult::Error;
}

FileResult replaceFile(const std::string& path, Bytes byte, bool sync) {
  std::string temporary;
  FileDescriptor file(createTemporary(path, temporary));
  if (!file.isOpen()) return FileResult::Error;
  const bool written = writeAll(file.number(), byte) && (!sync || fsync(file.number()) == 0);
  const bool closed = file.close();
  if (written && closed && takePlace(temporary, path, sync)) return FileResult::Done;
  unlink(temporary.c_str());
  return FileResult::Error;
}

}  // namespace ecrcom
