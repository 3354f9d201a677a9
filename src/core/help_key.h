#pragma once

#include <QObject>

struct Contesto;

/// F1 in any window of the program opens the manual at that window's page, over boxes and modal screens too.
/// Not while a command runs.
class HelpKey : public QObject {
  Q_OBJECT

 public:
  /// Watches the whole application for as long as it lives.
  explicit HelpKey(Contesto& contesto);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Contesto& contesto_;
};
