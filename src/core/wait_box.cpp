#include "core/wait_box.h"

#include <QApplication>
#include <QProgressBar>
#include <QWindow>
#include <utility>

#include "core/context.h"
#include "core/screens.h"

namespace {

const QString kAttesa = QStringLiteral("Form_ATTESA");
const QString kBarra = QStringLiteral("Avanzamento");
constexpr qint64 kRidipingi = 40;  // milliseconds between two repaints
constexpr int kMigliaia = 1000;

/// In the middle of the window that the person looks at, and kept before it.
void colloca(QWidget& attesa, const QWidget* sopra) {
  if (!sopra || !sopra->windowHandle()) return;
  attesa.winId();  // makes the window that is told its place over the other
  attesa.windowHandle()->setTransientParent(sopra->windowHandle());
  attesa.move(sopra->geometry().center() - attesa.rect().center());
}

}  // namespace

Attesa::Attesa(Contesto& contesto, Quando quando) : contesto_(contesto) {
  dallInizio_.start();
  if (quando == Quando::Subito || contesto_.attesaDopo.count() == 0) mostra();
}

Attesa::~Attesa() {
  chiudi();
}

void Attesa::mostra() {
  dovuta_ = true;
  if (!contesto_.schermate.registrata(kAttesa)) return;
  // Right behind a file dialog no window has the focus yet.
  const QWidget* attiva = QApplication::activeWindow();
  const QWidget* sopra = attiva ? attiva : contesto_.schermate.davanti();
  QWidget& attesa = contesto_.schermate.carica(kAttesa, contesto_);
  colloca(attesa, sopra);
  barra_ = attesa.findChild<QProgressBar*>(kBarra);
  contesto_.schermate.mostra(kAttesa, contesto_);
}

void Attesa::avanza(qint64 fatti, qint64 quanti) {
  if (!dovuta_ && dallInizio_.elapsed() >= contesto_.attesaDopo.count()) mostra();
  if (!barra_ || quanti <= 0 || (dallUltima_.isValid() && dallUltima_.elapsed() < kRidipingi)) return;
  dallUltima_.start();
  barra_->setRange(0, kMigliaia);
  barra_->setValue(static_cast<int>(fatti * kMigliaia / quanti));
  barra_->show();
}

void Attesa::chiudi() {
  if (std::exchange(chiusa_, true)) return;
  barra_ = nullptr;
  if (dovuta_) contesto_.schermate.scarica(kAttesa);
  dovuta_ = true;
  puntatore_.takeBack();
}
