#include "controls/disabled_reason.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace {

const QString kSolita = QStringLiteral("Importa gli articoli");
const QString kPerche = QStringLiteral("Prima si apre un archivio");

struct ComandoSpento : testing::Test {
  QPushButton comando;
  ComandoSpento() { comando.setToolTip(kSolita); }
};

}  // namespace

TEST_F(ComandoSpento, DicePercheFinchePerdura) {
  tellWhyDisabled(comando, kPerche);
  EXPECT_EQ(comando.toolTip(), kSolita);
  comando.setEnabled(false);
  EXPECT_EQ(comando.toolTip(), kPerche);
  comando.setEnabled(true);
  EXPECT_EQ(comando.toolTip(), kSolita);
  comando.setEnabled(false);
  EXPECT_EQ(comando.toolTip(), kPerche);
}

TEST_F(ComandoSpento, ChiEGiaSpentoLoDiceSubito) {
  comando.setEnabled(false);
  tellWhyDisabled(comando, kPerche);
  EXPECT_EQ(comando.toolTip(), kPerche);
  comando.setEnabled(true);
  EXPECT_EQ(comando.toolTip(), kSolita);
}

TEST_F(ComandoSpento, UnAltroMotivoPrendeIlPostoDelPrimo) {
  comando.setEnabled(false);
  tellWhyDisabled(comando, kPerche);
  tellWhyDisabled(comando, QStringLiteral("Attendere"));
  EXPECT_EQ(comando.toolTip(), QStringLiteral("Attendere"));
  comando.setEnabled(true);
  EXPECT_EQ(comando.toolTip(), kSolita);
}

TEST_F(ComandoSpento, UnaSpiegazioneCambiataDaAccesoETenuta) {
  tellWhyDisabled(comando, kPerche);
  comando.setToolTip(QStringLiteral("Nuova"));
  comando.setEnabled(false);
  comando.setEnabled(true);
  EXPECT_EQ(comando.toolTip(), QStringLiteral("Nuova"));
}

TEST_F(ComandoSpento, SiSpegneAncheConIlSuoRiquadro) {
  QWidget riquadro;
  auto* dentro = new QPushButton(&riquadro);
  dentro->setToolTip(kSolita);
  tellWhyDisabled(*dentro, kPerche);
  riquadro.setEnabled(false);
  EXPECT_EQ(dentro->toolTip(), kPerche);
}
