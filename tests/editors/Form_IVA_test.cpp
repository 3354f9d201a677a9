#include "editors/Form_IVA.h"

#include <gtest/gtest.h>

#include "core/state.h"
#include "editors/guided_editor.h"

namespace {

const QString kSchermo = QStringLiteral("Form_IVA");
const QString kSalva = QStringLiteral("Cmd_Modifica");

// First byte of the family in the file, and 29 bytes a record.
constexpr qsizetype kPrimo = 243888;
constexpr qsizetype kByteRecord = 29;
constexpr qsizetype kValore = 25;

enum Colonna { kNumero, kDesc, kAliquota };

class AliquoteIVA : public ConfigurationOpen {
 protected:
  AliquoteIVA() { program.screens.registra<Form_IVA>(); }
  GuidedEditor apri() { return GuidedEditor(program, kSchermo); }
};

}  // namespace

TEST_F(AliquoteIVA, OttoAliquoteETreColonne) {
  put(kPrimo + 7 * kByteRecord,
      QByteArray("Ridotta").leftJustified(25, '\0') + QByteArray::fromHex("e8030000"));
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("IVA"));
  EXPECT_EQ(schermo.grid().objectName(), t("MSFlexGridIVA"));
  EXPECT_EQ(schermo.grid().Rows(), 9);
  EXPECT_EQ(schermo.headings(), QStringList({t("NUM."), t("DESCRIZIONE"), t("ALIQUOTA")}));
  EXPECT_EQ(schermo.row(1), QStringList({t("1"), QString(), t("0,00")}));
  EXPECT_EQ(schermo.row(8), QStringList({t("8"), t("Ridotta"), t("10,00")}));
  EXPECT_EQ(schermo.foot(), t("8 aliquote"));
}

TEST_F(AliquoteIVA, UnAliquotaDi22ESalvataCome2200) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kAliquota, t("22,00"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPrimo + kByteRecord + kValore, 4).toHex(), "98080000");
  EXPECT_EQ(schermo.cell(2, kAliquota), t("22,00"));
  EXPECT_EQ(schermo.foot(), t("Salvato: 1 aliquota"));
}

TEST_F(AliquoteIVA, UnaDescrizioneDi15CaratteriTornaConISuoiPrimi10) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("ABCDEFGHIJKLMNO"));
  EXPECT_EQ(schermo.cell(1, kDesc), t("ABCDEFGHIJKLMNO"));
  EXPECT_EQ(schermo.foot(),
            t("Modifiche non salvate: 1 aliquota (1) - 15/10 caratteri, gli ultimi si perdono"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.cell(1, kDesc), t("ABCDEFGHIJ"));
  EXPECT_EQ(onDisk(kPrimo, 12), QByteArray("ABCDEFGHIJ") + QByteArray(2, '\0'));
}

TEST_F(AliquoteIVA, ITestiVecchiDietroLoZeroRestano) {
  put(kPrimo, QByteArray("Normale\0abcdefghijklmnopqrs", 25));
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("ABCDEFGHIJKLMNO"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPrimo, 25), QByteArray("ABCDEFGHIJ\0defghijklmnopqrs", 25));
}

TEST_F(AliquoteIVA, ITastiELimiteDellAliquota) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kAliquota, t("a9.9,9,99"));
  EXPECT_EQ(schermo.cell(1, kAliquota), t("99,99"));
  schermo.write(1, kAliquota, t("100"));
  expectBoxes(program, {warning(t("Attenzione il valore immesso > 99,99!!!"))});
  EXPECT_EQ(schermo.cell(1, kAliquota), t("1"));
  EXPECT_EQ(varGestionePRG().ModificaIVA, kVero);
}

TEST_F(AliquoteIVA, LoZeroEUnAliquotaComeLeAltre) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kAliquota, t("0"));
  expectBoxes(program, {});
  EXPECT_EQ(schermo.cell(1, kAliquota), t("0"));
}

TEST_F(AliquoteIVA, ADodiciPuntiSta) {
  expectFitsAtTwelvePoints(apri());
}
