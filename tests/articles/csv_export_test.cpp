#include <gmock/gmock.h>
#include <iconv.h>
#include <sqlite3.h>

#include <QDir>
#include <QFile>

#include "articles/back_room.h"
#include "articles/csv_import.h"
#include "articles/guided_archive.h"
#include "sostegno/troubles.h"

using namespace articles;

namespace {

const QString kExport = QStringLiteral("Cmd_Export");
const QString kLista = QStringLiteral("lista.csv");

/// One character of the code page by the system's own converter; "?" where it has none.
QByteArray codici(QByteArray utf8) {
  iconv_t verso = iconv_open("WINDOWS-1252", "UTF-8");
  QByteArray uscita;
  char* resto = utf8.data();
  auto mancano = static_cast<std::size_t>(utf8.size());
  while (mancano > 0) {
    char uno = 0;
    char* dove = &uno;
    std::size_t posto = 1;
    const std::size_t esito = iconv(verso, &resto, &mancano, &dove, &posto);
    if (posto == 0) uscita += uno;
    if (posto == 1 && esito == static_cast<std::size_t>(-1)) {
      uscita += '?';
      do {
        ++resto;
        --mancano;
      } while (mancano > 0 && (static_cast<unsigned char>(*resto) & 0xC0) == 0x80);
    }
  }
  iconv_close(verso);
  return uscita;
}

/// The whole table as the export has to write it, computed from the file with the library's own calls.
QByteArray attesoDalFile(const QString& archivio) {
  sqlite3* base = nullptr;
  EXPECT_EQ(sqlite3_open_v2(archivio.toUtf8().constData(), &base, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  sqlite3_stmt* righe = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(base,
                               "SELECT Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,VarPrezzo,"
                               "PrezzoZero FROM TAB_ARTICOLI ORDER BY rowid",
                               -1, &righe, nullptr),
            SQLITE_OK);
  const auto testo = [&](int colonna) {
    return QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(righe, colonna)));
  };
  QByteArray previsto;
  const char virgola = QLocale().decimalPoint().at(0).toLatin1();
  for (int riga = 1; sqlite3_step(righe) == SQLITE_ROW; ++riga) {
    QByteArray prezzo = testo(3).rightJustified(3, '0');
    prezzo.insert(prezzo.size() - 2, virgola);
    previsto += QByteArray::number(riga) + ';' + codici(testo(0)) + ';' + codici(testo(1)) + ';' +
                codici(testo(2)) + ';' + prezzo + ';' + testo(4) + ';' +
                (sqlite3_column_int(righe, 5) != 0 ? "S;" : "N;") +
                (sqlite3_column_int(righe, 6) != 0 ? "S; \r\n" : "N; \r\n");
  }
  sqlite3_finalize(righe);
  sqlite3_close(base);
  return previsto;
}

struct ExportArticoli : testing::Test {
  BackRoom bottega;
  const QString lista = bottega.folder.file(kLista);

  ExportArticoli() {
    bottega.screens.registra<Form_ArchivioArticoli>();
    bottega.openArchive();
  }
  void soloTre() {
    bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3"));
    writeArticles(bottega,
                  {{QStringLiteral("8003"), QStringLiteral("CAFFÈ € 漢"), 250, 2, true, false},
                   {QStringLiteral("8001"), QStringLiteral("TÈ \"VERDE\" 10% [*]"), 5, 3, false, true},
                   {QStringLiteral("9001"), QString(), 120000, 80, false, false}});
  }
  void importa(const QString& file) {
    bottega.user.chooses(file);
    ImportaArticoli(bottega.contesto);
    expectBoxes(bottega, {box(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
                              Icon::Information)});
  }
  /// From the folder of the test: the report comes to lie beside the list.
  void importaListinoDEsempio() {
    const QString copia = bottega.folder.file(QStringLiteral("listino.csv"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(GESTIONALE_APP "/articoli.csv"), copia));
    importa(copia);
  }
  Box terminata() const {
    return box(QStringLiteral("Creazione del file ") + lista + QStringLiteral(" terminata."),
               Icon::Information);
  }
  static QByteArray prezzo(QByteArray testo) {
    return testo.replace(',', QLocale().decimalPoint().toLatin1());
  }
  /// Every column of the table, the marks aside.
  QStringList fotografia() {
    QStringList righe;
    store::Recordset tutte = varGlobal().DB_Articoli.OpenRecordset(
        u"SELECT auto_id,ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,"
        u"VarPrezzo,PrezzoZero from TAB_ARTICOLI order by auto_id");
    for (; !tutte.atEnd(); tutte.MoveNext()) {
      QStringList riga;
      for (int colonna = 0; colonna < tutte.columns(); ++colonna) riga += tutte.field(colonna).text();
      righe += riga.join(u'|');
    }
    return righe;
  }
};

TEST_F(ExportArticoli, OgniRigaDellaGrigliaDiventaUnaRigaDiNoveCampi) {
  soloTre();
  const GuidedArchive schermo(bottega);
  bottega.user.chooses(lista);
  schermo.click(kExport);
  expectBoxes(bottega, {terminata()});
  EXPECT_EQ(bottega.folder.read(kLista), prezzo("1;8003;A1;CAFF\xC8 \x80 ?;2,50;2;S;N; \r\n") +
                                             prezzo("2;8001;A2;T\xC8 \"VERDE\" 10% [*];0,05;3;N;S; \r\n") +
                                             prezzo("3;9001;A3;;1200,00;80;N;N; \r\n"));
  ASSERT_EQ(bottega.user.requests().size(), 1U);
  EXPECT_EQ(bottega.user.requests()[0].filter, QStringLiteral("csv (*.csv)|*.csv"));
}

TEST_F(ExportArticoli, UnElencoCercatoSiNumeraPerRigaDellaGriglia) {
  soloTre();
  const GuidedArchive schermo(bottega);
  schermo.type(QStringLiteral("vkTextBoxCodEan"), QStringLiteral("80"));
  schermo.click(QStringLiteral("Vmd_Cerca"));
  bottega.user.chooses(lista);
  schermo.click(kExport);
  expectBoxes(bottega, {terminata()});
  EXPECT_EQ(bottega.folder.read(kLista), prezzo("1;8001;A2;T\xC8 \"VERDE\" 10% [*];0,05;3;;; \r\n") +
                                             prezzo("2;8003;A1;CAFF\xC8 \x80 ?;2,50;2;;; \r\n"));
}

TEST_F(ExportArticoli, UnaGrigliaVuotaEsportaLaSuaRigaVuota) {
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  const GuidedArchive schermo(bottega);
  bottega.user.chooses(lista);
  schermo.click(kExport);
  expectBoxes(bottega, {terminata()});
  EXPECT_EQ(bottega.folder.read(kLista), QByteArray("1;;;;;;;; \r\n"));
}

TEST_F(ExportArticoli, AnnullareOLasciareIlNomeVuotoNonScriveNulla) {
  soloTre();
  const GuidedArchive schermo(bottega);
  const QStringList prima = QDir(bottega.folder.path()).entryList();
  bottega.user.chooses(std::nullopt).chooses(QString());
  schermo.click(kExport);
  schermo.click(kExport);
  EXPECT_EQ(bottega.user.requests().size(), 2U);
  EXPECT_EQ(QDir(bottega.folder.path()).entryList(), prima);
}

TEST_F(ExportArticoli, UnFileCheCEGiaSiSostituisceSenzaDomande) {
  soloTre();
  bottega.folder.write(kLista, QByteArray(100000, 'x'));
  const GuidedArchive schermo(bottega);
  bottega.user.chooses(lista);
  schermo.click(kExport);
  expectBoxes(bottega, {terminata()});
  EXPECT_TRUE(bottega.folder.read(kLista).startsWith("1;8003;"));
  EXPECT_EQ(bottega.folder.read(kLista).count('\n'), 3);
}

TEST_F(ExportArticoli, IlListinoVeroEEgualeAQuantoSiCalcolaDalDatabase) {
  importaListinoDEsempio();
  const GuidedArchive schermo(bottega);
  bottega.user.chooses(lista);
  schermo.click(kExport);
  expectBoxes(bottega, {terminata()});
  const QByteArray scritto = bottega.folder.read(kLista);
  EXPECT_EQ(scritto.count('\n'), 5000);
  EXPECT_TRUE(scritto == attesoDalFile(bottega.folder.file(QStringLiteral("archivio.mdb"))));
}

TEST_F(ExportArticoli, RilettoNonCambiaCheISegni) {
  importaListinoDEsempio();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id < 100"));
  bottega.execute(
      QStringLiteral("UPDATE TAB_ARTICOLI SET VarPrezzo =true,PrezzoZero =true where auto_id < 50"));
  const QStringList prima = fotografia();
  const GuidedArchive schermo(bottega);
  bottega.user.chooses(lista);
  schermo.click(kExport);
  expectBoxes(bottega, {terminata()});
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='',Prezzo =0,Reparto =1"));
  importa(lista);
  EXPECT_EQ(fotografia(), prima);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Filler =' '")), 5000);
}

TEST_F(ExportArticoli, UnoSlotVuotoRilettoPrendeIlCodiceZero) {
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 1"));
  const GuidedArchive schermo(bottega);
  bottega.user.chooses(lista);
  schermo.click(kExport);
  expectBoxes(bottega, {terminata()});
  EXPECT_EQ(bottega.folder.read(kLista), prezzo("1;;;;0,00;1;N;N; \r\n"));
  QStringList previste = fotografia();
  ASSERT_EQ(previste.size(), 1);
  ASSERT_TRUE(previste[0].startsWith(QStringLiteral("1|1|||")));
  previste[0].insert(QStringLiteral("1|1||").size(), u'0');
  importa(lista);
  EXPECT_EQ(fotografia(), previste);
}

/// A file that cannot be written: the box of the failure, and what was there before.
struct ExportImpossibile : ExportArticoli {
  void esportaSu(const QString& percorso, int numero) {
    const QStringList prima = QDir(bottega.folder.path()).entryList(QDir::AllEntries | QDir::Hidden);
    const GuidedArchive schermo(bottega);
    bottega.user.chooses(percorso);
    schermo.click(kExport);
    const std::vector<Box> visti = bottega.user.takeBoxes();
    ASSERT_EQ(visti.size(), 1U);
    EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Error %1 (").arg(numero)))
        << visti[0].text.toStdString();
    EXPECT_TRUE(visti[0].text.endsWith(
        QStringLiteral(") in procedure Cmd_Export_Click of Modulo Form_ArchivioArticoli")));
    EXPECT_EQ(QDir(bottega.folder.path()).entryList(QDir::AllEntries | QDir::Hidden), prima);
    EXPECT_TRUE(schermo.alive());
    EXPECT_TRUE(schermo.grid().Redraw());
  }
};

TEST_F(ExportImpossibile, InUnaCartellaCheNonCE) {
  esportaSu(bottega.folder.file(QStringLiteral("manca/lista.csv")), errors::kPathMissing);
}

TEST_F(ExportImpossibile, SopraUnaCartella) {
  ASSERT_TRUE(QDir().mkdir(lista));
  esportaSu(lista, errors::kPathAccess);
}

TEST_F(ExportImpossibile, SulDiscoPienoRestaIlFileDiPrima) {
  bottega.folder.write(kLista, "prima");
  const FullDisk pieno(10000);
  esportaSu(lista, errors::kDiskFull);
  EXPECT_EQ(bottega.folder.read(kLista), QByteArray("prima"));
}

TEST_F(ExportImpossibile, InUnaCartellaDiAltriRestaIlFileDiPrima) {
  const QString chiusa = bottega.folder.file(QStringLiteral("chiusa"));
  ASSERT_TRUE(QDir().mkdir(chiusa));
  constexpr auto kDiTutti =
      QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
  QFile::setPermissions(bottega.folder.path(), QFile::permissions(bottega.folder.path()) | kDiTutti);
  QFile::setPermissions(chiusa, QFileDevice::ReadOwner | QFileDevice::ExeOwner | kDiTutti);
  {
    const OtherUser altro;
    esportaSu(chiusa + QStringLiteral("/lista.csv"), errors::kPathAccess);
  }
  EXPECT_TRUE(QDir(chiusa).isEmpty());
}

}  // namespace
