// Every text that the screens of the auxiliary commands can show stands on their page of the manual, and the
// page quotes none that they cannot.

#include <gtest/gtest.h>

#include "sostegno/manual_page.h"

namespace {

constexpr const char16_t* kSenzaDiritto =
    u"Nessun diritto sulla porta ...: serve il gruppo ... (sudo usermod -aG ... UTENTE, poi rientrare nel "
    u"sistema)";

/// As the screens show them; "..." stands for what changes.
constexpr const char16_t* kTesti[] = {
    // Boxes
    u"Attenzione selezionare una porta COM valida",
    u"Errore sulla porta COM: ...",
    u"Errore nella comunicazione con ECR: ...",
    u"Selezionare una delle opzioni !!!",
    u"Attenzione la data inizio  > data fine .",
    u"ATTENZIONE Errore il mese inserito e' di 30 giorni ",
    u"ATTENZIONE Errore febbraio è di 28 giorni",
    u"ATTENZIONE Errore febbraio è di 29 giorni",
    u"Attenzione inserire il numero di scontrino.",
    u"Attenzione il numero del primo scontrino e' > numero del secondo scontrino.",
    u"Attenzione il numero deve essere compreso tra 1 e 65536!!!",
    u"E' stato creato il file ..., vuoi visualizzarlo ?",
    u"Attenzione controllare il percorso [ ... ] potrebbe essere inesistente",
    u"Attenzione PATH [ ... ] non esistente",
    u"Attenzione il file di Help per errori Xon Xoff non presente",
    u"Attenzione il file temporaneo per il dump della memoria potrebbe essere assente !!!",
    u"Error ... (...) in procedure ... of Modulo ...",
    // Why a port does not open, or breaks
    u"La porta ... non c'è",
    u"Numero di porta non valido",
    u"Porta già aperta da un altro programma: ...",
    kSenzaDiritto,
    u"Impossibile impostare lo stato della porta ...",
    u"Errore di lettura dalla porta",
    u"Errore di scrittura sulla porta",
    u"Operazione valida solo se la porta è aperta",
    u"Disco pieno: ...",
    u"Errore di accesso al percorso o al file: ...",
    // At the foot, under a field, in the log
    u"Collegato a ...",
    u"Prima collegarsi alla cassa o scegliere una porta",
    u"Apertura del canale dei comandi",
    u"Attesa dei dati della cassa",
    u"Letto lo stato della cassa",
    u"La cassa non ha risposto: lo stato mostrato è quello di prima",
    u"La cassa ha risposto altro: lo stato mostrato è quello di prima",
    u"La linea si è interrotta: lo stato mostrato è quello di prima",
    u"Creazione del file ...",
    u"Letto nel file ...: uscire con Esci/Visualizza File per vederlo",
    u"La cassa non ha ancora risposto: quello che arriva va nel file ...",
    u"Lettura interrotta: quello che è arrivato è nel file ...",
    u"Registro copiato",
    u"Registro salvato in ...",
    u"Inviata la sequenza ...",
    u"La linea si è interrotta dopo la sequenza ...",
    u"Il file test_invio.txt non si è potuto leggere: resta com'è",
    u"Salvato in test_invio.txt",
    u"Inviato test_invio.txt",
    u"Nessun dump da mostrare",
    u"Il file ... non contiene un dump del DGFE o della MF",
    u"... byte",
    u"Mostrati i primi ... byte di ...: \"Salva\" copia il file intero",
    u"Salvati ... byte in ...",
    u"Solo cifre",
    u"Al massimo ... caratteri",
    u"Qui non si annulla: riscrivere il valore",
    u"Qui si legge che cosa passa sulla linea",
    u"linea interrotta",
    u"… e altri ... byte",
};

/// Texts of the screens' sources that are no messages: captions, titles of windows, filters, what goes into a
/// file.
constexpr const char16_t* kNonMessaggi[] = {
    u"txt (*.txt)|*.txt",
    u"dat (*.dat)|*.dat",
    u"Visualizza File",
    u"Salva il registro",
    u"Test sequenza comandi",
    u"Salva Dump Memoria",
    u"background: %1; border: 1px solid palette(mid); border-radius: 8px;",
    u"COM  ",
    u" GIORNALE DI FONDO ELETTRONICO (DGFE)",
    u" MEMORIA FISCALE (MF)",
    u"*** LETTURA %1 del %2 ***",
    u"dd/MM/yyyy HH:mm:ss",
    u"NON PRESENTE ",
    u"NON FISCALE",
    u"TESTA ALTA",
    u"Invia  %1",
    u"→ inviato ",
    u"✗ errore  ",
    u"Chiede i dati alla cassa (F9)",
    u"DejaVu Sans Mono",
    u"Courier New",
};

}  // namespace

TEST(PaginaDeiComandiAusiliari, HaOgniTestoCheLeSchermateMostrano) {
  const ManualPage pagina(QStringLiteral("comandi-ausiliari.md"));
  for (const char16_t* uno : kTesti)
    EXPECT_TRUE(pagina.text().contains(QString::fromUtf16(uno).trimmed()))
        << QString::fromUtf16(uno).toStdString();
}

TEST(PaginaDeiComandiAusiliari, NonCitaUnTestoCheLeSchermateNonMostrano) {
  const ManualPage pagina(QStringLiteral("comandi-ausiliari.md"));
  EXPECT_GT(pagina.quoted().size(), 50);
  EXPECT_EQ(pagina.quotedBeside(kTesti), QStringList());
}

TEST(PaginaDeiComandiAusiliari, UnTestoNuovoDiUnaSchermataNonRestaFuori) {
  const ManualPage pagina(QStringLiteral("comandi-ausiliari.md"));
  const SourceTexts testi = sourceTexts(QStringLiteral("auxcmd"), pagina.text(), kNonMessaggi,
                                        QStringLiteral("QStringLiteral\\(|QByteArrayLiteral\\("));
  EXPECT_EQ(testi.missing, QStringList());
  EXPECT_GT(testi.seen, 40) << "as many as there were when this was written";
}
