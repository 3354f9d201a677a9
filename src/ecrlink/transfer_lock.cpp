#include "ecrlink/transfer_lock.h"

#include <QDir>
#include <QFileInfo>
#include <cstdlib>

#include "platform/clock.h"
#include "platform/error.h"
#include "platform/ui/user_port.h"

namespace ecrlink {

namespace {

const QString kFile = QStringLiteral(".scambio-ecr.lock");
/// Between making the file and writing into it a living program takes no such time.
constexpr qint64 kSenzaNomeMs = 2000;

/// The file of a program that ended before it wrote its number, or of a power cut: nobody holds it, and it
/// names nobody whose end could be noticed.
bool senzaNome(const QLockFile& serratura) {
  qint64 processo = 0;
  QString macchina;
  QString programma;
  return !serratura.getLockInfo(&processo, &macchina, &programma) &&
         // A clock that was wrong for a while dates files in the future.
         std::abs(QFileInfo(kFile).lastModified().msecsTo(systemClock().now())) > kSenzaNomeMs;
}

}  // namespace

ScambioEsclusivo::ScambioEsclusivo() : serratura_(kFile) {
  // However long a till takes to answer, only the end of the program makes its lock stale.
  serratura_.setStaleLockTime(0);
  if (serratura_.tryLock(0)) return;
  if (senzaNome(serratura_) && serratura_.removeStaleLockFile() && serratura_.tryLock(0)) return;
  const QString cartella = QDir::toNativeSeparators(QDir::currentPath());
  if (serratura_.error() == QLockFile::LockFailedError)
    throw Errore{errors::kAccessDenied,
                 QStringLiteral("Un altro programma sta scambiando dati con una cassa nella cartella ") +
                     cartella + QStringLiteral(": attendere che abbia finito e riprovare.")};
  throw errors::pathAccess(cartella);
}

void prendiDovePossibile(std::optional<ScambioEsclusivo>& scambio) {
  try {
    scambio.emplace();
  } catch (const Errore& errore) {
    if (errore.numero == errors::kAccessDenied) throw;
  }
}

bool prendiODillo(std::optional<ScambioEsclusivo>& scambio, Utente& utente) {
  try {
    prendiDovePossibile(scambio);
    return true;
  } catch (const Errore& errore) {
    utente.MsgBox(errore.descrizione, Icon::Warning);
    return false;
  }
}

}  // namespace ecrlink
