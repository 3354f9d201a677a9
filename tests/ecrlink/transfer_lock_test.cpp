#include "ecrlink/transfer_lock.h"

#include <gtest/gtest.h>
#include <utime.h>

#include <QDir>
#include <QFile>

#include "ecrlink/link_scene.h"

using namespace ecrlink;

namespace {

const QString kBlocco = QStringLiteral(".scambio-ecr.lock");
constexpr int kOccupata = 70;

int errorePreso() {
  try {
    const ScambioEsclusivo scambio;
    return 0;
  } catch (const Errore& errore) {
    return errore.numero;
  }
}

QString testoOccupata() {
  return QStringLiteral("Un altro programma sta scambiando dati con una cassa nella cartella ") +
         QDir::currentPath() + QStringLiteral(": attendere che abbia finito e riprovare.");
}

/// As a program leaves it that ends between making the file and writing into it, ten seconds ago.
void invecchia() {
  const utimbuf prima{::time(nullptr) - 10, ::time(nullptr) - 10};
  EXPECT_EQ(::utime(QFile::encodeName(kBlocco).constData(), &prima), 0);
}

class Blocco : public testing::Test {
 protected:
  ProgramFixture scena;
};

}  // namespace

TEST_F(Blocco, UnFileVuotoDiUnProgrammaMortoNonFermaNessuno) {
  scena.folder.write(kBlocco, {});
  invecchia();
  EXPECT_EQ(errorePreso(), 0);
}

TEST_F(Blocco, UnFileDiZeriDopoUnaMancanzaDiCorrenteNonFermaNessuno) {
  scena.folder.write(kBlocco, QByteArray(60, '\0'));
  invecchia();
  EXPECT_EQ(errorePreso(), 0);
}

TEST_F(Blocco, UnFileVuotoAppenaFattoEDiChiLoStaScrivendo) {
  scena.folder.write(kBlocco, {});
  EXPECT_EQ(errorePreso(), kOccupata);
}

TEST_F(Blocco, ChiTrovaUnAltroProgrammaLoDiceENonHaLaCartella) {
  std::optional<ScambioEsclusivo> scambio;
  {
    const ScambioEsclusivo altro;
    EXPECT_FALSE(prendiODillo(scambio, scena.contesto.utente));
    EXPECT_FALSE(scambio);
  }
  EXPECT_EQ(scena.takeBoxes(), std::vector{box(testoOccupata(), Icon::Warning)});
  EXPECT_TRUE(prendiODillo(scambio, scena.contesto.utente));
  EXPECT_TRUE(scambio);
}

TEST_F(Blocco, ConnettiNonChiudeIlTrasferimentoDiUnAltroProgramma) {
  TestTill cassa;
  LinkScreen schermo(scena.contesto);
  schermo.typeAddress(cassa.address());
  {
    const ScambioEsclusivo altro;
    schermo.click("CmdInviaModECR");
  }
  EXPECT_EQ(scena.takeBoxes(), std::vector{criticalBox(QStringLiteral("Errore 70 - ") + testoOccupata())});
  EXPECT_EQ(callsOf(cassa), QStringList());
  EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
  schermo.click("CmdInviaModECR");
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
  EXPECT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
}
