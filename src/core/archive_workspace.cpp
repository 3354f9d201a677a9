#include "core/archive_workspace.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "controls/disabled_reason.h"
#include "controls/needed_height.h"
#include "controls/style.h"
#include "core/archive_file.h"
#include "core/manual_viewer.h"
#include "core/menu.h"
#include "core/overwrite.h"
#include "core/screens.h"
#include "platform/text/file_name.h"

namespace {

using Kind = OutcomeBar::Kind;

const QString kAperturaFallita =
    QStringLiteral("L'ultima apertura non è riuscita: ripetere Apri Archivio (Ctrl+O)");

FileRequest finestraArchivio(const QString& titolo, const Contesto& contesto) {
  return {titolo, QLatin1String(archivio::kFiltro), contesto.cartella};
}

}  // namespace

AreaArchivio::AreaArchivio(Contesto& contesto, const GenereArchivio& genere)
    : Schermo(contesto), genere_(genere) {}

void AreaArchivio::allestisci(Controlli controlli) {
  controlli_ = std::move(controlli);
  keepNeededHeight(*controlli_.centrale);
  controlli_.mnuNuovo->setIcon(style::icon(QStringLiteral("file-plus")));
  controlli_.mnuApri->setIcon(style::icon(QStringLiteral("folder-open")));
  controlli_.mnuClose->setIcon(style::icon(QStringLiteral("folder-x")));
  controlli_.mnuManuale->setIcon(style::icon(QStringLiteral("book-open")));
  controlli_.Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  accoppia(*controlli_.PulsanteNuovo, *controlli_.mnuNuovo);
  accoppia(*controlli_.PulsanteApri, *controlli_.mnuApri);
  accoppia(*controlli_.PulsanteChiudi, *controlli_.mnuClose);
  mostraAperto(false);
  aggiorna();
}

void AreaArchivio::accoppia(QPushButton& pulsante, QAction& voce) {
  pulsante.setText(voce.iconText());
  pulsante.setIcon(voce.icon());
  pulsante.setToolTip(
      QStringLiteral("%1 (%2)").arg(voce.toolTip(), voce.shortcut().toString(QKeySequence::NativeText)));
  const auto segui = [&pulsante, &voce] { pulsante.setEnabled(voce.isEnabled()); };
  segui();
  connect(&voce, &QAction::enabledChanged, &pulsante, segui);
  connect(&pulsante, &QPushButton::clicked, &voce, &QAction::trigger);
}

QString AreaArchivio::senzaArchivio() {
  return QStringLiteral("Prima si apre un archivio: Nuovo Archivio (Ctrl+N) o Apri Archivio (Ctrl+O)");
}

QString AreaArchivio::percorsoArchivio() const {
  return QDir::toNativeSeparators(genere_.percorso);
}

QString AreaArchivio::nomeArchivio() const {
  return FileName(percorsoArchivio());
}

bool AreaArchivio::comandiAccesi() const {
  return std::all_of(controlli_.comandi.begin(), controlli_.comandi.end(),
                     [](const QWidget* comando) { return comando->isEnabled(); });
}

void AreaArchivio::abilitaComandi(bool abilitati) {
  for (QWidget* comando : controlli_.comandi) comando->setEnabled(abilitati);
}

void AreaArchivio::spiegaComandi(const QString& perche) {
  for (QWidget* comando : controlli_.comandi) tellWhyDisabled(*comando, perche);
}

void AreaArchivio::racconta(Kind genere, const QString& testo) {
  controlli_.barra->tell(genere, testo);
}

/// What goes off while it has the focus hands it to the next control that is on, at the end to the exit: an
/// Enter too many would leave.
void AreaArchivio::ridaiIlFuoco(QWidget* prima) {
  if (prima && prima->isEnabled() && prima->isVisible() && prima->focusPolicy() != Qt::NoFocus)
    return prima->setFocus();
  QWidget* const primo = controlli_.comandi.front();
  if (primo->isEnabled()) return primo->setFocus();
  controlli_.PulsanteApri->setFocus();
}

void AreaArchivio::mostraAperto(bool aperto) {
  spiegaComandi(senzaArchivio());
  abilitaComandi(aperto);
}

void AreaArchivio::aggiorna() {
  const bool aperto = archivioAperto();
  controlli_.nome->setText(aperto ? nomeArchivio() : QStringLiteral("Nessun archivio aperto"));
  controlli_.nome->setToolTip(aperto ? percorsoArchivio() : QString());
  controlli_.contenuto->setText(
      aperto ? genere_.contenuto().perEsteso
             : QStringLiteral("Crea un nuovo archivio oppure aprine uno: i comandi si abilitano da soli."));
}

void AreaArchivio::creaArchivio() {
  const auto scelto =
      contesto().utente.AskSavePath(finestraArchivio(QStringLiteral("Nuovo Archivio"), contesto()));
  if (!scelto || scelto->isEmpty() || !ConfermaSovrascrittura(*scelto, contesto().utente)) return;
  QString precedente;
  try {
    precedente = genere_.crea(*scelto, contesto());
  } catch (const Errore&) {
    // The archive that was open may have been the one whose place the copy took.
    if (!archivioAperto()) mostraAperto(false);
    throw;
  }
  mostraAperto(true);
  raccontaCreato(precedente);
}

void AreaArchivio::raccontaCreato(const QString& precedente) {
  QString creato = QStringLiteral("Archivio creato: ") + nomeArchivio();
  if (!precedente.isEmpty())
    creato += QStringLiteral(". L'archivio di prima è in ") + FileName(QDir::toNativeSeparators(precedente));
  racconta(Kind::Done, creato);
}

bool AreaArchivio::apriArchivio() {
  abilitaComandi(false);
  const auto scelto =
      contesto().utente.AskOpenPath(finestraArchivio(QStringLiteral("Apri Archivio"), contesto()));
  if (!scelto || scelto->isEmpty()) return false;
  if (archivioAperto()) spiegaComandi(kAperturaFallita);
  genere_.apri(*scelto, contesto());
  mostraAperto(true);
  raccontaAperto();
  return true;
}

void AreaArchivio::raccontaAperto() {
  const ContenutoArchivio contenuto = genere_.contenuto();
  const QString aperto = QStringLiteral("Archivio aperto: ") + nomeArchivio();
  if (contenuto.leggibile)
    racconta(Kind::Done, aperto + QStringLiteral(", ") + contenuto.inBreve);
  else
    racconta(Kind::Warning, aperto + QStringLiteral(". ") + contenuto.perEsteso);
}

void AreaArchivio::chiudi() {
  const bool aperto = archivioAperto();
  const QString nome = nomeArchivio();
  // Closed it is, whatever becomes of its last transaction: no command may meet it any more.
  mostraAperto(false);
  genere_.chiudi();
  if (aperto)
    racconta(Kind::Done, QStringLiteral("Archivio chiuso: ") + nome);
  else
    racconta(Kind::Plain, QStringLiteral("Nessun archivio era aperto."));
}

void AreaArchivio::mostraSchermata(const char* nome) {
  contesto().schermate.mostraModale(QLatin1String(nome), contesto());
  aggiorna();
}

void AreaArchivio::apriSchermata(const char* procedura, const char* nome) {
  esegui(procedura, [&] { mostraSchermata(nome); });
}

void AreaArchivio::on_mnuClose_triggered() {
  eseguiSuFile("mnuClose_Click", [this] { chiudi(); });
}

void AreaArchivio::on_mnuManuale_triggered() {
  esegui(
      "mnuManuale_Click", [this] { showManual(*this, contesto()); }, Piede::Resta);
}

void AreaArchivio::on_Cmd_Esci_clicked() {
  close();
}

void AreaArchivio::closeEvent(QCloseEvent* evento) {
  evento->accept();
  esegui("Cmd_Esci_Click", [this] { chiudi(); });
  esegui("Cmd_Esci_Click", [this] { MostraMenu(contesto()); });
}

void AreaArchivio::keyPressEvent(QKeyEvent* evento) {
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
