#include "controls/ZetaEditFlexGrid.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialog>
#include <QHeaderView>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include "controls/style.h"

namespace {

constexpr int kRighe = 31;
constexpr int kColonne = 5;
/// All but the last column stand in the view, and that one partly.
constexpr int kTwip = 15 * 72;
const QRect kPosto(30, 40, 360, 240);
const QStringList kCaselle{QStringLiteral("txtEditLeft"), QStringLiteral("txtEditCenter"),
                           QStringLiteral("txtEditRight")};

QString nome(int riga, int colonna) {
  return QStringLiteral("r%1c%2").arg(riga).arg(colonna);
}

void riempi(FlexGrid& griglia) {
  griglia.setRows(kRighe);
  griglia.setCols(kColonne);
  for (int colonna = 0; colonna < kColonne; ++colonna) griglia.setColWidth(colonna, kTwip);
  for (int riga = 0; riga < kRighe; ++riga)
    for (int colonna = 0; colonna < kColonne; ++colonna)
      griglia.setTextMatrix(riga, colonna, nome(riga, colonna));
}

/// A grid in a dialog whose default button and whose way out are keys of a box.
class EditorInGriglia : public testing::Test {
 protected:
  EditorInGriglia() {
    griglia_ = new FlexGrid(&finestra_);
    griglia_->setGeometry(kPosto);
    riempi(*griglia_);
    griglia_->setFixedCols(1);
    altrove_ = new QLineEdit(&finestra_);
    altrove_->setGeometry(30, 300, 200, 30);
    auto* predefinito = new QPushButton(&finestra_);
    predefinito->setGeometry(250, 300, 100, 30);
    predefinito->setDefault(true);
    QObject::connect(predefinito, &QPushButton::clicked, &finestra_, [this] { ++premuto_; });
    finestra_.resize(480, 360);
    editor_.setGriglia(griglia_);
    QGuiApplication::clipboard()->clear();
  }

  void mostra(int riga = 2, int colonna = 2) {
    finestra_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&finestra_));
    griglia_->setFocus();
    griglia_->setCell(riga, colonna);
    QApplication::processEvents();
  }
  void tasto(int tasto, Qt::KeyboardModifiers con = {}) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(tasto), con);
  }
  void scrivi(const char* testo) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(testo)); }
  QPoint centro(int riga, int colonna) const {
    return griglia_->mapTo(&finestra_, griglia_->CellRect(riga, colonna).center());
  }
  void premi(const QPoint& dove, Qt::MouseButton con) {
    QTest::mouseClick(finestra_.windowHandle(), con, {}, dove);
  }
  void destro(int riga, int colonna) { premi(centro(riga, colonna), Qt::RightButton); }
  void doppio(int riga, int colonna, Qt::MouseButton con = Qt::LeftButton) {
    QTest::mouseDClick(finestra_.windowHandle(), con, {}, centro(riga, colonna));
  }
  /// The box that is open, nullptr with none; two at once fail.
  QLineEdit* casella() const {
    QLineEdit* aperta = nullptr;
    for (auto* una : finestra_.findChildren<QLineEdit*>())
      if (kCaselle.contains(una->objectName()) && una->isVisible()) {
        EXPECT_EQ(aperta, nullptr);
        aperta = una;
      }
    return aperta;
  }
  QString aperta() const { return casella() ? casella()->objectName() : QString(); }
  QMenu& menu() const { return *griglia_->findChild<QMenu*>(QStringLiteral("mnuPopup")); }
  QAction& voce(const char* quale) const { return *menu().findChild<QAction*>(QLatin1String(quale)); }
  void scegli(const char* quale) {
    ASSERT_TRUE(menu().isVisible());
    QTest::mouseClick(&menu(), Qt::LeftButton, {}, menu().actionGeometry(&voce(quale)).center());
  }
  std::pair<int, int> corrente() const { return {griglia_->Row(), griglia_->Col()}; }
  QString testo(int riga, int colonna) const { return griglia_->TextMatrix(riga, colonna); }
  /// Change, Cancel and third event, since the last look.
  std::array<int, 3> eventi() {
    const std::array<int, 3> quanti{int(cambi_.size()), int(annulli_.size()), int(inizi_.size())};
    cambi_.clear();
    annulli_.clear();
    inizi_.clear();
    return quanti;
  }

  QDialog finestra_;
  FlexGrid* griglia_ = nullptr;
  QLineEdit* altrove_ = nullptr;
  int premuto_ = 0;
  ZetaEditFlexGrid editor_;
  QSignalSpy cambi_{&editor_, &ZetaEditFlexGrid::Change};
  QSignalSpy annulli_{&editor_, &ZetaEditFlexGrid::Cancel};
  QSignalSpy inizi_{&editor_, &ZetaEditFlexGrid::EditStart};
};

using Eventi = std::array<int, 3>;
constexpr Eventi kNessuno{0, 0, 0};
constexpr Eventi kCambio{1, 0, 0};
constexpr Eventi kAnnullo{0, 1, 0};

struct Predefinita {
  const char* nome;
  bool valore;
};
constexpr std::array kPredefinite{Predefinita{"AutoSelect", true}, Predefinita{"AutoEdit", false},
                                  Predefinita{"EditFixedCells", false}, Predefinita{"MenuPopup", true},
                                  Predefinita{"Enabled", true}};

}  // namespace

TEST(EditorInGrigliaNuovo, HaIValoriPredefinitiENessunaGriglia) {
  const ZetaEditFlexGrid editor;
  for (const auto& [nome, valore] : kPredefinite) {
    const QVariant trovato = editor.property(nome);
    ASSERT_TRUE(trovato.isValid()) << nome;
    EXPECT_EQ(trovato.toBool(), valore) << nome;
  }
  EXPECT_TRUE(editor.property("Griglia").isValid());
  EXPECT_EQ(editor.property("Griglia").value<FlexGrid*>(), nullptr);
}

TEST(EditorInGrigliaNuovo, OgniProprietaSiScriveColSuoNomeENonToccaLeAltre) {
  for (const Predefinita& cambiata : kPredefinite) {
    ZetaEditFlexGrid editor;
    EXPECT_TRUE(editor.setProperty(cambiata.nome, !cambiata.valore));
    for (const auto& [nome, valore] : kPredefinite)
      EXPECT_EQ(editor.property(nome).toBool(), (nome == cambiata.nome) != valore) << nome;
  }
  ZetaEditFlexGrid editor;
  FlexGrid griglia;
  EXPECT_TRUE(editor.setProperty("Griglia", QVariant::fromValue(&griglia)));
  EXPECT_EQ(editor.Griglia(), &griglia);
}

TEST(EditorInGrigliaNuovo, LeCinqueProprietaSiSalvanoERitornano) {
  const QTemporaryDir cartella;
  const QString file = cartella.filePath(QStringLiteral("editor.ini"));
  for (const Predefinita& cambiata : kPredefinite) {
    {
      ZetaEditFlexGrid editor;
      editor.setProperty(cambiata.nome, !cambiata.valore);
      QSettings salvate(file, QSettings::IniFormat);
      editor.save(salvate);
    }
    QSettings salvate(file, QSettings::IniFormat);
    QStringList chiavi = salvate.allKeys();
    chiavi.sort();
    EXPECT_EQ(chiavi, QStringLiteral("AutoEdit AutoSelect EditFixedCells Enabled MenuPopup").split(u' '));
    ZetaEditFlexGrid altro;
    altro.load(salvate);
    for (const auto& [nome, valore] : kPredefinite)
      EXPECT_EQ(altro.property(nome).toBool(), (nome == cambiata.nome) != valore) << nome;
  }
}

TEST(EditorInGrigliaNuovo, CioCheNonFuSalvatoPrendeIlValorePredefinito) {
  const QTemporaryDir cartella;
  QSettings salvate(cartella.filePath(QStringLiteral("editor.ini")), QSettings::IniFormat);
  salvate.setValue(QStringLiteral("MenuPopup"), false);
  ZetaEditFlexGrid editor;
  for (const auto& [nome, valore] : kPredefinite) editor.setProperty(nome, !valore);
  editor.load(salvate);
  EXPECT_TRUE(editor.AutoSelect());
  EXPECT_FALSE(editor.AutoEdit());
  EXPECT_FALSE(editor.EditFixedCells());
  EXPECT_FALSE(editor.MenuPopup());
  EXPECT_TRUE(editor.Enabled());
}

TEST(EditorInGrigliaNuovo, SenzaGrigliaNonFaNulla) {
  ZetaEditFlexGrid editor;
  QSignalSpy cambi(&editor, &ZetaEditFlexGrid::Change);
  QSignalSpy annulli(&editor, &ZetaEditFlexGrid::Cancel);
  QSignalSpy inizi(&editor, &ZetaEditFlexGrid::EditStart);
  editor.Edit();
  editor.Edit(QStringLiteral("x"));
  editor.Undo();
  editor.setEnabled(false);
  EXPECT_EQ(cambi.size() + annulli.size() + inizi.size(), 0);
}

TEST_F(EditorInGriglia, LaLetturaDelleProprietaChiudeLaCasella) {
  mostra();
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  const QTemporaryDir cartella;
  editor_.load(QSettings(cartella.filePath(QStringLiteral("editor.ini")), QSettings::IniFormat));
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kAnnullo);
}

TEST_F(EditorInGriglia, SenzaCellaCorrenteNonFaNulla) {
  mostra();
  griglia_->selectionModel()->clear();
  for (const int uno : {Qt::Key_F2, Qt::Key_Delete}) tasto(uno);
  tasto(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kNessuno);
  EXPECT_FALSE(voce("mnuPopup_Undo").isEnabled());
}

TEST_F(EditorInGriglia, F2ApreLaCasellaEsattamenteSopraLaCella) {
  mostra(3, 2);
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(casella()->parentWidget(), &finestra_) << "in what holds the grid";
  const QRect cella = griglia_->visualRect(griglia_->model()->index(2, 2));
  EXPECT_EQ(casella()->geometry(),
            QRect(griglia_->viewport()->mapTo(&finestra_, cella.topLeft()), cella.size()));
  EXPECT_EQ(casella()->text(), nome(3, 2));
  EXPECT_TRUE(casella()->hasFocus());
  EXPECT_EQ(casella()->selectedText(), nome(3, 2));
  EXPECT_EQ(casella()->accessibleName(), QStringLiteral("r0c2, riga 3"));
  EXPECT_EQ(eventi(), kNessuno);
  for (const QString& una : kCaselle) {
    const auto* questa = finestra_.findChild<QLineEdit*>(una);
    ASSERT_NE(questa, nullptr) << una.toStdString();
    EXPECT_EQ(questa->isVisible(), una == aperta());
  }
}

TEST_F(EditorInGriglia, SenzaAutoSelectIlCursoreStaInFondo) {
  mostra();
  editor_.setAutoSelect(false);
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  EXPECT_FALSE(casella()->hasSelectedText());
  scrivi("x");
  EXPECT_EQ(casella()->text(), nome(2, 2) + u'x');
}

TEST_F(EditorInGriglia, InvioScriveNellaCellaEDaIlFuocoAllaGriglia) {
  for (const int invio : {Qt::Key_Return, Qt::Key_Enter}) {
    mostra();
    tasto(Qt::Key_F2);
    scrivi("pane");
    EXPECT_NE(testo(2, 2), QStringLiteral("pane")) << "not before Enter";
    QString allEvento;
    bool chiusa = false;
    const auto cambio = QObject::connect(&editor_, &ZetaEditFlexGrid::Change, &finestra_, [&] {
      allEvento = testo(2, 2);
      chiusa = casella() == nullptr;
      altrove_->setFocus();
    });
    tasto(invio);
    QObject::disconnect(cambio);
    EXPECT_EQ(allEvento, QStringLiteral("pane"));
    EXPECT_TRUE(chiusa);
    EXPECT_TRUE(griglia_->hasFocus()) << "behind the event";
    EXPECT_EQ(eventi(), kCambio);
    EXPECT_EQ(premuto_, 0) << "the key is swallowed";
    griglia_->setTextMatrix(2, 2, nome(2, 2));
  }
}

TEST_F(EditorInGriglia, InvioSenzaAverScrittoEUnCambio) {
  mostra();
  tasto(Qt::Key_F2);
  tasto(Qt::Key_Return);
  EXPECT_EQ(testo(2, 2), nome(2, 2));
  EXPECT_EQ(eventi(), kCambio);
}

TEST_F(EditorInGriglia, EscLasciaIlTestoERaccontaCancelENonChange) {
  mostra();
  tasto(Qt::Key_F2);
  scrivi("pane");
  QObject::connect(&editor_, &ZetaEditFlexGrid::Cancel, &finestra_, [&] {
    EXPECT_EQ(casella(), nullptr);
    altrove_->setFocus();
  });
  tasto(Qt::Key_Escape);
  EXPECT_EQ(testo(2, 2), nome(2, 2));
  EXPECT_EQ(casella(), nullptr);
  EXPECT_TRUE(griglia_->hasFocus());
  EXPECT_EQ(eventi(), kAnnullo);
  EXPECT_TRUE(finestra_.isVisible()) << "the key is swallowed";
  EXPECT_FALSE(voce("mnuPopup_Undo").isEnabled());
}

TEST_F(EditorInGriglia, CancSvuotaLaCella) {
  mostra();
  tasto(Qt::Key_Delete);
  EXPECT_EQ(testo(2, 2), QString());
  EXPECT_EQ(eventi(), kCambio);
  tasto(Qt::Key_Down);
  tasto(Qt::Key_Delete, Qt::KeypadModifier);
  EXPECT_EQ(testo(3, 2), QString());
  EXPECT_EQ(eventi(), kCambio);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().isEmpty());
}

TEST_F(EditorInGriglia, MaiuscCancTaglia) {
  mostra();
  tasto(Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(testo(2, 2), QString());
  EXPECT_EQ(QGuiApplication::clipboard()->text(), nome(2, 2));
  EXPECT_EQ(eventi(), kCambio);
  editor_.Undo();
  EXPECT_EQ(testo(2, 2), nome(2, 2)) << "saved before the cell was emptied";
}

TEST_F(EditorInGriglia, CtrlInsCopiaSenzaCambiare) {
  mostra();
  tasto(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(testo(2, 2), nome(2, 2));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), nome(2, 2));
  EXPECT_EQ(eventi(), kNessuno);
  EXPECT_TRUE(voce("mnuPopup_Undo").isEnabled()) << "a copy saves the undo state too";
}

TEST_F(EditorInGriglia, MaiuscInsIncolla) {
  mostra();
  QGuiApplication::clipboard()->setText(QStringLiteral("dagli appunti"));
  tasto(Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(testo(2, 2), QStringLiteral("dagli appunti"));
  EXPECT_EQ(eventi(), kCambio);
  editor_.Undo();
  EXPECT_EQ(testo(2, 2), nome(2, 2)) << "saved before the cell was written";
}

TEST_F(EditorInGriglia, SenzaTestoNegliAppuntiIncollareNonCambiaNulla) {
  mostra();
  auto* figura = new QMimeData;
  figura->setImageData(QImage(2, 2, QImage::Format_RGB32));
  QGuiApplication::clipboard()->setMimeData(figura);
  tasto(Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(testo(2, 2), nome(2, 2));
  EXPECT_EQ(eventi(), kNessuno);
  EXPECT_TRUE(voce("mnuPopup_Undo").isEnabled()) << "the state is saved before the clipboard is asked";
}

TEST_F(EditorInGriglia, ITastiConAltriModificatoriNonSonoDellEditor) {
  mostra();
  tasto(Qt::Key_F2, Qt::ShiftModifier);
  tasto(Qt::Key_Delete, Qt::ControlModifier);
  tasto(Qt::Key_Insert);
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(testo(2, 2), nome(2, 2));
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, ConAutoEditUnCarattereApreLaCasellaESiContinuaAScrivere) {
  mostra();
  editor_.setAutoEdit(true);
  scrivi("1");
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(casella()->text(), QStringLiteral("1"));
  ASSERT_EQ(inizi_.size(), 1);
  EXPECT_EQ(inizi_.front().at(0).toString(), QStringLiteral("1"));
  scrivi("2");
  EXPECT_EQ(casella()->text(), QStringLiteral("12")) << "the second takes not the first one's place";
  tasto(Qt::Key_Return);
  EXPECT_EQ(testo(2, 2), QStringLiteral("12"));
}

TEST_F(EditorInGriglia, ConAutoEditIlPrimoCarattereCheVaEIl33) {
  editor_.setAutoEdit(true);
  for (const char uno : {'!', '~'}) {
    mostra();
    QTest::keyClick(griglia_, uno);
    ASSERT_NE(casella(), nullptr) << uno;
    EXPECT_EQ(casella()->text(), QString(QLatin1Char(uno)));
    tasto(Qt::Key_Escape);
  }
  eventi();
  tasto(Qt::Key_Space);
  tasto(Qt::Key_Backspace);
  tasto(Qt::Key_Tab);
  griglia_->setFocus();
  tasto(Qt::Key_A, Qt::ControlModifier);
  tasto(Qt::Key_A, Qt::AltModifier);
  tasto(Qt::Key_F5);
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, SenzaAutoEditUnCarattereNonApreNulla) {
  mostra();
  scrivi("1a");
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, IlTestoDiPartenzaSiAnnunciaPrimaCheLaCasellaSiApra) {
  mostra();
  bool primaDellaCasella = false;
  QObject::connect(&editor_, &ZetaEditFlexGrid::EditStart, &finestra_,
                   [&] { primaDellaCasella = casella() == nullptr; });
  editor_.Edit(QStringLiteral("abc"));
  EXPECT_TRUE(primaDellaCasella);
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(casella()->text(), QStringLiteral("abc"));
  EXPECT_EQ(inizi_.front().at(0).toString(), QStringLiteral("abc"));
  tasto(Qt::Key_Escape);
  eventi();
  editor_.Edit();
  EXPECT_NE(casella(), nullptr);
  EXPECT_EQ(eventi(), kNessuno) << "only a starting text is announced";
  tasto(Qt::Key_Escape);
  eventi();
  editor_.Edit(QString());
  EXPECT_EQ(casella()->text(), QString());
  EXPECT_EQ(eventi(), (Eventi{0, 0, 1})) << "an empty one too";
}

TEST_F(EditorInGriglia, ChiSpegneAllAnnuncioNonVedeLaCasella) {
  mostra();
  QObject::connect(&editor_, &ZetaEditFlexGrid::EditStart, &finestra_, [&] { editor_.setEnabled(false); });
  editor_.Edit(QStringLiteral("abc"));
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(testo(2, 2), nome(2, 2));
}

TEST_F(EditorInGriglia, IlDoppioClicApreLaCellaSottoIlPuntatore) {
  mostra();
  doppio(4, 3);
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(corrente(), std::pair(4, 3));
  EXPECT_EQ(casella()->text(), nome(4, 3));
  EXPECT_TRUE(casella()->hasFocus());
}

TEST_F(EditorInGriglia, IlDoppioClicSuUnaCellaFissaApreSoloConEditFixedCells) {
  mostra();
  doppio(4, 0);
  EXPECT_EQ(casella(), nullptr);
  doppio(0, 2);
  EXPECT_EQ(casella(), nullptr);
  editor_.setEditFixedCells(true);
  doppio(4, 0);
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(casella()->text(), nome(4, 0));
  EXPECT_TRUE(casella()->hasFocus()) << "the release that ends the double click is no click";
  tasto(Qt::Key_Escape);
  doppio(0, 2);
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(casella()->text(), nome(0, 2));
  EXPECT_TRUE(casella()->hasFocus());
}

TEST_F(EditorInGriglia, F2SuUnaCellaFissaNonFaNullaSenzaEditFixedCells) {
  mostra();
  for (const auto& [riga, colonna] : {std::pair(3, 0), {0, 2}, {0, 0}}) {
    griglia_->setFixedCell(riga, colonna);
    ASSERT_EQ(corrente(), std::pair(riga, colonna));
    tasto(Qt::Key_F2);
    EXPECT_EQ(casella(), nullptr);
    tasto(Qt::Key_Delete);
    tasto(Qt::Key_Delete, Qt::ShiftModifier);
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    tasto(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(testo(riga, colonna), nome(riga, colonna));
    tasto(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), nome(riga, colonna));
  }
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, F2SuUnaCellaFissaApreConEditFixedCells) {
  mostra();
  editor_.setEditFixedCells(true);
  for (const auto& [riga, colonna] : {std::pair(3, 0), {0, 2}, {0, 0}}) {
    griglia_->setFixedCell(riga, colonna);
    tasto(Qt::Key_F2);
    ASSERT_NE(casella(), nullptr);
    EXPECT_EQ(casella()->geometry().topLeft(),
              kPosto.topLeft() + griglia_->CellRect(riga, colonna).topLeft());
    EXPECT_TRUE(casella()->geometry().contains(centro(riga, colonna)));
    scrivi("fissa");
    tasto(Qt::Key_Return);
    EXPECT_EQ(testo(riga, colonna), QStringLiteral("fissa"));
    EXPECT_EQ(eventi(), kCambio);
  }
}

namespace {

struct Scelta {
  Qt::Alignment allineamento;
  const char* testo;
  const char* casella;
};
void PrintTo(const Scelta& una, std::ostream* uscita) {
  *uscita << una.allineamento.toInt() << " over " << una.testo << ": " << una.casella;
}
constexpr auto kGenerale = FlexGrid::kGeneralAlignment;

class AllineamentoInGriglia : public EditorInGriglia, public testing::WithParamInterface<Scelta> {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(
    DaZeroANove, AllineamentoInGriglia,
    testing::Values(Scelta{Qt::AlignLeft | Qt::AlignTop, "12", "txtEditLeft"},
                    Scelta{Qt::AlignLeft | Qt::AlignVCenter, "12", "txtEditLeft"},
                    Scelta{Qt::AlignLeft | Qt::AlignBottom, "12", "txtEditLeft"},
                    Scelta{Qt::AlignHCenter | Qt::AlignTop, "12", "txtEditCenter"},
                    Scelta{Qt::AlignHCenter | Qt::AlignVCenter, "12", "txtEditCenter"},
                    Scelta{Qt::AlignHCenter | Qt::AlignBottom, "12", "txtEditCenter"},
                    Scelta{Qt::AlignRight | Qt::AlignTop, "AB", "txtEditRight"},
                    Scelta{Qt::AlignRight | Qt::AlignVCenter, "AB", "txtEditRight"},
                    Scelta{Qt::AlignRight | Qt::AlignBottom, "AB", "txtEditRight"},
                    Scelta{kGenerale, "12", "txtEditRight"}, Scelta{kGenerale, "AB", "txtEditLeft"},
                    Scelta{kGenerale, "", "txtEditLeft"}, Scelta{kGenerale, "-3,50", "txtEditRight"},
                    Scelta{kGenerale, "1.234,50", "txtEditRight"}, Scelta{kGenerale, "12.5", "txtEditRight"},
                    Scelta{kGenerale, " 12 ", "txtEditRight"}, Scelta{kGenerale, "12 kg", "txtEditLeft"},
                    Scelta{kGenerale, "inf", "txtEditLeft"}, Scelta{kGenerale, "nan", "txtEditLeft"},
                    Scelta{kGenerale, "1,2,3", "txtEditLeft"}));

TEST_P(AllineamentoInGriglia, LaCasellaEQuellaDellaCellaESenzaQuellaDellaColonna) {
  mostra();
  const auto& [allineamento, testo, quale] = GetParam();
  griglia_->setTextMatrix(2, 2, QLatin1String(testo));
  griglia_->setColAlignment(
      2, QLatin1String(quale) == QLatin1String("txtEditCenter") ? Qt::AlignLeft : Qt::AlignHCenter);
  griglia_->setCellAlignment(2, 2, allineamento);
  tasto(Qt::Key_F2);
  EXPECT_EQ(aperta(), QLatin1String(quale)) << "the cell's wins over the column's";
  tasto(Qt::Key_Escape);
  griglia_->setCellAlignment(2, 2, {});
  griglia_->setColAlignment(2, allineamento);
  tasto(Qt::Key_F2);
  EXPECT_EQ(aperta(), QLatin1String(quale)) << "the column's";
}

TEST_F(EditorInGriglia, LeTreCaselleScrivonoDallaParteDelLoroNome) {
  mostra();
  const std::array attesi{Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(
        finestra_.findChild<QLineEdit*>(kCaselle[i])->alignment().testFlag(attesi.at(std::size_t(i))));
}

TEST_F(EditorInGriglia, LaCasellaHaIColoriDellaCella) {
  mostra();
  griglia_->setCellBackColor(2, 2, QColor(255, 255, 0));
  griglia_->setCellForeColor(2, 2, QColor(0, 0, 128));
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  casella()->deselect();
  const QImage dipinta = casella()->grab().toImage();
  EXPECT_EQ(dipinta.pixelColor(dipinta.width() - 6, dipinta.height() / 2), QColor(255, 255, 0));
  EXPECT_EQ(casella()->palette().color(QPalette::Text), QColor(0, 0, 128));
}

TEST_F(EditorInGriglia, SenzaColoriDellaCellaLaCasellaHaQuelliDellaGriglia) {
  mostra();
  griglia_->setBackColor(QColor(255, 255, 224));
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  casella()->deselect();
  QImage dipinta = casella()->grab().toImage();
  EXPECT_EQ(dipinta.pixelColor(dipinta.width() - 6, dipinta.height() / 2), QColor(255, 255, 224));
  EXPECT_EQ(casella()->palette().color(QPalette::Text), griglia_->palette().color(QPalette::Text));
  tasto(Qt::Key_Escape);
  griglia_->setBackColor({});
  tasto(Qt::Key_F2);
  casella()->deselect();
  dipinta = casella()->grab().toImage();
  EXPECT_EQ(dipinta.pixelColor(dipinta.width() - 6, dipinta.height() / 2),
            griglia_->palette().color(QPalette::Base));
}

TEST_F(EditorInGriglia, AlBuioLaCasellaHaIlFondoDipintoDellaCella) {
  style::apply(*qApp, style::Theme::Dark);
  mostra();
  griglia_->setCellBackColor(2, 2, QColor(255, 255, 0));
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  casella()->deselect();
  const QImage dipinta = casella()->grab().toImage();
  const QColor fondo = dipinta.pixelColor(dipinta.width() - 6, dipinta.height() / 2);
  EXPECT_EQ(fondo.rgb(), griglia_->model()->index(1, 2).data(Qt::BackgroundRole).value<QColor>().rgb());
  EXPECT_NE(fondo, QColor(255, 255, 0));
  style::apply(*qApp, style::Theme::Light);
  qApp->setStyleSheet({});
}

TEST_F(EditorInGriglia, LaCasellaHaIlCarattereDellaCella) {
  mostra();
  QFont suo(QStringLiteral("Monospace"), 13);
  suo.setBold(true);
  suo.setItalic(true);
  suo.setUnderline(true);
  suo.setStrikeOut(true);
  griglia_->setCellFont(2, 2, suo);
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  const QFont della = casella()->font();
  EXPECT_EQ(della.family(), QStringLiteral("Monospace"));
  EXPECT_EQ(della.pointSize(), 13);
  EXPECT_TRUE(della.bold() && della.italic() && della.underline() && della.strikeOut());
  tasto(Qt::Key_Escape);
  griglia_->setCell(3, 2);
  tasto(Qt::Key_F2);
  EXPECT_EQ(casella()->font().pointSize(), griglia_->font().pointSize());
  EXPECT_EQ(casella()->font().family(), griglia_->font().family());
  const QFont senza = casella()->font();
  EXPECT_FALSE(senza.bold() || senza.italic() || senza.underline() || senza.strikeOut());
}

TEST_F(EditorInGriglia, LoScorrimentoChiudeLaCasellaConCancelERidaIlFuoco) {
  for (const bool diLato : {false, true}) {
    mostra(2, 1);
    tasto(Qt::Key_F2);
    scrivi("x");
    ASSERT_NE(casella(), nullptr);
    QScrollBar* barra = diLato ? griglia_->horizontalScrollBar() : griglia_->verticalScrollBar();
    ASSERT_GT(barra->maximum(), 0);
    barra->setValue(barra->value() + 1);
    EXPECT_EQ(casella(), nullptr);
    EXPECT_TRUE(griglia_->hasFocus());
    EXPECT_EQ(testo(2, 1), nome(2, 1));
    EXPECT_EQ(eventi(), kAnnullo);
  }
}

TEST_F(EditorInGriglia, LaRotellaSullaGrigliaChiudeLaCasella) {
  mostra();
  tasto(Qt::Key_F2);
  const QPointF dove = centro(5, 3);
  QWheelEvent giu(griglia_->viewport()->mapFrom(&finestra_, dove), finestra_.mapToGlobal(dove), {}, {0, -240},
                  {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(griglia_->viewport(), &giu);
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kAnnullo);
  EXPECT_TRUE(griglia_->hasFocus());
}

TEST_F(EditorInGriglia, UnaCellaFuoriVistaSiPortaInVistaPrimaDiAprire) {
  mostra(25, 2);
  griglia_->verticalScrollBar()->setValue(0);
  tasto(Qt::Key_F2);
  QApplication::processEvents();
  ASSERT_NE(casella(), nullptr);
  EXPECT_GT(griglia_->verticalScrollBar()->value(), 0);
  EXPECT_TRUE(kPosto.contains(casella()->geometry()));
  EXPECT_EQ(casella()->text(), nome(25, 2));
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, UnaCellaPiuLargaDellaGrigliaNonNeEsce) {
  griglia_->setColWidth(2, 15 * 600);
  mostra();
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  EXPECT_TRUE(kPosto.contains(casella()->geometry()));
}

TEST_F(EditorInGriglia, ChiCliccaAltroveScriveSempreNellaCellaAperta) {
  mostra(2, 2);
  tasto(Qt::Key_F2);
  scrivi("pane");
  premi(centro(5, 3), Qt::LeftButton);
  EXPECT_EQ(corrente(), std::pair(5, 3));
  ASSERT_NE(casella(), nullptr);
  EXPECT_TRUE(casella()->geometry().contains(centro(2, 2)));
  casella()->setFocus();
  tasto(Qt::Key_Return);
  EXPECT_EQ(testo(2, 2), QStringLiteral("pane"));
  EXPECT_EQ(testo(5, 3), nome(5, 3));
}

TEST_F(EditorInGriglia, ModificareUnAltraCellaChiudeLaPrimaSenzaScriverla) {
  mostra(2, 2);
  tasto(Qt::Key_F2);
  scrivi("pane");
  doppio(5, 3);
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(casella()->text(), nome(5, 3));
  EXPECT_EQ(testo(2, 2), nome(2, 2));
  EXPECT_EQ(eventi(), kAnnullo);
}

TEST_F(EditorInGriglia, LaCasellaSegueLaGrigliaCheSiSpostaELaColonnaCheSiAllarga) {
  mostra();
  tasto(Qt::Key_F2);
  const QRect prima = casella()->geometry();
  griglia_->move(kPosto.topLeft() + QPoint(20, 10));
  EXPECT_EQ(casella()->geometry(), prima.translated(20, 10));
  griglia_->setColWidth(2, 15 * 150);
  EXPECT_EQ(casella()->width(), griglia_->visualRect(griglia_->model()->index(1, 2)).width());
  EXPECT_NE(casella()->width(), prima.width());
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, UnaCellaCheSparisceChiudeLaCasellaENonSiScrive) {
  mostra(20, 2);
  tasto(Qt::Key_F2);
  scrivi("x");
  griglia_->setRows(10);
  if (casella()) tasto(Qt::Key_Return);
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kAnnullo);
  EXPECT_FALSE(voce("mnuPopup_Undo").isEnabled());
  griglia_->setCell(2, 3);
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  griglia_->setColWidth(3, 0);
  EXPECT_EQ(casella(), nullptr) << "hidden column";
  EXPECT_EQ(eventi(), kAnnullo);
  tasto(Qt::Key_F2);
  EXPECT_EQ(casella(), nullptr);
}

TEST_F(EditorInGriglia, NascondereLaGrigliaChiudeLaCasella) {
  mostra();
  tasto(Qt::Key_F2);
  griglia_->hide();
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kAnnullo);
}

TEST_F(EditorInGriglia, IlMenuHaLeSueVociNelLoroOrdine) {
  mostra();
  struct Voce {
    const char* nome;
    const char* testo;
  };
  const std::vector<Voce> attese{{"mnuPopup_Edit", "&Modifica"}, {"mnuPopup_Sep", ""},
                                 {"mnuPopup_Cut", "&Taglia"},    {"mnuPopup_Copy", "&Copia"},
                                 {"mnuPopup_Paste", "&Incolla"}, {"mnuPopup_Clear", "&Elimina dati"},
                                 {"mnuPopup_Undo", "&Annulla"}};
  destro(4, 3);
  ASSERT_TRUE(menu().isVisible());
  const QList<QAction*> voci = menu().actions();
  ASSERT_EQ(std::size_t(voci.size()), attese.size());
  for (qsizetype i = 0; i < voci.size(); ++i) {
    const Voce& attesa = attese.at(std::size_t(i));
    EXPECT_EQ(voci[i]->objectName(), QLatin1String(attesa.nome));
    EXPECT_EQ(voci[i]->text(), QLatin1String(attesa.testo));
    EXPECT_EQ(voci[i]->isSeparator(), i == 1);
    EXPECT_EQ(voci[i]->isEnabled(), i != 6) << "nothing to undo yet";
  }
  EXPECT_EQ(corrente(), std::pair(4, 3));
  EXPECT_EQ(griglia_->findChild<QMenu*>(QStringLiteral("MenuElenco")), nullptr) << "in its place";
}

TEST_F(EditorInGriglia, OgniVoceDelMenuFaLaSuaParte) {
  mostra();
  destro(4, 3);
  scegli("mnuPopup_Copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), nome(4, 3));
  EXPECT_EQ(eventi(), kNessuno);
  destro(5, 2);
  scegli("mnuPopup_Paste");
  EXPECT_EQ(testo(5, 2), nome(4, 3));
  EXPECT_EQ(eventi(), kCambio);
  destro(6, 2);
  scegli("mnuPopup_Cut");
  EXPECT_EQ(testo(6, 2), QString());
  EXPECT_EQ(QGuiApplication::clipboard()->text(), nome(6, 2));
  EXPECT_EQ(eventi(), kCambio);
  destro(7, 2);
  scegli("mnuPopup_Clear");
  EXPECT_EQ(testo(7, 2), QString());
  EXPECT_EQ(eventi(), kCambio);
  destro(1, 2);
  scegli("mnuPopup_Undo");
  EXPECT_EQ(testo(7, 2), nome(7, 2));
  EXPECT_EQ(corrente(), std::pair(7, 2));
  EXPECT_EQ(eventi(), kCambio);
  destro(2, 3);
  scegli("mnuPopup_Edit");
  ASSERT_NE(casella(), nullptr);
  EXPECT_EQ(casella()->text(), nome(2, 3));
  EXPECT_TRUE(casella()->hasFocus());
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, IlTastoDestroTrovaLaCellaAncheScorsaEConColonneNascoste) {
  griglia_->setColWidth(2, 0);
  griglia_->setColWidth(3, 3 * kTwip);
  mostra(1, 1);
  griglia_->verticalScrollBar()->setValue(10);
  griglia_->horizontalScrollBar()->setValue(griglia_->horizontalScrollBar()->maximum());
  ASSERT_GT(griglia_->horizontalScrollBar()->value(), 0);
  const QPoint nellaVista(griglia_->viewport()->width() - 20, 5);
  const QModelIndex sotto = griglia_->indexAt(nellaVista);
  ASSERT_EQ(sotto.row(), 10);
  premi(griglia_->viewport()->mapTo(&finestra_, nellaVista), Qt::RightButton);
  ASSERT_TRUE(menu().isVisible());
  EXPECT_EQ(corrente(), std::pair(11, 4));
}

TEST_F(EditorInGriglia, IlTastoDestroSuUnaCellaFissaONelVuotoNonFaNulla) {
  griglia_->setCols(3);
  griglia_->setRows(4);
  mostra(2, 1);
  destro(3, 0);
  destro(0, 2);
  premi(griglia_->viewport()->geometry().bottomRight() + kPosto.topLeft() - QPoint(5, 5), Qt::RightButton);
  EXPECT_FALSE(menu().isVisible());
  EXPECT_EQ(corrente(), std::pair(2, 1));
  EXPECT_EQ(griglia_->findChild<QMenu*>(QStringLiteral("MenuElenco")), nullptr);
}

TEST_F(EditorInGriglia, IlTastoDestroSuUnaCellaFissaApreIlMenuConEditFixedCells) {
  editor_.setEditFixedCells(true);
  mostra(2, 2);
  for (const auto& [riga, colonna] : {std::pair(3, 0), {0, 2}, {0, 0}}) {
    destro(riga, colonna);
    EXPECT_EQ(corrente(), std::pair(riga, colonna));
    scegli("mnuPopup_Clear");
    EXPECT_EQ(testo(riga, colonna), QString());
    EXPECT_EQ(eventi(), kCambio);
  }
}

TEST_F(EditorInGriglia, ConLaCasellaApertaIlTastoDestroNonApreIlMenu) {
  mostra();
  tasto(Qt::Key_F2);
  destro(5, 3);
  EXPECT_FALSE(menu().isVisible());
  EXPECT_EQ(corrente(), std::pair(2, 2));
  EXPECT_NE(casella(), nullptr);
}

TEST_F(EditorInGriglia, SenzaMenuPopupOEnabledTornaIlMenuDellaGriglia) {
  mostra();
  for (const char* proprieta : {"MenuPopup", "Enabled"}) {
    editor_.setProperty(proprieta, false);
    destro(5, 3);
    EXPECT_FALSE(menu().isVisible()) << proprieta;
    EXPECT_EQ(corrente(), std::pair(2, 2));
    QPointer<QMenu> suo = griglia_->findChild<QMenu*>(QStringLiteral("MenuElenco"));
    ASSERT_FALSE(suo.isNull());
    suo->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delete suo;
    editor_.setProperty(proprieta, true);
    destro(5, 3);
    EXPECT_TRUE(menu().isVisible()) << proprieta;
    menu().close();
    griglia_->setCell(2, 2);
  }
}

TEST_F(EditorInGriglia, IlTastoDelMenuLoApreSullaCellaCorrente) {
  mostra(4, 3);
  QContextMenuEvent tasto(QContextMenuEvent::Keyboard, {}, griglia_->mapToGlobal(QPoint()));
  QApplication::sendEvent(griglia_, &tasto);
  EXPECT_TRUE(menu().isVisible());
  EXPECT_EQ(corrente(), std::pair(4, 3));
  menu().close();
  griglia_->selectionModel()->clear();
  QApplication::sendEvent(griglia_, &tasto);
  EXPECT_FALSE(menu().isVisible());
}

TEST_F(EditorInGriglia, AnnullaRidaLaCellaComEraDueVolteLoStessoTesto) {
  mostra(3, 2);
  tasto(Qt::Key_F2);
  scrivi("uno");
  tasto(Qt::Key_Return);
  tasto(Qt::Key_F2);
  scrivi("due");
  tasto(Qt::Key_Return);
  griglia_->setCell(8, 3);
  eventi();
  editor_.Undo();
  EXPECT_EQ(testo(3, 2), QStringLiteral("uno"));
  EXPECT_EQ(corrente(), std::pair(3, 2));
  EXPECT_EQ(eventi(), kCambio);
  griglia_->setTextMatrix(3, 2, QStringLiteral("altro"));
  editor_.Undo();
  EXPECT_EQ(testo(3, 2), QStringLiteral("uno")) << "one level only";
  EXPECT_EQ(eventi(), kCambio);
  EXPECT_TRUE(voce("mnuPopup_Undo").isEnabled());
}

TEST_F(EditorInGriglia, AnnullaPortaInVistaLaCellaSalvata) {
  mostra(1, 1);
  tasto(Qt::Key_Delete);
  griglia_->setCell(30, 4);
  ASSERT_GT(griglia_->verticalScrollBar()->value(), 0);
  ASSERT_GT(griglia_->horizontalScrollBar()->value(), 0);
  editor_.Undo();
  EXPECT_EQ(corrente(), std::pair(1, 1));
  EXPECT_EQ(testo(1, 1), nome(1, 1));
  const QRect vista = griglia_->viewport()->geometry();
  EXPECT_TRUE(vista.contains(griglia_->CellRect(1, 1).adjusted(0, 0, -1, -1)));
}

TEST_F(EditorInGriglia, AnnullaTornaAncheInUnaCellaFissa) {
  mostra();
  editor_.setEditFixedCells(true);
  for (const auto& [riga, colonna] : {std::pair(3, 0), {0, 4}}) {
    griglia_->setFixedCell(riga, colonna);
    tasto(Qt::Key_Delete);
    EXPECT_EQ(testo(riga, colonna), QString());
    griglia_->setCell(30, 1);
    editor_.Undo();
    EXPECT_EQ(testo(riga, colonna), nome(riga, colonna));
    EXPECT_EQ(corrente(), std::pair(riga, colonna));
    EXPECT_TRUE(griglia_->rect().contains(griglia_->CellRect(riga, colonna)));
  }
}

TEST_F(EditorInGriglia, AnnullareUnaCellaCheNonCePiuNonFaNulla) {
  mostra(20, 2);
  tasto(Qt::Key_Delete);
  griglia_->setRows(10);
  griglia_->setCell(2, 2);
  eventi();
  editor_.Undo();
  EXPECT_EQ(corrente(), std::pair(2, 2));
  EXPECT_EQ(eventi(), kNessuno);
}

TEST_F(EditorInGriglia, ConEnabledSpentoTastiMetodiEMenuNonFannoNulla) {
  mostra();
  tasto(Qt::Key_Insert, Qt::ControlModifier);
  ASSERT_TRUE(voce("mnuPopup_Undo").isEnabled());
  QGuiApplication::clipboard()->setText(QStringLiteral("x"));
  griglia_->setTextMatrix(2, 2, QStringLiteral("dopo"));
  eventi();
  editor_.setAutoEdit(true);
  editor_.setEnabled(false);
  tasto(Qt::Key_F2);
  tasto(Qt::Key_Delete);
  tasto(Qt::Key_Delete, Qt::ShiftModifier);
  tasto(Qt::Key_Insert, Qt::ShiftModifier);
  scrivi("a");
  doppio(2, 2);
  editor_.Edit();
  editor_.Edit(QStringLiteral("b"));
  editor_.Undo();
  for (QAction* una : menu().actions()) una->trigger();
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(testo(2, 2), QStringLiteral("dopo"));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("x"));
  griglia_->selectionModel()->clearSelection();
  tasto(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("x")) << "what is selected, the grid copies";
  EXPECT_EQ(eventi(), kNessuno);
  editor_.setEnabled(true);
  editor_.Undo();
  EXPECT_EQ(testo(2, 2), nome(2, 2)) << "the undo state is that of before";
}

TEST_F(EditorInGriglia, SpegnereChiudeLaCasella) {
  mostra();
  tasto(Qt::Key_F2);
  scrivi("x");
  editor_.setEnabled(false);
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(testo(2, 2), nome(2, 2));
  EXPECT_EQ(eventi(), kAnnullo);
  EXPECT_TRUE(griglia_->hasFocus());
}

TEST_F(EditorInGriglia, LegareUnAltraGrigliaLasciaLaPrimaEScordaLAnnullo) {
  mostra();
  tasto(Qt::Key_Delete);
  tasto(Qt::Key_F2);
  eventi();
  QWidget altra;
  auto* seconda = new FlexGrid(&altra);
  riempi(*seconda);
  editor_.setGriglia(seconda);
  EXPECT_EQ(casella(), nullptr);
  EXPECT_EQ(eventi(), kAnnullo);
  editor_.Undo();
  EXPECT_EQ(testo(2, 2), QString());
  EXPECT_EQ(eventi(), kNessuno);
  tasto(Qt::Key_F2);
  EXPECT_EQ(casella(), nullptr) << "the first is as it was";
  destro(5, 3);
  EXPECT_NE(griglia_->findChild<QMenu*>(QStringLiteral("MenuElenco")), nullptr);
  altra.resize(400, 300);
  altra.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&altra));
  seconda->setCell(1, 1);
  QTest::keyClick(seconda, Qt::Key_F2);
  const auto* sua = altra.findChild<QLineEdit*>(QStringLiteral("txtEditLeft"));
  ASSERT_NE(sua, nullptr);
  EXPECT_TRUE(sua->isVisible());
  EXPECT_EQ(finestra_.findChild<QLineEdit*>(QStringLiteral("txtEditLeft")), nullptr)
      << "all three have moved";
}

TEST_F(EditorInGriglia, LaGrigliaCheSparisceSiScioglieDaSola) {
  mostra();
  tasto(Qt::Key_Delete);
  tasto(Qt::Key_F2);
  ASSERT_NE(casella(), nullptr);
  eventi();
  delete griglia_;
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(editor_.Griglia(), nullptr);
  EXPECT_EQ(casella(), nullptr);
  editor_.Edit();
  editor_.Undo();
  EXPECT_EQ(eventi(), kNessuno);
}

TEST(EditorInGrigliaNuovo, SopravviveAllaFinestraEServeUnAltraGriglia) {
  ZetaEditFlexGrid editor;
  for (int volta = 0; volta < 2; ++volta) {
    auto finestra = std::make_unique<QWidget>();
    auto* griglia = new FlexGrid(finestra.get());
    riempi(*griglia);
    editor.setGriglia(griglia);
    finestra->show();
    griglia->setCell(1, 1);
    editor.Edit();
    const auto* casella = finestra->findChild<QLineEdit*>(QStringLiteral("txtEditLeft"));
    ASSERT_NE(casella, nullptr);
    EXPECT_TRUE(casella->isVisible());
    finestra.reset();
    EXPECT_EQ(editor.Griglia(), nullptr);
  }
}

TEST_F(EditorInGriglia, ChiEliminaLEditorNonLasciaCaselleNeMenu) {
  mostra();
  auto breve = std::make_unique<ZetaEditFlexGrid>();
  editor_.setGriglia(nullptr);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  const auto quante = finestra_.findChildren<QLineEdit*>().size();
  breve->setGriglia(griglia_);
  breve->Edit();
  ASSERT_EQ(finestra_.findChildren<QLineEdit*>().size(), quante + 3);
  breve.reset();
  EXPECT_EQ(casella(), nullptr);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(finestra_.findChildren<QLineEdit*>().size(), quante);
  destro(5, 3);
  EXPECT_NE(griglia_->findChild<QMenu*>(QStringLiteral("MenuElenco")), nullptr);
}

TEST(EditorInGrigliaNuovo, InUnDivisoreLaCasellaNonDiventaUnRiquadro) {
  QWidget finestra;
  auto* divisore = new QSplitter(&finestra);
  auto* griglia = new FlexGrid;
  divisore->addWidget(griglia);
  divisore->resize(400, 300);
  riempi(*griglia);
  finestra.resize(420, 320);
  ZetaEditFlexGrid editor;
  editor.setGriglia(griglia);
  finestra.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&finestra));
  griglia->setCell(2, 1);
  editor.Edit();
  EXPECT_EQ(divisore->count(), 1);
  const auto* casella = finestra.findChild<QLineEdit*>(QStringLiteral("txtEditLeft"));
  ASSERT_TRUE(casella != nullptr && casella->isVisible());
  EXPECT_EQ(casella->pos(), griglia->mapTo(&finestra, griglia->CellRect(2, 1).topLeft()));
}

TEST(EditorInGrigliaNuovo, UnaGrigliaSenzaContenitoreTieneLeCaselleInSe) {
  FlexGrid griglia;
  riempi(griglia);
  griglia.resize(400, 300);
  ZetaEditFlexGrid editor;
  editor.setAutoEdit(true);
  editor.setGriglia(&griglia);
  griglia.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&griglia));
  griglia.setCell(2, 1);
  editor.Edit();
  auto* casella = griglia.findChild<QLineEdit*>(QStringLiteral("txtEditLeft"));
  ASSERT_TRUE(casella != nullptr && casella->hasFocus());
  EXPECT_EQ(casella->pos(), griglia.CellRect(2, 1).topLeft());
  QTest::keyClicks(casella, QStringLiteral("ab"));
  QTest::keyClick(casella, Qt::Key_F2);
  QTest::keyClick(casella, Qt::Key_Down);
  EXPECT_EQ(casella->text(), QStringLiteral("ab")) << "keys of the box are none of the grid's";
  EXPECT_EQ(griglia.Row(), 2);
  QTest::keyClick(casella, Qt::Key_Return);
  EXPECT_EQ(griglia.TextMatrix(2, 1), QStringLiteral("ab"));
}
