#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>
#include <vector>

#include "controls/outcome_bar.h"
#include "graphics/catalogue.h"
#include "graphics/preparation.h"
#include "sostegno/guided_screen.h"
#include "sostegno/program_fixture.h"

/// The default names of the catalogue, by hand.
QStringList defaultTypes();

/// A picture of its own for each `seed`: a frame, and dots at places that follow from the seed.
QImage drawnPicture(int width, int height, int seed);
/// The converter's form of such a picture, told by its dots.
QByteArray printedForm(const QImage& picture);

/// The application folder of one test with the folder of the bitmaps, made before the program around it.
class ImagesFolder {
 protected:
  ImagesFolder();
  QString app(const QString& name) const { return cartella_.filePath(name); }
  QString images() const { return cartella_.filePath(QStringLiteral("Immagini GRAFICA")); }
  QString image(const QString& name) const { return images() + u'/' + name; }
  /// The twelve default bitmaps, each another picture of 1 bit.
  void drawAll(int width, int height = 24) const;
  static void writeFile(const QString& path, const QByteArray& bytes);
  static QByteArray readFile(const QString& path);
  /// Whether anybody, whoever it is, may write in a folder; all may look into it.
  static void mayWrite(const QString& folder, bool may);
  /// Lays a catalogue file of these lines.
  void layCatalogue(const QByteArray& bytes) const { writeFile(app(QStringLiteral("SetupLOGO.dat")), bytes); }

  QTemporaryDir cartella_;
};

/// The program around the graphics screen. The converter is the real one, a program of its own that is waited
/// for; `program.folder` is the current folder.
class GraphicsScene : public ImagesFolder, public testing::Test {
 protected:
  GraphicsScene();
  ~GraphicsScene() override;

  /// Lays the real converter beside the bitmaps.
  void layConverter() const;
  /// Lays a shell script in its place. $1 is the width, $2 the bitmap.
  void layScript(const QByteArray& body) const;
  /// The screen, shown afresh.
  GuidedScreen screen();
  static OutcomeBar& foot(const GuidedScreen& screen) { return screen.control<OutcomeBar>("BarraEsito"); }
  /// A click on the cell of a row, 1 to 12.
  static void clickRow(const GuidedScreen& screen, int row);
  /// A click on a name in a list.
  static void clickItem(const GuidedScreen& screen, const char* list, const QString& text);
  static void doubleClickItem(const GuidedScreen& screen, const char* list, const QString& text);
  static QStringList items(const GuidedScreen& screen, const char* list);
  static QString cell(const GuidedScreen& screen, int row, int column);
  bool open() { return program.screens.trova(QStringLiteral("Form_Grafica")) != nullptr; }

  /// Orders that the converter was started with.
  std::vector<HiddenProgram> orders;
  graphics::Convertitore converter;
  int menusShown = 0;
  ProgramFixture program{QStringLiteral(GESTIONALE_APP), cartella_.path()};

 private:
  int run(const HiddenProgram& what);
};
