#include "sales/Form_ArchivioVenduto.h"

#include <QDate>
#include <QLocale>
#include <algorithm>
#include <optional>
#include <utility>

#include "controls/FlexGrid.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/date_combos.h"
#include "core/paths.h"
#include "core/reactions.h"
#include "core/screens.h"
#include "core/state.h"
#include "platform/ui/busy_guard.h"
#include "sales/sales_export.h"
#include "sales/sales_search.h"
#include "ui_Form_ArchivioVenduto.h"

namespace {

constexpr int kPrimoAnno = 2000;
constexpr int kUltimoAnno = 2100;
constexpr int kTwipTestata = 600;
constexpr int kPrimaRiga = 1;
/// Heading, blank row and totals beside the rows of data.
constexpr int kRigheInPiu = 3;
/// Heading and one empty row.
constexpr int kRigheVuoto = 2;

const QColor kGiallo(Qt::yellow);
const QColor kRosso(Qt::red);

/// Holds the painting of a grid back for as long as it lives.
class Ferma {
 public:
  explicit Ferma(FlexGrid& griglia) : griglia_(griglia) { griglia_.setRedraw(false); }
  ~Ferma() { griglia_.setRedraw(true); }
  Ferma(const Ferma&) = delete;
  Ferma& operator=(const Ferma&) = delete;

 private:
  FlexGrid& griglia_;
};

}  // namespace

/// What every slot is entered through: nothing leaves it, and a new command begins.
template <typename Corpo>
void Form_ArchivioVenduto::comando(const char* nome, Corpo&& corpo) {
  reazioni::protetta(contesto_.utente, QLatin1String(nome), objectName(), [&] {
    contesto_.area.NewCommand();
    corpo();
  });
}

/// One statement of a fill: in the whole list failures bear the name of the procedure, in the filtered one
/// they stand alone.
template <typename Passo>
reazioni::Esito Form_ArchivioVenduto::passo(sales::Elenco elenco, Passo&& passo) {
  static const QString kPrefisso = QStringLiteral("RiempiGridCentral ");
  return reazioni::prossimaIstruzioneRiempimento(
      contesto_.utente, elenco == sales::Elenco::Tutti ? kPrefisso : QString(), std::forward<Passo>(passo));
}

Form_ArchivioVenduto::Form_ArchivioVenduto(Contesto& contesto)
    : contesto_(contesto), ui_(std::make_unique<Ui::Form_ArchivioVenduto>()) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  vesti();
  preparaSelettori();
  varGlobal().FlagAnomalia = kFalso;
  GestGridCentral();
  RiempiGridCentral();
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
  const ComboData inizio = combiData(*this, kComboInizio);
  const ComboData fine = combiData(*this, kComboFine);
  RiempiComboData(inizio, kPrimoAnno, kUltimoAnno);
  RiempiComboData(fine, kPrimoAnno, kUltimoAnno);
  RiempiComboOra(*this, kComboInizio);
  RiempiComboOra(*this, kComboFine);
  const QString oggi = QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"));
  SelezionaData(inizio, *fine.anno, oggi);
  SelezionaData(fine, *fine.anno, oggi);
}

void Form_ArchivioVenduto::GestGridCentral() {
  FlexGrid& griglia = *ui_->MSFlexGridVenduto;
  griglia.setCols(sales::kColonneVenduto);
  elencoVuoto();
  griglia.setHeadingHeight(kTwipTestata);
  griglia.setFullWidth(true);
  int colonna = 0;
  for (const sales::DescrizioneColonna& una : sales::colonneVenduto()) {
    griglia.setTextMatrix(0, colonna, una.testata);
    griglia.setColWidth(colonna, una.twip);
    griglia.setColAlignment(colonna, (una.numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    ++colonna;
  }
}

void Form_ArchivioVenduto::RiempiGridCentral() {
  riempi(sales::StatementTutti(), sales::Elenco::Tutti);
}

void Form_ArchivioVenduto::RefreshForm() {
  const Ferma ferma(*ui_->MSFlexGridVenduto);
  GestGridCentral();
  RiempiGridCentral();
}

void Form_ArchivioVenduto::riempi(const QString& sql, sales::Elenco elenco) {
  const BusyGuard occupato;
  const Ferma ferma(*ui_->MSFlexGridVenduto);
  std::optional<sales::LettoreVenduto> righe;
  passo(elenco, [&] { righe.emplace(varGlobal().DB_Articoli.OpenRecordset(sql), elenco); });
  if (!righe) return;
  if (righe->quante() == 0) return elencoVuoto();
  preparaRighe(righe->quante());
  riempiRighe(*righe, elenco);
}

void Form_ArchivioVenduto::preparaRighe(int quante) {
  FlexGrid& griglia = *ui_->MSFlexGridVenduto;
  // The totals of the list before must not stay behind among the rows of data.
  const int ultima = griglia.Rows() - 1;
  for (int riga = std::max(ultima - 1, kPrimaRiga); riga <= ultima; ++riga) pulisciRiga(riga);
  griglia.setRows(quante + kRigheInPiu);
  for (int riga = quante + kPrimaRiga; riga < griglia.Rows(); ++riga) pulisciRiga(riga);
}

void Form_ArchivioVenduto::riempiRighe(sales::LettoreVenduto& righe, sales::Elenco elenco) {
  sales::SommeVenduto somme;
  int riga = kPrimaRiga;
  for (; !righe.fine(); righe.avanti(), ++riga) {
    contesto_.utente.DoEventsAtRecord();
    if (!riempiRiga(righe, riga, elenco, somme)) return mostraQuante(riga);
  }
  SetTailGriglia(riga, somme);
  ui_->MSFlexGridVenduto->setCell(kPrimaRiga, sales::kNr);
  mostraQuante(righe.quante());
}

bool Form_ArchivioVenduto::riempiRiga(const sales::LettoreVenduto& righe, int riga, sales::Elenco elenco,
                                      sales::SommeVenduto& somme) {
  FlexGrid& griglia = *ui_->MSFlexGridVenduto;
  for (int colonna = 0; colonna < sales::kColonneVenduto; ++colonna) {
    // A cell that fails keeps the text it had.
    const reazioni::Esito esito = passo(elenco, [&] {
      griglia.setTextMatrix(riga, colonna, righe.cella(static_cast<sales::ColonnaVenduto>(colonna), somme));
    });
    if (esito == reazioni::Esito::Segnalato && elenco == sales::Elenco::Tutti) return false;
  }
  return true;
}

void Form_ArchivioVenduto::SetTailGriglia(int riga, const sales::SommeVenduto& somme) {
  FlexGrid& griglia = *ui_->MSFlexGridVenduto;
  griglia.setTextMatrix(riga, sales::kData, QStringLiteral(" "));
  const int totale = riga + 1;
  int colonna = 0;
  for (const QString& testo : sales::rigaTotale(somme)) {
    if (sales::inEvidenza(static_cast<sales::ColonnaVenduto>(colonna))) {
      griglia.setTextMatrix(totale, colonna, testo);
      griglia.setCellBackColor(totale, colonna, kGiallo);
      griglia.setCellForeColor(totale, colonna, kRosso);
    }
    ++colonna;
  }
}

void Form_ArchivioVenduto::pulisciRiga(int riga) {
  FlexGrid& griglia = *ui_->MSFlexGridVenduto;
  for (int colonna = 0; colonna < sales::kColonneVenduto; ++colonna) {
    griglia.setTextMatrix(riga, colonna, {});
    griglia.setCellBackColor(riga, colonna, {});
    griglia.setCellForeColor(riga, colonna, {});
  }
}

void Form_ArchivioVenduto::elencoVuoto() {
  FlexGrid& griglia = *ui_->MSFlexGridVenduto;
  griglia.setRows(kRigheVuoto);
  griglia.Clear();
  mostraQuante(0);
}

void Form_ArchivioVenduto::mostraQuante(int righe) {
  ui_->LabelRighe->setText(
      righe == 0   ? QStringLiteral("Nessuna vendita in elenco")
      : righe == 1 ? QStringLiteral("1 riga di venduto")
                   : QStringLiteral("%1 righe di venduto").arg(QLocale(QLocale::Italian).toString(righe)));
}

void Form_ArchivioVenduto::cerca() {
  riempi(sales::StatementCerca({DataScelta(combiData(*this, kComboInizio)),
                                DataScelta(combiData(*this, kComboFine)), ui_->vkTextBoxCodEan->text(),
                                ui_->vkTextBoxDescrizione->text()}),
         sales::Elenco::Cerca);
}

void Form_ArchivioVenduto::esporta() {
  const auto scelto = contesto_.utente.AskSavePath(
      {QStringLiteral("Export Venduto"), QStringLiteral("csv (*.csv)|*.csv"), QString()});
  if (!scelto || scelto->isEmpty()) return;
  const FlexGrid& griglia = *ui_->MSFlexGridVenduto;
  try {
    sales::EsportaVenduto(*scelto, griglia.Rows() - 1,
                          [&griglia](int riga, int colonna) { return griglia.TextMatrix(riga, colonna); });
  } catch (const Errore& errore) {
    // Told whatever its number: a list that was not written must not pass for one that was.
    return reazioni::segnala(contesto_.utente, {}, errore);
  }
  contesto_.utente.MsgBox(
      QStringLiteral("Creazione del file ") + PercorsoNativo(*scelto) + QStringLiteral(" terminata."),
      Icon::Information);
}

void Form_ArchivioVenduto::on_Cmd_Cerca_clicked() {
  comando("Cmd_Cerca_Click", [this] { cerca(); });
}

void Form_ArchivioVenduto::on_Cmd_Reset_clicked() {
  ui_->vkTextBoxCodEan->clear();
  ui_->vkTextBoxDescrizione->clear();
}

void Form_ArchivioVenduto::on_Cmd_Refresh_clicked() {
  comando("Cmd_Refresh_Click", [this] { RefreshForm(); });
}

void Form_ArchivioVenduto::on_Cmd_Export_clicked() {
  comando("Cmd_Export_Click", [this] { esporta(); });
}

void Form_ArchivioVenduto::on_Cmd_Esci_clicked() {
  close();
}

void Form_ArchivioVenduto::on_MSFlexGridVenduto_cellClicked(int riga, int) {
  ui_->MSFlexGridVenduto->setCell(riga, sales::kPezzi);
}

void registraArchivioVenduto(Schermate& schermate) {
  schermate.registra(QStringLiteral("Form_ArchivioVenduto"),
                     [](Contesto& contesto) { return new Form_ArchivioVenduto(contesto); });
}
