#pragma once

#include <QProgressBar>

#include "controls/steady_progress.h"

/// A progress bar that nobody sees, for procedures that move one.
struct HiddenProgress {
  QProgressBar bar;
  SteadyProgress progress{bar};
};
