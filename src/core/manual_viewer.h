#pragma once

#include <QDialog>
#include <memory>
#include <vector>

struct Contesto;
namespace Ui {
class ManualViewer;
}

/// The users' manual in a window of its own, beside the one that it was asked from: pages with their links, a
/// way back, and a search through all of them.
class ManualViewer : public QDialog {
  Q_OBJECT

 public:
  /// Folder of the pages within the application folder.
  static QString folder(const Contesto& contesto);

  /// `below`: the window that it stands over and goes with. One below a modal window would take no input.
  ManualViewer(const Contesto& contesto, QWidget* below);
  ~ManualViewer() override;

  using QDialog::open;
  /// Shows a place of the manual, "page.md" or "page.md#heading", and keeps the one before for the way back;
  /// false if there is no such page. An unknown heading shows the page from its beginning.
  bool open(const QString& place);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// A page that was left, and how far it was scrolled.
  struct Step {
    QString page;
    int scrolled = 0;
  };

  void follow(const QUrl& link);
  void goBack();
  void search();
  bool findFrom(const QString& text, bool fromStart);
  bool findInOtherPages(const QString& text);
  void tellFound(const QString& text);
  void showHeading();

  std::vector<Step> way_;
  std::unique_ptr<Ui::ManualViewer> ui_;
};

/// Opens the manual over the window that `from` stands in, at its place. There is one manual: asked for over
/// another window it moves there. Tells it where the manual is not in the application folder.
void showManual(QWidget& from, Contesto& contesto);
