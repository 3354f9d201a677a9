#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// A folder of the test's own, the process's current folder while it lives: what the transfer files and the
/// archives of one test are written to.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  QString path() const { return folder_.path(); }
  /// Full path of a name in the folder.
  QString file(const QString& name) const;
  /// Writes bytes under a name, fails the test if it cannot; returns the path.
  QString write(const QString& name, const QByteArray& byte) const;
  QByteArray read(const QString& name) const;

 private:
  QTemporaryDir folder_;
  QString before_;
};
