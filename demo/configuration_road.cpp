#include <QWidget>

#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/road.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kFrame = QStringLiteral("MDIForm_PRG");
const QString kExchange = QStringLiteral("Form_TrasferimentoProgrammazione");
const QString kDepartments = QStringLiteral("MSFlexGridReparti");
constexpr std::size_t kDepartmentBytes = 3361;
constexpr std::size_t kPrice = 26;

Director::When shows(const QString& name) {
  return [name] {
    const QWidget* frame = window(kFrame);
    const auto* one = frame == nullptr ? nullptr : frame->findChild<QWidget*>(name);
    return one != nullptr && one->isVisible();
  };
}

}  // namespace

/// A configuration made from the template, a department changed in its grid, and all of it on the till.
void Road::configuration() {
  director_.step(QStringLiteral("menu for the configuration"), visible(kMenu),
                 [] { click(kMenu, QStringLiteral("Label3")); });
  director_.step(QStringLiteral("configuration workspace"), visible(kFrame), [this] {
    photograph(kFrame, QStringLiteral("programmazione-vuota"));
    click(kFrame, QStringLiteral("Toolbar1_1"));
  });
  chooseFile(inFolder(QStringLiteral("configurazione.dat")));
  director_.step(
      QStringLiteral("configuration open"), [] { return on(kFrame, QStringLiteral("Toolbar1_6")); },
      [this] {
        row(QStringLiteral("Configurazione"), QStringLiteral("configurazione.dat"));
        photograph(kFrame, QStringLiteral("programmazione-aperta"));
        click(kFrame, QStringLiteral("Toolbar1_6"));
      });
  editDepartment();
  for (const auto& [button, grid, photo] :
       {std::tuple{"Toolbar1_8", "MSFlexGridIVA", "iva"}, {"Toolbar1_9", "MSFlexGridVAL", "valute"}}) {
    director_.step(QLatin1String(photo), visible(kFrame), [=] { click(kFrame, QLatin1String(button)); });
    director_.step(QLatin1String(grid), shows(QLatin1String(grid)),
                   [=, this] { photograph(kFrame, QLatin1String(photo)); });
  }
  sendConfiguration();
  director_.step(
      QStringLiteral("configuration done"), [] { return window(kExchange) == nullptr; },
      [] { click(kFrame, QStringLiteral("Toolbar1_17")); });
}

void Road::editDepartment() {
  director_.step(QStringLiteral("departments"), shows(kDepartments), [] {
    clickCell(kFrame, kDepartments, 2, 1);
    type(kFrame, QStringLiteral("casella_1"), QStringLiteral("PANE FRESCO"));
    clickCell(kFrame, kDepartments, 2, 2);
    retype(kFrame, QStringLiteral("casella_2"), QStringLiteral("2,50"));
  });
  director_.step(QStringLiteral("departments edited"), shows(kDepartments), [this] {
    photograph(kFrame, QStringLiteral("reparti-modificati"));
    stopwatch_.start();
    click(kFrame, QStringLiteral("Cmd_Modifica"));
  });
  director_.step(QStringLiteral("departments saved"), shows(kDepartments), [this] {
    row(QStringLiteral("Reparti salvati"), QStringLiteral("1"));
    photograph(kFrame, QStringLiteral("reparti-salvati"));
  });
}

void Road::sendConfiguration() {
  director_.step(QStringLiteral("exchange"), visible(kFrame), [this] {
    // The next morning: a till with fiscal data of the day takes no programme.
    till_.stop();
    till_.start();
    click(kFrame, QStringLiteral("Toolbar1_14"));
  });
  director_.step(QStringLiteral("exchange open"), visible(kExchange),
                 [] { click(kExchange, QStringLiteral("vkOptionAggiornaECR")); });
  connect(kExchange, QStringLiteral("invio-configurazione"));
  awaitBox(QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA"),
           QStringLiteral("invio-configurazione-messaggio"));
  director_.step(
      QStringLiteral("figures of the configuration"), enabled(kExchange, QStringLiteral("Cmd_Esci")), [this] {
        const std::string sent = expectations::readFile(path(till_.file(QStringLiteral("reparti.bin"))));
        const std::size_t third = std::size_t{2} * 42;
        require(sent.size() == kDepartmentBytes && sent.substr(third, 12) == std::string("PANE FRESCO\0", 12),
                QStringLiteral("il reparto sulla cassa"));
        require(sent.substr(third + kPrice, 4) == std::string("\xFA\0\0\0", 4),
                QStringLiteral("il prezzo del reparto sulla cassa"));
        row(QStringLiteral("Reparti in cassa"), QString::number(sent.size()) + QStringLiteral(" byte"));
        photograph(kExchange, QStringLiteral("invio-configurazione-fatto"));
        click(kExchange, QStringLiteral("Cmd_Esci"));
      });
}
