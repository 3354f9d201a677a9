#include "workspace/Form_GestioneMMC.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QLocale>

#include "articles/article_database.h"
#include "articles/ean_index.h"
#include "articles/import_report.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/menu.h"
#include "core/reactions.h"
#include "core/screens.h"
#include "core/state.h"
#include "ui_Form_GestioneMMC.h"
#include "workspace/archive_summary.h"
#include "workspace/import_wait.h"

namespace {

constexpr auto kModulo = "Form_GestioneMMC";
constexpr int kFigura = 40;

FileRequest finestraArchivio(const QString& titolo, const Contesto& contesto) {
  return {titolo, QStringLiteral("mdb (*.mdb)|*.mdb"), contesto.cartella};
}

bool confermaSovrascrittura(const QString& percorso, Utente& utente) {
  return !FileEsiste(percorso) ||
         utente.MsgBox(QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::None,
                       QStringLiteral("ATTENZIONE"), Buttons::YesNo) == Answer::Yes;
}

/// A transaction that an import left open belongs to the archive that is about to be let go.
void concludiTransazione(store::Workspace& area) {
  if (area.level() == 0) return;
  area.BeginTrans();
  area.CommitTrans();
}

/// A button that does what the menu entry does, and is on when that is.
void accoppia(QPushButton& pulsante, QAction& voce) {
  pulsante.setText(voce.iconText());
  pulsante.setIcon(voce.icon());
  pulsante.setToolTip(voce.toolTip());
  const auto segui = [&pulsante, &voce] { pulsante.setEnabled(voce.isEnabled()); };
  segui();
  QObject::connect(&voce, &QAction::enabledChanged, &pulsante, segui);
  QObject::connect(&pulsante, &QPushButton::clicked, &voce, &QAction::trigger);
}

QString numero(int valore) {
  return QLocale(QLocale::Italian).toString(valore);
}

QString testoEsito(const articles::EsitoImport& importazione) {
  using Tipo = articles::EsitoImport::Tipo;
  switch (importazione.tipo) {
    case Tipo::Abbandonato:
      return {};
    case Tipo::Importato:
      return QStringLiteral("Importazione: righe lette %1, errori %2. %3")
          .arg(numero(importazione.righe), numero(importazione.errori), importazione.dettaglio);
    case Tipo::Annullato:
      return QStringLiteral("Importazione annullata: l'archivio è rimasto com'era.");
    case Tipo::Fallito:
      return QStringLiteral("Importazione fermata alla riga %1.").arg(numero(importazione.righe + 1));
    case Tipo::Interrotto:
      return QStringLiteral("Importazione interrotta dopo %1 righe. %2")
          .arg(numero(importazione.righe), importazione.dettaglio);
  }
  return {};
}

}  // namespace

/// What every slot is entered through: nothing leaves it, and a new command begins.
template <typename Corpo>
void Form_GestioneMMC::comando(const char* nome, Corpo&& corpo) {
  reazioni::protetta(contesto_.utente, QLatin1String(nome), QLatin1String(kModulo), [&] {
    contesto_.area.NewCommand();
    corpo();
  });
}

/// As above for the commands on files, which fail without a box: only the line at the foot tells.
template <typename Corpo>
void Form_GestioneMMC::comandoFile(const char* nome, Corpo&& corpo) {
  comando(nome, [&] {
    try {
      corpo();
    } catch (const Errore& errore) {
      esito(errore.descrizione);
    }
    aggiorna();
  });
}

Form_GestioneMMC::Form_GestioneMMC(Contesto& contesto, articles::Orologio orologio)
    : contesto_(contesto), orologio_(std::move(orologio)), ui_(std::make_unique<Ui::Form_GestioneMMC>()) {
  ui_->setupUi(this);
  vesti();
  abilitaComandi(false);
  ui_->mnuImporta->setEnabled(false);
  aggiorna();
}

Form_GestioneMMC::~Form_GestioneMMC() = default;

void Form_GestioneMMC::vesti() {
  ui_->mnuNuovo->setIcon(style::icon(QStringLiteral("file-plus")));
  ui_->mnuApri->setIcon(style::icon(QStringLiteral("folder-open")));
  ui_->mnuImporta->setIcon(style::icon(QStringLiteral("file-down")));
  ui_->mnuClose->setIcon(style::icon(QStringLiteral("folder-x")));
  ui_->Cmd_Articoli->setIcon(style::icon(QStringLiteral("boxes")));
  ui_->Cmd_Down->setIcon(style::icon(QStringLiteral("upload")));
  ui_->Cmd_Upl->setIcon(style::icon(QStringLiteral("download")));
  ui_->Cmd_Venduto->setIcon(style::icon(QStringLiteral("chart-column")));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("log-out")));
  accoppia(*ui_->PulsanteNuovo, *ui_->mnuNuovo);
  accoppia(*ui_->PulsanteApri, *ui_->mnuApri);
  accoppia(*ui_->PulsanteImporta, *ui_->mnuImporta);
  ui_->Picture1->setPixmap(style::icon(QStringLiteral("store")).pixmap(kFigura));
}

bool Form_GestioneMMC::comandiAbilitati() const {
  return ui_->Cmd_Articoli->isEnabled();
}

void Form_GestioneMMC::abilitaComandi(bool abilitati) {
  for (QWidget* tasto : {ui_->Cmd_Articoli, ui_->Cmd_Down, ui_->Cmd_Upl, ui_->Cmd_Venduto})
    tasto->setEnabled(abilitati);
}

void Form_GestioneMMC::esito(const QString& testo) {
  ui_->LabelEsito->setText(testo);
  ui_->LabelEsito->setToolTip(testo);
}

void Form_GestioneMMC::aggiorna() {
  const bool aperto = varGlobal().DB_Articoli.isOpen();
  const QString percorso = QDir::toNativeSeparators(varGlobal().NomeDB_Articoli);
  ui_->LabelArchivio->setText(aperto ? articles::NomeFile(percorso)
                                     : QStringLiteral("Nessun archivio aperto"));
  ui_->LabelArchivio->setToolTip(aperto ? percorso : QString());
  ui_->LabelArticoli->setText(
      aperto ? workspace::TestoRiepilogo(workspace::Riepiloga())
             : QStringLiteral("Crea un nuovo archivio oppure aprine uno: i comandi si abilitano da soli."));
}

void Form_GestioneMMC::nuovo() {
  articles::avvisaModelloAssente(contesto_);
  const auto scelto =
      contesto_.utente.AskSavePath(finestraArchivio(QStringLiteral("Nuovo Archivio"), contesto_));
  if (!scelto || scelto->isEmpty() || !confermaSovrascrittura(*scelto, contesto_.utente)) return;
  concludiTransazione(contesto_.area);
  articles::NuovoDatabase(*scelto, contesto_);
  abilitaComandi(true);
  ui_->mnuImporta->setEnabled(true);
  esito(QStringLiteral("Archivio creato."));
}

void Form_GestioneMMC::apri() {
  const bool prima = comandiAbilitati();
  abilitaComandi(false);
  const auto scelto =
      contesto_.utente.AskOpenPath(finestraArchivio(QStringLiteral("Apri Archivio"), contesto_));
  if (!scelto || scelto->isEmpty()) return abilitaComandi(prima);
  concludiTransazione(contesto_.area);
  articles::ApriDatabase(*scelto, contesto_);
  abilitaComandi(true);
  ui_->mnuApri->setEnabled(false);
  ui_->mnuImporta->setEnabled(true);
  esito(QStringLiteral("Archivio aperto."));
}

void Form_GestioneMMC::importa() {
  esito(testoEsito(articles::ImportaArticoli(contesto_, workspace::AttesaDi(*this, contesto_), orologio_)));
}

std::int16_t Form_GestioneMMC::CreaIndiceEAN() {
  articles::UpdateEanNumAndIndex(contesto_.utente);
  return 0;
}

void Form_GestioneMMC::on_mnuNuovo_triggered() {
  comandoFile("mnuNuovo_Click", [this] { nuovo(); });
}

void Form_GestioneMMC::on_mnuApri_triggered() {
  comandoFile("mnuApri_Click", [this] { apri(); });
}

void Form_GestioneMMC::on_mnuImporta_triggered() {
  comandoFile("mnuImporta_Click", [this] { importa(); });
}

void Form_GestioneMMC::on_mnuClose_triggered() {
  comandoFile("mnuClose_Click", [this] {
    articles::ChiudiDatabase();
    abilitaComandi(false);
    ui_->mnuApri->setEnabled(true);
    ui_->mnuImporta->setEnabled(false);
    esito({});
  });
}

void Form_GestioneMMC::apriSchermata(const char* nome) {
  contesto_.schermate.mostraModale(QLatin1String(nome), contesto_);
  aggiorna();
}

void Form_GestioneMMC::on_Cmd_Articoli_clicked() {
  comando("Cmd_Articoli_Click", [this] { apriSchermata("Form_ArchivioArticoli"); });
}

void Form_GestioneMMC::on_Cmd_Down_clicked() {
  comando("Cmd_Down_Click", [this] { apriSchermata("Form_TrasferimentoArticoli"); });
}

void Form_GestioneMMC::on_Cmd_Upl_clicked() {
  comando("Cmd_Upl_Click", [this] { apriSchermata("Form_RicezioneVenduto"); });
}

void Form_GestioneMMC::on_Cmd_Venduto_clicked() {
  comando("Cmd_Venduto_Click", [this] { apriSchermata("Form_ArchivioVenduto"); });
}

void Form_GestioneMMC::on_Cmd_Esci_clicked() {
  close();
}

void Form_GestioneMMC::closeEvent(QCloseEvent* evento) {
  evento->accept();
  comando("Cmd_Esci_Click", [] { articles::ChiudiDatabase(); });
  comando("Cmd_Esci_Click", [this] { MostraMenu(contesto_); });
}

void Form_GestioneMMC::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_Escape) {
    close();
    return;
  }
  auto* tasto = qobject_cast<QAbstractButton*>(focusWidget());
  if (tasto && (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter)) {
    tasto->click();
    return;
  }
  QMainWindow::keyPressEvent(evento);
}

void registraGestioneMMC(Schermate& schermate) {
  schermate.registra(QStringLiteral("Form_GestioneMMC"),
                     [](Contesto& contesto) { return new Form_GestioneMMC(contesto); });
}
