#include "sales/reception_note.h"

#include <QCryptographicHash>
#include <QFile>

#include "platform/error.h"
#include "platform/text/whole_file.h"

namespace sales::nota {

namespace {

const QString kFile = QStringLiteral("venduto.bin.ricevuto");
/// A checksum and a path.
constexpr qsizetype kMassimo = 64 * 1024;

QByteArray impronta(const QByteArray& venduto) {
  return QCryptographicHash::hash(venduto, QCryptographicHash::Sha256).toHex();
}

/// The note's two lines; empty ones where there is no note, or none that can be read.
QList<QByteArray> righe() {
  try {
    const QList<QByteArray> lette = ReadWholeFile(kFile, kMassimo).split('\n');
    if (lette.size() >= 2) return lette;
  } catch (const Errore&) {
    // Nothing is known of an earlier reception: as if there had been none.
  }
  return {{}, {}};
}

}  // namespace

QString archivioDi(const QByteArray& venduto) {
  return righe().front() == impronta(venduto) ? archivio() : QString();
}

QString archivio() {
  return QString::fromUtf8(righe().at(1));
}

void scrivi(const QByteArray& venduto, const QString& archivio) {
  WriteWholeFile(kFile, impronta(venduto) + '\n' + archivio.toUtf8() + '\n');
}

void togli() {
  QFile::remove(kFile);
}

}  // namespace sales::nota
