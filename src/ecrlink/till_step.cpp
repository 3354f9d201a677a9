#include "ecrlink/till_step.h"

#include <utility>

#include "core/context.h"
#include "core/state.h"
#include "ecrlink/link_view.h"
#include "platform/ecrcom/library.h"

namespace ecrlink {

namespace {

VistaLink* alLavoro = nullptr;

/// Files that the person knows by another name, with the article before it.
struct FileNoto {
  const char* nome;
  const char* detto;
};
constexpr FileNoto kNoti[]{
    {"venduto.bin", "del venduto"}, {"fatture.bin", "delle fatture"}, {"clienti.bin", "dei clienti"}};

QString diFile(const QString& file) {
  for (const FileNoto& noto : kNoti)
    if (file == QLatin1String(noto.nome)) return QString::fromLatin1(noto.detto);
  return QStringLiteral("di ") + file;
}

QString conLimite(const QString& parole, EcrLibrary& libreria) {
  const QString passo = parole + QStringLiteral(" …");
  const auto limite = libreria.AnswerLimit();
  return limite ? passo + QStringLiteral(" (fino a %1 s)").arg(limite->count()) : passo;
}

}  // namespace

AlLavoro::AlLavoro(VistaLink& vista) : prima_(std::exchange(alLavoro, &vista)) {}

AlLavoro::~AlLavoro() {
  alLavoro = prima_;
}

Passo::Passo(const QString& parole, Contesto& contesto) {
  if (!alLavoro) return;
  puntatore_.emplace();
  alLavoro->mostraPasso(conLimite(parole, contesto.libreria));
}

Passo::~Passo() {
  if (!alLavoro) return;
  alLavoro->togliPasso();
  alLavoro->cassaRisponde(riuscito_);
}

QString paroleDelModo(Modo modo, const QString& file) {
  switch (modo) {
    case Modo::EcrInfo:
      return QStringLiteral("Lettura dello stato della cassa");
    case Modo::ApriTrasferimento:
      return QStringLiteral("Apertura del trasferimento");
    case Modo::ChiudiTrasferimento:
      return QStringLiteral("Chiusura del trasferimento");
    case Modo::AzzeraProgrammazione:
      return QStringLiteral("Azzeramento della programmazione");
    case Modo::AzzeraFatture:
      return QStringLiteral("Azzeramento delle fatture");
    case Modo::AzzeraVenduto:
      return QStringLiteral("Azzeramento del venduto");
    case Modo::Invia:
      return QStringLiteral("Invio ") + diFile(file);
    case Modo::Ricevi:
      return QStringLiteral("Richiesta ") + diFile(file);
    case Modo::ChiusuraFiscale:
      return QStringLiteral("Chiusura fiscale");
  }
  return {};
}

QString paroleDiConnessione() {
  return QStringLiteral("Connessione a ") + indirizzoDetto();
}

QString indirizzoDetto() {
  // Whatever has three dots is taken for an address: a line of the foot has room for a true one.
  constexpr qsizetype kMassimo = 24;
  const QString& indirizzo = commonForKora().IP_ECR;
  return indirizzo.size() <= kMassimo ? indirizzo : indirizzo.left(kMassimo) + QStringLiteral("…");
}

}  // namespace ecrlink
