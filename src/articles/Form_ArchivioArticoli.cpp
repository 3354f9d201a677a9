#include "articles/Form_ArchivioArticoli.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <utility>

#include "articles/Form_Help_CodiceEAN.h"
#include "articles/archive_grid.h"
#include "articles/archive_save.h"
#include "articles/archive_search.h"
#include "articles/article_database.h"
#include "controls/command_key.h"
#include "controls/disabled_reason.h"
#include "controls/primary_command.h"
#include "controls/style.h"
#include "core/archive_file.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "core/key_filters.h"
#include "core/list_screen.h"
#include "core/paths.h"
#include "core/screens.h"
#include "core/state.h"
#include "core/wait_box.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"
#include "ui_Form_ArchivioArticoli.h"

namespace {

using Kind = OutcomeBar::Kind;

/// How the foot calls an article.
QString articolo(const articles::CampiArticolo& campi) {
  return QStringLiteral("PLU %1 %2").arg(campi.id, windows1252::toUpper(campi.descrizione)).trimmed();
}

}  // namespace

Form_ArchivioArticoli::Form_ArchivioArticoli(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_ArchivioArticoli>()) {
  ui_->setupUi(this);
  caselle_ = std::make_unique<elenco::Caselle>(*this, articles::ColonneArticoli());
  elenco::PreparaSchermo(*this, {ui_->Cmd_Reset, ui_->Cmd_Refresh, ui_->Cmd_Export, ui_->Cmd_Esci});
  vesti();
  preparaTasti();
  Cancella_TextBox();
  sorveglia(*ui_->vkTextBoxCodEan);
  sorveglia(*ui_->vkTextBoxCodArt);
  sorveglia(*ui_->vkTextBoxDesc);
  sorveglia(*ui_->vkTextBoxPrezzo, kRegolaImporto, articles::controllaPrezzo);
  sorveglia(*ui_->vkTextBoxRep, Cifre, articles::controllaReparto);
  sorveglia(*ui_->vkTextBoxVarPrz, kRegolaSiNo);
  sorveglia(*ui_->vkTextBoxPrz0, kRegolaSiNo);
  const PiedeComando racconto(*this, contesto, Piede::Nuovo);
  apri();
  ui_->vkTextBoxCodEan->setFocus();
}

Form_ArchivioArticoli::~Form_ArchivioArticoli() = default;

void Form_ArchivioArticoli::vesti() {
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Articoli));
  primario_ = std::make_unique<PrimaryCommand>(std::vector<PrimaryCommand::Candidate>{
      {ui_->Vmd_Cerca, QStringLiteral("search")}, {ui_->Cmd_Modifica, QStringLiteral("save")}});
  ui_->Cmd_Modifica->setIcon(style::icon(QStringLiteral("save")));
  ui_->vkCommandHELP->setIcon(style::icon(QStringLiteral("circle-help")));
}

void Form_ArchivioArticoli::preparaTasti() {
  fieldKey(*ui_->vkTextBoxCodEan, QKeySequence::Find);
  commandKey(*ui_->Cmd_Modifica, QKeySequence::Save);
}

void Form_ArchivioArticoli::sorveglia(QLineEdit& campo, KeyRule regola, FieldCheck controllo) {
  new GuardedField(campo, regola, std::move(controllo), [this](const QString& messaggio) {
    reazioni::protetta(contesto().utente, QStringLiteral("LostFocus"), objectName(), [&] {
      contesto().utente.MsgBox(messaggio, Icon::Critical);
      ui_->BarraEsito->tell(Kind::Warning, messaggio);
    });
  });
  connect(&campo, &QLineEdit::textChanged, this, &Form_ArchivioArticoli::seguiCampi);
}

void Form_ArchivioArticoli::apri() {
  Attesa attesa(contesto());
  setWindowTitle(QStringLiteral(" PLU/ARTICOLI - ") + PercorsoNativo(varGlobal().NomeDB_Articoli));
  varGlobal().FlagAnomalia = kFalso;
  articles::Tasto_Refresh(*ui_->MSFlexGridArticoli, contesto(), &attesa);
  mostraQuanti();
  varGlobal().FlagVariazioni = articles::CheckTabVarie(contesto().utente) == kVero ? 1 : 0;
}

articles::CampiArticolo Form_ArchivioArticoli::campi() const {
  return {.id = ui_->vkTextBoxPLUid->text(),
          .ean = ui_->vkTextBoxCodEan->text(),
          .codice = ui_->vkTextBoxCodArt->text(),
          .descrizione = ui_->vkTextBoxDesc->text(),
          .prezzo = ui_->vkTextBoxPrezzo->text(),
          .reparto = ui_->vkTextBoxRep->text(),
          .varPrezzo = ui_->vkTextBoxVarPrz->text(),
          .prezzoZero = ui_->vkTextBoxPrz0->text()};
}

void Form_ArchivioArticoli::Cancella_TextBox() {
  {
    const QScopedValueRollback insieme(copia_, true);
    caselle_->svuota();
    scelta_ = {};
  }
  seguiCampi();
}

void Form_ArchivioArticoli::BloccaComandi(bool bloccati) {
  for (QWidget* tasto : std::initializer_list<QWidget*>{ui_->Cmd_Export, ui_->Cmd_Modifica, ui_->Cmd_Refresh,
                                                        ui_->Cmd_Reset, ui_->vkCommandHELP, ui_->Vmd_Cerca}) {
    tasto->setEnabled(!bloccati);
    tellWhyDisabled(*tasto, QStringLiteral("Attendere: si sta cancellando un articolo"));
  }
}

void Form_ArchivioArticoli::mostraQuanti() {
  const FlexGrid& griglia = *ui_->MSFlexGridArticoli;
  const QString quantiSono =
      quanti(griglia.Rows() - 1, QStringLiteral("articolo"), QStringLiteral("articoli"));
  ui_->BarraEsito->tell(Kind::Plain, griglia.Notice().isEmpty() ? quantiSono : griglia.Notice());
}

void Form_ArchivioArticoli::seguiCampi() {
  if (copia_) return;
  FlexGrid& griglia = *ui_->MSFlexGridArticoli;
  griglia.setRowInFields(elenco::RigaCon(griglia, articles::kColonnaPosizione, scelta_.id));
  const bool prima = std::exchange(daSalvare_, !scelta_.id.isEmpty() && campi() != scelta_);
  if (daSalvare_ == prima) return;
  primario_->moveTo(daSalvare_ ? *ui_->Cmd_Modifica : *ui_->Vmd_Cerca);
  if (!daSalvare_) return mostraQuanti();
  ui_->BarraEsito->tell(Kind::Plain, QString::fromUtf16(kNonSalvate) + articolo(scelta_));
}

void Form_ArchivioArticoli::rifiuta() {
  const auto rifiutati = articles::CampiRifiutati(campi());
  QStringList nomi;
  for (const articles::CampoRifiutato& uno : rifiutati)
    nomi << caselle_->nome(static_cast<std::size_t>(uno.campo));
  caselle_->vai(static_cast<std::size_t>(rifiutati.front().campo));
  ui_->BarraEsito->tell(Kind::Warning,
                        QStringLiteral("Non salvato: correggere ") + nomi.join(QStringLiteral(", ")));
}

void Form_ArchivioArticoli::salvata() {
  scelta_ = campi();
  seguiCampi();
  ui_->BarraEsito->tell(
      Kind::Done,
      QStringLiteral("Salvato: %1, %2").arg(articolo(scelta_), euro(TestoInCent(scelta_.prezzo))));
}

void Form_ArchivioArticoli::modifica() {
  FlexGrid& griglia = *ui_->MSFlexGridArticoli;
  const int riga = griglia.Row();
  const int colonna = griglia.Col();
  const articles::EsitoModifica esito = articles::tasto_modifica(campi(), griglia, contesto());
  if (esito == articles::EsitoModifica::Fermata) return rifiuta();
  griglia.setFocus();
  griglia.setCell(riga, colonna);
  griglia.markRow(riga);
  if (esito == articles::EsitoModifica::Salvata) salvata();
  seguiCampi();
}

void Form_ArchivioArticoli::keyPressEvent(QKeyEvent* evento) {
  const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  // Enter saves without leaving the field, which is checked as if it were left.
  if (invio && daSalvare_ && !GuardedField::settled(*this)) return;
  Schermo::keyPressEvent(evento);
}

void Form_ArchivioArticoli::on_MSFlexGridArticoli_cellClicked(int riga) {
  esegui(
      "MSFlexGridArticoli_Click",
      [&] {
        const QString perse = daSalvare_ ? articolo(scelta_) : QString();
        {
          const QScopedValueRollback insieme(copia_, true);
          caselle_->copia(*ui_->MSFlexGridArticoli, riga);
          scelta_ = campi();
        }
        ui_->MSFlexGridArticoli->markRow(riga);
        seguiCampi();
        if (!perse.isEmpty())
          ui_->BarraEsito->tell(Kind::Warning,
                                QStringLiteral("Modifiche non salvate e sostituite: ") + perse);
      },
      Piede::Resta);
}

void Form_ArchivioArticoli::on_Vmd_Cerca_clicked() {
  esegui("Vmd_Cerca_Click", [this] {
    const auto esito =
        articles::RiempiRicerca(*ui_->MSFlexGridArticoli, articles::IstruzioneRicerca(campi()), contesto());
    seguiCampi();
    if (esito.intero) mostraQuanti();
  });
}

void Form_ArchivioArticoli::on_Cmd_Modifica_clicked() {
  esegui("tasto_modifica", [this] { modifica(); });
}

void Form_ArchivioArticoli::on_Cmd_Reset_clicked() {
  esegui("Cmd_Reset_Click", [this] {
    const QString perse = daSalvare_ ? articolo(scelta_) : QString();
    Cancella_TextBox();
    ui_->vkTextBoxCodEan->setFocus();
    if (perse.isEmpty()) return mostraQuanti();
    ui_->BarraEsito->tell(Kind::Warning, QStringLiteral("Modifiche non salvate e cancellate: ") + perse);
  });
}

void Form_ArchivioArticoli::on_Cmd_Refresh_clicked() {
  esegui("Cmd_Refresh_Click", [this] {
    articles::Tasto_Refresh(*ui_->MSFlexGridArticoli, contesto());
    seguiCampi();
    mostraQuanti();
  });
}

void Form_ArchivioArticoli::on_Cmd_Export_clicked() {
  esegui("Cmd_Export_Click", [this] {
    elenco::Esporta(QStringLiteral("Export Articoli"), *ui_->MSFlexGridArticoli, articles::ColonneArticoli(),
                    {.numerata = true, .chiusa = true}, contesto(), *ui_->BarraEsito);
  });
}

void Form_ArchivioArticoli::on_vkCommandHELP_clicked() {
  esegui(
      "vkCommandHELP_Click", [this] { articles::MostraCodiceEAN(contesto()); }, Piede::Resta);
}

void Form_ArchivioArticoli::on_Cmd_Esci_clicked() {
  esegui("Cmd_Esci_Click", [this] {
    // The workspace of the configuration opens it as well, and goes on behind it.
    if (contesto().schermate.trova(QStringLiteral("MDIForm_PRG")))
      contesto().schermate.scarica(objectName());
    else
      torna(*this, QStringLiteral("Form_GestioneMMC"), contesto());
  });
}
