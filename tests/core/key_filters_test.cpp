#include "core/key_filters.h"

#include <gtest/gtest.h>

TEST(RegoleDeiTasti, DiconoPercheUnTastoNonEntra) {
  EXPECT_EQ(Cifre.why({}, u'a'), QStringLiteral("Solo cifre"));
  EXPECT_EQ(kRegolaSiNo.why({}, u'1'), QStringLiteral("Solo S o N"));
  EXPECT_EQ(kRegolaImporto.why({}, u'a'), QStringLiteral("Solo cifre e virgola"));
  EXPECT_EQ(kRegolaImporto.why(QStringLiteral("12"), u'.'),
            QStringLiteral("Per i decimali si scrive la virgola"));
}

TEST(RegoleDeiTasti, ConDueDecimaliDiconoComeAndareAvanti) {
  const QString previsto =
      QStringLiteral("I due decimali ci sono già: cancellare con Backspace, poi scrivere");
  for (const QChar tasto : {QChar(u'9'), QChar(u'.'), kCutKey})
    EXPECT_EQ(kRegolaImporto.why(QStringLiteral("12,50"), tasto), previsto);
}

TEST(RegoleDeiTasti, PrendonoCioCheIFiltriPrendono) {
  EXPECT_TRUE(Cifre.takes({}, u'7'));
  EXPECT_FALSE(Cifre.takes({}, u','));
  EXPECT_TRUE(kRegolaImporto.takes({}, u','));
  EXPECT_FALSE(kRegolaImporto.takes({}, u'.'));
  EXPECT_TRUE(kRegolaSiNo.takes({}, u's'));
  EXPECT_FALSE(kRegolaSiNo.takes({}, u'x'));
}
