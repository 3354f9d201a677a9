#include "customers/Form_AnagraficaClienti.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPushButton>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QShortcut>
#include <utility>

#include "controls/FlexGrid.h"
#include "controls/command_key.h"
#include "controls/disabled_reason.h"
#include "controls/field_hint.h"
#include "controls/guarded_field.h"
#include "controls/primary_command.h"
#include "controls/sample_width.h"
#include "controls/style.h"
#include "core/archive_file.h"
#include "core/key_filters.h"
#include "core/list_screen.h"
#include "core/screens.h"
#include "core/state.h"
#include "core/table_text.h"
#include "core/wait_box.h"
#include "customers/customer_database.h"
#include "customers/customer_state.h"
#include "customers/registry_list.h"
#include "customers/vat_number.h"
#include "platform/text/windows1252.h"
#include "ui_Form_AnagraficaClienti.h"

using namespace customers;

namespace {

using Kind = OutcomeBar::Kind;

constexpr int kTastoMemorizza = 0;
constexpr int kTastoModifica = 1;
constexpr int kTutti = 2;

/// How the foot calls a customer.
QString cliente(const QString& codice, const QString& nome) {
  return QStringLiteral("%1 %2").arg(codice, windows1252::toUpper(nome)).trimmed();
}

/// Whether the person has gone to another place of the screen; the program's own moves and other windows are
/// no leaving.
bool lasciatoDallaPersona(Qt::FocusReason motivo) {
  return motivo == Qt::MouseFocusReason || motivo == Qt::TabFocusReason || motivo == Qt::BacktabFocusReason ||
         motivo == Qt::ShortcutFocusReason;
}

/// The line under a field that its guard has.
void suggerisci(const QLineEdit& campo, const QString& avviso) {
  campo.findChild<FieldHint*>({}, Qt::FindDirectChildrenOnly)->tell(avviso);
}

/// A box that was shown between the press and the release of a button has taken the release: the click that
/// the person gave is given now.
void completaClic() {
  auto* const tasto = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
  if (!tasto || !tasto->isDown() || QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) return;
  tasto->setDown(false);
  tasto->click();
}

}  // namespace

Form_AnagraficaClienti::Form_AnagraficaClienti(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_AnagraficaClienti>()) {
  ui_->setupUi(this);
  caselle_ = std::make_unique<elenco::Caselle>(*this, ColonneClienti());
  elenco::PreparaSchermo(*this, {ui_->Cmd_Reset, ui_->Cmd_Refresh, ui_->Cmd_Export, ui_->Cmd_Esci});
  vesti();
  preparaTasti();
  sorvegliaCampi();
  cancellaCampi();
  // The fields of a customer who is there: a new one is stored after "Nuovo" only.
  DisabilitaTasti(kTastoMemorizza);
  const PiedeComando racconto(*this, contesto, Piede::Nuovo);
  apri();
  ui_->vkTextBoxRagioneSociale->setFocus();
}

Form_AnagraficaClienti::~Form_AnagraficaClienti() {
  // The field that has the focus loses it while the window goes, and nothing is left then to count.
  disconnect(qApp, nullptr, this, nullptr);
}

void Form_AnagraficaClienti::vesti() {
  ui_->LabelArchivio->setText(archivio::Etichetta(varGlobal().NomeDB_Clienti));
  primario_ = std::make_unique<PrimaryCommand>(
      std::vector<PrimaryCommand::Candidate>{{ui_->Vmd_Cerca, QStringLiteral("search")},
                                             {ui_->vkCmd_Memorizza_Cliente, QStringLiteral("save")},
                                             {ui_->Cmd_Modifica, QStringLiteral("save")}});
  ui_->vkCmd_Memorizza_Cliente->setIcon(style::icon(QStringLiteral("save")));
  ui_->Cmd_Modifica->setIcon(style::icon(QStringLiteral("save")));
  ui_->Cmd_nuovo->setIcon(style::icon(QStringLiteral("file-plus")));
  ui_->Cmd_Elimina->setIcon(style::icon(QStringLiteral("trash-2")));
  ui_->vkCommand1->setIcon(style::icon(QStringLiteral("receipt-text")));
  widthFromSample(*ui_->vkTextBoxClientiPC, QStringLiteral("-00000"), FieldWidth::Exact);
  widthFromSample(*ui_->vkTextBoxPartitaIVA, QStringLiteral("00000000000"), FieldWidth::AtLeast);
  for (QLineEdit* campo : {ui_->vkTextboxIndirizzo, ui_->vkTextBoxCitta, ui_->vkTextboxNOTE})
    widthFromSample(*campo, QStringLiteral("VIA GARIBALDI 12"), FieldWidth::AtLeast);
}

void Form_AnagraficaClienti::preparaTasti() {
  fieldKey(*ui_->vkTextBoxRagioneSociale, QKeySequence::Find);
  auto* const salva = new QShortcut(QKeySequence::Save, this);
  salva->setAutoRepeat(false);
  connect(salva, &QShortcut::activated, this, [this] {
    if (QPushButton* const comando = salvataggio()) comando->click();
  });
  tellWhyDisabled(*ui_->vkCmd_Memorizza_Cliente, QStringLiteral("Prima «Nuovo», poi si memorizza"));
  tellWhyDisabled(*ui_->Cmd_Modifica, QStringLiteral("«Visualizza Tutti» (F5) riattiva le modifiche"));
}

void Form_AnagraficaClienti::sorvegliaCampi() {
  new GuardedField(*ui_->vkTextBoxIdCliente, Cifre);
  new GuardedField(*ui_->vkTextBoxPartitaIVA, Cifre);
  for (QLineEdit* campo :
       {ui_->vkTextBoxRagioneSociale, ui_->vkTextboxIndirizzo, ui_->vkTextBoxCitta, ui_->vkTextboxNOTE}) {
    new GuardedField(*campo);
    connect(campo, &QLineEdit::textChanged, this, [this, campo](const QString& testo) {
      if (!copia_ && ApostrofoSolo(testo))
        suggerisci(*campo, QStringLiteral("Un apostrofo si scrive doppio: ''"));
    });
  }
  for (QLineEdit* campo : {ui_->vkTextBoxIdCliente, ui_->vkTextBoxRagioneSociale, ui_->vkTextboxIndirizzo,
                           ui_->vkTextBoxCitta, ui_->vkTextBoxPartitaIVA, ui_->vkTextboxNOTE})
    connect(campo, &QLineEdit::textChanged, this, &Form_AnagraficaClienti::seguiCampi);
  connect(ui_->vkTextBoxIdCliente, &QLineEdit::textChanged, this, &Form_AnagraficaClienti::codiceCambiato);
  connect(ui_->vkTextBoxPartitaIVA, &QLineEdit::textChanged, this,
          &Form_AnagraficaClienti::partitaIVACambiata);
  ui_->vkTextBoxPartitaIVA->installEventFilter(this);
  ui_->MSFlexGridClienti->viewport()->installEventFilter(this);

  contaCampo(*ui_->vkTextBoxRagioneSociale, *ui_->Conta_vkTextBoxRagioneSociale, kClienteRagioneSociale);
  contaCampo(*ui_->vkTextboxIndirizzo, *ui_->Conta_vkTextboxIndirizzo, kClienteIndirizzo);
  contaCampo(*ui_->vkTextBoxCitta, *ui_->Conta_vkTextBoxCitta, kClienteCitta);
  contaCampo(*ui_->vkTextBoxPartitaIVA, *ui_->Conta_vkTextBoxPartitaIVA, kClientePartitaIVA);
  contaCampo(*ui_->vkTextboxNOTE, *ui_->Conta_vkTextboxNOTE, kClienteNota);
  connect(qApp, &QApplication::focusChanged, this, &Form_AnagraficaClienti::contaCampi);
}

void Form_AnagraficaClienti::contaCampo(QLineEdit& campo, QLabel& etichetta, ColonnaCliente colonna) {
  conteggi_.push_back({&campo, &etichetta, ColonneClienti()[static_cast<std::size_t>(colonna)].lunghezza});
}

void Form_AnagraficaClienti::apri() {
  Attesa attesa(contesto());
  varGlobal().FlagAnomalia = kFalso;
  CheckCampiClienti(*ui_->MSFlexGridClienti, contesto(), &attesa);
  mostraQuanti();
}

CampiCliente Form_AnagraficaClienti::campi() const {
  return {.codice = ui_->vkTextBoxIdCliente->text(),
          .stato = ui_->vkTextBoxStato->text(),
          .ragioneSociale = ui_->vkTextBoxRagioneSociale->text(),
          .indirizzo = ui_->vkTextboxIndirizzo->text(),
          .citta = ui_->vkTextBoxCitta->text(),
          .partitaIVA = ui_->vkTextBoxPartitaIVA->text(),
          .nota = ui_->vkTextboxNOTE->text()};
}

void Form_AnagraficaClienti::AbilitaTasti(int quali) {
  if (quali != kTastoModifica) ui_->vkCmd_Memorizza_Cliente->setEnabled(true);
  if (quali != kTastoMemorizza) ui_->Cmd_Modifica->setEnabled(true);
  seguiPrimario();
}

void Form_AnagraficaClienti::DisabilitaTasti(int quali) {
  if (quali != kTastoModifica) ui_->vkCmd_Memorizza_Cliente->setEnabled(false);
  if (quali != kTastoMemorizza) ui_->Cmd_Modifica->setEnabled(false);
  seguiPrimario();
}

// Fields and list.

void Form_AnagraficaClienti::cancellaCampi() {
  {
    const QScopedValueRollback insieme(copia_, true);
    caselle_->svuota();
    scelta_ = {};
    nuovo_ = false;
  }
  seguiCampi();
}

void Form_AnagraficaClienti::copiaRiga(int riga) {
  FlexGrid& griglia = *ui_->MSFlexGridClienti;
  {
    const QScopedValueRollback insieme(copia_, true);
    caselle_->copia(griglia, riga);
    scelta_ = campi();
    nuovo_ = false;
  }
  griglia.setCell(riga, kClienteCodice);
  griglia.markRow(riga);
  seguiCampi();
}

void Form_AnagraficaClienti::rinfrescaCampi(const QString& codice) {
  const int riga = elenco::RigaCon(*ui_->MSFlexGridClienti, kClienteCodice, codice);
  if (riga == 0) return cancellaCampi();
  copiaRiga(riga);
}

void Form_AnagraficaClienti::rifaiElenco() {
  CheckCampiClienti(*ui_->MSFlexGridClienti, contesto());
  mostraQuanti();
  seguiCampi();
}

void Form_AnagraficaClienti::mostraQuanti() {
  const std::int32_t clienti = CalcolaNumClienti(contesto().utente);
  ui_->vkTextBoxClientiPC->setText(QuantiClientiAVideo(clienti));
  if (clienti < 0)
    return ui_->BarraEsito->tell(Kind::Failed, QStringLiteral("L'archivio ha perso il cliente anonimo"));
  raccontaElenco();
}

void Form_AnagraficaClienti::raccontaElenco() {
  ui_->BarraEsito->tell(Kind::Plain, RaccontoClienti(*ui_->MSFlexGridClienti));
}

// What follows the typing.

void Form_AnagraficaClienti::seguiCampi() {
  contaCampi();
  if (copia_) return;
  FlexGrid& griglia = *ui_->MSFlexGridClienti;
  const bool diUnaRiga = !nuovo_ && !scelta_.codice.isEmpty();
  griglia.setRowInFields(diUnaRiga ? elenco::RigaCon(griglia, kClienteCodice, scelta_.codice) : 0);
  const bool prima = std::exchange(daSalvare_, (nuovo_ || diUnaRiga) && campi() != scelta_);
  seguiPrimario();
  if (daSalvare_ == prima) return;
  if (!daSalvare_) return raccontaElenco();
  ui_->BarraEsito->tell(Kind::Plain, QString::fromUtf16(kNonSalvate) + scelto());
}

void Form_AnagraficaClienti::contaCampi() {
  for (const Conteggio& uno : conteggi_) {
    // However many digits it has, nothing moves beside it.
    uno.etichetta->setMinimumWidth(
        uno.etichetta->fontMetrics().horizontalAdvance(QStringLiteral("%1/%1").arg(uno.limite)));
    uno.etichetta->setText(uno.campo->hasFocus()
                               ? QStringLiteral("%1/%2").arg(uno.campo->text().size()).arg(uno.limite)
                               : QString());
  }
}

void Form_AnagraficaClienti::seguiPrimario() {
  const QPushButton* const salva = nuovo_ || daSalvare_ ? salvataggio() : nullptr;
  primario_->moveTo(salva ? *salva : *ui_->Vmd_Cerca);
}

QPushButton* Form_AnagraficaClienti::salvataggio() const {
  const bool diUnaRiga = !nuovo_ && !scelta_.codice.isEmpty();
  QPushButton* const primo = diUnaRiga ? ui_->Cmd_Modifica : ui_->vkCmd_Memorizza_Cliente;
  QPushButton* const altro = diUnaRiga ? ui_->vkCmd_Memorizza_Cliente : ui_->Cmd_Modifica;
  if (primo->isEnabled()) return primo;
  return altro->isEnabled() ? altro : nullptr;
}

QString Form_AnagraficaClienti::scelto() const {
  return nuovo_ ? QStringLiteral("nuovo cliente ") + scelta_.codice
                : cliente(scelta_.codice, scelta_.ragioneSociale);
}

void Form_AnagraficaClienti::avvisa(const char* procedura, const QString& messaggio, Icon icona) {
  reazioni::protetta(contesto().utente, QLatin1String(procedura), objectName(), [&] {
    contesto().utente.MsgBox(messaggio, icona);
    ui_->BarraEsito->tell(icona == Icon::Critical ? Kind::Failed : Kind::Warning, messaggio);
  });
}

void Form_AnagraficaClienti::codiceCambiato() {
  const QString ora = ui_->vkTextBoxIdCliente->text();
  if (std::exchange(codice_, ora) == ora || copia_) return;
  const auto messaggio = ControllaCodiceCliente(ora);
  if (!messaggio) return;
  {
    const QScopedValueRollback dalProgramma(copia_, true);
    ui_->vkTextBoxIdCliente->clear();
  }
  seguiCampi();
  avvisa("vkTextBoxIdCliente_Change", *messaggio, Icon::Critical);
}

void Form_AnagraficaClienti::partitaIVACambiata() {
  const QString testo = ui_->vkTextBoxPartitaIVA->text();
  if (const auto messaggio = ControllaVirgole(testo))
    return avvisa("vkTextBoxPartitaIVA_Change", *messaggio, Icon::Warning);
  if (!copia_ && testo.size() == kCifrePartitaIVA && CheckPartitaIVA(testo) != 0)
    suggerisci(*ui_->vkTextBoxPartitaIVA, QStringLiteral("Partita IVA non corretta: verificare le cifre"));
}

void Form_AnagraficaClienti::partitaIVALasciata(const QFocusEvent& evento) {
  const QString testo = ui_->vkTextBoxPartitaIVA->text();
  if (!lasciatoDallaPersona(evento.reason()) || !ui_->vkTextBoxPartitaIVA->isVisible() || testo.isEmpty())
    return;
  const auto rifiuto = ControllaPartitaIVA(testo);
  if (!rifiuto) return;
  avvisa("vkTextBoxPartitaIVA_LostFocus", rifiuto->messaggio, rifiuto->icona);
  QMetaObject::invokeMethod(qApp, completaClic, Qt::QueuedConnection);
}

bool Form_AnagraficaClienti::eventFilter(QObject* chi, QEvent* evento) {
  if (evento->type() == QEvent::FocusOut && chi == ui_->vkTextBoxPartitaIVA)
    partitaIVALasciata(*static_cast<const QFocusEvent*>(evento));
  if (evento->type() == QEvent::Resize && chi == ui_->MSFlexGridClienti->viewport())
    AllargaTesti(*ui_->MSFlexGridClienti);
  return Schermo::eventFilter(chi, evento);
}

// Commands.

bool Form_AnagraficaClienti::diciPerse(const QString& perse, const char16_t* come) {
  if (perse.isEmpty()) return false;
  ui_->BarraEsito->tell(Kind::Warning,
                        QStringLiteral("Modifiche non salvate e %1: %2").arg(testo(come), perse));
  return true;
}

void Form_AnagraficaClienti::rifiutato(const EsitoCliente& esito) {
  if (esito.anonimo) cancellaCampi();
  if (esito.campo) caselle_->vai(static_cast<std::size_t>(*esito.campo));
}

void Form_AnagraficaClienti::nuovo() {
  const QString perse = daSalvare_ ? scelto() : QString();
  cancellaCampi();
  const std::int32_t codice = ProssimoCodice();
  nuovo_ = true;
  // Behind the last place of the till's table the field refuses it and says so.
  ui_->vkTextBoxIdCliente->setText(QString::number(codice));
  scelta_ = campi();
  seguiCampi();
  AbilitaTasti(kTastoMemorizza);
  DisabilitaTasti(kTastoModifica);
  ui_->vkTextBoxRagioneSociale->setFocus();
  if (scelta_.codice.isEmpty())
    return ui_->BarraEsito->tell(
        Kind::Warning, QStringLiteral("Dopo il codice più alto non c'è posto: scrivere un codice libero"));
  if (diciPerse(perse, u"sostituite")) return;
  ui_->BarraEsito->tell(Kind::Plain,
                        QStringLiteral("Nuovo cliente %1: riempire i campi e memorizzare").arg(codice));
}

void Form_AnagraficaClienti::memorizza() {
  CampiCliente scritti = campi();
  const EsitoCliente esito = MemorizzaCliente(scritti, contesto());
  ui_->vkTextBoxStato->setText(scritti.stato);
  if (esito.esito != EsitoRegistro::Fatto) return rifiutato(esito);
  cancellaCampi();
  rifaiElenco();
  DisabilitaTasti(kTastoMemorizza);
  ui_->Cmd_nuovo->setFocus();
  ui_->BarraEsito->tell(Kind::Done,
                        QStringLiteral("Memorizzato: ") + cliente(scritti.codice, scritti.ragioneSociale));
}

void Form_AnagraficaClienti::modifica() {
  const CampiCliente scritti = campi();
  const EsitoCliente esito = ModificaCliente(scritti, contesto());
  if (esito.esito != EsitoRegistro::Fatto) return rifiutato(esito);
  rifaiElenco();
  rinfrescaCampi(scritti.codice);
  ui_->MSFlexGridClienti->setFocus();
  if (esito.righe == 0)
    return ui_->BarraEsito->tell(
        Kind::Warning, QStringLiteral("Non salvato: nessun cliente ha il codice ") + scritti.codice);
  ui_->BarraEsito->tell(Kind::Done,
                        QStringLiteral("Salvato: ") + cliente(scritti.codice, scritti.ragioneSociale));
}

void Form_AnagraficaClienti::elimina() {
  const QString codice = ui_->vkTextBoxIdCliente->text();
  const FlexGrid& griglia = *ui_->MSFlexGridClienti;
  const int riga = elenco::RigaCon(griglia, kClienteCodice, codice);
  const QString chi =
      cliente(codice, riga > 0 ? griglia.TextMatrix(riga, kClienteRagioneSociale) : QString());
  const EsitoCliente esito = EliminaCliente(codice, contesto());
  if (esito.esito == EsitoRegistro::Annullato)
    return ui_->BarraEsito->tell(Kind::Plain, QStringLiteral("Eliminazione annullata: ") + chi);
  if (esito.esito != EsitoRegistro::Fatto) return;
  rifaiElenco();
  rinfrescaCampi(codice);
  ui_->MSFlexGridClienti->setFocus();
  if (esito.righe == 0)
    return ui_->BarraEsito->tell(Kind::Warning,
                                 QStringLiteral("Non eliminato: nessun cliente ha il codice ") + codice);
  ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Eliminato: ") + chi);
}

void Form_AnagraficaClienti::fatture() {
  const FlexGrid& griglia = *ui_->MSFlexGridClienti;
  const int riga = griglia.Row();
  const QString codice = griglia.TextMatrix(riga, kClienteCodice);
  if (riga < 1 || codice.isEmpty())
    return ui_->BarraEsito->tell(Kind::Warning, QStringLiteral("Prima scegliere un cliente nell'elenco"));
  FiltroFatture& filtro = statoClienti().filtro;
  filtro = {true, griglia.TextMatrix(riga, kClientePartitaIVA),
            griglia.TextMatrix(riga, kClienteRagioneSociale), codice};
  const auto spento = qScopeGuard([&] { filtro.acceso = false; });
  contesto().schermate.mostraModale(QStringLiteral("Form_ArchivioFattureClienti"), contesto());
  ui_->BarraEsito->tell(Kind::Plain,
                        QStringLiteral("Viste le fatture di ") + cliente(codice, filtro.ragioneSociale));
}

void Form_AnagraficaClienti::on_Vmd_Cerca_clicked() {
  esegui("Vmd_Cerca_Click", [this] {
    CercaClienti(*ui_->MSFlexGridClienti, campi(), contesto());
    raccontaElenco();
    seguiCampi();
  });
}

void Form_AnagraficaClienti::on_Cmd_Refresh_clicked() {
  esegui("Cmd_Refresh_Click", [this] {
    rifaiElenco();
    AbilitaTasti(kTutti);
  });
}

void Form_AnagraficaClienti::on_Cmd_Reset_clicked() {
  esegui("Cmd_Reset_Click", [this] {
    const QString perse = daSalvare_ ? scelto() : QString();
    cancellaCampi();
    DisabilitaTasti(kTutti);
    ui_->MSFlexGridClienti->setFocus();
    if (!diciPerse(perse, u"cancellate")) raccontaElenco();
  });
}

void Form_AnagraficaClienti::on_Cmd_nuovo_clicked() {
  esegui("Cmd_nuovo_Click", [this] { nuovo(); });
}

void Form_AnagraficaClienti::on_vkCmd_Memorizza_Cliente_clicked() {
  esegui("vkCmd_Memorizza_Cliente_Click", [this] { memorizza(); });
}

void Form_AnagraficaClienti::on_Cmd_Modifica_clicked() {
  esegui("Cmd_Modifica_Click", [this] { modifica(); });
}

void Form_AnagraficaClienti::on_Cmd_Elimina_clicked() {
  esegui("Cmd_Elimina_Click", [this] { elimina(); });
}

void Form_AnagraficaClienti::on_Cmd_Export_clicked() {
  esegui("Cmd_Export_Click", [this] {
    elenco::Esporta(QStringLiteral("Export Clienti"), *ui_->MSFlexGridClienti, ColonneClienti(),
                    kFormaClienti, contesto(), *ui_->BarraEsito);
  });
}

void Form_AnagraficaClienti::on_vkCommand1_clicked() {
  esegui("vkCommand1_Click", [this] { fatture(); });
}

void Form_AnagraficaClienti::on_Cmd_Esci_clicked() {
  esegui("Cmd_Esci_Click", [this] { torna(*this, QStringLiteral("Form_GestioneClienti"), contesto()); });
}

void Form_AnagraficaClienti::on_MSFlexGridClienti_cellClicked(int riga) {
  esegui(
      "MSFlexGridClienti_Click",
      [&] {
        const QString perse = daSalvare_ ? scelto() : QString();
        copiaRiga(riga);
        diciPerse(perse, u"sostituite");
      },
      Piede::Resta);
}
