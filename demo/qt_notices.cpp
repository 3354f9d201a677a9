#include "demo/qt_notices.h"

#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <array>

namespace {

constexpr std::array kNoises{QLatin1String("This plugin does not support propagateSizeHints()"),
                             QLatin1String("This plugin does not support raise()"),
                             QLatin1String("This plugin does not support grabbing the keyboard"),
                             QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set, ")};

QtMessageHandler earlier = nullptr;

void notice(QtMsgType kind, const QMessageLogContext& contesto, const QString& text) {
  if (std::ranges::any_of(kNoises, [&](QLatin1String noise) { return text.startsWith(noise); })) return;
  earlier(kind, contesto, text);
}

}  // namespace

// By their texts: these warnings have no category of their own that a rule could turn off.
void silencePlatform() {
  earlier = qInstallMessageHandler(notice);
}
