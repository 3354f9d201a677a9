#include "sostegno/cartella_temporanea.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

CartellaTemporanea::CartellaTemporanea() : prima_(QDir::currentPath()) {
  EXPECT_TRUE(cartella_.isValid());
  EXPECT_TRUE(QDir::setCurrent(cartella_.path()));
}

CartellaTemporanea::~CartellaTemporanea() { QDir::setCurrent(prima_); }

QString CartellaTemporanea::file(const QString& nome) const { return cartella_.filePath(nome); }

QString CartellaTemporanea::scrivi(const QString& nome, const QByteArray& byte) const {
  QFile uscita(file(nome));
  EXPECT_TRUE(uscita.open(QIODevice::WriteOnly)) << nome.toStdString();
  EXPECT_EQ(uscita.write(byte), byte.size());
  return file(nome);
}

QByteArray CartellaTemporanea::leggi(const QString& nome) const {
  QFile entrata(file(nome));
  EXPECT_TRUE(entrata.open(QIODevice::ReadOnly)) << nome.toStdString();
  return entrata.readAll();
}
