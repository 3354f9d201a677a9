#include "core/list_table.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <array>

#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "core/Form_ATTESA.h"
#include "core/wait_box.h"
#include "platform/ui/busy_guard.h"
#include "sostegno/program_fixture.h"
#include "sostegno/statements.h"
#include "sostegno/troubles.h"

namespace {

using elenco::AlGuasto;
using elenco::Cella;
using elenco::Colonna;
using elenco::EsitoElenco;
using testing::ElementsAre;
using testing::IsEmpty;

QString euro(const Cella& cella) {
  const std::int32_t prezzo = cella.righe.field(cella.posto).int32();
  cella.totale.intero += prezzo;
  cella.totale.reale += prezzo / 100.0;
  return QString::number(prezzo);
}

/// Fails with the number that the row's price is.
QString fallisce(const Cella& cella) {
  const std::int32_t numero = cella.righe.field(cella.posto).int32();
  if (numero > 0) throw Errore{numero, QStringLiteral("motivo")};
  return QStringLiteral("buona");
}

constexpr std::array kColonne{
    Colonna{u"N.", 500, elenco::kCentro, nullptr, elenco::numeroDiRiga, nullptr, 0, false},
    Colonna{u"CODICE", 1500, elenco::kSinistra, "Codice_EAN", elenco::testo, "casellaCodice", 13}
        .larga(u"0000000000000")
        .copiata(u"Copia EAN")
        .spiegata(u"Quello del produttore")
        .cedevole(),
    Colonna{u"PREZZO", 750, elenco::kDestra, "Prezzo", elenco::importo, "casellaPrezzo"},
    Colonna{u"VAR", 900, elenco::kCentro, "VarPrezzo", elenco::siNo},
    Colonna{u"ALTRO", 900, elenco::kSinistra, "NonChiesta", elenco::testo, nullptr, 0, false},
};
constexpr std::array kConTotale{Colonna{u"P", 500, elenco::kDestra, "Prezzo", euro},
                                Colonna{u"P", 500, elenco::kDestra, "Prezzo", euro}};
/// Cents, summed behind each run.
QString sommata(const Cella& cella) {
  const std::int32_t prezzo = cella.righe.field(cella.posto).int32();
  cella.totale.intero += prezzo;
  cella.totale.parziale += prezzo;
  return QString::number(prezzo);
}

void scriviSomma(FlexGrid& griglia, int riga, const std::vector<elenco::Totale>& totali) {
  griglia.setTextMatrix(riga, 0, QStringLiteral(" "));
  griglia.setTextMatrix(riga, 2, QString::number(totali[2].parziale));
  griglia.setCellForeColor(riga, 2, Qt::red);
}

constexpr std::array kConSomme{Colonna{u"N.", 500, elenco::kCentro, nullptr, elenco::numeroDiRiga},
                               Colonna{u"CODICE", 500, elenco::kSinistra, "Codice_EAN"},
                               Colonna{u"PREZZO", 500, elenco::kDestra, "Prezzo", sommata}};
constexpr std::array kConGuasto{Colonna{u"A", 500, elenco::kSinistra, "Prezzo", fallisce},
                                Colonna{u"B", 500, elenco::kSinistra, "Codice_EAN"}};

const store::Statement kTutti(u"SELECT Codice_EAN,Prezzo,VarPrezzo,Filler from TAB_ARTICOLI");
const store::Statement kNessuno(u"SELECT Codice_EAN,Prezzo,VarPrezzo from TAB_ARTICOLI where auto_id <0");

class Elenco : public testing::Test {
 protected:
  Elenco() {
    const QString percorso = programma_.folder.file(QStringLiteral("archivio.mdb"));
    store::CopyArchive(QStringLiteral(GESTIONALE_APP "/QzDB.bck"), percorso);
    archivio_ = programma_.workspace.OpenDatabase(percorso);
    esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3"));
    for (int riga = 1; riga <= 3; ++riga)
      esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='8%1',Prezzo =%2 WHERE auto_id =%1")
                 .arg(riga)
                 .arg(riga * 105));
    elenco::Disponi(griglia_, kColonne);
  }
  void esegui(const QString& sql) { archivio_.Execute(asWritten(sql)); }
  EsitoElenco riempi(const elenco::Riempimento& come, const store::Statement& istruzione = kTutti) {
    return elenco::Riempi(griglia_, archivio_, istruzione, come, programma_.contesto);
  }
  static elenco::Riempimento semplice(elenco::Colonne colonne = kColonne,
                                      AlGuasto alGuasto = AlGuasto::Ferma) {
    return {.colonne = colonne, .prefisso = QStringLiteral("Elenco "), .alGuasto = alGuasto};
  }
  QString riga(int numero) const {
    QStringList celle;
    for (int colonna = 0; colonna < griglia_.Cols(); ++colonna) celle << griglia_.TextMatrix(numero, colonna);
    return celle.join(u'|');
  }
  QStringList righe() const {
    QStringList tutte;
    for (int numero = 1; numero < griglia_.Rows(); ++numero) tutte << riga(numero);
    return tutte;
  }
  static QStringList testi(std::initializer_list<const char*> questi) {
    QStringList tutti;
    for (const char* testo : questi) tutti << QString::fromUtf8(testo);
    return tutti;
  }

  /// The decimal sign of the texts below.
  WithLocale inglese_{"C"};
  ProgramFixture programma_;
  store::Database archivio_;
  FlexGrid griglia_;
  OutcomeBar piede_;
};

// The shape.

TEST_F(Elenco, LaTabellaDelleColonneDaLaFormaAllaGriglia) {
  FlexGrid griglia;
  elenco::Disponi(griglia, kColonne, QColor(255, 255, 224), 2);
  ASSERT_EQ(griglia.Cols(), 5);
  EXPECT_EQ(griglia.TextMatrix(0, 1), QStringLiteral("CODICE"));
  EXPECT_EQ(griglia.CellAlignment(0, 0), Qt::AlignCenter);
  EXPECT_EQ(griglia.CellAlignment(0, 1), Qt::AlignLeft | Qt::AlignVCenter);
  EXPECT_EQ(griglia.CellAlignment(0, 2), Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_EQ(griglia.CellForeColor(0, 1), QColor(0, 0, 255));
  EXPECT_FALSE(griglia.CellForeColor(0, 2).isValid());
}

TEST_F(Elenco, LaFormaDiceAncheChiSiCopiaChiSiSpiegaEChiCede) {
  FlexGrid griglia;
  griglia.resize(900, 200);
  elenco::Disponi(griglia, kColonne);
  griglia.resize(1000, 200);
  EXPECT_EQ(griglia.model()->headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(),
            QStringLiteral("Quello del produttore"));
  EXPECT_EQ(griglia.columnWidth(2), 50);
  EXPECT_GT(griglia.columnWidth(1), 500) << "the spare width";
  EXPECT_EQ(griglia.selectionBehavior(), QAbstractItemView::SelectRows);
}

TEST_F(Elenco, RidispostaLaGrigliaTieneLeLarghezzeDateAMano) {
  griglia_.horizontalHeader()->resizeSection(2, 77);
  elenco::Disponi(griglia_, kColonne);
  EXPECT_EQ(griglia_.columnWidth(2), 77);
  EXPECT_EQ(griglia_.ColWidth(0), 500);
}

TEST_F(Elenco, UnElencoVuotoLoDiceInMezzoEUnoPienoNo) {
  elenco::Riempimento come = semplice();
  come.senzaRighe = QStringLiteral("Nessun articolo trovato");
  riempi(come);
  griglia_.setCell(1, 1);
  riempi(come, kNessuno);
  EXPECT_EQ(griglia_.Notice(), QStringLiteral("Nessun articolo trovato"));
  EXPECT_EQ(griglia_.Row(), 0) << "nothing is picked";
  riempi(come);
  EXPECT_EQ(griglia_.Notice(), QString());
}

TEST_F(Elenco, UnaQueryCheFallisceLasciaAncheAvvisoERigaNeiCampi) {
  elenco::Riempimento come = semplice();
  riempi(come);
  griglia_.setRowInFields(2);
  riempi(come, store::Statement(u"SELECT Pippo from TAB_ARTICOLI"));
  programma_.takeBoxes();
  EXPECT_EQ(griglia_.RowInFields(), 2);
  riempi(come);
  EXPECT_EQ(griglia_.RowInFields(), 0) << "other rows stand there";
}

TEST_F(Elenco, LaRigaSiTrovaDalTestoDiUnaColonna) {
  riempi(semplice());
  EXPECT_EQ(elenco::RigaCon(griglia_, 1, QStringLiteral("82")), 2);
  EXPECT_EQ(elenco::RigaCon(griglia_, 1, QStringLiteral("8")), 0);
  EXPECT_EQ(elenco::RigaCon(griglia_, 4, QString()), 0) << "an empty text is none";
}

// The rows.

TEST_F(Elenco, OgniRigaHaLeCelleDelleSueColonne) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET VarPrezzo =true WHERE auto_id =2"));
  const EsitoElenco esito = riempi(semplice());
  EXPECT_TRUE(esito.letto);
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(esito.righe, 3);
  EXPECT_EQ(righe(), testi({"1|81|1.05|N|", "2|82|2.10|S|", "3|83|3.15|N|"}));
}

TEST_F(Elenco, IlSegnoDecimaleEQuelloDellaPiattaforma) {
  const WithLocale italiano("it_IT");
  riempi(semplice());
  EXPECT_EQ(griglia_.TextMatrix(1, 2), QStringLiteral("1,05"));
}

TEST_F(Elenco, UnNulloEUnaCellaVuota) {
  riempi(semplice(),
         store::Statement(u"SELECT null AS Codice_EAN,null AS Prezzo,null AS VarPrezzo from TAB_VARIE"));
  EXPECT_EQ(righe(), testi({"1||||"}));
}

TEST_F(Elenco, SenzaRigheLaGrigliaSiVuotaENeRestaUna) {
  riempi(semplice());
  const EsitoElenco esito = riempi(semplice(), kNessuno);
  EXPECT_TRUE(esito.letto);
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(esito.righe, 0);
  EXPECT_EQ(righe(), testi({"||||"}));
}

TEST_F(Elenco, ITotaliSonoUnoPerColonna) {
  elenco::Disponi(griglia_, kConTotale);
  const EsitoElenco esito = riempi(semplice(kConTotale));
  ASSERT_EQ(esito.totali.size(), 2U);
  EXPECT_EQ(esito.totali[0].intero, 630);
  EXPECT_DOUBLE_EQ(esito.totali[1].reale, 6.30);
}

TEST_F(Elenco, LaMarcaColoraLeSueCelleELeAltreNo) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =2"));
  elenco::Riempimento come = semplice();
  come.marca = elenco::Marca{
      .campo = "Filler", .valore = u"ERR", .marcata = Qt::red, .altre = Qt::white, .prima = 1, .ultima = 2};
  riempi(come);
  EXPECT_EQ(griglia_.CellBackColor(2, 1), QColor(Qt::red));
  EXPECT_EQ(griglia_.CellBackColor(2, 2), QColor(Qt::red));
  EXPECT_EQ(griglia_.CellBackColor(1, 1), QColor(Qt::white));
  EXPECT_FALSE(griglia_.CellBackColor(2, 0).isValid());
  EXPECT_FALSE(griglia_.CellBackColor(2, 3).isValid());
}

TEST_F(Elenco, LeRigheInCodaSonoVuoteAncheDoveLaGrigliaConserva) {
  elenco::Riempimento come = semplice();
  come.coda = 2;
  come.conserva = true;
  riempi(come);
  ASSERT_EQ(griglia_.Rows(), 6);
  griglia_.setTextMatrix(4, 1, QStringLiteral("TOTALE"));
  griglia_.setCellBackColor(4, 1, Qt::yellow);
  esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 2"));
  riempi(come);
  EXPECT_EQ(righe(), testi({"1|81|1.05|N|", "2|82|2.10|N|", "||||", "||||"}));
  EXPECT_FALSE(griglia_.CellBackColor(4, 1).isValid());
}

TEST_F(Elenco, UnPassaggioDiEventiPerRigaColPortoneChiusoESenzaDipingere) {
  bool chiuso = true;
  bool fermo = true;
  programma_.user.onPass = [&] {
    chiuso = chiuso && BusyGuard::active();
    fermo = fermo && !griglia_.Redraw();
  };
  riempi(semplice());
  EXPECT_EQ(programma_.user.passes(), 3);
  EXPECT_TRUE(chiuso);
  EXPECT_TRUE(fermo);
  EXPECT_TRUE(griglia_.Redraw());
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(Elenco, LAttesaAvanzaConLeRighe) {
  programma_.screens.registra(QStringLiteral("Form_ATTESA"), [](Contesto&) { return new Form_ATTESA; });
  programma_.contesto.attesaDopo = std::chrono::milliseconds(1);
  Attesa attesa(programma_.contesto);
  elenco::Riempimento come = semplice();
  come.attesa = &attesa;
  QElapsedTimer orologio;
  orologio.start();
  while (!programma_.screens.trova(QStringLiteral("Form_ATTESA")) && orologio.elapsed() < 10000) riempi(come);
  EXPECT_NE(programma_.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
}

// Failures.

TEST_F(Elenco, UnaQueryCheFallisceSiDiceELaGrigliaRestaComEra) {
  riempi(semplice());
  const QStringList prima = righe();
  const EsitoElenco esito = riempi(semplice(), store::Statement(u"SELECT Pippo from TAB_ARTICOLI"));
  EXPECT_FALSE(esito.letto);
  EXPECT_FALSE(esito.intero);
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(criticalBox(QStringLiteral(
                                          "Elenco 3061 - Parametri insufficienti. Previsto 1: 'Pippo'."))));
  EXPECT_EQ(righe(), prima);
}

TEST_F(Elenco, SenzaLaTabellaIlProgrammaFinisceQualunqueSiaLaReazione) {
  for (const AlGuasto alGuasto : {AlGuasto::Termina, AlGuasto::Ferma, AlGuasto::Prosegue}) {
    EXPECT_THROW(riempi(semplice(kColonne, alGuasto), store::Statement(u"SELECT a from TAB_ASSENTE")),
                 ProgramEnded);
    EXPECT_THAT(programma_.takeBoxes(), ElementsAre(criticalBox(QStringLiteral(
                                            "ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. "
                                            "PROCEDURA ABORTITA !!!"))));
    EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  }
}

/// A list whose second row fails.
class ElencoGuasto : public Elenco {
 protected:
  explicit ElencoGuasto(int numero = 13) {
    esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =0"));
    esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =%1 WHERE auto_id =2").arg(numero));
    elenco::Disponi(griglia_, kConGuasto);
    griglia_.setRows(4);
    griglia_.setTextMatrix(2, 0, QStringLiteral("vecchia"));
  }
  elenco::Riempimento come(AlGuasto alGuasto) {
    elenco::Riempimento questo = semplice(kConGuasto, alGuasto);
    questo.conserva = true;
    return questo;
  }
  const Box detto_ = criticalBox(QStringLiteral("Elenco 13 - motivo"));
};

TEST_F(ElencoGuasto, LElencoSiFermaDoveEArrivato) {
  const EsitoElenco esito = riempi(come(AlGuasto::Ferma));
  EXPECT_TRUE(esito.letto);
  EXPECT_FALSE(esito.intero);
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(detto_));
  EXPECT_EQ(righe(), testi({"buona|81", "vecchia|", "|"}));
}

TEST_F(ElencoGuasto, LElencoProsegueELaCellaTieneIlSuoTesto) {
  const EsitoElenco esito = riempi(come(AlGuasto::Prosegue));
  EXPECT_TRUE(esito.intero);
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(detto_));
  EXPECT_EQ(righe(), testi({"buona|81", "vecchia|82", "buona|83"}));
}

TEST_F(ElencoGuasto, LElencoFinisceIlProgramma) {
  EXPECT_THROW(riempi(come(AlGuasto::Termina)), ProgramEnded);
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(detto_));
  EXPECT_TRUE(programma_.user.terminated());
  EXPECT_TRUE(griglia_.Redraw());
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(ElencoGuasto, UnNumeroPassatoNonSiDiceENonFerma) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =3021 WHERE auto_id =2"));
  EXPECT_TRUE(riempi(come(AlGuasto::Ferma)).intero);
  EXPECT_EQ(righe(), testi({"buona|81", "vecchia|82", "buona|83"}));
}

TEST_F(ElencoGuasto, UnNumeroCheQuestoElencoNonPassaSiDiceComeGliAltri) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =20 WHERE auto_id =2"));
  EXPECT_TRUE(riempi(come(AlGuasto::Ferma)).intero);
  elenco::Riempimento severo = come(AlGuasto::Termina);
  severo.nonPassa = 20;
  EXPECT_THROW(riempi(severo), ProgramEnded);
  EXPECT_THAT(programma_.takeBoxes(), ElementsAre(criticalBox(QStringLiteral("Elenco 20 - motivo"))));
  severo.nonPassa = 53;
  EXPECT_TRUE(riempi(severo).intero) << "the others are passed over as ever";
}

// Rows between the rows.

/// The articles in runs of one Codice_Articolo: "A", "A", "B".
class ElencoConSomme : public Elenco {
 protected:
  ElencoConSomme() {
    esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_Articolo ='A' WHERE auto_id <=2"));
    esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_Articolo ='B' WHERE auto_id =3"));
    elenco::Disponi(griglia_, kConSomme);
  }
  static elenco::Riempimento conSomme() {
    elenco::Riempimento come = semplice(kConSomme);
    come.rottura = elenco::Rottura{.campo = "Codice_Articolo", .scrivi = scriviSomma};
    return come;
  }
  const store::Statement aSerie_ =
      store::Statement(u"SELECT Codice_EAN,Prezzo,Codice_Articolo,Filler from TAB_ARTICOLI ORDER BY auto_id");
};

TEST_F(ElencoConSomme, OgniSerieHaLaSuaRigaDietroConCioCheAvevaSommato) {
  const EsitoElenco esito = riempi(conSomme(), aSerie_);
  EXPECT_EQ(righe(), testi({"1|81|105", "2|82|210", " ||315", "3|83|315", " ||315"}));
  EXPECT_EQ(esito.righe, 3) << "those of the query";
  EXPECT_EQ(esito.totali[2].intero, 630);
  EXPECT_EQ(esito.totali[2].parziale, 0);
  EXPECT_EQ(programma_.user.passes(), 3);
}

TEST_F(ElencoConSomme, UnaSerieCheTornaEUnAltraSerie) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_Articolo ='B' WHERE auto_id =1"));
  riempi(conSomme(), aSerie_);
  EXPECT_EQ(righe(), testi({"1|81|105", " ||105", "2|82|210", " ||210", "3|83|315", " ||315"}));
}

TEST_F(ElencoConSomme, UnNulloEUnaSerieComeLeAltre) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_Articolo =null WHERE auto_id <=2"));
  riempi(conSomme(), aSerie_);
  EXPECT_EQ(righe(), testi({"1|81|105", "2|82|210", " ||315", "3|83|315", " ||315"}));
}

TEST_F(ElencoConSomme, SenzaLaColonnaDelleSerieUnaSommaStaInFondo) {
  riempi(conSomme());
  EXPECT_EQ(righe(), testi({"1|81|105", "2|82|210", "3|83|315", " ||630"}));
}

TEST_F(ElencoConSomme, SenzaRigheNonCESomma) {
  const EsitoElenco esito = riempi(conSomme(), kNessuno);
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(righe(), testi({"||"}));
}

TEST_F(ElencoConSomme, RiempitoDiNuovoNonRestanoRigheNeColoriDiPrima) {
  elenco::Riempimento come = conSomme();
  come.conserva = true;
  riempi(come, aSerie_);
  EXPECT_EQ(griglia_.CellForeColor(3, 2), QColor(Qt::red));
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_Articolo ='A' WHERE auto_id =3"));
  riempi(come, aSerie_);
  EXPECT_EQ(righe(), testi({"1|81|105", "2|82|210", "3|83|315", " ||630"}));
  EXPECT_FALSE(griglia_.CellForeColor(3, 2).isValid());
  EXPECT_EQ(griglia_.CellForeColor(4, 2), QColor(Qt::red));
}

TEST_F(ElencoConSomme, LaMarcaSegueLaSuaRigaELaCodaStaDietroLUltimaSomma) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =3"));
  elenco::Riempimento come = conSomme();
  come.coda = 1;
  come.marca = elenco::Marca{.campo = "Filler",
                             .valore = u"ERR",
                             .marcata = Qt::yellow,
                             .altre = Qt::white,
                             .prima = 1,
                             .ultima = 1};
  riempi(come, aSerie_);
  EXPECT_EQ(righe(), testi({"1|81|105", "2|82|210", " ||315", "3|83|315", " ||315", "||"}));
  EXPECT_EQ(griglia_.CellBackColor(4, 1), QColor(Qt::yellow));
  EXPECT_FALSE(griglia_.CellBackColor(3, 1).isValid());
}

TEST_F(ElencoConSomme, UnElencoFermatoFinisceDoveEArrivatoSenzaSomma) {
  esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =null WHERE auto_id =3"));
  const EsitoElenco esito = riempi(conSomme(), aSerie_);
  EXPECT_FALSE(esito.intero);
  EXPECT_THAT(programma_.takeBoxes(),
              ElementsAre(criticalBox(QStringLiteral("Elenco 94 - Utilizzo non valido di Null"))));
  EXPECT_EQ(righe(), testi({"1|81|105", "2|82|210", " ||315", "3|83|"}));
}

TEST_F(ElencoConSomme, LeRigheDiSommeNonVannoNelFileENonSiContano) {
  riempi(conSomme(), aSerie_);
  const elenco::FormaCSV forma{.chiusa = true, .colonnaSomme = 0};
  EXPECT_EQ(elenco::TestoCSV(griglia_, kConSomme, forma),
            QByteArray("1;81;105; \r\n2;82;210; \r\n3;83;315; \r\n"));
  EXPECT_EQ(elenco::TestoCSV(griglia_, kConSomme, {}),
            QByteArray("1;81;105\r\n2;82;210\r\n ;;315\r\n3;83;315\r\n ;;315\r\n"));
  programma_.user.chooses(programma_.folder.file(QStringLiteral("lista.csv")));
  elenco::Esporta(QStringLiteral("Export Prova"), griglia_, kConSomme, forma, programma_.contesto, piede_);
  programma_.takeBoxes();
  EXPECT_EQ(piede_.text(), QStringLiteral("Esportate 3 righe in lista.csv"));
}

// The fields beside a list.

class CaselleElenco : public Elenco {
 protected:
  CaselleElenco() {
    for (const char* nome : {"casellaCodice", "casellaPrezzo"}) {
      auto* casella = new QLineEdit(&schermo_);
      casella->setObjectName(QLatin1String(nome));
    }
  }
  QLineEdit& casella(const char* nome) { return *schermo_.findChild<QLineEdit*>(QLatin1String(nome)); }

  QWidget schermo_;
};

TEST_F(CaselleElenco, UnaRigaVaNelleSueCaselleDallInizio) {
  riempi(semplice());
  const elenco::Caselle caselle(schermo_, kColonne);
  caselle.copia(griglia_, 2);
  EXPECT_EQ(casella("casellaCodice").text(), QStringLiteral("82"));
  EXPECT_EQ(casella("casellaPrezzo").text(), QStringLiteral("2.10"));
  EXPECT_EQ(casella("casellaCodice").cursorPosition(), 0);
  caselle.svuota();
  EXPECT_EQ(casella("casellaCodice").text(), QString());
  EXPECT_EQ(casella("casellaPrezzo").text(), QString());
}

TEST_F(CaselleElenco, UnTestoPiuLungoDelLimiteSiMostraIntero) {
  const elenco::Caselle caselle(schermo_, kColonne);
  griglia_.setRows(2);
  const QString lungo(20, u'9');
  griglia_.setTextMatrix(1, 1, lungo);
  caselle.copia(griglia_, 1);
  EXPECT_EQ(casella("casellaCodice").text(), lungo);
  EXPECT_EQ(casella("casellaCodice").maxLength(), 20);
  caselle.svuota();
  EXPECT_EQ(casella("casellaCodice").maxLength(), 13);
  EXPECT_EQ(casella("casellaPrezzo").maxLength(), 32767);
}

TEST_F(CaselleElenco, LaCasellaHaPostoPerIlCampioneDellaColonna) {
  const elenco::Caselle caselle(schermo_, kColonne);
  EXPECT_GT(casella("casellaCodice").minimumWidth(),
            casella("casellaCodice").fontMetrics().horizontalAdvance(QStringLiteral("0000000000000")));
  EXPECT_EQ(casella("casellaPrezzo").minimumWidth(), 0) << "its column has no sample";
}

TEST_F(CaselleElenco, UnaCasellaPrendeIlFuocoColTestoScelto) {
  const elenco::Caselle caselle(schermo_, kColonne);
  casella("casellaPrezzo").setText(QStringLiteral("2,10"));
  casella("casellaPrezzo").setAccessibleName(QStringLiteral("PREZZO"));
  schermo_.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&schermo_));
  caselle.vai(2);
  EXPECT_TRUE(casella("casellaPrezzo").hasFocus());
  EXPECT_EQ(casella("casellaPrezzo").selectedText(), QStringLiteral("2,10"));
  EXPECT_EQ(caselle.nome(2), QStringLiteral("PREZZO"));
  caselle.vai(0);
  EXPECT_TRUE(casella("casellaPrezzo").hasFocus()) << "a column without a field";
  EXPECT_EQ(caselle.nome(0), QString());
}

TEST_F(CaselleElenco, UnaCasellaCheNonCEEErrore438) {
  delete &casella("casellaPrezzo");
  try {
    const elenco::Caselle caselle(schermo_, kColonne);
    ADD_FAILURE() << "no failure";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 438);
    EXPECT_TRUE(errore.descrizione.endsWith(QStringLiteral("casellaPrezzo")));
  }
}

// The export.

TEST_F(Elenco, IlTestoEsportatoSegueLaSuaForma) {
  riempi(semplice());
  griglia_.setRows(3);
  griglia_.setTextMatrix(2, 1, QStringLiteral("CAFFÈ € 漢;\"x\""));
  EXPECT_EQ(elenco::TestoCSV(griglia_, kColonne, {}),
            QByteArray("81;1.05;N\r\nCAFF\xC8 \x80 ?;\"x\";2.10;N\r\n"));
  EXPECT_EQ(elenco::TestoCSV(griglia_, kColonne, {.numerata = true}),
            QByteArray("1;81;1.05;N\r\n2;CAFF\xC8 \x80 ?;\"x\";2.10;N\r\n"));
  EXPECT_EQ(elenco::TestoCSV(griglia_, kColonne, {.numerata = true, .chiusa = true}),
            QByteArray("1;81;1.05;N; \r\n2;CAFF\xC8 \x80 ?;\"x\";2.10;N; \r\n"));
}

TEST_F(Elenco, UnaGrigliaDiSolaTestataNonHaTesto) {
  griglia_.setRows(1);
  EXPECT_EQ(elenco::TestoCSV(griglia_, kColonne, {.numerata = true, .chiusa = true}), QByteArray());
}

TEST_F(Elenco, LEsportazioneChiedeScriveELoDice) {
  riempi(semplice());
  const QString lista = programma_.folder.file(QStringLiteral("lista.csv"));
  programma_.user.chooses(std::nullopt).chooses(QString()).chooses(lista);
  for (int volta = 0; volta < 3; ++volta) {
    EXPECT_FALSE(QFile::exists(lista));
    elenco::Esporta(QStringLiteral("Export Prova"), griglia_, kColonne, {}, programma_.contesto, piede_);
    EXPECT_EQ(piede_.text(), volta < 2 ? QStringLiteral("Esportazione annullata: nessun file scritto")
                                       : QStringLiteral("Esportate 3 righe in lista.csv"));
  }
  EXPECT_EQ(piede_.kind(), OutcomeBar::Kind::Done);
  EXPECT_EQ(programma_.folder.read(QStringLiteral("lista.csv")),
            QByteArray("81;1.05;N\r\n82;2.10;N\r\n83;3.15;N\r\n"));
  EXPECT_THAT(programma_.takeBoxes(),
              ElementsAre(box(QStringLiteral("Creazione del file ") + lista + QStringLiteral(" terminata."),
                              Icon::Information)));
  ASSERT_EQ(programma_.user.requests().size(), 3U);
  EXPECT_EQ(programma_.user.requests()[0].title, QStringLiteral("Export Prova"));
  EXPECT_EQ(programma_.user.requests()[0].filter, QStringLiteral("csv (*.csv)|*.csv"));
}

TEST_F(Elenco, IlFileEsportatoSiApreDalPiede) {
  riempi(semplice());
  griglia_.setRows(2);
  const QString lista = programma_.folder.file(QStringLiteral("lista.csv"));
  programma_.user.chooses(lista);
  elenco::Esporta(QStringLiteral("Export Prova"), griglia_, kColonne, {}, programma_.contesto, piede_);
  programma_.takeBoxes();
  EXPECT_EQ(piede_.text(), QStringLiteral("Esportata 1 riga in lista.csv"));
  auto& apri = *piede_.findChild<QToolButton*>(QStringLiteral("AzioneEsito"));
  EXPECT_EQ(apri.text(), QStringLiteral("Apri"));
  apri.click();
  EXPECT_EQ(programma_.user.programs(), QStringList{lista});
}

TEST_F(Elenco, SulDiscoPienoLEsportazioneDiceQualeFileELasciaQuelloDiPrima) {
  griglia_.setRows(3000);
  const QString lista = programma_.folder.write(QStringLiteral("lista.csv"), "prima");
  programma_.user.chooses(lista);
  Errore errore;
  try {
    const FullDisk pieno(1000);
    elenco::Esporta(QStringLiteral("Export Prova"), griglia_, kColonne, {}, programma_.contesto, piede_);
  } catch (const Errore& questo) {
    errore = questo;
  }
  EXPECT_EQ(errore.numero, 61);
  EXPECT_EQ(errore.descrizione, QStringLiteral("Disco pieno: ") + lista);
  EXPECT_EQ(programma_.folder.read(QStringLiteral("lista.csv")), QByteArray("prima"));
  EXPECT_THAT(programma_.takeBoxes(), IsEmpty());
}

}  // namespace
