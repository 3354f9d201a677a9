#include "core/placeholder_workspace.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "controls/style.h"
#include "core/context.h"
#include "core/menu.h"
#include "core/reactions.h"
#include "platform/ui/held_keys.h"
#include "ui_placeholder_workspace.h"

namespace {
constexpr int kFigura = 36;
}

Form_Provvisoria::Form_Provvisoria(Contesto& contesto, const QString& nome, const QString& titolo)
    : contesto_(contesto), ui_(std::make_unique<Ui::Form_Provvisoria>()) {
  ui_->setupUi(this);
  setObjectName(nome);
  setWindowTitle(titolo);
  ui_->titolo->setText(titolo.trimmed());
  ui_->figura->setPixmap(style::icon(QStringLiteral("construction")).pixmap(kFigura));
  style::primary(*ui_->Cmd_Esci, QStringLiteral("arrow-left"));
  ignoreHeldKeys(*this);
  connect(ui_->Cmd_Esci, &QPushButton::clicked, this, &QWidget::close);
}

Form_Provvisoria::~Form_Provvisoria() = default;

void Form_Provvisoria::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(evento);
}

void Form_Provvisoria::closeEvent(QCloseEvent* evento) {
  reazioni::protetta(contesto_.utente, QStringLiteral("Form_Unload"), objectName(),
                     [&] { MostraMenu(contesto_); });
  evento->accept();
}
