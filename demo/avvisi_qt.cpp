#include "demo/avvisi_qt.h"

#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <array>

namespace {

constexpr std::array kRumori{QLatin1String("This plugin does not support propagateSizeHints()"),
                             QLatin1String("This plugin does not support raise()"),
                             QLatin1String("This plugin does not support grabbing the keyboard"),
                             QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set, ")};

QtMessageHandler diPrima = nullptr;

void avviso(QtMsgType tipo, const QMessageLogContext& contesto, const QString& testo) {
  if (std::ranges::any_of(kRumori, [&](QLatin1String rumore) { return testo.startsWith(rumore); })) return;
  diPrima(tipo, contesto, testo);
}

}  // namespace

// By their texts: these warnings have no category of their own that a rule could turn off.
void zittisciPiattaforma() {
  diPrima = qInstallMessageHandler(avviso);
}
