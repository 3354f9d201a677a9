#include "controls/colonne_fisse.h"

#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "controls/testata.h"

ColonneFisse::ColonneFisse(QTableView& griglia) : QTableView(&griglia), griglia_(griglia) {
  setObjectName(QStringLiteral("colonneFisse"));
  setAccessibleName(QStringLiteral("Colonne fisse"));
  setHorizontalHeader(new Testata(this));
  setModel(griglia.model());
  QItemSelectionModel* mia = selectionModel();
  setSelectionModel(griglia.selectionModel());
  delete mia;
  setFocusPolicy(Qt::NoFocus);
  setStyleSheet(QStringLiteral("QTableView { border: none; }"));
  setFrameShape(QFrame::NoFrame);
  setWordWrap(false);
  setAutoScroll(false);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(1);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int valore) {
    if (!segue_) griglia_.verticalScrollBar()->setValue(valore);
  });
  connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &ColonneFisse::segui);
  connect(griglia.verticalScrollBar(), &QScrollBar::valueChanged, this, &ColonneFisse::segui);
  hide();
}

void ColonneFisse::segui() {
  // A range of its own that is still behind cuts the value: that is no scrolling by hand.
  const QScopedValueRollback nonDaSola(segue_, true);
  verticalScrollBar()->setValue(griglia_.verticalScrollBar()->value());
}

void ColonneFisse::mostra(int quante, const QList<int>& larghezze) {
  for (int colonna = 0; colonna < larghezze.size(); ++colonna) {
    const bool mia = colonna < quante && larghezze[colonna] > 0;
    setColumnHidden(colonna, !mia);
    if (mia) setColumnWidth(colonna, larghezze[colonna]);
  }
  setVisible(larghezza() > 0);
  disponi();
}

int ColonneFisse::larghezza() const {
  return horizontalHeader()->length();
}

void ColonneFisse::disponi() {
  const QRect testata = griglia_.horizontalHeader()->geometry();
  const QRect celle = griglia_.viewport()->geometry();
  verticalHeader()->setMinimumSectionSize(griglia_.verticalHeader()->minimumSectionSize());
  verticalHeader()->setDefaultSectionSize(griglia_.verticalHeader()->defaultSectionSize());
  horizontalHeader()->setFixedHeight(testata.height());
  setGeometry(celle.left() - larghezza(), testata.top(), larghezza(), testata.height() + celle.height());
  segui();
}

void ColonneFisse::mousePressEvent(QMouseEvent* evento) {
  evento->accept();
}

void ColonneFisse::mouseMoveEvent(QMouseEvent* evento) {
  evento->accept();
}

void ColonneFisse::mouseDoubleClickEvent(QMouseEvent* evento) {
  evento->accept();
}

void ColonneFisse::mouseReleaseEvent(QMouseEvent* evento) {
  const QModelIndex cella = indexAt(evento->position().toPoint());
  if (evento->button() == Qt::LeftButton && cella.isValid()) Q_EMIT premuta(cella);
}
