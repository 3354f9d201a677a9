#include <gtest/gtest.h>

#include <QProgressBar>
#include <QRadioButton>

#include "articles/back_room.h"
#include "sales/Form_RicezioneVenduto.h"
#include "sostegno/guided_screen.h"

namespace {

/// The story of one click on the start command: the till's calls, the boxes by their beginning and the first
/// event passes, and behind each the state that it met.
struct OrdineRicezione : testing::Test {
  BackRoom bottega;
  TestTill cassa;
  std::unique_ptr<GuidedScreen> schermo;
  QStringList voci;
  qsizetype chiamate = 0;
  int passaggi = 0;

  OrdineRicezione() {
    bottega.screens.registra<Form_RicezioneVenduto>();
    bottega.openArchive();
    schermo = std::make_unique<GuidedScreen>(bottega, QStringLiteral("Form_RicezioneVenduto"));
    schermo->connectTo(cassa);
    chiamate = callsOf(cassa).size();
    cassa.sales({{0, 100, 1, 0}});
  }
  QString stato() {
    if (!schermo->alive()) return QStringLiteral("scaricato");
    QStringList parti{QStringLiteral("barra %1").arg(schermo->control<QProgressBar>("vkBar1").value()),
                      QStringLiteral("livello %1").arg(bottega.workspace.level())};
    if (schermo->enabled(QStringLiteral("Cmd_Avvia"))) parti << QStringLiteral("avvia");
    if (schermo->enabled(QStringLiteral("Cmd_Esci"))) parti << QStringLiteral("esci");
    if (!sales::AvvisoAzzeramentoInSospeso().isEmpty()) parti << QStringLiteral("in sospeso");
    return parti.join(QStringLiteral(", "));
  }
  void annota(const QString& cosa) {
    for (const QStringList tutte = callsOf(cassa); chiamate < tutte.size(); ++chiamate)
      voci << tutte[chiamate];
    voci << cosa + QStringLiteral(" [") + stato() + u']';
  }
  int righe() { return bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO")); }

  QStringList avvia() {
    constexpr qsizetype kRiconoscibile = 32;
    constexpr int kPassaggi = 2;
    voci.clear();
    passaggi = 0;
    bottega.user.onBox = [this](const Box& riquadro) { annota(riquadro.text.left(kRiconoscibile)); };
    bottega.user.onPass = [this] {
      if (passaggi++ < kPassaggi) annota(QStringLiteral("passaggio con %1 righe").arg(righe()));
    };
    schermo->click(QStringLiteral("Cmd_Avvia"));
    bottega.user.onBox = nullptr;
    bottega.user.onPass = nullptr;
    annota(QStringLiteral("fine"));
    bottega.takeBoxes();
    return voci;
  }
};

TEST_F(OrdineRicezione, SiConfermaSiAzzeraSiDiceESiRiaccendonoIComandi) {
  EXPECT_EQ(avvia(), (QStringList{QStringLiteral("1:"), QStringLiteral("7:venduto.bin"), QStringLiteral("2:"),
                                  QStringLiteral("passaggio con 0 righe [barra 0, livello 1]"),
                                  QStringLiteral("passaggio con 1 righe [barra 1, livello 1]"),
                                  QStringLiteral("1:"), QStringLiteral("5:"), QStringLiteral("2:"),
                                  QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E  [barra 4999, livello 0]"),
                                  QStringLiteral("fine [barra 4999, livello 0, avvia, esci]")}));
  EXPECT_EQ(schermo->focus(), QStringLiteral("Cmd_Esci"));
}

TEST_F(OrdineRicezione, DopoUnaRicezioneLAzzeramentoRiportaLaBarraAZero) {
  avvia();
  schermo->control<QRadioButton>("vkOptionButtonReset").click();
  EXPECT_EQ(avvia(), (QStringList{QStringLiteral("1:"), QStringLiteral("5:"), QStringLiteral("2:"),
                                  QStringLiteral("ARCHIVIO DEL VENDUTO AZZERATO CO [barra 0, livello 0]"),
                                  QStringLiteral("fine [barra 0, livello 0, avvia, esci]")}));
}

TEST_F(OrdineRicezione, UnaConsegnaFallitaDopoUnaRiuscitaTrovaLaBarraAZeroERiaccendeLUscitaPrimaDellUltimo) {
  avvia();
  cassa->faults({{.mode = 7, .what = ecrsim::FaultKind::Code, .code = 16}});
  EXPECT_EQ(avvia(),
            (QStringList{QStringLiteral("1:"), QStringLiteral("7:venduto.bin"),
                         QStringLiteral("Errore nella comunicazione con E [barra 0, livello 0]"),
                         QStringLiteral("Errore nell'invio richiesta dati [barra 0, livello 0]"),
                         QStringLiteral("Errore durante la trasmissione/r [barra 0, livello 0, esci]"),
                         QStringLiteral("fine [scaricato]")}));
}

TEST_F(OrdineRicezione, UnCaricamentoFallitoSiAnnullaPrimaDiDirloERiaccendeLaSolaUscita) {
  bottega.execute(QStringLiteral("DROP TABLE TAB_VENDUTO"));
  bottega.execute(QStringLiteral("CREATE TABLE TAB_VENDUTO (a INTEGER)"));
  EXPECT_EQ(avvia(), (QStringList{QStringLiteral("1:"), QStringLiteral("7:venduto.bin"), QStringLiteral("2:"),
                                  QStringLiteral("passaggio con 0 righe [barra 0, livello 1]"),
                                  QStringLiteral("Errore nel caricamento dati nell [barra 0, livello 0]"),
                                  QStringLiteral("fine [barra 0, livello 0, esci]")}));
}

TEST_F(OrdineRicezione, UnAzzeramentoFallitoLasciaLaNotaDelleVenditeGiaRicevute) {
  cassa->faults({{.mode = 5, .what = ecrsim::FaultKind::Code, .code = 16}});
  EXPECT_EQ(avvia(),
            (QStringList{
                QStringLiteral("1:"), QStringLiteral("7:venduto.bin"), QStringLiteral("2:"),
                QStringLiteral("passaggio con 0 righe [barra 0, livello 1]"),
                QStringLiteral("passaggio con 1 righe [barra 1, livello 1]"), QStringLiteral("1:"),
                QStringLiteral("5:"),
                QStringLiteral("Errore nella comunicazione con E [barra 4999, livello 0, in sospeso]"),
                QStringLiteral("Errore nell'invio richiesta rese [barra 4999, livello 0, in sospeso]"),
                QStringLiteral("Errore durante la trasmissione/r [barra 4999, livello 0, esci, in sospeso]"),
                QStringLiteral("fine [scaricato]")}));
}

}  // namespace
