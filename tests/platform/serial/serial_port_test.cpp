#include "platform/serial/serial_port.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <array>
#include <memory>

#include "sostegno/temporary_folder.h"

namespace {

constexpr int kVelocita = 9600;
constexpr int kAttesa = 5000;

/// A line with two ends: the port under test opens one by its path, the test holds the other.
class Linea {
 public:
  Linea() {
    std::array<char, 128> nome{};
    EXPECT_EQ(::openpty(&noi_, &loro_, nome.data(), nullptr, nullptr), 0);
    termios modo{};
    ::tcgetattr(loro_, &modo);
    ::cfmakeraw(&modo);
    ::tcsetattr(loro_, TCSANOW, &modo);
    percorso_ = QString::fromLatin1(nome.data());
  }
  ~Linea() {
    stacca();
    ::close(loro_);
  }
  Linea(const Linea&) = delete;
  Linea& operator=(const Linea&) = delete;

  QString percorso() const { return percorso_; }
  void manda(const QByteArray& byte) const {
    EXPECT_EQ(::write(noi_, byte.constData(), static_cast<std::size_t>(byte.size())), byte.size());
  }
  QByteArray riceve(qsizetype lunghezza) const {
    QByteArray byte;
    while (byte.size() < lunghezza) {
      pollfd attesa{noi_, POLLIN, 0};
      QCoreApplication::processEvents();
      if (::poll(&attesa, 1, kAttesa) <= 0) break;
      std::array<char, 256> pezzo;
      const ssize_t letti = ::read(noi_, pezzo.data(), pezzo.size());
      if (letti <= 0) break;
      byte.append(pezzo.data(), letti);
    }
    return byte;
  }
  /// The other side goes away, and the device with it. Its number stays taken, or the next test beside this
  /// one would get a port of that name.
  void stacca() {
    if (noi_ >= 0) ::close(noi_);
    noi_ = -1;
  }

 private:
  int noi_ = -1;
  int loro_ = -1;
  QString percorso_;
};

template <typename Passo>
int numeroErrore(Passo passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    EXPECT_FALSE(errore.descrizione.isEmpty());
    return errore.numero;
  }
  return 0;
}

}  // namespace

TEST(PortaSeriale, IByteArrivanoSenzaCheNessunoAspetti) {
  Linea linea;
  SerialPort porta;
  QByteArray arrivati;
  porta.onArrival([&](const QByteArray& byte) { arrivati += byte; });
  porta.open(linea.percorso(), kVelocita);
  linea.manda("X89F");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivati.size() == 4; }));
  EXPECT_EQ(arrivati, "X89F");
}

TEST(PortaSeriale, ConInputLenUnoOgniCarattereEUnArrivo) {
  Linea linea;
  SerialPort porta;
  QByteArrayList arrivi;
  porta.InputLen(1);
  porta.onArrival([&](const QByteArray& byte) { arrivi.append(byte); });
  porta.open(linea.percorso(), kVelocita);
  linea.manda("a@b");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi.size() == 3; }));
  EXPECT_EQ(arrivi, (QByteArrayList{"a", "@", "b"}));
}

TEST(PortaSeriale, UnPassaggioDiEventiDentroLArrivoNonCambiaLOrdine) {
  Linea linea;
  SerialPort porta;
  QByteArray arrivati;
  QByteArray tutti;
  for (int i = 0; i < 2000; ++i) tutti.append(static_cast<char>('A' + i % 26));
  porta.InputLen(1);
  porta.onArrival([&](const QByteArray& byte) {
    QCoreApplication::processEvents();
    arrivati += byte;
  });
  porta.open(linea.percorso(), kVelocita);
  linea.manda(tutti.first(1000));
  linea.manda(tutti.sliced(1000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivati.size() == tutti.size(); }));
  EXPECT_EQ(arrivati, tutti);
}

TEST(PortaSeriale, UnaLineaCheContinuaArrivaAMucchiENonSvegliaAOgniCarattere) {
  Linea linea;
  SerialPort porta;
  constexpr int kQuanti = 300;
  QByteArray mandati;
  QByteArray arrivati;
  int passaggio = 0;
  QSet<int> conArrivi;
  porta.InputLen(1);
  porta.onArrival([&](const QByteArray& byte) {
    arrivati += byte;
    conArrivi.insert(passaggio);
  });
  porta.open(linea.percorso(), kVelocita);
  // As a line at 9600 bits brings them.
  QTimer ognuno;
  QObject::connect(&ognuno, &QTimer::timeout, &ognuno, [&] {
    if (mandati.size() == kQuanti) return ognuno.stop();
    mandati.append(static_cast<char>('A' + mandati.size() % 26));
    linea.manda(mandati.right(1));
  });
  ognuno.start(1);
  QElapsedTimer orologio;
  orologio.start();
  while (arrivati.size() < kQuanti && orologio.elapsed() < kAttesa) {
    ++passaggio;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  EXPECT_EQ(arrivati, mandati);
  // At most a character at once and a batch in ten milliseconds, however slow the machine is.
  EXPECT_LE(conArrivi.size(), orologio.elapsed() / 4 + 2);
}

TEST(PortaSeriale, IlPrimoCarattereDiUnaLineaQuietaNonAspetta) {
  Linea linea;
  SerialPort porta;
  QByteArrayList arrivi;
  porta.onArrival([&](const QByteArray& byte) { arrivi.append(byte); });
  porta.open(linea.percorso(), kVelocita);
  linea.manda("tutto insieme");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !arrivi.isEmpty(); }));
  EXPECT_EQ(arrivi, QByteArrayList{"tutto insieme"}) << "nothing is held back yet";
}

TEST(PortaSeriale, QuelloCheETrattenutoArrivaAncheSeNonVieneAltro) {
  Linea linea;
  SerialPort porta;
  QObject poi;
  QByteArray arrivati;
  porta.InputLen(1);
  porta.onArrival([&](const QByteArray& byte) {
    if (arrivati.isEmpty()) QTimer::singleShot(0, &poi, [&] { linea.manda("bcd"); });
    arrivati += byte;
  });
  porta.open(linea.percorso(), kVelocita);
  linea.manda("a");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivati.size() == 4; }));
  EXPECT_EQ(arrivati, "abcd");
}

TEST(PortaSeriale, DopoUnaPausaLaLineaRiprendeDaSola) {
  Linea linea;
  SerialPort porta;
  QByteArray arrivati;
  porta.InputLen(1);
  porta.onArrival([&](const QByteArray& byte) { arrivati += byte; });
  porta.open(linea.percorso(), kVelocita);
  // Longer apart than anything is held back, so that each one finds the line quiet.
  QTimer ognuno;
  QObject::connect(&ognuno, &QTimer::timeout, &ognuno, [&] { linea.manda("abc"); });
  ognuno.start(60);
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivati.size() >= 9; }));
  EXPECT_EQ(arrivati.left(9), "abcabcabc");
}

TEST(PortaSeriale, RiapertaMentreTrattieneRiceveDaCapo) {
  Linea prima;
  Linea seconda;
  SerialPort porta;
  QByteArrayList arrivi;
  porta.onArrival([&](const QByteArray& byte) { arrivi.append(byte); });
  porta.open(prima.percorso(), kVelocita);
  prima.manda("a");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi.size() == 1; }));
  prima.manda("perso");
  porta.open(seconda.percorso(), kVelocita);
  seconda.manda("nuovo");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi.size() > 1; }));
  EXPECT_EQ(arrivi, (QByteArrayList{"a", "nuovo"})) << "at once, and nothing of the line before";
}

TEST(PortaSeriale, IByteScrittiArrivanoDallAltraParteTuttiEOtto) {
  Linea linea;
  SerialPort porta;
  porta.open(linea.percorso(), kVelocita);
  QByteArray tutti;
  for (int byte = 0; byte < 256; ++byte) tutti.append(static_cast<char>(byte));
  porta.write(tutti);
  EXPECT_EQ(linea.riceve(tutti.size()), tutti);
}

TEST(PortaSeriale, QuandoLAltraParteSeNeVaLErroreEUnoELaPortaEChiusa) {
  Linea linea;
  SerialPort porta;
  int errori = 0;
  int numero = 0;
  porta.onError([&](const Errore& errore) {
    ++errori;
    numero = errore.numero;
    EXPECT_FALSE(porta.isOpen());
  });
  porta.open(linea.percorso(), kVelocita);
  linea.stacca();
  EXPECT_TRUE(QTest::qWaitFor([&] { return errori > 0; }));
  for (int passaggio = 0; passaggio < 1000; ++passaggio) QCoreApplication::processEvents();
  EXPECT_EQ(errori, 1);
  EXPECT_EQ(numero, errors::kPortBroken);
}

TEST(PortaSeriale, AncheMentreTrattieneLaFineDellaLineaSiDiceUnaVolta) {
  Linea linea;
  SerialPort porta;
  int errori = 0;
  QByteArray arrivati;
  porta.onArrival([&](const QByteArray& byte) { arrivati += byte; });
  porta.onError([&](const Errore&) { ++errori; });
  porta.open(linea.percorso(), kVelocita);
  linea.manda("a");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivati == "a"; }));
  linea.manda("b");
  linea.stacca();
  EXPECT_TRUE(QTest::qWaitFor([&] { return errori > 0; }));
  for (int passaggio = 0; passaggio < 1000; ++passaggio) QCoreApplication::processEvents();
  EXPECT_EQ(errori, 1);
  EXPECT_FALSE(porta.isOpen());
}

TEST(PortaSeriale, LAperturaDiUnTerminaleFintoNonEUnErroreDiLinea) {
  Linea linea;
  SerialPort porta;
  int errori = 0;
  porta.onError([&](const Errore&) { ++errori; });
  for (const int velocita : {1200, 2400, 4800, 9600, 19200}) {
    porta.open(linea.percorso(), velocita);
    EXPECT_TRUE(porta.isOpen());
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(errori, 0);
}

TEST(PortaSeriale, UnDispositivoAssenteEErrore8002) {
  const TemporaryFolder cartella;
  SerialPort porta;
  EXPECT_EQ(numeroErrore([&] { porta.open(cartella.file(QStringLiteral("niente")), kVelocita); }),
            errors::kPortMissing);
  EXPECT_EQ(numeroErrore([&] { porta.open(QString(), kVelocita); }), errors::kPortMissing);
  EXPECT_FALSE(porta.isOpen());
}

TEST(PortaSeriale, UnFileQualunqueNonEUnaPorta) {
  const TemporaryFolder cartella;
  SerialPort porta;
  EXPECT_NE(numeroErrore([&] { porta.open(cartella.write(QStringLiteral("testo"), "abc"), kVelocita); }), 0);
  EXPECT_FALSE(porta.isOpen());
}

TEST(PortaSeriale, ScrivereAPortaChiusaEErrore8018) {
  SerialPort porta;
  EXPECT_EQ(numeroErrore([&] { porta.write("a"); }), errors::kPortClosed);
}

TEST(PortaSeriale, ChiusaDentroLArrivoNonDaAltro) {
  Linea linea;
  SerialPort porta;
  int arrivi = 0;
  porta.InputLen(1);
  porta.onArrival([&](const QByteArray&) {
    ++arrivi;
    porta.close();
  });
  porta.open(linea.percorso(), kVelocita);
  linea.manda("abc");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi > 0; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(arrivi, 1);
}

TEST(PortaSeriale, PuoSparireDentroIlSuoStessoArrivo) {
  Linea linea;
  auto porta = std::make_unique<SerialPort>();
  int arrivi = 0;
  porta->InputLen(1);
  porta->onArrival([&](const QByteArray&) {
    ++arrivi;
    porta.reset();
  });
  porta->open(linea.percorso(), kVelocita);
  linea.manda("abc");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi > 0; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(arrivi, 1);
}

TEST(PortaSeriale, RiaprirlaChiudeQuellaDiPrima) {
  Linea prima;
  Linea seconda;
  SerialPort porta;
  porta.open(prima.percorso(), kVelocita);
  porta.open(seconda.percorso(), kVelocita);
  porta.write("Z");
  EXPECT_EQ(seconda.riceve(1), "Z");
}

TEST(PercorsoPorta, IlCollegamentoNellaCartellaValePerPrimo) {
  const TemporaryFolder cartella;
  Linea linea;
  ASSERT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("Porte")));
  ASSERT_TRUE(QFile::link(linea.percorso(), cartella.file(QStringLiteral("Porte/COM16"))));
  const QString percorso = serial::portPath(16, cartella.path());
  EXPECT_EQ(percorso, cartella.file(QStringLiteral("Porte/COM16")));
  SerialPort porta;
  porta.open(percorso, kVelocita);
  porta.write("ok");
  EXPECT_EQ(linea.riceve(2), "ok");
}

TEST(PercorsoPorta, UnCollegamentoVersoNienteRestaLaPortaENonSiApre) {
  const TemporaryFolder cartella;
  ASSERT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("Porte")));
  ASSERT_TRUE(
      QFile::link(cartella.file(QStringLiteral("sparita")), cartella.file(QStringLiteral("Porte/COM1"))));
  const QString percorso = serial::portPath(1, cartella.path());
  EXPECT_EQ(percorso, cartella.file(QStringLiteral("Porte/COM1")));
  SerialPort porta;
  EXPECT_EQ(numeroErrore([&] { porta.open(percorso, kVelocita); }), errors::kPortMissing);
}

TEST(PercorsoPorta, SenzaCollegamentoValeIlPostoNellElenco) {
  const TemporaryFolder cartella;
  const QStringList elenco = serial::listPorts();
  for (int numero = 1; numero <= 16; ++numero)
    EXPECT_EQ(serial::portPath(numero, cartella.path()), elenco.value(numero - 1)) << numero;
}

TEST(PercorsoPorta, LePorteCheCiSonoSonoQuelleIlCuiPercorsoPortaAQualcosa) {
  const TemporaryFolder cartella;
  Linea linea;
  ASSERT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("Porte")));
  ASSERT_TRUE(QFile::link(linea.percorso(), cartella.file(QStringLiteral("Porte/COM16"))));
  ASSERT_TRUE(
      QFile::link(cartella.file(QStringLiteral("sparita")), cartella.file(QStringLiteral("Porte/COM1"))));
  const QList<int> presenti = serial::presentPorts(cartella.path());
  EXPECT_TRUE(presenti.contains(16));
  EXPECT_FALSE(presenti.contains(1)) << "a link that leads nowhere";
  for (int numero = 1; numero <= 16; ++numero)
    EXPECT_EQ(presenti.contains(numero), QFileInfo::exists(serial::portPath(numero, cartella.path())))
        << numero;
}

TEST(PercorsoPorta, FuoriDaUnoASediciNonCEPorta) {
  const TemporaryFolder cartella;
  ASSERT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("Porte")));
  for (const int numero : {-1, 0, 17}) {
    cartella.write(QStringLiteral("Porte/COM%1").arg(numero), "");
    EXPECT_EQ(serial::portPath(numero, cartella.path()), QString()) << numero;
  }
}
