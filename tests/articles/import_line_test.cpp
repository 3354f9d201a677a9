#include "articles/import_line.h"

#include <gtest/gtest.h>

#include "platform/error.h"

namespace {

using articles::CampiImport;
using articles::CodaIstruzione;
using articles::PutArticolo;
using articles::TestaIstruzione;

CampiImport campiDi(const QString& riga) {
  CampiImport campi;
  PutArticolo(riga, campi);
  return campi;
}

std::int16_t codiceDi(const QString& riga) {
  CampiImport campi;
  return PutArticolo(riga, campi);
}

int erroreDi(const QString& riga) {
  try {
    codiceDi(riga);
  } catch (const Errore& errore) {
    return errore.numero;
  }
  return 0;
}

TEST(PutArticolo, UnaRigaSanaDaZeroERiempieICampi) {
  CampiImport campi;
  EXPECT_EQ(PutArticolo(QStringLiteral("12;8001060008601;000860;Caffè;2,38;4;S;N; "), campi), 0);
  EXPECT_EQ(campi.auto_id, 12);
  EXPECT_EQ(campi.Codice_EAN, QStringLiteral("8001060008601"));
  EXPECT_EQ(campi.Codice_Articolo, QStringLiteral("000860"));
  EXPECT_EQ(campi.Descrizione, QStringLiteral("Caffè"));
  EXPECT_EQ(campi.Prezzo, QStringLiteral("2,38"));
  EXPECT_EQ(campi.Reparto, QStringLiteral("4"));
}

TEST(PutArticolo, SetteSeparatoriDannoUno) {
  EXPECT_EQ(codiceDi(QStringLiteral("1;80;A;B;1;1;N;N")), articles::kSeparatori);
}

TEST(PutArticolo, NoveSeparatoriDannoUno) {
  EXPECT_EQ(codiceDi(QStringLiteral("1;80;A;B;1;1;N;N; ;")), articles::kSeparatori);
}

TEST(PutArticolo, UnaRigaVuotaDaUno) {
  EXPECT_EQ(codiceDi(QString()), articles::kSeparatori);
}

TEST(PutArticolo, EanAssenteDaQuattroERestaVuoto) {
  const QString riga = QStringLiteral("1;;A;B;1;1;N;N; ");
  EXPECT_EQ(codiceDi(riga), articles::kEanAssente);
  EXPECT_EQ(campiDi(riga).Codice_EAN, QString());
}

TEST(PutArticolo, CodiceArticoloAssenteDaCinqueEDiventaZero) {
  const QString riga = QStringLiteral("1;80;;B;1;1;N;N; ");
  EXPECT_EQ(codiceDi(riga), articles::kArticoloAssente);
  EXPECT_EQ(campiDi(riga).Codice_Articolo, QStringLiteral("0"));
}

TEST(PutArticolo, DescrizioneAssenteDaSetteERestaVuota) {
  const QString riga = QStringLiteral("1;80;A;;1;1;N;N; ");
  EXPECT_EQ(codiceDi(riga), articles::kDescrizioneAssente);
  EXPECT_EQ(campiDi(riga).Descrizione, QString());
}

TEST(PutArticolo, RepartoAssenteDaSeiEDiventaZero) {
  const QString riga = QStringLiteral("1;80;A;B;1;;N;N; ");
  EXPECT_EQ(codiceDi(riga), articles::kRepartoAssente);
  EXPECT_EQ(campiDi(riga).Reparto, QStringLiteral("0"));
}

TEST(PutArticolo, PrezzoAssenteNonHaCodiceEDiventaZero) {
  const QString riga = QStringLiteral("1;80;A;B;;1;N;N; ");
  EXPECT_EQ(codiceDi(riga), articles::kRigaSana);
  EXPECT_EQ(campiDi(riga).Prezzo, QStringLiteral("0"));
}

TEST(PutArticolo, IlPrimoCampoCheMancaDecideNellOrdineEanCodiceDescrizioneReparto) {
  EXPECT_EQ(codiceDi(QStringLiteral("1;;;;;;N;N; ")), articles::kEanAssente);
  EXPECT_EQ(codiceDi(QStringLiteral("1;80;;;;;N;N; ")), articles::kArticoloAssente);
  EXPECT_EQ(codiceDi(QStringLiteral("1;80;A;;;;N;N; ")), articles::kDescrizioneAssente);
}

TEST(PutArticolo, ICampiSonoPresiTuttiAncheSeUnoManca) {
  const CampiImport campi = campiDi(QStringLiteral("7;;A;B;1,5;9;N;N; "));
  EXPECT_EQ(campi.auto_id, 7);
  EXPECT_EQ(campi.Codice_Articolo, QStringLiteral("A"));
  EXPECT_EQ(campi.Descrizione, QStringLiteral("B"));
  EXPECT_EQ(campi.Prezzo, QStringLiteral("1,5"));
  EXPECT_EQ(campi.Reparto, QStringLiteral("9"));
}

TEST(PutArticolo, ICampiDellaRigaPrimaNonRestano) {
  CampiImport campi;
  PutArticolo(QStringLiteral("7;80;A;B;1,5;9;N;N; "), campi);
  PutArticolo(QStringLiteral("8;;;;;;N;N; "), campi);
  EXPECT_EQ(campi.Codice_EAN, QString());
  EXPECT_EQ(campi.Descrizione, QString());
  EXPECT_EQ(campi.Prezzo, QStringLiteral("0"));
}

TEST(PutArticolo, PosizioneVuotaDaOtto) {
  EXPECT_EQ(codiceDi(QStringLiteral(";80;A;B;1;1;N;N; ")), articles::kPosizione);
}

TEST(PutArticolo, PosizioneSottoZeroDaOtto) {
  EXPECT_EQ(codiceDi(QStringLiteral("-1;80;A;B;1;1;N;N; ")), articles::kPosizione);
}

TEST(PutArticolo, LaPosizionePiuAltaDiSediciBitNonHaCodice) {
  EXPECT_EQ(codiceDi(QStringLiteral("32767;80;A;B;1;1;N;N; ")), articles::kRigaSana);
}

TEST(PutArticolo, LaPosizione40000NonHaCodiceMaNonStaInSediciBit) {
  EXPECT_EQ(erroreDi(QStringLiteral("40000;80;A;B;1;1;N;N; ")), errors::kOverflow);
}

TEST(PutArticolo, LaPosizione60000NonStaInSediciBit) {
  EXPECT_EQ(erroreDi(QStringLiteral("60000;80;A;B;1;1;N;N; ")), errors::kOverflow);
}

TEST(PutArticolo, UnaPosizioneCheNonEUnNumeroDaErrore13) {
  EXPECT_EQ(erroreDi(QStringLiteral("N.;80;A;B;1;1;N;N; ")), errors::kTypeMismatch);
}

TEST(IstruzioneImport, LaTestaPortaITestiComeStannoEIlPrezzoInCentesimi) {
  EXPECT_EQ(TestaIstruzione(campiDi(QStringLiteral("1;80;A'1;L'olio;2,38;4;N;N; "))).sql(),
            QStringLiteral("UPDATE TAB_ARTICOLI SET  Codice_ean ='80', Codice_Articolo ='A'1',"
                           "Descrizione ='L'olio',Prezzo =238,Reparto =4,"));
}

TEST(IstruzioneImport, IlPrezzoAccettaIlPunto) {
  EXPECT_TRUE(TestaIstruzione(campiDi(QStringLiteral("1;80;A;B;19.99;4;N;N; ")))
                  .sql()
                  .contains(QStringLiteral("Prezzo =1999,")));
}

TEST(IstruzioneImport, UnPrezzoOltreTrentadueBitDaErrore6) {
  try {
    TestaIstruzione(campiDi(QStringLiteral("1;80;A;B;99999999999;4;N;N; ")));
    FAIL() << "no overflow";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kOverflow);
  }
}

TEST(IstruzioneImport, SenzaFaultLaCodaPulisceIlMarchio) {
  EXPECT_EQ(CodaIstruzione(1, 12).sql(), QStringLiteral("Filler =' ' WHERE auto_id =12"));
}

TEST(IstruzioneImport, DaDueASeiLaCodaMarcaLaRiga) {
  for (std::int16_t stato = 2; stato <= 6; ++stato)
    EXPECT_EQ(CodaIstruzione(stato, 12).sql(), QStringLiteral("Filler ='ERR' WHERE auto_id =12")) << stato;
}

TEST(IstruzioneImport, OltreSeiLaCodaManca) {
  EXPECT_EQ(CodaIstruzione(7, 12).sql(), QString());
  EXPECT_EQ(CodaIstruzione(10, 12).sql(), QString());
}

}  // namespace
