#include "sostegno/process_memory.h"

#include <gtest/gtest.h>

#include <QFile>

qint64 memoryInKiB(const QString& line, const QString& process) {
  QFile account(QStringLiteral("/proc/%1/status").arg(process));
  EXPECT_TRUE(account.open(QIODevice::ReadOnly));
  const QByteArray name = line.toLatin1() + ':';
  for (const QByteArray& one : account.readAll().split('\n'))
    if (one.startsWith(name)) return one.mid(name.size()).chopped(2).trimmed().toLongLong();
  ADD_FAILURE() << "no line " << line.toStdString();
  return 0;
}

void forgetPeak() {
  QFile references(QStringLiteral("/proc/self/clear_refs"));
  ASSERT_TRUE(references.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
  ASSERT_EQ(references.write("5"), 1);
}

void expectPeakWithin(qint64 before, qint64 limit) {
#ifdef __SANITIZE_ADDRESS__
  static_cast<void>(before);
  static_cast<void>(limit);
#else
  EXPECT_LT(memoryInKiB(QStringLiteral("VmHWM")) - before, limit);
#endif
}
