#include "ecrlink/ecr_panel.h"

#include <QKeyEvent>
#include <QStyle>

#include "ecrlink/models.h"
#include "ui_ecr_panel.h"

namespace {

/// A box too narrow shows the beginning of its text, not the end.
void scrivi(QLineEdit& casella, const QString& testo) {
  casella.setText(testo);
  casella.home(false);
}

}  // namespace

PannelloECR::PannelloECR(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::PannelloECR>()) {
  ui_->setupUi(this);
  connect(ui_->CmdInviaModECR, &QPushButton::clicked, this, &PannelloECR::connetti);
  setFocusProxy(ui_->vkTextBoxIP_ECR);
}

PannelloECR::~PannelloECR() = default;

void PannelloECR::accoppia(QPushButton& avvia, QPushButton& esci) {
  avvia_ = &avvia;
  esci_ = &esci;
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
}

void PannelloECR::abilitaAvvia(bool abilitato) {
  avvia_->setEnabled(abilitato);
}

void PannelloECR::abilitaConnetti(bool abilitato) {
  ui_->CmdInviaModECR->setEnabled(abilitato);
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
  style::badge(*ui_->vkTextBoxECR, distintivo);
}

void PannelloECR::keyPressEvent(QKeyEvent* evento) {
  const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (!invio || !ui_->vkTextBoxIP_ECR->hasFocus()) return QWidget::keyPressEvent(evento);
  // Kept from the dialog around, whose own default command would go off as well.
  evento->accept();
  ui_->CmdInviaModECR->click();
}
