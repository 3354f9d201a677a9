#include "config/Form_TrasferimentoProgrammazione.h"

#include <QAbstractButton>
#include <QDir>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>

#include "config_transfer/transfer_scene.h"
#include "controls/outcome_bar.h"
#include "ecrlink/painted_steps.h"

namespace {

const Box kTrasferita = informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA");
const Box kRicevuta = informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA");
const Box kScelta = box(QStringLiteral("Selezionare una delle opzioni !!!"), Icon::Warning);

class TrasferimentoProgrammazione : public BancoTrasferimento {
 protected:
  /// What somebody does who does not wait: every control that is on, the exit, Esc and the frame, at each
  /// pass.
  void impaziente(const GuidedScreen& schermo) {
    bottega.user.onPass = [&schermo] {
      for (QAbstractButton* comando : schermo.window().findChildren<QAbstractButton*>())
        if (comando->isVisible() && comando->isEnabled()) postClick(*comando);
      schermo.impatience();
    };
  }
  /// Clicks "Avvia", and returns which commands were on while a box was shown.
  QStringList accesiAiRiquadri(const GuidedScreen& schermo) {
    QStringList accesi;
    bottega.user.onBox = [&](const Box&) {
      for (const QString& comando : {kAvvia, kEsci, kConnetti})
        if (schermo.enabled(comando)) accesi << comando;
    };
    schermo.click(kAvvia);
    bottega.user.onBox = nullptr;
    return accesi;
  }
};

}  // namespace

TEST_F(TrasferimentoProgrammazione, AllAperturaNessunaOpzioneESceltaEAvviaESpento) {
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Trasferimento Programmazione"));
  EXPECT_EQ(schermo.text(kInvia), QStringLiteral("Aggiornamento configurazione della programmazione ECR"));
  EXPECT_EQ(schermo.text(kRicevi), QStringLiteral("Ricezione configurazione della programmazione ECR"));
  EXPECT_EQ(schermo.text(kReset), QStringLiteral("Reset"));
  EXPECT_EQ(schermo.text(kTastiera), QStringLiteral("Invio Codici Tastiera"));
  EXPECT_EQ(schermo.text(kAvvia), QStringLiteral("Avvia"));
  EXPECT_EQ(schermo.text(kEsci), QStringLiteral("Esci"));
  EXPECT_EQ(schermo.text(kConnetti), QStringLiteral("Connetti"));
  for (const QString& opzione : {kInvia, kRicevi, kReset, kTastiera})
    EXPECT_FALSE(schermo.control<QRadioButton>(opzione).isChecked()) << opzione.toStdString();
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelConfigurazione")),
            QStringLiteral("Configurazione: negozio.dat"));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).text(), QString());
}

TEST_F(TrasferimentoProgrammazione, AccantoAlResetSiLeggeCheCosaSiPerde) {
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.text(QStringLiteral("LabelPerdita")),
            QStringLiteral("Azzera la cassa: la programmazione che non è stata ricevuta prima va persa."));
  EXPECT_TRUE(schermo.control(QStringLiteral("LabelPerdita")).property("danger").toBool());
  EXPECT_TRUE(schermo.control(QStringLiteral("LabelPerdita")).isVisible());
}

TEST_F(TrasferimentoProgrammazione, SenzaUnaSceltaSiDiceENullaParte) {
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  const qsizetype prima = callsOf(cassa).size();
  const QStringList accesi = accesiAiRiquadri(schermo);
  expectBoxes(bottega, {kScelta});
  EXPECT_EQ(accesi, QStringList());
  EXPECT_EQ(callsOf(cassa).size(), prima);
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(TrasferimentoProgrammazione, ICodiciTastieraDaSoliNonSonoUnaDelleOpzioni) {
  const GuidedScreen schermo = pronto(kTastiera);
  ASSERT_TRUE(schermo.control<QRadioButton>(kTastiera).isChecked());
  schermo.click(kAvvia);
  expectBoxes(bottega, {kScelta});
  EXPECT_EQ(chiamate(), QStringList());
  EXPECT_TRUE(schermo.enabled(kAvvia)) << "who forgot to choose starts again from here";
}

TEST_F(TrasferimentoProgrammazione, IComandiSonoSpentiAlRiquadroDellInvio) {
  const GuidedScreen schermo = pronto(kInvia);
  const QStringList accesi = accesiAiRiquadri(schermo);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_EQ(accesi, QStringList());
}

TEST_F(TrasferimentoProgrammazione, IComandiSonoSpentiAiRiquadriDiUnaRicezioneInterrotta) {
  programmaCassa();
  const GuidedScreen schermo = pronto(kRicevi);
  cassa->faults({{.mode = 7, .file = "val.bin"}});
  const QStringList accesi = accesiAiRiquadri(schermo);
  expectBoxes(bottega, {kComunicazione, fallitaRichiesta(QStringLiteral("val.bin")),
                        critico("Errore durante la programmazione. ")});
  EXPECT_EQ(accesi, QStringList());
}

TEST_F(TrasferimentoProgrammazione, IComandiSonoSpentiAlRiquadroDellaRicezione) {
  programmaCassa();
  const GuidedScreen schermo = pronto(kRicevi);
  const QStringList accesi = accesiAiRiquadri(schermo);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(accesi, QStringList());
}

TEST_F(TrasferimentoProgrammazione, ClicSuTuttoEscEChiusuraDuranteLInvioNonFannoNulla) {
  const GuidedScreen schermo = pronto(kInvia);
  impaziente(schermo);
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {kTrasferita});
  EXPECT_EQ(bottega.user.passes(), 9);
  EXPECT_EQ(chiamate(), scambi(6, ordineInvio()));
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(schermo.control<QRadioButton>(kInvia).isChecked());
}

TEST_F(TrasferimentoProgrammazione, ClicSuTuttoEscEChiusuraDuranteLaRicezioneNonFannoNulla) {
  programmaCassa();
  const GuidedScreen schermo = pronto(kRicevi);
  impaziente(schermo);
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(chiamate(), scambi(7, ordineRicezione()));
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(schermo.control<QRadioButton>(kRicevi).isChecked());
}

TEST_F(TrasferimentoProgrammazione, OgniPassoSiLeggePrimaDellaSuaChiamata) {
  const GuidedScreen schermo = pronto(kInvia);
  PaintedSteps dipinti(schermo.window());
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  QStringList attesi;
  for (const QString& file : ordineInvio())
    attesi << QStringLiteral("Apertura del trasferimento … (fino a 5 s)")
           << QStringLiteral("Invio di %1 … (fino a 5 s)").arg(file)
           << QStringLiteral("Chiusura del trasferimento … (fino a 5 s)");
  EXPECT_EQ(dipinti.steps(), attesi);
}

TEST_F(TrasferimentoProgrammazione, F9AvviaELoDiceIlSuggerimento) {
  const GuidedScreen schermo = pronto(kInvia);
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Avvia l'operazione scelta (F9)"));
  schermo.key(Qt::Key_F9);
  expectBoxes(bottega, {kTrasferita});
}

TEST_F(TrasferimentoProgrammazione, ConISoliTastiSiSceglieESiInvia) {
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.typeAddress(cassa.address());
  schermo.key(Qt::Key_Return);
  ASSERT_TRUE(schermo.enabled(kAvvia));
  schermo.control(QStringLiteral("vkTextBoxIP_ECR")).setFocus();
  schermo.key(Qt::Key_Tab);
  ASSERT_EQ(schermo.focus(), kInvia);
  schermo.key(Qt::Key_Space);
  schermo.key(Qt::Key_Tab);
  ASSERT_EQ(schermo.focus(), kAvvia);
  schermo.key(Qt::Key_Space);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_EQ(schermo.focus(), kEsci);
}

TEST_F(TrasferimentoProgrammazione, LeFrecceArrivanoAOgniOpzione) {
  const GuidedScreen schermo = pronto(kInvia);
  schermo.control(kInvia).setFocus();
  for (const QString& opzione : {kRicevi, kReset, kTastiera}) {
    schermo.key(Qt::Key_Down);
    EXPECT_TRUE(schermo.control<QRadioButton>(opzione).isChecked()) << opzione.toStdString();
  }
}

TEST_F(TrasferimentoProgrammazione, LaCassaSpentaDopoLaConnessioneSiDiceESiPuoUscire) {
  const GuidedScreen schermo = pronto(kRicevi);
  cassa.switchOff();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitaRichiesta(QStringLiteral("intestazione.bin")),
                        critico("Errore durante la programmazione. ")});
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(TrasferimentoProgrammazione, UscitiERientratiDopoUnGuastoSiRipete) {
  {
    const GuidedScreen schermo = pronto(kInvia);
    cassa->faults({{.mode = 6, .file = "logo.bin", .times = 1}});
    schermo.click(kAvvia);
    EXPECT_EQ(bottega.takeBoxes().size(), 3U);
    EXPECT_TRUE(cassa->transferOpen());
    schermo.click(kEsci);
  }
  const GuidedScreen ancora = pronto(kInvia);
  ancora.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_TRUE(cassa.byte(QStringLiteral("logo.bin")) == fileDi(disegno(1), QStringLiteral("logo.bin")));
}

TEST_F(TrasferimentoProgrammazione, EsciRiportaAllaConfigurazione) {
  bottega.screens.registra(QStringLiteral("MDIForm_PRG"), [](Contesto&) { return new QWidget; });
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  QWidget* casa = bottega.screens.trova(QStringLiteral("MDIForm_PRG"));
  ASSERT_NE(casa, nullptr);
  EXPECT_TRUE(casa->isVisible());
}

TEST_F(TrasferimentoProgrammazione, ModaleFinisceConEsci) {
  withModal([&] { bottega.screens.mostraModale(kSchermo, bottega.contesto); },
            [&](QWidget& schermo) {
              EXPECT_TRUE(schermo.isModal());
              QTest::mouseClick(schermo.findChild<QWidget*>(kEsci), Qt::LeftButton);
            });
  EXPECT_EQ(bottega.screens.trova(kSchermo), nullptr);
}

TEST_F(TrasferimentoProgrammazione, ADodiciPuntiStaIn1024SenzaTagliareDidascalie) {
  const GuidedScreen schermo = pronto(kInvia);
  expectFitsAtTwelvePoints(schermo);
}

TEST_F(TrasferimentoProgrammazione, SenzaFileDiConfigurazioneNonSiSalvaESiDice) {
  programmaCassa();
  varGestionePRG().PathConfigurazione.clear();
  const GuidedScreen schermo = pronto(kRicevi);
  schermo.click(kAvvia);
  const std::vector<Box> visti = bottega.takeBoxes();
  ASSERT_EQ(visti.size(), 1U) << testing::PrintToString(visti);
  EXPECT_TRUE(
      visti[0].text.endsWith(QStringLiteral("in procedure SalvaConfigurazione of Modulo CommonForKora")));
}
