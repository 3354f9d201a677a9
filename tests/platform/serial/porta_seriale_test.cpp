#include "platform/serial/porta_seriale.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTest>
#include <array>
#include <memory>

#include "sostegno/cartella_temporanea.h"

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
  ~Linea() { stacca(); }
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
  /// The other side goes away.
  void stacca() {
    for (int* capo : {&loro_, &noi_}) {
      if (*capo >= 0) ::close(*capo);
      *capo = -1;
    }
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
  PortaSeriale porta;
  QByteArray arrivati;
  porta.allArrivo([&](const QByteArray& byte) { arrivati += byte; });
  porta.apri(linea.percorso(), kVelocita);
  linea.manda("X89F");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivati.size() == 4; }));
  EXPECT_EQ(arrivati, "X89F");
}

TEST(PortaSeriale, ConInputLenUnoOgniCarattereEUnArrivo) {
  Linea linea;
  PortaSeriale porta;
  QByteArrayList arrivi;
  porta.InputLen(1);
  porta.allArrivo([&](const QByteArray& byte) { arrivi.append(byte); });
  porta.apri(linea.percorso(), kVelocita);
  linea.manda("a@b");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi.size() == 3; }));
  EXPECT_EQ(arrivi, (QByteArrayList{"a", "@", "b"}));
}

TEST(PortaSeriale, UnPassaggioDiEventiDentroLArrivoNonCambiaLOrdine) {
  Linea linea;
  PortaSeriale porta;
  QByteArray arrivati;
  QByteArray tutti;
  for (int i = 0; i < 2000; ++i) tutti.append(static_cast<char>('A' + i % 26));
  porta.InputLen(1);
  porta.allArrivo([&](const QByteArray& byte) {
    QCoreApplication::processEvents();
    arrivati += byte;
  });
  porta.apri(linea.percorso(), kVelocita);
  linea.manda(tutti.first(1000));
  linea.manda(tutti.sliced(1000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivati.size() == tutti.size(); }));
  EXPECT_EQ(arrivati, tutti);
}

TEST(PortaSeriale, IByteScrittiArrivanoDallAltraParteTuttiEOtto) {
  Linea linea;
  PortaSeriale porta;
  porta.apri(linea.percorso(), kVelocita);
  QByteArray tutti;
  for (int byte = 0; byte < 256; ++byte) tutti.append(static_cast<char>(byte));
  porta.scrivi(tutti);
  EXPECT_EQ(linea.riceve(tutti.size()), tutti);
}

TEST(PortaSeriale, QuandoLAltraParteSeNeVaLErroreEUnoELaPortaEChiusa) {
  Linea linea;
  PortaSeriale porta;
  int errori = 0;
  int numero = 0;
  porta.allErrore([&](const Errore& errore) {
    ++errori;
    numero = errore.numero;
    EXPECT_FALSE(porta.aperta());
  });
  porta.apri(linea.percorso(), kVelocita);
  linea.stacca();
  EXPECT_TRUE(QTest::qWaitFor([&] { return errori > 0; }));
  for (int passaggio = 0; passaggio < 1000; ++passaggio) QCoreApplication::processEvents();
  EXPECT_EQ(errori, 1);
  EXPECT_EQ(numero, errore::kPortaGuasta);
}

TEST(PortaSeriale, LAperturaDiUnTerminaleFintoNonEUnErroreDiLinea) {
  Linea linea;
  PortaSeriale porta;
  int errori = 0;
  porta.allErrore([&](const Errore&) { ++errori; });
  for (const int velocita : {1200, 2400, 4800, 9600, 19200}) {
    porta.apri(linea.percorso(), velocita);
    EXPECT_TRUE(porta.aperta());
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(errori, 0);
}

TEST(PortaSeriale, UnDispositivoAssenteEErrore8002) {
  const CartellaTemporanea cartella;
  PortaSeriale porta;
  EXPECT_EQ(numeroErrore([&] { porta.apri(cartella.file(QStringLiteral("niente")), kVelocita); }),
            errore::kPortaAssente);
  EXPECT_EQ(numeroErrore([&] { porta.apri(QString(), kVelocita); }), errore::kPortaAssente);
  EXPECT_FALSE(porta.aperta());
}

TEST(PortaSeriale, UnFileQualunqueNonEUnaPorta) {
  const CartellaTemporanea cartella;
  PortaSeriale porta;
  EXPECT_NE(numeroErrore([&] { porta.apri(cartella.scrivi(QStringLiteral("testo"), "abc"), kVelocita); }), 0);
  EXPECT_FALSE(porta.aperta());
}

TEST(PortaSeriale, ScrivereAPortaChiusaEErrore8018) {
  PortaSeriale porta;
  EXPECT_EQ(numeroErrore([&] { porta.scrivi("a"); }), errore::kPortaChiusa);
}

TEST(PortaSeriale, ChiusaDentroLArrivoNonDaAltro) {
  Linea linea;
  PortaSeriale porta;
  int arrivi = 0;
  porta.InputLen(1);
  porta.allArrivo([&](const QByteArray&) {
    ++arrivi;
    porta.chiudi();
  });
  porta.apri(linea.percorso(), kVelocita);
  linea.manda("abc");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi > 0; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(arrivi, 1);
}

TEST(PortaSeriale, PuoSparireDentroIlSuoStessoArrivo) {
  Linea linea;
  auto porta = std::make_unique<PortaSeriale>();
  int arrivi = 0;
  porta->InputLen(1);
  porta->allArrivo([&](const QByteArray&) {
    ++arrivi;
    porta.reset();
  });
  porta->apri(linea.percorso(), kVelocita);
  linea.manda("abc");
  EXPECT_TRUE(QTest::qWaitFor([&] { return arrivi > 0; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(arrivi, 1);
}

TEST(PortaSeriale, RiaprirlaChiudeQuellaDiPrima) {
  Linea prima;
  Linea seconda;
  PortaSeriale porta;
  porta.apri(prima.percorso(), kVelocita);
  porta.apri(seconda.percorso(), kVelocita);
  porta.scrivi("Z");
  EXPECT_EQ(seconda.riceve(1), "Z");
}

TEST(PercorsoPorta, IlCollegamentoNellaCartellaValePerPrimo) {
  const CartellaTemporanea cartella;
  Linea linea;
  ASSERT_TRUE(QDir(cartella.percorso()).mkdir(QStringLiteral("Porte")));
  ASSERT_TRUE(QFile::link(linea.percorso(), cartella.file(QStringLiteral("Porte/COM16"))));
  const QString percorso = serial::percorsoPorta(16, cartella.percorso());
  EXPECT_EQ(percorso, cartella.file(QStringLiteral("Porte/COM16")));
  PortaSeriale porta;
  porta.apri(percorso, kVelocita);
  porta.scrivi("ok");
  EXPECT_EQ(linea.riceve(2), "ok");
}

TEST(PercorsoPorta, UnCollegamentoVersoNienteRestaLaPortaENonSiApre) {
  const CartellaTemporanea cartella;
  ASSERT_TRUE(QDir(cartella.percorso()).mkdir(QStringLiteral("Porte")));
  ASSERT_TRUE(
      QFile::link(cartella.file(QStringLiteral("sparita")), cartella.file(QStringLiteral("Porte/COM1"))));
  const QString percorso = serial::percorsoPorta(1, cartella.percorso());
  EXPECT_EQ(percorso, cartella.file(QStringLiteral("Porte/COM1")));
  PortaSeriale porta;
  EXPECT_EQ(numeroErrore([&] { porta.apri(percorso, kVelocita); }), errore::kPortaAssente);
}

TEST(PercorsoPorta, SenzaCollegamentoValeIlPostoNellElenco) {
  const CartellaTemporanea cartella;
  const QStringList elenco = serial::elencoPorte();
  for (int numero = 1; numero <= 16; ++numero)
    EXPECT_EQ(serial::percorsoPorta(numero, cartella.percorso()), elenco.value(numero - 1)) << numero;
}

TEST(PercorsoPorta, FuoriDaUnoASediciNonCEPorta) {
  const CartellaTemporanea cartella;
  ASSERT_TRUE(QDir(cartella.percorso()).mkdir(QStringLiteral("Porte")));
  for (const int numero : {-1, 0, 17}) {
    cartella.scrivi(QStringLiteral("Porte/COM%1").arg(numero), "");
    EXPECT_EQ(serial::percorsoPorta(numero, cartella.percorso()), QString()) << numero;
  }
}
