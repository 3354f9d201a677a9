#include "sostegno/program_fixture.h"

#include <gtest/gtest.h>

namespace {

bool matches(const Box& seen, const Box& expected) {
  if (!expected.text.endsWith(u'*')) return seen == expected;
  return seen.text.startsWith(expected.text.chopped(1)) && seen.icon == expected.icon &&
         seen.title == expected.title && seen.buttons == expected.buttons;
}

}  // namespace

ProgramFixture::ProgramFixture(const QString& libraryFolder, const QString& applicationFolder)
    : library(libraryFolder), contesto{user,    workspace, library,           network,
                                       screens, clock,     applicationFolder, std::chrono::milliseconds(0)} {
  azzeraStato();
}

ProgramFixture::~ProgramFixture() {
  screens.scaricaTutte();
  workspace.Abandon();
  azzeraStato();
}

Box box(const QString& text, Icon icon) {
  return {text, icon, {}, Buttons::Ok};
}

Box criticalBox(const QString& text) {
  return box(text, Icon::Critical);
}

Box plainBox(const QString& text) {
  return box(text, Icon::None);
}

std::vector<Box> boxes(const QStringList& texts, Icon icon) {
  std::vector<Box> all;
  for (const QString& text : texts) all.push_back(box(text, icon));
  return all;
}

void expectBoxes(ProgramFixture& program, const std::vector<Box>& expected) {
  const std::vector<Box> seen = program.takeBoxes();
  ASSERT_EQ(seen.size(), expected.size()) << testing::PrintToString(seen);
  for (std::size_t i = 0; i < seen.size(); ++i)
    EXPECT_TRUE(matches(seen[i], expected[i]))
        << testing::PrintToString(seen[i]) << " in place of " << testing::PrintToString(expected[i]);
}
