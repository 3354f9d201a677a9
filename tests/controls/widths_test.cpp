#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "controls/foldable_row.h"
#include "controls/sample_width.h"
#include "controls/style.h"
#include "controls/wheel_guard.h"

namespace {

QFont diPunti(int punti) {
  QFont carattere = QApplication::font();
  carattere.setPointSize(punti);
  return carattere;
}

class LarghezzaDelCampo : public testing::TestWithParam<int> {
 protected:
  LarghezzaDelCampo() { style::apply(*qApp, style::Theme::Light); }
  ~LarghezzaDelCampo() override { qApp->setStyleSheet({}); }
};
INSTANTIATE_TEST_SUITE_P(Punti, LarghezzaDelCampo, testing::Values(9, 11, 12, 20));

TEST_P(LarghezzaDelCampo, IlCampioneSiVedeInteroEPocoDiPiu) {
  QWidget finestra;
  auto* disposizione = new QHBoxLayout(&finestra);
  auto* campo = new QLineEdit;
  disposizione->addWidget(campo);
  finestra.setFont(diPunti(GetParam()));
  const QString campione = QStringLiteral("99999,99");
  widthFromSample(*campo, campione, FieldWidth::Exact);
  finestra.resize(800, 100);
  finestra.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&finestra));
  QApplication::processEvents();
  const int testo = campo->fontMetrics().horizontalAdvance(campione);
  // Frame, padding and the margin for the cursor.
  EXPECT_GE(campo->width(), testo + 2 * (1 + 7 + 2));
  EXPECT_LE(campo->width(), testo + 2 * (1 + 7 + 2) + 6);
}

TEST(LarghezzaDiUnCampo, AlmenoIlCampioneLasciaCrescere) {
  QWidget finestra;
  auto* disposizione = new QHBoxLayout(&finestra);
  auto* campo = new QLineEdit;
  disposizione->addWidget(campo);
  widthFromSample(*campo, QStringLiteral("LATTE UHT"), FieldWidth::AtLeast);
  finestra.resize(800, 100);
  finestra.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&finestra));
  EXPECT_GT(campo->width(), 700);
  EXPECT_GE(campo->minimumWidth(), campo->fontMetrics().horizontalAdvance(QStringLiteral("LATTE UHT")));
}

/// A text and two commands, as at the foot of a screen.
class RigaCheSiPiega : public testing::Test {
 protected:
  RigaCheSiPiega() {
    auto* riga = new QHBoxLayout(piede_);
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(16);
    riga->addWidget(testo_, 1);
    auto* comandi = new QHBoxLayout;
    comandi->addStretch();
    comandi->addWidget(uno_);
    comandi->addWidget(due_);
    riga->addLayout(comandi);
    piede_->setProperty("characters", 30);
    auto* finestra = new QVBoxLayout(&finestra_);
    finestra->addStretch();
    finestra->addWidget(piede_);
  }
  void larga(int pixel) {
    finestra_.resize(pixel, 300);
    QApplication::processEvents();
    QApplication::processEvents();
  }

  QWidget finestra_;
  FoldableRow* piede_ = new FoldableRow;
  QLabel* testo_ = new QLabel(QStringLiteral("28 articoli"));
  QPushButton* uno_ = new QPushButton(QStringLiteral("Visualizza Tutti"));
  QPushButton* due_ = new QPushButton(QStringLiteral("Export Articoli"));
};

TEST_F(RigaCheSiPiega, DoveCEPostoStannoDiFiancoEDoveNonCEUnaSopraLAltra) {
  finestra_.show();
  larga(900);
  EXPECT_FALSE(piede_->isFolded());
  EXPECT_LT(testo_->geometry().right(), uno_->x());
  larga(uno_->width() + due_->width() + 100);
  EXPECT_TRUE(piede_->isFolded());
  EXPECT_LE(testo_->geometry().bottom(), uno_->y());
  EXPECT_GE(uno_->width(), uno_->sizeHint().width());
  EXPECT_TRUE(finestra_.rect().contains(due_->mapTo(&finestra_, due_->rect().bottomRight())));
  larga(900);
  EXPECT_FALSE(piede_->isFolded());
}

TEST_F(RigaCheSiPiega, LaFinestraSiStringeFinoAllaParteLargaSola) {
  finestra_.show();
  larga(900);
  EXPECT_LT(piede_->minimumSizeHint().width(),
            uno_->sizeHint().width() + due_->sizeHint().width() + 16 + testo_->sizeHint().width());
  EXPECT_GE(piede_->minimumSizeHint().width(), uno_->sizeHint().width() + due_->sizeHint().width());
}

TEST_F(RigaCheSiPiega, UnCarattereGrandePiega) {
  finestra_.show();
  larga(700);
  EXPECT_FALSE(piede_->isFolded());
  finestra_.setFont(diPunti(24));
  larga(700);
  EXPECT_TRUE(piede_->isFolded());
}

/// A list in a window that scrolls past it.
class Rotella : public testing::Test {
 protected:
  Rotella() {
    lista_->addItems({QStringLiteral("01"), QStringLiteral("02"), QStringLiteral("03")});
    lista_->setCurrentIndex(1);
    auto* disposizione = new QVBoxLayout(&finestra_);
    disposizione->addWidget(lista_);
    disposizione->addWidget(altro_);
    wheelNeedsFocus(*lista_);
  }
  /// Whether the list took it.
  bool gira(int passi) {
    const QPointF dove = lista_->rect().center();
    QWheelEvent evento(dove, lista_->mapToGlobal(dove), {}, {0, passi * 120}, Qt::NoButton, {},
                       Qt::NoScrollPhase, false);
    evento.ignore();
    QApplication::sendEvent(lista_, &evento);
    return evento.isAccepted();
  }

  QWidget finestra_;
  QComboBox* lista_ = new QComboBox;
  QLineEdit* altro_ = new QLineEdit;
};

TEST_F(Rotella, SenzaFuocoNonCambiaLaListaENonGlieloDa) {
  finestra_.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&finestra_));
  altro_->setFocus();
  EXPECT_FALSE(gira(-1));
  EXPECT_EQ(lista_->currentIndex(), 1);
  EXPECT_TRUE(altro_->hasFocus());
  EXPECT_EQ(lista_->focusPolicy(), Qt::StrongFocus);
}

TEST_F(Rotella, ColFuocoLaCambia) {
  finestra_.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&finestra_));
  lista_->setFocus();
  EXPECT_TRUE(gira(-1));
  EXPECT_EQ(lista_->currentIndex(), 2);
}

}  // namespace
