#include "articles/archive_save.h"

#include "articles/transaction.h"
#include "articles/wait_pointer.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

QString veroFalso(const QString& lettera) {
  return siNo(lettera) ? QStringLiteral("true") : QStringLiteral("false");
}

QString istruzione(const CampiArticolo& campi, std::int32_t prezzo) {
  return QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_Articolo = '") + campi.codice + u'\'' +
         QStringLiteral(",Descrizione = '") + DescrizioneMaiuscola(campi.descrizione) + u'\'' +
         QStringLiteral(", Prezzo = ") + QString::number(prezzo) + QStringLiteral(",Codice_EAN ='") +
         campi.ean + u'\'' + QStringLiteral(",VarPrezzo = ") + veroFalso(campi.varPrezzo) +
         QStringLiteral(",PrezzoZero = ") + veroFalso(campi.prezzoZero) + QStringLiteral(",Reparto = ") +
         QString::number(Val(campi.reparto)) + QStringLiteral(",Filler =' ' WHERE auto_id=") + campi.id;
}

void segnala(const Errore& errore, Utente& utente) {
  utente.MsgBox(QStringLiteral("Errore nella modifica articoli .\nErrore n° ") +
                    QString::number(errore.numero) + u'\n' + errore.descrizione,
                Icon::Critical);
}

/// True once committed.
bool esegui(const QString& sql, Contesto& contesto, const std::function<void()>& Tasto_Refresh) {
  bool mostrata = false;
  try {
    Transazione transazione(contesto.area);
    try {
      varGlobal().DB_Articoli.Execute(sql);
      Tasto_Refresh();
      mostrata = true;
      transazione.conferma();
      return true;
    } catch (const Errore& errore) {
      segnala(errore, contesto.utente);
      transazione.annulla();
    }
  } catch (const Errore& errore) {
    segnala(errore, contesto.utente);
  }
  // The grid shows what was not committed: back to what the archive holds.
  if (mostrata) Tasto_Refresh();
  return false;
}

}  // namespace

EsitoModifica tasto_modifica(const CampiArticolo& campi, Contesto& contesto,
                             const std::function<void()>& Tasto_Refresh) {
  if (CheckCampiArticolo(campi, contesto.utente) != kFalso) return EsitoModifica::Fermata;
  const PuntatoreAttesa attesa;
  const QString sql = istruzione(campi, TestoInCent(campi.prezzo));
  return esegui(sql, contesto, Tasto_Refresh) ? EsitoModifica::Salvata : EsitoModifica::Fallita;
}

}  // namespace articles
