#include "ecrsim/pictures.h"

#include <gtest/gtest.h>

#include <QDir>

#include "devices/loaded_library.h"
#include "ecrcom/codes.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

using namespace ecrcom;

namespace {

const QString kBitmap = QStringLiteral("bitmap.bin");
const QByteArray kLarga384("\x80\x01", 2);
const QByteArray kLarga640("\x80\x02", 2);
const QByteArray kAlta1("\x01\x00", 2);
const QByteArray kAlta2("\x02\x00", 2);
const QByteArray kAlta800("\x20\x03", 2);
const QByteArray kAlta801("\x21\x03", 2);

/// A line of so many bytes: one of its own in front, blank up to the last dot, which prints.
QByteArray linea(int byte, char primo) {
  return QByteArray(1, primo) + QByteArray(byte - 2, '\0') + QByteArray(1, '\x01');
}

/// A picture of one line whose first byte is the seed.
QByteArray piccola(char seme) {
  return kLarga384 + kAlta1 + linea(48, seme);
}
QByteArray grande(char seme) {
  return kLarga640 + kAlta1 + linea(80, seme);
}

QByteArray quante(int numero, QByteArray (*immagine)(char)) {
  QByteArray tutte;
  for (int seme = 1; seme <= numero; ++seme) tutte += immagine(static_cast<char>(seme));
  return tutte;
}

/// A till of one class, and what is sent to it between an opening and a closing. The last one made has the
/// current folder, from which the library sends.
struct Grafica {
  explicit Grafica(const char* classe) : cassa(diClasse(classe)) {}

  static ecrsim::Options diClasse(const char* classe) {
    ecrsim::Options opzioni;
    opzioni.bitmap = classe;
    return opzioni;
  }
  int invia(const QByteArray& byte) {
    cartella.write(kBitmap, byte);
    EXPECT_EQ(libreria.command(cassa.address(), ECR_OPEN_MODE), kDone);
    const int codice = libreria.command(cassa.address(), ECR_SEND_MODE, kBitmap.toLatin1());
    EXPECT_EQ(libreria.command(cassa.address(), ECR_CLOSE_MODE), kDone);
    return codice;
  }
  QByteArray carta(const char* nome) const {
    return cassa.byte(QStringLiteral("grafica/") + QLatin1String(nome));
  }
  QStringList suCarta() const {
    return QDir(cassa.file(QStringLiteral("grafica")))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
  }

  TemporaryFolder cartella;
  TestTill cassa;
  Library libreria;
};

QStringList dodiciNomi() {
  return {QStringLiteral("01.pbm"), QStringLiteral("02.pbm"), QStringLiteral("03.pbm"),
          QStringLiteral("04.pbm"), QStringLiteral("05.pbm"), QStringLiteral("06.pbm"),
          QStringLiteral("07.pbm"), QStringLiteral("08.pbm"), QStringLiteral("09.pbm"),
          QStringLiteral("10.pbm"), QStringLiteral("11.pbm"), QStringLiteral("12.pbm")};
}

}  // namespace

TEST(ImmaginiDellaCassa, LeDodiciPiccoleSonoInMemoriaESullaCarta) {
  Grafica grafica("S");
  EXPECT_EQ(grafica.invia(quante(12, piccola)), kDone);
  EXPECT_EQ(grafica.cassa.byte(kBitmap), quante(12, piccola));
  EXPECT_EQ(grafica.suCarta(), dodiciNomi());
  EXPECT_EQ(grafica.carta("01.pbm"), "P4\n384 1\n\x01" + QByteArray(46, '\0') + '\x01');
  EXPECT_EQ(grafica.carta("09.pbm"), "P4\n384 1\n\x09" + QByteArray(46, '\0') + '\x01');
  EXPECT_EQ(grafica.carta("12.pbm"), "P4\n384 1\n\x0C" + QByteArray(46, '\0') + '\x01');
}

TEST(ImmaginiDellaCassa, LeDodiciGrandiValgonoPerOgniAltraClasse) {
  for (const char* classe : {"L", "X"}) {
    Grafica grafica(classe);
    EXPECT_EQ(grafica.invia(quante(12, grande)), kDone) << classe;
    EXPECT_EQ(grafica.cassa.byte(kBitmap), quante(12, grande));
    EXPECT_EQ(grafica.suCarta(), dodiciNomi());
    EXPECT_EQ(grafica.carta("01.pbm"), "P4\n640 1\n\x01" + QByteArray(78, '\0') + '\x01');
    EXPECT_EQ(grafica.carta("12.pbm"), "P4\n640 1\n\x0C" + QByteArray(78, '\0') + '\x01');
  }
}

TEST(ImmaginiDellaCassa, LeRigheVannoSullaCartaNelLoroOrdine) {
  Grafica grafica("S");
  const QByteArray dueRighe = kLarga384 + kAlta2 + linea(48, '\x80') + linea(48, '\x40');
  EXPECT_EQ(grafica.invia(quante(4, piccola) + dueRighe + quante(7, piccola)), kDone);
  EXPECT_EQ(grafica.carta("05.pbm"),
            "P4\n384 2\n\x80" + QByteArray(46, '\0') + "\x01\x40" + QByteArray(46, '\0') + '\x01');
  EXPECT_EQ(grafica.carta("06.pbm"), "P4\n384 1\n\x01" + QByteArray(46, '\0') + '\x01');
}

TEST(ImmaginiDellaCassa, LeNuovePrendonoIlPostoDelleVecchie) {
  Grafica grafica("S");
  const QByteArray alta = kLarga384 + kAlta2 + QByteArray(96, '\xFF');
  EXPECT_EQ(grafica.invia(quante(11, piccola) + alta), kDone);
  EXPECT_EQ(grafica.carta("12.pbm"), "P4\n384 2\n" + QByteArray(96, '\xFF'));
  EXPECT_EQ(grafica.invia(alta + quante(11, piccola)), kDone);
  EXPECT_EQ(grafica.suCarta(), dodiciNomi());
  EXPECT_EQ(grafica.carta("01.pbm"), "P4\n384 2\n" + QByteArray(96, '\xFF'));
  EXPECT_EQ(grafica.carta("12.pbm"), "P4\n384 1\n\x0B" + QByteArray(46, '\0') + '\x01');
}

TEST(ImmaginiDellaCassa, UnaSolaLargaPerLAltraClasseLeFaRifiutareTutte) {
  Grafica stretta("S");
  EXPECT_EQ(stretta.invia(quante(12, grande)), kBadLength);
  EXPECT_EQ(stretta.invia(quante(11, piccola) + grande(12)), kBadLength);
  Grafica larga("L");
  EXPECT_EQ(larga.invia(quante(12, piccola)), kBadLength);
  EXPECT_EQ(larga.invia(quante(11, grande) + piccola(12)), kBadLength);
}

TEST(ImmaginiDellaCassa, UnPuntoInPiuOInMenoDiLarghezzaNonVa) {
  Grafica grafica("S");
  for (const char larghezza : {'\x7F', '\x81', '\0'}) {
    QByteArray byte = quante(12, piccola);
    byte[0] = larghezza;
    EXPECT_EQ(grafica.invia(byte), kBadLength) << int{larghezza};
  }
}

TEST(ImmaginiDellaCassa, UndiciETrediciSonoRifiutateNelleDueClassi) {
  for (const auto& [classe, immagine] : {std::pair{"S", &piccola}, {"L", &grande}}) {
    Grafica grafica(classe);
    for (const int numero : {1, 11, 13, 24})
      EXPECT_EQ(grafica.invia(quante(numero, immagine)), kBadLength) << classe << numero;
  }
}

TEST(ImmaginiDellaCassa, UnaTagliataOUnByteInPiuSonoRifiutati) {
  Grafica grafica("S");
  EXPECT_EQ(grafica.invia(quante(12, piccola) + QByteArray(1, '\0')), kBadLength);
  // The last picture: its last byte, its rows, height and width, half a width.
  for (const int tagliati : {1, 47, 48, 49, 50, 51, 52}) {
    QByteArray byte = quante(12, piccola);
    byte.chop(tagliati);
    EXPECT_EQ(grafica.invia(byte), kBadLength) << tagliati;
  }
}

TEST(ImmaginiDellaCassa, UnFileVuotoSiRifiuta) {
  Grafica grafica("S");
  EXPECT_EQ(grafica.invia({}), kBadLength);
  EXPECT_FALSE(grafica.cassa.exists(kBitmap));
}

TEST(ImmaginiDellaCassa, LAltezzaVaDaUnoAOttocento) {
  Grafica grafica("L");
  const QByteArray alta800 = kLarga640 + kAlta800 + QByteArray(80 * 800, '\x55');
  const QByteArray alta801 = kLarga640 + kAlta801 + QByteArray(80 * 801, '\x55');
  const QByteArray senzaRighe = kLarga640 + QByteArray(2, '\0');
  EXPECT_EQ(grafica.invia(quante(11, grande) + alta801), kBadLength);
  EXPECT_EQ(grafica.invia(quante(11, grande) + senzaRighe), kBadLength);
  EXPECT_FALSE(grafica.cassa.exists(kBitmap));
  EXPECT_EQ(grafica.invia(quante(11, grande) + alta800), kDone);
  EXPECT_EQ(grafica.carta("12.pbm"), "P4\n640 800\n" + QByteArray(64000, '\x55'));
}

TEST(ImmaginiDellaCassa, DodiciDellaMassimaAltezzaSiAccettano) {
  Grafica grafica("L");
  const QByteArray tutte = (kLarga640 + kAlta800 + QByteArray(64000, '\x55')).repeated(12);
  EXPECT_EQ(tutte.size(), 768048);
  EXPECT_EQ(grafica.invia(tutte), kDone);
  EXPECT_EQ(grafica.suCarta(), dodiciNomi());
}

TEST(ImmaginiDellaCassa, UnFileRifiutatoLasciaMemoriaECartaComErano) {
  Grafica grafica("S");
  EXPECT_EQ(grafica.invia(quante(12, piccola)), kDone);
  QByteArray altre = quante(12, piccola);
  altre[4] = '\xFF';
  altre.chop(1);
  EXPECT_EQ(grafica.invia(altre), kBadLength);
  EXPECT_EQ(grafica.cassa.byte(kBitmap), quante(12, piccola));
  EXPECT_EQ(grafica.carta("01.pbm"), "P4\n384 1\n\x01" + QByteArray(46, '\0') + '\x01');
}

TEST(ImmaginiDellaCassa, UnFileRifiutatoNonFaNascereLaCarta) {
  Grafica grafica("S");
  EXPECT_EQ(grafica.invia(quante(11, piccola)), kBadLength);
  EXPECT_FALSE(grafica.cassa.exists(kBitmap));
  EXPECT_FALSE(grafica.cassa.exists(QStringLiteral("grafica")));
}

TEST(ImmaginiDellaCassa, LaCartaCheNonSiScriveDaIlCodiceDellaMemoria) {
  Grafica senzaCartella("S");
  senzaCartella.cassa.put(QStringLiteral("grafica"), "un file al posto della cartella");
  EXPECT_EQ(senzaCartella.invia(quante(12, piccola)), kTillMemory);
  Grafica aMeta("S");
  ASSERT_TRUE(QDir(aMeta.cassa.file(QString())).mkpath(QStringLiteral("grafica/07.pbm")));
  EXPECT_EQ(aMeta.invia(quante(12, piccola)), kTillMemory);
  EXPECT_EQ(aMeta.suCarta(), dodiciNomi().mid(0, 7));
}

TEST(ImmaginiDellaCassa, LaMemoriaCheNonSiScriveNonStampaNulla) {
  Grafica grafica("S");
  ASSERT_TRUE(QDir(grafica.cassa.file(QString())).mkpath(kBitmap));
  EXPECT_EQ(grafica.invia(quante(12, piccola)), kTillMemory);
  EXPECT_FALSE(grafica.cassa.exists(QStringLiteral("grafica")));
}

TEST(ImmaginiDellaCassa, OgniImmagineLettaSaDoveStannoLeSueRighe) {
  const QByteArray tutte = quante(12, piccola);
  const Bytes byte(reinterpret_cast<const std::uint8_t*>(tutte.constData()),
                   static_cast<std::size_t>(tutte.size()));
  const auto immagini = ecrsim::readPictures(byte, "S");
  ASSERT_TRUE(immagini);
  EXPECT_EQ(immagini->front().rows.data(), byte.data() + 4);
  EXPECT_EQ(immagini->back().width, 384U);
  EXPECT_EQ(immagini->back().height, 1U);
  EXPECT_EQ(immagini->back().rows.data(), byte.data() + 52 * 11 + 4);
  EXPECT_EQ(immagini->back().rows.size(), 48U);
  EXPECT_FALSE(ecrsim::readPictures(byte, "L"));
  EXPECT_FALSE(ecrsim::readPictures({}, "S"));
}
