#include <sqlite3.h>

#include "platform/store/connessione.h"
#include "platform/store/data_ora.h"
#include "platform/store/errori_sqlite.h"
#include "platform/store/righe.h"

namespace store {

namespace {

std::vector<QString> nomi(sqlite3_stmt* istruzione) {
  const int quanti = sqlite3_column_count(istruzione);
  std::vector<QString> risultato;
  risultato.reserve(static_cast<std::size_t>(quanti));
  for (int i = 0; i < quanti; ++i) risultato.push_back(QString::fromUtf8(sqlite3_column_name(istruzione, i)));
  return risultato;
}

std::string_view testo(sqlite3_value* valore) {
  const void* byte = sqlite3_value_text(valore);
  return {static_cast<const char*>(byte), static_cast<std::size_t>(sqlite3_value_bytes(valore))};
}

void leggiTesto(Righe& righe, Righe::Cella& cella, std::string_view testo, bool data) {
  const auto momento = data ? LeggiDataOra(testo) : std::nullopt;
  righe.scriviTesto(cella, momento ? FormaItaliana(*momento) : testo);
}

// Every call on a statement's column looks the column up anew: the value is fetched once.
void leggiCella(sqlite3_value* valore, bool data, Righe& righe, Righe::Cella& cella) {
  switch (sqlite3_value_type(valore)) {
    case SQLITE_INTEGER:
      cella.tipo = Righe::Tipo::Intero;
      cella.intero = sqlite3_value_int64(valore);
      break;
    case SQLITE_FLOAT:
      cella.tipo = Righe::Tipo::Reale;
      cella.reale = sqlite3_value_double(valore);
      break;
    case SQLITE_NULL:
      break;
    default:
      leggiTesto(righe, cella, testo(valore), data);
      break;
  }
}

/// Reads all rows; returns the engine's code behind the last.
int leggiRighe(const Preparata& preparata, Righe& righe) {
  int esito = SQLITE_ROW;
  while ((esito = sqlite3_step(preparata.istruzione)) == SQLITE_ROW) {
    Righe::Cella* const celle = righe.nuovaRiga();
    for (int i = 0; i < righe.colonne(); ++i)
      leggiCella(sqlite3_column_value(preparata.istruzione, i),
                 preparata.colonneData[static_cast<std::size_t>(i)], righe, celle[i]);
  }
  return esito;
}

}  // namespace

std::shared_ptr<const Righe> Connessione::interroga(const QString& sql) {
  const QByteArray sorgente = sql.toUtf8();
  Preparata* preparata = nullptr;
  sqlite3_stmt* const istruzione = prepara(sorgente, preparata);
  if (sqlite3_column_count(istruzione) == 0)
    throw Errore{errore::kSenzaRighe,
                 QStringLiteral("Operazione non valida: l'istruzione non restituisce record.")};
  if (!disfatta_) allinea();
  const Ripristino ripristino(istruzione);
  const auto righe = std::make_shared<Righe>(nomi(istruzione), preparata->ingombro);
  if (leggiRighe(*preparata, *righe) != SQLITE_DONE) fallita(ErroreDelMotore(db_, Momento::Istruzione));
  preparata->ingombro = righe->ingombro();
  return righe;
}

}  // namespace store
