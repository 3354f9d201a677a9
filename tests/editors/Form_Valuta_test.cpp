#include "editors/Form_Valuta.h"

#include <gtest/gtest.h>

#include "core/state.h"
#include "editors/guided_editor.h"

namespace {

const QString kSchermo = QStringLiteral("Form_Valuta");
const QString kSalva = QStringLiteral("Cmd_Modifica");

// First byte of the family in the file, and 29 bytes a record.
constexpr qsizetype kPrimo = 244120;
constexpr qsizetype kByteRecord = 29;

enum Colonna { kNumero, kDesc, kCambio };

class Valute : public ConfigurationOpen {
 protected:
  Valute() { program.screens.registra<Form_Valuta>(); }
  GuidedEditor apri() { return GuidedEditor(program, kSchermo); }
};

}  // namespace

TEST_F(Valute, QuattroValuteETreColonne) {
  put(kPrimo + 3 * kByteRecord,
      QByteArray("Dollaro").leftJustified(25, '\0') + QByteArray::fromHex("6d000000"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("Valuta"));
  EXPECT_EQ(schermo.grid().objectName(), t("MSFlexGridVAL"));
  EXPECT_EQ(schermo.grid().Rows(), 5);
  EXPECT_EQ(schermo.headings(), QStringList({t("NUM."), t("Descrizione"), t("Cambio")}));
  EXPECT_EQ(schermo.row(4), QStringList({t("4"), t("Dollaro"), t("1,09")}));
  EXPECT_EQ(schermo.foot(), t("4 valute"));
}

TEST_F(Valute, IlCambioSiSalvaPerCento) {
  const GuidedEditor schermo = apri();
  schermo.write(4, kDesc, t("Dollaro USA"));
  schermo.write(4, kCambio, t("1,09"));
  EXPECT_EQ(varGestionePRG().ModificaValuta, kVero);
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPrimo + 3 * kByteRecord, kByteRecord),
            QByteArray("Dollaro US").leftJustified(25, '\0') + QByteArray::fromHex("6d000000"));
  EXPECT_EQ(schermo.foot(), t("Salvato: 1 valuta"));
}

TEST_F(Valute, UnaDescrizioneDi15CaratteriTornaConISuoiPrimi10ELoDicePrima) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("ABCDEFGHIJKLMNO"));
  EXPECT_EQ(schermo.foot(),
            t("Modifiche non salvate: 1 valuta (1) - 15/10 caratteri, gli ultimi si perdono"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.cell(1, kDesc), t("ABCDEFGHIJ"));
  EXPECT_EQ(onDisk(kPrimo, 12), QByteArray("ABCDEFGHIJ") + QByteArray(2, '\0'));
}

TEST_F(Valute, IlCambioHaIlLimiteDelleAliquote) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kCambio, t("99,99"));
  EXPECT_EQ(schermo.cell(1, kCambio), t("99,99"));
  schermo.write(1, kCambio, t("100"));
  expectBoxes(program, {warning(t("Attenzione il valore immesso > 99,99!!!"))});
  EXPECT_EQ(schermo.cell(1, kCambio), t("1"));
}

TEST_F(Valute, ITastiDelCambio) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kCambio, t("1.a,,234"));
  EXPECT_EQ(schermo.cell(1, kCambio), t("1,23"));
}

TEST_F(Valute, ADodiciPuntiSta) {
  expectFitsAtTwelvePoints(apri());
}
