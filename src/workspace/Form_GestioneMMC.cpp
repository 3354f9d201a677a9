#include "workspace/Form_GestioneMMC.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QPointer>

#include "articles/article_database.h"
#include "articles/csv_import.h"
#include "articles/ean_index.h"
#include "controls/disabled_reason.h"
#include "controls/needed_height.h"
#include "controls/style.h"
#include "core/conversions.h"
#include "core/manual_viewer.h"
#include "core/menu.h"
#include "core/overwrite.h"
#include "core/screens.h"
#include "core/state.h"
#include "platform/store/store.h"
#include "platform/text/file_name.h"
#include "ui_Form_GestioneMMC.h"
#include "workspace/archive_summary.h"
#include "workspace/import_outcome.h"

namespace {

constexpr int kFigura = 40;

FileRequest finestraArchivio(const QString& titolo, const Contesto& contesto) {
  return {titolo, QStringLiteral("mdb (*.mdb)|*.mdb"), contesto.cartella};
}

const QString kSenzaArchivio =
    QStringLiteral("Prima si apre un archivio: Nuovo Archivio (Ctrl+N) o Apri Archivio (Ctrl+O)");
const QString kAperturaFallita =
    QStringLiteral("L'ultima apertura non è riuscita: ripetere Apri Archivio (Ctrl+O)");
const QString kConArchivio = QStringLiteral("Un archivio è già aperto: prima Chiudi Archivio (Ctrl+W)");

/// A button that does what the menu entry does, and is on when that is.
void accoppia(QPushButton& pulsante, QAction& voce) {
  pulsante.setText(voce.iconText());
  pulsante.setIcon(voce.icon());
  pulsante.setToolTip(
      QStringLiteral("%1 (%2)").arg(voce.toolTip(), voce.shortcut().toString(QKeySequence::NativeText)));
  const auto segui = [&pulsante, &voce] { pulsante.setEnabled(voce.isEnabled()); };
  segui();
  QObject::connect(&voce, &QAction::enabledChanged, &pulsante, segui);
  QObject::connect(&pulsante, &QPushButton::clicked, &voce, &QAction::trigger);
}

}  // namespace

/// A command on files: it fails without a box, only the line at the foot tells, and the screen shows what is
/// open whatever failed.
template <typename Corpo>
void Form_GestioneMMC::eseguiSuFile(const char* procedura, Corpo&& corpo) {
  const QPointer<QWidget> prima = focusWidget();
  esegui(procedura, [&] {
    try {
      corpo();
    } catch (const Errore& errore) {
      ui_->BarraEsito->tell(OutcomeBar::Kind::Failed, errore.descrizione);
    }
    aggiorna();
  });
  ridaiIlFuoco(prima);
}

Form_GestioneMMC::Form_GestioneMMC(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_GestioneMMC>()) {
  ui_->setupUi(this);
  keepNeededHeight(*ui_->centrale);
  vesti();
  mostraAperto(false);
  aggiorna();
}

Form_GestioneMMC::~Form_GestioneMMC() = default;

void Form_GestioneMMC::vesti() {
  ui_->mnuNuovo->setIcon(style::icon(QStringLiteral("file-plus")));
  ui_->mnuApri->setIcon(style::icon(QStringLiteral("folder-open")));
  ui_->mnuImporta->setIcon(style::icon(QStringLiteral("file-down")));
  ui_->mnuClose->setIcon(style::icon(QStringLiteral("folder-x")));
  ui_->Cmd_Articoli->setIcon(style::icon(QStringLiteral("boxes")));
  ui_->Cmd_Down->setIcon(style::icon(QStringLiteral("upload")));
  ui_->Cmd_Upl->setIcon(style::icon(QStringLiteral("download")));
  ui_->Cmd_Venduto->setIcon(style::icon(QStringLiteral("chart-column")));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  ui_->mnuManuale->setIcon(style::icon(QStringLiteral("book-open")));
  accoppia(*ui_->PulsanteNuovo, *ui_->mnuNuovo);
  accoppia(*ui_->PulsanteApri, *ui_->mnuApri);
  accoppia(*ui_->PulsanteImporta, *ui_->mnuImporta);
  accoppia(*ui_->PulsanteChiudi, *ui_->mnuClose);
  tellWhyDisabled(*ui_->PulsanteApri, kConArchivio);
  tellWhyDisabled(*ui_->PulsanteImporta, kSenzaArchivio);
  ui_->Picture1->setPixmap(style::icon(QStringLiteral("store")).pixmap(kFigura));
}

std::array<QWidget*, 4> Form_GestioneMMC::comandi() const {
  return {ui_->Cmd_Articoli, ui_->Cmd_Down, ui_->Cmd_Upl, ui_->Cmd_Venduto};
}

void Form_GestioneMMC::spiegaComandi(const QString& perche) {
  for (QWidget* tasto : comandi()) tellWhyDisabled(*tasto, perche);
}

void Form_GestioneMMC::abilitaComandi(bool abilitati) {
  for (QWidget* tasto : comandi()) tasto->setEnabled(abilitati);
}

/// What goes off while it has the focus hands it to the next control that is on, at the end to the exit: an
/// Enter too many would leave.
void Form_GestioneMMC::ridaiIlFuoco(QWidget* prima) {
  if (prima && prima->isEnabled() && prima->isVisible() && prima->focusPolicy() != Qt::NoFocus)
    return prima->setFocus();
  if (ui_->Cmd_Articoli->isEnabled()) return ui_->Cmd_Articoli->setFocus();
  ui_->PulsanteApri->setFocus();
}

void Form_GestioneMMC::mostraAperto(bool aperto) {
  spiegaComandi(kSenzaArchivio);
  abilitaComandi(aperto);
  ui_->mnuImporta->setEnabled(aperto);
}

void Form_GestioneMMC::mostraChiuso() {
  mostraAperto(false);
  ui_->mnuApri->setEnabled(true);
}

QString Form_GestioneMMC::nomeArchivio() {
  return FileName(QDir::toNativeSeparators(varGlobal().NomeDB_Articoli));
}

void Form_GestioneMMC::raccontaAperto() {
  const workspace::RiepilogoArchivio riepilogo = workspace::Riepiloga();
  const QString aperto = QStringLiteral("Archivio aperto: ") + nomeArchivio();
  if (riepilogo.leggibile)
    ui_->BarraEsito->tell(OutcomeBar::Kind::Done,
                          aperto + QStringLiteral(", ") + workspace::TestoArticoli(riepilogo));
  else
    ui_->BarraEsito->tell(OutcomeBar::Kind::Warning,
                          aperto + QStringLiteral(". ") + workspace::TestoRiepilogo(riepilogo));
}

void Form_GestioneMMC::aggiorna() {
  const bool aperto = varGlobal().DB_Articoli.isOpen();
  const QString percorso = QDir::toNativeSeparators(varGlobal().NomeDB_Articoli);
  ui_->LabelArchivio->setText(aperto ? nomeArchivio() : QStringLiteral("Nessun archivio aperto"));
  ui_->LabelArchivio->setToolTip(aperto ? percorso : QString());
  ui_->LabelArticoli->setText(
      aperto ? workspace::TestoRiepilogo(workspace::Riepiloga())
             : QStringLiteral("Crea un nuovo archivio oppure aprine uno: i comandi si abilitano da soli."));
}

void Form_GestioneMMC::nuovo() {
  articles::avvisaModelloAssente(contesto());
  const auto scelto =
      contesto().utente.AskSavePath(finestraArchivio(QStringLiteral("Nuovo Archivio"), contesto()));
  if (!scelto || scelto->isEmpty() || !ConfermaSovrascrittura(*scelto, contesto().utente)) return;
  QString precedente;
  try {
    precedente = articles::NuovoDatabase(*scelto, contesto());
  } catch (const Errore&) {
    // The archive that was open may have been the one whose place the copy took.
    if (!varGlobal().DB_Articoli.isOpen()) mostraChiuso();
    throw;
  }
  mostraAperto(true);
  const QString creato = QStringLiteral("Archivio creato: ") + nomeArchivio();
  ui_->BarraEsito->tell(OutcomeBar::Kind::Done, precedente.isEmpty()
                                                    ? creato
                                                    : creato + QStringLiteral(". L'archivio di prima è in ") +
                                                          FileName(QDir::toNativeSeparators(precedente)));
}

void Form_GestioneMMC::apri() {
  const bool prima = ui_->Cmd_Articoli->isEnabled();
  abilitaComandi(false);
  const auto scelto =
      contesto().utente.AskOpenPath(finestraArchivio(QStringLiteral("Apri Archivio"), contesto()));
  if (!scelto || scelto->isEmpty()) return abilitaComandi(prima);
  if (varGlobal().DB_Articoli.isOpen()) spiegaComandi(kAperturaFallita);
  articles::ApriDatabase(*scelto, contesto());
  mostraAperto(true);
  ui_->mnuApri->setEnabled(false);
  raccontaAperto();
}

void Form_GestioneMMC::importa() {
  const articles::EsitoImport esito = articles::ImportaArticoli(contesto());
  const workspace::RaccontoImport racconto = workspace::ConcludiImport(esito, contesto());
  OutcomeBar::Action azione{};
  if (FileEsiste(esito.log))
    azione = {QStringLiteral("Apri il report"), [this, report = esito.log] { apriReport(report); }};
  ui_->BarraEsito->tell(racconto.genere, racconto.testo, azione);
}

void Form_GestioneMMC::apriReport(const QString& report) {
  const auto apre = [&] {
    try {
      contesto().utente.OpenWithDesktop(report);
    } catch (const Errore&) {
      ui_->BarraEsito->tell(OutcomeBar::Kind::Failed,
                            QStringLiteral("Il report non si è aperto: ") + QDir::toNativeSeparators(report));
    }
  };
  esegui("AzioneEsito_Click", apre, Piede::Resta);
}

void Form_GestioneMMC::chiudi() {
  const bool aperto = varGlobal().DB_Articoli.isOpen();
  const QString nome = nomeArchivio();
  // Closed it is, whatever becomes of its last transaction: no command may meet it any more.
  mostraChiuso();
  articles::ChiudiDatabase();
  if (aperto)
    ui_->BarraEsito->tell(OutcomeBar::Kind::Done, QStringLiteral("Archivio chiuso: ") + nome);
  else
    ui_->BarraEsito->tell(OutcomeBar::Kind::Plain, QStringLiteral("Nessun archivio era aperto."));
}

std::int16_t Form_GestioneMMC::CreaIndiceEAN() {
  articles::UpdateEanNumAndIndex(contesto().utente);
  return 0;
}

void Form_GestioneMMC::on_mnuNuovo_triggered() {
  eseguiSuFile("mnuNuovo_Click", [this] { nuovo(); });
}

void Form_GestioneMMC::on_mnuApri_triggered() {
  eseguiSuFile("mnuApri_Click", [this] { apri(); });
}

void Form_GestioneMMC::on_mnuImporta_triggered() {
  eseguiSuFile("mnuImporta_Click", [this] { importa(); });
}

void Form_GestioneMMC::on_mnuClose_triggered() {
  eseguiSuFile("mnuClose_Click", [this] { chiudi(); });
}

void Form_GestioneMMC::on_mnuManuale_triggered() {
  esegui(
      "mnuManuale_Click", [this] { showManual(*this, contesto()); }, Piede::Resta);
}

void Form_GestioneMMC::apriSchermata(const char* procedura, const char* nome) {
  esegui(procedura, [&] {
    contesto().schermate.mostraModale(QLatin1String(nome), contesto());
    aggiorna();
  });
}

void Form_GestioneMMC::on_Cmd_Articoli_clicked() {
  apriSchermata("Cmd_Articoli_Click", "Form_ArchivioArticoli");
}

void Form_GestioneMMC::on_Cmd_Down_clicked() {
  apriSchermata("Cmd_Down_Click", "Form_TrasferimentoArticoli");
}

void Form_GestioneMMC::on_Cmd_Upl_clicked() {
  apriSchermata("Cmd_Upl_Click", "Form_RicezioneVenduto");
}

void Form_GestioneMMC::on_Cmd_Venduto_clicked() {
  apriSchermata("Cmd_Venduto_Click", "Form_ArchivioVenduto");
}

void Form_GestioneMMC::on_Cmd_Esci_clicked() {
  close();
}

void Form_GestioneMMC::closeEvent(QCloseEvent* evento) {
  evento->accept();
  esegui("Cmd_Esci_Click", [this] { chiudi(); });
  esegui("Cmd_Esci_Click", [this] { MostraMenu(contesto()); });
}

void Form_GestioneMMC::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_Escape) {
    close();
    return;
  }
  auto* tasto = qobject_cast<QAbstractButton*>(focusWidget());
  if (tasto && (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter)) {
    if (!evento->isAutoRepeat()) tasto->click();
    return;
  }
  QMainWindow::keyPressEvent(evento);
}
