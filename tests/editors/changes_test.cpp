#include "editors/changes.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <utility>

#include "config/configuration_file.h"
#include "editors/recorded_editor.h"

namespace {

constexpr qint64 kByteFile = 245114;

struct Modifiche : testing::Test {
  ProgramFixture bottega;
  QStringList chiamate;
  VarGestionePRG& prg = varGestionePRG();

  Modifiche() {
    config::azzeraConfigurazione();
    registerRecordedEditors(bottega, chiamate);
    prg.PathConfigurazione = bottega.folder.file(QStringLiteral("negozio.dat"));
  }
  void apri(const QStringList& schermate = kEditorScreens) {
    for (const QString& nome : schermate) bottega.screens.carica(nome, bottega.contesto);
  }
  bool tutteSpente() const {
    return prg.ModificaNegozio == 0 && prg.ModificaReparti == 0 && prg.ModificaPLU == 0 &&
           prg.ModificaIVA == 0 && prg.ModificaValuta == 0 && prg.ModificaOperatori == 0 &&
           prg.ModificaOpzioni == 0;
  }
};

TEST_F(Modifiche, ConRepartiEIvaModificatiSoloIRepartiVannoInMemoriaEEntrambiISegniSiSpengono) {
  apri();
  prg.ModificaReparti = kVero;
  prg.ModificaIVA = kVero;
  EXPECT_TRUE(editors::SalvaModificati(bottega.contesto).salvato);
  EXPECT_EQ(chiamate, QStringList{QStringLiteral("salva Form_Reparti")});
  EXPECT_TRUE(tutteSpente());
  EXPECT_EQ(QFileInfo(prg.PathConfigurazione).size(), kByteFile);
}

TEST_F(Modifiche, SiDiceDiQualiEditorApertiLeModificheNonSonoTraLeSalvate) {
  apri({QStringLiteral("Form_IVA"), QStringLiteral("Form_OPE"), QStringLiteral("Form_OpzioniGen")});
  for (const char* nome : {"Form_IVA", "Form_OPE", "Form_OpzioniGen"})
    bottega.screens.trova(QLatin1String(nome))
        ->setWindowTitle(QStringLiteral("Titolo ") + QLatin1String(nome));
  // The departments' screen has been closed, and nobody touched the options.
  prg.ModificaReparti = kVero;
  prg.ModificaIVA = kVero;
  prg.ModificaValuta = kVero;
  prg.ModificaOperatori = kVero;
  const editors::EsitoSalvataggio esito = editors::SalvaModificati(bottega.contesto);
  EXPECT_TRUE(esito.salvato);
  EXPECT_TRUE(chiamate.isEmpty());
  EXPECT_EQ(esito.perse, (QStringList{QStringLiteral("Titolo Form_IVA"), QStringLiteral("Titolo Form_OPE")}));
  prg.ModificaIVA = kVero;
  EXPECT_EQ(editors::SalvaModificati(bottega.contesto).perse, QStringList());
}

struct Precedenza {
  Bandiera VarGestionePRG::*segno;
  const char* schermata;
};

TEST_F(Modifiche, LOrdineVaDalNegozioAlleOpzioniConGliOperatoriPrimaDelleValute) {
  apri();
  const std::vector<Precedenza> ordine{{&VarGestionePRG::ModificaNegozio, "Form_Negozio"},
                                       {&VarGestionePRG::ModificaReparti, "Form_Reparti"},
                                       {&VarGestionePRG::ModificaPLU, "Form_PLU"},
                                       {&VarGestionePRG::ModificaIVA, "Form_IVA"},
                                       {&VarGestionePRG::ModificaOperatori, "Form_OPE"},
                                       {&VarGestionePRG::ModificaValuta, "Form_Valuta"},
                                       {&VarGestionePRG::ModificaOpzioni, "Form_OpzioniGen"}};
  for (std::size_t primo = 0; primo < ordine.size(); ++primo) {
    for (std::size_t i = primo; i < ordine.size(); ++i) prg.*ordine[i].segno = kVero;
    chiamate.clear();
    editors::SalvaModificati(bottega.contesto);
    EXPECT_EQ(chiamate, QStringList{QStringLiteral("salva ") + QLatin1String(ordine[primo].schermata)});
    EXPECT_TRUE(tutteSpente()) << ordine[primo].schermata;
  }
}

TEST_F(Modifiche, UnEditorGiaChiusoNonHaPiuNullaDaSalvareMaIlFileSiScrive) {
  apri({QStringLiteral("Form_IVA")});
  prg.ModificaReparti = kVero;
  EXPECT_TRUE(editors::SalvaModificati(bottega.contesto).salvato);
  EXPECT_TRUE(chiamate.isEmpty());
  EXPECT_TRUE(tutteSpente());
  EXPECT_TRUE(QFileInfo::exists(prg.PathConfigurazione));
}

TEST_F(Modifiche, UnSalvataggioFallitoSiDiceELasciaISegni) {
  apri();
  prg.PathConfigurazione = bottega.folder.file(QStringLiteral("manca/negozio.dat"));
  prg.ModificaReparti = kVero;
  prg.ModificaOpzioni = kVero;
  EXPECT_FALSE(editors::SalvaModificati(bottega.contesto).salvato);
  const std::vector<Box> visti = bottega.takeBoxes();
  ASSERT_EQ(visti.size(), 1U);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Error 76 (")));
  EXPECT_TRUE(
      visti[0].text.endsWith(QStringLiteral(") in procedure SalvaConfigurazione of Modulo CommonForKora")));
  EXPECT_EQ(prg.ModificaReparti, kVero);
  EXPECT_EQ(prg.ModificaOpzioni, kVero);
}

/// An editor that has typed into both parts of what it saves.
class EditorCheScrive : public RecordedEditor {
 public:
  using RecordedEditor::RecordedEditor;
  void salvaInMemoria() override {
    config::bloccoNegozio()[0] = 'B';
    config::immagineProgrammazione().record(config::kReparto, 0)[0] = 'B';
  }
};

TEST_F(Modifiche, UnSalvataggioFallitoLasciaLaMemoriaComEraEUnoRiuscitoLaTiene) {
  bottega.screens.registra(QStringLiteral("Form_Reparti"), [this](Contesto&) {
    return new EditorCheScrive(QStringLiteral("Form_Reparti"), chiamate);
  });
  apri({QStringLiteral("Form_Reparti")});
  prg.ModificaReparti = kVero;
  const QString buono =
      std::exchange(prg.PathConfigurazione, bottega.folder.file(QStringLiteral("manca/negozio.dat")));
  EXPECT_FALSE(editors::SalvaModificati(bottega.contesto).salvato);
  EXPECT_EQ(bottega.takeBoxes().size(), 1U);
  EXPECT_EQ(config::bloccoNegozio()[0], 0);
  EXPECT_EQ(config::immagineProgrammazione().record(config::kReparto, 0)[0], 0);
  prg.PathConfigurazione = buono;
  EXPECT_TRUE(editors::SalvaModificati(bottega.contesto).salvato);
  EXPECT_EQ(config::bloccoNegozio()[0], 'B');
  EXPECT_EQ(config::immagineProgrammazione().record(config::kReparto, 0)[0], 'B');
}

TEST_F(Modifiche, IlRaccontoDiceQuantiRecordSonoCambiatiNelFile) {
  editors::SalvaModificati(bottega.contesto);
  config::immagineProgrammazione().record(config::kReparto, 0)[0] = 'A';
  config::immagineProgrammazione().record(config::kReparto, 79)[41] = 1;
  config::immagineProgrammazione().record(config::kIVA, 3)[25] = 22;
  EXPECT_EQ(editors::SalvaModificati(bottega.contesto).racconto,
            QStringLiteral("Salvato: 2 reparti, 1 aliquota"));
  EXPECT_EQ(editors::SalvaModificati(bottega.contesto).racconto,
            QStringLiteral("Salvato: nessuna differenza nel file"));
}

TEST_F(Modifiche, LaRicaricaRiempieGliEditorApertiNelSuoOrdineESpegneSeiSegni) {
  apri();
  for (const auto segno :
       {&VarGestionePRG::ModificaNegozio, &VarGestionePRG::ModificaReparti, &VarGestionePRG::ModificaPLU,
        &VarGestionePRG::ModificaIVA, &VarGestionePRG::ModificaOperatori, &VarGestionePRG::ModificaValuta,
        &VarGestionePRG::ModificaOpzioni})
    prg.*segno = kVero;
  editors::RicaricaEditor(bottega.contesto);
  EXPECT_EQ(chiamate,
            (QStringList{QStringLiteral("ricarica Form_Reparti"), QStringLiteral("ricarica Form_PLU"),
                         QStringLiteral("ricarica Form_IVA"), QStringLiteral("ricarica Form_OPE"),
                         QStringLiteral("ricarica Form_OpzioniGen"), QStringLiteral("ricarica Form_Valuta"),
                         QStringLiteral("ricarica Form_Negozio")}));
  EXPECT_EQ(prg.ModificaNegozio, kVero);
  prg.ModificaNegozio = kFalso;
  EXPECT_TRUE(tutteSpente());
}

TEST_F(Modifiche, SalvareUnEditorSpegneSoloIlSuoSegno) {
  apri();
  prg.ModificaReparti = kVero;
  prg.ModificaIVA = kVero;
  auto& iva = dynamic_cast<editors::Editor&>(*bottega.screens.trova(QStringLiteral("Form_IVA")));
  EXPECT_TRUE(editors::SalvaEditor(iva, prg.ModificaIVA, bottega.contesto).salvato);
  EXPECT_EQ(chiamate, QStringList{QStringLiteral("salva Form_IVA")});
  EXPECT_EQ(prg.ModificaIVA, kFalso);
  EXPECT_EQ(prg.ModificaReparti, kVero);
}

TEST_F(Modifiche, LaDomandaHaTestoTitoloEBottoni) {
  bottega.user.answers(Answer::Yes).answers(Answer::No);
  EXPECT_TRUE(editors::chiediDiSalvare(bottega.contesto));
  EXPECT_FALSE(editors::chiediDiSalvare(bottega.contesto));
  const Box domanda{
      QStringLiteral("Attenzione sono stati modificati dei parametri di configurazione: salvare "
                     "prima di proseguire ?"),
      Icon::Question, QStringLiteral("ATTENZIONE"), Buttons::YesNo};
  expectBoxes(bottega, {domanda, domanda});
}

}  // namespace
