#include <algorithm>
#include <vector>

#include "platform/store/connessione.h"
#include "platform/store/store.h"

namespace store {

struct Workspace::Interno {
  std::shared_ptr<Transazioni> transazioni = std::make_shared<Transazioni>();
  std::vector<std::weak_ptr<Connessione>> connessioni;

  int& livello() { return transazioni->livello; }
  void dimenticaLasciate();
  std::vector<std::shared_ptr<Connessione>> aperte();
  void conferma();
  void annulla();
  void confermaTutto();
  void annullaTutto();
};

void Workspace::Interno::dimenticaLasciate() {
  std::erase_if(connessioni, [](const auto& debole) { return debole.expired(); });
}

std::vector<std::shared_ptr<Connessione>> Workspace::Interno::aperte() {
  dimenticaLasciate();
  std::vector<std::shared_ptr<Connessione>> vive;
  for (const auto& debole : connessioni)
    if (auto connessione = debole.lock(); connessione && connessione->aperta()) vive.push_back(connessione);
  return vive;
}

// A transaction over two files is committed file by file; a part that fails leaves the level open, for the
// rollback that follows.
void Workspace::Interno::conferma() {
  const auto vive = aperte();
  for (const auto& connessione : vive)
    if (connessione->disfatta()) connessione->conferma(livello());
  for (const auto& connessione : vive) connessione->conferma(livello());
  --livello();
}

void Workspace::Interno::annulla() {
  const int annullato = livello()--;
  for (const auto& connessione : aperte()) connessione->annulla(annullato);
}

void Workspace::Interno::annullaTutto() {
  while (livello() > 0) annulla();
}

void Workspace::Interno::confermaTutto() {
  const auto vive = aperte();
  const bool disfatta = std::any_of(vive.begin(), vive.end(), [](const auto& c) { return c->disfatta(); });
  if (disfatta) return annullaTutto();
  try {
    while (livello() > 0) conferma();
  } catch (const Errore&) {
    annullaTutto();
    throw;
  }
}

Workspace::Workspace() : interno_(std::make_unique<Interno>()) {}

Workspace::~Workspace() {
  Abbandona();
}

Database Workspace::OpenDatabase(const QString& percorso) {
  auto connessione = ApriConnessione(percorso, interno_->transazioni);
  interno_->dimenticaLasciate();
  interno_->connessioni.push_back(connessione);
  return Database(std::move(connessione));
}

void Workspace::BeginTrans() {
  Transazioni& transazioni = *interno_->transazioni;
  if (transazioni.livello > 0 && transazioni.diUnAltroComando()) interno_->confermaTutto();
  if (transazioni.livello == 0) transazioni.comandoIniziale = transazioni.comando;
  ++transazioni.livello;
}

void Workspace::CommitTrans() {
  if (livello() == 0)
    throw Errore{errore::kNessunaTransazione, QStringLiteral("Nessuna transazione aperta da confermare.")};
  interno_->conferma();
}

void Workspace::Rollback() {
  if (livello() == 0)
    throw Errore{errore::kNessunaTransazione, QStringLiteral("Nessuna transazione aperta da annullare.")};
  interno_->annulla();
}

int Workspace::livello() const {
  return interno_->livello();
}

void Workspace::NuovoComando() {
  ++interno_->transazioni->comando;
}

void Workspace::Abbandona() {
  for (const auto& connessione : interno_->aperte()) connessione->abbandona();
  interno_->livello() = 0;
}

}  // namespace store
