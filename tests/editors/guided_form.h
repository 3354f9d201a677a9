#pragma once

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "editors/guided_editor.h"

/// The question in front of a save that was asked for with the focus elsewhere than on its command.
inline const Box kSaveQuestion{QStringLiteral("Attenzione sono stati modificati dei parametri di "
                                              "configurazione: salvare prima di proseguire ?"),
                               Icon::Question, QStringLiteral("ATTENZIONE"), Buttons::YesNo};

/// An editor of single fields under the hands of a person.
class GuidedForm : public GuidedScreen {
 public:
  GuidedForm(ProgramFixture& program, const QString& name) : GuidedScreen(program, name) {}

  QLineEdit& line(const QString& name) const { return control<QLineEdit>(name); }
  bool checked(const QString& name) const { return control<QRadioButton>(name).isChecked(); }
  QString foot() const { return control<OutcomeBar>("BarraEsito").text(); }
  OutcomeBar::Kind footKind() const { return control<OutcomeBar>("BarraEsito").kind(); }

  QTabWidget& tabs() const { return control<QTabWidget>("SSTab1"); }
  QStringList tabTitles() const {
    QStringList titles;
    for (int i = 0; i < tabs().count(); ++i) titles << tabs().tabText(i);
    return titles;
  }
  /// Clicks the tab, from 0.
  void tab(int which) const {
    QTabBar& bar = *tabs().tabBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(which).center());
    EXPECT_EQ(tabs().currentIndex(), which);
  }
  /// The tabs that bear a dot.
  QList<int> dottedTabs() const {
    QList<int> dotted;
    for (int i = 0; i < tabs().count(); ++i)
      if (!tabs().tabIcon(i).isNull()) dotted << i;
    return dotted;
  }
  /// What stands above a field, and what stands under it.
  QString caption(const QString& field) const { return text(QStringLiteral("Etichetta_") + field); }
  /// Whether a field bears its dot, on whichever tab it is.
  bool dotted(const QString& field) const {
    return !control<QLabel>(QStringLiteral("Punto_") + field).isHidden();
  }
  /// The texts of all labels that are seen.
  QStringList labels() const {
    QStringList texts;
    for (const QLabel* one : window().findChildren<QLabel*>())
      if (one->isVisible()) texts << one->text();
    return texts;
  }
  /// What stands under a field about a key that was not taken; empty for nothing.
  QString hint(const QString& field) const {
    const auto* label = window().findChild<QLabel*>(QStringLiteral("Avviso_") + field);
    return label != nullptr && label->isVisible() ? label->text() : QString();
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::keyClick(window().focusWidget(), key, modifiers);
  }
  /// Picks an entry of a list by keys.
  void pick(const QString& list, int position) const {
    control(list).setFocus();
    press(Qt::Key_Home);
    for (int i = 0; i < position; ++i) press(Qt::Key_Down);
    EXPECT_EQ(control<QComboBox>(list).currentIndex(), position) << list.toStdString();
  }
  /// Empties a field and pastes into it.
  void paste(const QString& field, const QString& what) const {
    type(field, QString());
    QGuiApplication::clipboard()->setText(what);
    press(Qt::Key_V, Qt::ControlModifier);
  }
  /// The ground that is painted behind a control's text, at its right end.
  QColor ground(const QString& name) const {
    QWidget& one = control(name);
    QCoreApplication::processEvents();
    const QImage painted = one.grab().toImage();
    return painted.pixelColor(painted.width() - 6, painted.height() / 2);
  }
};

/// With letters of 12 points and 1024 by 768 no tab of the form cuts a caption or has to be moved sideways.
inline void expectTabsFitAtTwelvePoints(const GuidedForm& form) {
  QFont large = form.window().font();
  large.setPointSize(12);
  form.window().setFont(large);
  auto& tabs = *form.window().findChild<QTabWidget*>();
  for (int i = 0; i < tabs.count(); ++i) {
    tabs.setCurrentIndex(i);
    expectFitsAtTwelvePoints(form);
    form.window().resize(1024, 768);
    QCoreApplication::processEvents();
    const auto* scrolled = qobject_cast<QScrollArea*>(tabs.widget(i));
    ASSERT_NE(scrolled, nullptr);
    EXPECT_FALSE(scrolled->horizontalScrollBar()->isVisible()) << tabs.tabText(i).toStdString();
    for (const QLabel* caption : tabs.widget(i)->findChildren<QLabel*>())
      if (caption->isVisible() && !caption->wordWrap()) {
        EXPECT_GE(caption->width(), caption->sizeHint().width()) << caption->text().toStdString();
      }
    for (const QWidget* control : tabs.widget(i)->findChildren<QWidget*>())
      if (control->isVisible() &&
          (qobject_cast<const QComboBox*>(control) || qobject_cast<const QRadioButton*>(control))) {
        EXPECT_GE(control->width(), control->minimumSizeHint().width())
            << control->objectName().toStdString();
      }
  }
}
