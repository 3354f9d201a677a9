#include "ecrlink/ecr_panel.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "ecrlink/link_scene.h"
#include "sostegno/troubles.h"

namespace {

constexpr std::array kSolaLettura{"TextModello",   "vkTextBoxTipoMacchina", "TextBitmap",       "TextMMC",
                                  "vkTextBox_VSW", "vkTextBoxECR",          "vkTextBoxLocal_IP"};

struct Pannello : testing::Test {
  ProgramFixture scena;
  LinkScreen schermo{scena.contesto};
};

QString nomeDelFuoco(const LinkScreen& schermo) {
  return schermo.focusWidget() ? schermo.focusWidget()->objectName() : QString();
}

/// The panel in letters of the parameter's size, on a PC with some addresses.
class IndirizziDelPC : public testing::TestWithParam<int> {
 protected:
  QPlainTextEdit& apri(int quanti) {
    scena_.network.addresses.clear();
    for (int i = 1; i <= quanti; ++i) scena_.network.addresses << QStringLiteral("192.168.7.%1").arg(i);
    schermo_ = std::make_unique<LinkScreen>(scena_.contesto);
    return dynamic_cast<QPlainTextEdit&>(schermo_->control("vkTextBoxLocal_IP"));
  }
  int altezzaAccanto() { return schermo_->control("vkTextBoxIP_ECR").height(); }

 private:
  const InFont carattere_{GetParam()};
  ProgramFixture scena_;
  std::unique_ptr<LinkScreen> schermo_;
};

/// How far the last address is rolled out of its box: 0 where all of them are seen.
int fuoriVista(const QPlainTextEdit& casella) {
  return casella.verticalScrollBar()->maximum();
}

}  // namespace

TEST_P(IndirizziDelPC, UnoSoloStaInUnaCasellaAltaComeQuellaAccanto) {
  const QPlainTextEdit& casella = apri(1);
  EXPECT_EQ(casella.height(), altezzaAccanto());
  EXPECT_EQ(fuoriVista(casella), 0);
}

TEST_P(IndirizziDelPC, NessunoNonCambiaLaRiga) {
  const QPlainTextEdit& casella = apri(0);
  EXPECT_EQ(casella.height(), altezzaAccanto());
}

TEST_P(IndirizziDelPC, DueSiVedonoEntrambi) {
  const QPlainTextEdit& casella = apri(2);
  EXPECT_GT(casella.height(), altezzaAccanto());
  EXPECT_EQ(fuoriVista(casella), 0);
}

TEST_P(IndirizziDelPC, IlTerzoSiVedeScorrendo) {
  const int diDue = apri(2).height();
  const QPlainTextEdit& casella = apri(3);
  EXPECT_EQ(casella.height(), diDue);
  EXPECT_EQ(fuoriVista(casella), 1);
}

INSTANTIATE_TEST_SUITE_P(Caratteri, IndirizziDelPC, testing::Values(9, 11, 12, 18));

TEST_F(Pannello, InvioNellaCasellaDellIndirizzoConnetteUnaVoltaSola) {
  for (const auto tasto : {Qt::Key_Return, Qt::Key_Enter}) {
    ProgramFixture altra;
    LinkScreen questo(altra.contesto);
    TestTill cassa;
    questo.typeAddress(cassa.address());
    QTest::keyClick(&questo.control("vkTextBoxIP_ECR"), tasto);
    EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
    EXPECT_TRUE(questo.isVisible());
  }
}

TEST_F(Pannello, InvioNonFaScattareIlComandoPredefinitoDelloSchermo) {
  int uscite = 0;
  auto& esci = dynamic_cast<QPushButton&>(schermo.control("Cmd_Esci"));
  esci.setDefault(true);
  QObject::connect(&esci, &QPushButton::clicked, [&] { ++uscite; });
  TestTill cassa;
  schermo.typeAddress(cassa.address());
  QTest::keyClick(&schermo.control("vkTextBoxIP_ECR"), Qt::Key_Return);
  EXPECT_EQ(uscite, 0);
  EXPECT_EQ(callsOf(cassa).size(), 2);
}

TEST_F(Pannello, ConLaTastieraSiVaDallIndirizzoAConnettiEAiComandi) {
  schermo.control("vkTextBoxIP_ECR").setFocus();
  dynamic_cast<QPushButton&>(schermo.control("Cmd_Avvia")).setEnabled(true);
  QStringList giro{nomeDelFuoco(schermo)};
  for (int i = 0; i < 3; ++i) {
    QTest::keyClick(schermo.focusWidget(), Qt::Key_Tab);
    giro << nomeDelFuoco(schermo);
  }
  EXPECT_EQ(giro, (QStringList{QStringLiteral("vkTextBoxIP_ECR"), QStringLiteral("CmdInviaModECR"),
                               QStringLiteral("Cmd_Avvia"), QStringLiteral("Cmd_Esci")}));
}

TEST_F(Pannello, BarraSpazioSuConnettiConnette) {
  TestTill cassa;
  schermo.typeAddress(cassa.address());
  QTest::keyClick(schermo.focusWidget(), Qt::Key_Tab);
  QTest::keyClick(schermo.focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(schermo.enabled("Cmd_Avvia"));
}

TEST_F(Pannello, LeCaselleDellaCassaSiLeggonoESiCopianoSoltanto) {
  for (const char* nome : kSolaLettura) {
    QWidget& casella = schermo.control(nome);
    EXPECT_TRUE(casella.property("readOnly").toBool()) << nome;
    const QString prima = schermo.text(nome);
    QTest::keyClicks(&casella, QStringLiteral("xyz"));
    EXPECT_EQ(schermo.text(nome), prima) << nome;
  }
}

TEST_F(Pannello, OgniControlloHaUnNomePerChiNonVede) {
  for (const char* nome : kSolaLettura)
    EXPECT_FALSE(schermo.control(nome).accessibleName().isEmpty()) << nome;
  EXPECT_FALSE(schermo.control("vkTextBoxIP_ECR").accessibleName().isEmpty());
  EXPECT_FALSE(schermo.control("CmdInviaModECR").accessibleName().isEmpty());
}

TEST_F(Pannello, LeDidascalieSonoQuelleDeiControlli) {
  QStringList didascalie;
  for (const QLabel* etichetta : schermo.findChild<PannelloECR*>()->findChildren<QLabel*>())
    didascalie << etichetta->text() + QLatin1Char('>') + etichetta->buddy()->objectName();
  EXPECT_THAT(
      didascalie,
      testing::UnorderedElementsAre(
          QStringLiteral("IP ECR>vkTextBoxIP_ECR"), QStringLiteral("IP Locale>vkTextBoxLocal_IP"),
          QStringLiteral("Modello ECR>TextModello"), QStringLiteral("Tipo Macchina>vkTextBoxTipoMacchina"),
          QStringLiteral("Tipo Bitmap>TextBitmap"), QStringLiteral("Tipo MMC>TextMMC"),
          QStringLiteral("Versione ECR>vkTextBox_VSW"), QStringLiteral("STATO ECR>vkTextBoxECR")));
  EXPECT_EQ(schermo.text("CmdInviaModECR"), QStringLiteral("Connetti"));
}

TEST_F(Pannello, ConnettiSpentoDaUnaPortaSceltaNonDiceCheLaCassaECollegata) {
  commonForKora().IP_ECR.clear();
  schermo.view().abilitaConnetti(false);
  EXPECT_EQ(schermo.control("CmdInviaModECR").toolTip(),
            QStringLiteral("Si usa la porta scelta: per collegarsi in rete rimettere Seleziona"));
  schermo.view().abilitaConnetti(true);
  EXPECT_EQ(schermo.control("CmdInviaModECR").toolTip(),
            QStringLiteral("Si collega alla cassa di questo indirizzo (Invio nella casella)"));
}

TEST_F(Pannello, ConnettiEIlComandoPrincipaleELoStatoParteNeutro) {
  EXPECT_TRUE(schermo.control("CmdInviaModECR").property("primary").toBool());
  EXPECT_EQ(schermo.control("vkTextBoxECR").property("badge").toString(), QStringLiteral("neutral"));
}

TEST_F(Pannello, UnTestoPiuLargoDellaCasellaSiVedeDallInizio) {
  TestTill cassa(
      {.pattern = "KPR_80mm con un nome che nessuna casella contiene per intero, e ancora di piu"});
  schermo.typeAddress(cassa.address());
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(dynamic_cast<QLineEdit&>(schermo.control("TextModello")).cursorPosition(), 0);
}

TEST_F(Pannello, LoStatoPiuLungoStaNellaSuaCasella) {
  schermo.resize(schermo.minimumSizeHint());
  QWidget& stato = schermo.control("vkTextBoxECR");
  // Bold and padded, as the style sheet draws a badge.
  QFont grassetto = stato.font();
  grassetto.setBold(true);
  constexpr int kBordi = 24;
  EXPECT_GE(stato.width(),
            QFontMetrics(grassetto).horizontalAdvance(QStringLiteral("PROGRAMMAZIONE")) + kBordi);
}

TEST_F(Pannello, StaInUnoSchermoDi1024Per768AncheAlDoppioDellaScala) {
  EXPECT_LE(schermo.findChild<PannelloECR*>()->minimumSizeHint().width(), 1024);
  QFont doppio = schermo.font();
  doppio.setPointSizeF(doppio.pointSizeF() * 2);
  schermo.setFont(doppio);
  const QSize minima = schermo.findChild<PannelloECR*>()->minimumSizeHint();
  EXPECT_LE(minima.width(), 1000);
  EXPECT_LE(minima.height(), 384);
}
