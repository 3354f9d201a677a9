// The road of a configuration: made, edited in every grid, saved, sent, received into a fresh one. What the
// till holds is compared with images that another program has computed.
#include <gtest/gtest.h>

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <QToolBar>

#include "config/Form_TrasferimentoProgrammazione.h"
#include "config/configuration_file.h"
#include "controls/FlexGrid.h"
#include "core/start.h"
#include "editors/Form_IVA.h"
#include "editors/Form_Reparti.h"
#include "editors/Form_Valuta.h"
#include "editors/MDIForm_PRG.h"
#include "sostegno/guided_screen.h"
#include "sostegno/test_till.h"

namespace {

const QStringList kFamiglie{
    QStringLiteral("intestazione"), QStringLiteral("reparti"), QStringLiteral("plu"),
    QStringLiteral("iva"),          QStringLiteral("val"),     QStringLiteral("operatori"),
    QStringLiteral("cortesia"),     QStringLiteral("logo"),    QStringLiteral("prog_param")};
const QString kPrima = QStringLiteral("prima.dat");
const QString kSeconda = QStringLiteral("seconda.dat");
constexpr qsizetype kInizioIntestazione = 146;
constexpr qsizetype kInizioPLU = 3888;

struct StradaConfigurazione : testing::TestWithParam<const char*> {
  ProgramFixture bottega;
  TestTill cassa{[] {
    ecrsim::Options come;
    come.bitmap = GetParam();
    return come;
  }()};
  QPointer<QWidget> area;

  void SetUp() override {
    config::azzeraConfigurazione();
    bottega.screens.registra(QStringLiteral("start"), [](Contesto& c) { return new start(c, {1280, 1024}); });
    bottega.screens.registra<MDIForm_PRG>();
    bottega.screens.registra<Form_Reparti>();
    bottega.screens.registra<Form_IVA>();
    bottega.screens.registra<Form_Valuta>();
    bottega.screens.registra<Form_TrasferimentoProgrammazione>();
    bottega.screens.mostra(QStringLiteral("start"), bottega.contesto);
    area = &bottega.screens.mostra(QStringLiteral("MDIForm_PRG"), bottega.contesto);
  }

  void premi(int posizione) const {
    auto* azione = area->findChild<QAction*>(QStringLiteral("Toolbar1_%1").arg(posizione));
    auto* barra = area->findChild<QToolBar*>(QStringLiteral("Toolbar1"));
    QTest::mouseClick(barra->widgetForAction(azione), Qt::LeftButton);
  }
  void nuova(const QString& nome) {
    bottega.user.chooses(bottega.folder.file(nome));
    premi(1);
  }
  /// Types over a cell as the person does: the box over it, the text, Enter.
  void scrivi(const QString& editor, const QString& griglia, int riga, int colonna, const QString& testo) {
    const GuidedScreen schermo(*bottega.screens.trova(editor));
    schermo.control<FlexGrid>(griglia).setCell(riga, colonna);
    auto& casella = schermo.control<QLineEdit>(QStringLiteral("casella_%1").arg(colonna));
    ASSERT_TRUE(casella.isVisible());
    casella.selectAll();
    // An amount takes no digit behind its two decimals, be it selected or not.
    if (testo.contains(QLatin1Char(','))) QTest::keyClick(&casella, Qt::Key_Backspace);
    QTest::keyClicks(&casella, testo);
    QTest::keyClick(&casella, Qt::Key_Return);
  }
  void salva(const QString& editor) const {
    GuidedScreen(*bottega.screens.trova(editor)).click(QStringLiteral("Cmd_Modifica"));
  }
  void modificaReparti() {
    premi(6);
    const QString editor = QStringLiteral("Form_Reparti");
    const QString griglia = QStringLiteral("MSFlexGridReparti");
    const QStringList celle{QStringLiteral("PANE FRESCO"), QStringLiteral("2,50"),  QStringLiteral("4"),
                            QStringLiteral("0,10"),        QStringLiteral("99,99"), QStringLiteral("M"),
                            QStringLiteral("10,00"),       QStringLiteral("S"),     QStringLiteral("2")};
    for (int colonna = 1; colonna <= 9; ++colonna) scrivi(editor, griglia, 3, colonna, celle[colonna - 1]);
    salva(editor);
  }
  void modificaIvaEValute() {
    premi(8);
    scrivi(QStringLiteral("Form_IVA"), QStringLiteral("MSFlexGridIVA"), 6, 1, QStringLiteral("RIDOTTA"));
    scrivi(QStringLiteral("Form_IVA"), QStringLiteral("MSFlexGridIVA"), 6, 2, QStringLiteral("5,50"));
    salva(QStringLiteral("Form_IVA"));
    premi(9);
    scrivi(QStringLiteral("Form_Valuta"), QStringLiteral("MSFlexGridVAL"), 2, 1, QStringLiteral("DOLLARO"));
    scrivi(QStringLiteral("Form_Valuta"), QStringLiteral("MSFlexGridVAL"), 2, 2, QStringLiteral("1,08"));
    salva(QStringLiteral("Form_Valuta"));
  }
  void modificaArticoli() {
    store::Database compagno =
        bottega.workspace.OpenDatabase(bottega.folder.file(QStringLiteral("prima_art.mdb")));
    compagno.Execute(
        u"UPDATE TAB_ARTICOLI SET Descrizione = 'LATTE INTERO',Codice_EAN = '8001234567890',Prezzo = 159,"
        u"Reparto = 3,VarPrezzo = true WHERE auto_id=7");
    compagno.Close();
  }
  /// The same edits for the other program, by their places.
  static QByteArray modificheAMano() {
    return "reparti 2 0 text PANE FRESCO\n"
           "reparti 2 25 byte 59\n"  // 4 - 1, +8 single, +16 type M, +32 tallon 2
           "reparti 2 26 int 250\nreparti 2 30 int 10\nreparti 2 34 int 9999\nreparti 2 38 int 1000\n"
           "iva 5 0 text RIDOTTA\niva 5 25 int 550\n"
           "val 1 0 text DOLLARO\nval 1 25 int 108\n"
           "plu 6 0 text LATTE INTERO\nplu 6 25 byte 2\nplu 6 26 byte 1\nplu 6 27 int 159\n"
           "plu 6 31 text 8001234567890\n";
  }
  void scambia(const QString& opzione, const QString& fine) {
    withModal([&] { premi(14); },
              [&](QWidget& finestra) {
                const GuidedScreen schermo(finestra);
                schermo.connectTo(cassa);
                schermo.click(opzione);
                schermo.click(QStringLiteral("Cmd_Avvia"));
                const std::vector<Box> visti = bottega.takeBoxes();
                ASSERT_EQ(visti.size(), 1U);
                EXPECT_EQ(visti[0].text, fine);
                schermo.click(QStringLiteral("Cmd_Esci"));
              });
  }
  QString immagini(const QByteArray& modello) const {
    const QString origine = bottega.folder.write(QStringLiteral("modello.dat"), modello);
    const QString elenco = bottega.folder.write(QStringLiteral("modifiche.txt"), modificheAMano());
    QString cartella = bottega.folder.file(QStringLiteral("attese"));
    QDir().mkpath(cartella);
    EXPECT_EQ(QProcess::execute(QStringLiteral(TILL_IMAGES),
                                {origine, elenco, cartella, QLatin1String(GetParam())}),
              0);
    return cartella;
  }
};

TEST_P(StradaConfigurazione, ModificataInOgniGrigliaSalvataInviataERicevutaTornaUguale) {
  nuova(kPrima);
  const QByteArray modello = bottega.folder.read(kPrima);
  modificaReparti();
  modificaIvaEValute();
  modificaArticoli();
  scambia(QStringLiteral("vkOptionAggiornaECR"),
          QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA"));

  const QDir attese(immagini(modello));
  for (const QString& famiglia : kFamiglie) {
    const QString nome = famiglia + QStringLiteral(".bin");
    QFile attesa(attese.filePath(nome));
    ASSERT_TRUE(attesa.open(QIODevice::ReadOnly));
    EXPECT_EQ(cassa.byte(nome), attesa.readAll()) << famiglia.toStdString();
  }

  nuova(kSeconda);
  scambia(QStringLiteral("vkOptionRicezioneECR"),
          QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA"));
  const QByteArray prima = bottega.folder.read(kPrima);
  const QByteArray seconda = bottega.folder.read(kSeconda);
  ASSERT_EQ(seconda.size(), prima.size());
  QList<qsizetype> diversi;
  for (qsizetype i = 0; i < prima.size(); ++i)
    if (prima[i] != seconda[i]) diversi += i;
  // The article came to the till from the database, not from the file: it alone differs.
  for (const qsizetype byte : diversi) {
    EXPECT_GE(byte, kInizioPLU + 6 * 48) << byte;
    EXPECT_LT(byte, kInizioPLU + 7 * 48) << byte;
  }
  EXPECT_EQ(seconda.mid(kInizioPLU + 6 * 48, 12), QByteArray("LATTE INTERO"));
  store::Database compagno =
      bottega.workspace.OpenDatabase(bottega.folder.file(QStringLiteral("seconda_art.mdb")));
  const store::Recordset riga =
      compagno.OpenRecordset(u"SELECT Descrizione,Prezzo,Reparto from TAB_ARTICOLI where auto_id=7");
  EXPECT_EQ(riga.field(QStringLiteral("Descrizione")).text(), QStringLiteral("LATTE INTERO"));
  EXPECT_EQ(riga.field(QStringLiteral("Prezzo")).int64(), 159);
  EXPECT_EQ(riga.field(QStringLiteral("Reparto")).int64(), 3);
  compagno.Close();
}

TEST_P(StradaConfigurazione, DaUnaCassaPiccolaTornanoDiOgniRigaSoloDueByte) {
  nuova(kPrima);
  scambia(QStringLiteral("vkOptionAggiornaECR"),
          QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA"));
  QByteArray altra = bottega.folder.read(kPrima);
  altra.replace(kInizioIntestazione, 8 * 38, QByteArray(8 * 38, 'z'));
  bottega.folder.write(kSeconda, altra);
  ASSERT_TRUE(QFile::copy(bottega.folder.file(QStringLiteral("prima_art.mdb")),
                          bottega.folder.file(QStringLiteral("seconda_art.mdb"))));
  bottega.user.chooses(bottega.folder.file(kSeconda));
  premi(2);
  scambia(QStringLiteral("vkOptionRicezioneECR"),
          QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA"));
  const QByteArray prima = bottega.folder.read(kPrima);
  const QByteArray seconda = bottega.folder.read(kSeconda);
  const bool piccola = QByteArrayView(GetParam()) == "S";
  for (int riga = 0; riga < 8; ++riga) {
    const qsizetype inizio = kInizioIntestazione + riga * 38;
    EXPECT_EQ(seconda.mid(inizio, 2), prima.mid(inizio, 2)) << riga;
    EXPECT_EQ(seconda.mid(inizio + 2, 36), piccola ? QByteArray(36, 'z') : prima.mid(inizio + 2, 36)) << riga;
  }
}

INSTANTIATE_TEST_SUITE_P(Classi, StradaConfigurazione, testing::Values("L", "S"),
                         [](const auto& classe) { return std::string(classe.param); });

}  // namespace
