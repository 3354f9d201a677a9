#include "auxcmd/script_file.h"

#include <QDir>
#include <functional>

#include "auxcmd/channel.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "platform/text/line_reader.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"

namespace auxcmd {

namespace {

constexpr int kFallito = 1;

/// `invia` for each line; the first code that is not 0. A refused line has told so, and those behind it go
/// all the same: what a script undoes at its end is not to be left done because a line in its middle was not
/// taken.
int perOgniRiga(const QString& file, const VistaCanale& vista,
                const std::function<int(const QString&)>& invia) {
  LineReader righe(file);
  int primoGuasto = 0;
  while (!righe.atEnd() && !vista.chiusa()) {
    const QString riga = windows1252::toText(righe.next().bytes);
    // It presses no key: sent, it would open the script anew, or hold a serial line up for the whole time.
    if (riga.trimmed().isEmpty()) continue;
    const int esito = invia(riga);
    if (primoGuasto == 0) primoGuasto = esito;
  }
  return primoGuasto;
}

}  // namespace

QString fileScript(const QString& nome, const Contesto& contesto) {
  return QDir(contesto.cartella).filePath(QStringLiteral("TEST_XON_XOFF/") + nome);
}

int InviaScript(int numero, VistaCanale& vista, Contesto& contesto) {
  const QString file = fileScript(QStringLiteral("test%1.txt").arg(numero), contesto);
  if (FileEsiste(file)) return InviaFileXonXoff(file, vista, contesto);
  contesto.utente.MsgBox(
      QStringLiteral("Attenzione PATH [ %1 ] non esistente").arg(QDir::toNativeSeparators(file)),
      Icon::Critical);
  return kFallito;
}

int InviaFileXonXoff(const QString& file, VistaCanale& vista, Contesto& contesto) {
  const bool rete = commonForKora().hConnXonXoff != 0;
  // The till is told by an empty sequence that a script follows.
  if (rete)
    if (const int esito = InviaXonXoff(0, vista, {}, contesto); esito != 0) return esito;
  const int porta = rete ? 0 : DammiPortaCOM(vista);
  return perOgniRiga(file, vista,
                     [&](const QString& riga) { return InviaXonXoff(porta, vista, riga, contesto); });
}

int SendFileTXT(const QString& file, VistaCanale& vista, Contesto& contesto) {
  const bool rete = commonForKora().hConnXonXoff != 0;
  const int porta = rete ? 0 : DammiPortaCOM(vista);
  if (!rete && porta == 0) {
    avvisaPorta(contesto);
    return kFallito;
  }
  const int esito = perOgniRiga(file, vista, [&](const QString& riga) {
    return rete ? InviaXonXoff(porta, vista, riga, contesto)
                : InviaRiceviXonXoff(porta, vista, riga, contesto);
  });
  if (!vista.chiusa()) vista.togliAttesa();
  return esito;
}

}  // namespace auxcmd
