#include "platform/text/whole_file.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include "platform/error.h"

namespace {

[[noreturn]] void notWritten(const QSaveFile& file, int number) {
  throw Errore{number, QStringLiteral("Impossibile scrivere il file ") +
                           QDir::toNativeSeparators(file.fileName()) + QStringLiteral(": ") +
                           file.errorString()};
}

int openingNumber(const QString& path) {
  return QFileInfo(path).absoluteDir().exists() ? errors::kPathAccess : errors::kPathMissing;
}

}  // namespace

void WriteWholeFile(const QString& path, const QByteArray& byte) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) notWritten(file, openingNumber(path));
  // On a full disk the commit alone would succeed and put a stump in the old file's place.
  if (file.write(byte) != byte.size() || !file.flush()) notWritten(file, errors::kDiskFull);
  if (!file.commit()) notWritten(file, errors::kPathAccess);
}
