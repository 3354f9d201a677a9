#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <functional>

/// Answers the next box, once it stands on the display.
inline void atBox(const std::function<void(QMessageBox&)>& answer) {
  QTimer::singleShot(1, [answer] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    // Events pass before it opens, too.
    if (box == nullptr) return atBox(answer);
    answer(*box);
  });
}
