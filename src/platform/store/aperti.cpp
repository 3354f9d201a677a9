#include "platform/store/aperti.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/store/connessione.h"

namespace store::aperti {

namespace {
std::vector<Connessione*>& tutti() {
  static std::vector<Connessione*> connessioni;
  return connessioni;
}
}  // namespace

void aggiungi(Connessione* connessione) {
  tutti().push_back(connessione);
}

void togli(Connessione* connessione) noexcept {
  std::erase(tutti(), connessione);
}

std::vector<Connessione*> su(const QString& percorso) {
  const QString cercato = QFileInfo(percorso).canonicalFilePath();
  std::vector<Connessione*> trovati;
  if (cercato.isEmpty()) return trovati;
  for (Connessione* connessione : tutti())
    if (QFileInfo(connessione->percorso()).canonicalFilePath() == cercato) trovati.push_back(connessione);
  return trovati;
}

}  // namespace store::aperti
