// Every text that the screen of the pictures can show stands on its page of the manual, and the page quotes
// none that it cannot.

#include <gtest/gtest.h>

#include "sostegno/manual_page.h"

namespace {

/// As the screen shows them; "..." stands for what changes.
constexpr const char16_t* kTesti[] = {
    // Boxes
    u"Sono stati ripristinati i valori di default!",
    u"FILE NON ESISTE: PREGO CREARE IL FILE E RIPROVARE",
    u"Error ... (...) Fallita operazione di caricamento immagine",
    u"Drive error !",
    u"Attenzione selezionare prima una bitmap",
    u"Attenzione problema nel lancio del programma paint di windows",
    u"ERRORE: Il file [...] non esiste",
    u"ERRORE durante preparazione bitmap [...]",
    u"ERRORE: BITMAP NON CONGRUENTE CON IL TIPO DI CASSA [ ...]",
    u"PROCEDURA ABORTITA",
    u"Errore invio file per la grafica",
    u"Il tipo di grafica non è congruente a quella dell'ECR",
    u"STATO DELLA CASSA NON CONGRUENTE ",
    u"... non presente !!!",
    u"Operazione terminata con successo",
    u"RiempiGridGrafica ... - ...",
    u"Error ... (...) in procedure RiempiRecGrafica of Modulo ModGra1",
    u"Error ... (...) in procedure SaveRecGrafica of Modulo ModGra1",
    u"Error ... (...) in procedure ManageFileBMP of Modulo CommonForKora",
    u"Error ... (...) in procedure InvertoFileBMP of Modulo CommonForKora",
    // Why the converter does not start
    u"The file could not be run due to insufficient system memory or a corrupt program file",
    u"File Not Found",
    u"Invalid Path",
    u"Sharing or protection error",
    u"Separate data segments are required for each task ",
    u"Insufficient memory to run the program",
    u"Incorrect Windows version",
    u"Invalid Program File",
    u"Program file requires a different operating System ",
    u"Program requires MS-DOS 4.0",
    u"Unknown program file type",
    u"Windows prgram does not support protected memory mode",
    u"Invalid use of data segments when loading a second instance of a program",
    u"Attempt to run a compressed program file",
    u"Invalid dynamic link library",
    u"Program requires Windows 32-bit extensions",
    u"No application found for this file",
    // On a tile
    u"Nessuna bitmap",
    u"Non è il nome di un file",
    u"Il file non c'è",
    u"Il file non è una bitmap",
    u"Il file è incompleto",
    u"La bitmap non ha righe",
    u"Il file non si può leggere",
    u"La bitmap è compressa",
    u"Colori a ... bit: salvarla a 1 o a 24",
    u"Larga ... punti: ne servono 384 o 640",
    u"Larga ... punti, serve ...",
    u"Alta ... punti: al massimo ...",
    // At the foot, in the preview
    u"Il nome ha lettere che il catalogo non conserva: cambiarlo",
    u"Scegliere prima una riga del catalogo",
    u"Immagine non valida: ...",
    u"Nella cartella c'è già un altro ...: dare al file un altro nome",
    u"File non trovato: ...",
    u"Errore di accesso al percorso o al file: ...",
    u"Disco pieno: ...",
    u"... bitmap in ...",
    u"La cartella ... non si può aprire",
    u"Aperta ...: salvata nel programma di disegno, si vede qui",
    u"Nessuna immagine scelta",
    u"... immagine non va bene per questa cassa: la tessera dice perché",
    u"... immagini non vanno bene per questa cassa: la tessera dice perché",
    u"Questa cassa non dice se la sua grafica è SMALL o LARGE: non la si può inviare",
    u"Preparazione di ..., ... di ... …",
    u"Inviate alla cassa ... immagini, ... byte",
};

/// Texts of the screen's sources that are no messages: headings, formats.
constexpr const char16_t* kNonMessaggi[] = {
    u"NOME FILE GRAFICA",
    u"%v / %m",
};

}  // namespace

TEST(PaginaDellaGrafica, HaOgniTestoCheLaSchermataMostra) {
  const ManualPage pagina(QStringLiteral("grafica.md"));
  for (const char16_t* uno : kTesti)
    EXPECT_TRUE(pagina.text().contains(QString::fromUtf16(uno).trimmed()))
        << QString::fromUtf16(uno).toStdString();
}

TEST(PaginaDellaGrafica, NonCitaUnTestoCheLaSchermataNonMostra) {
  const ManualPage pagina(QStringLiteral("grafica.md"));
  EXPECT_GT(pagina.quoted().size(), 50);
  EXPECT_EQ(pagina.quotedBeside(kTesti), QStringList());
}

TEST(PaginaDellaGrafica, UnTestoNuovoDellaSchermataNonRestaFuori) {
  const ManualPage pagina(QStringLiteral("grafica.md"));
  const SourceTexts testi = sourceTexts(QStringLiteral("graphics"), pagina.text(), kNonMessaggi,
                                        QStringLiteral("QStringLiteral\\(|TestoLancio\\{\\d+,"));
  EXPECT_EQ(testi.missing, QStringList());
  EXPECT_GT(testi.seen, 30) << "as many as there were when this was written";
}
