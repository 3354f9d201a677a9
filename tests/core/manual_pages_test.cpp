// The manual's pages as they lie in the tree: every window has one, and every link leads somewhere.

#include "core/manual_pages.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <QWidget>

#include "controls/markdown_view.h"

namespace {

const QString kManuale = QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/");

QString testoDi(const QString& file) {
  QFile letto(file);
  EXPECT_TRUE(letto.open(QIODevice::ReadOnly)) << file.toStdString();
  return QString::fromUtf8(letto.readAll());
}

QStringList pagine() {
  return QDir(kManuale).entryList({QStringLiteral("*.md")});
}

/// Anchors of the headings of a page, which is read once a run.
const QSet<QString>& ancore(const QString& pagina) {
  static QHash<QString, QSet<QString>> lette;
  const auto gia = lette.constFind(pagina);
  if (gia != lette.cend()) return *gia;
  QTextDocument documento;
  documento.setMarkdown(testoDi(kManuale + pagina));
  QSet<QString>& trovate = lette[pagina];
  for (QTextBlock blocco = documento.begin(); blocco.isValid(); blocco = blocco.next())
    if (blocco.blockFormat().headingLevel() > 0) trovate.insert(MarkdownView::anchorOf(blocco.text()));
  return trovate;
}

/// Empty where the place is there, else what is missing.
std::string manca(const QString& luogo) {
  const QString pagina = luogo.section(QLatin1Char('#'), 0, 0);
  const QString ancora = luogo.section(QLatin1Char('#'), 1);
  if (!QFile::exists(kManuale + pagina)) return "no page " + pagina.toStdString();
  if (ancora.isEmpty() || ancore(pagina).contains(ancora)) return {};
  return "no heading " + luogo.toStdString();
}

/// What the expression's group has caught in the text.
QSet<QString> trovati(const QRegularExpression& espressione, const QString& testo) {
  QSet<QString> nomi;
  for (QRegularExpressionMatchIterator uno = espressione.globalMatch(testo); uno.hasNext();)
    nomi.insert(uno.next().captured(1));
  return nomi;
}

/// Names of the windows that the program can show: its forms, and the registrations of screens by name.
QSet<QString> finestre() {
  static const QRegularExpression modulo(QStringLiteral("<class>(\\w+)</class>"));
  static const QRegularExpression registrata(
      QStringLiteral("registra<(\\w+)>\\(\\)|registra\\(QStringLiteral\\(\"(\\w+)\"\\)"));
  QSet<QString> nomi;
  QDirIterator file(QStringLiteral(GESTIONALE_SOURCES "/src"), QDir::Files, QDirIterator::Subdirectories);
  while (file.hasNext()) {
    const QString percorso = file.next();
    const QString nome = QFileInfo(percorso).fileName();
    if (nome.endsWith(QStringLiteral(".ui")) && !nome.startsWith(QStringLiteral("ecr_panel")))
      nomi.insert(modulo.match(testoDi(percorso)).captured(1));
    if (nome != QStringLiteral("program.cpp") && nome != QStringLiteral("menu.cpp")) continue;
    QRegularExpressionMatchIterator trovate = registrata.globalMatch(testoDi(percorso));
    while (trovate.hasNext()) {
      const QRegularExpressionMatch una = trovate.next();
      nomi.insert(una.captured(una.lastCapturedIndex()));
    }
  }
  // The windows of the kit bear other names than their forms.
  EXPECT_TRUE(nomi.remove(QStringLiteral("ManualViewer")));
  // Each of the screens made of them has its own.
  EXPECT_TRUE(nomi.remove(QStringLiteral("FinestraAiuto")));
  EXPECT_TRUE(nomi.remove(QStringLiteral("EditorGriglia")));
  EXPECT_TRUE(nomi.remove(QStringLiteral("EditorModulo")));
  EXPECT_TRUE(nomi.remove(QStringLiteral("BancoProva")));
  return nomi;
}

QString luogo(const QWidget& finestra) {
  return manual::placeOf(&finestra);
}

QWidget* figlia(QWidget& sopra, const char* nome) {
  auto* finestra = new QWidget(&sopra, Qt::Window);
  finestra->setObjectName(QLatin1String(nome));
  return finestra;
}

}  // namespace

TEST(PagineDelManuale, OgniSchermataHaLaSua) {
  QSet<QString> conPagina;
  for (const manual::Place& una : manual::places()) conPagina.insert(QString::fromUtf8(una.window));
  const QSet<QString> tutte = finestre();
  for (const char* nome :
       {"start", "frmAbout", "Form_ATTESA", "Form_GestioneMMC", "Form_ArchivioArticoli",
        "Form_ArchivioVenduto", "Form_TrasferimentoArticoli", "Form_RicezioneVenduto", "Form_Help_CodiceEAN",
        "Form_Grafica", "MDIForm_PRG", "Form_GestioneClienti", "Form_Comandi_XONXOFF"})
    EXPECT_TRUE(tutte.contains(QLatin1String(nome))) << nome << " is not found in the sources any more";
  for (const QString& nome : tutte) EXPECT_TRUE(conPagina.contains(nome)) << nome.toStdString();
}

TEST(PagineDelManuale, OgniLuogoEsiste) {
  for (const manual::Place& una : manual::places()) {
    EXPECT_EQ(manca(QLatin1String(una.page)), "") << una.window;
    EXPECT_EQ(manca(QLatin1String(una.messages)), "") << una.window;
  }
}

TEST(PagineDelManuale, OgniCollegamentoPortaDaQualcheParte) {
  static const QRegularExpression collegamento(QStringLiteral("\\]\\(([^)]+)\\)"));
  int visti = 0;
  for (const QString& pagina : pagine()) {
    QRegularExpressionMatchIterator trovati = collegamento.globalMatch(testoDi(kManuale + pagina));
    while (trovati.hasNext()) {
      QString dove = trovati.next().captured(1);
      if (dove.startsWith(QLatin1Char('#'))) dove.prepend(pagina);
      EXPECT_EQ(manca(dove), "") << pagina.toStdString();
      ++visti;
    }
  }
  EXPECT_GE(visti, 26) << "as many as there were when this was written";
}

TEST(PagineDelManuale, LIndiceLeNominaTutteELaCartellaDelProgrammaLeRiceve) {
  const QString indice = testoDi(kManuale + QStringLiteral("README.md"));
  const QString consegnate = testoDi(QStringLiteral(GESTIONALE_SOURCES "/data/CMakeLists.txt"));
  for (const QString& pagina : pagine()) {
    EXPECT_TRUE(consegnate.contains(pagina)) << pagina.toStdString();
    if (pagina == QStringLiteral("README.md")) continue;
    EXPECT_TRUE(indice.contains(QLatin1Char('(') + pagina + QLatin1Char(')'))) << pagina.toStdString();
  }
  for (const QString& figura : QDir(kManuale + QStringLiteral("immagini")).entryList(QDir::Files)) {
    EXPECT_TRUE(figura.endsWith(QStringLiteral(".png"))) << figura.toStdString();
    EXPECT_TRUE(
        consegnate.contains(QRegularExpression(QStringLiteral("[ \\n]%1[ \\n)]").arg(figura.chopped(4)))))
        << figura.toStdString();
  }
}

TEST(PagineDelManuale, OgniFiguraStaInUnaPaginaELaDemoLaFa) {
  static const QRegularExpression mostrata(QStringLiteral("!\\[[^\\]]+\\]\\(immagini/([^)]+)\\.png\\)"));
  static const QRegularExpression fatta(QStringLiteral("Picture\\{\"[^\"]+\", \"([^\"]+)\"\\}"));
  QSet<QString> figure;
  for (const QString& file : QDir(kManuale + QStringLiteral("immagini")).entryList(QDir::Files))
    figure.insert(file.chopped(4));
  QString tutte;
  for (const QString& pagina : pagine()) tutte += testoDi(kManuale + pagina);
  const QString demo = testoDi(QStringLiteral(GESTIONALE_SOURCES "/demo/manual_pictures.cpp"));
  EXPECT_GE(figure.size(), 24) << "as many as there were when this was written";
  EXPECT_EQ(trovati(mostrata, tutte), figure) << "with a text for who does not see them";
  EXPECT_EQ(trovati(fatta, demo), figure);
}

TEST(PagineDelManuale, LeFigureSonoLeggere) {
  constexpr qint64 kByte = 64 * 1024;
  const QDir cartella(kManuale + QStringLiteral("immagini"));
  for (const QFileInfo& file : cartella.entryInfoList(QDir::Files)) {
    const QImage figura(file.filePath());
    EXPECT_EQ(figura.format(), QImage::Format_Indexed8) << file.fileName().toStdString();
    EXPECT_LE(figura.width(), 1024) << file.fileName().toStdString();
    EXPECT_LE(file.size(), kByte) << file.fileName().toStdString();
  }
}

TEST(PagineDelManuale, UnRiquadroPortaAiMessaggiDellaSchermataSotto) {
  QWidget schermata;
  schermata.setObjectName(QStringLiteral("Form_ArchivioVenduto"));
  EXPECT_EQ(luogo(schermata), QStringLiteral("archivi.md#analisi-del-venduto"));
  EXPECT_EQ(luogo(*figlia(schermata, "MsgBox")), QStringLiteral("messaggi.md#analisi-del-venduto"));
  QWidget solo;
  solo.setObjectName(QStringLiteral("MsgBox"));
  EXPECT_EQ(luogo(solo), QStringLiteral("messaggi.md"));
}

TEST(PagineDelManuale, UnControlloHaIlLuogoDellaSuaFinestra) {
  QWidget schermata;
  schermata.setObjectName(QStringLiteral("Form_RicezioneVenduto"));
  EXPECT_EQ(luogo(*new QWidget(&schermata)), QStringLiteral("cassa.md#ricevere-il-venduto"));
}

TEST(PagineDelManuale, UnaSchermataDentroUnaCorniceHaIlSuo) {
  QWidget cornice;
  cornice.setObjectName(QStringLiteral("MDIForm_PRG"));
  auto* dentro = new QWidget(&cornice);
  dentro->setObjectName(QStringLiteral("Form_OPE"));
  EXPECT_EQ(luogo(*dentro), QStringLiteral("configurazione-operatori.md"));
  EXPECT_EQ(luogo(*new QWidget(dentro)), QStringLiteral("configurazione-operatori.md"));
  EXPECT_EQ(luogo(*new QWidget(&cornice)), QStringLiteral("configurazione.md"));
}

TEST(PagineDelManuale, UnaFinestraSconosciutaHaIlLuogoDiQuellaSottoOLIndice) {
  QWidget schermata;
  schermata.setObjectName(QStringLiteral("Form_GestioneMMC"));
  QWidget* ignota = figlia(schermata, "qualcosa");
  EXPECT_EQ(luogo(*ignota), QStringLiteral("primi-passi.md#un-archivio-nuovo"));
  EXPECT_EQ(luogo(*figlia(*ignota, "altro")), QStringLiteral("primi-passi.md#un-archivio-nuovo"));
  QWidget sola;
  EXPECT_EQ(luogo(sola), QStringLiteral("README.md"));
  EXPECT_EQ(manual::placeOf(nullptr), QStringLiteral("README.md"));
}
