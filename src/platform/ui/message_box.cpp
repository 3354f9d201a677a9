#include "platform/ui/message_box.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/ui/held_keys.h"

namespace message_box {

namespace {

struct Entry {
  Answer answer;
  const char16_t* text;
  QMessageBox::ButtonRole role;
  Qt::Key key;
};

constexpr Entry kOk{Answer::Ok, u"OK", QMessageBox::AcceptRole, Qt::Key_O};
constexpr Entry kCancel{Answer::Cancel, u"Annulla", QMessageBox::RejectRole, Qt::Key_A};
constexpr Entry kYes{Answer::Yes, u"Sì", QMessageBox::YesRole, Qt::Key_S};
constexpr Entry kNo{Answer::No, u"No", QMessageBox::NoRole, Qt::Key_N};

/// The first is the default unless the question says otherwise, the last answers to Escape and to the frame.
std::vector<Entry> entries(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return {kOk};
    case Buttons::OkCancel:
      return {kOk, kCancel};
    case Buttons::YesNo:
      return {kYes, kNo};
    case Buttons::YesNoCancel:
      return {kYes, kNo, kCancel};
  }
  return {kOk};
}

QMessageBox::Icon image(Icon icon) {
  switch (icon) {
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Warning:
      return QMessageBox::Warning;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

QPushButton* add(QMessageBox& box, const Entry& entry) {
  QPushButton* button = box.addButton(QString::fromUtf16(entry.text), entry.role);
  button->setShortcut(QKeySequence(Qt::ALT | entry.key));
  return button;
}

/// Letters of the narrowest box, and what a window's frame takes of a title.
constexpr int kLetters = 44;
constexpr int kFrame = 96;

/// One width for all short boxes, wider for a title that would be cut; the text beside the middle of its
/// icon.
void layOut(QMessageBox& box) {
  auto* const text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  if (text == nullptr || grid == nullptr) return;
  const QFontMetrics letters = box.fontMetrics();
  const int least =
      std::max(letters.averageCharWidth() * kLetters, letters.horizontalAdvance(box.windowTitle()) + kFrame);
  // A text that needs more is left to the box, which knows its width and where to fold it.
  if (text->sizeHint().width() < least) text->setMinimumWidth(least);
  text->setAlignment(Qt::AlignVCenter | Qt::AlignLeft);
  auto* const icon = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
  if (icon == nullptr) return;
  grid->setAlignment(icon, Qt::AlignVCenter);
  // The icon takes a second row, kept for a text that these boxes do not have; a check box stands there.
  if (box.checkBox() != nullptr) return;
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;
  grid->getItemPosition(grid->indexOf(text), &row, &column, &rows, &columns);
  grid->removeWidget(text);
  grid->addWidget(text, row, column, 2, columns);
}

QMessageBox* made(const Question& question) {
  auto* box = new QMessageBox(QApplication::activeWindow());
  box->setObjectName(QStringLiteral("MsgBox"));
  box->setWindowTitle(question.title);
  box->setIcon(image(question.icon));
  box->setTextFormat(Qt::PlainText);
  box->setText(question.text);
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return box;
}

}  // namespace

Reply show(const Question& question, bool offersToPass) {
  // The window below may go while the box is open, and takes the box with it.
  const QPointer<QMessageBox> box(made(question));
  std::vector<std::pair<QPushButton*, Answer>> placed;
  for (const Entry& entry : entries(question.buttons)) placed.emplace_back(add(*box, entry), entry.answer);
  QPushButton* const preset = (question.preset == Preset::First ? placed.front() : placed.back()).first;
  preset->setProperty("primary", true);
  box->setDefaultButton(preset);
  box->setEscapeButton(placed.back().first);
  if (offersToPass)
    box->setCheckBox(new QCheckBox(QStringLiteral("Chiudi anche i prossimi avvisi uguali"), box));
  layOut(*box);
  // Held down they would answer every box of a row of boxes.
  ignoreHeldKeys(*box);
  box->exec();

  Reply reply{placed.back().second};
  if (!box) return reply;
  for (const auto& [button, its] : placed)
    if (box->clickedButton() == button) reply.answer = its;
  reply.letOthersPass = box->checkBox() != nullptr && box->checkBox()->isChecked();
  delete box;
  return reply;
}

}  // namespace message_box
