#include "articles/csv_export.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <optional>

#include "articles/archive_grid.h"
#include "core/contesto.h"
#include "platform/errore.h"
#include "platform/text/windows1252.h"
#include "platform/ui/utente.h"

namespace articles {

namespace {

constexpr QChar kSeparatore = u';';
const QString kFineRiga = QStringLiteral("\r\n");

Errore nonApribile(const QString& percorso) {
  if (!QFileInfo(percorso).absoluteDir().exists())
    return {errore::kPercorsoAssente, QStringLiteral("Percorso non trovato: ") + percorso};
  return {errore::kAccessoPercorso, QStringLiteral("Impossibile scrivere il file ") + percorso};
}

/// A commit may call a full disk done: every write is compared with its length, and flushed, before it.
void scrivi(const QString& percorso, const QByteArray& byte) {
  QSaveFile file(percorso);
  if (!file.open(QIODevice::WriteOnly)) throw nonApribile(percorso);
  if (file.write(byte) != byte.size() || !file.flush())
    throw Errore{errore::kDiscoPieno, QStringLiteral("Disco pieno: ") + percorso};
  if (!file.commit()) throw nonApribile(percorso);
}

QString contenuto(const RigheEsportate& righe) {
  QString testo;
  for (int riga = 1; riga <= righe.righe; ++riga) testo += RigaEsportata(riga, righe) + kFineRiga;
  return testo;
}

}  // namespace

QString RigaEsportata(int riga, const RigheEsportate& righe) {
  QString testo = QString::number(riga);
  for (int colonna = kColonnaEan; colonna <= kColonnaPrezzoZero; ++colonna)
    testo += kSeparatore + righe.testo(riga, colonna);
  return testo + kSeparatore + u' ';
}

void EsportaArticoli(const RigheEsportate& righe, Contesto& contesto) {
  const std::optional<QString> scelto = contesto.utente.FinestraSalva(
      {QStringLiteral("Export Articoli"), QStringLiteral("csv (*.csv)|*.csv"), {}});
  if (!scelto || scelto->isEmpty()) return;
  scrivi(*scelto, windows1252::inByte(contenuto(righe)));
  contesto.utente.MsgBox(QStringLiteral("Creazione del file ") + *scelto + QStringLiteral(" terminata."),
                         Icona::Informazione);
}

}  // namespace articles
