#include <gtest/gtest.h>

#include <QFile>
#include <QTextDocument>
#include <QTextTable>

#include "controls/rtf.h"
#include "devices/keyboard_scene.h"
#include "ecrcom/codes.h"
#include "platform/text/windows1252.h"

namespace {

QByteArray fileDellApplicazione(const char* nome) {
  QFile file(QStringLiteral(GESTIONALE_APP "/") + QString::fromLatin1(nome));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << nome;
  return file.readAll();
}

/// The table of the help text, row by row.
QList<QStringList> tabella() {
  QTextDocument documento;
  rtf::read(fileDellApplicazione("Help_Errori_XONXOFF.rtf"), documento);
  QList<QStringList> righe;
  for (QTextFrame* figlio : documento.rootFrame()->childFrames()) {
    const auto* una = qobject_cast<QTextTable*>(figlio);
    for (int i = 0; una != nullptr && i < una->rows(); ++i) {
      QStringList celle;
      for (int j = 0; j < una->columns(); ++j) {
        QTextCursor cursore = una->cellAt(i, j).firstCursorPosition();
        cursore.setPosition(una->cellAt(i, j).lastCursorPosition().position(), QTextCursor::KeepAnchor);
        celle << cursore.selectedText();
      }
      righe << celle;
    }
  }
  return righe;
}

}  // namespace

TEST(AiutoDegliErrori, OgniCodiceHaMessaggioCausaERimedio) {
  const QByteArray sconosciuto = ecrcom::message(30000);
  const QList<QStringList> righe = tabella();
  int codici = 0;
  for (std::int16_t codice = 1; codice < 1000; ++codice) {
    const QByteArray messaggio = ecrcom::message(codice);
    if (messaggio == sconosciuto) continue;
    ++codici;
    const auto riga = std::find_if(righe.begin(), righe.end(), [&](const QStringList& una) {
      return una.value(0) == QString::number(codice);
    });
    ASSERT_NE(riga, righe.end()) << codice;
    ASSERT_EQ(riga->size(), 4) << codice;
    EXPECT_EQ(riga->at(1), windows1252::toText(messaggio)) << codice;
    EXPECT_GT(riga->at(2).size(), 20) << codice;
    EXPECT_GT(riga->at(3).size(), 20) << codice;
  }
  EXPECT_EQ(codici, 20);
  EXPECT_EQ(righe.size(), codici + 1) << "a heading, and no code that there is not";
}

class ScriptDelBanco : public testing::TestWithParam<const char*> {};

TEST_P(ScriptDelBanco, SonoSequenzeCheUnaCassaAppenaProgrammataAccetta) {
  const QByteArray testo = fileDellApplicazione((QByteArray("TEST_XON_XOFF/") + GetParam()).constData());
  ASSERT_TRUE(testo.endsWith("\r\n"));
  KeyboardScene scena;
  const QByteArrayList righe = testo.chopped(2).split('\n');
  for (const QByteArray& riga : righe) {
    const QByteArray sequenza = riga.endsWith('\r') ? riga.chopped(1) : riga;
    EXPECT_TRUE(riga.endsWith('\r') || riga == righe.last());
    EXPECT_FALSE(sequenza.isEmpty());
    scena.send(sequenza);
    EXPECT_FALSE(scena.till->error()) << sequenza.constData();
  }
  EXPECT_EQ(scena.state().mid(14, 1), "C") << "nothing stays open";
}
INSTANTIATE_TEST_SUITE_P(Script, ScriptDelBanco,
                         testing::Values("test1.txt", "test2.txt", "test3.txt", "test_invio.txt"));

namespace {

QByteArrayList cartaDi(const char* script) {
  KeyboardScene scena;
  for (const QByteArray& riga : fileDellApplicazione(script).split('\n')) scena.send(riga.trimmed());
  return scena.paper.lines();
}

}  // namespace

TEST(ScriptDelBanco, IlPrimoHaDueRepartiEIlResto) {
  const QByteArrayList carta = cartaDi("TEST_XON_XOFF/test1.txt");
  EXPECT_TRUE(carta.contains(riga("ALIMENTARI", "12,50")));
  EXPECT_TRUE(carta.contains(riga("BEVANDE", "3,20")));
  EXPECT_TRUE(carta.contains(riga("TOTALE EURO", "15,70")));
  EXPECT_TRUE(carta.contains(riga("RESTO", "4,30")));
}

TEST(ScriptDelBanco, IlSecondoHaScontoStornoECodiceFiscale) {
  const QByteArrayList carta = cartaDi("TEST_XON_XOFF/test2.txt");
  EXPECT_TRUE(carta.contains(riga("SCONTO 10,00%", "-0,50")));
  EXPECT_TRUE(carta.contains("STORNO"));
  EXPECT_TRUE(carta.contains("C.F. CLIENTE BNCLRA80A41F205K"));
  EXPECT_TRUE(carta.contains(riga("TOTALE EURO", "5,50")));
}

TEST(ScriptDelBanco, IlTerzoHaLettureEUnNonFiscale) {
  const QByteArrayList carta = cartaDi("TEST_XON_XOFF/test3.txt");
  EXPECT_TRUE(carta.contains(centrata("LETTURA GIORNALIERA")));
  EXPECT_TRUE(carta.contains(centrata("LETTURA REPARTI")));
  EXPECT_TRUE(carta.contains(centrata("*** NON FISCALE ***")));
  EXPECT_TRUE(carta.contains("PERCH\xC9 TORNARE? PROMOZIONI"));
}

TEST(ScriptDelBanco, QuelloDaInviareEUnoScontrinoBreve) {
  EXPECT_TRUE(cartaDi("TEST_XON_XOFF/test_invio.txt").contains(riga("TOTALE EURO", "2,00")));
}
