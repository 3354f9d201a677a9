#include "core/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryFile>

#include "platform/error.h"

namespace {

const QString kCondivisa = QStringLiteral("../share/gestionale");
const QString kDati = QStringLiteral("gestionale");
const QString kProvvisoria = QStringLiteral(".nuova");

/// A copy whose every byte was taken: a full disk shows in the length written, or only when the rest goes
/// out.
void copia(const QString& da, const QString& a) {
  QFile sorgente(da);
  QFile copiato(a);
  if (!sorgente.open(QIODevice::ReadOnly)) throw errors::pathAccess(da);
  if (!copiato.open(QIODevice::WriteOnly)) throw errors::pathAccess(a);
  const QByteArray byte = sorgente.readAll();
  if (sorgente.error() != QFileDevice::NoError) throw errors::pathAccess(da);
  if (copiato.write(byte) != byte.size() || !copiato.flush()) throw errors::diskFull(a);
  copiato.close();
  if (copiato.error() != QFileDevice::NoError || copiato.size() != byte.size()) throw errors::pathAccess(a);
  if (!copiato.setPermissions(sorgente.permissions() | QFileDevice::WriteOwner)) throw errors::pathAccess(a);
}

void copiaCartella(const QDir& da, const QDir& a) {
  if (!a.mkpath(QStringLiteral("."))) throw errors::pathAccess(a.path());
  QDirIterator voci(da.path(), QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
  while (voci.hasNext()) {
    const QString voce = voci.next();
    const QString meta = a.filePath(da.relativeFilePath(voce));
    if (!voci.fileInfo().isDir())
      copia(voce, meta);
    else if (!a.mkpath(meta))
      throw errors::pathAccess(meta);
  }
}

/// Filled under another name and given its own at the end: a folder that is there is whole.
void riempi(const QString& cartella, const QString& condivisa) {
  if (!QDir(condivisa).exists()) throw errors::pathMissing(condivisa);
  QDir provvisoria(cartella + kProvvisoria);
  const auto via = qScopeGuard([&] { provvisoria.removeRecursively(); });
  if (provvisoria.exists() && !provvisoria.removeRecursively()) throw errors::pathAccess(provvisoria.path());
  copiaCartella(QDir(condivisa), provvisoria);
  if (!QDir().rename(provvisoria.path(), cartella)) throw errors::pathAccess(cartella);
}

}  // namespace

Cartelle CartelleDelSistema() {
  const QDir programma(QCoreApplication::applicationDirPath());
  const QDir dati(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
  return {programma.path(), dati.filePath(kDati), QDir::cleanPath(programma.filePath(kCondivisa))};
}

bool Scrivibile(const QString& cartella) {
  return QTemporaryFile(QDir(cartella).filePath(QStringLiteral(".prova-XXXXXX"))).open();
}

QString CartellaApplicazione(const Cartelle& cartelle) {
  if (Scrivibile(cartelle.programma)) return QDir(cartelle.programma).absolutePath();
  if (!QDir(cartelle.dati).exists()) riempi(QDir::cleanPath(cartelle.dati), cartelle.condivisa);
  return QDir(cartelle.dati).absolutePath();
}
