#include <algorithm>

#include "config_transfer/transfer_scene.h"

// Each of the nine files failing in turn, both ways, by each fault of the till.

namespace {

using ecrsim::FaultKind;

struct CasoGuasto {
  QString file;
  FaultKind cosa;
};
void PrintTo(const CasoGuasto& caso, std::ostream* uscita) {
  *uscita << caso.file.toStdString() << ' ' << faultName(6, caso.cosa);
}

std::vector<CasoGuasto> tutti(std::initializer_list<FaultKind> guasti) {
  std::vector<CasoGuasto> casi;
  for (const QString& file : ordineInvio())
    for (const FaultKind cosa : guasti) casi.push_back({file, cosa});
  return casi;
}

std::string nomeDelCaso(const testing::TestParamInfo<CasoGuasto>& caso) {
  std::string nome = caso.param.file.section(u'.', 0, 0).toStdString();
  std::erase(nome, '_');
  return nome + faultName(0, caso.param.cosa);
}

class InvioConGuasto : public BancoTrasferimento, public testing::WithParamInterface<CasoGuasto> {};
class RicezioneConGuasto : public BancoTrasferimento, public testing::WithParamInterface<CasoGuasto> {};

QByteArray inviato(const QString& file) {
  return file == QStringLiteral("plu.bin") ? senzaArticoli() : fileDi(disegno(1), file);
}

QByteArray vecchio(const QString& file) {
  return file == QStringLiteral("plu.bin") ? articoliDellaCassa() : fileDi(disegno(2), file);
}

}  // namespace

TEST_P(InvioConGuasto, IFileDiPrimaSonoNellaCassaEQuelliDopoSonoIVecchi) {
  const ShortTimeouts breve;
  const QString file = GetParam().file;
  programmaCassa();
  const QByteArray configurazionePrima = fileConfigurazione();
  const GuidedScreen schermo = pronto(kInvia);
  cassa->faults({{.mode = 6, .file = file.toStdString(), .what = GetParam().cosa}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitoFile(file),
                        critico("Fallita operazione invio configurazione all'ECR")});
  const qsizetype posto = ordineInvio().indexOf(file);
  for (qsizetype i = 0; i < ordineInvio().size(); ++i) {
    const QString& uno = ordineInvio()[i];
    if (i == posto) continue;
    EXPECT_TRUE(cassa.byte(uno) == (i < posto ? inviato(uno) : vecchio(uno))) << uno.toStdString();
  }
  const bool arrivato = GetParam().cosa == FaultKind::CutAfter;
  EXPECT_TRUE(cassa.byte(file) == (arrivato ? inviato(file) : vecchio(file)));
  EXPECT_TRUE(fileConfigurazione() == configurazionePrima);
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_FALSE(schermo.enabled(kConnetti));
}

INSTANTIATE_TEST_SUITE_P(Guasti, InvioConGuasto,
                         testing::ValuesIn(tutti({FaultKind::Code, FaultKind::Silence, FaultKind::CutBefore,
                                                  FaultKind::CutWithin, FaultKind::CutAfter,
                                                  FaultKind::ShortFile, FaultKind::LongFile,
                                                  FaultKind::Garbage})),
                         nomeDelCaso);

TEST_P(RicezioneConGuasto, IFileDiPrimaSonoInMemoriaENullaESalvato) {
  const ShortTimeouts breve;
  const QString file = GetParam().file;
  programmaCassa();
  const QByteArray configurazionePrima = fileConfigurazione();
  const GuidedScreen schermo = pronto(kRicevi);
  cassa->faults({{.mode = 7, .file = file.toStdString(), .what = GetParam().cosa}});
  schermo.click(kAvvia);
  expectBoxes(bottega,
              {kComunicazione, fallitaRichiesta(file), critico("Errore durante la programmazione. ")});
  const qsizetype posto = ordineRicezione().indexOf(file);
  for (qsizetype i = 0; i < ordineRicezione().size(); ++i) {
    const QString& uno = ordineRicezione()[i];
    const QByteArray record = recordIn(immagineInMemoria(), uno);
    const QByteArray atteso = i < posto ? vecchio(uno).left(record.size()) : recordIn(disegno(1), uno);
    EXPECT_TRUE(record == atteso) << uno.toStdString();
  }
  EXPECT_TRUE(fileConfigurazione() == configurazionePrima);
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo > 0")), 0);
  for (const QString& uno : ordineRicezione()) EXPECT_TRUE(cassa.byte(uno) == vecchio(uno));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
}

INSTANTIATE_TEST_SUITE_P(Guasti, RicezioneConGuasto,
                         testing::ValuesIn(tutti({FaultKind::Code, FaultKind::Silence, FaultKind::CutBefore,
                                                  FaultKind::CutWithin, FaultKind::CutAfter,
                                                  FaultKind::Garbage})),
                         nomeDelCaso);

namespace {

/// A fault of the opening or the closing of a transfer, whose file is then the first one.
struct CasoDiModo {
  int modo;
  FaultKind cosa;
};
void PrintTo(const CasoDiModo& caso, std::ostream* uscita) {
  *uscita << faultName(caso.modo, caso.cosa);
}
std::vector<CasoDiModo> apertureEChiusure() {
  std::vector<CasoDiModo> casi;
  for (const int modo : {1, 2})
    for (const FaultKind cosa : {FaultKind::Code, FaultKind::Silence, FaultKind::CutBefore,
                                 FaultKind::CutWithin, FaultKind::CutAfter, FaultKind::Garbage})
      casi.push_back({modo, cosa});
  return casi;
}
class TrasferimentoMaleAperto : public BancoTrasferimento, public testing::WithParamInterface<CasoDiModo> {};

}  // namespace

TEST_P(TrasferimentoMaleAperto, FermaLInvioAlPrimoFile) {
  const ShortTimeouts breve;
  programmaCassa();
  const GuidedScreen schermo = pronto(kInvia);
  cassa->faults({{.mode = GetParam().modo, .what = GetParam().cosa}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitoFile(QStringLiteral("intestazione.bin")),
                        critico("Fallita operazione invio configurazione all'ECR")});
  for (const QString& file : ordineInvio().mid(1)) EXPECT_TRUE(cassa.byte(file) == vecchio(file));
}

TEST_P(TrasferimentoMaleAperto, FermaLaRicezioneAlPrimoFile) {
  const ShortTimeouts breve;
  programmaCassa();
  const GuidedScreen schermo = pronto(kRicevi);
  cassa->faults({{.mode = GetParam().modo, .what = GetParam().cosa}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitaRichiesta(QStringLiteral("intestazione.bin")),
                        critico("Errore durante la programmazione. ")});
  EXPECT_TRUE(immagineInMemoria() == disegno(1));
}

INSTANTIATE_TEST_SUITE_P(Guasti, TrasferimentoMaleAperto, testing::ValuesIn(apertureEChiusure()),
                         [](const auto& caso) { return faultName(caso.param.modo, caso.param.cosa); });

namespace {

class FileDiLunghezzaFalsa : public BancoTrasferimento, public testing::WithParamInterface<CasoGuasto> {};

}  // namespace

TEST_P(FileDiLunghezzaFalsa, SiPrendeFinDoveArrivaESiDice) {
  const QString file = GetParam().file;
  programmaCassa();
  // What stays of the articles goes to the archive: it has to be some.
  if (file == QStringLiteral("plu.bin")) soilMemory(0);
  const QByteArray prima = recordIn(immagineInMemoria(), file);
  const GuidedScreen schermo = pronto(kRicevi);
  cassa->faults({{.mode = 7, .file = file.toStdString(), .what = GetParam().cosa}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA")});
  const QByteArray record = recordIn(immagineInMemoria(), file);
  const bool corto = GetParam().cosa == FaultKind::ShortFile;
  const qsizetype arrivati = corto ? vecchio(file).size() / 2 : record.size();
  EXPECT_TRUE(record.left(arrivati) == vecchio(file).left(arrivati));
  EXPECT_TRUE(record.mid(arrivati) == prima.mid(arrivati));
  EXPECT_TRUE(piede(schermo).contains(QStringLiteral(" di %1: ").arg(file))) << piede(schermo).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Lunghezze, FileDiLunghezzaFalsa,
                         testing::ValuesIn(tutti({FaultKind::ShortFile, FaultKind::LongFile})), nomeDelCaso);
