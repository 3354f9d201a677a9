#pragma once

#include <QAbstractItemView>
#include <QPushButton>

#include "editors/guided_form.h"

/// A form whose fields are reached whichever tab they stand on, as a person does: by a click on the tab.
class GuidedFields : public GuidedForm {
 public:
  using GuidedForm::GuidedForm;

  editors::Editor& editor() const { return dynamic_cast<editors::Editor&>(window()); }
  QComboBox& list(const QString& name) const { return control<QComboBox>(name); }
  /// The tab of a control in front, and the control in sight.
  void reveal(const QString& name) const {
    QWidget& one = control(name);
    for (int i = 0; i < tabs().count(); ++i)
      if (tabs().widget(i)->isAncestorOf(&one)) {
        if (tabs().currentIndex() != i) tab(i);
        static_cast<QScrollArea*>(tabs().widget(i))->ensureWidgetVisible(&one);
      }
    EXPECT_TRUE(one.isVisible()) << name.toStdString();
  }
  /// Clicks a button, on whichever tab it is.
  void clickOn(const QString& name) const {
    reveal(name);
    click(name);
  }
  /// Types over what a field holds.
  void write(const QString& field, const QString& keys) const {
    reveal(field);
    type(field, keys);
  }
  /// One entry further down, by a key.
  void stepDown(const QString& list) const {
    reveal(list);
    control(list).setFocus();
    press(Qt::Key_Down);
  }
  /// Picks an entry in the list that opens: nothing between is passed on the way.
  void choose(const QString& name, int position) const {
    reveal(name);
    QComboBox& box = list(name);
    box.setFocus();
    press(Qt::Key_F4);
    QAbstractItemView& entries = *box.view();
    EXPECT_TRUE(entries.isVisible()) << name.toStdString();
    QTest::keyClick(&entries, Qt::Key_Home);
    for (int i = 0; i < position; ++i) QTest::keyClick(&entries, Qt::Key_Down);
    EXPECT_EQ(entries.currentIndex().row(), position) << name.toStdString();
    QTest::keyClick(&entries, Qt::Key_Return);
    EXPECT_FALSE(entries.isVisible()) << name.toStdString();
    // The offscreen platform leaves no window active behind a list that closed; keys of commands need one.
    window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
  }
  /// Clicks the save command that is seen.
  void save() const { QTest::mouseClick(&seen(QStringLiteral("Salva Modifiche")), Qt::LeftButton); }
  void reset() const { QTest::mouseClick(&seen(QStringLiteral("Annulla Modifiche")), Qt::LeftButton); }
  /// The one command with that caption that is seen.
  QPushButton& seen(const QString& caption) const {
    QPushButton* found = nullptr;
    for (QPushButton* one : window().findChildren<QPushButton*>())
      if (one->isVisible() && one->text() == caption) {
        EXPECT_EQ(found, nullptr) << caption.toStdString();
        found = one;
      }
    if (!found) throw std::runtime_error("no command " + caption.toStdString());
    return *found;
  }
};
