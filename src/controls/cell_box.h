#pragma once

#include <QString>

class FlexGrid;
class QEvent;
class QLineEdit;

/// Text boxes that lie over the cells of a grid: what everything that edits in place has in common. A box is
/// a child of the grid's viewport, or of a widget that holds the grid.
namespace cellbox {

/// A frame that leaves the text the room that it has in its cell.
void dress(QLineEdit& box);
/// As above, on the ground and in the colour of text of the cell, as they are painted.
void dress(QLineEdit& box, const FlexGrid& grid, int row, int column);
/// Which of the boxes at the left, in the centre and at the right a cell takes by its alignment.
enum class Side { Left, Center, Right };
Side side(const FlexGrid& grid, int row, int column);
/// Lays the box over the cell, in the cell's font.
void lay(QLineEdit& box, const FlexGrid& grid, int row, int column);
/// "Prezzo, riga 3", for who cannot see what the box lies over.
void name(QLineEdit& box, const QString& heading, int row);
/// In front of the cell, with the focus.
void open(QLineEdit& box);
/// Gives the focus, if the box has it, to the grid and hides the box.
void close(QLineEdit& box, FlexGrid& grid);
/// True for the question whether Esc is a shortcut, which the box answers: it takes the cell back, and nobody
/// above leaves the screen by it.
bool keepsEscape(QEvent& event);

}  // namespace cellbox
