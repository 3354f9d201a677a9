#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// The simulated till as a process of its own, on a loopback address. Ended with the object.
class CassaEsterna {
 public:
  /// `programma` is ecrsim, `memoria` its folder. Throws std::runtime_error if it does not come up.
  CassaEsterna(QString programma, QString indirizzo, QString memoria);
  ~CassaEsterna();
  CassaEsterna(const CassaEsterna&) = delete;
  CassaEsterna& operator=(const CassaEsterna&) = delete;

  void avvia(const QStringList& altriArgomenti = {});
  void ferma();
  const QString& indirizzo() const { return indirizzo_; }
  QString file(const QString& nome) const { return memoria_ + QLatin1Char('/') + nome; }

 private:
  QString programma_;
  QString indirizzo_;
  QString memoria_;
  QProcess processo_;
};
