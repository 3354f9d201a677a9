#include "demo/cassa_esterna.h"

#include <sys/prctl.h>

#include <QDir>
#include <csignal>
#include <stdexcept>

namespace {
constexpr int kPazienzaMs = 15000;
}

CassaEsterna::CassaEsterna(QString programma, QString indirizzo, QString memoria)
    : programma_(std::move(programma)), indirizzo_(std::move(indirizzo)), memoria_(std::move(memoria)) {
  QDir().mkpath(memoria_);
  processo_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  // However the demo ends, its till ends with it.
  processo_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

CassaEsterna::~CassaEsterna() {
  ferma();
}

void CassaEsterna::avvia(const QStringList& altriArgomenti) {
  processo_.start(programma_,
                  QStringList{QStringLiteral("--address"), indirizzo_, QStringLiteral("--dir"), memoria_} +
                      altriArgomenti);
  while (processo_.waitForReadyRead(kPazienzaMs))
    if (processo_.readAllStandardOutput().contains("ECRSIM pronto su")) return;
  throw std::runtime_error("the simulated till does not come up");
}

void CassaEsterna::ferma() {
  if (processo_.state() == QProcess::NotRunning) return;
  processo_.terminate();
  if (!processo_.waitForFinished(kPazienzaMs)) processo_.kill();
}
