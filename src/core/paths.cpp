#include "core/paths.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryFile>

#include "platform/error.h"
#include "platform/text/whole_file.h"

namespace {

const QString kCondivisa = QStringLiteral("../share/gestionale");
const QString kDati = QStringLiteral("gestionale");
const QString kProvvisoria = QStringLiteral(".nuova");
const QString kContenuto = QStringLiteral("contenuto.sha256");

/// A line of the list of contents is the sum in hexadecimal, two blanks and the path.
constexpr qsizetype kCifreSomma = 64;
constexpr qsizetype kInizioPercorso = kCifreSomma + 2;

/// The sum of each file by its path within the folder.
using Contenuto = QMap<QString, QByteArray>;

/// The copy is whole before what stood there goes. A program among the files stays one.
void copia(const QString& da, const QString& a) {
  TemporaryFile copiato(a);
  CopyInto(copiato, da);
  copiato.settle(TemporaryFile::Durability::Passing);
  if (!QFile::setPermissions(a, QFile::permissions(da) | QFileDevice::WriteOwner))
    throw errors::pathAccess(a);
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

/// What the folder's list says that it holds; nothing without a list.
Contenuto contenutoDi(const QString& cartella) {
  QFile elenco(QDir(cartella).filePath(kContenuto));
  if (!elenco.open(QIODevice::ReadOnly)) return {};
  Contenuto contenuto;
  for (const QByteArray& riga : elenco.readAll().split('\n'))
    if (riga.size() > kInizioPercorso)
      contenuto.insert(QString::fromUtf8(riga.mid(kInizioPercorso)), riga.left(kCifreSomma));
  return contenuto;
}

QByteArray sommaDi(const QString& percorso) {
  QFile file(percorso);
  QCryptographicHash somma(QCryptographicHash::Sha256);
  if (!file.open(QIODevice::ReadOnly) || !somma.addData(&file)) throw errors::pathAccess(percorso);
  return somma.result().toHex();
}

void sostituisci(const QString& da, const QString& a) {
  if (!QFileInfo(a).dir().mkpath(QStringLiteral("."))) throw errors::pathAccess(a);
  TemporaryFile::Sweep(a);
  copia(da, a);
}

/// The user's folder after an installation of another version: a file that is missing comes back, one that is
/// still as it was brought becomes the new one, one that the user changed (a picture, a maker's library)
/// stays. The list is the last to be replaced, so that an update that was cut short is taken up at the next
/// start.
void aggiorna(const QString& cartella, const QString& condivisa) {
  const Contenuto prima = contenutoDi(cartella);
  const Contenuto ora = contenutoDi(condivisa);
  for (auto voce = ora.cbegin(); voce != ora.cend(); ++voce) {
    const QString file = QDir(cartella).filePath(voce.key());
    const QByteArray portata = prima.value(voce.key());
    if (QFileInfo::exists(file) && (voce.value() == portata || sommaDi(file) != portata)) continue;
    sostituisci(QDir(condivisa).filePath(voce.key()), file);
  }
  if (ora != prima && !ora.isEmpty())
    sostituisci(QDir(condivisa).filePath(kContenuto), QDir(cartella).filePath(kContenuto));
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

/// A portable copy that happens to lie where the user's own data folder looks like its share is not
/// installed.
bool installato(const Cartelle& cartelle) {
  return QFileInfo(cartelle.condivisa).isDir() && QFileInfo(cartelle.condivisa) != QFileInfo(cartelle.dati);
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
  if (!installato(cartelle) && Scrivibile(cartelle.programma)) return QDir(cartelle.programma).absolutePath();
  if (QDir(cartelle.dati).exists())
    aggiorna(cartelle.dati, cartelle.condivisa);
  else
    riempi(QDir::cleanPath(cartelle.dati), cartelle.condivisa);
  return QDir(cartelle.dati).absolutePath();
}

QString CartellaTrasferimenti(const Cartelle& cartelle, const QString& corrente,
                              const QString& applicazione) {
  if (QFileInfo(corrente) == QFileInfo(cartelle.condivisa)) return applicazione;
  return Scrivibile(corrente) ? corrente : applicazione;
}
