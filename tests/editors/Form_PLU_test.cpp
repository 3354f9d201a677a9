#include "editors/Form_PLU.h"

#include <gtest/gtest.h>

#include "core/state.h"
#include "editors/guided_editor.h"
#include "platform/error.h"

namespace {

const QString kSchermo = QStringLiteral("Form_PLU");
const QString kSalva = QStringLiteral("Cmd_Modifica");
const QString kFuoriReparto = QStringLiteral("Attenzione il reparto deve essere compreso tra 1 e 32!!!");
const QString kSoN = QStringLiteral("Attenzione  deve essere  S o N !!!");

// First byte of PLU 1 and 5000 in the file: 146 + 3742, and 48 bytes a record.
constexpr qsizetype kPLU1 = 3888;
constexpr qsizetype kPLU5000 = 243840;
constexpr qsizetype kBytePLU = 48;
constexpr qsizetype kByteReparto = 25;
constexpr qsizetype kAttributi = 26;
constexpr qsizetype kPrezzo = 27;
constexpr qsizetype kEan = 31;

enum Colonna { kNumero, kDesc, kPrz, kRep, kVar, kZero };

class GestionePLU : public ConfigurationOpen {
 protected:
  GestionePLU() { program.screens.registra<Form_PLU>(); }
  GuidedEditor apri() { return GuidedEditor(program, kSchermo); }
};

}  // namespace

TEST_F(GestionePLU, CinquemilaRigheDallaPrimaAllUltima) {
  put(kPLU5000, QByteArray("Ultimo").leftJustified(25, '\0') + QByteArray::fromHex("050263000000"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("Gestione PLU"));
  EXPECT_EQ(schermo.grid().objectName(), t("MSFlexGridPLU"));
  EXPECT_EQ(schermo.grid().Rows(), 5001);
  EXPECT_EQ(schermo.headings(), QStringList({t("NUM. PLU"), t("DESCRIZIONE"), t("PREZZO"), t("REPARTO"),
                                             t("VAR. PREZZO"), t("PREZZO ZERO")}));
  EXPECT_EQ(schermo.row(1), QStringList({t("1"), QString(), t("0,00"), t("0"), t("N"), t("N")}));
  EXPECT_EQ(schermo.row(5000), QStringList({t("5000"), t("Ultimo"), t("0,99"), t("5"), t("N"), t("S")}));
  EXPECT_EQ(schermo.foot(), t("5.000 PLU"));
}

TEST_F(GestionePLU, LUltimaRigaSiScriveESiSalvaAlSuoPosto) {
  const GuidedEditor schermo = apri();
  schermo.write(5000, kDesc, t("Pane"));
  schermo.write(5000, kPrz, t("1,2"));
  schermo.clickCell(5000, kRep);
  // What stands there is a 0 from the file; typed over, the number is one from 1 on.
  schermo.type(t("7"));
  schermo.clickCell(5000, kVar);
  schermo.type(t("s"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPLU5000, kBytePLU).toHex(), QByteArray("Pane").leftJustified(25, '\0').toHex() + "07" +
                                                    "01" + "78000000" + QByteArray(17, '\0').toHex());
  EXPECT_EQ(schermo.foot(), t("Salvato: 1 PLU"));
}

TEST_F(GestionePLU, IlRepartoSiVedeESiSalvaSenzaScarto) {
  put(kPLU1 + kByteReparto, QByteArray::fromHex("00"));
  put(kPLU1 + kBytePLU + kByteReparto, QByteArray::fromHex("ff"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.cell(1, kRep), t("0"));
  EXPECT_EQ(schermo.cell(2, kRep), t("255"));
  schermo.write(3, kDesc, t("Pane"));
  schermo.clickCell(4, kRep);
  schermo.type(t("32"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPLU1 + kByteReparto, 1).toHex(), "00");
  EXPECT_EQ(onDisk(kPLU1 + kBytePLU + kByteReparto, 1).toHex(), "ff");
  EXPECT_EQ(onDisk(kPLU1 + 3 * kBytePLU + kByteReparto, 1).toHex(), "20");
}

TEST_F(GestionePLU, IlRepartoOltre32TornaA1ColMessaggio) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kRep);
  schermo.type(t("33"));
  expectBoxes(program, {warning(kFuoriReparto)});
  EXPECT_EQ(schermo.cell(1, kRep), t("1"));
}

TEST_F(GestionePLU, IlRepartoCancellatoTornaA1ColMessaggio) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kRep);
  schermo.press(Qt::Key_Backspace);
  expectBoxes(program, {warning(kFuoriReparto)});
  EXPECT_EQ(schermo.cell(1, kRep), t("1"));
}

TEST_F(GestionePLU, IlRepartoZeroMostraIlSuoMessaggioELascia1) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kRep);
  schermo.type(t("5"));
  schermo.press(Qt::Key_A, Qt::ControlModifier);
  schermo.type(t("0"));
  expectBoxes(program, {warning(t("Attenzione il valore non puo' essere 0"))});
  EXPECT_EQ(schermo.cell(1, kRep), t("1"));
}

TEST_F(GestionePLU, ITastiDiOgniColonna) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Te' 1/2"));
  EXPECT_EQ(schermo.cell(1, kDesc), t("Te' 1/2"));
  schermo.write(1, kPrz, t("x1.2,3,45"));
  EXPECT_EQ(schermo.cell(1, kPrz), t("12,34"));
  schermo.clickCell(1, kRep);
  schermo.type(t("a1,2"));
  EXPECT_EQ(schermo.cell(1, kRep), t("12"));
  for (const int colonna : {kVar, kZero}) {
    schermo.clickCell(1, colonna);
    schermo.type(t("m1s"));
    EXPECT_EQ(schermo.cell(1, colonna), t("S"));
    EXPECT_EQ(schermo.hint(), QString());
  }
}

TEST_F(GestionePLU, PrezzoOltreILimitiTornaA1) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kPrz, t("99999,99"));
  EXPECT_EQ(schermo.cell(1, kPrz), t("99999,99"));
  schermo.write(1, kPrz, t("100000"));
  expectBoxes(program, {warning(t("Attenzione il valore immesso > 99999,99!!!"))});
  EXPECT_EQ(schermo.cell(1, kPrz), t("1"));
}

TEST_F(GestionePLU, UnSiONoCancellatoTornaANColMessaggio) {
  const GuidedEditor schermo = apri();
  for (const int colonna : {kVar, kZero}) {
    schermo.clickCell(1, colonna);
    schermo.type(t("s"));
    schermo.press(Qt::Key_Backspace);
    expectBoxes(program, {warning(kSoN)});
    EXPECT_EQ(schermo.cell(1, colonna), t("N"));
  }
}

TEST_F(GestionePLU, LaDescrizioneSiTagliaA24CaratteriELoDicePrima) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("ABCDEFGHIJKLMNOPQRSTUVWXYZ1"));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 1 PLU (1) - 27/24 caratteri, gli ultimi si perdono"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.cell(1, kDesc), t("ABCDEFGHIJKLMNOPQRSTUVWX"));
  EXPECT_EQ(onDisk(kPLU1, kByteReparto), QByteArray("ABCDEFGHIJKLMNOPQRSTUVWX\0", 25));
}

TEST_F(GestionePLU, IDueSiNoSonoIBit0E1EGliAltriBitSiAzzerano) {
  put(kPLU1 + kAttributi, QByteArray::fromHex("fd"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.cell(1, kVar), t("S"));
  EXPECT_EQ(schermo.cell(1, kZero), t("N"));
  schermo.clickCell(1, kZero);
  schermo.type(t("s"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPLU1 + kAttributi, 1).toHex(), "03");
}

TEST_F(GestionePLU, IlCodiceEanRestaComEra) {
  const QByteArray codice = QByteArray("8001234567890") + QByteArray::fromHex("00a5a5a5");
  put(kPLU1 + kEan, codice);
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Pane"));
  schermo.write(1, kPrz, t("2"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPLU1 + kEan, 17), codice);
  EXPECT_EQ(onDisk(kPLU1 + kPrezzo, 4).toHex(), "c8000000");
}

TEST_F(GestionePLU, UnRepartoCheNonStaInUnByteFallisceConIlNumero6) {
  const GuidedEditor schermo = apri();
  schermo.grid().setTextMatrix(4999, kDesc, t("Pane"));
  schermo.grid().setTextMatrix(5000, kRep, t("300"));
  try {
    editors::SalvaPLUGriglia(schermo.grid());
    ADD_FAILURE() << "saved";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 6);
  }
  EXPECT_EQ(inMemory(kPLU5000 - kBytePLU, 4), QByteArray(4, '\0'));
}

TEST_F(GestionePLU, LaBandieraEDeiPLUSoltanto) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("P"));
  EXPECT_EQ(varGestionePRG().ModificaPLU, kVero);
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
}

TEST_F(GestionePLU, ADodiciPuntiSta) {
  expectFitsAtTwelvePoints(apri());
}
