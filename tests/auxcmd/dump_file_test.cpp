#include "auxcmd/dump_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <algorithm>

#include "platform/error.h"
#include "sostegno/process_memory.h"
#include "sostegno/program_fixture.h"
#include "sostegno/troubles.h"

namespace {

using auxcmd::FileDump;
using auxcmd::Memoria;

const QDateTime kQuando(QDate(2009, 12, 3), QTime(9, 15, 5));
const QString kPreso = QStringLiteral("TempDump_Memory.dat");
const QString kTemp = QStringLiteral("Temp.dat");
constexpr std::int32_t kMaiAperto = 4711;

/// Number of the Errore that a step throws, 0 for none.
template <typename Passo>
int erroreDi(Passo&& passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    EXPECT_FALSE(errore.descrizione.isEmpty());
    return errore.numero;
  }
  return 0;
}

class FileDeiDump : public testing::Test {
 protected:
  FileDeiDump() {
    programma.contesto.cartella = programma.folder.path();
    programma.clock.set(kQuando);
  }
  ~FileDeiDump() override {
    for (const std::int32_t numero : aperti) auxcmd::chiudiFileDump(numero);
  }

  std::int32_t apri(const QString& nome) {
    const std::int32_t numero = auxcmd::apriFileDump(programma.folder.file(nome));
    aperti.push_back(numero);
    return numero;
  }
  void inizia(Memoria memoria, const QDateTime& quando = kQuando) {
    auxcmd::iniziaFileDump(memoria, quando, programma.folder.path(), file);
    aperti.push_back(funzioniCmdXonXoff().NumFileDump);
  }
  QByteArray contenuto(const QString& nome) const { return programma.folder.read(nome); }
  bool esiste(const QString& nome) const { return QFile::exists(programma.folder.file(nome)); }
  /// What stands in the folder, hidden files too.
  QStringList cartella() const {
    return QDir(programma.folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
  }
  std::optional<Memoria> tipo(const QByteArray& dump) {
    return auxcmd::TipoDumpMemoria(programma.folder.write(kPreso, dump), programma.contesto);
  }

  ProgramFixture programma;
  FileDump file;
  std::vector<std::int32_t> aperti;
};

}  // namespace

TEST_F(FileDeiDump, IlNomePortaGiornoEOraConDueCifre) {
  EXPECT_EQ(auxcmd::nomeFileDump(Memoria::DGFE, kQuando), QStringLiteral("DGFE_03122009_091505.txt"));
  EXPECT_EQ(auxcmd::nomeFileDump(Memoria::MF, QDateTime(QDate(2024, 1, 31), QTime(23, 0, 9))),
            QStringLiteral("MF_31012024_230009.txt"));
}

TEST_F(FileDeiDump, LaTestaSonoTreRighe) {
  EXPECT_EQ(auxcmd::testaDump(Memoria::DGFE, kQuando),
            QByteArray("***\r\n*** LETTURA DGFE del 03/12/2009 09:15:05 ***\r\n***\r\n"));
  EXPECT_EQ(auxcmd::testaDump(Memoria::MF, kQuando),
            QByteArray("***\r\n*** LETTURA MF del 03/12/2009 09:15:05 ***\r\n***\r\n"));
}

TEST_F(FileDeiDump, NomeETestaNonDipendonoDalPaese) {
  for (const char* paese : {"it_IT", "en_US", "ar_EG"}) {
    const WithLocale questo(paese);
    EXPECT_EQ(auxcmd::nomeFileDump(Memoria::DGFE, kQuando), QStringLiteral("DGFE_03122009_091505.txt"));
    EXPECT_TRUE(auxcmd::testaDump(Memoria::MF, kQuando).contains(" 03/12/2009 09:15:05 ")) << paese;
  }
}

TEST_F(FileDeiDump, IlSecondoFileLasciaApertoIlPrimo) {
  const std::int32_t primo = apri(QStringLiteral("uno.txt"));
  const std::int32_t secondo = apri(QStringLiteral("due.txt"));
  EXPECT_GT(primo, 0);
  EXPECT_GT(secondo, 0);
  EXPECT_NE(primo, secondo);
  auxcmd::scriviFileDump(primo, "a");
  auxcmd::scriviFileDump(secondo, "bb");
  auxcmd::scriviFileDump(primo, "c");
  EXPECT_EQ(contenuto(QStringLiteral("uno.txt")), QByteArray("ac"));
  EXPECT_EQ(contenuto(QStringLiteral("due.txt")), QByteArray("bb"));
}

TEST_F(FileDeiDump, IlNumeroLiberatoSiRiusa) {
  const std::int32_t primo = apri(QStringLiteral("uno.txt"));
  const std::int32_t secondo = apri(QStringLiteral("due.txt"));
  auxcmd::chiudiFileDump(primo);
  EXPECT_EQ(apri(QStringLiteral("tre.txt")), primo);
  auxcmd::scriviFileDump(secondo, "2");
  auxcmd::scriviFileDump(primo, "3");
  EXPECT_EQ(contenuto(QStringLiteral("uno.txt")), QByteArray());
  EXPECT_EQ(contenuto(QStringLiteral("due.txt")), QByteArray("2"));
  EXPECT_EQ(contenuto(QStringLiteral("tre.txt")), QByteArray("3"));
}

TEST_F(FileDeiDump, UnFileChiusoNonPrendePiuNiente) {
  const std::int32_t numero = apri(QStringLiteral("uno.txt"));
  auxcmd::scriviFileDump(numero, "dentro");
  auxcmd::chiudiFileDump(numero);
  EXPECT_EQ(erroreDi([&] { auxcmd::scriviFileDump(numero, "fuori"); }), 5);
  EXPECT_EQ(contenuto(QStringLiteral("uno.txt")), QByteArray("dentro"));
}

TEST_F(FileDeiDump, ChiudereUnNumeroMaiApertoNonFaNiente) {
  const std::int32_t numero = apri(QStringLiteral("uno.txt"));
  EXPECT_EQ(erroreDi([] { auxcmd::chiudiFileDump(kMaiAperto); }), 0);
  EXPECT_EQ(erroreDi([] { auxcmd::chiudiFileDump(0); }), 0);
  auxcmd::scriviFileDump(numero, "ancora");
  EXPECT_EQ(contenuto(QStringLiteral("uno.txt")), QByteArray("ancora"));
}

TEST_F(FileDeiDump, OgniCarattereENelFileAppenaScritto) {
  const std::int32_t numero = apri(QStringLiteral("uno.txt"));
  QByteArray attesi;
  for (const char carattere : QByteArray("@\0\r\n\xE0", 5)) {
    auxcmd::scriviFileDump(numero, QByteArray(1, carattere));
    attesi += carattere;
    EXPECT_EQ(contenuto(QStringLiteral("uno.txt")), attesi);
  }
}

TEST_F(FileDeiDump, UnFileCheCEGiaNonSiRiscrive) {
  programma.folder.write(QStringLiteral("uno.txt"), "un dump");
  EXPECT_EQ(erroreDi([&] { apri(QStringLiteral("uno.txt")); }), 75);
  EXPECT_EQ(contenuto(QStringLiteral("uno.txt")), QByteArray("un dump"));
}

TEST_F(FileDeiDump, SenzaCartellaDiceCheIlPercorsoManca) {
  EXPECT_EQ(erroreDi([&] { apri(QStringLiteral("manca/uno.txt")); }), 76);
}

TEST_F(FileDeiDump, IlDiscoPienoSiDiceAlPrimoByteCheNonEntra) {
  const std::int32_t numero = apri(QStringLiteral("uno.txt"));
  {
    const FullDisk pieno(2500);
    auxcmd::scriviFileDump(numero, QByteArray(1024, 'a'));
    auxcmd::scriviFileDump(numero, QByteArray(1024, 'b'));
    EXPECT_EQ(erroreDi([&] { auxcmd::scriviFileDump(numero, QByteArray(1024, 'c')); }), 61);
    EXPECT_EQ(erroreDi([&] { auxcmd::scriviFileDump(numero, "d"); }), 61);
  }
  // What went in is all there, and once there is room the file goes on behind it.
  auxcmd::scriviFileDump(numero, "e");
  EXPECT_EQ(contenuto(QStringLiteral("uno.txt")),
            QByteArray(1024, 'a') + QByteArray(1024, 'b') + QByteArray(452, 'c') + 'e');
}

TEST_F(FileDeiDump, UnDumpIniziaConLaTestaNelFileDellaSuaMemoria) {
  inizia(Memoria::DGFE);
  EXPECT_GT(funzioniCmdXonXoff().NumFileDump, 0);
  EXPECT_EQ(file.dgfe, programma.folder.file(QStringLiteral("DGFE_03122009_091505.txt")));
  EXPECT_EQ(file.mf, QString());
  EXPECT_EQ(contenuto(QStringLiteral("DGFE_03122009_091505.txt")),
            QByteArray("***\r\n*** LETTURA DGFE del 03/12/2009 09:15:05 ***\r\n***\r\n"));
  auxcmd::scriviFileDump(funzioniCmdXonXoff().NumFileDump, "corpo");
  EXPECT_TRUE(contenuto(QStringLiteral("DGFE_03122009_091505.txt")).endsWith("***\r\ncorpo"));
}

TEST_F(FileDeiDump, IlSecondoDumpHaUnAltroNomeEUnAltroNumero) {
  inizia(Memoria::DGFE);
  const std::int32_t primo = funzioniCmdXonXoff().NumFileDump;
  inizia(Memoria::MF, kQuando.addSecs(60));
  EXPECT_NE(funzioniCmdXonXoff().NumFileDump, primo);
  EXPECT_EQ(file.mf, programma.folder.file(QStringLiteral("MF_03122009_091605.txt")));
  EXPECT_EQ(file.dgfe, programma.folder.file(QStringLiteral("DGFE_03122009_091505.txt")));
  auxcmd::scriviFileDump(primo, "tardi");
  EXPECT_TRUE(contenuto(QStringLiteral("DGFE_03122009_091505.txt")).endsWith("***\r\ntardi"));
  EXPECT_EQ(contenuto(QStringLiteral("MF_03122009_091605.txt")),
            QByteArray("***\r\n*** LETTURA MF del 03/12/2009 09:16:05 ***\r\n***\r\n"));
}

TEST_F(FileDeiDump, UnDumpCheNonSiApreLasciaIlNumeroDiPrima) {
  inizia(Memoria::DGFE);
  const std::int32_t primo = funzioniCmdXonXoff().NumFileDump;
  EXPECT_EQ(erroreDi([&] { inizia(Memoria::DGFE); }), 75);
  EXPECT_EQ(funzioniCmdXonXoff().NumFileDump, primo);
}

TEST_F(FileDeiDump, ColDiscoPienoAllaTestaIlFileRestaApertoPerEsserChiuso) {
  const FullDisk pieno(10);
  EXPECT_EQ(erroreDi([&] { inizia(Memoria::MF); }), 61);
  const std::int32_t numero = funzioniCmdXonXoff().NumFileDump;
  EXPECT_GT(numero, 0);
  auxcmd::chiudiFileDump(numero);
  EXPECT_EQ(contenuto(QStringLiteral("MF_03122009_091505.txt")), QByteArray("***\r\n*** L"));
}

TEST_F(FileDeiDump, GliScontriniSiAccodanoNelFileDellaMemoriaDetta) {
  inizia(Memoria::DGFE);
  inizia(Memoria::MF);
  std::int16_t risultato = 9;
  auxcmd::ScriviDumpScontrini(QStringLiteral("È di € 5"), risultato, Memoria::MF, file, programma.user);
  EXPECT_EQ(risultato, 0);
  EXPECT_TRUE(contenuto(QStringLiteral("MF_03122009_091505.txt")).endsWith("***\r\n\xC8 di \x80 5"));
  EXPECT_TRUE(contenuto(QStringLiteral("DGFE_03122009_091505.txt")).endsWith("***\r\n"));
  auxcmd::ScriviDumpScontrini(QStringLiteral("giornale"), risultato, Memoria::DGFE, file, programma.user);
  EXPECT_TRUE(contenuto(QStringLiteral("DGFE_03122009_091505.txt")).endsWith("***\r\ngiornale"));
}

TEST_F(FileDeiDump, QuelCheSiAccodaNonCopreIlDumpInCorsoNeNeEScoperto) {
  inizia(Memoria::DGFE);
  std::int16_t risultato = 9;
  auxcmd::ScriviDumpScontrini(QStringLiteral("[accodato]"), risultato, Memoria::DGFE, file, programma.user);
  auxcmd::scriviFileDump(funzioniCmdXonXoff().NumFileDump, "flusso");
  EXPECT_TRUE(contenuto(QStringLiteral("DGFE_03122009_091505.txt")).endsWith("***\r\n[accodato]flusso"));
}

TEST_F(FileDeiDump, SenzaFileDiDumpGliScontriniNonSiPerdonoInSilenzio) {
  std::int16_t risultato = 9;
  auxcmd::ScriviDumpScontrini(QStringLiteral("perso"), risultato, Memoria::DGFE, file, programma.user);
  EXPECT_EQ(risultato, 1);
  expectBoxes(programma,
              {plainBox(QStringLiteral("Error 75 (Errore di accesso al percorso o al file) in procedure "
                                       "ScriviDumpScontrini of Modulo FunzioniCmdXonXoff"))});
}

TEST_F(FileDeiDump, ColDiscoPienoGliScontriniDannoUno) {
  inizia(Memoria::MF);
  std::int16_t risultato = 9;
  {
    const FullDisk pieno(60);
    auxcmd::ScriviDumpScontrini(QString(100, u'x'), risultato, Memoria::MF, file, programma.user);
  }
  EXPECT_EQ(risultato, 1);
  expectBoxes(programma, {plainBox(QStringLiteral("Error 61 (Disco pieno: *"))});
}

TEST_F(FileDeiDump, IlComandoDiceDiQualeMemoriaSiTratta) {
  EXPECT_EQ(tipo("X\"00010199120110F\r\ncorpo"), Memoria::DGFE);
  EXPECT_EQ(tipo("X\"000101991201\"10F\r\ncorpo"), Memoria::DGFE);
  EXPECT_EQ(tipo("X\"0903150000165536\"11F\r\ncorpo"), Memoria::DGFE);
  EXPECT_EQ(tipo("X\"000101991201\"12F\r\ncorpo"), Memoria::MF);
  EXPECT_EQ(tipo("X\"0000165536\"13F\r\ncorpo"), Memoria::MF);
  EXPECT_EQ(tipo("X89F\r\ncorpo"), std::nullopt);
  EXPECT_EQ(tipo("14F 10f 1 0F"), std::nullopt);
  EXPECT_EQ(tipo(""), std::nullopt);
}

TEST_F(FileDeiDump, ConTuttiEDueIComandiInUnaRigaValeIlGiornale) {
  EXPECT_EQ(tipo("12F10F resto\r\n"), Memoria::DGFE);
  EXPECT_EQ(contenuto(kTemp), QByteArray(" resto\r\n"));
}

TEST_F(FileDeiDump, ValeLaPrimaRigaCheHaUnComando) {
  EXPECT_EQ(tipo("niente\r\n13F uno\r\n10F due\r\n"), Memoria::MF);
  EXPECT_EQ(contenuto(kTemp), QByteArray(" uno\r\n10F due\r\n"));
}

TEST_F(FileDeiDump, DopoIlPrimoComandoDellaRigaTuttoVaNelFileDiLavoro) {
  EXPECT_EQ(tipo("prima\r\nX\"1\"11F coda 10F\r\nseconda\rterza\nquarta"), Memoria::DGFE);
  EXPECT_EQ(contenuto(kTemp), QByteArray(" coda 10F\r\nseconda\rterza\nquarta"));
}

TEST_F(FileDeiDump, IlFileDiLavoroDiPrimaVaViaComunque) {
  programma.folder.write(kTemp, "vecchio");
  EXPECT_EQ(tipo("senza comandi"), std::nullopt);
  EXPECT_FALSE(esiste(kTemp));
  programma.folder.write(kTemp, "vecchio e piu lungo");
  EXPECT_EQ(tipo("10Fx"), Memoria::DGFE);
  EXPECT_EQ(contenuto(kTemp), QByteArray("x"));
}

TEST_F(FileDeiDump, UnComandoInFondoLasciaIlFileDiLavoroVuoto) {
  EXPECT_EQ(tipo("X\"1\"12F"), Memoria::MF);
  EXPECT_TRUE(esiste(kTemp));
  EXPECT_EQ(contenuto(kTemp), QByteArray());
}

TEST_F(FileDeiDump, GliZeroNonFermanoLaLettura) {
  EXPECT_EQ(tipo(QByteArray("\0\0\r\n\0X\"1\"13F\0dopo\0", 18)), Memoria::MF);
  EXPECT_EQ(contenuto(kTemp), QByteArray("\0dopo\0", 6));
}

TEST_F(FileDeiDump, DumpMancanteONonLeggibile) {
  const auto classifica = [&](const QString& nome) {
    return erroreDi([&] { auxcmd::TipoDumpMemoria(programma.folder.file(nome), programma.contesto); });
  };
  programma.folder.write(kTemp, "vecchio");
  EXPECT_EQ(classifica(kPreso), 53);
  EXPECT_FALSE(esiste(kTemp));
  ASSERT_TRUE(QDir(programma.folder.path()).mkdir(kPreso));
  EXPECT_EQ(classifica(kPreso), 75);
}

TEST_F(FileDeiDump, UnFileDiLavoroCheNonSiToglieSiDice) {
  ASSERT_TRUE(QDir(programma.folder.path()).mkdir(kTemp));
  EXPECT_EQ(erroreDi([&] { tipo("10F"); }), 75);
}

TEST_F(FileDeiDump, ColDiscoPienoNonRestaUnMezzoFileDiLavoro) {
  programma.folder.write(kPreso, "10F" + QByteArray(5000, 'x'));
  const FullDisk pieno(1000);
  EXPECT_EQ(erroreDi([&] { auxcmd::TipoDumpMemoria(programma.folder.file(kPreso), programma.contesto); }),
            61);
  EXPECT_EQ(cartella(), QStringList{kPreso});
}

TEST_F(FileDeiDump, IlDumpSiArchiviaColNomeDellaSuaMemoria) {
  const QByteArray giornale("X\"000101991201\"10F\r\nscontrini\0@@", 32);
  programma.folder.write(kPreso, giornale);
  EXPECT_EQ(auxcmd::ArchiviaDumpMemoria(programma.contesto),
            programma.folder.file(QStringLiteral("DGFE_03122009_091505.txt")));
  EXPECT_EQ(contenuto(QStringLiteral("DGFE_03122009_091505.txt")), giornale);
  programma.folder.write(kPreso, "X\"0000165536\"13F\r\nazzeramenti");
  EXPECT_EQ(auxcmd::ArchiviaDumpMemoria(programma.contesto),
            programma.folder.file(QStringLiteral("MF_03122009_091505.txt")));
  EXPECT_EQ(contenuto(QStringLiteral("MF_03122009_091505.txt")),
            QByteArray("X\"0000165536\"13F\r\nazzeramenti"));
  EXPECT_EQ(contenuto(kTemp), QByteArray("\r\nazzeramenti"));
}

TEST_F(FileDeiDump, UnDumpDiNessunaMemoriaNonSiArchivia) {
  programma.folder.write(kPreso, "X89F");
  EXPECT_EQ(auxcmd::ArchiviaDumpMemoria(programma.contesto), QString());
  EXPECT_EQ(cartella(), QStringList{kPreso});
  QFile::remove(programma.folder.file(kPreso));
  EXPECT_EQ(erroreDi([&] { auxcmd::ArchiviaDumpMemoria(programma.contesto); }), 53);
}

TEST_F(FileDeiDump, UnDumpArchiviatoNonSiCopre) {
  programma.folder.write(kPreso, "10F nuovo");
  programma.folder.write(QStringLiteral("DGFE_03122009_091505.txt"), "di prima");
  EXPECT_EQ(erroreDi([&] { auxcmd::ArchiviaDumpMemoria(programma.contesto); }), 75);
  EXPECT_EQ(contenuto(QStringLiteral("DGFE_03122009_091505.txt")), QByteArray("di prima"));
}

TEST_F(FileDeiDump, UnaCopiaERiuscitaPerInteroONonCE) {
  const QString preso = programma.folder.write(kPreso, QByteArray(5000, 'x'));
  const QString altra = programma.folder.write(QStringLiteral("altra.dat"), "di prima");
  {
    const FullDisk pieno(1000);
    EXPECT_EQ(erroreDi([&] { auxcmd::CopiaDump(preso, altra); }), 61);
    EXPECT_EQ(contenuto(QStringLiteral("altra.dat")), QByteArray("di prima"));
  }
  auxcmd::CopiaDump(preso, altra);
  EXPECT_EQ(contenuto(QStringLiteral("altra.dat")), QByteArray(5000, 'x'));
  auxcmd::CopiaDump(preso, preso);
  EXPECT_EQ(contenuto(kPreso), QByteArray(5000, 'x'));
}

namespace {

constexpr qint64 kKiBDiUnMega = 1024;
constexpr qint64 kMega = kKiBDiUnMega * 1024;

/// A hundred megabytes in a file that takes no room on the disk, zeros aside from its beginning and its end.
QString dumpEnorme(const TemporaryFolder& cartella, const QByteArray& inizio, const QByteArray& fine) {
  QString percorso = cartella.write(kPreso, inizio);
  QFile file(percorso);
  EXPECT_TRUE(file.open(QIODevice::ReadWrite));
  EXPECT_TRUE(file.seek(100 * kMega - fine.size()));
  EXPECT_EQ(file.write(fine), fine.size());
  return percorso;
}

}  // namespace

TEST_F(FileDeiDump, CentoMegabyteSenzaFineRigaPassanoInPocaMemoria) {
  const QString enorme = dumpEnorme(programma.folder, "X\"000101991201\"10F", "@@");
  forgetPeak();
  const qint64 prima = memoryInKiB(QStringLiteral("VmRSS"));
  EXPECT_EQ(auxcmd::TipoDumpMemoria(enorme, programma.contesto), Memoria::DGFE);
  expectPeakWithin(prima, 16 * kKiBDiUnMega);
  QFile temp(programma.folder.file(kTemp));
  ASSERT_TRUE(temp.open(QIODevice::ReadOnly));
  EXPECT_EQ(temp.size(), 100 * kMega - 18);
  ASSERT_TRUE(temp.seek(temp.size() - 3));
  EXPECT_EQ(temp.readAll(), QByteArray("\0@@", 3));
}

TEST_F(FileDeiDump, IlComandoDietroCentoMegabyteSiTrova) {
  const QString enorme = dumpEnorme(programma.folder, "", "\n12F fine");
  forgetPeak();
  const qint64 prima = memoryInKiB(QStringLiteral("VmRSS"));
  EXPECT_EQ(auxcmd::TipoDumpMemoria(enorme, programma.contesto), Memoria::MF);
  expectPeakWithin(prima, 16 * kKiBDiUnMega);
  EXPECT_EQ(contenuto(kTemp), QByteArray(" fine"));
}
