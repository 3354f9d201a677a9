#include "articles/archive_save.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <array>
#include <utility>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "controls/FlexGrid.h"
#include "sostegno/troubles.h"

using namespace articles;

namespace {

struct SalvaModifiche : testing::Test {
  BackRoom bottega;
  FlexGrid griglia;
  int aggiornamenti = 0;
  int livelloAllAggiornamento = 0;

  void SetUp() override {
    bottega.openArchive();
    bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 2"));
    writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 2, true, true},
                            {QStringLiteral("8002"), QStringLiteral("LATTE"), 200, 3, false, false}});
  }
  static CampiArticolo campi() {
    return {.id = QStringLiteral("1"),
            .ean = QStringLiteral("8009"),
            .codice = QStringLiteral("cod 9"),
            .descrizione = QStringLiteral("caffè € macinato"),
            .prezzo = QStringLiteral("12,55"),
            .reparto = QStringLiteral("80"),
            .varPrezzo = QStringLiteral("n"),
            .prezzoZero = QStringLiteral("x")};
  }
  EsitoModifica salva(const CampiArticolo& scritti) {
    // The list passes events at each record: twice for two articles.
    bottega.user.onPass = [this, prima = true]() mutable {
      if (std::exchange(prima, !prima)) {
        ++aggiornamenti;
        livelloAllAggiornamento = bottega.workspace.level();
      }
    };
    return tasto_modifica(scritti, griglia, bottega.contesto);
  }
  QString campo(const QString& nome, int slot = 1) {
    return bottega.value(QStringLiteral("SELECT %1 from TAB_ARTICOLI where auto_id =%2").arg(nome).arg(slot));
  }
  bool bandiera(const QString& nome) {
    return varGlobal()
        .DB_Articoli
        .OpenRecordset(asWritten(QStringLiteral("SELECT %1 from TAB_ARTICOLI where auto_id =1").arg(nome)))
        .field(0)
        .boolean();
  }
};

TEST_F(SalvaModifiche, ScriveICampiSulloSlotEToglieIlSegno) {
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id =1"));
  EXPECT_EQ(salva(campi()), EsitoModifica::Salvata);
  EXPECT_EQ(campo(QStringLiteral("Codice_EAN")), QStringLiteral("8009"));
  EXPECT_EQ(campo(QStringLiteral("Codice_Articolo")), QStringLiteral("cod 9"));
  EXPECT_EQ(campo(QStringLiteral("Descrizione")), QStringLiteral("CAFFÈ € MACINATO"));
  EXPECT_EQ(campo(QStringLiteral("Prezzo")), QStringLiteral("1255"));
  EXPECT_EQ(campo(QStringLiteral("Reparto")), QStringLiteral("80"));
  EXPECT_EQ(campo(QStringLiteral("Filler")), QStringLiteral(" "));
  EXPECT_FALSE(bandiera(QStringLiteral("VarPrezzo")));
  EXPECT_FALSE(bandiera(QStringLiteral("PrezzoZero")));
  EXPECT_EQ(campo(QStringLiteral("Descrizione"), 2), QStringLiteral("LATTE"));
}

TEST_F(SalvaModifiche, LeEsseDiventanoVero) {
  CampiArticolo scritti = campi();
  scritti.varPrezzo = QStringLiteral("s");
  scritti.prezzoZero = QStringLiteral("S");
  EXPECT_EQ(salva(scritti), EsitoModifica::Salvata);
  EXPECT_TRUE(bandiera(QStringLiteral("VarPrezzo")));
  EXPECT_TRUE(bandiera(QStringLiteral("PrezzoZero")));
}

TEST_F(SalvaModifiche, LAggiornamentoVienePrimaDellaConferma) {
  salva(campi());
  EXPECT_EQ(aggiornamenti, 1);
  EXPECT_EQ(livelloAllAggiornamento, 1);
  EXPECT_EQ(griglia.TextMatrix(1, 3), QStringLiteral("CAFFÈ € MACINATO"));
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(SalvaModifiche, UnCampoRifiutatoNonEsegueNulla) {
  CampiArticolo scritti = campi();
  scritti.descrizione.clear();
  EXPECT_EQ(salva(scritti), EsitoModifica::Fermata);
  expectBoxes(bottega,
              {box(QStringLiteral("Attenzione il campo DESCRIZIONE non e' valorizzato"), Icon::Information)});
  EXPECT_EQ(aggiornamenti, 0);
  EXPECT_EQ(campo(QStringLiteral("Prezzo")), QStringLiteral("100"));
}

TEST_F(SalvaModifiche, ApostrofoNellaDescrizioneAnnullaLaModifica) {
  CampiArticolo scritti = campi();
  scritti.descrizione = QStringLiteral("L'ACQUA");
  EXPECT_EQ(salva(scritti), EsitoModifica::Fallita);
  expectBoxes(bottega,
              {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3075\n*"), Icon::Critical)});
  EXPECT_EQ(aggiornamenti, 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(campo(QStringLiteral("Descrizione")), QStringLiteral("PANE"));
}

TEST_F(SalvaModifiche, ApostrofoNelCodiceONellEanAnnullaLaModifica) {
  for (QString CampiArticolo::*dove : {&CampiArticolo::ean, &CampiArticolo::codice}) {
    CampiArticolo scritti = campi();
    scritti.*dove = QStringLiteral("A'B");
    EXPECT_EQ(salva(scritti), EsitoModifica::Fallita);
    expectBoxes(bottega,
                {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3075\n*"), Icon::Critical)});
  }
  EXPECT_EQ(campo(QStringLiteral("Codice_EAN")), QStringLiteral("8001"));
}

TEST_F(SalvaModifiche, PercentoAsteriscoParentesiEFineRigaSiScrivonoComeSono) {
  CampiArticolo scritti = campi();
  scritti.ean = QStringLiteral("*?#[a]%");
  scritti.codice = QStringLiteral("\"[b]\";--");
  scritti.descrizione = QStringLiteral("UNO%\r\nDUE [*]");
  EXPECT_EQ(salva(scritti), EsitoModifica::Salvata);
  EXPECT_EQ(campo(QStringLiteral("Codice_EAN")), scritti.ean);
  EXPECT_EQ(campo(QStringLiteral("Codice_Articolo")), scritti.codice);
  EXPECT_EQ(campo(QStringLiteral("Descrizione")), scritti.descrizione);
}

TEST_F(SalvaModifiche, SenzaUnaRigaSceltaLIstruzioneFallisceConIlSuoMessaggio) {
  CampiArticolo scritti = campi();
  scritti.id.clear();
  EXPECT_EQ(salva(scritti), EsitoModifica::Fallita);
  expectBoxes(bottega,
              {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° *"), Icon::Critical)});
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Codice_EAN ='8009'")), 0);
}

TEST_F(SalvaModifiche, UnSecondoArticoloColMedesimoEanSiSalvaESenzaGiornale) {
  CampiArticolo scritti = campi();
  scritti.ean = QStringLiteral("8002");
  varGlobal().FlagVariazioni = 1;
  EXPECT_EQ(salva(scritti), EsitoModifica::Salvata);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Codice_EAN ='8002'")), 2);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_VARIAZIONI")), 0);
}

TEST_F(SalvaModifiche, IlPrezzoSiArrotondaAlCentesimo) {
  const std::array casi{std::pair{u"0,1", u"10"},           std::pair{u"19,99", u"1999"},
                        std::pair{u"99999,99", u"9999999"}, std::pair{u"7", u"700"},
                        std::pair{u"12.5", u"1250"},        std::pair{u",", u"0"}};
  for (const auto& [testo, previsto] : casi) {
    CampiArticolo scritti = campi();
    scritti.prezzo = QString::fromUtf16(testo);
    EXPECT_EQ(salva(scritti), EsitoModifica::Salvata);
    EXPECT_EQ(campo(QStringLiteral("Prezzo")), QString::fromUtf16(previsto));
  }
}

TEST_F(SalvaModifiche, UnPrezzoOltreITrentadueBitNonEsegueNulla) {
  CampiArticolo scritti = campi();
  scritti.prezzo = QStringLiteral("99999999");
  try {
    salva(scritti);
    ADD_FAILURE() << "no overflow";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kOverflow);
  }
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SalvaModifiche, UnArchivioTenutoDaAltriDiceLErroreERestaComEra) {
  const OtherProgram altro(bottega.folder.file(QStringLiteral("archivio.mdb")),
                           {QStringLiteral("BEGIN IMMEDIATE")});
  EXPECT_EQ(salva(campi()), EsitoModifica::Fallita);
  expectBoxes(bottega,
              {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3260\n*"), Icon::Critical)});
  EXPECT_EQ(campo(QStringLiteral("Descrizione")), QStringLiteral("PANE"));
}

TEST_F(SalvaModifiche, UnaConfermaFallitaSiDiceSiAnnullaESiMostraDiNuovoLArchivio) {
  // A reader elsewhere lets the statement run and stops the commit.
  const OtherProgram altro(bottega.folder.file(QStringLiteral("archivio.mdb")),
                           {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
  EXPECT_EQ(salva(campi()), EsitoModifica::Fallita);
  expectBoxes(bottega,
              {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3260\n*"), Icon::Critical)});
  EXPECT_EQ(aggiornamenti, 2);
  EXPECT_EQ(livelloAllAggiornamento, 0);
  EXPECT_EQ(campo(QStringLiteral("Descrizione")), QStringLiteral("PANE"));
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(SalvaModifiche, SulDiscoPienoSiDiceELArchivioRestaComEra) {
  EsitoModifica esito{};
  {
    const FullDisk pieno(512);
    esito = salva(campi());
  }
  EXPECT_EQ(esito, EsitoModifica::Fallita);
  expectBoxes(bottega,
              {box(QStringLiteral("Errore nella modifica articoli .\nErrore n° *"), Icon::Critical)});
  EXPECT_EQ(campo(QStringLiteral("Descrizione")), QStringLiteral("PANE"));
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(SalvaModifiche, DuranteIlSalvataggioIlPuntatoreELaClessidra) {
  bool clessidra = false;
  bottega.user.onPass = [&] {
    clessidra =
        QGuiApplication::overrideCursor() && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
  };
  tasto_modifica(campi(), griglia, bottega.contesto);
  EXPECT_TRUE(clessidra);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
