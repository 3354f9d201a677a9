#include "demo/external_till.h"

#include <sys/prctl.h>

#include <QDir>
#include <csignal>
#include <stdexcept>

namespace {
constexpr int kPatienceMs = 15000;
}

ExternalTill::ExternalTill(QString program, QString address, QString memory)
    : program_(std::move(program)), address_(std::move(address)), memory_(std::move(memory)) {
  QDir().mkpath(memory_);
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  // However the demo ends, its till ends with it.
  process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

ExternalTill::~ExternalTill() {
  stop();
}

void ExternalTill::start(const QStringList& otherArguments) {
  process_.start(
      program_,
      QStringList{QStringLiteral("--address"), address_, QStringLiteral("--dir"), memory_} + otherArguments);
  while (process_.waitForReadyRead(kPatienceMs))
    if (process_.readAllStandardOutput().contains("ECRSIM pronto su")) return;
  throw std::runtime_error("the simulated till does not come up");
}

void ExternalTill::stop() {
  if (process_.state() == QProcess::NotRunning) return;
  process_.terminate();
  if (!process_.waitForFinished(kPatienceMs)) process_.kill();
}
