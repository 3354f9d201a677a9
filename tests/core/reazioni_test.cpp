#include "core/reazioni.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/stato.h"
#include "platform/ui/utente_copione.h"

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
  UtenteCopione utente;
  bool fatto = false;
  EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("p "), [&] { fatto = true; }), Esito::Fatto);
  EXPECT_TRUE(fatto);
}

TEST(Reazioni, INumeriPassatiSiIgnoranoSenzaRiquadro) {
  UtenteCopione utente;
  for (const int numero : kPassati) {
    EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("p "), fallisce(numero)), Esito::Ignorato);
    EXPECT_EQ(reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("p "), fallisce(numero)),
              Esito::Ignorato)
        << numero;
  }
}

TEST(Reazioni, GliAltriNumeriSiDiconoConPrefissoNumeroEMotivo) {
  for (const int numero : kSegnalati) {
    UtenteCopione utente;
    EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("Errore "), fallisce(numero)),
              Esito::Segnalato);
    EXPECT_EQ(reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("Errore "), fallisce(numero)),
              Esito::Segnalato);
    const Riquadro atteso{QStringLiteral("Errore %1 - motivo").arg(numero), Icona::Critica, {}, Pulsanti::OK};
    EXPECT_EQ(utente.prendiRiquadri(), (std::vector<Riquadro>{atteso, atteso})) << numero;
  }
}

TEST(Reazioni, LaTabellaAssenteInUnRiempimentoFinisceIlProgramma) {
  azzeraStato();
  UtenteCopione utente;
  EXPECT_THROW(reazioni::prossimaIstruzioneRiempimento(utente, QStringLiteral("p "),
                                                       fallisce(errore::kTabellaAssente)),
               ProgrammaTerminato);
  EXPECT_TRUE(utente.terminato());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  const Riquadro atteso{
      QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!"),
      Icona::Critica,
      {},
      Pulsanti::OK};
  EXPECT_EQ(utente.prendiRiquadri(), std::vector<Riquadro>{atteso});
  azzeraStato();
}

TEST(Reazioni, LaTabellaAssenteFuoriDaUnRiempimentoSiDice) {
  azzeraStato();
  UtenteCopione utente;
  EXPECT_EQ(reazioni::prossimaIstruzione(utente, QStringLiteral("p "), fallisce(errore::kTabellaAssente)),
            Esito::Segnalato);
  EXPECT_EQ(utente.prendiRiquadri().front().testo, QStringLiteral("p 3078 - motivo"));
  EXPECT_EQ(varGlobal().FlagAnomalia, 0);
}

TEST(Reazioni, LErroreImprevistoDiceProceduraEModuloSenzaIcona) {
  UtenteCopione utente;
  reazioni::protetta(utente, QStringLiteral("Cmd_Avvia_Click"), QStringLiteral("Form_X"), fallisce(13));
  const Riquadro atteso{QStringLiteral("Error 13 (motivo) in procedure Cmd_Avvia_Click of Modulo Form_X"),
                        Icona::Nessuna,
                        {},
                        Pulsanti::OK};
  EXPECT_EQ(utente.prendiRiquadri(), std::vector<Riquadro>{atteso});
}

TEST(Reazioni, UnEccezioneDelLinguaggioELErrore51) {
  UtenteCopione utente;
  reazioni::protetta(utente, QStringLiteral("p"), QStringLiteral("m"),
                     [] { throw std::runtime_error("rotto"); });
  EXPECT_EQ(utente.prendiRiquadri().front().testo,
            QStringLiteral("Error 51 (rotto) in procedure p of Modulo m"));
}

TEST(Reazioni, NientePassaLaGuardia) {
  UtenteCopione utente;
  reazioni::protetta(utente, QStringLiteral("p"), QStringLiteral("m"), [] { throw 7; });
  EXPECT_EQ(utente.prendiRiquadri().front().testo,
            QStringLiteral("Error 51 (Errore interno) in procedure p of Modulo m"));
}

TEST(Reazioni, LaFineDelProgrammaPassaSenzaRiquadro) {
  UtenteCopione utente;
  reazioni::protetta(utente, QStringLiteral("p"), QStringLiteral("m"), [&] { utente.Termina(); });
  EXPECT_TRUE(utente.terminato());
}
