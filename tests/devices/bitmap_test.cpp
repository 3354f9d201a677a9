#include "bitmap/converter.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>

#include "sostegno/temporary_folder.h"

namespace {

using Bytes = QByteArray;

void number16(Bytes& to, int value) {
  to.append(static_cast<char>(value & 0xFF)).append(static_cast<char>((value >> 8) & 0xFF));
}

void number32(Bytes& to, qint64 value) {
  number16(to, static_cast<int>(value & 0xFFFF));
  number16(to, static_cast<int>((value >> 16) & 0xFFFF));
}

/// A bitmap's file written here by hand: head, palette, rows as given.
Bytes file(int width, int height, int bits, const Bytes& palette, const Bytes& rows, int compression = 0) {
  Bytes all("BM");
  const auto data = 54 + palette.size();
  number32(all, data + rows.size());
  number32(all, 0);
  number32(all, data);
  number32(all, 40);
  number32(all, width);
  number32(all, height);
  number16(all, 1);
  number16(all, bits);
  number32(all, compression);
  number32(all, rows.size());
  for (int field = 0; field < 4; ++field) number32(all, field == 2 ? palette.size() / 4 : 0);
  return all + palette + rows;
}

const Bytes kBlackWhite("\x00\x00\x00\x00\xFF\xFF\xFF\x00", 8);
const Bytes kWhiteBlack("\xFF\xFF\xFF\x00\x00\x00\x00\x00", 8);

struct Converter : testing::Test {
  TemporaryFolder folder;
  const QString path = folder.file(QStringLiteral("Logo.bmp"));

  std::optional<Bytes> convert(const Bytes& bytes, int width = 384) {
    folder.write(QStringLiteral("Logo.bmp"), bytes);
    return bitmap::Convert(width, path);
  }
  /// Two rows of a bit a dot: above the first eight dots alternate from a set one on, below all bits are 0.
  static Bytes twoRows(bool topDown, const Bytes& palette) {
    const Bytes above = Bytes(1, '\xAA') + Bytes(47, '\0');
    const Bytes below(48, '\0');
    return file(384, topDown ? -2 : 2, 1, palette, topDown ? above + below : below + above);
  }
};

/// Rows of 384 dots that all print, or none.
Bytes row(bool black) {
  return Bytes(48, black ? '\xFF' : '\0');
}

}  // namespace

TEST_F(Converter, UnBitADotIlNeroStampaELeRigheVannoDallAlto) {
  const Bytes head("\x80\x01\x02\x00", 4);
  EXPECT_EQ(convert(twoRows(false, kWhiteBlack)), head + Bytes(1, '\xAA') + Bytes(47, '\0') + row(false));
  EXPECT_EQ(convert(twoRows(false, kBlackWhite)), head + Bytes(1, '\x55') + Bytes(47, '\xFF') + row(true));
}

TEST_F(Converter, DallAltoInBassoEIlContrarioDannoLaStessaImmagine) {
  EXPECT_EQ(convert(twoRows(true, kWhiteBlack)), convert(twoRows(false, kWhiteBlack)));
}

TEST_F(Converter, QuattroOttoVentiquattroETrentadueBitDiBiancoENeroRestanoEsatti) {
  const Bytes four = file(384, 1, 4, kBlackWhite, Bytes(96, '\0') + Bytes(96, '\x11'));
  const Bytes eight = file(384, 1, 8, kBlackWhite, Bytes(192, '\0') + Bytes(192, '\1'));
  const Bytes colour = file(384, 1, 24, {}, Bytes(576, '\0') + Bytes(576, '\xFF'));
  const Bytes deep = file(384, 1, 32, {}, Bytes(768, '\0') + Bytes(768, '\xFF'));
  const Bytes expected = Bytes("\x80\x01\x01\x00", 4) + Bytes(24, '\xFF') + Bytes(24, '\0');
  for (const Bytes& one : {four, eight, colour, deep}) EXPECT_EQ(convert(one), expected) << one.size();
}

TEST_F(Converter, UnGrigioMedioStampaMetaDeiSuoiPunti) {
  const auto picture = convert(file(384, 40, 24, {}, Bytes(384 * 3 * 40, '\x80')));
  ASSERT_TRUE(picture);
  int dots = 0;
  for (const char byte : picture->mid(4))
    for (int bit = 0; bit < 8; ++bit) dots += (byte >> bit) & 1;
  EXPECT_NEAR(dots, 7680, 307);
  // Spread, not in blocks: no byte of eight dots all alike in the middle.
  EXPECT_FALSE(picture->mid(4 + 48 * 20, 48).contains('\xFF'));
}

TEST_F(Converter, UnAltraLarghezzaERifiutata) {
  EXPECT_FALSE(convert(file(384, 1, 1, kBlackWhite, Bytes(48, '\0')), 640));
  EXPECT_FALSE(convert(file(385, 1, 1, kBlackWhite, Bytes(52, '\0'))));
  EXPECT_TRUE(convert(file(640, 1, 1, kBlackWhite, Bytes(80, '\0')), 640));
}

TEST_F(Converter, LePropozioniAssurdeSonoRifiutate) {
  for (const auto& [width, height] : {std::pair{0, 0},
                                      {384, 0},
                                      {384, 801},
                                      {384, -801},
                                      {-384, 10},
                                      {384, 2147483647},
                                      {384, -2147483647 - 1}})
    EXPECT_FALSE(convert(file(width, height, 1, kBlackWhite, Bytes(48 * 900, '\0')))) << width << height;
  EXPECT_TRUE(convert(file(384, 800, 1, kBlackWhite, Bytes(48 * 800, '\0'))));
}

TEST_F(Converter, TroncataCompressaODiAltriBitERifiutata) {
  const Bytes whole = file(384, 2, 1, kBlackWhite, Bytes(96, '\0'));
  for (qsizetype length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(convert(whole.left(length))) << length;
  EXPECT_TRUE(convert(whole));
  EXPECT_FALSE(convert(file(384, 2, 8, kBlackWhite, Bytes(768, '\0'), 1)));
  EXPECT_FALSE(convert(file(384, 2, 4, kBlackWhite, Bytes(768, '\0'), 2)));
  EXPECT_FALSE(convert(file(384, 2, 16, {}, Bytes(1536, '\0'))));
}

TEST_F(Converter, CioCheNonEUnaBitmapERifiutato) {
  EXPECT_FALSE(convert(Bytes(3000, 'x')));
  EXPECT_FALSE(convert({}));
  EXPECT_FALSE(bitmap::Convert(384, folder.file(QStringLiteral("manca.bmp"))));
  EXPECT_FALSE(bitmap::Convert(384, folder.path()));
}

TEST_F(Converter, UnFileEnormeNonSiLegge) {
  QFile big(path);
  ASSERT_TRUE(big.open(QIODevice::WriteOnly));
  ASSERT_TRUE(big.resize(qint64{1} << 33));
  big.close();
  EXPECT_FALSE(bitmap::Convert(384, path));
}

TEST(OrdineDelConverter, IlPercorsoNonHaLaVirgolettaDiChiusura) {
  for (const QStringList& words :
       {QStringList{QStringLiteral("384"), QStringLiteral("\"/a b/Logo.bmp")},
        QStringList{QStringLiteral("384"), QStringLiteral("\"/a"), QStringLiteral("b/Logo.bmp")},
        QStringList{QStringLiteral("384 \"/a b/Logo.bmp")},
        QStringList{QStringLiteral("384"), QStringLiteral("/a b/Logo.bmp")},
        QStringList{QStringLiteral("384"), QStringLiteral("\"/a b/Logo.bmp\"")}}) {
    const auto order = bitmap::ReadOrder(words);
    ASSERT_TRUE(order) << words.join(u'|').toStdString();
    EXPECT_EQ(order->width, 384);
    EXPECT_EQ(order->path, QStringLiteral("/a b/Logo.bmp"));
  }
}

TEST(OrdineDelConverter, UnAltraLarghezzaOUnPercorsoCheMancaNonSonoUnOrdine) {
  for (const char* line : {"", "384", "384 ", "383 \"/a.bmp", "x \"/a.bmp", "-384 \"/a.bmp", "640 \""})
    EXPECT_FALSE(bitmap::ReadOrder({QString::fromUtf8(line)})) << line;
}

TEST(OrdineDelConverter, IlRisultatoStaAccantoConLoStessoNome) {
  EXPECT_EQ(bitmap::TargetOf(QStringLiteral("/a.bmp/FestaPapà.bmp")), QStringLiteral("/a.bmp/FestaPapà.bin"));
  EXPECT_EQ(bitmap::TargetOf(QStringLiteral("/a/due.punti.bmp")), QStringLiteral("/a/due.punti.bin"));
}

struct ConverterProgram : Converter {
  int run(const QStringList& arguments) {
    return QProcess::execute(QStringLiteral(GESTIONALE_APP "/Immagini GRAFICA/bitmap.exe"), arguments);
  }
};

TEST_F(ConverterProgram, ScriveAccantoLImmagine) {
  const auto picture = convert(twoRows(false, kWhiteBlack));
  EXPECT_EQ(run({QStringLiteral("384"), u'"' + path}), 0);
  EXPECT_EQ(folder.read(QStringLiteral("Logo.bin")), *picture);
}

TEST_F(ConverterProgram, DiUnImmagineRifiutataScriveUnFileVuoto) {
  folder.write(QStringLiteral("Logo.bmp"), "nessuna");
  folder.write(QStringLiteral("Logo.bin"), "di prima");
  EXPECT_EQ(run({QStringLiteral("384"), u'"' + path}), 1);
  EXPECT_EQ(folder.read(QStringLiteral("Logo.bin")), Bytes());
  EXPECT_TRUE(QFile::exists(folder.file(QStringLiteral("Logo.bin"))));
}

TEST_F(ConverterProgram, UnOrdineSbagliatoNonScriveNulla) {
  convert(twoRows(false, kWhiteBlack));
  EXPECT_EQ(run({QStringLiteral("385"), u'"' + path}), 2);
  EXPECT_FALSE(QFile::exists(folder.file(QStringLiteral("Logo.bin"))));
}
