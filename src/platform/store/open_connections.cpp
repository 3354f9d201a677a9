#include "platform/store/open_connections.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/store/connection.h"

namespace store::open_connections {

namespace {
std::vector<Connection*>& all() {
  static std::vector<Connection*> connections;
  return connections;
}
}  // namespace

void add(Connection* connection) {
  all().push_back(connection);
}

void remove(Connection* connection) noexcept {
  std::erase(all(), connection);
}

std::vector<Connection*> onFile(const QString& path) {
  const QString wanted = QFileInfo(path).canonicalFilePath();
  std::vector<Connection*> found;
  if (wanted.isEmpty()) return found;
  for (Connection* connection : all())
    if (QFileInfo(connection->path()).canonicalFilePath() == wanted) found.push_back(connection);
  return found;
}

}  // namespace store::open_connections
