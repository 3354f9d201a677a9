#include "core/Form_ATTESA.h"

#include "controls/stile.h"
#include "ui_Form_ATTESA.h"

namespace {
constexpr int kFigura = 36;
}

Form_ATTESA::Form_ATTESA(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::Form_ATTESA>()) {
  ui_->setupUi(this);
  ui_->Picture1->setPixmap(stile::icona(QStringLiteral("hourglass")).pixmap(kFigura));
}

Form_ATTESA::~Form_ATTESA() = default;
