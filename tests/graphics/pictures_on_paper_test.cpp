// The delivered pictures from the application folder to the paper of the simulated till.

#include <QFile>
#include <QSet>

#include "graphics/graphics_scene.h"

using namespace graphics;

namespace {

/// An uncompressed bitmap of 1 bit a dot, read here without the converter's or a library's help.
class Bitmap {
 public:
  explicit Bitmap(QByteArray file) : file_(std::move(file)) {}

  /// What the rest of the class understands.
  bool readable() const {
    return file_.startsWith("BM") && number(14, 4) == 40 && number(28, 2) == 1 && number(30, 4) == 0 &&
           height() > 0 && rows() + stride() * height() == file_.size();
  }
  int width() const { return number(18, 4); }
  int height() const { return number(22, 4); }
  /// Whether the dot prints: its colour is dark. `y` counts from the top, the rows come from the bottom.
  bool dark(int x, int y) const {
    const auto byte = static_cast<unsigned char>(file_[rows() + (height() - 1 - y) * stride() + x / 8]);
    const int colour = (byte >> (7 - x % 8)) & 1;
    return level(colour) < 128;
  }

 private:
  static constexpr int kPalette = 54;

  /// Little endian.
  int number(int offset, int bytes) const {
    int value = 0;
    for (int i = bytes - 1; i >= 0; --i) value = value * 256 + static_cast<unsigned char>(file_[offset + i]);
    return value;
  }
  int rows() const { return number(10, 4); }
  /// Rows are filled up to four bytes.
  int stride() const { return (width() + 31) / 32 * 4; }
  int level(int colour) const {
    int sum = 0;
    for (int part = 0; part < 3; ++part)
      sum += static_cast<unsigned char>(file_[kPalette + colour * 4 + part]);
    return sum / 3;
  }

  QByteArray file_;
};

/// A portable bitmap told by its dots.
QByteArray portable(const Bitmap& bitmap) {
  QByteArray byte =
      "P4\n" + QByteArray::number(bitmap.width()) + ' ' + QByteArray::number(bitmap.height()) + '\n';
  for (int y = 0; y < bitmap.height(); ++y)
    for (int first = 0; first < bitmap.width(); first += 8) {
      int bits = 0;
      for (int x = first; x < first + 8; ++x)
        bits = bits * 2 + (x < bitmap.width() && bitmap.dark(x, y) ? 1 : 0);
      byte.append(static_cast<char>(bits));
    }
  return byte;
}

struct Fornite {
  const char* classe;
  const char* cartella;
  int larghezza;
};
void PrintTo(const Fornite& una, std::ostream* uscita) {
  *uscita << una.classe;
}

class GraficaSuCarta : public GraphicsScene, public testing::WithParamInterface<Fornite> {
 protected:
  GraficaSuCarta() { layConverter(); }
  static QString fornita(const QString& tipo) {
    return QStringLiteral(GESTIONALE_APP) + QLatin1String(GetParam().cartella) + u'/' + tipo +
           QStringLiteral(".bmp");
  }
  void copiaFornite() const {
    for (const QString& tipo : defaultTypes())
      ASSERT_TRUE(QFile::copy(fornita(tipo), image(tipo + QStringLiteral(".bmp")))) << tipo.toStdString();
  }
  void invia(TestTill& cassa) {
    RiempiRecGrafica(false, app(QStringLiteral("SetupLOGO.dat")));
    const GuidedScreen schermo = screen();
    schermo.connectTo(cassa);
    schermo.click(QStringLiteral("Cmd_Avvia"));
    expectBoxes(program, {plainBox(QStringLiteral("Operazione terminata con successo"))});
  }
};

}  // namespace

TEST_P(GraficaSuCarta, LeDodiciImmaginiFornitePuntoPerPunto) {
  ecrsim::Options opzioni;
  opzioni.bitmap = GetParam().classe;
  TestTill cassa(opzioni);
  copiaFornite();
  invia(cassa);
  int numero = 0;
  QSet<QByteArray> viste;
  for (const QString& tipo : defaultTypes()) {
    SCOPED_TRACE(tipo.toStdString());
    const Bitmap bitmap(readFile(fornita(tipo)));
    ASSERT_TRUE(bitmap.readable());
    EXPECT_EQ(bitmap.width(), GetParam().larghezza);
    const QByteArray prevista = portable(bitmap);
    EXPECT_TRUE(cassa.byte(QStringLiteral("grafica/%1.pbm").arg(++numero, 2, 10, QLatin1Char('0'))) ==
                prevista);
    viste.insert(prevista);
  }
  EXPECT_EQ(viste.size(), 12) << "two alike could change places unseen";
}

INSTANTIATE_TEST_SUITE_P(Classi, GraficaSuCarta,
                         testing::Values(Fornite{"L", "/Immagini GRAFICA", 640},
                                         Fornite{"S", "/Immagini GRAFICA/Formato S", 384}),
                         [](const auto& caso) { return std::string(caso.param.classe); });
