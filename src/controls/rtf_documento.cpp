#include "controls/rtf_documento.h"

#include <QFontInfo>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "platform/errore.h"

namespace rtf {

namespace {

constexpr std::size_t kMassimoCelle = 40'000;
/// Pixels at scale 1.
constexpr int kRientro = 28;
constexpr int kSpazioParagrafi = 8;
constexpr int kSpazioVoci = 4;
constexpr int kSpazioTitolo = 16;
constexpr int kMargineCelle = 7;
constexpr double kInterlinea = 125;
/// Of a heading to the text, by level.
constexpr std::array kCorpi{1.0, 1.6, 1.3, 1.15, 1.05, 1.0, 1.0};
/// A paragraph wholly in bold or large letters is a heading where the file names none: from these ratios on.
constexpr double kTitoloGrande = 1.5;
constexpr double kTitoloMedio = 1.2;
const QColor kFilo(0x80, 0x8A, 0x90);

void contaLettere(const Paragrafo& paragrafo, std::map<int, qsizetype>& lettere) {
  for (const Tratto& tratto : paragrafo.tratti) lettere[tratto.carattere.misura] += tratto.testo.size();
}

/// The half points of most of the letters.
int misuraDelTesto(const Testo& testo) {
  std::map<int, qsizetype> lettere{{kMisura, 0}};
  for (const Blocco& blocco : testo) {
    contaLettere(blocco.paragrafo, lettere);
    for (const Riga& riga : blocco.tabella)
      for (const Cella& cella : riga.celle)
        for (const Paragrafo& paragrafo : cella) contaLettere(paragrafo, lettere);
  }
  return std::max_element(lettere.begin(), lettere.end(),
                          [](const auto& una, const auto& altra) { return una.second < altra.second; })
      ->first;
}

class Scrittore {
 public:
  Scrittore(QTextDocument& documento, int misura) : cursore_(&documento), misura_(misura) {
    documento.clear();
    const QFont carattere = documento.defaultFont();
    punti_ = carattere.pointSizeF() > 0 ? carattere.pointSizeF() : QFontInfo(carattere).pointSizeF();
  }

  void blocco(const Blocco& blocco) {
    if (blocco.tabella.empty())
      paragrafo(blocco.paragrafo, std::exchange(bloccoLibero_, false));
    else
      tabella(blocco.tabella);
    primo_ = false;
  }

 private:
  void paragrafo(const Paragrafo& paragrafo, bool inPlace);
  void elenco(const Paragrafo& paragrafo, QTextBlockFormat& formato);
  void voce(int livello);
  void tratti(const Paragrafo& paragrafo, int titolo);
  void tabella(const std::vector<Riga>& righe);
  void cella(const QTextTableCell& posto, const Cella& cella);
  int titolo(const Paragrafo& paragrafo) const;
  QTextCharFormat formato(const Carattere& carattere, int titolo) const;

  QTextCursor cursore_;
  int misura_;
  double punti_ = 0;
  bool primo_ = true;
  /// A document begins with an empty block, and a table leaves one behind it.
  bool bloccoLibero_ = true;
  /// The list that the paragraph before belongs to.
  QTextList* lista_ = nullptr;
  bool inTabella_ = false;
};

int Scrittore::titolo(const Paragrafo& paragrafo) const {
  if (paragrafo.titolo > 0 || paragrafo.inElenco || inTabella_ || paragrafo.tratti.empty())
    return paragrafo.titolo;
  double minima = kCorpi.size();
  bool grassetto = true;
  for (const Tratto& tratto : paragrafo.tratti) {
    minima = std::min(minima, static_cast<double>(tratto.carattere.misura) / misura_);
    grassetto = grassetto && tratto.carattere.grassetto;
  }
  if (minima >= kTitoloGrande) return 1;
  return minima >= kTitoloMedio && grassetto ? 2 : 0;
}

void Scrittore::paragrafo(const Paragrafo& paragrafo, bool inPlace) {
  const int livello = titolo(paragrafo);
  QTextBlockFormat formato;
  formato.setAlignment(paragrafo.allineamento);
  formato.setLineHeight(kInterlinea, QTextBlockFormat::ProportionalHeight);
  formato.setHeadingLevel(livello);
  if (!inTabella_) {
    formato.setTopMargin(livello > 0 && !primo_ ? kSpazioTitolo : 0);
    formato.setBottomMargin(paragrafo.inElenco ? kSpazioVoci : kSpazioParagrafi);
  }
  if (!inPlace) cursore_.insertBlock(QTextBlockFormat(), QTextCharFormat());
  if (paragrafo.inElenco)
    elenco(paragrafo, formato);
  else
    lista_ = nullptr;
  cursore_.mergeBlockFormat(formato);
  tratti(paragrafo, livello);
}

void Scrittore::elenco(const Paragrafo& paragrafo, QTextBlockFormat& formato) {
  const bool contato = std::any_of(paragrafo.segno.begin(), paragrafo.segno.end(),
                                   [](QChar c) { return c.isLetterOrNumber() && c != QLatin1Char('o'); });
  if (!contato) return voce(paragrafo.livello);
  lista_ = nullptr;
  // The numbers stand as the author's program counted them.
  formato.setLeftMargin(kRientro * (paragrafo.livello + 1));
  formato.setTextIndent(-kRientro);
  formato.setTabPositions({{kRientro, QTextOption::LeftTab}});
  cursore_.insertText(paragrafo.segno + QLatin1Char('\t'), QTextCharFormat());
}

void Scrittore::voce(int livello) {
  if (lista_ && lista_->format().indent() == livello + 1) return lista_->add(cursore_.block());
  QTextListFormat punti;
  punti.setStyle(livello % 2 == 0 ? QTextListFormat::ListDisc : QTextListFormat::ListCircle);
  punti.setIndent(livello + 1);
  lista_ = cursore_.createList(punti);
}

void Scrittore::tratti(const Paragrafo& paragrafo, int titolo) {
  for (const Tratto& tratto : paragrafo.tratti)
    cursore_.insertText(tratto.testo, formato(tratto.carattere, titolo));
}

QTextCharFormat Scrittore::formato(const Carattere& carattere, int titolo) const {
  QTextCharFormat formato;
  if (carattere.grassetto || titolo > 0) formato.setFontWeight(QFont::DemiBold);
  formato.setFontItalic(carattere.corsivo);
  formato.setFontUnderline(carattere.sottolineato);
  const double corpo = titolo > 0 ? kCorpi.at(static_cast<std::size_t>(titolo))
                                  : static_cast<double>(carattere.misura) / misura_;
  formato.setFontPointSize(punti_ * corpo);
  return formato;
}

std::size_t colonneDi(const std::vector<Riga>& righe) {
  std::size_t colonne = 1;
  for (const Riga& riga : righe) colonne = std::max(colonne, riga.celle.size());
  return colonne;
}

/// Widths of the columns in percent, none where the borders do not tell them.
QList<QTextLength> larghezze(const Riga& riga, std::size_t colonne) {
  QList<QTextLength> trovate;
  int sinistra = 0;
  for (const int destra : riga.bordi) {
    if (destra <= sinistra) return {};
    trovate.append(
        QTextLength(QTextLength::PercentageLength, 100.0 * (destra - sinistra) / riga.bordi.back()));
    sinistra = destra;
  }
  return static_cast<std::size_t>(trovate.size()) == colonne ? trovate : QList<QTextLength>();
}

void Scrittore::tabella(const std::vector<Riga>& righe) {
  const std::size_t colonne = colonneDi(righe);
  QTextTableFormat formato;
  formato.setCellPadding(kMargineCelle);
  formato.setCellSpacing(0);
  formato.setBorder(1);
  formato.setBorderCollapse(true);
  formato.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  formato.setBorderBrush(kFilo);
  formato.setTopMargin(kSpazioParagrafi);
  formato.setBottomMargin(kSpazioTitolo);
  formato.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  formato.setColumnWidthConstraints(larghezze(righe.front(), colonne));
  QTextTable* tabella =
      cursore_.insertTable(static_cast<int>(righe.size()), static_cast<int>(colonne), formato);
  inTabella_ = true;
  for (std::size_t riga = 0; riga < righe.size(); ++riga)
    for (std::size_t colonna = 0; colonna < righe[riga].celle.size(); ++colonna)
      cella(tabella->cellAt(static_cast<int>(riga), static_cast<int>(colonna)), righe[riga].celle[colonna]);
  inTabella_ = false;
  lista_ = nullptr;
  cursore_.movePosition(QTextCursor::End);
  bloccoLibero_ = true;
}

void Scrittore::cella(const QTextTableCell& posto, const Cella& cella) {
  cursore_ = posto.firstCursorPosition();
  lista_ = nullptr;
  bool prima = true;
  for (const Paragrafo& uno : cella) paragrafo(uno, std::exchange(prima, false));
}

}  // namespace

void scrivi(const Testo& testo, QTextDocument& documento) {
  std::size_t celle = 0;
  for (const Blocco& blocco : testo)
    if (!blocco.tabella.empty()) celle += blocco.tabella.size() * colonneDi(blocco.tabella);
  if (celle > kMassimoCelle)
    throw Errore{errore::kFormatoFile,
                 QStringLiteral("Il testo non è leggibile: le tabelle sono troppo grandi.")};
  documento.setUndoRedoEnabled(false);
  Scrittore scrittore(documento, misuraDelTesto(testo));
  for (const Blocco& blocco : testo) scrittore.blocco(blocco);
}

}  // namespace rtf
