#include "controls/cell_box.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "controls/FlexGrid.h"

namespace {

QString sheet(const QString& colours) {
  return QStringLiteral(
             "QLineEdit, QLineEdit:focus { border: 2px solid palette(highlight); border-radius: 0; "
             "padding: 0 1px; %1 }")
      .arg(colours);
}

}  // namespace

namespace cellbox {

void dress(QLineEdit& box) {
  box.setStyleSheet(sheet({}));
}

void dress(QLineEdit& box, const FlexGrid& grid, int row, int column) {
  box.setStyleSheet(
      sheet(QStringLiteral("background: %1; color: %2;")
                .arg(grid.ShownBackColor(row, column).name(), grid.ShownForeColor(row, column).name())));
}

Side side(const FlexGrid& grid, int row, int column) {
  const Qt::Alignment alignment = grid.CellAlignment(row, column);
  if (alignment.testFlag(Qt::AlignRight)) return Side::Right;
  return alignment.testFlag(Qt::AlignHCenter) ? Side::Center : Side::Left;
}

void lay(QLineEdit& box, const FlexGrid& grid, int row, int column) {
  // What has a sheet of its own takes no font over from above.
  box.setFont(grid.CellFont(row, column));
  const int line = grid.showGrid() ? 1 : 0;
  const QRect cell = grid.CellRect(row, column).adjusted(0, 0, -line, -line);
  box.setGeometry({box.parentWidget()->mapFromGlobal(grid.mapToGlobal(cell.topLeft())), cell.size()});
}

void name(QLineEdit& box, const QString& heading, int row) {
  box.setAccessibleName(QStringLiteral("%1, riga %2").arg(heading).arg(row));
}

void open(QLineEdit& box) {
  box.raise();
  box.show();
  box.setFocus(Qt::OtherFocusReason);
}

void close(QLineEdit& box, FlexGrid& grid) {
  // Before it is hidden: with it, the focus would go anywhere.
  if (box.hasFocus()) grid.setFocus(Qt::OtherFocusReason);
  box.hide();
}

bool keepsEscape(QEvent& event) {
  if (event.type() != QEvent::ShortcutOverride) return false;
  const bool escape = static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
  if (escape) event.accept();
  return escape;
}

}  // namespace cellbox
