#include "controls/rtf.h"

#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <random>

#include "platform/error.h"

namespace {

/// A document with the page between the braces of a file.
class Rtf : public testing::Test {
 protected:
  void leggi(const QByteArray& pagina) { rtf::read("{\\rtf1\\ansi " + pagina + "}", documento_); }
  QString testo() const { return documento_.toPlainText(); }
  QTextBlock riga(int numero) const { return documento_.findBlockByNumber(numero); }
  /// The format of the first letter of `word`.
  QTextCharFormat formato(const QString& parola) const {
    QTextCursor cursore = documento_.find(parola, 0, QTextDocument::FindCaseSensitively);
    EXPECT_FALSE(cursore.isNull()) << parola.toStdString();
    cursore.setPosition(cursore.selectionStart() + 1);
    return cursore.charFormat();
  }
  QTextTable* tabella() const {
    for (QTextFrame* figlio : documento_.rootFrame()->childFrames())
      if (auto* trovata = qobject_cast<QTextTable*>(figlio)) return trovata;
    return nullptr;
  }
  QString cella(int riga, int colonna) const {
    const QTextTableCell posto = tabella()->cellAt(riga, colonna);
    QTextCursor cursore = posto.firstCursorPosition();
    cursore.setPosition(posto.lastCursorPosition().position(), QTextCursor::KeepAnchor);
    return cursore.selectedText();
  }
  double punti() const { return documento_.defaultFont().pointSizeF(); }

  QTextDocument documento_;
};

/// The failure that reading the bytes ends in.
Errore fallita(const QByteArray& byte) {
  QTextDocument documento(QStringLiteral("prima"));
  try {
    rtf::read(byte, documento);
  } catch (const Errore& errore) {
    EXPECT_EQ(documento.toPlainText(), QStringLiteral("prima"));
    return errore;
  }
  ADD_FAILURE() << "read all the same";
  return {};
}

constexpr auto kBreve = R"({\rtf1\ansi{\stylesheet{\s1 heading 1;}}\pard\s1 Titolo\par
\pard{\pntext\'b7\tab}uno\par\trowd\cellx100\cellx300\intbl a\cell b\cell\row\pard\u233?\par})";

}  // namespace

TEST_F(Rtf, IParagrafiVannoARigheSeparate) {
  leggi("uno\\par due\\\ntre\r\nquattro\\par");
  EXPECT_EQ(testo(), QStringLiteral("uno\ndue\ntrequattro"));
  leggi("senza fine");
  EXPECT_EQ(testo(), QStringLiteral("senza fine"));
}

TEST_F(Rtf, LeLettereItalianeVengonoDaiByteEDaiNumeri) {
  leggi("perch\\'e9 citt\\'E0 \\'80 \\u8364? \\u232\\'e8 \\'93sì\\'94");
  EXPECT_TRUE(testo().startsWith(QStringLiteral("perché città € € è “s")));
}

TEST_F(Rtf, UnCarattereNumericoSaltaISuoiRipieghi) {
  leggi("\\uc0\\u233 x");
  EXPECT_EQ(testo(), QStringLiteral("éx"));
  leggi("\\uc2\\u233 ??x{\\uc1\\u233 ?y}\\u233\\'aa\\'bbz");
  EXPECT_EQ(testo(), QStringLiteral("éxéyéz"));
  leggi("\\u233 {x}\\u233}");
  EXPECT_EQ(testo(), QStringLiteral("éxé")) << "a brace ends what is passed over";
  leggi("\\u-4051?\\u65?\\u-10179?\\u-8704?");
  EXPECT_EQ(testo(), QStringLiteral("A\U0001F600")) << "a symbol font's own signs are left out";
}

TEST_F(Rtf, ICaratteriSpecialiHannoIlLoroSegno) {
  leggi("a\\emdash b\\endash c\\lquote d\\rquote\\ldblquote e\\rdblquote\\bullet f\\~g\\_h\\{\\}\\\\\\tab i");
  EXPECT_EQ(testo(), QStringLiteral("a—b–c‘d’“e”•f g‑h{}\\\ti"));
  leggi("a\\line b");
  EXPECT_EQ(documento_.blockCount(), 1);
  EXPECT_EQ(riga(0).text(), QStringLiteral("a\u2028b"));
}

TEST_F(Rtf, GrassettoCorsivoESottolineatoFinisconoColGruppoOConLoZero) {
  leggi("{\\b forte{\\i inclinato}} piano \\ul sotto\\ulnone  no \\b ancora\\b0 basta\\i\\ul\\plain nudo");
  EXPECT_GT(formato(QStringLiteral("forte")).fontWeight(), int{QFont::Normal});
  EXPECT_TRUE(formato(QStringLiteral("inclinato")).fontItalic());
  EXPECT_GT(formato(QStringLiteral("inclinato")).fontWeight(), int{QFont::Normal});
  EXPECT_FALSE(formato(QStringLiteral("piano")).fontItalic());
  EXPECT_TRUE(formato(QStringLiteral("sotto")).fontUnderline());
  EXPECT_FALSE(formato(QStringLiteral("ancora")).fontUnderline());
  EXPECT_LE(formato(QStringLiteral("basta")).fontWeight(), int{QFont::Normal});
  EXPECT_FALSE(formato(QStringLiteral("nudo")).fontItalic());
}

TEST_F(Rtf, LeMisureStannoAlTestoComeNelFile) {
  leggi("\\fs20 testo lungo quanto basta {\\fs30 grande} {\\fs10 piccolo}\\par");
  EXPECT_DOUBLE_EQ(formato(QStringLiteral("testo")).fontPointSize(), punti());
  EXPECT_DOUBLE_EQ(formato(QStringLiteral("grande")).fontPointSize(), punti() * 1.5);
  EXPECT_DOUBLE_EQ(formato(QStringLiteral("piccolo")).fontPointSize(), punti() * 0.5);
}

TEST_F(Rtf, ContaAncheIlTestoDelleTabelle) {
  leggi("\\fs32 poco\\par\\trowd\\cellx100\\intbl\\fs20 molto testo in una cella\\cell\\row");
  EXPECT_DOUBLE_EQ(formato(QStringLiteral("molto")).fontPointSize(), punti());
}

TEST_F(Rtf, ITitoliVengonoDalloStileDalContornoODallaMisura) {
  leggi(
      "{\\stylesheet{Normal;}{\\s1\\b heading 1;}{\\s2 Titolo 2;}{\\*\\cs3 altro;}{\\s4 Corpo;}}"
      "\\pard\\s1 A\\par\\pard\\s2 B\\par\\pard\\outlinelevel2 C\\par\\pard\\s4 D\\par"
      "\\pard\\fs20 corpo del testo lungo\\par{\\fs32 E\\par}{\\b\\fs26 F\\par}{\\fs26 G\\par}{\\b H\\par}");
  const int previsti[] = {1, 2, 3, 0, 0, 1, 2, 0, 0};
  ASSERT_EQ(documento_.blockCount(), 9);
  for (int numero = 0; numero < 9; ++numero)
    EXPECT_EQ(riga(numero).blockFormat().headingLevel(), previsti[numero]) << numero;
  EXPECT_EQ(riga(0).text(), QStringLiteral("A")) << "names of styles are no text";
  EXPECT_GT(formato(QStringLiteral("A")).fontPointSize(), formato(QStringLiteral("B")).fontPointSize());
  EXPECT_GT(formato(QStringLiteral("B")).fontPointSize(), punti());
}

TEST_F(Rtf, IPuntiDellElencoSonoVociDiUnaLista) {
  leggi(
      "{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}uno\\par{\\listtext\\'b7\\tab}\\ls1 due\\par"
      "\\ls1\\ilvl1{\\listtext o\\tab}sotto\\par\\pard piano\\par");
  EXPECT_EQ(riga(0).text(), QStringLiteral("uno"));
  ASSERT_NE(riga(0).textList(), nullptr);
  EXPECT_EQ(riga(1).textList(), riga(0).textList());
  EXPECT_EQ(riga(1).text(), QStringLiteral("due"));
  ASSERT_NE(riga(2).textList(), nullptr);
  EXPECT_EQ(riga(2).textList()->format().indent(), 2);
  EXPECT_EQ(riga(2).text(), QStringLiteral("sotto"));
  EXPECT_EQ(riga(3).textList(), nullptr);
}

TEST_F(Rtf, INumeriDellElencoRestanoQuelliDelFile) {
  leggi("{\\pntext 3.\\tab}tre\\par{\\listtext\\pard\\plain b)\\tab}\\ls2 bi\\par");
  EXPECT_EQ(riga(0).text(), QStringLiteral("3.\ttre"));
  EXPECT_EQ(riga(1).text(), QStringLiteral("b)\tbi"));
  EXPECT_LT(riga(0).blockFormat().textIndent(), 0) << "what follows stands in line";
}

TEST_F(Rtf, LAllineamentoEQuelloDelParagrafo) {
  leggi("\\qc centro\\par\\qr destra\\par\\qj pieno\\par\\pard sinistra\\par");
  EXPECT_EQ(riga(0).blockFormat().alignment(), Qt::AlignHCenter);
  EXPECT_EQ(riga(1).blockFormat().alignment(), Qt::AlignRight);
  EXPECT_EQ(riga(2).blockFormat().alignment(), Qt::AlignLeft);
  EXPECT_EQ(riga(3).blockFormat().alignment(), Qt::AlignLeft);
}

TEST_F(Rtf, UnaTabellaHaLeSueCelleELeLarghezzeDate) {
  leggi(
      "prima\\par\\trowd\\cellx1000\\cellx4000\\pard\\intbl a\\cell b1\\par b2\\cell\\row"
      "\\trowd\\cellx1000\\cellx4000\\intbl c\\cell\\cell\\row\\pard dopo\\par");
  ASSERT_NE(tabella(), nullptr);
  EXPECT_EQ(tabella()->rows(), 2);
  EXPECT_EQ(tabella()->columns(), 2);
  EXPECT_EQ(cella(0, 0), QStringLiteral("a"));
  EXPECT_EQ(cella(0, 1), QStringLiteral("b1\u2029b2"));
  EXPECT_EQ(cella(1, 0), QStringLiteral("c"));
  EXPECT_EQ(cella(1, 1), QString());
  const QList<QTextLength> larghezze = tabella()->format().columnWidthConstraints();
  ASSERT_EQ(larghezze.size(), 2);
  EXPECT_DOUBLE_EQ(larghezze[0].rawValue(), 25);
  EXPECT_TRUE(testo().startsWith(QStringLiteral("prima")));
  EXPECT_TRUE(testo().endsWith(QStringLiteral("dopo")));
}

TEST_F(Rtf, RigheDisugualiEBordiSbagliatiFannoLoStessoUnaTabella) {
  leggi("\\trowd\\cellx900\\cellx100\\intbl a\\cell\\row\\intbl b\\cell c\\cell d\\cell\\row");
  ASSERT_NE(tabella(), nullptr);
  EXPECT_EQ(tabella()->columns(), 3);
  EXPECT_TRUE(tabella()->format().columnWidthConstraints().isEmpty());
  EXPECT_EQ(cella(1, 2), QStringLiteral("d"));
}

TEST_F(Rtf, UnaRigaSenzaFineRestaTesto) {
  leggi("\\trowd\\cellx100\\intbl a\\cell b");
  EXPECT_EQ(tabella(), nullptr);
  EXPECT_EQ(testo(), QStringLiteral("a\nb"));
  leggi("\\row\\cell\\trowd\\row x\\par");
  EXPECT_TRUE(testo().contains(QLatin1Char('x')));
}

TEST_F(Rtf, FontColoriInformazioniEFigureNonSonoTesto) {
  leggi(
      "{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255\\green0;}{\\info{\\title T}{\\author N}}"
      "{\\pict\\pngblip 89504e47}{\\header su}{\\*\\ignota{\\b x}y}{\\*\\generator G;}"
      "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt qui}}{\\v nascosto}\\cf1 testo");
  EXPECT_EQ(testo(), QStringLiteral("quitesto"));
}

TEST_F(Rtf, UnBloccoBinarioSiSaltaPerIntero) {
  leggi(QByteArray("a{\\pict\\bin5 }{\\b}}b", 20));
  EXPECT_EQ(testo(), QStringLiteral("ab"));
  leggi("a\\bin-3 b");
  EXPECT_EQ(testo(), QStringLiteral("ab"));
}

TEST_F(Rtf, LeParoleIgnoteNonSiVedono) {
  leggi("a\\parolaignota12 b\\-c\\'zz\\u99999999999999999999?\\fs-9999999999 d");
  EXPECT_TRUE(testo().startsWith(QStringLiteral("abc?zz")));
  EXPECT_TRUE(testo().endsWith(QLatin1Char('d')));
}

TEST_F(Rtf, QuelCheSegueLUltimaGraffaNonConta) {
  rtf::read(QByteArray("{\\rtf1 x}\0\0{altro", 18), documento_);
  EXPECT_EQ(testo(), QStringLiteral("x"));
}

TEST_F(Rtf, UnaSecondaLetturaSostituisceLaPrima) {
  leggi("\\b uno\\par due\\par");
  leggi("tre");
  EXPECT_EQ(testo(), QStringLiteral("tre"));
  EXPECT_LE(formato(QStringLiteral("tre")).fontWeight(), int{QFont::Normal});
}

TEST(RtfIlleggibile, CioCheNonERtfELErrore321) {
  for (const QByteArray& byte : {QByteArray(), QByteArray("testo"), QByteArray("{\\rt"),
                                 QByteArray(" {\\rtf1 x}"), QByteArray(500, '\0'), QByteArray("PK\3\4")}) {
    const Errore errore = fallita(byte);
    EXPECT_EQ(errore.numero, 321);
    EXPECT_EQ(errore.descrizione, QStringLiteral("Il testo non è leggibile: non è un file RTF."));
  }
}

TEST(RtfIlleggibile, UnFileTagliatoInQualunquePuntoELErrore321) {
  const QByteArray intero(kBreve);
  QTextDocument documento;
  rtf::read(intero, documento);
  ASSERT_TRUE(documento.toPlainText().startsWith(QStringLiteral("Titolo")));
  for (qsizetype lunghezza = 0; lunghezza < intero.size(); ++lunghezza)
    EXPECT_EQ(fallita(intero.first(lunghezza)).numero, 321) << lunghezza;
  EXPECT_EQ(fallita(intero.chopped(1)).descrizione,
            QStringLiteral("Il testo non è leggibile: il file finisce a metà."));
}

TEST(RtfIlleggibile, GruppiSenzaFondoSonoLErrore321) {
  const int tanti = 1'000'000;
  const Errore errore = fallita("{\\rtf1 " + QByteArray(tanti, '{') + QByteArray(tanti + 1, '}'));
  EXPECT_EQ(errore.numero, 321);
  EXPECT_EQ(errore.descrizione,
            QStringLiteral("Il testo non è leggibile: troppi gruppi uno dentro l'altro."));
}

TEST(RtfIlleggibile, TestiSenzaMisuraSonoLErrore321) {
  const QString lungo = QStringLiteral("Il testo non è leggibile: il testo è troppo lungo.");
  EXPECT_EQ(fallita("{\\rtf1 " + QByteArray(2'000'000, 'x') + "}").descrizione, lungo);
  EXPECT_EQ(fallita("{\\rtf1 " + QByteArray("\\par").repeated(50'000) + "}").descrizione, lungo);
  EXPECT_EQ(fallita("{\\rtf1\\trowd\\intbl " + QByteArray("\\cell\\row").repeated(50'000) + "}").descrizione,
            lungo);
  EXPECT_EQ(fallita("{\\rtf1 " + QByteArray(rtf::kMaxBytes, ' ') + "}").descrizione,
            QStringLiteral("Il testo non è leggibile: il file è troppo grande."));
  EXPECT_EQ(fallita("{\\rtf1\\trowd\\intbl " + QByteArray("\\cell").repeated(64) + "\\row" +
                    QByteArray("\\intbl\\cell\\row").repeated(1'000) + "}")
                .descrizione,
            QStringLiteral("Il testo non è leggibile: le tabelle sono troppo grandi."));
}

TEST(RtfIlleggibile, ByteACasoSiLeggonoOSonoLErrore321) {
  std::mt19937 caso(20260712);
  const QByteArray intero(kBreve);
  int letti = 0;
  int rifiutati = 0;
  for (int giro = 0; giro < 2'000; ++giro) {
    QByteArray guasto = intero;
    for (int colpi = 0; colpi < 4; ++colpi) {
      const auto dove = std::uniform_int_distribution<qsizetype>(5, guasto.size() - 1)(caso);
      guasto[dove] = static_cast<char>(std::uniform_int_distribution<int>(0, 255)(caso));
    }
    try {
      QTextDocument documento;
      rtf::read(guasto, documento);
      ++letti;
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, 321);
      ++rifiutati;
    }
  }
  EXPECT_GT(letti, 100);
  EXPECT_GT(rifiutati, 100);
}
