#pragma once

#include <QLineEdit>

#include "articles/Form_ArchivioArticoli.h"
#include "controls/FlexGrid.h"
#include "sostegno/guided_screen.h"

/// The archive screen under the hands of a person.
class GuidedArchive : public GuidedScreen {
 public:
  explicit GuidedArchive(ProgramFixture& program)
      : GuidedScreen(program, QStringLiteral("Form_ArchivioArticoli")) {}

  FlexGrid& grid() const { return control<FlexGrid>("MSFlexGridArticoli"); }
  /// A click on a cell, row from 1.
  void clickCell(int row, int column) const;
  /// Texts of a row of the grid, parted by "|".
  QString row(int row) const;
  /// Texts of one column, rows from 1.
  QStringList column(int column) const;
  /// Texts of the eight fields, in the order of the columns.
  QStringList fields() const;
};

/// Names of the fields, in the order of the grid's columns.
QStringList fieldNames();
