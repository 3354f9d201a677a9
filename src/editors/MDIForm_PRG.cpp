#include "editors/MDIForm_PRG.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QResizeEvent>
#include <QScopeGuard>
#include <QToolButton>
#include <array>

#include "articles/article_database.h"
#include "config/companion_archive.h"
#include "config/configuration_file.h"
#include "controls/disabled_reason.h"
#include "controls/style.h"
#include "core/conversions.h"
#include "core/manual_viewer.h"
#include "core/menu.h"
#include "core/overwrite.h"
#include "core/reactions.h"
#include "core/screens.h"
#include "core/state.h"
#include "editors/changes.h"
#include "editors/new_configuration.h"
#include "platform/text/file_name.h"
#include "platform/ui/user_port.h"
#include "ui_MDIForm_PRG.h"

namespace {

const QString kPrimaUna = QStringLiteral("prima NUOVO, MODIFICA o CREA DA.");
const char* const kProcedura = "Toolbar1_ButtonClick";
constexpr int kFigura = 48;
constexpr int kMargine = 20;
constexpr int kLettereMinime = 7;
constexpr int kPulsanteArticoli = 7;
constexpr int kPulsanteInvio = 14;
constexpr int kPulsanteEsci = 17;

/// A button of the toolbar and its picture.
struct Tasto {
  int posizione;
  const char* icona;
};
constexpr std::array kTasti{Tasto{1, "file-plus"},
                            Tasto{2, "file-pen"},
                            Tasto{3, "copy-plus"},
                            Tasto{5, "store"},
                            Tasto{6, "layers"},
                            Tasto{kPulsanteArticoli, "boxes"},
                            Tasto{8, "percent"},
                            Tasto{9, "coins"},
                            Tasto{10, "id-card"},
                            Tasto{11, "list-checks"},
                            Tasto{13, "keyboard"},
                            Tasto{kPulsanteInvio, "arrow-right-left"},
                            Tasto{kPulsanteEsci, "arrow-left"}};

/// A button that opens a screen, and what the status bar says of it.
struct Apre {
  int posizione;
  const char* schermata;
  const char16_t* stato;
};
constexpr std::array kEditor{Apre{5, "Form_Negozio", u"Configurazione Negozio"},
                             Apre{6, "Form_Reparti", u"Gestione Reparti"},
                             Apre{8, "Form_IVA", u"Gestione IVA"},
                             Apre{9, "Form_Valuta", u"Gestione VALUTA"},
                             Apre{10, "Form_OPE", u"Gestione OPERATORI"},
                             Apre{11, "Form_OpzioniGen", u"Gestione Opzioni Generali"},
                             Apre{13, "Form_GestioneCodiceTastiera", u"Gestione Tastiera"}};
/// Reachable by the refill alone.
const char* const kEditorPLU = "Form_PLU";
/// Opened by the screens of the keyboard; it stands beside the frame and goes with it.
const char* const kSceltaTasti = "frmTastiOpzione";

FileRequest finestra(const QString& titolo, const Contesto& contesto) {
  return {titolo, QStringLiteral("dat (*.dat)|*.dat"), contesto.cartella};
}

void critico(Contesto& contesto, const QString& testo) {
  contesto.utente.MsgBox(testo, Icon::Critical);
}

/// The records in memory that an editor of the frame can show.
QByteArray senzaArticoli() {
  const config::RecordLetto byte = std::as_const(config::immagineProgrammazione()).byte();
  const auto* inizio = reinterpret_cast<const char*>(byte.data());
  return QByteArray(inizio, config::kPLU.inizio) +
         QByteArray(inizio + config::kPLU.fine(), static_cast<qsizetype>(byte.size() - config::kPLU.fine()));
}

bool serveLaConfigurazione(int posizione) {
  return posizione > 3 && posizione <= kPulsanteInvio;
}

}  // namespace

MDIForm_PRG::MDIForm_PRG(Contesto& contesto)
    : Schermo(contesto),
      ui_(std::make_unique<Ui::MDIForm_PRG>()),
      pannello_(new QLabel(this)),
      stato_(new QLabel(this)) {
  ui_->setupUi(this);
  vesti();
  varGestionePRG().ConfigurazioneCaricata = 1;
  editors::azzeraModifiche();
  abilita(false);
  mostraBenvenuto();
}

MDIForm_PRG::~MDIForm_PRG() = default;

void MDIForm_PRG::vesti() {
  for (const Tasto& uno : kTasti) {
    QAction& azione = tasto(uno.posizione);
    azione.setIcon(style::icon(QLatin1String(uno.icona)));
    connect(&azione, &QAction::triggered, this, [this, posizione = uno.posizione] { premuto(posizione); });
    if (auto* pulsante = qobject_cast<QToolButton*>(ui_->Toolbar1->widgetForAction(&azione))) {
      pulsante->setObjectName(azione.objectName());
      pulsante->setFocusPolicy(Qt::TabFocus);
      pulsante->setAccessibleDescription(azione.toolTip());
    }
    if (serveLaConfigurazione(uno.posizione)) tellWhyDisabled(azione, kPrimaUna);
  }
  // What does not fit stands behind it, in a window made narrow.
  if (auto* altri = ui_->Toolbar1->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
    altri->setAccessibleName(QStringLiteral("Altri comandi"));
    altri->setFocusPolicy(Qt::TabFocus);
  }
  ui_->mnuNuova->setIcon(tasto(1).icon());
  ui_->mnuModify->setIcon(tasto(2).icon());
  ui_->mnuCrea->setIcon(tasto(3).icon());
  ui_->mnuInvio->setIcon(tasto(kPulsanteInvio).icon());
  ui_->mnuEsci->setIcon(tasto(kPulsanteEsci).icon());
  ui_->mnuManuale->setIcon(style::icon(QStringLiteral("book-open")));
  tellWhyDisabled(*ui_->mnuInvio, kPrimaUna);
  // Laid down as a command without an effect: it is shown for what it is.
  ui_->mnuEsporta->setEnabled(false);
  ui_->Picture1->setPixmap(style::icon(QStringLiteral("sliders-horizontal")).pixmap(kFigura));
  pannello_->setObjectName(QStringLiteral("StatusBar1_1"));
  pannello_->setAccessibleName(QStringLiteral("File aperto"));
  stato_->setObjectName(QStringLiteral("StatusBar1_2"));
  stato_->setAccessibleName(QStringLiteral("Funzione in corso"));
  ui_->StatusBar1->setContentsMargins(kMargine, 0, kMargine, kMargine / 4);
  ui_->StatusBar1->addWidget(pannello_, 1);
  ui_->StatusBar1->addPermanentWidget(stato_);
}

QAction& MDIForm_PRG::tasto(int posizione) const {
  for (QAction* azione : ui_->Toolbar1->actions())
    if (azione->objectName() == QStringLiteral("Toolbar1_%1").arg(posizione)) return *azione;
  throw errors::outOfRange();
}

std::uint16_t MDIForm_PRG::DammiFormOpen(const QString& nome) const {
  return contesto().schermate.trova(nome) ? 1 : 0;
}

void MDIForm_PRG::abilita(bool abilitati) {
  for (const Tasto& uno : kTasti)
    if (serveLaConfigurazione(uno.posizione)) tasto(uno.posizione).setEnabled(abilitati);
  ui_->mnuInvio->setEnabled(abilitati);
}

bool MDIForm_PRG::guardia(Ricarica ricarica) {
  if (!editors::ciSonoModifiche() || !editors::chiediDiSalvare(contesto())) return true;
  const editors::EsitoSalvataggio esito = editors::SalvaModificati(contesto());
  if (!esito.salvato) return false;
  if (esito.perse.isEmpty())
    ui_->BarraEsito->tell(OutcomeBar::Kind::Done, esito.racconto);
  else
    ui_->BarraEsito->tell(
        OutcomeBar::Kind::Warning,
        QStringLiteral("%1. Non salvate le modifiche di: %2. Si salva un editor alla volta, e "
                       "prima ce n'era un altro con modifiche")
            .arg(esito.racconto, esito.perse.join(QStringLiteral(", "))));
  if (ricarica == Ricarica::Si) editors::RicaricaEditor(contesto());
  return true;
}

template <typename Corpo>
void MDIForm_PRG::conGuardia(const char* procedura, Ricarica ricarica, Corpo&& corpo) {
  esegui(procedura, [&] {
    if (guardia(ricarica)) corpo();
  });
}

void MDIForm_PRG::premuto(int posizione) {
  // Closing asks by itself, from wherever it comes.
  if (posizione == kPulsanteEsci) {
    close();
    return;
  }
  conGuardia(kProcedura, Ricarica::Si, [&] { azione(posizione); });
}

void MDIForm_PRG::azione(int posizione) {
  for (const Apre& editor : kEditor)
    if (editor.posizione == posizione) return apriEditor(editor.schermata, QString::fromUtf16(editor.stato));
  switch (posizione) {
    case 1:
      return nuova();
    case 2:
      return modifica();
    case 3:
      return crea();
    case kPulsanteArticoli:
      return articoli();
    case kPulsanteInvio:
      return invio();
    default:
      return;
  }
}

void MDIForm_PRG::on_mnuNuova_triggered() {
  conGuardia("mnuNuova_Click", Ricarica::No, [this] { nuova(); });
}

void MDIForm_PRG::on_mnuModify_triggered() {
  conGuardia("mnuModify_Click", Ricarica::No, [this] { modifica(); });
}

void MDIForm_PRG::on_mnuCrea_triggered() {
  conGuardia("mnuCrea_Click", Ricarica::No, [this] { crea(); });
}

void MDIForm_PRG::on_mnuInvio_triggered() {
  conGuardia("mnuInvio_Click", Ricarica::Si, [this] { invio(); });
}

void MDIForm_PRG::on_mnuEsci_triggered() {
  close();
}

void MDIForm_PRG::on_mnuManuale_triggered() {
  esegui(
      "mnuManuale_Click", [this] { showManual(*ui_->AreaEditor->currentWidget(), contesto()); },
      Piede::Resta);
}

void MDIForm_PRG::nuova() {
  if (!editors::modelliPresenti(contesto())) return;
  const auto scelto =
      contesto().utente.AskSavePath(finestra(QStringLiteral("Nuova configurazione"), contesto()));
  if (!scelto || scelto->isEmpty() || !ConfermaSovrascrittura(*scelto, contesto().utente)) return;
  editors::ConfigurazioneInUso prima;
  const bool accanto = editors::occupato(*scelto);
  editors::NuovaConfigurazione(*scelto, contesto());
  const auto pannello = carica();
  if (!pannello) return;
  prima.tieni();
  aperta(QStringLiteral("creata"), *pannello, accanto);
}

void MDIForm_PRG::modifica() {
  const auto scelto =
      contesto().utente.AskOpenPath(finestra(QStringLiteral("Modifica configurazione"), contesto()));
  if (!scelto || scelto->isEmpty()) return;
  if (!FileEsiste(*scelto))
    return critico(contesto(),
                   QStringLiteral("Attenzione il file scelto %1 non esiste !!!").arg(FileName(*scelto)));
  editors::ConfigurazioneInUso prima;
  varGestionePRG().PathConfigurazione = *scelto;
  const auto pannello = carica();
  if (!pannello) return;
  prima.tieni();
  aperta(QStringLiteral("aperta"), *pannello, false);
}

void MDIForm_PRG::crea() {
  const auto sorgente =
      contesto().utente.AskOpenPath(finestra(QStringLiteral("Configurazione da cui partire"), contesto()));
  if (!sorgente || sorgente->isEmpty()) return;
  editors::ConfigurazioneInUso prima;
  if (!versioneGiusta(*sorgente)) return;
  FileRequest dove = finestra(QStringLiteral("Nuova configurazione"), contesto());
  dove.asksBeforeReplacing = true;
  const auto scelto = contesto().utente.AskSavePath(dove);
  if (!scelto || scelto->isEmpty()) return;
  const bool accanto = editors::occupato(*scelto);
  editors::CreaDaConfigurazione(*sorgente, *scelto, contesto());
  const auto pannello = carica();
  if (!pannello) return;
  prima.tieni();
  aperta(QStringLiteral("creata da %1").arg(FileName(*sorgente)),
         *pannello + QStringLiteral(" Modello ") + config::modelloFile(), accanto);
}

std::optional<QString> MDIForm_PRG::versioneGiusta(const QString& percorso) {
  QString pannello;
  if (config::VerificaVersioneFile(percorso, pannello) == 0) return pannello;
  critico(contesto(), QStringLiteral("Attenzione il file %1 non e' compatibile con la versione SW")
                          .arg(QDir::toNativeSeparators(percorso)));
  return std::nullopt;
}

std::optional<QString> MDIForm_PRG::carica() {
  const QString percorso = varGestionePRG().PathConfigurazione;
  try {
    if (!versioneGiusta(percorso)) return std::nullopt;
    if (config::CaricaConfigurazione(percorso, contesto().utente) == 0) return versioneGiusta(percorso);
  } catch (const Errore& errore) {
    // A file that does not open for its version is one that does not load.
    reazioni::segnalaImprevisto(contesto().utente, errore, QStringLiteral("CaricaConfigurazione"),
                                QStringLiteral("Common_PRG"));
  }
  critico(contesto(), QStringLiteral("Attenzione Errore nel caricamento del file %1 in memoria")
                          .arg(QDir::toNativeSeparators(percorso)));
  return std::nullopt;
}

void MDIForm_PRG::aperta(const QString& verbo, const QString& pannello, bool accanto) {
  const QString& percorso = varGestionePRG().PathConfigurazione;
  varGestionePRG().NomeFileDat = FileName(percorso);
  // What an editor of the configuration before still shows, and what it had marked, belongs to no open file:
  // none stays to be filled anew.
  chiudiEditor();
  editors::azzeraModifiche();
  pannello_->setAlignment(Qt::AlignCenter);
  pannello_->setText(pannello);
  abilita(true);
  mostraBenvenuto();
  ui_->BarraEsito->tell(
      OutcomeBar::Kind::Done,
      QStringLiteral("Configurazione %1: %2").arg(verbo, FileName(percorso)) +
          (accanto ? QStringLiteral(". I file di prima sono accanto, con .precedente in fondo "
                                    "al nome.")
                   : QString()));
}

void MDIForm_PRG::invio() {
  const QByteArray prima = senzaArticoli();
  contesto().schermate.mostraModale(QStringLiteral("Form_TrasferimentoProgrammazione"), contesto());
  // What was received stands in memory: an editor that is open must not save over it what it showed before.
  if (senzaArticoli() != prima) editors::RicaricaEditor(contesto());
}

void MDIForm_PRG::articoli() {
  chiudiEditor();
  stato_->setText(QStringLiteral("Gestione PLU/Articoli"));
  const auto diNuovo = qScopeGuard([this] { mostraBenvenuto(); });
  const config::ArchivioCompagno compagno(varGestionePRG().PathConfigurazione, contesto());
  contesto().schermate.mostraModale(QStringLiteral("Form_ArchivioArticoli"), contesto());
}

void MDIForm_PRG::apriEditor(const char* nome, const QString& stato) {
  const QString schermata = QLatin1String(nome);
  chiudiEditor(schermata);
  QWidget& editor = contesto().schermate.caricaDentro(*ui_->AreaEditor, schermata, contesto());
  if (ui_->AreaEditor->indexOf(&editor) < 0) ui_->AreaEditor->addWidget(&editor);
  ui_->AreaEditor->setCurrentWidget(&editor);
  editor.show();
  editor.setFocus();
  stato_->setText(stato);
}

void MDIForm_PRG::chiudiEditor(const QString& tranne) {
  for (const Apre& editor : kEditor)
    if (tranne != QLatin1String(editor.schermata))
      contesto().schermate.scarica(QLatin1String(editor.schermata));
  contesto().schermate.scarica(QLatin1String(kEditorPLU));
}

void MDIForm_PRG::mostraBenvenuto() {
  ui_->AreaEditor->setCurrentWidget(ui_->benvenuto);
  stato_->clear();
  const bool una = ui_->mnuInvio->isEnabled();
  ui_->LabelConfigurazione->setText(una ? varGestionePRG().NomeFileDat
                                        : QStringLiteral("Nessuna configurazione aperta"));
  ui_->LabelCheFare->setText(
      una ? QStringLiteral("Scegliere che cosa modificare dalla barra dei comandi, oppure LETT./INVIO per "
                           "scambiarla con la cassa.")
          : QStringLiteral(
                "NUOVO ne crea una dal modello, MODIFICA ne apre una che c'è già, CREA DA. parte da "
                "una copia: i comandi si abilitano da soli."));
}

void MDIForm_PRG::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() != Qt::Key_Escape || evento->isAutoRepeat()) return QMainWindow::keyPressEvent(evento);
  if (ui_->AreaEditor->currentWidget() == ui_->benvenuto) {
    close();
    return;
  }
  conGuardia("Esc", Ricarica::Si, [this] {
    chiudiEditor();
    mostraBenvenuto();
  });
}

void MDIForm_PRG::resizeEvent(QResizeEvent* evento) {
  QMainWindow::resizeEvent(evento);
  if (evento->size().width() != evento->oldSize().width()) adattaBarra();
}

void MDIForm_PRG::changeEvent(QEvent* evento) {
  QMainWindow::changeEvent(evento);
  if (evento->type() == QEvent::FontChange || evento->type() == QEvent::ApplicationFontChange) adattaBarra();
}

/// Smaller letters rather than commands out of sight.
void MDIForm_PRG::adattaBarra() {
  QFont lettere = font();
  for (int punti = lettere.pointSize();; --punti) {
    lettere.setPointSize(punti);
    for (QToolButton* pulsante : ui_->Toolbar1->findChildren<QToolButton*>()) pulsante->setFont(lettere);
    ui_->Toolbar1->setFont(lettere);
    ui_->Toolbar1->layout()->invalidate();
    if (punti <= kLettereMinime || ui_->Toolbar1->sizeHint().width() <= width()) return;
  }
}

void MDIForm_PRG::closeEvent(QCloseEvent* evento) {
  bool via = false;
  esegui(kProcedura, [&] { via = guardia(Ricarica::Si); });
  if (!via) return evento->ignore();
  evento->accept();
  esegui(kProcedura, [this] {
    chiudiEditor();
    contesto().schermate.scarica(QLatin1String(kSceltaTasti));
  });
  esegui(kProcedura, [this] { MostraMenu(contesto()); });
}
