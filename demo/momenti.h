#pragma once

#include <QString>
#include <filesystem>

#include "demo/regista.h"

/// Moments that steps wait for, and names that more than one part of the road uses.

inline const QString kLavoro = QStringLiteral("Form_GestioneMMC");
inline const QString kArchivioArticoli = QStringLiteral("Form_ArchivioArticoli");
inline const QString kArchivioVenduto = QStringLiteral("Form_ArchivioVenduto");

Regista::Quando visibile(const QString& nome);
bool acceso(const QString& nomeFinestra, const QString& nome);
/// In a modal screen, its boxes gone.
Regista::Quando abilitato(const QString& nomeFinestra, const QString& nome);

std::filesystem::path percorso(const QString& nome);
