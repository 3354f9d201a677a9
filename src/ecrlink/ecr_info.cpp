#include "ecrlink/ecr_info.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "core/state.h"

namespace ecrlink {

namespace {

struct Stato {
  const char* lettera;
  const char* parola;
};
constexpr std::array kStati{Stato{"V", "VENDITA"}, Stato{"A", "AZZERAMENTO"}, Stato{"L", "LETTURA"},
                            Stato{"P", "PROGRAMMAZIONE"}, Stato{"I", "IDLE"}};

}  // namespace

int ParseInfoECR(const QString& risposta) {
  const QStringList voci = risposta.split(QLatin1Char(','));
  EcrInfo& info = commonForKora().ECR_INFO;
  info = EcrInfo{};
  const std::size_t presenti = std::min(static_cast<std::size_t>(voci.size()), EcrInfo::kCampi);
  for (std::size_t i = 0; i < presenti; ++i) {
    const QString& voce = voci[static_cast<qsizetype>(i)];
    info.campo[i] = voce.mid(voce.indexOf(QLatin1Char('=')) + 1);
  }
  return 0;
}

std::optional<QString> parolaDelloStato(const QString& stato) {
  for (const Stato& noto : kStati)
    if (stato == QLatin1String(noto.lettera)) return QString::fromLatin1(noto.parola);
  return std::nullopt;
}

bool statoAmmesso(const QString& stato) {
  return stato == QLatin1String("I") || stato == QLatin1String("P");
}

}  // namespace ecrlink
