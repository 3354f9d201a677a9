#include "ecrlink/link_window.h"

#include <QPushButton>

#include "core/screens.h"
#include "ecrlink/ecr_panel.h"
#include "ecrlink/session.h"
#include "platform/ui/user_port.h"

FinestraLink::FinestraLink(Contesto& contesto, QString casa) : Schermo(contesto), casa_(std::move(casa)) {}

int FinestraLink::caricaSchermo(const Comandi& comandi) {
  pannello_ = &comandi.pannello;
  avvio_ = &comandi.avvia;
  esci_ = &comandi.esci;
  style::primary(*avvio_, QLatin1String(comandi.icona));
  esci_->setIcon(style::icon(QStringLiteral("arrow-left")));
  pannello_->accoppia(*avvio_, *esci_);
  connect(pannello_, &PannelloECR::connetti, this, &FinestraLink::connetti);
  connect(esci_, &QPushButton::clicked, this,
          [this] { esegui("Cmd_Esci_Click", [this] { torna(*this, casa_, contesto()); }); });
  const int esito = ecrlink::InitRete(*pannello_, contesto());
  pannello_->setFocus();
  return esito;
}

void FinestraLink::connetti() {
  esegui("CmdInviaModECR_Click", [this] { ecrlink::ConnettiECR(*pannello_, contesto()); });
}

void FinestraLink::avvia(const std::function<bool()>& trasferimento) {
  bool scarica = false;
  esegui("Cmd_Avvia_Click", [&] { scarica = trasferimento(); });
  esci_->setEnabled(true);
  // Switching the commands off has sent the focus elsewhere: back to where "Connetti" had put it.
  esci_->setFocus();
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

void FinestraLink::reject() {
  if (esci_->isEnabled()) QDialog::reject();
}
