#include "sales/Form_RicezioneVenduto.h"

#include "controls/stile.h"
#include "core/contesto.h"
#include "core/schermate.h"
#include "platform/ui/utente.h"
#include "sales/avanzamento.h"
#include "ui_Form_RicezioneVenduto.h"

Form_RicezioneVenduto::Form_RicezioneVenduto(Contesto& contesto)
    : FinestraTrasferimento(contesto), ui_(std::make_unique<Ui::Form_RicezioneVenduto>()) {
  ui_->setupUi(this);
  ui_->Cmd_Avvia->setIcon(stile::icona(QStringLiteral("download")));
  caricaSchermo();
}

Form_RicezioneVenduto::~Form_RicezioneVenduto() = default;

void Form_RicezioneVenduto::on_Cmd_Avvia_clicked() {
  esegui([this] { return avvia(); });
}

bool Form_RicezioneVenduto::avvia() {
  abilita(false, false);
  ui_->vkBar1->setRange(0, sales::kSlot);
  ui_->vkBar1->setValue(0);
  const sales::Esito esito =
      ui_->vkOptionButtonGlobale->isChecked() ? ricevi() : sales::AzzeraVenduto(contesto());
  abilita(esito == sales::Esito::Fatto, true);
  if (esito != sales::Esito::Comunicazione) return false;
  avvisa(QStringLiteral("Errore durante la trasmissione/ricezione. "));
  return true;
}

sales::Esito Form_RicezioneVenduto::ricevi() {
  Avanzamento avanzamento(*ui_->vkBar1);
  return sales::RiceviVenduto(contesto(), [&](int slot) { avanzamento.a(slot); });
}

void registraRicezioneVenduto(Schermate& schermate) {
  schermate.registra(QStringLiteral("Form_RicezioneVenduto"),
                     [](Contesto& contesto) { return new Form_RicezioneVenduto(contesto); });
}
