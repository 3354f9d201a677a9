#include "config_transfer/transfer_scene.h"
#include "controls/outcome_bar.h"
#include "ecrlink/transfer_lock.h"

namespace {

const Box kBlocco = domanda("FUNZIONE NON ATTIVABILE. VUOI EFFETTUARE L'AZZERAMENTO FISCALE?");
const Box kSicuro = domanda(
    "Attenzione questa operazione comporterà l'azzeramento completo della programmazione della cassa. "
    "Continuare "
    "?");
const Box kAzzerato = informa("AZZERAMENTO EFFETTUATO CORRETTAMENTE");
const Box kNonAzzerato = critico("AZZERAMENTO NON EFFETTUATO");
const Box kTrasferita = informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA");
const Box kRicevuta = informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA");
const Box kScelta = box(QStringLiteral("Selezionare una delle opzioni !!!"), Icon::Warning);

ecrsim::Options conDatiFiscali() {
  ecrsim::Options opzioni;
  opzioni.fiscal = 3;
  return opzioni;
}

/// Which of start, exit and "Connetti" were on at each box: "A", "E", "C".
class ConRiquadri : public BancoTrasferimento {
 protected:
  using BancoTrasferimento::BancoTrasferimento;
  void osserva(const GuidedScreen& schermo) {
    bottega.user.onBox = [this, &schermo](const Box&) {
      QString accesi;
      if (schermo.enabled(kAvvia)) accesi += u'A';
      if (schermo.enabled(kEsci)) accesi += u'E';
      if (schermo.enabled(kConnetti)) accesi += u'C';
      aiRiquadri << accesi;
    };
  }
  QStringList aiRiquadri;
};

class CassaBloccata : public ConRiquadri {
 protected:
  CassaBloccata() : ConRiquadri(conDatiFiscali()) {}
};
class ResetDellaCassa : public ConRiquadri {};

/// The closure alone, and the connection behind it.
const QStringList kChiusuraERicollegamento{QStringLiteral("8:"), QStringLiteral("2:"), QStringLiteral("0:")};

}  // namespace

TEST_F(CassaBloccata, AllaConnessioneSiDiceAlPiede) {
  const GuidedScreen schermo = pronto(kInvia);
  EXPECT_TRUE(piede(schermo).endsWith(QStringLiteral(
      ": IDLE. La cassa ha dati fiscali non chiusi: invio e reset chiedono prima l'azzeramento.")))
      << piede(schermo).toStdString();
}

TEST_F(CassaBloccata, AnnullaFinisceIlComandoENullaParte) {
  bottega.user.answers(Answer::Cancel);
  const GuidedScreen schermo = pronto(kInvia);
  osserva(schermo);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kBlocco});
  EXPECT_EQ(chiamate(), QStringList());
  // The question comes before the commands are switched off.
  EXPECT_EQ(aiRiquadri, (QStringList{QStringLiteral("AE")}));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(piede(schermo), QStringLiteral("Annullato: la cassa ha ancora i suoi dati fiscali non chiusi."));
}

TEST_F(CassaBloccata, ConOkEUnAzzeramentoFallitoIlComandoFinisceLi) {
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kInvia);
  cassa->faults({{.mode = 8}});
  osserva(schermo);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kBlocco, kComunicazione, kNonAzzerato});
  EXPECT_EQ(chiamate(), (QStringList{QStringLiteral("8:")}));
  EXPECT_EQ(aiRiquadri, (QStringList{QStringLiteral("AE"), QStringLiteral("AE"), QStringLiteral("AE")}));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  // The next start asks again.
  bottega.user.onBox = nullptr;
  bottega.user.answers(Answer::Cancel);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kBlocco});
}

TEST_F(CassaBloccata, ConOkSiAzzeraCiSiRicollegaESiInvia) {
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kInvia);
  osserva(schermo);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kBlocco, kAzzerato, kTrasferita});
  EXPECT_EQ(chiamate(), kChiusuraERicollegamento + scambi(6, ordineInvio()));
  EXPECT_EQ(aiRiquadri, (QStringList{QStringLiteral("AE"), QStringLiteral("AE"), QString()}));
  EXPECT_EQ(commonForKora().ECR_INFO.InfoDatiFiscali, QStringLiteral("0"));
  EXPECT_TRUE(cassa.byte(QStringLiteral("iva.bin")) == fileDi(disegno(1), QStringLiteral("iva.bin")));
}

TEST_F(CassaBloccata, ConOkEIlResetSceltoSiChiedeAncoraESiAzzeraDiNuovo) {
  bottega.user.answers(Answer::Ok).answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kReset);
  osserva(schermo);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kBlocco, kAzzerato, kSicuro, kAzzerato});
  EXPECT_EQ(chiamate(), kChiusuraERicollegamento + QStringList{QStringLiteral("8:")});
  EXPECT_EQ(aiRiquadri, (QStringList{QStringLiteral("AE"), QStringLiteral("AE"), QString(), QString()}));
}

TEST_F(CassaBloccata, LaRicezioneNonChiedeNulla) {
  programmaCassa();
  const GuidedScreen schermo = pronto(kRicevi);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(chiamate(), scambi(7, ordineRicezione()));
}

TEST_F(CassaBloccata, SenzaUnaSceltaSiChiedeLoStesso) {
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(cassa);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kBlocco, kAzzerato, kScelta});
}

TEST_F(CassaBloccata, SeDopoLAzzeramentoLaCassaNonAmmetteTrasferimentiLInvioFallisce) {
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kInvia);
  bottega.user.onBox = [&](const Box& riquadro) {
    if (riquadro.text.startsWith(QStringLiteral("AZZERAMENTO"))) cassa->state('V');
  };
  schermo.click(kAvvia);
  bottega.user.onBox = nullptr;
  expectBoxes(bottega, {kBlocco, kAzzerato,
                        critico("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o "
                                "PROGRAMMAZIONE"),
                        kComunicazione, fallitoFile(QStringLiteral("intestazione.bin")),
                        critico("Fallita operazione invio configurazione all'ECR")});
  EXPECT_EQ(chiamate(), kChiusuraERicollegamento);
  EXPECT_FALSE(schermo.enabled(kConnetti));
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(CassaBloccata, ChiHaVendutoDopoLaConnessioneERifiutatoDallaCassa) {
  ecrsim::Options opzioni;
  TestTill altra(opzioni);
  altra.put(QStringLiteral("plu.bin"), expectedImage(testArticles(50)));
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.connectTo(altra);
  schermo.click(kInvia);
  ASSERT_GT(altra->salesDay(5, 1), 0);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitoFile(QStringLiteral("intestazione.bin")),
                        critico("Fallita operazione invio configurazione all'ECR")});
}

class DatiFiscali : public ConRiquadri, public testing::WithParamInterface<const char*> {};

TEST_P(DatiFiscali, CheNonSonoUnNumeroSopraLoZeroNonBloccano) {
  const GuidedScreen schermo = pronto(kInvia);
  commonForKora().ECR_INFO.InfoDatiFiscali = QString::fromLatin1(GetParam());
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
}
INSTANTIATE_TEST_SUITE_P(Valori, DatiFiscali, testing::Values("", "0", "000", "-5", "SI", "0,9", "    "));

class DatiFiscaliAperti : public ConRiquadri, public testing::WithParamInterface<const char*> {};

TEST_P(DatiFiscaliAperti, BloccanoQualunqueNumeroSopraLoZero) {
  bottega.user.answers(Answer::Cancel);
  const GuidedScreen schermo = pronto(kInvia);
  commonForKora().ECR_INFO.InfoDatiFiscali = QString::fromLatin1(GetParam());
  schermo.click(kAvvia);
  expectBoxes(bottega, {kBlocco});
}
INSTANTIATE_TEST_SUITE_P(Valori, DatiFiscaliAperti,
                         testing::Values("1", "0.5", " 12 ", "7 dati", "99999999"));

// The reset that is chosen.

TEST_F(ResetDellaCassa, ConOkChiudeIDatiFiscaliSenzaTrasferimento) {
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kReset);
  osserva(schermo);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kSicuro, kAzzerato});
  EXPECT_EQ(chiamate(), (QStringList{QStringLiteral("8:")}));
  EXPECT_EQ(aiRiquadri, (QStringList{QString(), QString()}));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_FALSE(schermo.enabled(kConnetti));
  EXPECT_EQ(piede(schermo), QStringLiteral("Azzerata la cassa ") + cassa.address());
}

TEST_F(CassaBloccata, DopoLAzzeramentoDiUnaCassaCheRifiutaSenzaOpzioneAvviaRestaSpento) {
  const GuidedScreen schermo = pronto(QStringLiteral("vkOptionButtonSendCodiceTastiera"));
  bottega.user.answers(Answer::Ok);
  bottega.user.onBox = [&](const Box& visto) {
    if (visto.text.startsWith(QStringLiteral("AZZERAMENTO EFF"))) cassa->state('V');
  };
  schermo.click(kAvvia);
  bottega.user.onBox = nullptr;
  bottega.takeBoxes();
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(ResetDellaCassa, ConAnnullaLaCassaRestaComEra) {
  bottega.user.answers(Answer::Cancel);
  const GuidedScreen schermo = pronto(kReset);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kSicuro});
  EXPECT_EQ(chiamate(), QStringList());
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_TRUE(schermo.enabled(kAvvia)) << "nothing was done";
  EXPECT_EQ(piede(schermo), QStringLiteral("Annullato: la cassa è rimasta com'era."));
}

TEST_F(ResetDellaCassa, FallitoSiDiceESiPuoUscire) {
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kReset);
  cassa->faults({{.mode = 8}});
  osserva(schermo);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kSicuro, kComunicazione, kNonAzzerato});
  EXPECT_EQ(aiRiquadri, (QStringList{QString(), QString(), QString()}));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), OutcomeBar::Kind::Failed);
}

TEST_F(ResetDellaCassa, MentreUnAltroProgrammaScambiaNonSiFa) {
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kReset);
  {
    const ecrlink::ScambioEsclusivo altro;
    schermo.click(kAvvia);
  }
  expectBoxes(bottega,
              {kSicuro, critico("Un altro programma sta scambiando dati con una cassa nella cartella *"),
               kNonAzzerato});
  EXPECT_EQ(chiamate(), QStringList());
}

class ResetConGuasto : public ConRiquadri, public testing::WithParamInterface<ecrsim::FaultKind> {};

TEST_P(ResetConGuasto, SiDiceNonEffettuato) {
  const ShortTimeouts breve;
  bottega.user.answers(Answer::Ok);
  const GuidedScreen schermo = pronto(kReset);
  cassa->faults({{.mode = 8, .what = GetParam()}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kSicuro, kComunicazione, kNonAzzerato});
  EXPECT_TRUE(schermo.enabled(kEsci));
}
INSTANTIATE_TEST_SUITE_P(Guasti, ResetConGuasto,
                         testing::Values(ecrsim::FaultKind::Code, ecrsim::FaultKind::Silence,
                                         ecrsim::FaultKind::CutBefore, ecrsim::FaultKind::CutWithin,
                                         ecrsim::FaultKind::CutAfter, ecrsim::FaultKind::Garbage),
                         [](const auto& caso) { return faultName(8, caso.param); });
