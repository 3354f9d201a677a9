#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// Another program that holds an archive while it lives: a process of its own that runs statements and then
/// waits.
class AltroProgramma {
 public:
  AltroProgramma(const QString& archivio, const QStringList& statement);
  ~AltroProgramma();
  AltroProgramma(const AltroProgramma&) = delete;
  AltroProgramma& operator=(const AltroProgramma&) = delete;

 private:
  QProcess processo_;
};

/// While it lives this thread reaches files as a user who owns none: permissions hold for it even where the
/// tests run as root. Other threads, the simulated till's among them, keep their rights.
class AltroUtente {
 public:
  AltroUtente();
  ~AltroUtente();
  AltroUtente(const AltroUtente&) = delete;
  AltroUtente& operator=(const AltroUtente&) = delete;
};

/// While it lives no file of this process can grow past so many bytes, as on a full disk.
class DiscoPieno {
 public:
  explicit DiscoPieno(unsigned long byte);
  ~DiscoPieno();
  DiscoPieno(const DiscoPieno&) = delete;
  DiscoPieno& operator=(const DiscoPieno&) = delete;

 private:
  unsigned long prima_ = 0;
};
