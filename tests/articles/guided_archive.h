#pragma once

#include <QLineEdit>

#include "articles/Form_ArchivioArticoli.h"
#include "articles/guided_screen.h"
#include "controls/FlexGrid.h"

/// The archive screen under the hands of a person.
class ArchivioGuidato : public SchermoGuidato {
 public:
  explicit ArchivioGuidato(Bottega& bottega)
      : SchermoGuidato(bottega, QStringLiteral("Form_ArchivioArticoli")) {}

  FlexGrid& griglia() const { return controllo<FlexGrid>(QStringLiteral("MSFlexGridArticoli")); }
  /// Types over what the field holds.
  void scrivi(const QString& campo, const QString& tasti) const;
  /// A click on a cell, row from 1.
  void clicCella(int riga, int colonna) const;
  /// Texts of a row of the grid, parted by "|".
  QString riga(int riga) const;
  /// Texts of one column, rows from 1.
  QStringList colonna(int colonna) const;
  /// Texts of the eight fields, in the order of the columns.
  QStringList campi() const;
  QString fuoco() const;
};

/// Names of the fields, in the order of the grid's columns.
QStringList nomiCampi();
