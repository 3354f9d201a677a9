#include "articles/article_editing.h"

#include <gmock/gmock.h>

#include <QWidget>

#include "articles/archive_fields.h"
#include "articles/article_database.h"
#include "articles/back_room.h"
#include "articles/ean_index.h"
#include "articles/write_count.h"

namespace {

using articles::CampiArticolo;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

const QString kEan = QStringLiteral("8001234567890");

/// The archive screen as far as these operations see it: writes down what they ask of it.
class Annotatore : public articles::SchermoArticoli {
 public:
  explicit Annotatore(store::Workspace& area) : area_(area) {}

  void BloccaComandi(bool bloccati) override {
    chiesto << (bloccati ? QStringLiteral("blocca") : QStringLiteral("sblocca"));
  }
  void Cancella_TextBox() override { chiesto << QStringLiteral("svuota"); }
  void Tasto_Refresh() override {
    chiesto << QStringLiteral("riempi");
    livelloAlRefresh = area_.level();
  }

  QStringList chiesto;
  int livelloAlRefresh = -1;

 private:
  store::Workspace& area_;
};

/// A wait box that notes its coming and going.
class AttesaAnnotata : public QWidget {
 public:
  explicit AttesaAnnotata(QStringList& chiesto) : chiesto_(chiesto) { chiesto_ << QStringLiteral("attesa"); }

 protected:
  void closeEvent(QCloseEvent*) override { chiesto_ << QStringLiteral("fine attesa"); }

 private:
  QStringList& chiesto_;
};

class Articoli : public testing::Test {
 protected:
  Articoli() {
    bottega.openArchive();
    bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
    bottega.screens.registra(QStringLiteral("Form_ATTESA"),
                             [this](Contesto&) { return new AttesaAnnotata(chiesto); });
  }

  void assegnaACassa() { varGlobal().FlagVariazioni = 1; }
  void articolo(int slot, const QString& ean) {
    bottega.execute(
        QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,ID_Position,Codice_EAN,Codice_Articolo) "
                       "Values (%1,'%1','%2','A%1');")
            .arg(slot)
            .arg(ean));
  }
  void variazioni(const QString& ean, const QString& tipo) {
    bottega.execute(
        QStringLiteral("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('%1','%2');")
            .arg(ean, tipo));
  }
  /// Rows of a query, their fields parted by blanks.
  QStringList lette(const QString& sql) {
    QStringList righe;
    for (store::Recordset set = varGlobal().DB_Articoli.OpenRecordset(asWritten(sql)); !set.atEnd();
         set.MoveNext()) {
      QStringList valori;
      for (int i = 0; i < set.columns(); ++i) valori << set.field(i).text();
      righe << valori.join(u' ');
    }
    return righe;
  }
  QStringList variazioni() {
    return lette(QStringLiteral("SELECT TipoOperazione,Codice_EAN from TAB_VARIAZIONI"));
  }
  QStringList ean() { return lette(QStringLiteral("SELECT Codice_EAN from TAB_ARTICOLI ORDER BY auto_id")); }
  void senza(const QString& tabella) { bottega.execute(QStringLiteral("DROP TABLE ") + tabella); }
  /// Number and description of a statement's failure, as the messages put them.
  QString fallimento(const QString& sql) {
    try {
      bottega.execute(sql);
    } catch (const Errore& errore) {
      return QString::number(errore.numero) + QLatin1Char('\n') + errore.descrizione;
    }
    ADD_FAILURE() << "no failure";
    return {};
  }
  bool inserisci() { return articles::InserimentoArticolo(campi, bottega.contesto, schermo); }
  bool cancella(const QString& quale = kEan, Answer risposta = Answer::Ok) {
    bottega.user.answers(risposta);
    return articles::Tasto_Cancella(quale, bottega.contesto, schermo);
  }
  static Box domanda(const QString& quale = kEan) {
    return {QStringLiteral(
                "Attenzione questa operazione comporterà l'eliminazione dell'articolo con codice EAN [") +
                quale + QStringLiteral("]. Continuare ?"),
            Icon::None, QStringLiteral("Cancellazione articolo"), Buttons::OkCancel, Preset::Last};
  }
  void attendiCritici(const QStringList& testi) {
    EXPECT_THAT(bottega.user.takeBoxes(), ElementsAreArray(boxes(testi, Icon::Critical)));
  }
  /// The boxes of a deletion that was confirmed and failed.
  void attendiFallita(const QStringList& testi) {
    std::vector<Box> attesi = boxes(testi, Icon::Critical);
    attesi.insert(attesi.begin(), domanda());
    EXPECT_THAT(bottega.user.takeBoxes(), ElementsAreArray(attesi));
    EXPECT_EQ(bottega.workspace.level(), 0);
  }
  void attendiDomanda() { EXPECT_THAT(bottega.user.takeBoxes(), ElementsAre(domanda())); }

  BackRoom bottega;
  Annotatore schermo{bottega.workspace};
  QStringList& chiesto = schermo.chiesto;
  const int& livelloAlRefresh = schermo.livelloAlRefresh;
  CampiArticolo campi{{},
                      kEan,
                      QStringLiteral("PA1"),
                      QStringLiteral("pane di segale"),
                      QStringLiteral("2,35"),
                      QStringLiteral("4"),
                      QStringLiteral("S"),
                      QStringLiteral("N")};
};

using Inserimento = Articoli;
using Cancellazione = Articoli;

// Insertion.

TEST_F(Inserimento, ScriveLaRigaConDescrizioneMaiuscolaEPrezzoInCentesimi) {
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(lette(QStringLiteral("SELECT Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from "
                                 "TAB_ARTICOLI")),
            QStringList({kEan + QStringLiteral(" PA1 PANE DI SEGALE 235 4  ")}));
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("riempi")}));
  EXPECT_EQ(livelloAlRefresh, 0);
  EXPECT_THAT(variazioni(), IsEmpty());
}

TEST_F(Inserimento, ICampiErratiLoFermanoConTuttiIMessaggiPrimaDiOgniTransazione) {
  campi = {};
  EXPECT_FALSE(inserisci());
  EXPECT_EQ(bottega.user.takeBoxes().size(), 4U);
  EXPECT_THAT(ean(), IsEmpty());
  EXPECT_EQ(campi.ean, QString());
  EXPECT_THAT(chiesto, IsEmpty());
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(Inserimento, UnEanCortoSiRiempieDiSpaziFinoATredici) {
  campi.ean = QStringLiteral("80012345");
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(campi.ean, QStringLiteral("80012345     "));
  EXPECT_EQ(ean(), QStringList({QStringLiteral("80012345     ")}));
}

TEST_F(Inserimento, UnEanDiTrediciRestaComE) {
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(campi.ean, kEan);
}

TEST_F(Inserimento, LEanDiUnAltroArticoloSiDiceENullaSiScrive) {
  articolo(1, kEan);
  EXPECT_FALSE(inserisci());
  EXPECT_THAT(bottega.user.takeBoxes(),
              ElementsAreArray(boxes({QStringLiteral("Attenzione il Codice EAN immesso [") + kEan +
                                      QStringLiteral("] è già associato ad un'altro articolo !!!")},
                                     Icon::Warning)));
  EXPECT_EQ(ean().size(), 1);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_THAT(chiesto, IsEmpty());
}

TEST_F(Inserimento, LoStessoCodiceArticoloPuoAvereLoStessoEanDueVolte) {
  articolo(1, kEan);
  campi.codice = QStringLiteral("A1");
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(ean(), QStringList({kEan, kEan}));
}

TEST_F(Inserimento, UnApostrofoNellaDescrizioneSiDiceESiAnnulla) {
  campi.descrizione = QStringLiteral("l'uva");
  EXPECT_FALSE(inserisci());
  const QString perche = fallimento(
      QStringLiteral(
          "INSERT INTO TAB_ARTICOLI (Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler) "
          "Values ('%1','PA1','L'UVA',235,4,' ');")
          .arg(kEan));
  attendiCritici({QStringLiteral("Errore nell' inserimento articoli Errore n° ") + perche});
  EXPECT_THAT(ean(), IsEmpty());
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_THAT(chiesto, IsEmpty());
}

TEST_F(Inserimento, UnApostrofoNellEanFallisceNellaRicercaESiAnnulla) {
  campi.ean = QStringLiteral("80'1234567890");
  try {
    inserisci();
    ADD_FAILURE() << "no failure";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kSyntax);
  }
  EXPECT_THAT(ean(), IsEmpty());
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(Inserimento, SuUnArchivioAssegnatoIlGiornaleHaUnaI) {
  assegnaACassa();
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("I ") + kEan}));
}

TEST_F(Inserimento, UnaCDelGiornaleDiventaI) {
  assegnaACassa();
  variazioni(kEan, QStringLiteral("C"));
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("I ") + kEan}));
}

TEST_F(Inserimento, UnaUDelGiornaleRestaEUnaISiAggiunge) {
  assegnaACassa();
  variazioni(kEan, QStringLiteral("U"));
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("U ") + kEan, QStringLiteral("I ") + kEan}));
}

TEST_F(Inserimento, LaCDiUnAltroEanResta) {
  assegnaACassa();
  variazioni(QStringLiteral("8009999999999"), QStringLiteral("C"));
  EXPECT_TRUE(inserisci());
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("C 8009999999999"), QStringLiteral("I ") + kEan}));
}

TEST_F(Inserimento, UnGiornaleCheNonSiScriveSiDiceEAnnullaAncheLArticolo) {
  assegnaACassa();
  senza(QStringLiteral("TAB_VARIAZIONI"));
  bottega.execute(
      QStringLiteral("CREATE TABLE TAB_VARIAZIONI (Codice_EAN TEXT, TipoOperazione TEXT, "
                     "Mancante TEXT NOT NULL)"));
  EXPECT_FALSE(inserisci());
  const QString perche = fallimento(
      QStringLiteral("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('%1','I');").arg(kEan));
  attendiCritici({QStringLiteral("Errore nell' inserimento variazioni Errore n° ") + perche});
  EXPECT_THAT(ean(), IsEmpty());
  EXPECT_THAT(chiesto, IsEmpty());
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(Inserimento, SenzaLaTabellaDelGiornaleLaRicercaFallisceETuttoSiAnnulla) {
  assegnaACassa();
  senza(QStringLiteral("TAB_VARIAZIONI"));
  EXPECT_THROW(inserisci(), Errore);
  EXPECT_THAT(ean(), IsEmpty());
  EXPECT_EQ(bottega.workspace.level(), 0);
}

// Deletion: the question.

TEST_F(Cancellazione, SenzaEanChiedeDiSelezionareUnArticoloENonCancellaLeRigheSenza) {
  articolo(1, {});
  campi.ean.clear();
  EXPECT_FALSE(articles::EliminaSelezionato(campi, bottega.contesto, schermo));
  EXPECT_THAT(bottega.user.takeBoxes(),
              ElementsAreArray(
                  boxes({QStringLiteral("Attenzione selezionare l'articolo da eliminare")}, Icon::None)));
  EXPECT_EQ(ean().size(), 1);
  EXPECT_THAT(chiesto, IsEmpty());
}

TEST_F(Cancellazione, ConUnEanDomandaECancella) {
  articolo(1, kEan);
  bottega.user.answers(Answer::Ok);
  EXPECT_TRUE(articles::EliminaSelezionato(campi, bottega.contesto, schermo));
  attendiDomanda();
  EXPECT_THAT(ean(), IsEmpty());
}

TEST_F(Cancellazione, OgniAltraRispostaRiabilitaIComandiESiFerma) {
  articolo(1, kEan);
  EXPECT_FALSE(cancella(kEan, Answer::Cancel));
  attendiDomanda();
  EXPECT_EQ(ean().size(), 1);
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("sblocca")}));
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(Cancellazione, LaDomandaStaDentroLaTransazione) {
  articolo(1, kEan);
  int livello = 0;
  bottega.user.onBox = [&](const Box&) { livello = bottega.workspace.level(); };
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_EQ(livello, 1);
}

// Deletion on an archive of no till.

TEST_F(Cancellazione, BloccaIComandiCancellaSvuotaERiempie) {
  articolo(1, kEan);
  articolo(2, QStringLiteral("B"));
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_EQ(ean(), QStringList({QStringLiteral("B")}));
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("blocca"), QStringLiteral("sblocca"),
                                  QStringLiteral("svuota"), QStringLiteral("riempi")}));
  EXPECT_EQ(livelloAlRefresh, 0);
}

TEST_F(Cancellazione, SenzaCassaGiornaleEPosizioniRestano) {
  articolo(1, kEan);
  articolo(2, QStringLiteral("B"));
  variazioni(kEan, QStringLiteral("I"));
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("I ") + kEan}));
  EXPECT_EQ(lette(QStringLiteral("SELECT ID_Position from TAB_ARTICOLI")),
            QStringList({QStringLiteral("2")}));
}

TEST_F(Cancellazione, TutteLeRigheDelloStessoEanSeNeVanno) {
  articolo(1, kEan);
  articolo(2, kEan);
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_THAT(ean(), IsEmpty());
}

TEST_F(Cancellazione, UnApostrofoNellEanSiDiceENullaSiCancella) {
  articolo(1, kEan);
  const QString rotto = QStringLiteral("80'1");
  EXPECT_FALSE(cancella(rotto));
  const QString perche = fallimento(QStringLiteral("Delete  from TAB_ARTICOLI where Codice_EAN ='80'1';"));
  EXPECT_THAT(bottega.user.takeBoxes(),
              ElementsAre(domanda(rotto),
                          Box{QStringLiteral("Errore nell' eliminazione articoli Errore n° ") + perche,
                              Icon::Critical,
                              {},
                              Buttons::Ok}));
  EXPECT_EQ(ean().size(), 1);
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("blocca"), QStringLiteral("sblocca")}));
  EXPECT_EQ(bottega.workspace.level(), 0);
}

// Deletion on an archive of a till: the journal.

TEST_F(Cancellazione, UnaIDelGiornaleSeNeVaELePosizioniRestano) {
  assegnaACassa();
  articolo(1, kEan);
  articolo(2, QStringLiteral("B"));
  variazioni(kEan, QStringLiteral("I"));
  variazioni(QStringLiteral("B"), QStringLiteral("I"));
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("I B")}));
  EXPECT_EQ(lette(QStringLiteral("SELECT ID_Position from TAB_ARTICOLI")),
            QStringList({QStringLiteral("2")}));
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("blocca"), QStringLiteral("sblocca"),
                                  QStringLiteral("svuota"), QStringLiteral("riempi")}));
}

TEST_F(Cancellazione, UnaUDelGiornaleValeComeUnaI) {
  assegnaACassa();
  articolo(1, kEan);
  variazioni(kEan, QStringLiteral("U"));
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_THAT(variazioni(), IsEmpty());
}

TEST_F(Cancellazione, SenzaRigaDelGiornaleSiAggiungeUnaCEGliIndiciSeguono) {
  assegnaACassa();
  articolo(5, QStringLiteral("A"));
  articolo(7, kEan);
  articolo(9, QStringLiteral("C"));
  ASSERT_EQ(articles::UpdateEanNumAndIndex(bottega.user), 0);
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("C ") + kEan}));
  EXPECT_EQ(lette(QStringLiteral("SELECT auto_id,ID_Position from TAB_ARTICOLI")),
            QStringList({QStringLiteral("5 0"), QStringLiteral("9 1")}));
  EXPECT_EQ(lette(QStringLiteral("SELECT Codice_EAN,Index from TAB_EAN_NUMERICI")),
            QStringList({QStringLiteral("A 0"), kEan + QStringLiteral(" -1"), QStringLiteral("C 1")}));
  EXPECT_EQ(chiesto,
            QStringList({QStringLiteral("blocca"), QStringLiteral("attesa"), QStringLiteral("fine attesa"),
                         QStringLiteral("sblocca"), QStringLiteral("svuota"), QStringLiteral("riempi")}));
}

TEST_F(Cancellazione, UnaCDelGiornaleNonImpedisceLaSeconda) {
  assegnaACassa();
  articolo(1, kEan);
  variazioni(kEan, QStringLiteral("C"));
  EXPECT_TRUE(cancella());
  attendiDomanda();
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("C ") + kEan, QStringLiteral("C ") + kEan}));
}

TEST_F(Cancellazione, InserireCancellareEReinserireLasciaUnaSolaI) {
  assegnaACassa();
  EXPECT_TRUE(inserisci());
  EXPECT_TRUE(cancella());
  EXPECT_THAT(variazioni(), IsEmpty());
  EXPECT_TRUE(inserisci());
  attendiDomanda();
  EXPECT_EQ(variazioni(), QStringList({QStringLiteral("I ") + kEan}));
}

// Deletion on an archive of a till: failures, each of which leaves all as it was.

TEST_F(Cancellazione, SenzaLaTabellaDelGiornaleLaRicercaFallisceETuttoSiAnnulla) {
  assegnaACassa();
  articolo(1, kEan);
  senza(QStringLiteral("TAB_VARIAZIONI"));
  EXPECT_THROW(cancella(), Errore);
  attendiDomanda();
  EXPECT_EQ(ean().size(), 1);
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("blocca"), QStringLiteral("sblocca")}));
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(Cancellazione, UnaRigaDelGiornaleCheNonSiCancellaSiDice) {
  assegnaACassa();
  articolo(1, kEan);
  variazioni(kEan, QStringLiteral("I"));
  forbid(bottega, QStringLiteral("DELETE"), QStringLiteral("TAB_VARIAZIONI"));
  const QString perche =
      fallimento(QStringLiteral("DELETE FROM TAB_VARIAZIONI where Codice_EAN = '%1';").arg(kEan));
  EXPECT_FALSE(cancella());
  attendiFallita({QStringLiteral("Errore nell'eliminazione articolo su TAB_VARIAZIONI Errore n° ") + perche});
  EXPECT_EQ(ean().size(), 1);
  EXPECT_EQ(variazioni().size(), 1);
}

TEST_F(Cancellazione, UnaCCheNonSiScriveSiDice) {
  assegnaACassa();
  articolo(1, kEan);
  forbid(bottega, QStringLiteral("INSERT"), QStringLiteral("TAB_VARIAZIONI"));
  const QString perche = fallimento(
      QStringLiteral("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('%1','C');").arg(kEan));
  EXPECT_FALSE(cancella());
  attendiFallita({QStringLiteral("Errore nell'eliminazione articoli Errore n° ") + perche});
  EXPECT_EQ(ean().size(), 1);
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("blocca"), QStringLiteral("sblocca")}));
}

TEST_F(Cancellazione, LaNumerazioneFallitaSiDiceDopoISuoiMessaggi) {
  assegnaACassa();
  articolo(1, kEan);
  articolo(2, QStringLiteral("8''1"));
  const QString perche =
      fallimento(QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position = '0' WHERE Codice_EAN ='8'1';"));
  EXPECT_FALSE(cancella());
  attendiFallita(
      {QStringLiteral("Errore nell' inserimento dati nella TAB_ARTICOLI n° ") + perche,
       QStringLiteral("Fallito Inserimento indici "),
       QStringLiteral("Fallita operazione di valorizzazione indici in TAB_ARTICOLI: Errore n° ") + perche});
  EXPECT_EQ(ean().size(), 2);
  EXPECT_THAT(variazioni(), IsEmpty());
  EXPECT_EQ(chiesto, QStringList({QStringLiteral("blocca"), QStringLiteral("attesa"),
                                  QStringLiteral("fine attesa"), QStringLiteral("sblocca")}));
}

TEST_F(Cancellazione, LIndiceCheNonSiCancellaSiDiceDopoIlSuoMessaggio) {
  assegnaACassa();
  articolo(1, kEan);
  articolo(2, QStringLiteral("B"));
  senza(QStringLiteral("TAB_EAN_NUMERICI"));
  const QString perche = fallimento(QStringLiteral("Delete  from TAB_EAN_NUMERICI"));
  EXPECT_FALSE(cancella());
  attendiFallita(
      {QStringLiteral("Errore nell' UPDATE dati nella TAB_EAN_NUMERICI n° ") + perche,
       QStringLiteral("Fallita operazione di cancellazione articolo in TAB_EAN_NUMERICI: Errore n° ") +
           perche});
  EXPECT_EQ(ean().size(), 2);
  EXPECT_EQ(lette(QStringLiteral("SELECT ID_Position from TAB_ARTICOLI")),
            QStringList({QStringLiteral("1"), QStringLiteral("2")}));
  EXPECT_THAT(variazioni(), IsEmpty());
}

TEST_F(Cancellazione, GliIndiciCheNonSiLeggonoSiDiconoDopoIlLoroMessaggio) {
  assegnaACassa();
  // The last article goes: nothing is left to number, and only the third walk asks for the missing column.
  senza(QStringLiteral("TAB_ARTICOLI"));
  bottega.execute(QStringLiteral("CREATE TABLE TAB_ARTICOLI (auto_id INTEGER, Codice_EAN TEXT)"));
  bottega.execute(QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,Codice_EAN) Values (1,'%1');").arg(kEan));
  EXPECT_FALSE(cancella());
  const std::vector<Box> visti = bottega.user.takeBoxes();
  ASSERT_EQ(visti.size(), 3U);
  EXPECT_EQ(visti[0], domanda());
  const QString prefisso = QStringLiteral("Fallita UpdateALLIndex 3061 - ");
  ASSERT_TRUE(visti[1].text.startsWith(prefisso)) << visti[1].text.toStdString();
  EXPECT_EQ(visti[2].text,
            QStringLiteral("Fallita operazione update inici in TAB_EAN_NUMERICI: Errore n° 3061\n") +
                visti[1].text.mid(prefisso.size()));
  EXPECT_EQ(visti[2].icon, Icon::Critical);
  EXPECT_EQ(ean().size(), 1);
  EXPECT_THAT(variazioni(), IsEmpty());
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(Cancellazione, UnaRigaSenzaIndiceLeggibileSiDiceELaCancellazioneSiFa) {
  assegnaACassa();
  articolo(1, kEan);
  articolo(2, QStringLiteral("B"));
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN = null WHERE auto_id =2"));
  EXPECT_TRUE(cancella());
  std::vector<Box> attesi = boxes({QStringLiteral("CalcolaID_Position 94 - Utilizzo non valido di Null"),
                                   QStringLiteral("Fallita UpdateALLIndex 94 - Utilizzo non valido di Null")},
                                  Icon::Critical);
  attesi.insert(attesi.begin(), domanda());
  EXPECT_THAT(bottega.user.takeBoxes(), ElementsAreArray(attesi));
  EXPECT_EQ(lette(QStringLiteral("SELECT auto_id from TAB_ARTICOLI")), QStringList({QStringLiteral("2")}));
}

}  // namespace
