#include "controls/clear_button.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <QToolButton>

TEST(CroceDelCampo, SvuotaEHaUnNome) {
  QLineEdit campo;
  addClearButton(campo);
  campo.setText(QStringLiteral("8001"));
  campo.resize(200, 30);
  campo.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&campo));
  auto* croce = campo.findChild<QToolButton*>();
  ASSERT_NE(croce, nullptr);
  EXPECT_EQ(croce->accessibleName(), QStringLiteral("Svuota il campo"));
  QTest::mouseClick(croce, Qt::LeftButton);
  EXPECT_EQ(campo.text(), QString());
}

TEST(CroceDelCampo, GliAltriPulsantiDelCampoTengonoIlLoroNome) {
  QLineEdit campo;
  campo.addAction(QIcon(), QLineEdit::LeadingPosition);
  auto* segno = campo.findChild<QToolButton*>();
  segno->setAccessibleName(QStringLiteral("Guasto"));
  addClearButton(campo);
  EXPECT_EQ(segno->accessibleName(), QStringLiteral("Guasto"));
  EXPECT_EQ(campo.findChildren<QToolButton*>().size(), 2);
}
