#include <QString>

QString rename(const QString& typed) {
  return QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='") + typed + QStringLiteral("'");
}
