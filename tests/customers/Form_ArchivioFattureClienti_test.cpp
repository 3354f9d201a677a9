#include "customers/Form_ArchivioFattureClienti.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "customers/office.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

const QString kSchermo = QStringLiteral("Form_ArchivioFattureClienti");
const QString kCerca = QStringLiteral("Cmd_Cerca");
const QString kReset = QStringLiteral("Cmd_Reset");
const QString kTutte = QStringLiteral("Cmd_Refresh");
const QString kExport = QStringLiteral("Cmd_Export");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kNome = QStringLiteral("vkTextBoxRagioneSociale");
const QString kPartita = QStringLiteral("vkTextBoxPartitaIVA");
const QString kNumero = QStringLiteral("vkTextBoxNumFattura");
const QString kPeriodo = QStringLiteral("LabelPeriodo");
const QStringList kListe = QStringLiteral(
                               "CmbGiorno CmbMese CmbAnno CmbOra CmbMin CmbSec CmbGiornoFine CmbMeseFine "
                               "CmbAnnoFine CmbOraFine CmbMinFine CmbSecFine")
                               .split(u' ');
const QString kMarzo = QStringLiteral("05/03/2024 10:20:30");
const QString kVirgole = QStringLiteral("Attenzione il valore immesso non è di tipo numerico !!!");

/// A screen that waits under the archive.
class Vicina : public QDialog {
 public:
  explicit Vicina(const QString& nome) { setObjectName(nome); }
};

class ArchivioFatture : public testing::Test {
 protected:
  ArchivioFatture() {
    ufficio.screens.registra<Form_ArchivioFattureClienti>();
    for (const QString& nome :
         {QStringLiteral("Form_AnagraficaClienti"), QStringLiteral("Form_GestioneClienti")})
      ufficio.screens.registra(nome, [nome](Contesto&) { return new Vicina(nome); });
    ufficio.openArchive();
  }

  /// Two customers with an invoice each, in February and in March, and one without.
  void dueFatture() {
    ufficio.customer(1, QStringLiteral("BIANCHI"), QStringLiteral("00905811006"));
    ufficio.customer(2, QStringLiteral("ROSSI"), QStringLiteral("00488410010"));
    ufficio.customer(3, QStringLiteral("VUOTO"));
    ufficio.invoice(1, QStringLiteral("2024/1"), QStringLiteral("05/02/2024 10:00:00"), 12200, 10000, 2200, 5,
                    QStringLiteral("MARIO"));
    ufficio.invoice(2, QStringLiteral("2024/2"), kMarzo, 100, 90, 10);
  }
  static void filtra(const char* codice, const QString& nome, const QString& partita) {
    customers::statoClienti().filtro = {
        .acceso = true, .partitaIVA = partita, .ragioneSociale = nome, .codice = QString::fromLatin1(codice)};
  }
  static FlexGrid& griglia(const GuidedScreen& schermo) {
    return schermo.control<FlexGrid>(QStringLiteral("MSFlexGridFatture"));
  }
  /// Code and number of each row, sums as their total.
  static QStringList righe(const GuidedScreen& schermo) {
    QStringList tutte;
    const FlexGrid& lista = griglia(schermo);
    for (int r = 1; r < lista.Rows(); ++r)
      tutte << (lista.TextMatrix(r, 0) == u" " ? lista.TextMatrix(r, 5)
                                               : lista.TextMatrix(r, 0) + u'|' + lista.TextMatrix(r, 3));
    return tutte;
  }
  static QStringList testi(std::initializer_list<const char*> questi) {
    QStringList tutti;
    for (const char* testo : questi) tutti << QString::fromUtf8(testo);
    return tutti;
  }
  static void scegli(const GuidedScreen& schermo, const QString& lista, const QString& voce) {
    auto& combo = schermo.control<QComboBox>(lista);
    combo.setFocus();
    QTest::keyClicks(&combo, voce);
    ASSERT_EQ(combo.currentText(), voce);
  }
  static void scegliGiorno(const GuidedScreen& schermo, const QString& finale, const QString& ddmmyyyy) {
    scegli(schermo, QStringLiteral("CmbGiorno") + finale, ddmmyyyy.left(2));
    scegli(schermo, QStringLiteral("CmbMese") + finale, ddmmyyyy.mid(3, 2));
    scegli(schermo, QStringLiteral("CmbAnno") + finale, ddmmyyyy.mid(6));
  }
  static QString scelto(const GuidedScreen& schermo, const QString& finale) {
    QStringList parti;
    for (const char* lista : {"CmbGiorno", "CmbMese", "CmbAnno", "CmbOra", "CmbMin", "CmbSec"})
      parti << schermo.control<QComboBox>(QLatin1String(lista) + finale).currentText();
    return parti.join(u' ');
  }
  static QString detto(const GuidedScreen& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").text().replace(QChar(0xA0), u' ');
  }
  static OutcomeBar::Kind genere(const GuidedScreen& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").kind();
  }
  static Box rifiuto(const QString& data) {
    Box atteso = box(QStringLiteral("La Data di inizio ") + data +
                         QStringLiteral(" e' invalida\r\nControllare che il giorno immesso è compatibile con "
                                        "il mese prescelto"),
                     Icon::Information);
    atteso.title = QStringLiteral("Errore");
    return atteso;
  }

  WithLocale locale{"C"};
  Office ufficio;
};

// Opening.

TEST_F(ArchivioFatture, AllAperturaSiVedeTuttoLArchivioConTitoloEPeriodo) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Archivio Fatture Clienti"));
  EXPECT_EQ(schermo.text(kCerca), QStringLiteral("Cerca"));
  EXPECT_EQ(schermo.text(kReset), QStringLiteral("Clear"));
  EXPECT_EQ(schermo.text(kEsci), QStringLiteral("Esci"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Archivio: clienti.mdb"));
  EXPECT_EQ(righe(schermo), testi({"0|", "0.00", "1|2024/1", "122.00", "2|2024/2", "1.00", "3|", "0.00"}));
  EXPECT_EQ(schermo.text(kPeriodo), QStringLiteral("tutte le date"));
  EXPECT_EQ(detto(schermo),
            QStringLiteral("2 fatture: totale € 123,00, imponibile € 100,90, imposta € 22,10, "
                           "non pagato € 0,05; 2 clienti senza fatture"));
  EXPECT_EQ(schermo.focus(), QStringLiteral("CmbGiorno"));
  for (const QString& nome : {kCerca, kReset, kTutte, kExport, kEsci, kNome, kPartita, kNumero})
    EXPECT_TRUE(schermo.enabled(nome)) << nome.toStdString();
}

TEST_F(ArchivioFatture, LeDodiciListeSonoAllaPrimaVoceELaFineAOggi) {
  const GuidedScreen schermo(ufficio, kSchermo);
  EXPECT_EQ(scelto(schermo, {}), QStringLiteral("01 01 2000 00 00 00"));
  EXPECT_EQ(scelto(schermo, QStringLiteral("Fine")), QStringLiteral("07 03 2024 00 00 00"));
  EXPECT_EQ(schermo.control<QComboBox>("CmbAnno").count(), 101);
  EXPECT_EQ(schermo.control<QComboBox>("CmbOraFine").count(), 24);
}

TEST_F(ArchivioFatture, SenzaLeTabelleIlProgrammaFinisceConIlMessaggioGrave) {
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRA (A TEXT)")});
  EXPECT_THROW(ufficio.screens.mostra(kSchermo, ufficio.contesto), ProgramEnded);
  expectBoxes(ufficio, {criticalBox(QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON "
                                                   "CORRETTO. PROCEDURA ABORTITA !!!"))});
}

// The search.

TEST_F(ArchivioFatture, CercaMostraLeFattureDelPeriodoESoloIClientiCheNeHanno) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  scegliGiorno(schermo, {}, QStringLiteral("01/03/2024"));
  schermo.click(kCerca);
  EXPECT_EQ(righe(schermo), testi({"2|2024/2", "1.00"}));
  EXPECT_EQ(schermo.text(kPeriodo), QStringLiteral("dal 01/03/2024 al 07/03/2024"));
  EXPECT_EQ(detto(schermo), QStringLiteral("1 fattura: totale € 1,00, imponibile € 0,90, imposta € 0,10, non "
                                           "pagato € 0,00"));
  schermo.click(kTutte);
  EXPECT_EQ(griglia(schermo).Rows(), 9);
  EXPECT_EQ(schermo.text(kPeriodo), QStringLiteral("tutte le date"));
}

TEST_F(ArchivioFatture, ITreCampiFiltranoPerCioConCuiCominciano) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.type(kNome, QStringLiteral("bia"));
  schermo.click(kCerca);
  EXPECT_EQ(righe(schermo), testi({"1|2024/1", "122.00"}));
  schermo.type(kNome, {});
  schermo.type(kPartita, QStringLiteral("0048"));
  schermo.click(kCerca);
  EXPECT_EQ(righe(schermo), testi({"2|2024/2", "1.00"}));
  schermo.type(kPartita, {});
  schermo.type(kNumero, QStringLiteral("2024/1"));
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(righe(schermo), testi({"1|2024/1", "122.00"}));
}

TEST_F(ArchivioFatture, GliOrariNonEntranoNellaRicerca) {
  ufficio.invoice(0, QStringLiteral("2024/1"), QStringLiteral("07/03/2024 23:59:59"), 100);
  const GuidedScreen schermo(ufficio, kSchermo);
  scegli(schermo, QStringLiteral("CmbOraFine"), QStringLiteral("05"));
  scegli(schermo, QStringLiteral("CmbOra"), QStringLiteral("22"));
  schermo.click(kCerca);
  EXPECT_EQ(righe(schermo), testi({"0|2024/1", "1.00"}));
}

TEST_F(ArchivioFatture, NienteDiTrovatoSiDiceInMezzoEAlPiede) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.type(kNome, QStringLiteral("ZZZ"));
  schermo.click(kCerca);
  EXPECT_EQ(griglia(schermo).Notice(), QStringLiteral("Nessuna fattura trovata"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Nessuna fattura trovata"));
}

TEST_F(ArchivioFatture, IlTrentunoAprileSiDiceELElencoRestaComEra) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  const QStringList prima = righe(schermo);
  scegliGiorno(schermo, {}, QStringLiteral("31/04/2023"));
  schermo.click(kCerca);
  expectBoxes(ufficio, {rifiuto(QStringLiteral("31/04/2023"))});
  EXPECT_EQ(righe(schermo), prima);
  EXPECT_EQ(schermo.text(kPeriodo), QStringLiteral("tutte le date"));
  EXPECT_EQ(schermo.focus(), QStringLiteral("CmbGiorno"));
  EXPECT_EQ(detto(schermo),
            QStringLiteral("Data di inizio rifiutata: l'elenco è quello di prima. La data deve "
                           "esistere e il suo anno non può essere futuro"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
}

TEST_F(ArchivioFatture, UnaFineErrataHaLeParoleDellInizioEIlPiedeDiceQuale) {
  const GuidedScreen schermo(ufficio, kSchermo);
  scegliGiorno(schermo, QStringLiteral("Fine"), QStringLiteral("29/02/2023"));
  schermo.click(kCerca);
  expectBoxes(ufficio, {rifiuto(QStringLiteral("29/02/2023"))});
  EXPECT_EQ(schermo.focus(), QStringLiteral("CmbGiornoFine"));
  EXPECT_TRUE(detto(schermo).startsWith(QStringLiteral("Data di fine rifiutata")));
}

TEST_F(ArchivioFatture, UnAnnoFuturoSiRifiutaComeUnGiornoCheNonEsiste) {
  const GuidedScreen schermo(ufficio, kSchermo);
  scegli(schermo, QStringLiteral("CmbAnnoFine"), QStringLiteral("2025"));
  schermo.click(kCerca);
  expectBoxes(ufficio, {rifiuto(QStringLiteral("07/03/2025"))});
}

TEST_F(ArchivioFatture, UnApostrofoSiAnnunciaESeSiCercaIlProgrammaFinisce) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  const QStringList prima = righe(schermo);
  schermo.type(kNome, QStringLiteral("D'ORO"));
  EXPECT_EQ(detto(schermo),
            QStringLiteral("Con un apostrofo la ricerca chiude il programma: al suo posto scrivere ?"));
  schermo.click(kCerca);
  expectBoxes(
      ufficio,
      {criticalBox(QStringLiteral("Cmd_Cerca_Click: uscita dal programma per condizione anomala 3075 - *"))});
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_EQ(righe(schermo), prima);
}

TEST_F(ArchivioFatture, ToltoLApostrofoLAvvisoSeNeVa) {
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.type(kNumero, QStringLiteral("2024'"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  QTest::keyClick(&schermo.control(kNumero), Qt::Key_Backspace);
  EXPECT_EQ(detto(schermo), QString());
}

TEST_F(ArchivioFatture, ClearVuotaICampiERimetteLeDateELElencoResta) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.type(kNome, QStringLiteral("B"));
  schermo.type(kPartita, QStringLiteral("0"));
  schermo.type(kNumero, QStringLiteral("2024"));
  scegliGiorno(schermo, {}, QStringLiteral("03/02/2024"));
  scegliGiorno(schermo, QStringLiteral("Fine"), QStringLiteral("09/02/2024"));
  scegli(schermo, QStringLiteral("CmbMinFine"), QStringLiteral("30"));
  schermo.click(kCerca);
  schermo.click(kReset);
  for (const QString& campo : {kNome, kPartita, kNumero}) EXPECT_EQ(schermo.text(campo), QString());
  EXPECT_EQ(scelto(schermo, {}), QStringLiteral("01 01 2000 00 00 00"));
  EXPECT_EQ(scelto(schermo, QStringLiteral("Fine")), QStringLiteral("07 03 2024 00 00 00"));
  EXPECT_EQ(righe(schermo), testi({"1|2024/1", "122.00"}));
  EXPECT_EQ(detto(schermo), QStringLiteral("Filtri vuoti, periodo fino a oggi; l'elenco è quello di prima"));
}

// The field of the VAT number.

TEST_F(ArchivioFatture, LaPartitaIVAPrendeTrediciCifreENientAltro) {
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.type(kPartita, QStringLiteral("IT12,3.4-5 '6"));
  EXPECT_EQ(schermo.text(kPartita), QStringLiteral("123456"));
  QTest::keyClick(&schermo.control(kPartita), Qt::Key_Backspace);
  EXPECT_EQ(schermo.text(kPartita), QStringLiteral("12345"));
  schermo.type(kPartita, QStringLiteral("12345678901234"));
  EXPECT_EQ(schermo.text(kPartita), QStringLiteral("1234567890123"));
  schermo.control<QLineEdit>(kPartita).selectAll();
  QTest::keyClick(&schermo.control(kPartita), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(schermo.text(kPartita), QString());
}

TEST_F(ArchivioFatture, ConPiuDiUnaVirgolaLaPartitaIVADiventaZero) {
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.control<QLineEdit>(kPartita).setText(QStringLiteral("1,2"));
  EXPECT_EQ(schermo.text(kPartita), QStringLiteral("1,2"));
  EXPECT_TRUE(ufficio.takeBoxes().empty());
  schermo.control<QLineEdit>(kPartita).setText(QStringLiteral("1,2,3"));
  expectBoxes(ufficio, {box(kVirgole, Icon::Warning)});
  EXPECT_EQ(schermo.text(kPartita), QStringLiteral("0"));
}

// From the registry.

TEST_F(ArchivioFatture, ConIlFiltroSiVedeUnClienteSoloELaRicercaEBloccata) {
  dueFatture();
  filtra("2", QStringLiteral("ROSSI"), QStringLiteral("00488410010"));
  const GuidedScreen schermo(ufficio, kSchermo);
  EXPECT_EQ(righe(schermo), testi({"2|2024/2", "1.00"}));
  EXPECT_EQ(schermo.text(kNome), QStringLiteral("ROSSI"));
  EXPECT_EQ(schermo.text(kPartita), QStringLiteral("00488410010"));
  EXPECT_EQ(schermo.text(kPeriodo), QStringLiteral("dal 01/01/2000 al 07/03/2024"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Cliente: 2 ROSSI"));
  for (const QString& nome : kListe + QStringList{kNome, kPartita, kNumero, kCerca, kTutte, kReset}) {
    EXPECT_FALSE(schermo.enabled(nome)) << nome.toStdString();
    EXPECT_EQ(schermo.control(nome).toolTip(),
              QStringLiteral("Si vedono le fatture del cliente scelto in anagrafica"))
        << nome.toStdString();
  }
  EXPECT_TRUE(schermo.enabled(kExport));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(schermo.focus(), QStringLiteral("MSFlexGridFatture"));
  schermo.key(Qt::Key_F5);
  EXPECT_EQ(righe(schermo).size(), 2) << "the key of a command that is off";
}

TEST_F(ArchivioFatture, IlFiltroTieneInsiemeCodiceNomeEPartitaIVA) {
  dueFatture();
  filtra("2", QStringLiteral("BIANCHI"), {});
  {
    const GuidedScreen schermo(ufficio, kSchermo);
    EXPECT_EQ(griglia(schermo).Notice(), QStringLiteral("Nessuna fattura trovata")) << "another's name";
    schermo.click(kEsci);
  }
  filtra("-1", QStringLiteral("BIA"), {});
  const GuidedScreen schermo(ufficio, kSchermo);
  EXPECT_EQ(righe(schermo), testi({"1|2024/1", "122.00"})) << "below 0 the name alone counts";
  EXPECT_EQ(schermo.text(kPartita), QString());
}

TEST_F(ArchivioFatture, DelClienteAnonimoSiVedonoLeSueFatture) {
  dueFatture();
  ufficio.invoice(0, QStringLiteral("2024/3"), kMarzo, 50);
  filtra("0", {}, {});
  const GuidedScreen schermo(ufficio, kSchermo);
  EXPECT_EQ(righe(schermo), testi({"0|2024/3", "0.50"}));
}

TEST_F(ArchivioFatture, UnApostrofoNelNomeDelFiltroFinisceIlProgramma) {
  filtra("1", QStringLiteral("D'ORO"), {});
  EXPECT_THROW(ufficio.screens.mostra(kSchermo, ufficio.contesto), ProgramEnded);
  expectBoxes(
      ufficio,
      {criticalBox(QStringLiteral("Cmd_Cerca_Click: uscita dal programma per condizione anomala 3075 - *"))});
}

TEST_F(ArchivioFatture, VirgoleNellaPartitaIVADelFiltroSiDiconoESiCercaDaZero) {
  dueFatture();
  filtra("1", QStringLiteral("BIANCHI"), QStringLiteral("1,2,3"));
  const GuidedScreen schermo(ufficio, kSchermo);
  expectBoxes(ufficio, {box(kVirgole, Icon::Warning)});
  EXPECT_EQ(schermo.text(kPartita), QStringLiteral("0"));
  EXPECT_EQ(righe(schermo), testi({"1|2024/1", "122.00"})) << "00905811006 begins with it";
}

// The ways out.

TEST_F(ArchivioFatture, EsciTornaAllaGestione) {
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  ASSERT_NE(ufficio.screens.trova(QStringLiteral("Form_GestioneClienti")), nullptr);
  EXPECT_EQ(ufficio.screens.trova(QStringLiteral("Form_AnagraficaClienti")), nullptr);
}

TEST_F(ArchivioFatture, EsciColFiltroLoAbbassaERiportaLAnagrafica) {
  filtra("0", {}, {});
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  EXPECT_FALSE(customers::statoClienti().filtro.acceso);
  ASSERT_NE(ufficio.screens.trova(QStringLiteral("Form_AnagraficaClienti")), nullptr);
  EXPECT_EQ(ufficio.screens.trova(QStringLiteral("Form_GestioneClienti")), nullptr);
}

TEST_F(ArchivioFatture, ModaleSopraLAnagraficaEsciLaLasciaDovEra) {
  dueFatture();
  QWidget& anagrafica = ufficio.screens.mostra(QStringLiteral("Form_AnagraficaClienti"), ufficio.contesto);
  filtra("2", QStringLiteral("ROSSI"), {});
  withModal([&] { ufficio.screens.mostraModale(kSchermo, ufficio.contesto); },
            [](QWidget& finestra) {
              const GuidedScreen schermo(finestra);
              EXPECT_EQ(righe(schermo), testi({"2|2024/2", "1.00"}));
              schermo.click(kEsci);
            });
  EXPECT_FALSE(customers::statoClienti().filtro.acceso);
  EXPECT_EQ(ufficio.screens.trova(QStringLiteral("Form_AnagraficaClienti")), &anagrafica);
  EXPECT_TRUE(anagrafica.isVisible());
}

TEST_F(ArchivioFatture, EscELaCornicePortanoFuoriEAbbassanoIlFiltro) {
  for (const bool cornice : {false, true}) {
    filtra("0", {}, {});
    const GuidedScreen schermo(ufficio, kSchermo);
    if (cornice)
      schermo.window().close();
    else
      schermo.key(Qt::Key_Escape);
    EXPECT_FALSE(schermo.alive());
    EXPECT_FALSE(customers::statoClienti().filtro.acceso);
  }
}

TEST_F(ArchivioFatture, InvioSuEsciNonEsce) {
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.control(kEsci).setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
}

// Export, keys.

TEST_F(ArchivioFatture, LExportScriveLeRigheSenzaLeSommeELeConta) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  const QString file = ufficio.folder.file(QStringLiteral("fatture.csv"));
  ufficio.user.chooses(file);
  schermo.click(kExport);
  expectBoxes(ufficio, {box(QStringLiteral("Creazione del file ") + file + QStringLiteral(" terminata."),
                            Icon::Information)});
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("fatture.csv")),
            QByteArray(";;;;;;;;; \r\n"
                       "BIANCHI;00905811006;2024/1;05/02/2024 10:00:00;122.00;100.00;22.00;0.05;MARIO; \r\n"
                       "ROSSI;00488410010;2024/2;05/03/2024 10:20:30;1.00;0.90;0.10;0.00;; \r\n"
                       "VUOTO;;;;;;;;; \r\n"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Esportate 4 righe in fatture.csv"));
  ASSERT_EQ(ufficio.user.requests().size(), 1U);
  EXPECT_EQ(ufficio.user.requests()[0].filter, QStringLiteral("csv (*.csv)|*.csv"));
}

TEST_F(ArchivioFatture, UnExportAnnullatoNonScriveNullaEUnoFallitoSiDice) {
  const GuidedScreen schermo(ufficio, kSchermo);
  ufficio.user.chooses(std::nullopt).chooses(ufficio.folder.file(QStringLiteral("assente/f.csv")));
  schermo.click(kExport);
  EXPECT_TRUE(ufficio.takeBoxes().empty());
  schermo.click(kExport);
  expectBoxes(ufficio, {plainBox(QStringLiteral("Error 76 (Percorso non trovato: %1) in procedure "
                                                "Cmd_Export_Click of Modulo Form_ArchivioFattureClienti")
                                     .arg(ufficio.folder.file(QStringLiteral("assente/f.csv"))))});
}

TEST_F(ArchivioFatture, CtrlFVaAlNomeF5RileggeECtrlEEsporta) {
  const GuidedScreen schermo(ufficio, kSchermo);
  ufficio.customer(1, QStringLiteral("NUOVO"));
  schermo.key(Qt::Key_F5);
  EXPECT_EQ(righe(schermo), testi({"0|", "0.00", "1|", "0.00"}));
  QTest::keyClick(schermo.window().focusWidget(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(schermo.focus(), kNome);
  ufficio.user.chooses(std::nullopt);
  QTest::keyClick(schermo.window().focusWidget(), Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(ufficio.user.requests().size(), 1U);
}

TEST_F(ArchivioFatture, IlTabulatoreSegueLOrdineDelLavoro) {
  const GuidedScreen schermo(ufficio, kSchermo);
  QStringList giro;
  for (int i = 0; i < 21; ++i) {
    giro.append(schermo.focus());
    schermo.key(Qt::Key_Tab);
  }
  const QStringList atteso =
      kListe + QStringList{kNome,  kPartita, kNumero, kCerca, kReset, QStringLiteral("MSFlexGridFatture"),
                           kTutte, kExport,  kEsci};
  EXPECT_EQ(giro, atteso);
}

TEST_F(ArchivioFatture, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  dueFatture();
  const GuidedScreen schermo(ufficio, kSchermo);
  const int prima = ufficio.user.passes();
  ufficio.user.onPass = [&] { schermo.impatience(kTutte); };
  schermo.click(kTutte);
  ufficio.user.onPass = nullptr;
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(ufficio.user.passes() - prima, 4);
  EXPECT_EQ(griglia(schermo).Rows(), 9);
}

/// The screen in a font of the parameter's size, in the program's look.
class ArchivioFattureNelCarattere : public ArchivioFatture, public testing::WithParamInterface<int> {
 private:
  const InFont carattere_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Punti, ArchivioFattureNelCarattere, testing::Values(9, 11, 12));

TEST_P(ArchivioFattureNelCarattere, NonPassaMilleventiquattroENonTagliaScritteDateNeImporti) {
  ufficio.customer(250, QStringLiteral("PANIFICIO FRATELLI ROSSI DI ROSSI MARIO"),
                   QStringLiteral("00488410010"));
  ufficio.invoice(250, QStringLiteral("2024/1000"), kMarzo, 2147483647, 2147483647, 2147483647, -2147483647,
                  QStringLiteral("ROSSI MARIO"));
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.window().resize(1024, 732);
  for (int giro = 0; giro < 3; ++giro) QCoreApplication::processEvents();
  EXPECT_LE(schermo.window().minimumSizeHint().width(), 1024);
  EXPECT_EQ(schermo.window().size(), QSize(1024, 732));
  for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>())
    EXPECT_GE(tasto->width(), tasto->sizeHint().width()) << tasto->objectName().toStdString();
  for (const QComboBox* combo : schermo.window().findChildren<QComboBox*>())
    EXPECT_GE(combo->width(), combo->sizeHint().width()) << combo->objectName().toStdString();
  for (const char* nome : {"TitoloFatture", "LabelPeriodo", "LabelDataInizio", "LabelDataFine",
                           "LabelRagioneSociale", "LabelPartitaIVA", "LabelNumFattura"}) {
    const auto& scritta = schermo.control<QLabel>(nome);
    EXPECT_GE(scritta.width(), scritta.sizeHint().width()) << nome;
  }
  const auto& partita = schermo.control<QLineEdit>(kPartita);
  EXPECT_GT(partita.width(), partita.fontMetrics().horizontalAdvance(QStringLiteral("0000000000000")));
  const FlexGrid& lista = griglia(schermo);
  for (const int colonna : {0, 2, 3, 4, 5, 6, 7, 8})
    for (const int riga : {2, 3})
      EXPECT_GE(lista.columnWidth(colonna),
                lista.sizeHintForIndex(lista.model()->index(riga, colonna)).width())
          << riga << ' ' << colonna;
}

TEST_P(ArchivioFattureNelCarattere, LElencoCominciaDalCodiceEANovePuntiStaTuttoNelloSchermo) {
  ufficio.customer(250, QStringLiteral("ROSSI"), QStringLiteral("00488410010"));
  ufficio.invoice(250, QStringLiteral("2024/999"), kMarzo, 9999999, 9999999, 9999999, 9999999);
  const GuidedScreen schermo(ufficio, kSchermo);
  schermo.window().resize(1024, 732);
  for (int giro = 0; giro < 3; ++giro) QCoreApplication::processEvents();
  const QScrollBar& barra = *griglia(schermo).horizontalScrollBar();
  EXPECT_EQ(barra.value(), 0);
  if (GetParam() == 9) {
    EXPECT_EQ(barra.maximum(), 0);
  }
}

}  // namespace
