#include "controls/program_style.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <algorithm>

#include "controls/heading_font.h"
#include "controls/palette.h"
#include "controls/style.h"

namespace style {

namespace {

// Of an icon on a button, pixels: how far it reaches below the line of the letters, and its way to them.
constexpr int kIconBelow = 2;
constexpr int kIconGap = 4;

// Of a list that folds up: its letters' share of the height and the pixels around it, as of buttons and
// fields in the style sheet.
constexpr qreal kOfLetters = 1.15;
constexpr int kAroundLetters = 12;
constexpr qreal kListCorner = 5;
constexpr qreal kFocusPen = 2;
constexpr qreal kArrow = 3.5;
constexpr qreal kArrowPen = 1.5;

// Of a check box, pixels.
constexpr qreal kHalf = 0.5;
constexpr qreal kTickCorner = 3;
constexpr qreal kTickPen = 2;

struct Picture {
  QStyle::StandardPixmap which;
  const char* name;
  /// Its colour; that of the text on buttons where there is none.
  QColor Tints::*tint;
};

constexpr Picture kPictures[] = {
    {QStyle::SP_MessageBoxCritical, "circle-x", &Tints::fault},
    {QStyle::SP_MessageBoxWarning, "triangle-alert", &Tints::busy},
    {QStyle::SP_MessageBoxQuestion, "circle-help", &Tints::accent},
    {QStyle::SP_MessageBoxInformation, "info", &Tints::accent},
    {QStyle::SP_ArrowBack, "arrow-left", nullptr},
    {QStyle::SP_ArrowForward, "arrow-right", nullptr},
    {QStyle::SP_FileDialogToParent, "arrow-up", nullptr},
    {QStyle::SP_FileDialogNewFolder, "folder-plus", nullptr},
    {QStyle::SP_FileDialogListView, "rows-3", nullptr},
    {QStyle::SP_FileDialogDetailedView, "layout-list", nullptr},
    {QStyle::SP_DirIcon, "folder", nullptr},
    {QStyle::SP_DirClosedIcon, "folder", nullptr},
    {QStyle::SP_DirOpenIcon, "folder-open", nullptr},
    {QStyle::SP_DirHomeIcon, "folder", nullptr},
    {QStyle::SP_FileIcon, "file", nullptr},
    {QStyle::SP_ComputerIcon, "monitor", nullptr},
};

}  // namespace

ProgramStyle::ProgramStyle(const Tints& tints) : QProxyStyle(QStringLiteral("Fusion")), tints_(tints) {}

QIcon ProgramStyle::own(StandardPixmap which) const {
  for (const Picture& picture : kPictures) {
    const QString name = QLatin1String(picture.name);
    if (picture.which != which || !iconExists(name)) continue;
    return picture.tint ? tintedIcon(name, tints_.*picture.tint) : icon(name);
  }
  return {};
}

void ProgramStyle::polish(QWidget* who) {
  QProxyStyle::polish(who);
  if (auto* const label = qobject_cast<QLabel*>(who); label != nullptr && label->property("heading").toBool())
    growAsHeading(*label);
  auto* const button = qobject_cast<QPushButton*>(who);
  if (button == nullptr || button->text().isEmpty()) return;
  const int usual = pixelMetric(PM_ButtonIconSize, nullptr, button);
  if (button->iconSize() != QSize(usual, usual)) return;
  // The toolkit sets the caption right beside the icon; an icon in a wider place stands at its left.
  const int side = std::max(usual, button->fontMetrics().ascent() + kIconBelow);
  button->setIconSize({side + kIconGap, side});
}

QIcon ProgramStyle::standardIcon(StandardPixmap which, const QStyleOption* options,
                                 const QWidget* who) const {
  const QIcon ours = own(which);
  return ours.isNull() ? QProxyStyle::standardIcon(which, options, who) : ours;
}

QPixmap ProgramStyle::standardPixmap(StandardPixmap which, const QStyleOption* options,
                                     const QWidget* who) const {
  const QIcon ours = own(which);
  return ours.isNull() ? QProxyStyle::standardPixmap(which, options, who)
                       : ours.pixmap(pixelMetric(PM_LargeIconSize, options, who));
}

int ProgramStyle::styleHint(StyleHint which, const QStyleOption* options, const QWidget* who,
                            QStyleHintReturn* data) const {
  if (which == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(which, options, who, data);
}

void ProgramStyle::drawComboBox(const QStyleOptionComboBox& options, QPainter& painter,
                                const QWidget* who) const {
  const bool on = options.state.testFlag(State_Enabled);
  const bool focus = on && options.state.testFlag(State_HasFocus);
  const bool below = on && options.state.testFlag(State_MouseOver);
  const qreal pen = focus ? kFocusPen : 1;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(!on ? tints_.emphasis : focus || below ? tints_.accent : tints_.border, pen));
  painter.setBrush(!on     ? tints_.background
                   : below ? tints_.emphasis
                           : options.palette.color(QPalette::Button));
  const qreal inset = pen * kHalf;
  painter.drawRoundedRect(QRectF(options.rect).adjusted(inset, inset, -inset, -inset), kListCorner,
                          kListCorner);
  const QRectF arrow = subControlRect(CC_ComboBox, &options, SC_ComboBoxArrow, who);
  const QPointF middle = arrow.center();
  painter.setPen(QPen(on ? tints_.text : tints_.off, kArrowPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF{middle + QPointF(-kArrow, -kArrow * kHalf),
                                 middle + QPointF(0, kArrow * kHalf),
                                 middle + QPointF(kArrow, -kArrow * kHalf)});
  painter.restore();
}

void ProgramStyle::drawComplexControl(ComplexControl which, const QStyleOptionComplex* options,
                                      QPainter* painter, const QWidget* who) const {
  const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(options);
  if (which == CC_ComboBox && list && !list->editable) return drawComboBox(*list, *painter, who);
  QProxyStyle::drawComplexControl(which, options, painter, who);
}

QSize ProgramStyle::sizeFromContents(ContentsType which, const QStyleOption* options, const QSize& contents,
                                     const QWidget* who) const {
  QSize size = QProxyStyle::sizeFromContents(which, options, contents, who);
  if (which == CT_ComboBox && who)
    size.setHeight(qRound(kOfLetters * who->fontMetrics().height()) + kAroundLetters);
  return size;
}

void ProgramStyle::drawCheckBox(const QStyleOption& options, QPainter& painter) const {
  const bool on = options.state.testFlag(State_Enabled);
  const bool ticked = options.state.testFlag(State_On);
  const bool partly = options.state.testFlag(State_NoChange);
  const QRectF place = QRectF(options.rect).adjusted(kHalf, kHalf, -kHalf, -kHalf);
  const QColor strong = on ? tints_.accent : tints_.off;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(ticked || partly ? strong : on ? tints_.faint : tints_.off);
  painter.setBrush(ticked || partly ? strong : on ? tints_.paper : tints_.background);
  painter.drawRoundedRect(place, kTickCorner, kTickCorner);
  painter.setPen(
      QPen(on ? tints_.onAccent : tints_.background, kTickPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto at = [&](qreal x, qreal y) {
    return QPointF(place.left() + x * place.width(), place.top() + y * place.height());
  };
  if (ticked) painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.30)});
  if (partly) painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
  painter.restore();
}

void ProgramStyle::drawPrimitive(PrimitiveElement which, const QStyleOption* options, QPainter* painter,
                                 const QWidget* who) const {
  if (which == PE_IndicatorCheckBox) return drawCheckBox(*options, *painter);
  QProxyStyle::drawPrimitive(which, options, painter, who);
}

void ProgramStyle::drawControl(ControlElement which, const QStyleOption* options, QPainter* painter,
                               const QWidget* who) const {
  const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(options);
  if (!entry || (which != CE_MenuItem && which != CE_MenuBarItem))
    return QProxyStyle::drawControl(which, options, painter, who);
  QStyleOptionMenuItem copy(*entry);
  copy.palette.setColor(QPalette::Highlight, tints_.veil);
  copy.palette.setColor(QPalette::HighlightedText, tints_.text);
  QProxyStyle::drawControl(which, &copy, painter, who);
}

}  // namespace style
