#include "platform/ui/occupato.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <utility>

namespace {

int vivi = 0;

bool daMangiare(QEvent::Type tipo) {
  switch (tipo) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::Close:
    case QEvent::Quit:
      return true;
    default:
      return false;
  }
}

class Filtro : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject*, QEvent* evento) override {
    if (!Occupato::attivo() || !daMangiare(evento->type())) return false;
    // A closing that nobody refuses hides the window all the same; other input must not climb to the parent.
    evento->setAccepted(evento->type() != QEvent::Close && evento->type() != QEvent::Quit);
    return true;
  }
};

/// Over the whole application, made with the first guard and gone with the application.
void mettiFiltro() {
  static QPointer<Filtro> filtro;
  QCoreApplication* applicazione = QCoreApplication::instance();
  if (filtro || !applicazione) return;
  filtro = new Filtro(applicazione);
  applicazione->installEventFilter(filtro);
}

}  // namespace

Occupato::Occupato() {
  mettiFiltro();
  ++vivi;
}

Occupato::~Occupato() {
  if (vivi == 1 && QCoreApplication::instance()) QCoreApplication::processEvents();
  --vivi;
}

bool Occupato::attivo() {
  return vivi > 0;
}

Occupato::Sospeso::Sospeso() : prima_(std::exchange(vivi, 0)) {}

Occupato::Sospeso::~Sospeso() {
  vivi += prima_;
}
