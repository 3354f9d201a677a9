#include "core/manual_viewer.h"

#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QUrl>

#include "controls/clear_button.h"
#include "controls/disabled_reason.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/manual_pages.h"
#include "platform/ui/user_port.h"
#include "ui_manual_viewer.h"

namespace {

// Letters and lines of the window, and what it leaves free of a small display.
constexpr int kLetters = 124;
constexpr int kLines = 46;
constexpr QSize kFrame(24, 64);

using Kind = OutcomeBar::Kind;

int timesIn(const QString& page, const QString& text) {
  return static_cast<int>(page.count(text, Qt::CaseInsensitive));
}

QString times(int number) {
  return number == 1 ? QStringLiteral("1 volta") : QStringLiteral("%1 volte").arg(number);
}

}  // namespace

QString ManualViewer::folder(const Contesto& contesto) {
  return contesto.cartella + QStringLiteral("/manuale");
}

ManualViewer::ManualViewer(const Contesto& contesto, QWidget* below)
    : QDialog(below), ui_(std::make_unique<Ui::ManualViewer>()) {
  ui_->setupUi(this);
  setObjectName(QStringLiteral("Manuale"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowModality(Qt::NonModal);
  ui_->Testo->setFolder(folder(contesto));
  ui_->Cmd_Indietro->setIcon(style::icon(QStringLiteral("chevron-left")));
  ui_->Cmd_Indice->setIcon(style::icon(QStringLiteral("book-open")));
  ui_->Cmd_Trova->setIcon(style::icon(QStringLiteral("search")));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  addClearButton(*ui_->CampoCerca);
  tellWhyDisabled(*ui_->Cmd_Indietro, QStringLiteral("È la prima pagina che si è aperta"));
  connect(ui_->Cmd_Indietro, &QPushButton::clicked, this, &ManualViewer::goBack);
  connect(ui_->Cmd_Indice, &QPushButton::clicked, this, [this] { open(QLatin1String(manual::kContents)); });
  connect(ui_->Cmd_Trova, &QPushButton::clicked, this, &ManualViewer::search);
  connect(ui_->Cmd_Esci, &QPushButton::clicked, this, &QDialog::reject);
  connect(ui_->CampoCerca, &QLineEdit::returnPressed, this, &ManualViewer::search);
  connect(ui_->Testo, &QTextBrowser::anchorClicked, this, &ManualViewer::follow);
  // Not every window manager gives the focus back to the window below.
  if (below != nullptr) connect(this, &QDialog::finished, below, [below] { below->activateWindow(); });
  const auto key = [this](const QKeySequence& keys, auto does) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, does);
  };
  key(QKeySequence::Find, [this] {
    ui_->CampoCerca->setFocus(Qt::ShortcutFocusReason);
    ui_->CampoCerca->selectAll();
  });
  key(QKeySequence(Qt::Key_F3), [this] { search(); });
  key(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { goBack(); });
  const QFontMetrics letters = fontMetrics();
  resize(QSize(letters.averageCharWidth() * kLetters, letters.height() * kLines)
             .boundedTo(screen()->availableSize() - kFrame));
  ui_->Testo->setFocus();
}

ManualViewer::~ManualViewer() = default;

bool ManualViewer::open(const QString& place) {
  const QString page = place.section(QLatin1Char('#'), 0, 0);
  const QString heading = place.section(QLatin1Char('#'), 1);
  const Step before{ui_->Testo->page(), ui_->Testo->verticalScrollBar()->value()};
  if (page != before.page && !ui_->Testo->showPage(page)) return false;
  if (!before.page.isEmpty()) way_.push_back(before);
  if (heading.isEmpty() || !ui_->Testo->goTo(heading)) {
    ui_->Testo->moveCursor(QTextCursor::Start);
    ui_->Testo->verticalScrollBar()->setValue(0);
  }
  showHeading();
  return true;
}

void ManualViewer::showHeading() {
  setWindowTitle(QStringLiteral("Manuale - ") + ui_->Testo->title());
  ui_->Cmd_Indietro->setEnabled(!way_.empty());
  ui_->BarraEsito->clear();
}

void ManualViewer::follow(const QUrl& link) {
  const bool elsewhere = !link.scheme().isEmpty() || !link.host().isEmpty();
  const QString page = link.path().isEmpty() ? ui_->Testo->page() : link.path();
  const QString anchor = link.fragment(QUrl::FullyDecoded);
  if (elsewhere || !open(anchor.isEmpty() ? page : page + QLatin1Char('#') + anchor))
    ui_->BarraEsito->tell(
        Kind::Warning,
        QStringLiteral("Il collegamento porta fuori dal manuale: %1").arg(link.toDisplayString()));
}

void ManualViewer::goBack() {
  if (way_.empty()) return;
  const Step before = way_.back();
  way_.pop_back();
  if (before.page != ui_->Testo->page()) ui_->Testo->showPage(before.page);
  ui_->Testo->verticalScrollBar()->setValue(before.scrolled);
  showHeading();
}

bool ManualViewer::findFrom(const QString& text, bool fromStart) {
  if (fromStart) ui_->Testo->moveCursor(QTextCursor::Start);
  return ui_->Testo->find(text);
}

bool ManualViewer::findInOtherPages(const QString& text) {
  const QStringList pages = ui_->Testo->pages();
  const qsizetype here = pages.indexOf(ui_->Testo->page());
  for (qsizetype step = 1; step <= pages.size(); ++step) {
    const QString& page = pages[(here + step) % pages.size()];
    if (timesIn(ui_->Testo->plainText(page), text) == 0) continue;
    if (page != ui_->Testo->page()) open(page);
    return findFrom(text, true);
  }
  return false;
}

void ManualViewer::search() {
  const QString text = ui_->CampoCerca->text().trimmed();
  if (text.isEmpty()) {
    ui_->CampoCerca->setFocus();
    return ui_->BarraEsito->clear();
  }
  if (findFrom(text, false) || findInOtherPages(text)) return tellFound(text);
  ui_->BarraEsito->tell(Kind::Warning, QStringLiteral("«%1» non si trova nel manuale.").arg(text));
}

void ManualViewer::tellFound(const QString& text) {
  int everywhere = 0;
  for (const QString& page : ui_->Testo->pages()) everywhere += timesIn(ui_->Testo->plainText(page), text);
  const int here = timesIn(ui_->Testo->plainText(ui_->Testo->page()), text);
  ui_->BarraEsito->tell(Kind::Plain, QStringLiteral("«%1»: %2 in questa pagina, %3 in tutto il manuale.")
                                         .arg(text, times(here), times(everywhere)));
}

void ManualViewer::keyPressEvent(QKeyEvent* event) {
  // The dialog's own Enter would press a button.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  QDialog::keyPressEvent(event);
}

void showManual(QWidget& from, Contesto& contesto) {
  static QPointer<ManualViewer> manual;
  QWidget* const window = from.window();
  const QString place = manual::placeOf(&from);
  if (manual && manual != window && manual->parentWidget() != window) delete manual;
  if (!manual) manual = new ManualViewer(contesto, window);
  if (!manual->open(place) && !manual->open(QLatin1String(manual::kContents))) {
    delete manual;
    contesto.utente.MsgBox(QStringLiteral("Attenzione il manuale non presente nella cartella %1")
                               .arg(ManualViewer::folder(contesto)),
                           Icon::Critical);
    return;
  }
  manual->show();
  manual->raise();
  manual->activateWindow();
}
