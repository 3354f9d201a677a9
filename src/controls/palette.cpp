#include "controls/palette.h"

#include <QHash>

namespace style {

namespace {

const Tints kLight{
    .background = QColor(0xF3F5F6),
    .paper = QColor(0xFFFFFF),
    .emphasis = QColor(0xE8ECEE),
    .text = QColor(0x1B262C),
    .faint = QColor(0x4F5F68),
    .off = QColor(0x8A979E),
    .border = QColor(0x7A8890),
    .accent = QColor(0x0F6670),
    .onAccent = QColor(0xFFFFFF),
    .veil = QColor(0xD3E8EA),
    .bar = QColor(0x559BA3),
    .barGround = QColor(0xFFFFFF),
    .ready = QColor(0x0B5D3B),
    .readyGround = QColor(0xD8F1E3),
    .busy = QColor(0x7A4700),
    .busyGround = QColor(0xFCEBC8),
    .fault = QColor(0x9B1C1C),
    .faultGround = QColor(0xFBE1E1),
};

const Tints kDark{
    .background = QColor(0x1A2024),
    .paper = QColor(0x242C31),
    .emphasis = QColor(0x2E383E),
    .text = QColor(0xE9EEF0),
    .faint = QColor(0xA9B6BC),
    .off = QColor(0x6F7C83),
    .border = QColor(0x758790),
    .accent = QColor(0x63C4C8),
    .onAccent = QColor(0x0C2124),
    .veil = QColor(0x1F4A4F),
    .bar = QColor(0x32747A),
    .barGround = QColor(0x1A2024),
    .ready = QColor(0x8FE0B4),
    .readyGround = QColor(0x173828),
    .busy = QColor(0xF3C77A),
    .busyGround = QColor(0x3C2E12),
    .fault = QColor(0xF5A9A9),
    .faultGround = QColor(0x421E20),
};

// A name between two "@" is replaced by that colour. Lists are drawn by the program's style, as high as
// fields and buttons are here; scroll bars are left to Fusion, which draws them from the palette.
constexpr auto kSheet = R"(
QToolTip { background: @paper@; color: @text@; border: 1px solid @border@; padding: 4px; }
QPushButton { background: @paper@; color: @text@; border: 1px solid @border@; border-radius: 6px;
              padding: 5px 16px; min-height: 1.15em; }
QPushButton:hover { background: @emphasis@; border-color: @accent@; }
QPushButton:pressed { background: @veil@; }
QPushButton:focus { border: 2px solid @accent@; padding: 4px 15px; }
QPushButton:disabled { background: @background@; color: @off@; border-color: @emphasis@; }
QPushButton[primary="true"] { background: @accent@; color: @onAccent@; border-color: @accent@;
                               font-weight: 600; }
QPushButton[primary="true"]:hover { border-color: @text@; }
QPushButton[primary="true"]:focus { border: 2px solid @text@; }
QPushButton[primary="true"]:disabled { background: @emphasis@; color: @off@; border-color: @emphasis@; }
QPushButton, QToolButton, QRadioButton { outline: none; }
QToolButton { background: @paper@; color: @text@; border: 1px solid @border@; border-radius: 6px;
              padding: 5px 10px; }
QToolButton:hover { background: @emphasis@; border-color: @accent@; }
QToolButton:pressed, QToolButton:checked { background: @veil@; }
QToolButton:focus { border-color: @accent@; }
QToolButton:disabled { background: @background@; color: @off@; border-color: @emphasis@; }
QToolBar { background: @background@; border: none; border-bottom: 1px solid @emphasis@; }
QToolBar QToolButton { background: transparent; border-color: transparent; padding: 5px; }
QToolBar QToolButton:hover, QToolBar QToolButton:focus { border-color: @accent@; }
QDialog > QToolButton { padding: 4px; }
QToolButton#AzioneEsito { padding: 3px 16px 4px; min-height: 1.15em; }
QListView#sidebar { icon-size: 16px; }
QListWidget::item { min-height: 20px; }
QLineEdit, QTextEdit, QPlainTextEdit { background: @paper@; color: @text@; border: 1px solid @border@;
                                       border-radius: 5px; padding: 5px 7px;
                                       selection-background-color: @accent@; selection-color: @onAccent@; }
QLineEdit { min-height: 1.15em; }
QLineEdit:focus, QTextEdit:focus, QPlainTextEdit:focus { border: 2px solid @accent@; padding: 4px 6px; }
QLineEdit:disabled, QTextEdit:disabled, QPlainTextEdit:disabled { background: @background@; color: @off@;
                                                                  border-color: @emphasis@; }
QLineEdit:read-only, QTextEdit[readOnly="true"], QPlainTextEdit[readOnly="true"] {
  background: @emphasis@; border-color: @emphasis@; }
QLineEdit:read-only:focus, QTextEdit[readOnly="true"]:focus, QPlainTextEdit[readOnly="true"]:focus {
  border-color: @accent@; }
QLineEdit[badge] { font-weight: 600; }
QLineEdit[badge="ready"] { background: @readyGround@; color: @ready@; border-color: @ready@; }
QLineEdit[badge="busy"] { background: @busyGround@; color: @busy@; border-color: @busy@; }
QLineEdit[badge="fault"] { background: @faultGround@; color: @fault@; border-color: @fault@; }
QLabel[heading="true"] { font-weight: 600; }
QLabel[note="true"] { color: @faint@; }
QLabel[outcome="done"] { color: @ready@; }
QLabel[outcome="warning"] { color: @busy@; font-weight: 600; }
QLabel[outcome="failed"] { color: @fault@; font-weight: 600; }
QLabel[danger="true"] { color: @fault@; }
QLabel[medallion="true"] { background: @veil@; border-radius: 36px; min-width: 72px; max-width: 72px;
                            min-height: 72px; max-height: 72px; qproperty-alignment: AlignCenter; }
QFrame[card="true"] { background: @paper@; border: 1px solid @emphasis@; border-radius: 10px; }
QGroupBox { border: 1px solid @border@; border-radius: 8px; margin-top: 1.1em; padding: 10px; }
QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 4px; color: @faint@; }
QRadioButton { padding: 3px; border: 1px solid transparent; border-radius: 5px; spacing: 8px; }
QRadioButton:focus { border-color: @accent@; }
QRadioButton::indicator { width: 14px; height: 14px; border: 1px solid @faint@; border-radius: 8px;
                          background: @paper@; }
QRadioButton::indicator:checked { width: 6px; height: 6px; border: 5px solid @accent@;
                                  background: @onAccent@; }
QRadioButton::indicator:disabled { border-color: @off@; background: @background@; }
QProgressBar { background: @barGround@; color: @text@; border: 1px solid @border@; border-radius: 6px;
               text-align: center; min-height: 18px; }
QProgressBar::chunk { background: @bar@; border-radius: 5px; }
QHeaderView::section { background: @emphasis@; border: none; border-right: 1px solid @border@;
                       border-bottom: 1px solid @border@; padding: 5px 8px; }
QTableView { gridline-color: @emphasis@; border: 1px solid @border@; }
)";

QHash<QString, QColor> byName(const Tints& t) {
  return {{QStringLiteral("background"), t.background},
          {QStringLiteral("paper"), t.paper},
          {QStringLiteral("emphasis"), t.emphasis},
          {QStringLiteral("text"), t.text},
          {QStringLiteral("faint"), t.faint},
          {QStringLiteral("off"), t.off},
          {QStringLiteral("border"), t.border},
          {QStringLiteral("accent"), t.accent},
          {QStringLiteral("onAccent"), t.onAccent},
          {QStringLiteral("veil"), t.veil},
          {QStringLiteral("bar"), t.bar},
          {QStringLiteral("barGround"), t.barGround},
          {QStringLiteral("ready"), t.ready},
          {QStringLiteral("readyGround"), t.readyGround},
          {QStringLiteral("busy"), t.busy},
          {QStringLiteral("busyGround"), t.busyGround},
          {QStringLiteral("fault"), t.fault},
          {QStringLiteral("faultGround"), t.faultGround}};
}

void switchOff(QPalette& palette, const Tints& t) {
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
    palette.setColor(QPalette::Disabled, role, t.off);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, t.emphasis);
  palette.setColor(QPalette::Disabled, QPalette::Base, t.background);
}

}  // namespace

const Tints& tints(bool dark) {
  return dark ? kDark : kLight;
}

QPalette palette(const Tints& t) {
  QPalette palette(t.text, t.paper, t.paper.lighter(), t.border.darker(), t.border, t.text, t.onAccent,
                   t.paper, t.background);
  palette.setColor(QPalette::Button, t.paper);
  palette.setColor(QPalette::AlternateBase, t.background);
  palette.setColor(QPalette::Midlight, t.veil);
  palette.setColor(QPalette::Mid, t.border);
  palette.setColor(QPalette::Dark, t.border);
  palette.setColor(QPalette::Highlight, t.accent);
  palette.setColor(QPalette::HighlightedText, t.onAccent);
  palette.setColor(QPalette::Link, t.accent);
  palette.setColor(QPalette::LinkVisited, t.accent);
  palette.setColor(QPalette::PlaceholderText, t.faint);
  palette.setColor(QPalette::ToolTipBase, t.paper);
  palette.setColor(QPalette::ToolTipText, t.text);
  switchOff(palette, t);
  return palette;
}

QString styleSheetText(const Tints& t) {
  const QHash<QString, QColor> colours = byName(t);
  const QStringList pieces = QString::fromLatin1(kSheet).split(QLatin1Char('@'));
  QString sheet;
  for (const QString& token : pieces) {
    const auto colour = colours.find(token);
    sheet += colour == colours.end() ? token : colour->name();
  }
  return sheet;
}

}  // namespace style
