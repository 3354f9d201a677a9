#include "customers/customer_records.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <array>
#include <string>
#include <vector>

#include "platform/error.h"

using namespace customers;
using record::Campo;
using record::Tipo;

namespace {

constexpr std::uint8_t kVecchio = 0xA5;

/// One field as the firmware of the tills has it, written down by hand.
struct Posto {
  const Campo* campo;
  std::size_t inizio;
  std::size_t larghezza;
  Tipo tipo;
};

const std::vector<Posto> kCliente{{&cliente::kFlag, 0, 1, Tipo::Byte},
                                  {&cliente::kRagioneSociale, 1, 41, Tipo::TestoPieno},
                                  {&cliente::kIndirizzo, 42, 41, Tipo::TestoPieno},
                                  {&cliente::kCitta, 83, 41, Tipo::TestoPieno},
                                  {&cliente::kPartitaIVA, 124, 12, Tipo::TestoPieno},
                                  {&cliente::kNota, 136, 41, Tipo::TestoPieno}};
const std::vector<Posto> kFattura{{&fattura::kTipo, 0, 1, Tipo::Byte},
                                  {&fattura::kCliente, 1, 2, Tipo::SenzaSegno16},
                                  {&fattura::kIntestatario, 3, 41, Tipo::TestoPieno},
                                  {&fattura::kMomento, 44, 4, Tipo::SenzaSegno32},
                                  {&fattura::kImporto, 48, 4, Tipo::Intero32},
                                  {&fattura::kImponibile, 52, 4, Tipo::Intero32},
                                  {&fattura::kImposta, 56, 4, Tipo::Intero32},
                                  {&fattura::kNonPagato, 60, 4, Tipo::Intero32},
                                  {&fattura::kRiserva, 64, 13, Tipo::Riservato}};

std::string esadecimale(record::RecordLetto byte) {
  return QByteArray(reinterpret_cast<const char*>(byte.data()), static_cast<qsizetype>(byte.size()))
      .toHex()
      .toStdString();
}

std::string ripetuto(const char* byte, std::size_t volte) {
  std::string testo;
  for (std::size_t i = 0; i < volte; ++i) testo += byte;
  return testo;
}

void scriviUno(record::Record byte, const Campo& campo) {
  switch (campo.tipo) {
    case Tipo::Byte:
      return record::scriviByte(byte, campo, 7);
    case Tipo::SenzaSegno16:
      return record::scriviSenzaSegno16(byte, campo, 7);
    case Tipo::Intero32:
      return record::scriviIntero(byte, campo, -7);
    case Tipo::SenzaSegno32:
      return record::scriviSenzaSegno(byte, campo, 7);
    case Tipo::TestoPieno:
      return record::scriviTesto(byte, campo, QString(static_cast<qsizetype>(campo.larghezza), u'x'));
    case Tipo::Flag:
    case Tipo::CampoTesto:
    case Tipo::Riservato:
      return;
  }
}

void leggiUno(record::RecordLetto byte, const Campo& campo) {
  switch (campo.tipo) {
    case Tipo::Byte:
      record::leggiByte(byte, campo);
      return;
    case Tipo::SenzaSegno16:
      record::leggiSenzaSegno16(byte, campo);
      return;
    case Tipo::Intero32:
      record::leggiIntero(byte, campo);
      return;
    case Tipo::SenzaSegno32:
      record::leggiSenzaSegno(byte, campo);
      return;
    case Tipo::TestoPieno:
      record::leggiTesto(byte, campo);
      return;
    case Tipo::Flag:
    case Tipo::CampoTesto:
    case Tipo::Riservato:
      return;
  }
}

void attendiTabella(std::span<const Campo> tabella, const std::vector<Posto>& posti) {
  ASSERT_EQ(tabella.size(), posti.size());
  for (std::size_t i = 0; i < posti.size(); ++i) {
    SCOPED_TRACE(std::string(tabella[i].nome));
    EXPECT_EQ(tabella[i].nome, posti[i].campo->nome);
    EXPECT_EQ(tabella[i].inizio, posti[i].inizio);
    EXPECT_EQ(tabella[i].larghezza, posti[i].larghezza);
    EXPECT_EQ(tabella[i].tipo, posti[i].tipo);
  }
}

/// Each field written changes its own bytes of a used record and no other.
void attendiSoloISuoiByte(const std::vector<Posto>& posti, std::size_t lunghezza) {
  for (const Posto& posto : posti) {
    if (posto.tipo == Tipo::Riservato) continue;
    SCOPED_TRACE(std::string(posto.campo->nome));
    std::vector<std::uint8_t> byte(lunghezza, kVecchio);
    scriviUno(byte, *posto.campo);
    bool cambiato = false;
    for (std::size_t i = 0; i < lunghezza; ++i) {
      const bool suo = i >= posto.inizio && i < posto.inizio + posto.larghezza;
      if (!suo) {
        EXPECT_EQ(byte[i], kVecchio) << i;
      }
      cambiato = cambiato || byte[i] != kVecchio;
    }
    EXPECT_TRUE(cambiato);
  }
}

/// A record that ends within a field, wherever, is refused for it, and left as it was.
void attendiRifiuto(const std::vector<Posto>& posti) {
  for (const Posto& posto : posti) {
    if (posto.tipo == Tipo::Riservato) continue;
    SCOPED_TRACE(std::string(posto.campo->nome));
    for (std::size_t lunghezza = 0; lunghezza < posto.inizio + posto.larghezza; ++lunghezza) {
      std::vector<std::uint8_t> byte(lunghezza, kVecchio);
      const std::vector<std::uint8_t> prima = byte;
      EXPECT_THROW(leggiUno(byte, *posto.campo), Errore) << lunghezza;
      EXPECT_THROW(scriviUno(byte, *posto.campo), Errore) << lunghezza;
      EXPECT_EQ(byte, prima);
    }
  }
}

}  // namespace

TEST(RecordCliente, ICampiStannoAiLoroPosti) {
  attendiTabella(cliente::kCampi, kCliente);
  EXPECT_EQ(cliente::kByte, 177U);
  EXPECT_EQ(cliente::kRecord * cliente::kByte, 44250U);
  EXPECT_EQ(kUltimoCliente, 250);
}

TEST(RecordFattura, ICampiStannoAiLoroPosti) {
  attendiTabella(fattura::kCampi, kFattura);
  EXPECT_EQ(fattura::kByte, 77U);
  EXPECT_EQ(fattura::kRecord * fattura::kByte, 77000U);
}

TEST(RecordCliente, ByteAByte) {
  std::array<std::uint8_t, 177> byte{};
  record::scriviByte(byte, cliente::kFlag, 1);
  record::scriviTesto(byte, cliente::kRagioneSociale, QStringLiteral("CAFFÈ"));
  record::scriviTesto(byte, cliente::kIndirizzo, QStringLiteral("VIA"));
  record::scriviTesto(byte, cliente::kCitta, QStringLiteral("RO"));
  record::scriviTesto(byte, cliente::kPartitaIVA, QStringLiteral("012345678901"));
  record::scriviTesto(byte, cliente::kNota, QStringLiteral("€"));
  EXPECT_EQ(esadecimale(byte),
            "01434146"
            "46c8" +
                ripetuto("00", 36) + "564941" + ripetuto("00", 38) + "524f" + ripetuto("00", 39) +
                "303132333435363738393031" + "80" + ripetuto("00", 40));
}

TEST(RecordFattura, ByteAByte) {
  std::array<std::uint8_t, 77> byte{};
  record::scriviByte(byte, fattura::kTipo, 255);
  record::scriviSenzaSegno16(byte, fattura::kCliente, 250);
  record::scriviTesto(byte, fattura::kIntestatario, QStringLiteral("ROSSI"));
  record::scriviSenzaSegno(byte, fattura::kMomento, 0x01020304);
  record::scriviIntero(byte, fattura::kImporto, 12345);
  record::scriviIntero(byte, fattura::kImponibile, -1);
  record::scriviIntero(byte, fattura::kImposta, 2147483647);
  record::scriviIntero(byte, fattura::kNonPagato, -2147483647 - 1);
  EXPECT_EQ(esadecimale(byte),
            "ff"
            "fa00"
            "524f535349" +
                ripetuto("00", 36) +
                "04030201"
                "39300000"
                "ffffffff"
                "ffffff7f"
                "00000080" +
                ripetuto("00", 13));
}

TEST(RecordCliente, UnTestoPienoNonHaZeroEUnoPiuCortoHaIlSuo) {
  std::vector<std::uint8_t> byte(177, kVecchio);
  record::scriviTesto(byte, cliente::kRagioneSociale, QString(41, u'R'));
  EXPECT_EQ(esadecimale(byte), "a5" + ripetuto("52", 41) + ripetuto("a5", 135));
  EXPECT_EQ(record::leggiTesto(byte, cliente::kRagioneSociale), QString(41, u'R'));
  record::scriviTesto(byte, cliente::kRagioneSociale, QString(40, u'S'));
  EXPECT_EQ(esadecimale(byte), "a5" + ripetuto("53", 40) + "00" + ripetuto("a5", 135));
  record::scriviTesto(byte, cliente::kRagioneSociale, QString(42, u'T'));
  EXPECT_EQ(esadecimale(byte), "a5" + ripetuto("54", 41) + ripetuto("a5", 135));
}

TEST(RecordCliente, DietroLoZeroNonSiLegge) {
  std::array<std::uint8_t, 177> byte{};
  record::scriviTesto(byte, cliente::kPartitaIVA, QStringLiteral("999999999999"));
  record::scriviTesto(byte, cliente::kPartitaIVA, QStringLiteral("12"));
  EXPECT_EQ(byte[124 + 3], '9');
  EXPECT_EQ(record::leggiTesto(byte, cliente::kPartitaIVA), QStringLiteral("12"));
}

TEST(RecordFattura, ISegniEIMassimiTornanoComeSono) {
  std::array<std::uint8_t, 77> byte{};
  record::scriviSenzaSegno16(byte, fattura::kCliente, 65535);
  record::scriviIntero(byte, fattura::kImporto, -500);
  record::scriviSenzaSegno(byte, fattura::kMomento, 4294967295U);
  EXPECT_EQ(record::leggiSenzaSegno16(byte, fattura::kCliente), 65535);
  EXPECT_EQ(record::leggiIntero(byte, fattura::kImporto), -500);
  EXPECT_EQ(record::leggiSenzaSegno(byte, fattura::kMomento), 4294967295U);
}

TEST(RecordCliente, OgniCampoScriveSoloISuoiByte) {
  attendiSoloISuoiByte(kCliente, 177);
}

TEST(RecordFattura, OgniCampoScriveSoloISuoiByteELaRiservaResta) {
  attendiSoloISuoiByte(kFattura, 77);
}

TEST(RecordCliente, TroppoCortoSiRifiuta) {
  attendiRifiuto(kCliente);
}

TEST(RecordFattura, TroppoCortoSiRifiuta) {
  attendiRifiuto(kFattura);
}
