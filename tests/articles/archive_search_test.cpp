#include "articles/archive_search.h"

#include <gtest/gtest.h>

using articles::CampiArticolo;
using articles::IstruzioneRicerca;

namespace {

const QString kTutti = QStringLiteral(
    "SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI ");

TEST(RicercaArticoli, SenzaCampiNonHaCondizioniNeOrdine) {
  EXPECT_EQ(IstruzioneRicerca({}).sql(), kTutti);
}

TEST(RicercaArticoli, ConTuttiICampiLiUnisceNelLoroOrdine) {
  CampiArticolo campi;
  campi.ean = QStringLiteral("80");
  campi.codice = QStringLiteral("A1");
  campi.descrizione = QStringLiteral("PA");
  campi.prezzo = QStringLiteral("12");
  campi.reparto = QStringLiteral("3");
  EXPECT_EQ(IstruzioneRicerca(campi).sql(),
            kTutti + QStringLiteral(" WHERE   Codice_EAN LIKE '80*' AND  Codice_Articolo like 'A1*' AND  "
                                    "Descrizione like 'PA*' AND  Prezzo >=1200  AND  Reparto =3 ORDER BY "
                                    "Codice_EAN ASC"));
}

struct Solo {
  QString CampiArticolo::*campo;
  QString testo;
  QString condizione;
};
void PrintTo(const Solo& solo, std::ostream* uscita) {
  *uscita << solo.condizione.toStdString();
}
class RicercaConUnCampo : public testing::TestWithParam<Solo> {};

TEST_P(RicercaConUnCampo, HaLaSuaCondizioneELOrdine) {
  CampiArticolo campi;
  campi.*GetParam().campo = GetParam().testo;
  EXPECT_EQ(IstruzioneRicerca(campi).sql(), kTutti + QStringLiteral(" WHERE ") + GetParam().condizione +
                                                QStringLiteral(" ORDER BY Codice_EAN ASC"));
}

INSTANTIATE_TEST_SUITE_P(
    Campi, RicercaConUnCampo,
    testing::Values(
        Solo{&CampiArticolo::ean, QStringLiteral("80"), QStringLiteral("  Codice_EAN LIKE '80*'")},
        Solo{&CampiArticolo::codice, QStringLiteral("A"), QStringLiteral(" Codice_Articolo like 'A*'")},
        Solo{&CampiArticolo::descrizione, QStringLiteral("L'A%[*"),
             QStringLiteral(" Descrizione like 'L'A%[**'")},
        Solo{&CampiArticolo::prezzo, QStringLiteral("0,50"), QStringLiteral(" Prezzo >=0 ")},
        Solo{&CampiArticolo::reparto, QStringLiteral("07"), QStringLiteral(" Reparto =7")}));

TEST(RicercaArticoli, IlPrezzoSiLeggeFinoAllaVirgola) {
  CampiArticolo campi;
  campi.prezzo = QStringLiteral("12,50");
  EXPECT_TRUE(IstruzioneRicerca(campi).sql().contains(QStringLiteral(" Prezzo >=1200 ")));
}

TEST(RicercaArticoli, IlPrezzoConIlPuntoSiLeggeInteroESenzaCodeBinarie) {
  CampiArticolo campi;
  campi.prezzo = QStringLiteral("19.99");
  EXPECT_TRUE(IstruzioneRicerca(campi).sql().contains(QStringLiteral(" Prezzo >=1999 ")));
}

TEST(RicercaArticoli, PosizioneELettereNonSonoCondizioni) {
  CampiArticolo campi;
  campi.id = QStringLiteral("7");
  campi.varPrezzo = QStringLiteral("S");
  campi.prezzoZero = QStringLiteral("N");
  EXPECT_EQ(IstruzioneRicerca(campi).sql(), kTutti);
}

}  // namespace
