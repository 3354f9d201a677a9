// The full circle of the customers, through all of their screens: typed, sent, given invoices by the till,
// received twice, completed, listed and exported. What comes out is compared with what the till's bytes say
// when they are read without the program's code.
#include <gmock/gmock.h>

#include <QDialog>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QTest>

#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "core/menu.h"
#include "customers/Form_AnagraficaClienti.h"
#include "customers/Form_ArchivioFattureClienti.h"
#include "customers/Form_GestioneClienti.h"
#include "customers/Form_RicezioneClienti.h"
#include "customers/Form_TrasferimentoClienti.h"
#include "customers/customer_state.h"
#include "demo/reread_customers.h"
#include "devices/keyboard_scene.h"
#include "sostegno/guided_screen.h"
#include "sostegno/test_till.h"
#include "sostegno/troubles.h"

namespace {

using expectations::Customer;
using expectations::Invoice;
using testing::ElementsAreArray;

const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kExport = QStringLiteral("Cmd_Export");
const QString kClientiCsv = QStringLiteral("clienti.csv");
const QString kFattureCsv = QStringLiteral("fatture.csv");
const Customer kAnonimo{0, "", "", "", "", "", 1};
/// As they are typed; the registry keeps capitals. The VAT numbers are of offices that there are not.
const std::vector<Customer> kBattuti{
    {1, "Caffè delle Rose", "via del Mulino 7", "Montefiore", "40320851047", "paga a fine mese", 1},
    {2, "Pizzeria da Totò", "via Toledo 300", "Napoli", "37676041116", "", 1},
    {5, "Cantina Montalbà", "strada del Vino 77", "Mondovì", "58223071059", "perché sì", 1}};
const std::vector<Customer> kMemorizzati{
    {1, "CAFFÈ DELLE ROSE", "VIA DEL MULINO 7", "MONTEFIORE", "40320851047", "PAGA A FINE MESE", 1},
    {2, "PIZZERIA DA TOTÒ", "VIA TOLEDO 300", "NAPOLI", "37676041116", "", 1},
    {5, "CANTINA MONTALBÀ", "STRADA DEL VINO 77", "MONDOVÌ", "58223071059", "PERCHÉ SÌ", 1}};
/// Who was known by an invoice alone, once completed.
const Customer kCompletato{77, "NUOVA BOTTEGA", "VIA ROMA 1", "FORLÌ", "85361141139", "", 1};

std::vector<std::string> righe(const FlexGrid& griglia) {
  std::vector<std::string> tutte;
  for (int riga = 1; riga < griglia.Rows(); ++riga) {
    QStringList celle;
    for (int colonna = 0; colonna < griglia.Cols(); ++colonna) celle << griglia.TextMatrix(riga, colonna);
    tutte.push_back(celle.join(u';').toStdString());
  }
  return tutte;
}

std::string piede(const GuidedScreen& schermo) {
  return schermo.control<OutcomeBar>("BarraEsito").text().replace(QChar(0xA0), u' ').toStdString();
}

/// Types over what a field holds, accents too.
void scrivi(const GuidedScreen& schermo, const char* campo, const std::string& testo) {
  auto& casella = schermo.control<QLineEdit>(campo);
  casella.setFocus();
  casella.selectAll();
  if (testo.empty()) QTest::keyClick(&casella, Qt::Key_Delete);
  for (const QChar uno : QString::fromStdString(testo))
    QTest::sendKeyEvent(QTest::Click, &casella, Qt::Key_unknown, QString(uno), Qt::NoModifier);
}

void scriviCliente(const GuidedScreen& schermo, const Customer& cliente) {
  scrivi(schermo, "vkTextBoxRagioneSociale", cliente.name);
  scrivi(schermo, "vkTextboxIndirizzo", cliente.address);
  scrivi(schermo, "vkTextBoxCitta", cliente.town);
  scrivi(schermo, "vkTextBoxPartitaIVA", cliente.vat);
  scrivi(schermo, "vkTextboxNOTE", cliente.note);
}

/// Clicks the row of the registry whose first cell is the code.
void scegliCliente(const GuidedScreen& schermo, int codice) {
  auto& griglia = schermo.control<FlexGrid>("MSFlexGridClienti");
  int riga = 1;
  while (riga < griglia.Rows() && griglia.TextMatrix(riga, 0) != QString::number(codice)) ++riga;
  ASSERT_LT(riga, griglia.Rows()) << codice;
  const QModelIndex cella = griglia.model()->index(riga - 1, 2);
  griglia.scrollTo(cella);
  QTest::mouseClick(griglia.viewport(), Qt::LeftButton, {}, griglia.visualRect(cella).center());
}

class StradaClienti : public testing::Test {
 protected:
  void SetUp() override {
    customers::statoClienti() = {};
    programTill(cassa);
    ufficio.clock.set(QDateTime(QDate(2026, 11, 22), QTime(23, 0)));
    registraSchermateCore(ufficio.screens);
    ufficio.screens.registra<Form_GestioneClienti>();
    ufficio.screens.registra<Form_AnagraficaClienti>();
    ufficio.screens.registra<Form_ArchivioFattureClienti>();
    ufficio.screens.registra<Form_TrasferimentoClienti>();
    ufficio.screens.registra<Form_RicezioneClienti>();
    area = &ufficio.screens.mostra(QStringLiteral("Form_GestioneClienti"), ufficio.contesto);
    ufficio.user.chooses(ufficio.folder.file(QStringLiteral("clienti.mdb")));
    GuidedScreen(*area).click(QStringLiteral("PulsanteNuovo"));
  }

  /// Opens a screen of the workspace, works on it and leaves by its exit.
  template <typename Lavoro>
  void su(const char* comando, Lavoro&& lavoro) {
    withModal([&] { GuidedScreen(*area).click(QLatin1String(comando)); },
              [&](QWidget& finestra) {
                const GuidedScreen schermo(finestra);
                lavoro(schermo);
                schermo.click(kEsci);
                EXPECT_FALSE(schermo.alive());
              });
    expectBoxes(ufficio, {});
  }
  void esporta(const GuidedScreen& schermo, const QString& nome) {
    const QString file = ufficio.folder.file(nome);
    ufficio.user.chooses(file);
    schermo.click(kExport);
    const std::vector<Box> visti = ufficio.takeBoxes();
    ASSERT_EQ(visti.size(), 1U);
    EXPECT_EQ(visti[0].text, QStringLiteral("Creazione del file %1 terminata.").arg(file));
  }
  void battiClienti() {
    su("Cmd_AnagraficaClienti", [&](const GuidedScreen& schermo) {
      for (const Customer& cliente : kBattuti) {
        schermo.click(QStringLiteral("Cmd_nuovo"));
        scrivi(schermo, "vkTextBoxIdCliente", std::to_string(cliente.code));
        scriviCliente(schermo, cliente);
        schermo.click(QStringLiteral("vkCmd_Memorizza_Cliente"));
      }
      expectBoxes(ufficio, {});
      esporta(schermo, kClientiCsv);
    });
  }
  void invia() {
    su("Cmd_Down", [&](const GuidedScreen& schermo) {
      schermo.connectTo(cassa);
      schermo.click(kAvvia);
      expectBoxes(ufficio,
                  {box(QStringLiteral("ARCHIVIO DEI CLIENTI CORRETTAMENTE TRASFERITO"), Icon::Warning)});
    });
  }
  /// Receives the invoices as often as told; returns what the foot said each time.
  std::vector<std::string> riceviFatture(int volte) {
    std::vector<std::string> detto;
    su("Cmd_Upl", [&](const GuidedScreen& schermo) {
      schermo.connectTo(cassa);
      for (int volta = 0; volta < volte; ++volta) {
        schermo.click(kAvvia);
        expectBoxes(ufficio,
                    {box(QStringLiteral("ARCHIVIO DELLE FATTURE CORRETTAMENTE RICEVUTO"), Icon::Warning)});
        detto.push_back(piede(schermo));
      }
    });
    return detto;
  }
  /// By hand: to customers of the table, to a code in it that nobody has, beyond it, and to nobody.
  void emettiAMano() {
    int secondo = 0;
    for (const ecrsim::InvoiceOrder& ordine : std::vector<ecrsim::InvoiceOrder>{{1, 1, "", 0},
                                                                                {2, 1, "", 5000},
                                                                                {1, 5, "FERMO POSTA", 0},
                                                                                {1, 77, "NUOVO CLIENTE", 0},
                                                                                {255, 300, "", 1},
                                                                                {1, 0, "CHI PASSA", 0},
                                                                                {1, 0, "", 0}}) {
      ora.second = secondo++;
      ASSERT_EQ(cassa->issueInvoice(ordine, std::to_string(12345 + 1111 * secondo) + "H1R1T"), secondo);
    }
  }
  std::vector<Invoice> sullaCassa() const {
    return expectations::readInvoices(cassa.file(QStringLiteral("fatture.bin")).toStdString());
  }
  RereadCustomers nellArchivio() const {
    return rereadCustomers(ufficio.folder.file(QStringLiteral("clienti.mdb")).toStdString());
  }
  static std::vector<Customer> conAnonimo(std::vector<Customer> clienti) {
    clienti.insert(clienti.begin(), kAnonimo);
    return clienti;
  }

  WithLocale locale{"C"};
  ProgramFixture ufficio;
  ecrsim::Moment ora{2026, 11, 22, 10, 15, 0};
  TestTill cassa{[this] {
    ecrsim::Options come;
    come.clock = [this] { return ora; };
    return come;
  }()};
  QPointer<QWidget> area;
};

}  // namespace

TEST_F(StradaClienti, BattutiConITastiStannoNellArchivioNelCsvESullaCassa) {
  battiClienti();
  EXPECT_THAT(nellArchivio().customers, ElementsAreArray(conAnonimo(kMemorizzati)));
  EXPECT_EQ(ufficio.folder.read(kClientiCsv).toStdString(),
            expectations::csvCustomers(conAnonimo(kMemorizzati)));
  invia();
  EXPECT_EQ(cassa.byte(QStringLiteral("clienti.bin")).toStdString(),
            expectations::customersImage(kMemorizzati));
}

TEST_F(StradaClienti, LeFattureDellaCassaEntranoTutteEUnaSecondaVoltaNessuna) {
  battiClienti();
  invia();
  emettiAMano();
  ASSERT_EQ(cassa->invoices(30, 5), 30);
  const std::vector<Invoice> emesse = sullaCassa();
  ASSERT_EQ(emesse.size(), 37U);
  EXPECT_EQ(emesse[0].holder, "CAFFÈ DELLE ROSE");
  EXPECT_EQ(emesse[4].customer, 300);

  const std::vector<std::string> detto = riceviFatture(1);
  const RereadCustomers prima = nellArchivio();
  EXPECT_THAT(prima.invoices, ElementsAreArray(emesse));
  const std::vector<Customer> clienti = expectations::withMadeUp(conAnonimo(kMemorizzati), emesse);
  EXPECT_THAT(prima.customers, ElementsAreArray(clienti));
  const std::size_t creati = clienti.size() - 4;
  EXPECT_GE(creati, 2U);
  EXPECT_EQ(detto, (std::vector<std::string>{"Ricevuti 77.000 byte. 37 fatture nuove, 0 già presenti, " +
                                             std::to_string(creati) + " clienti da completare."}));

  EXPECT_EQ(riceviFatture(2),
            (std::vector<std::string>(2, "Ricevuti 77.000 byte. 0 fatture nuove, 37 già presenti.")));
  EXPECT_TRUE(nellArchivio() == prima);
  EXPECT_EQ(sullaCassa(), emesse);
}

TEST_F(StradaClienti, ChiEraNatoDaUnaFatturaSiCompletaESiMandaConGliAltri) {
  battiClienti();
  invia();
  emettiAMano();
  riceviFatture(1);
  su("Cmd_AnagraficaClienti", [&](const GuidedScreen& schermo) {
    scegliCliente(schermo, kCompletato.code);
    EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxStato")), QStringLiteral("*"));
    scriviCliente(schermo, kCompletato);
    schermo.click(QStringLiteral("Cmd_Modifica"));
    expectBoxes(ufficio, {});
    esporta(schermo, kClientiCsv);
  });
  std::vector<Customer> clienti = conAnonimo(kMemorizzati);
  clienti.push_back(kCompletato);
  clienti.push_back({300, "", "", "", "", "", 2});
  EXPECT_THAT(nellArchivio().customers, ElementsAreArray(clienti));
  EXPECT_EQ(ufficio.folder.read(kClientiCsv).toStdString(), expectations::csvCustomers(clienti));
  invia();
  EXPECT_EQ(cassa.byte(QStringLiteral("clienti.bin")).toStdString(), expectations::customersImage(clienti));
  EXPECT_EQ(sullaCassa().size(), 7U);
}

TEST_F(StradaClienti, LArchivioFattureSommaAlCentesimoEEsportaLeStesseRighe) {
  battiClienti();
  invia();
  emettiAMano();
  ASSERT_EQ(cassa->invoices(60, 9), 60);
  const std::vector<Invoice> emesse = sullaCassa();
  riceviFatture(1);
  const std::vector<Customer> clienti = expectations::withMadeUp(conAnonimo(kMemorizzati), emesse);
  std::int64_t incasso = 0;
  for (const Invoice& una : emesse) {
    EXPECT_EQ(una.total, una.taxable + una.tax) << una.place;
    incasso += una.total;
  }
  su("Cmd_ArchivioFatture", [&](const GuidedScreen& schermo) {
    const auto& griglia = schermo.control<FlexGrid>("MSFlexGridFatture");
    EXPECT_THAT(righe(griglia), ElementsAreArray(expectations::invoiceRows(clienti, emesse, '.')));
    const QString euro = QLocale(QLocale::Italian).toString(static_cast<double>(incasso) / 100.0, 'f', 2);
    EXPECT_THAT(piede(schermo), testing::StartsWith("67 fatture: totale € " + euro.toStdString() + ","));
    esporta(schermo, kFattureCsv);
  });
  EXPECT_EQ(ufficio.folder.read(kFattureCsv).toStdString(), expectations::csvInvoices(clienti, emesse, '.'));
}

TEST_F(StradaClienti, DallAnagrafeSiVedonoESiEsportanoLeFattureDiUnoSolo) {
  battiClienti();
  invia();
  emettiAMano();
  riceviFatture(1);
  std::vector<Invoice> sue;
  for (const Invoice& una : sullaCassa())
    if (una.customer == 1) sue.push_back(una);
  ASSERT_EQ(sue.size(), 2U);
  const GuidedScreen anagrafe(ufficio, QStringLiteral("Form_AnagraficaClienti"));
  scegliCliente(anagrafe, 1);
  withModal([&] { anagrafe.click(QStringLiteral("vkCommand1")); },
            [&](QWidget& finestra) {
              const GuidedScreen fatture(finestra);
              EXPECT_THAT(righe(fatture.control<FlexGrid>("MSFlexGridFatture")),
                          ElementsAreArray(expectations::invoiceRows({kMemorizzati[0]}, sue, '.')));
              esporta(fatture, kFattureCsv);
              fatture.click(kEsci);
            });
  EXPECT_TRUE(anagrafe.alive());
  EXPECT_FALSE(customers::statoClienti().filtro.acceso);
  EXPECT_EQ(ufficio.folder.read(kFattureCsv).toStdString(),
            expectations::csvInvoices({kMemorizzati[0]}, sue, '.'));
}
