#include "core/command.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QPushButton>
#include <stdexcept>

#include "core/screen.h"
#include "platform/store/store.h"
#include "sostegno/guided_screen.h"
#include "sostegno/program_fixture.h"
#include "sostegno/troubles.h"

namespace {

using testing::ElementsAre;

const QString kProcedura = QStringLiteral("Prova_Click");
const QString kModulo = QStringLiteral("Form_Prova");

Box imprevisto(const QString& numeroEDescrizione) {
  return plainBox(QStringLiteral("Error ") + numeroEDescrizione +
                  QStringLiteral(" in procedure Prova_Click of Modulo Form_Prova"));
}
const Box kBloccato = imprevisto(QStringLiteral("3260 (Il database è bloccato da un altro programma.)"));

/// A person at an archive.
class ComandoProva : public testing::Test {
 protected:
  ComandoProva() {
    store::CopyArchive(QStringLiteral(GESTIONALE_APP "/QzDB.bck"), percorso_);
    archivio_ = programma_.workspace.OpenDatabase(percorso_);
  }
  /// Leaves a transaction open behind it.
  void scriviELascia(std::int64_t prezzo) {
    programma_.workspace.BeginTrans();
    archivio_.Execute(u"UPDATE TAB_ARTICOLI SET Prezzo =" + store::number(prezzo) + u" WHERE auto_id =1");
  }
  template <typename Corpo>
  void esegui(Corpo&& corpo) {
    comando(programma_.contesto, "Prova_Click", kModulo, std::forward<Corpo>(corpo));
  }
  static int prezzoIn(store::Database archivio) {
    return archivio.OpenRecordset(u"SELECT Prezzo from TAB_ARTICOLI where auto_id =1").field(0).int32();
  }
  /// As another program would find it.
  int prezzoSuDisco() {
    store::Workspace altra;
    return prezzoIn(altra.OpenDatabase(percorso_));
  }

  ProgramFixture programma_;
  const QString percorso_ = programma_.folder.file(QStringLiteral("archivio.mdb"));
  store::Database archivio_;
};

// The store at a command's end.

TEST_F(ComandoProva, LaFineConfermaCioCheIlComandoHaLasciatoAperto) {
  esegui([this] {
    scriviELascia(5);
    scriviELascia(7);
    EXPECT_EQ(prezzoSuDisco(), 0);
  });
  EXPECT_EQ(programma_.workspace.level(), 0);
  EXPECT_EQ(prezzoSuDisco(), 7);
}

TEST_F(ComandoProva, CioCheStavaApertoPrimaRestaAperto) {
  scriviELascia(5);
  esegui([this] { scriviELascia(7); });
  EXPECT_EQ(programma_.workspace.level(), 1);
  EXPECT_EQ(prezzoSuDisco(), 0);
  programma_.workspace.Rollback();
  EXPECT_EQ(prezzoIn(archivio_), 0);
}

TEST_F(ComandoProva, CioCheIlCorpoHaDisfattoNonTorna) {
  esegui([this] {
    scriviELascia(7);
    programma_.workspace.Rollback();
  });
  EXPECT_EQ(prezzoSuDisco(), 0);
}

TEST_F(ComandoProva, UnaConfermaCheNonRiesceSiDiceESiDisfa) {
  {
    const OtherProgram lettore(
        percorso_, {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
    esegui([this] { scriviELascia(7); });
    EXPECT_THAT(programma_.takeBoxes(), ElementsAre(kBloccato));
    EXPECT_EQ(programma_.workspace.level(), 0);
    EXPECT_EQ(prezzoIn(archivio_), 0);
  }
  esegui([this] { scriviELascia(9); });
  EXPECT_EQ(prezzoSuDisco(), 9);
}

TEST_F(ComandoProva, UnErroreSiDiceECioCheEraScrittoSiConferma) {
  esegui([this] {
    scriviELascia(7);
    throw Errore{61, QStringLiteral("Disco pieno")};
  });
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(imprevisto(QStringLiteral("61 (Disco pieno)"))));
  EXPECT_EQ(programma_.workspace.level(), 0);
  EXPECT_EQ(prezzoSuDisco(), 7);
}

TEST_F(ComandoProva, UnErroreConUnaConfermaCheNonRiesceSiDiconoEntrambi) {
  const OtherProgram lettore(percorso_,
                             {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
  esegui([this] {
    scriviELascia(7);
    throw std::runtime_error("guasto");
  });
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(kBloccato, imprevisto(QStringLiteral("51 (guasto)"))));
  EXPECT_EQ(programma_.workspace.level(), 0);
}

TEST_F(ComandoProva, UnComandoDentroUnAltroConfermaSoloIlSuo) {
  esegui([this] {
    scriviELascia(5);
    esegui([this] { scriviELascia(7); });
    EXPECT_EQ(programma_.workspace.level(), 1);
    EXPECT_EQ(prezzoSuDisco(), 0);
  });
  EXPECT_EQ(prezzoSuDisco(), 7);
}

// What a slot may fail with.

TEST_F(ComandoProva, NullaNeEsce) {
  esegui([] { throw std::bad_alloc(); });
  esegui([] { throw 7; });
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(imprevisto(QStringLiteral("51 (std::bad_alloc)")),
                                                  imprevisto(QStringLiteral("51 (Errore interno)"))));
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(ComandoProva, LaFineDelProgrammaNonSiDice) {
  esegui([this] { programma_.user.Terminate(); });
  EXPECT_TRUE(programma_.user.terminated());
  EXPECT_FALSE(BusyGuard::active());
}

// The person meanwhile.

TEST_F(ComandoProva, UnClicFattoNelFrattempoNonCominciaNulla) {
  QPushButton tasto;
  int premuto = 0;
  QObject::connect(&tasto, &QPushButton::clicked, [&] { ++premuto; });
  tasto.show();
  esegui([&] {
    EXPECT_TRUE(BusyGuard::active());
    postClick(tasto);
    programma_.user.DoEvents();
    // This one waits until the command is over.
    postClick(tasto);
  });
  QCoreApplication::processEvents();
  EXPECT_EQ(premuto, 0);
  EXPECT_FALSE(BusyGuard::active());
  postClick(tasto);
  QCoreApplication::processEvents();
  EXPECT_EQ(premuto, 1);
}

/// A screen with one slot.
class SchermoProva : public Schermo<QWidget> {
 public:
  explicit SchermoProva(Contesto& contesto) : Schermo(contesto) { setObjectName(kModulo); }
  void premi() {
    esegui("Prova_Click", [this] {
      contesto().utente.DoEvents();
      throw Errore{9, QStringLiteral("fuori")};
    });
  }
};

TEST_F(ComandoProva, UnoSchermoDaIlSuoNomeAlMessaggio) {
  SchermoProva schermo(programma_.contesto);
  schermo.premi();
  EXPECT_EQ(programma_.user.passes(), 1);
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(imprevisto(QStringLiteral("9 (fuori)"))));
}

}  // namespace
