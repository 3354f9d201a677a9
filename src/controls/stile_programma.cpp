#include "controls/stile_programma.h"

#include <QStyleOption>

#include "controls/stile.h"
#include "controls/tavolozza.h"

namespace stile {

namespace {

struct Figura {
  QStyle::StandardPixmap quale;
  const char* nome;
  /// Its colour; that of the text on buttons where there is none.
  QColor Tinte::*tinta;
};

constexpr Figura kFigure[] = {
    {QStyle::SP_MessageBoxCritical, "circle-x", &Tinte::guasto},
    {QStyle::SP_MessageBoxWarning, "triangle-alert", &Tinte::occupato},
    {QStyle::SP_MessageBoxQuestion, "circle-help", &Tinte::accento},
    {QStyle::SP_MessageBoxInformation, "info", &Tinte::accento},
    {QStyle::SP_ArrowBack, "arrow-left", nullptr},
    {QStyle::SP_ArrowForward, "arrow-right", nullptr},
    {QStyle::SP_FileDialogToParent, "arrow-up", nullptr},
    {QStyle::SP_FileDialogNewFolder, "folder-plus", nullptr},
    {QStyle::SP_FileDialogListView, "list", nullptr},
    {QStyle::SP_FileDialogDetailedView, "layout-list", nullptr},
    {QStyle::SP_DirIcon, "folder", nullptr},
    {QStyle::SP_DirClosedIcon, "folder", nullptr},
    {QStyle::SP_DirOpenIcon, "folder-open", nullptr},
    {QStyle::SP_DirHomeIcon, "folder", nullptr},
    {QStyle::SP_FileIcon, "file", nullptr},
    {QStyle::SP_ComputerIcon, "monitor", nullptr},
};

}  // namespace

StileProgramma::StileProgramma(const Tinte& tinte) : QProxyStyle(QStringLiteral("Fusion")), tinte_(tinte) {}

QIcon StileProgramma::propria(StandardPixmap quale) const {
  for (const Figura& figura : kFigure) {
    const QString nome = QLatin1String(figura.nome);
    if (figura.quale != quale || !iconaPresente(nome)) continue;
    return figura.tinta ? iconaTinta(nome, tinte_.*figura.tinta) : icona(nome);
  }
  return {};
}

QIcon StileProgramma::standardIcon(StandardPixmap quale, const QStyleOption* opzioni,
                                   const QWidget* chi) const {
  const QIcon nostra = propria(quale);
  return nostra.isNull() ? QProxyStyle::standardIcon(quale, opzioni, chi) : nostra;
}

QPixmap StileProgramma::standardPixmap(StandardPixmap quale, const QStyleOption* opzioni,
                                       const QWidget* chi) const {
  const QIcon nostra = propria(quale);
  return nostra.isNull() ? QProxyStyle::standardPixmap(quale, opzioni, chi)
                         : nostra.pixmap(pixelMetric(PM_LargeIconSize, opzioni, chi));
}

int StileProgramma::styleHint(StyleHint quale, const QStyleOption* opzioni, const QWidget* chi,
                              QStyleHintReturn* dati) const {
  if (quale == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(quale, opzioni, chi, dati);
}

void StileProgramma::drawControl(ControlElement quale, const QStyleOption* opzioni, QPainter* pittore,
                                 const QWidget* chi) const {
  const auto* voce = qstyleoption_cast<const QStyleOptionMenuItem*>(opzioni);
  if (!voce || (quale != CE_MenuItem && quale != CE_MenuBarItem))
    return QProxyStyle::drawControl(quale, opzioni, pittore, chi);
  QStyleOptionMenuItem copia(*voce);
  copia.palette.setColor(QPalette::Highlight, tinte_.velo);
  copia.palette.setColor(QPalette::HighlightedText, tinte_.testo);
  QProxyStyle::drawControl(quale, &copia, pittore, chi);
}

}  // namespace stile
