#include "articles/Form_TrasferimentoArticoli.h"

#include "articles/transfer.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/screens.h"
#include "platform/ui/user_port.h"
#include "ui_Form_TrasferimentoArticoli.h"

namespace {
constexpr int kInizio = 0;
constexpr int kFine = 1;
constexpr int kReteAssente = -1;
}  // namespace

Form_TrasferimentoArticoli::Form_TrasferimentoArticoli(Contesto& contesto)
    : FinestraTrasferimento(contesto), ui_(std::make_unique<Ui::Form_TrasferimentoArticoli>()) {
  ui_->setupUi(this);
  style::primary(*ui_->Cmd_Avvia, QStringLiteral("upload"));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  if (caricaSchermo() != kReteAssente) articles::RicavaDettagliPC(contesto.utente);
}

Form_TrasferimentoArticoli::~Form_TrasferimentoArticoli() = default;

void Form_TrasferimentoArticoli::on_Cmd_Avvia_clicked() {
  esegui([this] { return invia(); });
}

bool Form_TrasferimentoArticoli::invia() {
  abilita(false, false);
  ui_->vkBar1->setRange(kInizio, kFine);
  ui_->vkBar1->setValue(kInizio);
  contesto().utente.DoEvents();
  const articles::EsitoInvio esito = articles::InviaArchivio(contesto());
  if (esito == articles::EsitoInvio::Fallito) {
    abilita(false, true);
    avvisa(QStringLiteral("Errore durante il trasferimento/ricezione. "));
    return true;
  }
  if (esito == articles::EsitoInvio::Inviato) ui_->vkBar1->setValue(kFine);
  // A fill that failed has said so just before: the closing text is the same for both.
  avvisa(QStringLiteral("ARCHIVIO DEGLI ARTICOLI CORRETTAMENTE TRASFERITO"));
  abilita(true, true);
  return false;
}

void registraTrasferimentoArticoli(Schermate& schermate) {
  schermate.registra(QStringLiteral("Form_TrasferimentoArticoli"),
                     [](Contesto& contesto) { return new Form_TrasferimentoArticoli(contesto); });
}
