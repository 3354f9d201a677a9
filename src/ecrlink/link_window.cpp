#include "ecrlink/link_window.h"

#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "controls/needed_height.h"
#include "core/screens.h"
#include "ecrlink/ecr_panel.h"
#include "ecrlink/link_commands.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "platform/ui/user_port.h"

FinestraLink::FinestraLink(Contesto& contesto, QString casa) : Schermo(contesto), casa_(std::move(casa)) {}

int FinestraLink::caricaSchermo(const Comandi& comandi) {
  keepNeededHeight(*this);
  pannello_ = &comandi.pannello;
  piede_ = findChild<OutcomeBar*>();
  comandi_ = new ComandiLink(*pannello_, comandi.avvia, comandi.esci, piede_, QLatin1String(comandi.icona));
  connect(pannello_, &PannelloECR::connetti, this, &FinestraLink::connetti);
  connect(&comandi.esci, &QPushButton::clicked, this,
          [this] { esegui("Cmd_Esci_Click", [this] { torna(*this, casa_, contesto()); }); });
  const int esito = ecrlink::InitRete(*pannello_, contesto());
  comandi_->spiega();
  pannello_->setFocus();
  return esito;
}

void FinestraLink::connetti() {
  esegui("CmdInviaModECR_Click", [this] { comandi_->connetti([this] { return avvertenza(); }, contesto()); });
  cresci();
}

void FinestraLink::avvia(const std::function<bool()>& trasferimento) {
  bool scarica = false;
  esegui("Cmd_Avvia_Click", [&] {
    const ecrlink::AlLavoro questa(*pannello_);
    scarica = trasferimento();
  });
  // Switching the commands off has sent the focus elsewhere: back to where "Connetti" had put it.
  comandi_->ridaiEsci();
  cresci();
  if (scarica) contesto().schermate.scarica(objectName());
}

void FinestraLink::abilita(bool avvia, bool esci) {
  comandi_->abilita(avvia, esci);
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

void FinestraLink::keyPressEvent(QKeyEvent* evento) {
  if (!comandi_->prende(*evento)) Schermo::keyPressEvent(evento);
}

void FinestraLink::reject() {
  if (!comandi_->siPuoUscire()) return;
  QDialog::reject();
  // Back to the command that the person came from, however the screen goes.
  if (QWidget* casa = contesto().schermate.trova(casa_)) casa->activateWindow();
}
