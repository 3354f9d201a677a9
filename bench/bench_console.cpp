#include "bench/bench_console.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <stdexcept>

#include "auxcmd/Form_ATTESA_MF_DGFE.h"
#include "auxcmd/Form_Comandi_XONXOFF.h"
#include "auxcmd/channel.h"
#include "core/menu.h"
#include "core/state.h"

BenchConsole::BenchConsole() {
  bench.contesto.cartella = QDir::currentPath();
  registraSchermateCore(bench.screens);
  bench.screens.registra<Form_Comandi_XONXOFF>();
  bench.screens.registra<Form_ATTESA_MF_DGFE>();
}

void BenchConsole::show() {
  screen_.emplace(bench, "Form_Comandi_XONXOFF");
  for (const char* option : {"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonGlobale"})
    screen_->control<QRadioButton>(option).setChecked(true);
}

void BenchConsole::connect(const QString& address) {
  show();
  screen_->control<QLineEdit>("vkTextBoxIP_ECR").setText(address);
  screen_->press("CmdInviaModECR");
  if (commonForKora().hConnXonXoff <= 0) throw std::runtime_error("not connected");
}

void BenchConsole::plug(const QString& device, int speed) {
  const QDir folder(bench.contesto.cartella);
  if (!folder.mkpath(QStringLiteral("Porte")) ||
      !QFile::link(device, folder.filePath(QStringLiteral("Porte/COM1"))))
    throw std::runtime_error("no port");
  show();
  screen_->control<QComboBox>("cboPort").setCurrentText(QStringLiteral("COM  1"));
  screen_->control<QComboBox>("Combo2").setCurrentText(QString::number(speed));
}

std::filesystem::path BenchConsole::dump() {
  screen_->press("Cmd_Avvia");
  const QStringList files = QDir(bench.contesto.cartella).entryList({QStringLiteral("DGFE_*.txt")});
  if (varGlobal().FlagRisposta != auxcmd::kCompleta || files.size() != 1)
    throw std::runtime_error("not dumped");
  return bench.file(files.first().toStdString());
}
