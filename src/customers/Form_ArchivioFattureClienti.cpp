#include "customers/Form_ArchivioFattureClienti.h"

#include <QComboBox>
#include <utility>

#include "controls/FlexGrid.h"
#include "controls/clear_button.h"
#include "controls/command_key.h"
#include "controls/disabled_reason.h"
#include "controls/guarded_field.h"
#include "controls/sample_width.h"
#include "controls/style.h"
#include "core/archive_file.h"
#include "core/key_filters.h"
#include "core/list_screen.h"
#include "core/screens.h"
#include "core/state.h"
#include "customers/customer_state.h"
#include "customers/invoice_list.h"
#include "customers/registry.h"
#include "platform/ui/user_port.h"
#include "ui_Form_ArchivioFattureClienti.h"

using Kind = OutcomeBar::Kind;

namespace {
constexpr int kPrimoAnno = 2000;
constexpr int kUltimoAnno = 2100;

const QString kApostrofo =
    QStringLiteral("Con un apostrofo la ricerca chiude il programma: al suo posto scrivere ?");
}  // namespace

Form_ArchivioFattureClienti::Form_ArchivioFattureClienti(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_ArchivioFattureClienti>()) {
  ui_->setupUi(this);
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Clienti));
  elenco::PreparaSchermo(*this, {ui_->Cmd_Reset, ui_->Cmd_Refresh, ui_->Cmd_Export, ui_->Cmd_Esci});
  style::primary(*ui_->Cmd_Cerca, QStringLiteral("search"));
  preparaTasti();
  const PiedeComando racconto(*this, contesto, Piede::Nuovo);
  RefreshForm();
  InitDataOra();
  if (std::as_const(customers::statoClienti()).filtro.acceso) {
    bloccaRicerca();
    cerca();
    ui_->MSFlexGridFatture->setFocus();
  } else {
    ui_->CmbGiorno->setFocus();
  }
}

Form_ArchivioFattureClienti::~Form_ArchivioFattureClienti() = default;

void Form_ArchivioFattureClienti::preparaTasti() {
  new GuardedField(*ui_->vkTextBoxRagioneSociale);
  new GuardedField(*ui_->vkTextBoxPartitaIVA, Cifre);
  new GuardedField(*ui_->vkTextBoxNumFattura);
  widthFromSample(*ui_->vkTextBoxPartitaIVA, QStringLiteral("0000000000000"), FieldWidth::AtLeast);
  for (QLineEdit* campo : {ui_->vkTextBoxRagioneSociale, ui_->vkTextBoxPartitaIVA, ui_->vkTextBoxNumFattura})
    addClearButton(*campo);
  fieldKey(*ui_->vkTextBoxRagioneSociale, QKeySequence::Find);
}

void Form_ArchivioFattureClienti::InitDataOra() {
  const ComboData fine = combiData(*this, DataDiSchermo::Fine);
  for (const DataDiSchermo quale : {DataDiSchermo::Inizio, DataDiSchermo::Fine}) {
    RiempiComboData(combiData(*this, quale), kPrimoAnno, kUltimoAnno);
    RiempiComboOra(*this, quale);
  }
  SelezionaOggi(fine, *fine.anno, contesto().orologio);
}

void Form_ArchivioFattureClienti::RefreshForm() {
  const FlexGrid::Frozen ferma(*ui_->MSFlexGridFatture);
  customers::GestGridCentral(*ui_->MSFlexGridFatture);
  mostraEsito(customers::RiempiGridCentral(*ui_->MSFlexGridFatture, contesto()),
              QStringLiteral("tutte le date"));
}

void Form_ArchivioFattureClienti::bloccaRicerca() {
  QList<QWidget*> bloccati{ui_->vkTextBoxRagioneSociale,
                           ui_->vkTextBoxPartitaIVA,
                           ui_->vkTextBoxNumFattura,
                           ui_->Cmd_Cerca,
                           ui_->Cmd_Refresh,
                           ui_->Cmd_Reset};
  ui_->LabelArchivio->setText(customers::ChiMostra(customers::statoClienti().filtro));
  for (QComboBox* lista : findChildren<QComboBox*>()) bloccati.append(lista);
  for (QWidget* bloccato : std::as_const(bloccati)) {
    bloccato->setEnabled(false);
    tellWhyDisabled(*bloccato, QStringLiteral("Si vedono le fatture del cliente scelto in anagrafica"));
  }
}

void Form_ArchivioFattureClienti::mostraEsito(const elenco::EsitoElenco& esito, const QString& periodo) {
  // A list that stopped on the way has its box, which the foot repeats.
  if (!esito.intero) return;
  ui_->LabelPeriodo->setText(periodo);
  ui_->BarraEsito->tell(
      Kind::Plain, esito.righe == 0 ? ui_->MSFlexGridFatture->Notice() : customers::RaccontoFatture(esito));
}

customers::Giorno Form_ArchivioFattureClienti::giorno(DataDiSchermo quale) const {
  const ComboData combi = combiData(*this, quale);
  return {combi.giorno->currentText(), combi.mese->currentText(), combi.anno->currentText()};
}

customers::RicercaFatture Form_ArchivioFattureClienti::ricerca() const {
  const customers::FiltroFatture& filtro = customers::statoClienti().filtro;
  return {.inizio = giorno(DataDiSchermo::Inizio),
          .fine = giorno(DataDiSchermo::Fine),
          .cliente = filtro.acceso ? customers::ClienteDelFiltro(filtro) : std::nullopt,
          .ragioneSociale = ui_->vkTextBoxRagioneSociale->text(),
          .partitaIVA = ui_->vkTextBoxPartitaIVA->text(),
          .numero = ui_->vkTextBoxNumFattura->text()};
}

/// What stands in the fields filters: the customer of the registry is looked for by code, name and VAT number
/// at once.
void Form_ArchivioFattureClienti::mostraFiltro() {
  const customers::FiltroFatture& filtro = customers::statoClienti().filtro;
  if (!filtro.acceso) return;
  if (!filtro.partitaIVA.isEmpty()) ui_->vkTextBoxPartitaIVA->setText(filtro.partitaIVA);
  ui_->vkTextBoxRagioneSociale->setText(filtro.ragioneSociale);
  ui_->vkTextBoxRagioneSociale->setCursorPosition(0);
}

void Form_ArchivioFattureClienti::rifiutaGiorno(DataDiSchermo quale) {
  combiData(*this, quale).giorno->setFocus();
  const QString nome =
      quale == DataDiSchermo::Inizio ? QStringLiteral("Data di inizio") : QStringLiteral("Data di fine");
  ui_->BarraEsito->tell(Kind::Warning,
                        nome + QStringLiteral(" rifiutata: l'elenco è quello di prima. La data deve esistere "
                                              "e il suo anno non può essere futuro"));
}

void Form_ArchivioFattureClienti::cerca() {
  switch (
      customers::ControllaPeriodo(giorno(DataDiSchermo::Inizio), giorno(DataDiSchermo::Fine), contesto())) {
    case customers::EsitoPeriodo::InizioRifiutato:
      return rifiutaGiorno(DataDiSchermo::Inizio);
    case customers::EsitoPeriodo::FineRifiutata:
      return rifiutaGiorno(DataDiSchermo::Fine);
    case customers::EsitoPeriodo::Valido:
      break;
  }
  mostraFiltro();
  const customers::RicercaFatture questa = ricerca();
  mostraEsito(
      customers::CercaFatture(*ui_->MSFlexGridFatture, customers::StatementCercaFatture(questa), contesto()),
      QStringLiteral("dal %1 al %2").arg(questa.inizio.scritto(), questa.fine.scritto()));
}

void Form_ArchivioFattureClienti::avvisaApostrofo() {
  const bool rompe = customers::ApostrofoSolo(ui_->vkTextBoxRagioneSociale->text()) ||
                     customers::ApostrofoSolo(ui_->vkTextBoxNumFattura->text());
  if (rompe)
    ui_->BarraEsito->tell(Kind::Warning, kApostrofo);
  else if (ui_->BarraEsito->text() == kApostrofo)
    ui_->BarraEsito->clear();
}

void Form_ArchivioFattureClienti::on_vkTextBoxRagioneSociale_textChanged() {
  avvisaApostrofo();
}

void Form_ArchivioFattureClienti::on_vkTextBoxNumFattura_textChanged() {
  avvisaApostrofo();
}

void Form_ArchivioFattureClienti::on_vkTextBoxPartitaIVA_textChanged(const QString& testo) {
  const std::optional<QString> messaggio = customers::ControllaVirgole(testo);
  if (!messaggio) return;
  esegui("vkTextBoxPartitaIVA_Change", [&] {
    contesto().utente.MsgBox(*messaggio, Icon::Warning);
    ui_->vkTextBoxPartitaIVA->setText(QStringLiteral("0"));
  });
}

void Form_ArchivioFattureClienti::on_Cmd_Cerca_clicked() {
  esegui("Cmd_Cerca_Click", [this] { cerca(); });
}

void Form_ArchivioFattureClienti::on_Cmd_Reset_clicked() {
  esegui("Cmd_Reset_Click", [this] {
    ui_->vkTextBoxRagioneSociale->clear();
    ui_->vkTextBoxPartitaIVA->clear();
    ui_->vkTextBoxNumFattura->clear();
    InitDataOra();
    ui_->BarraEsito->tell(Kind::Plain,
                          QStringLiteral("Filtri vuoti, periodo fino a oggi; l'elenco è quello di prima"));
  });
}

void Form_ArchivioFattureClienti::on_Cmd_Refresh_clicked() {
  esegui("Cmd_Refresh_Click", [this] { RefreshForm(); });
}

void Form_ArchivioFattureClienti::on_Cmd_Export_clicked() {
  esegui("Cmd_Export_Click", [this] {
    elenco::Esporta(QStringLiteral("Export Fatture"), *ui_->MSFlexGridFatture, customers::ColonneFatture(),
                    customers::kFormaFatture, contesto(), *ui_->BarraEsito);
  });
}

void Form_ArchivioFattureClienti::on_Cmd_Esci_clicked() {
  esegui("Cmd_Esci_Click", [this] {
    const bool dallAnagrafica = std::exchange(customers::statoClienti().filtro.acceso, false);
    torna(*this,
          dallAnagrafica ? QStringLiteral("Form_AnagraficaClienti") : QStringLiteral("Form_GestioneClienti"),
          contesto());
  });
}

void Form_ArchivioFattureClienti::done(int esito) {
  customers::statoClienti().filtro.acceso = false;
  QDialog::done(esito);
}
