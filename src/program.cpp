#include "program.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <clocale>

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
#include "controls/style.h"
#include "controls/svg_icon.h"
#include "core/menu.h"
#include "core/state.h"
#include "customers/Form_AnagraficaClienti.h"
#include "customers/Form_ArchivioFattureClienti.h"
#include "customers/Form_GestioneClienti.h"
#include "customers/Form_RicezioneClienti.h"
#include "customers/Form_TrasferimentoClienti.h"
#include "editors/Form_GestioneCodiceTastiera.h"
#include "editors/Form_IVA.h"
#include "editors/Form_Negozio.h"
#include "editors/Form_OPE.h"
#include "editors/Form_OpzioniGen.h"
#include "editors/Form_PLU.h"
#include "editors/Form_Reparti.h"
#include "editors/Form_Valuta.h"
#include "editors/MDIForm_PRG.h"
#include "editors/frmTastiOpzione.h"
#include "graphics/Form_Grafica.h"
#include "platform/net/network.h"
#include "platform/ui/double_click.h"
#include "platform/ui/file_dialog.h"
#include "sales/Form_ArchivioVenduto.h"
#include "sales/Form_RicezioneVenduto.h"
#include "workspace/Form_GestioneMMC.h"

namespace {

/// The texts of Qt's own, such as the buttons of a file dialog; English where its translations are missing.
void speakItalian(QApplication& application) {
  auto* texts = new QTranslator(&application);
  if (texts->load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(texts);
}

}  // namespace

void prepareApplication(QApplication& application, const QString& folder) {
  // The application object took the desktop's locale for itself: statements are put together with points.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("gestionale"));
  // No display name: the toolkit would append it to the title of every window and box.
  QApplication::setApplicationVersion(QStringLiteral(GESTIONALE_VERSIONE));
  style::iconFolder(folder + QStringLiteral("/icons"));
  style::begin(application);
  QApplication::setWindowIcon(programSign(folder + QStringLiteral("/icons/receipt-euro.svg")));
  speakItalian(application);
  new DoubleClickStopper(&application);
  file_dialog::startIn(folder);
}

Program::Program(const QString& folder, const Clock& clock)
    : workspace_(clock),
      utente_([this] { workspace_.Abandon(); }),
      library_(folder),
      contesto_{utente_, workspace_, library_, systemNetwork(), screens_, clock, folder} {
  registraSchermateCore(screens_);
  screens_.registra<Form_ArchivioArticoli>();
  screens_.registra<Form_TrasferimentoArticoli>();
  screens_.registra<Form_Help_CodiceEAN>();
  screens_.registra<Form_RicezioneVenduto>();
  screens_.registra<Form_ArchivioVenduto>();
  screens_.registra<Form_GestioneMMC>();
  screens_.registra<MDIForm_PRG>();
  screens_.registra<Form_Reparti>();
  screens_.registra<Form_PLU>();
  screens_.registra<Form_IVA>();
  screens_.registra<Form_Negozio>();
  screens_.registra<Form_OPE>();
  screens_.registra<Form_OpzioniGen>();
  screens_.registra<Form_Valuta>();
  screens_.registra<Form_GestioneCodiceTastiera>();
  screens_.registra<frmTastiOpzione>();
  screens_.registra<Form_TrasferimentoProgrammazione>();
  screens_.registra<Form_GestioneClienti>();
  screens_.registra<Form_AnagraficaClienti>();
  screens_.registra<Form_ArchivioFattureClienti>();
  screens_.registra<Form_TrasferimentoClienti>();
  screens_.registra<Form_RicezioneClienti>();
  screens_.registra<Form_Comandi_XONXOFF>();
  screens_.registra<Form_STATO_ECR>();
  screens_.registra<Form_ATTESA_MF_DGFE>();
  screens_.registra<Form_Dump_MF_DGFE>();
  screens_.registra<Form_Help_CodiciErrori>();
  screens_.registra<Form_Test>();
  auxcmd::registraBanchi(screens_);
  screens_.registra<Form_Grafica>();
}

Program::~Program() {
  screens_.scaricaTutte();
  varGlobal().DB_Articoli = {};
  varGlobal().DB_Clienti = {};
}

QWidget& Program::showMenu() {
  return screens_.mostra(kMenu, contesto_);
}
