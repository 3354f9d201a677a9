#include "platform/text/temporary_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/error.h"

namespace {

constexpr mode_t kPermissions = 0666;
const QString kMark = QStringLiteral(".gestionale-");

/// ".name.gestionale-": hidden beside the target, with the process and a random end behind it.
QString prefix(const QString& target) {
  return u'.' + QFileInfo(target).fileName() + kMark;
}

QByteArray nameBeside(const QString& target) {
  const QString folder = QFileInfo(target).path() + u'/';
  return (folder + prefix(target) + QString::number(::getpid()) + QStringLiteral("-XXXXXX")).toUtf8();
}

/// The process that made a leftover is gone.
bool orphan(const QString& name, const QString& prefix) {
  if (!name.startsWith(prefix)) return false;
  bool isNumber = false;
  const int process = name.sliced(prefix.size()).section(u'-', 0, 0).toInt(&isNumber);
  return isNumber && process > 0 && ::kill(process, 0) != 0 && errno == ESRCH;
}

}  // namespace

FileDescriptor::~FileDescriptor() {
  if (valid()) ::close(number_);
}

bool FileDescriptor::close() {
  return ::close(std::exchange(number_, -1)) == 0;
}

TemporaryFile::TemporaryFile(const QString& target)
    : target_(target), name_(nameBeside(target)), file_(::mkostemp(name_.data(), O_CLOEXEC)) {
  if (!file_.valid()) throw errors::fromErrno(errno, target);
}

TemporaryFile::~TemporaryFile() {
  if (!settled_) ::unlink(name_.constData());
}

void TemporaryFile::write(const QByteArray& bytes) {
  write(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void TemporaryFile::write(const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t written = ::write(file_.number(), bytes, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw errors::fromErrno(written < 0 ? errno : ENOSPC, target_);
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
}

/// Those of the file whose place it takes; a new file has what the process's mask leaves.
void TemporaryFile::takePermissions() const {
  struct stat old {};
  if (::lstat(target_.toUtf8().constData(), &old) == 0 && S_ISREG(old.st_mode)) {
    ::fchmod(file_.number(), old.st_mode & kPermissions);
    return;
  }
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::fchmod(file_.number(), kPermissions & ~mask);
}

void TemporaryFile::syncFolder() const {
  const QByteArray folder = QFileInfo(target_).absolutePath().toUtf8();
  const FileDescriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.valid()) ::fsync(descriptor.number());
}

void TemporaryFile::settle(Durability durability) {
  takePermissions();
  const bool kept = durability == Durability::Kept;
  if ((kept && ::fsync(file_.number()) != 0) || !file_.close()) throw errors::fromErrno(errno, target_);
  if (::rename(name_.constData(), target_.toUtf8().constData()) != 0) throw errors::fromErrno(errno, target_);
  settled_ = true;
  if (kept) syncFolder();
}

void TemporaryFile::Sweep(const QString& target) {
  const QString begin = prefix(target);
  // Without a pattern, which would be translated at each file of a transfer; and in no order.
  for (QDirIterator one(QFileInfo(target).path(), QDir::Files | QDir::Hidden | QDir::System); one.hasNext();)
    if (const QString path = one.next(); orphan(one.fileName(), begin)) QFile::remove(path);
}

QString RealTarget(const QString& path) {
  const QFileInfo file(path);
  // A device or a pipe must not be replaced by a file.
  if (path.isEmpty() || (file.exists() && (!file.isFile() || !file.isWritable())))
    throw errors::pathAccess(path);
  return file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
}
