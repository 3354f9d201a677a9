#include <QByteArray>

#include "core/context.h"
#include "core/conversions.h"
#include "core/reactions.h"
#include "core/state.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "platform/ecrcom/library.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"

namespace ecrlink {

namespace {

constexpr int kByteRisposta = 256;
constexpr int kByteErrore = 81;
constexpr int kFallito = 1;

bool portaFile(Modo modo) {
  return modo == Modo::Invia || modo == Modo::Ricevi;
}
/// A fiscal closure is the one command that runs with no transfer open.
bool vuoleTrasferimento(Modo modo) {
  return modo != Modo::ChiusuraFiscale;
}

void segnalaCodice(std::int16_t codice, Contesto& contesto) {
  const QByteArray testo = contesto.libreria.ecr_get_err(codice, kByteErrore);
  contesto.utente.MsgBox(QString::fromUtf16(kErroreComunicazione) + windows1252::toText(testo),
                         Icon::Critical);
}

int comandoSenzaRisposta(Modo modo, Contesto& contesto) {
  QString nessunFile;
  QString risposta;
  return ComandoECR(nessunFile, modo, risposta, contesto);
}

int staffa(const QString& file, Modo modo, Contesto& contesto) {
  const bool trasferimento = vuoleTrasferimento(modo);
  if (trasferimento && comandoSenzaRisposta(Modo::ApriTrasferimento, contesto) != 0) return kFallito;
  QString nome = file;
  QString risposta;
  // No closing call after a failure: the next connection closes what was left open.
  if (ComandoECR(nome, modo, risposta, contesto) != 0) return kFallito;
  if (trasferimento && comandoSenzaRisposta(Modo::ChiudiTrasferimento, contesto) != 0) return kFallito;
  return 0;
}

}  // namespace

int ComandoECR(QString& file, Modo modo, QString& risposta, Contesto& contesto, const QString& parole) {
  if (modo > Modo::ChiusuraFiscale) return kFallito;
  QByteArray ip = windows1252::toBytes(commonForKora().IP_ECR);
  QByteArray nome = portaFile(modo) ? windows1252::toBytes(file) : QByteArray("");
  QByteArray buffer(kByteRisposta, ' ');
  std::int16_t codice = 0;
  {
    Passo passo(parole.isEmpty() ? paroleDelModo(modo, file) : parole, contesto);
    codice = contesto.libreria.ecr_command(ip, nome, static_cast<int>(modo), buffer);
    if (codice == 0) passo.riuscito();
  }
  commonForKora().IP_ECR = windows1252::toText(ip);
  if (portaFile(modo))
    file = windows1252::toText(nome);
  else
    risposta = windows1252::toText(buffer);
  if (codice != 0) segnalaCodice(codice, contesto);
  return codice;
}

int avviaECR(const QString& file, Modo modo, Contesto& contesto) {
  return reazioni::oppure([&] { return staffa(file, modo, contesto); },
                          [&](const Errore& errore) {
                            contesto.utente.MsgBox(QStringLiteral("Error ") + QString::number(errore.numero) +
                                                   QStringLiteral(" (") + errore.descrizione +
                                                   QStringLiteral(") nella procedura avviaECR"));
                            return kFallito;
                          });
}

int ControllaFile(const QString& nome, bool mostra, Contesto& contesto) {
  if (FileEsiste(nome)) return 0;
  if (mostra)
    contesto.utente.MsgBox(
        QStringLiteral("STATO DELLA CASSA NON CONGRUENTE \r\n") + nome + QStringLiteral(" non presente !!!"),
        Icon::None, QStringLiteral("ATTENZIONE"));
  return 1;
}

}  // namespace ecrlink
