#pragma once

#include <QByteArray>
#include <QTimer>
#include <functional>

#include "platform/serial/serial_port.h"

/// In front of why a port failed.
inline constexpr const char16_t* kPortaGuasta = u"Errore sulla porta COM: ";

/// `MSComm1` of a screen, with `Timer1`, which ends a wait for it.
class LineaCOM {
 public:
  /// What came in, `InputLen` characters at a time.
  using Dati = std::function<void(const QByteArray&)>;
  using Segnale = std::function<void()>;

  /// `cartella`: the application folder, where links may stand for the ports.
  explicit LineaCOM(QString cartella);

  void suDati(Dati funzione) { porta_.onArrival(std::move(funzione)); }
  /// The line broke; it is closed by then.
  void suErrore(Segnale funzione);
  /// `Timer1` has fired.
  void allaScadenza(Segnale funzione) { scadenza_ = std::move(funzione); }

  /// Opens port `numero`, closing first what was open. Throws Errore 8002, 8005 or 8015, whose text says why.
  void apri(int numero, int velocita);
  void chiudi() { porta_.close(); }
  bool aperta() const { return porta_.isOpen(); }
  void InputLen(int caratteri) { porta_.InputLen(caratteri); }
  /// Throws Errore 8018 or 8020.
  void Output(const QByteArray& byte) { porta_.write(byte); }

  void avviaTimer(int millisecondi) { timer_.start(millisecondi); }
  void fermaTimer() { timer_.stop(); }

 private:
  QString cartella_;
  SerialPort porta_;
  Segnale scadenza_;
  QTimer timer_;
};
