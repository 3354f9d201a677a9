#include "config/Form_TrasferimentoProgrammazione.h"

#include "config/configuration_transfer.h"
#include "controls/steady_progress.h"
#include "core/context.h"
#include "core/state.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "platform/text/file_name.h"
#include "platform/ui/user_port.h"
#include "ui_Form_TrasferimentoProgrammazione.h"

Form_TrasferimentoProgrammazione::Form_TrasferimentoProgrammazione(Contesto& contesto)
    : FinestraLink(contesto, QStringLiteral("MDIForm_PRG")),
      ui_(std::make_unique<Ui::Form_TrasferimentoProgrammazione>()) {
  ui_->setupUi(this);
  ui_->LabelConfigurazione->setText(QStringLiteral("Configurazione: ") +
                                    FileName(varGestionePRG().PathConfigurazione));
  caricaSchermo({*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, "arrow-right-left"});
}

Form_TrasferimentoProgrammazione::~Form_TrasferimentoProgrammazione() = default;

QString Form_TrasferimentoProgrammazione::avvertenza() const {
  if (!config::CassaBloccata()) return {};
  return QStringLiteral("La cassa ha dati fiscali non chiusi: invio e reset chiedono prima l'azzeramento.");
}

void Form_TrasferimentoProgrammazione::on_Cmd_Avvia_clicked() {
  avvia([this] {
    lavora();
    return false;
  });
  if (!ui_->Cmd_Avvia->isEnabled())
    ui_->Cmd_Avvia->setToolTip(QStringLiteral("Per un altro comando uscire e rientrare"));
}

void Form_TrasferimentoProgrammazione::lavora() {
  preparaBarra();
  if (config::CassaBloccata() && !ui_->vkOptionRicezioneECR->isChecked() && !sblocca()) return;
  // The closure connects anew: of a till that refused then there is no address any more.
  const bool avviabile = ui_->Cmd_Avvia->isEnabled() && !commonForKora().IP_ECR.isEmpty();
  abilita(false, false);
  abilitaConnetti(false);
  if (ui_->vkOptionResetECR->isChecked()) return azzera(avviabile);
  if (ui_->vkOptionAggiornaECR->isChecked()) return invia();
  if (ui_->vkOptionRicezioneECR->isChecked()) return ricevi();
  // The keyboard codes have an option of their own and no file: who chose it has chosen none of the three.
  avvisa(QStringLiteral("Selezionare una delle opzioni !!!"));
  // Nothing was done: whoever forgot to choose starts again from here.
  abilita(avviabile, true);
}

bool Form_TrasferimentoProgrammazione::sblocca() {
  if (!conferma(QStringLiteral("FUNZIONE NON ATTIVABILE. VUOI EFFETTUARE L'AZZERAMENTO FISCALE?"))) {
    racconta(OutcomeBar::Kind::Plain,
             QStringLiteral("Annullato: la cassa ha ancora i suoi dati fiscali non chiusi."));
    return false;
  }
  if (!config::AzzeraCassa(contesto())) return false;
  // What comes of it is not looked at: without a till the command fails by its first call, and tells so.
  ecrlink::ConnettiECR(*ui_->pannello, contesto());
  return true;
}

bool Form_TrasferimentoProgrammazione::conferma(const QString& domanda) {
  return contesto().utente.MsgBox(domanda, Icon::Question, QStringLiteral("Aggiornamento ECR"),
                                  Buttons::OkCancel, Preset::Last) == Answer::Ok;
}

void Form_TrasferimentoProgrammazione::azzera(bool avviabile) {
  if (!conferma(QStringLiteral(
          "Attenzione questa operazione comporterà l'azzeramento completo della programmazione "
          "della cassa. Continuare ?"))) {
    racconta(OutcomeBar::Kind::Plain, QStringLiteral("Annullato: la cassa è rimasta com'era."));
    return abilita(avviabile, true);
  }
  if (config::AzzeraCassa(contesto()))
    racconta(OutcomeBar::Kind::Done, QStringLiteral("Azzerata la cassa ") + ecrlink::indirizzoDetto());
  abilita(false, true);
}

void Form_TrasferimentoProgrammazione::invia() {
  const config::Invio invio =
      config::InviaConArticoli(contesto(), [this](int fatti) { ui_->vkBar1->setValue(fatti); });
  racconta(invio.riuscito ? OutcomeBar::Kind::Done : OutcomeBar::Kind::Failed, config::RaccontoInvio(invio));
  if (invio.riuscito)
    contesto().utente.MsgBox(QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA"),
                             Icon::Information);
  else
    contesto().utente.MsgBox(QStringLiteral("Fallita operazione invio configurazione all'ECR"),
                             Icon::Critical);
  abilita(false, true);
}

void Form_TrasferimentoProgrammazione::ricevi() {
  const config::Ricezione ricezione =
      config::RiceviESalva(contesto(), [this](int fatti) { ui_->vkBar1->setValue(fatti); });
  const bool fatta = ricezione.esito == config::EsitoRicezione::Fatta;
  racconta(!fatta                       ? OutcomeBar::Kind::Failed
           : ricezione.avviso.isEmpty() ? OutcomeBar::Kind::Done
                                        : OutcomeBar::Kind::Warning,
           config::RaccontoRicezione(ricezione));
  if (fatta)
    contesto().utente.MsgBox(QStringLiteral("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA"),
                             Icon::Information);
  if (ricezione.esito == config::EsitoRicezione::Interrotta)
    contesto().utente.MsgBox(QStringLiteral("Errore durante la programmazione. "), Icon::Critical);
  abilita(fatta, true);
}

void Form_TrasferimentoProgrammazione::preparaBarra() {
  const bool conPassi = ui_->vkOptionAggiornaECR->isChecked() || ui_->vkOptionRicezioneECR->isChecked();
  beginProgress(*ui_->vkBar1, config::kFileConfigurazione,
                conPassi ? QStringLiteral("%v file di %m") : QString());
}
