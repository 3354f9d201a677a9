#include "ecrlink/session.h"

#include <QStringList>

#include "core/context.h"
#include "core/conversions.h"
#include "core/reactions.h"
#include "core/state.h"
#include "ecrlink/ecr_info.h"
#include "ecrlink/link_controls.h"
#include "ecrlink/models.h"
#include "platform/net/network.h"

namespace ecrlink {

namespace {

constexpr int kPuntiIndirizzo = 3;
constexpr int kAttesaEco = 250;  // milliseconds

/// What goes on after a step.
enum class Passo { Avanti, Basta, Pronto };

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

void rifiutaIndirizzo(QWidget& schermo, Contesto& contesto, const QString& motivo) {
  critico(contesto, motivo);
  controlli::abilita(schermo, controlli::kAvvia, false);
  commonForKora().IP_ECR.clear();
}

/// One address a line, whatever the box made of the line ends.
QStringList indirizziDelPC(QWidget& schermo) {
  QString testo = controlli::testo(schermo, controlli::kIndirizziLocali);
  testo.remove(QLatin1Char('\r'));
  return testo.split(QLatin1Char('\n'));
}

Passo verificaIndirizzo(QWidget& schermo, Contesto& contesto) {
  QString& indirizzo = commonForKora().IP_ECR;
  if (!ControllaIP(controlli::testo(schermo, controlli::kIndirizzo))) {
    rifiutaIndirizzo(
        schermo, contesto,
        QStringLiteral(
            "Attenzione l'indirizzo IP del dispositivo ECR da connettere al PC potrebbe essere errato"));
    return Passo::Basta;
  }
  indirizzo = controlli::testo(schermo, controlli::kIndirizzo);
  if (!indirizziDelPC(schermo).contains(indirizzo)) return Passo::Avanti;
  rifiutaIndirizzo(
      schermo, contesto,
      QStringLiteral("Attenzione l'IP del dispositivo ECR deve essere diverso da quello del PC"));
  return Passo::Basta;
}

Passo verificaPresenza(Contesto& contesto) {
  const int esito = PingECR(commonForKora().IP_ECR, contesto);
  if (esito == 0) return Passo::Avanti;
  critico(contesto, esito < 0 ? QStringLiteral("Attenzione il dispositivo non risponde, controllare lo stato "
                                               "della connessione e/o l'indirizzo IP dell'ECR")
                              : QStringLiteral("Attenzione il dispositivo non risponde, controllare lo stato "
                                               "e/o l'indirizzo IP dell'ECR"));
  commonForKora().IP_ECR.clear();
  return Passo::Basta;
}

void distingui(QWidget& schermo, const QString& distintivo) {
  controlli::contrassegna(schermo, controlli::kStato, controlli::kProprietaDistintivo, distintivo);
}

void mostraInfo(QWidget& schermo) {
  const EcrInfo& info = commonForKora().ECR_INFO;
  controlli::scrivi(schermo, controlli::kModello, info.InfoTipoMacchina);
  controlli::scrivi(schermo, controlli::kTipoMacchina, info.InfoTipoMacchina);
  controlli::scrivi(schermo, controlli::kBitmap, nomeDellaClasse(info.InfoTipoBitmap));
  controlli::scrivi(schermo, controlli::kMMC, info.InfoTipoMMC);
  controlli::scrivi(schermo, controlli::kVersione, info.InfoVersioneSW);
  const std::optional<QString> parola = parolaDelloStato(info.InfoStato);
  if (!parola) return;
  controlli::scrivi(schermo, controlli::kStato, *parola);
  controlli::contrassegna(schermo, controlli::kStato, controlli::kProprietaStato, info.InfoStato);
  distingui(schermo, statoAmmesso(info.InfoStato) ? QStringLiteral("ready") : QStringLiteral("busy"));
}

Passo interroga(QWidget& schermo, Contesto& contesto) {
  QString nessunFile;
  QString risposta;
  // A transfer that an earlier run left open on the till would refuse everything that follows.
  ComandoECR(nessunFile, Modo::ChiudiTrasferimento, risposta, contesto);
  if (ComandoECR(nessunFile, Modo::EcrInfo, risposta, contesto) != 0) {
    // The person may go on with a till that does not tell about itself: the start command is let go with the
    // address in use, and the connection can be tried again.
    controlli::abilita(schermo, controlli::kConnetti, true);
    return Passo::Pronto;
  }
  if (ParseInfoECR(risposta) == 0) return Passo::Avanti;
  critico(contesto, QStringLiteral("ERRORE protocollo ECR INFO"));
  commonForKora().IP_ECR.clear();
  return Passo::Pronto;
}

Passo verificaStato(QWidget& schermo, Contesto& contesto) {
  if (statoAmmesso(commonForKora().ECR_INFO.InfoStato)) return Passo::Avanti;
  critico(contesto, QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o "
                                   "PROGRAMMAZIONE"));
  controlli::abilita(schermo, controlli::kConnetti, true);
  commonForKora().IP_ECR.clear();
  return Passo::Basta;
}

void pronto(QWidget& schermo) {
  controlli::abilita(schermo, controlli::kAvvia, true);
  controlli::fuoco(schermo, controlli::kEsci);
  schermo.setEnabled(true);
}

void connetti(QWidget& schermo, Contesto& contesto) {
  if (verificaIndirizzo(schermo, contesto) == Passo::Basta) return;
  // The word of an earlier connection stays to be read; its colour would tell that it still holds.
  distingui(schermo, QStringLiteral("neutral"));
  if (verificaPresenza(contesto) == Passo::Basta) return;
  controlli::abilita(schermo, controlli::kConnetti, false);
  controlli::fuoco(schermo, controlli::kEsci);
  if (interroga(schermo, contesto) == Passo::Avanti) {
    mostraInfo(schermo);
    if (verificaStato(schermo, contesto) == Passo::Basta) return;
  }
  pronto(schermo);
}

void erroreDiConnessione(QWidget& schermo, Contesto& contesto, const Errore& errore) {
  commonForKora().IP_ECR.clear();
  reazioni::segnala(contesto.utente, QStringLiteral("Errore "), errore);
  if (controlli::abilitato(schermo, controlli::kConnetti)) return;
  controlli::abilita(schermo, controlli::kConnetti, true);
  controlli::fuoco(schermo, controlli::kConnetti);
}

}  // namespace

void ConnettiECR(QWidget& schermo, Contesto& contesto) {
  try {
    connetti(schermo, contesto);
  } catch (const Errore& errore) {
    erroreDiConnessione(schermo, contesto, errore);
  }
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
  return contesto.rete.echo(indirizzo, QByteArrayLiteral("hello"), kAttesaEco);
}

}  // namespace ecrlink
