#include "articles/archive_save.h"

#include "articles/archive_grid.h"
#include "articles/failed_update.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/key_filters.h"
#include "core/state.h"
#include "platform/text/windows1252.h"
#include "platform/ui/wait_pointer.h"

namespace articles {

namespace {

store::Statement istruzione(const CampiArticolo& campi, std::int32_t prezzo) {
  return u"UPDATE TAB_ARTICOLI SET Codice_Articolo = '" + store::text(campi.codice) + u"'" +
         u",Descrizione = '" + store::text(windows1252::toUpper(campi.descrizione)) + u"'" + u", Prezzo = " +
         store::number(std::int64_t{prezzo}) + u",Codice_EAN ='" + store::text(campi.ean) + u"'" +
         u",VarPrezzo = " + store::flag(siNo(campi.varPrezzo)) + u",PrezzoZero = " +
         store::flag(siNo(campi.prezzoZero)) + u",Reparto = " + store::number(Val(campi.reparto)) +
         u",Filler =' ' WHERE auto_id=" + store::rowId(campi.id);
}

/// True once the statement ran and the list shows it.
bool esegui(const store::Statement& sql, FlexGrid& griglia, Contesto& contesto) {
  try {
    varGlobal().DB_Articoli.Execute(sql);
  } catch (const Errore& errore) {
    SegnalaModificaFallita(errore, contesto.utente);
    return false;
  }
  Tasto_Refresh(griglia, contesto);
  return true;
}

bool conferma(store::Transaction& transazione, FlexGrid& griglia, Contesto& contesto) {
  try {
    transazione.Commit();
    return true;
  } catch (const Errore& errore) {
    SegnalaModificaFallita(errore, contesto.utente);
  }
  // The list shows what was not committed: back to what the archive holds.
  transazione.Rollback();
  Tasto_Refresh(griglia, contesto);
  return false;
}

}  // namespace

EsitoModifica tasto_modifica(const CampiArticolo& campi, FlexGrid& griglia, Contesto& contesto) {
  if (CheckCampiArticolo(campi, contesto.utente) != kFalso) return EsitoModifica::Fermata;
  const WaitPointer puntatore;
  const store::Statement sql = istruzione(campi, TestoInCent(campi.prezzo));
  store::Transaction transazione(contesto.area);
  const bool salvata = esegui(sql, griglia, contesto) && conferma(transazione, griglia, contesto);
  return salvata ? EsitoModifica::Salvata : EsitoModifica::Fallita;
}

}  // namespace articles
