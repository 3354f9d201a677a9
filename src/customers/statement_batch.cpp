#include "customers/statement_batch.h"

#include <optional>

#include "core/context.h"
#include "core/reactions.h"
#include "core/state.h"
#include "core/wait_box.h"
#include "platform/store/store.h"
#include "platform/text/line_reader.h"
#include "platform/text/windows1252.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"

namespace customers {

namespace {

constexpr const char* kFiltro = "dat (*.dat)|*.dat";

/// The one place of the program that runs texts of a file: the file is the work of who knows the tables.
void esegui(const Line& riga) {
  if (!riga.whole) throw Errore{errors::kTextTooLong, QStringLiteral("La riga è troppo lunga.")};
  varGlobal().DB_Clienti.Execute(store::Statement::AsWritten(windows1252::toText(riga.bytes)));
}

void eseguiRighe(const QString& percorso, Contesto& contesto, int& righe) {
  const BusyGuard occupato;
  Attesa attesa(contesto);
  LineReader lettore(percorso);
  varGlobal().DB_Clienti.CheckIntegrity();
  while (!lettore.atEnd()) {
    attesa.avanza(lettore.done(), lettore.size());
    contesto.utente.DoEventsAtRecord();
    esegui(lettore.next());
    ++righe;
  }
}

/// The boxes speak of articles, as those of the articles' own import do: whoever runs a batch has the two
/// archives side by side, and knows them so.
void segnala(Utente& utente, const Errore& errore) {
  utente.MsgBox(QStringLiteral("Errore nell' inserimento articoli Errore n° ") +
                    QString::number(errore.numero) + u'\n' + errore.descrizione,
                Icon::Critical);
}

}  // namespace

EsitoIstruzioni ImportaIstruzioni(Contesto& contesto) {
  using Tipo = EsitoIstruzioni::Tipo;
  EsitoIstruzioni esito;
  store::Transaction transazione(contesto.area);
  const std::optional<QString> scelto =
      contesto.utente.AskOpenPath({QStringLiteral("Importa Istruzioni"), QLatin1String(kFiltro), {}});
  if (!scelto || scelto->isEmpty()) return esito;
  esito.tipo = reazioni::oppure(
      [&] {
        eseguiRighe(*scelto, contesto, esito.righe);
        transazione.Commit();
        return Tipo::Eseguite;
      },
      [&](const Errore& errore) {
        segnala(contesto.utente, errore);
        transazione.Rollback();
        return Tipo::Annullate;
      });
  if (esito.tipo == Tipo::Eseguite)
    contesto.utente.MsgBox(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
                           Icon::Information);
  return esito;
}

}  // namespace customers
