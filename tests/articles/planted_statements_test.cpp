// What a list, a till or a person may write so that it would be a piece of a statement.

#include <gmock/gmock.h>

#include "articles/archive_fields.h"
#include "articles/article_database.h"
#include "articles/article_editing.h"
#include "articles/ean_index.h"
#include "articles/guided_archive.h"
#include "articles/import_fixture.h"
#include "articles/plu_image.h"
#include "config/image.h"

namespace {

using testing::ElementsAre;
using Tipo = articles::EsitoImport::Tipo;

QString sintassi(const QString& pezzo) {
  return QStringLiteral("Errore di sintassi (operatore mancante) nell'espressione della query '%1'.")
      .arg(pezzo);
}

/// An archive of 5000 articles that has to be at the end what it was in the beginning.
struct Innesto : ImportArticoli {
  Fotografia prima;

  void SetUp() override {
    ImportArticoli::SetUp();
    articles::ChiudiDatabase();
    bottega.openFullArchive();
    prima = fotografia();
  }
  void TearDown() override {
    EXPECT_TRUE(fotografia() == prima);
    EXPECT_TRUE(fotografiaDaFuori() == prima);
    EXPECT_EQ(bottega.workspace.level(), 0);
  }
};

// Lines of a list.

struct Riga {
  const char* ean;
  const char* descrizione;
  const char* reparto;
  /// Where the statement stops being one.
  const char* pezzo;
};
void PrintTo(const Riga& riga, std::ostream* uscita) {
  *uscita << riga.ean << ' ' << riga.descrizione << ' ' << riga.reparto;
}

class InnestoInUnaLista : public Innesto, public testing::WithParamInterface<Riga> {};

TEST_P(InnestoInUnaLista, AnnullaLImportColMessaggioDelloStatement) {
  const Riga& riga = GetParam();
  const auto esito = importa(rigaCsv(1, "8888888888888", "A1", "PRIMA", "1,00", "1") +
                             rigaCsv(2, riga.ean, "A2", riga.descrizione, "1,00", riga.reparto));
  EXPECT_EQ(esito.tipo, Tipo::Annullato);
  EXPECT_EQ(esito.righe, 1);
  EXPECT_THAT(
      bottega.user.boxes(),
      ElementsAre(criticalBox(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3075\r\n") +
                              sintassi(QString::fromUtf8(riga.pezzo))),
                  riuscita()));
}

INSTANTIATE_TEST_SUITE_P(
    Righe, InnestoInUnaLista,
    testing::Values(
        Riga{"8001", "UNO", "1,ID_Position='1 OR 1'", "1,ID_Position='1 OR 1',Filler =' ' WHERE auto_id =2"},
        Riga{"8001", "UNO", "1,rowid=9999", "1,rowid=9999,Filler =' ' WHERE auto_id =2"},
        Riga{"8001", "UNO", "1,Prezzo=2", "1,Prezzo=2,Filler =' ' WHERE auto_id =2"},
        Riga{"8001", "UNO", "(SELECT count(*) FROM TAB_ARTICOLI a,TAB_ARTICOLI b,TAB_ARTICOLI c)",
             "(SELECT count(*) FROM TAB_ARTICOLI a,TAB_ARTICOLI b,TAB_ARTICOLI c),Filler =' ' ..."},
        Riga{"8001", "UNO", "Prezzo", "Prezzo,Filler =' ' WHERE auto_id =2"},
        Riga{"8001", "PANE',ID_Position='1 OR 1", "1",
             ",ID_Position='1 OR 1',Prezzo =100,Reparto =1,Filler =' ' WHERE auto_id =2"},
        Riga{"8001", "PANE'&(SELECT Descrizione FROM TAB_ARTICOLI)&'", "1",
             "&(SELECT Descrizione FROM TAB_ARTICOLI)&'',Prezzo =100,Reparto =1,Filler =' ' WH..."}));

TEST_F(Innesto, NellEanDiUnaListaAncheLaRicercaSiFerma) {
  EXPECT_EQ(importa(rigaCsv(1, "' OR 1 OR '", "A1", "UNO", "1,00", "1")).tipo, Tipo::Annullato);
  EXPECT_THAT(
      bottega.user.boxes(),
      ElementsAre(criticalBox(QStringLiteral("Errore GetCodiceEAN 3075 - ") +
                              sintassi(QStringLiteral("OR 1 OR '';"))),
                  criticalBox(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3075\r\n") +
                              sintassi(QStringLiteral("OR 1 OR '', Codice_Articolo ='A1',Descrizione "
                                                      "='UNO',Prezzo =100,Reparto =1,Fill..."))),
                  riuscita()));
}

TEST_F(Innesto, NellaPosizioneDiUnaListaNonSiLegge) {
  EXPECT_EQ(importa(rigaCsv(1, {}, "A", "B", "1,00", "1").replace(0, 1, "1 OR 1")).tipo, Tipo::Interrotto);
}

// A row whose number is no number, from an archive that somebody else has made.

struct RigaScelta {
  const char* numero;
  /// Number and text of the failure.
  const char* errore;
};
void PrintTo(const RigaScelta& riga, std::ostream* uscita) {
  *uscita << riga.numero;
}

class InnestoNellaRigaScelta : public Innesto, public testing::WithParamInterface<RigaScelta> {};

TEST_P(InnestoNellaRigaScelta, FaFallireIlSalvataggioENonToccaNessunaRiga) {
  const QString numero = QString::fromUtf8(GetParam().numero);
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE',Prezzo =100,Reparto =2,"
                                 "ID_Position =\"%1\" WHERE auto_id =1")
                      .arg(numero));
  prima = fotografia();
  bottega.screens.registra<Form_ArchivioArticoli>();
  const GuidedArchive schermo(bottega);
  schermo.clickCell(1, 1);
  ASSERT_EQ(schermo.text(QStringLiteral("vkTextBoxPLUid")), numero);
  schermo.click(QStringLiteral("Cmd_Modifica"));
  EXPECT_THAT(bottega.user.boxes(),
              ElementsAre(criticalBox(QStringLiteral("Errore nella modifica articoli .\nErrore n° ") +
                                      QString::fromUtf8(GetParam().errore))));
}

INSTANTIATE_TEST_SUITE_P(
    Righe, InnestoNellaRigaScelta,
    testing::Values(
        RigaScelta{"1 OR 1",
                   "3075\nErrore di sintassi (operatore mancante) nell'espressione della query '1 OR 1'."},
        RigaScelta{"auto_id",
                   "3075\nErrore di sintassi (operatore mancante) nell'espressione della query 'auto_id'."},
        RigaScelta{"-1", "3075\nErrore di sintassi (operatore mancante) nell'espressione della query '-1'."},
        RigaScelta{"1.0",
                   "3075\nErrore di sintassi (operatore mancante) nell'espressione della query '1.0'."},
        RigaScelta{"(SELECT max(auto_id) FROM TAB_ARTICOLI)",
                   "3075\nErrore di sintassi (operatore mancante) nell'espressione della query '(SELECT "
                   "max(auto_id) FROM TAB_ARTICOLI)'."},
        RigaScelta{"1; DELETE FROM TAB_ARTICOLI",
                   "3075\nCaratteri trovati dopo la fine dell'istruzione SQL: 'DELETE FROM TAB_ARTICOLI'."},
        RigaScelta{"'1'", "3464\nTipo di dati non corrispondente nell'espressione criterio."}));

// What a person types.

struct InnestoNelloSchermo : Innesto {
  std::unique_ptr<GuidedArchive> schermo;

  void SetUp() override {
    Innesto::SetUp();
    bottega.execute(
        QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE',Prezzo =100,Reparto =2 WHERE "
                       "auto_id =1"));
    prima = fotografia();
    bottega.screens.registra<Form_ArchivioArticoli>();
    schermo = std::make_unique<GuidedArchive>(bottega);
    schermo->clickCell(1, 1);
  }
  void salva(const QString& campo, const QString& testo, const QString& pezzo) {
    schermo->type(campo, testo);
    schermo->click(QStringLiteral("Cmd_Modifica"));
    EXPECT_THAT(bottega.user.takeBoxes(),
                ElementsAre(criticalBox(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3075\n") +
                                        sintassi(pezzo))));
  }
};

TEST_F(InnestoNelloSchermo, InUnCampoDiTestoFaFallireIlSalvataggio) {
  salva(
      QStringLiteral("vkTextBoxDesc"), QStringLiteral("pane',id_position='1 or 1"),
      QStringLiteral(",ID_POSITION='1 OR 1', Prezzo = 100,Codice_EAN ='',VarPrezzo = false,PrezzoZero ..."));
  schermo->clickCell(1, 1);
  salva(
      QStringLiteral("vkTextBoxCodEan"), QStringLiteral("',Prezzo='9"),
      QStringLiteral(",Prezzo='9',VarPrezzo = false,PrezzoZero = false,Reparto = 2,Filler =' ' WHERE a..."));
  schermo->clickCell(1, 1);
  salva(
      QStringLiteral("vkTextBoxCodArt"), QStringLiteral("',Prezzo='9"),
      QStringLiteral(",Prezzo='9',Descrizione = 'PANE', Prezzo = 100,Codice_EAN ='',VarPrezzo = false,..."));
}

TEST_F(InnestoNelloSchermo, InUnFiltroNonElencaNulla) {
  const QStringList elenco = schermo->column(1);
  schermo->click(QStringLiteral("Cmd_Reset"));
  schermo->type(QStringLiteral("vkTextBoxDesc"), QStringLiteral("' OR 'a' LIKE '"));
  schermo->click(QStringLiteral("Vmd_Cerca"));
  EXPECT_THAT(bottega.user.boxes(),
              ElementsAre(criticalBox(QStringLiteral("3075 - ") +
                                      sintassi(QStringLiteral("OR 'a' LIKE '*' ORDER BY Codice_EAN ASC")))));
  EXPECT_EQ(schermo->column(1), elenco);
}

// What a till hands over.

class InnestoSullaCassa : public Innesto {
 protected:
  void salva(const config::Campo& campo, const char16_t* testo, const QString& pezzo) {
    ASSERT_EQ(articles::RiempiPLU(bottega.user), 0);
    config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 1234), campo,
                        QString::fromUtf16(testo));
    EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
    EXPECT_THAT(bottega.user.takeBoxes(),
                ElementsAre(criticalBox(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3075\n") +
                                        sintassi(pezzo))));
  }
};

TEST_F(InnestoSullaCassa, NellaDescrizioneAnnullaTutto) {
  salva(
      config::plu::kDescrizione, u"PANE',ID_Position='1",
      QStringLiteral(",ID_Position='1',Codice_EAN ='80',Prezzo =45658,Reparto =35,varprezzo = false,pr..."));
}

TEST_F(InnestoSullaCassa, NellEanAnnullaTutto) {
  salva(
      config::plu::kCodiceEAN, u"',Prezzo='1",
      QStringLiteral(",Prezzo='1',Prezzo =45658,Reparto =35,varprezzo = false,prezzozero = true WHERE ..."));
}

// Insertion and deletion.

struct InnestoNegliArticoli : Innesto {
  struct Schermo : articles::SchermoArticoli {
    void BloccaComandi(bool) override {}
    void Cancella_TextBox() override { ++riusciti; }
    void Tasto_Refresh() override { ++riusciti; }
    int riusciti = 0;
  } schermo;

  Box domanda(const QString& ean) {
    return {QStringLiteral("Attenzione questa operazione comporterà l'eliminazione dell'articolo con codice "
                           "EAN [%1]. Continuare ?")
                .arg(ean),
            Icon::None, QStringLiteral("Cancellazione articolo"), Buttons::OkCancel, Preset::Last};
  }
};

TEST_F(InnestoNegliArticoli, NellEanDaCancellareNonCancellaNulla) {
  for (const int assegnato : {0, 1}) {
    varGlobal().FlagVariazioni = static_cast<std::int16_t>(assegnato);
    bottega.user.answers(Answer::Ok);
    articles::CampiArticolo campi;
    campi.ean = QStringLiteral("' OR 1 OR '");
    EXPECT_FALSE(articles::EliminaSelezionato(campi, bottega.contesto, schermo));
    EXPECT_THAT(
        bottega.user.takeBoxes(),
        ElementsAre(domanda(campi.ean),
                    criticalBox(QStringLiteral("Errore nell' eliminazione articoli Errore n° 3075\n") +
                                sintassi(QStringLiteral("OR 1 OR '';")))));
    EXPECT_EQ(schermo.riusciti, 0);
    EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_VARIAZIONI")), 0);
  }
}

TEST_F(InnestoNegliArticoli, NellaDescrizioneDiUnoNuovoNonNeFaUnAltro) {
  articles::CampiArticolo campi{.id = {},
                                .ean = QStringLiteral("8009999999999"),
                                .codice = QStringLiteral("PA1"),
                                .descrizione = QStringLiteral("x',1,1,' '),('1','2','x"),
                                .prezzo = QStringLiteral("1"),
                                .reparto = QStringLiteral("1"),
                                .varPrezzo = QStringLiteral("N"),
                                .prezzoZero = QStringLiteral("N")};
  EXPECT_FALSE(articles::InserimentoArticolo(campi, bottega.contesto, schermo));
  EXPECT_THAT(bottega.user.takeBoxes(),
              ElementsAre(criticalBox(QStringLiteral("Errore nell' inserimento articoli Errore n° 3075\n") +
                                      sintassi(QStringLiteral(",1,1,' '),('1','2','X',100,1,' ');")))));
}

TEST_F(InnestoNegliArticoli, NellEanNonSpostaLePosizioni) {
  EXPECT_EQ(articles::UpdateIDPosition(QStringLiteral("' OR 1 OR '"), 7, bottega.user, nullptr), -1);
  EXPECT_THAT(
      bottega.user.takeBoxes(),
      ElementsAre(criticalBox(QStringLiteral("Errore nell' inserimento dati nella TAB_ARTICOLI n° 3075\n") +
                              sintassi(QStringLiteral("OR 1 OR '';")))));
  EXPECT_EQ(articles::InsertEanNumerici(QStringLiteral("x',1,2,'y'),('z"), 1, 2, bottega.user), -1);
  EXPECT_THAT(bottega.user.takeBoxes(),
              ElementsAre(criticalBox(
                  QStringLiteral("Errore nell' inserimento dati nella TAB_EAN_NUMERICI n° 3075\n") +
                  sintassi(QStringLiteral(",1,2,'y'),('z',1,2,'');")))));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_EAN_NUMERICI")), 0);
}

TEST_F(InnestoNegliArticoli, NellEanCercatoNonTrovaUnDoppione) {
  EXPECT_EQ(articles::GetCodiceEAN(1, QStringLiteral("' OR 1 OR '"), bottega.user), articles::kEanLibero);
  EXPECT_THAT(bottega.user.takeBoxes(),
              ElementsAre(criticalBox(QStringLiteral("Errore GetCodiceEAN 3075 - ") +
                                      sintassi(QStringLiteral("OR 1 OR '';")))));
}

}  // namespace
