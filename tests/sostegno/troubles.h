#pragma once

#include <QFont>
#include <QProcess>
#include <QString>
#include <QStringList>

/// Another program that holds an archive while it lives: a process of its own that runs statements and then
/// waits.
class OtherProgram {
 public:
  OtherProgram(const QString& archive, const QStringList& statements);
  ~OtherProgram();
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

 private:
  QProcess process_;
};

/// Number of a process that is no more.
qint64 endedProcess();

/// While it lives this thread reaches files as a user who owns none: permissions hold for it even where the
/// tests run as root. Other threads, the simulated till's among them, keep their rights.
class OtherUser {
 public:
  OtherUser();
  ~OtherUser();
  OtherUser(const OtherUser&) = delete;
  OtherUser& operator=(const OtherUser&) = delete;
};

/// While it lives no file of this process can grow past so many bytes, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(unsigned long bytes);
  ~FullDisk();
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  unsigned long before_ = 0;
};

/// The screens' locale for the life of one test.
class WithLocale {
 public:
  explicit WithLocale(const char* name);
  ~WithLocale();
  WithLocale(const WithLocale&) = delete;
  WithLocale& operator=(const WithLocale&) = delete;

 private:
  QString before_;
};

/// The program's light look in a font of so many points, for the life of one test.
class InFont {
 public:
  explicit InFont(int points);
  ~InFont();
  InFont(const InFont&) = delete;
  InFont& operator=(const InFont&) = delete;

 private:
  QFont before_;
};
