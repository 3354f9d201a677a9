#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace articles {

/// One line of a text file, without its end.
struct Riga {
  QByteArray byte;
  /// False for a line longer than the reader's limit, of which `byte` holds the beginning only.
  bool intera = true;
};

/// A text file read line by line in bounded memory, whatever it holds. CR LF, LF and CR end a line; the last
/// line may lack its end.
class LettoreRighe {
 public:
  /// No line of an exchange file comes near it; what is behind is passed over.
  static constexpr qsizetype kRigaMassima = 1 << 20;

  /// Throws Errore 53 (absent), 75 (no regular file, or unreadable).
  explicit LettoreRighe(const QString& percorso);

  /// True when every byte has been handed out. Throws Errore 75 if the file cannot be read any more.
  bool fine();
  /// Throws Errore 62 behind the end, 75 if the file cannot be read any more.
  Riga prossima();
  /// Bytes handed out so far, and bytes of the whole file when it was opened.
  qint64 letti() const { return letti_; }
  qint64 dimensione() const { return dimensione_; }
  void chiudi() { file_.close(); }

 private:
  bool riempi();
  void consuma(qsizetype quanti);

  QFile file_;
  QByteArray blocco_;
  qsizetype inizio_ = 0;
  qint64 letti_ = 0;
  qint64 dimensione_ = 0;
};

}  // namespace articles
