#include "demo/director.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmap>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QThread>
#include <cstdio>
#include <stdexcept>

#include "platform/ui/busy_guard.h"

namespace {

constexpr int kBeatMs = 4;
constexpr int kPatienceMs = 30000;

QWidget* front(const char* charClass) {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr && modal->inherits(charClass) && modal->isVisible() ? modal : nullptr;
}

/// The button that ends the file dialog in front. By the button and not by Enter, which may go to the list of
/// completions; it is enabled once the dialog has read the folder.
QAbstractButton* acceptance() {
  QWidget* dialog = front("QFileDialog");
  auto* buttons = dialog == nullptr ? nullptr : dialog->findChild<QDialogButtonBox*>();
  if (buttons == nullptr) return nullptr;
  for (QAbstractButton* button : buttons->buttons())
    if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) return button;
  return nullptr;
}

}  // namespace

Director::Director() {
  clock_.setInterval(kBeatMs);
  connect(&clock_, &QTimer::timeout, this, &Director::beat);
}

void Director::step(const QString& name, When when, Action action) {
  steps_.push_back({name, std::move(when), std::move(action)});
}

int Director::run() {
  wait_.start();
  clock_.start();
  QApplication::exec();
  return outcome_;
}

void Director::fail(const QString& reason) {
  std::fprintf(stderr, "ERRORE: %s\n", qPrintable(reason));
  for (const QWidget* open : QApplication::topLevelWidgets())
    if (open->isVisible())
      std::fprintf(stderr, "  finestra: %s \"%s\"\n", qPrintable(open->objectName()),
                   qPrintable(open->windowTitle()));
  if (box()) std::fprintf(stderr, "  riquadro: %s\n", qPrintable(boxText()));
  // What stood in front tells more than its name.
  if (QWidget* modal = QApplication::activeModalWidget()) modal->grab().save(QStringLiteral("99-errore.png"));
  outcome_ = 1;
  clock_.stop();
  steps_.clear();
  std::fflush(nullptr);
  std::_Exit(outcome_);  // modal loops may be open below: there is no way back through them
}

// A step is played from the event loop and not from here: a timer does not fire again inside its own handler,
// and the step may open a modal loop in which the next steps must go on.
void Director::beat() {
  // In the middle of a command hands are of no use: what they do is eaten.
  if (running_ || BusyGuard::active() || leaving()) return;
  if (steps_.empty()) {
    clock_.stop();
    QApplication::exit(outcome_);
    return;
  }
  if (!steps_.front().when()) {
    if (wait_.elapsed() > kPatienceMs) fail(QStringLiteral("non arriva: ") + steps_.front().name);
    return;
  }
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  wait_.restart();
  running_ = true;
  QTimer::singleShot(0, this, [this, step] { perform(step); });
}

void Director::perform(const Step& step) {
  running_ = false;
  const int level = QThread::currentThread()->loopLevel();
  const QPointer<QWidget> front = QApplication::activeModalWidget();
  const bool open = front && front->isVisible();
  try {
    step.action();
  } catch (const std::exception& exception) {
    fail(step.name + QStringLiteral(": ") + QString::fromLocal8Bit(exception.what()));
  }
  if (!open || (front && front->isVisible())) return;
  left_ = level;
  below_ = QApplication::activeModalWidget();
}

bool Director::leaving() const {
  return left_ > 0 && QThread::currentThread()->loopLevel() >= left_ &&
         QApplication::activeModalWidget() == below_;
}

QWidget* window(const QString& name) {
  for (QWidget* open : QApplication::topLevelWidgets())
    if (open->objectName() == name && open->isVisible()) return open;
  return nullptr;
}

QWidget& control(const QString& windowName, const QString& name) {
  QWidget* above = window(windowName);
  QWidget* found = above == nullptr ? nullptr : above->findChild<QWidget*>(name);
  if (found == nullptr) throw std::runtime_error(qPrintable(windowName + QStringLiteral(" senza ") + name));
  return *found;
}

namespace {

QTableView& table(const QString& windowName, const QString& grid) {
  auto* view = qobject_cast<QTableView*>(&control(windowName, grid));
  if (view == nullptr) throw std::runtime_error(qPrintable(grid + QStringLiteral(" is no grid")));
  return *view;
}

}  // namespace

void click(const QString& windowName, const QString& name) {
  QWidget& target = control(windowName, name);
  if (!target.isEnabled()) throw std::runtime_error(qPrintable(name + QStringLiteral(" disabilitato")));
  QTest::mouseClick(&target, Qt::LeftButton);
}

void press(const QString& windowName, const QString& name, Qt::Key key) {
  QTest::keyClick(&control(windowName, name), key);
}

void hoverOver(const QString& windowName, const QString& name) {
  QTest::mouseMove(&control(windowName, name));
}

void type(const QString& windowName, const QString& name, const QString& text) {
  QWidget& box = control(windowName, name);
  QTest::mouseClick(&box, Qt::LeftButton);
  QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&box, text);
}

void retype(const QString& windowName, const QString& name, const QString& text) {
  QWidget& box = control(windowName, name);
  QTest::mouseClick(&box, Qt::LeftButton);
  QTest::keyClick(&box, Qt::Key_End);
  while (!box.property("text").toString().isEmpty()) {
    const QString before = box.property("text").toString();
    QTest::keyClick(&box, Qt::Key_Backspace);
    if (box.property("text").toString() == before)
      throw std::runtime_error(qPrintable(name + QStringLiteral(" does not empty")));
  }
  QTest::keyClicks(&box, text);
}

QList<QStringList> cells(const QString& windowName, const QString& grid) {
  const QAbstractItemModel* pattern = table(windowName, grid).model();
  QList<QStringList> rows;
  for (int row = 0; row < pattern->rowCount(); ++row) {
    QStringList texts;
    for (int column = 0; column < pattern->columnCount(); ++column)
      texts.append(pattern->index(row, column).data().toString());
    rows.append(texts);
  }
  return rows;
}

void clickCell(const QString& windowName, const QString& grid, int row, int column) {
  QTableView& view = table(windowName, grid);
  const QModelIndex cell = view.model()->index(row, column);
  view.scrollTo(cell);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(cell).center());
}

void clickEntry(const QString& windowName, const QString& listName, const QString& text) {
  auto* list = qobject_cast<QListWidget*>(&control(windowName, listName));
  if (list == nullptr) throw std::runtime_error(qPrintable(listName + QStringLiteral(" is no list")));
  const auto found = list->findItems(text, Qt::MatchExactly);
  if (found.isEmpty()) throw std::runtime_error(qPrintable(listName + QStringLiteral(" senza ") + text));
  list->scrollToItem(found.first());
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found.first()).center());
}

void clickTab(const QString& windowName, const QString& tabs, int which) {
  auto* found = qobject_cast<QTabWidget*>(&control(windowName, tabs));
  if (found == nullptr) throw std::runtime_error(qPrintable(tabs + QStringLiteral(" has no tabs")));
  QTabBar& bar = *found->tabBar();
  QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(which).center());
}

void chooseEntry(const QString& windowName, const QString& menuName, const QString& entryName) {
  auto* above = qobject_cast<QMainWindow*>(window(windowName));
  auto* menu = above == nullptr ? nullptr : above->findChild<QMenu*>(menuName);
  auto* entry = menu == nullptr ? nullptr : above->findChild<QAction*>(entryName);
  if (entry == nullptr || !entry->isEnabled())
    throw std::runtime_error(qPrintable(entryName + QStringLiteral(" manca")));
  QTest::mouseClick(above->menuBar(), Qt::LeftButton, {},
                    above->menuBar()->actionGeometry(menu->menuAction()).center());
  QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
}

bool fileDialog() {
  return front("QFileDialog") != nullptr;
}

bool box() {
  return front("QMessageBox") != nullptr;
}

QString boxText() {
  QWidget* inFrontOfAll = front("QMessageBox");
  return inFrontOfAll == nullptr ? QString() : inFrontOfAll->property("text").toString();
}

void typeFileName(const QString& path) {
  QWidget* dialog = front("QFileDialog");
  auto* name = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (name == nullptr) throw std::runtime_error("no file dialog");
  // Pasted whole: letter by letter the dialog would mark the folder that the first letters name.
  QGuiApplication::clipboard()->setText(path);
  name->selectAll();
  QTest::keyClick(name, Qt::Key_V, Qt::ControlModifier);
}

bool acceptableFile() {
  return acceptance() != nullptr && acceptance()->isEnabled();
}

void acceptFile() {
  if (!acceptableFile()) throw std::runtime_error("the file dialog takes no such name");
  QTest::mouseClick(acceptance(), Qt::LeftButton);
}

void closeBox() {
  QWidget* box = front("QMessageBox");
  auto* button = box == nullptr ? nullptr : box->findChild<QAbstractButton*>();
  if (button == nullptr) throw std::runtime_error("no box");
  QTest::mouseClick(button, Qt::LeftButton);
}

void agreeToBox() {
  const auto* box = qobject_cast<QMessageBox*>(front("QMessageBox"));
  if (box == nullptr) throw std::runtime_error("no box");
  for (QAbstractButton* button : box->buttons())
    if (box->buttonRole(button) == QMessageBox::YesRole) {
      QTest::mouseClick(button, Qt::LeftButton);
      return;
    }
  throw std::runtime_error("no box with a yes");
}

void refuseBox() {
  QWidget* box = front("QMessageBox");
  if (box == nullptr) throw std::runtime_error("no box");
  QTest::keyClick(box, Qt::Key_Escape);
}
