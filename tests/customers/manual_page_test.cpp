// Every text that the screens of the customers can show stands on their page of the manual, and the page
// quotes none that they cannot.

#include <gtest/gtest.h>

#include <algorithm>

#include "sostegno/manual_page.h"

namespace {

/// As the screens show them; "..." stands for what changes.
constexpr const char16_t* kTesti[] = {
    // Boxes
    u"Attenzione il file di sistema QzDBClienti.bck potrebbe essere assente !!!",
    u"FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?",
    u"Attenzione l'archivio degli clienti e' vuoto",
    u"Errore nella determinazione del numero degli clienti",
    u"CalcolaNumClienti ...",
    u"ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!",
    u"RiempiGridCentral: uscita dal programma per condizione anomala ...",
    u"RiempiCLI: uscita dal programma per condizione anomala ...",
    u"Vmd_Cerca_Click: uscita dal programma per condizione anomala ...",
    u"Cmd_Cerca_Click: uscita dal programma per condizione anomala ...",
    u"Attenzione il codice cliente deve essere compreso tra 1 e ... !!!!",
    u"Attenzione il valore immesso non è di tipo numerico !!!",
    u"Attenzione il valore immesso per la partita IVA non e' corretto. Prego verificare le cifre immesse!!!",
    u"Attenzione nessun cliente selezionato!!!",
    u"Attenzione i campi Ragione Sociale, Indirizzo, Citta, Partita IVA sono obbligatori!!!",
    u"Attenzione il campo Partita IVA non e' valorizzato",
    u"Attenzione il cliente anonimo non puo' essere eliminato o modificato !!!",
    u"Attenzione la Partita IVA [ ... ] e' gia' associata ad un altro cliente!!!",
    u"Attenzione la Partita IVA [ ... ] e' gia' presente!!!",
    u"CheckEsistenzaPartitaIVA ...",
    u"Errore nell' inserimento cliente Errore n° ...",
    u"Errore nella modifica dati cliente Errore n° ...",
    u"Errore nell' eliminazione del cliente Errore n° ...",
    u"Attenzione non e' possibile eliminare il cliente [ ... ] in quanto ha delle fatture associate !!!",
    u"Attenzione questa operazione comporterà l'eliminazione definitiva del cliente. Continuare ?",
    u"Creazione del file ... terminata.",
    u"La Data di inizio ... e' invalida",
    u"Controllare che il giorno immesso è compatibile con il mese prescelto",
    u"ARCHIVIO DEI CLIENTI CORRETTAMENTE TRASFERITO",
    u"Errore nell'invio richiesta dati dei clienti",
    u"Errore durante la programmazione. ",
    u"ARCHIVIO DELLE FATTURE CORRETTAMENTE RICEVUTO",
    u"ARCHIVIO DEI CLIENTI CORRETTAMENTE RICEVUTO",
    u"ARCHIVIO DELLE FATTURE AZZERATO CORRETTAMENTE SULLA CASSA",
    u"Errore nell'invio richiesta dati delle fatture",
    u"Errore durante la trasferimento/ricezione ",
    u"Errore nel caricamento cliente dai dati fatture n° ...",
    u"Errore nel caricamento dati nella TAB_FATTURE n° ...",
    u"Errore nel caricamento dati nella TAB_ANAG_CLIENTI n° ...",
    // At the head and at the foot
    u"Nome archivio : ...",
    u"... cliente e ... fattura",
    u"... clienti e ... fatture",
    u"Il contenuto dell'archivio non è leggibile.",
    u"Apertura annullata: i comandi restano spenti, si riapre l'archivio con Ctrl+O.",
    u"Nessun cliente in archivio",
    u"Nessun cliente trovato",
    u"Soltanto il cliente anonimo",
    u"L'archivio ha perso il cliente anonimo",
    u"Nuovo cliente ...: riempire i campi e memorizzare",
    u"Dopo il codice più alto non c'è posto: scrivere un codice libero",
    u"Modifiche non salvate: ...",
    u"Modifiche non salvate: nuovo cliente ...",
    u"Modifiche non salvate e sostituite: ...",
    u"Modifiche non salvate e cancellate: ...",
    u"Memorizzato: ...",
    u"Salvato: ...",
    u"Eliminato: ...",
    u"Eliminazione annullata: ...",
    u"Non salvato: nessun cliente ha il codice ...",
    u"Non eliminato: nessun cliente ha il codice ...",
    u"Prima scegliere un cliente nell'elenco",
    u"Viste le fatture di ...",
    u"Esportata 1 riga in ...",
    u"Esportate ... righe in ...",
    u"Esportazione annullata: nessun file scritto",
    u"Nessuna fattura trovata",
    u"Con un apostrofo la ricerca chiude il programma: al suo posto scrivere ?",
    (u"Data di inizio rifiutata: l'elenco è quello di prima. La data deve esistere e il suo anno non può "
     u"essere futuro"),
    (u"Data di fine rifiutata: l'elenco è quello di prima. La data deve esistere e il suo anno non può "
     u"essere futuro"),
    u"... fattura: totale ..., imponibile ..., imposta ..., non pagato ...",
    u"... fatture: totale ..., imponibile ..., imposta ..., non pagato ...",
    u"Nessuna fattura; ... clienti senza fatture",
    u"... cliente senza fatture",
    u"tutte le date",
    u"dal ... al ...",
    u"Cliente: ...",
    u"Cliente: 0 (anonimo)",
    u"Filtri vuoti, periodo fino a oggi; l'elenco è quello di prima",
    u"Trasferito ... cliente, ... byte",
    u"Trasferiti ... clienti, ... byte",
    u"I clienti con un codice oltre ... restano sul PC: la cassa non ha posto per loro.",
    u"Nulla è stato inviato: il file clienti.bin non si può scrivere.",
    u"Scegliere prima una delle opzioni.",
    u"Ricevuti ... byte.",
    u"Ricevuti ... byte invece di ...",
    u"... fattura nuova, ... già presente",
    u"... fatture nuove, ... già presenti",
    u"... cliente da completare",
    u"... clienti da completare",
    u"Clienti: ... nuovo, ... aggiornato, ... eliminato.",
    u"Clienti: ... nuovi, ... aggiornati, ... eliminati.",
    u"Quelli in più non sono stati letti.",
    u"I posti che mancano contano come vuoti.",
    u"L'ultima fattura è incompleta e non è stata presa.",
    u"Nulla è stato scritto nell'archivio.",
    u"Azzerate le fatture della cassa ...",
    // Under a field, on a command that is off
    u"Solo cifre",
    u"Al massimo ... caratteri",
    u"Qui non si annulla: riscrivere il valore",
    u"Partita IVA non corretta: verificare le cifre",
    u"Un apostrofo si scrive doppio: ''",
    u"Prima «Nuovo», poi si memorizza",
    u"«Visualizza Tutti» (F5) riattiva le modifiche",
    u"L'ultima apertura è stata annullata: ripetere Apri Archivio (Ctrl+O)",
    u"Si vedono le fatture del cliente scelto in anagrafica",
};

/// Texts of the screens' sources that are no messages: captions, titles of windows, samples of widths, what
/// joins sentences; and the words of the batch of statements, which no command reaches.
constexpr const char16_t* kNonMessaggi[] = {
    u"VIA GARIBALDI 12",
    u"Archivio: ",
    u"Archivio aperto",
    u"Export Clienti",
    u"Export Fatture",
    u"Cancellazione Cliente",
    u" e ",
    u"Importa Istruzioni",
    u"La riga è troppo lunga.",
    u"Errore nell' inserimento articoli Errore n° ",
    u"Operazione di Import ARTICOLI eseguita correttamente",
    u"Eseguite %1.",
    u"Istruzioni annullate dopo %1: l'archivio è rimasto com'era.",
};

}  // namespace

TEST(PaginaDeiClienti, HaOgniTestoCheLeSchermateMostrano) {
  const QStringList tutti = ManualPage(QStringLiteral("clienti.md")).quoted();
  for (const char16_t* uno : kTesti)
    EXPECT_TRUE(std::ranges::any_of(tutti, [&](const QString& citato) {
      return citato.contains(QString::fromUtf16(uno).trimmed());
    })) << QString::fromUtf16(uno).toStdString();
}

TEST(PaginaDeiClienti, NonCitaUnTestoCheLeSchermateNonMostrano) {
  const ManualPage pagina(QStringLiteral("clienti.md"));
  EXPECT_GT(pagina.quoted().size(), 90) << "as many as there were when this was written";
  EXPECT_EQ(pagina.quotedBeside(kTesti), QStringList());
}

TEST(PaginaDeiClienti, UnTestoNuovoDiUnaSchermataNonRestaFuori) {
  const ManualPage pagina(QStringLiteral("clienti.md"));
  const SourceTexts testi =
      sourceTexts(QStringLiteral("customers"), pagina.quoted().join(u'\n'), kNonMessaggi);
  EXPECT_EQ(testi.missing, QStringList());
  EXPECT_GT(testi.seen, 90) << "as many as there were when this was written";
}
