#include "controls/tavolozza.h"

#include <QHash>

namespace stile {

namespace {

const Tinte kChiaro{
    .sfondo = QColor(0xF3F5F6),
    .carta = QColor(0xFFFFFF),
    .rilievo = QColor(0xE8ECEE),
    .testo = QColor(0x1B262C),
    .tenue = QColor(0x4F5F68),
    .spento = QColor(0x8A979E),
    .bordo = QColor(0xB4C0C6),
    .accento = QColor(0x0F6670),
    .suAccento = QColor(0xFFFFFF),
    .velo = QColor(0xD3E8EA),
    .pronto = QColor(0x0B5D3B),
    .fondoPronto = QColor(0xD8F1E3),
    .occupato = QColor(0x7A4700),
    .fondoOccupato = QColor(0xFCEBC8),
    .guasto = QColor(0x9B1C1C),
    .fondoGuasto = QColor(0xFBE1E1),
};

const Tinte kScuro{
    .sfondo = QColor(0x1A2024),
    .carta = QColor(0x242C31),
    .rilievo = QColor(0x2E383E),
    .testo = QColor(0xE9EEF0),
    .tenue = QColor(0xA9B6BC),
    .spento = QColor(0x6F7C83),
    .bordo = QColor(0x4D5A61),
    .accento = QColor(0x63C4C8),
    .suAccento = QColor(0x0C2124),
    .velo = QColor(0x1F4A4F),
    .pronto = QColor(0x8FE0B4),
    .fondoPronto = QColor(0x173828),
    .occupato = QColor(0xF3C77A),
    .fondoOccupato = QColor(0x3C2E12),
    .guasto = QColor(0xF5A9A9),
    .fondoGuasto = QColor(0x421E20),
};

// A name between two "@" is replaced by that colour. Combo boxes, spin boxes and scroll bars are
// left to Fusion, which draws them from the palette.
constexpr auto kFoglio = R"(
QToolTip { background: @carta@; color: @testo@; border: 1px solid @bordo@; padding: 4px; }
QPushButton { background: @carta@; color: @testo@; border: 1px solid @bordo@; border-radius: 6px;
              padding: 6px 16px; min-height: 20px; }
QPushButton:hover { background: @rilievo@; border-color: @accento@; }
QPushButton:pressed { background: @velo@; }
QPushButton:focus { border: 2px solid @accento@; padding: 5px 15px; }
QPushButton:disabled { background: @sfondo@; color: @spento@; border-color: @rilievo@; }
QPushButton[primario="true"] { background: @accento@; color: @suAccento@; border-color: @accento@;
                               font-weight: 600; }
QPushButton[primario="true"]:hover { border-color: @testo@; }
QPushButton[primario="true"]:focus { border: 2px solid @testo@; }
QPushButton[primario="true"]:disabled { background: @rilievo@; color: @spento@; border-color: @rilievo@; }
QPushButton, QToolButton, QRadioButton { outline: none; }
QToolButton { background: @carta@; color: @testo@; border: 1px solid @bordo@; border-radius: 6px;
              padding: 5px 10px; }
QToolButton:hover { background: @rilievo@; border-color: @accento@; }
QToolButton:pressed, QToolButton:checked { background: @velo@; }
QToolButton:focus { border-color: @accento@; }
QToolButton:disabled { background: @sfondo@; color: @spento@; border-color: @rilievo@; }
QToolBar QToolButton { background: transparent; border-color: transparent; padding: 5px; }
QToolBar QToolButton:hover, QToolBar QToolButton:focus { border-color: @accento@; }
QDialog > QToolButton { padding: 4px; }
QListView#sidebar { icon-size: 16px; }
QLineEdit, QTextEdit, QPlainTextEdit { background: @carta@; color: @testo@; border: 1px solid @bordo@;
                                       border-radius: 5px; padding: 5px 7px;
                                       selection-background-color: @accento@; selection-color: @suAccento@; }
QLineEdit:focus, QTextEdit:focus, QPlainTextEdit:focus { border: 2px solid @accento@; padding: 4px 6px; }
QLineEdit:disabled, QTextEdit:disabled, QPlainTextEdit:disabled { background: @sfondo@; color: @spento@; }
QLineEdit:read-only, QTextEdit[readOnly="true"], QPlainTextEdit[readOnly="true"] {
  background: @rilievo@; border-color: @rilievo@; }
QLineEdit:read-only:focus, QTextEdit[readOnly="true"]:focus, QPlainTextEdit[readOnly="true"]:focus {
  border-color: @accento@; }
QLineEdit[distintivo] { font-weight: 600; }
QLineEdit[distintivo="pronto"] { background: @fondoPronto@; color: @pronto@; border-color: @pronto@; }
QLineEdit[distintivo="occupato"] { background: @fondoOccupato@; color: @occupato@; border-color: @occupato@; }
QLineEdit[distintivo="guasto"] { background: @fondoGuasto@; color: @guasto@; border-color: @guasto@; }
QLabel[titolo="true"] { font-size: 15pt; font-weight: 600; }
QLabel[nota="true"] { color: @tenue@; }
QLabel[marchio="true"] { background: @accento@; border-radius: 10px; padding: 7px; }
QLabel[medaglione="true"] { background: @velo@; border-radius: 36px; min-width: 72px; max-width: 72px;
                            min-height: 72px; max-height: 72px; qproperty-alignment: AlignCenter; }
QFrame[scheda="true"] { background: @carta@; border: 1px solid @rilievo@; border-radius: 10px; }
QGroupBox { border: 1px solid @bordo@; border-radius: 8px; margin-top: 1.1em; padding: 10px; }
QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 4px; color: @tenue@; }
QRadioButton { padding: 3px; border: 1px solid transparent; border-radius: 5px; spacing: 8px; }
QRadioButton:focus { border-color: @accento@; }
QRadioButton::indicator { width: 14px; height: 14px; border: 1px solid @tenue@; border-radius: 8px;
                          background: @carta@; }
QRadioButton::indicator:checked { width: 6px; height: 6px; border: 5px solid @accento@;
                                  background: @suAccento@; }
QRadioButton::indicator:disabled { border-color: @spento@; background: @sfondo@; }
QProgressBar { background: @rilievo@; color: @testo@; border: 1px solid @bordo@; border-radius: 6px;
               text-align: center; min-height: 18px; }
QProgressBar::chunk { background: @velo@; border-radius: 5px; }
QHeaderView::section { background: @rilievo@; border: none; border-right: 1px solid @bordo@;
                       border-bottom: 1px solid @bordo@; padding: 5px 8px; }
QTableView { gridline-color: @rilievo@; border: 1px solid @bordo@; }
)";

QHash<QString, QColor> perNome(const Tinte& t) {
  return {{QStringLiteral("sfondo"), t.sfondo},       {QStringLiteral("carta"), t.carta},
          {QStringLiteral("rilievo"), t.rilievo},     {QStringLiteral("testo"), t.testo},
          {QStringLiteral("tenue"), t.tenue},         {QStringLiteral("spento"), t.spento},
          {QStringLiteral("bordo"), t.bordo},         {QStringLiteral("accento"), t.accento},
          {QStringLiteral("suAccento"), t.suAccento}, {QStringLiteral("velo"), t.velo},
          {QStringLiteral("pronto"), t.pronto},       {QStringLiteral("fondoPronto"), t.fondoPronto},
          {QStringLiteral("occupato"), t.occupato},   {QStringLiteral("fondoOccupato"), t.fondoOccupato},
          {QStringLiteral("guasto"), t.guasto},       {QStringLiteral("fondoGuasto"), t.fondoGuasto}};
}

void spegni(QPalette& palette, const Tinte& t) {
  for (const auto ruolo :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
    palette.setColor(QPalette::Disabled, ruolo, t.spento);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, t.rilievo);
  palette.setColor(QPalette::Disabled, QPalette::Base, t.sfondo);
}

}  // namespace

const Tinte& tinte(bool scuro) {
  return scuro ? kScuro : kChiaro;
}

QPalette tavolozza(const Tinte& t) {
  QPalette palette(t.testo, t.carta, t.carta.lighter(), t.bordo.darker(), t.bordo, t.testo, t.suAccento,
                   t.carta, t.sfondo);
  palette.setColor(QPalette::Button, t.carta);
  palette.setColor(QPalette::AlternateBase, t.sfondo);
  palette.setColor(QPalette::Midlight, t.velo);
  palette.setColor(QPalette::Mid, t.bordo);
  palette.setColor(QPalette::Dark, t.bordo);
  palette.setColor(QPalette::Highlight, t.accento);
  palette.setColor(QPalette::HighlightedText, t.suAccento);
  palette.setColor(QPalette::Link, t.accento);
  palette.setColor(QPalette::LinkVisited, t.accento);
  palette.setColor(QPalette::PlaceholderText, t.tenue);
  palette.setColor(QPalette::ToolTipBase, t.carta);
  palette.setColor(QPalette::ToolTipText, t.testo);
  spegni(palette, t);
  return palette;
}

QString foglioDiStile(const Tinte& t) {
  const QHash<QString, QColor> colori = perNome(t);
  const QStringList pezzi = QString::fromLatin1(kFoglio).split(QLatin1Char('@'));
  QString foglio;
  for (const QString& pezzo : pezzi) {
    const auto colore = colori.find(pezzo);
    foglio += colore == colori.end() ? pezzo : colore->name();
  }
  return foglio;
}

}  // namespace stile
