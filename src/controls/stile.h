#pragma once

#include <QIcon>
#include <QString>

class QApplication;

/// The look of every screen: one palette and style sheet, light or dark as the desktop asks.
namespace stile {

void applica(QApplication& applicazione);
/// An icon of the program's family by file name without extension ("upload"), painted in the palette's text
/// colours, sharp at every scale.
QIcon icona(const QString& nome);
/// Folder with the icons' SVG files; set once at start.
void cartellaIcone(const QString& cartella);

}  // namespace stile
