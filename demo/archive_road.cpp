#include <algorithm>

#include "demo/archive_expectations.h"
#include "demo/moments.h"
#include "demo/reread_archive.h"
#include "demo/road.h"

namespace {

const QString kArticleGrid = QStringLiteral("MSFlexGridArticoli");
const QString kSalesGrid = QStringLiteral("MSFlexGridVenduto");
const QString kSearch = QStringLiteral("Vmd_Cerca");
const QString kLeave = QStringLiteral("Cmd_Esci");
const QString kExported = QStringLiteral("articoli-esportati.csv");
const QString kExportedSales = QStringLiteral("venduto.csv");
const char* const kSearchedStart = "yogurt";
const QTime kMorning{8, 5};
constexpr std::int32_t kCorrectedPrice = 123;  // hundredths

Director::When after(const QString& closed) {
  return [closed] { return window(closed) == nullptr && on(kWork, QStringLiteral("Cmd_Venduto")); };
}

/// The list with the one article as the correction leaves it.
std::vector<expectations::Article> withCorrection(std::vector<expectations::Article> articles, int slot) {
  expectations::Article& article = articles.at(static_cast<std::size_t>(slot - 1));
  article.price = kCorrectedPrice;
  article.description = expectations::upperCase(article.description);
  return articles;
}

}  // namespace

std::vector<expectations::Article> Road::articlesInArchive() const {
  auto articles = expectations::readList(path(list_));
  return corrected_ == 0 ? articles : withCorrection(std::move(articles), corrected_);
}

QString Road::inFolder(const QString& name) const {
  return places_.folder + QLatin1Char('/') + name;
}

void Road::exportList(const QString& windowName, const QString& file, const QString& photo) {
  director_.step(QStringLiteral("export"), enabled(windowName, QStringLiteral("Cmd_Export")),
                 [windowName] { click(windowName, QStringLiteral("Cmd_Export")); });
  chooseFile(inFolder(file));
  awaitBox(QStringLiteral("Creazione del file %1 terminata.").arg(inFolder(file)), photo);
}

void Road::articleArchive() {
  director_.step(QStringLiteral("workspace after the reception"), after(kSalesReception), [this] {
    itIs(Day::Tuesday, kMorning);
    stopwatch_.start();
    click(kWork, QStringLiteral("Cmd_Articoli"));
  });
  searchArticles();
  correctArticle();
  exportArticles();
}

void Road::searchArticles() {
  director_.step(QStringLiteral("archive of the articles"), enabled(kArticleArchive, kSearch), [this] {
    const auto rows = cells(kArticleArchive, kArticleGrid);
    require(static_cast<std::size_t>(rows.size()) == expectations::readList(path(list_)).size(),
            QStringLiteral("righe dell'archivio articoli"));
    row(QStringLiteral("Articoli in elenco"), QString::number(rows.size()));
    photograph(kArticleArchive, QStringLiteral("archivio-articoli"));
    type(kArticleArchive, QStringLiteral("vkTextBoxDesc"), QLatin1String(kSearchedStart));
    stopwatch_.start();
    click(kArticleArchive, kSearch);
  });
}

void Road::compareSearch() {
  const auto expected = expectations::startingWith(expectations::readList(path(list_)), kSearchedStart);
  const auto rows = cells(kArticleArchive, kArticleGrid);
  require(static_cast<std::size_t>(rows.size()) == expected.size(), QStringLiteral("articoli trovati"));
  auto found = rows.begin();
  for (const expectations::Article& article : expected) {
    require(found->at(1).toStdString() == article.ean,
            QStringLiteral("articolo %1 fra i trovati").arg(article.slot));
    ++found;
  }
  corrected_ = expected.front().slot;
  row(QStringLiteral("Articoli trovati"), QString::number(rows.size()));
}

void Road::correctArticle() {
  director_.step(QStringLiteral("articles found"), enabled(kArticleArchive, kSearch), [this] {
    compareSearch();
    clickCell(kArticleArchive, kArticleGrid, 0, 1);
    // With two decimals in it the price drops every key but the backspace.
    retype(kArticleArchive, QStringLiteral("vkTextBoxPrezzo"), QStringLiteral("1,23"));
    // The search shows neither of the two letters: the person types them.
    type(kArticleArchive, QStringLiteral("vkTextBoxVarPrz"), QStringLiteral("N"));
    type(kArticleArchive, QStringLiteral("vkTextBoxPrz0"), QStringLiteral("N"));
  });
  // In a step of its own: the command that has become the first one is laid out between them.
  director_.step(QStringLiteral("correction typed"), enabled(kArticleArchive, kSearch), [this] {
    photograph(kArticleArchive, QStringLiteral("archivio-articoli-cerca"));
    stopwatch_.start();
    click(kArticleArchive, QStringLiteral("Cmd_Modifica"));
  });
  director_.step(QStringLiteral("article corrected"), enabled(kArticleArchive, kSearch), [this] {
    compareCorrection();
    photograph(kArticleArchive, QStringLiteral("archivio-articoli-corretto"));
  });
}

void Road::compareCorrection() {
  const auto expected = articlesInArchive();
  const auto place = static_cast<std::size_t>(corrected_ - 1);
  const expectations::Article saved = rereadArchive(archive_).slot.at(place);
  require(saved.price == kCorrectedPrice && saved.ean == expected.at(place).ean &&
              saved.code == expected.at(place).code && saved.department == expected.at(place).department &&
              saved.description == expected.at(place).description,
          QStringLiteral("articolo corretto"));
  row(QStringLiteral("Articolo corretto"), QString::fromStdString(saved.description));
}

void Road::exportArticles() {
  exportList(kArticleArchive, kExported, QStringLiteral("archivio-articoli-export"));
  director_.step(QStringLiteral("figures of the articles' export"), enabled(kArticleArchive, kLeave), [this] {
    compareArticleExport();
    click(kArticleArchive, kLeave);
  });
}

void Road::compareArticleExport() {
  const std::string written = expectations::readFile(path(inFolder(kExported)));
  const auto expected = articlesInArchive();
  require(written == expectations::csvArticles(expected, decimalSign()), kExported);
  row(QStringLiteral("Byte esportati"), QString::number(written.size()));
}

void Road::salesArchive() {
  director_.step(QStringLiteral("workspace after the week"), after(kSalesReception), [this] {
    stopwatch_.start();
    click(kWork, QStringLiteral("Cmd_Venduto"));
  });
  director_.step(QStringLiteral("archive of the sales"), enabled(kSalesArchive, QStringLiteral("Cmd_Cerca")),
                 [this] {
                   compareSalesList();
                   photograph(kSalesArchive, QStringLiteral("archivio-venduto"));
                   const auto last = cells(kSalesArchive, kSalesGrid).size() - 1;
                   clickCell(kSalesArchive, kSalesGrid, static_cast<int>(last), 1);
                   photograph(kSalesArchive, QStringLiteral("archivio-venduto-totali"));
                 });
  exportList(kSalesArchive, kExportedSales, QStringLiteral("archivio-venduto-export"));
  director_.step(QStringLiteral("figures of the sales' export"), enabled(kSalesArchive, kLeave), [this] {
    compareSalesExport();
    click(kSalesArchive, kLeave);
  });
}

void Road::compareSalesList() {
  const auto rows = cells(kSalesArchive, kSalesGrid);
  require(static_cast<std::size_t>(rows.size()) == week_.size() + 2,
          QStringLiteral("righe dell'archivio venduto"));
  const QStringList totals = rows.back().mid(1);
  require(totals.join(QLatin1Char(';')).toStdString() == expectations::salesTotals(week_, decimalSign()),
          QStringLiteral("totali del venduto"));
  row(QStringLiteral("Pezzi, incasso"), totals.at(5) + QStringLiteral(", ") + totals.at(6));
}

void Road::compareSalesExport() {
  auto expected = weekRows_;
  std::vector<std::string> written =
      expectations::crLfLines(expectations::readFile(path(inFolder(kExportedSales))));
  require(written.size() == expected.size() + 2, QStringLiteral("righe di ") + kExportedSales);
  require(written.back() == expectations::salesTotals(week_, decimalSign()),
          QStringLiteral("totali di ") + kExportedSales);
  written.pop_back();
  require(written.back() == " ;;;;;;;", QStringLiteral("riga bianca di ") + kExportedSales);
  written.pop_back();
  // By day, and by code within it; rows of the same code stand in no order.
  const auto place = [](const std::string& one) {
    const std::string day = one.substr(6, 4) + one.substr(3, 2) + one.substr(0, 2);  // of "dd/mm/yyyy"
    return day + one.substr(10, one.find(';', 11) - 10);
  };
  require(std::ranges::is_sorted(written, {}, place), QStringLiteral("ordine di ") + kExportedSales);
  std::ranges::sort(expected);
  std::ranges::sort(written);
  require(written == expected, kExportedSales);
  row(QStringLiteral("Righe esportate"), QString::number(written.size()));
}
