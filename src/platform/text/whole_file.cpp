#include "platform/text/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <array>
#include <cerrno>

#include "platform/error.h"

namespace {

/// Bytes copied in one go.
constexpr std::size_t kBlock = 65536;

}  // namespace

QByteArray ReadFileStart(const QString& path, qsizetype most) {
  const QFileInfo entry(path);
  if (!entry.exists()) throw errors::fileMissing(path);
  QFile file(path);
  if (!entry.isFile() || !file.open(QIODevice::ReadOnly)) throw errors::pathAccess(path);
  QByteArray bytes = file.read(most);
  if (file.error() != QFileDevice::NoError) throw errors::pathAccess(path);
  return bytes;
}

QByteArray ReadWholeFile(const QString& path, qsizetype most) {
  QByteArray bytes = ReadFileStart(path, most + 1);
  if (bytes.size() > most) throw errors::pastEnd(path);
  return bytes;
}

void WriteWholeFile(const QString& path, const QByteArray& bytes, TemporaryFile::Durability durability) {
  TemporaryFile file(RealTarget(path));
  file.write(bytes);
  file.settle(durability);
}

void CopyInto(TemporaryFile& output, const QString& source) {
  const FileDescriptor input(::open(source.toUtf8().constData(), O_RDONLY | O_CLOEXEC));
  if (!input.valid()) throw errors::fromErrno(errno, source);
  std::array<char, kBlock> block{};
  for (;;) {
    const ssize_t read = ::read(input.number(), block.data(), block.size());
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) throw errors::fromErrno(errno, source);
    if (read == 0) return;
    output.write(block.data(), static_cast<std::size_t>(read));
  }
}

void AppendToFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
    throw errors::cannotOpen(path);
  if (file.write(bytes) != bytes.size()) throw errors::diskFull(path);
}

void RemoveFile(const QString& path) {
  const QFileInfo entry(path);
  if ((entry.exists() || entry.isSymLink()) && !QFile::remove(path)) throw errors::pathAccess(path);
}
