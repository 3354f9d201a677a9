#pragma once

#include <QString>

class BackRoom;

/// Counts the row writes of one column of the open archive, in the file itself: a trigger adds one for every
/// row that a statement writes.
class WriteCount {
 public:
  /// The archive is closed and opened again.
  WriteCount(BackRoom& room, const QString& table, const QString& column);
  int soFar() const;

 private:
  BackRoom& room_;
};

/// From here on the open archive refuses `verb` (INSERT, UPDATE, DELETE) on a table. It is closed and opened
/// again.
void forbid(BackRoom& room, const QString& verb, const QString& table);
