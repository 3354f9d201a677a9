#include "controls/outcome_bar.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "sostegno/fixed_clock.h"

namespace {

using Kind = OutcomeBar::Kind;

QToolButton& azione(const OutcomeBar& barra) {
  return *barra.findChild<QToolButton*>(QStringLiteral("AzioneEsito"));
}

QString ora(const OutcomeBar& barra) {
  for (const QLabel* scritta : barra.findChildren<QLabel*>())
    if (scritta->property("note").toBool()) return scritta->text();
  return QStringLiteral("<none>");
}

}  // namespace

TEST(BarraEsito, DiceTestoGenereENomeAccessibile) {
  OutcomeBar barra;
  barra.tell(Kind::Failed, QStringLiteral("Non salvato"));
  EXPECT_EQ(barra.text(), QStringLiteral("Non salvato"));
  EXPECT_EQ(barra.kind(), Kind::Failed);
  EXPECT_EQ(barra.accessibleName(), QStringLiteral("Non salvato"));
  barra.clear();
  EXPECT_EQ(barra.text(), QString());
  EXPECT_EQ(barra.kind(), Kind::Plain);
}

TEST(BarraEsito, IlPulsanteCEConLAzioneENonPiuConLEsitoDopo) {
  OutcomeBar barra;
  barra.show();
  EXPECT_FALSE(azione(barra).isVisible());
  int aperti = 0;
  barra.tell(Kind::Done, QStringLiteral("Importati"), {QStringLiteral("Apri il report"), [&] { ++aperti; }});
  EXPECT_EQ(azione(barra).text(), QStringLiteral("Apri il report"));
  QTest::mouseClick(&azione(barra), Qt::LeftButton);
  EXPECT_EQ(aperti, 1);
  barra.tell(Kind::Plain, QStringLiteral("28 articoli"));
  EXPECT_FALSE(azione(barra).isVisible());
}

TEST(BarraEsito, UnAzionePuoDireUnAltroEsito) {
  OutcomeBar barra;
  barra.show();
  barra.tell(Kind::Done, QStringLiteral("Importati"),
             {QStringLiteral("Apri"), [&] { barra.tell(Kind::Failed, QStringLiteral("Non si apre")); }});
  QTest::mouseClick(&azione(barra), Qt::LeftButton);
  EXPECT_EQ(barra.text(), QStringLiteral("Non si apre"));
  EXPECT_FALSE(azione(barra).isVisible());
}

TEST(BarraEsito, LOraStaAccantoACioCheSiDiceESenzaTestoNonCE) {
  OutcomeBar barra;
  barra.tell(Kind::Done, QStringLiteral("Salvato"));
  EXPECT_EQ(ora(barra), QString());
  FixedClock orologio;
  barra.keepTime(orologio);
  barra.tell(Kind::Done, QStringLiteral("Salvato"));
  EXPECT_EQ(ora(barra), QStringLiteral("09:05"));
  barra.clear();
  EXPECT_EQ(ora(barra), QString());
}

TEST(BarraEsito, UnNomeSenzaFineNonLaAllargaEStaInteroNelSuggerimento) {
  OutcomeBar barra;
  barra.tell(OutcomeBar::Kind::Done, QStringLiteral("Archivio creato"));
  const int corta = barra.minimumSizeHint().width();
  const QString lungo = QStringLiteral("Archivio creato: ") + QString(200, QLatin1Char('n'));
  barra.tell(OutcomeBar::Kind::Done, lungo);
  EXPECT_LT(barra.minimumSizeHint().width(), 400);
  EXPECT_EQ(barra.text(), lungo);
  EXPECT_EQ(barra.accessibleName(), lungo);
  barra.tell(OutcomeBar::Kind::Done, QStringLiteral("Archivio creato"));
  EXPECT_EQ(barra.minimumSizeHint().width(), corta);
}

namespace {

/// The label that bears the bar's text.
QLabel* scritto(const OutcomeBar& barra) {
  for (QLabel* scritta : barra.findChildren<QLabel*>())
    if (scritta->text() == barra.text()) return scritta;
  return nullptr;
}

/// The pointer comes to a place of the screen from another.
void moveTo(QWidget& window, QWidget& target) {
  QTest::mouseMove(&window, QPoint(1, 1));
  QTest::mouseMove(&target);
}

}  // namespace

TEST(BarraEsito, IlTestoSiScegliePassandoCiSopraENonCambiaPosto) {
  QWidget finestra;
  finestra.resize(600, 200);
  auto* barra = new OutcomeBar(&finestra);
  barra->setGeometry(0, 100, 600, 60);
  finestra.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&finestra));
  barra->tell(Kind::Done, QStringLiteral("Salvati 28 articoli"));
  QLabel* const testo = scritto(*barra);
  ASSERT_NE(testo, nullptr);
  const QSize prima = barra->sizeHint();
  const QSize minima = barra->minimumSizeHint();

  EXPECT_FALSE(testo->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
  moveTo(finestra, *testo);
  EXPECT_TRUE(testo->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
  EXPECT_EQ(barra->sizeHint(), prima);
  EXPECT_EQ(barra->minimumSizeHint(), minima);
  const QPoint sullaPrimaParola(10, testo->height() / 2);
  QTest::mouseDClick(testo, Qt::LeftButton, Qt::NoModifier, sullaPrimaParola);
  EXPECT_EQ(testo->selectedText(), QStringLiteral("Salvati"));
  QTest::mouseMove(&finestra, QPoint(300, 20));
  EXPECT_EQ(testo->selectedText(), QStringLiteral("Salvati")) << "what is chosen stays when the pointer goes";

  barra->tell(Kind::Done, QStringLiteral("Salvati 29 articoli"));
  EXPECT_EQ(testo->selectedText(), QString());
  moveTo(finestra, *testo);
  QTest::mouseDClick(testo, Qt::LeftButton, Qt::NoModifier, sullaPrimaParola);
  EXPECT_EQ(testo->selectedText(), QStringLiteral("Salvati"));
  EXPECT_EQ(testo->focusPolicy(), Qt::ClickFocus);
}

TEST(BarraEsito, UnTestoSuDueRigheNonSpostaNullaQuandoSiPuoScegliere) {
  QWidget finestra;
  auto* colonna = new QVBoxLayout(&finestra);
  auto* barra = new OutcomeBar;
  colonna->addWidget(new QLabel(QStringLiteral("Elenco")), 1);
  colonna->addWidget(barra);
  finestra.resize(400, 300);
  finestra.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&finestra));
  barra->tell(Kind::Done, QStringLiteral("Salvati gli articoli ").repeated(6));
  QCoreApplication::processEvents();
  QLabel* const testo = scritto(*barra);
  ASSERT_NE(testo, nullptr);
  const QRect posto = barra->geometry();
  const QRect delTesto = testo->geometry();
  ASSERT_GE(delTesto.height(), 2 * testo->fontMetrics().height()) << "more than one line";
  const QPointF punto = testo->rect().center();
  QEnterEvent entra(punto, testo->mapTo(&finestra, punto), testo->mapToGlobal(punto));
  QCoreApplication::sendEvent(testo, &entra);
  QCoreApplication::processEvents();
  EXPECT_TRUE(testo->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
  EXPECT_EQ(barra->geometry(), posto);
  EXPECT_EQ(testo->geometry(), delTesto);
}

TEST(BarraEsito, VuotaNonPrendeIlFuoco) {
  OutcomeBar barra;
  const auto prendonoIlFuoco = [&] {
    int quanti = 0;
    for (const QLabel* scritta : barra.findChildren<QLabel*>())
      if (scritta->focusPolicy() != Qt::NoFocus) ++quanti;
    return quanti;
  };
  EXPECT_EQ(prendonoIlFuoco(), 0);
  barra.tell(Kind::Plain, QStringLiteral("28 articoli"));
  EXPECT_EQ(prendonoIlFuoco(), 1) << "a text can be marked and copied";
  barra.clear();
  EXPECT_EQ(prendonoIlFuoco(), 0);
}
