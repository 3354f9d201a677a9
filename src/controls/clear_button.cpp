#include "controls/clear_button.h"

#include <QAction>
#include <QLineEdit>
#include <QToolButton>

#include "controls/style.h"

void addClearButton(QLineEdit& field) {
  const QList<QToolButton*> before = field.findChildren<QToolButton*>();
  field.setClearButtonEnabled(true);
  for (QToolButton* button : field.findChildren<QToolButton*>()) {
    if (before.contains(button)) continue;
    button->setAccessibleName(QStringLiteral("Svuota il campo"));
    // The toolkit's own cross is grey on whatever ground; the button takes its picture from its action.
    if (QAction* clear = button->defaultAction()) clear->setIcon(style::icon(QStringLiteral("x")));
  }
}
