#include "demo/road.h"

#include <QApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <cstdio>

#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/peak_memory.h"
#include "demo/reread_archive.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kTransfer = QStringLiteral("Form_TrasferimentoArticoli");
const QString kReception = QStringLiteral("Form_RicezioneVenduto");
const QStringList kDay{QStringLiteral("--giornata"), QStringLiteral("300"), QStringLiteral("--seme"),
                       QStringLiteral("2026")};

QString euro(std::int64_t cents) {
  return QLocale(QLocale::Italian, QLocale::Italy).toString(static_cast<double>(cents) / 100.0, 'f', 2);
}

}  // namespace

Road::Road(Places places, ExternalTill& till)
    : places_(std::move(places)),
      till_(till),
      archive_(places_.folder + QStringLiteral("/negozio.mdb")),
      list_(places_.folder + QStringLiteral("/articoli.csv")) {}

int Road::walk() {
  till_.start();
  createArchive();
  importList();
  transfer();
  ringUp();
  receive();
  articleArchive();
  salesArchive();
  backToWork();
  configuration();
  customers();
  auxiliary();
  farewell();
  return director_.run();
}

void Road::createArchive() {
  director_.step(QStringLiteral("menu"), visible(kMenu), [this] {
    hoverOver(kMenu, QStringLiteral("Label2"));
    photograph(kMenu, QStringLiteral("menu"));
    click(kMenu, QStringLiteral("Label2"));
  });
  director_.step(QStringLiteral("workspace"), visible(kWork), [this] {
    photograph(kWork, QStringLiteral("gestione-vuota"));
    stopwatch_.start();
    chooseEntry(kWork, QStringLiteral("mnuFile"), QStringLiteral("mnuNuovo"));
  });
  chooseFile(archive_);
}

void Road::chooseFile(const QString& path) {
  director_.step(QStringLiteral("file dialog"), fileDialog, [path] { typeFileName(path); });
  director_.step(QStringLiteral("file ") + path, acceptableFile, [this] {
    stopwatch_.start();
    acceptFile();
  });
}

void Road::importList() {
  const auto open = [] { return on(kWork, QStringLiteral("Cmd_Down")); };
  director_.step(QStringLiteral("archive open"), open, [this] {
    row(QStringLiteral("Archivio creato"), QStringLiteral("negozio.mdb"));
    photograph(kWork, QStringLiteral("gestione-aperta"));
    stopwatch_.start();
    chooseEntry(kWork, QStringLiteral("mnuFile"), QStringLiteral("mnuImporta"));
  });
  chooseFile(list_);
  awaitBox(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"),
           QStringLiteral("import-messaggio"));
  director_.step(
      QStringLiteral("figures of the import"), [] { return !box(); },
      [this] {
        const std::size_t expected = expectations::readList(path(list_)).size();
        const RereadArchive archive = rereadArchive(archive_);
        require(static_cast<std::size_t>(archive.articles) == expected,
                QStringLiteral("articoli nell'archivio"));
        row(QStringLiteral("Articoli importati"), QString::number(archive.articles));
        photograph(kWork, QStringLiteral("gestione-importata"));
        click(kWork, QStringLiteral("Cmd_Down"));
      });
}

void Road::connect(const QString& name, const QString& photo) {
  director_.step(name, enabled(name, QStringLiteral("CmdInviaModECR")), [=, this] {
    type(name, QStringLiteral("vkTextBoxIP_ECR"), till_.address());
    stopwatch_.start();
    click(name, QStringLiteral("CmdInviaModECR"));
  });
  director_.step(name + QStringLiteral(" connected"), enabled(name, QStringLiteral("Cmd_Avvia")), [=, this] {
    row(QStringLiteral("Cassa collegata"), till_.address());
    photograph(name, photo);
    stopwatch_.start();
    click(name, QStringLiteral("Cmd_Avvia"));
  });
}

void Road::transfer() {
  connect(kTransfer, QStringLiteral("trasferimento"));
  awaitBox(QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTAMENTE TRASFERITO"),
           QStringLiteral("trasferimento-messaggio"));
  director_.step(QStringLiteral("figures of the transfer"), enabled(kTransfer, QStringLiteral("Cmd_Esci")),
                 [this] {
                   compareSending();
                   photograph(kTransfer, QStringLiteral("trasferimento-fatto"));
                   click(kTransfer, QStringLiteral("Cmd_Esci"));
                 });
}

void Road::compareSending() {
  const std::string sent = expectations::readFile(path(till_.file(QStringLiteral("plu.bin"))));
  require(sent == expectations::pluImage(expectations::readList(path(list_))), QStringLiteral("plu.bin"));
  row(QStringLiteral("Byte inviati"), QString::number(sent.size()));
}

void Road::ringUp() {
  director_.step(
      QStringLiteral("a day at the till"), [] { return window(kTransfer) == nullptr; },
      [this] {
        stopwatch_.start();
        till_.stop();
        till_.start(kDay);
        const QString sales = till_.file(QStringLiteral("venduto.bin"));
        QFile::remove(places_.folder + QStringLiteral("/giornata.bin"));
        QFile::copy(sales, places_.folder + QStringLiteral("/giornata.bin"));
        const auto rows = expectations::readSales(path(sales));
        require(!rows.empty(), QStringLiteral("una giornata di vendite"));
        row(QStringLiteral("Giornata in cassa"), kDay.at(1) + QStringLiteral(" scontrini"));
        click(kWork, QStringLiteral("Cmd_Upl"));
      });
}

void Road::receive() {
  connect(kReception, QStringLiteral("ricezione"));
  awaitBox(QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"),
           QStringLiteral("ricezione-messaggio"));
  director_.step(QStringLiteral("figures of the reception"), enabled(kReception, QStringLiteral("Cmd_Esci")),
                 [this] {
                   receivedDay_ = QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"));
                   compareSales();
                   photograph(kReception, QStringLiteral("ricezione-fatta"));
                   click(kReception, QStringLiteral("Cmd_Esci"));
                 });
}

void Road::compareSales() {
  const auto expected = expectations::readSales(path(places_.folder + QStringLiteral("/giornata.bin")));
  const auto articles = expectations::readList(path(list_));
  const RereadArchive archive = rereadArchive(archive_);
  std::int64_t takings = 0;
  for (const expectations::Sales& one : expected) {
    const auto found = archive.sales.find(one.slot);
    require(found != archive.sales.end() && found->second == one,
            QStringLiteral("venduto dello slot %1").arg(one.slot));
    const expectations::Article& article = articles.at(static_cast<std::size_t>(one.slot - 1));
    const auto& [underEan, underArticle] = archive.codes.at(one.slot);
    require(underEan == article.code && underArticle == article.ean,
            QStringLiteral("incrocio dei codici dello slot %1").arg(one.slot));
    takings += one.amount;
  }
  require(static_cast<std::size_t>(archive.rows) == expected.size(),
          QStringLiteral("numero di righe del venduto"));
  require(expectations::readSales(path(till_.file(QStringLiteral("venduto.bin")))).empty(),
          QStringLiteral("venduto azzerato sulla cassa"));
  row(QStringLiteral("Righe di venduto"), QString::number(archive.rows));
  row(QStringLiteral("Incasso in euro"), euro(takings));
}

void Road::backToWork() {
  director_.step(
      QStringLiteral("workspace again"),
      [] { return window(kSalesArchive) == nullptr && window(kWork) != nullptr; },
      [] { click(kWork, QStringLiteral("Cmd_Esci")); });
  director_.step(QStringLiteral("menu between"), visible(kMenu), [this] {
    require(window(kWork) == nullptr, QStringLiteral("la gestione articoli si chiude"));
  });
}

void Road::farewell() {
  director_.step(QStringLiteral("menu again"), visible(kMenu), [this] {
    require(window(QStringLiteral("MDIForm_PRG")) == nullptr, QStringLiteral("la programmazione si chiude"));
    photograph(kMenu, QStringLiteral("menu-di-nuovo"));
    std::printf("Immagini delle schermate in %s\n", qPrintable(places_.folder));
    if (const auto megabyte = peakMemory()) std::printf("Memoria di picco     %.1f MB\n", *megabyte);
  });
}

void Road::awaitBox(const QString& text, const QString& photo) {
  director_.step(text, box, [=, this] {
    require(boxText() == text, QStringLiteral("messaggio \"%1\", non \"%2\"").arg(text, boxText()));
    row(QStringLiteral("Messaggio"), text);
    photographBox(photo);
    closeBox();
  });
}

void Road::photograph(const QString& windowName, const QString& name) {
  const QString file =
      QStringLiteral("%1/%2-%3.png").arg(places_.folder).arg(++photo_, 2, 10, QLatin1Char('0')).arg(name);
  require(window(windowName)->grab().save(file), QStringLiteral("immagine ") + file);
}

void Road::photographBox(const QString& name) {
  const QString file =
      QStringLiteral("%1/%2-%3.png").arg(places_.folder).arg(++photo_, 2, 10, QLatin1Char('0')).arg(name);
  require(QApplication::activeModalWidget()->grab().save(file), QStringLiteral("immagine ") + file);
}

void Road::row(const QString& what, const QString& value) {
  std::printf("%-20s %s  (%.2f s)\n", qPrintable(what), qPrintable(value),
              static_cast<double>(stopwatch_.nsecsElapsed()) / 1e9);
  std::fflush(stdout);
}

void Road::require(bool real, const QString& what) {
  if (!real) director_.fail(QStringLiteral("non corrisponde: ") + what);
}
