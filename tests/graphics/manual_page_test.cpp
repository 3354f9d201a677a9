// Every text that the screen of the pictures can show stands on its page of the manual, and the page quotes
// none that it cannot.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

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
    u"... bitmap in ...",
    u"La cartella ... non si può aprire",
    u"Aperta ...: salvata nel programma di disegno, si vede qui",
    u"Nessuna immagine scelta",
    u"immagine non va bene per questa cassa: la tessera dice perché",
    u"immagini non vanno bene per questa cassa: la tessera dice perché",
    u"Questa cassa non dice se la sua grafica è SMALL o LARGE: non la si può inviare",
    u"Preparazione di ..., ... di ... …",
    u"Inviate alla cassa ... immagini, ... byte",
};

/// Texts of the screen's sources that are no messages: headings, formats.
constexpr const char16_t* kNonMessaggi[] = {
    u"NOME FILE GRAFICA",
    u"%v / %m",
};

QString letto(const QString& percorso) {
  QFile file(percorso);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << percorso.toStdString();
  return QString::fromUtf8(file.readAll());
}

QString pagina() {
  return letto(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/grafica.md"));
}

/// The parts of a text that do not change, without what a sentence needs around them.
QStringList pezzi(const QString& testo, const QRegularExpression& variabile) {
  static const QRegularExpression intorno(QStringLiteral("^[ ().:,;\\]]+|[ (:\\[]+$"));
  QStringList tutti;
  for (QString pezzo : testo.split(variabile)) tutti << pezzo.remove(intorno);
  tutti.removeAll(QString());
  return tutti;
}

/// What the first cells of the page's rows quote.
QStringList citati() {
  static const QRegularExpression citazione(QStringLiteral("\"([^\"]+)\""));
  static const QRegularExpression puntini(QStringLiteral("\\.\\.\\."));
  QStringList tutti;
  for (const QString& riga : pagina().split(u'\n')) {
    if (!riga.startsWith(QStringLiteral("| "))) continue;
    const QString cella = riga.section(u'|', 1, 1);
    for (auto quale = citazione.globalMatch(cella); quale.hasNext();)
      tutti += pezzi(quale.next().captured(1), puntini);
  }
  return tutti;
}

/// The literals with a blank in them that stand in a source.
QStringList testiDelSorgente(const QString& percorso) {
  static const QRegularExpression letterale(
      QStringLiteral("(?:QStringLiteral\\(|TestoLancio\\{\\d+,)\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)"));
  static const QRegularExpression giunta(QStringLiteral("\"\\s*\""));
  const QString sorgente = letto(percorso);
  QStringList tutti;
  for (auto uno = letterale.globalMatch(sorgente); uno.hasNext();) {
    QString testo = uno.next().captured(1).trimmed().remove(giunta);
    testo = testo.mid(1, testo.size() - 2).replace(QStringLiteral("\\\""), QStringLiteral("\""));
    testo.remove(QStringLiteral("\\r\\n"));
    if (testo.contains(u' ')) tutti << testo;
  }
  return tutti;
}

}  // namespace

TEST(PaginaDellaGrafica, HaOgniTestoCheLaSchermataMostra) {
  const QString testo = pagina();
  for (const char16_t* uno : kTesti)
    EXPECT_TRUE(testo.contains(QString::fromUtf16(uno).trimmed())) << QString::fromUtf16(uno).toStdString();
}

TEST(PaginaDellaGrafica, NonCitaUnTestoCheLaSchermataNonMostra) {
  const QStringList tutti = citati();
  EXPECT_GT(tutti.size(), 50);
  for (const QString& pezzo : tutti)
    EXPECT_TRUE(std::ranges::any_of(kTesti, [&](const char16_t* uno) {
      return QString::fromUtf16(uno).contains(pezzo);
    })) << pezzo.toStdString();
}

TEST(PaginaDellaGrafica, UnTestoNuovoDellaSchermataNonRestaFuori) {
  static const QRegularExpression posto(QStringLiteral("%\\d"));
  const QString testo = pagina();
  const QDir sorgenti(QStringLiteral(GESTIONALE_SOURCES "/src/graphics"));
  int visti = 0;
  for (const QString& file : sorgenti.entryList({QStringLiteral("*.cpp")}))
    for (const QString& uno : testiDelSorgente(sorgenti.filePath(file))) {
      ++visti;
      if (std::ranges::any_of(kNonMessaggi,
                              [&](const char16_t* altro) { return uno == QString::fromUtf16(altro); }))
        continue;
      for (const QString& pezzo : pezzi(uno, posto))
        EXPECT_TRUE(testo.contains(pezzo)) << file.toStdString() << ": " << uno.toStdString();
    }
  EXPECT_GT(visti, 30) << "as many as there were when this was written";
}
