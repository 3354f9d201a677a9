#include "customers/customer_image.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/reactions.h"
#include "customers/customer_database.h"
#include "customers/office.h"
#include "customers/till_files.h"
#include "sostegno/troubles.h"

namespace {

const QString kFile = QStringLiteral("clienti.bin");
const QString kAnomalia = QStringLiteral("RiempiCLI: uscita dal programma per condizione anomala ");

class RiempieCLI : public testing::Test {
 protected:
  /// The procedure as a slot runs it: the end of the program leaves it.
  std::int16_t riempi() {
    std::int16_t esito = -1;
    reazioni::protetta(ufficio.user, QStringLiteral("prova"), QStringLiteral("prova"),
                       [&] { esito = customers::RiempiCLI(ufficio.contesto, barra.progress, clienti); });
    return esito;
  }
  QByteArray scritto() { return ufficio.folder.read(kFile); }
  QByteArray record(int codice) { return scritto().mid(qsizetype{177} * (codice - 1), 177); }
  /// What stands in the folder beside the archive.
  QStringList accanto() {
    QStringList nomi = QDir(ufficio.folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    nomi.removeAll(QStringLiteral("clienti.mdb"));
    return nomi;
  }

  Office ufficio;
  UnseenProgress barra;
  int clienti = 0;
};

}  // namespace

TEST_F(RiempieCLI, IlSoloClienteAnonimoDaDuecentocinquantaRecordVuoti) {
  ufficio.openArchive();
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == QByteArray(44250, '\0'));
  EXPECT_EQ(clienti, 0);
}

TEST_F(RiempieCLI, UnArchivioSenzaRigheProsegueEDaRecordVuoti) {
  ufficio.openArchive();
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == QByteArray(44250, '\0'));
}

TEST_F(RiempieCLI, ICodiciUnoDueECinqueStannoAiLoroPostiEGliAltriSonoVuoti) {
  ufficio.openArchive();
  ufficio.customer(5, QStringLiteral("CINQUE"));
  ufficio.customer(1, QStringLiteral("UNO"));
  ufficio.customer(2, QStringLiteral("DUE"));
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(
      scritto() ==
      customersFile({{.code = 1, .name = "UNO"}, {.code = 2, .name = "DUE"}, {.code = 5, .name = "CINQUE"}}));
  EXPECT_EQ(clienti, 3);
}

TEST_F(RiempieCLI, ByteAByteConTuttiICampi) {
  ufficio.openArchive();
  ufficio.execute(
      QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (250,'CAFFÈ \"AL PORTO\"','VIA ROMA, 1',"
                     "'FORLÌ','01234567890','PAGA € 10',1)"));
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == customersFile({{.code = 250,
                                           .name = "CAFF\xC8 \"AL PORTO\"",
                                           .address = "VIA ROMA, 1",
                                           .town = "FORL\xCC",
                                           .vat = "01234567890",
                                           .note = "PAGA \x80 10"}}));
}

TEST_F(RiempieCLI, UnNomeDiQuarantunoCaratteriRiempieIlCampoSenzaZeroEUnoDiQuarantadueSiTaglia) {
  ufficio.openArchive();
  ufficio.customer(1, QString(41, u'A'));
  ufficio.customer(2, QString(41, u'B') + u'X');
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(record(1) == QByteArray("\1") + QByteArray(41, 'A') + QByteArray(135, '\0'));
  EXPECT_TRUE(record(2) == QByteArray("\1") + QByteArray(41, 'B') + QByteArray(135, '\0'));
}

TEST_F(RiempieCLI, UnaPartitaIVADiSediciCaratteriSiTagliaADodici) {
  ufficio.openArchive();
  ufficio.customer(1, QStringLiteral("A"), QStringLiteral("0123456789ABCDEF"));
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(record(1).mid(124, 53) == QByteArray("0123456789AB") + QByteArray(41, '\0'));
}

TEST_F(RiempieCLI, LoStatoNonViaggiaIlFlagESempreUno) {
  ufficio.openArchive();
  ufficio.customer(1, {}, {}, 2);
  ufficio.customer(2, {}, {}, 0);
  ufficio.customer(3, {}, {}, 255);
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == customersFile({{.code = 1}, {.code = 2}, {.code = 3}}));
}

TEST_F(RiempieCLI, ICodiciOltreDuecentocinquantaNonPartono) {
  ufficio.openArchive();
  ufficio.customer(250, QStringLiteral("ULTIMO"));
  ufficio.customer(251, QStringLiteral("OLTRE"));
  ufficio.customer(65535, QStringLiteral("LONTANO"));
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == customersFile({{.code = 250, .name = "ULTIMO"}}));
  EXPECT_EQ(clienti, 1);
}

TEST_F(RiempieCLI, UnArchivioPienoLiMandaTuttiEDuecentocinquanta) {
  ufficio.openArchive();
  std::vector<CustomerPlace> attesi;
  for (int codice = 1; codice <= 250; ++codice) {
    ufficio.customer(codice, QStringLiteral("CLIENTE %1").arg(codice));
    attesi.push_back({.code = codice, .name = "CLIENTE " + QByteArray::number(codice)});
  }
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == customersFile(attesi));
  EXPECT_EQ(clienti, 250);
}

TEST_F(RiempieCLI, UnCampoSenzaValoreEVuoto) {
  ufficio.openArchive();
  ufficio.execute(QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI (ID_Cliente,Citta) VALUES (1,'LODI')"));
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == customersFile({{.code = 1, .town = "LODI"}}));
}

TEST_F(RiempieCLI, UnCodiceNegativoFermaLaTabellaDavantiASe) {
  ufficio.openArchive();
  ufficio.customer(-3, QStringLiteral("NESSUNO"));
  ufficio.customer(1, QStringLiteral("UNO"));
  EXPECT_EQ(riempi(), 0);
  EXPECT_TRUE(scritto() == QByteArray(44250, '\0'));
}

TEST_F(RiempieCLI, LaBarraHaIlNumeroDelPostoEdEUnPassaggioPerRecord) {
  ufficio.openArchive();
  barra.bar.setRange(0, 250);
  std::vector<int> valori;
  ufficio.user.onPass = [&] { valori.push_back(barra.bar.value()); };
  EXPECT_EQ(riempi(), 0);
  ufficio.user.onPass = nullptr;
  ASSERT_EQ(valori.size(), 250U);
  for (int i = 0; i < 250; ++i) EXPECT_EQ(valori[static_cast<std::size_t>(i)], i);
}

TEST_F(RiempieCLI, IlFileDiPrimaSparisceEIlNuovoPrendeIlNomeQuandoEIntero) {
  ufficio.openArchive();
  ufficio.folder.write(kFile, QByteArray(50000, 'v'));
  bool sempreAssente = true;
  ufficio.user.onPass = [&] { sempreAssente = sempreAssente && !QFileInfo::exists(kFile); };
  EXPECT_EQ(riempi(), 0);
  ufficio.user.onPass = nullptr;
  EXPECT_TRUE(sempreAssente);
  EXPECT_EQ(scritto().size(), 44250);
  EXPECT_EQ(accanto(), QStringList{kFile});
}

TEST_F(RiempieCLI, UnCollegamentoAlPostoDelFileNonSiSegue) {
  ufficio.openArchive();
  const QString altrove = ufficio.folder.write(QStringLiteral("altrove"), "mio");
  ASSERT_TRUE(QFile::link(altrove, ufficio.folder.file(kFile)));
  EXPECT_EQ(riempi(), 0);
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("altrove")), QByteArray("mio"));
  EXPECT_FALSE(QFileInfo(ufficio.folder.file(kFile)).isSymLink());
  EXPECT_EQ(scritto().size(), 44250);
}

TEST_F(RiempieCLI, UnCollegamentoSenzaMetaSiTogliePure) {
  ufficio.openArchive();
  ASSERT_TRUE(QFile::link(ufficio.folder.file(QStringLiteral("nessuno")), ufficio.folder.file(kFile)));
  EXPECT_EQ(riempi(), 0);
  EXPECT_FALSE(QFileInfo::exists(ufficio.folder.file(QStringLiteral("nessuno"))));
  EXPECT_EQ(scritto().size(), 44250);
}

TEST_F(RiempieCLI, GliAvanziDiUnProgrammaUccisoSiTolgono) {
  ufficio.openArchive();
  ufficio.folder.write(QStringLiteral(".clienti.bin.gestionale-%1-abcdef").arg(endedProcess()), "avanzo");
  EXPECT_EQ(riempi(), 0);
  EXPECT_EQ(accanto(), QStringList{kFile});
}

// Failures, by their table.

TEST_F(RiempieCLI, SeIlFileNonSiPuoScrivereTaceETornaUno) {
  ufficio.openArchive();
  ASSERT_TRUE(QDir().mkdir(ufficio.folder.file(kFile)));
  EXPECT_EQ(riempi(), 1);
  EXPECT_FALSE(ufficio.user.terminated());
  EXPECT_TRUE(QFileInfo(ufficio.folder.file(kFile)).isDir());
}

TEST_F(RiempieCLI, SulDiscoPienoLoDiceETerminaIlProgrammaSenzaLasciareFile) {
  ufficio.openArchive();
  ufficio.folder.write(kFile, QByteArray(100, 'v'));
  {
    const FullDisk pieno(20000);
    EXPECT_EQ(riempi(), -1);
  }
  expectBoxes(ufficio, {criticalBox(kAnomalia + QStringLiteral("61 - Disco pieno: clienti.bin"))});
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_EQ(accanto(), QStringList{});
}

TEST_F(RiempieCLI, SenzaTabellaErroreGraveETerminaIlProgramma) {
  ufficio.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_EQ(riempi(), -1);
  expectBoxes(ufficio, {criticalBox(QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON "
                                                   "CORRETTO. PROCEDURA ABORTITA !!!"))});
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

TEST_F(RiempieCLI, SenzaUnaColonnaLoDiceETerminaIlProgramma) {
  ufficio.openWith({QStringLiteral("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente INTEGER)")});
  EXPECT_EQ(riempi(), -1);
  expectBoxes(ufficio, {criticalBox(kAnomalia + QStringLiteral("3061 - *"))});
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_FALSE(QFileInfo::exists(kFile));
}

TEST_F(RiempieCLI, UnArchivioBloccatoSiDiceETerminaIlProgramma) {
  ufficio.openArchive();
  {
    const OtherProgram altro(varGlobal().NomeDB_Clienti, {QStringLiteral("BEGIN EXCLUSIVE")});
    EXPECT_EQ(riempi(), -1);
  }
  expectBoxes(ufficio, {criticalBox(kAnomalia + QStringLiteral("3260 - *"))});
  EXPECT_TRUE(ufficio.user.terminated());
}

TEST_F(RiempieCLI, UnArchivioChiusoSiDiceETerminaIlProgramma) {
  EXPECT_EQ(riempi(), -1);
  expectBoxes(ufficio, {criticalBox(kAnomalia + QStringLiteral("3420 - *"))});
  EXPECT_TRUE(ufficio.user.terminated());
}

TEST_F(RiempieCLI, UnCodiceCheNonENumeroSiDiceETerminaIlProgrammaSenzaLasciareFile) {
  ufficio.openWith({QStringLiteral("CREATE TABLE TAB_ANAG_CLIENTI (ID_Cliente TEXT, Ragione_Sociale TEXT, "
                                   "Indirizzo TEXT, Citta TEXT, Partita_IVA TEXT, Nota TEXT, Stato INTEGER)"),
                    QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES ('uno','','','','','',1)")});
  EXPECT_EQ(riempi(), -1);
  EXPECT_EQ(ufficio.takeBoxes().size(), 1U);
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_FALSE(QFileInfo::exists(kFile));
}

// What is told at the load.

class DettagliPC : public testing::Test {
 protected:
  Office ufficio;
};

TEST_F(DettagliPC, UnArchivioConIlSoloAnonimoSiDiceVuoto) {
  ufficio.openArchive();
  EXPECT_EQ(customers::RicavaDettagliPC(ufficio.user), 0);
  expectBoxes(ufficio, {box(QStringLiteral("Attenzione l'archivio degli clienti e' vuoto"), Icon::Warning)});
}

TEST_F(DettagliPC, UnErroreDelloStoreSiDice) {
  ufficio.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_EQ(customers::RicavaDettagliPC(ufficio.user), -1);
  expectBoxes(ufficio,
              {box(QStringLiteral("Errore nella determinazione del numero degli clienti"), Icon::Warning)});
}

TEST_F(DettagliPC, IlCodicePiuAltoTornaInSilenzio) {
  ufficio.openArchive();
  ufficio.customer(7, QStringLiteral("SETTE"));
  ufficio.customer(3, QStringLiteral("TRE"));
  EXPECT_EQ(customers::RicavaDettagliPC(ufficio.user), 7);
}

// What is told at the foot.

TEST(RaccontoDellInvio, DiceClientiEByte) {
  using customers::EsitoInvio;
  EXPECT_EQ(customers::RaccontoInvio({EsitoInvio::Inviato, 12}, 12),
            QStringLiteral("Trasferiti 12 clienti, 44.250 byte"));
  EXPECT_EQ(customers::RaccontoInvio({EsitoInvio::Inviato, 1}, 1),
            QStringLiteral("Trasferito 1 cliente, 44.250 byte"));
  EXPECT_EQ(customers::RaccontoInvio({EsitoInvio::NonRiempito, 0}, 1),
            QStringLiteral("Nulla è stato inviato: il file clienti.bin non si può scrivere."));
  EXPECT_EQ(customers::RaccontoInvio({EsitoInvio::Fallito, 3}, 3), QString());
}

TEST(RaccontoDellInvio, DiceDiChiNonHaPostoSullaCassa) {
  EXPECT_EQ(customers::AvvisoClientiEsclusi(250), QString());
  EXPECT_EQ(customers::AvvisoClientiEsclusi(-1), QString());
  EXPECT_EQ(
      customers::RaccontoInvio({customers::EsitoInvio::Inviato, 250}, 251),
      QStringLiteral("Trasferiti 250 clienti, 44.250 byte. I clienti con un codice oltre 250 restano sul "
                     "PC: la cassa non ha posto per loro."));
}
