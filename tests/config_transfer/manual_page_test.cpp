// Every text that the screen can show stands on its page of the manual.

#include <gtest/gtest.h>

#include "sostegno/manual_page.h"

namespace {

constexpr const char16_t* kTesti[] = {
    u"PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA",
    u"PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA",
    u"Selezionare una delle opzioni !!!",
    u"FUNZIONE NON ATTIVABILE. VUOI EFFETTUARE L'AZZERAMENTO FISCALE?",
    (u"Attenzione questa operazione comporterà l'azzeramento completo della programmazione della cassa. "
     u"Continuare ?"),
    u"AZZERAMENTO EFFETTUATO CORRETTAMENTE",
    u"AZZERAMENTO NON EFFETTUATO",
    u"Fallita operazione trasferimento ",
    u"Fallita operazione invio configurazione all'ECR",
    u"RiempiPLU: uscita dal programma per condizione anomala ",
    u"ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!",
    u"in procedure Cmd_Avvia_Click of Modulo Form_TrasferimentoProgrammazione",
    u"Errore SendPRGTo_ECR 70 - Un altro programma sta scambiando dati con una cassa nella cartella ",
    u"in procedure CreaFileProgrammazione of Modulo Common_PRG",
    u"Error 70 (Un altro programma ...) in procedure RiceviFile ",
    u"in procedure RiceviFile ",
    u"in procedure ReadByteFromFile ",
    u"Errore nell'invio richiesta dati presenti nell'intestazione ",
    u"Errore nell'invio richiesta dati presenti in RAM ",
    u"Errore nell'invio richiesta dati presenti in PLU ",
    u"Errore nell'invio richiesta dati Valute ",
    u"Errore nell'invio richiesta dati presenti in Valute ",
    u"Errore nell'invio richiesta dati Cortesia ",
    u"Errore nell'invio richiesta dati Logo ",
    u"Errore nell'invio richiesta dati Iva ",
    u"Errore nell'invio richiesta dati Reparti ",
    u"Errore durante la programmazione. ",
    u"in procedure SalvaConfigurazione of Modulo CommonForKora",
    u"in procedure SalvaPLU of Modulo Common_PRG",
    u"Errore nella modifica articoli . Errore n° ",
    u"Nulla è stato inviato: la cassa tiene la sua programmazione.",
    u"file di 9: la cassa ha quelli, e il resto della programmazione di prima.",
    u"il resto è rimasto com'era.",
    u"quelli in più non sono stati letti.",
    u"file di 9. Nulla è stato salvato: i file ricevuti sono in memoria.",
    u"Nulla è stato salvato: ... è rimasto com'era.",
    u"... è salvato; gli articoli di ... sono rimasti com'erano.",
    u"Il file ... era già uguale.",
    u"Azzerata la cassa ",
    u"Annullato: la cassa è rimasta com'era.",
    u"Annullato: la cassa ha ancora i suoi dati fiscali non chiusi.",
    u"La cassa ha dati fiscali non chiusi: invio e reset chiedono prima l'azzeramento.",
    u"Per un altro comando uscire e rientrare",
    u"Inviati ... file, ... byte, ... articoli",
    u"Inviati ... file di 9: la cassa ha quelli",
    u"Ricevuti ... file, ... byte, ... articoli.",
    u"Ricevuti ... byte invece di ... di ...: ",
    u"Cambiati in ...: ...",
};

}  // namespace

TEST(PaginaDelTrasferimento, HaOgniTestoCheLaSchermataMostra) {
  const ManualPage pagina(QStringLiteral("configurazione-cassa.md"));
  for (const char16_t* uno : kTesti)
    EXPECT_TRUE(pagina.text().contains(QString::fromUtf16(uno))) << QString::fromUtf16(uno).toStdString();
}

TEST(PaginaDelTrasferimento, NonCitaUnTestoCheLaSchermataNonMostra) {
  const ManualPage pagina(QStringLiteral("configurazione-cassa.md"));
  EXPECT_GT(pagina.quoted().size(), 45);
  EXPECT_EQ(pagina.quotedBeside(kTesti), QStringList());
}
