#include "platform/net/indirizzi.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include "platform/net/rete.h"

TEST(IndirizziLocali, LeInterfacceDannoSoloIPv4SenzaLoopback) {
  for (const QString& testo : rete::indirizziDelleInterfacce()) {
    in_addr indirizzo{};
    EXPECT_EQ(::inet_pton(AF_INET, testo.toLatin1().constData(), &indirizzo), 1) << testo.toStdString();
    EXPECT_NE(ntohl(indirizzo.s_addr) >> 24, 127u) << testo.toStdString();
  }
}

TEST(IndirizziLocali, UnNomeSiRisolveInFormaPuntata) {
  EXPECT_EQ(rete::indirizziDelNome(QStringLiteral("127.0.0.7")), QStringList{QStringLiteral("127.0.0.7")});
}

TEST(IndirizziLocali, UnNomeCheNonSiRisolveDaErroreFraParentesiAcute) {
  // A label of more than 63 letters: no resolver asks anybody for it.
  EXPECT_EQ(rete::indirizziDelNome(QString(200, QLatin1Char('a'))), QStringList{QStringLiteral("<error>")});
}

TEST(IndirizziLocali, ConUnInterfacciaIlNomeNonSiCerca) {
  const QStringList propri = rete::indirizziDelleInterfacce();
  const QStringList attesi = propri.isEmpty() ? QStringList{QStringLiteral("<error>")} : propri;
  EXPECT_EQ(reteDiSistema().indirizziLocali(QString(200, QLatin1Char('a'))), attesi);
}

TEST(IndirizziLocali, IlComputerHaUnNomeSenzaSpaziIntorno) {
  const QString nome = reteDiSistema().nomeComputer();
  EXPECT_FALSE(nome.isEmpty());
  EXPECT_EQ(nome, nome.trimmed());
}
