#include "auxcmd/Form_STATO_ECR.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "auxcmd/state_record.h"
#include "controls/command_key.h"
#include "controls/sample_width.h"
#include "controls/style.h"
#include "core/state.h"
#include "platform/ui/held_keys.h"
#include "ui_Form_STATO_ECR.h"

namespace {

using auxcmd::CampoStato;
using auxcmd::Salute;

/// Down the left column first, then down the right one: a caption and its box take two cells.
constexpr int kRighe = 7;
constexpr int kCellePerCampo = 2;

/// The longest word of a badge, which is bold.
const QString kCampione = QStringLiteral("NON PRESENTE ");

style::Badge distintivo(Salute salute) {
  switch (salute) {
    case Salute::Bene:
      return style::Badge::Ready;
    case Salute::Attenzione:
      return style::Badge::Busy;
    case Salute::Guasto:
      return style::Badge::Fault;
    case Salute::Ignota:
      break;
  }
  return style::Badge::Neutral;
}

}  // namespace

Form_STATO_ECR::Form_STATO_ECR(Contesto& /*contesto*/) : ui_(std::make_unique<Ui::Form_STATO_ECR>()) {
  ui_->setupUi(this);
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  connect(ui_->Cmd_Esci, &QPushButton::clicked, this, &QWidget::close);
  for (int posto = 0; posto < static_cast<int>(auxcmd::stato::kCampi.size()); ++posto) aggiungi(posto);
  // The one control that the focus can be on: Enter would leave by accident.
  notByEnter(*ui_->Cmd_Esci);
  ui_->Cmd_Esci->setFocus();
  ignoreHeldKeys(*this);
}

Form_STATO_ECR::~Form_STATO_ECR() = default;

void Form_STATO_ECR::aggiungi(int posto) {
  const CampoStato& campo = auxcmd::stato::kCampi[static_cast<std::size_t>(posto)];
  const auxcmd::RecordStato record(varGestionePRG().StatoECR);
  const QString didascalia = QString::fromUtf16(campo.didascalia);
  auto* etichetta = new QLabel(didascalia, ui_->riquadro);
  auto* casella = new QLineEdit(auxcmd::testoStato(record, campo), ui_->riquadro);
  casella->setObjectName(QLatin1String(campo.casella));
  casella->setAccessibleName(didascalia);
  casella->setReadOnly(true);
  casella->setFocusPolicy(Qt::ClickFocus);
  widthFromSample(*casella, kCampione, FieldWidth::AtLeast);
  etichetta->setBuddy(casella);
  if (campo.distinto) style::badge(*casella, distintivo(auxcmd::saluteStato(record, campo)));
  const int colonna = posto / kRighe * kCellePerCampo;
  ui_->campi->addWidget(etichetta, posto % kRighe, colonna);
  ui_->campi->addWidget(casella, posto % kRighe, colonna + 1);
}

void Form_STATO_ECR::keyPressEvent(QKeyEvent* event) {
  // Nor by the dialog's own use of it.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  QDialog::keyPressEvent(event);
}
