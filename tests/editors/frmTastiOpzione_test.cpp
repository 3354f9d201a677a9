#include "editors/frmTastiOpzione.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <array>

#include "controls/FlexGrid.h"
#include "core/state.h"
#include "editors/keyboard_caller.h"
#include "editors/utf8_text.h"
#include "platform/error.h"
#include "sostegno/guided_screen.h"

namespace {

const QString kSchermo = QStringLiteral("frmTastiOpzione");
const QString kEsci = QStringLiteral("cmdEsci");
const QString kScelto = QStringLiteral("txtTastoOpzione");
constexpr int kTasti = 72;

constexpr const char* kFunzioni[] = {"REP 1",
                                     "REP 2",
                                     "REP 3",
                                     "REP 4",
                                     "REP 5",
                                     "REP 6",
                                     "REP 7",
                                     "REP 8",
                                     "REP 9",
                                     "REP 10",
                                     "REP 11",
                                     "REP 12",
                                     "REP 13",
                                     "REP 14",
                                     "REP 15",
                                     "REP 16",
                                     "REP 17",
                                     "REP 18",
                                     "REP 19",
                                     "REP 20",
                                     "Prezzo",
                                     "CREDITO ESCI",
                                     "PAG DIVERSI",
                                     "ASSEGNI",
                                     "BUONI",
                                     "TICKET",
                                     "SUB TENDER 2",
                                     "SUB TENDER 3",
                                     "SUB TENDER 4",
                                     "OPERAT",
                                     "DATA ORA",
                                     "MOVIMENTI CONTABILI",
                                     "MAGGIORAZ",
                                     "TOTAL VOID",
                                     "ANNULLA",
                                     "STORNO",
                                     "AVANZ CARTA",
                                     "P.IVA COD FIS",
                                     "CASSETTO",
                                     "SHIFT",
                                     "FUNZIONE",
                                     "SCONTO",
                                     "VALUTA",
                                     "NULLO",
                                     "FATTURA",
                                     "RICEVUTA FISCALE",
                                     "SCONTRINO MENSILE",
                                     "FATTURA MENSILE",
                                     "RISTAMPA FATTURA"};

QString tasto(int indice) {
  return QStringLiteral("cmdTastoOpzione_%1").arg(indice);
}

/// A keyboard layout of the test's own.
struct TastieraDiProva : ChiamanteTasti {
  QString nome() const override { return nomeSchermata; }
  QLineEdit& Text1() override { return campo; }
  QAbstractButton& cmdTasto(int quale) override { return tasti.at(static_cast<std::size_t>(quale)); }
  FlexGrid& MSFlexGrid() override { return griglia; }
  /// The keys that bear a mark.
  QList<int> segnati() const {
    QList<int> quali;
    for (int quale = 0; quale < kTasti; ++quale)
      if (tasti[static_cast<std::size_t>(quale)].styleSheet().contains(t("background"))) quali << quale;
    return quali;
  }

  QString nomeSchermata = t("Form_Prova");
  QLineEdit campo{t("prima")};
  std::array<QPushButton, kTasti> tasti;
  FlexGrid griglia;
};

class SceltaTasti : public testing::Test {
 protected:
  SceltaTasti() { bottega.screens.registra<frmTastiOpzione>(); }
  /// Chooses for a key of the keyboard; `cheFa` has to leave the screen.
  void scegli(int quale, const std::function<void(const GuidedScreen&)>& cheFa) {
    withModal([&] { editors::ScegliTasto(tastiera, quale, bottega.contesto); },
              [&](QWidget& scelta) {
                EXPECT_EQ(scelta.objectName(), kSchermo);
                EXPECT_TRUE(QTest::qWaitForWindowActive(&scelta));
                cheFa(GuidedScreen(scelta));
              });
    EXPECT_EQ(bottega.screens.trova(kSchermo), nullptr);
  }

  ProgramFixture bottega;
  TastieraDiProva tastiera;
};

void fuoriDaiLimiti(const std::function<void()>& chiamata) {
  try {
    chiamata();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 9);
  }
}

constexpr QRect kDisplay(0, 0, 1024, 740);
constexpr QSize kFinestra(600, 400);

}  // namespace

TEST_F(SceltaTasti, QuarantanoveFunzioniNellOrdine) {
  ASSERT_EQ(std::size(kFunzioni), 49U);
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), t("Scelta Tasti "));
  for (int indice = 0; indice < 49; ++indice)
    EXPECT_EQ(schermo.text(tasto(indice)), t(kFunzioni[indice])) << indice;
  EXPECT_EQ(schermo.window().findChild<QWidget*>(tasto(49)), nullptr);
  EXPECT_EQ(schermo.text(kEsci), t("Esci"));
  EXPECT_TRUE(schermo.control<QLineEdit>(kScelto).isReadOnly());
}

TEST_F(SceltaTasti, LIndiceArrivaA59) {
  EXPECT_EQ(editors::FunzioneTasto(0), t("REP 1"));
  EXPECT_EQ(editors::FunzioneTasto(48), t("RISTAMPA FATTURA"));
  EXPECT_EQ(editors::FunzioneTasto(49), QString());
  EXPECT_EQ(editors::FunzioneTasto(59), QString());
  fuoriDaiLimiti([] { editors::FunzioneTasto(60); });
  fuoriDaiLimiti([] { editors::FunzioneTasto(-1); });
}

TEST_F(SceltaTasti, OgniFunzioneVaNelCampoDiChiHaChiamato) {
  scegli(0, [&](const GuidedScreen& scelta) {
    for (int indice = 0; indice < 49; ++indice) {
      scelta.click(tasto(indice));
      EXPECT_EQ(scelta.text(kScelto), t(kFunzioni[indice]));
      EXPECT_EQ(tastiera.campo.text(), t(kFunzioni[indice]));
    }
    scelta.click(kEsci);
  });
}

TEST_F(SceltaTasti, IlTastoESegnatoFinoAllaScelta) {
  scegli(41, [&](const GuidedScreen& scelta) {
    EXPECT_EQ(tastiera.segnati(), QList<int>({41}));
    EXPECT_EQ(scelta.text(t("LabelTasto")), t("Funzione del tasto 41"));
    EXPECT_EQ(scelta.text(kScelto), QString());
    EXPECT_EQ(tastiera.campo.text(), t("prima"));
    scelta.click(tasto(20));
    EXPECT_EQ(tastiera.segnati(), QList<int>({41})) << "until the screen is left";
    scelta.click(kEsci);
  });
  EXPECT_EQ(tastiera.segnati(), QList<int>());
  EXPECT_EQ(tastiera.campo.text(), t("Prezzo"));
}

TEST_F(SceltaTasti, SenzaUnaSceltaSiEsceEIlTastoRestaSegnato) {
  scegli(5, [](const GuidedScreen& scelta) { scelta.click(kEsci); });
  EXPECT_EQ(tastiera.segnati(), QList<int>({5}));
  EXPECT_EQ(tastiera.campo.text(), t("prima"));
}

TEST_F(SceltaTasti, UnTastoRimastoSegnatoRiprendeIlSuoColore) {
  const QString suo = t("QPushButton { color: red; }");
  tastiera.tasti[7].setStyleSheet(suo);
  scegli(7, [](const GuidedScreen& scelta) { scelta.click(kEsci); });
  EXPECT_NE(tastiera.tasti[7].styleSheet(), suo);
  scegli(7, [](const GuidedScreen& scelta) {
    scelta.click(tasto(0));
    scelta.click(kEsci);
  });
  EXPECT_EQ(tastiera.tasti[7].styleSheet(), suo);
}

TEST_F(SceltaTasti, IlSegnoSiVede) {
  QPushButton& segnato = tastiera.tasti[3];
  segnato.resize(80, 40);
  const QColor prima = segnato.grab().toImage().pixelColor(40, 4);
  scegli(3, [&](const GuidedScreen& scelta) {
    EXPECT_NE(segnato.grab().toImage().pixelColor(40, 4), prima);
    scelta.click(tasto(0));
    scelta.click(kEsci);
  });
  EXPECT_EQ(segnato.grab().toImage().pixelColor(40, 4), prima);
}

TEST_F(SceltaTasti, EscELaCorniceEsconoComeIlPulsante) {
  scegli(1, [](const GuidedScreen& scelta) {
    scelta.click(tasto(34));
    scelta.key(Qt::Key_Escape);
  });
  EXPECT_EQ(tastiera.segnati(), QList<int>());
  EXPECT_EQ(tastiera.campo.text(), t("ANNULLA"));
  scegli(2, [](const GuidedScreen& scelta) {
    scelta.click(tasto(35));
    scelta.window().close();
  });
  EXPECT_EQ(tastiera.segnati(), QList<int>());
  EXPECT_EQ(tastiera.campo.text(), t("STORNO"));
}

TEST_F(SceltaTasti, SiSceglieConITasti) {
  scegli(0, [&](const GuidedScreen& scelta) {
    EXPECT_EQ(scelta.focus(), tasto(0));
    scelta.key(Qt::Key_Return);
    EXPECT_EQ(tastiera.campo.text(), t("REP 1"));
    scelta.key(Qt::Key_Tab);
    scelta.key(Qt::Key_Space);
    EXPECT_EQ(tastiera.campo.text(), t("REP 2"));
    scelta.key(Qt::Key_Right);
    EXPECT_EQ(scelta.focus(), tasto(11)) << "the neighbour on the right";
    scelta.key(Qt::Key_Up);
    scelta.key(Qt::Key_Enter);
    EXPECT_EQ(tastiera.campo.text(), t("REP 11"));
    scelta.key(Qt::Key_Escape);
  });
}

TEST_F(SceltaTasti, InvioFuoriDalleFunzioniNonFaNulla) {
  scegli(0, [&](const GuidedScreen& scelta) {
    for (const QString& dove : {kScelto, kEsci}) {
      scelta.control(dove).setFocus();
      scelta.key(Qt::Key_Return);
      EXPECT_TRUE(scelta.alive());
      EXPECT_EQ(tastiera.campo.text(), t("prima"));
    }
    scelta.key(Qt::Key_Space);
  });
}

TEST_F(SceltaTasti, ITastiVannoDa0A71) {
  fuoriDaiLimiti([&] { editors::ScegliTasto(tastiera, 72, bottega.contesto); });
  fuoriDaiLimiti([&] { editors::ScegliTasto(tastiera, -1, bottega.contesto); });
  EXPECT_EQ(tastiera.segnati(), QList<int>());
  EXPECT_EQ(bottega.screens.trova(kSchermo), nullptr);
}

TEST_F(SceltaTasti, SenzaChiamanteMostraSoltantoCheCosaSiScelse) {
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(tasto(8));
  EXPECT_EQ(schermo.text(kScelto), t("REP 9"));
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(SceltaTasti, StaSottoLeTastiereInFondoAllAreaDiLavoro) {
  const QRect area(100, 50, 800, 600);
  for (const char* chiamante : {"Form_30TastiStampante", "Form_42Tasti", "Form_30Tasti"})
    EXPECT_EQ(editors::postoDellaScelta(t(chiamante), kFinestra, area, kDisplay), QPoint(200, 250))
        << chiamante;
  EXPECT_EQ(editors::postoDellaScelta(t("Form_Prova"), kFinestra, area, kDisplay), QPoint(200, 150));
  EXPECT_EQ(editors::postoDellaScelta(t("form_42tasti"), kFinestra, area, kDisplay), QPoint(200, 150));
}

TEST_F(SceltaTasti, RestaSulDisplay) {
  EXPECT_EQ(editors::postoDellaScelta(t("Form_42Tasti"), kFinestra, QRect(600, 300, 800, 600), kDisplay),
            QPoint(424, 340));
  EXPECT_EQ(editors::postoDellaScelta(t("Form_42Tasti"), kFinestra, QRect(-500, -500, 400, 300), kDisplay),
            QPoint(0, 0));
  EXPECT_EQ(editors::postoDellaScelta(t("Form_Prova"), QSize(2000, 1000), QRect(0, 0, 800, 600), kDisplay),
            QPoint(0, 0));
}

TEST_F(SceltaTasti, SiPosaSecondoLAreaDiLavoroChiusaInFondo) {
  bottega.screens.registra(t("MDIForm_PRG"), [](Contesto&) { return new QWidget; });
  QWidget& area = bottega.screens.mostra(t("MDIForm_PRG"), bottega.contesto);
  area.setGeometry(0, 0, 780, 790);
  tastiera.nomeSchermata = t("Form_42Tasti");
  scegli(0, [&](const GuidedScreen& scelta) {
    // Give or take what the platform of the tests puts around a window.
    EXPECT_NEAR(scelta.window().frameGeometry().bottom(), area.frameGeometry().bottom(), 4);
    EXPECT_GT(scelta.window().frameGeometry().top(), area.frameGeometry().top() + 100);
    scelta.key(Qt::Key_Escape);
  });
}

TEST_F(SceltaTasti, ADodiciPuntiNessunaScrittaETagliata) {
  const GuidedScreen schermo(bottega, kSchermo);
  expectFitsAtTwelvePoints(schermo);
  EXPECT_LE(schermo.window().minimumSizeHint().height(), 768 - 36) << "the frame of the window aside";
  for (const QPushButton* uno : schermo.window().findChildren<QPushButton*>())
    EXPECT_GE(uno->width(), uno->sizeHint().width()) << uno->text().toStdString();
}
