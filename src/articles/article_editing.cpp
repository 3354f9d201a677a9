#include "articles/article_editing.h"

#include <QStringBuilder>

#include "articles/archive_fields.h"
#include "articles/ean_index.h"
#include "articles/transaction.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

constexpr int kLunghezzaEan = 13;

template <typename Richiamo, typename... Argomenti>
void chiama(const Richiamo& richiamo, Argomenti... argomenti) {
  if (richiamo) richiamo(argomenti...);
}

/// Something of the screen's that is on while it lives.
class Durante {
 public:
  explicit Durante(const std::function<void(bool)>& richiamo) : richiamo_(richiamo) {
    chiama(richiamo_, true);
  }
  ~Durante() { chiama(richiamo_, false); }
  Durante(const Durante&) = delete;
  Durante& operator=(const Durante&) = delete;

 private:
  const std::function<void(bool)>& richiamo_;
};

bool assegnato() {
  return varGlobal().FlagVariazioni == 1;
}

bool trova(const QString& sql) {
  return !varGlobal().DB_Articoli.OpenRecordset(sql).empty();
}

/// One unit of work on the archive. A step that fails tells so and undoes the whole.
class Unita {
 public:
  explicit Unita(Contesto& contesto) : utente_(contesto.utente), transazione_(contesto.area) {}

  /// True if the statement ran.
  bool esegui(const QString& sql, const QString& messaggio) {
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
    utente_.MsgBox(testo, icona);
    transazione_.annulla();
  }
  bool conferma() {
    transazione_.conferma();
    return true;
  }
  Utente& utente() { return utente_; }

 private:
  Utente& utente_;
  Transazione transazione_;
};

// Insertion.

/// Another article, by its own code, bears the EAN.
bool eanAltrui(const CampiArticolo& campi) {
  return trova(QStringLiteral("SELECT Codice_EAN from TAB_ARTICOLI where Codice_Articolo <> '") %
               campi.codice % QStringLiteral("' and Codice_EAN = '") % campi.ean % QStringLiteral("';"));
}

QString inserimento(const CampiArticolo& campi) {
  return QStringLiteral(
             "INSERT INTO TAB_ARTICOLI (Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler) Values "
             "('") %
         campi.ean % QStringLiteral("','") % campi.codice % QStringLiteral("','") %
         DescrizioneMaiuscola(campi.descrizione) % QStringLiteral("',") %
         QString::number(TestoInCent(campi.prezzo)) % QLatin1Char(',') % QString::number(Val(campi.reparto)) %
         QStringLiteral(",' ');");
}

/// An article that was deleted and comes back is one insertion for the till.
QString giornaleInserito(const QString& ean) {
  const bool cancellato =
      trova(QStringLiteral("SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '") % ean %
            QStringLiteral("' AND (TipoOperazione ='C') ;"));
  if (cancellato)
    return QStringLiteral("UPDATE TAB_VARIAZIONI SET TipoOperazione = 'I' WHERE Codice_EAN ='") % ean %
           QLatin1Char('\'');
  return QStringLiteral("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('") % ean %
         QStringLiteral("','I');");
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
  if (assegnato() && !unita.esegui(giornaleInserito(campi.ean),
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
             Icon::None, QStringLiteral("Cancellazione articolo"), Buttons::OkCancel) == Answer::Ok;
}

/// The till does not know of the article. 'U' is left to archives that another program has written.
bool ignotoAllaCassa(const QString& ean) {
  return trova(QStringLiteral("SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '") % ean %
               QStringLiteral("' AND (TipoOperazione ='I' OR TipoOperazione ='U') ;"));
}

/// The number and the text of the message are those of the failure behind the one already shown.
bool aggiornaIndici(const QString& ean, Unita& unita, const SchermoArticoli& schermo) {
  const Durante attesa(schermo.Attesa);
  Utente& utente = unita.utente();
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

/// Journal and positions of a deletion on an archive assigned to a till.
bool registraCancellazione(const QString& ean, Unita& unita, const SchermoArticoli& schermo) {
  if (ignotoAllaCassa(ean))
    return unita.esegui(
        QStringLiteral("DELETE FROM TAB_VARIAZIONI where Codice_EAN = '") % ean % QStringLiteral("';"),
        QStringLiteral("Errore nell'eliminazione articolo su TAB_VARIAZIONI Errore n° "));
  return unita.esegui(QStringLiteral("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('") %
                          ean % QStringLiteral("','C');"),
                      QStringLiteral("Errore nell'eliminazione articoli Errore n° ")) &&
         aggiornaIndici(ean, unita, schermo);
}

bool cancella(const QString& ean, Unita& unita, const SchermoArticoli& schermo) {
  return unita.esegui(
             QStringLiteral("Delete  from TAB_ARTICOLI where Codice_EAN ='") % ean % QStringLiteral("';"),
             QStringLiteral("Errore nell' eliminazione articoli Errore n° ")) &&
         (!assegnato() || registraCancellazione(ean, unita, schermo)) && unita.conferma();
}

}  // namespace

bool InserimentoArticolo(CampiArticolo& campi, Contesto& contesto, const SchermoArticoli& schermo) {
  if (CheckCampiArticolo(campi, contesto.utente) != 0) return false;
  {
    Unita unita(contesto);
    campi.ean = campi.ean.leftJustified(kLunghezzaEan);
    if (!inserisci(campi, unita)) return false;
  }
  chiama(schermo.Tasto_Refresh);
  return true;
}

bool EliminaSelezionato(const CampiArticolo& campi, Contesto& contesto, const SchermoArticoli& schermo) {
  if (!campi.ean.isEmpty()) return Tasto_Cancella(campi.ean, contesto, schermo);
  // Without an EAN the deletion would take every slot that has none.
  contesto.utente.MsgBox(QStringLiteral("Attenzione selezionare l'articolo da eliminare"));
  return false;
}

bool Tasto_Cancella(const QString& ean, Contesto& contesto, const SchermoArticoli& schermo) {
  {
    Unita unita(contesto);
    if (!confermata(ean, contesto.utente)) {
      chiama(schermo.BloccaComandi, false);
      return false;
    }
    const Durante bloccati(schermo.BloccaComandi);
    if (!cancella(ean, unita, schermo)) return false;
  }
  chiama(schermo.Cancella_TextBox);
  chiama(schermo.Tasto_Refresh);
  return true;
}

}  // namespace articles
