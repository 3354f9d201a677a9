#include <QWidget>

#include "controls/outcome_bar.h"
#include "demo/expectations.h"
#include "demo/moments.h"
#include "demo/road.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kFrame = QStringLiteral("MDIForm_PRG");
const QString kExchange = QStringLiteral("Form_TrasferimentoProgrammazione");
const QString kDepartments = QStringLiteral("MSFlexGridReparti");
const QString kTabs = QStringLiteral("SSTab1");
const QString kSave = QStringLiteral("Cmd_Modifica");
constexpr std::size_t kDepartmentBytes = 3361;
constexpr std::size_t kPrice = 26;
/// Of the file: where the shop's name begins.
constexpr std::size_t kShopName = 9;
/// Of the options: number of the till, and whether an operator has to be named.
constexpr std::size_t kTillNumber = 5;
constexpr std::size_t kOperatorNeeded = 6;
/// Of an operator.
constexpr std::size_t kEnabled = 25;
constexpr std::size_t kPassword = 26;

Director::When shows(const QString& name) {
  return shownIn(kFrame, name);
}

}  // namespace

/// A configuration made from the template, a department, the shop, an operator and an option changed, and all
/// of it on the till.
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
    director_.step(QLatin1String(photo), visible(kFrame),
                   [button = button] { click(kFrame, QLatin1String(button)); });
    director_.step(QLatin1String(grid), shows(QLatin1String(grid)),
                   [this, photo = photo] { photograph(kFrame, QLatin1String(photo)); });
  }
  editShop();
  editOperator();
  editOptions();
  chooseMachine();
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

void Road::editShop() {
  openEditor(QStringLiteral("Toolbar1_5"), QStringLiteral("vkTextBox_rag_sociale"), [] {
    for (const auto& [box, text] : {std::pair{"vkTextBox_rag_sociale", "Panificio Sole"},
                                    {"vkTextBox_pIva", "50000041017"},
                                    {"vkTextBox_indirizzo", "Via della Fontana 8"},
                                    {"vkTextBox_citta", "Torino"},
                                    {"vkTextBox_cap", "10121"},
                                    {"vkTextBox_provincia", "TO"},
                                    {"vkTextBox_telefono", "0115550000"},
                                    {"vkTextBox_email", "info@sole.example"},
                                    {"vkTextBox_num_cassa", "3"}})
      type(kFrame, QLatin1String(box), QLatin1String(text));
  });
  tab(0, QStringLiteral("negozio"));
  tab(1, QStringLiteral("negozio-intestazione"), [] {
    type(kFrame, QStringLiteral("vkTextBox_INT_0"), QStringLiteral("PANIFICIO SOLE"));
    click(kFrame, QStringLiteral("vkOptionButtonINT_SI_0"));
  });
  tab(2, QStringLiteral("negozio-cortesia"));
  save(kSave, QStringLiteral("negozio-salvato"));
}

void Road::editOperator() {
  openEditor(QStringLiteral("Toolbar1_10"), QStringLiteral("vkTextBox_OPE_0"), [] {
    type(kFrame, QStringLiteral("vkTextBox_OPE_0"), QStringLiteral("MARIA"));
    type(kFrame, QStringLiteral("vkTextBox_Password_OPE_0"), QStringLiteral("246810"));
    click(kFrame, QStringLiteral("vkOptionButtonAbil_OPE_SI_0"));
  });
  director_.step(QStringLiteral("operator typed"), visible(kFrame),
                 [this] { photograph(kFrame, QStringLiteral("operatori")); });
  save(kSave, QStringLiteral("operatori-salvati"));
}

void Road::editOptions() {
  openEditor(QStringLiteral("Toolbar1_11"), QStringLiteral("ComboCOM1"), [] {});
  tab(0, QStringLiteral("opzioni-periferiche"));
  tab(1, QStringLiteral("opzioni-scontrino"),
      [] { click(kFrame, QStringLiteral("vkOptionButtonObblOpe_SI")); });
  tab(2, QStringLiteral("opzioni-varie"));
  tab(4, QStringLiteral("opzioni-tallon"));
  tab(3, QStringLiteral("opzioni-calendario"), [] {
    for (const char* printed : {"vkOptionButton_Grafica_SI_0", "vkOptionButton_Grafica_SI_2"})
      click(kFrame, QLatin1String(printed));
  });
  save(QStringLiteral("vkCommand1"), QStringLiteral("opzioni-salvate"));
}

/// It is kept by the program as long as it runs, and by no file.
void Road::chooseMachine() {
  openEditor(QStringLiteral("Toolbar1_13"), QStringLiteral("vkOptionButtonTipoMacchina_11"), [] {
    click(kFrame, QStringLiteral("vkOptionButtonTipoMacchina_11"));
    click(kFrame, QStringLiteral("Cmd_Conferma"));
  });
  director_.step(QStringLiteral("machine asked about"), box, [this] {
    require(boxText() == QStringLiteral("Si è sicuri della scelta effettuata ?"),
            QStringLiteral("la domanda sulla macchina"));
    agreeToBox();
  });
  director_.step(QStringLiteral("machine chosen"), visible(kFrame),
                 [this] { photograph(kFrame, QStringLiteral("tastiera")); });
}

void Road::openEditor(const QString& button, const QString& field, const Director::Action& typing) {
  director_.step(button, visible(kFrame), [button] { click(kFrame, button); });
  director_.step(field, shows(field), typing);
}

/// In steps of their own: what has been changed is laid out between them.
void Road::tab(int which, const QString& photo, const Director::Action& typing) {
  director_.step(photo + QStringLiteral(" in front"), visible(kFrame), [=] {
    clickTab(kFrame, kTabs, which);
    if (typing) typing();
  });
  director_.step(photo, visible(kFrame), [=, this] { photograph(kFrame, photo); });
}

void Road::save(const QString& command, const QString& what) {
  director_.step(what + QStringLiteral(" asked for"), visible(kFrame), [=, this] {
    stopwatch_.start();
    click(kFrame, command);
  });
  director_.step(what, visible(kFrame), [=, this] {
    // The editor's own foot, and not its frame's.
    const QWidget* editor = control(kFrame, kTabs).parentWidget();
    const auto* foot = editor->findChild<OutcomeBar*>(QStringLiteral("BarraEsito"));
    const QString said = foot != nullptr ? foot->text() : QString();
    require(said.startsWith(QStringLiteral("Salvato: ")), what);
    row(QStringLiteral("Configurazione"), said);
    photograph(kFrame, what);
  });
}

/// What was typed, byte for byte, in the files that the till keeps.
void Road::compareConfiguration() {
  const auto onTill = [this](const char* file) {
    return expectations::readFile(path(till_.file(QLatin1String(file))));
  };
  const std::string file = expectations::readFile(path(inFolder(QStringLiteral("configurazione.dat"))));
  require(file.substr(kShopName, 15) == std::string("Panificio Sole\0", 15),
          QStringLiteral("il nome del negozio nella configurazione"));
  require(onTill("intestazione.bin").substr(0, 16) == std::string("\1PANIFICIO SOLE\0", 16),
          QStringLiteral("la prima riga di intestazione sulla cassa"));
  const std::string cashier = onTill("operatori.bin").substr(0, 33);
  require(cashier.substr(0, 6) == std::string("MARIA\0", 6), QStringLiteral("l'operatore sulla cassa"));
  require(cashier[kEnabled] == 1 && cashier.substr(kPassword, 7) == std::string("246810\0", 7),
          QStringLiteral("abilitazione e password dell'operatore sulla cassa"));
  const std::string options = onTill("prog_param.bin");
  require(options[kTillNumber] == 3, QStringLiteral("il numero della cassa"));
  require(options[kOperatorNeeded] == 1, QStringLiteral("l'obbligo dell'operatore sulla cassa"));
}

void Road::sendConfiguration() {
  director_.step(QStringLiteral("exchange"), visible(kFrame),
                 [] { click(kFrame, QStringLiteral("Toolbar1_14")); });
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
        compareConfiguration();
        row(QStringLiteral("Reparti in cassa"), QString::number(sent.size()) + QStringLiteral(" byte"));
        photograph(kExchange, QStringLiteral("invio-configurazione-fatto"));
        click(kExchange, QStringLiteral("Cmd_Esci"));
      });
}
