#include "editors/guided_editor.h"

#include <QLabel>
#include <QTest>

#include "core/state.h"
#include "editors/chosen_model.h"

namespace {

const QString kFile = QStringLiteral("negozio.dat");
constexpr qsizetype kFileBytes = 245114;
constexpr qsizetype kImageStart = 146;
const QColor kMark(255, 128, 0);

}  // namespace

ConfigurationOpen::ConfigurationOpen(const QString& libraryFolder) : program(libraryFolder) {
  editors::azzeraModelloScelto();
  varGestionePRG().PathConfigurazione =
      program.folder.write(kFile, QByteArray("V03.00KAR").leftJustified(kFileBytes, '\0'));
  EXPECT_EQ(config::CaricaConfigurazione(varGestionePRG().PathConfigurazione, program.user), 0);
}

ConfigurationOpen::~ConfigurationOpen() {
  program.screens.scaricaTutte();
  config::azzeraConfigurazione();
}

void ConfigurationOpen::put(qsizetype offset, const QByteArray& bytes) {
  program.folder.write(kFile, program.folder.read(kFile).replace(offset, bytes.size(), bytes));
  EXPECT_EQ(config::CaricaConfigurazione(varGestionePRG().PathConfigurazione, program.user), 0);
}

void ConfigurationOpen::countWaitScreens() {
  program.screens.registra(QStringLiteral("Form_ATTESA"), [this](Contesto&) {
    ++waitScreens;
    return new QWidget;
  });
}

QByteArray ConfigurationOpen::onDisk(qsizetype offset, qsizetype bytes) const {
  const QByteArray file = program.folder.read(kFile);
  EXPECT_EQ(file.size(), kFileBytes);
  return file.mid(offset, bytes);
}

QByteArray ConfigurationOpen::inMemory(qsizetype offset, qsizetype bytes) const {
  const config::Record image = config::immagineProgrammazione().byte();
  return QByteArray(reinterpret_cast<const char*>(image.data()), static_cast<qsizetype>(image.size()))
      .mid(offset - kImageStart, bytes);
}

FlexGrid& GuidedEditor::grid() const {
  const QList<FlexGrid*> grids = window().findChildren<FlexGrid*>();
  EXPECT_EQ(grids.size(), 1);
  return *grids.front();
}

QStringList GuidedEditor::headings() const {
  return row(0);
}

QStringList GuidedEditor::row(int row) const {
  QStringList cells;
  for (int column = 0; column < grid().Cols(); ++column) cells << cell(row, column);
  return cells;
}

QRect GuidedEditor::place(int row, int column) const {
  return grid().visualRect(grid().model()->index(row - 1, column));
}

void GuidedEditor::clickCell(int row, int column) const {
  grid().scrollTo(grid().model()->index(row - 1, column));
  QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place(row, column).center());
}

QStringList GuidedEditor::boxes() const {
  QStringList seen;
  for (const QLineEdit* one : window().findChildren<QLineEdit*>())
    if (one->isVisible()) seen << one->objectName();
  return seen;
}

QLineEdit& GuidedEditor::box() const {
  const QStringList seen = boxes();
  if (seen.size() != 1) throw std::runtime_error("boxes: " + seen.join(u' ').toStdString());
  return control<QLineEdit>(seen.front());
}

QString GuidedEditor::current() const {
  return QStringLiteral("%1,%2").arg(grid().Row()).arg(grid().Col());
}

void GuidedEditor::press(int key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(window().focusWidget(), static_cast<Qt::Key>(key), modifiers);
}

void GuidedEditor::type(const QString& keys) const {
  for (const QChar key : keys) QTest::keyClick(window().focusWidget(), key.toLatin1());
}

void GuidedEditor::write(int row, int column, const QString& keys) const {
  clickCell(row, column);
  press(Qt::Key_Delete);
  type(keys);
}

QString GuidedEditor::hint() const {
  const auto* label = window().findChild<QLabel*>(QStringLiteral("Avviso_") + box().objectName());
  return label != nullptr && label->isVisible() ? label->text() : QString();
}

QList<int> GuidedEditor::marked() const {
  QList<int> rows;
  for (int row = 1; row < grid().Rows(); ++row) {
    int cells = 0;
    for (int column = 0; column < grid().Cols(); ++column)
      if (grid().CellBackColor(row, column) == kMark) ++cells;
    EXPECT_TRUE(cells == 0 || cells == grid().Cols()) << "row " << row;
    if (cells > 0) rows << row;
  }
  return rows;
}

Box warning(const QString& text) {
  return box(text, Icon::Warning);
}

void expectFailure(ProgramFixture& program, int number, const char* procedure, const char* screen) {
  const std::vector<Box> boxes = program.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U) << testing::PrintToString(boxes);
  const QString& text = boxes.front().text;
  EXPECT_TRUE(text.startsWith(QStringLiteral("Error %1 (").arg(number))) << text.toStdString();
  EXPECT_TRUE(text.endsWith(
      QStringLiteral(") in procedure %1 of Modulo %2").arg(QLatin1String(procedure), QLatin1String(screen))))
      << text.toStdString();
}
