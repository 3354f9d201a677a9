#include "controls/clear_button.h"

#include <QLineEdit>
#include <QToolButton>

void addClearButton(QLineEdit& field) {
  const QList<QToolButton*> before = field.findChildren<QToolButton*>();
  field.setClearButtonEnabled(true);
  for (QToolButton* button : field.findChildren<QToolButton*>())
    if (!before.contains(button)) button->setAccessibleName(QStringLiteral("Svuota il campo"));
}
