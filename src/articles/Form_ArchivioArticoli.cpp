#include "articles/Form_ArchivioArticoli.h"

#include "articles/archive_grid.h"
#include "articles/archive_save.h"
#include "articles/archive_search.h"
#include "articles/article_database.h"
#include "controls/style.h"
#include "core/conversions.h"
#include "core/key_filters.h"
#include "core/paths.h"
#include "core/screens.h"
#include "core/state.h"
#include "core/wait_box.h"
#include "platform/ui/user_port.h"
#include "ui_Form_ArchivioArticoli.h"

namespace {
constexpr auto kFileAiuto = "/Help_CodiceEAN.rtf";
}

Form_ArchivioArticoli::Form_ArchivioArticoli(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_ArchivioArticoli>()) {
  ui_->setupUi(this);
  caselle_ = std::make_unique<elenco::Caselle>(*this, articles::ColonneArticoli());
  Cancella_TextBox();
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  vesti();
  sorveglia(*ui_->vkTextBoxPrezzo, accettaImporto, articles::controllaPrezzo);
  sorveglia(*ui_->vkTextBoxRep, accettaCifre, articles::controllaReparto);
  sorveglia(*ui_->vkTextBoxVarPrz, accettaSiNo);
  sorveglia(*ui_->vkTextBoxPrz0, accettaSiNo);
  apri();
  ui_->vkTextBoxCodEan->setFocus();
}

Form_ArchivioArticoli::~Form_ArchivioArticoli() = default;

void Form_ArchivioArticoli::vesti() {
  style::primary(*ui_->Vmd_Cerca, QStringLiteral("search"));
  ui_->Cmd_Modifica->setIcon(style::icon(QStringLiteral("save")));
  ui_->Cmd_Reset->setIcon(style::icon(QStringLiteral("x")));
  ui_->Cmd_Refresh->setIcon(style::icon(QStringLiteral("boxes")));
  ui_->Cmd_Export->setIcon(style::icon(QStringLiteral("download")));
  ui_->vkCommandHELP->setIcon(style::icon(QStringLiteral("circle-help")));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
}

void Form_ArchivioArticoli::sorveglia(QLineEdit& campo, KeyFilter filtro, FieldCheck controllo) {
  new GuardedField(campo, filtro, controllo, [this](const QString& messaggio) {
    reazioni::protetta(contesto().utente, QStringLiteral("LostFocus"), objectName(),
                       [&] { contesto().utente.MsgBox(messaggio, Icon::Critical); });
  });
}

void Form_ArchivioArticoli::apri() {
  Attesa attesa(contesto());
  setWindowTitle(QStringLiteral(" PLU/ARTICOLI - ") + PercorsoNativo(varGlobal().NomeDB_Articoli));
  varGlobal().FlagAnomalia = kFalso;
  articles::Tasto_Refresh(*ui_->MSFlexGridArticoli, contesto(), &attesa);
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
  caselle_->svuota();
}

void Form_ArchivioArticoli::BloccaComandi(bool bloccati) {
  for (QWidget* tasto : std::initializer_list<QWidget*>{ui_->Cmd_Export, ui_->Cmd_Modifica, ui_->Cmd_Refresh,
                                                        ui_->Cmd_Reset, ui_->vkCommandHELP, ui_->Vmd_Cerca})
    tasto->setEnabled(!bloccati);
}

void Form_ArchivioArticoli::modifica() {
  FlexGrid& griglia = *ui_->MSFlexGridArticoli;
  const int riga = griglia.Row();
  const int colonna = griglia.Col();
  if (articles::tasto_modifica(campi(), griglia, contesto()) == articles::EsitoModifica::Fermata) return;
  griglia.setFocus();
  griglia.setCell(riga, colonna);
  griglia.markRow(riga);
}

void Form_ArchivioArticoli::aiuto() {
  if (!FileEsiste(contesto().cartella + QLatin1String(kFileAiuto))) {
    contesto().utente.MsgBox(QStringLiteral("Attenzione il file di Help per Codice EAN non presente"),
                             Icon::Critical);
    return;
  }
  contesto().schermate.mostraModale(QStringLiteral("Form_Help_CodiceEAN"), contesto());
}

void Form_ArchivioArticoli::on_MSFlexGridArticoli_cellClicked(int riga) {
  esegui("MSFlexGridArticoli_Click", [&] {
    caselle_->copia(*ui_->MSFlexGridArticoli, riga);
    ui_->MSFlexGridArticoli->markRow(riga);
  });
}

void Form_ArchivioArticoli::on_Vmd_Cerca_clicked() {
  esegui("Vmd_Cerca_Click", [this] {
    articles::RiempiRicerca(*ui_->MSFlexGridArticoli, articles::IstruzioneRicerca(campi()), contesto());
  });
}

void Form_ArchivioArticoli::on_Cmd_Modifica_clicked() {
  esegui("tasto_modifica", [this] { modifica(); });
}

void Form_ArchivioArticoli::on_Cmd_Reset_clicked() {
  esegui("Cmd_Reset_Click", [this] {
    Cancella_TextBox();
    ui_->vkTextBoxCodEan->setFocus();
  });
}

void Form_ArchivioArticoli::on_Cmd_Refresh_clicked() {
  esegui("Cmd_Refresh_Click", [this] { articles::Tasto_Refresh(*ui_->MSFlexGridArticoli, contesto()); });
}

void Form_ArchivioArticoli::on_Cmd_Export_clicked() {
  esegui("Cmd_Export_Click", [this] {
    elenco::Esporta(QStringLiteral("Export Articoli"), *ui_->MSFlexGridArticoli, articles::ColonneArticoli(),
                    {.numerata = true, .chiusa = true}, contesto());
  });
}

void Form_ArchivioArticoli::on_vkCommandHELP_clicked() {
  esegui("vkCommandHELP_Click", [this] { aiuto(); });
}

void Form_ArchivioArticoli::on_Cmd_Esci_clicked() {
  esegui("Cmd_Esci_Click", [this] { torna(*this, QStringLiteral("Form_GestioneMMC"), contesto()); });
}
