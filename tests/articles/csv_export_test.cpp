#include "articles/csv_export.h"

#include <gmock/gmock.h>
#include <iconv.h>
#include <sqlite3.h>

#include <QDir>
#include <QFile>

#include "articles/csv_import.h"
#include "articles/guided_archive.h"
#include "articles/others.h"

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
  QByteArray atteso;
  const char virgola = QLocale().decimalPoint().at(0).toLatin1();
  for (int riga = 1; sqlite3_step(righe) == SQLITE_ROW; ++riga) {
    QByteArray prezzo = testo(3).rightJustified(3, '0');
    prezzo.insert(prezzo.size() - 2, virgola);
    atteso += QByteArray::number(riga) + ';' + codici(testo(0)) + ';' + codici(testo(1)) + ';' +
              codici(testo(2)) + ';' + prezzo + ';' + testo(4) + ';' +
              (sqlite3_column_int(righe, 5) != 0 ? "S;" : "N;") +
              (sqlite3_column_int(righe, 6) != 0 ? "S; \r\n" : "N; \r\n");
  }
  sqlite3_finalize(righe);
  sqlite3_close(base);
  return atteso;
}

struct ExportArticoli : testing::Test {
  Bottega bottega;
  const QString lista = bottega.cartella.file(kLista);

  ExportArticoli() {
    registraArchivioArticoli(bottega.schermate);
    bottega.apriArchivio();
  }
  void soloTre() {
    bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3"));
    scriviArticoli(bottega,
                   {{QStringLiteral("8003"), QStringLiteral("CAFFÈ € 漢"), 250, 2, true, false},
                    {QStringLiteral("8001"), QStringLiteral("TÈ \"VERDE\" 10% [*]"), 5, 3, false, true},
                    {QStringLiteral("9001"), QString(), 120000, 80, false, false}});
  }
  void importa(const QString& file) {
    bottega.area.NewCommand();
    bottega.utente.chooses(file);
    ImportaArticoli(bottega.contesto, {});
    attendi(bottega, {riquadro(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
                               Icon::Information)});
  }
  Box terminata() const {
    return riquadro(QStringLiteral("Creazione del file ") + lista + QStringLiteral(" terminata."),
                    Icon::Information);
  }
  static QByteArray prezzo(QByteArray testo) {
    return testo.replace(',', QLocale().decimalPoint().toLatin1());
  }
  /// Every column of the table, the marks aside.
  QStringList fotografia() {
    QStringList righe;
    store::Recordset tutte = varGlobal().DB_Articoli.OpenRecordset(
        QStringLiteral("SELECT auto_id,ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,"
                       "VarPrezzo,PrezzoZero from TAB_ARTICOLI order by auto_id"));
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
  const ArchivioGuidato schermo(bottega);
  bottega.utente.chooses(lista);
  schermo.clic(kExport);
  attendi(bottega, {terminata()});
  EXPECT_EQ(bottega.cartella.read(kLista), prezzo("1;8003;A1;CAFF\xC8 \x80 ?;2,50;2;S;N; \r\n") +
                                               prezzo("2;8001;A2;T\xC8 \"VERDE\" 10% [*];0,05;3;N;S; \r\n") +
                                               prezzo("3;9001;A3;;1200,00;80;N;N; \r\n"));
  ASSERT_EQ(bottega.utente.requests().size(), 1U);
  EXPECT_EQ(bottega.utente.requests()[0].filter, QStringLiteral("csv (*.csv)|*.csv"));
}

TEST_F(ExportArticoli, UnElencoCercatoSiNumeraPerRigaDellaGriglia) {
  soloTre();
  const ArchivioGuidato schermo(bottega);
  schermo.scrivi(QStringLiteral("vkTextBoxCodEan"), QStringLiteral("80"));
  schermo.clic(QStringLiteral("Vmd_Cerca"));
  bottega.utente.chooses(lista);
  schermo.clic(kExport);
  attendi(bottega, {terminata()});
  EXPECT_EQ(bottega.cartella.read(kLista), prezzo("1;8001;A2;T\xC8 \"VERDE\" 10% [*];0,05;3;;; \r\n") +
                                               prezzo("2;8003;A1;CAFF\xC8 \x80 ?;2,50;2;;; \r\n"));
}

TEST_F(ExportArticoli, UnaGrigliaVuotaEsportaLaSuaRigaVuota) {
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI"));
  const ArchivioGuidato schermo(bottega);
  bottega.utente.chooses(lista);
  schermo.clic(kExport);
  attendi(bottega, {terminata()});
  EXPECT_EQ(bottega.cartella.read(kLista), QByteArray("1;;;;;;;; \r\n"));
}

TEST_F(ExportArticoli, AnnullareOLasciareIlNomeVuotoNonScriveNulla) {
  soloTre();
  const ArchivioGuidato schermo(bottega);
  const QStringList prima = QDir(bottega.cartella.path()).entryList();
  bottega.utente.chooses(std::nullopt).chooses(QString());
  schermo.clic(kExport);
  schermo.clic(kExport);
  EXPECT_EQ(bottega.utente.requests().size(), 2U);
  EXPECT_EQ(QDir(bottega.cartella.path()).entryList(), prima);
}

TEST_F(ExportArticoli, UnFileCheCEGiaSiSostituisceSenzaDomande) {
  soloTre();
  bottega.cartella.write(kLista, QByteArray(100000, 'x'));
  const ArchivioGuidato schermo(bottega);
  bottega.utente.chooses(lista);
  schermo.clic(kExport);
  attendi(bottega, {terminata()});
  EXPECT_TRUE(bottega.cartella.read(kLista).startsWith("1;8003;"));
  EXPECT_EQ(bottega.cartella.read(kLista).count('\n'), 3);
}

TEST_F(ExportArticoli, IlListinoVeroEEgualeAQuantoSiCalcolaDalDatabase) {
  importa(QStringLiteral(GESTIONALE_APP) + QStringLiteral("/articoli.csv"));
  const ArchivioGuidato schermo(bottega);
  bottega.utente.chooses(lista);
  schermo.clic(kExport);
  attendi(bottega, {terminata()});
  const QByteArray scritto = bottega.cartella.read(kLista);
  EXPECT_EQ(scritto.count('\n'), 5000);
  EXPECT_TRUE(scritto == attesoDalFile(bottega.cartella.file(QStringLiteral("archivio.mdb"))));
}

TEST_F(ExportArticoli, RilettoNonCambiaCheISegni) {
  importa(QStringLiteral(GESTIONALE_APP) + QStringLiteral("/articoli.csv"));
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id < 100"));
  bottega.esegui(
      QStringLiteral("UPDATE TAB_ARTICOLI SET VarPrezzo =true,PrezzoZero =true where auto_id < 50"));
  const QStringList prima = fotografia();
  const ArchivioGuidato schermo(bottega);
  bottega.utente.chooses(lista);
  schermo.clic(kExport);
  attendi(bottega, {terminata()});
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='',Prezzo =0,Reparto =1"));
  importa(lista);
  EXPECT_EQ(fotografia(), prima);
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT * from TAB_ARTICOLI where Filler =' '")), 5000);
}

TEST_F(ExportArticoli, UnoSlotVuotoRilettoPrendeIlCodiceZero) {
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 1"));
  const ArchivioGuidato schermo(bottega);
  bottega.utente.chooses(lista);
  schermo.clic(kExport);
  attendi(bottega, {terminata()});
  EXPECT_EQ(bottega.cartella.read(kLista), prezzo("1;;;;0,00;1;N;N; \r\n"));
  QStringList attese = fotografia();
  ASSERT_EQ(attese.size(), 1);
  ASSERT_TRUE(attese[0].startsWith(QStringLiteral("1|1|||")));
  attese[0].insert(QStringLiteral("1|1||").size(), u'0');
  importa(lista);
  EXPECT_EQ(fotografia(), attese);
}

/// A file that cannot be written: the box of the failure, and what was there before.
struct ExportImpossibile : ExportArticoli {
  void esportaSu(const QString& percorso, int numero) {
    const QStringList prima = QDir(bottega.cartella.path()).entryList(QDir::AllEntries | QDir::Hidden);
    const ArchivioGuidato schermo(bottega);
    bottega.utente.chooses(percorso);
    schermo.clic(kExport);
    const std::vector<Box> visti = bottega.utente.takeBoxes();
    ASSERT_EQ(visti.size(), 1U);
    EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Error %1 (").arg(numero)))
        << visti[0].text.toStdString();
    EXPECT_TRUE(visti[0].text.endsWith(
        QStringLiteral(") in procedure Cmd_Export_Click of Modulo Form_ArchivioArticoli")));
    EXPECT_EQ(QDir(bottega.cartella.path()).entryList(QDir::AllEntries | QDir::Hidden), prima);
    EXPECT_TRUE(schermo.vivo());
    EXPECT_TRUE(schermo.griglia().Redraw());
  }
};

TEST_F(ExportImpossibile, InUnaCartellaCheNonCE) {
  esportaSu(bottega.cartella.file(QStringLiteral("manca/lista.csv")), errors::kPathMissing);
}

TEST_F(ExportImpossibile, SopraUnaCartella) {
  ASSERT_TRUE(QDir().mkdir(lista));
  esportaSu(lista, errors::kPathAccess);
}

TEST_F(ExportImpossibile, SulDiscoPienoRestaIlFileDiPrima) {
  bottega.cartella.write(kLista, "prima");
  const DiscoPieno pieno(10000);
  esportaSu(lista, errors::kDiskFull);
  EXPECT_EQ(bottega.cartella.read(kLista), QByteArray("prima"));
}

TEST_F(ExportImpossibile, InUnaCartellaDiAltriRestaIlFileDiPrima) {
  const QString chiusa = bottega.cartella.file(QStringLiteral("chiusa"));
  ASSERT_TRUE(QDir().mkdir(chiusa));
  constexpr auto kDiTutti =
      QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
  QFile::setPermissions(bottega.cartella.path(), QFile::permissions(bottega.cartella.path()) | kDiTutti);
  QFile::setPermissions(chiusa, QFileDevice::ReadOwner | QFileDevice::ExeOwner | kDiTutti);
  {
    const AltroUtente altro;
    esportaSu(chiusa + QStringLiteral("/lista.csv"), errors::kPathAccess);
  }
  EXPECT_TRUE(QDir(chiusa).isEmpty());
}

}  // namespace
