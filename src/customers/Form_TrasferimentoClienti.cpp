#include "customers/Form_TrasferimentoClienti.h"

#include "controls/steady_progress.h"
#include "core/archive_file.h"
#include "core/context.h"
#include "core/state.h"
#include "platform/ui/user_port.h"
#include "ui_Form_TrasferimentoClienti.h"

Form_TrasferimentoClienti::Form_TrasferimentoClienti(Contesto& contesto)
    : FinestraLink(contesto, QStringLiteral("Form_GestioneClienti")),
      ui_(std::make_unique<Ui::Form_TrasferimentoClienti>()),
      codiceMassimo_(customers::RicavaDettagliPC(contesto.utente)) {
  ui_->setupUi(this);
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Clienti));
  caricaSchermo({*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, "upload"});
  if (const QString avviso = Form_TrasferimentoClienti::avvertenza(); !avviso.isEmpty())
    racconta(OutcomeBar::Kind::Warning, avviso);
}

Form_TrasferimentoClienti::~Form_TrasferimentoClienti() = default;

void Form_TrasferimentoClienti::on_Cmd_Avvia_clicked() {
  avvia([this] { return lavora(); });
}

QString Form_TrasferimentoClienti::avvertenza() const {
  return customers::AvvisoClientiEsclusi(codiceMassimo_);
}

bool Form_TrasferimentoClienti::lavora() {
  abilita(false, false);
  beginProgress(*ui_->vkBar1, customers::kUltimoCliente, QStringLiteral("%p%"));
  contesto().utente.DoEvents();
  const customers::Invio invio = invia();
  if (invio.esito == customers::EsitoInvio::Fallito) {
    abilita(false, true);
    avvisa(QStringLiteral("Errore durante la programmazione. "));
    return true;
  }
  raccontaInvio(invio);
  // The closing text is the same where there was no file to send: the foot tells them apart.
  avvisa(QStringLiteral("ARCHIVIO DEI CLIENTI CORRETTAMENTE TRASFERITO"));
  abilita(true, true);
  return false;
}

customers::Invio Form_TrasferimentoClienti::invia() {
  SteadyProgress avanzamento(*ui_->vkBar1);
  return customers::InviaClienti(contesto(), avanzamento);
}

void Form_TrasferimentoClienti::raccontaInvio(const customers::Invio& invio) {
  const QString testo = customers::RaccontoInvio(invio, codiceMassimo_);
  if (invio.esito != customers::EsitoInvio::Inviato) return racconta(OutcomeBar::Kind::Failed, testo);
  racconta(avvertenza().isEmpty() ? OutcomeBar::Kind::Done : OutcomeBar::Kind::Warning, testo);
}
