#include <QLabel>
#include <algorithm>

#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/road.h"

namespace {

using expectations::Customer;
using expectations::Invoice;

const QString kMenu = QStringLiteral("start");
const QString kArea = QStringLiteral("Form_GestioneClienti");
const QString kRegistry = QStringLiteral("Form_AnagraficaClienti");
const QString kSending = QStringLiteral("Form_TrasferimentoClienti");
const QString kReception = QStringLiteral("Form_RicezioneClienti");
const QString kInvoices = QStringLiteral("Form_ArchivioFattureClienti");
const QString kCustomerGrid = QStringLiteral("MSFlexGridClienti");
const QString kInvoiceGrid = QStringLiteral("MSFlexGridFatture");
const QString kNew = QStringLiteral("Cmd_nuovo");
const QString kStore = QStringLiteral("vkCmd_Memorizza_Cliente");
const QString kChange = QStringLiteral("Cmd_Modifica");
const QString kHisInvoices = QStringLiteral("vkCommand1");
const QString kStart = QStringLiteral("Cmd_Avvia");
const QString kLeave = QStringLiteral("Cmd_Esci");
const QString kArchive = QStringLiteral("clienti.mdb");
const QString kCustomersCsv = QStringLiteral("clienti.csv");
const QString kInvoicesCsv = QStringLiteral("fatture.csv");
const QString kCustomersOnTill = QStringLiteral("clienti.bin");
const QString kInvoicesOnTill = QStringLiteral("fatture.bin");
const QString kReceived = QStringLiteral("ARCHIVIO DELLE FATTURE CORRETTAMENTE RICEVUTO");
const QStringList kEvening{QStringLiteral("--fatture"), QStringLiteral("60"), QStringLiteral("--seme"),
                           QStringLiteral("2026")};
constexpr int kInvoicesOfTheEvening = 60;
const QTime kAfternoon{15, 20};
/// The till issues them until late.
const QTime kAfterTheLastInvoice{23, 10};
constexpr int kSampleCustomers = 40;
/// As typed here; the registry keeps capitals. Their VAT numbers are of offices that there are not.
const Customer kTyped{41, "TRATTORIA DEL PORTO", "VIA SETTEMBRE 20", "TORINO", "50000001011", "PANE ALLE 7",
                      1};
const Customer kCompletion{0, "NUOVA BOTTEGA", "VIA ROMA 1", "PINEROLO", "50000021019", "", 1};

/// Of the customers' workspace, which is no dialog: a command that is on, the screen that was over it gone.
Director::When backFrom(const QString& closed, const QString& command) {
  return [closed, command] { return window(closed) == nullptr && on(kArea, command); };
}

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

std::vector<std::string> rowsOf(const QString& windowName, const QString& grid) {
  std::vector<std::string> rows;
  for (const QStringList& row : cells(windowName, grid))
    rows.push_back(row.join(QLatin1Char(';')).toStdString());
  return rows;
}

void typeCustomer(const Customer& customer) {
  type(kRegistry, QStringLiteral("vkTextBoxRagioneSociale"), text(customer.name));
  type(kRegistry, QStringLiteral("vkTextboxIndirizzo"), text(customer.address));
  type(kRegistry, QStringLiteral("vkTextBoxCitta"), text(customer.town));
  type(kRegistry, QStringLiteral("vkTextBoxPartitaIVA"), text(customer.vat));
  type(kRegistry, QStringLiteral("vkTextboxNOTE"), text(customer.note));
}

Customer& of(std::vector<Customer>& customers, int code) {
  return *std::ranges::find(customers, code, &Customer::code);
}

}  // namespace

/// The sample archive, a customer more, all of them on the till, an evening of invoices received twice, one
/// customer made up from an invoice completed, and the invoices listed and exported.
void Road::customers() {
  director_.step(QStringLiteral("menu for the customers"), visible(kMenu),
                 [] { click(kMenu, QStringLiteral("Label7")); });
  director_.step(QStringLiteral("workspace of the customers"), visible(kArea), [this] {
    itIs(Day::Thursday, kAfternoon);
    photograph(kArea, QStringLiteral("clienti-vuota"));
    stopwatch_.start();
    chooseEntry(kArea, QStringLiteral("mnuFile"), QStringLiteral("mnuApri"));
  });
  chooseFile(inFolder(kArchive));
  addCustomer();
  sendCustomers();
  clearInvoices();
  receiveInvoices();
  completeCustomer();
  listInvoices();
  director_.step(QStringLiteral("customers done"), backFrom(kInvoices, kLeave), [] { click(kArea, kLeave); });
}

RereadCustomers Road::customerArchive() const {
  return rereadCustomers(path(inFolder(kArchive)));
}

void Road::addCustomer() {
  director_.step(
      QStringLiteral("customers open"), [] { return on(kArea, QStringLiteral("Cmd_AnagraficaClienti")); },
      [this] {
        customers_ = customerArchive().customers;
        require(customers_.size() == kSampleCustomers + 1, QStringLiteral("clienti di esempio"));
        row(QStringLiteral("Archivio clienti"), kArchive);
        photograph(kArea, QStringLiteral("clienti-aperta"));
        stopwatch_.start();
        click(kArea, QStringLiteral("Cmd_AnagraficaClienti"));
      });
  director_.step(QStringLiteral("registry"), enabled(kRegistry, kNew), [this] {
    require(cells(kRegistry, kCustomerGrid).size() == static_cast<qsizetype>(customers_.size()),
            QStringLiteral("clienti in elenco"));
    row(QStringLiteral("Clienti in elenco"), QString::number(kSampleCustomers));
    click(kRegistry, kNew);
  });
  director_.step(QStringLiteral("new customer"), enabled(kRegistry, kStore), [] { typeCustomer(kTyped); });
  director_.step(QStringLiteral("new customer typed"), enabled(kRegistry, kStore), [this] {
    photograph(kRegistry, QStringLiteral("anagrafe-nuovo"));
    stopwatch_.start();
    click(kRegistry, kStore);
  });
  director_.step(QStringLiteral("customer stored"), enabled(kRegistry, kNew), [this] {
    customers_.push_back(kTyped);
    require(customerArchive().customers == customers_, QStringLiteral("il cliente memorizzato"));
    row(QStringLiteral("Cliente nuovo"), text(kTyped.name));
  });
  exportList(kRegistry, kCustomersCsv, QStringLiteral("anagrafe-export"));
  director_.step(QStringLiteral("figures of the customers' export"), enabled(kRegistry, kLeave), [this] {
    const std::string written = expectations::readFile(path(inFolder(kCustomersCsv)));
    require(written == expectations::csvCustomers(customers_), kCustomersCsv);
    row(QStringLiteral("Byte esportati"), QString::number(written.size()));
    click(kRegistry, kLeave);
  });
}

void Road::sendCustomers() {
  const QString command = QStringLiteral("Cmd_Down");
  director_.step(QStringLiteral("customers to the till"), backFrom(kRegistry, command),
                 [command] { click(kArea, command); });
  connect(kSending, QStringLiteral("invio-clienti"));
  awaitBox(QStringLiteral("ARCHIVIO DEI CLIENTI CORRETTAMENTE TRASFERITO"),
           QStringLiteral("invio-clienti-messaggio"));
  director_.step(QStringLiteral("figures of the customers sent"), enabled(kSending, kLeave), [this] {
    const std::string sent = expectations::readFile(path(till_.file(kCustomersOnTill)));
    require(sent == expectations::customersImage(customers_), kCustomersOnTill);
    row(QStringLiteral("Clienti in cassa"), QString::number(sent.size()) + QStringLiteral(" byte"));
    photograph(kSending, QStringLiteral("invio-clienti-fatto"));
    click(kSending, kLeave);
  });
}

/// Those that the till has issued before it knew a customer.
void Road::clearInvoices() {
  const QString command = QStringLiteral("Cmd_Upl");
  director_.step(QStringLiteral("invoices to be cleared"), backFrom(kSending, command), [this, command] {
    require(!expectations::readInvoices(path(till_.file(kInvoicesOnTill))).empty(),
            QStringLiteral("fatture da cancellare sulla cassa"));
    click(kArea, command);
  });
  director_.step(QStringLiteral("clearing chosen"), visible(kReception),
                 [] { click(kReception, QStringLiteral("vkOptionButtonCancellaFatture")); });
  connect(kReception, QStringLiteral("cancellazione-fatture"));
  awaitBox(QStringLiteral("ARCHIVIO DELLE FATTURE AZZERATO CORRETTAMENTE SULLA CASSA"),
           QStringLiteral("cancellazione-fatture-messaggio"));
  director_.step(QStringLiteral("invoices cleared"), enabled(kReception, kLeave), [this] {
    require(expectations::readInvoices(path(till_.file(kInvoicesOnTill))).empty(),
            QStringLiteral("fatture azzerate sulla cassa"));
    click(kReception, kLeave);
  });
}

void Road::anEveningOfInvoices() {
  itIs(Day::Thursday, kAfterTheLastInvoice);
  tillOn(Day::Thursday, kEvening);
  issued_ = expectations::readInvoices(path(till_.file(kInvoicesOnTill)));
  require(issued_.size() == kInvoicesOfTheEvening, QStringLiteral("una sera di fatture"));
  row(QStringLiteral("Fatture in cassa"), QString::number(issued_.size()));
}

void Road::receiveInvoices() {
  const QString command = QStringLiteral("Cmd_Upl");
  director_.step(QStringLiteral("an evening of invoices"), backFrom(kReception, command), [this, command] {
    stopwatch_.start();
    anEveningOfInvoices();
    click(kArea, command);
  });
  director_.step(QStringLiteral("invoices chosen"), visible(kReception),
                 [] { click(kReception, QStringLiteral("vkOptionButtonFatture")); });
  connect(kReception, QStringLiteral("ricezione-fatture"));
  awaitBox(kReceived, QStringLiteral("ricezione-fatture-messaggio"));
  director_.step(QStringLiteral("figures of the invoices"), enabled(kReception, kStart), [this] {
    customers_ = expectations::withMadeUp(customers_, issued_);
    compareCustomers(QStringLiteral("le fatture ricevute"));
    const auto unknown = std::ranges::count(customers_, 2, &Customer::state);
    require(unknown > 0, QStringLiteral("clienti da completare"));
    row(QStringLiteral("Fatture ricevute"), QString::number(issued_.size()));
    row(QStringLiteral("Clienti nuovi"), QString::number(unknown));
    photograph(kReception, QStringLiteral("ricezione-fatture-fatta"));
    stopwatch_.start();
    click(kReception, kStart);
  });
  awaitBox(kReceived, QStringLiteral("ricezione-fatture-di-nuovo"));
  director_.step(QStringLiteral("invoices received again"), enabled(kReception, kLeave), [this] {
    compareCustomers(QStringLiteral("le fatture ricevute di nuovo"));
    row(QStringLiteral("Ricevute di nuovo"), QStringLiteral("nessuna in più"));
    photograph(kReception, QStringLiteral("ricezione-fatture-ripetuta"));
    click(kReception, kLeave);
  });
}

void Road::compareCustomers(const QString& what) {
  const RereadCustomers archive = customerArchive();
  require(archive.customers == customers_, what + QStringLiteral(": i clienti"));
  require(archive.invoices == issued_, what);
}

void Road::completeCustomer() {
  const QString command = QStringLiteral("Cmd_AnagraficaClienti");
  director_.step(QStringLiteral("registry again"), backFrom(kReception, command),
                 [command] { click(kArea, command); });
  director_.step(QStringLiteral("customer to be completed"), enabled(kRegistry, kChange), [this] {
    const auto madeUp = std::ranges::find(customers_, 2, &Customer::state);
    completed_ = madeUp->code;
    clickCell(kRegistry, kCustomerGrid, static_cast<int>(madeUp - customers_.begin()), 2);
    typeCustomer(kCompletion);
  });
  director_.step(QStringLiteral("customer to be completed typed"), enabled(kRegistry, kChange), [this] {
    photograph(kRegistry, QStringLiteral("anagrafe-da-completare"));
    stopwatch_.start();
    click(kRegistry, kChange);
  });
  director_.step(QStringLiteral("customer completed"), enabled(kRegistry, kHisInvoices), [this] {
    Customer completed = kCompletion;
    completed.code = completed_;
    of(customers_, completed_) = completed;
    compareCustomers(QStringLiteral("il cliente completato"));
    row(QStringLiteral("Cliente completato"), text(completed.name));
    photograph(kRegistry, QStringLiteral("anagrafe-completato"));
    click(kRegistry, kHisInvoices);
  });
  director_.step(QStringLiteral("his invoices"), enabled(kInvoices, kLeave), [this] {
    std::vector<Invoice> his;
    std::ranges::copy_if(issued_, std::back_inserter(his),
                         [this](const Invoice& one) { return one.customer == completed_; });
    require(rowsOf(kInvoices, kInvoiceGrid) ==
                expectations::invoiceRows({of(customers_, completed_)}, his, decimalSign()),
            QStringLiteral("le fatture di un cliente"));
    row(QStringLiteral("Fatture del cliente"), QString::number(his.size()));
    photograph(kInvoices, QStringLiteral("fatture-di-un-cliente"));
    click(kInvoices, kLeave);
  });
  director_.step(QStringLiteral("registry done"), enabled(kRegistry, kLeave),
                 [] { click(kRegistry, kLeave); });
}

void Road::listInvoices() {
  const QString command = QStringLiteral("Cmd_ArchivioFatture");
  director_.step(QStringLiteral("invoices to be listed"), backFrom(kRegistry, command), [this, command] {
    stopwatch_.start();
    click(kArea, command);
  });
  director_.step(QStringLiteral("archive of the invoices"), enabled(kInvoices, QStringLiteral("Cmd_Cerca")),
                 [this] {
                   const auto rows = rowsOf(kInvoices, kInvoiceGrid);
                   require(rows == expectations::invoiceRows(customers_, issued_, decimalSign()),
                           QStringLiteral("righe e somme dell'archivio fatture"));
                   row(QStringLiteral("Righe con le somme"), QString::number(rows.size()));
                   photograph(kInvoices, QStringLiteral("archivio-fatture-tutte"));
                   stopwatch_.start();
                   click(kInvoices, QStringLiteral("Cmd_Cerca"));
                 });
  director_.step(QStringLiteral("invoices found"), enabled(kInvoices, QStringLiteral("Cmd_Cerca")), [this] {
    // The period runs from the year 2000 to today: whoever has no invoice is not found.
    std::erase_if(customers_, [this](const Customer& one) {
      return std::ranges::find(issued_, one.code, &Invoice::customer) == issued_.end();
    });
    const auto rows = rowsOf(kInvoices, kInvoiceGrid);
    require(rows == expectations::invoiceRows(customers_, issued_, decimalSign()),
            QStringLiteral("righe e somme delle fatture trovate"));
    row(QStringLiteral("Con una fattura"), QStringLiteral("%1 clienti").arg(customers_.size()));
    clickCell(kInvoices, kInvoiceGrid, static_cast<int>(rows.size()) - 1, 1);
    photograph(kInvoices, QStringLiteral("archivio-fatture"));
  });
  exportList(kInvoices, kInvoicesCsv, QStringLiteral("archivio-fatture-export"));
  director_.step(QStringLiteral("figures of the invoices' export"), enabled(kInvoices, kLeave), [this] {
    const std::string written = expectations::readFile(path(inFolder(kInvoicesCsv)));
    require(written == expectations::csvInvoices(customers_, issued_, decimalSign()), kInvoicesCsv);
    row(QStringLiteral("Byte esportati"), QString::number(written.size()));
    click(kInvoices, kLeave);
  });
}
