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

namespace {

/// Whether every variable is as at process start.
void expectFresh() {
  const VarGestionePRG& programmazione = varGestionePRG();
  EXPECT_EQ(programmazione.NomeFileDat, QString());
  EXPECT_EQ(programmazione.PathConfigurazione, QString());
  EXPECT_EQ(programmazione.LarghezzaRiga, 0);
  EXPECT_EQ(programmazione.ModificaNegozio, 0);
  EXPECT_EQ(programmazione.ModificaReparti, 0);
  EXPECT_EQ(programmazione.ModificaPLU, 0);
  EXPECT_EQ(programmazione.ModificaIVA, 0);
  EXPECT_EQ(programmazione.ModificaValuta, 0);
  EXPECT_EQ(programmazione.ModificaOperatori, 0);
  EXPECT_EQ(programmazione.ModificaOpzioni, 0);
  EXPECT_EQ(programmazione.StatoECR, (std::array<std::uint8_t, 39>{}));
  EXPECT_EQ(programmazione.ConfigurazioneCaricata, 0);
  EXPECT_EQ(commonForKora().IP_ECR, QString());
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
  for (const QString& campo : commonForKora().ECR_INFO.campo) EXPECT_EQ(campo, QString());
  const VarGlobal& globali = varGlobal();
  EXPECT_FALSE(globali.DB_Articoli.isOpen());
  EXPECT_FALSE(globali.DB_Clienti.isOpen());
  EXPECT_EQ(globali.NomeDB_Articoli, QString());
  EXPECT_EQ(globali.NomeDB_Clienti, QString());
  EXPECT_EQ(globali.FormChiamante, QString());
  EXPECT_EQ(globali.FlagRisposta, 0);
  EXPECT_EQ(globali.BufferRx, QString());
  EXPECT_EQ(globali.BufferRisposta, QString());
  EXPECT_EQ(globali.FlagVariazioni, 0);
  EXPECT_EQ(globali.FlagAnomalia, 0);
  EXPECT_EQ(funzioniCmdXonXoff().NumFileDump, 0);
  EXPECT_EQ(funzioniCmdXonXoff().FlagDump, 0);
  EXPECT_EQ(funzioniCmdXonXoff().ContaFine, 0);
}

/// Another value in each.
void useAll() {
  const QString testo = QStringLiteral("usato");
  varGestionePRG() = {testo, testo, 36, kVero, kVero, kVero, kVero, kVero, kVero, kVero, {7}, 1};
  commonForKora().IP_ECR = testo;
  commonForKora().hConnXonXoff = -3;
  commonForKora().ECR_INFO.campo.fill(testo);
  varGlobal() = {{}, {}, testo, testo, testo, 100, testo, testo, 1, kVero};
  funzioniCmdXonXoff() = {3, 1, 45};
}

}  // namespace

TEST(Stato, AllInizioDelProcessoTuttoEVuotoOZero) {
  azzeraStato();
  expectFresh();
}

TEST(Stato, AzzeratoEComeAllInizioDelProcesso) {
  useAll();
  azzeraStato();
  expectFresh();
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
