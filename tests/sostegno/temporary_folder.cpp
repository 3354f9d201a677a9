#include "sostegno/temporary_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

TemporaryFolder::TemporaryFolder() : before_(QDir::currentPath()) {
  EXPECT_TRUE(folder_.isValid());
  EXPECT_TRUE(QDir::setCurrent(folder_.path()));
}

TemporaryFolder::~TemporaryFolder() {
  QDir::setCurrent(before_);
}

QString TemporaryFolder::file(const QString& name) const {
  return folder_.filePath(name);
}

QString TemporaryFolder::write(const QString& name, const QByteArray& byte) const {
  QFile output(file(name));
  EXPECT_TRUE(output.open(QIODevice::WriteOnly)) << name.toStdString();
  EXPECT_EQ(output.write(byte), byte.size());
  return file(name);
}

QByteArray TemporaryFolder::read(const QString& name) const {
  QFile entered(file(name));
  EXPECT_TRUE(entered.open(QIODevice::ReadOnly)) << name.toStdString();
  return entered.readAll();
}
