#include "core/context.h"
#include "core/state.h"
#include "ecrlink/link_view.h"
#include "ecrlink/session.h"
#include "platform/net/network.h"
#include "platform/ui/user_port.h"

namespace ecrlink {

namespace {

constexpr int kVersioneMinima = 1;
constexpr int kSottoversioneMinima = 1;
constexpr int kSocketMinimi = 1;
constexpr int kSenzaNome = -1;

void fine(Contesto& contesto, const QString& motivo) {
  contesto.utente.MsgBox(motivo);
  contesto.utente.Terminate();
}

bool versioneServita(const NetworkStartup& avvio) {
  if (avvio.version != kVersioneMinima) return avvio.version > kVersioneMinima;
  return avvio.subversion >= kSottoversioneMinima;
}

void avviaRete(Contesto& contesto) {
  const NetworkStartup avvio = contesto.rete.start();
  if (!avvio.answers) fine(contesto, QStringLiteral("Winsock.dll is not responding."));
  if (!versioneServita(avvio))
    fine(contesto, QStringLiteral("Windows Sockets version %1.%2 is not supported by winsock.dll ")
                       .arg(avvio.version)
                       .arg(avvio.subversion));
  if (avvio.socket < kSocketMinimi)
    fine(contesto,
         QStringLiteral("This application requires a minimum of %1 supported sockets.").arg(kSocketMinimi));
}

void chiudiRete(Contesto& contesto) {
  const int codice = contesto.rete.close();
  if (codice != 0) fine(contesto, QStringLiteral("Socket error %1 occurred in Cleanup ").arg(codice));
}

int mostraIndirizzi(VistaLink& vista, Contesto& contesto) {
  const QString nome = contesto.rete.computerName().trimmed();
  if (nome.isEmpty()) {
    contesto.utente.MsgBox(QStringLiteral("Attenzione problema di connessione di rete per il PC locale!\r\n"
                                          "Contattare l'amministratore di rete."),
                           Icon::Critical);
    return kSenzaNome;
  }
  vista.scriviIndirizziLocali(contesto.rete.localAddresses(nome));
  return 0;
}

}  // namespace

int InitRete(VistaLink& vista, Contesto& contesto) {
  const QString indirizzo = QString::fromLatin1(kIndirizzoPredefinito);
  commonForKora().IP_ECR = indirizzo;
  vista.scriviIndirizzo(indirizzo);
  vista.abilitaAvvia(false);
  vista.abilitaConnetti(true);
  avviaRete(contesto);
  const int esito = mostraIndirizzi(vista, contesto);
  chiudiRete(contesto);
  return esito;
}

}  // namespace ecrlink
