#include "core/state.h"

#include <gtest/gtest.h>

TEST(Stato, OgniVariabileEUnaSola) {
  EXPECT_EQ(&varGestionePRG(), &varGestionePRG());
  EXPECT_EQ(&commonForKora(), &commonForKora());
  EXPECT_EQ(&varGlobal(), &varGlobal());
  EXPECT_EQ(&funzioniCmdXonXoff(), &funzioniCmdXonXoff());
}

TEST(Stato, IlVeroESessantacinquemilacinquecentotrentacinqueSenzaSegno) {
  EXPECT_EQ(static_cast<std::uint16_t>(kVero), 65535);
}

TEST(Stato, AzzeratoEComeAllInizioDelProcesso) {
  varGestionePRG().NomeFileDat = QStringLiteral("a");
  varGestionePRG().ModificaOpzioni = kVero;
  varGestionePRG().StatoECR.fill(7);
  varGestionePRG().ConfigurazioneCaricata = 1;
  commonForKora().IP_ECR = QStringLiteral("127.0.0.1");
  commonForKora().hConnXonXoff = -3;
  commonForKora().ECR_INFO.InfoStato = QStringLiteral("I");
  varGlobal().FormChiamante = QStringLiteral("MDIForm_PRG");
  varGlobal().FlagRisposta = 100;
  varGlobal().FlagAnomalia = 1;
  funzioniCmdXonXoff().ContaFine = 45;
  azzeraStato();
  EXPECT_EQ(varGestionePRG().NomeFileDat, QString());
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  EXPECT_EQ(varGestionePRG().StatoECR, (std::array<std::uint8_t, 39>{}));
  EXPECT_EQ(varGestionePRG().ConfigurazioneCaricata, 0);
  EXPECT_EQ(commonForKora().IP_ECR, QString());
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
  EXPECT_EQ(commonForKora().ECR_INFO.InfoStato, QString());
  EXPECT_EQ(varGlobal().FormChiamante, QString());
  EXPECT_EQ(varGlobal().FlagRisposta, 0);
  EXPECT_EQ(varGlobal().FlagAnomalia, 0);
  EXPECT_FALSE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(funzioniCmdXonXoff().ContaFine, 0);
}

TEST(Stato, INomiDellInfoSonoIPostiDellaRisposta) {
  EcrInfo info;
  for (std::size_t i = 0; i < EcrInfo::kCampi; ++i) info.campo[i] = QString::number(i + 1);
  EXPECT_EQ(info.InfoVersioneSW, QStringLiteral("1"));
  EXPECT_EQ(info.InfoTipoBitmap, QStringLiteral("2"));
  EXPECT_EQ(info.InfoTipoMMC, QStringLiteral("3"));
  EXPECT_EQ(info.InfoStato, QStringLiteral("11"));
  EXPECT_EQ(info.InfoTipoMacchina, QStringLiteral("12"));
  EXPECT_EQ(info.InfoDatiFiscali, QStringLiteral("17"));
}

TEST(Stato, LaCopiaDellInfoHaNomiSuoi) {
  EcrInfo prima;
  prima.InfoStato = QStringLiteral("I");
  EcrInfo seconda(prima);
  seconda.InfoStato = QStringLiteral("P");
  EXPECT_EQ(prima.InfoStato, QStringLiteral("I"));
  prima = seconda;
  seconda.InfoStato = QStringLiteral("V");
  EXPECT_EQ(prima.InfoStato, QStringLiteral("P"));
}
