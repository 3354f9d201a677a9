#pragma once

/// Sleeps until the event loop has something to deliver, and lets it through once. Input is eaten while a
/// `BusyGuard` lives. Only for a loop that a timer is sure to wake.
void WaitForEvent();
