#include "articles/Form_TrasferimentoArticoli.h"

#include "articles/transfer.h"
#include "controls/steady_progress.h"
#include "core/archive_file.h"
#include "core/context.h"
#include "core/state.h"
#include "platform/ui/user_port.h"
#include "ui_Form_TrasferimentoArticoli.h"

namespace {
constexpr int kFine = 1;
constexpr int kReteAssente = -1;
}  // namespace

Form_TrasferimentoArticoli::Form_TrasferimentoArticoli(Contesto& contesto)
    : FinestraLink(contesto, QStringLiteral("Form_GestioneMMC")),
      ui_(std::make_unique<Ui::Form_TrasferimentoArticoli>()) {
  ui_->setupUi(this);
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Articoli));
  if (caricaSchermo({*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, "upload"}) != kReteAssente)
    articles::RicavaDettagliPC(contesto.utente);
}

Form_TrasferimentoArticoli::~Form_TrasferimentoArticoli() = default;

void Form_TrasferimentoArticoli::on_Cmd_Avvia_clicked() {
  avvia([this] { return invia(); });
}

bool Form_TrasferimentoArticoli::invia() {
  abilita(false, false);
  beginProgress(*ui_->vkBar1, kFine, QStringLiteral("%p%"));
  contesto().utente.DoEvents();
  const articles::EsitoInvio esito = articles::InviaArchivio(contesto());
  if (esito == articles::EsitoInvio::Fallito) {
    abilita(false, true);
    avvisa(QStringLiteral("Errore durante il trasferimento/ricezione. "));
    return true;
  }
  if (esito == articles::EsitoInvio::Inviato) {
    ui_->vkBar1->setValue(kFine);
    racconta(OutcomeBar::Kind::Done, articles::RaccontoInvio());
  }
  // A fill that failed has said so just before: the closing text is the same for both.
  avvisa(QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTAMENTE TRASFERITO"));
  abilita(true, true);
  return false;
}
