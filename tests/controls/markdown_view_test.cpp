#include "controls/markdown_view.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include "sostegno/temporary_folder.h"

namespace {

const QByteArray kPrima =
    "# La cassa\n\nTesto con un [collegamento](altra.md#due-parole).\n\n"
    "## Quando l'azzeramento non riesce\n\n| a | b |\n|---|---|\n| uno | due |\n";

struct PaginaDiManuale : testing::Test {
  TemporaryFolder cartella;
  MarkdownView vista;

  PaginaDiManuale() {
    EXPECT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("manuale")));
    scrivi("prima.md", kPrima);
    scrivi("altra.md", "# Altra\n");
    scrivi("README.md", "# Indice\n");
    cartella.write(QStringLiteral("segreta.md"), "# Fuori\n");
    vista.setFolder(cartella.file(QStringLiteral("manuale")));
    vista.resize(400, 300);
  }
  void scrivi(const char* nome, const QByteArray& testo) const {
    cartella.write(QStringLiteral("manuale/") + QLatin1String(nome), testo);
  }
  void immagine(const QString& dove, int larga, int alta) const {
    QImage tinta(larga, alta, QImage::Format_RGB32);
    tinta.fill(Qt::blue);
    EXPECT_TRUE(tinta.save(cartella.file(dove)));
  }
  /// Sizes of the pictures of the page as they are laid out; a null one for what is not there.
  std::vector<QSizeF> figure() const {
    std::vector<QSizeF> misure;
    for (QTextBlock blocco = vista.document()->begin(); blocco.isValid(); blocco = blocco.next())
      for (auto pezzo = blocco.begin(); !pezzo.atEnd(); ++pezzo) {
        const QTextImageFormat forma = pezzo.fragment().charFormat().toImageFormat();
        if (forma.isValid()) misure.emplace_back(forma.width(), forma.height());
      }
    return misure;
  }
};

}  // namespace

TEST_F(PaginaDiManuale, MostraTitoliCollegamentiETabelle) {
  ASSERT_TRUE(vista.showPage(QStringLiteral("prima.md")));
  EXPECT_EQ(vista.page(), QStringLiteral("prima.md"));
  EXPECT_EQ(vista.title(), QStringLiteral("La cassa"));
  EXPECT_TRUE(vista.toPlainText().contains(QStringLiteral("Testo con un collegamento.")));
  const auto figli = vista.document()->rootFrame()->childFrames();
  ASSERT_EQ(figli.size(), 1);
  const auto* tabella = qobject_cast<const QTextTable*>(figli.front());
  ASSERT_NE(tabella, nullptr);
  EXPECT_EQ(tabella->columns(), 2);
  EXPECT_GT(tabella->format().cellPadding(), 0);
}

TEST_F(PaginaDiManuale, LIndiceEPrimoELeAltrePagineSonoInOrdine) {
  EXPECT_EQ(vista.pages(), (QStringList{QStringLiteral("README.md"), QStringLiteral("altra.md"),
                                        QStringLiteral("prima.md")}));
}

TEST_F(PaginaDiManuale, LAncoraEComeLaScrivonoICollegamenti) {
  EXPECT_EQ(MarkdownView::anchorOf(QStringLiteral("Quando l'azzeramento non riesce")),
            QStringLiteral("quando-lazzeramento-non-riesce"));
  EXPECT_EQ(MarkdownView::anchorOf(QStringLiteral("Perché è così, già")),
            QStringLiteral("perché-è-così-già"));
  EXPECT_EQ(MarkdownView::anchorOf(QStringLiteral("Error ... (...) in procedure")),
            QStringLiteral("error---in-procedure"));
}

TEST_F(PaginaDiManuale, VaAlTitoloDellAncora) {
  scrivi("lunga.md", "# Inizio\n\n" + QByteArray("riga\n\n").repeated(80) + "## In fondo\n\n" +
                         QByteArray("riga\n\n").repeated(80));
  ASSERT_TRUE(vista.showPage(QStringLiteral("lunga.md")));
  vista.show();
  EXPECT_EQ(vista.verticalScrollBar()->value(), 0);
  ASSERT_TRUE(vista.goTo(QStringLiteral("in-fondo")));
  EXPECT_EQ(vista.textCursor().block().text(), QStringLiteral("In fondo"));
  const QRect dove = vista.cursorRect();
  EXPECT_GE(dove.top(), 0);
  EXPECT_LT(dove.bottom(), vista.viewport()->height() / 2) << "the heading stands at the top";
  EXPECT_FALSE(vista.goTo(QStringLiteral("che-non-c-e")));
}

TEST_F(PaginaDiManuale, NessunFileFuoriDellaCartellaSiLegge) {
  ASSERT_TRUE(vista.showPage(QStringLiteral("prima.md")));
  ASSERT_TRUE(QFile::link(cartella.file(QStringLiteral("segreta.md")),
                          cartella.file(QStringLiteral("manuale/ponte.md"))));
  for (const QString& nome :
       {QStringLiteral("../segreta.md"), cartella.file(QStringLiteral("segreta.md")),
        QStringLiteral("ponte.md"), QStringLiteral("assente.md"), QStringLiteral("."), QString()})
    EXPECT_FALSE(vista.showPage(nome)) << nome.toStdString();
  EXPECT_EQ(vista.page(), QStringLiteral("prima.md"));
  EXPECT_EQ(vista.title(), QStringLiteral("La cassa"));
  EXPECT_EQ(vista.plainText(QStringLiteral("../segreta.md")), QString());
}

TEST_F(PaginaDiManuale, SoloLePagineSiMostrano) {
  scrivi("appunti.txt", "# Appunti\n");
  EXPECT_FALSE(vista.showPage(QStringLiteral("appunti.txt")));
}

TEST_F(PaginaDiManuale, LeFigureStannoNellaLarghezzaDelTesto) {
  immagine(QStringLiteral("manuale/grande.png"), 1000, 500);
  immagine(QStringLiteral("manuale/piccola.png"), 40, 20);
  scrivi("figure.md", "# Figure\n\n![grande](grande.png)\n\n![piccola](piccola.png)\n");
  vista.show();
  ASSERT_TRUE(vista.showPage(QStringLiteral("figure.md")));
  std::vector<QSizeF> misure = figure();
  ASSERT_EQ(misure.size(), 2U);
  EXPECT_LT(misure[0].width(), 400);
  EXPECT_DOUBLE_EQ(misure[0].width(), 2 * misure[0].height());
  EXPECT_EQ(misure[1], QSizeF(40, 20));
  vista.resize(600, 300);
  EXPECT_GT(figure()[0].width(), misure[0].width()) << "wider with the window";
  EXPECT_LT(figure()[0].width(), 600);
}

TEST_F(PaginaDiManuale, UnaFiguraFuoriDellaCartellaOInReteNonSiCarica) {
  immagine(QStringLiteral("segreta.png"), 40, 20);
  scrivi("figure.md",
         "# "
         "F\n\n![a](../segreta.png)\n\n![b](http://127.0.0.1:9/x.png)\n\n![c](//127.0.0.1/"
         "x.png)\n\n![d](file:///" +
             cartella.file(QStringLiteral("segreta.png")).toUtf8() + ")\n");
  ASSERT_TRUE(vista.showPage(QStringLiteral("figure.md")));
  for (const QSizeF& misura : figure()) EXPECT_EQ(misura, QSizeF(1, 1)) << "a point that stands for nothing";
  EXPECT_EQ(figure().size(), 4U);
}

TEST_F(PaginaDiManuale, IMarcatoriDelWebRestanoTesto) {
  scrivi("web.md", "# W\n\n<img src=\"grande.png\"> <b>a</b>\n");
  ASSERT_TRUE(vista.showPage(QStringLiteral("web.md")));
  EXPECT_TRUE(vista.toPlainText().contains(QStringLiteral("<b>a</b>")));
  EXPECT_TRUE(figure().empty());
}
