// Archives of other programs may compute their texts: one that is beyond every column must cost nothing.

#include "platform/store/test_archive.h"
#include "sostegno/sqlite_file.h"

namespace {

/// An archive with a view of one row, whose text `a` is as long as the expression says.
class TestoEnorme : public testing::Test {
 protected:
  store::Database conVista(const char* espressione) { return conVista(espressione, folder_); }
  store::Database conVista(const char* espressione, const TemporaryFolder& cartella) {
    const QString percorso = cartella.file(QStringLiteral("altrui.mdb"));
    runInSqlite(percorso,
                {QStringLiteral("CREATE VIEW V AS SELECT %1 AS a").arg(QLatin1String(espressione))});
    return workspace_.OpenDatabase(percorso);
  }

  TemporaryFolder folder_;
  FixedClock clock_;
  store::Workspace workspace_{clock_};
};

TEST_F(TestoEnorme, SediciMebibyteSiLeggono) {
  store::Database archivio = conVista("hex(zeroblob(8388607)) || 'xy'");
  EXPECT_EQ(archivio.OpenRecordset(u"SELECT a from V").text(0).size(), 16777216);
}

TEST_F(TestoEnorme, UnByteOltreISediciMebibyteDa3163) {
  store::Database archivio = conVista("hex(zeroblob(8388607)) || 'xyz'");
  EXPECT_EQ(numberError([&] { archivio.OpenRecordset(u"SELECT a from V"); }), 3163);
}

TEST_F(TestoEnorme, UnoDiMezzoGigabyteNonVieneNeancheComposto) {
  store::Database archivio = conVista("hex(zeroblob(250000000)) || 'xy'");
  EXPECT_EQ(numberError([&] { archivio.OpenRecordset(u"SELECT a from V"); }), 3163);
}

// Where their time goes no clock is looked at: the square of such a text would be hours.
TEST_F(TestoEnorme, LeFunzioniDalTempoQuadraticoNonCiSono) {
  for (const char* const chiamata :
       {"instr(hex(zeroblob(8000000)), hex(zeroblob(4000000)) || 'b')",
        "replace(hex(zeroblob(8000000)), hex(zeroblob(4000000)) || 'b', '')",
        "trim(hex(zeroblob(8000000)), hex(zeroblob(4000000)))",
        "ltrim(hex(zeroblob(8000000)), hex(zeroblob(4000000)))",
        "rtrim(hex(zeroblob(8000000)), hex(zeroblob(4000000)))",
        "hex(zeroblob(8000000)) GLOB '*' || hex(zeroblob(20000)) || 'b'",
        "hex(zeroblob(8000000)) LIKE '%' || hex(zeroblob(20000)) || 'b' ESCAPE '/'",
        "json_patch('{}', '{}')"}) {
    const TemporaryFolder cartella;
    store::Database archivio = conVista(chiamata, cartella);
    EXPECT_EQ(numberError([&] { archivio.OpenRecordset(u"SELECT a from V"); }), 3075) << chiamata;
  }
}

TEST_F(TestoEnorme, UnConfrontoLunghissimoDa3163EUnoLungoSiFa) {
  store::Database lunghissimo = conVista("hex(zeroblob(8000000)) LIKE '*' || hex(zeroblob(4000000)) || 'b'");
  EXPECT_EQ(numberError([&] { lunghissimo.OpenRecordset(u"SELECT a from V"); }), 3163);
  lunghissimo.Close();
  const TemporaryFolder cartella;
  store::Database lungo =
      conVista("hex(zeroblob(500000)) || 'cedro del Libano' LIKE '*cedro*Libano'", cartella);
  EXPECT_EQ(lungo.OpenRecordset(u"SELECT a from V").int64(0), 1);
}

/// A text of one byte more, as a statement of this program's would write it.
TEST_F(ArchiveOfTry, UnTestoOltreOgniLimiteNonSiScriveENonNeLasciaUnAltro) {
  const QString enorme(16777217, u'x');
  const auto scrivi = [&](const QString& testo) {
    archive_.Execute(u"UPDATE TAB_ARTICOLI SET ID_Position ='" + store::text(testo) + u"' WHERE auto_id=1");
  };
  scrivi(QStringLiteral("uno"));
  EXPECT_EQ(numberError([&] { scrivi(enorme); }), 3163);
  EXPECT_EQ(value("SELECT ID_Position from TAB_ARTICOLI where auto_id=1"), QStringLiteral("uno"));
}

}  // namespace
