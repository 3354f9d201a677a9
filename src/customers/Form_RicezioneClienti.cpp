#include "customers/Form_RicezioneClienti.h"

#include "controls/steady_progress.h"
#include "core/archive_file.h"
#include "core/state.h"
#include "customers/customer_image.h"
#include "customers/customer_state.h"
#include "ui_Form_RicezioneClienti.h"

using customers::EsitoRicezione;

Form_RicezioneClienti::Form_RicezioneClienti(Contesto& contesto)
    : FinestraLink(contesto, QStringLiteral("Form_GestioneClienti")),
      ui_(std::make_unique<Ui::Form_RicezioneClienti>()) {
  ui_->setupUi(this);
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Clienti));
  ui_->vkOptionButtonClienti->setChecked(customers::statoClienti().ricezioneClienti);
  caricaSchermo({*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, "download"});
}

Form_RicezioneClienti::~Form_RicezioneClienti() = default;

void Form_RicezioneClienti::on_vkOptionButtonClienti_toggled(bool scelta) {
  customers::statoClienti().ricezioneClienti = scelta;
}

void Form_RicezioneClienti::on_Cmd_Avvia_clicked() {
  avvia([this] { return lavora(); });
}

bool Form_RicezioneClienti::lavora() {
  // Off while connected; a till that told nothing of itself may be asked again.
  const bool riconnettibile = ui_->pannello->connettiAbilitato();
  abilita(false, false);
  abilitaConnetti(false);
  preparaBarra();
  const EsitoRicezione esito = eseguiScelta();
  const bool fatto = esito == EsitoRicezione::Fatto;
  abilita(fatto, true);
  if (fatto) abilitaConnetti(riconnettibile);
  if (esito != EsitoRicezione::Comunicazione) return false;
  avvisa(QStringLiteral("Errore durante la trasferimento/ricezione "));
  return true;
}

void Form_RicezioneClienti::preparaBarra() {
  const bool fatture = ui_->vkOptionButtonFatture->isChecked();
  const bool clienti = ui_->vkOptionButtonClienti->isChecked();
  // A clearing has no steps to show.
  beginProgress(*ui_->vkBar1,
                clienti ? customers::kUltimoCliente : static_cast<int>(customers::fattura::kRecord),
                fatture || clienti ? QStringLiteral("%p%") : QString());
}

EsitoRicezione Form_RicezioneClienti::eseguiScelta() {
  if (ui_->vkOptionButtonCancellaFatture->isChecked()) return azzeraFatture();
  if (ui_->vkOptionButtonFatture->isChecked()) return riceviFatture();
  if (ui_->vkOptionButtonClienti->isChecked()) return riceviClienti();
  racconta(OutcomeBar::Kind::Warning, QStringLiteral("Scegliere prima una delle opzioni."));
  return EsitoRicezione::Fatto;
}

EsitoRicezione Form_RicezioneClienti::azzeraFatture() {
  const EsitoRicezione esito = customers::AzzeraFatture(contesto());
  if (esito == EsitoRicezione::Fatto)
    racconta(OutcomeBar::Kind::Done, customers::RaccontoAzzeramentoFatture());
  return esito;
}

EsitoRicezione Form_RicezioneClienti::riceviFatture() {
  SteadyProgress avanzamento(*ui_->vkBar1);
  const customers::RicezioneFatture ricezione = customers::RiceviFatture(contesto(), avanzamento);
  raccontaRicezione(ricezione.esito, customers::RaccontoRicezione(ricezione),
                    ricezione.byte == std::int64_t{customers::kByteFatture});
  return ricezione.esito;
}

EsitoRicezione Form_RicezioneClienti::riceviClienti() {
  SteadyProgress avanzamento(*ui_->vkBar1);
  const customers::RicezioneClienti ricezione = customers::RiceviClienti(contesto(), avanzamento);
  raccontaRicezione(ricezione.esito, customers::RaccontoRicezione(ricezione),
                    ricezione.byte == std::int64_t{customers::kByteClienti});
  return ricezione.esito;
}

void Form_RicezioneClienti::raccontaRicezione(EsitoRicezione esito, const QString& testo, bool intera) {
  switch (esito) {
    case EsitoRicezione::Comunicazione:
      return;
    case EsitoRicezione::NonCaricato:
      return racconta(OutcomeBar::Kind::Failed, testo);
    case EsitoRicezione::Fatto:
      return racconta(intera ? OutcomeBar::Kind::Done : OutcomeBar::Kind::Warning, testo);
  }
}
