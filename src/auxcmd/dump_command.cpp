#include "auxcmd/dump_command.h"

#include "core/context.h"
#include "platform/ui/user_port.h"

namespace auxcmd {

namespace {

constexpr int kCifre = 5;

QString comando(const QString& argomento, const char* funzione) {
  return QStringLiteral("X\"%1\"%2F").arg(argomento, QLatin1String(funzione));
}

QString cinqueCifre(int numero) {
  return QString::number(numero).rightJustified(kCifre, u'0');
}

}  // namespace

QString comandoPerDate(Memoria memoria, const QString& date) {
  return comando(date, memoria == Memoria::DGFE ? "10" : "12");
}

QString comandoPerNumeri(Memoria memoria, const QString& data, int primo, int ultimo) {
  const QString numeri = cinqueCifre(primo) + cinqueCifre(ultimo);
  return memoria == Memoria::DGFE ? comando(data + numeri, "11") : comando(numeri, "13");
}

void RunShellExecute(const QString& file, Contesto& contesto) {
#ifdef Q_OS_WIN
  contesto.utente.StartProgram(QStringLiteral("notepad.exe"), {file});
#else
  contesto.utente.OpenWithDesktop(file);
#endif
}

}  // namespace auxcmd
