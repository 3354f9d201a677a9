#include "config/configuration_changes.h"

#include <gtest/gtest.h>

#include <vector>

using config::RaccontoModifiche;

namespace {

constexpr qsizetype kByte = 245114;

/// What is told of a file in which the bytes at these places are other ones.
QString racconto(const std::vector<qsizetype>& posti) {
  const QByteArray prima(kByte, '\x11');
  QByteArray dopo = prima;
  for (const qsizetype posto : posti) dopo[posto] = '\x22';
  return RaccontoModifiche(prima, dopo);
}

/// The places of the first byte of so many records.
std::vector<qsizetype> inizi(qsizetype inizio, qsizetype byte, int quanti) {
  std::vector<qsizetype> posti(static_cast<std::size_t>(quanti), inizio);
  for (std::size_t i = 0; i < posti.size(); ++i) posti[i] += byte * static_cast<qsizetype>(i);
  return posti;
}

}  // namespace

TEST(Racconto, DueFileUgualiNonHannoNullaDaRaccontare) {
  EXPECT_EQ(racconto({}), QString());
}

TEST(Racconto, UnRecordAlSingolare) {
  EXPECT_EQ(racconto({9}), QStringLiteral("dati del negozio"));
  EXPECT_EQ(racconto({146}), QStringLiteral("1 riga di intestazione"));
  EXPECT_EQ(racconto({450}), QStringLiteral("1 riga di cortesia"));
  EXPECT_EQ(racconto({528}), QStringLiteral("1 reparto"));
  EXPECT_EQ(racconto({3888}), QStringLiteral("1 PLU"));
  EXPECT_EQ(racconto({243888}), QStringLiteral("1 aliquota"));
  EXPECT_EQ(racconto({244120}), QStringLiteral("1 valuta"));
  EXPECT_EQ(racconto({244236}), QStringLiteral("1 operatore"));
  EXPECT_EQ(racconto({244566}), QStringLiteral("opzioni generali"));
  EXPECT_EQ(racconto({244994}), QStringLiteral("1 voce del calendario grafico"));
}

TEST(Racconto, LUltimoByteDiOgniFamigliaEAncoraSuo) {
  EXPECT_EQ(racconto({145}), QStringLiteral("dati del negozio"));
  EXPECT_EQ(racconto({449}), QStringLiteral("1 riga di intestazione"));
  EXPECT_EQ(racconto({527}), QStringLiteral("1 riga di cortesia"));
  EXPECT_EQ(racconto({3887}), QStringLiteral("1 reparto"));
  EXPECT_EQ(racconto({243887}), QStringLiteral("1 PLU"));
  EXPECT_EQ(racconto({244119}), QStringLiteral("1 aliquota"));
  EXPECT_EQ(racconto({244235}), QStringLiteral("1 valuta"));
  EXPECT_EQ(racconto({244565}), QStringLiteral("1 operatore"));
  EXPECT_EQ(racconto({244993}), QStringLiteral("opzioni generali"));
  EXPECT_EQ(racconto({245113}), QStringLiteral("1 voce del calendario grafico"));
}

TEST(Racconto, PiuRecordAlPlurale) {
  EXPECT_EQ(racconto(inizi(146, 38, 8)), QStringLiteral("8 righe di intestazione"));
  EXPECT_EQ(racconto(inizi(450, 39, 2)), QStringLiteral("2 righe di cortesia"));
  EXPECT_EQ(racconto(inizi(528, 42, 80)), QStringLiteral("80 reparti"));
  EXPECT_EQ(racconto(inizi(3888, 48, 5000)), QStringLiteral("5.000 PLU"));
  EXPECT_EQ(racconto(inizi(243888, 29, 8)), QStringLiteral("8 aliquote"));
  EXPECT_EQ(racconto(inizi(244120, 29, 4)), QStringLiteral("4 valute"));
  EXPECT_EQ(racconto(inizi(244236, 33, 10)), QStringLiteral("10 operatori"));
  EXPECT_EQ(racconto(inizi(244994, 10, 12)), QStringLiteral("12 voci del calendario grafico"));
}

TEST(Racconto, PiuByteDiUnRecordContanoUnaVoltaSola) {
  EXPECT_EQ(racconto({528, 529, 569}), QStringLiteral("1 reparto"));
  EXPECT_EQ(racconto({244566, 244993}), QStringLiteral("opzioni generali"));
}

TEST(Racconto, PiuFamiglieNellOrdineDelFileELeOpzioniInFondo) {
  EXPECT_EQ(racconto({245113, 244566, 243888, 528, 570, 9}),
            QStringLiteral("dati del negozio, 2 reparti, 1 aliquota, 1 voce del calendario grafico, opzioni "
                           "generali"));
}

TEST(Racconto, LaTestataNonEUnaModificaDellaPersona) {
  EXPECT_EQ(racconto({0, 5, 6, 8}), QString());
}

TEST(Racconto, CioCheMancaAUnFileCortoContaComeZero) {
  const QByteArray zeri(kByte, '\0');
  EXPECT_EQ(RaccontoModifiche(QByteArray(), zeri), QString());
  EXPECT_EQ(RaccontoModifiche(zeri, zeri.first(100)), QString());
  QByteArray uno = zeri;
  uno[3887] = 1;
  EXPECT_EQ(RaccontoModifiche(uno.first(3887), uno), QStringLiteral("1 reparto"));
  EXPECT_EQ(RaccontoModifiche(uno, QByteArray()), QStringLiteral("1 reparto"));
}

TEST(Racconto, CioCheEDietroLaFineNonConta) {
  const QByteArray zeri(kByte, '\0');
  EXPECT_EQ(RaccontoModifiche(zeri, zeri + "coda"), QString());
}
