#include "articles/Form_ArchivioArticoli.h"

#include <QLineEdit>
#include <QScopeGuard>
#include <algorithm>
#include <array>

#include "articles/archive_save.h"
#include "articles/archive_search.h"
#include "articles/article_database.h"
#include "articles/csv_export.h"
#include "articles/guarded_field.h"
#include "articles/wait_pointer.h"
#include "controls/FlexGrid.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/paths.h"
#include "core/reactions.h"
#include "core/screens.h"
#include "core/state.h"
#include "platform/store/store.h"
#include "platform/ui/user_port.h"
#include "ui_Form_ArchivioArticoli.h"

namespace {

constexpr auto kModulo = "Form_ArchivioArticoli";
constexpr auto kAttesa = "Form_ATTESA";
constexpr auto kFileAiuto = "/Help_CodiceEAN.rtf";

constexpr int kTestata = 0;
constexpr int kAltezzaTestata = 600;  // twips
/// The columns whose heading is blue: what an article is, before what the till may do with it.
constexpr int kTestateBlu = articles::kColonnaVarPrezzo;

const QColor kBlu(0, 0, 255);
const QColor kArancio(255, 128, 0);
const QColor kBianco(255, 255, 255);
const QColor kGialloChiaro(255, 255, 224);

/// The wait box over a long filling; gone with its scope, however that ends.
auto attesa(Contesto& contesto) {
  const QString nome = QLatin1String(kAttesa);
  if (contesto.schermate.registrata(nome)) contesto.schermate.mostra(nome, contesto);
  return qScopeGuard([&contesto, nome] { contesto.schermate.scarica(nome); });
}

/// The grid painted once, when the scope ends.
auto senzaRidipingere(FlexGrid& griglia) {
  griglia.setRedraw(false);
  return qScopeGuard([&griglia] { griglia.setRedraw(true); });
}

/// What can be typed into the field of each column, in characters; the first takes no typing.
constexpr int kSenzaLimite = 32767;
constexpr std::array<int, articles::kColonneArticoli> kLunghezze{kSenzaLimite, 13, 13, 30, 8, 2, 1, 1};

}  // namespace

/// What every slot is entered through: nothing leaves it, and a new command begins.
template <typename Corpo>
void Form_ArchivioArticoli::comando(const char* nome, Corpo&& corpo) {
  reazioni::protetta(contesto_.utente, QLatin1String(nome), QLatin1String(kModulo), [&] {
    contesto_.area.NewCommand();
    corpo();
  });
}

Form_ArchivioArticoli::Form_ArchivioArticoli(Contesto& contesto)
    : contesto_(contesto), ui_(std::make_unique<Ui::Form_ArchivioArticoli>()) {
  ui_->setupUi(this);
  Cancella_TextBox();
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  vesti();
  sorveglia(*ui_->vkTextBoxPrezzo, articles::accettaPrezzo, articles::controllaPrezzo);
  sorveglia(*ui_->vkTextBoxRep, articles::accettaReparto, articles::controllaReparto);
  sorveglia(*ui_->vkTextBoxVarPrz, articles::accettaSiNo);
  sorveglia(*ui_->vkTextBoxPrz0, articles::accettaSiNo);
  connect(ui_->MSFlexGridArticoli, &FlexGrid::cellClicked, this, [this](int riga) { scegliRiga(riga); });
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

void Form_ArchivioArticoli::sorveglia(QLineEdit& campo, articles::FiltroTasto filtro,
                                      std::optional<articles::Rifiuto> (*controllo)(const QString&)) {
  new articles::CampoSorvegliato(campo, filtro, controllo, [this](const QString& messaggio) {
    reazioni::protetta(contesto_.utente, QStringLiteral("LostFocus"), QLatin1String(kModulo),
                       [&] { contesto_.utente.MsgBox(messaggio, Icon::Critical); });
  });
}

void Form_ArchivioArticoli::apri() {
  const auto riquadro = attesa(contesto_);
  setWindowTitle(QStringLiteral(" PLU/ARTICOLI - ") + PercorsoNativo(varGlobal().NomeDB_Articoli));
  const articles::PuntatoreAttesa puntatore;
  varGlobal().FlagAnomalia = kFalso;
  Tasto_Refresh();
  varGlobal().FlagVariazioni = articles::CheckTabVarie(contesto_.utente) == kVero ? 1 : 0;
}

void Form_ArchivioArticoli::GestGridCentral() {
  FlexGrid& griglia = *ui_->MSFlexGridArticoli;
  griglia.setCols(articles::kColonneArticoli);
  griglia.setHeadingHeight(kAltezzaTestata);
  griglia.setBackColor(kGialloChiaro);
  griglia.setFullWidth(true);
  int numero = 0;
  for (const articles::ColonnaGriglia& colonna : articles::ColonneArticoli()) {
    griglia.setTextMatrix(kTestata, numero, colonna.testata);
    griglia.setColWidth(numero, colonna.twip);
    griglia.setColAlignment(numero, colonna.allineamento);
    if (numero < kTestateBlu) griglia.setCellForeColor(kTestata, numero, kBlu);
    ++numero;
  }
}

articles::GrigliaArticoli Form_ArchivioArticoli::destinazione(bool colorata) {
  return {.dimensiona =
              [this](int articoli) {
                // What was there goes with its colours and its current cell.
                ui_->MSFlexGridArticoli->setRows(kTestata + 1);
                // Of an empty set one empty row is left.
                ui_->MSFlexGridArticoli->setRows(std::max(articoli, 1) + 1);
              },
          .scrivi = [this, colorata](
                        int riga,
                        const articles::RigaArticolo& articolo) { scriviRiga(riga, articolo, colorata); }};
}

void Form_ArchivioArticoli::scriviRiga(int riga, const articles::RigaArticolo& articolo, bool colorata) {
  FlexGrid& griglia = *ui_->MSFlexGridArticoli;
  int colonna = 0;
  for (const QString& testo : articolo.testi) griglia.setTextMatrix(riga, colonna++, testo);
  if (!colorata) return;
  const QColor& colore = articolo.errata ? kArancio : kBianco;
  for (colonna = articles::kPrimaColorata; colonna <= articles::kUltimaColorata; ++colonna)
    griglia.setCellBackColor(riga, colonna, colore);
}

void Form_ArchivioArticoli::Tasto_Refresh() {
  const auto ferma = senzaRidipingere(*ui_->MSFlexGridArticoli);
  GestGridCentral();
  articles::RiempiGridCentral(destinazione(true), contesto_.utente);
}

void Form_ArchivioArticoli::cerca() {
  const auto ferma = senzaRidipingere(*ui_->MSFlexGridArticoli);
  articles::RiempiRicerca(articles::IstruzioneRicerca(campi()), destinazione(false), contesto_.utente);
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

std::array<QLineEdit*, articles::kColonneArticoli> Form_ArchivioArticoli::caselle() const {
  return {ui_->vkTextBoxPLUid,  ui_->vkTextBoxCodEan, ui_->vkTextBoxCodArt, ui_->vkTextBoxDesc,
          ui_->vkTextBoxPrezzo, ui_->vkTextBoxRep,    ui_->vkTextBoxVarPrz, ui_->vkTextBoxPrz0};
}

void Form_ArchivioArticoli::scriviCasella(int colonna, const QString& testo) {
  const auto indice = static_cast<std::size_t>(colonna);
  QLineEdit& casella = *caselle().at(indice);
  // A value of the archive may be longer than what can be typed: cut here, it would be saved short.
  casella.setMaxLength(std::max(kLunghezze.at(indice), static_cast<int>(testo.size())));
  casella.setText(testo);
  casella.setCursorPosition(0);
}

void Form_ArchivioArticoli::scegliRiga(int riga) {
  comando("MSFlexGridArticoli_Click", [&] {
    FlexGrid& griglia = *ui_->MSFlexGridArticoli;
    for (int colonna = 0; colonna < articles::kColonneArticoli; ++colonna)
      scriviCasella(colonna, griglia.TextMatrix(riga, colonna));
    griglia.markRow(riga);
  });
}

void Form_ArchivioArticoli::Cancella_TextBox() {
  for (int colonna = 0; colonna < articles::kColonneArticoli; ++colonna) scriviCasella(colonna, {});
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
  const auto esito = articles::tasto_modifica(campi(), contesto_, [this] { Tasto_Refresh(); });
  if (esito == articles::EsitoModifica::Fermata) return;
  griglia.setFocus();
  griglia.setCell(riga, colonna);
  griglia.markRow(riga);
}

void Form_ArchivioArticoli::esporta() {
  const FlexGrid& griglia = *ui_->MSFlexGridArticoli;
  articles::EsportaArticoli(
      {griglia.Rows() - 1, [&](int riga, int colonna) { return griglia.TextMatrix(riga, colonna); }},
      contesto_);
}

void Form_ArchivioArticoli::aiuto() {
  if (!FileEsiste(contesto_.cartella + QLatin1String(kFileAiuto))) {
    contesto_.utente.MsgBox(QStringLiteral("Attenzione il file di Help per Codice EAN non presente"),
                            Icon::Critical);
    return;
  }
  contesto_.schermate.mostraModale(QStringLiteral("Form_Help_CodiceEAN"), contesto_);
}

void Form_ArchivioArticoli::on_Vmd_Cerca_clicked() {
  comando("Vmd_Cerca_Click", [this] { cerca(); });
}

void Form_ArchivioArticoli::on_Cmd_Modifica_clicked() {
  comando("tasto_modifica", [this] { modifica(); });
}

void Form_ArchivioArticoli::on_Cmd_Reset_clicked() {
  comando("Cmd_Reset_Click", [this] {
    Cancella_TextBox();
    ui_->vkTextBoxCodEan->setFocus();
  });
}

void Form_ArchivioArticoli::on_Cmd_Refresh_clicked() {
  comando("Cmd_Refresh_Click", [this] { Tasto_Refresh(); });
}

void Form_ArchivioArticoli::on_Cmd_Export_clicked() {
  comando("Cmd_Export_Click", [this] { esporta(); });
}

void Form_ArchivioArticoli::on_vkCommandHELP_clicked() {
  comando("vkCommandHELP_Click", [this] { aiuto(); });
}

void Form_ArchivioArticoli::on_Cmd_Esci_clicked() {
  comando("Cmd_Esci_Click", [this] {
    Contesto& contesto = contesto_;
    contesto.schermate.scarica(objectName());
    const QString lavoro = QStringLiteral("Form_GestioneMMC");
    if (contesto.schermate.registrata(lavoro)) contesto.schermate.mostra(lavoro, contesto);
  });
}

void registraArchivioArticoli(Schermate& schermate) {
  schermate.registra(QStringLiteral("Form_ArchivioArticoli"),
                     [](Contesto& contesto) { return new Form_ArchivioArticoli(contesto); });
}
