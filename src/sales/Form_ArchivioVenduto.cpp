#include "sales/Form_ArchivioVenduto.h"

#include <QLocale>

#include "controls/FlexGrid.h"
#include "controls/style.h"
#include "core/date_combos.h"
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
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  vesti();
  preparaSelettori();
  varGlobal().FlagAnomalia = kFalso;
  RefreshForm();
  ui_->CmbGiorno->setFocus();
}

Form_ArchivioVenduto::~Form_ArchivioVenduto() = default;

void Form_ArchivioVenduto::vesti() {
  style::primary(*ui_->Cmd_Cerca, QStringLiteral("search"));
  ui_->Cmd_Reset->setIcon(style::icon(QStringLiteral("x")));
  ui_->Cmd_Refresh->setIcon(style::icon(QStringLiteral("calendar")));
  ui_->Cmd_Export->setIcon(style::icon(QStringLiteral("download")));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
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
  mostraQuante(sales::RiempiVenduto(*ui_->MSFlexGridVenduto, sales::StatementTutti(), sales::Elenco::Tutti,
                                    contesto()));
}

void Form_ArchivioVenduto::RefreshForm() {
  const FlexGrid::Frozen ferma(*ui_->MSFlexGridVenduto);
  sales::GestGridCentral(*ui_->MSFlexGridVenduto);
  RiempiGridCentral();
}

void Form_ArchivioVenduto::mostraQuante(const elenco::EsitoElenco& esito) {
  if (!esito.letto) return;
  const QString quante = QLocale(QLocale::Italian).toString(esito.righe);
  ui_->LabelRighe->setText(esito.righe == 0   ? QStringLiteral("Nessuna vendita in elenco")
                           : esito.righe == 1 ? QStringLiteral("1 riga di venduto")
                                              : QStringLiteral("%1 righe di venduto").arg(quante));
}

void Form_ArchivioVenduto::cerca() {
  const sales::FiltroVenduto filtro{DataScelta(combiData(*this, DataDiSchermo::Inizio)),
                                    DataScelta(combiData(*this, DataDiSchermo::Fine)),
                                    ui_->vkTextBoxCodEan->text(), ui_->vkTextBoxDescrizione->text()};
  mostraQuante(sales::RiempiVenduto(*ui_->MSFlexGridVenduto, sales::StatementCerca(filtro),
                                    sales::Elenco::Cerca, contesto()));
}

void Form_ArchivioVenduto::on_Cmd_Cerca_clicked() {
  esegui("Cmd_Cerca_Click", [this] { cerca(); });
}

void Form_ArchivioVenduto::on_Cmd_Reset_clicked() {
  esegui("Cmd_Reset_Click", [this] {
    ui_->vkTextBoxCodEan->clear();
    ui_->vkTextBoxDescrizione->clear();
  });
}

void Form_ArchivioVenduto::on_Cmd_Refresh_clicked() {
  esegui("Cmd_Refresh_Click", [this] { RefreshForm(); });
}

void Form_ArchivioVenduto::on_Cmd_Export_clicked() {
  esegui("Cmd_Export_Click", [this] {
    elenco::Esporta(QStringLiteral("Export Venduto"), *ui_->MSFlexGridVenduto,
                    sales::ColonneVenduto(sales::Elenco::Tutti), {}, contesto());
  });
}

void Form_ArchivioVenduto::on_Cmd_Esci_clicked() {
  esegui("Cmd_Esci_Click", [this] { torna(*this, QStringLiteral("Form_GestioneMMC"), contesto()); });
}

void Form_ArchivioVenduto::on_MSFlexGridVenduto_cellClicked(int riga) {
  ui_->MSFlexGridVenduto->setCell(riga, sales::kPezzi);
}
