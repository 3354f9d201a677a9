#include "articles/csv_export.h"

#include <optional>

#include "articles/archive_grid.h"
#include "core/context.h"
#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

constexpr QChar kSeparatore = u';';
const QString kFineRiga = QStringLiteral("\r\n");

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
  const std::optional<QString> scelto = contesto.utente.AskSavePath(
      {QStringLiteral("Export Articoli"), QStringLiteral("csv (*.csv)|*.csv"), {}});
  if (!scelto || scelto->isEmpty()) return;
  WriteWholeFile(*scelto, windows1252::toBytes(contenuto(righe)));
  contesto.utente.MsgBox(QStringLiteral("Creazione del file ") + *scelto + QStringLiteral(" terminata."),
                         Icon::Information);
}

}  // namespace articles
