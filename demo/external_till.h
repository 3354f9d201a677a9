#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// The simulated till as a process of its own, on a loopback address. Ended with the object.
class ExternalTill {
 public:
  /// `program` is ecrsim, `memory` its folder. Throws std::runtime_error if it does not come up.
  ExternalTill(QString program, QString address, QString memory);
  ~ExternalTill();
  ExternalTill(const ExternalTill&) = delete;
  ExternalTill& operator=(const ExternalTill&) = delete;

  void start(const QStringList& otherArguments = {});
  void stop();
  const QString& address() const { return address_; }
  QString file(const QString& name) const { return memory_ + QLatin1Char('/') + name; }

 private:
  QString program_;
  QString address_;
  QString memory_;
  QProcess process_;
};
