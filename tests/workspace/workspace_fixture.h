#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <functional>

#include "articles/back_room.h"

/// The workspace of the article archive on the screen, behind the menu of the program, under the hands of a
/// person who uses mouse and keys.
struct AreaDiLavoro : testing::Test {
  static constexpr int kComandi = 4;

  Bottega bottega;
  QPointer<QWidget> schermo;

  AreaDiLavoro();
  void SetUp() override;

  template <typename Tipo = QWidget>
  Tipo& controllo(const char* nome) const {
    auto* trovato = schermo->findChild<Tipo*>(QLatin1String(nome));
    if (!trovato) throw std::runtime_error(std::string("no control ") + nome);
    return *trovato;
  }
  QString testo(const char* etichetta) const { return controllo<QLabel>(etichetta).text(); }
  void clic(const char* nome) const;
  /// Opens the File menu and clicks the entry.
  void voce(const char* nome) const;
  bool attiva(const char* nome) const { return controllo<QAction>(nome).isEnabled(); }
  /// How many of the four commands are enabled.
  int comandiAbilitati() const;

  /// "Nuovo Archivio" to a name in the test's folder; the copy is open afterwards.
  void nuovo(const QString& nome = QStringLiteral("archivio.mdb"));
  void apri(const QString& nome = QStringLiteral("archivio.mdb"));

  /// Runs `gesto`, and inside the modal screen that it opens `dentro`, which has to close it.
  void conModale(const std::function<void()>& gesto, const std::function<void(QWidget&)>& dentro) const;
  QWidget* menu() const { return bottega.schermate.trova(QStringLiteral("start")); }
};
