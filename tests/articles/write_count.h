#pragma once

#include <QString>

class Bottega;

/// Counts the row writes of one column of the open archive, in the file itself: a trigger adds one for every
/// row that a statement writes.
class ContaScritture {
 public:
  /// The archive is closed and opened again.
  ContaScritture(Bottega& bottega, const QString& tabella, const QString& colonna);
  int finora() const;

 private:
  Bottega& bottega_;
};

/// From here on the open archive refuses `verbo` (INSERT, UPDATE, DELETE) on a table. It is closed and opened
/// again.
void vieta(Bottega& bottega, const QString& verbo, const QString& tabella);
