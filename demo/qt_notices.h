#pragma once

/// Keeps off stderr what Qt says of every window of a platform without a desktop, and nothing else. To be
/// called before the application object is made.
void silencePlatform();
