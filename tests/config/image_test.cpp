#include "config/image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "config/narrow_lines.h"
#include "ecrsim/known_files.h"
#include "platform/error.h"

using namespace config;

namespace {

struct Atteso {
  const Famiglia* famiglia;
  std::string file;
  std::size_t record;
  std::size_t byte;
  std::size_t totale;
  std::size_t inizio;
};

const std::vector<Atteso> kPreviste{{&kIntestazione, "intestazione.bin", 8, 38, 304, 0},
                                    {&kCortesia, "cortesia.bin", 2, 39, 78, 304},
                                    {&kReparto, "reparti.bin", 80, 42, 3360, 382},
                                    {&kPLU, "plu.bin", 5000, 48, 240000, 3742},
                                    {&kIVA, "iva.bin", 8, 29, 232, 243742},
                                    {&kValuta, "val.bin", 4, 29, 116, 243974},
                                    {&kOperatore, "operatori.bin", 10, 33, 330, 244090},
                                    {&kParametri, "prog_param.bin", 1, 428, 428, 244420},
                                    {&kLogo, "logo.bin", 12, 10, 120, 244848}};

}  // namespace

TEST(Immagine, LeNoveFamiglieStannoAiLoroPosti) {
  ASSERT_EQ(famiglie().size(), kPreviste.size());
  for (std::size_t i = 0; i < kPreviste.size(); ++i) {
    const Famiglia& famiglia = *famiglie()[i];
    EXPECT_EQ(&famiglia, kPreviste[i].famiglia);
    EXPECT_EQ(famiglia.file, kPreviste[i].file);
    EXPECT_EQ(famiglia.record, kPreviste[i].record) << famiglia.file;
    EXPECT_EQ(famiglia.byte, kPreviste[i].byte) << famiglia.file;
    EXPECT_EQ(famiglia.totale(), kPreviste[i].totale) << famiglia.file;
    EXPECT_EQ(famiglia.inizio, kPreviste[i].inizio) << famiglia.file;
  }
}

TEST(Immagine, FinisceA244968) {
  const ImmagineProgrammazione immagine;
  EXPECT_EQ(immagine.byte().size(), 244968U);
  EXPECT_EQ(kLogo.inizio + kLogo.totale(), 244968U);
}

TEST(NoveFile, RecordPerRecordFannoIByteDellaCassa) {
  for (const Famiglia* famiglia : famiglie()) {
    SCOPED_TRACE(famiglia->file);
    const ecrsim::KnownFile* file = ecrsim::knownFile(famiglia->file);
    ASSERT_NE(file, nullptr);
    const std::size_t inPiu = famiglia == &kPLU ? 0 : 1;
    const std::size_t strette = famiglia == &kIntestazione ? intestazione_corta::kTotale
                                : famiglia == &kCortesia   ? cortesia_corta::kTotale
                                                           : famiglia->totale();
    for (const auto& [classe, byte] :
         {std::pair{"L", famiglia->record * famiglia->byte}, std::pair{"S", strette}})
      EXPECT_EQ(file->byte(classe), byte + inPiu) << classe;
  }
  EXPECT_EQ(intestazione_corta::kTotale, 208U);
  EXPECT_EQ(cortesia_corta::kTotale, 54U);
  EXPECT_EQ(kByteArchivioPLU, 240000U);
}

TEST(NoveFile, SommatiAllaTestataEAlNegozioFannoIlFileDiConfigurazione) {
  constexpr std::size_t kVersione = 6;
  constexpr std::size_t kModello = 3;
  std::size_t byte = kVersione + kModello + negozio::kByte;
  EXPECT_EQ(byte, 146U);
  for (const Famiglia* famiglia : famiglie()) {
    EXPECT_EQ(kVersione + kModello + negozio::kByte + famiglia->inizio, byte) << famiglia->file;
    byte += famiglia->record * famiglia->byte;
  }
  EXPECT_EQ(byte, 245114U);
}

TEST(Immagine, IlRecordEAlSuoOffsetEByteFuoriNonSiToccano) {
  ImmagineProgrammazione immagine;
  std::ranges::fill(immagine.byte(), std::uint8_t{0xA5});
  std::ranges::fill(immagine.record(kReparto, 79), std::uint8_t{0});
  const RecordLetto byte = immagine.byte();
  EXPECT_EQ(std::ranges::count(byte, 0), 42);
  EXPECT_EQ(std::ranges::count(byte.subspan(382 + 79 * 42, 42), 0), 42);
}

TEST(Immagine, IlBloccoEQuelloDeiRecord) {
  ImmagineProgrammazione immagine;
  for (const Famiglia* famiglia : famiglie()) {
    EXPECT_EQ(immagine.blocco(*famiglia).data(), immagine.record(*famiglia, 0).data());
    EXPECT_EQ(immagine.blocco(*famiglia).size(), famiglia->totale());
    const RecordLetto ultimo = immagine.record(*famiglia, famiglia->record - 1);
    EXPECT_EQ(ultimo.data() + ultimo.size(), immagine.byte().data() + famiglia->inizio + famiglia->totale());
  }
}

TEST(Immagine, UnRecordOltreLUltimoEErrore9) {
  ImmagineProgrammazione immagine;
  const ImmagineProgrammazione& letta = immagine;
  for (const Famiglia* famiglia : famiglie()) {
    try {
      immagine.record(*famiglia, famiglia->record);
      ADD_FAILURE() << famiglia->file;
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, errors::kOutOfRange);
    }
    EXPECT_THROW(letta.record(*famiglia, famiglia->record), Errore) << famiglia->file;
  }
}

TEST(Immagine, QuellaDelProcessoEUnaSola) {
  EXPECT_EQ(&immagineProgrammazione(), &immagineProgrammazione());
}
