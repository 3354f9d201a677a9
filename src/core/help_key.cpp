#include "core/help_key.h"

#include <QApplication>
#include <QKeyEvent>

#include "core/context.h"
#include "core/manual_viewer.h"
#include "core/reactions.h"
#include "platform/ui/busy_guard.h"

HelpKey::HelpKey(Contesto& contesto) : contesto_(contesto) {
  qApp->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  // An open menu or list holds every key and click: what comes up below it could not be used.
  if (BusyGuard::active() || QApplication::activePopupWidget() != nullptr) return false;
  if (key.isAutoRepeat()) return true;
  auto& from = *static_cast<QWidget*>(watched);
  reazioni::protetta(contesto_.utente, QStringLiteral("F1"), QStringLiteral("Manuale"),
                     [&] { showManual(from, contesto_); });
  return true;
}
