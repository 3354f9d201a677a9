#include "ecrlink/session.h"

#include <optional>

#include "core/context.h"
#include "core/conversions.h"
#include "core/reactions.h"
#include "core/state.h"
#include "ecrlink/ecr_info.h"
#include "ecrlink/link_view.h"
#include "ecrlink/till_step.h"
#include "ecrlink/transfer_lock.h"
#include "platform/ecrcom/library.h"
#include "platform/net/network.h"

namespace ecrlink {

namespace {

constexpr int kPuntiIndirizzo = 3;
constexpr int kScadenzaEco = 250;  // milliseconds

/// What goes on after a step.
enum class Seguito { Avanti, Basta, Pronto };

bool convertibile(const QString& parte) {
  try {
    TestoInIntero16(parte);
    return true;
  } catch (const Errore&) {
    return false;
  }
}

void critico(Contesto& contesto, const QString& testo) {
  contesto.utente.MsgBox(testo, Icon::Critical);
}

void rifiutaIndirizzo(VistaLink& vista, Contesto& contesto, const QString& motivo) {
  vista.cassaRisponde(false);
  critico(contesto, motivo);
  vista.abilitaAvvia(false);
  commonForKora().IP_ECR.clear();
}

Seguito verificaIndirizzo(VistaLink& vista, Contesto& contesto) {
  QString& indirizzo = commonForKora().IP_ECR;
  if (!ControllaIP(vista.indirizzo())) {
    rifiutaIndirizzo(
        vista, contesto,
        QStringLiteral(
            "Attenzione l'indirizzo IP del dispositivo ECR da connettere al PC potrebbe essere errato"));
    return Seguito::Basta;
  }
  indirizzo = vista.indirizzo();
  if (!vista.indirizziLocali().contains(indirizzo)) return Seguito::Avanti;
  rifiutaIndirizzo(
      vista, contesto,
      QStringLiteral("Attenzione l'IP del dispositivo ECR deve essere diverso da quello del PC"));
  return Seguito::Basta;
}

int chiama(Contesto& contesto) {
  Passo passo(paroleDiConnessione(), contesto);
  const int esito = PingECR(commonForKora().IP_ECR, contesto);
  if (esito == 0) passo.riuscito();
  return esito;
}

Seguito verificaPresenza(Contesto& contesto) {
  const int esito = chiama(contesto);
  if (esito == 0) return Seguito::Avanti;
  critico(contesto, esito < 0 ? QStringLiteral("Attenzione il dispositivo non risponde, controllare lo stato "
                                               "della connessione e/o l'indirizzo IP dell'ECR")
                              : QStringLiteral("Attenzione il dispositivo non risponde, controllare lo stato "
                                               "e/o l'indirizzo IP dell'ECR"));
  commonForKora().IP_ECR.clear();
  return Seguito::Basta;
}

void mostraInfo(VistaLink& vista) {
  const EcrInfo& info = commonForKora().ECR_INFO;
  vista.mostraInfo(info);
  const std::optional<QString> parola = parolaDelloStato(info.InfoStato);
  if (!parola) return;
  vista.mostraStato(*parola, info.InfoStato);
  vista.distingui(statoAmmesso(info.InfoStato) ? style::Badge::Ready : style::Badge::Busy);
}

Seguito interroga(VistaLink& vista, Contesto& contesto) {
  QString nessunFile;
  QString risposta;
  // A transfer that an earlier run left open on the till would refuse everything that follows.
  ComandoECR(nessunFile, Modo::ChiudiTrasferimento, risposta, contesto, paroleDiConnessione());
  if (ComandoECR(nessunFile, Modo::EcrInfo, risposta, contesto) != 0) {
    // The person may go on with a till that does not tell about itself: the start command is let go with the
    // address in use, and the connection can be tried again.
    vista.abilitaConnetti(true);
    return Seguito::Pronto;
  }
  if (ParseInfoECR(risposta) == 0) return Seguito::Avanti;
  critico(contesto, QStringLiteral("ERRORE protocollo ECR INFO"));
  commonForKora().IP_ECR.clear();
  return Seguito::Pronto;
}

Seguito verificaStato(VistaLink& vista, Contesto& contesto) {
  if (statoAmmesso(commonForKora().ECR_INFO.InfoStato)) return Seguito::Avanti;
  critico(contesto, QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o "
                                   "PROGRAMMAZIONE"));
  vista.abilitaConnetti(true);
  commonForKora().IP_ECR.clear();
  return Seguito::Basta;
}

void pronto(VistaLink& vista) {
  vista.abilitaAvvia(true);
  vista.fuocoSuEsci();
  vista.abilitaSchermo();
}

EsitoConnessione connetti(VistaLink& vista, Contesto& contesto) {
  if (verificaIndirizzo(vista, contesto) == Seguito::Basta) return EsitoConnessione::Fallita;
  // The word of an earlier connection stays to be read; its colour would tell that it still holds.
  vista.distingui(style::Badge::Neutral);
  if (verificaPresenza(contesto) == Seguito::Basta) return EsitoConnessione::Fallita;
  // The connection closes a transfer that it finds open on the till: not that of a program at work.
  std::optional<ScambioEsclusivo> scambio;
  prendiDovePossibile(scambio);
  vista.abilitaConnetti(false);
  vista.fuocoSuEsci();
  const bool informata = interroga(vista, contesto) == Seguito::Avanti;
  scambio.reset();
  if (informata) {
    mostraInfo(vista);
    if (verificaStato(vista, contesto) == Seguito::Basta) return EsitoConnessione::Fallita;
  }
  pronto(vista);
  return informata ? EsitoConnessione::Pronta : EsitoConnessione::SenzaNotizie;
}

EsitoConnessione erroreDiConnessione(VistaLink& vista, Contesto& contesto, const Errore& errore) {
  commonForKora().IP_ECR.clear();
  vista.cassaRisponde(false);
  reazioni::segnala(contesto.utente, QStringLiteral("Errore "), errore);
  if (!vista.connettiAbilitato()) {
    vista.abilitaConnetti(true);
    vista.fuocoSuConnetti();
  }
  return EsitoConnessione::Fallita;
}

}  // namespace

EsitoConnessione ConnettiECR(VistaLink& vista, Contesto& contesto) {
  const AlLavoro questa(vista);
  return reazioni::oppure([&] { return connetti(vista, contesto); },
                          [&](const Errore& errore) { return erroreDiConnessione(vista, contesto, errore); });
}

bool ControllaIP(const QString& testo) {
  QString resto = testo;
  int punti = 0;
  for (qsizetype punto = resto.indexOf(QLatin1Char('.')); punto >= 0;
       punto = resto.indexOf(QLatin1Char('.'))) {
    ++punti;
    if (!convertibile(resto.left(punto))) return false;
    resto.remove(0, punto + 1);
  }
  return punti == kPuntiIndirizzo;
}

int PingECR(const QString& indirizzo, Contesto& contesto) {
  int esito = 0;
  contesto.libreria.Beside(
      [&] { esito = contesto.rete.echo(indirizzo, QByteArrayLiteral("hello"), kScadenzaEco); });
  return esito;
}

}  // namespace ecrlink
