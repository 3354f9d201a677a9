#include "platform/store/store.h"

void rename(store::Database& archive, const QString& typed) {
  archive.Execute(u"UPDATE TAB_VENDUTO SET Descrizione ='" + store::StatementValue{typed} + u"'");
}
