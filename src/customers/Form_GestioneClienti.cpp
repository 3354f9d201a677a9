#include "customers/Form_GestioneClienti.h"

#include "controls/elided_label.h"
#include "controls/style.h"
#include "core/figures.h"
#include "core/state.h"
#include "customers/archive_summary.h"
#include "customers/customer_database.h"
#include "ui_Form_GestioneClienti.h"

namespace {

constexpr int kFigura = 40;
/// Of the status bar, in line with the page above it.
constexpr int kMargine = 20;

const QString kAperturaAnnullata =
    QStringLiteral("L'ultima apertura è stata annullata: ripetere Apri Archivio (Ctrl+O)");

ContenutoArchivio contenuto() {
  const customers::RiepilogoArchivio riepilogo = customers::Riepiloga();
  const QString testo = customers::TestoRiepilogo(riepilogo);
  return {riepilogo.leggibile, testo, testo};
}

GenereArchivio archivioClienti() {
  return {varGlobal().DB_Clienti,  varGlobal().NomeDB_Clienti, customers::NuovoDatabase,
          customers::ApriDatabase, customers::ChiudiDatabase,  contenuto};
}

}  // namespace

Form_GestioneClienti::Form_GestioneClienti(Contesto& contesto)
    : AreaArchivio(contesto, archivioClienti()),
      ui_(std::make_unique<Ui::Form_GestioneClienti>()),
      pannello_(new ElidedLabel(this)) {
  ui_->setupUi(this);
  vesti();
  allestisci(*ui_, *ui_->LabelClienti,
             {ui_->Cmd_AnagraficaClienti, ui_->Cmd_ArchivioFatture, ui_->Cmd_Down, ui_->Cmd_Upl});
}

Form_GestioneClienti::~Form_GestioneClienti() = default;

void Form_GestioneClienti::vesti() {
  ui_->Cmd_AnagraficaClienti->setIcon(style::icon(QStringLiteral("users")));
  ui_->Cmd_ArchivioFatture->setIcon(style::icon(QStringLiteral("receipt-text")));
  ui_->Cmd_Down->setIcon(style::icon(QStringLiteral("upload")));
  ui_->Cmd_Upl->setIcon(style::icon(QStringLiteral("download")));
  ui_->Picture1->setPixmap(style::icon(QStringLiteral("users")).pixmap(kFigura));
  pannello_->setObjectName(QStringLiteral("StatusBar_1"));
  pannello_->setAccessibleName(QStringLiteral("Archivio aperto"));
  pannello_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  ui_->StatusBar->setContentsMargins(kMargine, 0, kMargine, 0);
  ui_->StatusBar->addWidget(pannello_, 1);
}

void Form_GestioneClienti::aggiorna() {
  AreaArchivio::aggiorna();
  const bool aperto = archivioAperto();
  pannello_->setText(aperto ? QStringLiteral("Nome archivio : ") + nomeArchivio() : QString());
  pannello_->setToolTip(aperto ? percorsoArchivio() : QString());
}

void Form_GestioneClienti::apri() {
  if (apriArchivio() || !archivioAperto()) return;
  // The commands stay off over an archive that is open still: who gave a choice up makes another one first.
  spiegaComandi(kAperturaAnnullata);
  racconta(OutcomeBar::Kind::Warning,
           QStringLiteral("Apertura annullata: i comandi restano spenti, si riapre l'archivio con Ctrl+O."));
}

void Form_GestioneClienti::trasferisci() {
  if (customers::CalcolaNumClienti(contesto().utente) != 0)
    return mostraSchermata("Form_TrasferimentoClienti");
  contesto().utente.MsgBox(QString::fromUtf16(customers::kArchivioVuoto), Icon::Warning);
}

customers::EsitoIstruzioni Form_GestioneClienti::ImportaIstruzioni() {
  customers::EsitoIstruzioni esito;
  eseguiSuFile("ImportaIstruzioni", [&] {
    esito = customers::ImportaIstruzioni(contesto());
    raccontaIstruzioni(esito);
  });
  return esito;
}

void Form_GestioneClienti::raccontaIstruzioni(const customers::EsitoIstruzioni& esito) {
  using Tipo = customers::EsitoIstruzioni::Tipo;
  switch (esito.tipo) {
    case Tipo::Abbandonato:
      return;
    case Tipo::Eseguite:
      return racconta(OutcomeBar::Kind::Done, QStringLiteral("Eseguite %1.")
                                                  .arg(quanti(esito.righe, QStringLiteral("istruzione"),
                                                              QStringLiteral("istruzioni"))));
    case Tipo::Annullate:
      return racconta(OutcomeBar::Kind::Failed,
                      QStringLiteral("Istruzioni annullate dopo %1: l'archivio è rimasto com'era.")
                          .arg(quanti(esito.righe, QStringLiteral("riga"), QStringLiteral("righe"))));
  }
}

void Form_GestioneClienti::on_mnuNuovo_triggered() {
  eseguiSuFile("mnuNuovo_Click", [this] {
    if (customers::ControllaModello(contesto())) creaArchivio();
  });
}

void Form_GestioneClienti::on_mnuApri_triggered() {
  eseguiSuFile("mnuApri_Click", [this] { apri(); });
}

void Form_GestioneClienti::on_Cmd_AnagraficaClienti_clicked() {
  apriSchermata("Cmd_AnagraficaClienti_Click", "Form_AnagraficaClienti");
}

void Form_GestioneClienti::on_Cmd_ArchivioFatture_clicked() {
  apriSchermata("Cmd_ArchivioFatture_Click", "Form_ArchivioFattureClienti");
}

void Form_GestioneClienti::on_Cmd_Down_clicked() {
  esegui("Cmd_Down_Click", [this] { trasferisci(); });
}

void Form_GestioneClienti::on_Cmd_Upl_clicked() {
  apriSchermata("Cmd_Upl_Click", "Form_RicezioneClienti");
}
