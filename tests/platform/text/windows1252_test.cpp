#include "platform/text/windows1252.h"

#include <gtest/gtest.h>

TEST(Windows1252, OgniByteSopravviveAlPassaggioInTestoERitorno) {
  QByteArray tutti;
  for (int byte = 0; byte < 256; ++byte) tutti.append(static_cast<char>(byte));
  const QString testo = windows1252::toText(tutti);
  EXPECT_EQ(testo.size(), 256);
  EXPECT_EQ(windows1252::toBytes(testo), tutti);
}

TEST(Windows1252, LaFasciaAltaNonELatin1) {
  EXPECT_EQ(windows1252::toText(QByteArray("\x80\x91\x99\xE0")), QStringLiteral("€‘™à"));
  EXPECT_EQ(windows1252::toBytes(QStringLiteral("€“”…Ÿžèù")), QByteArray("\x80\x93\x94\x85\x9F\x9E\xE8\xF9"));
}

TEST(Windows1252, ICinqueCodiciNonDefinitiSonoICaratteriDelloStessoNumero) {
  for (const unsigned char byte : std::initializer_list<unsigned char>{0x81, 0x8D, 0x8F, 0x90, 0x9D})
    EXPECT_EQ(windows1252::characterOf(byte), char16_t{byte});
}

TEST(Windows1252, UnCarattereAssenteDiventaUnPuntoDiDomanda) {
  EXPECT_EQ(windows1252::toBytes(QStringLiteral("a\u4E2Db")), "a?b");
  EXPECT_EQ(windows1252::byteOf(U'\u20AD'), '?');
}

TEST(Windows1252, IlControlloDellaFasciaAltaSenzaByteSuoDiventaUnPuntoDiDomanda) {
  EXPECT_EQ(windows1252::byteOf(U'\u0080'), '?');
}

TEST(Windows1252, UnCarattereFuoriDelPianoBaseEUnPuntoDiDomandaSolo) {
  EXPECT_EQ(windows1252::toBytes(QStringLiteral("a😀b")), "a?b");
}

TEST(Windows1252, MezzaCoppiaDiSurrogatiNonLeggeOltreLaFine) {
  EXPECT_EQ(windows1252::toBytes(QString(QChar(0xD83D))), "?");
}

TEST(Windows1252, LoZeroNelMezzoResta) {
  EXPECT_EQ(windows1252::toText(std::string_view("A\0B", 3)).size(), 3);
  EXPECT_EQ(windows1252::toBytes(QString(QChar(0))), QByteArray(1, '\0'));
}

TEST(Windows1252, InMaiuscoloIlTestoRestaLungoComEraENellaTabellaDellaCassa) {
  EXPECT_EQ(windows1252::toUpper(QStringLiteral("tè straße 5µm ÿ œ ž? α")),
            QStringLiteral("TÈ STRAßE 5µM Ÿ Œ Ž? Α"));
  EXPECT_EQ(windows1252::toUpper(QStringLiteral("àèìòù çñ ßµÿ €")), QStringLiteral("ÀÈÌÒÙ ÇÑ ßµŸ €"));
}
