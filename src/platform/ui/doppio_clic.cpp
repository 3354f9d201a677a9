#include "platform/ui/doppio_clic.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWindow>
#include <utility>

FermaDoppioClic::FermaDoppioClic(QCoreApplication* applicazione) : QObject(applicazione) {
  applicazione->installEventFilter(this);
}

bool FermaDoppioClic::eventFilter(QObject* oggetto, QEvent* evento) {
  auto* finestra = qobject_cast<QWindow*>(oggetto);
  if (!finestra || finestra->type() == Qt::Popup) return false;
  switch (evento->type()) {
    case QEvent::MouseButtonPress:
      return premuta(*static_cast<QMouseEvent*>(evento), finestra);
    case QEvent::MouseButtonDblClick:
      return mangiata_ == finestra;
    case QEvent::MouseButtonRelease:
      return std::exchange(mangiata_, nullptr) == finestra;
    default:
      return false;
  }
}

bool FermaDoppioClic::premuta(const QMouseEvent& evento, QWindow* finestra) {
  if (finestra_ && finestra != finestra_ && seguito(evento)) {
    mangiata_ = finestra;
    return true;
  }
  mangiata_ = nullptr;
  quando_ = evento.timestamp();
  dove_ = evento.globalPosition();
  finestra_ = finestra;
  return false;
}

/// As soon and as near after the last press as a double click is.
bool FermaDoppioClic::seguito(const QMouseEvent& evento) const {
  const QStyleHints* usi = QGuiApplication::styleHints();
  return evento.timestamp() - quando_ < static_cast<quint64>(usi->mouseDoubleClickInterval()) &&
         (evento.globalPosition() - dove_).manhattanLength() < usi->mouseDoubleClickDistance();
}
