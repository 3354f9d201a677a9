#include "customers/vat_number.h"

#include <gtest/gtest.h>

#include <array>

using customers::CheckPartitaIVA;

namespace {

/// VAT numbers that companies and public bodies of Italy publish on their own pages.
const std::array kVere{
    QStringLiteral("00905811006"), QStringLiteral("00488410010"), QStringLiteral("07643520567"),
    QStringLiteral("01114601006"), QStringLiteral("00743110157"), QStringLiteral("06363391001"),
    QStringLiteral("00811720580"), QStringLiteral("02438750586"), QStringLiteral("00159560366"),
    QStringLiteral("01654010345"), QStringLiteral("05403151003"), QStringLiteral("00348170101"),
};

}  // namespace

TEST(PartitaIVA, TutteQuelleVereSonoAccettate) {
  for (const QString& vera : kVere) EXPECT_EQ(CheckPartitaIVA(vera), 0) << vera.toStdString();
}

// Every single digit counts: the sum moves by another amount for each of its nine other values.
TEST(PartitaIVA, OgniCifraGuastataSiScopre) {
  int guaste = 0;
  for (const QString& vera : kVere) {
    for (int posto = 0; posto < 11; ++posto) {
      for (char16_t cifra = u'0'; cifra <= u'9'; ++cifra) {
        QString guasta = vera;
        if (guasta[posto] == QChar(cifra)) continue;
        guasta[posto] = QChar(cifra);
        EXPECT_EQ(CheckPartitaIVA(guasta), 1) << guasta.toStdString();
        ++guaste;
      }
    }
  }
  EXPECT_EQ(guaste, 12 * 11 * 9);
}

TEST(PartitaIVA, DieciCifreSiCompletanoConUnoZero) {
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("0905811006")), 0);
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("905811006")), 0);
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("0905811007")), 1);
}

TEST(PartitaIVA, TrediciCaratteriPerdonoIPrimiDue) {
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("IT00905811006")), 0);
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("9900905811006")), 0);
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("IT00905811007")), 1);
}

// Twelve characters lose two and are filled up again.
TEST(PartitaIVA, DodiciCaratteriPerdonoIPrimiDueESiCompletano) {
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("IT0905811006")), 0);
}

TEST(PartitaIVA, PiuDiTrediciCaratteriNonSonoUnNumero) {
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("IT009058110060")), 1);
  EXPECT_EQ(CheckPartitaIVA(QString(200, u'0')), 1);
}

TEST(PartitaIVA, QuellaAssenteEAccettata) {
  EXPECT_EQ(CheckPartitaIVA({}), 0);
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("0")), 0);
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("00000000000")), 0);
}

TEST(PartitaIVA, LUfficioOltreCentoventunoERifiutato) {
  // 0000001 121 C: 1 + 2 at the odd places, 1 and 1 doubled at the even ones; 3 + 4 = 7, so 3.
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("00000011213")), 0);
  for (char16_t cifra = u'0'; cifra <= u'9'; ++cifra)
    EXPECT_EQ(CheckPartitaIVA(QStringLiteral("0000001122") + QChar(cifra)), 1);
}

TEST(PartitaIVA, IlNumeroDiUnaNazioneOttocentonovantaERifiutatoQualunqueSiaIlControllo) {
  for (char16_t cifra = u'0'; cifra <= u'9'; ++cifra)
    EXPECT_EQ(CheckPartitaIVA(QStringLiteral("0000001890") + QChar(cifra)), 1);
}

// A letter counts as 0: with a 0 in its place the number was good.
TEST(PartitaIVA, UnCarattereCheNonECifraValeZero) {
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("A0905811006")), 0);
  EXPECT_EQ(CheckPartitaIVA(QStringLiteral("0090581100A")), 1);
}
