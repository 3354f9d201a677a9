#pragma once

#include <QHash>
#include <QString>

/// Counts the notices of one command, so that the person may let pass those that say the same again.
class EqualNotices {
 public:
  enum class Treatment { Shown, ShownWithOffer, LetPass };

  /// What to do with one more notice. `said`: its title and text. The first of a command is shown; from the
  /// second on the offer stands with it. Outside of commands every notice is shown.
  Treatment next(const QString& said);
  /// The person took the offer that stood with the last one.
  void letPass();

 private:
  /// Of the command that is being counted.
  unsigned command_ = 0;
  QString last_;
  /// How often each was shown; -1 for those that pass.
  QHash<QString, int> shown_;
};
