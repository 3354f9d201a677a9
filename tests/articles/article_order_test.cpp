#include <gtest/gtest.h>

#include <QEvent>
#include <QGuiApplication>
#include <QProgressBar>
#include <algorithm>

#include "articles/Form_TrasferimentoArticoli.h"
#include "articles/article_editing.h"
#include "articles/guided_archive.h"
#include "articles/import_fixture.h"
#include "articles/plu_image.h"
#include "config/image.h"
#include "sostegno/troubles.h"

namespace {

/// What happens, in the order in which it comes: boxes by their beginning, event passes, and what a test
/// adds. Behind each entry stands the state that it met.
class Diario : public QObject {
 public:
  Diario(ScriptedUser& utente, std::function<QString()> stato) : utente_(utente), stato_(std::move(stato)) {
    utente_.onBox = [this](const Box& riquadro) { annota(riquadro.text.left(kRiconoscibile)); };
    utente_.onPass = [this] { annota(QStringLiteral("passaggio")); };
  }
  ~Diario() override {
    utente_.onBox = nullptr;
    utente_.onPass = nullptr;
  }

  void annota(const QString& cosa) {
    if (prima) prima();
    voci << cosa + QStringLiteral(" [") + stato_() + u']';
  }
  /// The focus of a control is an entry too.
  void segui(QWidget& controllo) { controllo.installEventFilter(this); }
  bool eventFilter(QObject* controllo, QEvent* evento) override {
    if (evento->type() == QEvent::FocusIn) annota(QStringLiteral("fuoco su ") + controllo->objectName());
    return false;
  }

  QStringList voci;
  /// Runs before each entry: adds those that nobody tells of by themselves.
  std::function<void()> prima;

 private:
  static constexpr qsizetype kRiconoscibile = 32;

  ScriptedUser& utente_;
  std::function<QString()> stato_;
};

// The sending of the archive: which commands are on and where the bar stands.

struct OrdineTrasferimento : testing::Test {
  BackRoom bottega;
  TestTill cassa;
  std::unique_ptr<GuidedScreen> schermo;
  qsizetype chiamate = 0;
  Diario diario{bottega.user, [this] { return stato(); }};

  OrdineTrasferimento() {
    bottega.screens.registra<Form_TrasferimentoArticoli>();
    bottega.openArchive();
    bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 2"));
    schermo = std::make_unique<GuidedScreen>(bottega, QStringLiteral("Form_TrasferimentoArticoli"));
    schermo->connectTo(cassa);
    chiamate = callsOf(cassa).size();
    diario.prima = [this] { annotaChiamate(); };
    EXPECT_EQ(stato(), QStringLiteral("avvia, esci, barra 0"));
  }
  QString stato() {
    if (!schermo->alive()) return QStringLiteral("scaricato");
    QStringList parti;
    if (schermo->enabled(QStringLiteral("Cmd_Avvia"))) parti << QStringLiteral("avvia");
    if (schermo->enabled(QStringLiteral("Cmd_Esci"))) parti << QStringLiteral("esci");
    parti << QStringLiteral("barra %1").arg(schermo->control<QProgressBar>("vkBar1").value());
    return parti.join(QStringLiteral(", "));
  }
  void annotaChiamate() {
    for (const QStringList tutte = callsOf(cassa); chiamate < tutte.size(); ++chiamate)
      diario.voci << tutte[chiamate];
  }
  /// The story of one click on the start command.
  QStringList invia() {
    diario.voci.clear();
    schermo->click(QStringLiteral("Cmd_Avvia"));
    diario.annota(QStringLiteral("fine"));
    bottega.takeBoxes();
    return diario.voci;
  }
};

const QStringList kInvioRiuscito{QStringLiteral("passaggio [barra 0]"),
                                 QStringLiteral("1:"),
                                 QStringLiteral("6:plu.bin"),
                                 QStringLiteral("2:"),
                                 QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTA [barra 1]"),
                                 QStringLiteral("fine [avvia, esci, barra 1]")};

TEST_F(OrdineTrasferimento, IComandiSiRiaccendonoDietroIlRiquadroELaBarraRipartePerOgniInvio) {
  EXPECT_EQ(invia(), kInvioRiuscito);
  EXPECT_EQ(schermo->focus(), QStringLiteral("Cmd_Esci"));
  EXPECT_EQ(invia(), kInvioRiuscito);
}

TEST_F(OrdineTrasferimento, UnInvioFallitoDopoUnoRiuscitoRiportaLaBarraAZeroERiaccendeLaSolaUscita) {
  invia();
  cassa->faults({{.mode = 6, .what = ecrsim::FaultKind::Code, .code = 16}});
  EXPECT_EQ(invia(), (QStringList{QStringLiteral("passaggio [barra 0]"), QStringLiteral("1:"),
                                  QStringLiteral("6:plu.bin"),
                                  QStringLiteral("Errore nella comunicazione con E [barra 0]"),
                                  QStringLiteral("Fallita operazione trasferimento [barra 0]"),
                                  QStringLiteral("Errore durante il trasferimento/ [esci, barra 0]"),
                                  QStringLiteral("fine [scaricato]")}));
}

TEST_F(OrdineTrasferimento, UnRiempimentoFallitoDopoUnInvioRiuscitoLasciaLaBarraAZero) {
  invia();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = null WHERE auto_id =1"));
  EXPECT_EQ(invia(), (QStringList{QStringLiteral("passaggio [barra 0]"),
                                  QStringLiteral("RiempiPLU: uscita dal programma  [barra 0]"),
                                  QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTA [barra 0]"),
                                  QStringLiteral("fine [avvia, esci, barra 0]")}));
}

TEST_F(OrdineTrasferimento, GliEventiDelPrimoPassoPassanoPrimaDelRiempimento) {
  bottega.user.onPass = [this] {
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =258 WHERE auto_id =1"));
  };
  invia();
  EXPECT_EQ(cassa.byte(QStringLiteral("plu.bin")).mid(27, 4), QByteArray("\x02\x01\0\0", 4));
}

// Saving an article: how many transactions stand open, and whether the pointer is the working one.

struct OrdineSalvataggio : testing::Test {
  BackRoom bottega;
  std::unique_ptr<GuidedArchive> schermo;
  std::unique_ptr<Diario> diario;

  OrdineSalvataggio() {
    bottega.screens.registra<Form_ArchivioArticoli>();
    bottega.openArchive();
    bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 1"));
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE'"));
    schermo = std::make_unique<GuidedArchive>(bottega);
    schermo->clickCell(1, 1);
    diario = std::make_unique<Diario>(bottega.user, [this] { return stato(); });
    diario->segui(schermo->grid());
  }
  QString stato() const {
    return QString::number(bottega.workspace.level()) +
           (QGuiApplication::overrideCursor() ? QStringLiteral(", clessidra") : QString());
  }
  QStringList salva(const QString& descrizione) {
    schermo->type(QStringLiteral("vkTextBoxDesc"), descrizione);
    diario->voci.clear();
    schermo->click(QStringLiteral("Cmd_Modifica"));
    diario->annota(QStringLiteral("fine"));
    bottega.takeBoxes();
    return diario->voci;
  }
};

TEST_F(OrdineSalvataggio, LElencoSiRiempiePrimaDellaConfermaEIlFuocoVaAllaGrigliaDopo) {
  EXPECT_EQ(salva(QStringLiteral("latte")),
            (QStringList{QStringLiteral("passaggio [1, clessidra]"),
                         QStringLiteral("fuoco su MSFlexGridArticoli [0]"), QStringLiteral("fine [0]")}));
}

TEST_F(OrdineSalvataggio, LAnnullamentoVieneDietroIlMessaggioELElencoNonSiRiempie) {
  EXPECT_EQ(salva(QStringLiteral("l'uva")),
            (QStringList{QStringLiteral("Errore nella modifica articoli . [1, clessidra]"),
                         QStringLiteral("fuoco su MSFlexGridArticoli [0]"), QStringLiteral("fine [0]")}));
}

TEST_F(OrdineSalvataggio, UnaConfermaFallitaSiDicePrimaDiAnnullareEDopoLElencoSiRiempieDaCapo) {
  const OtherProgram lettore(bottega.folder.file(QStringLiteral("archivio.mdb")),
                             {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
  EXPECT_EQ(salva(QStringLiteral("latte")),
            (QStringList{QStringLiteral("passaggio [1, clessidra]"),
                         QStringLiteral("Errore nella modifica articoli . [1, clessidra]"),
                         QStringLiteral("passaggio [0, clessidra]"),
                         QStringLiteral("fuoco su MSFlexGridArticoli [0]"), QStringLiteral("fine [0]")}));
}

TEST_F(OrdineSalvataggio, UnCampoRifiutatoSiDiceSenzaTransazioneNePuntatoreNeFuoco) {
  EXPECT_EQ(salva(QString()), (QStringList{QStringLiteral("Attenzione il campo DESCRIZIONE  [0]"),
                                           QStringLiteral("fine [0]")}));
}

// A new article, and the deletion of one.

struct OrdineArticoli : testing::Test {
  struct Schermo : articles::SchermoArticoli {
    explicit Schermo(OrdineArticoli& test) : test_(test) {}
    void BloccaComandi(bool bloccati) override {
      test_.diario.annota(bloccati ? QStringLiteral("blocca") : QStringLiteral("sblocca"));
    }
    void Cancella_TextBox() override { test_.diario.annota(QStringLiteral("svuota")); }
    void Tasto_Refresh() override { test_.diario.annota(QStringLiteral("riempi")); }

   private:
    OrdineArticoli& test_;
  };

  BackRoom bottega;
  Diario diario{bottega.user, [this] { return QString::number(bottega.workspace.level()); }};
  Schermo schermo{*this};
  articles::CampiArticolo campi{.id = {},
                                .ean = QStringLiteral("8001234567890"),
                                .codice = QStringLiteral("PA1"),
                                .descrizione = QStringLiteral("pane"),
                                .prezzo = QStringLiteral("2,35"),
                                .reparto = QStringLiteral("4"),
                                .varPrezzo = QStringLiteral("S"),
                                .prezzoZero = QStringLiteral("N")};

  OrdineArticoli() {
    bottega.openArchive();
    bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 1"));
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='8'"));
    diario.voci.clear();
  }
  QStringList inserisci() {
    articles::InserimentoArticolo(campi, bottega.contesto, schermo);
    return racconto();
  }
  QStringList cancella(const QString& ean, Answer risposta = Answer::Ok) {
    bottega.user.answers(risposta);
    articles::Tasto_Cancella(ean, bottega.contesto, schermo);
    return racconto();
  }
  QStringList racconto() {
    EXPECT_EQ(bottega.workspace.level(), 0);
    bottega.takeBoxes();
    return diario.voci;
  }
};

TEST_F(OrdineArticoli, UnArticoloNuovoSiConfermaPrimaDiRiempireLElenco) {
  EXPECT_EQ(inserisci(), QStringList{QStringLiteral("riempi [0]")});
}

TEST_F(OrdineArticoli, UnInserimentoFallitoSiDicePrimaDiAnnullarlo) {
  campi.descrizione = QStringLiteral("l'uva");
  EXPECT_EQ(inserisci(), QStringList{QStringLiteral("Errore nell' inserimento articol [1]")});
}

TEST_F(OrdineArticoli, UnEanAltruiSiDicePrimaDiAnnullare) {
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='8001234567890'"));
  EXPECT_EQ(inserisci(), QStringList{QStringLiteral("Attenzione il Codice EAN immesso [1]")});
}

TEST_F(OrdineArticoli, UnaCancellazioneDomandaBloccaConfermaSbloccaSvuotaERiempie) {
  EXPECT_EQ(cancella(QStringLiteral("8")),
            (QStringList{QStringLiteral("Attenzione questa operazione com [1]"), QStringLiteral("blocca [1]"),
                         QStringLiteral("sblocca [0]"), QStringLiteral("svuota [0]"),
                         QStringLiteral("riempi [0]")}));
}

TEST_F(OrdineArticoli, UnaCancellazioneFallitaSiDiceAComandiBloccatiPrimaDiAnnullarla) {
  EXPECT_EQ(
      cancella(QStringLiteral("8'1")),
      (QStringList{QStringLiteral("Attenzione questa operazione com [1]"), QStringLiteral("blocca [1]"),
                   QStringLiteral("Errore nell' eliminazione artico [1]"), QStringLiteral("sblocca [0]")}));
}

TEST_F(OrdineArticoli, UnaCancellazioneRifiutataSbloccaSoltanto) {
  EXPECT_EQ(
      cancella(QStringLiteral("8"), Answer::Cancel),
      (QStringList{QStringLiteral("Attenzione questa operazione com [1]"), QStringLiteral("sblocca [1]")}));
}

TEST_F(OrdineArticoli, LeSchedeDellaCassaFalliteSiDiconoPrimaDiAnnullarle) {
  std::ranges::fill(config::immagineProgrammazione().blocco(config::kPLU), std::uint8_t{0});
  config::scriviTesto(config::immagineProgrammazione().record(config::kPLU, 1), config::plu::kDescrizione,
                      QStringLiteral("L'UVA"));
  EXPECT_EQ(articles::SalvaPLU(bottega.contesto), 1);
  EXPECT_EQ(racconto(), QStringList{QStringLiteral("Errore nella modifica articoli . [1]")});
}

// The import: transactions, pointer, wait box, and whether the report is closed.

struct OrdineImport : ImportArticoli {
  Diario diario{bottega.user, [this] { return stato(); }};

  OrdineImport() {
    bottega.screens.registra(QStringLiteral("Form_ATTESA"), [](Contesto&) { return new QWidget; });
  }
  QString stato() {
    QStringList parti{QString::number(bottega.workspace.level())};
    if (QGuiApplication::overrideCursor()) parti << QStringLiteral("clessidra");
    if (bottega.screens.trova(QStringLiteral("Form_ATTESA"))) parti << QStringLiteral("attesa");
    if (report().contains("FINE REPORT")) parti << QStringLiteral("report chiuso");
    return parti.join(QStringLiteral(", "));
  }
  QStringList raccontoDi(const QByteArray& csv) {
    importa(csv);
    diario.annota(QStringLiteral("fine"));
    bottega.takeBoxes();
    return diario.voci;
  }
};

TEST_F(OrdineImport, LaConfermaEIlRiquadroVengonoPrimaDellaChiusuraDelReport) {
  EXPECT_EQ(raccontoDi(listaSana(1)), (QStringList{QStringLiteral("passaggio [1, clessidra, attesa]"),
                                                   QStringLiteral("Operazione di Import ARTICOLI es [0]"),
                                                   QStringLiteral("fine [0, report chiuso]")}));
}

TEST_F(OrdineImport, UnaRigaSenzaFormaChiudeReportEAttesaEConfermaPrimaDelRiquadro) {
  EXPECT_EQ(raccontoDi(listaSana(1) + "rotta\r\n"),
            (QStringList{QStringLiteral("passaggio [1, clessidra, attesa]"),
                         QStringLiteral("passaggio [1, clessidra, attesa]"),
                         QStringLiteral("OPERAZIONE DI IMPORTAZIONE ARTIC [0, report chiuso]"),
                         QStringLiteral("fine [0, report chiuso]")}));
  EXPECT_EQ(livelloAllaFine, 0);
}

TEST_F(OrdineImport, UnIstruzioneFallitaSiDiceConLAttesaApertaPrimaDiAnnullare) {
  EXPECT_EQ(raccontoDi(rigaCsv(1, "8001", "A", "L'UVA", "1,00", "1") + listaSana(1)),
            (QStringList{QStringLiteral("passaggio [1, clessidra, attesa]"),
                         QStringLiteral("Errore nell'aggiornamento artico [1, clessidra, attesa]"),
                         QStringLiteral("Operazione di Import ARTICOLI es [0]"),
                         QStringLiteral("fine [0, report chiuso]")}));
}

TEST_F(OrdineImport, UnaConfermaFallitaSiDiceAdAttesaChiusaPrimaDiAnnullare) {
  const OtherProgram lettore(archivio,
                             {QStringLiteral("BEGIN"), QStringLiteral("SELECT count(*) FROM TAB_ARTICOLI")});
  EXPECT_EQ(raccontoDi(listaSana(1)), (QStringList{QStringLiteral("passaggio [1, clessidra, attesa]"),
                                                   QStringLiteral("Errore nell'aggiornamento artico [1]"),
                                                   QStringLiteral("fine [0, report chiuso]")}));
}

TEST_F(OrdineImport, GliEventiPassanoPrimaDellaLoroRiga) {
  QStringList visti;
  bottega.user.onPass = [&] { visti << colonna(QStringLiteral("Descrizione"), 1); };
  importa(rigaCsv(1, {}, "A", "PRIMA", "1,00", "1") + rigaCsv(1, {}, "A", "SECONDA", "1,00", "1"));
  bottega.takeBoxes();
  ASSERT_EQ(visti.size(), 2);
  EXPECT_NE(visti[0], QStringLiteral("PRIMA"));
  EXPECT_EQ(visti[1], QStringLiteral("PRIMA"));
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 1), QStringLiteral("SECONDA"));
}

}  // namespace
