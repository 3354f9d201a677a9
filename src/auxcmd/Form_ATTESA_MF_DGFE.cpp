#include "auxcmd/Form_ATTESA_MF_DGFE.h"

#include <QCloseEvent>
#include <QWindow>
#include <utility>

#include "controls/needed_height.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/screens.h"
#include "ui_Form_ATTESA_MF_DGFE.h"

namespace {

const QString kAttesa = QStringLiteral("Form_ATTESA_MF_DGFE");
constexpr int kFigura = 36;
/// A title and the frame's own way to close it.
constexpr Qt::WindowFlags kCornice =
    Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

/// In the middle of the window that waits, and kept before it.
void colloca(QWidget& attesa, const QWidget& sopra) {
  if (!sopra.windowHandle()) return;
  attesa.winId();  // makes the window that is told its place over the other
  attesa.windowHandle()->setTransientParent(sopra.windowHandle());
  attesa.move(sopra.geometry().center() - attesa.rect().center());
}

}  // namespace

Form_ATTESA_MF_DGFE::Form_ATTESA_MF_DGFE(Contesto& /*contesto*/)
    : QWidget(nullptr, kCornice), ui_(std::make_unique<Ui::Form_ATTESA_MF_DGFE>()) {
  ui_->setupUi(this);
  keepNeededHeight(*this);
  // Its doubled blanks are laid down; read aloud they are pauses.
  ui_->Label1->setAccessibleName(ui_->Label1->text().simplified());
  ui_->Picture1->setPixmap(style::icon(QStringLiteral("hourglass")).pixmap(kFigura));
}

Form_ATTESA_MF_DGFE::~Form_ATTESA_MF_DGFE() = default;

void Form_ATTESA_MF_DGFE::quandoLaPersonaLaChiude(QObject& destinatario, std::function<void()> seguito) {
  destinatario_ = &destinatario;
  seguito_ = std::move(seguito);
}

void Form_ATTESA_MF_DGFE::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  // Not from here: what follows unloads the screen in whose waiting loop this closing may have come.
  if (auto seguito = std::exchange(seguito_, nullptr); seguito && destinatario_)
    QMetaObject::invokeMethod(destinatario_, std::move(seguito), Qt::QueuedConnection);
}

void auxcmd::MostraAttesa(Contesto& contesto, QWidget& sopra, std::function<void()> seguito) {
  auto& attesa = dynamic_cast<Form_ATTESA_MF_DGFE&>(contesto.schermate.carica(kAttesa, contesto));
  attesa.quandoLaPersonaLaChiude(sopra, std::move(seguito));
  colloca(attesa, sopra);
  contesto.schermate.mostra(kAttesa, contesto);
}

void auxcmd::ChiudiAttesa(Contesto& contesto) {
  auto* attesa = qobject_cast<Form_ATTESA_MF_DGFE*>(contesto.schermate.trova(kAttesa));
  if (!attesa) return;
  attesa->chiudeIlProgramma();
  contesto.schermate.scarica(kAttesa);
}
