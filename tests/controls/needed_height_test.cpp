#include "controls/needed_height.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A text of several lines over a button.
class AltezzaCheServe : public testing::Test {
 protected:
  AltezzaCheServe() {
    auto* column = new QVBoxLayout(&window_);
    text_->setWordWrap(true);
    column->addWidget(text_);
    column->addWidget(button_);
    keepNeededHeight(window_);
    window_.resize(600, 300);
    window_.show();
  }
  void narrow(int width) {
    window_.resize(width, 1);
    QCoreApplication::processEvents();
  }
  int needed() const { return text_->heightForWidth(text_->width()); }

  QWidget window_;
  QLabel* text_ =
      new QLabel(QStringLiteral("Le vendite della cassa vanno perse: non entrano nell'archivio."));
  QPushButton* button_ = new QPushButton(QStringLiteral("Avvia"));
};

TEST_F(AltezzaCheServe, StrettaLaFinestraTestoEPulsanteRestanoInteri) {
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  narrow(160);
  EXPECT_GT(needed(), 2 * text_->fontMetrics().height()) << "the text goes over several lines";
  EXPECT_GE(text_->height(), needed());
  EXPECT_GE(button_->height(), button_->sizeHint().height());
}

TEST_F(AltezzaCheServe, LargaDiNuovoSiPuoAbbassare) {
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  narrow(160);
  const int narrowHeight = window_.height();
  window_.resize(600, narrowHeight);
  QCoreApplication::processEvents();
  narrow(600);
  EXPECT_LT(window_.height(), narrowHeight);
}

TEST_F(AltezzaCheServe, UnTestoPiuLungoAlzaLaFinestra) {
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  narrow(160);
  text_->setText(text_->text() + u' ' + text_->text());
  QCoreApplication::processEvents();
  EXPECT_GE(text_->height(), needed());
}

}  // namespace
