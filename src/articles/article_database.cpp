#include "articles/article_database.h"

#include <QDir>

#include "core/archive_file.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/reactions.h"
#include "core/state.h"
#include "platform/store/store.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

/// Rows of a query on the open archive.
store::Recordset interroga(const store::Statement& sql) {
  return varGlobal().DB_Articoli.OpenRecordset(sql);
}

/// True if the current row names a till.
bool rigaAssegnata(const store::Recordset& righe) {
  return righe.field(QStringLiteral("NomeCassa")).text() != QLatin1String(kNonAssegnato);
}

}  // namespace

QString percorsoModello(const Contesto& contesto) {
  return QDir(contesto.cartella).filePath(QLatin1String(kModello));
}

void avvisaModelloAssente(Contesto& contesto) {
  if (FileEsiste(percorsoModello(contesto))) return;
  contesto.utente.MsgBox(QStringLiteral("Attenzione il file di sistema QzDB.bck potrebbe essere assente!"),
                         Icon::Critical, QStringLiteral("ATTENZIONE"));
}

QString NuovoDatabase(const QString& percorso, Contesto& contesto) {
  QString precedente = archivio::CopiaModello(percorsoModello(contesto), percorso, contesto);
  ApriDatabase(percorso, contesto);
  return precedente;
}

void ApriDatabase(const QString& percorso, Contesto& contesto) {
  varGlobal().DB_Articoli = contesto.area.OpenDatabase(percorso);
  varGlobal().NomeDB_Articoli = percorso;
}

void ChiudiDatabase() {
  varGlobal().DB_Articoli.Close();
}

std::int16_t CheckTabVarie(Utente& utente) {
  const QString prefisso = QStringLiteral("CheckTabVarie ");
  std::int16_t esito = kFalso;
  reazioni::prossimaIstruzione(utente, prefisso, [&] {
    store::Recordset righe = interroga(store::Statement(u"SELECT NomeCassa from TAB_VARIE "));
    for (; !righe.atEnd(); righe.MoveNext()) {
      reazioni::prossimaIstruzione(utente, prefisso, [&] {
        if (rigaAssegnata(righe)) esito = kVero;
      });
    }
  });
  return esito;
}

std::int32_t CalcolaNumArticoli(Utente& utente) {
  std::int32_t articoli = 0;
  const auto esito = reazioni::prossimaIstruzione(utente, QStringLiteral("CalcolaNumArticoli "), [&] {
    articoli = interroga(store::Statement(u"SELECT Codice_EAN from TAB_ARTICOLI ")).RecordCount();
  });
  return esito == reazioni::Esito::Segnalato ? -1 : articoli;
}

std::int16_t GetCodiceEAN(std::int32_t auto_id, const QString& ean, Utente& utente) {
  std::int16_t esito = kEanLibero;
  reazioni::prossimaIstruzione(utente, QStringLiteral("Errore GetCodiceEAN "), [&] {
    const store::Recordset righe =
        interroga(u"SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>" +
                  store::number(std::int64_t{auto_id}) + u" and Codice_Ean ='" + store::text(ean) + u"';");
    if (!righe.empty()) esito = kEanDuplicato;
  });
  return esito;
}

}  // namespace articles
