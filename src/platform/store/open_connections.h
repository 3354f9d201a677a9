#pragma once

#include <QString>
#include <vector>

namespace store {

class Connection;

/// The connections that the process has open. A file with one must not be opened and closed by plain calls:
/// closing it drops the engine's locks.
namespace open_connections {

void add(Connection* connection);
void remove(Connection* connection) noexcept;
/// Those on the same file as `path`, by whatever path it was opened.
std::vector<Connection*> onFile(const QString& path);

}  // namespace open_connections
}  // namespace store
