#include "customers/statement_batch.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>

#include "customers/customer_database.h"
#include "customers/office.h"
#include "platform/text/line_reader.h"
#include "platform/ui/busy_guard.h"
#include "sostegno/troubles.h"

namespace {

using customers::EsitoIstruzioni;
using customers::ImportaIstruzioni;
using Tipo = EsitoIstruzioni::Tipo;

const Box kEseguita =
    box(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"), Icon::Information);
const QString kRossi = QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (1,'ROSSI','','','','',1)");
const QString kTutti =
    QStringLiteral("SELECT ID_Cliente, Ragione_Sociale from TAB_ANAG_CLIENTI order by ID_Cliente");

/// The box of a failure; a text that ends in "*" stands for any that begins so.
Box errore(int numero, const QString& descrizione = QStringLiteral("*")) {
  return criticalBox(
      QStringLiteral("Errore nell' inserimento articoli Errore n° %1\n%2").arg(numero).arg(descrizione));
}

struct Istruzioni : testing::Test {
  Office ufficio;

  Istruzioni() { ufficio.openArchive(); }

  EsitoIstruzioni importa(const QByteArray& righe) {
    ufficio.user.chooses(ufficio.folder.write(QStringLiteral("istruzioni.dat"), righe));
    return ImportaIstruzioni(ufficio.contesto);
  }
  EsitoIstruzioni importa(const QStringList& righe) {
    return importa(righe.join(QStringLiteral("\r\n")).toLatin1());
  }
  /// One failed with the given box and left nothing behind: no row, no transaction.
  void attendiAnnullata(const EsitoIstruzioni& esito, int righe, const Box& box) {
    expectBoxes(ufficio, {box});
    EXPECT_EQ(esito.tipo, Tipo::Annullate);
    EXPECT_EQ(esito.righe, righe);
    EXPECT_EQ(ufficio.workspace.level(), 0);
  }
  /// What another program finds in the file.
  QStringList sulDisco() {
    store::Workspace altra;
    store::Recordset righe =
        altra.OpenDatabase(varGlobal().NomeDB_Clienti)
            .OpenRecordset(u"SELECT Ragione_Sociale from TAB_ANAG_CLIENTI order by ID_Cliente");
    QStringList nomi;
    for (; !righe.atEnd(); righe.MoveNext()) nomi << righe.text(0);
    return nomi;
  }
};

TEST_F(Istruzioni, OgniRigaEUnIstruzioneETutteSonoConfermate) {
  const EsitoIstruzioni esito =
      importa({kRossi, QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (2,'BIANCHI','','','','',1)"),
               QStringLiteral("UPDATE TAB_ANAG_CLIENTI SET Citta ='ROMA' WHERE ID_Cliente =1"),
               QStringLiteral(
                   "INSERT INTO TAB_FATTURE VALUES (1,'2024/1',' 1','07/03/2024 10:11:12',0,100,90,10,'')")});
  expectBoxes(ufficio, {kEseguita});
  EXPECT_EQ(esito.tipo, Tipo::Eseguite);
  EXPECT_EQ(esito.righe, 4);
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_EQ(ufficio.rows(kTutti),
            QStringList({QStringLiteral("0|"), QStringLiteral("1|ROSSI"), QStringLiteral("2|BIANCHI")}));
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT Citta from TAB_ANAG_CLIENTI where ID_Cliente =1")),
            QStringLiteral("ROMA"));
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT NumFattura from TAB_FATTURE")), QStringLiteral("2024/1"));
  EXPECT_EQ(sulDisco().size(), 3);
}

TEST_F(Istruzioni, LaFinestraOffreIFileDat) {
  importa({kRossi});
  expectBoxes(ufficio, {kEseguita});
  ASSERT_EQ(ufficio.user.requests().size(), 1U);
  EXPECT_EQ(ufficio.user.requests()[0].filter, QStringLiteral("dat (*.dat)|*.dat"));
}

/// Sees how many transactions stand open while the dialog does.
struct Osservatore : ScriptedUser {
  store::Workspace* area = nullptr;
  int livello = -1;
  std::optional<QString> AskOpenPath(const FileRequest& finestra) override {
    livello = area->level();
    return ScriptedUser::AskOpenPath(finestra);
  }
};

TEST_F(Istruzioni, LaTransazioneCominciaPrimaDellaFinestra) {
  Osservatore utente;
  utente.area = &ufficio.workspace;
  Contesto contesto{
      utente,          ufficio.workspace, ufficio.library,           ufficio.network,
      ufficio.screens, ufficio.clock,     ufficio.contesto.cartella, ufficio.contesto.attesaDopo};
  utente.chooses(std::nullopt);
  EXPECT_EQ(ImportaIstruzioni(contesto).tipo, Tipo::Abbandonato);
  EXPECT_EQ(utente.livello, 1);
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(Istruzioni, UnaFinestraAnnullataRendeLaTransazioneENonDiceNulla) {
  for (const std::optional<QString>& scelta : {std::optional<QString>(), std::optional<QString>(QString())}) {
    ufficio.user.chooses(scelta);
    EXPECT_EQ(ImportaIstruzioni(ufficio.contesto).tipo, Tipo::Abbandonato);
    EXPECT_EQ(ufficio.workspace.level(), 0);
  }
  expectBoxes(ufficio, {});
}

TEST_F(Istruzioni, UnaTransazioneDiChiChiamaRestaSua) {
  ufficio.workspace.BeginTrans();
  ufficio.customer(7, QStringLiteral("VERDI"));
  importa({kRossi, QStringLiteral("DELETE FROM MANCA")});
  expectBoxes(ufficio, {errore(3078)});
  EXPECT_EQ(ufficio.workspace.level(), 1);
  EXPECT_EQ(ufficio.rows(kTutti), QStringList({QStringLiteral("0|"), QStringLiteral("7|VERDI")}));
}

TEST_F(Istruzioni, UnaRigaSbagliataLeAnnullaTutte) {
  const EsitoIstruzioni esito =
      importa({kRossi, QStringLiteral("DELETE FROM MANCA"), QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI")});
  attendiAnnullata(esito, 1, errore(3078));
  EXPECT_EQ(ufficio.rows(kTutti), QStringList{QStringLiteral("0|")});
  EXPECT_EQ(sulDisco(), QStringList{QString()});
}

TEST_F(Istruzioni, IlMessaggioStaDavantiAllAnnullamento) {
  int aperte = -1;
  QStringList visti;
  ufficio.user.onBox = [&](const Box&) {
    aperte = ufficio.workspace.level();
    visti = ufficio.rows(kTutti);
  };
  importa({kRossi, QStringLiteral("DELETE FROM MANCA")});
  expectBoxes(ufficio, {errore(3078)});
  EXPECT_EQ(aperte, 1);
  EXPECT_EQ(visti.size(), 2) << "the rows before it stand until the box is answered";
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(Istruzioni, IlMessaggioDellaRiuscitaVieneDopoLaConferma) {
  int aperte = -1;
  QStringList scritti;
  ufficio.user.onBox = [&](const Box&) {
    aperte = ufficio.workspace.level();
    scritti = sulDisco();
  };
  importa({kRossi});
  expectBoxes(ufficio, {kEseguita});
  EXPECT_EQ(aperte, 0);
  EXPECT_EQ(scritti, QStringList({QString(), QStringLiteral("ROSSI")}));
}

TEST_F(Istruzioni, UnApostrofoRompeLaRigaELaAnnulla) {
  attendiAnnullata(importa({QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (1,'L'ORO','','','','',1)")}),
                   0, errore(3075));
}

TEST_F(Istruzioni, UnCodiceGiaPresenteLeAnnulla) {
  attendiAnnullata(importa({kRossi, kRossi}), 1, errore(3022));
  EXPECT_EQ(ufficio.rows(kTutti).size(), 1);
}

TEST_F(Istruzioni, UnaRigaHaUnIstruzioneSola) {
  attendiAnnullata(importa({kRossi + QStringLiteral("; DELETE FROM TAB_ANAG_CLIENTI")}), 0, errore(3142));
  EXPECT_EQ(ufficio.rows(kTutti).size(), 1);
}

TEST_F(Istruzioni, IlPuntoEVirgolaInFondoEDellIstruzione) {
  EXPECT_EQ(importa({kRossi + QStringLiteral(";")}).tipo, Tipo::Eseguite);
  expectBoxes(ufficio, {kEseguita});
}

TEST_F(Istruzioni, UnaRigaVuotaNonEUnIstruzione) {
  attendiAnnullata(importa({kRossi, QString(), kRossi}), 1, errore(3075));
}

TEST_F(Istruzioni, UnFileVuotoNonHaRigheEQuindiNonSbaglia) {
  const EsitoIstruzioni esito = importa(QByteArray());
  expectBoxes(ufficio, {kEseguita});
  EXPECT_EQ(esito.tipo, Tipo::Eseguite);
  EXPECT_EQ(esito.righe, 0);
}

TEST_F(Istruzioni, LeRigheFinisconoInOgniModo) {
  const QByteArray istruzione = "UPDATE TAB_ANAG_CLIENTI SET Nota ='X' WHERE ID_Cliente =0";
  const EsitoIstruzioni esito =
      importa(istruzione + "\r\n" + istruzione + "\n" + istruzione + "\r" + istruzione);
  expectBoxes(ufficio, {kEseguita});
  EXPECT_EQ(esito.righe, 4);
}

TEST_F(Istruzioni, LeLettereAccentateSonoQuelleDelSistema) {
  importa(QByteArray("INSERT INTO TAB_ANAG_CLIENTI VALUES (1,'CAFF\xC8 \x80 5','','','','',1)\r\n"));
  expectBoxes(ufficio, {kEseguita});
  EXPECT_EQ(ufficio.value(QStringLiteral("SELECT Ragione_Sociale from TAB_ANAG_CLIENTI where ID_Cliente =1")),
            QStringLiteral("CAFFÈ € 5"));
}

TEST_F(Istruzioni, UnaRigaTroppoLungaNonSiEsegueAMeta) {
  QByteArray lunga = kRossi.toLatin1();
  lunga += QByteArray(LineReader::kMaxLine, ' ');
  attendiAnnullata(importa(lunga + "\r\n" + kRossi.toLatin1()), 0,
                   errore(3163, QStringLiteral("La riga è troppo lunga.")));
  EXPECT_EQ(ufficio.rows(kTutti).size(), 1);
}

TEST_F(Istruzioni, UnaRigaLungaQuantoIlLimiteSiEsegue) {
  QByteArray lunga = kRossi.toLatin1();
  lunga += QByteArray(LineReader::kMaxLine - lunga.size(), ' ');
  EXPECT_EQ(importa(lunga).righe, 1);
  expectBoxes(ufficio, {kEseguita});
}

TEST_F(Istruzioni, UnInterrogazioneNonEUnIstruzioneDaEseguire) {
  attendiAnnullata(importa({kRossi, QStringLiteral("SELECT ID_Cliente from TAB_ANAG_CLIENTI")}), 1,
                   errore(3065));
}

TEST_F(Istruzioni, NessunaRigaEsceDallArchivioNeDallaTransazione) {
  const QString fuori = ufficio.folder.file(QStringLiteral("fuori.mdb"));
  for (const QString& riga :
       {QStringLiteral("COMMIT"), QStringLiteral("ROLLBACK"), QStringLiteral("BEGIN"),
        QStringLiteral("VACUUM"), QStringLiteral("PRAGMA journal_mode = OFF"), QStringLiteral("SAVEPOINT a"),
        QStringLiteral("ATTACH DATABASE '%1' AS fuori").arg(fuori)}) {
    SCOPED_TRACE(riga.toStdString());
    attendiAnnullata(importa({kRossi, riga}), 1, errore(3075));
  }
  EXPECT_EQ(ufficio.rows(kTutti).size(), 1);
  EXPECT_FALSE(QFile::exists(fuori));
}

TEST_F(Istruzioni, AncheUnaTabellaNuovaSiAnnulla) {
  attendiAnnullata(
      importa({QStringLiteral("CREATE TABLE PROVA (a INTEGER)"),
               QStringLiteral("INSERT INTO PROVA VALUES (1)"), QStringLiteral("DELETE FROM MANCA")}),
      2, errore(3078));
  attendiAnnullata(importa({QStringLiteral("INSERT INTO PROVA VALUES (1)")}), 0, errore(3078));
}

TEST_F(Istruzioni, UnFileAssenteOUnaCartellaNonSiLeggono) {
  ufficio.user.chooses(ufficio.folder.file(QStringLiteral("assente.dat")));
  attendiAnnullata(ImportaIstruzioni(ufficio.contesto), 0, errore(53));
  ufficio.user.chooses(ufficio.folder.path());
  attendiAnnullata(ImportaIstruzioni(ufficio.contesto), 0, errore(75));
}

TEST_F(Istruzioni, SenzaArchivioAncheUnFileVuotoSbaglia) {
  customers::ChiudiDatabase();
  attendiAnnullata(importa({kRossi}), 0, errore(3420));
  attendiAnnullata(importa(QByteArray()), 0, errore(3420));
}

TEST_F(Istruzioni, UnArchivioDiAltroGenereNonHaLeTabelle) {
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRO (a)")});
  attendiAnnullata(importa({kRossi}), 0, errore(3078));
}

TEST_F(Istruzioni, UnArchivioInSolaLetturaRestaComEra) {
  const QString percorso = varGlobal().NomeDB_Clienti;
  customers::ChiudiDatabase();
  ASSERT_EQ(chmod(ufficio.folder.path().toUtf8().constData(), 0777), 0);
  ASSERT_EQ(chmod(percorso.toUtf8().constData(), 0444), 0);
  ufficio.user.chooses(ufficio.folder.write(QStringLiteral("istruzioni.dat"), kRossi.toLatin1()));
  EsitoIstruzioni esito;
  {
    const OtherUser altro;
    customers::ApriDatabase(percorso, ufficio.contesto);
    esito = ImportaIstruzioni(ufficio.contesto);
  }
  attendiAnnullata(esito, 0, errore(3073));
}

TEST_F(Istruzioni, UnArchivioBloccatoRestaComEra) {
  EsitoIstruzioni esito;
  {
    const OtherProgram altro(varGlobal().NomeDB_Clienti, {QStringLiteral("BEGIN IMMEDIATE")});
    esito = importa({kRossi});
  }
  attendiAnnullata(esito, 0, errore(3260));
  EXPECT_EQ(sulDisco().size(), 1);
}

TEST_F(Istruzioni, UnaConfermaFallitaLeAnnullaTutte) {
  EsitoIstruzioni esito;
  {
    const OtherProgram lettore(
        varGlobal().NomeDB_Clienti,
        {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ANAG_CLIENTI")});
    esito = importa({kRossi});
  }
  attendiAnnullata(esito, 1, errore(3260));
  EXPECT_EQ(sulDisco().size(), 1);
  EXPECT_EQ(ufficio.rows(kTutti).size(), 1);
}

TEST_F(Istruzioni, SuUnDiscoPienoSiAnnullano) {
  QStringList righe;
  for (int codice = 1; codice <= 2000; ++codice)
    righe << QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (%1,'CLIENTE','VIA','CITTA','','',1)")
                 .arg(codice);
  ufficio.user.chooses(
      ufficio.folder.write(QStringLiteral("istruzioni.dat"), righe.join(QStringLiteral("\r\n")).toLatin1()));
  EsitoIstruzioni esito;
  {
    const FullDisk pieno(60000);
    esito = ImportaIstruzioni(ufficio.contesto);
  }
  expectBoxes(ufficio, {errore(61)});
  EXPECT_EQ(esito.tipo, Tipo::Annullate);
  EXPECT_EQ(ufficio.workspace.level(), 0);
  EXPECT_EQ(sulDisco().size(), 1);
}

/// Overwrites a page behind the first with rubbish, as a dying disk does.
void guasta(const QString& percorso) {
  QFile file(percorso);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.seek(4096));
  ASSERT_EQ(file.write(QByteArray(4096, '\x5A')), 4096);
}

TEST_F(Istruzioni, SuUnArchivioGuastoNonSiScrive) {
  const QString percorso = varGlobal().NomeDB_Clienti;
  customers::ChiudiDatabase();
  guasta(percorso);
  const QByteArray prima = ufficio.folder.read(QStringLiteral("clienti.mdb"));
  customers::ApriDatabase(percorso, ufficio.contesto);
  attendiAnnullata(importa({kRossi}), 0, errore(3343));
  customers::ChiudiDatabase();
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("clienti.mdb")), prima);
}

TEST_F(Istruzioni, UnIstruzioneSenzaFineSiInterrompe) {
  ufficio.openWith({QStringLiteral("CREATE TABLE RIGHE (a INTEGER)"),
                    QStringLiteral("CREATE VIEW INFINITE AS WITH RECURSIVE n(x) AS "
                                   "(SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT max(x) AS x FROM n")});
  store::Workspace breve(ufficio.clock, std::chrono::milliseconds(50));
  varGlobal().DB_Clienti = breve.OpenDatabase(ufficio.folder.file(QStringLiteral("altro.mdb")));
  attendiAnnullata(importa({QStringLiteral("INSERT INTO RIGHE SELECT x FROM INFINITE")}), 0, errore(3059));
}

TEST_F(Istruzioni, OgniRigaFaPassareGliEventiSottoLaGuardia) {
  int passi = 0;
  bool sempre = true;
  ufficio.user.onPass = [&] {
    ++passi;
    sempre = sempre && BusyGuard::active();
  };
  const QString riga = QStringLiteral("UPDATE TAB_ANAG_CLIENTI SET Nota ='X' WHERE ID_Cliente =0");
  importa({riga, riga, riga});
  expectBoxes(ufficio, {kEseguita});
  EXPECT_GE(passi, 3);
  EXPECT_TRUE(sempre);
}

TEST_F(Istruzioni, OgniByteDelFileEUnaRigaDaRifiutare) {
  QByteArray tutti;
  for (int byte = 0; byte < 256; ++byte) tutti += static_cast<char>(byte);
  attendiAnnullata(importa(tutti), 0, errore(3075));
}

}  // namespace
