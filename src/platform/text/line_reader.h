#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// One line of a text file, without its end.
struct Line {
  QByteArray bytes;
  /// False for a line longer than the reader's limit, of which `bytes` holds the beginning only.
  bool whole = true;
};

/// A text file read line by line in bounded memory, whatever it holds. CR LF, LF and CR end a line; the last
/// line may lack its end.
class LineReader {
 public:
  /// No line of an exchange file comes near it; what is behind is passed over.
  static constexpr qsizetype kMaxLine = 1 << 20;

  /// Throws Errore 53 (absent), 75 (no regular file, or unreadable).
  explicit LineReader(const QString& path);

  /// True when every byte has been handed out. Throws Errore 75 if the file cannot be read any more.
  bool atEnd();
  /// Throws Errore 62 behind the end, 75 if the file cannot be read any more.
  Line next();
  /// Bytes handed out so far, and bytes of the whole file when it was opened.
  qint64 done() const { return done_; }
  qint64 size() const { return size_; }
  void close() { file_.close(); }

 private:
  bool fill();
  void consume(qsizetype count);

  QFile file_;
  QByteArray block_;
  qsizetype start_ = 0;
  qint64 done_ = 0;
  qint64 size_ = 0;
};
