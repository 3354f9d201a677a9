#include "ecrlink/transfer_lock.h"

#include <QDir>

#include "platform/error.h"

namespace ecrlink {

namespace {
const QString kFile = QStringLiteral(".scambio-ecr.lock");
}

ScambioEsclusivo::ScambioEsclusivo() : serratura_(kFile) {
  // However long a till takes to answer, only the end of the program makes its lock stale.
  serratura_.setStaleLockTime(0);
  if (serratura_.tryLock(0)) return;
  const QString cartella = QDir::toNativeSeparators(QDir::currentPath());
  if (serratura_.error() == QLockFile::LockFailedError)
    throw Errore{errors::kAccessDenied,
                 QStringLiteral("Un altro programma sta scambiando dati con una cassa nella cartella ") +
                     cartella + QStringLiteral(": attendere che abbia finito e riprovare.")};
  throw errors::pathAccess(cartella);
}

}  // namespace ecrlink
