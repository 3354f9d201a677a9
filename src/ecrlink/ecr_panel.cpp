#include "ecrlink/ecr_panel.h"

#include <QKeyEvent>

#include "ui_ecr_panel.h"

PannelloECR::PannelloECR(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::PannelloECR>()) {
  ui_->setupUi(this);
  connect(ui_->CmdInviaModECR, &QPushButton::clicked, this, &PannelloECR::connetti);
  setFocusProxy(ui_->vkTextBoxIP_ECR);
}

PannelloECR::~PannelloECR() = default;

void PannelloECR::keyPressEvent(QKeyEvent* evento) {
  const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (!invio || !ui_->vkTextBoxIP_ECR->hasFocus()) return QWidget::keyPressEvent(evento);
  // Kept from the dialog around, whose own default command would go off as well.
  evento->accept();
  ui_->CmdInviaModECR->click();
}
