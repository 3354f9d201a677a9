#include "articles/archive_fields.h"

#include <gtest/gtest.h>

#include "core/key_filters.h"
#include "core/state.h"
#include "platform/ui/scripted_user.h"

using namespace articles;

namespace {

const QString kReparto = QStringLiteral("Attenzione il reparto deve essere compreso tra 1 e 80 !!!!");
const QString kDescrizione = QStringLiteral("Attenzione il campo DESCRIZIONE non e' valorizzato");
const QString kPrezzo = QStringLiteral("Attenzione il campo PREZZO non e' valorizzato");
const QString kVarPrezzo = QStringLiteral("Attenzione var.prezzo deve essere S/s o N/n");

CampiArticolo validi() {
  CampiArticolo campi;
  campi.descrizione = QStringLiteral("PANE");
  campi.prezzo = QStringLiteral("1,20");
  campi.reparto = QStringLiteral("1");
  campi.varPrezzo = QStringLiteral("N");
  return campi;
}

/// Types a text key by key, as a field with this filter would hold it.
QString digita(KeyFilter filtro, const QString& tasti) {
  QString testo;
  for (const QChar tasto : tasti)
    if (filtro(testo, tasto)) testo += tasto;
  return testo;
}

/// The texts of the boxes that the check shows; each bears the information icon.
QStringList messaggi(const CampiArticolo& campi, std::int16_t previsto) {
  ScriptedUser utente;
  EXPECT_EQ(CheckCampiArticolo(campi, utente), previsto);
  QStringList testi;
  for (const Box& riquadro : utente.boxes()) {
    EXPECT_EQ(riquadro, (Box{riquadro.text, Icon::Information, {}, Buttons::Ok}));
    testi += riquadro.text;
  }
  return testi;
}

TEST(CampiArchivio, NelPrezzoUnPuntoNonSiPuoDigitare) {
  EXPECT_EQ(digita(accettaImporto, QStringLiteral("12.50")), QStringLiteral("1250"));
}

TEST(CampiArchivio, NelPrezzoDopoDueDecimaliNonEntraAltro) {
  EXPECT_EQ(digita(accettaImporto, QStringLiteral("1234,567")), QStringLiteral("1234,56"));
  EXPECT_FALSE(accettaImporto(QStringLiteral("12,50"), u','));
  EXPECT_FALSE(accettaImporto(QStringLiteral("12,50"), kCutKey));
  EXPECT_TRUE(accettaImporto(QStringLiteral("12,50"), kBackspaceKey));
}

TEST(CampiArchivio, NelPrezzoUnaSecondaVirgolaEntraFinoAiDueDecimali) {
  EXPECT_EQ(digita(accettaImporto, QStringLiteral("1,,2")), QStringLiteral("1,,2"));
  EXPECT_EQ(digita(accettaImporto, QStringLiteral("1,2,3")), QStringLiteral("1,2,"));
}

TEST(CampiArchivio, NelPrezzoLettereSegniEApostrofiNonEntrano) {
  EXPECT_EQ(digita(accettaImporto, QStringLiteral("a-+'%*[]#\n1 €2")), QStringLiteral("12"));
  EXPECT_TRUE(accettaImporto({}, kCutKey));
  EXPECT_TRUE(accettaImporto({}, kBackspaceKey));
}

TEST(CampiArchivio, NelRepartoEntranoSoleCifre) {
  EXPECT_EQ(digita(accettaCifre, QStringLiteral("-1,a'0%\n")), QStringLiteral("10"));
  EXPECT_TRUE(accettaCifre({}, kCutKey));
  EXPECT_TRUE(accettaCifre({}, kBackspaceKey));
}

TEST(CampiArchivio, NelleDueLettereEntranoSoloSEN) {
  EXPECT_EQ(digita(accettaSiNo, QStringLiteral("aSs1Nn'x")), QStringLiteral("SsNn"));
  EXPECT_TRUE(accettaSiNo({}, kCutKey));
  EXPECT_TRUE(accettaSiNo({}, kBackspaceKey));
}

TEST(CampiArchivio, LasciandoUnPrezzoConPiuVirgoleSiDiceEDiventaZero) {
  const auto rifiuto = controllaPrezzo(QStringLiteral("1,2,"));
  ASSERT_TRUE(rifiuto);
  EXPECT_EQ(rifiuto->message, QStringLiteral("Attenzione il valore immesso non è di tipo numerico !!!"));
  EXPECT_EQ(rifiuto->value, QStringLiteral("0"));
}

TEST(CampiArchivio, LasciandoUnPrezzoOltreIlMassimoSiDiceEDiventaZero) {
  const auto rifiuto = controllaPrezzo(QStringLiteral("100000"));
  ASSERT_TRUE(rifiuto);
  EXPECT_EQ(rifiuto->message, QStringLiteral("Attenzione il valore immesso > 99999.99!"));
  EXPECT_EQ(rifiuto->value, QStringLiteral("0"));
}

TEST(CampiArchivio, UnPrezzoFinoAlMassimoPassa) {
  for (const auto* testo : {u"", u"0", u"12,5", u"99999,99", u"12.50"})
    EXPECT_FALSE(controllaPrezzo(QString::fromUtf16(testo))) << QString::fromUtf16(testo).toStdString();
}

TEST(CampiArchivio, LasciandoUnRepartoFuoriDaiLimitiSiDiceESiSvuota) {
  for (const auto* testo : {u"81", u"99", u"-1"}) {
    const auto rifiuto = controllaReparto(QString::fromUtf16(testo));
    ASSERT_TRUE(rifiuto);
    EXPECT_EQ(rifiuto->message, kReparto);
    EXPECT_EQ(rifiuto->value, QString());
  }
}

TEST(CampiArchivio, LasciandoUnRepartoZeroOVuotoNullaSiDice) {
  for (const auto* testo : {u"", u"0", u"1", u"80"})
    EXPECT_FALSE(controllaReparto(QString::fromUtf16(testo)));
}

TEST(CampiArchivio, SoloLaSValeSi) {
  EXPECT_TRUE(siNo(QStringLiteral("S")));
  EXPECT_TRUE(siNo(QStringLiteral("s")));
  for (const auto* testo : {u"", u"N", u"n", u"SI", u" "}) EXPECT_FALSE(siNo(QString::fromUtf16(testo)));
}

TEST(CampiRifiutati, DiconoQualiNellOrdineDeiControlli) {
  std::vector<int> campi;
  for (const CampoRifiutato& uno : CampiRifiutati({})) campi.push_back(uno.campo);
  EXPECT_EQ(campi, (std::vector<int>{3, 4, 5, 6}));
  EXPECT_TRUE(CampiRifiutati(validi()).empty());
}

TEST(CheckCampiArticolo, CampiValidiNonMostranoNulla) {
  EXPECT_EQ(messaggi(validi(), kFalso), QStringList());
}

TEST(CheckCampiArticolo, ConTuttoVuotoMostraQuattroMessaggiInFila) {
  EXPECT_EQ(messaggi({}, kVero), (QStringList{kDescrizione, kPrezzo, kReparto, kVarPrezzo}));
}

TEST(CheckCampiArticolo, ConIlRepartoZeroMancanoAncheDescrizioneEPrezzoEVengonoPrima) {
  CampiArticolo campi = validi();
  campi.reparto = QStringLiteral("0");
  EXPECT_EQ(messaggi(campi, kVero), QStringList{kReparto});
  campi.descrizione.clear();
  campi.prezzo.clear();
  EXPECT_EQ(messaggi(campi, kVero), (QStringList{kDescrizione, kPrezzo, kReparto}));
}

TEST(CheckCampiArticolo, IlRepartoVaDaUnoAOttanta) {
  CampiArticolo campi = validi();
  campi.reparto = QStringLiteral("80");
  EXPECT_EQ(messaggi(campi, kFalso), QStringList());
  for (const auto* testo : {u"81", u"-1", u"", u"x"}) {
    campi.reparto = QString::fromUtf16(testo);
    EXPECT_EQ(messaggi(campi, kVero), QStringList{kReparto});
  }
}

TEST(CheckCampiArticolo, LaVariazioneDelPrezzoVuoleSONInEntrambiICaratteri) {
  CampiArticolo campi = validi();
  for (const auto* testo : {u"S", u"s", u"N", u"n"}) {
    campi.varPrezzo = QString::fromUtf16(testo);
    EXPECT_EQ(messaggi(campi, kFalso), QStringList());
  }
  for (const auto* testo : {u"", u"X", u"SN"}) {
    campi.varPrezzo = QString::fromUtf16(testo);
    EXPECT_EQ(messaggi(campi, kVero), QStringList{kVarPrezzo});
  }
}

TEST(CheckCampiArticolo, IlPrezzoZeroNonSiControlla) {
  CampiArticolo campi = validi();
  campi.prezzoZero = QStringLiteral("?");
  EXPECT_EQ(messaggi(campi, kFalso), QStringList());
}

}  // namespace
