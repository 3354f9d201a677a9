#include "auxcmd/bench_view.h"

#include "auxcmd/Form_ATTESA_MF_DGFE.h"
#include "core/context.h"
#include "core/reactions.h"
#include "core/screens.h"
#include "core/state.h"
#include "platform/ui/user_port.h"

namespace auxcmd {

VistaBanco::VistaBanco(QWidget& esci, Contesto& contesto)
    : esci_(esci), contesto_(contesto), linea_(contesto.cartella) {
  linea_.suDati([this](const QByteArray& byte) { DatiDelBanco(*this, byte); });
  linea_.suErrore([] { varGlobal().FlagRisposta = kErrorePorta; });
  linea_.allaScadenza([] { varGlobal().FlagRisposta = kTempoScaduto; });
}

VistaCanale* VistaBanco::console() const {
  return dynamic_cast<VistaCanale*>(contesto_.schermate.trova(QStringLiteral("Form_Comandi_XONXOFF")));
}

QString VistaBanco::porta() const {
  const VistaCanale* una = console();
  return una ? una->porta() : QString();
}

int VistaBanco::velocita() const {
  const VistaCanale* una = console();
  return una ? una->velocita() : 0;
}

void VistaBanco::fuocoSuEsci() {
  esci_.setFocus();
}

void VistaBanco::scambiaLed() {
  if (VistaCanale* una = console()) una->scambiaLed();
}

void VistaBanco::spegniLed() {
  if (VistaCanale* una = console()) una->spegniLed();
}

void VistaBanco::togliAttesa() {
  ChiudiAttesa(contesto_);
}

void VistaBanco::annota(Verso verso, const QByteArray& byte) {
  if (VistaCanale* una = console()) una->annota(verso, byte);
}

void VistaBanco::chiudi() {
  chiusa_ = true;
  linea_.fermaTimer();
  linea_.chiudi();
}

bool VistaBanco::portaValida(int& numero) {
  numero = 0;
  if (commonForKora().hConnXonXoff != 0) return true;
  // One port, two screens: the console's line gives it up, and so does the one of the sequence before.
  if (VistaCanale* una = console()) una->linea().chiudi();
  numero = DammiPortaCOM(*this);
  return numero != 0;
}

int inviaDalBanco(const std::function<int()>& invio, VistaCanale& vista, Contesto& contesto) {
  return reazioni::oppure(invio, [&](const Errore& errore) {
    vista.linea().chiudi();
    vista.annota(Verso::Guasto, errore.descrizione.toUtf8());
    contesto.utente.MsgBox(QString::fromUtf16(kPortaGuasta) + errore.descrizione, Icon::Critical);
    return 1;
  });
}

}  // namespace auxcmd
