#include "core/date_combos.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QWheelEvent>
#include <QWidget>

#include "sostegno/fixed_clock.h"

namespace {

QComboBox* lista(QWidget& schermo, const char* nome) {
  auto* combo = new QComboBox(&schermo);
  combo->setObjectName(QLatin1String(nome));
  return combo;
}

class ComboDate : public testing::Test {
 protected:
  ComboDate() {
    for (const char* nome :
         {"CmbGiorno", "CmbMese", "CmbAnno", "CmbGiornoFine", "CmbMeseFine", "CmbAnnoFine",
          "ComboGiornoScont", "ComboMeseScont", "ComboAnnoScont", "CmbOra", "CmbMin", "CmbSec"})
      lista(schermo, nome);
  }
  QComboBox& combo(const char* nome) { return *schermo.findChild<QComboBox*>(QLatin1String(nome)); }

  QWidget schermo;
};

}  // namespace

TEST_F(ComboDate, GiorniEMesiHannoDueCifreEGliAnniStannoFraIDueDati) {
  RiempiComboData(combiData(schermo, DataDiSchermo::Inizio), 2000, 2100);
  EXPECT_EQ(combo("CmbGiorno").count(), 31);
  EXPECT_EQ(combo("CmbGiorno").itemText(0), QStringLiteral("01"));
  EXPECT_EQ(combo("CmbGiorno").itemText(30), QStringLiteral("31"));
  EXPECT_EQ(combo("CmbMese").count(), 12);
  EXPECT_EQ(combo("CmbMese").itemText(8), QStringLiteral("09"));
  EXPECT_EQ(combo("CmbAnno").count(), 101);
  EXPECT_EQ(combo("CmbAnno").itemText(0), QStringLiteral("2000"));
  EXPECT_EQ(combo("CmbAnno").itemText(100), QStringLiteral("2100"));
}

TEST_F(ComboDate, OgniListaPartaDallaPrimaVoce) {
  RiempiComboData(combiData(schermo, DataDiSchermo::Fine), 2000, 2100);
  EXPECT_EQ(DataScelta(combiData(schermo, DataDiSchermo::Fine)), QStringLiteral("20000101"));
}

TEST_F(ComboDate, RiempireDueVolteNonRaddoppiaLeVoci) {
  for (int volta = 0; volta < 2; ++volta)
    RiempiComboData(combiData(schermo, DataDiSchermo::Inizio), 2000, 2100);
  EXPECT_EQ(combo("CmbAnno").count(), 101);
}

TEST_F(ComboDate, LeOreArrivanoA23EMinutiESecondiA59ELeListeAssentiSiSaltano) {
  RiempiComboOra(schermo, DataDiSchermo::Inizio);
  RiempiComboOra(schermo, DataDiSchermo::Fine);
  EXPECT_EQ(combo("CmbOra").count(), 24);
  EXPECT_EQ(combo("CmbMin").itemText(59), QStringLiteral("59"));
  EXPECT_EQ(combo("CmbSec").count(), 60);
  EXPECT_EQ(combo("CmbOra").currentText(), QStringLiteral("00"));
}

TEST_F(ComboDate, LaDataSiSceglieSpezzandolaAllaBarra) {
  const ComboData combi = combiData(schermo, DataDiSchermo::Inizio);
  RiempiComboData(combi, 2000, 2100);
  SelezionaData(combi, *combi.anno, QStringLiteral("29/02/2028"));
  EXPECT_EQ(DataScelta(combi), QStringLiteral("20280229"));
}

TEST_F(ComboDate, LAnnoSiCercaNellaListaDiFineAncheSeLaPropriaEAltra) {
  const ComboData inizio = combiData(schermo, DataDiSchermo::Inizio);
  const ComboData fine = combiData(schermo, DataDiSchermo::Fine);
  RiempiComboData(inizio, 1990, 2100);
  RiempiComboData(fine, 2000, 2100);
  SelezionaData(inizio, *fine.anno, QStringLiteral("01/01/2026"));
  EXPECT_EQ(inizio.anno->currentIndex(), 26);
  EXPECT_EQ(inizio.anno->currentText(), QStringLiteral("2016"));
}

TEST_F(ComboDate, UnAnnoFuoriListaLasciaLaListaComEra) {
  const ComboData combi = combiData(schermo, DataDiSchermo::Inizio);
  RiempiComboData(combi, 2000, 2010);
  SelezionaData(combi, *combi.anno, QStringLiteral("15/08/2026"));
  EXPECT_EQ(DataScelta(combi), QStringLiteral("20000815"));
}

TEST_F(ComboDate, UnTestoCheNonEUnaDataNonSceglieNulla) {
  const ComboData combi = combiData(schermo, DataDiSchermo::Inizio);
  RiempiComboData(combi, 2000, 2100);
  SelezionaData(combi, *combi.anno, QStringLiteral("2026-08-15"));
  SelezionaData(combi, *combi.anno, QStringLiteral("40/15/xx"));
  EXPECT_EQ(DataScelta(combi), QStringLiteral("20000101"));
}

TEST_F(ComboDate, OggiELaDataDellOrologio) {
  const ComboData combi = combiData(schermo, DataDiSchermo::Fine);
  RiempiComboData(combi, 2000, 2100);
  SelezionaOggi(combi, *combi.anno, FixedClock(QDateTime(QDate(2031, 12, 30), QTime(23, 59, 59))));
  EXPECT_EQ(DataScelta(combi), QStringLiteral("20311230"));
}

TEST_F(ComboDate, LeListeDelloScontrinoSiTrovanoConILoroNomi) {
  const ComboData combi = combiData(schermo, DataDiSchermo::Scontrino);
  EXPECT_EQ(combi.giorno, &combo("ComboGiornoScont"));
  EXPECT_EQ(combi.mese, &combo("ComboMeseScont"));
  EXPECT_EQ(combi.anno, &combo("ComboAnnoScont"));
}

TEST_F(ComboDate, LeSeiListeDelleDateSiSpengonoESiAccendonoInsieme) {
  AbilitaComboDate(schermo, false);
  for (const char* nome : {"CmbGiorno", "CmbMese", "CmbAnno", "CmbGiornoFine", "CmbMeseFine", "CmbAnnoFine"})
    EXPECT_FALSE(combo(nome).isEnabled()) << nome;
  EXPECT_TRUE(combo("ComboAnnoScont").isEnabled());
  EXPECT_TRUE(combo("CmbOra").isEnabled());
  AbilitaComboDate(schermo, true);
  EXPECT_TRUE(combo("CmbGiorno").isEnabled());
  EXPECT_TRUE(combo("CmbAnnoFine").isEnabled());
}

TEST_F(ComboDate, LeTreListeDelloScontrinoSiSpengonoDaSole) {
  AbilitaComboScontrino(schermo, false);
  for (const char* nome : {"ComboGiornoScont", "ComboMeseScont", "ComboAnnoScont"})
    EXPECT_FALSE(combo(nome).isEnabled()) << nome;
  EXPECT_TRUE(combo("CmbGiorno").isEnabled());
  AbilitaComboScontrino(schermo, true);
  EXPECT_TRUE(combo("ComboMeseScont").isEnabled());
}

TEST_F(ComboDate, UnoSchermoSenzaListeNonSiTocca) {
  QWidget vuoto;
  AbilitaComboDate(vuoto, false);
  AbilitaComboScontrino(vuoto, false);
  EXPECT_EQ(combiData(vuoto, DataDiSchermo::Inizio).anno, nullptr);
}

TEST_F(ComboDate, LaRotellaSuUnaListaSenzaFuocoNonCambiaLaData) {
  for (int volta = 0; volta < 2; ++volta) {
    RiempiComboData(combiData(schermo, DataDiSchermo::Inizio), 2000, 2100);
    RiempiComboOra(schermo, DataDiSchermo::Inizio);
  }
  for (const char* nome : {"CmbGiorno", "CmbMese", "CmbAnno", "CmbOra", "CmbMin", "CmbSec"}) {
    QComboBox& lista = combo(nome);
    QWheelEvent rotella(QPointF(5, 5), QPointF(5, 5), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                        false);
    QApplication::sendEvent(&lista, &rotella);
    EXPECT_EQ(lista.currentIndex(), 0) << nome;
    EXPECT_EQ(lista.focusPolicy(), Qt::StrongFocus) << nome;
  }
}
