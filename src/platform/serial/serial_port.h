#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "platform/error.h"

/// A serial line, event driven: no parity, 8 data bits, 1 stop bit. Nothing here waits. A character on a
/// quiet line arrives at once; of a line that keeps coming a batch arrives at each beat of 10 ms, in order.
class SerialPort {
 public:
  /// What came in, in pieces of `InputLen` characters.
  using OnArrival = std::function<void(const QByteArray&)>;
  /// The line broke: told once, the port is closed by then.
  using OnError = std::function<void(const Errore&)>;

  SerialPort();
  ~SerialPort();
  SerialPort(const SerialPort&) = delete;
  SerialPort& operator=(const SerialPort&) = delete;

  void onArrival(OnArrival function);
  void onError(OnError function);

  /// Opens a device by its path; one that is open is closed first. Throws Errore 8002 (no such device, empty
  /// path), 8005 (in use or not permitted), 8015 (the device does not take the settings).
  void open(const QString& path, int speed);
  void close();
  bool isOpen() const;
  /// Hands bytes over for sending. Throws Errore 8018 if the port is closed, 8020 if they are not taken.
  void write(const QByteArray& byte);
  /// Characters to an arrival; 0: all that are waiting. At first 0.
  void InputLen(int characters);

 private:
  struct Impl;
  /// Goes at the next turn of the event loop: its owner may have been told something by it just now.
  struct Later {
    void operator()(Impl* internal) const;
  };
  std::unique_ptr<Impl, Later> impl_;
};

namespace serial {

/// Paths of the devices that the system lists, in its order.
QStringList listPorts();

/// Path of port `number`, 1 to 16: the link `Porte/COM<numero>` of the application folder if there is one,
/// else the device at that place of the list. Empty if there is none.
QString portPath(int number, const QString& folder);

/// Numbers, from 1 to 16, that lead to a device. Asks the system for its list once, which takes it longer
/// than all the rest.
QList<int> presentPorts(const QString& folder);

}  // namespace serial
