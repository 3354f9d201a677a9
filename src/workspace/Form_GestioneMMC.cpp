#include "workspace/Form_GestioneMMC.h"

#include <QDir>

#include "articles/article_database.h"
#include "articles/csv_import.h"
#include "articles/ean_index.h"
#include "controls/disabled_reason.h"
#include "controls/style.h"
#include "core/conversions.h"
#include "core/state.h"
#include "ui_Form_GestioneMMC.h"
#include "workspace/archive_summary.h"
#include "workspace/import_outcome.h"

namespace {

constexpr int kFigura = 40;

const QString kConArchivio = QStringLiteral("Un archivio è già aperto: prima Chiudi Archivio (Ctrl+W)");

ContenutoArchivio contenuto() {
  const workspace::RiepilogoArchivio riepilogo = workspace::Riepiloga();
  return {riepilogo.leggibile, workspace::TestoArticoli(riepilogo), workspace::TestoRiepilogo(riepilogo)};
}

GenereArchivio archivioArticoli() {
  return {varGlobal().DB_Articoli, varGlobal().NomeDB_Articoli, articles::NuovoDatabase,
          articles::ApriDatabase,  articles::ChiudiDatabase,    contenuto};
}

}  // namespace

Form_GestioneMMC::Form_GestioneMMC(Contesto& contesto)
    : AreaArchivio(contesto, archivioArticoli()), ui_(std::make_unique<Ui::Form_GestioneMMC>()) {
  ui_->setupUi(this);
  vesti();
  allestisci(*ui_, *ui_->LabelArticoli, {ui_->Cmd_Articoli, ui_->Cmd_Down, ui_->Cmd_Upl, ui_->Cmd_Venduto});
  tellWhyDisabled(*ui_->PulsanteApri, kConArchivio);
}

Form_GestioneMMC::~Form_GestioneMMC() = default;

void Form_GestioneMMC::vesti() {
  ui_->mnuImporta->setIcon(style::icon(QStringLiteral("file-down")));
  ui_->Cmd_Articoli->setIcon(style::icon(QStringLiteral("boxes")));
  ui_->Cmd_Down->setIcon(style::icon(QStringLiteral("upload")));
  ui_->Cmd_Upl->setIcon(style::icon(QStringLiteral("download")));
  ui_->Cmd_Venduto->setIcon(style::icon(QStringLiteral("chart-column")));
  accoppia(*ui_->PulsanteImporta, *ui_->mnuImporta);
  tellWhyDisabled(*ui_->PulsanteImporta, senzaArchivio());
  ui_->Picture1->setPixmap(style::icon(QStringLiteral("store")).pixmap(kFigura));
}

void Form_GestioneMMC::mostraAperto(bool aperto) {
  AreaArchivio::mostraAperto(aperto);
  ui_->mnuImporta->setEnabled(aperto);
  if (!aperto) ui_->mnuApri->setEnabled(true);
}

void Form_GestioneMMC::apri() {
  const bool prima = comandiAccesi();
  if (apriArchivio())
    ui_->mnuApri->setEnabled(false);
  else
    abilitaComandi(prima);
}

void Form_GestioneMMC::importa() {
  const articles::EsitoImport esito = articles::ImportaArticoli(contesto());
  const workspace::RaccontoImport racconto = workspace::ConcludiImport(esito, contesto());
  OutcomeBar::Action azione{};
  if (FileEsiste(esito.log))
    azione = {QStringLiteral("Apri il report"), [this, report = esito.log] { apriReport(report); }};
  ui_->BarraEsito->tell(racconto.genere, racconto.testo, azione);
}

void Form_GestioneMMC::apriReport(const QString& report) {
  const auto apre = [&] {
    try {
      contesto().utente.OpenWithDesktop(report);
    } catch (const Errore&) {
      racconta(OutcomeBar::Kind::Failed,
               QStringLiteral("Il report non si è aperto: ") + QDir::toNativeSeparators(report));
    }
  };
  esegui("AzioneEsito_Click", apre, Piede::Resta);
}

std::int16_t Form_GestioneMMC::CreaIndiceEAN() {
  articles::UpdateEanNumAndIndex(contesto().utente);
  return 0;
}

void Form_GestioneMMC::on_mnuNuovo_triggered() {
  eseguiSuFile("mnuNuovo_Click", [this] {
    articles::avvisaModelloAssente(contesto());
    creaArchivio();
  });
}

void Form_GestioneMMC::on_mnuApri_triggered() {
  eseguiSuFile("mnuApri_Click", [this] { apri(); });
}

void Form_GestioneMMC::on_mnuImporta_triggered() {
  eseguiSuFile("mnuImporta_Click", [this] { importa(); });
}

void Form_GestioneMMC::on_Cmd_Articoli_clicked() {
  apriSchermata("Cmd_Articoli_Click", "Form_ArchivioArticoli");
}

void Form_GestioneMMC::on_Cmd_Down_clicked() {
  apriSchermata("Cmd_Down_Click", "Form_TrasferimentoArticoli");
}

void Form_GestioneMMC::on_Cmd_Upl_clicked() {
  apriSchermata("Cmd_Upl_Click", "Form_RicezioneVenduto");
}

void Form_GestioneMMC::on_Cmd_Venduto_clicked() {
  apriSchermata("Cmd_Venduto_Click", "Form_ArchivioVenduto");
}
