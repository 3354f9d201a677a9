#include "sales/Form_RicezioneVenduto.h"

#include "controls/style.h"
#include "core/context.h"
#include "core/screens.h"
#include "platform/ui/user_port.h"
#include "sales/progress.h"
#include "ui_Form_RicezioneVenduto.h"

Form_RicezioneVenduto::Form_RicezioneVenduto(Contesto& contesto)
    : FinestraTrasferimento(contesto), ui_(std::make_unique<Ui::Form_RicezioneVenduto>()) {
  ui_->setupUi(this);
  style::primary(*ui_->Cmd_Avvia, QStringLiteral("download"));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
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
  ui_->vkBar1->setFormat(QStringLiteral("%p%"));
  const sales::Esito esito =
      ui_->vkOptionButtonGlobale->isChecked() ? ricevi() : sales::AzzeraVenduto(contesto());
  abilita(esito == sales::Esito::Fatto, true);
  if (esito != sales::Esito::Comunicazione) return false;
  avvisa(QStringLiteral("Errore durante la trasmissione/ricezione. "));
  return true;
}

sales::Esito Form_RicezioneVenduto::ricevi() {
  Avanzamento avanzamento(*ui_->vkBar1);
  const sales::Esito esito = sales::RiceviVenduto(contesto(), [&](int slot) { avanzamento.a(slot); });
  // The value stops at the last slot's number: the text says that there is no more to come.
  if (esito == sales::Esito::Fatto) ui_->vkBar1->setFormat(QStringLiteral("100%"));
  return esito;
}

void registraRicezioneVenduto(Schermate& schermate) {
  schermate.registra(QStringLiteral("Form_RicezioneVenduto"),
                     [](Contesto& contesto) { return new Form_RicezioneVenduto(contesto); });
}
