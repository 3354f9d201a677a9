#include <QDir>
#include <QFile>
#include <QWidget>

#include "controls/outcome_bar.h"
#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/road.h"
#include "demo/week_expectations.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kConsole = QStringLiteral("Form_Comandi_XONXOFF");
const QString kState = QStringLiteral("Form_STATO_ECR");
const QString kBench = QStringLiteral("Form_TestVendita");
const QString kStart = QStringLiteral("Cmd_Avvia");
const QString kLeave = QStringLiteral("Cmd_Esci");
/// The paper without fiscal value that bears one word, as the bench sends it.
const QString kPaper = QStringLiteral("vkOptionButtonTest_14");
const QTime kAfterClosing{20, 40};
const char* const kWord = "PROVA";
const QString kRead = QStringLiteral("Letto nel file ");

std::size_t countOf(const std::string& what, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size()))
    ++count;
  return count;
}

QString foot(const QString& windowName) {
  const auto* bar = window(windowName)->findChild<OutcomeBar*>(QStringLiteral("BarraEsito"));
  return bar == nullptr ? QString() : bar->text();
}

/// Name of the file that the console has written.
QString fileTold() {
  const QString told = foot(kConsole);
  return told.mid(kRead.size(), told.indexOf(QLatin1Char(':')) - kRead.size());
}

Director::When told(const QString& windowName, const QString& start) {
  return [=] { return window(windowName) != nullptr && foot(windowName).startsWith(start); };
}

}  // namespace

/// The technician's console: the till's state, its journal and fiscal memory in files, one canned sequence.
void Road::auxiliary() {
  director_.step(QStringLiteral("menu for the console"), visible(kMenu), [this] {
    itIs(Day::Saturday, kAfterClosing);
    click(kMenu, QStringLiteral("Label_CMD_XONXOFF"));
  });
  director_.step(
      QStringLiteral("console"), [] { return on(kConsole, QStringLiteral("CmdInviaModECR")); },
      [this] {
        type(kConsole, QStringLiteral("vkTextBoxIP_ECR"), till_.address());
        stopwatch_.start();
        click(kConsole, QStringLiteral("CmdInviaModECR"));
      });
  readState();
  dumpJournal();
  dumpFiscalMemory();
  pressCannedKeys();
  director_.step(
      QStringLiteral("console done"), [] { return window(kBench) == nullptr; },
      [] { click(kConsole, kLeave); });
  director_.step(QStringLiteral("file of the journal offered"), box, [this] {
    photographBox(QStringLiteral("comandi-file"));
    refuseBox();
  });
  keepJournal();
}

void Road::readState() {
  director_.step(QStringLiteral("console connected"), told(kConsole, QStringLiteral("Collegato a ")), [this] {
    row(QStringLiteral("Cassa collegata"), till_.address());
    click(kConsole, QStringLiteral("vkOptionButton_RX_STATO_ECR"));
    stopwatch_.start();
    click(kConsole, kStart);
  });
  director_.step(QStringLiteral("state of the till"), visible(kState), [this] {
    const QString receipts =
        control(kState, QStringLiteral("vkTextBox_Num_Scontr_F")).property("text").toString();
    require(receipts == QStringLiteral("%1").arg(kReceiptsOfADay, 6, 10, QLatin1Char('0')),
            QStringLiteral("gli scontrini nello stato della cassa"));
    row(QStringLiteral("Stato: scontrini"), receipts);
    photograph(kState, QStringLiteral("stato-cassa"));
    click(kState, kLeave);
  });
}

void Road::dumpJournal() {
  director_.step(
      QStringLiteral("journal chosen"), [] { return window(kState) == nullptr && on(kConsole, kStart); },
      [this] {
        for (const char* option : {"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonGlobale"})
          click(kConsole, QLatin1String(option));
        stopwatch_.start();
        click(kConsole, kStart);
      });
  director_.step(QStringLiteral("journal read"), told(kConsole, kRead), [this] {
    journal_ = fileTold();
    compareJournal();
    photograph(kConsole, QStringLiteral("comandi-giornale"));
    for (const char* option : {"vkOptionButton_MF", "vkOptionButtonGlobale"})
      click(kConsole, QLatin1String(option));
    stopwatch_.start();
    click(kConsole, kStart);
  });
}

/// The days closed so far, each with its grand total.
void Road::dumpFiscalMemory() {
  director_.step(QStringLiteral("fiscal memory read"), told(kConsole, kRead + QStringLiteral("MF_")), [this] {
    fiscalMemory_ = fileTold();
    const std::string all =
        expectations::readFile(path(places_.application + QLatin1Char('/') + fiscalMemory_));
    const auto closures = expectations::readClosures(path(till_.file(QStringLiteral("memoria_fiscale.txt"))));
    for (const expectations::Closure& one : closures)
      require(countOf(one.day, all) == 1,
              QStringLiteral("la memoria fiscale del ") + QString::fromStdString(one.day));
    row(QStringLiteral("Memoria fiscale"), QStringLiteral("%1 azzeramenti").arg(closures.size()));
    photograph(kConsole, QStringLiteral("comandi-memoria-fiscale"));
    chooseEntry(kConsole, QStringLiteral("mnuTest"), QStringLiteral("mnuTestVendita"));
  });
}

/// Every receipt of the till's own journal stands in the file, with its total.
void Road::compareJournal() {
  const std::string read = expectations::readFile(path(places_.application + QLatin1Char('/') + journal_));
  const std::string kept = expectations::readFile(path(till_.file(QStringLiteral("giornale.txt"))));
  for (const char* what : {"TOTALE EURO", "FATTURA N. ", "IMPONIBILE", "CHIUSURA FISCALE"})
    require(countOf(what, kept) > 0 && countOf(what, read) == countOf(what, kept),
            QStringLiteral("\"%1\" nel giornale letto").arg(QLatin1String(what)));
  for (const Day day : kWeek) {
    const std::string foot = '\n' + dateOf(day).toStdString() + ' ';
    require(countOf(foot, kept) >= static_cast<std::size_t>(kReceiptsOfADay) &&
                countOf(foot, read) == countOf(foot, kept),
            QStringLiteral("il giornale del ") + dateOf(day));
  }
  row(QStringLiteral("Giornale letto"), QStringLiteral("%1 scontrini").arg(countOf("TOTALE EURO", read)));
}

void Road::pressCannedKeys() {
  director_.step(QStringLiteral("bench"), enabled(kBench, QStringLiteral("Cmd_Avvio")), [this] {
    click(kBench, kPaper);
    stopwatch_.start();
    click(kBench, QStringLiteral("Cmd_Avvio"));
  });
  const QString sent = QStringLiteral("Inviata la sequenza ");
  director_.step(QStringLiteral("keys sent"), told(kBench, sent), [this, sent] {
    const std::string kept = expectations::readFile(path(till_.file(QStringLiteral("giornale.txt"))));
    require(countOf(kWord, kept) == 1, QStringLiteral("la sequenza sul giornale della cassa"));
    row(QStringLiteral("Sequenza inviata"), foot(kBench).mid(sent.size()));
    photograph(kBench, QStringLiteral("prove-vendita"));
    click(kBench, QStringLiteral("vkCommandEsci"));
  });
}

/// The files go from the application folder to the pictures.
void Road::keepJournal() {
  director_.step(QStringLiteral("journal kept"), visible(kMenu), [this] {
    for (const QString& one : {journal_, fiscalMemory_})
      require(QFile::rename(places_.application + QLatin1Char('/') + one, inFolder(one)),
              QStringLiteral("il file ") + one);
  });
}
