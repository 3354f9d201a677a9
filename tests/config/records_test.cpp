#include "config/records.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "config/department_attributes.h"
#include "config/general_options.h"
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

struct Posto {
  std::size_t inizio;
  std::size_t larghezza;
  Tipo tipo;
  std::size_t limite = 0;
};

void verificaPosti(std::span<const Campo> campi, const std::vector<Posto>& attesi) {
  ASSERT_EQ(campi.size(), attesi.size());
  for (std::size_t i = 0; i < attesi.size(); ++i) {
    EXPECT_EQ(campi[i].inizio, attesi[i].inizio) << campi[i].nome;
    EXPECT_EQ(campi[i].larghezza, attesi[i].larghezza) << campi[i].nome;
    EXPECT_EQ(campi[i].tipo, attesi[i].tipo) << campi[i].nome;
    EXPECT_EQ(campi[i].limite, attesi[i].limite) << campi[i].nome;
  }
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
  const std::vector<std::pair<QString, QString>> attese{
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
  ASSERT_EQ(logo::kVoci.size(), attese.size());
  for (std::size_t i = 0; i < attese.size(); ++i) {
    EXPECT_EQ(QString::fromUtf16(logo::kVoci[i].nome), attese[i].first);
    EXPECT_EQ(QString::fromUtf16(logo::kVoci[i].immagine), attese[i].second);
  }
}

TEST(Records, IlBloccoNegozioHaNoveTestiIn137Byte) {
  EXPECT_EQ(BloccoNegozio{}.size(), 137U);
  verificaPosti(negozio::kCampi, {{0, 25, Tipo::CampoTesto, 24},
                                  {25, 12, Tipo::CampoTesto, 11},
                                  {37, 25, Tipo::CampoTesto, 24},
                                  {62, 15, Tipo::CampoTesto, 14},
                                  {77, 6, Tipo::CampoTesto, 5},
                                  {83, 3, Tipo::CampoTesto, 2},
                                  {86, 13, Tipo::CampoTesto, 12},
                                  {99, 13, Tipo::CampoTesto, 12},
                                  {112, 25, Tipo::CampoTesto, 24}});
}

TEST(Records, IParametriStannoAiLoroPosti) {
  constexpr auto kF = Tipo::Flag;
  constexpr auto kB = Tipo::Byte;
  constexpr auto kI = Tipo::Intero32;
  constexpr auto kU = Tipo::SenzaSegno32;
  constexpr auto kT = Tipo::CampoTesto;
  verificaPosti(parametri::kCampi, {{0, 1, kF},        {1, 4, kI},
                                    {5, 1, kB},        {6, 1, kF},
                                    {7, 1, kF},        {8, 1, kF},
                                    {9, 1, kF},        {10, 1, kF},
                                    {11, 1, kF},       {12, 1, kF},
                                    {13, 1, kB},       {14, 1, kF},
                                    {15, 1, kF},       {16, 1, kB},
                                    {17, 1, kB},       {18, 1, kF},
                                    {19, 1, kB},       {20, 1, kB},
                                    {21, 1, kF},       {22, 4, kU},
                                    {26, 1, kF},       {27, 25, kT, 10},
                                    {52, 25, kT, 10},  {77, 25, kT, 10},
                                    {102, 25, kT, 10}, {127, 7, kT, 6},
                                    {134, 1, kB},      {135, 4, kU},
                                    {139, 1, kB},      {140, 1, kF},
                                    {141, 1, kF},      {142, 1, kB},
                                    {143, 1, kF},      {144, 1, kB},
                                    {145, 1, kF},      {146, 1, kF},
                                    {147, 1, kF},      {148, 4, kI},
                                    {152, 4, kI},      {156, 1, kB},
                                    {157, 1, kF},      {158, 1, kF},
                                    {159, 1, kB},      {160, 1, kB},
                                    {161, 1, kF},      {162, 25, kT, 14},
                                    {187, 25, kT, 14}, {212, 25, kT, 14},
                                    {237, 25, kT, 14}, {262, 25, kT, 14},
                                    {287, 25, kT, 14}, {312, 25, kT, 14},
                                    {337, 25, kT, 14}, {362, 1, kF},
                                    {363, 25, kT, 24}, {388, 1, kF},
                                    {389, 25, kT, 24}, {414, 1, kF},
                                    {415, 1, kF},      {416, 1, kF},
                                    {417, 1, kF},      {418, 10, Tipo::Riservato}});
}

TEST(Records, SubtenderETallonSonoSerieDiTestiUguali) {
  EXPECT_EQ(parametri::kSubtender.quanti, 4U);
  EXPECT_EQ(parametri::kSubtender.campo(3).inizio, 102U);
  EXPECT_EQ(parametri::kTallon.quanti, 8U);
  EXPECT_EQ(parametri::kTallon.campo(7).inizio, 337U);
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
