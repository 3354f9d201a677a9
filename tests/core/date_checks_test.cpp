#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "core/conversions.h"
#include "platform/ui/scripted_user.h"

namespace {

using Controllo = std::int16_t (*)(const QString&, Utente&);
constexpr std::int16_t kValida = -1;
constexpr std::int16_t kNonValida = 0;

/// The message of a refused date, with its result and icon looked at; empty for a date refused in silence.
QString rifiuto(Controllo controllo, const char* cifre) {
  ScriptedUser utente;
  EXPECT_EQ(controllo(QLatin1String(cifre), utente), kNonValida) << cifre;
  const auto riquadri = utente.takeBoxes();
  if (riquadri.empty()) return {};
  EXPECT_EQ(riquadri.size(), 1u) << cifre;
  EXPECT_EQ(riquadri.front(), (Box{riquadri.front().text, Icon::Critical, {}, Buttons::Ok})) << cifre;
  return riquadri.front().text;
}

void valida(Controllo controllo, const char* cifre) {
  ScriptedUser utente;
  EXPECT_EQ(controllo(QLatin1String(cifre), utente), kValida) << cifre;
}

}  // namespace

TEST(CheckDataRevisione, IMesiDiTrentaGiorniRifiutanoIlTrentuno) {
  for (const char* cifre : {"31042011", "31062011", "31092011", "31112011"})
    EXPECT_EQ(rifiuto(CheckDataRevisione, cifre),
              QStringLiteral("ATTENZIONE Errore il mese inserito deve essere di 30 giorni "));
  for (const char* cifre : {"30042011", "31012011", "31122011"}) valida(CheckDataRevisione, cifre);
}

TEST(CheckDataRevisione, FebbraioSenzaBisestileSiFermaA28) {
  for (const char* cifre : {"29022011", "30022011", "29021900", "29022100"})
    EXPECT_EQ(rifiuto(CheckDataRevisione, cifre),
              QStringLiteral("ATTENZIONE Errore febbraio deve essere di 28 giorni"));
  valida(CheckDataRevisione, "28022011");
}

TEST(CheckDataRevisione, FebbraioBisestileSiFermaA29) {
  for (const char* cifre : {"30022012", "31022000"})
    EXPECT_EQ(rifiuto(CheckDataRevisione, cifre),
              QStringLiteral("ATTENZIONE Errore febbraio deve essere di 29 giorni"));
  for (const char* cifre : {"29022012", "29022000"}) valida(CheckDataRevisione, cifre);
}

TEST(CheckDataPeriodo, IlVentinoveFebbraioESempreRifiutato) {
  for (const char* cifre : {"2902", "3002", "3102"})
    EXPECT_EQ(rifiuto(CheckDataPeriodo, cifre), QStringLiteral("ATTENZIONE Errore febbraio è di 28 giorni"));
  valida(CheckDataPeriodo, "2802");
}

TEST(CheckDataPeriodo, IlTrentunoAprileERifiutato) {
  EXPECT_EQ(rifiuto(CheckDataPeriodo, "3104"),
            QStringLiteral("ATTENZIONE Errore il mese inserito e' di 30 giorni "));
}

TEST(CheckDataScontrino, LAnnoZeroZeroEBisestile) {
  valida(CheckDataScontrino, "290200");
}

TEST(CheckDataScontrino, IMessaggiSonoQuelliDelPeriodo) {
  EXPECT_EQ(rifiuto(CheckDataScontrino, "310611"),
            QStringLiteral("ATTENZIONE Errore il mese inserito e' di 30 giorni "));
  EXPECT_EQ(rifiuto(CheckDataScontrino, "290211"),
            QStringLiteral("ATTENZIONE Errore febbraio è di 28 giorni"));
  EXPECT_EQ(rifiuto(CheckDataScontrino, "300212"),
            QStringLiteral("ATTENZIONE Errore febbraio è di 29 giorni"));
  EXPECT_EQ(rifiuto(CheckDataScontrino, "300200"),
            QStringLiteral("ATTENZIONE Errore febbraio è di 29 giorni"));
}

class OgniControlloData : public testing::TestWithParam<Controllo> {};

TEST_P(OgniControlloData, UnMeseFuoriDaUnoADodiciERifiutatoInSilenzio) {
  for (const char* cifre : {"01000000", "01130000", "01990000", "01", ""})
    EXPECT_EQ(rifiuto(GetParam(), cifre), QString()) << cifre;
}

TEST_P(OgniControlloData, IlTrentadueGennaioEIlGiornoZeroPassano) {
  for (const char* cifre : {"32010011", "00010011", "99010011", "00020011"}) valida(GetParam(), cifre);
}

static std::string nomeDelControllo(const testing::TestParamInfo<Controllo>& caso) {
  return std::array{"Revisione", "Periodo", "Scontrino"}.at(caso.index);
}
INSTANTIATE_TEST_SUITE_P(Date, OgniControlloData,
                         testing::Values(CheckDataRevisione, CheckDataPeriodo, CheckDataScontrino),
                         nomeDelControllo);
