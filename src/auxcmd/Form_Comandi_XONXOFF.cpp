#include "auxcmd/Form_Comandi_XONXOFF.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QSplitter>
#include <algorithm>

#include "auxcmd/Form_ATTESA_MF_DGFE.h"
#include "auxcmd/Form_Help_CodiciErrori.h"
#include "auxcmd/dump_command.h"
#include "auxcmd/script_file.h"
#include "controls/command_key.h"
#include "controls/guarded_field.h"
#include "controls/sample_width.h"
#include "controls/style.h"
#include "controls/wheel_guard.h"
#include "core/conversions.h"
#include "core/date_combos.h"
#include "core/key_filters.h"
#include "core/manual_viewer.h"
#include "core/menu.h"
#include "core/screens.h"
#include "core/state.h"
#include "ecrlink/ecr_info.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "platform/clock.h"
#include "platform/ecrcom/library.h"
#include "platform/text/whole_file.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"
#include "ui_Form_Comandi_XONXOFF.h"

namespace {

using Kind = OutcomeBar::Kind;
using auxcmd::Memoria;

constexpr int kVelocitaPredefinita = 3;
constexpr int kPrimoAnno = 2000;
constexpr int kUltimoAnno = 2099;
constexpr int kNumeroMassimo = 65536;
constexpr int kCifreNumero = 5;
constexpr qsizetype kCifreData = 6;
const QString kSeleziona = QStringLiteral("Seleziona");
const QString kScegliere = QStringLiteral("Selezionare una delle opzioni !!!");
const QString kComandoStato = QStringLiteral("X89F");
/// What the till takes for its whole record: the end lies in 1999 by its form, and tills know it so.
const QString kGlobale = QStringLiteral("000101991201");

// The two lamps.
const QColor kGrigio(0xC0, 0xC0, 0xC0);
const QColor kVerdeLed(0, 0xFF, 0);
const QColor kSpento(0x40, 0x40, 0x40);

/// "COM  7": a blank for a sign, in front of the number.
QString nomePorta(int numero) {
  return QStringLiteral("COM  ") + QString::number(numero);
}

/// A number of a receipt or a zeroing. What is left empty is asked for by the command that needs it.
std::optional<Rejection> fuoriLimite(const QString& testo) {
  if (testo.isEmpty()) return std::nullopt;
  const double numero = Val(testo);
  if (numero >= 1 && numero <= kNumeroMassimo) return std::nullopt;
  return Rejection{QStringLiteral("Attenzione il numero deve essere compreso tra 1 e 65536!!!"), {}};
}

/// "yymmdd" of three lists.
QString aammgg(const ComboData& combi) {
  return DataScelta(combi).right(kCifreData);
}

/// As the date checks want it.
QString ggmmaa(const ComboData& combi) {
  const QString data = aammgg(combi);
  return data.mid(4, 2) + data.mid(2, 2) + data.left(2);
}

}  // namespace

Form_Comandi_XONXOFF::Form_Comandi_XONXOFF(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_Comandi_XONXOFF>()), linea_(contesto.cartella) {
  ui_->setupUi(this);
  vesti();
  carica();
}

Form_Comandi_XONXOFF::~Form_Comandi_XONXOFF() = default;

template <typename Corpo>
void Form_Comandi_XONXOFF::eseguiFinoInFondo(const char* procedura, Corpo&& corpo, Piede piede) {
  const QPointer<Form_Comandi_XONXOFF> qui(this);
  ++comandi_;
  esegui(procedura, std::forward<Corpo>(corpo), piede);
  if (!qui) return;
  --comandi_;
  if (chiusa_ && comandi_ == 0) finisci();
}

void Form_Comandi_XONXOFF::vesti() {
  style::primary(*ui_->Cmd_Avvia, QStringLiteral("download"));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  ui_->mnuManuale->setIcon(style::icon(QStringLiteral("book-open")));
  notByEnter(*ui_->Cmd_Esci);
  ui_->Cmd_Avvia->installEventFilter(this);
  spiegaAvvia();
  connect(ui_->divisione, &QSplitter::splitterMoved, this, [this] { divisaAMano_ = true; });
  ui_->registro->usa(contesto().orologio);
  Form_Comandi_XONXOFF::spegniLed();
  vestiNumeri();
  seguiLinea();
}

/// A disabled command tells why.
void Form_Comandi_XONXOFF::spiegaAvvia() {
  ui_->Cmd_Avvia->setToolTip(ui_->Cmd_Avvia->isEnabled()
                                 ? QStringLiteral("Chiede i dati alla cassa (F9)")
                                 : QStringLiteral("Prima collegarsi alla cassa o scegliere una porta"));
}

void Form_Comandi_XONXOFF::vestiNumeri() {
  for (QLineEdit* numero : {ui_->vkTextBoxNum1, ui_->vkTextBoxNum2}) {
    numero->setMaxLength(kCifreNumero);
    widthFromSample(*numero, QStringLiteral("0000000"), FieldWidth::Exact);
    new GuardedField(*numero, Cifre, fuoriLimite, [this](const QString& messaggio) {
      this->contesto().utente.MsgBox(messaggio, Icon::Warning);
      ui_->BarraEsito->tell(Kind::Warning, messaggio);
    });
  }
}

void Form_Comandi_XONXOFF::seguiLinea() {
  linea_.suDati([this](const QByteArray& byte) {
    reazioni::oppure(
        [&] {
          auxcmd::DatiRicevuti(*this, byte);
          // A dump that came after nobody waited for it any more.
          const FunzioniCmdXonXoff& funzioni = funzioniCmdXonXoff();
          if (!inCorso_ && funzioni.FlagDump != 0 && funzioni.ContaFine == auxcmd::kFineDump) diciLetto();
        },
        [&](const Errore& errore) {
          // The wait must end before the box comes up: nobody could answer it behind that.
          varGlobal().FlagRisposta = auxcmd::kErrorePorta;
          guastoDellaPorta(errore);
        });
  });
  linea_.suErrore([this] {
    varGlobal().FlagRisposta = auxcmd::kErrorePorta;
    togliAttesa();
    annota(auxcmd::Verso::Guasto, QByteArrayLiteral("linea interrotta"));
  });
  linea_.allaScadenza([] { varGlobal().FlagRisposta = auxcmd::kTempoScaduto; });
}

void Form_Comandi_XONXOFF::carica() {
  CommonForKora& comune = commonForKora();
  comune.IP_ECR.clear();
  comune.hConnXonXoff = 0;
  funzioniCmdXonXoff() = {};
  ui_->pannello->accoppia(*ui_->Cmd_Avvia, *ui_->Cmd_Esci, ui_->BarraEsito);
  riempiPorte();
  ui_->Cmd_Avvia->setEnabled(false);
  riempiDate();
  seguiScelte();
  ecrlink::InitRete(*ui_->pannello, contesto());
  ui_->pannello->setFocus();
}

void Form_Comandi_XONXOFF::riempiPorte() {
  ui_->cboPort->addItem(kSeleziona);
  for (const int numero : serial::presentPorts(contesto().cartella)) ui_->cboPort->addItem(nomePorta(numero));
  ui_->Combo2->addItems({QStringLiteral("1200"), QStringLiteral("2400"), QStringLiteral("4800"),
                         QStringLiteral("9600"), QStringLiteral("19200")});
  ui_->Combo2->setCurrentIndex(kVelocitaPredefinita);
  for (QComboBox* lista : {ui_->cboPort, ui_->Combo2}) wheelNeedsFocus(*lista);
  connect(ui_->cboPort, &QComboBox::currentIndexChanged, this, &Form_Comandi_XONXOFF::portaScelta);
}

void Form_Comandi_XONXOFF::riempiDate() {
  const ComboData fine = combiData(*this, DataDiSchermo::Fine);
  for (const DataDiSchermo quale : {DataDiSchermo::Inizio, DataDiSchermo::Fine, DataDiSchermo::Scontrino})
    RiempiComboData(combiData(*this, quale), kPrimoAnno, kUltimoAnno);
  for (const DataDiSchermo quale : {DataDiSchermo::Inizio, DataDiSchermo::Fine, DataDiSchermo::Scontrino})
    SelezionaOggi(combiData(*this, quale), *fine.anno, contesto().orologio);
}

void Form_Comandi_XONXOFF::seguiScelte() {
  for (QRadioButton* scelta : {ui_->vkOptionButton_RX_STATO_ECR, ui_->vkOptionButton_Rx_PRG,
                               ui_->vkOptionButton_DGFE, ui_->vkOptionButton_MF, ui_->vkOptionButtonGlobale,
                               ui_->vkOptionButtonPerDate, ui_->vkOptionButtonPerScontrini})
    connect(scelta, &QRadioButton::toggled, this, [this](bool presa) {
      if (presa) abilitaScelte();
    });
  seguiProve();
  connect(ui_->pannello, &PannelloECR::connetti, this, &Form_Comandi_XONXOFF::connetti);
  abilitaScelte();
}

void Form_Comandi_XONXOFF::abilitaScelte() {
  if (ui_->vkOptionButton_RX_STATO_ECR->isChecked()) DisabilitaInfoRxPrg();
  if (ui_->vkOptionButton_Rx_PRG->isChecked()) AbilitaInfoRxPrg();
  const bool memorie = ui_->vkOptionButton_Rx_PRG->isChecked();
  const bool numeri = memorie && ui_->vkOptionButtonPerScontrini->isChecked();
  AbilitaComboDate(*this, memorie && ui_->vkOptionButtonPerDate->isChecked());
  for (QWidget* uno : std::initializer_list<QWidget*>{ui_->vkTextBoxNum1, ui_->vkTextBoxNum2,
                                                      ui_->Label_vkTextBoxNum1, ui_->Label_vkTextBoxNum2})
    uno->setEnabled(numeri);
  SetDataScontrino();
}

void Form_Comandi_XONXOFF::DisabilitaInfoRxPrg() {
  abilitaFontiERicerche(false);
}

void Form_Comandi_XONXOFF::AbilitaInfoRxPrg() {
  abilitaFontiERicerche(true);
}

void Form_Comandi_XONXOFF::abilitaFontiERicerche(bool abilitate) {
  for (QRadioButton* una : {ui_->vkOptionButton_DGFE, ui_->vkOptionButton_MF, ui_->vkOptionButtonGlobale,
                            ui_->vkOptionButtonPerDate, ui_->vkOptionButtonPerScontrini})
    una->setEnabled(abilitate);
}

/// Numbers of the journal begin anew each day; those of the fiscal memory never do.
void Form_Comandi_XONXOFF::SetDataScontrino() {
  const bool numeri = ui_->vkOptionButton_Rx_PRG->isChecked() && ui_->vkOptionButtonPerScontrini->isChecked();
  if (numeri && ui_->vkOptionButton_DGFE->isChecked())
    EnableDataScontrino();
  else
    DisableDataScontrino();
}

void Form_Comandi_XONXOFF::EnableDataScontrino() {
  AbilitaComboScontrino(*this, true);
}

void Form_Comandi_XONXOFF::DisableDataScontrino() {
  AbilitaComboScontrino(*this, false);
}

bool Form_Comandi_XONXOFF::CheckDataPerNumScontrini() const {
  const ComboData combi = combiData(*this, DataDiSchermo::Scontrino);
  return combi.giorno->currentIndex() >= 0 && combi.mese->currentIndex() >= 0 &&
         combi.anno->currentIndex() >= 0;
}

// The two carriers

void Form_Comandi_XONXOFF::connetti() {
  eseguiFinoInFondo("CmdInviaModECR_Click", [this] {
    ecrlink::ConnettiECR(*ui_->pannello, contesto());
    collegaSequenze();
  });
}

void Form_Comandi_XONXOFF::collegaSequenze() {
  CommonForKora& comune = commonForKora();
  if (comune.IP_ECR.isEmpty()) {
    ui_->cboPort->setEnabled(true);
    ui_->Combo2->setEnabled(true);
    return;
  }
  // The address in a box of its own: the library writes into what it is handed.
  if (comune.hConnXonXoff == 0) {
    const ecrlink::AlLavoro questa(*ui_->pannello);
    ecrlink::Passo passo(QStringLiteral("Apertura del canale dei comandi"), contesto());
    comune.hConnXonXoff = contesto().libreria.ecr_conn_xonxoff_ntw(comune.IP_ECR.toLatin1());
    if (comune.hConnXonXoff > 0) passo.riuscito();
  }
  if (comune.hConnXonXoff <= 0) {
    auxcmd::erroreDiComunicazione(comune.hConnXonXoff, *this, contesto());
    ui_->pannello->abilitaConnetti(true);
  }
  // Locked after a refused connection too: the address stands, and the port is picked by going out and in.
  ui_->cboPort->setEnabled(false);
  ui_->Combo2->setEnabled(false);
  if (comune.hConnXonXoff > 0)
    ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Collegato a ") + ecrlink::indirizzoDetto());
}

void Form_Comandi_XONXOFF::portaScelta() {
  if (ui_->cboPort->currentText() == kSeleziona) return ui_->pannello->abilitaConnetti(true);
  commonForKora().IP_ECR.clear();
  ui_->pannello->abilitaConnetti(false);
  ui_->Cmd_Avvia->setEnabled(true);
}

QString Form_Comandi_XONXOFF::porta() const {
  return ui_->cboPort->currentText();
}

int Form_Comandi_XONXOFF::velocita() const {
  return ui_->Combo2->currentText().toInt();
}

void Form_Comandi_XONXOFF::fuocoSuEsci() {
  ui_->Cmd_Esci->setFocus();
}

void Form_Comandi_XONXOFF::abilitaComandi() {
  ui_->Cmd_Esci->setEnabled(true);
  ui_->Cmd_Avvia->setEnabled(true);
}

void Form_Comandi_XONXOFF::scambiaLed() {
  verde_ = !verde_;
  ui_->LedDati->accendi(verde_ ? kVerdeLed : kGrigio);
  ui_->LedDati2->accendi(verde_ ? kGrigio : kVerdeLed);
}

void Form_Comandi_XONXOFF::spegniLed() {
  ui_->LedDati->accendi(kSpento);
  ui_->LedDati2->accendi(kSpento);
}

void Form_Comandi_XONXOFF::mostraAttesa() {
  // Its closing is the way out of an exchange that does not begin: the console goes with it.
  auxcmd::MostraAttesa(contesto(), *this, [this] { close(); });
}

void Form_Comandi_XONXOFF::togliAttesa() {
  auxcmd::ChiudiAttesa(contesto());
}

void Form_Comandi_XONXOFF::annota(auxcmd::Verso verso, const QByteArray& byte) {
  ui_->registro->annota(verso, byte);
}

// The commands

void Form_Comandi_XONXOFF::on_Cmd_Avvia_clicked() {
  eseguiFinoInFondo("Cmd_Avvia_Click", [this] {
    const ecrlink::AlLavoro questa(*ui_->pannello);
    avvia();
  });
}

void Form_Comandi_XONXOFF::avvia() {
  if (!ui_->vkOptionButton_MF->isChecked() && !CheckDataPerNumScontrini()) return;
  ui_->Cmd_Avvia->setEnabled(false);
  ui_->Cmd_Esci->setEnabled(false);
  funzioniCmdXonXoff().FlagDump = 1;
  funzioniCmdXonXoff().ContaFine = 0;
  occupa(true);
  const auto libera = qScopeGuard([this] { occupa(false); });
  const BusyGuard::Closable siPuoUscire(*this);
  reazioni::oppure(
      [this] {
        if (ui_->vkOptionButton_RX_STATO_ECR->isChecked()) return leggiStato();
        if (ui_->vkOptionButton_Rx_PRG->isChecked()) return leggiMemoria();
        rifiuta(kScegliere, Icon::Information);
      },
      [this](const Errore& errore) { guastoDellaPorta(errore); });
}

/// True where no port is needed.
bool Form_Comandi_XONXOFF::portaValida() {
  if (!commonForKora().IP_ECR.isEmpty() || auxcmd::DammiPortaCOM(*this) != 0) return true;
  auxcmd::avvisaPorta(contesto());
  abilitaComandi();
  return false;
}

void Form_Comandi_XONXOFF::leggiStato() {
  funzioniCmdXonXoff().FlagDump = 0;
  varGlobal().BufferRx.clear();
  varGlobal().BufferRisposta.clear();
  if (!portaValida()) return;
  const int esito = esegueNelCanale(kComandoStato);
  if (chiusa_) return;
  togliAttesa();
  // Without an answer too: the record shown is then the one that was there.
  contesto().schermate.scarica(QStringLiteral("Form_STATO_ECR"));
  contesto().schermate.mostra(QStringLiteral("Form_STATO_ECR"), contesto());
  abilitaComandi();
  if (esito == 0) diciStato();
}

void Form_Comandi_XONXOFF::diciStato() {
  switch (varGlobal().FlagRisposta) {
    case auxcmd::kCompleta:
      return ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Letto lo stato della cassa"));
    case auxcmd::kErrorePorta:
      return ui_->BarraEsito->tell(
          Kind::Warning, QStringLiteral("La linea si è interrotta: lo stato mostrato è quello di prima"));
    case auxcmd::kTempoScaduto:
      return ui_->BarraEsito->tell(
          Kind::Warning, QStringLiteral("La cassa non ha risposto: lo stato mostrato è quello di prima"));
    default:  // a network answer of another length
      return ui_->BarraEsito->tell(
          Kind::Warning, QStringLiteral("La cassa ha risposto altro: lo stato mostrato è quello di prima"));
  }
}

void Form_Comandi_XONXOFF::leggiMemoria() {
  const QString comando = comandoDump();
  if (comando.isEmpty() || !portaValida()) return;
  const QDateTime adesso = contesto().orologio.now();
  ui_->LabelNomeFileDUMP->setText(QStringLiteral("Creazione del file ") +
                                  auxcmd::nomeFileDump(memoria(), adesso));
  auxcmd::iniziaFileDump(memoria(), adesso, contesto().cartella, file_);
  // Not before it is there: the exit says that it was made.
  ultimo_ = file_.di(memoria());
  varGlobal().BufferRisposta.clear();
  const int esito = esegueNelCanale(comando);
  if (chiusa_) return;
  contesto().utente.DoEvents();
  if (chiusa_) return;
  // A port that said nothing stays open, and what it says later still goes into the file; "Avvia" stays off.
  ui_->Cmd_Esci->setEnabled(true);
  diciDump(esito);
}

void Form_Comandi_XONXOFF::diciLetto() {
  ui_->BarraEsito->tell(
      Kind::Done,
      QStringLiteral("Letto nel file %1: uscire con Esci/Visualizza File per vederlo").arg(nomeUltimoDump()));
}

void Form_Comandi_XONXOFF::diciDump(int esito) {
  const std::int16_t risposta = varGlobal().FlagRisposta;
  // A file that takes no more has been told already.
  if (risposta == auxcmd::kErrorePorta && ui_->Cmd_Avvia->isEnabled()) return;
  if (esito != 0 || risposta == auxcmd::kErrorePorta)
    return ui_->BarraEsito->tell(
        Kind::Failed,
        QStringLiteral("Lettura interrotta: quello che è arrivato è nel file %1").arg(nomeUltimoDump()));
  if (risposta == auxcmd::kCompleta) return diciLetto();
  ui_->BarraEsito->tell(Kind::Warning,
                        QStringLiteral("La cassa non ha ancora risposto: quello che arriva va nel file %1")
                            .arg(nomeUltimoDump()));
}

int Form_Comandi_XONXOFF::esegueNelCanale(const QString& comando) {
  if (commonForKora().IP_ECR.isEmpty())
    return auxcmd::InviaRiceviXonXoff(auxcmd::DammiPortaCOM(*this), *this, comando, contesto());
  // No wait box comes up for the network: the foot tells what is waited for.
  ecrlink::Passo passo(QStringLiteral("Attesa dei dati della cassa"), contesto());
  const int esito = auxcmd::InviaRiceviXonXoff(0, *this, comando, contesto());
  if (esito == 0) passo.riuscito();
  return esito;
}

Memoria Form_Comandi_XONXOFF::memoria() const {
  return ui_->vkOptionButton_MF->isChecked() ? Memoria::MF : Memoria::DGFE;
}

QString Form_Comandi_XONXOFF::rifiuta(const QString& messaggio, Icon icona) {
  contesto().utente.MsgBox(messaggio, icona);
  ui_->BarraEsito->tell(icona == Icon::Critical ? Kind::Failed : Kind::Warning, messaggio.simplified());
  abilitaComandi();
  return {};
}

QString Form_Comandi_XONXOFF::comandoDump() {
  const Memoria quale = memoria();
  if (!ui_->vkOptionButton_DGFE->isChecked() && !ui_->vkOptionButton_MF->isChecked())
    return rifiuta(kScegliere, Icon::Information);
  if (ui_->vkOptionButtonGlobale->isChecked()) return auxcmd::comandoPerDate(quale, kGlobale);
  if (ui_->vkOptionButtonPerDate->isChecked()) return perDate(quale);
  if (ui_->vkOptionButtonPerScontrini->isChecked()) return perNumeri(quale);
  return rifiuta(kScegliere, Icon::Information);
}

QString Form_Comandi_XONXOFF::perDate(Memoria quale) {
  const ComboData inizio = combiData(*this, DataDiSchermo::Inizio);
  const ComboData fine = combiData(*this, DataDiSchermo::Fine);
  if (aammgg(inizio).toInt() > aammgg(fine).toInt())
    return rifiuta(QStringLiteral("Attenzione la data inizio  > data fine ."), Icon::Critical);
  for (const ComboData& giorno : {inizio, fine})
    if (CheckDataScontrino(ggmmaa(giorno), contesto().utente) == kFalso) {
      abilitaComandi();
      return {};
    }
  return auxcmd::comandoPerDate(quale, aammgg(inizio) + aammgg(fine));
}

QString Form_Comandi_XONXOFF::perNumeri(Memoria quale) {
  const QString primo = ui_->vkTextBoxNum1->text();
  const QString ultimo = ui_->vkTextBoxNum2->text();
  if (primo.isEmpty() || ultimo.isEmpty())
    return rifiuta(QStringLiteral("Attenzione inserire il numero di scontrino."), Icon::Warning);
  if (Val(primo) > Val(ultimo))
    return rifiuta(
        QStringLiteral("Attenzione il numero del primo scontrino e' > numero del secondo scontrino."),
        Icon::Critical);
  return auxcmd::comandoPerNumeri(quale, aammgg(combiData(*this, DataDiSchermo::Scontrino)), primo.toInt(),
                                  ultimo.toInt());
}

void Form_Comandi_XONXOFF::guastoDellaPorta(const Errore& errore) {
  if (chiusa_) return;
  if (linea_.aperta()) linea_.chiudi();
  togliAttesa();
  spegniLed();
  annota(auxcmd::Verso::Guasto, errore.descrizione.toUtf8());
  const QString messaggio = QString::fromUtf16(kPortaGuasta) + errore.descrizione;
  contesto().utente.MsgBox(messaggio, Icon::Critical);
  ui_->BarraEsito->tell(Kind::Failed, messaggio);
  abilitaComandi();
}

/// While the line works only the wait box can be closed, and the console with it.
void Form_Comandi_XONXOFF::occupa(bool occupata) {
  inCorso_ = occupata;
  for (QWidget* uno : std::initializer_list<QWidget*>{ui_->vkFrameNetwork, ui_->vkFrame5, ui_->vkFrame4,
                                                      ui_->vkFrameFonte, ui_->vkFrameRicerca,
                                                      ui_->vkFrameDate, ui_->vkFrameNumeri, ui_->menubar})
    uno->setEnabled(!occupata);
  // What had the focus was off meanwhile: a keyboard is left nowhere.
  if (!occupata && !chiusa_ && (!focusWidget() || !focusWidget()->isEnabled())) fuocoSuEsci();
}

QString Form_Comandi_XONXOFF::nomeUltimoDump() const {
  return QFileInfo(ultimo_).fileName();
}

// The way out

void Form_Comandi_XONXOFF::on_Cmd_Esci_clicked() {
  eseguiFinoInFondo("Cmd_Esci_Click", [this] { esci(); });
}

/// Whatever fails on the way out, the way goes on.
void Form_Comandi_XONXOFF::esci() {
  const auto comunque = [](const auto& passo) {
    try {
      passo();
    } catch (const Errore&) {
      // Passed over as laid down: nobody is to be kept in the console by a line that is gone.
    }
  };
  comunque([] {
    std::int32_t& numero = funzioniCmdXonXoff().NumFileDump;
    if (numero > 0) auxcmd::chiudiFileDump(std::exchange(numero, 0));
  });
  ui_->Cmd_Esci->setEnabled(false);
  // The abort that the till knows is addressed to a screen without a port, so nothing goes out: tills in the
  // shops end a dump by themselves, and one that is told to would lose its place.
  comunque([this] { linea_.chiudi(); });
  ui_->Cmd_Esci->setEnabled(true);
  comunque([this] { offriFile(); });
  if (chiusa_) return;
  contesto().schermate.scarica(objectName());
}

void Form_Comandi_XONXOFF::offriFile() {
  if (ultimo_.isEmpty()) return;
  const Answer risposta = contesto().utente.MsgBox(
      QStringLiteral("E' stato creato il file %1, vuoi visualizzarlo ?").arg(nomeUltimoDump()),
      Icon::Question, QStringLiteral("ATTENZIONE"), Buttons::OkCancel);
  if (risposta != Answer::Ok) return;
  const auto scelto = contesto().utente.AskOpenPath(
      {QStringLiteral("Visualizza File"), QStringLiteral("txt (*.txt)|*.txt"), contesto().cartella});
  if (scelto && !scelto->isEmpty()) auxcmd::RunShellExecute(*scelto, contesto());
}

void Form_Comandi_XONXOFF::scollega() {
  std::int32_t& collegamento = commonForKora().hConnXonXoff;
  if (collegamento != 0) contesto().libreria.ecr_disc_xonxoff_ntw(std::exchange(collegamento, 0));
  linea_.chiudi();
  // What was dumped stands in the file already: it only stays open no longer.
  std::int32_t& numero = funzioniCmdXonXoff().NumFileDump;
  auxcmd::chiudiFileDump(std::exchange(numero, 0));
}

/// Closed in the middle of a command: what was left to its end is done now.
void Form_Comandi_XONXOFF::finisci() {
  esegui("Form_Unload", [this] { scollega(); });
  deleteLater();
}

void Form_Comandi_XONXOFF::closeEvent(QCloseEvent* evento) {
  evento->accept();
  if (std::exchange(chiusa_, true)) return;
  togliAttesa();
  linea_.fermaTimer();
  linea_.chiudi();
  contesto().schermate.scarica(QStringLiteral("Form_STATO_ECR"));
  if (comandi_ > 0) setAttribute(Qt::WA_DeleteOnClose, false);
  // A reading that runs leaves by itself at its next step, and disconnects then.
  if (!inCorso_) esegui("Form_Unload", [this] { scollega(); });
  esegui("Form_Unload", [this] { MostraMenu(contesto()); });
}

void Form_Comandi_XONXOFF::keyPressEvent(QKeyEvent* evento) {
  if (evento->isAutoRepeat()) return;
  // A number that was not left yet is looked at as if it were.
  if (evento->key() == Qt::Key_F9) {
    if (GuardedField::settled(*this)) ui_->Cmd_Avvia->click();
    return;
  }
  if (evento->key() == Qt::Key_Escape && ui_->Cmd_Esci->isEnabled()) return ui_->Cmd_Esci->click();
  Schermo::keyPressEvent(evento);
}

void Form_Comandi_XONXOFF::resizeEvent(QResizeEvent* evento) {
  Schermo::resizeEvent(evento);
  // Behind the layout of what is above, which folds where it is narrow.
  QMetaObject::invokeMethod(this, &Form_Comandi_XONXOFF::dividi, Qt::QueuedConnection);
}

void Form_Comandi_XONXOFF::dividi() {
  if (divisaAMano_) return;
  const int altezza = ui_->divisione->height() - ui_->divisione->handleWidth();
  const int registro =
      std::max(ui_->vkFrameRegistro->minimumSizeHint().height(), altezza - ui_->corpo->sizeHint().height());
  ui_->divisione->setSizes({altezza - registro, registro});
}

bool Form_Comandi_XONXOFF::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::EnabledChange && !chiusa_) spiegaAvvia();
  return Schermo::eventFilter(oggetto, evento);
}

// The log of the line

void Form_Comandi_XONXOFF::on_Cmd_CopiaRegistro_clicked() {
  esegui("Cmd_CopiaRegistro_Click", [this] {
    ui_->registro->completa();
    contesto().utente.CopyToClipboard(ui_->registro->toPlainText());
    ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Registro copiato"));
  });
}

void Form_Comandi_XONXOFF::on_Cmd_SalvaRegistro_clicked() {
  esegui("Cmd_SalvaRegistro_Click", [this] {
    ui_->registro->completa();
    FileRequest dove{QStringLiteral("Salva il registro"), QStringLiteral("txt (*.txt)|*.txt"),
                     contesto().cartella};
    dove.asksBeforeReplacing = true;
    const auto scelto = contesto().utente.AskSavePath(dove);
    if (!scelto || scelto->isEmpty()) return;
    WriteWholeFile(*scelto, ui_->registro->toPlainText().toUtf8());
    ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Registro salvato in ") + *scelto);
  });
}

// The test bench

void Form_Comandi_XONXOFF::seguiProve() {
  for (const auto& [voce, schermata] : {std::pair{ui_->mnuTestVendita, u"Form_TestVendita"},
                                        {ui_->mnuTestModificatori, u"Form_TestModificatori"},
                                        {ui_->mnuTestFormePagamento, u"Form_TestPagamento"},
                                        {ui_->mnuTestUtilita, u"Form_TestUtilità"}})
    connect(voce, &QAction::triggered, this, [this, schermata = schermata] {
      eseguiFinoInFondo(
          "mnuTest_Click",
          [&] {
            if (collegata()) contesto().schermate.mostraModale(QString::fromUtf16(schermata), contesto());
          },
          Piede::Resta);
    });
}

/// Whether a sequence would find its way: over the network, or by a port.
bool Form_Comandi_XONXOFF::collegata() {
  if (commonForKora().hConnXonXoff != 0 || auxcmd::DammiPortaCOM(*this) != 0) return true;
  auxcmd::avvisaPorta(contesto());
  return false;
}

void Form_Comandi_XONXOFF::on_mnuTestSeqCmd_triggered() {
  eseguiFinoInFondo("mnuTestSeqCmd_Click", [this] {
    if (!collegata()) return;
    const auto scelto = contesto().utente.AskOpenPath(
        {QStringLiteral("Test sequenza comandi"), QStringLiteral("txt (*.txt)|*.txt"), contesto().cartella});
    if (scelto && !scelto->isEmpty()) inviaScript(*scelto);
    if (!chiusa_) contesto().schermate.mostraModale(QStringLiteral("Form_Test"), contesto());
  });
}

void Form_Comandi_XONXOFF::inviaScript(const QString& file) {
  // Two commands must not overlap: while a line of the script waits, nothing else starts.
  const bool avviabile = ui_->Cmd_Avvia->isEnabled();
  ui_->Cmd_Avvia->setEnabled(false);
  ui_->Cmd_Esci->setEnabled(false);
  occupa(true);
  const auto libera = qScopeGuard([this, avviabile] {
    ui_->Cmd_Avvia->setEnabled(avviabile);
    ui_->Cmd_Esci->setEnabled(true);
    occupa(false);
  });
  const BusyGuard::Closable siPuoUscire(*this);
  funzioniCmdXonXoff().FlagDump = 0;
  varGlobal().BufferRisposta.clear();
  reazioni::oppure([&] { auxcmd::SendFileTXT(file, *this, contesto()); },
                   [this](const Errore& errore) { guastoDellaPorta(errore); });
}

void Form_Comandi_XONXOFF::on_mnuCodiciErrori_triggered() {
  eseguiFinoInFondo(
      "mnuCodiciErrori_Click", [this] { auxcmd::MostraCodiciErrori(contesto()); }, Piede::Resta);
}

void Form_Comandi_XONXOFF::on_mnuManuale_triggered() {
  esegui(
      "mnuManuale_Click", [this] { showManual(*this, contesto()); }, Piede::Resta);
}
