#pragma once

#include <QIcon>
#include <QString>

class QApplication;
class QPushButton;
class QWidget;

/// The look of every screen: one palette and style sheet, light or dark as the desktop asks.
///
/// Screens say what a widget is by dynamic properties, which may be set in Designer too:
/// - `primario` (bool) on the one button that a screen is there for;
/// - `titolo` (bool) on a heading label, `nota` (bool) on secondary text;
/// - `marchio` (bool) on the program's sign, `medaglione` (bool) on an icon that illustrates a small screen;
/// - `scheda` (bool) on a frame that groups controls as a card;
/// - `distintivo` (text: "neutro", "pronto", "occupato", "guasto") on a read-only box that shows a state.
namespace stile {

enum class Tema { ComeIlDesktop, Chiaro, Scuro };

/// Fusion with the program's palette, style sheet and pictures. `ComeIlDesktop` looks at the palette that the
/// platform gave the application, so it has to run before anything else sets one.
void applica(QApplication& applicazione, Tema tema = Tema::ComeIlDesktop);

/// An icon of the program's family by file name without extension ("upload"), painted in the palette's text
/// colours, sharp at every scale. The file is read when the icon is first painted; one that is not there
/// paints nothing.
QIcon icona(const QString& nome);
/// As above in the colour of text on a primary button.
QIcon iconaPrimaria(const QString& nome);
/// As above in a colour of its own, whatever the palette.
QIcon iconaTinta(const QString& nome, const QColor& tinta);
/// True if the file of an icon is there.
bool iconaPresente(const QString& nome);
/// Folder with the icons' SVG files; set once at start.
void cartellaIcone(const QString& cartella);

/// Makes `pulsante` the primary one of its screen, with an icon where `nome` is not empty.
void primario(QPushButton& pulsante, const QString& nome = {});

/// What a state box tells at a glance.
enum class Distintivo { Neutro, Pronto, Occupato, Guasto };
/// Sets the `distintivo` property and restyles the widget.
void distintivo(QWidget& riquadro, Distintivo stato);

}  // namespace stile
