#include "platform/ui/scripted_user.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <ostream>

void PrintTo(const Box& box, std::ostream* output) {
  *output << "\"" << box.text.toStdString() << "\" icon " << static_cast<int>(box.icon) << " title \""
          << box.title.toStdString() << "\" buttons " << static_cast<int>(box.buttons) << " preset "
          << static_cast<int>(box.preset);
}

ScriptedUser::~ScriptedUser() {
  EXPECT_TRUE(answers_.empty()) << answers_.size() << " scripted answers were never asked for";
  EXPECT_TRUE(paths_.empty()) << paths_.size() << " scripted paths were never asked for";
  for (std::size_t i = lookedAt_; i < boxes_.size(); ++i)
    ADD_FAILURE() << "a box that the test did not look at: " << testing::PrintToString(boxes_[i]);
}

ScriptedUser& ScriptedUser::answers(Answer answer) {
  answers_.push_back(answer);
  return *this;
}

ScriptedUser& ScriptedUser::chooses(std::optional<QString> path) {
  paths_.push_back(std::move(path));
  return *this;
}

const std::vector<Box>& ScriptedUser::boxes() {
  lookedAt_ = boxes_.size();
  return boxes_;
}

std::vector<Box> ScriptedUser::takeBoxes() {
  lookedAt_ = 0;
  return std::exchange(boxes_, {});
}

Answer ScriptedUser::ShowBox(const QString& text, Icon icon, const QString& title, Buttons buttons,
                             Preset preset) {
  boxes_.push_back({text, icon, title, buttons, preset});
  if (onBox) onBox(Box{text, icon, title, buttons, preset});
  if (buttons == Buttons::Ok) return Answer::Ok;
  if (answers_.empty()) {
    ADD_FAILURE() << "a question without a scripted answer: " << text.toStdString();
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

std::optional<QString> ScriptedUser::takePath(const FileRequest& request) {
  requests_.push_back(request);
  if (paths_.empty()) {
    ADD_FAILURE() << "a file dialog without a scripted path";
    return std::nullopt;
  }
  std::optional<QString> path;
  path.swap(paths_.front());
  paths_.pop_front();
  return path;
}

std::optional<QString> ScriptedUser::AskOpenPath(const FileRequest& request) {
  return takePath(request);
}
std::optional<QString> ScriptedUser::AskSavePath(const FileRequest& request) {
  return takePath(request);
}

void ScriptedUser::DoEvents() {
  ++passes_;
  if (onPass) onPass();
  QCoreApplication::processEvents();
}

void ScriptedUser::StartProgram(const QString& program, const QStringList& arguments) {
  programs_.append((QStringList{program} + arguments).join(QLatin1Char(' ')));
}

void ScriptedUser::OpenWithDesktop(const QString& file) {
  programs_.append(file);
}

void ScriptedUser::Terminate() {
  terminated_ = true;
  throw ProgramEnded{};
}
