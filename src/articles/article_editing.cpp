#include "articles/article_editing.h"

#include <QStringBuilder>

#include "articles/archive_fields.h"
#include "articles/ean_index.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "core/wait_box.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

constexpr int kLunghezzaEan = 13;

/// The screen's commands are off while it lives.
class Bloccati {
 public:
  explicit Bloccati(SchermoArticoli& schermo) : schermo_(schermo) { schermo_.BloccaComandi(true); }
  ~Bloccati() { schermo_.BloccaComandi(false); }
  Bloccati(const Bloccati&) = delete;
  Bloccati& operator=(const Bloccati&) = delete;

 private:
  SchermoArticoli& schermo_;
};

bool assegnato() {
  return varGlobal().FlagVariazioni == 1;
}

bool trova(const store::Statement& sql) {
  return !varGlobal().DB_Articoli.OpenRecordset(sql).empty();
}

/// One unit of work on the archive. A step that fails tells so and undoes the whole.
class Unita {
 public:
  explicit Unita(Contesto& contesto) : contesto_(contesto), transazione_(contesto.area) {}

  /// True if the statement ran.
  bool esegui(const store::Statement& sql, const QString& messaggio) {
    try {
      varGlobal().DB_Articoli.Execute(sql);
      return true;
    } catch (const Errore& errore) {
      return fallita(messaggio, errore);
    }
  }
  bool fallita(const QString& messaggio, const Errore& errore) {
    rifiuta(messaggio % QString::number(errore.numero) % QLatin1Char('\n') % errore.descrizione,
            Icon::Critical);
    return false;
  }
  void rifiuta(const QString& testo, Icon icona) {
    contesto_.utente.MsgBox(testo, icona);
    transazione_.Rollback();
  }
  bool conferma() {
    transazione_.Commit();
    return true;
  }
  Contesto& contesto() { return contesto_; }

 private:
  Contesto& contesto_;
  store::Transaction transazione_;
};

// Insertion.

/// Another article, by its own code, bears the EAN.
bool eanAltrui(const CampiArticolo& campi) {
  return trova(u"SELECT Codice_EAN from TAB_ARTICOLI where Codice_Articolo <> '" + store::text(campi.codice) +
               u"' and Codice_EAN = '" + store::text(campi.ean) + u"';");
}

store::Statement inserimento(const CampiArticolo& campi) {
  return u"INSERT INTO TAB_ARTICOLI (Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler) "
         u"Values ('" +
         store::text(campi.ean) + u"','" + store::text(campi.codice) + u"','" +
         store::text(windows1252::toUpper(campi.descrizione)) + u"'," +
         store::number(std::int64_t{TestoInCent(campi.prezzo)}) + u"," + store::number(Val(campi.reparto)) +
         u",'"
         u" "
         u"');";
}

/// An article that was deleted and comes back is one insertion for the till.
store::Statement variazioneInserito(const QString& ean) {
  const bool cancellato = trova(u"SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '" +
                                store::text(ean) + u"' AND (TipoOperazione ='C') ;");
  if (cancellato)
    return u"UPDATE TAB_VARIAZIONI SET TipoOperazione = 'I'"
           u" WHERE Codice_EAN ='" +
           store::text(ean) + u"'";
  return u"INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) "
         u"Values ('" +
         store::text(ean) + u"','I');";
}

bool inserisci(const CampiArticolo& campi, Unita& unita) {
  if (eanAltrui(campi)) {
    unita.rifiuta(QStringLiteral("Attenzione il Codice EAN immesso [") % campi.ean %
                      QStringLiteral("] è già associato ad un'altro articolo !!!"),
                  Icon::Warning);
    return false;
  }
  if (!unita.esegui(inserimento(campi), QStringLiteral("Errore nell' inserimento articoli Errore n° ")))
    return false;
  if (assegnato() && !unita.esegui(variazioneInserito(campi.ean),
                                   QStringLiteral("Errore nell' inserimento variazioni Errore n° ")))
    return false;
  return unita.conferma();
}

// Deletion.

bool confermata(const QString& ean, Utente& utente) {
  return utente.MsgBox(
             QStringLiteral(
                 "Attenzione questa operazione comporterà l'eliminazione dell'articolo con codice EAN [") %
                 ean % QStringLiteral("]. Continuare ?"),
             Icon::None, QStringLiteral("Cancellazione articolo"), Buttons::OkCancel,
             Preset::Last) == Answer::Ok;
}

/// The till does not know of the article. 'U' is left to archives that another program has written.
bool ignotoAllaCassa(const QString& ean) {
  return trova(u"SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '" + store::text(ean) +
               u"' AND (TipoOperazione ='I' OR TipoOperazione ='U') ;");
}

/// The number and the text of the message are those of the failure behind the one already shown.
bool aggiornaIndici(const QString& ean, Unita& unita) {
  // Every row may be written twice.
  const Attesa attesa(unita.contesto(), Attesa::Quando::Subito);
  Utente& utente = unita.contesto().utente;
  Errore causa;
  if (CalcolaID_Position(utente, &causa) != 0)
    return unita.fallita(
        QStringLiteral("Fallita operazione di valorizzazione indici in TAB_ARTICOLI: Errore n° "), causa);
  if (UpdateIndex(ean, kIndiceCancellato, utente, &causa) != 0)
    return unita.fallita(
        QStringLiteral("Fallita operazione di cancellazione articolo in TAB_EAN_NUMERICI: Errore n° "),
        causa);
  if (UpdateALLIndex(utente, &causa) != 0)
    return unita.fallita(QStringLiteral("Fallita operazione update inici in TAB_EAN_NUMERICI: Errore n° "),
                         causa);
  return true;
}

/// Changes and positions of a deletion on an archive assigned to a till.
bool registraCancellazione(const QString& ean, Unita& unita) {
  if (ignotoAllaCassa(ean))
    return unita.esegui(u"DELETE FROM TAB_VARIAZIONI where Codice_EAN = '" + store::text(ean) + u"';",
                        QStringLiteral("Errore nell'eliminazione articolo su TAB_VARIAZIONI Errore n° "));
  return unita.esegui(
             u"INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) "
             u"Values ('" +
                 store::text(ean) + u"','C');",
             QStringLiteral("Errore nell'eliminazione articoli Errore n° ")) &&
         aggiornaIndici(ean, unita);
}

bool cancella(const QString& ean, Unita& unita) {
  return unita.esegui(u"Delete  from TAB_ARTICOLI where Codice_EAN ='" + store::text(ean) + u"';",
                      QStringLiteral("Errore nell' eliminazione articoli Errore n° ")) &&
         (!assegnato() || registraCancellazione(ean, unita)) && unita.conferma();
}

}  // namespace

bool InserimentoArticolo(CampiArticolo& campi, Contesto& contesto, SchermoArticoli& schermo) {
  if (CheckCampiArticolo(campi, contesto.utente) != 0) return false;
  {
    Unita unita(contesto);
    campi.ean = campi.ean.leftJustified(kLunghezzaEan);
    if (!inserisci(campi, unita)) return false;
  }
  schermo.Tasto_Refresh();
  return true;
}

bool EliminaSelezionato(const CampiArticolo& campi, Contesto& contesto, SchermoArticoli& schermo) {
  if (!campi.ean.isEmpty()) return Tasto_Cancella(campi.ean, contesto, schermo);
  // Without an EAN the deletion would take every slot that has none.
  contesto.utente.MsgBox(QStringLiteral("Attenzione selezionare l'articolo da eliminare"));
  return false;
}

bool Tasto_Cancella(const QString& ean, Contesto& contesto, SchermoArticoli& schermo) {
  {
    Unita unita(contesto);
    if (!confermata(ean, contesto.utente)) {
      schermo.BloccaComandi(false);
      return false;
    }
    const Bloccati bloccati(schermo);
    if (!cancella(ean, unita)) return false;
  }
  schermo.Cancella_TextBox();
  schermo.Tasto_Refresh();
  return true;
}

}  // namespace articles
