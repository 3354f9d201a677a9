#include "controls/ZetaEditFlexGrid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QSettings>
#include <QSplitter>

#include "controls/cell_box.h"

namespace {

/// The first character that starts editing: blank and control characters have another meaning on a grid.
constexpr char16_t kFirstTyped = 33;
constexpr QLatin1String kSeparator("-");

struct Setting {
  const char* name;
  bool usual;
};
constexpr std::array kSettings{Setting{"AutoSelect", true}, Setting{"AutoEdit", false},
                               Setting{"EditFixedCells", false}, Setting{"MenuPopup", true},
                               Setting{"Enabled", true}};

/// In the order of `cellbox::Side`.
struct Box {
  const char* name;
  Qt::Alignment alignment;
};
constexpr std::array kBoxes{Box{"txtEditLeft", Qt::AlignLeft | Qt::AlignVCenter},
                            Box{"txtEditCenter", Qt::AlignHCenter | Qt::AlignVCenter},
                            Box{"txtEditRight", Qt::AlignRight | Qt::AlignVCenter}};

bool spans(int start, int length, int place) {
  return place >= start && place < start + length;
}

}  // namespace

struct ZetaEditFlexGrid::Command {
  const char* name;
  const char* caption;
  void (ZetaEditFlexGrid::*run)();
  /// 0 for none.
  int key = 0;
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

const std::array<ZetaEditFlexGrid::Command, 7> ZetaEditFlexGrid::kCommands{{
    {"mnuPopup_Edit", "&Modifica", &ZetaEditFlexGrid::Edit, Qt::Key_F2},
    {"mnuPopup_Sep", "-", nullptr},
    {"mnuPopup_Cut", "&Taglia", &ZetaEditFlexGrid::cut, Qt::Key_Delete, Qt::ShiftModifier},
    {"mnuPopup_Copy", "&Copia", &ZetaEditFlexGrid::copy, Qt::Key_Insert, Qt::ControlModifier},
    {"mnuPopup_Paste", "&Incolla", &ZetaEditFlexGrid::paste, Qt::Key_Insert, Qt::ShiftModifier},
    {"mnuPopup_Clear", "&Elimina dati", &ZetaEditFlexGrid::clear, Qt::Key_Delete},
    {"mnuPopup_Undo", "&Annulla", &ZetaEditFlexGrid::Undo},
}};

ZetaEditFlexGrid::ZetaEditFlexGrid(QObject* parent) : QObject(parent) {
  for (const Setting& one : kSettings) setProperty(one.name, one.usual);
}

ZetaEditFlexGrid::~ZetaEditFlexGrid() {
  const QSignalBlocker nobodyHears(this);
  unbind();
  for (const QPointer<QLineEdit>& box : boxes_)
    if (box) box->deleteLater();
  if (mnuPopup_) mnuPopup_->deleteLater();
}

void ZetaEditFlexGrid::setMenuPopup(bool on) {
  menuPopup_ = on;
  chooseMenu();
}

void ZetaEditFlexGrid::setEnabled(bool on) {
  enabled_ = on;
  chooseMenu();
  // Its keys would do nothing any more.
  if (!on) cancel();
}

void ZetaEditFlexGrid::chooseMenu() {
  if (flexGriglia_) flexGriglia_->setOwnMenu(!(enabled_ && menuPopup_));
}

void ZetaEditFlexGrid::save(QSettings& settings) const {
  for (const Setting& one : kSettings) settings.setValue(QLatin1String(one.name), property(one.name));
}

void ZetaEditFlexGrid::load(const QSettings& settings) {
  cancel();
  for (const Setting& one : kSettings)
    setProperty(one.name, settings.value(QLatin1String(one.name), one.usual).toBool());
}

void ZetaEditFlexGrid::setGriglia(FlexGrid* griglia) {
  if (griglia == flexGriglia_) return;
  unbind();
  flexGriglia_ = griglia;
  if (griglia != nullptr) bind();
}

void ZetaEditFlexGrid::bind() {
  makeParts();
  moveParts();
  chooseMenu();
  flexGriglia_->installEventFilter(this);
  connect(flexGriglia_, &FlexGrid::menuAsked, this, &ZetaEditFlexGrid::openMenu);
  connect(flexGriglia_, &FlexGrid::cellDoubleClicked, this, &ZetaEditFlexGrid::doubleClicked);
  connect(flexGriglia_, &FlexGrid::scrolled, this, &ZetaEditFlexGrid::cancel);
  connect(flexGriglia_, &FlexGrid::arranged, this, &ZetaEditFlexGrid::arrange);
  connect(flexGriglia_, &QObject::destroyed, this, &ZetaEditFlexGrid::forget);
}

void ZetaEditFlexGrid::unbind() {
  cancel();
  if (flexGriglia_) {
    flexGriglia_->removeEventFilter(this);
    disconnect(flexGriglia_, nullptr, this, nullptr);
    flexGriglia_->setOwnMenu(true);
  }
  forget();
}

/// The grid is gone, or on its way.
void ZetaEditFlexGrid::forget() {
  if (txtEdit_) txtEdit_->deleteLater();
  txtEdit_ = nullptr;
  saved_.reset();
  if (mnuPopup_Undo_) mnuPopup_Undo_->setEnabled(false);
}

void ZetaEditFlexGrid::makeParts() {
  for (std::size_t i = 0; i < kBoxes.size(); ++i) {
    if (boxes_[i]) continue;
    auto* box = new QLineEdit(&container());
    box->hide();
    box->setObjectName(QLatin1String(kBoxes[i].name));
    box->setAlignment(kBoxes[i].alignment);
    box->installEventFilter(this);
    boxes_[i] = box;
  }
  if (!mnuPopup_) makeMenu();
}

void ZetaEditFlexGrid::makeMenu() {
  mnuPopup_ = new QMenu(flexGriglia_);
  mnuPopup_->setObjectName(QStringLiteral("mnuPopup"));
  for (const Command& one : kCommands) {
    QAction* entry = mnuPopup_->addAction(QLatin1String(one.caption));
    entry->setObjectName(QLatin1String(one.name));
    entry->setSeparator(entry->text() == kSeparator);
    if (entry->isSeparator())
      // A separator with a text would be painted as a title.
      entry->setText({});
    else
      connect(entry, &QAction::triggered, this, one.run);
  }
  mnuPopup_Undo_ = mnuPopup_->actions().constLast();
  mnuPopup_Undo_->setEnabled(saved_.has_value());
}

void ZetaEditFlexGrid::moveParts() {
  QWidget* before = flexGriglia_;
  for (const QPointer<QLineEdit>& box : boxes_) {
    box->setParent(&container());
    box->hide();
    QWidget::setTabOrder(before, box);
    before = box;
  }
  if (mnuPopup_->parent() != flexGriglia_) mnuPopup_->setParent(flexGriglia_, mnuPopup_->windowFlags());
}

/// What the grid stands in. A splitter would make a pane of each of its children.
QWidget& ZetaEditFlexGrid::container() const {
  QWidget* holder = flexGriglia_->isWindow() ? nullptr : flexGriglia_->parentWidget();
  while (qobject_cast<QSplitter*>(holder) != nullptr) holder = holder->parentWidget();
  return holder != nullptr ? *holder : *flexGriglia_;
}

ZetaEditFlexGrid::Cell ZetaEditFlexGrid::current() const {
  return {flexGriglia_->Row(), flexGriglia_->Col()};
}

bool ZetaEditFlexGrid::holds(const Cell& cell) const {
  return flexGriglia_ && cell.row >= 0 && cell.row < flexGriglia_->Rows() && cell.column >= 0 &&
         cell.column < flexGriglia_->Cols();
}

bool ZetaEditFlexGrid::reaches(const Cell& cell) const {
  return holds(cell) && (editFixedCells_ || !flexGriglia_->isFixedCell(cell.row, cell.column));
}

bool ZetaEditFlexGrid::mayChange() const {
  return enabled_ && flexGriglia_ && reaches(current());
}

void ZetaEditFlexGrid::moveTo(const Cell& cell) {
  if (flexGriglia_->isFixedCell(cell.row, cell.column))
    flexGriglia_->setFixedCell(cell.row, cell.column);
  else
    flexGriglia_->setCell(cell.row, cell.column);
}

/// Fixed ones come first, as they lie over what is scrolled below them.
std::optional<ZetaEditFlexGrid::Cell> ZetaEditFlexGrid::cellAt(const QPoint& place) const {
  Cell found{0, 0};
  const auto inColumn = [&] {
    const QRect cell = flexGriglia_->CellRect(0, found.column);
    return spans(cell.left(), cell.width(), place.x());
  };
  const auto inRow = [&] {
    const QRect cell = flexGriglia_->CellRect(found.row, found.column);
    return spans(cell.top(), cell.height(), place.y());
  };
  while (found.column < flexGriglia_->Cols() && !inColumn()) ++found.column;
  while (found.row < flexGriglia_->Rows() && !inRow()) ++found.row;
  return holds(found) ? std::optional(found) : std::nullopt;
}

void ZetaEditFlexGrid::openMenu(const QPoint& at) {
  if (!enabled_ || !menuPopup_ || txtEdit_) return;
  const std::optional<Cell> cell = cellAt(flexGriglia_->mapFromGlobal(at));
  if (!cell || !reaches(*cell)) return;
  moveTo(*cell);
  mnuPopup_->popup(at);
}

void ZetaEditFlexGrid::doubleClicked(int row, int column) {
  if (!enabled_ || !reaches({row, column})) return;
  moveTo({row, column});
  Edit();
}

void ZetaEditFlexGrid::Edit() {
  start(std::nullopt);
}

void ZetaEditFlexGrid::Edit(const QString& text) {
  start(text);
}

void ZetaEditFlexGrid::start(const std::optional<QString>& text) {
  if (!mayChange()) return;
  cancel();
  if (text) Q_EMIT EditStart(*text);
  // The owner may have turned it off, or unbound it, just now.
  if (mayChange()) openBox(text);
}

void ZetaEditFlexGrid::openBox(const std::optional<QString>& text) {
  const auto [row, column] = current();
  if (flexGriglia_->CellRect(row, column).isEmpty()) return;
  // Over a cell that is scrolled away the box would lie on what stands beside the grid.
  moveTo({row, column});
  makeParts();
  moveParts();
  edited_ = {row, column};
  txtEdit_ = boxes_[static_cast<std::size_t>(cellbox::side(*flexGriglia_, row, column))];
  cellbox::dress(*txtEdit_, *flexGriglia_, row, column);
  cellbox::name(*txtEdit_, flexGriglia_->TextMatrix(0, column), row);
  arrange();
  txtEdit_->setText(text.value_or(flexGriglia_->TextMatrix(row, column)));
  cellbox::open(*txtEdit_);
  // What the person has begun to type is not selected: the next character would take its place.
  if (autoSelect_ && !text)
    txtEdit_->selectAll();
  else
    txtEdit_->end(false);
}

void ZetaEditFlexGrid::arrange() {
  if (!txtEdit_) return;
  if (flexGriglia_->CellRect(edited_.row, edited_.column).isEmpty()) return cancel();
  cellbox::lay(*txtEdit_, *flexGriglia_, edited_.row, edited_.column);
  // A cell that is wider than the grid goes on beyond it, its box does not.
  const QPoint corner = container().mapFromGlobal(flexGriglia_->mapToGlobal(QPoint()));
  txtEdit_->setGeometry(txtEdit_->geometry() & QRect(corner, flexGriglia_->size()));
}

void ZetaEditFlexGrid::closeBox() {
  cellbox::close(*txtEdit_, *flexGriglia_);
  txtEdit_ = nullptr;
}

void ZetaEditFlexGrid::confirm() {
  if (!holds(edited_)) return cancel();
  saveUndo(edited_);
  flexGriglia_->setTextMatrix(edited_.row, edited_.column, txtEdit_->text());
  closeBox();
  Q_EMIT Change();
  focusGrid();
}

void ZetaEditFlexGrid::cancel() {
  if (!txtEdit_ || !flexGriglia_) return;
  closeBox();
  Q_EMIT Cancel();
  focusGrid();
}

/// Behind the owner's word on it, wherever that has led.
void ZetaEditFlexGrid::focusGrid() {
  if (flexGriglia_) flexGriglia_->setFocus(Qt::OtherFocusReason);
}

bool ZetaEditFlexGrid::eventFilter(QObject* watched, QEvent* event) {
  // A grid that is going away is none any more, while its boxes are told of it.
  const bool ofGrid = qobject_cast<FlexGrid*>(watched) != nullptr;
  switch (event->type()) {
    case QEvent::KeyPress: {
      const auto& key = *static_cast<const QKeyEvent*>(event);
      return ofGrid ? keyOnGrid(key) : keyInBox(key);
    }
    case QEvent::ShortcutOverride:
      return !ofGrid && cellbox::keepsEscape(*event);
    case QEvent::Move:
      if (ofGrid) arrange();
      return false;
    case QEvent::HideToParent:
    case QEvent::ParentChange:
      if (ofGrid) cancel();
      return false;
    default:
      return false;
  }
}

/// True if the key goes no further.
bool ZetaEditFlexGrid::keyOnGrid(const QKeyEvent& key) {
  if (!enabled_) return false;
  // A box in a grid that stands alone hands over what it has no use for.
  if (txtEdit_ && txtEdit_->hasFocus()) return true;
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  for (const Command& one : kCommands) {
    if (one.key == 0 || one.key != key.key() || one.modifiers != modifiers) continue;
    (this->*one.run)();
    return true;
  }
  if (!startsEditing(key)) return false;
  Edit(key.text());
  return true;
}

bool ZetaEditFlexGrid::startsEditing(const QKeyEvent& key) const {
  const bool control = key.modifiers().testFlag(Qt::ControlModifier);
  const bool alt = key.modifiers().testFlag(Qt::AltModifier);
  // Both together are how some keyboards reach a character.
  if (!autoEdit_ || control != alt || key.text().isEmpty()) return false;
  return key.text().front() >= QChar(kFirstTyped) &&
         (key.text().front().isPrint() || key.text().front().isSurrogate());
}

bool ZetaEditFlexGrid::keyInBox(const QKeyEvent& key) {
  if (!txtEdit_) return false;
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      confirm();
      return true;
    case Qt::Key_Escape:
      cancel();
      return true;
    default:
      return false;
  }
}

void ZetaEditFlexGrid::saveUndo(const Cell& cell) {
  saved_ = {cell, flexGriglia_->TextMatrix(cell.row, cell.column)};
  mnuPopup_Undo_->setEnabled(true);
}

void ZetaEditFlexGrid::write(const QString& text) {
  flexGriglia_->setTextMatrix(flexGriglia_->Row(), flexGriglia_->Col(), text);
  Q_EMIT Change();
}

void ZetaEditFlexGrid::clear() {
  if (!mayChange()) return;
  saveUndo(current());
  write({});
}

/// Fixed cells as well: they stay as they are.
void ZetaEditFlexGrid::copy() {
  if (!enabled_ || !flexGriglia_ || !holds(current())) return;
  saveUndo(current());
  QGuiApplication::clipboard()->setText(saved_->text);
}

void ZetaEditFlexGrid::cut() {
  if (!mayChange()) return;
  copy();
  clear();
}

void ZetaEditFlexGrid::paste() {
  if (!mayChange()) return;
  saveUndo(current());
  const QMimeData* held = QGuiApplication::clipboard()->mimeData();
  if (held != nullptr && held->hasText()) write(held->text());
}

void ZetaEditFlexGrid::Undo() {
  if (!enabled_ || !saved_ || !holds(saved_->cell)) return;
  moveTo(saved_->cell);
  write(saved_->text);
}
