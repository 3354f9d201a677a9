#include "graphics/graphics_scene.h"

#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QProcess>
#include <QTest>

#include "controls/FlexGrid.h"
#include "graphics/Form_Grafica.h"

namespace {

constexpr int kConverterMs = 20000;

class Menu : public QWidget {
 public:
  explicit Menu(int& shown) : shown_(shown) {}
  void showEvent(QShowEvent* /*event*/) override { ++shown_; }

 private:
  int& shown_;
};

QListWidgetItem& item(const GuidedScreen& screen, const char* list, const QString& text) {
  const auto found = screen.control<QListWidget>(list).findItems(text, Qt::MatchExactly);
  if (found.isEmpty()) throw std::runtime_error("no item " + text.toStdString());
  return *found.front();
}

}  // namespace

QStringList defaultTypes() {
  return {QStringLiteral("Logo"),         QStringLiteral("Merceologico1"), QStringLiteral("Natale"),
          QStringLiteral("Pasqua"),       QStringLiteral("FestaMamma"),    QStringLiteral("FestaPapà"),
          QStringLiteral("FestaDonna"),   QStringLiteral("Vacanze"),       QStringLiteral("Carnevale"),
          QStringLiteral("SanValentino"), QStringLiteral("Promozione1"),   QStringLiteral("Promozione2")};
}

QImage drawnPicture(int width, int height, int seed) {
  QImage picture(width, height, QImage::Format_Mono);
  picture.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
  picture.fill(0);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      if (x == 0 || y == 0 || (x * 7 + y * 13 + seed * 5) % (11 + seed) == 0) picture.setPixel(x, y, 1);
  return picture;
}

QByteArray printedForm(const QImage& picture) {
  const int width = picture.width();
  const int height = picture.height();
  QByteArray bytes;
  for (const int number : {width, height}) {
    bytes.append(static_cast<char>(number & 0xFF));
    bytes.append(static_cast<char>(number >> 8));
  }
  for (int y = 0; y < height; ++y)
    for (int byte = 0; byte < width / 8; ++byte) {
      int bits = 0;
      for (int bit = 0; bit < 8; ++bit)
        bits = bits * 2 + (qGray(picture.pixel(byte * 8 + bit, y)) < 128 ? 1 : 0);
      bytes.append(static_cast<char>(bits));
    }
  return bytes;
}

ImagesFolder::ImagesFolder() {
  EXPECT_TRUE(QDir(cartella_.path()).mkpath(QStringLiteral("Immagini GRAFICA")));
}

void ImagesFolder::drawAll(int width, int height) const {
  int seed = 0;
  for (const QString& type : defaultTypes())
    ASSERT_TRUE(drawnPicture(width, height, seed++).save(image(type + QStringLiteral(".bmp")), "BMP"));
}

void ImagesFolder::writeFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
  ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray ImagesFolder::readFile(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

void ImagesFolder::mayWrite(const QString& folder, bool may) {
  QFile::Permissions all = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                           QFile::ReadOther | QFile::ExeOther;
  if (may) all |= QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
  ASSERT_TRUE(QFile::setPermissions(folder, all)) << folder.toStdString();
}

GraphicsScene::GraphicsScene() {
  graphics::modGra1() = {};
  converter.attesa = std::chrono::milliseconds(0);
  converter.lancia = [this](const HiddenProgram& what) { return run(what); };
  program.screens.registra(QStringLiteral("start"), [this](Contesto&) { return new Menu(menusShown); });
  program.screens.carica(QStringLiteral("start"), program.contesto);
  program.screens.registra(QStringLiteral("Form_Grafica"),
                           [this](Contesto& contesto) { return new Form_Grafica(contesto, converter); });
}

GraphicsScene::~GraphicsScene() {
  graphics::modGra1() = {};
}

int GraphicsScene::run(const HiddenProgram& what) {
  orders.push_back(what);
  const qsizetype quote = what.parameters.indexOf(u'"');
  QProcess process;
  process.setWorkingDirectory(what.folder);
  process.start(what.program, {what.parameters.left(quote).trimmed(), what.parameters.mid(quote + 1)});
  EXPECT_TRUE(process.waitForFinished(kConverterMs)) << what.program.toStdString();
  return launch::kStarted;
}

void GraphicsScene::layConverter() const {
  ASSERT_TRUE(QFile::copy(QStringLiteral(BITMAP_EXE), image(QStringLiteral("bitmap.exe"))));
}

void GraphicsScene::layScript(const QByteArray& body) const {
  const QString path = image(QStringLiteral("bitmap.exe"));
  writeFile(path, "#!/bin/sh\n" + body + '\n');
  ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

GuidedScreen GraphicsScene::screen() {
  return {program, QStringLiteral("Form_Grafica")};
}

void GraphicsScene::clickRow(const GuidedScreen& screen, int row) {
  auto& grid = screen.control<FlexGrid>("MSFlexGridGrafica");
  const QModelIndex index = grid.model()->index(row - 1, 1);
  grid.scrollTo(index);
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, grid.visualRect(index).center());
}

void GraphicsScene::clickItem(const GuidedScreen& screen, const char* list, const QString& text) {
  auto& view = screen.control<QListWidget>(list);
  QListWidgetItem& one = item(screen, list, text);
  view.scrollToItem(&one);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.visualItemRect(&one).center());
}

void GraphicsScene::doubleClickItem(const GuidedScreen& screen, const char* list, const QString& text) {
  auto& view = screen.control<QListWidget>(list);
  QListWidgetItem& one = item(screen, list, text);
  view.scrollToItem(&one);
  const QPoint at = view.visualItemRect(&one).center();
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, at);
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

QStringList GraphicsScene::items(const GuidedScreen& screen, const char* list) {
  const auto& view = screen.control<QListWidget>(list);
  QStringList texts;
  for (int i = 0; i < view.count(); ++i) texts.append(view.item(i)->text());
  return texts;
}

QString GraphicsScene::cell(const GuidedScreen& screen, int row, int column) {
  return screen.control<FlexGrid>("MSFlexGridGrafica").TextMatrix(row, column);
}
