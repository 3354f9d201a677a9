#include "controls/cell_model.h"

#include <QLocale>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/contrast.h"

namespace {
constexpr Qt::Alignment kAlignment = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kOfNumbers = Qt::AlignRight | Qt::AlignVCenter;

/// With a comma, as the screens show amounts, or with a point, as the files do.
bool isNumber(const QString& text) {
  const QString number = text.trimmed();
  for (const QLocale& writing : {QLocale(QLocale::Italian), QLocale::c()}) {
    bool read = false;
    if (std::isfinite(writing.toDouble(number, &read)) && read) return true;
  }
  return false;
}

}  // namespace

CellModel::CellModel(QObject* parent) : QAbstractTableModel(parent) {}

int CellModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_ - 1;
}

int CellModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

bool CellModel::inside(int row, int column) const {
  return row >= 0 && row < rows_ && column >= 0 && column < columns_;
}

std::size_t CellModel::place(int row, int column) const {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(column);
}

QVariant CellModel::data(const QModelIndex& index, int role) const {
  return index.isValid() ? value(index.row() + 1, index.column(), role) : QVariant();
}

QVariant CellModel::headerData(int section, Qt::Orientation direction, int role) const {
  if (direction == Qt::Vertical) return {};
  const QVariant found = value(0, section, role);
  // A heading may take two lines.
  return role == Qt::TextAlignmentRole && found.isValid() ? found.toInt() | Qt::TextWordWrap : found;
}

QVariant CellModel::value(int row, int column, int role) const {
  if (!inside(row, column)) return {};
  switch (role) {
    case Qt::DisplayRole:
      return texts_[place(row, column)];
    case Qt::TextAlignmentRole:
      return static_cast<int>(alignment(row, column));
    case Qt::BackgroundRole: {
      const QColor ground = background(row, look(row, column));
      return ground.isValid() ? QVariant(ground) : QVariant();
    }
    case Qt::ForegroundRole:
      return textColour(row, look(row, column));
    case Qt::FontRole: {
      const Look its = look(row, column);
      return its.font ? QVariant(*its.font) : QVariant();
    }
    case kInFieldsRole:
      return row == inFields_;
    case Qt::AccessibleDescriptionRole:
      return row > 0 && row == inFields_ ? QVariant(QStringLiteral("Riga nei campi")) : QVariant();
    case Qt::ToolTipRole: {
      const QString text = row == 0 ? headingToolTips_[static_cast<std::size_t>(column)] : QString();
      return text.isEmpty() ? QVariant() : QVariant(text);
    }
    default:
      return {};
  }
}

QColor CellModel::background(int row, const Look& look) const {
  if (look.hasBack) return ground(QColor::fromRgba(look.background));
  return row == 0 || !background_.isValid() ? QColor() : ground(background_);
}

QColor CellModel::ground(const QColor& wanted) const {
  const auto [known, fresh] = grounds_.try_emplace(wanted.rgba());
  if (fresh)
    known->second = contrast::ground(wanted, palette_.color(QPalette::Active, QPalette::Base),
                                     palette_.color(QPalette::Active, QPalette::Text));
  return known->second;
}

QVariant CellModel::textColour(int row, const Look& look) const {
  QColor ground = background(row, look);
  if (!ground.isValid() && !look.hasFore) return {};
  if (!ground.isValid()) ground = palette_.color(row == 0 ? QPalette::Window : QPalette::Base);
  if (look.hasFore) return contrast::readable(QColor::fromRgba(look.text), ground);
  const QColor usual = palette_.color(QPalette::Active, QPalette::Text);
  return contrast::between(usual, ground) >= contrast::kReadable ? usual : contrast::whiteOrBlack(ground);
}

void CellModel::setRowCount(int rows) {
  const int fresh = std::max(rows, 1);
  if (fresh == rows_) return;
  const bool grows = fresh > rows_;
  if (grows)
    beginInsertRows({}, rows_ - 1, fresh - 2);
  else
    beginRemoveRows({}, fresh - 1, rows_ - 2);
  rows_ = fresh;
  if (inFields_ >= rows_) inFields_ = 0;
  texts_.resize(place(rows_, 0));
  numbers_.resize(place(rows_, 0));
  if (grows)
    endInsertRows();
  else
    endRemoveRows();
}

void CellModel::setColumnCount(int columns) {
  const int fresh = std::max(columns, 0);
  if (fresh == columns_) return;
  const bool grows = fresh > columns_;
  if (grows)
    beginInsertColumns({}, columns_, fresh - 1);
  else
    beginRemoveColumns({}, fresh, columns_ - 1);
  arrange(fresh);
  if (grows)
    endInsertColumns();
  else
    endRemoveColumns();
}

void CellModel::arrange(int columns) {
  const std::size_t wide = static_cast<std::size_t>(columns);
  std::vector<QString> texts(wide * static_cast<std::size_t>(rows_));
  std::vector<Number> numbers(texts.size());
  for (int row = 0; row < rows_; ++row)
    for (int column = 0; column < std::min(columns, columns_); ++column) {
      const std::size_t fresh = static_cast<std::size_t>(row) * wide + static_cast<std::size_t>(column);
      texts[fresh] = std::move(texts_[place(row, column)]);
      numbers[fresh] = numbers_[place(row, column)];
    }
  texts_ = std::move(texts);
  numbers_ = std::move(numbers);
  ofColumns_.resize(wide, kAlignment);
  headingToolTips_.resize(wide);
  columns_ = columns;
}

void CellModel::clear() {
  const auto first = static_cast<std::ptrdiff_t>(place(1, 0));
  std::fill(texts_.begin() + first, texts_.end(), QString());
  std::fill(numbers_.begin() + first, numbers_.end(), 0);
  allChanged();
}

QString CellModel::text(int row, int column) const {
  return inside(row, column) ? texts_[place(row, column)] : QString();
}

void CellModel::setText(int row, int column, const QString& text) {
  if (!inside(row, column)) return;
  texts_[place(row, column)] = text;
  changed(row, column);
}

CellModel::Look CellModel::look(int row, int column) const {
  return inside(row, column) ? looks_[numbers_[place(row, column)]] : Look{};
}

void CellModel::setLook(int row, int column, const Look& look) {
  if (!inside(row, column)) return;
  numbers_[place(row, column)] = numberOf(look);
  changed(row, column);
}

CellModel::Number CellModel::numberOf(const Look& look) {
  const auto [known, fresh] = known_.try_emplace(look, static_cast<Number>(looks_.size()));
  if (fresh) looks_.push_back(look);
  return known->second;
}

Qt::Alignment CellModel::alignment(int row, int column) const {
  if (!inside(row, column)) return kAlignment;
  const int its = look(row, column).alignment;
  const Qt::Alignment wanted = its != 0 ? Qt::Alignment(its) : ofColumns_[static_cast<std::size_t>(column)];
  if (wanted != kGeneral) return wanted;
  return isNumber(texts_[place(row, column)]) ? kOfNumbers : kAlignment;
}

void CellModel::setColumnAlignment(int column, Qt::Alignment alignment) {
  if (!inside(0, column)) return;
  ofColumns_[static_cast<std::size_t>(column)] = alignment;
  allChanged();
}

void CellModel::setHeadingToolTip(int column, const QString& text) {
  if (inside(0, column)) headingToolTips_[static_cast<std::size_t>(column)] = text;
}

void CellModel::setRowInFields(int row) {
  const int fresh = row > 0 && row < rows_ ? row : 0;
  const int before = std::exchange(inFields_, fresh);
  if (before == fresh) return;
  rowChanged(before);
  rowChanged(fresh);
}

void CellModel::setBackground(const QColor& background) {
  background_ = background;
  allChanged();
}

void CellModel::setPalette(const QPalette& palette) {
  palette_ = palette;
  grounds_.clear();
  allChanged();
}

void CellModel::suspend() {
  suspended_ = true;
}

void CellModel::resume() {
  suspended_ = false;
  if (std::exchange(changed_, false)) allChanged();
}

void CellModel::changed(int row, int column) {
  if (suspended_)
    changed_ = true;
  else if (row == 0)
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
  else
    Q_EMIT dataChanged(index(row - 1, column), index(row - 1, column));
}

void CellModel::rowChanged(int row) {
  changed_ = changed_ || suspended_;
  if (!suspended_ && row > 0 && columns_ > 0)
    Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, columns_ - 1));
}

void CellModel::allChanged() {
  changed_ = suspended_;
  if (suspended_ || columns_ == 0) return;
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
  if (rows_ > 1) Q_EMIT dataChanged(index(0, 0), index(rows_ - 2, columns_ - 1));
}
