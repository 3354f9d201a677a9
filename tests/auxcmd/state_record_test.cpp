#include "auxcmd/state_record.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QMap>
#include <algorithm>

#include "core/state.h"

namespace {

using auxcmd::kByteStato;
using auxcmd::Salute;

using Record = std::array<std::uint8_t, kByteStato>;

/// A till in order, written out: three letters, three, seven, three letters of states, two numbers of six,
/// two percentages of four, three letters of states.
const QByteArray kInOrdine = QByteArray("MIS") + "QZ1" + "7700123" + "F" + "A" + "G" + "001234" + "000056" +
                             "12.5" + "100%" + "O" + "O" + "P";

Record record(QByteArray byte = kInOrdine) {
  EXPECT_EQ(byte.size(), 39);
  Record questo{};
  std::copy(byte.begin(), byte.end(), questo.begin());
  return questo;
}

Record con(std::size_t posto, char lettera) {
  Record questo = record();
  questo[posto] = static_cast<std::uint8_t>(lettera);
  return questo;
}

const auxcmd::CampoStato& campo(const QString& casella) {
  for (const auxcmd::CampoStato& uno : auxcmd::stato::kCampi)
    if (casella == QLatin1String(uno.casella)) return uno;
  throw std::runtime_error("no field " + casella.toStdString());
}

QString testo(const Record& di, const char* casella) {
  return auxcmd::testoStato(di, campo(QStringLiteral("vkTextBox_") + QLatin1String(casella)));
}

Salute salute(const Record& di, const char* casella) {
  return auxcmd::saluteStato(di, campo(QStringLiteral("vkTextBox_") + QLatin1String(casella)));
}

class StatoECR : public testing::Test {
 protected:
  StatoECR() { azzeraStato(); }
  ~StatoECR() override { azzeraStato(); }
};

}  // namespace

TEST_F(StatoECR, OgniCampoSiLeggeAlSuoPosto) {
  const QList<std::pair<QString, QString>> attesi{
      {QStringLiteral("vkTextBox_Tipo"), QStringLiteral("MIS")},
      {QStringLiteral("vkTextBox_Costruttore"), QStringLiteral("QZ1")},
      {QStringLiteral("vkTextBox_Matricola"), QStringLiteral("7700123")},
      {QStringLiteral("vkTextBox_Stato_Fiscale"), QStringLiteral("FISCALE")},
      {QStringLiteral("vkTextBox_Stato_Scontrino"), QStringLiteral("APERTO")},
      {QStringLiteral("vkTextBox_Tipo_Scontrino"), QStringLiteral("GESTIONALE")},
      {QStringLiteral("vkTextBox_Num_Scontr_F"), QStringLiteral("001234")},
      {QStringLiteral("vkTextBox_Num_Scontr_G"), QStringLiteral("000056")},
      {QStringLiteral("vkTextBox_Perc_MMC"), QStringLiteral("12.5")},
      {QStringLiteral("vkTextBox_Perc_MF"), QStringLiteral("100%")},
      {QStringLiteral("vkTextBox_Stato_Printer"), QStringLiteral("OK")},
      {QStringLiteral("vkTextBox_Stato_Carta"), QStringLiteral("OK")},
      {QStringLiteral("vkTextBox_Stato_MMC"), QStringLiteral("PRESENTE")},
  };
  const Record letto = record();
  ASSERT_EQ(auxcmd::stato::kCampi.size(), 13U);
  for (qsizetype i = 0; i < attesi.size(); ++i) {
    const auxcmd::CampoStato& uno = auxcmd::stato::kCampi[static_cast<std::size_t>(i)];
    EXPECT_EQ(QLatin1String(uno.casella), attesi[i].first);
    EXPECT_EQ(auxcmd::testoStato(letto, uno), attesi[i].second) << uno.casella;
  }
}

TEST_F(StatoECR, LoStatoFiscaleHaDueParole) {
  EXPECT_EQ(testo(con(13, 'F'), "Stato_Fiscale"), QStringLiteral("FISCALE"));
  EXPECT_EQ(testo(con(13, 'N'), "Stato_Fiscale"), QStringLiteral("NON FISCALE"));
  EXPECT_EQ(testo(con(13, 'f'), "Stato_Fiscale"), QStringLiteral("f"));
}

TEST_F(StatoECR, LoScontrinoEApertoOChiuso) {
  EXPECT_EQ(testo(con(14, 'A'), "Stato_Scontrino"), QStringLiteral("APERTO"));
  EXPECT_EQ(testo(con(14, 'C'), "Stato_Scontrino"), QStringLiteral("CHIUSO"));
  EXPECT_EQ(testo(con(14, 'Z'), "Stato_Scontrino"), QStringLiteral("Z"));
}

TEST_F(StatoECR, IlTipoDelloScontrinoSiDiceFinoACheEAperto) {
  EXPECT_EQ(testo(con(15, 'F'), "Tipo_Scontrino"), QStringLiteral("FISCALE"));
  EXPECT_EQ(testo(con(15, 'G'), "Tipo_Scontrino"), QStringLiteral("GESTIONALE"));
  EXPECT_EQ(testo(con(15, 'X'), "Tipo_Scontrino"), QStringLiteral("X"));
  for (const char lettera : {'F', 'G', 'X', '\0'}) {
    Record chiuso = con(14, 'C');
    chiuso[15] = static_cast<std::uint8_t>(lettera);
    EXPECT_EQ(testo(chiuso, "Tipo_Scontrino"), QStringLiteral("--------")) << lettera;
  }
  EXPECT_EQ(testo(con(14, 'c'), "Tipo_Scontrino"), QStringLiteral("GESTIONALE"));
}

TEST_F(StatoECR, LaStampanteHaTreParole) {
  EXPECT_EQ(testo(con(36, 'O'), "Stato_Printer"), QStringLiteral("OK"));
  EXPECT_EQ(testo(con(36, 'T'), "Stato_Printer"), QStringLiteral("TESTA ALTA"));
  EXPECT_EQ(testo(con(36, 'E'), "Stato_Printer"), QStringLiteral("ERRORE"));
  EXPECT_EQ(testo(con(36, 'Q'), "Stato_Printer"), QStringLiteral("Q"));
}

TEST_F(StatoECR, LaCartaHaUnaParola) {
  EXPECT_EQ(testo(con(37, 'O'), "Stato_Carta"), QStringLiteral("OK"));
  EXPECT_EQ(testo(con(37, 'E'), "Stato_Carta"), QStringLiteral("E"));
  EXPECT_EQ(testo(con(37, 'T'), "Stato_Carta"), QStringLiteral("T"));
}

TEST_F(StatoECR, LaMMCEPresenteONo) {
  EXPECT_EQ(testo(con(38, 'P'), "Stato_MMC"), QStringLiteral("PRESENTE"));
  EXPECT_EQ(testo(con(38, 'N'), "Stato_MMC"), QStringLiteral("NON PRESENTE"));
  EXPECT_EQ(testo(con(38, 'O'), "Stato_MMC"), QStringLiteral("O"));
}

TEST_F(StatoECR, LeLettereSenzaParolaSonoQuelleDellaPaginaDiWindows) {
  EXPECT_EQ(testo(con(13, '\xE0'), "Stato_Fiscale"), QStringLiteral("à"));
  EXPECT_EQ(testo(con(36, '\x80'), "Stato_Printer"), QStringLiteral("€"));
  EXPECT_EQ(testo(con(0, '\xC8'), "Tipo"), QStringLiteral("ÈIS"));
}

TEST_F(StatoECR, UnTestoFinisceAlPrimoZero) {
  EXPECT_EQ(testo(con(8, '\0'), "Matricola"), QStringLiteral("77"));
  EXPECT_EQ(testo(con(6, '\0'), "Matricola"), QString());
  EXPECT_EQ(testo(con(31, '\0'), "Perc_MMC"), QStringLiteral("12."));
  // The neighbours end by their lengths.
  EXPECT_EQ(testo(con(31, '\0'), "Num_Scontr_G"), QStringLiteral("000056"));
  EXPECT_EQ(testo(con(31, '\0'), "Perc_MF"), QStringLiteral("100%"));
}

TEST_F(StatoECR, SenzaLetturaTuttoEVuoto) {
  const Record vuoto{};
  for (const auxcmd::CampoStato& uno : auxcmd::stato::kCampi) {
    EXPECT_EQ(auxcmd::testoStato(vuoto, uno), QString()) << uno.casella;
    EXPECT_EQ(auxcmd::saluteStato(vuoto, uno), Salute::Ignota) << uno.casella;
  }
}

TEST_F(StatoECR, LaSaluteDiStampanteCartaEMMC) {
  EXPECT_EQ(salute(con(36, 'O'), "Stato_Printer"), Salute::Bene);
  EXPECT_EQ(salute(con(36, 'T'), "Stato_Printer"), Salute::Attenzione);
  EXPECT_EQ(salute(con(36, 'E'), "Stato_Printer"), Salute::Guasto);
  EXPECT_EQ(salute(con(36, 'Q'), "Stato_Printer"), Salute::Attenzione);
  EXPECT_EQ(salute(con(37, 'O'), "Stato_Carta"), Salute::Bene);
  EXPECT_EQ(salute(con(37, 'F'), "Stato_Carta"), Salute::Attenzione);
  EXPECT_EQ(salute(con(38, 'P'), "Stato_MMC"), Salute::Bene);
  EXPECT_EQ(salute(con(38, 'N'), "Stato_MMC"), Salute::Attenzione);
  EXPECT_EQ(salute(record(), "Stato_Fiscale"), Salute::Ignota);
  EXPECT_EQ(salute(record(), "Matricola"), Salute::Ignota);
}

TEST_F(StatoECR, SoloTrentanoveByteSiPrendono) {
  const Record letto = record();
  ASSERT_TRUE(auxcmd::RiempiStatoECR(letto));
  EXPECT_EQ(varGestionePRG().StatoECR, letto);
  const std::vector<std::uint8_t> corto(38, 'x');
  const std::vector<std::uint8_t> lungo(40, 'x');
  EXPECT_FALSE(auxcmd::RiempiStatoECR(corto));
  EXPECT_FALSE(auxcmd::RiempiStatoECR(lungo));
  EXPECT_FALSE(auxcmd::RiempiStatoECR({}));
  EXPECT_EQ(varGestionePRG().StatoECR, letto);
}
