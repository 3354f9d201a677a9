#include "controls/heading_font.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

#include "controls/style.h"

namespace {

QFont ofPoints(int points) {
  QFont letters = QApplication::font();
  letters.setPointSize(points);
  return letters;
}

/// A heading of a screen, under the program's style.
class Titolo : public testing::Test {
 protected:
  Titolo() {
    style::apply(*qApp, style::Theme::Light);
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(heading_);
    heading_->setProperty("heading", true);
  }
  ~Titolo() override {
    style::apply(*qApp, style::Theme::Light);
    qApp->setStyleSheet({});
  }

  QWidget window_;
  QLabel* heading_ = new QLabel(QStringLiteral("Archivio"));
};

TEST_F(Titolo, EUnaVoltaEMezzaLeLettereAttorno) {
  window_.setFont(ofPoints(10));
  window_.show();
  EXPECT_EQ(heading_->font().pointSizeF(), 15.0);
  EXPECT_EQ(heading_->font().weight(), QFont::DemiBold);
}

TEST_F(Titolo, CresceConLoro) {
  window_.setFont(ofPoints(10));
  window_.show();
  window_.setFont(ofPoints(12));
  EXPECT_EQ(heading_->font().pointSizeF(), 18.0);
}

TEST_F(Titolo, UnSecondoStileNonLoFaCrescereAncora) {
  window_.setFont(ofPoints(10));
  window_.show();
  style::apply(*qApp, style::Theme::Dark);
  EXPECT_EQ(heading_->font().pointSizeF(), 15.0);
}

}  // namespace
