#include "articles/guided_archive.h"

#include <QTest>

void GuidedArchive::clickCell(int row, int column) const {
  FlexGrid& where = grid();
  const QModelIndex cell = where.model()->index(row - 1, column);
  where.scrollTo(cell);
  QTest::mouseClick(where.viewport(), Qt::LeftButton, {}, where.visualRect(cell).center());
}

QString GuidedArchive::row(int row) const {
  QStringList texts;
  for (int column = 0; column < grid().Cols(); ++column) texts += grid().TextMatrix(row, column);
  return texts.join(u'|');
}

QStringList GuidedArchive::column(int column) const {
  QStringList texts;
  for (int row = 1; row < grid().Rows(); ++row) texts += grid().TextMatrix(row, column);
  return texts;
}

QStringList GuidedArchive::fields() const {
  QStringList texts;
  for (const QString& name : fieldNames()) texts += text(name);
  return texts;
}

QStringList fieldNames() {
  return {QStringLiteral("vkTextBoxPLUid"),  QStringLiteral("vkTextBoxCodEan"),
          QStringLiteral("vkTextBoxCodArt"), QStringLiteral("vkTextBoxDesc"),
          QStringLiteral("vkTextBoxPrezzo"), QStringLiteral("vkTextBoxRep"),
          QStringLiteral("vkTextBoxVarPrz"), QStringLiteral("vkTextBoxPrz0")};
}
