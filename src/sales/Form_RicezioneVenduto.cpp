#include "sales/Form_RicezioneVenduto.h"

#include "controls/steady_progress.h"
#include "ui_Form_RicezioneVenduto.h"

Form_RicezioneVenduto::Form_RicezioneVenduto(Contesto& contesto)
    : FinestraLink(contesto, QStringLiteral("Form_GestioneMMC")),
      ui_(std::make_unique<Ui::Form_RicezioneVenduto>()) {
  ui_->setupUi(this);
  caricaSchermo({*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, "download"});
  if (const QString avviso = sales::AvvisoAzzeramentoInSospeso(); !avviso.isEmpty())
    ui_->BarraEsito->tell(OutcomeBar::Kind::Warning, avviso);
}

Form_RicezioneVenduto::~Form_RicezioneVenduto() = default;

void Form_RicezioneVenduto::on_Cmd_Avvia_clicked() {
  avvia([this] { return lavora(); });
}

bool Form_RicezioneVenduto::lavora() {
  abilita(false, false);
  ui_->BarraEsito->clear();
  ui_->vkBar1->setRange(0, sales::kSlot);
  ui_->vkBar1->setValue(0);
  ui_->vkBar1->setFormat(QStringLiteral("%p%"));
  const sales::Esito esito =
      ui_->vkOptionButtonGlobale->isChecked() ? ricevi().esito : sales::AzzeraVenduto(contesto());
  abilita(esito == sales::Esito::Fatto, true);
  if (esito != sales::Esito::Comunicazione) return false;
  avvisa(QStringLiteral("Errore durante la trasmissione/ricezione. "));
  return true;
}

sales::Ricezione Form_RicezioneVenduto::ricevi() {
  SteadyProgress avanzamento(*ui_->vkBar1);
  const sales::Ricezione ricezione = sales::RiceviVenduto(contesto(), avanzamento);
  // The value stops at the last slot's number: the text says that there is no more to come.
  if (ricezione.esito == sales::Esito::Fatto) ui_->vkBar1->setFormat(QStringLiteral("100%"));
  racconta(ricezione);
  return ricezione;
}

void Form_RicezioneVenduto::racconta(const sales::Ricezione& ricezione) {
  const QString testo = sales::RaccontoRicezione(ricezione);
  if (testo.isEmpty()) return;
  const bool intera = ricezione.byte == std::int64_t{sales::kByteVenduto};
  const bool doppia = ricezione.righe > 0 && !ricezione.giaRicevute.isEmpty();
  const bool sicura = ricezione.esito == sales::Esito::Fatto && intera && !doppia;
  ui_->BarraEsito->tell(sicura ? OutcomeBar::Kind::Done : OutcomeBar::Kind::Warning, testo);
}
