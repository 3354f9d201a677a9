#include "config/narrow_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "core/state.h"
#include "ecrlink/ecr_info.h"
#include "ecrlink/models.h"
#include "platform/error.h"

using namespace config;

namespace {

using Byte = std::vector<std::uint8_t>;
constexpr std::size_t kIntestazioni = 304;
constexpr std::size_t kCortesie = 78;

/// Bytes that tell where they come from.
Byte numerati(std::size_t quanti) {
  Byte byte(quanti);
  for (std::size_t i = 0; i < quanti; ++i) byte[i] = static_cast<std::uint8_t>(i % 251);
  return byte;
}

/// What the program holds of a till after its word on itself.
const EcrInfo& infoDi(const char* modello, const char* classe) {
  ecrlink::ParseInfoECR(QStringLiteral("VER=3.00,BMP=%1,MMC=4,D=,E=,F=,G=,H=,I=,J=,STATO=I,MOD=%2")
                            .arg(QString::fromLatin1(classe), QString::fromLatin1(modello)));
  return commonForKora().ECR_INFO;
}

struct OgniModello : testing::TestWithParam<ecrlink::Modello> {
  ~OgniModello() override { azzeraStato(); }
};

std::string nomeDelModello(const testing::TestParamInfo<ecrlink::Modello>& caso) {
  std::string nome = std::to_string(caso.index) + "_" + caso.param.nome;
  std::ranges::replace(nome, ' ', '_');
  return nome;
}

}  // namespace

namespace ecrlink {
static void PrintTo(const Modello& modello, std::ostream* uscita) {
  *uscita << modello.didascalia;
}
}  // namespace ecrlink

TEST_P(OgniModello, SoloLaClasseDecideSeLeRigheViaggianoStrette) {
  struct Caso {
    const char* classe;
    bool invio;
    bool ricezione;
  };
  for (const Caso& caso :
       {Caso{"S", true, true}, Caso{"L", false, false}, Caso{"M", false, true}, Caso{"", false, true},
        Caso{"s", false, true}, Caso{"l", false, true}, Caso{"S ", false, true}, Caso{" L", false, true}}) {
    const EcrInfo& info = infoDi(GetParam().nome, caso.classe);
    ASSERT_EQ(info.InfoTipoMacchina, QString::fromLatin1(GetParam().nome));
    EXPECT_EQ(invioStretto(info.InfoTipoBitmap), caso.invio) << "class \"" << caso.classe << "\"";
    EXPECT_EQ(ricezioneStretta(info.InfoTipoBitmap), caso.ricezione) << "class \"" << caso.classe << "\"";
  }
}

INSTANTIATE_TEST_SUITE_P(Cassa, OgniModello, testing::ValuesIn(ecrlink::kModelli), nomeDelModello);

TEST(RigheStrette, DellIntestazionePassanoSoloAltezzaEPrimoCarattere) {
  const Byte piena = numerati(kIntestazioni);
  Byte corta(intestazione_corta::kTotale, 0xA5);
  Byte prevista = corta;
  for (std::size_t riga = 0; riga < 8; ++riga) {
    prevista[riga * 26] = piena[riga * 38];
    prevista[riga * 26 + 1] = piena[riga * 38 + 1];
  }
  restringiIntestazione(piena, corta);
  EXPECT_EQ(corta, prevista);
}

TEST(RigheStrette, TornandoIndietroIlRestoDellIntestazioneRestaComEra) {
  const Byte corta = numerati(intestazione_corta::kTotale);
  Byte piena(kIntestazioni, 0xA5);
  Byte prevista = piena;
  for (std::size_t riga = 0; riga < 8; ++riga) {
    prevista[riga * 38] = corta[riga * 26];
    prevista[riga * 38 + 1] = corta[riga * 26 + 1];
  }
  allargaIntestazione(corta, piena);
  EXPECT_EQ(piena, prevista);
}

TEST(RigheStrette, DellaCortesiaPassaAncheLAbilitazione) {
  const Byte piena = numerati(kCortesie);
  Byte corta(cortesia_corta::kTotale, 0xA5);
  Byte prevista = corta;
  for (std::size_t riga = 0; riga < 2; ++riga) {
    prevista[riga * 27] = piena[riga * 39];
    prevista[riga * 27 + 1] = piena[riga * 39 + 1];
    prevista[riga * 27 + 26] = piena[riga * 39 + 38];
  }
  restringiCortesia(piena, corta);
  EXPECT_EQ(corta, prevista);
}

TEST(RigheStrette, TornandoIndietroTreByteDiOgniRigaDiCortesia) {
  const Byte corta = numerati(cortesia_corta::kTotale);
  Byte piena(kCortesie, 0xA5);
  Byte prevista = piena;
  for (std::size_t riga = 0; riga < 2; ++riga) {
    prevista[riga * 39] = corta[riga * 27];
    prevista[riga * 39 + 1] = corta[riga * 27 + 1];
    prevista[riga * 39 + 38] = corta[riga * 27 + 26];
  }
  allargaCortesia(corta, piena);
  EXPECT_EQ(piena, prevista);
}

TEST(RigheStrette, IlByteInPiuDelCanaleRestaComEra) {
  const Byte piena = numerati(kIntestazioni + 1);
  Byte corta(intestazione_corta::kTotale + 1, 0);
  restringiIntestazione(piena, corta);
  EXPECT_EQ(corta.back(), 0);
}

TEST(RigheStrette, UnImmagineCortaEErrore9ENonCopiaNulla) {
  using Copia = std::function<void(RecordLetto, Record)>;
  struct Caso {
    Copia copia;
    std::size_t da;
    std::size_t a;
  };
  const std::vector<Caso> casi{{restringiIntestazione, 304, 208},
                               {allargaIntestazione, 208, 304},
                               {restringiCortesia, 78, 54},
                               {allargaCortesia, 54, 78}};
  for (const Caso& caso : casi) {
    for (const auto& [da, a] : {std::pair{caso.da - 1, caso.a}, std::pair{caso.da, caso.a - 1},
                                std::pair{std::size_t{0}, caso.a}, std::pair{caso.da, std::size_t{0}}}) {
      const Byte sorgente = numerati(da);
      Byte destinazione(a, 0xA5);
      try {
        caso.copia(sorgente, destinazione);
        ADD_FAILURE() << da << " to " << a;
      } catch (const Errore& errore) {
        EXPECT_EQ(errore.numero, errors::kOutOfRange);
      }
      EXPECT_EQ(destinazione, Byte(a, 0xA5));
    }
  }
}
