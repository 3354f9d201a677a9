#include "platform/text/file_name.h"

#include <gtest/gtest.h>

TEST(NomeDelFile, EQuelloDopoLUltimoSeparatore) {
  EXPECT_EQ(FileName(QStringLiteral("C:\\liste\\a b.csv")), QStringLiteral("a b.csv"));
  EXPECT_EQ(FileName(QStringLiteral("/liste/x.csv")), QStringLiteral("x.csv"));
  EXPECT_EQ(FileName(QStringLiteral("x.csv")), QStringLiteral("x.csv"));
  EXPECT_EQ(FileName(QStringLiteral("/liste/")), QString());
}
