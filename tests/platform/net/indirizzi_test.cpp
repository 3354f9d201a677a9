#include "platform/net/indirizzi.h"

#include <gtest/gtest.h>

#include <QHostAddress>

#include "platform/net/rete.h"

TEST(IndirizziLocali, LeInterfacceDannoSoloIPv4SenzaLoopback) {
  for (const QString& testo : rete::indirizziDelleInterfacce()) {
    const QHostAddress indirizzo(testo);
    EXPECT_EQ(indirizzo.protocol(), QAbstractSocket::IPv4Protocol) << testo.toStdString();
    EXPECT_FALSE(indirizzo.isLoopback()) << testo.toStdString();
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
