#include "platform/text/file_name.h"

#include <algorithm>

QString FileName(const QString& path) {
  return path.mid(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}
