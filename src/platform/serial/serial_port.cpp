#include "platform/serial/serial_port.h"

#include <QFileInfo>
#include <QSerialPort>
#include <utility>

namespace {

/// Who may not use the device is told the group that may, and the command that puts a person into it.
QString noRight(const QFileInfo& device) {
  return QStringLiteral(
             "Nessun diritto sulla porta %1: serve il gruppo %2 (sudo usermod -aG %2 UTENTE, poi "
             "rientrare nel sistema)")
      .arg(device.filePath(), device.group().isEmpty() ? QString::number(device.groupId()) : device.group());
}

Errore openingError(QSerialPort::SerialPortError error, const QString& path) {
  const QFileInfo device(path);
  switch (error) {
    case QSerialPort::DeviceNotFoundError:
      return {errors::kPortMissing, path.isEmpty() ? QStringLiteral("Numero di porta non valido")
                                                   : QStringLiteral("La porta %1 non c'è").arg(path)};
    case QSerialPort::PermissionError:
      if (!device.isReadable() || !device.isWritable()) return {errors::kPortBusy, noRight(device)};
      return {errors::kPortBusy, QStringLiteral("Porta già aperta da un altro programma: ") + path};
    default:
      return {errors::kPortSettings, QStringLiteral("Impossibile impostare lo stato della porta ") + path};
  }
}

/// A pseudo-terminal has no signal lines and refuses to talk of them: that is no broken line.
bool brokenLine(QSerialPort::SerialPortError error) {
  return error != QSerialPort::NoError && error != QSerialPort::UnsupportedOperationError &&
         error != QSerialPort::TimeoutError;
}

}  // namespace

struct SerialPort::Impl : QObject {
  QSerialPort port;
  OnArrival onArrival;
  OnError onError;
  int characters = 0;
  bool opens = false;

  Impl() {
    connect(&port, &QSerialPort::readyRead, this, [this] { arrival(); });
    connect(&port, &QSerialPort::errorOccurred, this,
            [this](QSerialPort::SerialPortError error) { fault(error); });
  }

  /// Whoever is told may let events through, close the port or do away with it: a closed port has nothing.
  void arrival() {
    while (port.isOpen() && port.bytesAvailable() > 0) {
      const QByteArray token = characters > 0 ? port.read(characters) : port.readAll();
      if (onArrival) onArrival(token);
    }
  }

  /// A port whose other side has gone reports it without end: the first report closes it.
  void fault(QSerialPort::SerialPortError error) {
    if (opens || !port.isOpen() || !brokenLine(error)) return;
    port.close();
    if (onError) onError({errors::kPortBroken, QStringLiteral("Errore di lettura dalla porta")});
  }
};

void SerialPort::Later::operator()(Impl* internal) const {
  internal->port.close();
  internal->deleteLater();
}

SerialPort::SerialPort() : impl_(new Impl) {}

SerialPort::~SerialPort() = default;

void SerialPort::onArrival(OnArrival function) {
  impl_->onArrival = std::move(function);
}

void SerialPort::onError(OnError function) {
  impl_->onError = std::move(function);
}

void SerialPort::open(const QString& path, int speed) {
  QSerialPort& port = impl_->port;
  close();
  const QString real = QFileInfo(path).canonicalFilePath();
  if (real.isEmpty()) throw openingError(QSerialPort::DeviceNotFoundError, path);
  // Before the opening: a pseudo-terminal refuses a change of parity afterwards.
  port.setPortName(real);
  port.setBaudRate(speed);
  port.setDataBits(QSerialPort::Data8);
  port.setParity(QSerialPort::NoParity);
  port.setStopBits(QSerialPort::OneStop);
  port.setFlowControl(QSerialPort::NoFlowControl);
  impl_->opens = true;
  const bool isOpen = port.open(QIODevice::ReadWrite);
  impl_->opens = false;
  if (!isOpen) throw openingError(port.error(), real);
}

void SerialPort::close() {
  if (isOpen()) impl_->port.close();
}

bool SerialPort::isOpen() const {
  return impl_->port.isOpen();
}

void SerialPort::write(const QByteArray& byte) {
  if (!isOpen())
    throw Errore{errors::kPortClosed, QStringLiteral("Operazione valida solo se la porta è aperta")};
  if (impl_->port.write(byte) != byte.size())
    throw Errore{errors::kPortBroken, QStringLiteral("Errore di scrittura sulla porta")};
}

void SerialPort::InputLen(int characters) {
  impl_->characters = characters;
}
