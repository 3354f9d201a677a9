#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFileInfo>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/store/connection.h"
#include "platform/store/copy_open.h"
#include "platform/store/journal.h"
#include "platform/store/open_connections.h"
#include "platform/store/store.h"

namespace store {

namespace {

constexpr std::size_t kBlock = 65536;
constexpr mode_t kPermissions = 0666;

Errore fromErrno(int number, const QString& path) {
  switch (number) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return {errors::kDiskFull, QStringLiteral("Disco pieno.")};
    case ENOENT:
    case ENOTDIR:
      return {errors::kPathMissing, QStringLiteral("Percorso non trovato: '%1'.").arg(path)};
    case ETXTBSY:
    case EBUSY:
      return {errors::kAccessDenied, QStringLiteral("Accesso negato: '%1'.").arg(path)};
    default:
      return {errors::kPathAccess, QStringLiteral("Errore di accesso al percorso o al file '%1'.").arg(path)};
  }
}

/// A file descriptor of its own; closing it early tells whether the last bytes were taken.
class FileDescriptor {
 public:
  explicit FileDescriptor(int fd) : fd_(fd) {}
  ~FileDescriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int fd() const { return fd_; }
  bool valid() const { return fd_ >= 0; }
  bool close() { return ::close(std::exchange(fd_, -1)) == 0; }

 private:
  int fd_;
};

/// A file beside the target, gone again unless it took the target's place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const QString& target)
      : target_(target),
        name_((target + QStringLiteral(".XXXXXX")).toUtf8()),
        file_(::mkstemp(name_.data())) {
    if (!file_.valid()) throw fromErrno(errno, target);
  }
  ~TemporaryFile() {
    if (!settled_) ::unlink(name_.constData());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void write(const char* byte, std::size_t count);
  void settle();
  const QByteArray& name() const { return name_; }

 private:
  void permissions() const;
  void syncFolder() const;

  QString target_;
  QByteArray name_;
  FileDescriptor file_;
  bool settled_ = false;
};

void TemporaryFile::write(const char* byte, std::size_t count) {
  while (count > 0) {
    const ssize_t written = ::write(file_.fd(), byte, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw fromErrno(written < 0 ? errno : ENOSPC, target_);
    byte += written;
    count -= static_cast<std::size_t>(written);
  }
}

// The template may be read-only; an archive is born writable, or as the file was whose place it takes.
void TemporaryFile::permissions() const {
  struct stat old {};
  if (::stat(target_.toUtf8().constData(), &old) == 0) {
    ::fchmod(file_.fd(), old.st_mode & kPermissions);
    return;
  }
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::fchmod(file_.fd(), kPermissions & ~mask);
}

void TemporaryFile::syncFolder() const {
  const QByteArray folder = QFileInfo(target_).absolutePath().toUtf8();
  const FileDescriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.valid()) ::fsync(descriptor.fd());
}

void TemporaryFile::settle() {
  permissions();
  if (::fsync(file_.fd()) != 0 || !file_.close()) throw fromErrno(errno, target_);
  if (::rename(name_.constData(), target_.toUtf8().constData()) != 0) throw fromErrno(errno, target_);
  settled_ = true;
  syncFolder();
}

void copyBytes(const QString& source, TemporaryFile& output) {
  const FileDescriptor entered(::open(source.toUtf8().constData(), O_RDONLY | O_CLOEXEC));
  if (!entered.valid()) throw fromErrno(errno, source);
  std::array<char, kBlock> block{};
  for (;;) {
    const ssize_t read = ::read(entered.fd(), block.data(), block.size());
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) throw fromErrno(errno, source);
    if (read == 0) return;
    output.write(block.data(), static_cast<std::size_t>(read));
  }
}

void checkSource(const QString& source) {
  const QFileInfo file(source);
  if (source.isEmpty() || !file.exists())
    throw Errore{errors::kFileMissing, QStringLiteral("Impossibile trovare il file '%1'.").arg(source)};
  if (!file.isFile() || !file.isReadable()) throw fromErrno(EACCES, source);
}

/// The file itself where the target is a link.
QString realTarget(const QString& target) {
  const QFileInfo file(target);
  if (target.isEmpty() || file.isDir() || (file.exists() && !file.isWritable()))
    throw fromErrno(EACCES, target);
  return file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
}

void refuseIfInUse(const QString& target) {
  for (const Connection* connection : open_connections::onFile(target))
    if (connection->inTransaction())
      throw Errore{errors::kAccessDenied, QStringLiteral("Accesso negato: '%1' è in uso.").arg(target)};
}

}  // namespace

void CopyArchive(const QString& source, const QString& target) {
  checkSource(source);
  const QString real = realTarget(target);
  refuseIfInUse(real);
  const bool sourceOpen = !open_connections::onFile(source).empty();
  if (sourceOpen && QFileInfo(source).canonicalFilePath() == real)
    throw Errore{errors::kAccessDenied, QStringLiteral("Accesso negato: '%1' è in uso.").arg(target)};
  TemporaryFile output(real);
  if (sourceOpen)
    CopyOpenArchive(source, QString::fromUtf8(output.name()));
  else
    copyBytes(source, output);
  CloseJournal(real);
  output.settle();
  // The file that these stood on is no archive any more: a write through them would be lost.
  for (Connection* connection : open_connections::onFile(real)) connection->abandon();
}

}  // namespace store
