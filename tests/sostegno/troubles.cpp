#include "sostegno/troubles.h"

#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QLocale>
#include <csignal>

#include "controls/style.h"

namespace {
constexpr int kPatience = 10000;  // milliseconds
constexpr uid_t kNobody = 65534;
}  // namespace

OtherProgram::OtherProgram(const QString& archive, const QStringList& statements) {
  process_.start(QStringLiteral(LOCK_ARCHIVE), QStringList{archive} + statements);
  EXPECT_TRUE(process_.waitForReadyRead(kPatience)) << process_.errorString().toStdString();
  EXPECT_EQ(process_.readAllStandardOutput().trimmed(), QByteArray("pronto"));
}

OtherProgram::~OtherProgram() {
  process_.closeWriteChannel();
  EXPECT_TRUE(process_.waitForFinished(kPatience));
  EXPECT_EQ(process_.exitCode(), 0);
}

qint64 endedProcess() {
  QProcess other;
  other.start(QStringLiteral("true"), QStringList());
  EXPECT_TRUE(other.waitForStarted());
  const qint64 number = other.processId();
  EXPECT_TRUE(other.waitForFinished());
  return number;
}

OtherUser::OtherUser() {
  setfsuid(kNobody);
}

OtherUser::~OtherUser() {
  setfsuid(geteuid());
}

FullDisk::FullDisk(unsigned long bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  before_ = limit.rlim_cur;
  limit.rlim_cur = bytes;
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

FullDisk::~FullDisk() {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = before_;
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

WithLocale::WithLocale(const char* name) : before_(QLocale().name()) {
  QLocale::setDefault(QLocale(QLatin1String(name)));
}

WithLocale::~WithLocale() {
  QLocale::setDefault(QLocale(before_));
}

InFont::InFont(int points) : before_(QApplication::font()) {
  QFont font = before_;
  font.setPointSize(points);
  QApplication::setFont(font);
  style::apply(*qApp, style::Theme::Light);
}

InFont::~InFont() {
  qApp->setStyleSheet({});
  QApplication::setFont(before_);
}
