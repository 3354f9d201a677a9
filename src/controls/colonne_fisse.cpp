#include "controls/colonne_fisse.h"

#include <QMouseEvent>
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
  connect(verticalScrollBar(), &QScrollBar::valueChanged, griglia.verticalScrollBar(), &QScrollBar::setValue);
  connect(griglia.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
  hide();
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
  verticalScrollBar()->setValue(griglia_.verticalScrollBar()->value());
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
