#include "platform/store/store.h"

void rename(store::Database& archive, const QString& typed) {
  archive.Execute(store::Statement::AsWritten(typed));
}
