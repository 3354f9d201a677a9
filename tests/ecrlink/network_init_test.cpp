#include <gtest/gtest.h>

#include "link_scene.h"

using namespace ecrlink;

namespace {

/// What InitRete says and leaves when the process has to end in it.
std::vector<Box> fineDi(Scena& scena) {
  EXPECT_THROW(SchermoLink schermo(scena.contesto), ProgramEnded);
  EXPECT_TRUE(scena.utente.terminated());
  return scena.riquadri();
}

}  // namespace

TEST(InitRete, AllAperturaIndirizzoPredefinitoEAvvioSpento) {
  Scena scena;
  SchermoLink schermo(scena.contesto);
  EXPECT_EQ(schermo.testo("vkTextBoxIP_ECR"), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(statoDi(schermo), (StatoLink{false, true, QStringLiteral("192.168.0.20")}));
}

TEST(InitRete, UnaSecondaAperturaMostraDiNuovoLIndirizzoPredefinito) {
  Scena scena;
  {
    SchermoLink prima(scena.contesto);
    prima.digita(QStringLiteral("127.9.9.9"));
    EXPECT_EQ(prima.testo("vkTextBoxIP_ECR"), QStringLiteral("127.9.9.9"));
  }
  SchermoLink seconda(scena.contesto);
  EXPECT_EQ(seconda.testo("vkTextBoxIP_ECR"), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(commonForKora().IP_ECR, QStringLiteral("192.168.0.20"));
}

TEST(InitRete, IPassiStannoNelLoroOrdine) {
  Scena scena;
  SchermoLink schermo(scena.contesto);
  EXPECT_EQ(scena.rete.passi,
            (QStringList{QStringLiteral("avvia"), QStringLiteral("nome"),
                         QStringLiteral("indirizzi di cassiera"), QStringLiteral("chiudi")}));
}

TEST(InitRete, PiuIndirizziStannoUnoPerRiga) {
  Scena scena;
  scena.rete.indirizzi = {QStringLiteral("10.1.2.3"), QStringLiteral("192.168.7.8")};
  SchermoLink schermo(scena.contesto);
  EXPECT_EQ(schermo.testo("vkTextBoxLocal_IP"), QStringLiteral("10.1.2.3\n192.168.7.8"));
}

TEST(InitRete, IlNomePassaSenzaBlankAttorno) {
  Scena scena;
  scena.rete.nome = QStringLiteral("  cassa 1 ");
  SchermoLink schermo(scena.contesto);
  EXPECT_TRUE(scena.rete.passi.contains(QStringLiteral("indirizzi di cassa 1")));
}

TEST(InitRete, SenzaNomeLoDiceELaCasellaRestaVuota) {
  for (const char* nome : {"", "   "}) {
    Scena scena;
    scena.rete.nome = QString::fromLatin1(nome);
    SchermoLink schermo(scena.contesto);
    EXPECT_EQ(
        scena.riquadri(),
        std::vector{critico(QStringLiteral("Attenzione problema di connessione di rete per il PC locale!\r\n"
                                           "Contattare l'amministratore di rete."))});
    EXPECT_EQ(schermo.testo("vkTextBoxLocal_IP"), QString());
    EXPECT_EQ(scena.rete.passi.last(), QStringLiteral("chiudi"));
    EXPECT_EQ(InitRete(schermo, scena.contesto), -1);
    EXPECT_EQ(scena.riquadri().size(), 1U);
  }
}

TEST(InitRete, ConUnNomeRendeZero) {
  Scena scena;
  SchermoLink schermo(scena.contesto);
  EXPECT_EQ(InitRete(schermo, scena.contesto), 0);
}

TEST(InitRete, UnNomeCheNonSiRisolveMostraError) {
  Scena scena;
  scena.rete.indirizzi = {QStringLiteral("<error>")};
  SchermoLink schermo(scena.contesto);
  EXPECT_EQ(schermo.testo("vkTextBoxLocal_IP"), QStringLiteral("<error>"));
}

TEST(InitRete, GliIndirizziVeriDiQuestoPCVannoNellaCasella) {
  Scena scena;
  Contesto vero{scena.utente,    scena.area,      scena.libreria,
                systemNetwork(), scena.schermate, scena.contesto.cartella};
  SchermoLink schermo(vero);
  EXPECT_EQ(schermo.testo("vkTextBoxLocal_IP").split(QLatin1Char('\n')),
            systemNetwork().localAddresses(systemNetwork().computerName()));
}

TEST(InitRete, UnaReteCheNonPartePortaAllaFine) {
  Scena scena;
  scena.rete.esitoAvvio.answers = false;
  EXPECT_EQ(fineDi(scena), std::vector{semplice(QStringLiteral("Winsock.dll is not responding."))});
  EXPECT_EQ(scena.rete.passi, QStringList{QStringLiteral("avvia")});
}

TEST(InitRete, UnaVersioneTroppoVecchiaPortaAllaFine) {
  for (const auto& [maggiore, minore] : {std::pair{1, 0}, std::pair{0, 9}}) {
    Scena scena;
    scena.rete.esitoAvvio.version = maggiore;
    scena.rete.esitoAvvio.subversion = minore;
    EXPECT_EQ(
        fineDi(scena),
        std::vector{semplice(QStringLiteral("Windows Sockets version %1.%2 is not supported by winsock.dll ")
                                 .arg(maggiore)
                                 .arg(minore))});
  }
}

TEST(InitRete, UnaVersionePiuNuovaVaBene) {
  Scena scena;
  scena.rete.esitoAvvio.version = 2;
  scena.rete.esitoAvvio.subversion = 0;
  SchermoLink schermo(scena.contesto);
  EXPECT_EQ(schermo.testo("vkTextBoxLocal_IP"), QStringLiteral("10.1.2.3"));
}

TEST(InitRete, TroppoPocheConnessioniPortanoAllaFine) {
  Scena scena;
  scena.rete.esitoAvvio.socket = 0;
  EXPECT_EQ(
      fineDi(scena),
      std::vector{semplice(QStringLiteral("This application requires a minimum of 1 supported sockets."))});
}

TEST(InitRete, UnaChiusuraFallitaPortaAllaFine) {
  Scena scena;
  scena.rete.esitoChiusura = 10093;
  EXPECT_EQ(fineDi(scena), std::vector{semplice(QStringLiteral("Socket error 10093 occurred in Cleanup "))});
}
