#include "ecrlink/ecr_panel.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QStyle>
#include <algorithm>

#include "controls/outcome_bar.h"
#include "ecrlink/models.h"
#include "ui_ecr_panel.h"

namespace {

/// A box too narrow shows the beginning of its text, not the end.
void scrivi(QLineEdit& casella, const QString& testo) {
  casella.setText(testo);
  casella.home(false);
}

/// What the style sheet lays around the text of a box, pixels at scale 1, with room for the cursor; and what
/// the sign of a fault takes before it.
constexpr int kBordi = 28;
constexpr int kSegno = 24;
/// What the style sheet lays above and below the own addresses, and the pixel that a box of lines wants.
constexpr int kSopraESotto = 11;

/// Own addresses that are seen at once; a PC with more of them rolls.
constexpr int kIndirizziInVista = 2;

void largaAlmeno(QWidget& casella, const QString& campione, int altro = 0) {
  // A badge is bold, and a box may become one.
  QFont carattere = casella.font();
  carattere.setWeight(QFont::DemiBold);
  casella.setMinimumWidth(QFontMetrics(carattere).horizontalAdvance(campione) + kBordi + altro);
}

/// What has changed on the window is laid out and on the display behind this: no event pass may come before
/// the till's answer.
void dipingi(QWidget& finestra) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(&finestra, QEvent::UpdateRequest);
}

}  // namespace

struct PannelloECR::Detto {
  OutcomeBar::Kind genere;
  QString testo;
};

PannelloECR::PannelloECR(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::PannelloECR>()) {
  ui_->setupUi(this);
  connect(ui_->CmdInviaModECR, &QPushButton::clicked, this, &PannelloECR::connetti);
  setFocusProxy(ui_->vkTextBoxIP_ECR);
  misura();
  spiegaConnetti();
}

PannelloECR::~PannelloECR() = default;

void PannelloECR::accoppia(QPushButton& avvia, QPushButton& esci, OutcomeBar* piede) {
  avvia_ = &avvia;
  esci_ = &esci;
  piede_ = piede;
}

void PannelloECR::misura() {
  largaAlmeno(*ui_->vkTextBoxIP_ECR, QStringLiteral("255.255.255.255"));
  largaAlmeno(*ui_->vkTextBoxLocal_IP, QStringLiteral("255.255.255.255"));
  largaAlmeno(*ui_->TextModello, QStringLiteral("ALTAIR PLUS"));
  largaAlmeno(*ui_->vkTextBoxTipoMacchina, QStringLiteral("ALTAIR PLUS"));
  largaAlmeno(*ui_->TextBitmap, QStringLiteral("LARGE"));
  largaAlmeno(*ui_->TextMMC, QStringLiteral("0000"));
  largaAlmeno(*ui_->vkTextBox_VSW, QStringLiteral("00.00"));
  largaAlmeno(*ui_->vkTextBoxECR, QStringLiteral("PROGRAMMAZIONE"), kSegno);
  ui_->vkTextBoxIP_ECR->setMinimumHeight(ui_->CmdInviaModECR->sizeHint().height());
  misuraIndirizzi();
}

void PannelloECR::misuraIndirizzi() {
  QPlainTextEdit& casella = *ui_->vkTextBoxLocal_IP;
  const int unaCasella = ui_->CmdInviaModECR->sizeHint().height();
  const int riga = casella.fontMetrics().lineSpacing();
  // One address stands in the middle of its box, as in the boxes beside it.
  const int margine = std::max((unaCasella - kSopraESotto - riga) / 2, 0);
  casella.document()->setDocumentMargin(margine);
  const int righe = std::min(casella.blockCount(), kIndirizziInVista);
  casella.setFixedHeight(std::max(unaCasella, righe * riga + 2 * margine + kSopraESotto));
}

void PannelloECR::spiegaConnetti() {
  // Off without an address in use: a till on the serial line.
  ui_->CmdInviaModECR->setToolTip(
      ui_->CmdInviaModECR->isEnabled()
          ? QStringLiteral("Si collega alla cassa di questo indirizzo (Invio nella casella)")
      : commonForKora().IP_ECR.isEmpty()
          ? QStringLiteral("Si usa la porta scelta: per collegarsi in rete rimettere Seleziona")
          : QStringLiteral("La cassa è già collegata: per ricollegarsi uscire e rientrare"));
}

void PannelloECR::changeEvent(QEvent* evento) {
  QWidget::changeEvent(evento);
  if (evento->type() == QEvent::FontChange || evento->type() == QEvent::StyleChange) misura();
}

QString PannelloECR::indirizzo() const {
  return ui_->vkTextBoxIP_ECR->text();
}

void PannelloECR::scriviIndirizzo(const QString& indirizzo) {
  scrivi(*ui_->vkTextBoxIP_ECR, indirizzo);
}

QStringList PannelloECR::indirizziLocali() const {
  return ui_->vkTextBoxLocal_IP->toPlainText().split(u'\n');
}

void PannelloECR::scriviIndirizziLocali(const QStringList& indirizzi) {
  ui_->vkTextBoxLocal_IP->setPlainText(indirizzi.join(QStringLiteral("\r\n")));
  misuraIndirizzi();
}

void PannelloECR::abilitaAvvia(bool abilitato) {
  avvia_->setEnabled(abilitato);
}

void PannelloECR::abilitaConnetti(bool abilitato) {
  ui_->CmdInviaModECR->setEnabled(abilitato);
  spiegaConnetti();
}

bool PannelloECR::connettiAbilitato() const {
  return ui_->CmdInviaModECR->isEnabledTo(window());
}

void PannelloECR::fuocoSuConnetti() {
  ui_->CmdInviaModECR->setFocus(Qt::OtherFocusReason);
}

void PannelloECR::fuocoSuEsci() {
  esci_->setFocus(Qt::OtherFocusReason);
}

void PannelloECR::abilitaSchermo() {
  window()->setEnabled(true);
}

void PannelloECR::mostraInfo(const EcrInfo& info) {
  scrivi(*ui_->TextModello, info.InfoTipoMacchina);
  scrivi(*ui_->vkTextBoxTipoMacchina, info.InfoTipoMacchina);
  scrivi(*ui_->TextBitmap, ecrlink::nomeDellaClasse(info.InfoTipoBitmap));
  scrivi(*ui_->TextMMC, info.InfoTipoMMC);
  scrivi(*ui_->vkTextBox_VSW, info.InfoVersioneSW);
}

void PannelloECR::mostraStato(const QString& parola, const QString& lettera) {
  scrivi(*ui_->vkTextBoxECR, parola);
  ui_->vkTextBoxECR->setProperty("tillState", lettera);
}

void PannelloECR::distingui(style::Badge distintivo) {
  distintivo_ = distintivo;
  const bool guasta = distintivo == style::Badge::Fault;
  // The word in the box is the till's last one: that it holds no more is not told by the colour alone.
  const QString spiegazione =
      guasta ? QStringLiteral("L'ultimo comando alla cassa non è riuscito: la parola è dello stato di prima")
             : QString();
  if (guasta && !segnoDiGuasto_) {
    segnoDiGuasto_ = ui_->vkTextBoxECR->addAction(
        style::signIcon(QStringLiteral("circle-x"), style::Badge::Fault), QLineEdit::LeadingPosition);
    segnoDiGuasto_->setText(QStringLiteral("La cassa non ha risposto"));
  }
  if (segnoDiGuasto_) segnoDiGuasto_->setVisible(guasta);
  ui_->vkTextBoxECR->setToolTip(spiegazione);
  ui_->vkTextBoxECR->setAccessibleDescription(spiegazione);
  style::badge(*ui_->vkTextBoxECR, distintivo);
}

void PannelloECR::mostraPasso(const QString& passo) {
  if (piede_) {
    if (!primaDelPasso_) primaDelPasso_ = std::make_unique<Detto>(Detto{piede_->kind(), piede_->text()});
    piede_->tell(OutcomeBar::Kind::Plain, passo);
  }
  dipingi(*window());
}

void PannelloECR::togliPasso() {
  if (piede_ && primaDelPasso_) piede_->tell(primaDelPasso_->genere, primaDelPasso_->testo);
  primaDelPasso_.reset();
}

void PannelloECR::cassaRisponde(bool bene) {
  if (!bene)
    distingui(style::Badge::Fault);
  else if (distintivo_ == style::Badge::Fault)
    distingui(style::Badge::Neutral);
}

void PannelloECR::keyPressEvent(QKeyEvent* evento) {
  const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (!invio || !ui_->vkTextBoxIP_ECR->hasFocus()) return QWidget::keyPressEvent(evento);
  // Kept from the dialog around, whose own default command would go off as well.
  evento->accept();
  if (!evento->isAutoRepeat()) ui_->CmdInviaModECR->click();
}
