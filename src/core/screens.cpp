#include "core/screens.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QEventLoop>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScreen>
#include <algorithm>

#include "controls/style.h"
#include "core/context.h"
#include "core/menu.h"
#include "platform/error.h"
#include "platform/ui/busy_guard.h"

namespace {

/// What a frame takes, pixels at scale 1: its true size is known only after the screen is shown.
constexpr QSize kCornice(8, 36);

/// Stands by a screen and tells when its closing was not refused.
class Custode : public QObject {
 public:
  Custode(QWidget& schermo, std::function<void()> chiusa) : QObject(&schermo), chiusa_(std::move(chiusa)) {
    schermo.installEventFilter(this);
    // A dialog that is accepted or rejected goes without a closing event.
    if (auto* dialogo = qobject_cast<QDialog*>(&schermo))
      connect(dialogo, &QDialog::finished, this, [this] { chiusa_(); });
  }

  bool eventFilter(QObject* schermo, QEvent* evento) override {
    if (evento->type() != QEvent::Close) return false;
    const QPointer<Custode> vivo(this);
    schermo->event(evento);
    if (vivo && evento->isAccepted()) chiusa_();
    return true;
  }

 private:
  std::function<void()> chiusa_;
};

/// In the middle of the display that the person looks at and no larger than it: a window system would put
/// each screen elsewhere, and the menu at another place each time it comes back.
void colloca(QWidget& schermo) {
  const QWidget* attiva = QApplication::activeWindow();
  const QScreen* display = attiva ? attiva->screen() : QGuiApplication::primaryScreen();
  if (!display) return;
  if (!schermo.testAttribute(Qt::WA_Resized)) schermo.adjustSize();
  const QRect libero = display->availableGeometry();
  schermo.resize(schermo.size().boundedTo(libero.size() - kCornice));
  // A dialog finds its place over the window that it belongs to.
  if (qobject_cast<QDialog*>(&schermo)) return;
  const QSize con = schermo.size() + kCornice;
  schermo.move(libero.topLeft() + QPoint(libero.width() - con.width(), libero.height() - con.height()) / 2);
}

/// Runs a screen that is no dialog until it is hidden or gone.
void attendiChiusura(QWidget& schermo) {
  struct Fine : QObject {
    QEventLoop giro;
    bool eventFilter(QObject*, QEvent* evento) override {
      if (evento->type() == QEvent::Hide) giro.quit();
      return false;
    }
  } fine;
  schermo.installEventFilter(&fine);
  QObject::connect(&schermo, &QObject::destroyed, &fine.giro, &QEventLoop::quit);
  schermo.setWindowModality(Qt::ApplicationModal);
  schermo.show();
  fine.giro.exec();
}

}  // namespace

Schermate::~Schermate() {
  scaricaTutte();
  for (const auto& [nome, schermo] : aperte_) morenti_.push_back(schermo);
  aperte_.clear();
  for (const QPointer<QWidget>& schermo : std::exchange(morenti_, {})) delete schermo;
}

void Schermate::registra(const QString& nome, Fabbrica fabbrica) {
  fabbriche_[nome] = std::move(fabbrica);
}

bool Schermate::registrata(const QString& nome) const {
  return fabbriche_.contains(nome);
}

QWidget& Schermate::carica(const QString& nome, Contesto& contesto) {
  if (QWidget* schermo = trova(nome)) return *schermo;
  const auto fabbrica = fabbriche_.find(nome);
  if (fabbrica == fabbriche_.end())
    throw Errore{errors::kOutOfRange, QStringLiteral("Schermata non registrata: ") + nome};
  // A screen measures its parts while it is made.
  if (nome != kMenu) style::whole();
  QWidget* schermo = fabbrica->second(contesto);
  schermo->setAttribute(Qt::WA_DeleteOnClose);
  if (schermo->isWindow()) colloca(*schermo);
  new Custode(*schermo, [this, schermo] { dimentica(schermo); });
  aperte_.emplace_back(nome, schermo);
  return *schermo;
}

QWidget& Schermate::caricaDentro(QWidget& dentro, const QString& nome, Contesto& contesto) {
  const QScopedValueRollback posto(contesto.dentro, &dentro);
  return carica(nome, contesto);
}

QWidget& Schermate::mostra(const QString& nome, Contesto& contesto) {
  QWidget& schermo = carica(nome, contesto);
  schermo.setWindowState(schermo.windowState() & ~Qt::WindowMinimized);
  schermo.show();
  schermo.raise();
  schermo.activateWindow();
  return schermo;
}

void Schermate::mostraModale(const QString& nome, Contesto& contesto) {
  const BusyGuard::Suspended siUsa;
  const QPointer<QWidget> schermo = &carica(nome, contesto);
  const auto via = qScopeGuard([&] {
    if (schermo) dimentica(schermo);
    delete schermo;
  });
  schermo->setAttribute(Qt::WA_DeleteOnClose, false);
  if (auto* dialogo = qobject_cast<QDialog*>(schermo.data()))
    dialogo->exec();
  else
    attendiChiusura(*schermo);
}

QWidget* Schermate::trova(const QString& nome) const {
  for (const auto& [aperto, schermo] : aperte_)
    if (aperto == nome && schermo) return schermo;
  return nullptr;
}

void Schermate::dimentica(const QWidget* schermo) {
  std::erase_if(morenti_, [](const auto& morente) { return morente.isNull(); });
  for (const auto& [nome, aperto] : aperte_)
    if (aperto == schermo) morenti_.push_back(aperto);
  std::erase_if(aperte_, [&](const auto& voce) { return !voce.second || voce.second == schermo; });
}

QWidget* Schermate::davanti() const {
  const auto vista = std::find_if(aperte_.rbegin(), aperte_.rend(), [](const auto& aperta) {
    return aperta.second && aperta.second->isVisible();
  });
  return vista == aperte_.rend() ? nullptr : vista->second.data();
}

bool Schermate::scarica(const QString& nome) {
  const QPointer<QWidget> schermo = trova(nome);
  if (!schermo) return true;
  {
    const BusyGuard::Suspended chiudeIlProgramma;
    if (!schermo->close()) return false;
  }
  if (schermo) {
    dimentica(schermo);
    schermo->deleteLater();
  }
  return true;
}

void Schermate::scaricaTutte() {
  std::vector<QString> nomi;
  for (const auto& [nome, schermo] : aperte_) nomi.push_back(nome);
  for (const QString& nome : nomi) scarica(nome);
}

void torna(QWidget& schermo, const QString& casa, Contesto& contesto) {
  contesto.schermate.scarica(schermo.objectName());
  if (contesto.schermate.registrata(casa)) contesto.schermate.mostra(casa, contesto);
}
