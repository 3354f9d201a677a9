#pragma once

#include <QString>
#include <filesystem>

#include "demo/director.h"

/// Moments that steps wait for, and names that more than one part of the road uses.

inline const QString kWork = QStringLiteral("Form_GestioneMMC");
inline const QString kArticleArchive = QStringLiteral("Form_ArchivioArticoli");
inline const QString kSalesArchive = QStringLiteral("Form_ArchivioVenduto");

Director::When visible(const QString& name);
bool on(const QString& windowName, const QString& name);
/// In a modal screen, its boxes gone.
Director::When enabled(const QString& windowName, const QString& name);

std::filesystem::path path(const QString& name);
/// Of amounts, as the screens show and export them.
char decimalSign();
