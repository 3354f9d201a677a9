#include "platform/store/connessione.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "platform/store/aperti.h"
#include "platform/store/contatore.h"
#include "platform/store/errori_sqlite.h"
#include "platform/store/giornale.h"
#include "platform/store/righe.h"
#include "platform/store/schema.h"

namespace store {

namespace {

constexpr std::size_t kPreparateMassime = 64;

std::string_view vista(const QByteArray& byte) {
  return {byte.constData(), static_cast<std::size_t>(byte.size())};
}

std::string nomeLivello(int livello) {
  return "livello_" + std::to_string(livello);
}

}  // namespace

Connessione::Connessione(Motore motore, QString percorso, std::shared_ptr<Transazioni> transazioni)
    : db_(motore.release()),
      percorso_(std::move(percorso)),
      transazioni_(std::move(transazioni)),
      istruzioni_(kPreparateMassime) {}

Connessione::~Connessione() {
  try {
    chiudi();
  } catch (const Errore&) {
    // The file is left as it was before the transaction.
  }
}

void Connessione::leggiSchema() {
  if (!LeggiSchema(db_, dizionario_)) throw ErroreDelMotore(db_, Momento::Apertura);
}

void Connessione::fallita(const Errore& errore) {
  if (livello_ > 0 && sqlite3_get_autocommit(db_) != 0) disfatta_ = errore;
  throw errore;
}

void Connessione::comando(const std::string& sql) {
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    fallita(ErroreDelMotore(db_, Momento::Istruzione));
}

void Connessione::allinea() {
  while (livello_ < transazioni_->livello) {
    comando(livello_ == 0 ? std::string("BEGIN") : "SAVEPOINT " + nomeLivello(livello_ + 1));
    imposta(livello_ + 1);
  }
}

bool Connessione::disfaSeAperta() noexcept {
  if (sqlite3_get_autocommit(db_) != 0) return false;
  sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
  return true;
}

void Connessione::imposta(int livello) noexcept {
  if (livello_ == 0 && livello > 0) ++transazioni_->partecipanti;
  if (livello_ > 0 && livello == 0) --transazioni_->partecipanti;
  livello_ = livello;
}

sqlite3_stmt* Connessione::prepara(const QByteArray& sorgente, Preparata*& preparata) {
  traduzione_ = &stampi_.traduci(vista(sorgente), dizionario_);
  preparata = istruzioni_.prendi(db_, traduzione_->sql);
  if (preparata == nullptr) fallita(ErroreDiPreparazione(db_, vista(sorgente), dizionario_));
  lega(preparata->istruzione);
  return preparata->istruzione;
}

// The windows on the source stay bound when the call is over; every later use binds all of them anew.
void Connessione::lega(sqlite3_stmt* istruzione) const {
  int posto = 0;
  for (const Parametro& parametro : traduzione_->parametri) {
    ++posto;
    switch (parametro.tipo) {
      case Parametro::Tipo::Intero:
        sqlite3_bind_int64(istruzione, posto, parametro.intero);
        break;
      case Parametro::Tipo::Reale:
        sqlite3_bind_double(istruzione, posto, parametro.reale);
        break;
      case Parametro::Tipo::Testo:
        sqlite3_bind_text64(istruzione, posto, parametro.testo.data(), parametro.testo.size(), SQLITE_STATIC,
                            SQLITE_UTF8);
        break;
    }
  }
}

int Connessione::esegui(const QString& sql) {
  if (disfatta_) throw *disfatta_;
  const QByteArray sorgente = sql.toUtf8();
  Preparata* preparata = nullptr;
  sqlite3_stmt* const istruzione = prepara(sorgente, preparata);
  if (sqlite3_column_count(istruzione) > 0)
    throw Errore{errore::kNonEseguibile, QStringLiteral("Impossibile eseguire una query di selezione.")};
  allinea();
  const Ripristino ripristino(istruzione);
  if (sqlite3_step(istruzione) != SQLITE_DONE) fallita(ErroreDelMotore(db_, Momento::Istruzione));
  if (traduzione_->definizione) {
    leggiSchema();
    return 0;
  }
  return sqlite3_changes(db_);
}

// A commit that failed behind its last step has been made all the same: the file tells. One that the engine
// leaves open found the file locked and wrote nothing.
void Connessione::confermaSuDisco() {
  const auto prima = ContatoreModifiche(db_);
  if (sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK) return;
  const Errore errore = ErroreDelMotore(db_, Momento::Istruzione);
  if (!disfaSeAperta()) {
    const bool riletto =
        sqlite3_exec(db_, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr) == SQLITE_OK;
    if (riletto && prima && ContatoreModifiche(db_) != prima) return;
  }
  disfatta_ = errore;
  throw errore;
}

void Connessione::conferma(int livello) {
  if (disfatta_) throw *disfatta_;
  if (livello_ < livello) return;
  if (livello > 1) {
    comando("RELEASE " + nomeLivello(livello));
  } else {
    confermaSuDisco();
  }
  imposta(livello_ - 1);
}

void Connessione::annulla(int livello) {
  if (disfatta_) {
    if (livello == 1) disfatta_.reset();
    imposta(std::min(livello_, livello - 1));
    return;
  }
  if (livello_ < livello) return;
  imposta(livello - 1);
  if (livello == 1) return comando("ROLLBACK");
  comando("ROLLBACK TO " + nomeLivello(livello));
  comando("RELEASE " + nomeLivello(livello));
}

void Connessione::confermaTutto() {
  if (disfatta_ || livello_ == 0) return;
  while (livello_ > 0) conferma(livello_);
}

void Connessione::chiudi() {
  if (!aperta()) return;
  const bool partecipava = inTransazione();
  try {
    confermaTutto();
  } catch (const Errore&) {
    libera();
    esci(partecipava);
    throw;
  }
  libera();
  esci(partecipava);
}

void Connessione::abbandona() noexcept {
  const bool partecipava = inTransazione();
  libera();
  esci(partecipava);
}

// A transaction that an earlier command left open ends with the last database in it.
void Connessione::esci(bool partecipava) noexcept {
  if (partecipava && transazioni_->partecipanti == 0 && transazioni_->diUnAltroComando())
    transazioni_->livello = 0;
}

// After a failure of the disk the journal is left to the next opening, which may have to play it back.
void Connessione::libera() noexcept {
  if (!aperta()) return;
  imposta(0);
  istruzioni_.svuota();
  disfaSeAperta();
  if (!disfatta_) TogliGiornale(db_);
  aperti::togli(this);
  ChiusuraMotore{}(std::exchange(db_, nullptr));
  disfatta_.reset();
}

}  // namespace store
