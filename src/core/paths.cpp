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

Errore accesso(const QString& percorso) {
  return {errors::kPathAccess, QStringLiteral("Errore di accesso al percorso o al file: ") + percorso};
}

/// A copy whose every byte was taken: a full disk shows in the length written, or only when the rest goes
/// out.
void copia(const QString& da, const QString& a) {
  QFile sorgente(da);
  QFile copiato(a);
  if (!sorgente.open(QIODevice::ReadOnly)) throw accesso(da);
  if (!copiato.open(QIODevice::WriteOnly)) throw accesso(a);
  const QByteArray byte = sorgente.readAll();
  if (sorgente.error() != QFileDevice::NoError) throw accesso(da);
  if (copiato.write(byte) != byte.size() || !copiato.flush())
    throw Errore{errors::kDiskFull, QStringLiteral("Disco pieno: ") + a};
  copiato.close();
  if (copiato.error() != QFileDevice::NoError || copiato.size() != byte.size()) throw accesso(a);
  if (!copiato.setPermissions(sorgente.permissions() | QFileDevice::WriteOwner)) throw accesso(a);
}

void copiaCartella(const QDir& da, const QDir& a) {
  if (!a.mkpath(QStringLiteral("."))) throw accesso(a.path());
  QDirIterator voci(da.path(), QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
  while (voci.hasNext()) {
    const QString voce = voci.next();
    const QString meta = a.filePath(da.relativeFilePath(voce));
    if (!voci.fileInfo().isDir())
      copia(voce, meta);
    else if (!a.mkpath(meta))
      throw accesso(meta);
  }
}

/// Filled under another name and given its own at the end: a folder that is there is whole.
void riempi(const QString& cartella, const QString& condivisa) {
  if (!QDir(condivisa).exists())
    throw Errore{errors::kPathMissing, QStringLiteral("Percorso non trovato: ") + condivisa};
  QDir provvisoria(cartella + kProvvisoria);
  const auto via = qScopeGuard([&] { provvisoria.removeRecursively(); });
  if (provvisoria.exists() && !provvisoria.removeRecursively()) throw accesso(provvisoria.path());
  copiaCartella(QDir(condivisa), provvisoria);
  if (!QDir().rename(provvisoria.path(), cartella)) throw accesso(cartella);
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
