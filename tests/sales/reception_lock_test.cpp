#include <gtest/gtest.h>

#include "articles/back_room.h"
#include "ecrlink/transfer_lock.h"
#include "sales/Form_RicezioneVenduto.h"
#include "sostegno/guided_screen.h"

// Who received from the same till between the reading and the clearing would store the same sales again, and
// clear what the till sold meanwhile.

namespace {

const QString kAvvia = QStringLiteral("Cmd_Avvia");
constexpr int kAzzera = 5;

bool libera() {
  try {
    const ecrlink::ScambioEsclusivo altro;
    return true;
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kAccessDenied);
    return false;
  }
}

class CartellaInRicezione : public testing::Test {
 protected:
  CartellaInRicezione() {
    bottega.screens.registra<Form_RicezioneVenduto>();
    bottega.openArchive();
  }

  GuidedScreen pronto() {
    GuidedScreen schermo(bottega, QStringLiteral("Form_RicezioneVenduto"));
    schermo.connectTo(cassa);
    return schermo;
  }

  BackRoom bottega;
  TestTill cassa;
};

}  // namespace

TEST_F(CartellaInRicezione, EPresaFinoAllaRispostaDellAzzeramentoELiberaAiRiquadriDopo) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  cassa->faults({{.mode = kAzzera}});
  std::vector<bool> liberaAlRiquadro;
  bottega.user.onBox = [&](const Box&) { liberaAlRiquadro.push_back(libera()); };
  schermo.click(kAvvia);
  // The library's, of the refused clearing, then the two that tell how it ends.
  EXPECT_EQ(bottega.user.takeBoxes().size(), 3U);
  EXPECT_EQ(liberaAlRiquadro, (std::vector{false, true, true}));
}

TEST_F(CartellaInRicezione, EDiTuttiDopoUnaRicezioneRiuscita) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  std::vector<bool> liberaAlRiquadro;
  bottega.user.onBox = [&](const Box&) { liberaAlRiquadro.push_back(libera()); };
  schermo.click(kAvvia);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 1U);
  EXPECT_EQ(liberaAlRiquadro, std::vector{true});
}

TEST_F(CartellaInRicezione, ConUnAltroProgrammaAlLavoroLaSolaCancellazioneNonParte) {
  cassa.sales({{0, 100, 1, 0}});
  const GuidedScreen schermo = pronto();
  schermo.click(QStringLiteral("vkOptionButtonReset"));
  const QByteArray prima = cassa.byte(QStringLiteral("venduto.bin"));
  const ecrlink::ScambioEsclusivo altro;
  schermo.click(kAvvia);
  const std::vector<Box> riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 2U);
  EXPECT_EQ(riquadri[0].icon, Icon::Warning);
  EXPECT_TRUE(riquadri[0].text.startsWith(
      QStringLiteral("Un altro programma sta scambiando dati con una cassa nella cartella ")));
  EXPECT_EQ(riquadri[1].text, QStringLiteral("Errore durante la trasmissione/ricezione. "));
  EXPECT_TRUE(cassa.byte(QStringLiteral("venduto.bin")) == prima);
}
