#include "ecrlink/models.h"

#include <gtest/gtest.h>

using namespace ecrlink;

namespace {
struct Atteso {
  const char* didascalia;
  int tasti;
  const char* nome;
  int larghezza;
};
constexpr std::array<Atteso, 13> kPrevisti{{
    {"Spica -------------------------> 30 tasti", 30, "SPICA", 24},
    {"Vega -------------------------> 42 tasti", 42, "VEGA", 24},
    {"Vega ambulante -------> 42 tasti", 42, "VEGA AMBULANTE", 24},
    {"Rigel ---------------------> 42 tasti", 42, "RIGEL", 24},
    {"Mira -----------------------> N/A", 0, "MIRA", 24},
    {"Altair base --------> 52 tasti", 52, "ALTAIR BASE", 24},
    {"Altair plus ---------> 52 tasti", 52, "ALTAIR PLUS", 24},
    {"Deneb base ---------------> 60 tasti", 60, "DENEB BASE", 24},
    {"Deneb fast -----------------> 60 tasti", 60, "DENEB FAST", 24},
    {"KPR_58mm ---------------> 42 tasti", 42, "KPR_58mm", 26},
    {"KPR_58mm ---------------> 30 tasti", 30, "KPR_58mm", 26},
    {"KPR_80mm ---------------> 42 tasti", 42, "KPR_80mm", 36},
    {"KPR_80mm ---------------> 30 tasti", 30, "KPR_80mm", 36},
}};
}  // namespace

TEST(Modelli, ITrediciStannoNellaTabella) {
  ASSERT_EQ(kModelli.size(), kPrevisti.size());
  for (std::size_t i = 0; i < kPrevisti.size(); ++i) {
    EXPECT_STREQ(kModelli[i].didascalia, kPrevisti[i].didascalia);
    EXPECT_EQ(kModelli[i].tasti, kPrevisti[i].tasti) << i;
    EXPECT_EQ(NomeModello(static_cast<int>(i)), QString::fromLatin1(kPrevisti[i].nome));
    EXPECT_EQ(larghezzaRigaDelModello(static_cast<int>(i)), kPrevisti[i].larghezza) << i;
  }
}

TEST(Modelli, UnIndiceFuoriDallaTabellaNonHaNomeEStampaA24) {
  for (const int fuori : {-1, 13, 1000, -2147483647}) {
    EXPECT_TRUE(NomeModello(fuori).isEmpty()) << fuori;
    EXPECT_EQ(larghezzaRigaDelModello(fuori), 24) << fuori;
  }
}

TEST(Modelli, I58EGli80SiDistinguonoSoloPerITasti) {
  for (const int primo : {9, 11}) {
    EXPECT_EQ(NomeModello(primo), NomeModello(primo + 1));
    EXPECT_EQ(larghezzaRigaDelModello(primo), larghezzaRigaDelModello(primo + 1));
    EXPECT_EQ(kModelli[static_cast<std::size_t>(primo)].tasti, 42);
    EXPECT_EQ(kModelli[static_cast<std::size_t>(primo) + 1].tasti, 30);
  }
}

TEST(ClasseGrafica, LaSELaLargaPerLaGrafica) {
  EXPECT_EQ(nomeDellaClasse(QStringLiteral("S")), QStringLiteral("SMALL"));
  EXPECT_EQ(nomeDellaClasse(QStringLiteral("L")), QStringLiteral("LARGE"));
  EXPECT_EQ(larghezzaGrafica(QStringLiteral("S")), QStringLiteral("384"));
  EXPECT_EQ(larghezzaGrafica(QStringLiteral("L")), QStringLiteral("640"));
}

TEST(ClasseGrafica, NeSNeLSiLeggeLargeENonMandaGrafica) {
  for (const char* altra : {"", "s", "M", "S "}) {
    const QString tipo = QString::fromLatin1(altra);
    EXPECT_EQ(nomeDellaClasse(tipo), QStringLiteral("LARGE")) << altra;
    EXPECT_EQ(larghezzaGrafica(tipo), std::nullopt) << altra;
  }
  EXPECT_EQ(QString::fromUtf16(kGraficaIncongruente),
            QStringLiteral("Il tipo di grafica non è congruente a quella dell'ECR"));
  EXPECT_EQ(QString::fromUtf16(kTitoloGraficaIncongruente),
            QStringLiteral("Errore invio file per la grafica"));
}
