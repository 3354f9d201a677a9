#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// A folder of the test's own, the process's current folder while it lives: what the transfer files and the
/// archives of one test are written to.
class CartellaTemporanea {
 public:
  CartellaTemporanea();
  ~CartellaTemporanea();
  CartellaTemporanea(const CartellaTemporanea&) = delete;
  CartellaTemporanea& operator=(const CartellaTemporanea&) = delete;

  QString percorso() const { return cartella_.path(); }
  /// Full path of a name in the folder.
  QString file(const QString& nome) const;
  /// Writes bytes under a name, fails the test if it cannot; returns the path.
  QString scrivi(const QString& nome, const QByteArray& byte) const;
  QByteArray leggi(const QString& nome) const;

 private:
  QTemporaryDir cartella_;
  QString prima_;
};
