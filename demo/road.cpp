#include "demo/road.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QWidget>
#include <cstdio>

#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/peak_memory.h"
#include "demo/reread_archive.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kTransfer = QStringLiteral("Form_TrasferimentoArticoli");
const QTime kBeforeOpening{7, 40};

}  // namespace

Road::Road(Places places, QDate monday, PlayClock& clock, ExternalTill& till)
    : places_(std::move(places)),
      clock_(clock),
      till_(till),
      manual_(places_.manual),
      archive_(places_.folder + QStringLiteral("/negozio.mdb")),
      list_(places_.folder + QStringLiteral("/articoli.csv")),
      monday_(monday) {}

int Road::walk() {
  itIs(Day::Monday, kBeforeOpening);
  tillOn(Day::Monday);
  configuration();
  createArchive();
  importList();
  transfer();
  shopDay(Day::Monday);
  articleArchive();
  shopDay(Day::Tuesday);
  shopDay(Day::Wednesday);
  closeShop();

  ringUp(Day::Thursday);
  customers();
  openShop();
  receive(Day::Thursday);
  closeTill(Day::Thursday);
  closeShop();

  ringUp(Day::Friday);
  graphics();
  openShop();
  receive(Day::Friday);
  closeTill(Day::Friday);

  ringUp(Day::Saturday);
  receive(Day::Saturday);
  salesArchive();
  closeShop();
  auxiliary();
  visit();
  about();
  farewell();
  return director_.run();
}

void Road::createArchive() {
  director_.step(QStringLiteral("menu"), visible(kMenu), [this] {
    // From the one that was opened last to the one below the pointer.
    press(kMenu, QStringLiteral("Label3"), Qt::Key_Up);
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

void Road::farewell() {
  director_.step(QStringLiteral("menu again"), visible(kMenu), [this] {
    require(window(QStringLiteral("MDIForm_PRG")) == nullptr, QStringLiteral("la programmazione si chiude"));
    photograph(kMenu, QStringLiteral("menu-di-nuovo"));
    require(manual_.missing().isEmpty(),
            QStringLiteral("immagini del manuale: ") + manual_.missing().join(QLatin1Char(' ')));
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
  keepPicture(window(windowName)->grab().toImage(), name);
}

void Road::photographBox(const QString& name) {
  keepPicture(QApplication::activeModalWidget()->grab().toImage(), name);
}

void Road::keepPicture(const QImage& picture, const QString& name) {
  const QString file =
      QStringLiteral("%1/%2-%3.png").arg(places_.folder).arg(++photo_, 2, 10, QLatin1Char('0')).arg(name);
  require(picture.save(file), QStringLiteral("immagine ") + file);
  require(manual_.keep(picture, name), QStringLiteral("immagine del manuale ") + name);
}

void Road::row(const QString& what, const QString& value) {
  std::printf("%-20s %s  (%.2f s)\n", qPrintable(what), qPrintable(value),
              static_cast<double>(stopwatch_.nsecsElapsed()) / 1e9);
  std::fflush(stdout);
}

void Road::require(bool real, const QString& what) {
  if (!real) director_.fail(QStringLiteral("non corrisponde: ") + what);
}
