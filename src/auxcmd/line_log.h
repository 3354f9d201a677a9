#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>

#include "auxcmd/channel.h"

class Clock;

/// What went over the line, for the eyes of a technician: time, a sign for the direction, text and
/// hexadecimal. The last lines only; it scrolls by itself only while its end is seen.
class RegistroLinea : public QPlainTextEdit {
  Q_OBJECT

 public:
  /// Lines that are kept.
  static constexpr int kRighe = 2000;
  /// Bytes of one line; of a longer piece the rest stands in the lines behind.
  static constexpr qsizetype kByteRiga = 24;
  /// Bytes of one reception that are shown one by one; of what is behind only the number.
  static constexpr qsizetype kByteMostrati = 4096;

  explicit RegistroLinea(QWidget* parent = nullptr);

  /// The clock outlives the log.
  void usa(const Clock& orologio) { orologio_ = &orologio; }
  /// Characters of one direction that come one behind the other stand in one line.
  void annota(auxcmd::Verso verso, const QByteArray& byte);
  /// What still waits for its line.
  void completa();

 private:
  void scrivi(const QString& riga);

  const Clock* orologio_ = nullptr;
  auxcmd::Verso verso_ = auxcmd::Verso::Inviato;
  QByteArray inAttesa_;
  qint64 mostrati_ = 0;
  qint64 taciuti_ = 0;
  QTimer pausa_;
};
