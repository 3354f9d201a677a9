#include "ecrlink/ecr_info.h"

#include <gtest/gtest.h>

#include "core/state.h"

using ecrlink::ParseInfoECR;

namespace {

QStringList campi() {
  QStringList tutti;
  for (const QString& campo : commonForKora().ECR_INFO.campo) tutti << campo;
  return tutti;
}

QString voci(int quante) {
  QStringList tutte;
  for (int i = 1; i <= quante; ++i) tutte << QStringLiteral("K%1=v%1").arg(i);
  return tutte.join(QLatin1Char(','));
}

QStringList previsti(int quanti) {
  QStringList tutti;
  for (int i = 1; i <= 19; ++i) tutti << (i <= quanti ? QStringLiteral("v%1").arg(i) : QString());
  return tutti;
}

class InfoECR : public testing::Test {
 protected:
  void SetUp() override {
    azzeraStato();
    for (QString& campo : commonForKora().ECR_INFO.campo) campo = QStringLiteral("vecchio");
  }
};

}  // namespace

TEST_F(InfoECR, DiciannoveVociVannoPerPosizione) {
  EXPECT_EQ(ParseInfoECR(voci(19)), 0);
  EXPECT_EQ(campi(), previsti(19));
  const EcrInfo& info = commonForKora().ECR_INFO;
  EXPECT_EQ(info.InfoVersioneSW, QStringLiteral("v1"));
  EXPECT_EQ(info.InfoTipoBitmap, QStringLiteral("v2"));
  EXPECT_EQ(info.InfoTipoMMC, QStringLiteral("v3"));
  EXPECT_EQ(info.InfoStato, QStringLiteral("v11"));
  EXPECT_EQ(info.InfoTipoMacchina, QStringLiteral("v12"));
  EXPECT_EQ(info.InfoDatiFiscali, QStringLiteral("v17"));
  EXPECT_EQ((QStringList{info.InfoCampo4, info.InfoCampo5, info.InfoCampo6, info.InfoCampo7, info.InfoCampo8,
                         info.InfoCampo9, info.InfoCampo10}),
            previsti(19).mid(3, 7));
  EXPECT_EQ((QStringList{info.InfoCampo13, info.InfoCampo14, info.InfoCampo15, info.InfoCampo16}),
            previsti(19).mid(12, 4));
  EXPECT_EQ((QStringList{info.InfoCampo18, info.InfoCampo19}), previsti(19).mid(17, 2));
}

TEST_F(InfoECR, LeChiaviNonSiGuardano) {
  ParseInfoECR(QStringLiteral("STATO=1.00,STATO=S,=mmc"));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoVersioneSW, QStringLiteral("1.00"));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoTipoBitmap, QStringLiteral("S"));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoTipoMMC, QStringLiteral("mmc"));
}

TEST_F(InfoECR, UnaRispostaVuotaSvuotaTuttiICampi) {
  EXPECT_EQ(ParseInfoECR(QString()), 0);
  EXPECT_EQ(campi(), previsti(0));
}

TEST_F(InfoECR, TreVociLascianoVuotiGliAltriCampi) {
  EXPECT_EQ(ParseInfoECR(voci(3)), 0);
  EXPECT_EQ(campi(), previsti(3));
}

TEST_F(InfoECR, LeVociOltreLaDiciannovesimaCadono) {
  EXPECT_EQ(ParseInfoECR(voci(40)), 0);
  EXPECT_EQ(campi(), previsti(19));
}

TEST_F(InfoECR, UnaVoceSenzaUgualeRestaIntera) {
  ParseInfoECR(QStringLiteral("3.00,S"));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoVersioneSW, QStringLiteral("3.00"));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoTipoBitmap, QStringLiteral("S"));
}

TEST_F(InfoECR, SiTagliaAlPrimoUguale) {
  ParseInfoECR(QStringLiteral("A=b=c"));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoVersioneSW, QStringLiteral("b=c"));
}

TEST_F(InfoECR, LUltimaVoceTieneIBlankDelBuffer) {
  ParseInfoECR(QStringLiteral("A=1,B=2").leftJustified(256, QLatin1Char(' ')));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoVersioneSW, QStringLiteral("1"));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoTipoBitmap,
            QStringLiteral("2").leftJustified(250, QLatin1Char(' ')));
}

TEST_F(InfoECR, ByteQualunqueNonLoFermano) {
  QString rumore;
  for (int i = 0; i < 256; ++i) rumore += QChar(i);
  EXPECT_EQ(ParseInfoECR(rumore), 0);
  EXPECT_EQ(commonForKora().ECR_INFO.campo[0], rumore.left(44)) << "up to the comma";
  EXPECT_EQ(commonForKora().ECR_INFO.campo[1], rumore.mid(62)) << "behind the equals sign";
}

TEST(StatoECR, OgniLetteraHaLaSuaParola) {
  using ecrlink::parolaDelloStato;
  EXPECT_EQ(parolaDelloStato(QStringLiteral("V")), QStringLiteral("VENDITA"));
  EXPECT_EQ(parolaDelloStato(QStringLiteral("A")), QStringLiteral("AZZERAMENTO"));
  EXPECT_EQ(parolaDelloStato(QStringLiteral("L")), QStringLiteral("LETTURA"));
  EXPECT_EQ(parolaDelloStato(QStringLiteral("P")), QStringLiteral("PROGRAMMAZIONE"));
  EXPECT_EQ(parolaDelloStato(QStringLiteral("I")), QStringLiteral("IDLE"));
  for (const char* altra : {"", "i", "X", "I ", "IP"})
    EXPECT_EQ(parolaDelloStato(QString::fromLatin1(altra)), std::nullopt) << altra;
}
