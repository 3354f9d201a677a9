#include "core/help_window.h"

#include <QKeyEvent>
#include <QLayout>

#include "controls/rtf.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/screens.h"
#include "platform/text/whole_file.h"
#include "platform/ui/held_keys.h"
#include "ui_help_window.h"

namespace {

/// A line of this many letters is read without losing the place.
constexpr int kLettereRiga = 90;
constexpr int kMargine = 24;
constexpr int kAltezza = 620;

QString percorso(const Aiuto& aiuto, const Contesto& contesto) {
  return contesto.cartella + u'/' + QLatin1String(aiuto.file);
}

}  // namespace

FinestraAiuto::FinestraAiuto(const Aiuto& aiuto, const Contesto& contesto)
    : ui_(std::make_unique<Ui::FinestraAiuto>()) {
  setObjectName(QLatin1String(aiuto.schermata));
  ui_->setupUi(this);
  setWindowTitle(QLatin1String(aiuto.titolo));
  ui_->RichTextBox1->setAccessibleName(windowTitle());
  ui_->Cmd_Esci->setToolTip(QLatin1String(aiuto.ritorno));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  ignoreHeldKeys(*this);
  connect(ui_->Cmd_Esci, &QPushButton::clicked, this, &QWidget::close);
  QTextDocument& testo = *ui_->RichTextBox1->document();
  testo.setDefaultFont(ui_->RichTextBox1->font());
  rtf::read(ReadWholeFile(percorso(aiuto, contesto), rtf::kMaxBytes), testo);
  impagina();
}

FinestraAiuto::~FinestraAiuto() = default;

void FinestraAiuto::impagina() {
  QTextBrowser& pagina = *ui_->RichTextBox1;
  pagina.document()->setDocumentMargin(kMargine);
  pagina.moveCursor(QTextCursor::Start);
  pagina.setMaximumWidth(pagina.fontMetrics().averageCharWidth() * kLettereRiga + 4 * kMargine);
  const QMargins bordi = layout()->contentsMargins();
  resize(pagina.maximumWidth() + bordi.left() + bordi.right(), kAltezza);
}

void FinestraAiuto::keyPressEvent(QKeyEvent* event) {
  // Who reads does not leave by Enter, unless the button has the focus.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  QDialog::keyPressEvent(event);
}

void MostraAiuto(const Aiuto& aiuto, Contesto& contesto) {
  if (!FileEsiste(percorso(aiuto, contesto))) {
    contesto.utente.MsgBox(QLatin1String(aiuto.assente), aiuto.icona);
    return;
  }
  contesto.schermate.mostraModale(QLatin1String(aiuto.schermata), contesto);
}
