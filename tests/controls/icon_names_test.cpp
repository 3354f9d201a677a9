// Icons are named in the sources by texts: what no compiler looks at.

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

namespace {

/// A place of a source that names an icon: who bears it, and its name.
struct Nomina {
  QString chi;
  QString icona;
};

/// How the sources name icons; the first group is who bears it where it says so, the last the name.
constexpr const char* kForme[] = {
    // ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")))
    R"~((\w+?)_?->(?:setIcon|setPixmap)\(\s*style::\w*[iI]con\(QStringLiteral\("([^"]+)"\))~",
    // style::primary(*ui_->Cmd_Cerca, QStringLiteral("search"))
    R"~(style::primary\(\*ui_->(\w+),\s*QStringLiteral\("([^"]+)"\))~",
    // {ui_->Cmd_Modifica, QStringLiteral("save")}
    R"~(\{ui_->(\w+),\s*QStringLiteral\("([^"]+)"\)\})~",
    // caricaSchermo({*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, "upload"})
    R"~(caricaSchermo\(\{[^}]*"([^"]+)"\}\))~",
    // Tasto{6, "layers"}
    R"~(Tasto\{(\w+), "([^"]+)"\})~",
    // {"Label1", "image", ...
    R"~(\{"(Label\w+)", "([^"]+)")~",
    // {QStyle::SP_ArrowBack, "arrow-left", ...
    R"~(\{QStyle::(SP_\w+), "([^"]+)")~",
    // return {"info", "plain", style::Badge::Neutral}
    R"~(return \{"([^"]+)", "\w+", style::Badge::\w+\})~",
    // style::signIcon(QStringLiteral("circle-x"), ...) where no one widget's icon is set by it
    R"~((?:^|[^(\s])\s+style::\w*[iI]con\(QStringLiteral\("([^"]+)"\))~",
    // folder + "/icons/receipt-euro.svg"
    R"~("/icons/([^"]+)\.svg")~",
};

QRegularExpression forma(const char* una) {
  return QRegularExpression(QString::fromLatin1(una), QRegularExpression::MultilineOption);
}

QString testoDi(const QString& file) {
  QFile sorgente(file);
  EXPECT_TRUE(sorgente.open(QIODevice::ReadOnly)) << file.toStdString();
  return QString::fromUtf8(sorgente.readAll());
}

QList<Nomina> nominate() {
  QList<Nomina> tutte;
  QDirIterator file(QStringLiteral(GESTIONALE_SOURCES "/src"), {QStringLiteral("*.cpp")}, QDir::Files,
                    QDirIterator::Subdirectories);
  while (file.hasNext()) {
    const QString percorso = file.next();
    const QString testo = testoDi(percorso);
    const QString schermo = QFileInfo(percorso).completeBaseName();
    for (const char* una : kForme) {
      const QRegularExpression cerca = forma(una);
      QRegularExpressionMatchIterator trovate = cerca.globalMatch(testo);
      while (trovate.hasNext()) {
        const QRegularExpressionMatch trovata = trovate.next();
        const bool dettoChi = cerca.captureCount() == 2;
        tutte.append({dettoChi ? trovata.captured(1) : schermo, trovata.captured(cerca.captureCount())});
      }
    }
  }
  return tutte;
}

QSet<QString> neiSorgenti() {
  QSet<QString> nomi;
  for (const Nomina& una : nominate()) nomi.insert(una.icona);
  return nomi;
}

QSet<QString> nellaCartella() {
  QSet<QString> nomi;
  for (const QString& file :
       QDir(QStringLiteral(GESTIONALE_SOURCES "/data/icons")).entryList({QStringLiteral("*.svg")}))
    nomi.insert(file.chopped(4));
  return nomi;
}

std::string elenco(const QSet<QString>& nomi) {
  QStringList ordinati(nomi.begin(), nomi.end());
  ordinati.sort();
  return ordinati.join(QLatin1Char(' ')).toStdString();
}

/// What each icon says. One that is new, or borne by somebody new, is written here by hand.
struct Significato {
  const char* icona;
  const char* che;
  /// Parted by blanks.
  const char* chi;
};

const QList<Significato> kSignificati{
    {"arrow-left", "torna indietro", "Cmd_Esci cmdEsci vkCommandEsci SP_ArrowBack kPulsanteEsci"},
    {"arrow-right", "va avanti", "SP_ArrowForward"},
    {"arrow-right-left", "scambia con la cassa", "kPulsanteInvio Form_TrasferimentoProgrammazione"},
    {"arrow-up", "sale di una cartella", "SP_FileDialogToParent"},
    {"book-open", "il manuale", "mnuManuale Cmd_Indice"},
    {"boxes", "l'archivio degli articoli", "Cmd_Articoli kPulsanteArticoli"},
    {"chart-column", "le vendite", "Cmd_Venduto"},
    {"chevron-left", "la pagina di prima", "Cmd_Indietro"},
    {"circle-check", "riuscito", "outcome_bar"},
    {"circle-help", "domanda, aiuto", "SP_MessageBoxQuestion vkCommandHELP"},
    {"circle-x", "fallito", "SP_MessageBoxCritical outcome_bar ecr_panel"},
    {"coins", "le valute", "9"},
    {"copy-plus", "uno nuovo da uno che c'è", "3"},
    {"download", "riceve dalla cassa", "Cmd_Upl Cmd_Avvia Form_RicezioneVenduto Form_RicezioneClienti"},
    {"file", "un file", "SP_FileIcon"},
    {"file-down", "importa", "mnuImporta"},
    {"file-output", "esporta", "Cmd_Export"},
    {"file-pen", "modifica uno che c'è", "2 Cmd_Modifica"},
    {"file-plus", "uno nuovo", "mnuNuovo 1 Cmd_nuovo"},
    {"folder", "una cartella", "SP_DirIcon SP_DirClosedIcon SP_DirHomeIcon"},
    {"folder-open", "apre", "mnuApri SP_DirOpenIcon"},
    {"folder-plus", "una cartella nuova", "SP_FileDialogNewFolder"},
    {"folder-x", "chiude l'archivio", "mnuClose"},
    {"hourglass", "attesa", "Picture1"},
    {"id-card", "gli operatori", "10"},
    {"image", "la grafica", "Label1"},
    {"info", "informazioni", "Label6 SP_MessageBoxInformation outcome_bar"},
    {"keyboard", "la tastiera della cassa", "13"},
    {"layers", "i reparti", "6"},
    {"layout-list", "con i particolari", "SP_FileDialogDetailedView"},
    {"list", "l'elenco intero", "Cmd_Refresh"},
    {"list-checks", "le opzioni", "11"},
    {"log-out", "termina il programma", "Label4"},
    {"monitor", "il computer", "SP_ComputerIcon"},
    {"percent", "l'IVA", "8"},
    {"receipt-euro", "il programma", "start program"},
    {"receipt-text", "le fatture", "Cmd_ArchivioFatture vkCommand1"},
    {"rows-3", "in righe", "SP_FileDialogListView"},
    {"save", "salva", "Cmd_Modifica Cmd_Salva vkCmd_Memorizza_Cliente"},
    {"scan-barcode", "gli articoli", "Label2"},
    {"search", "cerca", "Cmd_Cerca Cmd_Trova Vmd_Cerca"},
    {"sliders-horizontal", "la programmazione", "Label3 Picture1"},
    {"square-terminal", "i comandi ausiliari", "Label_CMD_XONXOFF"},
    {"store", "il negozio", "Picture1 5"},
    {"trash-2", "elimina", "Cmd_Elimina"},
    {"triangle-alert", "attenzione", "SP_MessageBoxWarning outcome_bar"},
    {"undo-2", "annulla le modifiche", "Cmd_Reset annullare"},
    {"upload", "manda alla cassa",
     "Cmd_Down Cmd_Avvio Cmd_Invia Form_TrasferimentoArticoli Form_TrasferimentoClienti"},
    {"users", "i clienti", "Label7 Picture1 Cmd_AnagraficaClienti"},
    {"x", "vuota", "Cmd_Reset clear"},
};

}  // namespace

TEST(IconeDelProgramma, OgniNomeNeiSorgentiHaIlSuoFileEViceversa) {
  EXPECT_EQ(elenco(neiSorgenti() - nellaCartella()), "") << "named and not there";
  EXPECT_EQ(elenco(nellaCartella() - neiSorgenti()), "") << "there and named by nobody";
}

TEST(IconeDelProgramma, OgniFormaDiNominarleETrovata) {
  QString tutto;
  QDirIterator file(QStringLiteral(GESTIONALE_SOURCES "/src"), {QStringLiteral("*.cpp")}, QDir::Files,
                    QDirIterator::Subdirectories);
  while (file.hasNext()) tutto += testoDi(file.next());
  for (const char* una : kForme) EXPECT_TRUE(tutto.contains(forma(una))) << una << " stands for nothing";
}

TEST(IconeDelProgramma, LaCartellaDelProgrammaLeHaTutte) {
  const QString elencate = testoDi(QStringLiteral(GESTIONALE_SOURCES "/data/CMakeLists.txt"));
  for (const QString& nome : nellaCartella())
    EXPECT_TRUE(elencate.contains(QRegularExpression(QStringLiteral("[\\s(]%1[\\s)]").arg(nome))))
        << nome.toStdString();
}

TEST(IconeDelProgramma, OgnunaDiceUnaCosaSola) {
  QMap<QString, QSet<QString>> chi;
  for (const Nomina& una : nominate()) chi[una.icona].insert(una.chi);
  QSet<QString> cose;
  for (const Significato& uno : kSignificati) {
    const QString icona = QLatin1String(uno.icona);
    EXPECT_FALSE(cose.contains(QLatin1String(uno.che))) << uno.che << " has a second icon";
    cose.insert(QLatin1String(uno.che));
    const QStringList portatori = QString::fromLatin1(uno.chi).split(QLatin1Char(' '));
    const QSet<QString> attesi(portatori.begin(), portatori.end());
    const QSet<QString> visti = chi.take(icona);
    EXPECT_EQ(elenco(attesi - visti), "") << uno.icona << ": borne by nobody of that name";
    EXPECT_EQ(elenco(visti - attesi), "") << uno.icona << ": borne by others";
  }
  EXPECT_TRUE(chi.isEmpty()) << elenco(QSet<QString>(chi.keyBegin(), chi.keyEnd())) << ": without a meaning";
}
