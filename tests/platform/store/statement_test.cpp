#include "platform/store/statement.h"

#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

#include "platform/store/test_archive.h"

namespace {

using store::Statement;
using store::StatementValue;

std::optional<qsizetype> rotturaDi(const QString& testo) {
  return store::text(testo).breaksAt();
}

bool numeroRotto(const QString& scritto) {
  const StatementValue valore = store::number(scritto);
  EXPECT_TRUE(valore.isNumber()) << testing::PrintToString(scritto);
  EXPECT_EQ(valore.text(), scritto);
  if (valore.breaksAt()) {
    EXPECT_EQ(*valore.breaksAt(), 0) << testing::PrintToString(scritto);
  }
  return valore.breaksAt().has_value();
}

bool rigaRotta(const QString& scritta) {
  const StatementValue valore = store::rowId(scritta);
  EXPECT_TRUE(valore.isNumber());
  EXPECT_EQ(valore.text(), scritta);
  return valore.breaksAt().has_value();
}

// Texts.

TEST(TestoInIstruzione, SenzaApostrofiPassaComeSta) {
  for (const char16_t* testo :
       {u"", u"PANE", u"\"PANE\"", u"10% [*]?#", u"--;/*", u"CAFFÈ €", u"a\nb", u"´ ’ ＇"}) {
    const StatementValue valore = store::text(QString::fromUtf16(testo));
    EXPECT_EQ(valore.text(), QString::fromUtf16(testo));
    EXPECT_EQ(valore.breaksAt(), std::nullopt) << valore.text().toStdString();
    EXPECT_FALSE(valore.isNumber());
  }
}

TEST(TestoInIstruzione, UnNumeroPariDiApostrofiInFilaRestaNelTesto) {
  for (const char16_t* testo : {u"''", u"A''B", u"''''", u"A''''B''", u"''A''B''"})
    EXPECT_EQ(rotturaDi(QString::fromUtf16(testo)), std::nullopt) << QString::fromUtf16(testo).toStdString();
}

TEST(TestoInIstruzione, UnNumeroDispariLoRompeDietroLaSuaFila) {
  EXPECT_EQ(rotturaDi(QStringLiteral("'")), 1);
  EXPECT_EQ(rotturaDi(QStringLiteral("L'OLIO")), 2);
  EXPECT_EQ(rotturaDi(QStringLiteral("A'")), 2);
  EXPECT_EQ(rotturaDi(QStringLiteral("A'''B")), 4);
  EXPECT_EQ(rotturaDi(QStringLiteral("''A'B'C")), 4);
  EXPECT_EQ(rotturaDi(QStringLiteral("''''' OR 1 OR '")), 5);
}

TEST(TestoInIstruzione, DueApostrofiStaccatiLoRomponoAlPrimo) {
  EXPECT_EQ(rotturaDi(QStringLiteral("' OR 1 OR '")), 1);
  EXPECT_EQ(rotturaDi(QStringLiteral("PANE',ID_Position='1 OR 1")), 5);
}

TEST(TestoInIstruzione, UnMilioneDiApostrofiSiContaFinoInFondo) {
  constexpr qsizetype kTanti = 1 << 20;
  EXPECT_EQ(rotturaDi(QString(kTanti, u'\'')), std::nullopt);
  EXPECT_EQ(rotturaDi(QString(kTanti + 1, u'\'')), kTanti + 1);
  EXPECT_EQ(rotturaDi(QString(kTanti, u'x') + u'\''), kTanti + 1);
}

// Numbers.

TEST(NumeroInIstruzione, CifreSegnoPuntoEdEsponentePassanoComeSono) {
  for (const char16_t* scritto : {u"0", u"5", u"-5", u"+5", u"007", u"1.5", u"1.", u".5", u"-.5", u"1e3",
                                  u"1E-3", u"1.5e+10", u" 7 ", u"\t7\t", u"99999999999999999999"})
    EXPECT_FALSE(numeroRotto(QString::fromUtf16(scritto))) << QString::fromUtf16(scritto).toStdString();
}

TEST(NumeroInIstruzione, TuttoIlRestoLoRompeDallInizio) {
  for (const char16_t* scritto : {u"",
                                  u" ",
                                  u".",
                                  u"-",
                                  u"+",
                                  u"--5",
                                  u"- 5",
                                  u"1 2",
                                  u"5,5",
                                  u"1e",
                                  u"1e+",
                                  u"e5",
                                  u"0x10",
                                  u"&H10",
                                  u"abc",
                                  u"5a",
                                  u"nan",
                                  u"inf",
                                  u"'5'",
                                  u"\"5\"",
                                  u"5'",
                                  u"5;",
                                  u"5)",
                                  u"(5)",
                                  u"5--",
                                  u"5/*",
                                  u"5\n",
                                  u"5\r",
                                  u"\u00A05",
                                  u"٥",
                                  u"５",
                                  u"#1/1/2024#",
                                  u"true",
                                  u"NULL",
                                  u"[Prezzo]",
                                  u"1 OR 1",
                                  u"1,rowid=9999",
                                  u"1,ID_Position='1 OR 1'",
                                  u"(SELECT count(*) FROM TAB_ARTICOLI)"})
    EXPECT_TRUE(numeroRotto(QString::fromUtf16(scritto))) << QString::fromUtf16(scritto).toStdString();
}

TEST(NumeroInIstruzione, UnoZeroBinarioLoRompe) {
  EXPECT_TRUE(numeroRotto(QStringLiteral("5") + QChar(0)));
  EXPECT_TRUE(numeroRotto(QString(1, QChar(0))));
}

TEST(NumeroInIstruzione, UnMilioneDiCifreEUnNumero) {
  EXPECT_FALSE(numeroRotto(QString(1 << 20, u'9')));
  EXPECT_TRUE(numeroRotto(QString(1 << 20, u'9') + u'x'));
}

TEST(NumeroInIstruzione, GliInteriCalcolatiSonoLeLoroCifre) {
  EXPECT_EQ(store::number(std::int64_t{-3}).text(), QStringLiteral("-3"));
  EXPECT_EQ(store::number(std::numeric_limits<std::int64_t>::min()).text(),
            QStringLiteral("-9223372036854775808"));
  EXPECT_EQ((u"a=" + store::number(std::numeric_limits<std::int64_t>::min()) + u"!").sql(),
            QStringLiteral("a=-9223372036854775808!"));
  EXPECT_EQ((u"a=" + store::number(std::int64_t{0}) + u"!").sql(), QStringLiteral("a=0!"));
  EXPECT_EQ(store::number(std::numeric_limits<std::int64_t>::max()).breaksAt(), std::nullopt);
  EXPECT_TRUE(store::number(std::int64_t{0}).isNumber());
}

TEST(NumeroInIstruzione, IRealiCalcolatiHannoIlPuntoENessunaCodaBinaria) {
  EXPECT_EQ(store::number(12.5).text(), QStringLiteral("12.5"));
  EXPECT_EQ(store::number(19.99 * 100).text(), QStringLiteral("1999"));
  EXPECT_EQ(store::number(4294967295.0).text(), QStringLiteral("4294967295"));
  EXPECT_EQ(store::number(-0.25).text(), QStringLiteral("-0.25"));
  EXPECT_EQ(store::number(1e300).breaksAt(), std::nullopt);
}

TEST(NumeroInIstruzione, UnRealeCheNonEUnNumeroLaRompe) {
  EXPECT_EQ(store::number(std::nan("")).breaksAt(), 0);
  EXPECT_EQ(store::number(std::numeric_limits<double>::infinity()).breaksAt(), 0);
  EXPECT_EQ(store::number(-std::numeric_limits<double>::infinity()).breaksAt(), 0);
}

// Rows.

TEST(RigaInIstruzione, SoloCifre) {
  for (const char16_t* scritta : {u"1", u"0", u"5000", u"0007", u"99999999999999999999"})
    EXPECT_FALSE(rigaRotta(QString::fromUtf16(scritta))) << QString::fromUtf16(scritta).toStdString();
}

TEST(RigaInIstruzione, NienteAltroPassaPerUnaRiga) {
  for (const char16_t* scritta :
       {u"", u" ", u" 1", u"1 ", u"-1", u"+1", u"1.0", u"1e3", u"1 OR 1", u"1 OR 1=1", u"1;", u"1--",
        u"auto_id", u"'1'", u"(1)", u"1,2", u"٥", u"1\n"})
    EXPECT_TRUE(rigaRotta(QString::fromUtf16(scritta))) << QString::fromUtf16(scritta).toStdString();
  EXPECT_TRUE(rigaRotta(QStringLiteral("1") + QChar(0)));
}

TEST(SegnoInIstruzione, EUnaDelleDueParole) {
  EXPECT_EQ(store::flag(true).text(), QStringLiteral("true"));
  EXPECT_EQ(store::flag(false).text(), QStringLiteral("false"));
  EXPECT_EQ(store::flag(true).breaksAt(), std::nullopt);
}

// A statement.

TEST(Istruzione, DicituraEValoriSiSeguonoNelLoroOrdine) {
  const Statement istruzione = u"UPDATE T SET a ='" + store::text(QStringLiteral("x''y")) + u"',b =" +
                               store::number(QStringLiteral(" 7 ")) + u",c =" + store::flag(true) +
                               u" WHERE d =" + store::rowId(QStringLiteral("12"));
  EXPECT_EQ(istruzione.sql(), QStringLiteral("UPDATE T SET a ='x''y',b = 7 ,c =true WHERE d =12"));
  EXPECT_FALSE(istruzione.broken());
  EXPECT_FALSE(istruzione.empty());
}

TEST(Istruzione, UnTestoFuoriDagliApostrofiLaRompe) {
  const store::StatementValue innesto = store::text(QStringLiteral("1 OR 1"));
  const Statement fuori = u"SELECT a from T WHERE a ='x' AND b =" + innesto;
  ASSERT_TRUE(fuori.broken());
  EXPECT_EQ(fuori.broken()->at, 36);
  EXPECT_FALSE(fuori.broken()->number);
  EXPECT_FALSE((u"SELECT a from T WHERE a ='x' AND b ='" + innesto + u"'").broken());
  EXPECT_FALSE((u"a ='" + innesto + u"' AND b ='" + innesto + u"'").broken());
  EXPECT_TRUE((u"a ='" + innesto + u"' AND b =" + innesto).broken());
}

TEST(Istruzione, GliApostrofiSiContanoAncheAttraversoLeSueParti) {
  const store::StatementValue testo = store::text(QStringLiteral("x"));
  const Statement parte = u"b ='" + testo + u"', c ='";
  EXPECT_FALSE((u"a ='" + testo + u"', " + parte + testo).broken());
  EXPECT_TRUE((Statement(u"a ='x', ") + parte + u"', d =" + testo).broken());
  EXPECT_FALSE((Statement::AsWritten(QStringLiteral("a ='")) + testo).broken());
  EXPECT_TRUE((Statement::AsWritten(QStringLiteral("a =")) + testo).broken());
}

// Wording is a literal of the source: the compiler refuses all else.
static_assert(!std::is_constructible_v<Statement, QString>);
static_assert(!std::is_constructible_v<Statement, const char16_t*>);
static_assert(!std::is_constructible_v<Statement, StatementValue>);
static_assert(!std::is_constructible_v<store::Wording, QString>);
static_assert(!std::is_constructible_v<StatementValue, QString>);

TEST(Istruzione, UnaSenzaNullaEVuota) {
  EXPECT_TRUE(Statement().empty());
  EXPECT_FALSE(Statement().broken());
  EXPECT_FALSE((Statement() + u"x").empty());
}

TEST(Istruzione, RicordaIlPrimoDeiValoriCheLaRompono) {
  const Statement istruzione = u"a='" + store::text(QStringLiteral("L'A")) + u"',b=" +
                               store::number(QStringLiteral("x")) + u",c=" +
                               store::rowId(QStringLiteral("y"));
  ASSERT_TRUE(istruzione.broken());
  EXPECT_EQ(istruzione.broken()->at, 5);
  EXPECT_FALSE(istruzione.broken()->number);
}

TEST(Istruzione, UnPezzoRottoNeRompeLInteroAlSuoPosto) {
  const Statement pezzo = u" WHERE d=" + store::rowId(QStringLiteral("1 OR 1"));
  const Statement intera = Statement(u"DELETE FROM T") + pezzo + Statement(u" ");
  ASSERT_TRUE(intera.broken());
  EXPECT_EQ(intera.broken()->at, 22);
  EXPECT_TRUE(intera.broken()->number);
  EXPECT_EQ(intera.sql(), QStringLiteral("DELETE FROM T WHERE d=1 OR 1 "));
}

// What the store answers to a broken one.

class IstruzioneRotta : public ArchiveOfTry {
 protected:
  IstruzioneRotta() {
    run("UPDATE TAB_ARTICOLI SET Descrizione = 'PANE',Reparto = 4 WHERE auto_id=7");
    prima_ = tutto();
  }
  ~IstruzioneRotta() override { EXPECT_EQ(tutto(), prima_) << "rows were touched"; }

  /// Every row of the articles, every column.
  QStringList tutto() {
    QStringList righe;
    for (auto set = read("SELECT * from TAB_ARTICOLI ORDER BY auto_id"); !set.atEnd(); set.MoveNext()) {
      QString riga;
      for (int colonna = 0; colonna < set.columns(); ++colonna) riga += set.text(colonna) + u'|';
      righe += riga;
    }
    return righe;
  }
  static Statement descrizione(const QString& testo) {
    return u"UPDATE TAB_ARTICOLI SET Descrizione = '" + store::text(testo) + u"' WHERE auto_id=1";
  }
  static Statement reparto(const QString& numero) {
    return u"UPDATE TAB_ARTICOLI SET Reparto =" + store::number(numero) + u" WHERE auto_id=1";
  }
  static Statement prezzoDellaRiga(const QString& riga) {
    return u"UPDATE TAB_ARTICOLI SET Prezzo = 9 WHERE auto_id=" + store::rowId(riga);
  }
  /// "number description" of the failure.
  QString fallimento(const Statement& istruzione) {
    try {
      archive_.Execute(istruzione);
    } catch (const Errore& errore) {
      return QString::number(errore.numero) + u' ' + errore.descrizione;
    }
    ADD_FAILURE() << istruzione.sql().toStdString() << " ran";
    return {};
  }
  static QString sintassi(const QString& motivo, const QString& pezzo) {
    return QStringLiteral("3075 Errore di sintassi (%1) nell'espressione della query '%2'.")
        .arg(motivo, pezzo);
  }

 private:
  QStringList prima_;
};

const QString kOperatore = QStringLiteral("operatore mancante");
const QString kNon3464 = QStringLiteral("3464 Tipo di dati non corrispondente nell'espressione criterio.");

TEST_F(IstruzioneRotta, UnaCheNonStaInPiediHaIlMessaggioCheHaScrittaCosi) {
  for (const char16_t* testo :
       {u"L'OLIO", u"'", u"A'B'C", u"PANE'; DELETE FROM TAB_ARTICOLI; --", u"x' y 'z", u"'''"}) {
    const Statement rotta = descrizione(QString::fromUtf16(testo));
    EXPECT_EQ(fallimento(rotta).mid(5), descriptionError([&] { archive_.Execute(asWritten(rotta.sql())); }))
        << rotta.sql().toStdString();
    EXPECT_TRUE(fallimento(rotta).startsWith(QStringLiteral("3075 "))) << rotta.sql().toStdString();
  }
}

TEST_F(IstruzioneRotta, UnaCheScrittaCosiGirerebbeSiFermaDoveIlTestoFinisce) {
  EXPECT_EQ(fallimento(descrizione(QStringLiteral("PANE',ID_Position='1 OR 1"))),
            sintassi(kOperatore, QStringLiteral(",ID_Position='1 OR 1' WHERE auto_id=1")));
  EXPECT_EQ(fallimento(descrizione(QStringLiteral("X' OR Descrizione<>'"))),
            sintassi(kOperatore, QStringLiteral("OR Descrizione<>'' WHERE auto_id=1")));
}

TEST_F(IstruzioneRotta, UnNumeroCheNonLoESiFermaDoveComincia) {
  EXPECT_EQ(fallimento(reparto(QStringLiteral("1,rowid=9999"))),
            sintassi(kOperatore, QStringLiteral("1,rowid=9999 WHERE auto_id=1")));
  EXPECT_EQ(fallimento(reparto(QStringLiteral("(SELECT count(*) FROM TAB_ARTICOLI a, TAB_ARTICOLI b)"))),
            sintassi(kOperatore, QStringLiteral("(SELECT count(*) FROM TAB_ARTICOLI a, TAB_ARTICOLI b) WHERE "
                                                "auto_id=1")));
  EXPECT_EQ(fallimento(reparto(QStringLiteral("NULL"))),
            sintassi(kOperatore, QStringLiteral("NULL WHERE auto_id=1")));
}

TEST_F(IstruzioneRotta, UnTestoAlPostoDiUnNumeroHaIlSuoErrore) {
  for (const char16_t* testo : {u"pane", u"'1'", u"\"1\"", u" '1' ", u"[Prezzi]", u"Pane"})
    EXPECT_EQ(fallimento(reparto(QString::fromUtf16(testo))), kNon3464)
        << QString::fromUtf16(testo).toStdString();
}

TEST_F(IstruzioneRotta, IlNomeDiUnaColonnaNonEUnNumeroAncheSeGirerebbe) {
  EXPECT_EQ(fallimento(reparto(QStringLiteral("Prezzo"))),
            sintassi(kOperatore, QStringLiteral("Prezzo WHERE auto_id=1")));
}

TEST_F(IstruzioneRotta, UnaRigaCheNonEUnaRigaNonNeToccaNessuna) {
  EXPECT_EQ(fallimento(prezzoDellaRiga(QStringLiteral("1 OR 1"))),
            sintassi(kOperatore, QStringLiteral("1 OR 1")));
  EXPECT_EQ(fallimento(prezzoDellaRiga(QStringLiteral("auto_id"))),
            sintassi(kOperatore, QStringLiteral("auto_id")));
  EXPECT_EQ(fallimento(prezzoDellaRiga({})), QStringLiteral("3075 ") + descriptionError([&] {
                                               run("UPDATE TAB_ARTICOLI SET Prezzo = 9 WHERE auto_id=");
                                             }));
}

TEST_F(IstruzioneRotta, UnaRigaOltreOgniMisuraNonCE) {
  EXPECT_EQ(archive_.Execute(prezzoDellaRiga(QStringLiteral("99999999999999999999"))), 0);
}

TEST_F(IstruzioneRotta, UnoZeroBinarioInUnTestoEUnErroreDiSintassi) {
  const QString zero(1, QChar(0));
  for (const QString& testo : {zero, QStringLiteral("PANE") + zero, zero + QStringLiteral("' OR 1 OR '"),
                               QStringLiteral("' OR 1 OR '") + zero})
    EXPECT_TRUE(fallimento(descrizione(testo)).startsWith(QStringLiteral("3075 ")));
}

TEST_F(IstruzioneRotta, UnTestoRottoDiUnMegabyteSiDiceInUnaRiga) {
  const QString detto = fallimento(descrizione(QStringLiteral("'") + QString(1 << 20, u'x')));
  EXPECT_TRUE(detto.startsWith(QStringLiteral("3075 ")));
  EXPECT_LT(detto.size(), 200);
}

TEST_F(IstruzioneRotta, AncheUnaLetturaSiRifiuta) {
  const Statement lettura = u"SELECT auto_id from TAB_ARTICOLI where Codice_EAN ='" +
                            store::text(QStringLiteral("' OR 1 OR '")) + u"'";
  EXPECT_EQ(numberError([&] { archive_.OpenRecordset(lettura); }), 3075);
}

TEST_F(IstruzioneRotta, DopoDiEssaLaStessaDicituraFunziona) {
  fallimento(reparto(QStringLiteral("1,rowid=9999")));
  workspace_.BeginTrans();
  EXPECT_EQ(archive_.Execute(reparto(QStringLiteral("5"))), 1);
  EXPECT_EQ(value("SELECT Reparto from TAB_ARTICOLI where auto_id=1"), QStringLiteral("5"));
  workspace_.Rollback();
}

TEST_F(IstruzioneRotta, DentroUnaTransazioneLasciaLeAltreIstruzioni) {
  workspace_.BeginTrans();
  EXPECT_EQ(archive_.Execute(reparto(QStringLiteral("5"))), 1);
  fallimento(descrizione(QStringLiteral("PANE',ID_Position='1 OR 1")));
  EXPECT_EQ(value("SELECT Reparto from TAB_ARTICOLI where auto_id=1"), QStringLiteral("5"));
  EXPECT_EQ(workspace_.level(), 1);
  workspace_.Rollback();
}

// Even runs stand for half as many, whatever is around them.
TEST_F(ArchiveOfTry, GliApostrofiPariDiUnTestoSiScrivonoDimezzati) {
  constexpr std::array kCasi{std::pair{u"L''OLIO", u"L'OLIO"}, std::pair{u"''", u"'"},
                             std::pair{u"''''A''", u"''A'"}, std::pair{u"--''/*", u"--'/*"}};
  for (const auto& [scritto, previsto] : kCasi) {
    EXPECT_EQ(archive_.Execute(u"UPDATE TAB_ARTICOLI SET Descrizione = '" +
                               store::text(QString::fromUtf16(scritto)) + u"' WHERE auto_id=1"),
              1);
    EXPECT_EQ(value("SELECT Descrizione from TAB_ARTICOLI where auto_id=1"), QString::fromUtf16(previsto));
  }
}

}  // namespace
