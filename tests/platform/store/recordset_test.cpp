#include "platform/store/test_archive.h"

namespace {

class RecordsetAperto : public ArchiveOfTry {
 protected:
  RecordsetAperto() {
    run("CREATE TABLE T (n INTEGER, r REAL, t TEXT, v INTEGER)");
    run("INSERT INTO T VALUES (7, 2.5, 'città', NULL)");
    run("INSERT INTO T VALUES (8, 3, '', NULL)");
  }
  store::Recordset tutto() { return read("SELECT n,r,t,v FROM T ORDER BY n"); }
};

TEST_F(RecordsetAperto, SiMuoveAvantiInFondoEDaCapo) {
  auto righe = tutto();
  EXPECT_FALSE(righe.empty());
  EXPECT_EQ(righe.RecordCount(), 2);
  righe.MoveLast();
  EXPECT_EQ(righe.field(QStringLiteral("n")).int32(), 8);
  EXPECT_FALSE(righe.atEnd());
  righe.MoveNext();
  EXPECT_TRUE(righe.atEnd());
  EXPECT_EQ(numberError([&] { righe.MoveNext(); }), 3021);
  righe.MoveFirst();
  EXPECT_EQ(righe.field(QStringLiteral("n")).int32(), 7);
}

TEST_F(RecordsetAperto, UnInsiemeVuotoNonHaRecordCorrente) {
  auto righe = read("SELECT n FROM T WHERE n = 0");
  EXPECT_TRUE(righe.empty());
  EXPECT_TRUE(righe.atEnd());
  EXPECT_EQ(numberError([&] { righe.MoveFirst(); }), 3021);
  EXPECT_EQ(numberError([&] { righe.MoveLast(); }), 3021);
  EXPECT_EQ(numberError([&] { righe.MoveNext(); }), 3021);
  EXPECT_EQ(numberError([&] { righe.field(QStringLiteral("n")); }), 3021);
  EXPECT_EQ(numberError([&] { righe.int64(0); }), 3021);
}

TEST_F(RecordsetAperto, UnCampoIgnotoEAssenteDallInsieme) {
  auto righe = tutto();
  EXPECT_EQ(numberError([&] { righe.field(QStringLiteral("x")); }), 3265);
  EXPECT_EQ(numberError([&] { righe.column(QStringLiteral("x")); }), 3265);
  EXPECT_EQ(numberError([&] { righe.field(4); }), 3265);
  EXPECT_EQ(numberError([&] { righe.field(-1); }), 3265);
  EXPECT_EQ(righe.column(QStringLiteral("R")), 1);
  EXPECT_EQ(righe.columns(), 4);
}

TEST_F(RecordsetAperto, ICampiTornanoNelLoroTipo) {
  auto righe = tutto();
  EXPECT_EQ(righe.int64(0), 7);
  EXPECT_DOUBLE_EQ(righe.field(1).real(), 2.5);
  EXPECT_EQ(righe.field(2).text(), QStringLiteral("città"));
  EXPECT_EQ(righe.utf8(2), "città");
  EXPECT_TRUE(righe.isNull(3));
  EXPECT_TRUE(righe.field(3).isNull());
}

TEST_F(RecordsetAperto, UnNulloLettoComeValoreEUnErrore) {
  auto righe = tutto();
  EXPECT_EQ(numberError([&] { righe.field(3).text(); }), 94);
  EXPECT_EQ(numberError([&] { righe.field(3).int32(); }), 94);
  EXPECT_EQ(numberError([&] { righe.field(3).boolean(); }), 94);
  EXPECT_EQ(numberError([&] { righe.int64(3); }), 94);
  EXPECT_EQ(numberError([&] { righe.utf8(3); }), 94);
}

TEST_F(RecordsetAperto, ILettoriVelociNonConvertono) {
  auto righe = tutto();
  EXPECT_EQ(numberError([&] { righe.int64(2); }), 13);
  EXPECT_EQ(numberError([&] { righe.utf8(0); }), 13);
}

TEST_F(RecordsetAperto, IlTestoDiUnCampoEDiOgniTipoEIlNulloEVuoto) {
  auto righe = tutto();
  EXPECT_EQ(righe.text(0), QStringLiteral("7"));
  EXPECT_EQ(righe.text(1), righe.field(1).text());
  EXPECT_EQ(righe.text(2), QStringLiteral("città"));
  EXPECT_EQ(righe.text(3), QString());
  EXPECT_EQ(numberError([&] { righe.text(4); }), 3265);
}

TEST_F(RecordsetAperto, LeRigheRestanoQuelleDellApertura) {
  auto righe = tutto();
  run("DELETE FROM T");
  EXPECT_EQ(righe.RecordCount(), 2);
  EXPECT_EQ(righe.utf8(2), "città");
}

TEST(Valore, ConversioniELoroErrori) {
  using store::Value;
  EXPECT_EQ(Value(std::int64_t{12}).text(), QStringLiteral("12"));
  EXPECT_EQ(Value(4294967295.0).text(), QStringLiteral("4294967295"));
  EXPECT_EQ(Value(2.5).text(), QStringLiteral("2.5"));
  EXPECT_EQ(Value(QStringLiteral(" 42 ")).int32(), 42);
  EXPECT_EQ(Value(QStringLiteral("2.5")).int32(), 2);
  EXPECT_EQ(Value(3.5).int32(), 4);
  EXPECT_TRUE(Value(std::int64_t{-1}).boolean());
  EXPECT_FALSE(Value(std::int64_t{0}).boolean());
  EXPECT_EQ(numberError([] { Value(QStringLiteral("dodici")).int32(); }), 13);
  EXPECT_EQ(numberError([] { Value(QString()).int32(); }), 13);
  EXPECT_EQ(numberError([] { Value(std::int64_t{40000}).int16(); }), 6);
  EXPECT_EQ(numberError([] { Value(std::int64_t{3000000000}).int32(); }), 6);
  EXPECT_EQ(numberError([] { Value(1e30).int64(); }), 6);
}

}  // namespace
