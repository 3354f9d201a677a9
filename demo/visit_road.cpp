#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/reread_archive.h"
#include "demo/road.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kFrame = QStringLiteral("MDIForm_PRG");
const QString kExchange = QStringLiteral("Form_TrasferimentoProgrammazione");
const QString kDepartments = QStringLiteral("MSFlexGridReparti");
const QString kExchangeButton = QStringLiteral("Toolbar1_14");
const QString kLeave = QStringLiteral("Cmd_Esci");
const QString kArticlesOnTill = QStringLiteral("plu.bin");
constexpr std::size_t kDepartmentBytes = 42;
constexpr std::size_t kThird = 2;
constexpr std::size_t kPrice = 26;

Director::When inFrame(const QString& name) {
  return [shown = shownIn(kFrame, name)] { return window(kExchange) == nullptr && shown(); };
}

Director::When backInFrame() {
  return [] { return window(kExchange) == nullptr && on(kFrame, kExchangeButton); };
}

}  // namespace

/// The technician takes what the till has, changes the price of a department and sends all of it back: the
/// articles stay as they were.
void Road::visit() {
  director_.step(QStringLiteral("menu for the visit"), visible(kMenu),
                 [] { click(kMenu, QStringLiteral("Label3")); });
  director_.step(QStringLiteral("workspace of the visit"), visible(kFrame),
                 [] { click(kFrame, QStringLiteral("Toolbar1_2")); });
  chooseFile(inFolder(QStringLiteral("configurazione.dat")));
  receiveConfiguration();
  changePrice();
  sendBack();
  director_.step(QStringLiteral("visit done"), backInFrame(),
                 [] { click(kFrame, QStringLiteral("Toolbar1_17")); });
}

void Road::receiveConfiguration() {
  director_.step(QStringLiteral("exchange of the visit"), backInFrame(), [this] {
    // A till whose fiscal day is still open takes no programme.
    tillOn(Day::Saturday, {QStringLiteral("--chiusura")});
    compareWeek();
    articlesOnTill_ = expectations::readFile(path(till_.file(kArticlesOnTill)));
    click(kFrame, kExchangeButton);
  });
  director_.step(QStringLiteral("reception chosen"), visible(kExchange),
                 [] { click(kExchange, QStringLiteral("vkOptionRicezioneECR")); });
  connect(kExchange, QStringLiteral("ricezione-configurazione"));
  awaitBox(QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA"),
           QStringLiteral("ricezione-configurazione-messaggio"));
  director_.step(QStringLiteral("figures of the configuration received"), enabled(kExchange, kLeave), [this] {
    const RereadArchive beside = rereadArchive(inFolder(QStringLiteral("configurazione_art.mdb")));
    require(static_cast<std::size_t>(beside.articles) == expectations::readList(path(list_)).size(),
            QStringLiteral("articoli accanto alla configurazione"));
    row(QStringLiteral("Articoli ricevuti"), QString::number(beside.articles));
    photograph(kExchange, QStringLiteral("ricezione-configurazione-fatta"));
    click(kExchange, kLeave);
  });
}

void Road::changePrice() {
  director_.step(QStringLiteral("departments of the visit"), backInFrame(),
                 [] { click(kFrame, QStringLiteral("Toolbar1_6")); });
  director_.step(QStringLiteral("price of the visit"), inFrame(kDepartments), [] {
    clickCell(kFrame, kDepartments, kThird, 2);
    retype(kFrame, QStringLiteral("casella_2"), QStringLiteral("2,70"));
  });
  director_.step(QStringLiteral("price typed"), inFrame(kDepartments), [this] {
    stopwatch_.start();
    click(kFrame, QStringLiteral("Cmd_Modifica"));
  });
  director_.step(QStringLiteral("price saved"), inFrame(kDepartments),
                 [this] { photograph(kFrame, QStringLiteral("reparti-di-nuovo")); });
}

void Road::sendBack() {
  director_.step(QStringLiteral("exchange again"), backInFrame(), [] { click(kFrame, kExchangeButton); });
  director_.step(QStringLiteral("sending chosen"), visible(kExchange),
                 [] { click(kExchange, QStringLiteral("vkOptionAggiornaECR")); });
  connect(kExchange, QStringLiteral("invio-di-nuovo"));
  awaitBox(QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA"),
           QStringLiteral("invio-di-nuovo-messaggio"));
  director_.step(
      QStringLiteral("figures of the configuration sent back"), enabled(kExchange, kLeave), [this] {
        const std::string departments =
            expectations::readFile(path(till_.file(QStringLiteral("reparti.bin"))));
        require(departments.substr(kThird * kDepartmentBytes + kPrice, 4) == std::string("\x0E\x01\0\0", 4),
                QStringLiteral("il prezzo cambiato dal tecnico"));
        require(expectations::readFile(path(till_.file(kArticlesOnTill))) == articlesOnTill_,
                QStringLiteral("gli articoli della cassa dopo la visita"));
        row(QStringLiteral("Reparto cambiato"), QStringLiteral("PANE FRESCO, 2,70"));
        photograph(kExchange, QStringLiteral("invio-di-nuovo-fatto"));
        click(kExchange, kLeave);
      });
}
