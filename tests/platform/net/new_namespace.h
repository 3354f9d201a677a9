#pragma once

#include <QByteArray>
#include <functional>
#include <optional>

/// What a child process gave when its body gave no status, and when it could not be prepared.
inline constexpr int kNothing = 100;
inline constexpr int kNotPrepared = 101;

/// Gives a status from 0 to 99, or nothing.
using Body = std::function<std::optional<int>()>;

/// The status that `body` gives in a child process without the superuser's rights.
int asOrdinaryUser(const Body& body);
/// The same on a network of its own that has nothing but a loopback, or not even that one up, where the child
/// may do what it likes.
int inFreshNetwork(const Body& body, bool loopback = true);
/// Writes a text to a file of the system, at one stroke; whether it was taken.
bool writeSystemFile(const char* file, const QByteArray& text);
