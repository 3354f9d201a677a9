#include "sales/Form_RicezioneVenduto.h"

#include "controls/steady_progress.h"
#include "core/archive_file.h"
#include "core/state.h"
#include "ui_Form_RicezioneVenduto.h"

Form_RicezioneVenduto::Form_RicezioneVenduto(Contesto& contesto)
    : FinestraLink(contesto, QStringLiteral("Form_GestioneMMC")),
      ui_(std::make_unique<Ui::Form_RicezioneVenduto>()) {
  ui_->setupUi(this);
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Articoli));
  caricaSchermo({*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, "download"});
  if (const QString avviso = Form_RicezioneVenduto::avvertenza(); !avviso.isEmpty())
    racconta(OutcomeBar::Kind::Warning, avviso);
}

Form_RicezioneVenduto::~Form_RicezioneVenduto() = default;

void Form_RicezioneVenduto::on_Cmd_Avvia_clicked() {
  avvia([this] { return lavora(); });
}

QString Form_RicezioneVenduto::avvertenza() const {
  return sales::AvvisoAzzeramentoInSospeso();
}

bool Form_RicezioneVenduto::lavora() {
  abilita(false, false);
  const bool tutto = ui_->vkOptionButtonGlobale->isChecked();
  // A clearing alone has no steps to show.
  beginProgress(*ui_->vkBar1, sales::kSlot, tutto ? QStringLiteral("%p%") : QString());
  const sales::EsitoVenduto esito = tutto ? ricevi().esito : azzera();
  abilita(esito == sales::EsitoVenduto::Fatto, true);
  if (esito != sales::EsitoVenduto::Comunicazione) return false;
  avvisa(QStringLiteral("Errore durante la trasmissione/ricezione. "));
  return true;
}

sales::Ricezione Form_RicezioneVenduto::ricevi() {
  SteadyProgress avanzamento(*ui_->vkBar1);
  sales::Ricezione ricezione = sales::RiceviVenduto(contesto(), avanzamento);
  raccontaRicezione(ricezione);
  return ricezione;
}

sales::EsitoVenduto Form_RicezioneVenduto::azzera() {
  const sales::EsitoVenduto esito = sales::AzzeraVenduto(contesto());
  if (esito == sales::EsitoVenduto::Fatto) racconta(OutcomeBar::Kind::Done, sales::RaccontoAzzeramento());
  return esito;
}

void Form_RicezioneVenduto::raccontaRicezione(const sales::Ricezione& ricezione) {
  const QString testo = sales::RaccontoRicezione(ricezione);
  if (testo.isEmpty()) return;
  const bool intera = ricezione.byte == std::int64_t{sales::kByteVenduto};
  const bool doppia = ricezione.righe > 0 && !ricezione.giaRicevute.isEmpty();
  const bool sicura = ricezione.esito == sales::EsitoVenduto::Fatto && intera && !doppia;
  racconta(sicura ? OutcomeBar::Kind::Done : OutcomeBar::Kind::Warning, testo);
}
