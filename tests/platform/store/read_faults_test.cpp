// A disk that does not hand out what it holds.

#include <sqlite3.h>

#include <QFile>

#include "platform/store/test_archive.h"
#include "platform/store/test_vfs.h"

namespace {

const QString kDisco = QStringLiteral("3043 Errore di lettura o scrittura sul disco.");

class DiscoCheNonLegge : public ArchiveOfTry {
 protected:
  DiscoCheNonLegge() { archive_.Close(); }
  /// "number description" of the failure of a step whose read number `colpo` fails; empty for none.
  template <typename Passo>
  QString conGuasto(int colpo, Passo&& passo) {
    vfs_.beforeRead([colpo](int numero) { return numero == colpo ? SQLITE_IOERR_READ : SQLITE_OK; });
    QString detto;
    try {
      passo();
    } catch (const Errore& errore) {
      detto = QString::number(errore.numero) + u' ' + errore.descrizione;
    }
    fermati();
    return detto;
  }
  /// Reads that a step makes.
  template <typename Passo>
  int letture(Passo&& passo) {
    int quante = 0;
    vfs_.beforeRead([&quante](int numero) {
      quante = numero;
      return SQLITE_OK;
    });
    passo();
    fermati();
    return quante;
  }
  void apri() { archive_ = workspace_.OpenDatabase(path_); }

  VfsOfTry vfs_;

 private:
  /// The disk is sound again before the file is closed.
  void fermati() {
    vfs_.beforeRead({});
    archive_.Close();
  }
};

TEST_F(DiscoCheNonLegge, LAperturaDiceIlDiscoENonIlFormato) {
  const auto passo = [this] { apri(); };
  const int quante = letture(passo);
  ASSERT_GT(quante, 1);
  for (int colpo = 1; colpo <= quante; ++colpo) EXPECT_EQ(conGuasto(colpo, passo), kDisco) << colpo;
  EXPECT_EQ(conGuasto(quante + 1, passo), QString());
}

TEST_F(DiscoCheNonLegge, UnElencoDiceIlDiscoENonIlFormato) {
  const auto passo = [this] {
    apri();
    archive_.OpenRecordset(u"SELECT * from TAB_ARTICOLI");
  };
  const int quante = letture(passo);
  ASSERT_GT(quante, 10);
  for (int colpo = 1; colpo <= quante; ++colpo) EXPECT_EQ(conGuasto(colpo, passo), kDisco) << colpo;
}

TEST_F(DiscoCheNonLegge, IlControlloDellePagineDiceIlDiscoENonIlFormato) {
  const auto passo = [this] {
    apri();
    archive_.CheckIntegrity();
  };
  const int quante = letture(passo);
  ASSERT_GT(quante, 50);
  for (int colpo = 1; colpo <= quante; ++colpo) EXPECT_EQ(conGuasto(colpo, passo), kDisco) << colpo;
}

}  // namespace
