#include "auxcmd/Form_STATO_ECR.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QTest>
#include <algorithm>

#include "sostegno/guided_screen.h"

namespace {

const QString kSchermo = QStringLiteral("Form_STATO_ECR");
const QByteArray kInOrdine = "MISQZ17700123FAG00123400005612.5100%OOP";

class SchermoStatoECR : public testing::Test {
 protected:
  SchermoStatoECR() {
    programma.screens.registra<Form_STATO_ECR>();
    stato(kInOrdine);
  }

  static void stato(const QByteArray& byte) {
    ASSERT_EQ(byte.size(), 39);
    std::copy(byte.begin(), byte.end(), varGestionePRG().StatoECR.begin());
  }
  static QByteArray con(int posto, char lettera) {
    QByteArray byte = kInOrdine;
    byte[posto] = lettera;
    return byte;
  }
  static QString distintivo(const GuidedScreen& schermo, const char* casella) {
    return schermo.control(casella).property("badge").toString();
  }

  ProgramFixture programma;
};

struct Voce {
  const char* casella;
  const char* didascalia;
  const char* testo;
};

}  // namespace

TEST_F(SchermoStatoECR, MostraITrediciCampiConLeLoroDidascalie) {
  const GuidedScreen schermo(programma, kSchermo);
  const QList<Voce> attese{
      {"vkTextBox_Tipo", "Tipo", "MIS"},
      {"vkTextBox_Costruttore", "Costruttore", "QZ1"},
      {"vkTextBox_Matricola", "Matricola", "7700123"},
      {"vkTextBox_Stato_Fiscale", "Stato Fiscale", "FISCALE"},
      {"vkTextBox_Stato_Scontrino", "Stato Scontr.", "APERTO"},
      {"vkTextBox_Tipo_Scontrino", "Tipo Scontr.", "GESTIONALE"},
      {"vkTextBox_Num_Scontr_F", "N. Scontr. F.", "001234"},
      {"vkTextBox_Num_Scontr_G", "N. Scontr. G.", "000056"},
      {"vkTextBox_Perc_MMC", "% occup. MMC", "12.5"},
      {"vkTextBox_Perc_MF", "% occup. MF", "100%"},
      {"vkTextBox_Stato_Printer", "Stato Printer", "OK"},
      {"vkTextBox_Stato_Carta", "Stato Carta", "OK"},
      {"vkTextBox_Stato_MMC", "MMC Gestionale", "PRESENTE"},
  };
  QMap<QString, QString> didascalie;
  for (const QLabel* una : schermo.window().findChildren<QLabel*>())
    if (una->buddy()) didascalie[una->buddy()->objectName()] = una->text();
  EXPECT_EQ(didascalie.size(), 13);
  for (const Voce& voce : attese) {
    EXPECT_EQ(schermo.text(QLatin1String(voce.casella)), QLatin1String(voce.testo)) << voce.casella;
    EXPECT_EQ(didascalie[QLatin1String(voce.casella)], QLatin1String(voce.didascalia)) << voce.casella;
  }
}

TEST_F(SchermoStatoECR, HaITitoliEIlComandoChiestoESiGuardaSenzaFermareGliAltri) {
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Stato ECR"));
  EXPECT_EQ(schermo.text(QStringLiteral("TitoloRiquadro")), QStringLiteral("Configurazione"));
  EXPECT_EQ(schermo.text(QStringLiteral("Cmd_Esci")), QStringLiteral("Esci"));
  EXPECT_FALSE(schermo.window().isModal());
}

TEST_F(SchermoStatoECR, NienteSiPuoScrivere) {
  const GuidedScreen schermo(programma, kSchermo);
  int caselle = 0;
  for (QLineEdit* casella : schermo.window().findChildren<QLineEdit*>()) {
    const QString prima = casella->text();
    QTest::mouseClick(casella, Qt::LeftButton);
    QTest::keyClicks(casella, QStringLiteral("x"));
    EXPECT_EQ(casella->text(), prima) << casella->objectName().toStdString();
    ++caselle;
  }
  EXPECT_EQ(caselle, 13);
}

TEST_F(SchermoStatoECR, LeCaselleStannoInDueColonneDiUgualeMargine) {
  const GuidedScreen schermo(programma, kSchermo);
  QSet<int> sinistre;
  QSet<int> altezze;
  for (const QLineEdit* casella : schermo.window().findChildren<QLineEdit*>()) {
    sinistre.insert(casella->x());
    altezze.insert(casella->height());
  }
  EXPECT_EQ(sinistre.size(), 2);
  EXPECT_EQ(altezze.size(), 1);
}

TEST_F(SchermoStatoECR, StampanteCartaEMMCSiDistinguonoAColpoDOcchio) {
  const auto dopo = [&](const QByteArray& byte, const char* casella) {
    stato(byte);
    const GuidedScreen schermo(programma, kSchermo);
    QString visto = distintivo(schermo, casella);
    schermo.key(Qt::Key_Escape);
    return visto;
  };
  EXPECT_EQ(dopo(kInOrdine, "vkTextBox_Stato_Printer"), QStringLiteral("ready"));
  EXPECT_EQ(dopo(con(36, 'T'), "vkTextBox_Stato_Printer"), QStringLiteral("busy"));
  EXPECT_EQ(dopo(con(36, 'E'), "vkTextBox_Stato_Printer"), QStringLiteral("fault"));
  EXPECT_EQ(dopo(kInOrdine, "vkTextBox_Stato_Carta"), QStringLiteral("ready"));
  EXPECT_EQ(dopo(con(37, 'F'), "vkTextBox_Stato_Carta"), QStringLiteral("busy"));
  EXPECT_EQ(dopo(kInOrdine, "vkTextBox_Stato_MMC"), QStringLiteral("ready"));
  EXPECT_EQ(dopo(con(38, 'N'), "vkTextBox_Stato_MMC"), QStringLiteral("busy"));
  EXPECT_EQ(dopo(con(36, '\0'), "vkTextBox_Stato_Printer"), QStringLiteral("neutral"));
  EXPECT_EQ(dopo(kInOrdine, "vkTextBox_Matricola"), QString());
}

TEST_F(SchermoStatoECR, UnoScontrinoChiusoNonHaTipo) {
  stato(con(14, 'C'));
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBox_Stato_Scontrino")), QStringLiteral("CHIUSO"));
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBox_Tipo_Scontrino")), QStringLiteral("--------"));
}

TEST_F(SchermoStatoECR, F5NonCambiaNienteELaProssimaAperturaRilegge) {
  {
    const GuidedScreen schermo(programma, kSchermo);
    stato(con(36, 'E'));
    schermo.key(Qt::Key_F5);
    EXPECT_EQ(schermo.text(QStringLiteral("vkTextBox_Stato_Printer")), QStringLiteral("OK"));
    schermo.key(Qt::Key_Escape);
  }
  const GuidedScreen schermo(programma, kSchermo);
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBox_Stato_Printer")), QStringLiteral("ERRORE"));
}

TEST_F(SchermoStatoECR, EscEIlPulsanteChiudonoInvioNo) {
  const GuidedScreen coiTasti(programma, kSchermo);
  coiTasti.key(Qt::Key_Return);
  coiTasti.key(Qt::Key_Enter);
  EXPECT_TRUE(coiTasti.alive());
  coiTasti.key(Qt::Key_Escape);
  EXPECT_FALSE(coiTasti.alive());
  const GuidedScreen colMouse(programma, kSchermo);
  colMouse.click(QStringLiteral("Cmd_Esci"));
  EXPECT_FALSE(colMouse.alive());
  EXPECT_EQ(programma.screens.trova(kSchermo), nullptr);
}

TEST_F(SchermoStatoECR, StaNelloSchermoADodiciPunti) {
  stato(con(38, 'N'));
  const GuidedScreen schermo(programma, kSchermo);
  expectFitsAtTwelvePoints(schermo);
  for (const QLineEdit* casella : schermo.window().findChildren<QLineEdit*>())
    EXPECT_GE(casella->width(), casella->fontMetrics().horizontalAdvance(casella->text()))
        << casella->objectName().toStdString();
}
