#include "controls/FlexGrid.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/contrast.h"
#include "controls/palette.h"
#include "controls/style.h"

namespace {

QString nome(int riga, int colonna) {
  return QStringLiteral("r%1c%2").arg(riga).arg(colonna);
}

void riempi(FlexGrid& griglia, int righe, int colonne) {
  griglia.setRedraw(false);
  griglia.setRows(righe);
  griglia.setCols(colonne);
  for (int riga = 0; riga < righe; ++riga)
    for (int colonna = 0; colonna < colonne; ++colonna)
      griglia.setTextMatrix(riga, colonna, nome(riga, colonna));
  griglia.setRedraw(true);
}

class Griglia : public testing::Test {
 protected:
  Griglia() { riempi(griglia_, 31, 5); }

  /// On the screen, in front, with the focus.
  void mostra() {
    griglia_.resize(360, 260);
    griglia_.show();
    griglia_.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&griglia_));
  }
  void tasto(Qt::Key tasto, Qt::KeyboardModifiers con = {}) { QTest::keyClick(&griglia_, tasto, con); }
  void clicca(int riga, int colonna) {
    const QModelIndex cella = griglia_.model()->index(riga - 1, colonna);
    QTest::mouseClick(griglia_.viewport(), Qt::LeftButton, {}, griglia_.visualRect(cella).center());
  }
  QVariant dato(int riga, int colonna, int ruolo) const {
    return riga == 0 ? griglia_.model()->headerData(colonna, Qt::Horizontal, ruolo)
                     : griglia_.model()->index(riga - 1, colonna).data(ruolo);
  }
  QTableView& fisse() { return *griglia_.findChild<QTableView*>(QStringLiteral("colonneFisse")); }

  FlexGrid griglia_;
};

/// What a view paints and is told meanwhile.
struct Pitture : QObject {
  explicit Pitture(QWidget& di) { di.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* evento) override {
    if (evento->type() == QEvent::Paint) ++quante;
    return false;
  }
  int quante = 0;
};

std::pair<int, int> ultima(const QSignalSpy& spia) {
  return spia.isEmpty() ? std::pair(-1, -1) : std::pair(spia.last().at(0).toInt(), spia.last().at(1).toInt());
}

}  // namespace

TEST(GrigliaNuova, HaLaSolaTestataENessunaColonna) {
  FlexGrid griglia;
  EXPECT_EQ(griglia.Rows(), 1);
  EXPECT_EQ(griglia.Cols(), 0);
  EXPECT_EQ(griglia.Row(), 0);
  EXPECT_EQ(griglia.Col(), -1);
  EXPECT_EQ(griglia.FixedCols(), 0);
  EXPECT_TRUE(griglia.Redraw());
  EXPECT_EQ(griglia.Clip(), QString());
  griglia.markRow(1);
  griglia.Clear();
  EXPECT_EQ(griglia.Row(), 0);
}

TEST_F(Griglia, LaRigaZeroELaTestataELaPrimaDiDatiEQuellaDelModello) {
  EXPECT_EQ(griglia_.Rows(), 31);
  EXPECT_EQ(griglia_.Cols(), 5);
  EXPECT_EQ(griglia_.model()->rowCount(), 30);
  EXPECT_EQ(dato(0, 2, Qt::DisplayRole).toString(), nome(0, 2));
  EXPECT_EQ(dato(1, 2, Qt::DisplayRole).toString(), nome(1, 2));
  EXPECT_EQ(griglia_.TextMatrix(30, 4), nome(30, 4));
}

TEST_F(Griglia, FuoriDallaGrigliaSiLeggeVuotoENonSiScrive) {
  for (const auto& [riga, colonna] : {std::pair(-1, 0), {0, -1}, {31, 0}, {0, 5}}) {
    griglia_.setTextMatrix(riga, colonna, QStringLiteral("x"));
    griglia_.setCellBackColor(riga, colonna, Qt::red);
    griglia_.setCellForeColor(riga, colonna, Qt::red);
    griglia_.setCellAlignment(riga, colonna, Qt::AlignRight);
    griglia_.setColAlignment(colonna == 0 ? 9 : colonna, Qt::AlignRight);
    griglia_.setColWidth(colonna == 0 ? 9 : colonna, 10);
    EXPECT_EQ(griglia_.TextMatrix(riga, colonna), QString());
    EXPECT_FALSE(griglia_.CellBackColor(riga, colonna).isValid());
    EXPECT_FALSE(griglia_.CellForeColor(riga, colonna).isValid());
    EXPECT_EQ(griglia_.CellAlignment(riga, colonna), Qt::AlignLeft | Qt::AlignVCenter);
  }
  EXPECT_EQ(griglia_.ColWidth(9), 0);
  for (int riga = 0; riga < 31; ++riga)
    for (int colonna = 0; colonna < 5; ++colonna)
      EXPECT_EQ(griglia_.TextMatrix(riga, colonna), nome(riga, colonna));
}

TEST_F(Griglia, LeCelleCheRestanoTengonoIlTestoELeNuoveSonoVuote) {
  griglia_.setCellBackColor(2, 1, Qt::red);
  griglia_.setCols(7);
  griglia_.setRows(40);
  EXPECT_EQ(griglia_.TextMatrix(2, 1), nome(2, 1));
  EXPECT_EQ(griglia_.CellBackColor(2, 1), QColor(Qt::red));
  EXPECT_EQ(griglia_.TextMatrix(2, 6), QString());
  EXPECT_EQ(griglia_.TextMatrix(39, 0), QString());
  griglia_.setCols(2);
  griglia_.setRows(2);
  griglia_.setRows(31);
  griglia_.setCols(5);
  EXPECT_EQ(griglia_.TextMatrix(1, 1), nome(1, 1));
  EXPECT_EQ(griglia_.TextMatrix(1, 2), QString()) << "what went is forgotten";
  EXPECT_EQ(griglia_.TextMatrix(2, 1), QString());
  EXPECT_FALSE(griglia_.CellBackColor(2, 1).isValid());
}

TEST_F(Griglia, SenzaRigheOConNumeriNegativiRestaLaTestata) {
  griglia_.setRows(0);
  EXPECT_EQ(griglia_.Rows(), 1);
  EXPECT_EQ(griglia_.TextMatrix(0, 3), nome(0, 3));
  griglia_.setRows(-7);
  griglia_.setCols(-1);
  EXPECT_EQ(griglia_.Rows(), 1);
  EXPECT_EQ(griglia_.Cols(), 0);
}

TEST_F(Griglia, VuotaLeCelleENonLeTestateNeLaForma) {
  griglia_.setCellBackColor(0, 0, Qt::green);
  griglia_.setCellBackColor(3, 3, Qt::red);
  griglia_.setCellForeColor(3, 3, Qt::blue);
  griglia_.setCellAlignment(3, 3, Qt::AlignRight);
  griglia_.Clear();
  EXPECT_EQ(griglia_.Rows(), 31);
  EXPECT_EQ(griglia_.TextMatrix(0, 0), nome(0, 0));
  EXPECT_EQ(griglia_.CellBackColor(0, 0), QColor(Qt::green));
  EXPECT_EQ(griglia_.TextMatrix(3, 3), QString());
  EXPECT_FALSE(griglia_.CellBackColor(3, 3).isValid());
  EXPECT_FALSE(griglia_.CellForeColor(3, 3).isValid());
  EXPECT_EQ(griglia_.CellAlignment(3, 3), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(Griglia, UnAllineamentoDellaCellaVinceSuQuelloDellaColonna) {
  griglia_.setColAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
  griglia_.setCellAlignment(2, 1, Qt::AlignCenter);
  EXPECT_EQ(griglia_.CellAlignment(1, 1), Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_EQ(griglia_.CellAlignment(0, 1), Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_EQ(griglia_.CellAlignment(2, 1), Qt::AlignCenter);
  EXPECT_EQ(dato(2, 1, Qt::TextAlignmentRole).toInt(), static_cast<int>(Qt::AlignCenter));
  EXPECT_EQ(griglia_.CellAlignment(1, 2), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(Griglia, LAllineamentoGeneraleMetteINumeriADestraEIlRestoASinistra) {
  griglia_.setColAlignment(1, FlexGrid::kGeneralAlignment);
  griglia_.setCellAlignment(1, 2, FlexGrid::kGeneralAlignment);
  for (const int colonna : {1, 2}) {
    griglia_.setTextMatrix(1, colonna, QStringLiteral("1.234,50"));
    EXPECT_EQ(griglia_.CellAlignment(1, colonna), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(dato(1, colonna, Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    griglia_.setTextMatrix(1, colonna, QStringLiteral("AB"));
    EXPECT_EQ(griglia_.CellAlignment(1, colonna), Qt::AlignLeft | Qt::AlignVCenter);
  }
  griglia_.setTextMatrix(2, 2, QStringLiteral("12"));
  EXPECT_EQ(griglia_.CellAlignment(2, 2), Qt::AlignLeft | Qt::AlignVCenter) << "another cell";
}

TEST_F(Griglia, IlCarattereDiUnaCellaSiDipingeECioCheLasciaApertoEDellaGriglia) {
  QFont grassetto;
  grassetto.setBold(true);
  griglia_.setCellFont(1, 2, grassetto);
  griglia_.setCellFont(0, 2, grassetto);
  QFont grande = griglia_.font();
  grande.setPointSize(14);
  griglia_.setFont(grande);
  EXPECT_TRUE(griglia_.CellFont(1, 2).bold());
  EXPECT_EQ(griglia_.CellFont(1, 2).pointSize(), 14);
  EXPECT_FALSE(griglia_.CellFont(1, 1).bold());
  EXPECT_TRUE(dato(1, 2, Qt::FontRole).value<QFont>().bold());
  EXPECT_TRUE(dato(0, 2, Qt::FontRole).value<QFont>().bold());
  EXPECT_FALSE(dato(1, 1, Qt::FontRole).isValid());
  griglia_.setCellFont(1, 2, {});
  EXPECT_FALSE(griglia_.CellFont(1, 2).bold());
  griglia_.setCellFont(1, 2, grassetto);
  griglia_.Clear();
  EXPECT_FALSE(griglia_.CellFont(1, 2).bold());
  EXPECT_EQ(griglia_.CellFont(99, 0), grande);
}

TEST_F(Griglia, IlPostoDiUnaCellaContaTestataColonneFisseEScorrimento) {
  griglia_.setFixedCols(1);
  mostra();
  const auto vista = [&](int riga, int colonna) {
    const QRect cella = griglia_.visualRect(griglia_.model()->index(riga - 1, colonna));
    return QRect(griglia_.viewport()->mapTo(&griglia_, cella.topLeft()), cella.size() + QSize(1, 1));
  };
  EXPECT_EQ(griglia_.CellRect(2, 3), vista(2, 3));
  EXPECT_EQ(griglia_.CellRect(0, 3).bottom() + 1, griglia_.viewport()->y());
  EXPECT_EQ(griglia_.CellRect(0, 3).left(), griglia_.CellRect(2, 3).left());
  EXPECT_EQ(griglia_.CellRect(2, 0).right() + 1, griglia_.viewport()->x());
  EXPECT_EQ(griglia_.CellRect(2, 0).top(), griglia_.CellRect(2, 3).top());
  const QRect prima = griglia_.CellRect(2, 0);
  griglia_.horizontalScrollBar()->setValue(40);
  EXPECT_EQ(griglia_.CellRect(2, 3), vista(2, 3));
  EXPECT_EQ(griglia_.CellRect(2, 0), prima);
  griglia_.verticalScrollBar()->setValue(3);
  EXPECT_EQ(griglia_.CellRect(2, 3), vista(2, 3));
  EXPECT_LT(griglia_.CellRect(2, 0).top(), prima.top());
  griglia_.setColWidth(3, 0);
  EXPECT_TRUE(griglia_.CellRect(2, 3).isEmpty());
  for (const auto& [riga, colonna] : {std::pair(-1, 0), {0, -1}, {31, 0}, {0, 5}})
    EXPECT_TRUE(griglia_.CellRect(riga, colonna).isEmpty());
}

TEST_F(Griglia, UnaCellaFissaECorrenteSoloPerProgrammaEFinoAllaMossaSeguente) {
  griglia_.setFixedCols(1);
  mostra();
  const QSignalSpy entrate(&griglia_, &FlexGrid::entered);
  const auto corrente = [&] { return std::pair(griglia_.Row(), griglia_.Col()); };
  griglia_.setFixedCell(4, 0);
  EXPECT_EQ(corrente(), std::pair(4, 0));
  EXPECT_EQ(ultima(entrate), std::pair(4, 0));
  griglia_.setFixedCell(0, 3);
  EXPECT_EQ(corrente(), std::pair(0, 3));
  EXPECT_EQ(ultima(entrate), std::pair(0, 3));
  for (const auto& [riga, colonna] : {std::pair(2, 2), {-1, 0}, {0, 5}, {31, 0}, {0, -1}}) {
    griglia_.setFixedCell(riga, colonna);
    EXPECT_EQ(corrente(), std::pair(0, 3)) << "no fixed cell";
  }
  const QSignalSpy scelte(&griglia_, &FlexGrid::cellClicked);
  tasto(Qt::Key_Return);
  EXPECT_EQ(scelte.size(), 0) << "no data cell";
  clicca(2, 2);
  EXPECT_EQ(corrente(), std::pair(2, 2));
  griglia_.setFixedCell(0, 4);
  griglia_.setCols(3);
  EXPECT_EQ(corrente(), std::pair(0, -1)) << "it went";
  griglia_.setFixedCell(4, 0);
  tasto(Qt::Key_Down);
  EXPECT_EQ(corrente(), std::pair(4, 1)) << "to the cells beside it";
}

TEST_F(Griglia, SenzaMenuSuoIlTastoDestroChiedeSoltanto) {
  griglia_.setFixedCols(1);
  griglia_.setOwnMenu(false);
  mostra();
  const QSignalSpy chiesti(&griglia_, &FlexGrid::menuAsked);
  for (QWidget* vista : {griglia_.viewport(), fisse().viewport()}) {
    QContextMenuEvent chiede(QContextMenuEvent::Mouse, {5, 5}, vista->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(vista, &chiede);
    ASSERT_FALSE(chiesti.isEmpty());
    EXPECT_EQ(chiesti.last().at(0).toPoint(), vista->mapToGlobal(QPoint(5, 5)));
  }
  EXPECT_EQ(chiesti.size(), 2);
  EXPECT_EQ(griglia_.findChild<QMenu*>(QStringLiteral("MenuElenco")), nullptr);
}

TEST_F(Griglia, IlDoppioClicSiRaccontaAncheDelleCelleFisse) {
  griglia_.setFixedCols(1);
  mostra();
  const QSignalSpy doppi(&griglia_, &FlexGrid::cellDoubleClicked);
  const QSignalSpy scelte(&griglia_, &FlexGrid::cellClicked);
  const auto doppio = [&](int riga, int colonna, Qt::MouseButton con) {
    QTest::mouseDClick(griglia_.windowHandle(), con, {}, griglia_.CellRect(riga, colonna).center());
  };
  for (const auto& [riga, colonna] : {std::pair(2, 1), {3, 0}, {0, 1}, {0, 0}}) {
    doppio(riga, colonna, Qt::LeftButton);
    EXPECT_EQ(ultima(doppi), std::pair(riga, colonna));
  }
  EXPECT_EQ(doppi.size(), 4);
  EXPECT_EQ(std::count_if(scelte.begin(), scelte.end(), [](const auto& una) { return una.at(0) == 3; }), 1)
      << "the second press of a fixed cell is no choice of its own";
  griglia_.setOwnMenu(false);
  doppio(2, 1, Qt::RightButton);
  EXPECT_EQ(doppi.size(), 4);
}

TEST_F(Griglia, UnColoreNonValidoRidaQuelloDellaGriglia) {
  griglia_.setBackColor(Qt::yellow);
  griglia_.setCellBackColor(1, 1, QColor(255, 128, 0));
  EXPECT_EQ(dato(1, 1, Qt::BackgroundRole).value<QColor>(), QColor(255, 128, 0));
  EXPECT_EQ(dato(1, 2, Qt::BackgroundRole).value<QColor>(), QColor(Qt::yellow));
  EXPECT_FALSE(dato(0, 2, Qt::BackgroundRole).isValid()) << "a heading keeps its own ground";
  griglia_.setCellBackColor(1, 1, {});
  EXPECT_FALSE(griglia_.CellBackColor(1, 1).isValid());
  EXPECT_EQ(dato(1, 1, Qt::BackgroundRole).value<QColor>(), QColor(Qt::yellow));
  griglia_.setBackColor({});
  EXPECT_FALSE(dato(1, 1, Qt::BackgroundRole).isValid());
  EXPECT_FALSE(dato(1, 1, Qt::ForegroundRole).isValid());
  griglia_.setCellForeColor(1, 1, Qt::black);
  griglia_.setCellForeColor(1, 1, {});
  EXPECT_FALSE(griglia_.CellForeColor(1, 1).isValid());
}

TEST_F(Griglia, LeLarghezzeVannoDaTwipAPixel) {
  griglia_.setColWidth(1, 1500);
  griglia_.setColWidth(2, 1000);
  EXPECT_EQ(griglia_.columnWidth(1), 100);
  EXPECT_EQ(griglia_.columnWidth(2), 67);
  EXPECT_EQ(griglia_.ColWidth(2), 1000) << "rounding to pixels loses nothing";
  griglia_.horizontalHeader()->resizeSection(2, 80);
  EXPECT_EQ(griglia_.ColWidth(2), 1200) << "the user's hand";
  griglia_.setColWidth(3, 0);
  EXPECT_TRUE(griglia_.isColumnHidden(3));
  griglia_.setColWidth(3, 300);
  EXPECT_EQ(griglia_.columnWidth(3), 20);
  griglia_.setCols(6);
  EXPECT_EQ(griglia_.columnWidth(1), 100) << "a new column leaves the others";
}

TEST_F(Griglia, LoSpazioCheAvanzaVaAUnaColonnaSolaENessunaSiStringe) {
  mostra();
  griglia_.setSpareColumn(2);
  for (int colonna = 0; colonna < 5; ++colonna) griglia_.setColWidth(colonna, colonna == 0 ? 500 : 1500);
  griglia_.resize(1000, 260);
  QApplication::processEvents();
  EXPECT_EQ(griglia_.horizontalHeader()->length(), griglia_.viewport()->width());
  EXPECT_EQ(griglia_.horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(griglia_.columnWidth(0), 33);
  EXPECT_EQ(griglia_.columnWidth(1), 100);
  EXPECT_EQ(griglia_.columnWidth(4), 100);
  EXPECT_GT(griglia_.columnWidth(2), 500);
  EXPECT_EQ(griglia_.ColWidth(2), 1500) << "what it was given";
  griglia_.resize(200, 260);
  QApplication::processEvents();
  EXPECT_EQ(griglia_.columnWidth(2), 100);
  griglia_.resize(1000, 260);
  griglia_.setSpareColumn(-1);
  EXPECT_EQ(griglia_.columnWidth(2), 100);
}

TEST_F(Griglia, LaLarghezzaDataAManoRestaELaColonnaCedevoleFaPosto) {
  mostra();
  griglia_.resize(1000, 260);
  griglia_.setSpareColumn(2);
  for (int colonna = 0; colonna < 5; ++colonna) griglia_.setColWidth(colonna, 1500);
  QApplication::processEvents();
  const int prima = griglia_.columnWidth(2);
  EXPECT_FALSE(griglia_.isSizedByHand(1));
  griglia_.horizontalHeader()->resizeSection(1, 140);
  EXPECT_TRUE(griglia_.isSizedByHand(1));
  EXPECT_FALSE(griglia_.isSizedByHand(2));
  EXPECT_EQ(griglia_.ColWidth(1), 2100);
  EXPECT_EQ(griglia_.columnWidth(2), prima - 40);
  griglia_.resize(900, 260);
  QApplication::processEvents();
  EXPECT_EQ(griglia_.columnWidth(1), 140);
  EXPECT_EQ(griglia_.columnWidth(2), prima - 140);
  griglia_.horizontalHeader()->resizeSection(2, 90);
  griglia_.resize(1000, 260);
  QApplication::processEvents();
  EXPECT_EQ(griglia_.columnWidth(2), 90) << "its own, too";
  griglia_.setColWidth(2, 1500);
  EXPECT_FALSE(griglia_.isSizedByHand(2));
}

TEST_F(Griglia, NessunaColonnaEPiuStrettaDelSuoCampioneInQualunqueCarattere) {
  mostra();
  griglia_.setColWidth(1, 300);
  griglia_.setColWidth(2, 300);
  griglia_.setTextMatrix(0, 2, QStringLiteral("IMP. GIORNALIERO"));
  griglia_.setColSample(1, QStringLiteral("00/00/0000"));
  griglia_.setColSample(2, QStringLiteral("0"));
  for (const int punti : {9, 12, 20}) {
    QFont carattere = griglia_.font();
    carattere.setPointSize(punti);
    griglia_.setFont(carattere);
    griglia_.setTextMatrix(1, 1, QStringLiteral("20/11/2026"));
    EXPECT_GE(griglia_.columnWidth(1), griglia_.sizeHintForIndex(griglia_.model()->index(0, 1)).width());
    EXPECT_GE(griglia_.columnWidth(2),
              griglia_.horizontalHeader()->fontMetrics().horizontalAdvance(QStringLiteral("GIORNALIERO")));
    EXPECT_GE(griglia_.horizontalHeader()->height(), 2 * griglia_.horizontalHeader()->fontMetrics().height())
        << "the heading goes over two lines";
    EXPECT_EQ(griglia_.ColWidth(1), 300);
  }
  griglia_.horizontalHeader()->resizeSection(1, 30);
  EXPECT_EQ(griglia_.columnWidth(1), 30) << "the person's hand";
}

TEST_F(Griglia, UnTotalePiuLungoDelCampioneAllargaLaSuaColonna) {
  griglia_.setColWidth(1, 300);
  griglia_.setColSample(1, QStringLiteral("0,000"));
  griglia_.setColWidth(2, 300);
  const int prima = griglia_.columnWidth(1);
  griglia_.setTextMatrix(30, 1, QStringLiteral("24999996,750"));
  griglia_.setTextMatrix(30, 2, QStringLiteral("24999996,750"));
  griglia_.fitColumnsTo(30);
  EXPECT_GT(griglia_.columnWidth(1), prima);
  EXPECT_GE(griglia_.columnWidth(1), griglia_.sizeHintForIndex(griglia_.model()->index(29, 1)).width());
  EXPECT_EQ(griglia_.columnWidth(2), 20) << "its width alone counts";
  const int larga = griglia_.columnWidth(1);
  griglia_.fitColumnsTo(2);
  EXPECT_EQ(griglia_.columnWidth(1), larga) << "a shorter one changes nothing";
}

TEST_F(Griglia, LAltezzaDellaTestataNonScendeSottoIlSuoTesto) {
  griglia_.setHeadingHeight(600);
  EXPECT_EQ(griglia_.horizontalHeader()->height(), 40);
  griglia_.setHeadingHeight(15);
  EXPECT_GE(griglia_.horizontalHeader()->height(), griglia_.fontMetrics().height());
}

TEST_F(Griglia, UnCarattereGrandeAlzaLeRighe) {
  QFont grande = griglia_.font();
  grande.setPointSize(30);
  griglia_.setFont(grande);
  EXPECT_GT(griglia_.rowHeight(0), QFontMetrics(grande).height());
}

TEST_F(Griglia, LaCellaCorrenteSiImpostaESiVede) {
  mostra();
  const QSignalSpy entrate(&griglia_, &FlexGrid::entered);
  griglia_.setCell(25, 4);
  EXPECT_EQ(griglia_.Row(), 25);
  EXPECT_EQ(griglia_.Col(), 4);
  EXPECT_EQ(ultima(entrate), std::pair(25, 4));
  EXPECT_TRUE(
      griglia_.viewport()->rect().contains(griglia_.visualRect(griglia_.model()->index(24, 4)).center()));
  for (const auto& [riga, colonna] : {std::pair(0, 1), {31, 1}, {-1, 1}, {3, -1}, {3, 5}}) {
    griglia_.setCell(riga, colonna);
    EXPECT_EQ(griglia_.Row(), 25);
    EXPECT_EQ(griglia_.Col(), 4);
  }
  EXPECT_EQ(entrate.size(), 1);
}

TEST_F(Griglia, LaCellaCorrenteCheSparisceNonNeLasciaNessuna) {
  griglia_.setCell(20, 3);
  griglia_.setRows(21);
  EXPECT_EQ(griglia_.Row(), 20);
  const QSignalSpy entrate(&griglia_, &FlexGrid::entered);
  griglia_.setRows(20);
  EXPECT_EQ(griglia_.Row(), 0);
  EXPECT_EQ(griglia_.Col(), -1);
  griglia_.setCell(5, 4);
  griglia_.setCols(4);
  EXPECT_EQ(griglia_.Row(), 0);
  EXPECT_EQ(entrate.size(), 1) << "the one that the test set";
}

TEST_F(Griglia, SelezionaLaRigaInteraELaFaCorrente) {
  griglia_.markRow(7);
  EXPECT_EQ(griglia_.Row(), 7);
  EXPECT_EQ(griglia_.Col(), 0);
  EXPECT_EQ(griglia_.selectionModel()->selectedIndexes().size(), 5);
  griglia_.setCell(9, 3);
  griglia_.markRow(9);
  EXPECT_EQ(griglia_.Col(), 3) << "the arrows go on from where they were";
  EXPECT_EQ(griglia_.Clip(), QStringLiteral("r9c0\tr9c1\tr9c2\tr9c3\tr9c4"));
  griglia_.markRow(0);
  griglia_.markRow(31);
  EXPECT_EQ(griglia_.Row(), 9);
}

TEST_F(Griglia, ARigheIntereUnClicEUnaFrecciaPrendonoLaRiga) {
  mostra();
  griglia_.setWholeRows(true);
  clicca(3, 1);
  EXPECT_EQ(griglia_.Clip(), QStringLiteral("r3c0\tr3c1\tr3c2\tr3c3\tr3c4"));
  tasto(Qt::Key_Down);
  EXPECT_EQ(griglia_.Clip(), QStringLiteral("r4c0\tr4c1\tr4c2\tr4c3\tr4c4"));
  EXPECT_EQ(griglia_.Col(), 1);
  tasto(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("r4c0\tr4c1\tr4c2\tr4c3\tr4c4"));
}

TEST_F(Griglia, LaRigaNeiCampiRestaSegnataMentreSiVaAltrove) {
  mostra();
  griglia_.setWholeRows(true);
  griglia_.setRowInFields(3);
  griglia_.setCell(5, 0);
  tasto(Qt::Key_Down);
  EXPECT_EQ(griglia_.RowInFields(), 3);
  EXPECT_EQ(dato(3, 2, Qt::AccessibleDescriptionRole).toString(), QStringLiteral("Riga nei campi"));
  EXPECT_FALSE(dato(4, 2, Qt::AccessibleDescriptionRole).isValid());
  // The line above its cells.
  const QRect cella = griglia_.visualRect(griglia_.model()->index(2, 1));
  const QImage dipinta = griglia_.viewport()->grab().toImage();
  const QColor riga = griglia_.palette().color(QPalette::Highlight);
  EXPECT_EQ(dipinta.pixelColor(cella.center().x(), cella.top()), riga);
  EXPECT_EQ(dipinta.pixelColor(cella.center().x(), cella.bottom()), riga);
  EXPECT_NE(dipinta.pixelColor(cella.center().x(), cella.bottom() + 4), riga);
}

TEST_F(Griglia, LaCellaCorrenteHaUnaCorniceFinCheLaGrigliaHaIlFuoco) {
  mostra();
  griglia_.setWholeRows(true);
  griglia_.setCell(3, 1);
  const QRect cella = griglia_.visualRect(griglia_.model()->index(2, 1));
  const QPoint bordo(cella.center().x(), cella.top() + 1);
  const QColor cornice = griglia_.palette().color(QPalette::HighlightedText);
  EXPECT_EQ(griglia_.viewport()->grab().toImage().pixelColor(bordo), cornice);
  griglia_.clearFocus();
  EXPECT_EQ(griglia_.viewport()->grab().toImage().pixelColor(bordo),
            griglia_.palette().color(QPalette::Highlight));
}

TEST_F(Griglia, UnaRigaNeiCampiCheSparisceNonNeLasciaNessuna) {
  griglia_.setRowInFields(20);
  griglia_.setRows(20);
  EXPECT_EQ(griglia_.RowInFields(), 0);
  griglia_.setRowInFields(20);
  EXPECT_EQ(griglia_.RowInFields(), 0) << "there is none such";
  griglia_.setRowInFields(19);
  griglia_.setRowInFields(-1);
  EXPECT_EQ(griglia_.RowInFields(), 0);
}

TEST_F(Griglia, UnAvvisoStaInMezzoENonPrendeIClic) {
  mostra();
  EXPECT_EQ(griglia_.Notice(), QString());
  griglia_.setNotice(QStringLiteral("Nessun articolo trovato"));
  const auto* avviso = griglia_.findChild<QLabel*>(QStringLiteral("AvvisoElenco"));
  ASSERT_NE(avviso, nullptr);
  EXPECT_TRUE(avviso->isVisible());
  EXPECT_EQ(avviso->geometry(), griglia_.viewport()->rect());
  EXPECT_TRUE(avviso->alignment().testFlag(Qt::AlignCenter));
  griglia_.resize(500, 300);
  QApplication::processEvents();
  EXPECT_EQ(avviso->geometry(), griglia_.viewport()->rect());
  clicca(2, 1);
  EXPECT_EQ(griglia_.Row(), 2);
  griglia_.setNotice({});
  EXPECT_FALSE(avviso->isVisible());
  EXPECT_EQ(griglia_.Notice(), QString());
}

TEST_F(Griglia, IlTastoDestroOffreDiCopiareENonSpostaNulla) {
  mostra();
  griglia_.setCopyEntries({{QStringLiteral("Copia EAN"), 1}});
  griglia_.setWholeRows(true);
  griglia_.setCell(5, 2);
  const QSignalSpy scelte(&griglia_, &FlexGrid::cellClicked);
  const QPoint dove = griglia_.visualRect(griglia_.model()->index(2, 3)).center();
  QTest::mouseClick(griglia_.viewport(), Qt::RightButton, {}, dove);
  QContextMenuEvent chiede(QContextMenuEvent::Mouse, dove, griglia_.viewport()->mapToGlobal(dove));
  QApplication::sendEvent(griglia_.viewport(), &chiede);
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(5, 2));
  EXPECT_EQ(griglia_.Clip(), QStringLiteral("r5c0\tr5c1\tr5c2\tr5c3\tr5c4"));
  EXPECT_EQ(scelte.size(), 0);
  auto* menu = griglia_.findChild<QMenu*>(QStringLiteral("MenuElenco"));
  ASSERT_NE(menu, nullptr);
  EXPECT_TRUE(menu->isVisible());
  ASSERT_EQ(menu->actions().size(), 2);
  EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("Copia riga"));
  EXPECT_EQ(menu->actions()[1]->text(), QStringLiteral("Copia EAN"));
  menu->actions()[1]->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("r3c1"));
  menu->actions()[0]->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("r3c0\tr3c1\tr3c2\tr3c3\tr3c4"));
  menu->close();
}

TEST_F(Griglia, IlMenuDaTastieraEDellaRigaCorrenteECioCheEVuotoNonSiCopia) {
  mostra();
  griglia_.setCopyEntries({{QStringLiteral("Copia EAN"), 1}});
  const auto chiede = [&] {
    QContextMenuEvent tasto(QContextMenuEvent::Keyboard, {}, griglia_.mapToGlobal(QPoint()));
    QApplication::sendEvent(&griglia_, &tasto);
    QPointer<QMenu> menu = griglia_.findChild<QMenu*>(QStringLiteral("MenuElenco"));
    return menu;
  };
  griglia_.selectionModel()->clear();
  EXPECT_TRUE(chiede().isNull()) << "no row is the current one";
  griglia_.setCell(4, 0);
  griglia_.setTextMatrix(4, 1, {});
  const auto menu = chiede();
  ASSERT_FALSE(menu.isNull());
  EXPECT_TRUE(menu->actions()[0]->isEnabled());
  EXPECT_FALSE(menu->actions()[1]->isEnabled());
  menu->actions()[0]->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("r4c0\t\tr4c2\tr4c3\tr4c4"));
  menu->close();
}

TEST_F(Griglia, IlTastoDestroSulleColonneFisseEDellaStessaRiga) {
  griglia_.setFixedCols(1);
  mostra();
  const QPoint dove = fisse().visualRect(fisse().model()->index(3, 0)).center();
  QContextMenuEvent chiede(QContextMenuEvent::Mouse, dove, fisse().viewport()->mapToGlobal(dove));
  QApplication::sendEvent(fisse().viewport(), &chiede);
  auto* menu = griglia_.findChild<QMenu*>(QStringLiteral("MenuElenco"));
  ASSERT_NE(menu, nullptr);
  menu->actions()[0]->trigger();
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("r4c0\tr4c1")));
  menu->close();
}

TEST_F(Griglia, UnTestoTagliatoSiLeggeNelSuggerimentoComeSta) {
  mostra();
  griglia_.setColWidth(1, 900);
  griglia_.setTextMatrix(2, 1, QStringLiteral("<b>LATTE</b> UHT INTERO DI MONTAGNA"));
  const auto chiede = [&](int riga, int colonna) {
    const QPoint dove = griglia_.visualRect(griglia_.model()->index(riga - 1, colonna)).center();
    QHelpEvent aiuto(QEvent::ToolTip, dove, griglia_.viewport()->mapToGlobal(dove));
    QApplication::sendEvent(griglia_.viewport(), &aiuto);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  };
  EXPECT_EQ(chiede(2, 1), QStringLiteral("<p style='white-space:pre'>&lt;b&gt;LATTE&lt;/b&gt; UHT INTERO DI "
                                         "MONTAGNA</p>"));
  QToolTip::hideText();
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
  EXPECT_EQ(chiede(1, 1), QString()) << "it is seen whole";
}

TEST_F(Griglia, LeTestateHannoILoroSuggerimenti) {
  griglia_.setHeadingToolTip(1, QStringLiteral("Qui sta il codice"));
  EXPECT_EQ(dato(0, 1, Qt::ToolTipRole).toString(), QStringLiteral("Qui sta il codice"));
  EXPECT_FALSE(dato(0, 2, Qt::ToolTipRole).isValid());
  EXPECT_FALSE(dato(1, 1, Qt::ToolTipRole).isValid());
}

TEST_F(Griglia, LeFrecceEPaginaMuovonoLaCellaCorrente) {
  mostra();
  griglia_.setCell(1, 0);
  tasto(Qt::Key_Down);
  tasto(Qt::Key_Right);
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(2, 1));
  tasto(Qt::Key_Up);
  tasto(Qt::Key_Left);
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(1, 0));
  tasto(Qt::Key_End);
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(1, 4));
  tasto(Qt::Key_Home);
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(1, 0));
  tasto(Qt::Key_PageDown);
  const int pagina = griglia_.Row();
  EXPECT_GT(pagina, 3);
  EXPECT_LT(pagina, 30);
  tasto(Qt::Key_PageUp);
  EXPECT_EQ(griglia_.Row(), 1);
  tasto(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(30, 4));
  tasto(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(1, 0));
}

TEST_F(Griglia, InvioF2ESpazioScelgonoLaCellaCorrente) {
  mostra();
  griglia_.selectionModel()->clear();
  const QSignalSpy scelte(&griglia_, &FlexGrid::cellClicked);
  tasto(Qt::Key_Return);
  EXPECT_EQ(scelte.size(), 0) << "there is none";
  griglia_.setCell(4, 2);
  for (const Qt::Key chiave : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2, Qt::Key_Space}) tasto(chiave);
  EXPECT_EQ(scelte.size(), 4);
  EXPECT_EQ(ultima(scelte), std::pair(4, 2));
  QKeyEvent ripetuto(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
  QApplication::sendEvent(&griglia_, &ripetuto);
  EXPECT_EQ(scelte.size(), 4) << "a key held down chooses once";
  EXPECT_EQ(griglia_.TextMatrix(4, 2), nome(4, 2));
}

TEST_F(Griglia, IlClicDelMouseSceglieEUnTastoNonScriveNellaCella) {
  mostra();
  const QSignalSpy scelte(&griglia_, &FlexGrid::cellClicked);
  clicca(3, 1);
  EXPECT_EQ(ultima(scelte), std::pair(3, 1));
  EXPECT_EQ(griglia_.Row(), 3);
  QTest::mouseDClick(griglia_.viewport(), Qt::LeftButton, {},
                     griglia_.visualRect(griglia_.model()->index(2, 1)).center());
  QTest::keyClicks(&griglia_, QStringLiteral("x"));
  tasto(Qt::Key_F2);
  EXPECT_EQ(griglia_.findChild<QLineEdit*>(), nullptr);
  EXPECT_EQ(griglia_.TextMatrix(3, 1), nome(3, 1));
  QTest::mouseClick(griglia_.horizontalHeader()->viewport(), Qt::LeftButton);
  EXPECT_EQ(ultima(scelte), std::pair(3, 1)) << "a heading is no data cell";
}

TEST_F(Griglia, CtrlCCopiaLaSelezioneATabulazioni) {
  mostra();
  clicca(2, 1);
  tasto(Qt::Key_Right, Qt::ShiftModifier);
  tasto(Qt::Key_Down, Qt::ShiftModifier);
  const QString previsto = QStringLiteral("r2c1\tr2c2\nr3c1\tr3c2");
  EXPECT_EQ(griglia_.Clip(), previsto);
  tasto(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), previsto);
}

TEST_F(Griglia, CtrlCSenzaSelezioneLasciaGliAppuntiComeSono) {
  mostra();
  griglia_.selectionModel()->clear();
  QGuiApplication::clipboard()->setText(QStringLiteral("di prima"));
  tasto(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("di prima"));
}

TEST_F(Griglia, UnTestoConTabulazioniONuoveRigheNonRompeLaTabellaCopiata) {
  griglia_.setTextMatrix(2, 1, QStringLiteral("a\tb\r\nc"));
  griglia_.markRow(2);
  EXPECT_EQ(griglia_.Clip(), QStringLiteral("r2c0\ta b  c\tr2c2\tr2c3\tr2c4"));
}

TEST_F(Griglia, TabLasciaLaGriglia) {
  QWidget finestra;
  auto* disposizione = new QVBoxLayout(&finestra);
  FlexGrid* griglia = new FlexGrid;
  auto* casella = new QLineEdit;
  riempi(*griglia, 4, 2);
  disposizione->addWidget(griglia);
  disposizione->addWidget(casella);
  finestra.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&finestra));
  griglia->setFocus();
  griglia->setCell(1, 0);
  QTest::keyClick(griglia, Qt::Key_Tab);
  EXPECT_TRUE(casella->hasFocus());
  EXPECT_EQ(griglia->Col(), 0);
}

TEST_F(Griglia, LeColonneFisseNonScorronoDiLato) {
  griglia_.setFixedCols(1);
  griglia_.setColWidth(0, 750);
  mostra();
  EXPECT_EQ(griglia_.FixedCols(), 1);
  EXPECT_EQ(griglia_.ColWidth(0), 750);
  ASSERT_TRUE(fisse().isVisible());
  EXPECT_EQ(fisse().width(), 50);
  EXPECT_EQ(fisse().geometry().right() + 1, griglia_.viewport()->geometry().left());
  const QRect prima = fisse().visualRect(fisse().model()->index(4, 0));
  griglia_.horizontalScrollBar()->setValue(griglia_.horizontalScrollBar()->maximum());
  ASSERT_GT(griglia_.horizontalScrollBar()->value(), 0);
  EXPECT_EQ(fisse().visualRect(fisse().model()->index(4, 0)), prima);
}

TEST_F(Griglia, LeColonneFisseScendonoConLeAltreRigaPerRiga) {
  griglia_.setFixedCols(1);
  mostra();
  const auto pari = [&](int riga) {
    const QModelIndex fissa = fisse().model()->index(riga - 1, 0);
    const QModelIndex mobile = griglia_.model()->index(riga - 1, 1);
    return fisse().viewport()->mapTo(&griglia_, fisse().visualRect(fissa).topLeft()).y() ==
           griglia_.viewport()->mapTo(&griglia_, griglia_.visualRect(mobile).topLeft()).y();
  };
  EXPECT_TRUE(pari(1));
  griglia_.setCell(30, 3);
  EXPECT_TRUE(pari(30));
  EXPECT_EQ(fisse().verticalScrollBar()->value(), griglia_.verticalScrollBar()->value());
  EXPECT_EQ(fisse().verticalScrollBar()->maximum(), griglia_.verticalScrollBar()->maximum());
  fisse().verticalScrollBar()->setValue(0);
  EXPECT_EQ(griglia_.verticalScrollBar()->value(), 0) << "the wheel over the fixed columns";
}

TEST_F(Griglia, LeColonneFisseSeguonoAncheAppenaCresceLaGriglia) {
  griglia_.setFixedCols(1);
  mostra();
  griglia_.setRedraw(false);
  griglia_.setRows(50001);
  griglia_.setCell(50000, 2);
  griglia_.setRedraw(true);
  QApplication::processEvents();
  EXPECT_GT(griglia_.verticalScrollBar()->value(), 49000);
  EXPECT_EQ(fisse().verticalScrollBar()->value(), griglia_.verticalScrollBar()->value());
  griglia_.setRows(31);
  QApplication::processEvents();
  EXPECT_EQ(fisse().verticalScrollBar()->value(), griglia_.verticalScrollBar()->value());
  EXPECT_EQ(fisse().verticalScrollBar()->maximum(), griglia_.verticalScrollBar()->maximum());
}

TEST_F(Griglia, UnaColonnaFissaNonPrendeLaCellaCorrente) {
  griglia_.setCell(2, 0);
  griglia_.setFixedCols(2);
  EXPECT_EQ(griglia_.Col(), -1);
  mostra();
  griglia_.setCell(2, 1);
  EXPECT_EQ(griglia_.Row(), 0);
  griglia_.setCell(2, 2);
  tasto(Qt::Key_Left);
  tasto(Qt::Key_Home);
  EXPECT_EQ(griglia_.Col(), 2);
  const QSignalSpy scelte(&griglia_, &FlexGrid::cellClicked);
  const QRect cella = fisse().visualRect(fisse().model()->index(4, 1));
  QTest::mouseClick(fisse().viewport(), Qt::LeftButton, {}, cella.center());
  EXPECT_EQ(ultima(scelte), std::pair(5, 1));
  EXPECT_EQ(std::pair(griglia_.Row(), griglia_.Col()), std::pair(5, 2));
  griglia_.markRow(5);
  EXPECT_EQ(griglia_.Clip(), QStringLiteral("r5c0\tr5c1\tr5c2\tr5c3\tr5c4"));
}

TEST_F(Griglia, PiuColonneFisseDiQuanteCeNeSonoBloccanoTutte) {
  griglia_.setFixedCols(9);
  EXPECT_EQ(griglia_.FixedCols(), 5);
  griglia_.markRow(3);
  EXPECT_EQ(griglia_.Row(), 0);
  griglia_.setFixedCols(-1);
  EXPECT_EQ(griglia_.FixedCols(), 0);
  EXPECT_FALSE(fisse().isVisibleTo(&griglia_));
  EXPECT_FALSE(griglia_.isColumnHidden(0));
}

TEST_F(Griglia, NellAttesaNonSiDipingeEAllaFineSiDiceUnaVoltaSola) {
  mostra();
  QApplication::processEvents();
  Pitture pitture(*griglia_.viewport());
  const QSignalSpy cambi(griglia_.model(), &QAbstractItemModel::dataChanged);
  griglia_.setRedraw(false);
  griglia_.setRedraw(false);
  griglia_.setTextMatrix(1, 1, QStringLiteral("a"));
  griglia_.setCellBackColor(2, 1, Qt::red);
  griglia_.setRedraw(true);
  EXPECT_FALSE(griglia_.Redraw()) << "the outer switch is still off";
  QApplication::processEvents();
  EXPECT_EQ(cambi.size(), 0);
  EXPECT_EQ(pitture.quante, 0);
  griglia_.setRedraw(true);
  EXPECT_TRUE(griglia_.Redraw());
  EXPECT_EQ(cambi.size(), 1);
  QApplication::processEvents();
  EXPECT_EQ(pitture.quante, 1);
  griglia_.setRedraw(true);
  EXPECT_TRUE(griglia_.Redraw());
  griglia_.setRedraw(false);
  EXPECT_FALSE(griglia_.Redraw()) << "one switch too many does not count";
  griglia_.setRedraw(true);
  EXPECT_EQ(cambi.size(), 1) << "nothing had changed";
}

TEST_F(Griglia, CinquantamilaRigheSiDipingonoUnaVoltaSola) {
  constexpr int kRighe = 50001;
  constexpr int kColonne = 9;
  constexpr int kPassata = 500;
  mostra();
  QApplication::processEvents();
  Pitture pitture(*griglia_.viewport());
  const QSignalSpy cambi(griglia_.model(), &QAbstractItemModel::dataChanged);
  const QSignalSpy forme(griglia_.model(), &QAbstractItemModel::rowsInserted);
  griglia_.setRedraw(false);
  griglia_.setCols(kColonne);
  griglia_.setRows(kRighe);
  for (int riga = 1; riga < kRighe; ++riga) {
    for (int colonna = 0; colonna < kColonne; ++colonna)
      griglia_.setTextMatrix(riga, colonna, nome(riga, colonna));
    if (riga % kPassata == 0) QApplication::processEvents();
  }
  EXPECT_EQ(pitture.quante, 0);
  griglia_.setRedraw(true);
  QApplication::processEvents();
  EXPECT_LE(pitture.quante, 2);
  EXPECT_EQ(cambi.size(), 1);
  EXPECT_EQ(forme.size(), 1);
  griglia_.setCell(kRighe - 1, kColonne - 1);
  EXPECT_EQ(griglia_.TextMatrix(griglia_.Row(), griglia_.Col()), nome(kRighe - 1, kColonne - 1));
}

TEST_F(Griglia, LeRigheHannoUnAltezzaFissaENessunaMisuraDalContenuto) {
  EXPECT_EQ(griglia_.verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
  for (int colonna = 0; colonna < 5; ++colonna)
    EXPECT_NE(griglia_.horizontalHeader()->sectionResizeMode(colonna), QHeaderView::ResizeToContents);
  EXPECT_FALSE(griglia_.isSortingEnabled());
}

TEST_F(Griglia, LettoriDiSchermoTrovanoCelleETestate) {
  mostra();
  QAccessibleInterface* voce = QAccessible::queryAccessibleInterface(&griglia_);
  ASSERT_NE(voce, nullptr);
  EXPECT_EQ(voce->text(QAccessible::Name), QStringLiteral("Griglia"));
  QAccessibleTableInterface* tabella = voce->tableInterface();
  ASSERT_NE(tabella, nullptr);
  EXPECT_EQ(tabella->rowCount(), 30);
  EXPECT_EQ(tabella->cellAt(2, 1)->text(QAccessible::Name), nome(3, 1));
  EXPECT_EQ(tabella->columnDescription(1), nome(0, 1));
}

class ColoriGriglia : public testing::TestWithParam<bool> {
 protected:
  ColoriGriglia() {
    style::apply(*qApp, GetParam() ? style::Theme::Dark : style::Theme::Light);
    griglia_ = std::make_unique<FlexGrid>();
    riempi(*griglia_, 6, 2);
  }
  ~ColoriGriglia() override { qApp->setStyleSheet({}); }

  QColor fondoDipinto(int riga, int colonna) const {
    return griglia_->model()->index(riga - 1, colonna).data(Qt::BackgroundRole).value<QColor>();
  }
  QColor testoDipinto(int riga, int colonna) const {
    const QVariant colore = riga == 0
                                ? griglia_->model()->headerData(colonna, Qt::Horizontal, Qt::ForegroundRole)
                                : griglia_->model()->index(riga - 1, colonna).data(Qt::ForegroundRole);
    return colore.isValid() ? colore.value<QColor>() : griglia_->palette().color(QPalette::Text);
  }

  const style::Tints& t_ = style::tints(GetParam());
  std::unique_ptr<FlexGrid> griglia_;
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, ColoriGriglia, testing::Bool());

TEST_P(ColoriGriglia, IlTestoSiLeggeSuOgniFondoDellaCella) {
  for (const QColor& fondo : {QColor(255, 128, 0), QColor(Qt::yellow), QColor(255, 255, 224),
                              QColor(Qt::white), QColor(Qt::black), QColor(0, 0, 128)}) {
    griglia_->setCellBackColor(1, 0, fondo);
    EXPECT_GE(contrast::between(testoDipinto(1, 0), fondoDipinto(1, 0)), contrast::kReadable)
        << fondo.name().toStdString();
    griglia_->setBackColor(fondo);
    EXPECT_GE(contrast::between(testoDipinto(2, 0), fondoDipinto(2, 0)), contrast::kReadable)
        << fondo.name().toStdString();
    if (!GetParam()) {
      EXPECT_EQ(fondoDipinto(1, 0), fondo);
      EXPECT_EQ(fondoDipinto(2, 0), fondo);
    }
  }
}

TEST_P(ColoriGriglia, AlBuioIFondiChiariSiScurisconoETengonoLaTinta) {
  if (!GetParam()) {
    griglia_->setBackColor(QColor(255, 255, 224));
    EXPECT_EQ(fondoDipinto(4, 0), QColor(255, 255, 224));
    return;
  }
  griglia_->setCellBackColor(1, 0, Qt::white);
  griglia_->setCellBackColor(2, 0, QColor(255, 128, 0));
  griglia_->setCellBackColor(3, 0, Qt::yellow);
  griglia_->setCellForeColor(3, 0, Qt::red);
  griglia_->setBackColor(QColor(255, 255, 224));
  EXPECT_EQ(fondoDipinto(1, 0), t_.paper);
  EXPECT_NEAR(fondoDipinto(2, 0).hslHue(), 30, 2);
  EXPECT_NEAR(fondoDipinto(3, 0).hslHue(), 60, 2);
  EXPECT_NEAR(fondoDipinto(4, 0).hslHue(), 60, 4);
  for (int riga = 1; riga <= 4; ++riga)
    EXPECT_LT(fondoDipinto(riga, 0).lightnessF(), 0.4F) << riga << ": no bright stripe in a dark window";
  EXPECT_GE(contrast::between(testoDipinto(3, 0), fondoDipinto(3, 0)), contrast::kReadable);
  EXPECT_GT(testoDipinto(3, 0).hslSaturation(), 200) << "still a red";
  EXPECT_LT(testoDipinto(3, 0).lightnessF(), 0.9F);
  EXPECT_EQ(griglia_->CellBackColor(2, 0), QColor(255, 128, 0)) << "what it was given";
}

TEST_P(ColoriGriglia, IlColoreDelTestoRestaDellaSuaTintaESiLegge) {
  griglia_->setCellForeColor(0, 0, Qt::blue);
  griglia_->setCellForeColor(1, 0, Qt::blue);
  EXPECT_EQ(griglia_->CellForeColor(1, 0), QColor(Qt::blue));
  EXPECT_GE(contrast::between(testoDipinto(1, 0), t_.paper), contrast::kReadable);
  EXPECT_GE(contrast::between(testoDipinto(0, 0), t_.background), contrast::kReadable);
  EXPECT_NEAR(testoDipinto(1, 0).hslHue(), QColor(Qt::blue).hslHue(), 2);
  if (!GetParam()) {
    EXPECT_EQ(testoDipinto(0, 0), QColor(Qt::blue));
  }
}

TEST_P(ColoriGriglia, FondoETestoSonoQuelliDipinti) {
  griglia_->setCellBackColor(0, 0, QColor(255, 128, 0));
  griglia_->setCellBackColor(1, 0, QColor(255, 128, 0));
  griglia_->setCellForeColor(0, 1, Qt::blue);
  griglia_->setFocusPolicy(Qt::NoFocus);
  griglia_->resize(300, 200);
  griglia_->selectionModel()->clear();
  const QImage dipinta = griglia_->grab().toImage();
  const auto colori = [&](const QRect& dove, const QWidget& di) {
    const QPoint inizio = di.mapTo(griglia_.get(), dove.topLeft());
    std::vector<QRgb> trovati;
    for (int y = 2; y < dove.height() - 2; ++y)
      for (int x = 2; x < dove.width() - 2; ++x)
        trovati.push_back(dipinta.pixel(inizio + QPoint(x, y)) | 0xFF000000);
    return trovati;
  };
  const auto vede = [](const std::vector<QRgb>& dipinti, const QColor& colore) {
    return std::find(dipinti.begin(), dipinti.end(), colore.rgb()) != dipinti.end();
  };
  const QHeaderView& testata = *griglia_->horizontalHeader();
  const auto sezione = [&](int colonna) {
    return colori(
        {testata.sectionViewportPosition(colonna), 0, testata.sectionSize(colonna), testata.height()},
        *testata.viewport());
  };
  const QColor arancio = fondoDipinto(1, 0);
  EXPECT_EQ(arancio == QColor(255, 128, 0), !GetParam());
  EXPECT_TRUE(
      vede(colori(griglia_->visualRect(griglia_->model()->index(0, 0)), *griglia_->viewport()), arancio));
  EXPECT_TRUE(vede(sezione(0), arancio));
  EXPECT_FALSE(vede(sezione(1), arancio));
  EXPECT_TRUE(vede(sezione(1), t_.emphasis));
  const auto azzurri = sezione(1);
  EXPECT_TRUE(std::any_of(azzurri.begin(), azzurri.end(),
                          [](QRgb c) { return qBlue(c) > qRed(c) + 60 && qBlue(c) > qGreen(c) + 60; }));
}

TEST_P(ColoriGriglia, SottoIlPuntatoreIlFondoResta) {
  griglia_->setWholeRows(true);
  griglia_->setCellBackColor(1, 0, QColor(255, 128, 0));
  griglia_->setCellBackColor(2, 0, QColor(255, 128, 0));
  griglia_->resize(300, 200);
  griglia_->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(griglia_.get()));
  const QRect cella = griglia_->visualRect(griglia_->model()->index(0, 0));
  QTest::mouseMove(griglia_->viewport(), griglia_->visualRect(griglia_->model()->index(3, 0)).center());
  QTest::mouseMove(griglia_->viewport(), cella.center());
  QHoverEvent sopra(QEvent::HoverMove, cella.center(), cella.center(), QPointF(0, 0));
  QApplication::sendEvent(griglia_->viewport(), &sopra);
  griglia_->selectionModel()->clear();
  const QImage dipinta = griglia_->viewport()->grab().toImage();
  const QPoint angolo = cella.bottomRight() - QPoint(3, 3);
  EXPECT_EQ(dipinta.pixelColor(angolo).rgb(), fondoDipinto(1, 0).rgb());
}

TEST_P(ColoriGriglia, UnCambioDiTemaRifaIColori) {
  griglia_->setCellForeColor(1, 0, Qt::blue);
  style::apply(*qApp, GetParam() ? style::Theme::Light : style::Theme::Dark);
  QApplication::processEvents();
  const QColor carta = style::tints(!GetParam()).paper;
  EXPECT_GE(contrast::between(testoDipinto(1, 0), carta), contrast::kReadable);
}
