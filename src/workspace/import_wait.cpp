#include "workspace/import_wait.h"

#include <QElapsedTimer>
#include <QProgressBar>
#include <QWidget>
#include <QWindow>
#include <memory>

#include "core/context.h"
#include "core/screens.h"

namespace workspace {

namespace {

constexpr auto kAttesa = "Form_ATTESA";
constexpr auto kBarra = "Avanzamento";
constexpr qint64 kRidipingi = 40;  // milliseconds between two repaints
constexpr int kMigliaia = 1000;

void apri(QWidget& schermo, Contesto& contesto) {
  QWidget& attesa = contesto.schermate.carica(QLatin1String(kAttesa), contesto);
  attesa.winId();  // makes the window that is told its place over the other
  attesa.windowHandle()->setTransientParent(schermo.windowHandle());
  attesa.move(schermo.geometry().center() - attesa.rect().center());
  if (auto* barra = attesa.findChild<QProgressBar*>(QLatin1String(kBarra))) {
    barra->setRange(0, kMigliaia);
    barra->show();
  }
  contesto.schermate.mostra(QLatin1String(kAttesa), contesto);
}

void avanza(Contesto& contesto, qint64 letti, qint64 totale) {
  QWidget* attesa = contesto.schermate.trova(QLatin1String(kAttesa));
  auto* barra = attesa ? attesa->findChild<QProgressBar*>(QLatin1String(kBarra)) : nullptr;
  if (barra && totale > 0) barra->setValue(static_cast<int>(letti * kMigliaia / totale));
}

}  // namespace

articles::AttesaImport AttesaDi(QWidget& schermo, Contesto& contesto) {
  auto dallUltima = std::make_shared<QElapsedTimer>();
  return {.apri =
              [&schermo, &contesto, dallUltima] {
                apri(schermo, contesto);
                dallUltima->start();
              },
          .avanza =
              [&contesto, dallUltima](qint64 letti, qint64 totale) {
                if (dallUltima->elapsed() < kRidipingi) return;
                dallUltima->restart();
                avanza(contesto, letti, totale);
              },
          .chiudi = [&contesto] { contesto.schermate.scarica(QLatin1String(kAttesa)); }};
}

}  // namespace workspace
