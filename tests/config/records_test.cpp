#include "config/records.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "config/department_attributes.h"
#include "config/image.h"

using namespace config;

namespace {

std::string esadecimale(RecordLetto record) {
  return QByteArray(reinterpret_cast<const char*>(record.data()), static_cast<qsizetype>(record.size()))
      .toHex()
      .toStdString();
}

std::string zeri(std::size_t byte) {
  return std::string(byte * 2, '0');
}

}  // namespace

TEST(Records, UnReparto) {
  RecordReparto byte{};
  scriviTesto(byte, reparto::kDescrizione, QStringLiteral("Caffè"));
  scriviByte(byte, reparto::kAttributi, imballaAttributi({4, QStringLiteral("S"), QStringLiteral("M"), 3}));
  scriviIntero(byte, reparto::kPrezzo, 1250);
  scriviIntero(byte, reparto::kMinValore, 1);
  scriviIntero(byte, reparto::kMaxValore, 9999999);
  scriviIntero(byte, reparto::kSconto, 1050);
  EXPECT_EQ(esadecimale(byte),
            "43616666e8" + zeri(20) + "5b" + "e2040000" + "01000000" + "7f969800" + "1a040000");
}

TEST(Records, UnaRigaDIntestazioneEUnaDiCortesia) {
  RecordIntestazione riga{};
  scriviFlag(riga, intestazione::kDoppiaAltezza, true);
  scriviTesto(riga, intestazione::kTesto, QStringLiteral("BAR"));
  EXPECT_EQ(esadecimale(riga), "01424152" + zeri(34));
  RecordCortesia saluto{};
  scriviTesto(saluto, cortesia::kTesto, QStringLiteral("GRAZIE"));
  scriviFlag(saluto, cortesia::kAbilitazione, true);
  EXPECT_EQ(esadecimale(saluto), "004752415a4945" + zeri(31) + "01");
}

TEST(Records, UnPLU) {
  RecordPLU byte{};
  scriviTesto(byte, plu::kDescrizione, QStringLiteral("Pane"));
  scriviByte(byte, plu::kReparto, 255);
  scriviByte(byte, plu::kAttributi, plu::kVarPrezzo | plu::kPrezzoZero);
  scriviIntero(byte, plu::kPrezzo, 120);
  scriviTesto(byte, plu::kCodiceEAN, QStringLiteral("8001234567890"));
  EXPECT_EQ(esadecimale(byte),
            "50616e65" + zeri(21) + "ff" + "03" + "78000000" + "38303031323334353637383930" + zeri(4));
}

TEST(Records, LoZeroDiUnCodiceDi14CaratteriCadeNellaRiserva) {
  RecordPLU byte{};
  byte.fill(0xA5);
  scriviTesto(byte, plu::kCodiceEAN, QStringLiteral("12345678901234"));
  EXPECT_EQ(esadecimale(std::span(byte).subspan(31)),
            "3132333435363738393031323334"
            "00a5a5");
  EXPECT_EQ(leggiTesto(byte, plu::kCodiceEAN), QStringLiteral("12345678901234"));
}

TEST(Records, UnAliquotaEUnaValuta) {
  RecordIVA aliquota{};
  scriviTesto(aliquota, iva::kDescrizione, QStringLiteral("IVA 22"));
  scriviIntero(aliquota, iva::kAliquota, 2200);
  EXPECT_EQ(esadecimale(aliquota), "495641203232" + zeri(19) + "98080000");
  RecordValuta lire{};
  scriviTesto(lire, valuta::kDescrizione, QStringLiteral("LIRE"));
  scriviIntero(lire, valuta::kCambio, 193627);
  EXPECT_EQ(esadecimale(lire), "4c495245" + zeri(21) + "5bf40200");
}

TEST(Records, UnOperatore) {
  RecordOperatore byte{};
  scriviTesto(byte, operatore::kDescrizione, QStringLiteral("Maria Antonietta"));
  scriviFlag(byte, operatore::kAbilitazione, true);
  scriviTesto(byte, operatore::kPassword, QStringLiteral("123456"));
  EXPECT_EQ(esadecimale(byte), "4d6172696120416e746f" + zeri(15) + "01" + "31323334353600");
}

TEST(Records, UnaVoceDelCalendarioDelleGrafiche) {
  RecordLogo byte{};
  byte[logo::kRiserva.inizio] = 0xA5;
  scriviFlag(byte, logo::kAbilitazione, true);
  scriviSenzaSegno(byte, logo::kDataInizio, 0x11223344);
  scriviSenzaSegno(byte, logo::kDataFine, 0xF0E0D0C0);
  EXPECT_EQ(esadecimale(byte), "0144332211c0d0e0f0a5");
}

TEST(Records, LeDodiciVociDelleGraficheNelLoroOrdine) {
  const std::vector<std::pair<QString, QString>> previste{
      {QStringLiteral("Logo intestazione"), QStringLiteral("Logo")},
      {QStringLiteral("Merceologico"), QStringLiteral("Merceologico1")},
      {QStringLiteral("Natale"), QStringLiteral("Natale")},
      {QStringLiteral("Pasqua"), QStringLiteral("Pasqua")},
      {QStringLiteral("Festa della Mamma"), QStringLiteral("FestaMamma")},
      {QStringLiteral("Festa del papà"), QStringLiteral("FestaPapà")},
      {QStringLiteral("Festa della donna"), QStringLiteral("FestaDonna")},
      {QStringLiteral("Vacanze"), QStringLiteral("Vacanze")},
      {QStringLiteral("Carnevale"), QStringLiteral("Carnevale")},
      {QStringLiteral("San Valentino"), QStringLiteral("SanValentino")},
      {QStringLiteral("1° Promozione"), QStringLiteral("Promozione1")},
      {QStringLiteral("2° Promozione"), QStringLiteral("Promozione2")}};
  ASSERT_EQ(logo::kVoci.size(), previste.size());
  for (std::size_t i = 0; i < previste.size(); ++i) {
    EXPECT_EQ(QString::fromUtf16(logo::kVoci[i].nome), previste[i].first);
    EXPECT_EQ(QString::fromUtf16(logo::kVoci[i].immagine), previste[i].second);
  }
}

TEST(Records, QuattroSubtenderEOttoTallon) {
  EXPECT_EQ(parametri::kSubtender.quanti, 4U);
  EXPECT_EQ(parametri::kTallon.quanti, 8U);
}

TEST(Records, NeiParametriRestanoIDieciByteRiservati) {
  ImmagineProgrammazione immagine;
  const Record record = immagine.record(kParametri, 0);
  std::ranges::fill(record, std::uint8_t{0xA5});
  for (const Campo& campo : parametri::kCampi)
    if (campo.tipo == Tipo::CampoTesto) scriviTesto(record, campo, QString(40, QLatin1Char('x')));
  scriviFlag(record, parametri::kOraLegale, true);
  EXPECT_EQ(esadecimale(record.subspan(417)), "01a5a5a5a5a5a5a5a5a5a5");
}
