#include "sales/Form_ArchivioVenduto.h"

#include "controls/FlexGrid.h"
#include "controls/clear_button.h"
#include "controls/command_key.h"
#include "controls/guarded_field.h"
#include "controls/style.h"
#include "core/archive_file.h"
#include "core/date_combos.h"
#include "core/list_screen.h"
#include "core/screens.h"
#include "core/state.h"
#include "sales/sales_search.h"
#include "ui_Form_ArchivioVenduto.h"

namespace {
constexpr int kPrimoAnno = 2000;
constexpr int kUltimoAnno = 2100;
}  // namespace

Form_ArchivioVenduto::Form_ArchivioVenduto(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_ArchivioVenduto>()) {
  ui_->setupUi(this);
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Articoli));
  elenco::PreparaSchermo(*this, {ui_->Cmd_Reset, ui_->Cmd_Refresh, ui_->Cmd_Export, ui_->Cmd_Esci});
  style::primary(*ui_->Cmd_Cerca, QStringLiteral("search"));
  preparaTasti();
  preparaSelettori();
  const PiedeComando racconto(*this, contesto, Piede::Nuovo);
  varGlobal().FlagAnomalia = kFalso;
  RefreshForm();
  ui_->CmbGiorno->setFocus();
}

Form_ArchivioVenduto::~Form_ArchivioVenduto() = default;

void Form_ArchivioVenduto::preparaTasti() {
  for (QLineEdit* campo : {ui_->vkTextBoxCodEan, ui_->vkTextBoxDescrizione}) {
    new GuardedField(*campo);
    addClearButton(*campo);
  }
  fieldKey(*ui_->vkTextBoxCodEan, QKeySequence::Find);
}

void Form_ArchivioVenduto::preparaSelettori() {
  const ComboData fine = combiData(*this, DataDiSchermo::Fine);
  for (const DataDiSchermo quale : {DataDiSchermo::Inizio, DataDiSchermo::Fine}) {
    RiempiComboData(combiData(*this, quale), kPrimoAnno, kUltimoAnno);
    RiempiComboOra(*this, quale);
  }
  SelezionaOggi(combiData(*this, DataDiSchermo::Inizio), *fine.anno, contesto().orologio);
  SelezionaOggi(fine, *fine.anno, contesto().orologio);
}

void Form_ArchivioVenduto::RiempiGridCentral() {
  const auto quale = sales::Elenco::Tutti;
  mostraQuante(sales::RiempiVenduto(*ui_->MSFlexGridVenduto, sales::StatementTutti(), quale, contesto()),
               quale);
}

void Form_ArchivioVenduto::RefreshForm() {
  const FlexGrid::Frozen ferma(*ui_->MSFlexGridVenduto);
  sales::GestGridCentral(*ui_->MSFlexGridVenduto);
  RiempiGridCentral();
}

void Form_ArchivioVenduto::mostraQuante(const elenco::EsitoElenco& esito, sales::Elenco quale) {
  // A list that stopped on the way has its box, which the foot repeats.
  if (!esito.intero) return;
  if (esito.righe == 0)
    return ui_->BarraEsito->tell(OutcomeBar::Kind::Plain, ui_->MSFlexGridVenduto->Notice());
  const bool conSconti = quale == sales::Elenco::Tutti;
  ui_->BarraEsito->tell(conSconti ? OutcomeBar::Kind::Plain : OutcomeBar::Kind::Warning,
                        sales::RaccontoVenduto(esito, quale));
}

void Form_ArchivioVenduto::cerca() {
  const sales::FiltroVenduto filtro{DataScelta(combiData(*this, DataDiSchermo::Inizio)),
                                    DataScelta(combiData(*this, DataDiSchermo::Fine)),
                                    ui_->vkTextBoxCodEan->text(), ui_->vkTextBoxDescrizione->text()};
  const auto quale = sales::Elenco::Cerca;
  mostraQuante(
      sales::RiempiVenduto(*ui_->MSFlexGridVenduto, sales::StatementCerca(filtro), quale, contesto()), quale);
}

void Form_ArchivioVenduto::on_Cmd_Cerca_clicked() {
  esegui("Cmd_Cerca_Click", [this] { cerca(); });
}

void Form_ArchivioVenduto::on_Cmd_Reset_clicked() {
  esegui("Cmd_Reset_Click", [this] {
    ui_->vkTextBoxCodEan->clear();
    ui_->vkTextBoxDescrizione->clear();
    ui_->BarraEsito->tell(OutcomeBar::Kind::Plain,
                          QStringLiteral("Filtri vuoti; l'elenco è quello di prima"));
  });
}

void Form_ArchivioVenduto::on_Cmd_Refresh_clicked() {
  esegui("Cmd_Refresh_Click", [this] { RefreshForm(); });
}

void Form_ArchivioVenduto::on_Cmd_Export_clicked() {
  esegui("Cmd_Export_Click", [this] {
    elenco::Esporta(QStringLiteral("Export Venduto"), *ui_->MSFlexGridVenduto,
                    sales::ColonneVenduto(sales::Elenco::Tutti), {}, contesto(), *ui_->BarraEsito);
  });
}

void Form_ArchivioVenduto::on_Cmd_Esci_clicked() {
  esegui("Cmd_Esci_Click", [this] { torna(*this, QStringLiteral("Form_GestioneMMC"), contesto()); });
}

void Form_ArchivioVenduto::on_MSFlexGridVenduto_cellClicked(int riga) {
  ui_->MSFlexGridVenduto->setCell(riga, sales::kPezzi);
}
