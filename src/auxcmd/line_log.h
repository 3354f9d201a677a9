#pragma once

#include <QByteArray>
#include <QPlainTextEdit>
#include <QStringList>
#include <QTimer>

#include "auxcmd/channel.h"

class Clock;

/// What went over the line, for the eyes of a technician: time, a sign for the direction, text and
/// hexadecimal, and a colour for whom the sign is too small. The last lines only; it scrolls by itself only
/// while its end is seen. What comes in is shown at a beat, many lines at once: painted at each of them, a
/// line at full speed would cost more than everything else.
class RegistroLinea : public QPlainTextEdit {
  Q_OBJECT

 public:
  /// Lines that are kept.
  static constexpr int kRighe = 2000;
  /// Bytes of one line; of a longer piece the rest stands in the lines behind.
  static constexpr qsizetype kByteRiga = 24;
  /// Bytes of one reception that are shown one by one; of what is behind only the number.
  static constexpr qsizetype kByteMostrati = 4096;
  /// Lines that are seen in its smallest size.
  static constexpr int kRigheViste = 8;

  explicit RegistroLinea(QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

  /// The clock outlives the log.
  void usa(const Clock& orologio) { orologio_ = &orologio; }
  /// Characters of one direction that come one behind the other stand in one line. What was received is shown
  /// at the next beat, all else at once.
  void annota(auxcmd::Verso verso, const QByteArray& byte);
  /// Shows what still waits for its line, or for the beat.
  void completa();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void battito();
  QString ora() const;
  /// Lines out of what is waiting: the whole ones, or all of it.
  void componi(qsizetype almeno);
  void componiTaciuti();
  void scrivi();

  const Clock* orologio_ = nullptr;
  auxcmd::Verso verso_ = auxcmd::Verso::Inviato;
  QByteArray inAttesa_;
  /// Of the first byte that is waiting.
  QString oraInAttesa_;
  QStringList pronte_;
  qint64 mostrati_ = 0;
  qint64 taciuti_ = 0;
  bool arrivato_ = false;
  QTimer battito_;
};
