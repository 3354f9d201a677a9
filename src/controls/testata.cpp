#include "controls/testata.h"

#include <QPainter>

namespace {
constexpr int kMargine = 8;
}

Testata::Testata(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setHighlightSections(false);
}

void Testata::paintSection(QPainter* pittore, const QRect& posto, int sezione) const {
  const auto chiedi = [&](int ruolo) { return model()->headerData(sezione, Qt::Horizontal, ruolo); };
  const QVariant fondo = chiedi(Qt::BackgroundRole);
  if (!fondo.isValid()) return QHeaderView::paintSection(pittore, posto, sezione);
  pittore->save();
  pittore->fillRect(posto.adjusted(0, 0, -1, -1), fondo.value<QColor>());
  pittore->setPen(chiedi(Qt::ForegroundRole).value<QColor>());
  pittore->drawText(posto.adjusted(kMargine, 0, -kMargine, 0), chiedi(Qt::TextAlignmentRole).toInt(),
                    chiedi(Qt::DisplayRole).toString());
  pittore->restore();
}
