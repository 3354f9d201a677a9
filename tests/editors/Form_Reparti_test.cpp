#include "editors/Form_Reparti.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "core/state.h"
#include "editors/guided_editor.h"
#include "platform/error.h"

namespace {

const QString kSchermo = QStringLiteral("Form_Reparti");
const QString kSalva = QStringLiteral("Cmd_Modifica");
const QString kNonZero = QStringLiteral("Attenzione il valore non puo' essere 0");
const QString kOltreImporto = QStringLiteral("Attenzione il valore immesso > 99999,99!!!");
const QString kOltre8 = QStringLiteral("Attenzione il valore immesso > 8!!!");
const QString kMoS = QStringLiteral("Attenzione  deve essere  M o S !!!");
const QString kSoN = QStringLiteral("Attenzione  deve essere  S o N !!!");
const QString kDueDecimali =
    QStringLiteral("I due decimali ci sono già: cancellare con Backspace, poi scrivere");

// First byte of departments 1 and 3 in the file: 146 + 382, and 42 bytes a record.
constexpr qsizetype kReparto1 = 528;
constexpr qsizetype kReparto3 = 612;
constexpr qsizetype kByteReparto = 42;
constexpr qsizetype kAttributi = 25;
constexpr qsizetype kPrezzo = 26;

enum Colonna { kNumero, kDesc, kPrz, kIva, kMin, kMax, kTipo, kSconto, kSingola, kTallon };

class Reparti : public ConfigurationOpen {
 protected:
  Reparti() { program.screens.registra<Form_Reparti>(); }
  GuidedEditor apri() { return GuidedEditor(program, kSchermo); }
};

}  // namespace

// What is shown.

TEST_F(Reparti, LaGrigliaHaOttantaRepartiEDieciColonne) {
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("Reparti"));
  EXPECT_EQ(schermo.grid().objectName(), t("MSFlexGridReparti"));
  EXPECT_EQ(schermo.grid().Rows(), 81);
  EXPECT_EQ(schermo.headings(),
            QStringList({t("N.REP."), t("DESCRIZIONE"), t("PREZZO"), t("IVA"), t("MIN VALORE"),
                         t("MAX VALORE"), t("TIPO"), t("% SCONTO"), t("B.SINGOLA"), t("ID TAL.")}));
  EXPECT_EQ(schermo.cell(80, kNumero), t("80"));
  EXPECT_EQ(schermo.foot(), t("80 reparti"));
}

TEST_F(Reparti, LaLegendaDiceILimiti) {
  const GuidedEditor schermo = apri();
  QStringList voci;
  for (int i = 1; i <= 7; ++i) voci << schermo.text(QStringLiteral("Legenda_%1").arg(i));
  EXPECT_EQ(voci, QStringList({t("Prezzo        -->  0 ..... 99999,99"), t("Max Valore --> 0 ..... 99999,99"),
                               t("IVA              --> 1 ... 8"), t("Perc. di Sconto --> S = SI."),
                               t("Tipo di Sconto--> S = Sconto"), t("Battuta singola --> S = SI"),
                               t("TALLON ID    --> 1 ... 8")}));
}

TEST_F(Reparti, UnRecordSiLeggeColonnaPerColonna) {
  // "Bar", VAT 4, single stroke, M, tallon 3; 12,50, 0,01, 99999,99, 10,50.
  put(kReparto3, QByteArray("Bar").leftJustified(25, '\0') + QByteArray::fromHex("5b"
                                                                                 "e2040000"
                                                                                 "01000000"
                                                                                 "7f969800"
                                                                                 "1a040000"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.row(3), QStringList({t("3"), t("Bar"), t("12,50"), t("4"), t("0,01"), t("99999,99"),
                                         t("M"), t("10,50"), t("S"), t("3")}));
  EXPECT_EQ(schermo.row(1), QStringList({t("1"), QString(), t("0,00"), t("1"), t("0,00"), t("0,00"), t("S"),
                                         t("0,00"), t("N"), t("1")}));
}

// The keys of each column.

TEST_F(Reparti, LaDescrizionePrendeOgniTasto) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Caffe, 1/2 x3!"));
  EXPECT_EQ(schermo.cell(1, kDesc), t("Caffe, 1/2 x3!"));
  EXPECT_EQ(schermo.hint(), QString());
}

TEST_F(Reparti, GliImportiELaPercentualePrendonoCifreEUnaVirgola) {
  const GuidedEditor schermo = apri();
  for (const int colonna : {kPrz, kMin, kMax, kSconto}) {
    schermo.write(2, colonna, t("1a2.,,5"));
    EXPECT_EQ(schermo.cell(2, colonna), t("12,5")) << colonna;
  }
}

TEST_F(Reparti, UnTastoRifiutatoDiceIlPercheSottoLaCasella) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kPrz, t("1a"));
  EXPECT_EQ(schermo.hint(), t("Solo cifre e virgola"));
  schermo.type(t("."));
  EXPECT_EQ(schermo.hint(), t("Per i decimali si scrive la virgola"));
  schermo.type(t(",,"));
  EXPECT_EQ(schermo.hint(), t("La virgola c'è già"));
  schermo.write(2, kIva, t("x"));
  EXPECT_EQ(schermo.hint(), t("Solo cifre"));
  schermo.clickCell(2, kTipo);
  schermo.type(t("n"));
  EXPECT_EQ(schermo.hint(), t("Solo M o S"));
  schermo.clickCell(2, kSingola);
  schermo.type(t("m"));
  EXPECT_EQ(schermo.hint(), t("Solo S o N"));
}

TEST_F(Reparti, UnTerzoDecimaleNonSiScrive) {
  const GuidedEditor schermo = apri();
  for (const int colonna : {kPrz, kMin, kMax, kSconto}) {
    schermo.write(1, colonna, t("12,509"));
    EXPECT_EQ(schermo.cell(1, colonna), t("12,50")) << colonna;
    EXPECT_EQ(schermo.hint(), kDueDecimali);
  }
}

TEST_F(Reparti, ConDueDecimaliUnaCifraNonEntraNeancheDavantiAllaVirgola) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kPrz, t("12,50"));
  schermo.press(Qt::Key_Home);
  schermo.type(t("9"));
  EXPECT_EQ(schermo.cell(1, kPrz), t("12,50"));
}

TEST_F(Reparti, IvaETallonPrendonoSoloCifre) {
  const GuidedEditor schermo = apri();
  for (const int colonna : {kIva, kTallon}) {
    schermo.write(1, colonna, t("a,.5"));
    EXPECT_EQ(schermo.cell(1, colonna), t("5")) << colonna;
  }
}

TEST_F(Reparti, TipoEBattutaSingolaPrendonoLeLoroLettereEDiventanoMaiuscole) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kTipo);
  schermo.type(t("nxm"));
  EXPECT_EQ(schermo.cell(1, kTipo), t("M"));
  EXPECT_EQ(schermo.box().text(), t("M"));
  schermo.clickCell(1, kSingola);
  schermo.type(t("mxs"));
  EXPECT_EQ(schermo.cell(1, kSingola), t("S"));
}

// The messages, each with the value that takes the text's place.

TEST_F(Reparti, LoZeroNellaColonnaIvaMostraIlMessaggioELascia1) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kIva, t("0"));
  expectBoxes(program, {warning(kNonZero)});
  EXPECT_EQ(schermo.cell(1, kIva), t("1"));
  EXPECT_EQ(schermo.box().text(), t("1"));
  EXPECT_EQ(schermo.foot(), kNonZero);
}

TEST_F(Reparti, LoZeroDelTallonMostraIlMessaggioELascia1) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kTallon, t("0"));
  expectBoxes(program, {warning(kNonZero)});
  EXPECT_EQ(schermo.cell(1, kTallon), t("1"));
}

TEST_F(Reparti, IvaETallonArrivanoA8) {
  const GuidedEditor schermo = apri();
  for (const int colonna : {kIva, kTallon}) {
    schermo.write(1, colonna, t("8"));
    EXPECT_EQ(schermo.cell(1, colonna), t("8"));
    schermo.write(1, colonna, t("9"));
    expectBoxes(program, {warning(kOltre8)});
    EXPECT_EQ(schermo.cell(1, colonna), t("1"));
  }
}

TEST_F(Reparti, IlPrezzoArrivaA99999E99EOltreTornaA1) {
  const GuidedEditor schermo = apri();
  for (const int colonna : {kPrz, kMin, kMax}) {
    schermo.write(1, colonna, t("99999,99"));
    EXPECT_EQ(schermo.cell(1, colonna), t("99999,99"));
    schermo.write(1, colonna, t("100000"));
    expectBoxes(program, {warning(kOltreImporto)});
    EXPECT_EQ(schermo.cell(1, colonna), t("1"));
    EXPECT_EQ(schermo.box().selectedText(), t("1"));
  }
}

TEST_F(Reparti, LoScontoArrivaA99E99EOltreTornaA1) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kSconto, t("99,99"));
  EXPECT_EQ(schermo.cell(1, kSconto), t("99,99"));
  schermo.write(1, kSconto, t("100"));
  expectBoxes(program, {warning(t("Attenzione il valore immesso > 99,99!!!"))});
  EXPECT_EQ(schermo.cell(1, kSconto), t("1"));
}

TEST_F(Reparti, UnTipoCancellatoTornaAdSColMessaggio) {
  put(kReparto1 + kAttributi, QByteArray::fromHex("10"));
  const GuidedEditor schermo = apri();
  ASSERT_EQ(schermo.cell(1, kTipo), t("M"));
  schermo.clickCell(1, kTipo);
  schermo.press(Qt::Key_Backspace);
  expectBoxes(program, {warning(kMoS)});
  EXPECT_EQ(schermo.cell(1, kTipo), t("S"));
  schermo.press(Qt::Key_End);
  schermo.type(t("m"));
  expectBoxes(program, {warning(kMoS)});
  EXPECT_EQ(schermo.cell(1, kTipo), t("S"));
}

TEST_F(Reparti, UnaBattutaSingolaCancellataTornaANColMessaggio) {
  put(kReparto1 + kAttributi, QByteArray::fromHex("08"));
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kSingola);
  schermo.press(Qt::Key_Delete);
  expectBoxes(program, {warning(kSoN)});
  EXPECT_EQ(schermo.cell(1, kSingola), t("N"));
}

TEST_F(Reparti, DopoUnMessaggioSiRiscriveSopraIlValoreDiRipiego) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kIva, t("9"));
  expectBoxes(program, {warning(kOltre8)});
  schermo.type(t("4"));
  EXPECT_EQ(schermo.cell(1, kIva), t("4"));
}

// Into the record and the file.

TEST_F(Reparti, LaMDelTipoAccendeIlBit4DelRecord) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kTipo);
  schermo.type(t("M"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kReparto3 + kAttributi, 1).toHex(), "10");
  EXPECT_EQ(schermo.foot(), t("Salvato: 1 reparto"));
}

TEST_F(Reparti, LaBattutaSingolaAccendeIlBit3) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kSingola);
  schermo.type(t("s"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kReparto3 + kAttributi, 1).toHex(), "08");
}

TEST_F(Reparti, IlTallonStaNeiTreBitAltiMenoUno) {
  const GuidedEditor schermo = apri();
  schermo.write(3, kTallon, t("8"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kReparto3 + kAttributi, 1).toHex(), "e0");
}

TEST_F(Reparti, LAliquotaStaNeiTreBitBassiMenoUno) {
  const GuidedEditor schermo = apri();
  schermo.write(3, kIva, t("8"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kReparto3 + kAttributi, 1).toHex(), "07");
}

TEST_F(Reparti, UnaRigaInteraVaAlSuoPostoNelFile) {
  const GuidedEditor schermo = apri();
  schermo.write(3, kDesc, t("Bar"));
  schermo.write(3, kPrz, t("12,50"));
  schermo.write(3, kIva, t("4"));
  schermo.write(3, kMin, t("0,01"));
  schermo.write(3, kMax, t("99999,99"));
  schermo.clickCell(3, kTipo);
  schermo.type(t("m"));
  schermo.write(3, kSconto, t("10,5"));
  schermo.clickCell(3, kSingola);
  schermo.type(t("s"));
  schermo.write(3, kTallon, t("3"));
  schermo.click(kSalva);
  const QByteArray previsti = QByteArray("Bar").leftJustified(25, '\0').toHex() +
                              "5b"
                              "e2040000"
                              "01000000"
                              "7f969800"
                              "1a040000";
  EXPECT_EQ(onDisk(kReparto3, kByteReparto).toHex(), previsti);
  EXPECT_EQ(onDisk(kReparto3 - kByteReparto, kByteReparto), QByteArray(kByteReparto, '\0'));
  EXPECT_EQ(onDisk(kReparto3 + kByteReparto, kByteReparto), QByteArray(kByteReparto, '\0'));
}

TEST_F(Reparti, LaDescrizioneSiTagliaA24CaratteriELoDicePrima) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
  EXPECT_EQ(schermo.foot(),
            t("Modifiche non salvate: 1 reparto (1) - 26/24 caratteri, gli ultimi si perdono"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.cell(1, kDesc), t("ABCDEFGHIJKLMNOPQRSTUVWX"));
  EXPECT_EQ(onDisk(kReparto1, 26), QByteArray("ABCDEFGHIJKLMNOPQRSTUVWX") + QByteArray(2, '\0'));
}

TEST_F(Reparti, ITestiVecchiDietroLoZeroSopravvivonoAlSalvataggio) {
  put(kReparto1, QByteArray("Bar\0vecchio testo qui sotto", 25));
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("T"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kReparto1, 25), QByteArray("T\0r\0vecchio testo qui sotto", 25));
}

TEST_F(Reparti, OgniByteDegliAttributiTornaComEra) {
  QByteArray record(kByteReparto, '\0');
  for (const int byte : {0x00, 0x5b, 0xa5, 0xff}) {
    record[kAttributi] = static_cast<char>(byte);
    put(kReparto1, record);
    const GuidedEditor schermo = apri();
    editors::SalvaReparti(schermo.grid());
    EXPECT_EQ(inMemory(kReparto1, kByteReparto), record) << byte;
    program.screens.scaricaTutte();
  }
}

TEST_F(Reparti, ImportiFuoriDaiLimitiGiaNelFileRestanoComeSono) {
  put(kReparto1 + kPrezzo, QByteArray::fromHex("ffffff7f"
                                               "fbffffff"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.cell(1, kPrz), t("21474836,47"));
  EXPECT_EQ(schermo.cell(1, kMin), t("-0,05"));
  schermo.write(2, kIva, t("2"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kReparto1 + kPrezzo, 8).toHex(), "ffffff7ffbffffff");
}

TEST_F(Reparti, ColPuntoDecimaleDelSistemaGliImportiTornanoGliStessi) {
  const WithLocale inglese("en_GB");
  put(kReparto3 + kPrezzo, QByteArray::fromHex("e2040000010000007f9698001a040000"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.cell(3, kPrz), t("12.50"));
  schermo.write(1, kPrz, t("3,5"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.cell(1, kPrz), t("3.50"));
  EXPECT_EQ(onDisk(kReparto1 + kPrezzo, 4).toHex(), "5e010000");
  EXPECT_EQ(onDisk(kReparto3 + kPrezzo, 16).toHex(), "e2040000010000007f9698001a040000");
}

TEST_F(Reparti, UnAliquotaCancellataNonSiSalvaEIlFuocoVaLi) {
  const GuidedEditor schermo = apri();
  schermo.write(5, kIva, {});
  schermo.write(7, kDesc, t("Bar"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.foot(), t("Non salvato: correggere IVA, reparto 5"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Warning);
  EXPECT_EQ(schermo.current(), t("5,3"));
  EXPECT_EQ(schermo.focus(), t("casella_3"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(inMemory(kReparto1, 80 * kByteReparto), QByteArray(80 * kByteReparto, '\0'));
}

TEST_F(Reparti, DueZeriPassanoLaScritturaNonIlSalvataggio) {
  const GuidedEditor schermo = apri();
  schermo.write(5, kTallon, {});
  schermo.press(Qt::Key_Home);
  schermo.type(t("1"));
  schermo.press(Qt::Key_Home);
  schermo.type(t("00"));
  expectBoxes(program, {});
  schermo.press(Qt::Key_Delete);
  EXPECT_EQ(schermo.cell(5, kTallon), t("00"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.foot(), t("Non salvato: correggere ID TAL., reparto 5"));
}

TEST_F(Reparti, CioCheIlRecordNonTieneFallisceConIlNumero6ELasciaLaMemoria) {
  const GuidedEditor schermo = apri();
  schermo.grid().setTextMatrix(1, kDesc, t("Bar"));
  schermo.grid().setTextMatrix(2, kIva, t("9"));
  try {
    editors::SalvaReparti(schermo.grid());
    ADD_FAILURE() << "saved";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 6);
  }
  EXPECT_EQ(inMemory(kReparto1, 3), QByteArray(3, '\0'));
}
