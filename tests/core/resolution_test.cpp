#include "core/resolution.h"

#include <gtest/gtest.h>

#include "platform/ui/scripted_user.h"

namespace {

const QString kTesto600 = QStringLiteral(
    "La definizione dello schermo attuale e'  1024 X  600. Per un corretto funzionamento dell'applicazione, "
    "è "
    "necessaria una risoluzione dello schermo di almeno 1024 x 768. Scegliendo OK, verrà impostata "
    "automaticamente la risoluzione a 1024 x 768.");

struct Esito {
  MisureSchermo misure;
  std::vector<MisureSchermo> cambi;
};

Esito controlla(MisureSchermo misure, Utente& utente) {
  Esito esito;
  esito.misure = ControllaRisoluzione(misure, utente, [&](float l, float a) {
    esito.cambi.push_back({l, a});
  });
  return esito;
}

}  // namespace

TEST(Risoluzione, UnoSchermo1280x1024NonChiedeNullaENonCambia) {
  ScriptedUser utente;
  const Esito esito = controlla({1280, 1024}, utente);
  EXPECT_EQ(esito.misure, (MisureSchermo{1280, 1024}));
  EXPECT_TRUE(esito.cambi.empty());
  EXPECT_TRUE(utente.boxes().empty());
}

TEST(Risoluzione, LaMisuraEsattaELePiuGrandiInUnaSolaDirezioneRestanoComeSono) {
  ScriptedUser utente;
  for (const MisureSchermo misure :
       {MisureSchermo{1024, 768}, MisureSchermo{1024, 900}, MisureSchermo{1920, 768}}) {
    const Esito esito = controlla(misure, utente);
    EXPECT_EQ(esito.misure, misure);
    EXPECT_TRUE(esito.cambi.empty());
  }
  EXPECT_TRUE(utente.boxes().empty());
}

TEST(Risoluzione, UnoSchermo1024x600ChiedeEConOKCambiaModo) {
  ScriptedUser utente;
  utente.answers(Answer::Ok);
  const Esito esito = controlla({1024, 600}, utente);
  EXPECT_EQ(utente.boxes(),
            (std::vector{Box{kTesto600, Icon::None, QStringLiteral("Impostazione Risoluzione dello schermo"),
                             Buttons::OkCancel}}));
  EXPECT_EQ(esito.cambi, (std::vector{MisureSchermo{1024, 768}}));
  EXPECT_EQ(esito.misure, (MisureSchermo{1024, 768}));
}

TEST(Risoluzione, ConAnnullaNonCambiaNullaENonChiedeUnaSecondaVolta) {
  ScriptedUser utente;
  utente.answers(Answer::Cancel);
  const Esito esito = controlla({1024, 600}, utente);
  EXPECT_EQ(utente.boxes().size(), 1U);
  EXPECT_TRUE(esito.cambi.empty());
  EXPECT_EQ(esito.misure, (MisureSchermo{1024, 600}));
}

TEST(Risoluzione, UnoSchermo1280x720ChiedePerLaSolaAltezza) {
  ScriptedUser utente;
  utente.answers(Answer::Ok);
  EXPECT_EQ(controlla({1280, 720}, utente).misure, (MisureSchermo{1024, 768}));
  ASSERT_EQ(utente.boxes().size(), 1U);
  EXPECT_TRUE(utente.boxes()[0].text.startsWith(
      QStringLiteral("La definizione dello schermo attuale e'  1280 X  720. ")));
}

TEST(Risoluzione, UnoSchermoStrettoChiedePerLaSolaLarghezza) {
  ScriptedUser utente;
  utente.answers(Answer::Cancel);
  EXPECT_EQ(controlla({1023, 1200}, utente).misure, (MisureSchermo{1023, 1200}));
  EXPECT_EQ(utente.boxes().size(), 1U);
}
