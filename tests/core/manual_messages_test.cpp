// Every message that a person can come to see stands in the manual's page of messages: those written here by
// hand, as the screens show them, without what changes in them; those that the sources tell; and those of the
// areas' own pages, which say the same.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QString>
#include <QTextDocument>
#include <algorithm>
#include <vector>

#include "core/told_texts.h"

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

/// An area: its folders of src, its own pages, and its sections of the page of messages.
struct Area {
  std::vector<const char*> cartelle;
  std::vector<const char*> pagine;
  std::vector<const char16_t*> sezioni;
  /// Rows that it had when this was written.
  int righe;
};
const Area kAree[] = {
    {{"graphics"}, {"grafica.md"}, {u"La grafica"}, 46},
    {{"config", "editors"},
     {"configurazione.md", "configurazione-negozio.md", "configurazione-operatori.md",
      "configurazione-opzioni.md", "configurazione-tastiera.md", "editor-griglie.md",
      "configurazione-cassa.md"},
     {u"La programmazione", u"Lo scambio della programmazione"},
     131},
    {{"customers"}, {"clienti.md"}, {u"I clienti e le fatture"}, 65},
    {{"auxcmd"}, {"comandi-ausiliari.md"}, {u"I comandi ausiliari"}, 45},
};

/// How texts of tellers begin that are no messages, each for its reason.
const char16_t* const kNonMessaggi[] = {
    // The tooltips of commands that are on
    u"Chiede i dati alla cassa (F9)",
    u"Si collega alla cassa di questo indirizzo (Invio nella casella)",
    // Titles of windows, and where another system keeps its programs
    u" GIORNALE DI FONDO ELETTRONICO (DGFE)",
    u" MEMORIA FISCALE (MF)",
    u"Shared Tools/MSINFO/PATH",
    u"Shared Tools Location/MSINFO",
    // What no command of this version leads to
    u"Attendere: si sta cancellando un articolo",
    u"Errore CheckErr",
    u"Eseguite ",
    u"Istruzioni annullate dopo ",
};
/// The same for whole sources.
const char* const kSenzaMessaggi[] = {
    // No command of this version leads to them.
    "articles/article_editing.cpp",
    "articles/ean_index.cpp",
    "customers/statement_batch.cpp",
    // What goes into the report of an import, which has a page of its own.
    "articles/import_report.h",
};

QString testoDi(const QString& pagina) {
  QFile letta(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/") + pagina);
  EXPECT_TRUE(letta.open(QIODevice::ReadOnly)) << pagina.toStdString();
  return QString::fromUtf8(letta.readAll());
}

QString testoDi(const char* pagina) {
  return testoDi(QLatin1String(pagina));
}

QString messaggi() {
  return testoDi("messaggi.md");
}

/// What stands below a heading of the second rank, up to the next one.
QString sezione(const QString& pagina, const QString& titolo) {
  const QString inizio = QStringLiteral("\n## ") + titolo + u'\n';
  EXPECT_TRUE(pagina.contains(inizio)) << titolo.toStdString();
  return pagina.section(inizio, 1).section(QStringLiteral("\n## "), 0, 0);
}

QString sezioniDi(const Area& area) {
  const QString pagina = messaggi();
  QString tutte;
  for (const char16_t* titolo : area.sezioni) tutte += sezione(pagina, QString::fromUtf16(titolo));
  return tutte;
}

/// The rows of the tables that tell what to do, without their heads.
QStringList righeDiMessaggi(const QString& testo) {
  QStringList righe;
  bool testata = true;
  bool dentro = false;
  for (const QString& riga : testo.split(u'\n')) {
    if (!riga.startsWith(u'|')) {
      testata = true;
      continue;
    }
    if (testata) dentro = riga.endsWith(QStringLiteral("| che cosa fare |"));
    if (dentro && !testata && !riga.startsWith(QStringLiteral("|---"))) righe << riga;
    testata = false;
  }
  return righe;
}

QString quelCheSiLegge(const QString& riga) {
  return riga.section(QStringLiteral(" | "), 0, 0);
}

/// Of the rows of one, those that the other lacks.
std::string mancano(const QStringList& righe, const QStringList& altrove) {
  QStringList mancanti;
  for (const QString& riga : righe)
    if (!altrove.contains(riga)) mancanti << riga;
  return mancanti.join(u'\n').toStdString();
}

/// What does not change of a text, in its order; it may stand among other words.
QRegularExpression citata(const QString& testo) {
  static const QRegularExpression cambia(QStringLiteral("%\\d+|\\\\r|\\\\n"));
  static const QRegularExpression intorno(QStringLiteral("^[\\s.,:;…\\[\\]()-]+|[\\s.,:;…\\[\\](-]+$"));
  QStringList parti;
  for (const QString& parte : testo.split(cambia))
    if (const QString sola = parte.simplified().remove(intorno); !sola.isEmpty())
      parti << QRegularExpression::escape(sola);
  return QRegularExpression(parti.join(QStringLiteral(".*")));
}

/// Where the text of a source is to stand: in its area's sections, else anywhere on the page.
QStringList doveSta(const QString& file) {
  for (const Area& area : kAree)
    for (const char* cartella : area.cartelle)
      if (file.section(u'/', 0, 0) == QLatin1String(cartella)) return sezioniDi(area).split(u'\n');
  return messaggi().split(u'\n');
}

bool messaggio(const ToldText& detto) {
  return std::ranges::none_of(kSenzaMessaggi,
                              [&](const char* uno) { return detto.file == QLatin1String(uno); }) &&
         std::ranges::none_of(kNonMessaggi, [&](const char16_t* uno) {
           return detto.words.startsWith(QString::fromUtf16(uno));
         });
}

/// A page of the manual without its line ends, which stand anywhere in a sentence.
QString diSeguito(const QString& pagina) {
  return testoDi(pagina).simplified();
}

}  // namespace

TEST(MessaggiDelManuale, OgniMessaggioDiOgniSchermataCE) {
  QTextDocument documento;
  documento.setMarkdown(messaggi());
  const QString testo = documento.toPlainText().simplified();
  for (const char16_t* messaggio : kMessaggi) {
    const QString cercato = QString::fromUtf16(messaggio);
    EXPECT_TRUE(testo.contains(cercato)) << cercato.toStdString();
  }
}

TEST(MessaggiDelManuale, OgniTestoCheISorgentiDiconoCE) {
  const std::vector<ToldText> detti = toldTexts();
  for (const char* uno : kSenzaMessaggi)
    EXPECT_TRUE(
        std::ranges::any_of(detti, [&](const ToldText& detto) { return detto.file == QLatin1String(uno); }))
        << "needs no exception any more: " << uno;
  for (const char16_t* uno : kNonMessaggi)
    EXPECT_TRUE(std::ranges::any_of(
        detti, [&](const ToldText& detto) { return detto.words.startsWith(QString::fromUtf16(uno)); }))
        << "needs no exception any more: " << QString::fromUtf16(uno).toStdString();
  QHash<QString, QStringList> righe;
  int visti = 0;
  for (const ToldText& detto : detti) {
    if (!messaggio(detto)) continue;
    ++visti;
    const QString cartella = detto.file.section(u'/', 0, 0);
    if (!righe.contains(cartella)) {
      righe[cartella] = doveSta(detto.file);
      for (QString& riga : righe[cartella]) riga = riga.simplified();
    }
    const QRegularExpression cercato = citata(detto.words);
    EXPECT_TRUE(
        std::ranges::any_of(righe[cartella], [&](const QString& riga) { return riga.contains(cercato); }))
        << detto.file.toStdString() << ": " << detto.words.toStdString();
  }
  EXPECT_GE(visti, 410) << "as many as there were when this was written";
}

// An area's own page, which F1 opens over a box, and the page of all messages say the same: of the boxes, of
// the foot, of the fields and of the commands that are off.
TEST(MessaggiDelManuale, UnAreaDiceLeStesseCoseNelleSuePagineEInQuellaDiTutti) {
  for (const Area& area : kAree) {
    QStringList sue;
    for (const char* pagina : area.pagine) sue << righeDiMessaggi(testoDi(pagina));
    const QStringList tutte = righeDiMessaggi(sezioniDi(area));
    EXPECT_GE(sue.size(), area.righe) << area.pagine.front();
    EXPECT_EQ(mancano(sue, tutte), "") << "not in messaggi.md";
    EXPECT_EQ(mancano(tutte, sue), "") << "in messaggi.md alone";
  }
}

/// Texts of the foot that once stood on no page at all.
struct AlPiede {
  const char16_t* testo;
  const char* pagina;
};
TEST(MessaggiDelManuale, CioCheNonSiESalvatoOConfermatoSiTrovaNelleDuePagine) {
  constexpr AlPiede kTesti[] = {
      {u"Non salvate le modifiche di: ", "configurazione.md"},
      {u"Modifiche annullate: ", "configurazione.md"},
      {u"Modifiche annullate: ", "editor-griglie.md"},
      {u"Non confermata: nessuna macchina scelta", "configurazione-tastiera.md"},
      {u"Non confermata: la macchina resta ", "configurazione-tastiera.md"},
  };
  const std::vector<ToldText> detti = toldTexts();
  for (const AlPiede& uno : kTesti) {
    const QString testo = QString::fromUtf16(uno.testo);
    const auto neDice = [&](const QString& riga) { return quelCheSiLegge(riga).contains(testo); };
    EXPECT_TRUE(std::ranges::any_of(righeDiMessaggi(testoDi(uno.pagina)), neDice))
        << uno.pagina << ": " << testo.toStdString();
    EXPECT_TRUE(std::ranges::any_of(righeDiMessaggi(messaggi()), neDice)) << testo.toStdString();
    EXPECT_TRUE(
        std::ranges::any_of(detti, [&](const ToldText& detto) { return detto.words.contains(testo); }))
        << "the sources tell it no more: " << testo.toStdString();
  }
}

// The clearing of the till's sales cannot be taken back: a manual that advises it to who has not got them on
// the PC yet, or does not know, takes a shop's day away.
TEST(MessaggiDelManuale, NessunaPaginaConsigliaDiCancellareIlVenduto) {
  static const QRegularExpression cancellare(
      QStringLiteral("Cancellazione archivio Venduto|[Cc]ancellar\\w* (?:tutto )?il (?:suo )?venduto|"
                     "[Aa]zzerar(?:e (?:prima )?la cassa|e il venduto|lo|la)\\b|[Ss]vuotare la cassa|"
                     "(?:[Uu]sare|[Pp]remere|[Ss]cegliere) la (?:seconda scelta|\"?[Cc]ancellazione)"));
  // What the command does, and not to use it.
  const QString ammesse[] = {
      QStringLiteral(
          "\"Cancellazione archivio Venduto della Cassa\": azzera la cassa senza riportare nulla. Non chiede "
          "conferma: ciò che la cassa ha venduto dopo l'ultima ricezione va perduto."),
      QStringLiteral("Non premere \"Cancellazione archivio Venduto della Cassa\" per rimediare"),
      QStringLiteral(
          "\"Cancellazione archivio Venduto della Cassa\", non serve la sera: azzera la cassa senza portare "
          "nulla sul PC."),
      QStringLiteral("non cancellare il venduto della cassa"),
  };
  int viste = 0;
  for (const QString& pagina :
       QDir(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale")).entryList({QStringLiteral("*.md")})) {
    QString testo = diSeguito(pagina);
    for (const QString& frase : ammesse) {
      viste += static_cast<int>(testo.count(frase));
      testo.remove(frase);
    }
    const QRegularExpressionMatch altra = cancellare.match(testo);
    EXPECT_FALSE(altra.hasMatch())
        << pagina.toStdString() << ": "
        << testo.mid(std::max<qsizetype>(0, altra.capturedStart() - 80), 200).toStdString();
  }
  EXPECT_EQ(viste, 5);
}

TEST(MessaggiDelManuale, ChiNonHaIlVendutoAlSicuroENonSaLeggeCheCosaFare) {
  const auto rimedio = [righe = righeDiMessaggi(sezione(
                            messaggi(), QStringLiteral("Ricezione del Venduto")))](const char16_t* inizio) {
    for (const QString& riga : righe)
      if (riga.startsWith(QString::fromUtf16(inizio))) return riga.section(QStringLiteral(" | "), -1);
    ADD_FAILURE() << "no row of it: " << QString::fromUtf16(inizio).toStdString();
    return QString();
  };
  const QString leggere =
      QStringLiteral("[Quando l'azzeramento non riesce](cassa.md#quando-lazzeramento-non-riesce)");
  // Not in the archive: once more, and the till keeps what it has.
  const QString nonRegistrato = rimedio(u"| \"Errore nel caricamento dati nella TAB_VENDUTO n° ...\"");
  EXPECT_TRUE(
      nonRegistrato.contains(QStringLiteral("ripetere la ricezione; non cancellare il venduto della cassa")));
  // In the archive, and nobody knows whether on the till as well.
  const QString inSospeso =
      rimedio(u"| \"Errore nell'invio richiesta reset dati del venduto\", con la prima scelta");
  EXPECT_TRUE(
      inSospeso.contains(QStringLiteral("non cancellare il venduto della cassa: leggere ") + leggere));
  EXPECT_TRUE(rimedio(u"| lo stesso, con la seconda scelta")
                  .contains(QStringLiteral("guardare sulla cassa, prima di ripetere")));
  EXPECT_TRUE(rimedio(u"| \"La cassa non ha confermato l'azzeramento.\"").contains(leggere));
  EXPECT_TRUE(rimedio(u"| \"Le stesse vendite erano già state ricevute").contains(leggere));
  EXPECT_TRUE(diSeguito(QStringLiteral("messaggi.md"))
                  .contains(QStringLiteral(
                      "Finché il venduto non è al sicuro nell'archivio la cassa non viene azzerata.")));

  const QString cassa = diSeguito(QStringLiteral("cassa.md"));
  qsizetype dopo = 0;
  // In this order: the copy comes before the repetition.
  for (const char16_t* frase :
       {u"L'azzeramento avviene soltanto dopo che il venduto è al sicuro nell'archivio.",
        u"### Quando l'azzeramento non riesce",
        u"il venduto è nell'archivio, ma non si sa se la cassa lo abbia azzerato",
        u"Non premere \"Cancellazione archivio Venduto della Cassa\" per rimediare",
        u"Ricevere di nuovo, invece, non fa perdere nulla",
        u"1. Chiudere l'archivio con \"Chiudi Archivio\" e farne una copia",
        u"2. Ripetere \"Ricezione intero Archivio del Venduto\"", u"una vendita cancellata non torna"}) {
    const qsizetype qui = cassa.indexOf(QString::fromUtf16(frase), dopo);
    EXPECT_GE(qui, dopo) << QString::fromUtf16(frase).toStdString();
    dopo = std::max(dopo, qui);
  }
  EXPECT_TRUE(diSeguito(QStringLiteral("giornata.md"))
                  .contains(QStringLiteral(
                      "**Non usare una \"Cancellazione\" per rimediare a una ricezione che non riesce**")));
}

// The invoices are cleared too, and only those that have been received.
TEST(MessaggiDelManuale, LeFattureSiCancellanoDopoAverleRicevute) {
  int viste = 0;
  for (const QString& pagina :
       QDir(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale")).entryList({QStringLiteral("*.md")}))
    for (const QString& capoverso : testoDi(pagina).split(QRegularExpression(QStringLiteral("\n\n|\n- ")))) {
      if (!capoverso.simplified().contains(QStringLiteral("Cancellazione archivio Fatture"))) continue;
      ++viste;
      EXPECT_TRUE(capoverso.contains(QStringLiteral("ricevut")))
          << pagina.toStdString() << ": " << capoverso.toStdString();
    }
  EXPECT_EQ(viste, 2);
}
