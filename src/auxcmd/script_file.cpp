#include "auxcmd/script_file.h"

#include <QDir>

#include "auxcmd/channel.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "platform/text/line_reader.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"

namespace auxcmd {

QString fileScript(const QString& nome, const Contesto& contesto) {
  return QDir(contesto.cartella).filePath(QStringLiteral("TEST_XON_XOFF/") + nome);
}

int InviaScript(int numero, VistaCanale& vista, Contesto& contesto) {
  const QString file = fileScript(QStringLiteral("test%1.txt").arg(numero), contesto);
  if (FileEsiste(file)) return InviaFileXonXoff(file, vista, contesto);
  contesto.utente.MsgBox(
      QStringLiteral("Attenzione PATH [ %1 ] non esistente").arg(QDir::toNativeSeparators(file)),
      Icon::Critical);
  return 1;
}

int SendFileTXT(const QString& file, VistaCanale& vista, Contesto& contesto) {
  const bool rete = commonForKora().hConnXonXoff != 0;
  const int porta = rete ? 0 : DammiPortaCOM(vista);
  if (!rete && porta == 0) {
    contesto.utente.MsgBox(QStringLiteral("Attenzione selezionare una porta COM valida"), Icon::Warning);
    return 1;
  }
  LineReader righe(file);
  int primoGuasto = 0;
  while (!righe.atEnd() && !vista.chiusa()) {
    const QString riga = windows1252::toText(righe.next().bytes);
    if (riga.trimmed().isEmpty()) continue;
    const int esito =
        rete ? InviaXonXoff(porta, vista, riga, contesto) : InviaRiceviXonXoff(porta, vista, riga, contesto);
    if (primoGuasto == 0) primoGuasto = esito;
  }
  if (!vista.chiusa()) vista.togliAttesa();
  return primoGuasto;
}

}  // namespace auxcmd
