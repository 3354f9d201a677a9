#pragma once

#include <QAbstractButton>
#include <QCoreApplication>
#include <QWidget>

#include "bench/banco.h"

/// One screen of the program on the bench, under its own controls.
class SchermoDiBanco {
 public:
  /// Opens it and lets it paint.
  SchermoDiBanco(Banco& banco, const char* nome)
      : banco_(banco), nome_(QLatin1String(nome)), schermo_(banco.schermate.mostra(nome_, banco.contesto)) {
    QCoreApplication::processEvents();
  }
  ~SchermoDiBanco() { banco_.schermate.scarica(nome_); }
  SchermoDiBanco(const SchermoDiBanco&) = delete;
  SchermoDiBanco& operator=(const SchermoDiBanco&) = delete;

  template <typename Controllo>
  Controllo& controllo(const char* nome) {
    return *schermo_.findChild<Controllo*>(QLatin1String(nome));
  }
  /// Works a command and lets the screen paint.
  void premi(const char* nome) {
    controllo<QAbstractButton>(nome).click();
    QCoreApplication::processEvents();
  }

 private:
  Banco& banco_;
  QString nome_;
  QWidget& schermo_;
};
