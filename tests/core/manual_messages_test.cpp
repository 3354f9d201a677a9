// Every message that a person can come to see stands in the manual's page of messages. The texts are written
// here by hand, as the screens show them; what changes in them is left out.

#include <gtest/gtest.h>

#include <QFile>
#include <QString>
#include <QTextDocument>

namespace {

const char16_t* const kMessaggi[] = {
    // Start and menu
    u"La definizione dello schermo attuale e'",
    u"Per un corretto funzionamento",
    u"Error 53 (File non trovato:",
    u"Le informazioni sul sistema non sono attualmente disponibili.",
    u"Chiudi anche i prossimi avvisi uguali",
    // The manual and the file dialogs
    u"Attenzione il manuale non presente nella cartella",
    u"non si trova nel manuale.",
    u"Il collegamento porta fuori dal manuale:",
    u"esiste già. Sostituirlo?",
    // The workspace
    u"Attenzione il file di sistema QzDB.bck potrebbe essere assente!",
    u"FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?",
    u"Archivio creato:",
    u"L'archivio di prima è in",
    u"Archivio aperto:",
    u"Archivio chiuso:",
    u"Nessun archivio era aperto.",
    u"Archivio non trovato:",
    u"Formato di database non riconosciuto",
    u"Il database è bloccato da un altro programma.",
    u"Il contenuto dell'archivio non è leggibile.",
    u"ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!",
    u"Prima si apre un archivio: Nuovo Archivio (Ctrl+N) o Apri Archivio (Ctrl+O)",
    u"L'ultima apertura non è riuscita: ripetere Apri Archivio (Ctrl+O)",
    u"Un archivio è già aperto: prima Chiudi Archivio (Ctrl+W)",
    // The import
    u"Operazione di Import ARTICOLI eseguita correttamente",
    u"Errore nell'importazione degli articoli",
    u"Totali errori riscontrati:",
    u"OPERAZIONE DI IMPORTAZIONE ARTICOLI FALLITA",
    u"Errore GetCodiceEAN",
    u"Errore nell'aggiornamento articoli Errore n°",
    u"Importazione: righe lette",
    u"Importazione annullata: l'archivio è rimasto com'era.",
    u"Importazione fermata alla riga",
    u"Importazione interrotta dopo",
    u"Restano scritte nell'archivio le",
    u"Resta scritta nell'archivio la riga precedente.",
    u"L'archivio è rimasto com'era.",
    u"Nulla è stato scritto nell'archivio:",
    u"Il report non si è aperto:",
    // The archive of articles
    u"Attenzione il valore immesso non è di tipo numerico !!!",
    u"Attenzione il valore immesso > 99999.99!",
    u"Attenzione il reparto deve essere compreso tra 1 e 80 !!!!",
    u"Attenzione il campo DESCRIZIONE non e' valorizzato",
    u"PREZZO",
    u"Attenzione var.prezzo deve essere S/s o N/n",
    u"Errore nella modifica articoli . Errore n°",
    u"RiempiGridCentral: uscita dal programma per condizione anomala",
    u"CheckTabVarie",
    u"Attenzione il file di Help per Codice EAN non presente",
    u"Error 321 (Il testo non è leggibile:",
    u"Creazione del file",
    u"Salvato:",
    u"Non salvato: correggere",
    u"Modifiche non salvate:",
    u"Modifiche non salvate e sostituite:",
    u"Modifiche non salvate e cancellate:",
    u"Nessun articolo in archivio",
    u"Nessun articolo trovato",
    u"Esportate",
    u"Esportata 1 riga",
    u"Esportazione annullata: nessun file scritto",
    // Below the fields
    u"Solo cifre",
    u"Solo cifre e virgola",
    u"Solo S o N",
    u"Al massimo",
    u"Per i decimali si scrive la virgola",
    u"I due decimali ci sono già: cancellare con Backspace, poi scrivere",
    u"Un carattere solo: cancellare prima di scrivere",
    u"Qui non si annulla: riscrivere il valore",
    // The link
    u"Attenzione problema di connessione di rete per il PC locale!",
    u"Attenzione l'indirizzo IP del dispositivo ECR da connettere al PC potrebbe essere errato",
    u"Attenzione l'IP del dispositivo ECR deve essere diverso da quello del PC",
    (u"Attenzione il dispositivo non risponde, controllare lo stato della connessione e/o l'indirizzo IP "
     u"dell'ECR"),
    u"Attenzione il dispositivo non risponde, controllare lo stato e/o l'indirizzo IP dell'ECR",
    u"Funzione non disponibile! Prego porre la cassa nello stato di IDLE o PROGRAMMAZIONE",
    u"Errore nella comunicazione con ECR:",
    u"ERRORE protocollo ECR INFO",
    u"Errore 53 - File non trovato: libecrcom.so",
    u"Errore 453 -",
    u"nella procedura avviaECR",
    u"Collegato a",
    u"Connessione a",
    u"(fino a",
    u"La cassa sta ancora eseguendo un altro comando: attendere che abbia finito.",
    u"L'ultimo comando alla cassa non è riuscito: la parola è dello stato di prima",
    u"L'ultimo comando non è riuscito: uscire e rientrare per ripeterlo",
    u"La cassa è già collegata: per ricollegarsi uscire e rientrare",
    u"Si usa la porta scelta: per collegarsi in rete rimettere Seleziona",
    u"Prima collegarsi alla cassa con Connetti",
    u"Attendere che la cassa abbia finito",
    u"La cassa non ha risposto",
    // The transfer
    u"Attenzione l'archivio degli articoli e' vuoto",
    u"CalcolaNumArticoli",
    u"Errore nella determinazione del numero degli articoli",
    u"RiempiPLU: uscita dal programma per condizione anomala",
    u"ARCHIVIO DEGLI ARTICOLI CORRETTAMENTE TRASFERITO",
    u"Un altro programma sta scambiando dati con una cassa nella cartella",
    u"Errore SendPRGTo_ECR",
    u"in procedure CreaFileProgrammazione of Modulo Common_PRG",
    u"Fallita operazione trasferimento plu.bin",
    u"Errore durante il trasferimento/ricezione.",
    u"Trasferiti",
    u"Trasferito 1 articolo,",
    // The reception
    u"ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA",
    u"ARCHIVIO DEL VENDUTO AZZERATO CORRETTAMENTE SULLA CASSA",
    u"in procedure RiceviFile",
    u"in procedure ReadByteFromFile",
    u"Errore nell'invio richiesta dati del venduto",
    u"Errore nell'invio richiesta reset dati del venduto",
    u"Errore nel caricamento dati nella TAB_VENDUTO n°",
    u"Errore durante la trasmissione/ricezione.",
    u"Ricevuti 60.000 byte,",
    u"quelli che mancano contano come nessuna vendita.",
    u"quelli in più non sono stati letti.",
    u"Nulla è stato scritto nell'archivio: la cassa conserva il suo venduto.",
    u"Le stesse vendite erano già state ricevute nell'archivio",
    u"ora risultano due volte.",
    u"L'ultimo venduto ricevuto è nell'archivio",
    u"le stesse vendite risulteranno due volte.",
    u"Azzerato il venduto della cassa",
    u"La cassa non ha confermato l'azzeramento.",
    // The archive of sales
    u"3265 - Elemento 'Sconto_giornaliero' non trovato in questo insieme.",
    u"3075 -",
    u"11 - Divisione per zero",
    u"RiempiGridCentral 11 - Divisione per zero",
    u"Nessuna vendita in archivio",
    u"Nessuna vendita trovata",
    u"sconti non letti: li mostra «Visualizza Tutti»",
    u"Filtri vuoti; l'elenco è quello di prima",
};

QString testoDi(const char* pagina) {
  QFile letta(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/") + QLatin1String(pagina));
  EXPECT_TRUE(letta.open(QIODevice::ReadOnly)) << pagina;
  return QString::fromUtf8(letta.readAll());
}

/// Of the tables that a page has of its boxes: the rows that quote one.
QStringList riquadri(const QString& pagina) {
  QStringList righe;
  bool dentro = false;
  for (const QString& riga : pagina.split(u'\n')) {
    if (riga.startsWith(QStringLiteral("| messaggio |")) || riga.startsWith(QStringLiteral("| motivo |")))
      dentro = true;
    if (!riga.startsWith(u'|')) dentro = false;
    if (dentro && riga.startsWith(QStringLiteral("| \""))) righe << riga;
  }
  return righe;
}

/// A page of an area, and how many rows of boxes it had when this was written.
struct Area {
  const char* pagina;
  int riquadri;
};
constexpr Area kAree[] = {
    {"grafica.md", 23},
    {"configurazione.md", 13},
    {"configurazione-negozio.md", 1},
    {"configurazione-operatori.md", 2},
    {"configurazione-opzioni.md", 16},
    {"configurazione-tastiera.md", 1},
    {"editor-griglie.md", 10},
    {"configurazione-cassa.md", 28},
    {"clienti.md", 28},
    {"comandi-ausiliari.md", 22},
};

}  // namespace

TEST(MessaggiDelManuale, OgniMessaggioDiOgniSchermataCE) {
  QFile pagina(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/messaggi.md"));
  ASSERT_TRUE(pagina.open(QIODevice::ReadOnly));
  QTextDocument documento;
  documento.setMarkdown(QString::fromUtf8(pagina.readAll()));
  const QString testo = documento.toPlainText().simplified();
  for (const char16_t* messaggio : kMessaggi) {
    const QString cercato = QString::fromUtf16(messaggio);
    EXPECT_TRUE(testo.contains(cercato)) << cercato.toStdString();
  }
}

// An area's own page, which F1 opens over a box, and the page of all messages say the same.
TEST(MessaggiDelManuale, OgniRiquadroDelleAltreAreeCEComeNellaSuaPagina) {
  const QStringList tutti = testoDi("messaggi.md").split(u'\n');
  for (const Area& area : kAree) {
    const QStringList righe = riquadri(testoDi(area.pagina));
    EXPECT_GE(righe.size(), area.riquadri) << area.pagina;
    for (const QString& riga : righe)
      EXPECT_TRUE(tutti.contains(riga)) << area.pagina << ": " << riga.toStdString();
  }
}
