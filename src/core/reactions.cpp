#include "core/reactions.h"

#include <cstdlib>

#include "core/state.h"

namespace reazioni {

namespace {
constexpr int kNessuno = 0;
}  // namespace

bool ignorata(int numero) {
  return numero == kNessuno || numero == kRipresaSenzaErrore || numero == errors::kFileMissing ||
         numero == errors::kPathAccess || numero == errors::kNoCurrentRecord;
}

void segnala(Utente& utente, const QString& prefisso, const Errore& errore) {
  utente.MsgBox(prefisso + QString::number(errore.numero) + QStringLiteral(" - ") + errore.descrizione,
                Icon::Critical);
}

void databaseCorrotto(Utente& utente) {
  utente.MsgBox(
      QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!"),
      Icon::Critical);
  varGlobal().FlagAnomalia = kVero;
  utente.Terminate();
  std::abort();  // never reached: the port does not return
}

QString testoErroreImprevisto(const Errore& errore, const QString& procedura, const QString& modulo) {
  return QStringLiteral("Error ") + QString::number(errore.numero) + QStringLiteral(" (") +
         errore.descrizione + QStringLiteral(") in procedure ") + procedura + QStringLiteral(" of Modulo ") +
         modulo;
}

void segnalaImprevisto(Utente& utente, const Errore& errore, const QString& procedura,
                       const QString& modulo) {
  utente.MsgBox(testoErroreImprevisto(errore, procedura, modulo));
}

Errore daEccezione(const std::exception& eccezione) {
  return {errors::kInternal, QString::fromLocal8Bit(eccezione.what())};
}

Errore interno() {
  return {errors::kInternal, QStringLiteral("Errore interno")};
}

}  // namespace reazioni
