#include <gtest/gtest.h>

#include "ecrlink/link_scene.h"

using namespace ecrlink;

namespace {

/// What InitRete says and leaves when the process has to end in it.
std::vector<Box> fineDi(ProgramFixture& scena) {
  EXPECT_THROW(LinkScreen schermo(scena.contesto), ProgramEnded);
  EXPECT_TRUE(scena.user.terminated());
  return scena.takeBoxes();
}

}  // namespace

TEST(InitRete, AllAperturaIndirizzoPredefinitoEAvvioSpento) {
  ProgramFixture scena;
  LinkScreen schermo(scena.contesto);
  EXPECT_EQ(schermo.text("vkTextBoxIP_ECR"), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QStringLiteral("192.168.0.20")}));
}

TEST(InitRete, UnaSecondaAperturaMostraDiNuovoLIndirizzoPredefinito) {
  ProgramFixture scena;
  {
    LinkScreen prima(scena.contesto);
    prima.typeAddress(QStringLiteral("127.9.9.9"));
    EXPECT_EQ(prima.text("vkTextBoxIP_ECR"), QStringLiteral("127.9.9.9"));
  }
  LinkScreen seconda(scena.contesto);
  EXPECT_EQ(seconda.text("vkTextBoxIP_ECR"), QStringLiteral("192.168.0.20"));
  EXPECT_EQ(commonForKora().IP_ECR, QStringLiteral("192.168.0.20"));
}

TEST(InitRete, IPassiStannoNelLoroOrdine) {
  ProgramFixture scena;
  LinkScreen schermo(scena.contesto);
  EXPECT_EQ(scena.network.steps,
            (QStringList{QStringLiteral("avvia"), QStringLiteral("nome"),
                         QStringLiteral("indirizzi di cassiera"), QStringLiteral("chiudi")}));
}

TEST(InitRete, PiuIndirizziStannoUnoPerRiga) {
  ProgramFixture scena;
  scena.network.addresses = {QStringLiteral("10.1.2.3"), QStringLiteral("192.168.7.8")};
  LinkScreen schermo(scena.contesto);
  EXPECT_EQ(schermo.text("vkTextBoxLocal_IP"), QStringLiteral("10.1.2.3\n192.168.7.8"));
}

TEST(InitRete, IlNomePassaSenzaBlankAttorno) {
  ProgramFixture scena;
  scena.network.name = QStringLiteral("  cassa 1 ");
  LinkScreen schermo(scena.contesto);
  EXPECT_TRUE(scena.network.steps.contains(QStringLiteral("indirizzi di cassa 1")));
}

TEST(InitRete, SenzaNomeLoDiceELaCasellaRestaVuota) {
  for (const char* nome : {"", "   "}) {
    ProgramFixture scena;
    scena.network.name = QString::fromLatin1(nome);
    LinkScreen schermo(scena.contesto);
    EXPECT_EQ(scena.takeBoxes(), std::vector{criticalBox(QStringLiteral(
                                     "Attenzione problema di connessione di rete per il PC locale!\r\n"
                                     "Contattare l'amministratore di rete."))});
    EXPECT_EQ(schermo.text("vkTextBoxLocal_IP"), QString());
    EXPECT_EQ(scena.network.steps.last(), QStringLiteral("chiudi"));
    EXPECT_EQ(InitRete(schermo.view(), scena.contesto), -1);
    EXPECT_EQ(scena.takeBoxes().size(), 1U);
  }
}

TEST(InitRete, ConUnNomeRendeZero) {
  ProgramFixture scena;
  LinkScreen schermo(scena.contesto);
  EXPECT_EQ(InitRete(schermo.view(), scena.contesto), 0);
}

TEST(InitRete, UnNomeCheNonSiRisolveMostraError) {
  ProgramFixture scena;
  scena.network.addresses = {QStringLiteral("<error>")};
  LinkScreen schermo(scena.contesto);
  EXPECT_EQ(schermo.text("vkTextBoxLocal_IP"), QStringLiteral("<error>"));
}

TEST(InitRete, GliIndirizziVeriDiQuestoPCVannoNellaCasella) {
  ProgramFixture scena;
  Contesto vero{scena.user,    scena.workspace, scena.library,          systemNetwork(),
                scena.screens, scena.clock,     scena.contesto.cartella};
  LinkScreen schermo(vero);
  EXPECT_EQ(schermo.text("vkTextBoxLocal_IP").split(QLatin1Char('\n')),
            systemNetwork().localAddresses(systemNetwork().computerName()));
}

TEST(InitRete, UnaReteCheNonPartePortaAllaFine) {
  ProgramFixture scena;
  scena.network.startup.answers = false;
  EXPECT_EQ(fineDi(scena), std::vector{plainBox(QStringLiteral("Winsock.dll is not responding."))});
  EXPECT_EQ(scena.network.steps, QStringList{QStringLiteral("avvia")});
}

TEST(InitRete, UnaVersioneTroppoVecchiaPortaAllaFine) {
  for (const auto& [maggiore, minore] : {std::pair{1, 0}, std::pair{0, 9}}) {
    ProgramFixture scena;
    scena.network.startup.version = maggiore;
    scena.network.startup.subversion = minore;
    EXPECT_EQ(
        fineDi(scena),
        std::vector{plainBox(QStringLiteral("Windows Sockets version %1.%2 is not supported by winsock.dll ")
                                 .arg(maggiore)
                                 .arg(minore))});
  }
}

TEST(InitRete, UnaVersionePiuNuovaVaBene) {
  ProgramFixture scena;
  scena.network.startup.version = 2;
  scena.network.startup.subversion = 0;
  LinkScreen schermo(scena.contesto);
  EXPECT_EQ(schermo.text("vkTextBoxLocal_IP"), QStringLiteral("10.1.2.3"));
}

TEST(InitRete, TroppoPocheConnessioniPortanoAllaFine) {
  ProgramFixture scena;
  scena.network.startup.socket = 0;
  EXPECT_EQ(
      fineDi(scena),
      std::vector{plainBox(QStringLiteral("This application requires a minimum of 1 supported sockets."))});
}

TEST(InitRete, UnaChiusuraFallitaPortaAllaFine) {
  ProgramFixture scena;
  scena.network.closing = 10093;
  EXPECT_EQ(fineDi(scena), std::vector{plainBox(QStringLiteral("Socket error 10093 occurred in Cleanup "))});
}
