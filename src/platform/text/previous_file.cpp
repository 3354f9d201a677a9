#include "platform/text/previous_file.h"

#include <QFile>
#include <QFileInfo>

#include "platform/error.h"

namespace {
constexpr qint64 kBlock = 1 << 16;
}  // namespace

QString PreviousName(const QString& path) {
  return path + QStringLiteral(".precedente");
}

void KeepPrevious(const QString& path) {
  TemporaryFile kept(RealTarget(PreviousName(path)));
  AppendRest(path, 0, kept);
  kept.settle();
}

void AppendRest(const QString& path, qint64 from, TemporaryFile& target) {
  QFile file(path);
  // A pipe would hold the program up.
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || !file.seek(from))
    throw errors::pathAccess(path);
  for (QByteArray block = file.read(kBlock); !block.isEmpty(); block = file.read(kBlock)) target.write(block);
  if (file.error() != QFileDevice::NoError) throw errors::pathAccess(path);
}
