#include "articles/link_window.h"

#include <QLineEdit>
#include <QPushButton>

#include "core/context.h"
#include "core/reactions.h"
#include "core/screens.h"
#include "ecrlink/ecr_panel.h"
#include "ecrlink/session.h"
#include "platform/store/store.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"

FinestraTrasferimento::FinestraTrasferimento(Contesto& contesto) : contesto_(contesto) {}

int FinestraTrasferimento::caricaSchermo() {
  connect(findChild<PannelloECR*>(), &PannelloECR::connetti, this, &FinestraTrasferimento::connetti);
  connect(&comando(QStringLiteral("Cmd_Esci")), &QPushButton::clicked, this, &FinestraTrasferimento::esci);
  const int esito = ecrlink::InitRete(*this, contesto_);
  if (auto* indirizzo = findChild<QWidget*>(QStringLiteral("vkTextBoxIP_ECR"))) indirizzo->setFocus();
  return esito;
}

QPushButton& FinestraTrasferimento::comando(const QString& nome) {
  auto* pulsante = findChild<QPushButton*>(nome);
  Q_ASSERT(pulsante);
  return *pulsante;
}

void FinestraTrasferimento::connetti() {
  reazioni::protetta(contesto_.utente, QStringLiteral("CmdInviaModECR_Click"), objectName(),
                     [&] { ecrlink::ConnettiECR(*this, contesto_); });
}

void FinestraTrasferimento::esegui(const std::function<bool()>& trasferimento) {
  bool scarica = false;
  reazioni::protetta(contesto_.utente, QStringLiteral("Cmd_Avvia_Click"), objectName(), [&] {
    const BusyGuard occupato;
    contesto_.area.NewCommand();
    scarica = trasferimento();
    // What was clicked while the till was answering must not start anything now.
    contesto_.utente.DoEvents();
  });
  QPushButton& uscita = comando(QStringLiteral("Cmd_Esci"));
  uscita.setEnabled(true);
  // Switching the commands off has sent the focus elsewhere: back to where "Connetti" had put it.
  uscita.setFocus();
  if (scarica) contesto_.schermate.scarica(objectName());
}

void FinestraTrasferimento::abilita(bool avvia, bool esci) {
  comando(QStringLiteral("Cmd_Avvia")).setEnabled(avvia);
  comando(QStringLiteral("Cmd_Esci")).setEnabled(esci);
}

void FinestraTrasferimento::avvisa(const QString& testo) {
  contesto_.utente.MsgBox(testo, Icon::Warning);
}

void FinestraTrasferimento::reject() {
  if (comando(QStringLiteral("Cmd_Esci")).isEnabled()) QDialog::reject();
}

void FinestraTrasferimento::esci() {
  reazioni::protetta(contesto_.utente, QStringLiteral("Cmd_Esci_Click"), objectName(), [&] {
    Contesto& contesto = contesto_;
    contesto.schermate.scarica(objectName());
    const QString lavoro = QStringLiteral("Form_GestioneMMC");
    if (contesto.schermate.registrata(lavoro)) contesto.schermate.mostra(lavoro, contesto);
  });
}
