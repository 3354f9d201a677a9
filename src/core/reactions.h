#pragma once

#include <QString>
#include <exception>
#include <utility>

#include "platform/error.h"
#include "platform/ui/user_port.h"

/// How procedures react to failures. Low layers throw; these helpers apply the laid-down reaction once.
namespace reazioni {

enum class Esito {
  Fatto,      ///< the step ran
  Ignorato,   ///< it failed with a number that is passed over
  Segnalato,  ///< it failed and the person was told
};

/// A resumption with no failure to resume from: passed over by the lists, told by the searches of customers
/// and invoices.
inline constexpr int kRipresaSenzaErrore = 20;

/// True for the failures that every data procedure passes over: 0, 20, 53, 75, 3021.
bool ignorata(int numero);

/// The critical box made of prefix, number, " - " and description.
void segnala(Utente& utente, const QString& prefisso, const Errore& errore);

/// Runs one step; on a failure applies the reaction table and lets the caller go on at its next statement.
template <typename Passo>
Esito prossimaIstruzione(Utente& utente, const QString& prefisso, Passo&& passo) {
  try {
    std::forward<Passo>(passo)();
    return Esito::Fatto;
  } catch (const Errore& errore) {
    if (ignorata(errore.numero)) return Esito::Ignorato;
    segnala(utente, prefisso, errore);
    return Esito::Segnalato;
  }
}

/// As above for a fill routine: a missing table shows the grave message, sets FlagAnomalia and ends the
/// program.
template <typename Passo>
Esito prossimaIstruzioneRiempimento(Utente& utente, const QString& prefisso, Passo&& passo);

/// The grave message, FlagAnomalia and the end of the program.
[[noreturn]] void databaseCorrotto(Utente& utente);

/// "Error " + number + " (" + description + ") in procedure " + name + " of Modulo " + module.
QString testoErroreImprevisto(const Errore& errore, const QString& procedura, const QString& modulo);
void segnalaImprevisto(Utente& utente, const Errore& errore, const QString& procedura, const QString& modulo);
/// Errore of a failure of the language's own library: number 51, the text as it came.
Errore daEccezione(const std::exception& eccezione);
/// Errore of a failure of which nothing is known: number 51.
Errore interno();

/// Runs a step. Whatever it fails with, a failure of the language among them, becomes an Errore for
/// `alGuasto`, whose result stands for the step's. The end of the program passes.
template <typename Corpo, typename AlGuasto>
auto oppure(Corpo&& corpo, AlGuasto&& alGuasto) -> decltype(corpo()) {
  try {
    return std::forward<Corpo>(corpo)();
  } catch (const Errore& errore) {
    return std::forward<AlGuasto>(alGuasto)(errore);
  } catch (const ProgramEnded&) {
    throw;
  } catch (const std::exception& eccezione) {
    return std::forward<AlGuasto>(alGuasto)(daEccezione(eccezione));
  } catch (...) {
    return std::forward<AlGuasto>(alGuasto)(interno());
  }
}

/// Runs a procedure that answers with a code: 0, or 1 for a failure, which has been shown under its name.
template <typename Corpo>
int conCodice(Utente& utente, const char* procedura, const char* modulo, Corpo&& corpo) {
  return oppure(
      [&] {
        std::forward<Corpo>(corpo)();
        return 0;
      },
      [&](const Errore& errore) {
        segnalaImprevisto(utente, errore, QLatin1String(procedura), QLatin1String(modulo));
        return 1;
      });
}

/// The guard of every procedure that the event loop enters: nothing leaves it. Unexpected failures are shown.
template <typename Corpo>
void protetta(Utente& utente, const QString& procedura, const QString& modulo, Corpo&& corpo) noexcept {
  try {
    oppure([&] { static_cast<void>(std::forward<Corpo>(corpo)()); },
           [&](const Errore& errore) { segnalaImprevisto(utente, errore, procedura, modulo); });
  } catch (const ProgramEnded&) {
    // The end of the program was asked for: in the tests' port the call stack has to be left this way.
  }
}

template <typename Passo>
Esito prossimaIstruzioneRiempimento(Utente& utente, const QString& prefisso, Passo&& passo) {
  try {
    std::forward<Passo>(passo)();
    return Esito::Fatto;
  } catch (const Errore& errore) {
    if (errore.numero == errors::kTableMissing) databaseCorrotto(utente);
    if (ignorata(errore.numero)) return Esito::Ignorato;
    segnala(utente, prefisso, errore);
    return Esito::Segnalato;
  }
}

}  // namespace reazioni
