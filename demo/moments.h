#pragma once

#include <QString>
#include <filesystem>

#include "demo/director.h"

/// Moments that steps wait for, and names that more than one part of the road uses.

inline const QString kWork = QStringLiteral("Form_GestioneMMC");
inline const QString kArticleArchive = QStringLiteral("Form_ArchivioArticoli");
inline const QString kSalesReception = QStringLiteral("Form_RicezioneVenduto");
inline const QString kSalesArchive = QStringLiteral("Form_ArchivioVenduto");

Director::When visible(const QString& name);
bool on(const QString& windowName, const QString& name);
/// A control of the window, by its name, that can be seen.
Director::When shownIn(const QString& windowName, const QString& name);
/// In a screen that no other and no box stands over.
Director::When enabled(const QString& windowName, const QString& name);

std::filesystem::path path(const QString& name);
/// Of amounts, as the screens show and export them.
char decimalSign();
