#include "platform/text/previous_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFileInfo>

#include "platform/error.h"
#include "sostegno/temporary_folder.h"

namespace {

const QString kNome = QStringLiteral("negozio.dat");
const QString kPrecedente = QStringLiteral("negozio.dat.precedente");

TEST(FilePrecedente, SiTieneInteroQuantoELungo) {
  const TemporaryFolder cartella;
  QByteArray lungo(200000, 'a');
  lungo += "fine";
  KeepPrevious(cartella.write(kNome, lungo));
  EXPECT_EQ(cartella.read(kPrecedente), lungo);
  EXPECT_EQ(cartella.read(kNome), lungo);
}

TEST(FilePrecedente, PrendeIlPostoDiQuelloDiPrimaAncora) {
  const TemporaryFolder cartella;
  cartella.write(kPrecedente, QByteArray("vecchissimo e piu' lungo"));
  KeepPrevious(cartella.write(kNome, "vecchio"));
  EXPECT_EQ(cartella.read(kPrecedente), QByteArray("vecchio"));
}

TEST(FilePrecedente, UnTuboNonTrattieneIlProgramma) {
  const TemporaryFolder cartella;
  const QString tubo = cartella.file(kNome);
  ASSERT_EQ(::mkfifo(tubo.toUtf8().constData(), 0600), 0);
  try {
    KeepPrevious(tubo);
    FAIL() << "kept";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 75);
  }
  EXPECT_FALSE(QFileInfo::exists(cartella.file(kPrecedente)));
}

TEST(FilePrecedente, IlRestoParteDalByteChiesto) {
  const TemporaryFolder cartella;
  const QString vecchio = cartella.write(kNome, "0123456789");
  {
    TemporaryFile nuovo(cartella.file(QStringLiteral("nuovo")));
    nuovo.write(QByteArray("ab"));
    AppendRest(vecchio, 7, nuovo);
    nuovo.settle();
  }
  EXPECT_EQ(cartella.read(QStringLiteral("nuovo")), QByteArray("ab789"));
}

}  // namespace
