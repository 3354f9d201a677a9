#include "ecrlink/link_window.h"

#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "controls/command_key.h"
#include "controls/needed_height.h"
#include "core/screens.h"
#include "core/state.h"
#include "ecrlink/ecr_panel.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "platform/ui/user_port.h"

namespace {

bool invio(const QKeyEvent& evento) {
  return evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter;
}

QString conTasto(const QString& testo, const char* tasto) {
  return (testo + QStringLiteral(" (") + QLatin1String(tasto) + u')').trimmed();
}

}  // namespace

FinestraLink::FinestraLink(Contesto& contesto, QString casa) : Schermo(contesto), casa_(std::move(casa)) {}

int FinestraLink::caricaSchermo(const Comandi& comandi) {
  keepNeededHeight(*this);
  pannello_ = &comandi.pannello;
  avvio_ = &comandi.avvia;
  esci_ = &comandi.esci;
  piede_ = findChild<OutcomeBar*>();
  style::primary(*avvio_, QLatin1String(comandi.icona));
  esci_->setIcon(style::icon(QStringLiteral("arrow-left")));
  notByEnter(*esci_);
  aCheServe_ = conTasto(avvio_->toolTip(), "F9");
  doveSiTorna_ = conTasto(esci_->toolTip(), "Esc");
  avvio_->installEventFilter(this);
  esci_->installEventFilter(this);
  pannello_->accoppia(*avvio_, *esci_, piede_);
  connect(pannello_, &PannelloECR::connetti, this, &FinestraLink::connetti);
  connect(esci_, &QPushButton::clicked, this,
          [this] { esegui("Cmd_Esci_Click", [this] { torna(*this, casa_, contesto()); }); });
  const int esito = ecrlink::InitRete(*pannello_, contesto());
  spiegaComandi();
  pannello_->setFocus();
  return esito;
}

void FinestraLink::connetti() {
  esegui("CmdInviaModECR_Click", [this] {
    collegata_ = ecrlink::ConnettiECR(*pannello_, contesto()) == ecrlink::EsitoConnessione::Pronta;
    spiegaComandi();
    if (!collegata_) return;
    const QString stato = ecrlink::parolaDelloStato(commonForKora().ECR_INFO.InfoStato).value_or(QString());
    const QString detto = QStringLiteral("Collegato a %1: %2").arg(ecrlink::indirizzoDetto(), stato);
    const QString altro = avvertenza();
    if (altro.isEmpty()) return racconta(OutcomeBar::Kind::Done, detto);
    racconta(OutcomeBar::Kind::Warning, detto + QStringLiteral(". ") + altro);
  });
  cresci();
}

void FinestraLink::avvia(const std::function<bool()>& trasferimento) {
  bool scarica = false;
  esegui("Cmd_Avvia_Click", [&] {
    const ecrlink::AlLavoro questa(*pannello_);
    scarica = trasferimento();
  });
  esci_->setEnabled(true);
  // Switching the commands off has sent the focus elsewhere: back to where "Connetti" had put it.
  esci_->setFocus();
  cresci();
  if (scarica) contesto().schermate.scarica(objectName());
}

void FinestraLink::abilita(bool avvia, bool esci) {
  avvio_->setEnabled(avvia);
  esci_->setEnabled(esci);
}

void FinestraLink::abilitaConnetti(bool abilitato) {
  pannello_->abilitaConnetti(abilitato);
}

void FinestraLink::avvisa(const QString& testo) {
  contesto().utente.MsgBox(testo, Icon::Warning);
}

void FinestraLink::racconta(OutcomeBar::Kind genere, const QString& testo) {
  if (!piede_) return;
  piede_->tell(genere, testo);
  cresci();
}

void FinestraLink::spiegaComandi() {
  avvio_->setToolTip(avvio_->isEnabled() ? aCheServe_
                     : collegata_
                         ? QStringLiteral("L'ultimo comando non è riuscito: uscire e rientrare per ripeterlo")
                         : QStringLiteral("Prima collegarsi alla cassa con Connetti"));
  esci_->setToolTip(esci_->isEnabled() ? doveSiTorna_
                                       : QStringLiteral("Attendere che la cassa abbia finito"));
}

void FinestraLink::cresci() {
  if (!isVisible()) return;
  // The layouts keep what the text before needed until they are told, each for itself.
  if (piede_) {
    piede_->layout()->invalidate();
    piede_->updateGeometry();
  }
  layout()->invalidate();
  layout()->activate();
  if (!layout()->hasHeightForWidth()) return;
  const int serve = std::min(layout()->totalHeightForWidth(width()), screen()->availableGeometry().height());
  if (serve > height()) resize(width(), serve);
}

void FinestraLink::showEvent(QShowEvent* evento) {
  Schermo::showEvent(evento);
  cresci();
}

bool FinestraLink::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::EnabledChange) spiegaComandi();
  return Schermo::eventFilter(oggetto, evento);
}

void FinestraLink::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_F9) {
    if (!evento->isAutoRepeat()) avvio_->click();
    return;
  }
  if (invio(*evento)) return;
  Schermo::keyPressEvent(evento);
}

void FinestraLink::reject() {
  if (!esci_->isEnabled()) return;
  QDialog::reject();
  // Back to the command that the person came from, however the screen goes.
  if (QWidget* casa = contesto().schermate.trova(casa_)) casa->activateWindow();
}
