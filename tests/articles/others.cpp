#include "articles/others.h"

#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

namespace {
constexpr int kAttesa = 10000;  // milliseconds
constexpr uid_t kNessuno = 65534;
}  // namespace

AltroProgramma::AltroProgramma(const QString& archivio, const QStringList& statement) {
  processo_.start(QStringLiteral(LOCK_ARCHIVE), QStringList{archivio} + statement);
  EXPECT_TRUE(processo_.waitForReadyRead(kAttesa)) << processo_.errorString().toStdString();
  EXPECT_EQ(processo_.readAllStandardOutput().trimmed(), QByteArray("pronto"));
}

AltroProgramma::~AltroProgramma() {
  processo_.closeWriteChannel();
  EXPECT_TRUE(processo_.waitForFinished(kAttesa));
  EXPECT_EQ(processo_.exitCode(), 0);
}

AltroUtente::AltroUtente() {
  setfsuid(kNessuno);
}

AltroUtente::~AltroUtente() {
  setfsuid(geteuid());
}

DiscoPieno::DiscoPieno(unsigned long byte) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limite{};
  EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &limite), 0);
  prima_ = limite.rlim_cur;
  limite.rlim_cur = byte;
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limite), 0);
}

DiscoPieno::~DiscoPieno() {
  rlimit limite{};
  getrlimit(RLIMIT_FSIZE, &limite);
  limite.rlim_cur = prima_;
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limite), 0);
}
