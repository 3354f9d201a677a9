#include "platform/text/file_intero.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include "platform/errore.h"

namespace {

[[noreturn]] void nonScritto(const QSaveFile& file, int numero) {
  throw Errore{numero, QStringLiteral("Impossibile scrivere il file ") +
                           QDir::toNativeSeparators(file.fileName()) + QStringLiteral(": ") +
                           file.errorString()};
}

int numeroApertura(const QString& percorso) {
  return QFileInfo(percorso).absoluteDir().exists() ? errore::kAccessoPercorso : errore::kPercorsoAssente;
}

}  // namespace

void ScriviFileIntero(const QString& percorso, const QByteArray& byte) {
  QSaveFile file(percorso);
  if (!file.open(QIODevice::WriteOnly)) nonScritto(file, numeroApertura(percorso));
  // On a full disk the commit alone would succeed and put a stump in the old file's place.
  if (file.write(byte) != byte.size() || !file.flush()) nonScritto(file, errore::kDiscoPieno);
  if (!file.commit()) nonScritto(file, errore::kAccessoPercorso);
}
