#include "platform/ui/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <memory>
#include <utility>
#include <vector>

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

/// The first is the default, the last answers to Escape and to the frame.
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

QPushButton* add(QMessageBox& message_box, const Entry& entry) {
  QPushButton* button = message_box.addButton(QString::fromUtf16(entry.text), entry.role);
  button->setShortcut(QKeySequence(Qt::ALT | entry.key));
  return button;
}

}  // namespace

Answer show(const QString& text, Icon icon, const QString& title, Buttons buttons) {
  // The window below may go while the box is open, and takes the box with it.
  const QPointer<QMessageBox> message_box(new QMessageBox(QApplication::activeWindow()));
  message_box->setObjectName(QStringLiteral("MsgBox"));
  message_box->setWindowTitle(title);
  message_box->setIcon(image(icon));
  message_box->setTextFormat(Qt::PlainText);
  message_box->setText(text);
  message_box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

  std::vector<std::pair<QAbstractButton*, Answer>> placedButtons;
  for (const Entry& entry : entries(buttons))
    placedButtons.emplace_back(add(*message_box, entry), entry.answer);
  message_box->setDefaultButton(qobject_cast<QPushButton*>(placedButtons.front().first));
  message_box->setEscapeButton(placedButtons.back().first);

  message_box->exec();
  Answer answer = placedButtons.back().second;
  if (!message_box) return answer;
  for (const auto& [button, its] : placedButtons)
    if (message_box->clickedButton() == button) answer = its;
  delete message_box;
  return answer;
}

}  // namespace message_box
