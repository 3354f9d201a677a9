#include "core/system_info.h"

#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

#include "platform/error.h"
#include "platform/ui/user_port.h"

namespace {

#ifdef Q_OS_WIN

QStringList candidati() {
  const QSettings macchina(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft"),
                           QSettings::NativeFormat);
  const QString diretto = macchina.value(QStringLiteral("Shared Tools/MSINFO/PATH")).toString();
  const QString cartella = macchina.value(QStringLiteral("Shared Tools Location/MSINFO")).toString();
  QStringList trovati;
  if (!diretto.isEmpty()) trovati << diretto;
  if (!cartella.isEmpty()) trovati << cartella + QStringLiteral("\\MSINFO32.EXE");
  return trovati;
}

#else

QStringList candidati() {
  QStringList trovati;
  for (const auto* nome : {"kinfocenter", "hardinfo2", "hardinfo", "gnome-control-center",
                           "gnome-system-monitor", "mate-system-monitor", "xfce4-taskmanager", "ksysguard"}) {
    const QString percorso = QStandardPaths::findExecutable(QLatin1String(nome));
    if (!percorso.isEmpty()) trovati << percorso;
  }
  return trovati;
}

#endif

bool avviato(const QString& programma, Utente& utente) {
  try {
    utente.StartProgram(programma, {});
    return true;
  } catch (const Errore&) {
    return false;  // the next candidate may do
  }
}

}  // namespace

void StartSysInfo(Utente& utente) {
  for (const QString& programma : candidati())
    if (avviato(programma, utente)) return;
  utente.MsgBox(QStringLiteral("Le informazioni sul sistema non sono attualmente disponibili."));
}
