#include "platform/text/whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "platform/error.h"

namespace {

Errore cannotOpen(const QString& path) {
  return QFileInfo(path).absoluteDir().exists() ? errors::pathAccess(path) : errors::pathMissing(path);
}

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

void AppendToFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) throw cannotOpen(path);
  if (file.write(bytes) != bytes.size()) throw errors::diskFull(path);
}
