#pragma once

#include <QIcon>
#include <QString>

class QApplication;
class QPainter;
class QPushButton;
class QRect;
class QWidget;

/// The look of every screen: one palette and style sheet, light or dark as the desktop asks.
///
/// Screens say what a widget is by dynamic properties, which may be set in Designer too:
/// - `primary` (bool) on the one button that a screen is there for;
/// - `heading` (bool) on a heading label, `note` (bool) on secondary text;
/// - `medallion` (bool) on an icon that illustrates a small screen;
/// - `card` (bool) on a frame that groups controls as a card;
/// - `danger` (bool) on a text that warns of a loss beside the command that causes it;
/// - `badge` (text: "neutral", "ready", "busy", "fault") on a read-only box that shows a state.
namespace style {

enum class Theme { AsDesktop, Light, Dark };

/// Fusion with the program's palette, style sheet and pictures. `AsDesktop` looks at the palette that the
/// platform gave the application, so it has to run before anything else sets one.
void apply(QApplication& application, Theme theme = Theme::AsDesktop);
/// As above, and the style sheet later: with `whole`, and at the latest with the first window but those that
/// bear the property `bare` (bool) and need none of it. Reading the sheet and drawing through it takes a
/// tenth of a start.
void begin(QApplication& application, Theme theme = Theme::AsDesktop);
/// Lays the style sheet on if it is still to come.
void whole();

/// An icon of the program's family by file name without extension ("upload"), painted in the palette's text
/// colours, sharp at every scale. The file is read when the icon is first painted; one that is not there
/// paints nothing.
QIcon icon(const QString& name);
/// As above in the colour of text on a primary button.
QIcon primaryIcon(const QString& name);
/// As above in a colour of its own, whatever the palette.
QIcon tintedIcon(const QString& name, const QColor& tint);
/// True if the file of an icon is there.
bool iconExists(const QString& name);
/// Folder with the icons' SVG files; set once at start.
void iconFolder(const QString& folder);

/// Makes `button` the primary one of its screen, with an icon where `name` is not empty.
void primary(QPushButton& button, const QString& name = {});

/// Paints what the style sheet paints of a `card`, for a window without the sheet.
void paintCard(QPainter& painter, const QRect& place);

/// What a state box tells at a glance.
enum class Badge { Neutral, Ready, Busy, Fault };
/// An icon that tells a state, in the colour of its text.
QIcon signIcon(const QString& name, Badge state);
/// Sets the `badge` property and restyles the widget.
void badge(QWidget& box, Badge state);

}  // namespace style
