#include "platform/serial/serial_port.h"

#include <QFileInfo>
#include <QScopedValueRollback>
#include <QSerialPort>
#include <QTimer>
#include <utility>

namespace {

/// Between two batches of a line that keeps coming, in milliseconds: no longer than an adaptor on the USB
/// keeps characters back by itself.
constexpr int kBeat = 10;
/// Sizes of the port's own buffer, which asks for no more once it is full.
constexpr qint64 kHeldBack = 1;
constexpr qint64 kUnlimited = 0;

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
  QTimer beat;
  OnArrival onArrival;
  OnError onError;
  int characters = 0;
  bool opens = false;
  bool takes = false;

  Impl() {
    beat.setSingleShot(true);
    beat.setInterval(kBeat);
    connect(&beat, &QTimer::timeout, this, [this] { onBeat(); });
    connect(&port, &QSerialPort::readyRead, this, [this] { arrival(); });
    connect(&port, &QSerialPort::errorOccurred, this,
            [this](QSerialPort::SerialPortError error) { fault(error); });
  }

  /// On a quiet line a character is taken at once, those behind it in batches: each would wake the event
  /// loop, which on a line at full speed costs more than what is done with them.
  void arrival() {
    if (takes || beat.isActive()) return;
    take();
    holdBack();
  }

  void onBeat() {
    port.setReadBufferSize(kUnlimited);
    qsizetype taken = take();
    if (fetch()) taken += take();
    // On a line as slow as the beat there is nothing to gather.
    if (taken > 1) holdBack();
  }

  /// From the next character on nothing wakes the event loop but the beat; what comes waits in the system.
  void holdBack() {
    if (!port.isOpen()) return;
    port.setReadBufferSize(kHeldBack);
    beat.start();
  }

  /// Gets what waits in the system; whether there was anything.
  bool fetch() {
    const QScopedValueRollback own(takes, true);
    return port.isOpen() && port.waitForReadyRead(0);
  }

  /// How many characters there were. Whoever is told may let events through, close the port or do away with
  /// it: a closed port has nothing.
  qsizetype take() {
    const QScopedValueRollback own(takes, true);
    qsizetype taken = 0;
    while (port.isOpen() && port.bytesAvailable() > 0) {
      const QByteArray token = characters > 0 ? port.read(characters) : port.readAll();
      taken += token.size();
      if (onArrival) onArrival(token);
    }
    return taken;
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
  impl_->beat.stop();
  port.setReadBufferSize(kUnlimited);
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
