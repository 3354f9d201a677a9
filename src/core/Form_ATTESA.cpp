#include "core/Form_ATTESA.h"

#include "controls/needed_height.h"
#include "controls/style.h"
#include "ui_Form_ATTESA.h"

namespace {
constexpr int kFigura = 36;
/// A title and no buttons: who waits has nothing to press.
constexpr Qt::WindowFlags kCornice = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
}  // namespace

Form_ATTESA::Form_ATTESA(QWidget* parent)
    : QWidget(parent, kCornice), ui_(std::make_unique<Ui::Form_ATTESA>()) {
  ui_->setupUi(this);
  keepNeededHeight(*this);
  ui_->Picture1->setPixmap(style::icon(QStringLiteral("hourglass")).pixmap(kFigura));
}

Form_ATTESA::~Form_ATTESA() = default;
