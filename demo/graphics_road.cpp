#include <algorithm>

#include "demo/moments.h"
#include "demo/picture_expectations.h"
#include "demo/road.h"

namespace {

const QString kMenu = QStringLiteral("start");
const QString kGraphics = QStringLiteral("Form_Grafica");
const QString kCatalogue = QStringLiteral("MSFlexGridGrafica");
const QString kFiles = QStringLiteral("File1");
const QString kPictures = QStringLiteral("Immagini GRAFICA");
const QTime kEarlyAfternoon{14, 30};
constexpr int kFileColumn = 2;
/// The promotion that gives way to the picture of Christmas.
constexpr int kChangedRow = 10;
const QString kChosen = QStringLiteral("Natale.bmp");

/// In the order in which the till gets them.
QStringList catalogue() {
  return {QStringLiteral("Logo.bmp"),        QStringLiteral("Merceologico1.bmp"),
          QStringLiteral("Natale.bmp"),      QStringLiteral("Pasqua.bmp"),
          QStringLiteral("FestaMamma.bmp"),  QStringLiteral("FestaPapà.bmp"),
          QStringLiteral("FestaDonna.bmp"),  QStringLiteral("Vacanze.bmp"),
          QStringLiteral("Carnevale.bmp"),   QStringLiteral("SanValentino.bmp"),
          QStringLiteral("Promozione1.bmp"), QStringLiteral("Promozione2.bmp")};
}

QStringList catalogueOnScreen() {
  QStringList names;
  for (const QStringList& row : cells(kGraphics, kCatalogue)) names.append(row.at(kFileColumn));
  return names;
}

}  // namespace

/// The twelve pictures of the receipts, one of them another than it was, on the till's paper.
void Road::graphics() {
  director_.step(QStringLiteral("menu for the graphics"), visible(kMenu), [this] {
    itIs(Day::Friday, kEarlyAfternoon);
    stopwatch_.start();
    click(kMenu, QStringLiteral("Label1"));
  });
  awaitBox(QStringLiteral("Sono stati ripristinati i valori di default!"),
           QStringLiteral("grafica-predefinita"));
  director_.step(QStringLiteral("catalogue"), enabled(kGraphics, kFiles), [this] {
    require(catalogueOnScreen() == catalogue(), QStringLiteral("il catalogo di partenza"));
    clickCell(kGraphics, kCatalogue, kChangedRow, kFileColumn);
    clickEntry(kGraphics, kFiles, kChosen);
    QStringList changed = catalogue();
    changed[kChangedRow] = kChosen;
    // Away from the tiles: one of them would look picked too.
    hoverOver(kGraphics, kFiles);
    require(catalogueOnScreen() == changed, QStringLiteral("il catalogo cambiato"));
    row(QStringLiteral("Immagine cambiata"), catalogue().at(kChangedRow) + QStringLiteral(": ") + kChosen);
  });
  connect(kGraphics, QStringLiteral("grafica"));
  awaitBox(QStringLiteral("Operazione terminata con successo"), QStringLiteral("grafica-messaggio"));
  director_.step(QStringLiteral("figures of the pictures"), enabled(kGraphics, QStringLiteral("Cmd_Esci")),
                 [this] {
                   comparePictures();
                   photograph(kGraphics, QStringLiteral("grafica-inviata"));
                   click(kGraphics, QStringLiteral("Cmd_Esci"));
                 });
}

/// The till's paper dot by dot against the bitmaps.
void Road::comparePictures() {
  QStringList names = catalogue();
  names[kChangedRow] = kChosen;
  std::ptrdiff_t black = 0;
  for (int i = 0; i < names.size(); ++i) {
    const QString bitmap =
        places_.application + QLatin1Char('/') + kPictures + QLatin1Char('/') + names.at(i);
    const expectations::Dots drawn = expectations::readBitmap(path(bitmap));
    const QString paper = till_.file(QStringLiteral("grafica/%1.pbm").arg(i + 1, 2, 10, QLatin1Char('0')));
    require(expectations::readPaper(path(paper)) == drawn, paper + QStringLiteral(" e ") + names.at(i));
    const std::ptrdiff_t printed = std::ranges::count(drawn.prints, true);
    require(printed > 0, names.at(i) + QStringLiteral(" stampa qualcosa"));
    black += printed;
  }
  row(QStringLiteral("Immagini stampate"), QStringLiteral("%1, punti neri %2").arg(names.size()).arg(black));
}
