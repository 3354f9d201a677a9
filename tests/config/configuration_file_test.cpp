#include "config/configuration_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFileInfo>
#include <atomic>
#include <chrono>
#include <thread>

#include "platform/text/whole_file.h"
#include "sostegno/program_fixture.h"
#include "sostegno/troubles.h"

using namespace config;
using testing::ElementsAre;

namespace {

constexpr qsizetype kByte = 245114;
constexpr int kResto = 251;  // prime, so that no record's length hides a shift
const QString kNome = QStringLiteral("bar.dat");
const QString kPrima = QStringLiteral("bar.dat.precedente");

/// A file of this format in which every byte behind the version tells its place.
QByteArray fileIntero(int seme = 0, qsizetype byte = kByte) {
  QByteArray file(byte, '\0');
  for (qsizetype i = 0; i < byte; ++i) file[i] = static_cast<char>(1 + (i * 7 + seme) % (kResto - 1));
  return "V03.00" + file.mid(6);
}

QByteArray comeByte(RecordLetto record) {
  return {reinterpret_cast<const char*>(record.data()), static_cast<qsizetype>(record.size())};
}

QByteArray inMemoria() {
  return comeByte(testataFile()) + comeByte(bloccoNegozio()) + comeByte(immagineProgrammazione().byte());
}

void riempiMemoria(std::uint8_t byte) {
  testataFile().fill(byte);
  bloccoNegozio().fill(byte);
  std::ranges::fill(immagineProgrammazione().byte(), byte);
}

class FileDiConfigurazione : public testing::Test {
 protected:
  FileDiConfigurazione() { azzeraConfigurazione(); }
  ~FileDiConfigurazione() override { azzeraConfigurazione(); }

  QString percorso(const QString& nome = kNome) const { return cartella.file(nome); }
  /// Lays a file down and loads it.
  QString caricato(const QByteArray& byte) {
    QString file = cartella.write(kNome, byte);
    EXPECT_EQ(CaricaConfigurazione(file, utente), 0);
    return file;
  }
  /// Everything in the folder, hidden files too.
  QStringList nomi() const {
    return QDir(cartella.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }
  static Box guasto(int numero, const QString& descrizione, const QString& coda) {
    return plainBox(QStringLiteral("Error %1 (%2) in procedure %3").arg(numero).arg(descrizione, coda));
  }
  /// Loads what cannot be loaded.
  void nonSiCarica(const QString& file, int numero, const QString& descrizione) {
    riempiMemoria(0xA5);
    EXPECT_NE(CaricaConfigurazione(file, utente), 0);
    EXPECT_THAT(utente.takeBoxes(),
                ElementsAre(guasto(numero, descrizione + file,
                                   QStringLiteral("CaricaConfigurazione of Modulo Common_PRG"))));
    EXPECT_EQ(inMemoria(), QByteArray(kByte, '\xA5'));
  }
  /// Saves where it cannot be saved; `colpito` is the file that the message names.
  void nonSiSalva(const QString& file, int numero, const QString& descrizione, const QString& colpito) {
    const Salvataggio fatto = SalvaConfigurazioneRaccontando(file, utente);
    EXPECT_NE(fatto.esito, 0);
    EXPECT_EQ(fatto.racconto, QString());
    EXPECT_THAT(utente.takeBoxes(),
                ElementsAre(guasto(numero, descrizione + colpito,
                                   QStringLiteral("SalvaConfigurazione of Modulo CommonForKora"))));
  }
  void nonSiSalva(const QString& file, int numero, const QString& descrizione) {
    nonSiSalva(file, numero, descrizione, file);
  }
  /// The number that a look at the version fails with; head and panel stay.
  static int numeroDellaVersione(const QString& file) {
    riempiMemoria(0xA5);
    QString pannello = QStringLiteral("prima");
    try {
      VerificaVersioneFile(file, pannello);
    } catch (const Errore& errore) {
      EXPECT_EQ(inMemoria(), QByteArray(kByte, '\xA5'));
      EXPECT_EQ(pannello, QStringLiteral("prima"));
      return errore.numero;
    }
    return 0;
  }

  TemporaryFolder cartella;
  ScriptedUser utente;
};

const QString kAccesso = QStringLiteral("Errore di accesso al percorso o al file: ");
const QString kNonTrovato = QStringLiteral("File non trovato: ");
const QString kPieno = QStringLiteral("Disco pieno: ");

struct PostoNelFile {
  const Famiglia* famiglia;
  qsizetype inizio;
  qsizetype fine;
};

}  // namespace

TEST_F(FileDiConfigurazione, OgniFamigliaStaAlSuoPostoNelFile) {
  const QByteArray file = fileIntero();
  caricato(file);
  EXPECT_EQ(comeByte(testataFile()), file.first(9));
  EXPECT_EQ(comeByte(bloccoNegozio()), file.sliced(9, 137));
  for (const PostoNelFile& posto :
       {PostoNelFile{&kIntestazione, 146, 450}, PostoNelFile{&kCortesia, 450, 528},
        PostoNelFile{&kReparto, 528, 3888}, PostoNelFile{&kPLU, 3888, 243888},
        PostoNelFile{&kIVA, 243888, 244120}, PostoNelFile{&kValuta, 244120, 244236},
        PostoNelFile{&kOperatore, 244236, 244566}, PostoNelFile{&kParametri, 244566, 244994},
        PostoNelFile{&kLogo, 244994, 245114}})
    EXPECT_EQ(comeByte(immagineProgrammazione().blocco(*posto.famiglia)),
              file.sliced(posto.inizio, posto.fine - posto.inizio))
        << posto.famiglia->nome;
}

TEST_F(FileDiConfigurazione, CioCheSiScriveNeiRecordVaAllOffsetDelFile) {
  caricato("V03.00" + QByteArray(kByte - 6, '\0'));
  ImmagineProgrammazione& immagine = immagineProgrammazione();
  scriviTesto(bloccoNegozio(), negozio::kCAP, QStringLiteral("20121"));
  scriviTesto(immagine.record(kReparto, 79), reparto::kDescrizione, QStringLiteral("VARIE"));
  scriviTesto(immagine.record(kPLU, 4999), plu::kDescrizione, QStringLiteral("ULTIMO"));
  scriviIntero(immagine.record(kIVA, 0), iva::kAliquota, 2200);
  scriviByte(immagine.record(kParametri, 0), parametri::kLineeCorpo, 40);
  scriviFlag(immagine.record(kLogo, 11), logo::kAbilitazione, true);
  ASSERT_EQ(SalvaConfigurazione(percorso(), utente), 0);
  const QByteArray file = cartella.read(kNome);
  EXPECT_EQ(file.size(), kByte);
  EXPECT_EQ(file.first(9), QByteArray("V03.00\0\0\0", 9));
  EXPECT_EQ(file.sliced(86, 6), QByteArray("20121\0", 6));
  EXPECT_EQ(file.sliced(3846, 6), QByteArray("VARIE\0", 6));
  EXPECT_EQ(file.sliced(243840, 7), QByteArray("ULTIMO\0", 7));
  EXPECT_EQ(file.sliced(243913, 4), QByteArray("\x98\x08\0\0", 4));
  EXPECT_EQ(file[244710], 40);
  EXPECT_EQ(file[245104], 1);
}

TEST_F(FileDiConfigurazione, CaricatoESalvatoTornaByteperByte) {
  const QByteArray file = fileIntero(3);
  caricato(file);
  ASSERT_EQ(SalvaConfigurazione(percorso(QStringLiteral("altro.dat")), utente), 0);
  EXPECT_EQ(cartella.read(QStringLiteral("altro.dat")), file);
}

TEST_F(FileDiConfigurazione, SalvatoDueVolteEIdentico) {
  caricato(fileIntero());
  scriviTesto(immagineProgrammazione().record(kReparto, 0), reparto::kDescrizione, QStringLiteral("BAR"));
  ASSERT_EQ(SalvaConfigurazione(percorso(), utente), 0);
  const QByteArray primo = cartella.read(kNome);
  const QByteArray precedente = cartella.read(kPrima);
  ASSERT_EQ(SalvaConfigurazione(percorso(), utente), 0);
  EXPECT_EQ(cartella.read(kNome), primo);
  EXPECT_EQ(cartella.read(kPrima), precedente);
}

TEST_F(FileDiConfigurazione, IByteDietroLoZeroDiUnTestoRestano) {
  const QByteArray file = fileIntero();
  caricato(file);
  scriviTesto(immagineProgrammazione().record(kReparto, 0), reparto::kDescrizione, QStringLiteral("BAR"));
  ASSERT_EQ(SalvaConfigurazione(percorso(), utente), 0);
  const QByteArray salvato = cartella.read(kNome);
  EXPECT_EQ(salvato.sliced(528, 4), QByteArray("BAR\0", 4));
  EXPECT_EQ(salvato.first(528), file.first(528));
  EXPECT_EQ(salvato.sliced(532), file.sliced(532));
}

class FileCorto : public FileDiConfigurazione, public testing::WithParamInterface<qsizetype> {};

TEST_P(FileCorto, SiCaricaECioCheMancaEZero) {
  riempiMemoria(0xA5);
  const QByteArray file = fileIntero(5).first(GetParam());
  caricato(file);
  EXPECT_EQ(inMemoria(), file + QByteArray(kByte - GetParam(), '\0'));
}

INSTANTIATE_TEST_SUITE_P(Lunghezze, FileCorto,
                         testing::Values(0, 5, 6, 8, 9, 10, 145, 146, 147, 100000, 245113, 245114));

TEST_F(FileDiConfigurazione, CioCheEDietroLaFineNonSiLegge) {
  const QByteArray file = fileIntero() + QByteArray(3000, 'z');
  caricato(file);
  EXPECT_EQ(inMemoria(), file.first(kByte));
}

TEST_F(FileDiConfigurazione, IlPannelloDiceFileEVersioneEIlModelloEIlSuo) {
  const QString file = cartella.write(kNome, "V03.00XYZ");
  QString pannello;
  EXPECT_EQ(VerificaVersioneFile(file, pannello), 0);
  EXPECT_EQ(pannello, QStringLiteral("File : [bar.dat] - Versione V03.00"));
  EXPECT_EQ(versioneFile(), QStringLiteral("V03.00"));
  EXPECT_EQ(modelloFile(), QStringLiteral("XYZ"));
  EXPECT_EQ(comeByte(testataFile()), "V03.00XYZ");
}

TEST_F(FileDiConfigurazione, IlPannelloPrendeIlNomeComE) {
  testataFile() = {'V', '0', '3', '.', '0', '0', '0', '0', '1'};
  EXPECT_EQ(TestoPannello(QStringLiteral("C:\\negozio\\bar.di.notte.dat")),
            QStringLiteral("File : [bar.di.notte.dat] - Versione V03.00"));
  EXPECT_EQ(TestoPannello(QStringLiteral("/dati/%2%1.dat")),
            QStringLiteral("File : [%2%1.dat] - Versione V03.00"));
}

TEST_F(FileDiConfigurazione, LaVersioneSiLeggeDaiPrimiNoveByteSoltanto) {
  riempiMemoria(0xA5);
  QString pannello;
  EXPECT_EQ(VerificaVersioneFile(cartella.write(kNome, fileIntero()), pannello), 0);
  EXPECT_EQ(comeByte(bloccoNegozio()), QByteArray(137, '\xA5'));
  EXPECT_EQ(comeByte(immagineProgrammazione().byte()), QByteArray(244968, '\xA5'));
}

TEST_F(FileDiConfigurazione, BastaLaVersioneAncheSenzaIlModello) {
  QString pannello;
  EXPECT_EQ(VerificaVersioneFile(cartella.write(kNome, "V03.00"), pannello), 0);
  EXPECT_EQ(modelloFile(), QString());
}

TEST_F(FileDiConfigurazione, UnCarattereDiversoNellaVersioneLaRifiuta) {
  for (qsizetype posto = 0; posto < 6; ++posto)
    for (const qsizetype byte : {6, 9, 100000, 245114, 250000}) {
      for (const char altro : {'\0', 'x'}) {
        QByteArray file = fileIntero(0, byte);
        file[posto] = altro;
        QString pannello = QStringLiteral("prima");
        EXPECT_EQ(VerificaVersioneFile(cartella.write(kNome, file), pannello), 1) << posto << " " << byte;
        EXPECT_EQ(pannello, QStringLiteral("prima"));
      }
    }
}

TEST_F(FileDiConfigurazione, UnFilePiuCortoDellaVersioneSiRifiuta) {
  for (const char* inizio : {"", "V", "V03.0"}) {
    QString pannello;
    EXPECT_EQ(VerificaVersioneFile(cartella.write(kNome, inizio), pannello), 1) << inizio;
  }
}

TEST_F(FileDiConfigurazione, MaiuscoleEMinuscoleDellaVersioneContano) {
  QString pannello;
  EXPECT_EQ(VerificaVersioneFile(cartella.write(kNome, "v03.00001"), pannello), 1);
}

TEST_F(FileDiConfigurazione, UnFileRifiutatoNonPortaLaSuaVersioneInQuelloAperto) {
  const QByteArray aperto = fileIntero();
  const QString file = caricato(aperto);
  QString pannello;
  EXPECT_EQ(VerificaVersioneFile(cartella.write(QStringLiteral("vecchio.dat"), "V02.00999"), pannello), 1);
  ASSERT_EQ(SalvaConfigurazione(file, utente), 0);
  EXPECT_EQ(cartella.read(kNome), aperto);
}

TEST_F(FileDiConfigurazione, IlFileAssenteDa53) {
  EXPECT_EQ(numeroDellaVersione(percorso()), 53);
  nonSiCarica(percorso(), 53, kNonTrovato);
}

TEST_F(FileDiConfigurazione, UnCollegamentoCheNonPortaDaNessunaParteDa53) {
  ASSERT_TRUE(QFile::link(percorso(QStringLiteral("manca")), percorso()));
  EXPECT_EQ(numeroDellaVersione(percorso()), 53);
  nonSiCarica(percorso(), 53, kNonTrovato);
}

TEST_F(FileDiConfigurazione, UnaCartellaDa75) {
  ASSERT_TRUE(QDir().mkdir(percorso()));
  EXPECT_EQ(numeroDellaVersione(percorso()), 75);
  nonSiCarica(percorso(), 75, kAccesso);
  nonSiSalva(percorso(), 75, kAccesso);
  EXPECT_EQ(nomi(), QStringList{kNome});
}

TEST_F(FileDiConfigurazione, UnaPipeDa75ENonFaAspettare) {
  ASSERT_EQ(mkfifo(percorso().toUtf8().constData(), 0600), 0);
  EXPECT_EQ(numeroDellaVersione(percorso()), 75);
  nonSiCarica(percorso(), 75, kAccesso);
  nonSiSalva(percorso(), 75, kAccesso);
  EXPECT_EQ(nomi(), QStringList{kNome});
}

TEST_F(FileDiConfigurazione, UnFileCheNonSiPuoLeggereDa75) {
  const QString file = cartella.write(kNome, fileIntero());
  ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
  ASSERT_EQ(chmod(cartella.path().toUtf8().constData(), 0755), 0);
  const OtherUser altro;
  EXPECT_EQ(numeroDellaVersione(file), 75);
  nonSiCarica(file, 75, kAccesso);
}

TEST_F(FileDiConfigurazione, DietroUnCollegamentoSiLeggeESiScriveIlFileVero) {
  ASSERT_TRUE(QDir().mkdir(percorso(QStringLiteral("altrove"))));
  const QByteArray prima = fileIntero();
  const QString vero = cartella.write(QStringLiteral("altrove/vero.dat"), prima);
  ASSERT_TRUE(QFile::link(vero, percorso()));
  ASSERT_EQ(CaricaConfigurazione(percorso(), utente), 0);
  EXPECT_EQ(inMemoria(), prima);
  bloccoNegozio()[0] = 'x';
  ASSERT_EQ(SalvaConfigurazione(percorso(), utente), 0);
  EXPECT_TRUE(QFileInfo(percorso()).isSymLink());
  EXPECT_EQ(cartella.read(QStringLiteral("altrove/vero.dat")), inMemoria());
  EXPECT_EQ(cartella.read(kPrima), prima);
}

TEST_F(FileDiConfigurazione, UnDiscoPienoAMetaDelSalvataggioLasciaIlFileDiPrima) {
  const QByteArray prima = fileIntero();
  const QString file = caricato(prima);
  cartella.write(kPrima, "ancora prima");
  bloccoNegozio()[0] = 'x';
  {
    const FullDisk pieno(100000);
    nonSiSalva(file, 61, kPieno);
  }
  EXPECT_EQ(cartella.read(kNome), prima);
  EXPECT_EQ(cartella.read(kPrima), "ancora prima");
  EXPECT_EQ(nomi(), (QStringList{kNome, kPrima}));
  EXPECT_EQ(SalvaConfigurazione(file, utente), 0);
  EXPECT_EQ(cartella.read(kNome), inMemoria());
}

TEST_F(FileDiConfigurazione, SuUnDiscoPienoUnFileNuovoNonResta) {
  {
    const FullDisk pieno(245113);
    nonSiSalva(percorso(), 61, kPieno);
  }
  EXPECT_EQ(nomi(), QStringList());
}

TEST_F(FileDiConfigurazione, InUnaCartellaDiSolaLetturaIlFileRestaQuelloDiPrima) {
  const QByteArray prima = fileIntero();
  const QString file = caricato(prima);
  bloccoNegozio()[0] = 'x';
  ASSERT_EQ(chmod(cartella.path().toUtf8().constData(), 0755), 0);
  {
    const OtherUser altro;
    nonSiSalva(file, 75, kAccesso);
  }
  EXPECT_EQ(cartella.read(kNome), prima);
  EXPECT_EQ(nomi(), QStringList{kNome});
}

TEST_F(FileDiConfigurazione, InUnaCartellaCheNonCeSiDice76) {
  nonSiSalva(percorso(QStringLiteral("manca/bar.dat")), 76, QStringLiteral("Percorso non trovato: "));
  EXPECT_EQ(nomi(), QStringList());
}

TEST_F(FileDiConfigurazione, SenzaPostoPerIlPrecedenteNonSiSostituisceNulla) {
  const QByteArray prima = fileIntero();
  const QString file = caricato(prima);
  ASSERT_TRUE(QDir().mkdir(percorso(kPrima)));
  bloccoNegozio()[0] = 'x';
  nonSiSalva(file, 75, kAccesso, percorso(kPrima));
  EXPECT_EQ(cartella.read(kNome), prima);
  EXPECT_EQ(nomi(), (QStringList{kNome, kPrima}));
}

TEST_F(FileDiConfigurazione, IlFileDiPrimaRestaAccantoSeEDiverso) {
  const QByteArray prima = fileIntero();
  const QString file = caricato(prima);
  bloccoNegozio()[0] = 'x';
  ASSERT_EQ(SalvaConfigurazione(file, utente), 0);
  EXPECT_EQ(cartella.read(kPrima), prima);
  EXPECT_EQ(nomi(), (QStringList{kNome, kPrima}));
}

TEST_F(FileDiConfigurazione, UnSalvataggioUgualeNonFaUnPrecedente) {
  const QString file = caricato(fileIntero());
  ASSERT_EQ(SalvaConfigurazione(file, utente), 0);
  EXPECT_EQ(nomi(), QStringList{kNome});
}

TEST_F(FileDiConfigurazione, UnFileNuovoEUnoVuotoNonHannoPrecedente) {
  ASSERT_EQ(SalvaConfigurazione(percorso(), utente), 0);
  EXPECT_EQ(cartella.read(kNome), QByteArray(kByte, '\0'));
  cartella.write(QStringLiteral("vuoto.dat"), "");
  ASSERT_EQ(SalvaConfigurazione(percorso(QStringLiteral("vuoto.dat")), utente), 0);
  EXPECT_EQ(nomi(), (QStringList{kNome, QStringLiteral("vuoto.dat")}));
}

TEST_F(FileDiConfigurazione, DiUnFilePiuLungoLaCodaRestaNelPrecedente) {
  const QByteArray lungo = fileIntero() + "quel che un altro vi ha aggiunto";
  const QString file = caricato(lungo);
  ASSERT_EQ(SalvaConfigurazione(file, utente), 0);
  EXPECT_EQ(cartella.read(kNome), lungo.first(kByte));
  EXPECT_EQ(cartella.read(kPrima), lungo);
}

TEST_F(FileDiConfigurazione, UnFileCortoSalvatoDiventaIntero) {
  const QByteArray corto = fileIntero().first(1000);
  const QString file = caricato(corto);
  ASSERT_EQ(SalvaConfigurazione(file, utente), 0);
  EXPECT_EQ(cartella.read(kNome), corto + QByteArray(kByte - 1000, '\0'));
  EXPECT_EQ(cartella.read(kPrima), corto);
}

TEST_F(FileDiConfigurazione, CioCheUnProgrammaInterrottoHaLasciatoVaVia) {
  const QString resto = QStringLiteral(".bar.dat.gestionale-%1-abc").arg(endedProcess());
  cartella.write(resto, "a meta");
  ASSERT_EQ(SalvaConfigurazione(percorso(), utente), 0);
  EXPECT_EQ(nomi(), QStringList{kNome});
}

TEST_F(FileDiConfigurazione, IlSalvataggioRaccontaCheCosaCambia) {
  const QString file = caricato(fileIntero());
  immagineProgrammazione().record(kReparto, 0)[0] = '!';
  immagineProgrammazione().record(kReparto, 79)[0] = '!';
  immagineProgrammazione().record(kIVA, 4)[0] = '!';
  const Salvataggio fatto = SalvaConfigurazioneRaccontando(file, utente);
  EXPECT_EQ(fatto.esito, 0);
  EXPECT_EQ(fatto.racconto, QStringLiteral("2 reparti, 1 aliquota"));
  EXPECT_EQ(SalvaConfigurazioneRaccontando(file, utente).racconto, QString());
}

TEST_F(FileDiConfigurazione, UnFileSostituitoMentreSiCaricaVieneTuttoDaUnaParte) {
  const std::array file{fileIntero(0), fileIntero(1)};
  const QString dove = cartella.write(kNome, file[0]);
  std::atomic_bool basta = false;
  std::thread altro([&] {
    for (std::size_t i = 0; !basta; ++i)
      WriteWholeFile(dove, file[i % 2], TemporaryFile::Durability::Passing);
  });
  std::array visti{0, 0};
  int mescolati = 0;
  const auto fine = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while ((visti[0] < 20 || visti[1] < 20) && std::chrono::steady_clock::now() < fine) {
    EXPECT_EQ(CaricaConfigurazione(dove, utente), 0);
    const auto quale = std::ranges::find(file, inMemoria());
    if (quale == file.end())
      ++mescolati;
    else
      ++visti[static_cast<std::size_t>(quale - file.begin())];
  }
  basta = true;
  altro.join();
  EXPECT_EQ(mescolati, 0);
  EXPECT_GE(std::ranges::min(visti), 20);
}

TEST_F(FileDiConfigurazione, ChiLeggeMentreSiSalvaTrovaSempreUnFileIntero) {
  const std::array file{fileIntero(0), fileIntero(1)};
  const QString dove = caricato(file[0]);
  std::atomic_bool basta = false;
  std::atomic_int letti = 0;
  std::atomic_int estranei = 0;
  std::thread altro([&] {
    for (; !basta; ++letti)
      if (std::ranges::count(file, ReadFileStart(dove, kByte + 1)) != 1) ++estranei;
  });
  const auto fine = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  for (std::size_t i = 1; (i < 20 || letti < 20) && std::chrono::steady_clock::now() < fine; ++i) {
    const QByteArray& prossimo = file[i % 2];
    std::ranges::copy(prossimo.sliced(146), immagineProgrammazione().byte().begin());
    std::ranges::copy(prossimo.sliced(9, 137), bloccoNegozio().begin());
    std::ranges::copy(prossimo.first(9), testataFile().begin());
    EXPECT_EQ(SalvaConfigurazione(dove, utente), 0);
  }
  basta = true;
  altro.join();
  EXPECT_EQ(estranei, 0);
  EXPECT_GE(letti, 20);
}

TEST_F(FileDiConfigurazione, AzzerataLaMemoriaEComeAllAvvio) {
  riempiMemoria(0xA5);
  azzeraConfigurazione();
  EXPECT_EQ(inMemoria(), QByteArray(kByte, '\0'));
}

TEST(Compagno, HaIlNomeDellaConfigurazioneELaSuaCartella) {
  EXPECT_EQ(PercorsoCompagno(QStringLiteral("/dati/bar.dat")), QStringLiteral("/dati/bar_art.mdb"));
}

TEST(Compagno, DiUnNomeConPiuPuntiSiPrendeIlPrimoPezzo) {
  EXPECT_EQ(PercorsoCompagno(QStringLiteral("/dati/bar.di.notte.dat")), QStringLiteral("/dati/bar_art.mdb"));
}

TEST(Compagno, IPuntiDellaCartellaRestano) {
  EXPECT_EQ(PercorsoCompagno(QStringLiteral("/dati.2026/v.1/bar.dat")),
            QStringLiteral("/dati.2026/v.1/bar_art.mdb"));
}

TEST(Compagno, UnNomeSenzaEstensioneEUnoDiSolaEstensione) {
  EXPECT_EQ(PercorsoCompagno(QStringLiteral("/dati/bar")), QStringLiteral("/dati/bar_art.mdb"));
  EXPECT_EQ(PercorsoCompagno(QStringLiteral("/dati/.dat")), QStringLiteral("/dati/_art.mdb"));
}

TEST(Compagno, DiUnNomeSenzaCartellaStaInQuellaCorrente) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("bar_art.mdb"), "articoli");
  EXPECT_EQ(QFileInfo(PercorsoCompagno(kNome)).absoluteFilePath(),
            cartella.file(QStringLiteral("bar_art.mdb")));
}
