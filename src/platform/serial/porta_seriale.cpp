#include "platform/serial/porta_seriale.h"

#include <QFileInfo>
#include <QSerialPort>
#include <utility>

namespace {

Errore erroreApertura(QSerialPort::SerialPortError errore) {
  switch (errore) {
    case QSerialPort::DeviceNotFoundError:
      return {errore::kPortaAssente, QStringLiteral("Numero di porta non valido")};
    case QSerialPort::PermissionError:
      return {errore::kPortaOccupata, QStringLiteral("Porta già aperta")};
    default:
      return {errore::kPortaImpostazioni, QStringLiteral("Impossibile impostare lo stato della porta")};
  }
}

/// A pseudo-terminal has no signal lines and refuses to talk of them: that is no broken line.
bool lineaRotta(QSerialPort::SerialPortError errore) {
  return errore != QSerialPort::NoError && errore != QSerialPort::UnsupportedOperationError &&
         errore != QSerialPort::TimeoutError;
}

}  // namespace

struct PortaSeriale::Interno : QObject {
  QSerialPort porta;
  AllArrivo allArrivo;
  AllErrore allErrore;
  int caratteri = 0;
  bool apre = false;

  Interno() {
    connect(&porta, &QSerialPort::readyRead, this, [this] { arrivo(); });
    connect(&porta, &QSerialPort::errorOccurred, this,
            [this](QSerialPort::SerialPortError errore) { guasto(errore); });
  }

  /// Whoever is told may let events through, close the port or do away with it: a closed port has nothing.
  void arrivo() {
    while (porta.isOpen() && porta.bytesAvailable() > 0) {
      const QByteArray pezzo = caratteri > 0 ? porta.read(caratteri) : porta.readAll();
      if (allArrivo) allArrivo(pezzo);
    }
  }

  /// A port whose other side has gone reports it without end: the first report closes it.
  void guasto(QSerialPort::SerialPortError errore) {
    if (apre || !porta.isOpen() || !lineaRotta(errore)) return;
    porta.close();
    if (allErrore) allErrore({errore::kPortaGuasta, QStringLiteral("Errore di lettura dalla porta")});
  }
};

void PortaSeriale::PiuTardi::operator()(Interno* interno) const {
  interno->porta.close();
  interno->deleteLater();
}

PortaSeriale::PortaSeriale() : interno_(new Interno) {}

PortaSeriale::~PortaSeriale() = default;

void PortaSeriale::allArrivo(AllArrivo funzione) {
  interno_->allArrivo = std::move(funzione);
}

void PortaSeriale::allErrore(AllErrore funzione) {
  interno_->allErrore = std::move(funzione);
}

void PortaSeriale::apri(const QString& percorso, int velocita) {
  QSerialPort& porta = interno_->porta;
  chiudi();
  const QString vero = QFileInfo(percorso).canonicalFilePath();
  if (vero.isEmpty()) throw erroreApertura(QSerialPort::DeviceNotFoundError);
  // Before the opening: a pseudo-terminal refuses a change of parity afterwards.
  porta.setPortName(vero);
  porta.setBaudRate(velocita);
  porta.setDataBits(QSerialPort::Data8);
  porta.setParity(QSerialPort::NoParity);
  porta.setStopBits(QSerialPort::OneStop);
  porta.setFlowControl(QSerialPort::NoFlowControl);
  interno_->apre = true;
  const bool aperta = porta.open(QIODevice::ReadWrite);
  interno_->apre = false;
  if (!aperta) throw erroreApertura(porta.error());
}

void PortaSeriale::chiudi() {
  if (aperta()) interno_->porta.close();
}

bool PortaSeriale::aperta() const {
  return interno_->porta.isOpen();
}

void PortaSeriale::scrivi(const QByteArray& byte) {
  if (!aperta())
    throw Errore{errore::kPortaChiusa, QStringLiteral("Operazione valida solo se la porta è aperta")};
  if (interno_->porta.write(byte) != byte.size())
    throw Errore{errore::kPortaGuasta, QStringLiteral("Errore di scrittura sulla porta")};
}

void PortaSeriale::InputLen(int caratteri) {
  interno_->caratteri = caratteri;
}
