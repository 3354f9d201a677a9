#include "core/screen_foot.h"

#include <gtest/gtest.h>

#include <QDialog>

#include "controls/outcome_bar.h"
#include "core/screen.h"
#include "sostegno/program_fixture.h"

namespace {

using Kind = OutcomeBar::Kind;

class Finestra : public Schermo<QDialog> {
 public:
  explicit Finestra(Contesto& contesto) : Schermo(contesto), barra(new OutcomeBar(this)) {}
  using Schermo::esegui;
  OutcomeBar* barra;
};

struct PiedeDelloSchermo : testing::Test {
  ProgramFixture scena;
  Finestra finestra{scena.contesto};
  OutcomeBar& barra = *finestra.barra;

  void avviso(const char* testo, Icon icona) { scena.user.MsgBox(QString::fromLatin1(testo), icona); }
};

}  // namespace

TEST_F(PiedeDelloSchermo, UnComandoNuovoToglieCioCheDisseQuelloDiPrima) {
  barra.tell(Kind::Done, QStringLiteral("Salvato"));
  finestra.esegui("a", [] {});
  EXPECT_EQ(barra.text(), QString());
}

TEST_F(PiedeDelloSchermo, UnComandoCheGuardaSoltantoLoLascia) {
  barra.tell(Kind::Plain, QStringLiteral("28 articoli"));
  finestra.esegui(
      "a", [] {}, Piede::Resta);
  EXPECT_EQ(barra.text(), QStringLiteral("28 articoli"));
}

TEST_F(PiedeDelloSchermo, UnComandoCheNonDiceNullaSiDiceColSuoAvvisoPiuGrave) {
  finestra.esegui("a", [this] {
    avviso("Attenzione", Icon::Warning);
    avviso("Errore  nella\ncomunicazione", Icon::Critical);
    avviso("Fallita", Icon::Critical);
  });
  scena.takeBoxes();
  EXPECT_EQ(barra.text(), QStringLiteral("Errore nella comunicazione"));
  EXPECT_EQ(barra.kind(), Kind::Failed);
}

TEST_F(PiedeDelloSchermo, CioCheIlComandoDiceValePiuDelSuoAvviso) {
  finestra.esegui("a", [this] {
    barra.tell(Kind::Done, QStringLiteral("Trasferiti 5.000 articoli"));
    avviso("TRASFERIMENTO RIUSCITO", Icon::Warning);
  });
  scena.takeBoxes();
  EXPECT_EQ(barra.text(), QStringLiteral("Trasferiti 5.000 articoli"));
  EXPECT_EQ(barra.kind(), Kind::Done);
}

TEST_F(PiedeDelloSchermo, UnErroreImprevistoSiLeggeAncheLi) {
  finestra.setObjectName(QStringLiteral("Form_Prova"));
  finestra.esegui("Cmd_Click", [] { throw Errore{9, QStringLiteral("Indice")}; });
  scena.takeBoxes();
  EXPECT_EQ(barra.text(), QStringLiteral("Error 9 (Indice) in procedure Cmd_Click of Modulo Form_Prova"));
  EXPECT_EQ(barra.kind(), Kind::Warning);
}

TEST_F(PiedeDelloSchermo, UnaDomandaNonEUnAvviso) {
  scena.user.answers(Answer::Yes);
  finestra.esegui(
      "a", [this] { scena.user.MsgBox(QStringLiteral("Continuare?"), Icon::Question, {}, Buttons::YesNo); });
  scena.takeBoxes();
  EXPECT_EQ(barra.text(), QString());
}

TEST_F(PiedeDelloSchermo, UnoSchermoCheSeNeVaDuranteIlComandoSiLasciaInPace) {
  auto* altra = new Finestra(scena.contesto);
  altra->esegui("a", [&] {
    avviso("Errore", Icon::Critical);
    delete altra;
  });
  scena.takeBoxes();
  EXPECT_EQ(barra.text(), QString());
}
