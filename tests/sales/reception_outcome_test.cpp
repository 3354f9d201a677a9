// What a reception leaves behind it: the line at the foot, the file of the time before, the note of a
// clearing that the till has not confirmed.

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QRadioButton>
#include <algorithm>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "articles/damaged_archive.h"
#include "controls/outcome_bar.h"
#include "sales/Form_RicezioneVenduto.h"
#include "sales/reception.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

using testing::ElementsAre;
using Kind = OutcomeBar::Kind;

const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kFile = QStringLiteral("venduto.bin");
const QString kPrecedente = QStringLiteral("venduto.bin.precedente");
const QString kNota = QStringLiteral("venduto.bin.ricevuto");
const QByteArray kZeri(60000, '\0');

const Box kRicevuto =
    box(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"), Icon::Warning);
const Box kErroreDati = box(QStringLiteral("Errore nell'invio richiesta dati del venduto"), Icon::Warning);
const Box kErrore = box(QStringLiteral("Errore durante la trasmissione/ricezione. "), Icon::Warning);
const Box kAzzerato =
    box(QStringLiteral("ARCHIVIO DEL VENDUTO AZZERATO CORRETTAMENTE SULLA CASSA"), Icon::Warning);

QByteArray giornata(std::int32_t importo) {
  return salesArchive({{0, importo, 1, 0}, {7, importo, 2, 0}});
}

/// A shop that receives.
struct DopoLaRicezione : testing::Test {
  BackRoom bottega;
  TestTill cassa;
  std::unique_ptr<GuidedScreen> schermo;

  DopoLaRicezione() {
    bottega.screens.registra<Form_RicezioneVenduto>();
    bottega.openArchive();
  }
  void apri() { schermo = std::make_unique<GuidedScreen>(bottega, QStringLiteral("Form_RicezioneVenduto")); }
  void connetti() {
    apri();
    schermo->connectTo(cassa);
    ASSERT_TRUE(schermo->enabled(kAvvia));
  }
  /// The person starts what is chosen; the boxes that came.
  std::vector<Box> avvia() {
    schermo->click(kAvvia);
    return bottega.takeBoxes();
  }
  /// A reception of these bytes, to its end.
  void ricevi(const QByteArray& venduto) {
    if (!schermo || !schermo->alive()) connetti();
    cassa.put(kFile, venduto);
    EXPECT_THAT(avvia(), ElementsAre(kRicevuto));
  }
  /// One whose clearing the till refuses: the screen closes itself.
  void riceviSenzaAzzerare(const QByteArray& venduto) {
    if (!schermo || !schermo->alive()) connetti();
    cassa.put(kFile, venduto);
    cassa->faults({{.mode = 5, .what = ecrsim::FaultKind::Code, .code = 16}});
    EXPECT_EQ(avvia().size(), 3U);
    cassa->faults({});
    EXPECT_FALSE(schermo->alive());
  }
  OutcomeBar& piede() { return schermo->control<OutcomeBar>("BarraEsito"); }
  /// The colour that the style sheet asks for.
  QString colore() {
    for (const QLabel* scritta : piede().findChildren<QLabel*>())
      if (scritta->property("outcome").isValid()) return scritta->property("outcome").toString();
    return {};
  }
  void attendiPiede(Kind genere, const QString& testo) {
    EXPECT_EQ(piede().text(), testo);
    EXPECT_EQ(piede().kind(), genere);
    EXPECT_EQ(colore(), genere == Kind::Done ? QStringLiteral("done") : QStringLiteral("warning"));
  }
  bool ce(const QString& nome) const { return QFile::exists(bottega.folder.file(nome)); }
  int righe() { return bottega.rows(QStringLiteral("SELECT * from TAB_VENDUTO")); }
  int azzeramenti() {
    const auto chiamate = cassa->calls();
    return static_cast<int>(std::ranges::count(chiamate, 5, &ecrsim::Call::mode));
  }
};

// The foot.

TEST_F(DopoLaRicezione, UnFileInteroSiDiceConLeSueRighe) {
  ricevi(giornata(100));
  attendiPiede(Kind::Done, QStringLiteral("Ricevuti 60.000 byte, 2 righe di venduto."));
}

TEST_F(DopoLaRicezione, UnaRigaSolaSiDiceAlSingolare) {
  ricevi(salesArchive({{0, 100, 1, 0}}));
  attendiPiede(Kind::Done, QStringLiteral("Ricevuti 60.000 byte, 1 riga di venduto."));
}

TEST_F(DopoLaRicezione, DiUnFileCortoSiDiceQuantiByteSonoArrivati) {
  ricevi(giornata(100).left(20004));
  attendiPiede(
      Kind::Warning,
      QStringLiteral("Ricevuti 20.004 byte invece di 60.000: quelli che mancano contano come nessuna "
                     "vendita."));
}

TEST_F(DopoLaRicezione, DiUnFileVuotoSiDiceCheNonEArrivatoNulla) {
  ricevi({});
  attendiPiede(Kind::Warning,
               QStringLiteral("Ricevuti 0 byte invece di 60.000: quelli che mancano contano come nessuna "
                              "vendita."));
}

TEST_F(DopoLaRicezione, DiUnFileLungoSiDiceCheIlRestoNonSiELetto) {
  ricevi(giornata(100) + QByteArray(5000, '\x7F'));
  attendiPiede(Kind::Warning,
               QStringLiteral("Ricevuti 65.000 byte invece di 60.000: quelli in più non sono stati letti."));
}

TEST_F(DopoLaRicezione, SeLArchivioRifiutaSiDiceCheNullaEScritto) {
  connetti();
  cassa.put(kFile, giornata(100));
  bottega.execute(QStringLiteral("DROP TABLE TAB_VENDUTO"));
  EXPECT_EQ(avvia().size(), 1U);
  attendiPiede(Kind::Warning,
               QStringLiteral("Ricevuti 60.000 byte, 0 righe di venduto. Nulla è stato scritto "
                              "nell'archivio: la cassa conserva il suo venduto."));
  EXPECT_FALSE(ce(kNota));
}

TEST_F(DopoLaRicezione, UnAltroAvvioPrendeIlPostoAlPiede) {
  ricevi(giornata(100).left(20004));
  schermo->click(QStringLiteral("vkOptionButtonReset"));
  EXPECT_THAT(avvia(), ElementsAre(kAzzerato));
  attendiPiede(Kind::Done, QStringLiteral("Azzerato il venduto della cassa ") + cassa.address());
}

TEST_F(DopoLaRicezione, SeLaCassaNonConfermaLAzzeramentoSiDiceGiaAlSuoPosto) {
  connetti();
  cassa.put(kFile, giornata(100));
  cassa->faults({{.mode = 5, .what = ecrsim::FaultKind::Code, .code = 16}});
  QString detto;
  bottega.user.onBox = [&](const Box& riquadro) {
    if (riquadro == kErrore) detto = piede().text();
  };
  EXPECT_EQ(avvia().size(), 3U);
  bottega.user.onBox = nullptr;
  EXPECT_EQ(detto, QStringLiteral("Ricevuti 60.000 byte, 2 righe di venduto. La cassa non ha confermato "
                                  "l'azzeramento."));
}

TEST_F(DopoLaRicezione, ConnettiRipeteLAzzeramentoInSospeso) {
  riceviSenzaAzzerare(giornata(100));
  connetti();
  attendiPiede(Kind::Warning,
               QStringLiteral("Collegato a %1: IDLE. L'ultimo venduto ricevuto è nell'archivio archivio.mdb, "
                              "ma la cassa non ha confermato l'azzeramento: se lo consegna di nuovo, le "
                              "stesse vendite risulteranno due volte.")
                   .arg(cassa.address()));
}

// The file of the time before.

TEST_F(DopoLaRicezione, IlFileDiPrimaRestaAccantoAlNuovo) {
  ricevi(giornata(100));
  EXPECT_FALSE(ce(kPrecedente));
  ricevi(giornata(200));
  EXPECT_TRUE(bottega.folder.read(kFile) == giornata(200));
  EXPECT_TRUE(bottega.folder.read(kPrecedente) == giornata(100));
  ricevi(giornata(300));
  EXPECT_TRUE(bottega.folder.read(kPrecedente) == giornata(200));
}

TEST_F(DopoLaRicezione, UnaRicezioneFallitaNonPerdeIlFileDiPrima) {
  ricevi(giornata(100));
  cassa->faults({{.mode = 7, .what = ecrsim::FaultKind::Code, .code = 16}});
  for (int volta = 0; volta < 2; ++volta) {
    if (!schermo->alive()) connetti();
    EXPECT_EQ(avvia().size(), 3U);
    EXPECT_FALSE(ce(kFile));
    EXPECT_TRUE(bottega.folder.read(kPrecedente) == giornata(100));
  }
}

// The note.

TEST_F(DopoLaRicezione, LaNotaCEPrimaDellAzzeramentoEDopoNonPiu) {
  connetti();
  cassa.put(kFile, giornata(100));
  bool alRiquadro = true;
  bottega.user.onBox = [&](const Box&) { alRiquadro = ce(kNota); };
  EXPECT_THAT(avvia(), ElementsAre(kRicevuto));
  EXPECT_FALSE(alRiquadro);
  EXPECT_FALSE(ce(kNota));

  // The till's refusal is told from within the clearing: what was to be there before it is there.
  cassa.put(kFile, giornata(200));
  cassa->faults({{.mode = 5, .what = ecrsim::FaultKind::Code, .code = 16}});
  QByteArray nota;
  bottega.user.onBox = [&](const Box& riquadro) {
    if (riquadro.text.startsWith(QStringLiteral("Errore nella comunicazione")))
      nota = bottega.folder.read(kNota);
  };
  EXPECT_EQ(avvia().size(), 3U);
  EXPECT_EQ(nota, QCryptographicHash::hash(giornata(200), QCryptographicHash::Sha256).toHex() + '\t' +
                      cassa.address().toUtf8() + '\t' + varGlobal().NomeDB_Articoli.toUtf8() + '\n');
  EXPECT_EQ(bottega.folder.read(kNota), nota);
}

TEST_F(DopoLaRicezione, SeLaRispostaSiPerdeLaNotaResta) {
  const ShortTimeouts breve;
  connetti();
  cassa.put(kFile, giornata(100));
  cassa->faults({{.mode = 5, .what = ecrsim::FaultKind::CutAfter}});
  EXPECT_EQ(avvia().size(), 3U);
  EXPECT_TRUE(cassa.byte(kFile) == kZeri);
  EXPECT_TRUE(ce(kNota));
}

TEST_F(DopoLaRicezione, UnaRicezioneRifiutataDallArchivioNonLasciaNota) {
  connetti();
  cassa.put(kFile, giornata(100));
  bottega.execute(QStringLiteral("CREATE UNIQUE INDEX solo_uno ON TAB_VENDUTO (Importo_giornaliero)"));
  EXPECT_EQ(avvia().size(), 1U);
  EXPECT_FALSE(ce(kNota));
  // The first row was in before the second was refused.
  attendiPiede(Kind::Warning,
               QStringLiteral("Ricevuti 60.000 byte, 0 righe di venduto. Nulla è stato scritto "
                              "nell'archivio: la cassa conserva il suo venduto."));
}

TEST_F(DopoLaRicezione, LeStesseVenditeDiNuovoSiDicono) {
  riceviSenzaAzzerare(giornata(100));
  ricevi(giornata(100));
  attendiPiede(Kind::Warning,
               QStringLiteral("Ricevuti 60.000 byte, 2 righe di venduto. Le stesse vendite erano già state "
                              "ricevute nell'archivio archivio.mdb e la cassa non aveva confermato "
                              "l'azzeramento: ora risultano due volte."));
  EXPECT_EQ(righe(), 4);
  EXPECT_FALSE(ce(kNota));
  ricevi(giornata(100));
  attendiPiede(Kind::Done, QStringLiteral("Ricevuti 60.000 byte, 2 righe di venduto."));
}

TEST_F(DopoLaRicezione, AltreVenditeNonSonoLeStesse) {
  riceviSenzaAzzerare(giornata(100));
  ricevi(giornata(101));
  attendiPiede(Kind::Done, QStringLiteral("Ricevuti 60.000 byte, 2 righe di venduto."));
}

TEST_F(DopoLaRicezione, NienteVendutoDueVolteNonEDueVolte) {
  riceviSenzaAzzerare(kZeri);
  ricevi(kZeri);
  attendiPiede(Kind::Done, QStringLiteral("Ricevuti 60.000 byte, 0 righe di venduto."));
}

TEST_F(DopoLaRicezione, IlNomeDettoEQuelloDellArchivioDiAllora) {
  riceviSenzaAzzerare(giornata(100));
  articles::ChiudiDatabase();
  bottega.openArchive(QStringLiteral("altro.mdb"));
  ricevi(giornata(100));
  EXPECT_TRUE(piede().text().contains(QStringLiteral("nell'archivio archivio.mdb ")))
      << piede().text().toStdString();
  EXPECT_EQ(righe(), 2);
}

TEST_F(DopoLaRicezione, AllaRiaperturaSiDiceLAzzeramentoInSospeso) {
  riceviSenzaAzzerare(giornata(100));
  apri();
  attendiPiede(Kind::Warning,
               QStringLiteral("L'ultimo venduto ricevuto è nell'archivio archivio.mdb, ma la cassa non ha "
                              "confermato l'azzeramento: se lo consegna di nuovo, le stesse vendite "
                              "risulteranno due volte."));
}

TEST_F(DopoLaRicezione, SenzaSospesiIlPiedeEVuotoAllApertura) {
  ricevi(giornata(100));
  schermo->click(QStringLiteral("Cmd_Esci"));
  apri();
  EXPECT_EQ(piede().text(), QString());
  EXPECT_EQ(piede().kind(), Kind::Plain);
}

TEST_F(DopoLaRicezione, LaSolaCancellazioneConfermataToglieLaNota) {
  riceviSenzaAzzerare(giornata(100));
  connetti();
  schermo->click(QStringLiteral("vkOptionButtonReset"));
  EXPECT_THAT(avvia(), ElementsAre(kAzzerato));
  EXPECT_FALSE(ce(kNota));
}

TEST_F(DopoLaRicezione, LaNotaDiUnaCassaRestaQuandoUnAltraRiceveEAzzera) {
  riceviSenzaAzzerare(giornata(100));
  TestTill altra;
  altra.put(kFile, giornata(900));
  apri();
  schermo->connectTo(altra);
  EXPECT_THAT(avvia(), ElementsAre(kRicevuto));
  EXPECT_TRUE(ce(kNota));
  schermo->click(QStringLiteral("Cmd_Esci"));
  ricevi(giornata(100));
  EXPECT_TRUE(piede().text().endsWith(QStringLiteral("ora risultano due volte.")))
      << piede().text().toStdString();
  EXPECT_FALSE(ce(kNota));
}

TEST_F(DopoLaRicezione, DueCasseInSospesoHannoUnaRigaCiascuna) {
  riceviSenzaAzzerare(giornata(100));
  TestTill altra;
  altra.put(kFile, giornata(900));
  altra->faults({{.mode = 5, .what = ecrsim::FaultKind::Code, .code = 16}});
  apri();
  schermo->connectTo(altra);
  EXPECT_EQ(avvia().size(), 3U);
  EXPECT_EQ(bottega.folder.read(kNota).count('\n'), 2);
  riceviSenzaAzzerare(giornata(200));
  EXPECT_EQ(bottega.folder.read(kNota).count('\n'), 2);
}

TEST_F(DopoLaRicezione, DiDueCasseInSospesoConnettiDiceLArchivioDellaSua) {
  riceviSenzaAzzerare(giornata(100));
  articles::ChiudiDatabase();
  bottega.openArchive(QStringLiteral("altro.mdb"));
  TestTill altra;
  altra.put(kFile, giornata(900));
  altra->faults({{.mode = 5, .what = ecrsim::FaultKind::Code, .code = 16}});
  apri();
  schermo->connectTo(altra);
  EXPECT_EQ(avvia().size(), 3U);
  connetti();
  EXPECT_TRUE(piede().text().contains(QStringLiteral("è nell'archivio archivio.mdb,")))
      << piede().text().toStdString();
  schermo->click(QStringLiteral("Cmd_Esci"));
  apri();
  EXPECT_TRUE(piede().text().contains(QStringLiteral("è nell'archivio altro.mdb,"))) << "the last one";
  schermo->connectTo(altra);
  EXPECT_TRUE(piede().text().contains(QStringLiteral("è nell'archivio altro.mdb,")))
      << piede().text().toStdString();
}

TEST_F(DopoLaRicezione, UnaNotaCheNonSiPuoScrivereNonFermaLAzzeramento) {
  ASSERT_TRUE(QDir().mkdir(bottega.folder.file(kNota)));
  ricevi(giornata(100));
  EXPECT_EQ(righe(), 2);
  EXPECT_TRUE(cassa.byte(kFile) == kZeri);
}

TEST_F(DopoLaRicezione, UnCollegamentoAlPostoDellaNotaNonPortaAScrivereAltrove) {
  const QString lettera = bottega.folder.write(QStringLiteral("lettera.odt"), "cara Ada");
  ASSERT_TRUE(QFile::link(lettera, bottega.folder.file(kNota)));
  riceviSenzaAzzerare(giornata(100));
  EXPECT_EQ(bottega.folder.read(QStringLiteral("lettera.odt")), QByteArray("cara Ada"));
  EXPECT_FALSE(QFileInfo(bottega.folder.file(kNota)).isSymLink());
  EXPECT_EQ(bottega.folder.read(kNota).count('\n'), 1);
}

TEST_F(DopoLaRicezione, UnaNotaIlleggibileEComeNessuna) {
  for (const QByteArray& nota :
       {QByteArray(), QByteArray("x"), QByteArray("\0\n\0\n", 4), QByteArray(100000, '\n')}) {
    bottega.folder.write(kNota, nota);
    ricevi(giornata(100));
    EXPECT_EQ(piede().kind(), Kind::Done) << nota.left(4).toStdString();
  }
}

// A damaged archive.

TEST_F(DopoLaRicezione, UnArchivioDanneggiatoSiRifiutaELaCassaTieneLeVendite) {
  damage(bottega);
  const QByteArray prima = bottega.folder.read(QStringLiteral("archivio.mdb"));
  connetti();
  cassa.put(kFile, giornata(100));
  EXPECT_THAT(avvia(), ElementsAre(criticalBox(
                           QStringLiteral("Errore nel caricamento dati nella TAB_VENDUTO n° 3343\nFormato di "
                                          "database non riconosciuto: ") +
                           bottega.folder.file(QStringLiteral("archivio.mdb")))));
  EXPECT_TRUE(bottega.folder.read(QStringLiteral("archivio.mdb")) == prima);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(azzeramenti(), 0);
  EXPECT_TRUE(cassa.byte(kFile) == giornata(100));
  attendiPiede(Kind::Warning,
               QStringLiteral("Ricevuti 60.000 byte, 0 righe di venduto. Nulla è stato scritto "
                              "nell'archivio: la cassa conserva il suo venduto."));
}

// A full disk.

TEST_F(DopoLaRicezione, SulDiscoPienoSiDiceChePieno) {
  std::vector<SlotSales> tutti;
  for (int i = 0; i < 5000; ++i) tutti.push_back({i, i, 1, 0});
  connetti();
  cassa.sales(tutti);
  {
    const FullDisk pieno(
        static_cast<unsigned long>(QFileInfo(bottega.folder.file(QStringLiteral("archivio.mdb"))).size()) +
        4096);
    EXPECT_THAT(avvia(), ElementsAre(criticalBox(QStringLiteral(
                             "Errore nel caricamento dati nella TAB_VENDUTO n° 61\nDisco pieno"))));
  }
  EXPECT_EQ(azzeramenti(), 0);
  EXPECT_EQ(righe(), 0);
}

TEST_F(DopoLaRicezione, SeIlFileNonStaSulDiscoLaCassaTieneLeVendite) {
  connetti();
  cassa.put(kFile, giornata(100));
  {
    const FullDisk pieno(1000);
    EXPECT_THAT(avvia(), ElementsAre(criticalBox(QStringLiteral("Errore nella comunicazione con ECR: File "
                                                                "ricevuto non scrivibile sul PC")),
                                     kErroreDati, kErrore));
  }
  EXPECT_EQ(azzeramenti(), 0);
  EXPECT_TRUE(cassa.byte(kFile) == giornata(100));
}

// Impatience.

TEST_F(DopoLaRicezione, UnClicSuAvviaGrigioDuranteConnettiSiButtaENullaSiAzzera) {
  apri();
  cassa.put(kFile, giornata(100));
  schermo->click(QStringLiteral("vkOptionButtonReset"));
  ASSERT_TRUE(schermo->control<QRadioButton>("vkOptionButtonReset").isChecked());
  schermo->typeAddress(cassa.address());
  ASSERT_FALSE(schermo->enabled(kAvvia));
  // In the queue while "Connetti" asks the till, for a command that is on behind it.
  postClick(schermo->control(kAvvia));
  schermo->click(kConnetti);
  ASSERT_TRUE(schermo->enabled(kAvvia));
  QCoreApplication::processEvents();
  EXPECT_EQ(azzeramenti(), 0);
  EXPECT_TRUE(cassa.byte(kFile) == giornata(100));
  EXPECT_THAT(avvia(), ElementsAre(kAzzerato));
  EXPECT_EQ(azzeramenti(), 1);
}

TEST_F(DopoLaRicezione, UnClicSuAvviaDuranteUnaConnessioneFallitaSiButta) {
  apri();
  schermo->click(QStringLiteral("vkOptionButtonReset"));
  cassa->faults({{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}});
  schermo->typeAddress(cassa.address());
  postClick(schermo->control(kAvvia));
  schermo->click(kConnetti);
  QCoreApplication::processEvents();
  EXPECT_EQ(bottega.takeBoxes().size(), 1U);
  EXPECT_TRUE(schermo->enabled(kAvvia));
  EXPECT_EQ(azzeramenti(), 0);
}

TEST_F(DopoLaRicezione, UnClicRimastoInCodaDopoUnaRicezioneNonNeFaUnAltra) {
  connetti();
  cassa.put(kFile, giornata(100));
  bottega.user.onBox = [&](const Box&) {
    bottega.user.onBox = nullptr;
    postClick(schermo->control(kAvvia));
  };
  EXPECT_THAT(avvia(), ElementsAre(kRicevuto));
  QCoreApplication::processEvents();
  EXPECT_EQ(azzeramenti(), 1);
  EXPECT_EQ(righe(), 2);
}

}  // namespace
