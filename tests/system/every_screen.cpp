// Every screen of the program with something in it.
#include "system/every_screen.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <ostream>

#include "articles/Form_ArchivioArticoli.h"
#include "articles/Form_Help_CodiceEAN.h"
#include "articles/Form_TrasferimentoArticoli.h"
#include "auxcmd/Form_ATTESA_MF_DGFE.h"
#include "auxcmd/Form_Comandi_XONXOFF.h"
#include "auxcmd/Form_Dump_MF_DGFE.h"
#include "auxcmd/Form_Help_CodiciErrori.h"
#include "auxcmd/Form_STATO_ECR.h"
#include "auxcmd/Form_Test.h"
#include "auxcmd/bench_screens.h"
#include "config/Form_TrasferimentoProgrammazione.h"
#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "core/manual_viewer.h"
#include "core/menu.h"
#include "core/start.h"
#include "customers/Form_AnagraficaClienti.h"
#include "customers/Form_ArchivioFattureClienti.h"
#include "customers/Form_GestioneClienti.h"
#include "customers/Form_RicezioneClienti.h"
#include "customers/Form_TrasferimentoClienti.h"
#include "customers/customer_database.h"
#include "customers/customer_state.h"
#include "editors/Form_GestioneCodiceTastiera.h"
#include "editors/Form_IVA.h"
#include "editors/Form_Negozio.h"
#include "editors/Form_OPE.h"
#include "editors/Form_OpzioniGen.h"
#include "editors/Form_PLU.h"
#include "editors/Form_Reparti.h"
#include "editors/Form_Valuta.h"
#include "editors/MDIForm_PRG.h"
#include "editors/changes.h"
#include "editors/chosen_model.h"
#include "editors/frmTastiOpzione.h"
#include "graphics/Form_Grafica.h"
#include "graphics/catalogue.h"
#include "graphics/preparation.h"
#include "platform/ui/message_box.h"
#include "sales/Form_ArchivioVenduto.h"
#include "sales/Form_RicezioneVenduto.h"
#include "sostegno/statements.h"
#include "workspace/Form_GestioneMMC.h"

namespace {

/// The application folder seen from a place of the shop's own: some screens leave files there.
QString ownApplication(const QString& place) {
  const QString pictures = QStringLiteral("Immagini GRAFICA");
  const auto link = [&](const QString& from, const QString& to, const QString& left) {
    EXPECT_TRUE(QDir().mkpath(to));
    for (const QString& name : QDir(from).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
      if (name != left && !QFile::link(from + u'/' + name, to + u'/' + name))
        ADD_FAILURE() << name.toStdString();
  };
  link(QStringLiteral(GESTIONALE_APP), place, pictures);
  link(QStringLiteral(GESTIONALE_APP) + u'/' + pictures, place + u'/' + pictures, {});
  return place;
}

}  // namespace

Shop::Shop() {
  room.contesto.cartella = ownApplication(room.folder.file(QStringLiteral("programma")));
  makeScreensKnown();
  fillArticles();
  customers::statoClienti() = {};
  graphics::modGra1() = {};
}

void Shop::makeScreensKnown() {
  registraSchermateCore(room.screens);
  room.screens.registra<Form_ArchivioArticoli>();
  room.screens.registra<Form_TrasferimentoArticoli>();
  room.screens.registra<Form_Help_CodiceEAN>();
  room.screens.registra<Form_RicezioneVenduto>();
  room.screens.registra<Form_ArchivioVenduto>();
  room.screens.registra<Form_GestioneMMC>();
  room.screens.registra<MDIForm_PRG>();
  room.screens.registra<Form_Reparti>();
  room.screens.registra<Form_PLU>();
  room.screens.registra<Form_IVA>();
  room.screens.registra<Form_Negozio>();
  room.screens.registra<Form_OPE>();
  room.screens.registra<Form_OpzioniGen>();
  room.screens.registra<Form_Valuta>();
  room.screens.registra<Form_GestioneCodiceTastiera>();
  room.screens.registra<frmTastiOpzione>();
  room.screens.registra<Form_TrasferimentoProgrammazione>();
  room.screens.registra<Form_Comandi_XONXOFF>();
  room.screens.registra<Form_STATO_ECR>();
  room.screens.registra<Form_ATTESA_MF_DGFE>();
  room.screens.registra<Form_Dump_MF_DGFE>();
  room.screens.registra<Form_Help_CodiciErrori>();
  room.screens.registra<Form_Test>();
  room.screens.registra<Form_GestioneClienti>();
  room.screens.registra<Form_AnagraficaClienti>();
  room.screens.registra<Form_ArchivioFattureClienti>();
  room.screens.registra<Form_TrasferimentoClienti>();
  room.screens.registra<Form_RicezioneClienti>();
  room.screens.registra<Form_Grafica>();
  auxcmd::registraBanchi(room.screens);
  // A display that asks nothing.
  room.screens.registra(QStringLiteral("start"), [](Contesto& contesto) {
    return new start(contesto, {1280, 1024});
  });
}

void Shop::fillArticles() {
  room.openArchive();
  writeArticles(room, testArticles(60));
  store::Transaction sales(room.workspace);
  for (int slot = 1; slot <= 12; ++slot)
    room.execute(QStringLiteral("insert into TAB_VENDUTO (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,"
                                "Importo_giornaliero,Tot_giorn_articoli_venduti,sconto_giornaliero) values "
                                "('20240307',%1,'A%1','800112000%1','ARTICOLO %1',%2,2,10)")
                     .arg(slot)
                     .arg(slot * 125));
  sales.Commit();
}

void Shop::openCustomers() {
  customers::NuovoDatabase(room.folder.file(QStringLiteral("clienti.mdb")), room.contesto);
  const auto execute = [](const QString& sql) { varGlobal().DB_Clienti.Execute(asWritten(sql)); };
  int code = 0;
  for (const char* vat :
       {"00488410010", "00488540014", "00488670019", "00488800012", "00488930017", "00489060012",
        "00489190017", "00489320010", "00489450015", "00489580019", "00489710012", "00489840017"}) {
    ++code;
    execute(QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (%1,'PANIFICIO FRATELLI ROSSI %1','VIA "
                           "GARIBALDI %1','TORINO','%2','RITIRA ALLE 7',1)")
                .arg(code)
                .arg(QLatin1String(vat)));
    execute(QStringLiteral("INSERT INTO TAB_FATTURE VALUES (%1,'2024/%1',' 1','0%2/03/2024 "
                           "10:20:30',0,%3,%4,%5,'ROSSI MARIO')")
                .arg(code)
                .arg(1 + code % 9)
                .arg(code * 122)
                .arg(code * 100)
                .arg(code * 22));
  }
}

void PrintTo(const Screen& screen, std::ostream* output) {
  *output << screen.name;
}

namespace {

/// Opens a screen of the program by its name.
auto named(const char* name) {
  return [name](Shop& shop, const Use& use) {
    use(GuidedScreen(shop.room, QString::fromLatin1(name)).window());
  };
}

/// The same with the till connected.
auto connected(const char* name) {
  return [name](Shop& shop, const Use& use) {
    const GuidedScreen screen(shop.room, QString::fromLatin1(name));
    screen.connectTo(shop.till);
    ASSERT_TRUE(screen.enabled(QStringLiteral("Cmd_Avvia")));
    use(screen.window());
  };
}

/// With the first article in the fields, one of them changed, and a reason under a field.
void pickedArticle(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("Form_ArchivioArticoli"));
  auto& grid = screen.control<FlexGrid>("MSFlexGridArticoli");
  grid.setFocus();
  grid.setCell(4, 3);
  QTest::keyClick(&grid, Qt::Key_Return);
  screen.type(QStringLiteral("vkTextBoxDesc"), QStringLiteral("PANE DI CASA"));
  use(screen.window());
}

void searchedSales(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("Form_ArchivioVenduto"));
  screen.type(QStringLiteral("vkTextBoxCodEan"), QStringLiteral("A1"));
  use(screen.window());
}

void manual(Shop& shop, const Use& use) {
  const GuidedScreen menu(shop.room, QStringLiteral("start"));
  showManual(menu.window(), shop.room.contesto);
  auto* viewer = menu.window().findChild<ManualViewer*>();
  ASSERT_NE(viewer, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
  use(*viewer);
}

void openArchive(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("Form_GestioneMMC"));
  shop.room.user.chooses(shop.room.folder.file(QStringLiteral("archivio.mdb")));
  QTest::keyClick(&screen.window(), Qt::Key_O, Qt::ControlModifier);
  ASSERT_TRUE(screen.enabled(QStringLiteral("Cmd_Articoli")));
  use(screen.window());
}

void press(const GuidedScreen& screen, const char* command, Qt::Key key) {
  screen.control(command).setFocus(Qt::TabFocusReason);
  screen.key(key);
}

void openConfiguration(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("MDIForm_PRG"));
  shop.room.user.chooses(shop.room.folder.file(QStringLiteral("negozio.dat")));
  QTest::keyClick(&screen.window(), Qt::Key_N, Qt::ControlModifier);
  ASSERT_TRUE(screen.enabled(QStringLiteral("Toolbar1_6")));
  use(screen.window());
  // The arrows changed some pairs on the way; the frame asks for them when it goes.
  editors::azzeraModifiche();
}

/// The workspace of the configuration with one of its editors in it.
auto editor(const char* button) {
  return [button](Shop& shop, const Use& use) {
    openConfiguration(shop, [&](QWidget& window) {
      press(GuidedScreen(window), button, Qt::Key_Space);
      use(window);
    });
  };
}

/// The editor of the articles in the configuration: no command opens it, since their archive stands in its
/// place.
void editorOfArticles(Shop& shop, const Use& use) {
  openConfiguration(
      shop, [&](QWidget& /*frame*/) { use(GuidedScreen(shop.room, QStringLiteral("Form_PLU")).window()); });
}

/// The same with another of its tabs in front, from 0.
auto editorTab(const char* button, int which) {
  return [button, which](Shop& shop, const Use& use) {
    editor(button)(shop, [&](QWidget& window) {
      auto* tabs = window.findChild<QTabWidget*>(QStringLiteral("SSTab1"));
      ASSERT_NE(tabs, nullptr);
      tabs->tabBar()->setFocus(Qt::TabFocusReason);
      for (int i = 0; i < which; ++i) QTest::keyClick(tabs->tabBar(), Qt::Key_Right);
      ASSERT_EQ(tabs->currentIndex(), which);
      use(window);
    });
  };
}

void withoutArchive(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("Form_GestioneMMC"));
  QTest::keyClick(&screen.window(), Qt::Key_W, Qt::ControlModifier);
  ASSERT_FALSE(screen.enabled(QStringLiteral("Cmd_Articoli")));
  use(screen.window());
}

void offeredReport(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("Form_GestioneMMC"));
  screen.control<OutcomeBar>("BarraEsito")
      .tell(OutcomeBar::Kind::Warning, QStringLiteral("Importati 3 articoli, 1 riga scartata"),
            {QStringLiteral("Apri il report"), [] {}});
  use(screen.window());
}

void question(Shop& /*shop*/, const Use& use) {
  withModal(
      [] {
        message_box::show({QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::Question,
                           QStringLiteral("ATTENZIONE"), Buttons::YesNoCancel, Preset::Last});
      },
      [&](QWidget& box) {
        const QPointer<QWidget> still(&box);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
        use(box);
        if (still && still->isVisible()) QTest::keyClick(&box, Qt::Key_Escape);
      });
}

void offeringNotice(Shop& /*shop*/, const Use& use) {
  withModal(
      [] {
        message_box::show({QStringLiteral("Riga 12: reparto assente"), Icon::Critical, {}}, true);
      },
      [&](QWidget& box) {
        const QPointer<QWidget> still(&box);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
        use(box);
        if (still && still->isVisible()) QTest::keyClick(&box, Qt::Key_Escape);
      });
}

QString foot(const GuidedScreen& screen) {
  return screen.control<OutcomeBar>("BarraEsito").text();
}

void leaves(const GuidedScreen& screen, const char* command, Qt::Key key) {
  press(screen, command, key);
  EXPECT_FALSE(screen.alive());
}

void opensAbout(Shop& shop, const GuidedScreen& screen) {
  press(screen, "Label6", Qt::Key_Return);
  EXPECT_NE(shop.room.screens.trova(QStringLiteral("frmAbout")), nullptr);
}

void closesArchive(Shop& /*shop*/, const GuidedScreen& screen) {
  press(screen, "PulsanteChiudi", Qt::Key_Space);
  EXPECT_EQ(foot(screen), QStringLiteral("Archivio chiuso: archivio.mdb"));
}

void opensByReturn(Shop& shop, const GuidedScreen& screen) {
  shop.room.user.chooses(shop.room.folder.file(QStringLiteral("archivio.mdb")));
  press(screen, "PulsanteApri", Qt::Key_Return);
  EXPECT_TRUE(screen.enabled(QStringLiteral("Cmd_Articoli")));
}

void clearsFields(Shop& /*shop*/, const GuidedScreen& screen) {
  screen.type(QStringLiteral("vkTextBoxDesc"), QStringLiteral("PANE"));
  press(screen, "Cmd_Reset", Qt::Key_Space);
  EXPECT_EQ(screen.text(QStringLiteral("vkTextBoxDesc")), QString());
}

void savesByReturn(Shop& shop, const GuidedScreen& screen) {
  press(screen, "vkTextBoxDesc", Qt::Key_Return);
  EXPECT_EQ(shop.room.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id =4")),
            QStringLiteral("PANE DI CASA"));
}

void clearsFilters(Shop& /*shop*/, const GuidedScreen& screen) {
  press(screen, "Cmd_Reset", Qt::Key_Space);
  EXPECT_EQ(foot(screen), QStringLiteral("Filtri vuoti; l'elenco è quello di prima"));
}

void searchesByReturn(Shop& shop, const GuidedScreen& screen) {
  press(screen, "vkTextBoxCodEan", Qt::Key_Return);
  shop.room.takeBoxes();
  // The four articles whose code begins so: A1, A10, A11, A12.
  EXPECT_TRUE(foot(screen).startsWith(QStringLiteral("4 righe di venduto"))) << foot(screen).toStdString();
}

void connectsByReturn(Shop& shop, const GuidedScreen& screen) {
  screen.typeAddress(shop.till.address());
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(foot(screen).startsWith(QStringLiteral("Collegato a ") + shop.till.address()))
      << foot(screen).toStdString();
}

void sendsByF9(Shop& shop, const GuidedScreen& screen) {
  screen.key(Qt::Key_F9);
  shop.room.takeBoxes();
  EXPECT_EQ(shop.till.byte(QStringLiteral("plu.bin")).size(), 240000);
}

void receivesBySpace(Shop& shop, const GuidedScreen& screen) {
  shop.till.sales({{0, 250, 2, 0}});
  press(screen, "Cmd_Avvia", Qt::Key_Space);
  shop.room.takeBoxes();
  EXPECT_EQ(shop.till.byte(QStringLiteral("venduto.bin")), salesArchive({})) << "the till has forgotten them";
}

void findsByReturn(Shop& /*shop*/, const GuidedScreen& screen) {
  screen.type(QStringLiteral("CampoCerca"), QStringLiteral("cassa"));
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(foot(screen).startsWith(QStringLiteral("«cassa»: "))) << foot(screen).toStdString();
}

void answersByLetter(Shop& /*shop*/, const GuidedScreen& screen) {
  // The letter shows the button going down and up before it answers.
  QTest::keyClick(&screen.window(), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !screen.alive(); }));
}

void opensDepartments(Shop& shop, const GuidedScreen& screen) {
  press(screen, "Toolbar1_6", Qt::Key_Space);
  EXPECT_NE(shop.room.screens.trova(QStringLiteral("Form_Reparti")), nullptr);
}

auto undoesChangesOf(const char* grid) {
  return [grid](Shop& /*shop*/, const GuidedScreen& screen) {
    auto& cells = screen.control<FlexGrid>(grid);
    const QString before = cells.TextMatrix(1, 1);
    cells.setCell(2, 1);
    cells.setCell(1, 1);
    screen.type(QStringLiteral("casella_1"), QStringLiteral("PROVA"));
    EXPECT_EQ(cells.TextMatrix(1, 1), QStringLiteral("PROVA"));
    press(screen, "Cmd_Reset", Qt::Key_Space);
    EXPECT_EQ(cells.TextMatrix(1, 1), before);
  };
}

/// Changes a field by keys, undoes it by the tab's own command.
auto undoesChangeOf(const char* field, const char* command) {
  return [field, command](Shop& /*shop*/, const GuidedScreen& screen) {
    const QString before = screen.text(QLatin1String(field));
    screen.type(QLatin1String(field), QStringLiteral("7"));
    EXPECT_NE(screen.text(QLatin1String(field)), before);
    press(screen, command, Qt::Key_Space);
    EXPECT_EQ(screen.text(QLatin1String(field)), before);
  };
}

/// The same for one of a pair, which is changed by an arrow.
auto undoesChoiceOf(const char* pair, const char* command, const char* row = "") {
  return [pair, command, row](Shop& /*shop*/, const GuidedScreen& screen) {
    auto& yes =
        screen.control<QRadioButton>(QLatin1String(pair) + QStringLiteral("_SI") + QLatin1String(row));
    auto& no = screen.control<QRadioButton>(QLatin1String(pair) + QStringLiteral("_NO") + QLatin1String(row));
    const bool before = yes.isChecked();
    QRadioButton& chosen = before ? yes : no;
    chosen.setFocus(Qt::TabFocusReason);
    screen.key(before ? Qt::Key_Right : Qt::Key_Left);
    EXPECT_EQ(yes.isChecked(), !before);
    press(screen, command, Qt::Key_Space);
    EXPECT_EQ(yes.isChecked(), before);
  };
}

void confirmsMachineByReturn(Shop& shop, const GuidedScreen& screen) {
  shop.room.user.answers(Answer::Yes);
  press(screen, "vkOptionButtonTipoMacchina_9", Qt::Key_Return);
  shop.room.takeBoxes();
  EXPECT_EQ(editors::modelloScelto(), 9);
  editors::azzeraModelloScelto();
}

void leavesByEscape(Shop& /*shop*/, const GuidedScreen& screen) {
  screen.key(Qt::Key_Escape);
  EXPECT_FALSE(screen.alive());
}

/// The console, connected, with what its walk does not come back to picked beforehand: a walk goes over the
/// options by the arrows, and some of them turn others off.
auto console(std::vector<const char*> options) {
  return [options = std::move(options)](Shop& shop, const Use& use) {
    const GuidedScreen screen(shop.room, QStringLiteral("Form_Comandi_XONXOFF"));
    screen.connectTo(shop.till);
    ASSERT_TRUE(screen.enabled(QStringLiteral("Cmd_Avvia")));
    for (const char* option : options) press(screen, option, Qt::Key_Space);
    use(screen.window());
  };
}

void readsStateByF9(Shop& shop, const GuidedScreen& screen) {
  press(screen, "vkOptionButton_RX_STATO_ECR", Qt::Key_Space);
  screen.key(Qt::Key_F9);
  EXPECT_EQ(foot(screen), QStringLiteral("Letto lo stato della cassa"));
  EXPECT_NE(shop.room.screens.trova(QStringLiteral("Form_STATO_ECR")), nullptr);
}

/// A screen of the test bench over the connected console.
auto bench(const char* name) {
  return [name](Shop& shop, const Use& use) {
    console({})(
        shop, [&](QWidget& /*console*/) { use(GuidedScreen(shop.room, QString::fromUtf8(name)).window()); });
  };
}

void sendsSequenceByReturn(Shop& /*shop*/, const GuidedScreen& screen) {
  auto* first = screen.window().findChildren<QRadioButton*>().first();
  first->setFocus(Qt::TabFocusReason);
  screen.key(Qt::Key_Space);
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(foot(screen).startsWith(QStringLiteral("Inviata la sequenza "))) << foot(screen).toStdString();
}

void openOffice(Shop& shop, const Use& use) {
  shop.openCustomers();
  const GuidedScreen screen(shop.room, QStringLiteral("Form_GestioneClienti"));
  shop.room.user.chooses(shop.room.folder.file(QStringLiteral("clienti.mdb")));
  QTest::keyClick(&screen.window(), Qt::Key_O, Qt::ControlModifier);
  ASSERT_TRUE(screen.enabled(QStringLiteral("Cmd_AnagraficaClienti")));
  use(screen.window());
}

void withoutCustomers(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("Form_GestioneClienti"));
  QTest::keyClick(&screen.window(), Qt::Key_W, Qt::ControlModifier);
  ASSERT_FALSE(screen.enabled(QStringLiteral("Cmd_AnagraficaClienti")));
  use(screen.window());
}

/// With the first customer in the fields, one of them changed.
void pickedCustomer(Shop& shop, const Use& use) {
  shop.openCustomers();
  const GuidedScreen screen(shop.room, QStringLiteral("Form_AnagraficaClienti"));
  auto& grid = screen.control<FlexGrid>("MSFlexGridClienti");
  grid.setFocus();
  grid.setCell(2, 1);
  QTest::keyClick(&grid, Qt::Key_Return);
  screen.type(QStringLiteral("vkTextBoxCitta"), QStringLiteral("PINEROLO"));
  use(screen.window());
}

/// A screen that works on the customers.
auto ofCustomers(std::function<void(Shop&, const Use&)> open) {
  return [open = std::move(open)](Shop& shop, const Use& use) {
    shop.openCustomers();
    open(shop, use);
  };
}

/// The invoices of one customer, over the registry.
void invoicesOfOne(Shop& shop, const Use& use) {
  shop.openCustomers();
  customers::statoClienti().filtro = {true, QStringLiteral("00488410010"),
                                      QStringLiteral("PANIFICIO FRATELLI ROSSI 1"), QStringLiteral("1")};
  use(GuidedScreen(shop.room, QStringLiteral("Form_ArchivioFattureClienti")).window());
}

void opensRegistry(Shop& /*shop*/, const GuidedScreen& screen) {
  withModal([&] { press(screen, "Cmd_AnagraficaClienti", Qt::Key_Space); },
            [](QWidget& registry) {
              EXPECT_EQ(registry.objectName(), QStringLiteral("Form_AnagraficaClienti"));
              registry.close();
            });
}

/// The pictures of the receipt, with the catalogue that there is at first.
void firstCatalogue(Shop& shop, const Use& use) {
  const GuidedScreen screen(shop.room, QStringLiteral("Form_Grafica"));
  expectBoxes(shop.room, {plainBox(QStringLiteral("Sono stati ripristinati i valori di default!"))});
  use(screen.window());
}

void connectedCatalogue(Shop& shop, const Use& use) {
  firstCatalogue(shop, [&](QWidget& window) {
    const GuidedScreen screen(window);
    screen.connectTo(shop.till);
    ASSERT_TRUE(screen.enabled(QStringLiteral("Cmd_Avvia")));
    use(window);
  });
}

}  // namespace

const std::vector<Screen>& everyScreen() {
  static const std::vector<Screen> screens{
      {"Menu", named("start"), opensAbout},
      {"Gestione", openArchive, closesArchive},
      {"GestioneSenzaArchivio", withoutArchive, opensByReturn},
      {"GestioneConReport", offeredReport, closesArchive},
      {"ArchivioArticoli", named("Form_ArchivioArticoli"), clearsFields},
      {"ArchivioArticoliConModifiche", pickedArticle, savesByReturn},
      {"ArchivioVenduto", named("Form_ArchivioVenduto"), clearsFilters},
      {"ArchivioVendutoConFiltro", searchedSales, searchesByReturn},
      {"TrasferimentoArticoli", named("Form_TrasferimentoArticoli"), connectsByReturn},
      {"TrasferimentoArticoliCollegato", connected("Form_TrasferimentoArticoli"), sendsByF9},
      {"RicezioneVenduto", named("Form_RicezioneVenduto"), connectsByReturn},
      {"RicezioneVendutoCollegata", connected("Form_RicezioneVenduto"), receivesBySpace},
      {"HelpCodiceEAN", named("Form_Help_CodiceEAN"),
       [](Shop&, const GuidedScreen& screen) { leaves(screen, "Cmd_Esci", Qt::Key_Space); }},
      {"Informazioni", named("frmAbout"),
       [](Shop&, const GuidedScreen& screen) { leaves(screen, "cmdOK", Qt::Key_Return); }},
      {"Attesa", named("Form_ATTESA"), nullptr},
      {"Manuale", manual, findsByReturn},
      {"Grafica", firstCatalogue, connectsByReturn},
      {"GraficaCollegata", connectedCatalogue, leavesByEscape},
      {"Programmazione", named("MDIForm_PRG"), leavesByEscape},
      {"ProgrammazioneAperta", openConfiguration, opensDepartments},
      {"Reparti", editor("Toolbar1_6"), undoesChangesOf("MSFlexGridReparti")},
      {"Plu", editorOfArticles, undoesChangesOf("MSFlexGridPLU")},
      {"Iva", editor("Toolbar1_8"), undoesChangesOf("MSFlexGridIVA")},
      {"Valute", editor("Toolbar1_9"), undoesChangesOf("MSFlexGridVAL")},
      {"Negozio", editor("Toolbar1_5"), undoesChangeOf("vkTextBox_telefono", "Cmd_Reset")},
      {"NegozioIntestazione", editorTab("Toolbar1_5", 1), undoesChangeOf("vkTextBox_INT_7", "Cmd_Reset")},
      {"NegozioCortesia", editorTab("Toolbar1_5", 2), undoesChangeOf("vkTextBox_COR_1", "Cmd_Reset")},
      {"Operatori", editor("Toolbar1_10"), undoesChangeOf("vkTextBox_OPE_9", "Cmd_Reset")},
      {"OpzioniPeriferiche", editor("Toolbar1_11"),
       undoesChoiceOf("vkOptionButtonTagl", "vkCommand_AnnullaPerf")},
      {"OpzioniScontrino", editorTab("Toolbar1_11", 1), undoesChangeOf("vkTextBoxMaxImporto", "Cmd_Reset")},
      {"OpzioniVarie", editorTab("Toolbar1_11", 2),
       undoesChangeOf("vkTextBox_Subtender_1", "vkCommand_AnnullaVarie")},
      {"OpzioniCalendario", editorTab("Toolbar1_11", 3),
       undoesChoiceOf("vkOptionButton_Grafica", "vkCommand2", "_0")},
      {"OpzioniTallon", editorTab("Toolbar1_11", 4), undoesChoiceOf("vkOptionButton_TALLON", "vkCommand6")},
      {"SceltaECR", editor("Toolbar1_13"), confirmsMachineByReturn},
      {"SceltaTasti", named("frmTastiOpzione"),
       [](Shop&, const GuidedScreen& screen) {
         press(screen, "cmdTastoOpzione_0", Qt::Key_Return);
         EXPECT_EQ(screen.text(QStringLiteral("txtTastoOpzione")), QStringLiteral("REP 1"));
       }},
      {"TrasferimentoProgrammazione", named("Form_TrasferimentoProgrammazione"), connectsByReturn},
      {"TrasferimentoProgrammazioneCollegato", connected("Form_TrasferimentoProgrammazione"),
       [](Shop&, const GuidedScreen& screen) {
         press(screen, "vkOptionRicezioneECR", Qt::Key_Space);
         EXPECT_TRUE(screen.control<QRadioButton>("vkOptionRicezioneECR").isChecked());
       }},
      {"Clienti", openOffice, opensRegistry},
      {"ClientiSenzaArchivio", withoutCustomers, leavesByEscape},
      {"AnagraficaClienti", ofCustomers(named("Form_AnagraficaClienti")), leavesByEscape},
      {"AnagraficaConModifiche", pickedCustomer, leavesByEscape},
      {"ArchivioFatture", ofCustomers(named("Form_ArchivioFattureClienti")), leavesByEscape},
      {"ArchivioFattureDiUno", invoicesOfOne, leavesByEscape},
      {"TrasferimentoClienti", ofCustomers(named("Form_TrasferimentoClienti")), connectsByReturn},
      {"TrasferimentoClientiCollegato", ofCustomers(connected("Form_TrasferimentoClienti")), leavesByEscape},
      {"RicezioneClienti", ofCustomers(named("Form_RicezioneClienti")), connectsByReturn},
      {"RicezioneClientiCollegata", ofCustomers(connected("Form_RicezioneClienti")), leavesByEscape},
      {"ComandiAusiliari", console({"vkOptionButton_RX_STATO_ECR"}), readsStateByF9},
      {"ComandiAusiliariGlobale",
       console({"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonGlobale"}), leavesByEscape},
      {"ComandiAusiliariPerNumeri",
       console({"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonPerScontrini"}),
       leavesByEscape},
      {"StatoECR", named("Form_STATO_ECR"), leavesByEscape},
      {"AttesaScarico", named("Form_ATTESA_MF_DGFE"), nullptr},
      {"DumpMemoria", named("Form_Dump_MF_DGFE"), leavesByEscape},
      {"HelpCodiciErrori", named("Form_Help_CodiciErrori"), leavesByEscape},
      {"ProvaLibera", bench("Form_Test"), leavesByEscape},
      {"ProvaVendita", bench("Form_TestVendita"), sendsSequenceByReturn},
      {"ProvaModificatori", bench("Form_TestModificatori"), sendsSequenceByReturn},
      {"ProvaPagamento", bench("Form_TestPagamento"), sendsSequenceByReturn},
      {"ProvaUtilita", bench("Form_TestUtilità"), sendsSequenceByReturn},
      {"Domanda", question, answersByLetter},
      {"AvvisoChePuoPassare", offeringNotice, leavesByEscape},
  };
  return screens;
}
