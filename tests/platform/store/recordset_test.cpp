#include "platform/store/archivio_di_prova.h"

namespace {

class RecordsetAperto : public ArchivioDiProva {
 protected:
  RecordsetAperto() {
    esegui("CREATE TABLE T (n INTEGER, r REAL, t TEXT, v INTEGER)");
    esegui("INSERT INTO T VALUES (7, 2.5, 'città', NULL)");
    esegui("INSERT INTO T VALUES (8, 3, '', NULL)");
  }
  store::Recordset tutto() { return leggi("SELECT n,r,t,v FROM T ORDER BY n"); }
};

TEST_F(RecordsetAperto, SiMuoveAvantiInFondoEDaCapo) {
  auto righe = tutto();
  EXPECT_FALSE(righe.vuoto());
  EXPECT_EQ(righe.RecordCount(), 2);
  righe.MoveLast();
  EXPECT_EQ(righe.campo(QStringLiteral("n")).intero(), 8);
  EXPECT_FALSE(righe.fine());
  righe.MoveNext();
  EXPECT_TRUE(righe.fine());
  EXPECT_EQ(numeroErrore([&] { righe.MoveNext(); }), 3021);
  righe.MoveFirst();
  EXPECT_EQ(righe.campo(QStringLiteral("n")).intero(), 7);
}

TEST_F(RecordsetAperto, UnInsiemeVuotoNonHaRecordCorrente) {
  auto righe = leggi("SELECT n FROM T WHERE n = 0");
  EXPECT_TRUE(righe.vuoto());
  EXPECT_TRUE(righe.fine());
  EXPECT_EQ(numeroErrore([&] { righe.MoveFirst(); }), 3021);
  EXPECT_EQ(numeroErrore([&] { righe.MoveLast(); }), 3021);
  EXPECT_EQ(numeroErrore([&] { righe.MoveNext(); }), 3021);
  EXPECT_EQ(numeroErrore([&] { righe.campo(QStringLiteral("n")); }), 3021);
  EXPECT_EQ(numeroErrore([&] { righe.intero64(0); }), 3021);
}

TEST_F(RecordsetAperto, UnCampoIgnotoEAssenteDallInsieme) {
  auto righe = tutto();
  EXPECT_EQ(numeroErrore([&] { righe.campo(QStringLiteral("x")); }), 3265);
  EXPECT_EQ(numeroErrore([&] { righe.colonna(QStringLiteral("x")); }), 3265);
  EXPECT_EQ(numeroErrore([&] { righe.campo(4); }), 3265);
  EXPECT_EQ(numeroErrore([&] { righe.campo(-1); }), 3265);
  EXPECT_EQ(righe.colonna(QStringLiteral("R")), 1);
  EXPECT_EQ(righe.colonne(), 4);
}

TEST_F(RecordsetAperto, ICampiTornanoNelLoroTipo) {
  auto righe = tutto();
  EXPECT_EQ(righe.intero64(0), 7);
  EXPECT_DOUBLE_EQ(righe.campo(1).doppio(), 2.5);
  EXPECT_EQ(righe.campo(2).testo(), QStringLiteral("città"));
  EXPECT_EQ(righe.utf8(2), "città");
  EXPECT_TRUE(righe.nullo(3));
  EXPECT_TRUE(righe.campo(3).nullo());
}

TEST_F(RecordsetAperto, UnNulloLettoComeValoreEUnErrore) {
  auto righe = tutto();
  EXPECT_EQ(numeroErrore([&] { righe.campo(3).testo(); }), 94);
  EXPECT_EQ(numeroErrore([&] { righe.campo(3).intero(); }), 94);
  EXPECT_EQ(numeroErrore([&] { righe.campo(3).booleano(); }), 94);
  EXPECT_EQ(numeroErrore([&] { righe.intero64(3); }), 94);
  EXPECT_EQ(numeroErrore([&] { righe.utf8(3); }), 94);
}

TEST_F(RecordsetAperto, ILettoriVelociNonConvertono) {
  auto righe = tutto();
  EXPECT_EQ(numeroErrore([&] { righe.intero64(2); }), 13);
  EXPECT_EQ(numeroErrore([&] { righe.utf8(0); }), 13);
}

TEST_F(RecordsetAperto, IlTestoDiUnCampoEDiOgniTipoEIlNulloEVuoto) {
  auto righe = tutto();
  EXPECT_EQ(righe.testo(0), QStringLiteral("7"));
  EXPECT_EQ(righe.testo(1), righe.campo(1).testo());
  EXPECT_EQ(righe.testo(2), QStringLiteral("città"));
  EXPECT_EQ(righe.testo(3), QString());
  EXPECT_EQ(numeroErrore([&] { righe.testo(4); }), 3265);
}

TEST_F(RecordsetAperto, LeRigheRestanoQuelleDellApertura) {
  auto righe = tutto();
  esegui("DELETE FROM T");
  EXPECT_EQ(righe.RecordCount(), 2);
  EXPECT_EQ(righe.utf8(2), "città");
}

TEST(Valore, ConversioniELoroErrori) {
  using store::Valore;
  EXPECT_EQ(Valore(std::int64_t{12}).testo(), QStringLiteral("12"));
  EXPECT_EQ(Valore(4294967295.0).testo(), QStringLiteral("4294967295"));
  EXPECT_EQ(Valore(2.5).testo(), QStringLiteral("2.5"));
  EXPECT_EQ(Valore(QStringLiteral(" 42 ")).intero(), 42);
  EXPECT_EQ(Valore(QStringLiteral("2.5")).intero(), 2);
  EXPECT_EQ(Valore(3.5).intero(), 4);
  EXPECT_TRUE(Valore(std::int64_t{-1}).booleano());
  EXPECT_FALSE(Valore(std::int64_t{0}).booleano());
  EXPECT_EQ(numeroErrore([] { Valore(QStringLiteral("dodici")).intero(); }), 13);
  EXPECT_EQ(numeroErrore([] { Valore(QString()).intero(); }), 13);
  EXPECT_EQ(numeroErrore([] { Valore(std::int64_t{40000}).intero16(); }), 6);
  EXPECT_EQ(numeroErrore([] { Valore(std::int64_t{3000000000}).intero(); }), 6);
  EXPECT_EQ(numeroErrore([] { Valore(1e30).intero64(); }), 6);
}

}  // namespace
