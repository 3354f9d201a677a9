#include "auxcmd/Form_Help_CodiciErrori.h"

#include <QKeyEvent>
#include <QLayout>

#include "controls/rtf.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/screens.h"
#include "platform/text/whole_file.h"
#include "platform/ui/held_keys.h"
#include "platform/ui/user_port.h"
#include "ui_Form_Help_CodiciErrori.h"

namespace {

/// A line of this many letters is read without losing the place.
constexpr int kLettereRiga = 90;
constexpr int kMargine = 24;
constexpr int kAltezza = 620;

QString fileAiuto(const Contesto& contesto) {
  return contesto.cartella + QStringLiteral("/Help_Errori_XONXOFF.rtf");
}

}  // namespace

Form_Help_CodiciErrori::Form_Help_CodiciErrori(Contesto& contesto)
    : ui_(std::make_unique<Ui::Form_Help_CodiciErrori>()) {
  ui_->setupUi(this);
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  ignoreHeldKeys(*this);
  connect(ui_->Cmd_Esci, &QPushButton::clicked, this, &QWidget::close);
  QTextDocument& testo = *ui_->RichTextBox1->document();
  testo.setDefaultFont(ui_->RichTextBox1->font());
  rtf::read(ReadWholeFile(fileAiuto(contesto), rtf::kMaxBytes), testo);
  testo.setDocumentMargin(kMargine);
  ui_->RichTextBox1->moveCursor(QTextCursor::Start);
  ui_->RichTextBox1->setMaximumWidth(ui_->RichTextBox1->fontMetrics().averageCharWidth() * kLettereRiga +
                                     4 * kMargine);
  const QMargins bordi = layout()->contentsMargins();
  resize(ui_->RichTextBox1->maximumWidth() + bordi.left() + bordi.right(), kAltezza);
}

Form_Help_CodiciErrori::~Form_Help_CodiciErrori() = default;

void Form_Help_CodiciErrori::keyPressEvent(QKeyEvent* event) {
  // Who reads does not leave by Enter, unless the button has the focus.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  QDialog::keyPressEvent(event);
}

void auxcmd::MostraCodiciErrori(Contesto& contesto) {
  if (!FileEsiste(fileAiuto(contesto))) {
    contesto.utente.MsgBox(QStringLiteral("Attenzione il file di Help per errori Xon Xoff non presente"));
    return;
  }
  contesto.schermate.mostraModale(QStringLiteral("Form_Help_CodiciErrori"), contesto);
}
