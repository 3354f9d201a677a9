#include "platform/store/errori_sqlite.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>

#include "platform/store/lessico.h"

namespace store {

namespace {

QString testo(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// What follows the last ": " of the engine's message: the name it stumbled over.
QString nomeNelMessaggio(std::string_view messaggio) {
  const std::size_t due = messaggio.rfind(": ");
  return testo(due == std::string_view::npos ? messaggio : messaggio.substr(due + 2));
}

bool comincia(std::string_view messaggio, std::string_view con) {
  return messaggio.substr(0, con.size()) == con;
}
bool contiene(std::string_view messaggio, std::string_view cosa) {
  return messaggio.find(cosa) != std::string_view::npos;
}

/// The name of a column stands behind the kind of its rule: "lungo_Descrizione", "numero_Prezzo".
QString colonnaDellaRegola(const QString& regola) {
  return regola.section(QLatin1Char('_'), 1);
}

Errore regolaViolata(std::string_view messaggio) {
  const QString regola = nomeNelMessaggio(messaggio);
  if (regola.startsWith(QStringLiteral("lungo_")))
    return {errore::kTestoTroppoLungo,
            QStringLiteral("Il testo è troppo lungo per il campo '%1'.").arg(colonnaDellaRegola(regola))};
  if (regola.startsWith(QStringLiteral("numero_")))
    return {errore::kConversione, QStringLiteral("Errore di conversione del tipo di dati nel campo '%1'.")
                                      .arg(colonnaDellaRegola(regola))};
  return {errore::kRegolaViolata, QStringLiteral("Il valore viola la regola di convalida '%1'.").arg(regola)};
}

Errore erroreConversione() {
  return {errore::kConversione, QStringLiteral("Errore di conversione del tipo di dati.")};
}

/// The engine tells no more than "FOREIGN KEY constraint failed", for a row that others lean on and for one
/// that leans on none alike; the first is the one that callers can run into.
Errore vincolo(int esteso, std::string_view messaggio) {
  switch (esteso) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {errore::kChiaveDuplicata,
              QStringLiteral("Valore duplicato nell'indice o nella chiave primaria: '%1'.")
                  .arg(nomeNelMessaggio(messaggio))};
    case SQLITE_CONSTRAINT_CHECK:
      return regolaViolata(messaggio);
    case SQLITE_CONSTRAINT_NOTNULL:
      return {errore::kValoreObbligatorio,
              QStringLiteral("Il campo '%1' richiede un valore.").arg(nomeNelMessaggio(messaggio))};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return {errore::kRecordCollegati,
              QStringLiteral("Impossibile eliminare o modificare il record: esistono record collegati.")};
    case SQLITE_CONSTRAINT_DATATYPE:
      return erroreConversione();
    default:
      return {errore::kRegolaViolata, testo(messaggio)};
  }
}

bool discoPieno(int errno_) {
  return errno_ == ENOSPC || errno_ == EFBIG || errno_ == EDQUOT;
}

Errore errorePieno() {
  return {errore::kDiscoPieno, QStringLiteral("Disco pieno.")};
}

Errore erroreSolaLettura() {
  return {errore::kSolaLettura, QStringLiteral("Operazione non consentita: il database è di sola lettura.")};
}

Errore erroreAccesso() {
  return {errore::kAccessoPercorso, QStringLiteral("Errore di accesso al percorso o al file.")};
}

Errore erroreNonDatabase() {
  return {errore::kNonDatabase, QStringLiteral("Formato di database non riconosciuto.")};
}

/// Failures that the message alone tells apart.
Errore erroreGenerico(std::string_view messaggio) {
  if (contiene(messaggio, "no such table"))
    return {errore::kTabellaAssente,
            QStringLiteral("Impossibile trovare la tabella '%1'.").arg(nomeNelMessaggio(messaggio))};
  if (contiene(messaggio, "no such column"))
    return {errore::kParametroMancante,
            QStringLiteral("Parametri insufficienti. Previsto 1: '%1'.").arg(nomeNelMessaggio(messaggio))};
  if (contiene(messaggio, "has no column named"))
    return {errore::kParametroMancante, QStringLiteral("Parametri insufficienti. Previsto 1: '%1'.")
                                            .arg(testo(messaggio).section(QLatin1Char(' '), -1))};
  if (contiene(messaggio, "ambiguous column name"))
    return {errore::kCampoAmbiguo,
            QStringLiteral("Il campo '%1' può riferirsi a più tabelle.").arg(nomeNelMessaggio(messaggio))};
  if (contiene(messaggio, "values for") || contiene(messaggio, "values were supplied"))
    return {errore::kNumeroValori,
            QStringLiteral("Il numero dei valori non corrisponde a quello dei campi.")};
  if (comincia(messaggio, "data non valida"))
    return {errore::kTipo, QStringLiteral("Tipo non corrispondente: %1").arg(testo(messaggio))};
  return {errore::kSintassi, QStringLiteral("Errore nell'espressione della query: %1").arg(testo(messaggio))};
}

std::size_t posizioneNellaSorgente(const Traduzione& traduzione, int nelTradotto) {
  std::size_t posizione = 0;
  for (const Traduzione::Passo& passo : traduzione.mappa)
    if (static_cast<int>(passo.nelTradotto) <= nelTradotto) posizione = passo.nellaSorgente;
  return posizione;
}

}  // namespace

Errore ErroreDelMotore(sqlite3* db, Momento momento) {
  const int esteso = sqlite3_extended_errcode(db);
  const std::string_view messaggio = sqlite3_errmsg(db);
  switch (esteso & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {errore::kBloccato, QStringLiteral("Il database è bloccato da un altro programma.")};
    case SQLITE_READONLY:
      return momento == Momento::Apertura ? erroreAccesso() : erroreSolaLettura();
    // The journal cannot be made beside the file: the folder is read-only.
    case SQLITE_CANTOPEN:
      return momento == Momento::Apertura ? erroreAccesso() : erroreSolaLettura();
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return erroreAccesso();
    case SQLITE_FULL:
      return errorePieno();
    case SQLITE_IOERR:
      if (discoPieno(sqlite3_system_errno(db))) return errorePieno();
      return {errore::kErroreDisco, QStringLiteral("Errore di lettura o scrittura sul disco.")};
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return erroreNonDatabase();
    case SQLITE_NOMEM:
      return {errore::kMemoriaEsaurita, QStringLiteral("Memoria esaurita.")};
    case SQLITE_TOOBIG:
      return {errore::kTestoTroppoLungo, QStringLiteral("Il testo è troppo lungo.")};
    case SQLITE_MISMATCH:
      return erroreConversione();
    case SQLITE_CONSTRAINT:
      return vincolo(esteso, messaggio);
    default:
      return erroreGenerico(messaggio);
  }
}

Errore ErroreDiPreparazione(sqlite3* db, std::string_view sorgente, const Dizionario& dizionario) {
  const std::string_view messaggio = sqlite3_errmsg(db);
  const int dove = sqlite3_error_offset(db);
  if (contiene(messaggio, "incomplete input")) {
    return ErroreDiSintassi(QStringLiteral("istruzione incompleta"), sorgente, 0);
  }
  if (!comincia(messaggio, "near ")) return ErroreDelMotore(db, Momento::Istruzione);
  Traduzione conMappa;
  conMappa.conMappa = true;
  Traduci(sorgente, dizionario, conMappa);
  return ErroreDiSintassi(QStringLiteral("operatore mancante"), sorgente,
                          posizioneNellaSorgente(conMappa, dove));
}

}  // namespace store
