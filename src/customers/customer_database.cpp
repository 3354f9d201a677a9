#include "customers/customer_database.h"

#include <QDir>

#include "core/archive_file.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/reactions.h"
#include "core/state.h"
#include "customers/customer_state.h"
#include "platform/ui/user_port.h"

namespace customers {

namespace {

const QString kNonAssegnato = QStringLiteral("0");
const QString kOrdinario = QStringLiteral(" ");
const QString kDaFattura = QStringLiteral("*");

store::Recordset interroga(const store::Statement& sql) {
  return varGlobal().DB_Clienti.OpenRecordset(sql);
}

QString percorsoModello(const Contesto& contesto) {
  return QDir(contesto.cartella).filePath(QLatin1String(kModello));
}

std::int32_t codiceMassimo(store::Wording sql, const char* colonna) {
  const store::Value massimo = interroga(store::Statement(sql)).field(QLatin1String(colonna));
  return massimo.isNull() ? 0 : massimo.int32();
}

}  // namespace

QString StatoAVideo(std::int64_t stato) {
  if (stato == kStatoNonAssegnato) return kNonAssegnato;
  return stato == kStatoOrdinario ? kOrdinario : kDaFattura;
}

std::int16_t StatoDaVideo(const QString& testo) {
  if (testo == kDaFattura) return kStatoDaFattura;
  return testo == kOrdinario ? kStatoOrdinario : kStatoNonAssegnato;
}

bool ControllaModello(Contesto& contesto) {
  if (FileEsiste(percorsoModello(contesto))) return true;
  contesto.utente.MsgBox(
      QStringLiteral("Attenzione il file di sistema QzDBClienti.bck potrebbe essere assente !!!"),
      Icon::Critical, QStringLiteral("ATTENZIONE"));
  return false;
}

QString NuovoDatabase(const QString& percorso, Contesto& contesto) {
  QString precedente = archivio::CopiaModello(percorsoModello(contesto), percorso, contesto);
  ApriDatabase(percorso, contesto);
  return precedente;
}

void ApriDatabase(const QString& percorso, Contesto& contesto) {
  varGlobal().DB_Clienti = contesto.area.OpenDatabase(percorso);
  varGlobal().NomeDB_Clienti = percorso;
}

void ChiudiDatabase() {
  varGlobal().DB_Clienti.Close();
}

std::int32_t CalcolaNumClienti(Utente& utente) {
  try {
    return interroga(store::Statement(u"SELECT ID_Cliente from TAB_ANAG_CLIENTI ")).RecordCount() - 1;
  } catch (const Errore& errore) {
    reazioni::segnala(utente, QStringLiteral("CalcolaNumClienti "), errore);
    return 0;
  }
}

std::int32_t ProssimoCodice() {
  return codiceMassimo(u"select max(ID_Cliente) as NumMaxCl from tab_anag_CLienti ", "NumMaxCl") + 1;
}

std::int32_t CodiceMassimo() {
  try {
    return codiceMassimo(u"SELECT max(ID_Cliente) as max_cliente from TAB_ANAG_CLIENTI ", "max_cliente");
  } catch (const Errore&) {
    return -1;
  }
}

std::int16_t CheckEsistenzaPartitaIVA(const QString& partitaIVA, Utente& utente) {
  try {
    const store::Recordset righe = interroga(
        u"SELECT Partita_IVA from TAB_ANAG_CLIENTI where Partita_Iva = '" + store::text(partitaIVA) + u"';");
    if (righe.empty()) return kPartitaIVALibera;
  } catch (const Errore& errore) {
    reazioni::segnala(utente, QStringLiteral("CheckEsistenzaPartitaIVA "), errore);
    return kPartitaIVANonLetta;
  }
  if (!statoClienti().ricezioneClienti)
    utente.MsgBox(QString::fromUtf16(kPartitaIVAAssociata).arg(partitaIVA), Icon::Warning);
  return kPartitaIVAPresente;
}

store::Statement StatementNuovo(const Cliente& cliente) {
  return u"INSERT INTO TAB_ANAG_Clienti (ID_CLiente,Ragione_Sociale,Indirizzo,Citta,Partita_Iva,Nota,Stato) "
         u"Values (" +
         store::rowId(cliente.codice) + u",'" + store::text(cliente.ragioneSociale) + u"','" +
         store::text(cliente.indirizzo) + u"','" + store::text(cliente.citta) + u"','" +
         store::text(cliente.partitaIVA) + u"','" + store::text(cliente.nota) + u"'," +
         store::number(std::int64_t{cliente.stato}) + u");";
}

store::Statement StatementModifica(const Cliente& cliente) {
  return u"UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale = '" + store::text(cliente.ragioneSociale) +
         u"', Indirizzo = '" + store::text(cliente.indirizzo) + u"', Citta = '" + store::text(cliente.citta) +
         u"',Partita_IVA = '" + store::text(cliente.partitaIVA) + u"',Nota = '" + store::text(cliente.nota) +
         u"',Stato = " + store::number(std::int64_t{cliente.stato}) + u" WHERE ID_CLIENTE =" +
         store::rowId(cliente.codice);
}

store::Statement StatementElimina(const QString& codice) {
  return u"Delete  cascade from TAB_ANAG_CLIENTI where ID_Cliente =" + store::rowId(codice) + u";";
}

}  // namespace customers
