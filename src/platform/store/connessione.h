#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "platform/errore.h"
#include "platform/store/dialetto.h"
#include "platform/store/stampi.h"
#include "platform/store/istruzioni.h"
#include "platform/store/motore.h"

struct sqlite3;

namespace store {

class Righe;

/// A workspace's transaction, shared by its connections.
struct Transazioni {
  int livello = 0;
  /// Counts the commands entered from the event loop, and which of them began the transaction now open.
  int comando = 0;
  int comandoIniziale = 0;
  /// Connections that have entered it.
  int partecipanti = 0;

  bool diUnAltroComando() const { return comandoIniziale != comando; }
};

/// One open file. It enters the workspace's transaction at its first statement in it, so that databases
/// opened behind the begin are in it as well.
class Connessione {
 public:
  Connessione(Motore motore, QString percorso, std::shared_ptr<Transazioni> transazioni);
  /// Closes as `chiudi` does; a failure has nobody to be told any more.
  ~Connessione();
  Connessione(const Connessione&) = delete;
  Connessione& operator=(const Connessione&) = delete;

  bool aperta() const { return db_ != nullptr; }
  const QString& percorso() const { return percorso_; }
  std::size_t preparate() const { return istruzioni_.quante(); }

  /// Reads the tables; fails with 3343, 3260 or 75 where the file is none of ours, locked or unreadable.
  void leggiSchema();
  int esegui(const QString& sql);
  std::shared_ptr<const Righe> interroga(const QString& sql);

  /// True if the engine has undone the transaction by itself: no statement is taken until it is rolled back.
  bool disfatta() const { return disfatta_.has_value(); }
  bool inTransazione() const { return livello_ > 0; }
  /// Ends the innermost level if this connection has entered it.
  void conferma(int livello);
  void annulla(int livello);
  /// Commits what is open and closes.
  void chiudi();
  /// Undoes what is open and closes.
  void abbandona() noexcept;

 private:
  sqlite3_stmt* prepara(const QByteArray& sorgente, Preparata*& preparata);
  void lega(sqlite3_stmt* istruzione) const;
  void allinea();
  void comando(const std::string& sql);
  void confermaSuDisco();
  /// True if a transaction stood open in the engine; it is undone.
  bool disfaSeAperta() noexcept;
  void confermaTutto();
  [[noreturn]] void fallita(const Errore& errore);
  void imposta(int livello) noexcept;
  void libera() noexcept;
  void esci(bool partecipava) noexcept;

  sqlite3* db_;
  QString percorso_;
  std::shared_ptr<Transazioni> transazioni_;
  Dizionario dizionario_;
  Istruzioni istruzioni_;
  Stampi stampi_;
  /// Of the last statement; in one of the moulds.
  const Traduzione* traduzione_ = nullptr;
  int livello_ = 0;
  std::optional<Errore> disfatta_;
};

/// Opens an existing file. Throws as Workspace::OpenDatabase.
std::shared_ptr<Connessione> ApriConnessione(const QString& percorso,
                                             std::shared_ptr<Transazioni> transazioni);

}  // namespace store
