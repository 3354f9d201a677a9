#include "core/reactions.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/state.h"
#include "platform/ui/scripted_user.h"

namespace {

using reazioni::Esito;

constexpr int kPassati[] = {0, 20, 53, 75, 3021};
constexpr int kSegnalati[] = {5,    6,    9,    13,   55,   61,   62,   70,   76,   94,   3022, 3024,
                              3034, 3061, 3073, 3075, 3142, 3163, 3260, 3265, 3343, 3420, 453};

auto fallisce(int numero) {
  return [numero] { throw Errore{numero, QStringLiteral("motivo")}; };
}

}  // namespace

TEST(Reazioni, UnPassoRiuscitoEFatto) {
  ScriptedUser utente;
  bool fatto = false;
  EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("p "), [&] { fatto = true; }), Esito::Fatto);
  EXPECT_TRUE(fatto);
}

TEST(Reazioni, INumeriPassatiSiIgnoranoSenzaRiquadro) {
  ScriptedUser utente;
  for (const int numero : kPassati) {
    EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("p "), fallisce(numero)), Esito::Ignorato);
    EXPECT_EQ(reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("p "), fallisce(numero)),
              Esito::Ignorato)
        << numero;
  }
}

TEST(Reazioni, GliAltriNumeriSiDiconoConPrefissoNumeroEMotivo) {
  for (const int numero : kSegnalati) {
    ScriptedUser utente;
    EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("Errore "), fallisce(numero)),
              Esito::Segnalato);
    EXPECT_EQ(reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("Errore "), fallisce(numero)),
              Esito::Segnalato);
    const Box previsto{QStringLiteral("Errore %1 - motivo").arg(numero), Icon::Critical, {}, Buttons::Ok};
    EXPECT_EQ(utente.takeBoxes(), (std::vector<Box>{previsto, previsto})) << numero;
  }
}

TEST(Reazioni, LaTabellaAssenteInUnRiempimentoFinisceIlProgramma) {
  azzeraStato();
  ScriptedUser utente;
  EXPECT_THROW(
      reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("p "), fallisce(errors::kTableMissing)),
      ProgramEnded);
  EXPECT_TRUE(utente.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  const Box previsto{
      QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!"),
      Icon::Critical,
      {},
      Buttons::Ok};
  EXPECT_EQ(utente.takeBoxes(), std::vector<Box>{previsto});
  azzeraStato();
}

TEST(Reazioni, LaTabellaAssenteFuoriDaUnRiempimentoSiDice) {
  azzeraStato();
  ScriptedUser utente;
  EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("p "), fallisce(errors::kTableMissing)),
            Esito::Segnalato);
  EXPECT_EQ(utente.takeBoxes().front().text, QStringLiteral("p 3078 - motivo"));
  EXPECT_EQ(varGlobal().FlagAnomalia, 0);
}

TEST(Reazioni, LErroreImprevistoDiceProceduraEModuloSenzaIcona) {
  ScriptedUser utente;
  reazioni::protetta(utente, QStringLiteral("Cmd_Avvia_Click"), QStringLiteral("Form_X"), fallisce(13));
  const Box previsto{QStringLiteral("Error 13 (motivo) in procedure Cmd_Avvia_Click of Modulo Form_X"),
                     Icon::None,
                     {},
                     Buttons::Ok};
  EXPECT_EQ(utente.takeBoxes(), std::vector<Box>{previsto});
}

TEST(Reazioni, UnEccezioneDelLinguaggioELErrore51) {
  ScriptedUser utente;
  reazioni::protetta(utente, QStringLiteral("p"), QStringLiteral("m"),
                     [] { throw std::runtime_error("rotto"); });
  EXPECT_EQ(utente.takeBoxes().front().text, QStringLiteral("Error 51 (rotto) in procedure p of Modulo m"));
}

TEST(Reazioni, NientePassaLaGuardia) {
  ScriptedUser utente;
  reazioni::protetta(utente, QStringLiteral("p"), QStringLiteral("m"), [] { throw 7; });
  EXPECT_EQ(utente.takeBoxes().front().text,
            QStringLiteral("Error 51 (Errore interno) in procedure p of Modulo m"));
}

TEST(Reazioni, LaFineDelProgrammaPassaSenzaRiquadro) {
  ScriptedUser utente;
  reazioni::protetta(utente, QStringLiteral("p"), QStringLiteral("m"), [&] { utente.Terminate(); });
  EXPECT_TRUE(utente.terminated());
}
