#pragma once

#include <QString>

class QWidget;

namespace workspace {

/// A modal window with a title and a way back, in the place of a screen that this installation lacks.
void MostraInArrivo(const QString& titolo, QWidget* sopra);

}  // namespace workspace
