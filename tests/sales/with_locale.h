#pragma once

#include <QLocale>

/// The screens' locale for the life of one test.
class ConLocale {
 public:
  explicit ConLocale(const char* nome) { QLocale::setDefault(QLocale(QLatin1String(nome))); }
  ~ConLocale() { QLocale::setDefault(prima_); }
  ConLocale(const ConLocale&) = delete;
  ConLocale& operator=(const ConLocale&) = delete;

 private:
  QLocale prima_;
};
