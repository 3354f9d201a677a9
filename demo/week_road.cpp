#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QWidget>
#include <array>

#include "demo/archive_expectations.h"
#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/reread_archive.h"
#include "demo/road.h"
#include "demo/week_expectations.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kAbout = QStringLiteral("frmAbout");
const QString kLeave = QStringLiteral("Cmd_Esci");
const QString kSalesOnTill = QStringLiteral("venduto.bin");
/// Of Thursday, beside those of every day.
constexpr int kReceiptsWithInvoice = 60;
/// Of Monday; every day has the next one.
constexpr int kSeed = 2026;
constexpr int kDaysOfAWeek = 7;
const QTime kClosing{20, 15};
constexpr std::array kNames{"lunedi", "martedi", "mercoledi", "giovedi", "venerdi", "sabato"};

QString euro(std::int64_t cents) {
  return QLocale(QLocale::Italian, QLocale::Italy).toString(static_cast<double>(cents) / 100.0, 'f', 2);
}

QString ofDay(const char* what, Road::Day day) {
  return QLatin1String(what) + QLatin1Char('-') + QLatin1String(kNames.at(static_cast<std::size_t>(day)));
}

}  // namespace

QDate Road::lastMonday(QDate today) {
  return today.addDays(1 - today.dayOfWeek() - kDaysOfAWeek);
}

void Road::itIs(Day day, QTime time) {
  clock_.put(QDateTime(monday_.addDays(static_cast<int>(day)), time));
}

QString Road::dateOf(Day day) const {
  return monday_.addDays(static_cast<int>(day)).toString(QStringLiteral("dd/MM/yyyy"));
}

void Road::tillOn(Day day, const QStringList& otherArguments) {
  till_.stop();
  till_.start(QStringList{QStringLiteral("--data"), dateOf(day)} + otherArguments);
}

QString Road::soldOn(Day day) const {
  return inFolder(QStringLiteral("giornata-%1.bin").arg(static_cast<int>(day) + 1));
}

void Road::ringUp(Day day) {
  const auto between = [] { return QApplication::activeModalWidget() == nullptr; };
  director_.step(QStringLiteral("a day at the till"), between, [this, day] {
    stopwatch_.start();
    tillOn(day, {QStringLiteral("--giornata"), QString::number(kReceiptsOfADay), QStringLiteral("--seme"),
                 QString::number(kSeed + static_cast<int>(day))});
    row(QStringLiteral("Giornata in cassa"),
        QStringLiteral("%1, %2 scontrini").arg(dateOf(day)).arg(kReceiptsOfADay));
  });
}

void Road::receive(Day day) {
  director_.step(QStringLiteral("evening"), enabled(kWork, QStringLiteral("Cmd_Upl")), [this, day] {
    // Unless the invoices took longer.
    if (clock_.now().date() != monday_.addDays(static_cast<int>(day)) || clock_.now().time() < kClosing)
      itIs(day, kClosing);
    // The reception clears them on the till.
    QFile::remove(soldOn(day));
    require(QFile::copy(till_.file(kSalesOnTill), soldOn(day)), QStringLiteral("il venduto della giornata"));
    click(kWork, QStringLiteral("Cmd_Upl"));
  });
  connect(kSalesReception, ofDay("ricezione", day));
  awaitBox(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"),
           ofDay("ricezione-messaggio", day));
  director_.step(QStringLiteral("figures of the reception"), enabled(kSalesReception, kLeave), [this, day] {
    compareSales(day);
    photograph(kSalesReception, ofDay("ricezione-fatta", day));
    click(kSalesReception, kLeave);
  });
}

void Road::closeTill(Day day) {
  director_.step(QStringLiteral("fiscal closure"), enabled(kWork, QStringLiteral("Cmd_Upl")),
                 [this, day] { tillOn(day, {QStringLiteral("--chiusura")}); });
}

void Road::compareSales(Day day) {
  const auto expected = expectations::readSales(path(soldOn(day)));
  require(!expected.empty(), QStringLiteral("una giornata di vendite"));
  const auto articles = articlesInArchive();
  const RereadArchive archive = rereadArchive(archive_);
  require(archive.received.size() == week_.size() + expected.size(),
          QStringLiteral("numero di righe del venduto"));
  auto received = archive.received.end() - static_cast<std::ptrdiff_t>(expected.size());
  for (const expectations::Sales& one : expected) {
    require(received->sales == one, QStringLiteral("venduto dello slot %1").arg(one.slot));
    const expectations::Article& article = articles.at(static_cast<std::size_t>(one.slot - 1));
    require(received->underEan == article.code && received->underArticle == article.ean,
            QStringLiteral("incrocio dei codici dello slot %1").arg(one.slot));
    ++received;
  }
  require(expectations::readSales(path(till_.file(kSalesOnTill))).empty(),
          QStringLiteral("venduto azzerato sulla cassa"));
  week_.insert(week_.end(), expected.begin(), expected.end());
  const auto rows = expectations::salesRows(expected, articles, dateOf(day).toStdString(), decimalSign());
  weekRows_.insert(weekRows_.end(), rows.begin(), rows.end());
  row(QStringLiteral("Righe di venduto"), QString::number(expected.size()));
  row(QStringLiteral("Incasso in euro"), euro(expectations::takings(expected)));
}

void Road::shopDay(Day day) {
  ringUp(day);
  receive(day);
  closeTill(day);
}

/// What the PC was handed every evening against what the till has closed in its fiscal memory.
void Road::compareWeek() {
  std::vector<expectations::Closure> expected;
  std::int64_t sum = 0;
  for (const Day day : kWeek) {
    const std::int64_t total = expectations::takings(expectations::readSales(path(soldOn(day))));
    sum += total;
    const int receipts = kReceiptsOfADay + (day == Day::Thursday ? kReceiptsWithInvoice : 0);
    expected.push_back(
        {static_cast<int>(expected.size()) + 1, dateOf(day).toStdString(), receipts, total, sum});
  }
  require(expectations::readClosures(path(till_.file(QStringLiteral("memoria_fiscale.txt")))) == expected,
          QStringLiteral("gli azzeramenti della settimana"));
  require(sum == expectations::takings(week_), QStringLiteral("la somma della settimana"));
  row(QStringLiteral("Azzeramenti fiscali"), QString::number(expected.size()));
  row(QStringLiteral("Settimana in euro"), euro(sum));
}

void Road::openShop() {
  director_.step(QStringLiteral("menu for the articles"), visible(kMenu),
                 [] { click(kMenu, QStringLiteral("Label2")); });
  director_.step(QStringLiteral("workspace again"), visible(kWork),
                 [] { chooseEntry(kWork, QStringLiteral("mnuFile"), QStringLiteral("mnuApri")); });
  chooseFile(archive_);
}

void Road::closeShop() {
  director_.step(QStringLiteral("workspace done"), enabled(kWork, QStringLiteral("Cmd_Upl")),
                 [] { click(kWork, kLeave); });
  director_.step(QStringLiteral("menu between"), visible(kMenu), [this] {
    require(window(kWork) == nullptr, QStringLiteral("la gestione articoli si chiude"));
  });
}

void Road::about() {
  director_.step(QStringLiteral("menu for the program's name"), visible(kMenu),
                 [] { click(kMenu, QStringLiteral("Label6")); });
  director_.step(QStringLiteral("name of the program"), enabled(kAbout, QStringLiteral("cmdOK")), [this] {
    const QString version = control(kAbout, QStringLiteral("lblVersion")).property("text").toString();
    require(version.startsWith(QStringLiteral("Versione ")), QStringLiteral("la versione del programma"));
    row(QStringLiteral("Programma"), version);
    photograph(kAbout, QStringLiteral("informazioni"));
    click(kAbout, QStringLiteral("cmdOK"));
  });
  director_.step(
      QStringLiteral("name of the program done"), [] { return window(kAbout) == nullptr; }, [] {});
}
