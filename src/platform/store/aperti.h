#pragma once

#include <QString>
#include <vector>

namespace store {

class Connessione;

/// The connections that the process has open. A file with one must not be opened and closed by plain calls:
/// closing it drops the engine's locks.
namespace aperti {

void aggiungi(Connessione* connessione);
void togli(Connessione* connessione) noexcept;
/// Those on the same file as `percorso`, by whatever path it was opened.
std::vector<Connessione*> su(const QString& percorso);

}  // namespace aperti
}  // namespace store
